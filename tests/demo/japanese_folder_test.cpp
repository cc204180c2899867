// The demo in a folder with a Japanese name, on systems of any code page: where it stands, what it is told on its
// command line and what its environment names are texts of the system.
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <stdexcept>
#include <string>

#include "demo/text_editor_resource.h"
#include "platform/os/sjis_wide.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/support/temporary_folder.h"

namespace {

using driver::ListView;
using driver::User;
using driver::Window;

constexpr char kModel[] = "ソケット表.MDL";
constexpr UINT kUtf8CodePage = 65001;
constexpr int kCancelled = 1;

std::string Bytes(const std::string& path) {
  const HANDLE file = ::CreateFileW(os::WideOf(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return {};
  std::string bytes(::GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  ::ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
  ::CloseHandle(file);
  return bytes;
}

/// The program with UTF-8 as the code page of its 8-bit texts. Its manifest says so in place of one of its other lines.
std::string WithUtf8Texts(std::string program) {
  const std::string former =
      R"(   <longPathAware xmlns="http://schemas.microsoft.com/SMI/2016/WindowsSettings">true</longPathAware>)";
  const std::string wanted =
      R"(<activeCodePage xmlns="http://schemas.microsoft.com/SMI/2019/WindowsSettings">UTF-8</activeCodePage>)";
  const std::size_t at = program.find(former);
  if (at == std::string::npos || former.size() != wanted.size()) throw std::runtime_error("another manifest");
  return program.replace(at, former.size(), wanted);
}

/// An environment variable of this process and of the programs that it starts, for a while.
class Variable {
 public:
  Variable(const wchar_t* name, const std::string& value) : name_(name) {
    former_.resize(::GetEnvironmentVariableW(name_, former_.data(), static_cast<DWORD>(former_.size())));
    ::SetEnvironmentVariableW(name_, os::WideOf(value).c_str());
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { ::SetEnvironmentVariableW(name_, former_.c_str()); }

 private:
  const wchar_t* name_;
  std::wstring former_ = std::wstring(MAX_PATH, L'\0');
};

/// The current folder of this process and of the programs that it starts, for a while.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::string& folder) {
    ::GetCurrentDirectoryW(static_cast<DWORD>(former_.size()), former_.data());
    if (::SetCurrentDirectoryW(os::WideOf(folder).c_str()) == FALSE) throw std::runtime_error("not in " + folder);
  }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;
  ~CurrentFolder() { ::SetCurrentDirectoryW(former_.data()); }

 private:
  std::array<wchar_t, MAX_PATH> former_ = {};
};

/// The program, its DLLs, its session and a model, all in a folder with a Japanese name.
class JapaneseFolder : public testing::Test {
 protected:
  JapaneseFolder() {
    const std::string built(DEMO_PROGRAM);
    const std::string bin = built.substr(0, built.find_last_of('/') + 1);
    const std::string program = Bytes(built);
    home_.Write("corvane-demo.exe", ::GetACP() == kUtf8CodePage ? WithUtf8Texts(program) : program);
    for (const char* dll : {"crvndlglib.dll", "crvnsuite.dll"}) home_.Write(dll, Bytes(bin + dll));
    home_.Write("corvane.session", Bytes(std::string(DEMO_HOME) + "/corvane.session"));
    home_.MakeFolder("data");
    home_.MakeFolder("data\\MODEL");
    home_.Write(std::string("data\\MODEL\\") + kModel, "CORVANE MODEL 1\nEND\n");
  }

  [[nodiscard]] std::string Demo(const std::string& arguments) const {
    return "\"" + home_.Path("corvane-demo.exe") + "\" " + arguments;
  }
  [[nodiscard]] std::string Quoted(const char* name) const { return "\"" + home_.Path(name) + "\""; }

  /// The request lists the model; another one ends it.
  static void SeeTheModel(const driver::Program& demo) {
    User user(demo.Id());
    const Window browser = user.WaitDialog("ファイルを開く");
    const ListView list(browser.FindChildOfClass("SysListView32"));
    user.WaitUntil("the model is listed", [&] { return list.FindRow(kModel) >= 0; });
    user.Click(browser.Child(IDCANCEL));
    EXPECT_EQ(demo.WaitForEnd(), kCancelled);
  }

  /// Stores a text in the editor's file.
  static void StoreAText(const driver::Program& demo) {
    User user(demo.Id());
    const Window editor = user.WaitDialog("図面文字の編集");
    user.WaitUntil("the editor is in front", [&] { return editor.IsForeground(); });
    user.Replace(editor.Child(IDC_TITLE_TEXT), "A4");
    user.Click(editor.Child(IDC_STORE_TEXTS));
    user.WaitUntil("the bytes are shown", [&] { return editor.Child(IDC_STORED_BYTES).Text().starts_with("41 34"); });
    user.Click(editor.Child(IDCANCEL));
    EXPECT_EQ(demo.WaitForEnd(), 0);
  }

  const TemporaryFolder home_{"図面ソ"};
};

TEST_F(JapaneseFolder, IsTheCurrentOneInWhichTheDemoFindsItsSession) {
  const CurrentFolder current(home_.Path());
  SeeTheModel(driver::Program(Demo("request")));
}

TEST_F(JapaneseFolder, IsNamedAsTheDemosHome) {
  SeeTheModel(driver::Program(Demo("--home \"" + home_.Path() + "\" request")));
}

TEST_F(JapaneseFolder, HoldsTheFileThatTheEditorIsTold) {
  const CurrentFolder current(home_.Path());
  StoreAText(driver::Program(Demo("toolbar " + Quoted("表.euc"))));
  EXPECT_EQ(Bytes(home_.Path("表.euc")), "A4\n\n\n");
}

TEST_F(JapaneseFolder, HoldsTheEditorsOwnFileWhenItIsTheOneForTemporaryFiles) {
  const CurrentFolder current(home_.Path());
  const Variable temporary(L"TMP", home_.Path());
  StoreAText(driver::Program(Demo("toolbar")));
  EXPECT_EQ(Bytes(home_.Path("corvane-text.euc")), "A4\n\n\n");
}

}  // namespace
