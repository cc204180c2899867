// Plays the person who uses the demo where there is no screen to sit at.
//
//   corvane-demo-driver <folder for screenshots> <command line of the demo...>
//
// Starts the demo, walks with mouse and keyboard into the folder of the pumps and the one of their performance tests,
// picks a model there, presses "開く". The demo prints on the same terminal. The exit code is the demo's; 3 when it did
// not behave.
#include <windows.h>

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "demo/console.h"
#include "tests/windows/driver/crash_backtrace.h"
#include "tests/windows/driver/user.h"

namespace {

constexpr int kMisbehaved = 3;
constexpr char kCaption[] = "ファイルを開く";

/// A program started with the rest of a command line; ended when it outlives this object.
class Program {
 public:
  explicit Program(std::string commandLine) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process_)) {
      throw driver::Stuck("the demo cannot be started: " + commandLine);
    }
  }
  ~Program() {
    if (WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT) TerminateProcess(process_.hProcess, kMisbehaved);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  [[nodiscard]] DWORD Id() const { return process_.dwProcessId; }
  [[nodiscard]] int WaitForEnd() const {
    if (WaitForSingleObject(process_.hProcess, driver::kPatienceMs) != WAIT_OBJECT_0) {
      throw driver::Stuck("the demo does not end");
    }
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return static_cast<int>(code);
  }

 private:
  PROCESS_INFORMATION process_ = {};
};

class Person {
 public:
  Person(DWORD processId, std::string folder) : user_(processId), folder_(std::move(folder)) {}

  void PickAModel() {
    browser_ = user_.WaitDialog(kCaption);
    list_ = driver::ListView(browser_.FindChildOfClass("SysListView32"));
    WaitForRow("ポンプ");
    Photograph("1-models");
    user_.DoubleClick(driver::Center(RowRect("ポンプ")));
    WaitForRow("性能");
    Photograph("2-folder");
    user_.DoubleClick(driver::Center(RowRect("性能")));
    const std::string model = "試験結果 2021.MDL";
    WaitForRow(model);
    user_.Click(driver::Center(RowRect(model)));
    user_.WaitUntil("the model is selected", [&] { return list_.IsSelected(list_.FindRow(model)); });
    Photograph("3-picked");
    user_.Click(browser_.Child(IDOK));
    user_.WaitGone(browser_);
  }

  void Photograph(const std::string& name) {
    const std::string path = folder_ + "\\" + name + ".png";
    if (!user_.Look(driver::Window(GetDesktopWindow())).SavePng(path)) throw driver::Stuck("cannot write " + path);
  }

 private:
  void WaitForRow(const std::string& name) {
    user_.WaitUntil("the list shows " + name, [&] { return list_.FindRow(name) >= 0; });
  }
  [[nodiscard]] RECT RowRect(const std::string& name) const { return list_.ItemRect(list_.FindRow(name)); }

  driver::User user_;
  std::string folder_;
  driver::Window browser_;
  driver::ListView list_;
};

std::string Quoted(const std::string& argument) { return "\"" + argument + "\" "; }

int Run(const std::string& folder, const std::vector<std::string>& command) {
  std::string line;
  for (const std::string& argument : command) line += Quoted(argument);
  const Program demo(line);
  Person person(demo.Id(), folder);
  try {
    person.PickAModel();
  } catch (const driver::Stuck&) {
    person.Photograph("stuck");
    throw;
  }
  return demo.WaitForEnd();
}

}  // namespace

int main(int argc, char** argv) {
  driver::InstallCrashBacktrace();
  if (argc < 3) {
    demo::PrintError("使い方: corvane-demo-driver <画面を残すフォルダ> <コマンド...>");
    return kMisbehaved;
  }
  try {
    return Run(argv[1], std::vector<std::string>(argv + 2, argv + argc));
  } catch (const std::exception& failure) {
    demo::PrintError(failure.what());
    return kMisbehaved;
  }
}
