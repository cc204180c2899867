// Programs in C, one linked with the library and one that loads it by name, used by a person.
#include <dlglib/dlglib_c.h>
#include <windows.h>

#include <array>
#include <functional>
#include <string>

#include "check.h"
#include "model_folder.h"
#include "parts.h"
#include "platform/os/sjis_wide.h"
#include "programs.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"

namespace client {
namespace {

std::string Utf8(const std::string& sjis) {
  std::array<char, 1024> utf8 = {};
  Check(DlglibSjisToUtf8(sjis.c_str(), static_cast<std::int32_t>(utf8.size()), utf8.data(), nullptr) == DLGLIB_OK,
        sjis);
  return utf8.data();
}

/// Longer than a person waits: an interpreter has to start.
constexpr DWORD kStartMs = 60000;

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

/// Runs a program on the folder; `use` plays the person. Gives what it has printed.
std::string Run(const std::string& program, const ModelFolder& models,
                const std::function<void(driver::User&, driver::Window)>& use, const std::string& more = {}) {
  const Output output(models.Path() + ".txt");
  const driver::Program running(program + " " + Quoted(models.Path()) + more);
  driver::User user(running.Id(), 0, kStartMs);
  use(user, user.WaitDialog("モデルの選択"));
  Check(running.WaitForEnd() == 0, program + " ends well");
  return output.Text();
}

void PickInSubFolder(driver::User& user, driver::Window browser) {
  const driver::ListView list(browser.FindChildOfClass("SysListView32"));
  user.WaitUntil("the folder is listed", [&] { return list.FindRow("ポンプ") >= 0; });
  user.DoubleClick(driver::Center(list.ItemRect(list.FindRow("ポンプ"))));
  user.WaitUntil("the sub-folder is listed", [&] { return list.FindRow("ソケット表.MDL") >= 0; });
  user.Click(driver::Center(list.ItemRect(list.FindRow("ソケット表.MDL"))));
  user.WaitUntil("the model is selected", [&] { return list.IsSelected(list.FindRow("ソケット表.MDL")); });
  user.Click(browser.Child(IDOK));
}

void PickTwo(driver::User& user, driver::Window browser) {
  const driver::ListView list(browser.FindChildOfClass("SysListView32"));
  user.WaitUntil("the folder is listed", [&] { return list.FindRow("ポンプ") >= 0; });
  user.DoubleClick(driver::Center(list.ItemRect(list.FindRow("ポンプ"))));
  user.WaitUntil("the sub-folder is listed", [&] { return list.FindRow("PUMP-01.MDL") >= 0; });
  user.Click(driver::Center(list.ItemRect(list.FindRow("PUMP-01.MDL"))));
  user.WaitUntil("a model is selected", [&] { return list.IsSelected(list.FindRow("PUMP-01.MDL")); });
  user.Key(VK_END, {VK_SHIFT});
  user.WaitUntil("both are selected", [&] {
    return list.IsSelected(list.FindRow("PUMP-01.MDL")) && list.IsSelected(list.FindRow("ソケット表.MDL"));
  });
  user.Click(browser.Child(IDOK));
}

/// The version in the record of a DLL.
std::string VersionOf(const char* dll) {
  DWORD handle = 0;
  std::string record(GetFileVersionInfoSizeA(dll, &handle), '\0');
  VS_FIXEDFILEINFO* fixed = nullptr;
  UINT size = 0;
  GetFileVersionInfoA(dll, 0, static_cast<DWORD>(record.size()), record.data());
  if (!VerQueryValueA(record.data(), "\\", reinterpret_cast<void**>(&fixed), &size)) return "(none)";
  return std::to_string(HIWORD(fixed->dwFileVersionMS)) + "." + std::to_string(LOWORD(fixed->dwFileVersionMS)) + "." +
         std::to_string(HIWORD(fixed->dwFileVersionLS));
}

/// A file of this program's folder, copied into the folder of models.
class Copy {
 public:
  Copy(const ModelFolder& models, const std::string& name) : path_(models.Path() + "\\" + name) {
    Check(CopyFileW(os::WideOf(OwnFolder() + name).c_str(), os::WideOf(path_).c_str(), TRUE) != FALSE,
          name + " is copied");
  }
  ~Copy() { DeleteFileW(os::WideOf(path_).c_str()); }
  Copy(const Copy&) = delete;
  Copy& operator=(const Copy&) = delete;
  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

/// A program that stands elsewhere loads the DLL by its path alone; the suite's DLL beside that is found.
std::string RunFromElsewhere(const ModelFolder& models) {
  const Copy program(models, "by_name.exe");
  return Run(Quoted(program.Path()), models, PickTwo, " " + Quoted(OwnFolder() + "crvndlglib.dll"));
}

/// Without the suite's DLL the library is refused when it is loaded, not in the middle of a call.
void LoadWithoutSuite(const ModelFolder& models) {
  const Copy program(models, "by_name.exe");
  const Copy library(models, "crvndlglib.dll");
  const driver::Program running("\"" + program.Path() + "\" \"" + models.Path() + "\"");
  Check(running.WaitForEnd() == 2, "the DLL is not loaded without the suite's");
}

std::string BothModels(const ModelFolder& models) {
  const std::string folder = Utf8(models.Path() + "\\ポンプ\\");
  return folder + "PUMP-01.MDL\n" + folder + Utf8("ソケット表.MDL") + "\n";
}

std::string Variable(const char* name) {
  std::array<char, MAX_PATH> value = {};
  GetEnvironmentVariableA(name, value.data(), MAX_PATH);
  return value.data();
}

}  // namespace

void UseNode() {
  const ModelFolder models;
  const std::string program = Quoted(Variable("DLGLIB_NODE")) + " " + Quoted(Variable("DLGLIB_NODE_EXAMPLE"));
  CheckText(Run(program, models, PickTwo, " " + Quoted(OwnFolder() + "crvndlglib.dll")), BothModels(models),
            "the example in JavaScript");
}

void UseDemo() {
  constexpr int kCancelled = 1;
  const driver::Program running("corvane-demo.exe");
  driver::User user(running.Id(), 0, kStartMs);
  const driver::Window browser = user.WaitDialog("ファイルを開く");
  const driver::ListView list(browser.FindChildOfClass("SysListView32"));
  user.WaitUntil("the sample data is listed", [&] { return list.FindRow("ポンプ") >= 0; });
  user.Click(browser.Child(IDCANCEL));
  Check(running.WaitForEnd() == kCancelled, "the demo ends as cancelled");
}

void UseCExample() {
  const ModelFolder models;
  const std::string chosen = Utf8(models.Path() + "\\ポンプ\\ソケット表.MDL");
  std::string internal = chosen;
  for (char& byte : internal) byte = byte == '\\' ? '/' : byte;
  for (const char* program : {"choose_model.exe", "choose_model_65001.exe"}) {
    CheckText(Run(Quoted(OwnFolder() + program), models, PickInSubFolder),
              chosen + "\n" + internal + "\n" + Utf8("ポンプ/ソケット表") + "\n", program);
  }
}

void UseCPrograms() {
  const ModelFolder models;
  const std::string two = BothModels(models);
  CheckText(Run(Quoted(OwnFolder() + "by_name.exe"), models, PickTwo), two, "the DLL loaded by name");
  CheckText(RunFromElsewhere(models), two, "the DLL loaded by its path");
  LoadWithoutSuite(models);

  std::array<char, 32> version = {};
  Check(DlglibVersionText(static_cast<std::int32_t>(version.size()), version.data(), nullptr) == DLGLIB_OK, "version");
  CheckText(version.data(), DLGLIB_VERSION_TEXT, "the version of headers and DLL");
  CheckText(VersionOf("crvndlglib.dll"), version.data(), "the record of crvndlglib.dll");
  CheckText(VersionOf("crvnsuite.dll"), version.data(), "the record of crvnsuite.dll");
}

}  // namespace client
