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
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"

namespace {

constexpr int kMisbehaved = 3;
constexpr char kCaption[] = "ファイルを開く";

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
  const driver::Program demo(line);
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
