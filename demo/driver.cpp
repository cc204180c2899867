// Plays the person who uses the demo where there is no screen to sit at.
//
//   corvane-demo-driver <folder for screenshots> <command line of the demo...>
//
// Starts the demo; lets it show the models' titles, adds the drawing number to them, sorts by it; goes back to the
// details, walks with mouse and keyboard into the folder of the pumps and the one of their performance tests, picks a
// model there, presses "開く". The demo prints on the same terminal. The exit code is the demo's; 3 when it did not
// behave.
#include <windows.h>

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "demo/console.h"
#include "demo/system_text.h"
#include "tests/windows/driver/crash_backtrace.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"

namespace {

constexpr int kMisbehaved = 3;
constexpr char kCaption[] = "ファイルを開く";
constexpr char kTitlesCaption[] = "表示モデルタイトル項目の設定";
constexpr char kNoTitle[] = "    0 : 取消";
constexpr char kDrawingNumber[] = "    2 : 図番";
constexpr int kTitleList = 10028;
constexpr int kTitleCombo = 10018;
constexpr int kDetailsEntry = 2;  // of the view menu
constexpr int kTitlesEntry = 4;

class Person {
 public:
  Person(DWORD processId, std::string folder) : user_(processId), folder_(std::move(folder)) {}

  void Begin() {
    browser_ = user_.WaitDialog(kCaption);
    list_ = driver::ListView(browser_.FindChildOfClass("SysListView32"));
    WaitForRow("ポンプ");
    Photograph("1-models");
  }

  /// Chooses the title view and a second title for it, and sorts by that one.
  void LookAtTitles() {
    ChooseView(kTitlesEntry);
    const driver::Window items = user_.WaitDialog(kTitlesCaption);
    PickSecondTitle(items);
    Photograph("3-chosen-titles");
    user_.Click(items.Child(IDOK));
    user_.WaitGone(items);
    user_.WaitUntil("two titles are shown", [&] { return list_.ColumnCount() == 3; });
    const std::string first = list_.Cell(FirstModel());
    for (int click = 0; click < 2; ++click) user_.Click(driver::Center(list_.HeaderRect(2)));
    user_.WaitUntil("the models are sorted", [&] { return list_.Cell(FirstModel()) != first; });
    Photograph("4-titles");
    ChooseView(kDetailsEntry);
    user_.WaitUntil("the details are shown", [&] { return ShowsDetails(); });
  }

  void PickAModel() {
    user_.DoubleClick(driver::Center(RowRect("ポンプ")));
    WaitForRow("性能");
    Photograph("5-folder");
    user_.DoubleClick(driver::Center(RowRect("性能")));
    const std::string model = "試験結果 2021.MDL";
    WaitForRow(model);
    user_.Click(driver::Center(RowRect(model)));
    user_.WaitUntil("the model is selected", [&] { return list_.IsSelected(list_.FindRow(model)); });
    Photograph("6-picked");
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
  /// Between two views the list has no columns.
  [[nodiscard]] bool ShowsDetails() const {
    try {
      return list_.ColumnAt(1).title == "サイズ";
    } catch (const driver::Stuck&) {
      return false;
    }
  }
  [[nodiscard]] int FirstModel() const { return list_.FindRow("配管") + 1; }
  void ChooseView(int entry) const {
    user_.Key('V', {VK_MENU});
    (void)user_.WaitWindow("#32768");
    for (int down = 0; down <= entry; ++down) user_.Key(VK_DOWN);
    user_.Key(VK_RETURN);
  }
  /// By keyboard, in the second row. What an earlier run chose there is taken away first, as a title is chosen once.
  void PickSecondTitle(const driver::Window& items) {
    const driver::ListView rows(items.Child(kTitleList));
    user_.WaitUntil("the rows have the focus", [&] { return rows.HasFocus(); });
    for (const int key : {VK_HOME, VK_DOWN}) user_.Key(static_cast<WORD>(key));
    PickTitle(items, kNoTitle);
    PickTitle(items, kDrawingNumber);
  }
  void PickTitle(const driver::Window& items, const std::string& title) {
    const driver::Window titles = items.Child(kTitleCombo);
    user_.Key(VK_F4);
    user_.WaitUntil("the titles drop down", [&] { return titles.IsDropped(); });
    Photograph("2-titles-to-choose");
    const std::vector<std::string> entries = titles.Items();
    const auto wanted = std::find(entries.begin(), entries.end(), title);
    if (wanted == entries.end()) throw driver::Stuck("there is no title " + title);
    user_.Key(VK_HOME);
    for (auto entry = entries.begin(); entry != wanted; ++entry) user_.Key(VK_DOWN);
    user_.Key(VK_RETURN);
    user_.WaitUntil("a title is chosen", [&] { return !titles.IsVisible(); });
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
    person.Begin();
    person.LookAtTitles();
    person.PickAModel();
  } catch (const driver::Stuck&) {
    person.Photograph("stuck");
    throw;
  }
  return demo.WaitForEnd();
}

}  // namespace

int main() {
  driver::InstallCrashBacktrace();
  const std::vector<std::string> arguments = demo::CommandLineArguments();
  if (arguments.size() < 2) {
    demo::PrintError("使い方: corvane-demo-driver <画面を残すフォルダ> <コマンド...>");
    return kMisbehaved;
  }
  try {
    return Run(arguments.front(), std::vector<std::string>(arguments.begin() + 1, arguments.end()));
  } catch (const std::exception& failure) {
    demo::PrintError(failure.what());
    return kMisbehaved;
  }
}
