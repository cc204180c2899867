#include <dlglib/dlglib.h>
#include <windows.h>

#include <array>
#include <string>
#include <vector>

#include "check.h"
#include "guide.h"

namespace client {
namespace {

constexpr char kBrowser[] = "ファイルの選択";
constexpr int kField = 101;
constexpr int kBrowse = 102;
constexpr int kToolBar = 10003;

/// The folder that the programs ask in, with its files; removed at the end. What earlier runs have left in the registry
/// goes, too.
class Plant {
 public:
  Plant() {
    Forget();
    CreateDirectoryA("C:\\plant", nullptr);
    for (const char* name : kFiles) Make(Path(name));
  }
  ~Plant() {
    for (const char* name : kFiles) DeleteFileA(Path(name).c_str());
    RemoveDirectoryA("C:\\plant");
    Forget();
  }
  Plant(const Plant&) = delete;
  Plant& operator=(const Plant&) = delete;

  [[nodiscard]] static std::string Path(const std::string& name) { return "C:\\plant\\" + name; }

 private:
  /// Always of the same date, as the browser shows it.
  static void Make(const std::string& path) {
    constexpr SYSTEMTIME kDate = {2024, 4, 1, 1, 0, 0, 0, 0};
    FILETIME time = {};
    SystemTimeToFileTime(&kDate, &time);
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    SetFileTime(file, nullptr, nullptr, &time);
    CloseHandle(file);
  }
  static void Forget() {
    for (const char* key : {"Reg #MODEL#", "Reg #PARTS#", "Use #PARTS#"}) {
      RegDeleteKeyA(HKEY_CURRENT_USER, (std::string("Software\\Nalbo\\Corvane\\FileDialog\\") + key).c_str());
    }
  }

  static constexpr std::array<const char*, 5> kFiles = {"A-001.MDL", "A-002.MDL", "No 1.MDL", "No 2.MDL", "PUMP.PRT"};
};

/// Selects a file of a browser, and with Shift the one below it as well.
void Select(driver::User& user, driver::Window browser, const std::string& name, int files) {
  const driver::ListView list(browser.FindChildOfClass("SysListView32"));
  user.WaitUntil("the folder is listed", [&] { return list.FindRow(name) >= 0; });
  user.Click(driver::Center(list.ItemRect(list.FindRow(name))));
  user.WaitUntil("the file is selected", [&] { return list.IsSelected(list.FindRow(name)); });
  for (int more = 1; more < files; ++more) user.Key(VK_DOWN, {VK_SHIFT});
  user.WaitUntil("all are selected", [&] { return static_cast<int>(list.SelectedRows().size()) == files; });
}

void Pick(driver::User& user, driver::Window browser, const std::string& name) {
  Select(user, browser, name, 1);
  user.Click(browser.Child(IDOK));
  user.WaitGone(browser);
}

void AskForOne() {
  RunGuide("guide_browser", "図面", [](GuideProgram& program) {
    program.Person().Click(program.Dialog().Child(kBrowse));
    Pick(program.Person(), program.WaitBrowser(), "A-001.MDL");
    program.WaitText(kField, Plant::Path("A-001.MDL"));
    program.TakePicture();
    program.Accept();
  });
}

void AskForSeveral() {
  const std::string printed = RunGuide("guide_several", kBrowser, [](GuideProgram& program) {
    Select(program.Person(), program.Dialog(), "A-001.MDL", 2);
    program.Accept();
  });
  CheckText(printed, Plant::Path("A-001.MDL") + "\n" + Plant::Path("A-002.MDL") + "\n", "the names one by one");
}

void AskForPathsWithBlanks() {
  const std::string printed = RunGuide("guide_blanks", kBrowser, [](GuideProgram& program) {
    Select(program.Person(), program.Dialog(), "No 1.MDL", 2);
    program.TakePicture();
    program.Accept();
  });
  CheckText(printed, Plant::Path("No 1.MDL") + "\n" + Plant::Path("No 2.MDL") + "\n", "whole paths");
}

void ChooseByBrowsing() {
  const std::string printed = RunGuide("guide_file_field", "部品の読み込み", [](GuideProgram& program) {
    program.Person().Click(program.Dialog().Child(kBrowse));
    Pick(program.Person(), program.WaitBrowser(), "PUMP.PRT");
    program.WaitText(kField, Plant::Path("PUMP.PRT"));
    program.Accept();
  });
  CheckText(printed, Plant::Path("PUMP.PRT") + "\n", "the chosen part");
}

/// What was chosen before stands in the list, a blank behind it.
void ChooseAgain() {
  const std::string printed = RunGuide("guide_file_field", "部品の読み込み", [](GuideProgram& program) {
    driver::User& user = program.Person();
    const driver::Window field = program.Dialog().Child(kField);
    Check(field.Items() == std::vector<std::string>{Plant::Path("PUMP.PRT") + " "}, "the part is in the list");
    const RECT place = field.ScreenRect();
    user.Click({place.right - 8, place.top + 8});
    user.WaitUntil("the list is open", [&] { return field.IsDropped(); });
    const RECT list = field.ComboList().ScreenRect();
    RECT both = {};
    const RECT dialog = program.Dialog().ScreenRect();
    UnionRect(&both, &dialog, &list);
    program.TakePicture(both);
    user.Click({list.left + 10, list.top + 8});
    program.WaitText(kField, Plant::Path("PUMP.PRT") + " ");
    program.Accept();
  });
  CheckText(printed, Plant::Path("PUMP.PRT") + "\n", "the part of the list");
}

/// The message stands in black at the bottom, also when the dialog has been painted anew.
void CheckScale() {
  RunGuide("guide_toolbox", "縮尺", [](GuideProgram& program) {
    driver::User& user = program.Person();
    const driver::Window dialog = program.Dialog();
    RECT zone = dialog.ClientScreenRect();
    zone.top = zone.bottom - 18;
    const auto black = [&] {
      const driver::Picture seen = user.Look(zone);
      return seen.Count({0, 0, seen.Width(), seen.Height()}, RGB(0, 0, 0));
    };
    user.WaitUntil("no message is shown yet", [&] { return black() == 0; });
    user.Replace(dialog.Child(kField), "大きい");
    user.Click(dialog.Child(IDOK));
    user.WaitUntil("the message is shown", [&] { return black() > 0; });
    program.TakePicture();
    const int before = black();
    ShowWindow(dialog.Handle(), SW_HIDE);
    user.WaitUntil("the dialog is hidden", [&] { return !dialog.IsVisible() && black() != before; });
    ShowWindow(dialog.Handle(), SW_SHOW);
    user.WaitUntil("the message is shown again", [&] { return black() == before; });
    user.Replace(dialog.Child(kField), "1/50");
    program.Accept();
  });
}

void ClickTool(driver::User& user, const driver::Window& bar, int index) {
  RECT place = {};
  driver::TargetMemory memory(bar.Handle(), sizeof place);
  bar.Send(TB_GETITEMRECT, static_cast<WPARAM>(index), memory.At());
  memory.Read(&place, sizeof place);
  const RECT client = bar.ClientScreenRect();
  OffsetRect(&place, client.left, client.top);
  user.Click(driver::Center(place));
}

void EditStoredText() {
  const std::string shown = "開先は現物に合わせること。<cr>PL-9 t=";
  const std::string printed = RunGuide("guide_texts", "注記", [&shown](GuideProgram& program) {
    driver::User& user = program.Person();
    program.WaitText(kField, shown);
    user.Click(program.Dialog().Child(kField));
    user.Key(VK_END);
    ClickTool(user, program.Dialog().Child(kToolBar), 2);
    const driver::Window registers = program.WaitBrowser();
    const driver::ListView rows(registers.FindChildOfClass("SysListView32"));
    user.DoubleClick(driver::Center(rows.CellRect(0, 0)));
    program.WaitText(kField, shown + "12.5");
    program.TakePicture();
    program.Accept();
  });
  CheckText(printed, CwEucEncoder::Sjis2Euc("開先は現物に合わせること。", 512) + "\rPL-9 t=12.5\n", "the stored text");
}

}  // namespace

void UseGuideForFiles() {
  const Plant plant;
  AskForOne();
  AskForSeveral();
  AskForPathsWithBlanks();
  ChooseByBrowsing();
  ChooseAgain();
}

void UseGuideForTexts() {
  CheckScale();
  EditStoredText();
}

}  // namespace client
