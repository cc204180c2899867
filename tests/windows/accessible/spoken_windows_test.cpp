// What the demo's windows, and the library's dialogs in them, say to a screen reader in another process: whole trees,
// as docs/accessibility.md shows them.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "demo/input_checks_resource.h"
#include "demo/parts_table_resource.h"
#include "demo/text_editor_resource.h"
#include "dlglib/resources/resource.h"
#include "tests/windows/accessible/spoken_page.h"
#include "tests/windows/driver/accessible.h"
#include "tests/windows/driver/events.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"

namespace {

using driver::Accessible;
using driver::Events;
using driver::User;
using driver::Window;

constexpr char kHome[] = "C:\\spoken_home";
constexpr char kBrowser[] = "ファイルを開く";

/// So that dates are always the same.
void SetTime(const std::string& path) {
  const HANDLE file =
      CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  const SYSTEMTIME local{2021, 4, 0, 5, 9, 30, 0, 0};
  SYSTEMTIME universal{};
  FILETIME time{};
  TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal);
  SystemTimeToFileTime(&universal, &time);
  SetFileTime(file, nullptr, nullptr, &time);
  CloseHandle(file);
}

void WriteFile(const std::string& name, std::size_t size) {
  const std::string path = std::string(kHome) + "\\" + name;
  std::ofstream(path, std::ios::binary) << std::string(size, 'x');
  SetTime(path);
}

/// An office with two macros and a folder.
void MakeHome() {
  for (const char* const folder : {"", "\\data", "\\data\\MACRO", "\\data\\MACRO\\旧版"}) {
    CreateDirectoryA((std::string(kHome) + folder).c_str(), nullptr);
  }
  std::ofstream(std::string(kHome) + "\\corvane.session", std::ios::binary)
      << "[kinds]\n#MACRO# = MACRO | *.MAC | 0 | asis |\n";
  WriteFile("data\\MACRO\\A.MAC", 2000);
  WriteFile("data\\MACRO\\表.MAC", 100);
  SetTime(std::string(kHome) + "\\data\\MACRO\\旧版");
}

class SpokenWindows : public testing::Test {
 protected:
  static std::string Command(const std::string& home, const std::string& window) {
    return std::string("\"") + DEMO_PROGRAM + "\" --home \"" + home + "\" " + window;
  }

  /// Which drives there are depends on the machine: of them only C is told.
  static std::string WithoutDrives(const std::string& tree) {
    std::string kept;
    for (std::size_t at = 0; at < tree.size();) {
      const std::size_t end = tree.find('\n', at) + 1;
      const std::string line = tree.substr(at, end - at);
      const bool isDrive = line.find(":)」") != std::string::npos && line.find("(C:)」") == std::string::npos;
      if (!isDrive) kept += line;
      at = end;
    }
    return kept;
  }

  /// What each call of an object answers whose window is gone.
  static void ExpectNoAnswer(const Accessible& held, const std::vector<HRESULT>& errors) {
    const auto expect = [&errors](HRESULT answer) {
      EXPECT_NE(std::ranges::find(errors, answer), errors.end()) << std::hex << answer;
    };
    BSTR text = nullptr;
    VARIANT state{};
    LONG count = 0;
    RECT place{};
    expect(held.Get()->get_accName(held.Self(), &text));
    expect(held.Get()->get_accState(held.Self(), &state));
    expect(held.Get()->get_accChildCount(&count));
    expect(held.Get()->accLocation(&place.left, &place.top, &place.right, &place.bottom, held.Self()));
    expect(held.Get()->accSelect(SELFLAG_TAKEFOCUS, held.Self()));
    expect(held.Get()->accDoDefaultAction(held.Self()));
    EXPECT_EQ(text, nullptr);
  }
  /// What Wine says of an object that is disconnected.
  static constexpr HRESULT kNoSuchObject = HRESULT_FROM_WIN32(RPC_S_UNKNOWN_IF);
  /// The program itself has ended.
  static constexpr HRESULT kServerGone = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);

  /// The balloon of a browser's areas, shown or not.
  [[nodiscard]] static Window BalloonOf(const Window& browser) {
    for (HWND window = ::FindWindowExA(nullptr, nullptr, "#32770", nullptr); window != nullptr;
         window = ::FindWindowExA(nullptr, window, "#32770", nullptr)) {
      if (driver::IsSameWindow(::GetWindow(window, GW_OWNER), browser.Handle())) return Window(window);
    }
    return {};
  }

  static void ExpectText(const std::string& name, const std::string& text) {
    EXPECT_EQ(text, spoken::Block(name)) << name << " says:\n" << text << "----\n";
  }
  static void ExpectTree(const std::string& name, const Accessible& root) {
    ExpectText(name, WithoutDrives(driver::TreeText(root)));
  }

  driver::Com com_;
};

class SpokenBrowser : public SpokenWindows {
 protected:
  SpokenBrowser() : home_((MakeHome(), kHome)), demo_(Command(kHome, "request #MACRO#")), user_(demo_.Id()) {
    browser_ = user_.WaitDialog(kBrowser);
    user_.WaitUntil("the browser is in front", [this] { return browser_.IsForeground(); });
    list_ = driver::ListView(browser_.Child(IDC_FILE_LIST));
    user_.WaitUntil("the list has the focus", [this] { return list_.HasFocus(); });
  }
  static bool IsHot(const Accessible& area) { return (area.States() & STATE_SYSTEM_HOTTRACKED) != 0; }
  void Close() {
    ::PostMessageW(browser_.Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(demo_.WaitForEnd(), 1);
  }

  std::string home_;
  driver::Program demo_;
  User user_;
  Window browser_;
  driver::ListView list_;
};

TEST_F(SpokenBrowser, TellsItsAreasItsListAndItsBoxes) {
  user_.Key(VK_DOWN);
  user_.WaitUntil("a row is selected", [this] { return !list_.SelectedRows().empty(); });
  user_.WaitUntil("the rows are drawn", [this] {
    return Accessible::Of(list_).Find("A.MAC").Description().find("サイズ") != std::string::npos;
  });
  ExpectTree("browser", Accessible::Of(browser_));
  Close();
}

TEST_F(SpokenBrowser, EachThingIsFoundWhereItIs) {
  const Accessible browser = Accessible::Of(browser_);
  for (const char* const name : {"上へ", "表示", "ファイル数", "A.MAC", "見出し"}) {
    const RECT place = browser.Find(name).Place();
    IAccessible* object = nullptr;
    VARIANT child{};
    ASSERT_EQ(AccessibleObjectFromPoint(driver::Center(place), &object, &child), S_OK) << name;
    EXPECT_EQ(Accessible(object, child.vt == VT_I4 ? child.lVal : CHILDID_SELF).Name(), name);
  }
  Close();
}

TEST_F(SpokenBrowser, AnswersWhileAQuestionIsOpenAboveIt) {
  user_.Key('N', {VK_MENU});
  const Window question = user_.WaitDialog("新しいフォルダの作成");
  EXPECT_EQ(Accessible::Of(question.Child(IDC_FOLDER_NAME)).Name(), "名前");
  EXPECT_EQ(Accessible::Of(browser_).Find("A.MAC").Description().substr(0, 8), "ファイル");
  user_.Key(VK_ESCAPE);
  user_.WaitGone(question);
  Close();
}

TEST_F(SpokenBrowser, BadCallsOfAnotherProcessAreRefused) {
  const Accessible list = Accessible::Of(list_);
  IAccessible* const object = list.Get();
  constexpr LONG kNoRow = 999;
  BSTR text = nullptr;
  IDispatch* child = nullptr;
  VARIANT value{};
  RECT place{};
  for (const LONG wrong : {kNoRow, -1L}) {
    const VARIANT number = Accessible::Number(wrong);
    EXPECT_EQ(object->get_accName(number, &text), E_INVALIDARG) << wrong;
    EXPECT_EQ(object->get_accRole(number, &value), E_INVALIDARG) << wrong;
    EXPECT_EQ(object->get_accState(number, &value), E_INVALIDARG) << wrong;
    EXPECT_EQ(object->get_accChild(number, &child), E_INVALIDARG) << wrong;
    EXPECT_EQ(object->accLocation(&place.left, &place.top, &place.right, &place.bottom, number), E_INVALIDARG);
    EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, number), E_INVALIDARG) << wrong;
    EXPECT_EQ(object->accDoDefaultAction(number), E_INVALIDARG) << wrong;
  }
  EXPECT_EQ(text, nullptr);
  EXPECT_EQ(child, nullptr);
  const HRESULT noPlaceForIt = HRESULT_FROM_WIN32(RPC_X_NULL_REF_POINTER);
  const VARIANT first = Accessible::Number(1);
  EXPECT_EQ(object->get_accName(first, nullptr), noPlaceForIt);
  EXPECT_EQ(object->get_accChildCount(nullptr), noPlaceForIt);
  EXPECT_EQ(object->accLocation(nullptr, nullptr, nullptr, nullptr, first), noPlaceForIt);
  EXPECT_EQ(list.Find("A.MAC").Name(), "A.MAC") << "it goes on";
  Close();
}

TEST_F(SpokenBrowser, NothingIsDoneBehindAQuestion) {
  const Accessible area = Accessible::Of(browser_).Find("上へ");
  const Accessible row = Accessible::Of(browser_).Find("A.MAC");
  user_.Key('N', {VK_MENU});
  const Window question = user_.WaitDialog("新しいフォルダの作成");
  user_.WaitUntil("the name has the focus", [&] { return question.Child(IDC_FOLDER_NAME).HasFocus(); });
  EXPECT_EQ(area.Get()->accDoDefaultAction(area.Self()), E_ACCESSDENIED);
  EXPECT_EQ(row.Get()->accDoDefaultAction(row.Self()), E_ACCESSDENIED);
  EXPECT_EQ(row.Get()->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, row.Self()), E_ACCESSDENIED);
  user_.Settle();
  EXPECT_TRUE(list_.SelectedRows().empty());
  EXPECT_EQ(row.Name(), "A.MAC") << "the folder is the same";
  EXPECT_TRUE(question.Child(IDC_FOLDER_NAME).HasFocus());
  user_.Key(VK_ESCAPE);
  user_.WaitGone(question);
  Close();
}

TEST_F(SpokenBrowser, ItsDialogsTellTheirParts) {
  user_.Key('N', {VK_MENU});
  const Window made = user_.WaitDialog("新しいフォルダの作成");
  ExpectText("NewFolder", spoken::PartsOf(made));
  user_.Key(VK_ESCAPE);
  user_.WaitGone(made);
  user_.Key(VK_HOME);
  user_.Key(VK_F2);
  const Window renamed = user_.WaitDialog("名前の変更");
  ExpectText("Rename", spoken::PartsOf(renamed));
  user_.Key(VK_ESCAPE);
  user_.WaitGone(renamed);
  Close();
}

// With the last of its windows the program ends; an object of it that is still held must not hang.
TEST_F(SpokenBrowser, ObjectsThatAreHeldSayThatItHasGone) {
  const Accessible browser = Accessible::Of(browser_);
  const Accessible list = browser.Find("一覧");
  const Accessible row = browser.Find("A.MAC");
  Close();
  for (const Accessible& held : {browser, list, row}) ExpectNoAnswer(held, {RPC_E_DISCONNECTED, kServerGone});
}

TEST_F(SpokenBrowser, ObjectsOfADialogThatIsClosedSayThatItHasGone) {
  user_.Key('N', {VK_MENU});
  const Window question = user_.WaitDialog("新しいフォルダの作成");
  const Accessible name = Accessible::Of(question.Child(IDC_FOLDER_NAME));
  EXPECT_EQ(name.Name(), "名前");
  user_.Key(VK_ESCAPE);
  user_.WaitGone(question);
  user_.WaitUntil("it is destroyed", [&] { return !question.Exists(); });
  ExpectNoAnswer(name, {CO_E_OBJNOTCONNECTED});
  EXPECT_EQ(Accessible::Of(browser_).Name(), kBrowser) << "the others go on";
  Close();
}

TEST_F(SpokenBrowser, TheBoxOfANameInTheListIsCalledName) {
  list_.Send(LVM_EDITLABELW, static_cast<WPARAM>(list_.FindRow("A.MAC")));
  user_.WaitUntil("the name can be edited", [this] { return list_.LabelEdit() && list_.LabelEdit().HasFocus(); });
  EXPECT_EQ(Accessible::Of(list_.LabelEdit()).Name(), "名前");
  user_.Key(VK_ESCAPE);
  user_.WaitUntil("the edit ends", [this] { return !list_.LabelEdit(); });
  Close();
}

TEST_F(SpokenBrowser, TellsOfAMoveInTheListOnce) {
  Events events(list_);
  user_.Key(VK_DOWN);
  EXPECT_EQ(events.Count(user_, EVENT_OBJECT_SELECTION, 1), 1);
  EXPECT_EQ(events.Heard(EVENT_OBJECT_FOCUS, 1), 1);
  events.Forget();
  user_.Key(VK_DOWN);
  EXPECT_EQ(events.Count(user_, EVENT_OBJECT_SELECTION, 2), 1);
  EXPECT_EQ(events.Heard(EVENT_OBJECT_FOCUS, 2), 1);
  Close();
}

TEST_F(SpokenBrowser, TellsOfAFilledListOnceAndOfNoRow) {
  Events events(list_);
  user_.Key(VK_BACK);
  EXPECT_EQ(events.Count(user_, EVENT_OBJECT_REORDER, CHILDID_SELF), 1);
  EXPECT_EQ(events.Heard(EVENT_OBJECT_SELECTIONWITHIN, CHILDID_SELF), 0);
  const LONG cameFrom = list_.FindRow("MACRO") + 1;
  EXPECT_EQ(events.Heard(EVENT_OBJECT_FOCUS, cameFrom), 1) << "the row that is focused then";
  EXPECT_EQ(events.HeardOfParts(), 1) << "and nothing else of any row";
  Close();
}

TEST_F(SpokenBrowser, TheBalloonIsATipThatIsCalledByItsText) {
  const auto areas = Accessible::Of(browser_);
  const auto moveTo = [&](const char* area) { user_.MoveTo(driver::Center(areas.Find(area).Place())); };
  Window balloon;
  const auto isShown = [&] {
    balloon = BalloonOf(browser_);
    return balloon && balloon.IsVisible();
  };
  // It hides after two seconds. Who was too slow to read it has the pointer go there anew.
  const auto hover = [&](const char* area, const std::function<void()>& read) {
    user_.WaitUntil("the balloon is read while it is shown", [&] {
      moveTo("新しいフォルダ");
      user_.Settle();
      moveTo(area);
      constexpr ULONGLONG kLongestMs = 1500;
      const ULONGLONG end = ::GetTickCount64() + kLongestMs;
      while (!isShown() && ::GetTickCount64() < end) ::Sleep(1);
      if (isShown()) read();
      return isShown();
    });
  };
  hover("上へ", [] {});
  {
    Events events(balloon);
    moveTo("表示");
    EXPECT_EQ(events.Count(user_, EVENT_OBJECT_NAMECHANGE, CHILDID_SELF), 1);
  }
  std::string tree;
  RECT told{};
  hover("表示", [&] {
    tree = driver::TreeText(Accessible::Of(balloon));
    told = Accessible::Of(balloon).Place();
  });
  ExpectText("balloon", tree);
  const RECT place = balloon.ScreenRect();
  EXPECT_NE(::EqualRect(&told, &place), FALSE);
  Close();
}

TEST_F(SpokenBrowser, TellsOfAnAreaThatTurnsHotEachTime) {
  const Accessible area = Accessible::Of(browser_).Find("表示");
  const POINT elsewhere = driver::Center(list_.ScreenRect());
  user_.MoveTo(elsewhere);  // it may have been there from the start
  user_.WaitUntil("the area is not hot", [&] { return !IsHot(area); });
  Events events(browser_);
  for (const POINT& point : {driver::Center(area.Place()), elsewhere, driver::Center(area.Place())}) {
    user_.MoveTo(point);
    EXPECT_EQ(events.Count(user_, EVENT_OBJECT_STATECHANGE, area.ChildId()), 1);
    events.Forget();
  }
  Close();
}

// The pointer stays where it is from one browser to the next.
TEST_F(SpokenBrowser, AnAreaThatIsBelowThePointerFromTheStartIsHot) {
  const POINT point = driver::Center(Accessible::Of(browser_).Find("表示").Place());
  user_.MoveTo(point);
  Close();
  const driver::Program next(Command(kHome, "request #MACRO#"));
  User user(next.Id());
  const Window browser = user.WaitDialog(kBrowser);
  const Accessible area = Accessible::Of(browser).Find("表示");
  user.WaitUntil("the area is hot", [&] { return IsHot(area); });
  const POINT elsewhere = driver::Center(browser.Child(IDC_FILE_LIST).ScreenRect());
  Events events(browser);
  for (const POINT& there : {elsewhere, point}) {
    user.MoveTo(there);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_STATECHANGE, area.ChildId()), 1);
    events.Forget();
  }
  EXPECT_TRUE(IsHot(area));
  ::PostMessageW(browser.Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(next.WaitForEnd(), 1);
}

/// A window of the demo beside the browser.
class SpokenDemo : public SpokenWindows {
 protected:
  void Start(const std::string& window, const std::string& title) {
    demo_.emplace(Command(DEMO_HOME, window));
    user_.emplace(demo_->Id());
    dialog_ = user_->WaitDialog(title);
    user_->WaitUntil("the window is in front", [this] { return dialog_.IsForeground(); });
  }
  void Close() {
    ::PostMessageW(dialog_.Handle(), WM_CLOSE, 0, 0);
    static_cast<void>(demo_->WaitForEnd());
  }
  /// The part of the dialog that says so.
  [[nodiscard]] Window WaitForText(const std::string& text) const {
    Window said;
    user_->WaitUntil("a part says " + text, [&] {
      const auto parts = dialog_.Children();
      const auto found = std::ranges::find_if(parts, [&](const Window& part) { return part.Text() == text; });
      if (found != parts.end()) said = *found;
      return found != parts.end();
    });
    return said;
  }
  /// The names of the fields that stand for themselves, in their order.
  [[nodiscard]] std::string FieldNames() const {
    std::string names;
    for (const Window& child : dialog_.Children()) {
      const std::string kind = child.ClassName();
      const bool isField = kind == "Edit" || kind == "ComboBox" || kind == "SysListView32" || kind == "ToolbarWindow32";
      if (isField && child.IsVisible()) names += Accessible::Of(child).Name() + "\n";
    }
    return names;
  }

  driver::ScreenReader reader_;
  std::optional<driver::Program> demo_;
  std::optional<User> user_;
  Window dialog_;
};

/// The browser of the demo's models, of which there are more than ten in one folder.
class SpokenTitles : public SpokenDemo {
 protected:
  SpokenTitles() {
    ForgetLayout();
    Start("request #MODEL#", kBrowser);
    list_ = driver::ListView(dialog_.Child(IDC_FILE_LIST));
    user_->WaitUntil("its files are listed", [this] { return list_.HasFocus() && list_.FindRow(kModel) >= 0; });
    user_->Settle();
  }
  ~SpokenTitles() override { ForgetLayout(); }

  /// Chooses the title view by keys; the choice of titles is on the screen then.
  [[nodiscard]] Window OpenTitles() const {
    user_->Key('V', {VK_MENU});
    static_cast<void>(user_->WaitWindow("#32768"));
    user_->Key(VK_UP);
    user_->Key(VK_RETURN);
    const Window titles = user_->WaitDialog("表示モデルタイトル項目の設定");
    user_->WaitUntil("its rows have the focus", [&] { return titles.Child(IDC_TITLE_LIST).HasFocus(); });
    return titles;
  }
  [[nodiscard]] Window OpenConditions(const Window& opener, int button) {
    user_->Click(opener.Child(button));
    return user_->WaitDialog("モデルタイトルでのソート条件設定");
  }
  void End(const Window& dialog, int button) {
    user_->Click(dialog.Child(button));
    user_->WaitGone(dialog);
  }
  void SetLimit(const Window& titles, const std::string& limit) {
    const Window conditions = OpenConditions(titles, IDC_TITLE_SORT);
    user_->Replace(conditions.Child(IDC_SORT_LIMIT), limit);
    End(conditions, IDOK);
  }
  /// The details have three columns, the title view has the name and one title.
  void WaitForTitles() const {
    user_->WaitUntil("the title is shown", [this] { return list_.ColumnCount() == 2 && list_.FindRow(kModel) >= 0; });
    user_->Settle();
  }
  [[nodiscard]] Window SortByTitle() {
    WaitForTitles();
    user_->Click(driver::Center(list_.HeaderRect(1)));
    return user_->WaitDialog("確認");
  }

  static constexpr char kModel[] = "A-001.MDL";

  driver::ListView list_;

 private:
  static void ForgetLayout() {
    ::RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\Nalbo\\Corvane\\FileDialog\\Reg #MODEL#");
  }
};

TEST_F(SpokenTitles, TheTitlesAndTheConditionsOfSortingTellTheirParts) {
  const Window titles = OpenTitles();
  const Accessible grid = Accessible::Of(titles.Child(IDC_TITLE_LIST));
  const Accessible row = grid.Child(1);
  const Accessible cell = row.Child(1);
  ExpectText("Titles", spoken::PartsOf(titles));
  const Window conditions = OpenConditions(titles, IDC_TITLE_SORT);
  ExpectText("Sort", spoken::PartsOf(conditions));
  End(conditions, IDCANCEL);
  End(titles, IDCANCEL);
  user_->WaitUntil("they are destroyed", [&] { return !titles.Exists(); });
  for (const Accessible& held : {grid, row, cell}) ExpectNoAnswer(held, {RPC_E_DISCONNECTED, kNoSuchObject});
  Close();
}

TEST_F(SpokenTitles, TheQuestionBeforeASortTellsItsParts) {
  const Window titles = OpenTitles();
  SetLimit(titles, "10");
  End(titles, IDOK);
  const Window question = SortByTitle();
  ExpectText("Question", spoken::PartsOf(question));
  End(question, IDCANCEL);
  Close();
}

TEST_F(SpokenTitles, ARowOfTheTitleViewTellsItsTitles) {
  End(OpenTitles(), IDOK);
  WaitForTitles();
  const auto told = [this] { return driver::TreeText(Accessible::Of(list_).Find(kModel)); };
  user_->WaitUntil("its titles are read", [&] { return told() == spoken::Block("row of titles"); });
  Close();
}

TEST(SpokenLogon, TellsItsParts) {
  const driver::Com com;
  const driver::Program program(LOGON_HOST);
  const User user(program.Id());
  const Window logon = user.WaitDialog("パスワード");
  const std::string told = spoken::PartsOf(logon);
  EXPECT_EQ(told, spoken::Block("Logon")) << "says:\n" << told << "----\n";
  ::PostMessageW(logon.Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(program.WaitForEnd(), IDCANCEL);
}

/// The dialogs that the demo's toolbar opens.
class SpokenToolBar : public SpokenDemo {
 protected:
  SpokenToolBar() { Start("toolbar", "図面文字の編集"); }

  [[nodiscard]] Window Open(const std::string& button) {
    user_->Click(dialog_.Child(IDC_FIRST_NOTE));
    const Accessible bar = Accessible::Of(dialog_.FindChildOfClass("ToolbarWindow32"));
    user_->Click(driver::Center(bar.Find(button).Place()));
    return user_->WaitDialog(button);
  }
};

TEST_F(SpokenToolBar, ItsDialogsTellTheirParts) {
  const std::pair<const char*, const char*> kDialogs[] = {
      {"メタ文字", "MetaCharacters"}, {"テキストライブラリ", "TextLibrary"}, {"レジスタ", "Registers"}};
  for (const auto& [button, block] : kDialogs) {
    const Window opened = Open(button);
    ExpectText(block, spoken::PartsOf(opened));
    ::PostMessageW(opened.Handle(), WM_CLOSE, 0, 0);
    user_->WaitGone(opened);
  }
  Close();
}

TEST_F(SpokenDemo, TheGridTellsItsRowsAndCells) {
  Start("grid", "部品表");
  const driver::ListView list(dialog_.FindChildOfClass("SysListView32"));
  constexpr int kName = 2;
  user_->Click(driver::Center(list.CellRect(1, kName)));
  Window box;
  user_->WaitUntil("the cell is edited", [&] {
    for (const Window& child : dialog_.Children()) {
      if (child.ClassName() == "Edit" && child.IsVisible()) box = child;
    }
    return box && box.HasFocus();
  });
  const Accessible grid = Accessible::Of(list);
  const std::vector<Accessible> rows = grid.Children();
  EXPECT_EQ(grid.Name(), "表");
  EXPECT_EQ(grid.Role(), ROLE_SYSTEM_TABLE);
  ExpectText("grid", driver::TreeText(rows.at(0)) + driver::TreeText(rows.at(1)));
  ExpectText("last row", driver::TreeText(rows.back()));
  constexpr std::size_t kParts = 200;
  EXPECT_EQ(rows.size(), kParts);
  EXPECT_GT(list.Count(), static_cast<int>(kParts)) << "there is room for more, which is left out";
  for (std::size_t at = 0; at < rows.size(); ++at) {
    const std::string number = std::to_string(at + 1);
    const std::vector<Accessible> cells = rows.at(at).Children();
    EXPECT_EQ(rows.at(at).Name(), number + " 行");
    EXPECT_EQ(cells.size(), rows.front().Children().size()) << number;
    EXPECT_EQ(cells.front().Value(), number);
  }
  EXPECT_EQ(Accessible::Of(box).Name(), "品名、2 行");
  Close();
}

TEST_F(SpokenDemo, TheListOfAColumnIsCalledByItsTitle) {
  Start("grid", "部品表");
  const driver::ListView list(dialog_.FindChildOfClass("SysListView32"));
  constexpr int kMaterial = 3;
  user_->Click(driver::Center(list.CellRect(1, kMaterial)));
  user_->Key(VK_F4);
  Window combo;
  user_->WaitUntil("the list drops down", [&] {
    for (const Window& child : dialog_.Children()) {
      if (child.ClassName() == "ComboBox" && child.IsVisible()) combo = child;
    }
    return combo && combo.IsDropped();
  });
  EXPECT_EQ(Accessible::Of(combo).Name(), "材質");
  user_->Key(VK_ESCAPE);
  Close();
}

TEST_F(SpokenDemo, TheFieldsOfTheChecksAreCalledByTheirLabels) {
  Start("checks", "入力の確認");
  ExpectText("checks", FieldNames());
  ExpectText("checks window", spoken::PartsOf(dialog_));
  Close();
}

TEST_F(SpokenDemo, TheWindowsTellTheirButtonsAndTexts) {
  Start("grid", "部品表");
  ExpectText("grid window", spoken::PartsOf(dialog_, "SysListView32"));
  Close();
  Start("toolbar", "図面文字の編集");
  ExpectText("toolbar window", spoken::PartsOf(dialog_, "ToolbarWindow32"));
  Close();
}

TEST_F(SpokenDemo, TheToolbarTellsItsButtons) {
  Start("toolbar", "図面文字の編集");
  ExpectText("toolbar fields", FieldNames());
  ExpectTree("toolbar", Accessible::Of(dialog_.FindChildOfClass("ToolbarWindow32")));
  Close();
}

// The demo shows what is to be done in a column in the static of its message zone.
TEST_F(SpokenDemo, TellsOfANewMessageOnce) {
  Start("grid", "部品表");
  const driver::ListView list(dialog_.FindChildOfClass("SysListView32"));
  Events events(dialog_.Child(IDC_PARTS_MESSAGE));
  user_->Click(driver::Center(list.CellRect(1, 2)));
  EXPECT_EQ(events.Count(*user_, EVENT_OBJECT_NAMECHANGE, CHILDID_SELF), 1);
  Close();
}

// The demo's checks write their messages onto the dialog itself.
TEST_F(SpokenDemo, TellsOfANewMessageInADrawnZoneOnce) {
  Start("checks", "入力の確認");
  const Window zone = WaitForText("ファイルを選択してください。");
  Events events(zone);
  user_->Click(dialog_.Child(IDC_SCALE));
  EXPECT_EQ(events.Count(*user_, EVENT_OBJECT_NAMECHANGE, CHILDID_SELF), 1);
  EXPECT_EQ(Accessible::Of(zone).Name(), "尺度を入力してください。例：1/50");
  Close();
}

// One box serves all cells of a column: it keeps the focus, and only the grid knows that another cell has it.
TEST_F(SpokenDemo, TellsOfAnotherCellThatIsEditedOnce) {
  Start("grid", "部品表");
  const driver::ListView list(dialog_.FindChildOfClass("SysListView32"));
  user_->Click(driver::Center(list.CellRect(1, 2)));
  constexpr LONG kCells = 0x40000000;  // cells are numbered from here on, 1024 to a row; both count from 1
  constexpr LONG kBelow = kCells + 3 * 1024 + 3;
  Events events(list);
  user_->Key(VK_DOWN);
  EXPECT_EQ(events.Count(*user_, EVENT_OBJECT_FOCUS, kBelow), 1);
  EXPECT_EQ(events.Heard(EVENT_OBJECT_SELECTION, kBelow), 1);
  Close();
}

/// What the thing beside another one says: its value, or the name of what has none; "" where there is nothing.
std::string SaidBeside(const Accessible& thing, LONG direction) {
  VARIANT found{};
  if (thing.Get()->accNavigate(direction, thing.Self(), &found) != S_OK || found.vt != VT_DISPATCH) return {};
  void* object = nullptr;
  found.pdispVal->QueryInterface(__uuidof(IAccessible), &object);
  found.pdispVal->Release();
  const Accessible beside(static_cast<IAccessible*>(object));
  return beside.Value().empty() ? beside.Name() : beside.Value();
}

// What an event of the focus leads to is an object of the cell alone: from there a tool goes on.
TEST_F(SpokenDemo, FromTheCellOfAnEventAToolWalksOn) {
  Start("grid", "部品表");
  const driver::ListView list(dialog_.FindChildOfClass("SysListView32"));
  constexpr LONG kCells = 0x40000000;
  constexpr LONG kSecondName = kCells + 2 * 1024 + 3;
  Events events(list);
  user_->Click(driver::Center(list.CellRect(1, 2)));
  ASSERT_EQ(events.Count(*user_, EVENT_OBJECT_FOCUS, kSecondName), 1);
  IAccessible* object = nullptr;
  VARIANT child{};
  const auto client = static_cast<DWORD>(OBJID_CLIENT);
  ASSERT_EQ(::AccessibleObjectFromEvent(list.Handle(), client, kSecondName, &object, &child), S_OK);
  const Accessible cell(object, child.lVal);
  EXPECT_EQ(cell.ChildId(), CHILDID_SELF);
  EXPECT_EQ(cell.Value(), "フランジ");
  EXPECT_EQ(SaidBeside(cell, NAVDIR_NEXT), "SS400");
  EXPECT_EQ(SaidBeside(cell, NAVDIR_PREVIOUS), "FLG-001");
  const Accessible row = Accessible::Of(list).Child(2);
  EXPECT_EQ(SaidBeside(row, NAVDIR_NEXT), "GSK-001、ガスケット、PTFE");
  EXPECT_EQ(SaidBeside(row, NAVDIR_PREVIOUS), "PMP-001、渦巻ポンプ、FC200");
  EXPECT_EQ(SaidBeside(Accessible::Of(list).Child(1), NAVDIR_PREVIOUS), "");
  Close();
}

TEST_F(SpokenDemo, TellsOfARowThatIsInsertedOnce) {
  Start("grid", "部品表");
  const Window list = dialog_.FindChildOfClass("SysListView32");
  user_->Click(driver::Center(driver::ListView(list).CellRect(1, 2)));
  Events events(list);
  user_->Click(dialog_.Child(IDC_INSERT_PART));
  EXPECT_EQ(events.Count(*user_, EVENT_OBJECT_CREATE, 2), 1);
  EXPECT_EQ(events.Heard(EVENT_OBJECT_CREATE, 3), 0);
  Close();
}

}  // namespace
