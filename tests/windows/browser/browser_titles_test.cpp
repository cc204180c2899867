// The title view of the browser as a user meets it: columns of titles, the choice of them, sorting by them.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "dlglib/resources/resource.h"
#include "platform/suite/crvnmdl.h"
#include "tests/support/encodings.h"
#include "tests/support/played_models.h"
#include "tests/windows/browser/browser_world.h"

namespace {

using browser_test::Browser;
using browser_test::kLayoutKey;
using browser_test::Outcome;
using browser_test::Texts;
using driver::ListView;
using driver::User;
using driver::Window;

constexpr char kTitleView[] = "タイトル表示";
constexpr char kItemsTitle[] = "表示モデルタイトル項目の設定";
constexpr char kQuestionTitle[] = "確認";
constexpr char kConditionsTitle[] = "モデルタイトルでのソート条件設定";
constexpr int kTitleMode = 4;
constexpr int kNoMark = -1;
constexpr int kUp = 0;
constexpr int kDown = 1;

std::string LittleEndian(std::uint32_t number, std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(static_cast<unsigned char>(number >> (8 * i)));
  return bytes;
}

class BrowserTitles : public browser_test::BrowserTest {
 protected:
  BrowserTitles() {
    played_models::Begin();
    startUp_.initialFolder = played_models::kFolder;
  }

  static void SetNumber(const std::string& name, std::uint32_t number) {
    World().registry.SetValue(kLayoutKey, name, os::RegistryType::Dword, LittleEndian(number, 4));
  }
  static void SetItem(int slot, int number) {
    World().registry.SetValue(kLayoutKey, "Title" + std::to_string(slot), os::RegistryType::Binary,
                              LittleEndian(static_cast<std::uint32_t>(number), 2));
  }
  static std::string Saved(const std::string& name) {
    const auto value = World().registry.Value(kLayoutKey, name);
    return value ? value->bytes : "none";
  }
  static std::uint32_t SavedNumber(const std::string& name) {
    std::uint32_t number = 0;
    const std::string bytes = Saved(name);
    for (std::size_t i = bytes.size(); i > 0; --i) number = number << 8 | static_cast<unsigned char>(bytes[i - 1]);
    return number;
  }
  static Texts SavedItems() {
    Texts items;
    for (int slot = 1; slot <= 4; ++slot) items.push_back(std::to_string(SavedNumber("Title" + std::to_string(slot))));
    return items;
  }

  /// The layout of a run before: title view with these items.
  static void StartInTitleView(const std::vector<int>& items) {
    SetNumber("Form", kTitleMode);
    int slot = 0;
    for (const int item : items) SetItem(++slot, item);
  }

  /// Chooses the title view by its menu; the titles dialog is on the screen then.
  static Window OpenItems(Browser& browser) {
    ChooseTitleView(browser);
    return browser.Person().WaitDialog(kItemsTitle);
  }
  static void ChooseTitleView(Browser& browser) {
    browser.Person().Click(driver::Center(browser.Window().Child(IDC_VIEW).ScreenRect()));
    browser.Person().Choose(browser.Person().WaitMenu(), kTitleView);
  }
  static void Close(Browser& browser, Window dialog, int button) {
    browser.Person().Click(dialog.Child(button));
    browser.Person().WaitGone(dialog);
    browser.Person().Settle();
  }

  /// In the titles dialog: the title of a row, picked by its place in the list.
  static void PickTitle(User& user, Window dialog, int row, int entry) {
    const ListView list(dialog.Child(IDC_TITLE_LIST));
    const Window combo = dialog.Child(IDC_TITLE_COMBO);
    for (int click = 0; click < 2; ++click) {
      const RECT cell = list.ItemRect(row, LVIR_BOUNDS);
      user.Click(POINT{cell.left + 10 + 20 * click, (cell.top + cell.bottom) / 2});
    }
    user.WaitUntil("the list of titles drops down", [&] { return combo.IsDropped(); });
    RECT place = {};
    combo.ComboList().Send(LB_GETITEMRECT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(&place));
    ::MapWindowPoints(combo.ComboList().Handle(), nullptr, reinterpret_cast<POINT*>(&place), 2);
    user.Click(driver::Center(place));
    user.WaitUntil("the list of titles closes", [&] { return !combo.IsVisible(); });
  }

  static Texts Headers(const Browser& browser) {
    Texts headers;
    for (int column = 0; column < browser.List().ColumnCount(); ++column) {
      headers.push_back(browser.List().ColumnAt(column).title);
    }
    return headers;
  }
  static std::vector<int> Widths(const Browser& browser) {
    std::vector<int> widths;
    for (int column = 0; column < browser.List().ColumnCount(); ++column) {
      widths.push_back(browser.List().ColumnAt(column).width);
    }
    return widths;
  }
  /// The widths of columns that nobody has drawn.
  static std::vector<int> DefaultWidths(const Browser& browser, int titles) {
    const RECT list = browser.List().ScreenRect();
    const int space = list.right - list.left - ::GetSystemMetrics(SM_CXVSCROLL) - 4;
    std::vector<int> widths(static_cast<std::size_t>(titles) + 1, 2 * space / (3 * titles));
    widths[0] = space / 3;
    return widths;
  }

  static void ExpectRow(const Browser& browser, const Texts& cells) {
    const int row = browser.List().FindRow(cells.front());
    ASSERT_GE(row, 0) << cells.front();
    for (std::size_t i = 1; i < cells.size(); ++i) {
      const int column = static_cast<int>(i);
      browser.ExpectCell(row, column, cells[i], DT_LEFT);
    }
  }

  static Window WaitQuestion(Browser& browser) { return browser.Person().WaitDialog(kQuestionTitle); }

  static void SortByColumn(Browser& browser, int column) {
    browser.ClickHeader(column);
    browser.Person().Settle();
  }
};

const Texts kByName = {"folder", "a.mdl", "b.mdl", "c.mdl", "d.mdl"};
const Texts kByComment = {"folder", "d.mdl", "b.mdl", "a.mdl", "c.mdl"};  // none, 一, 三, 二 by their bytes
const Texts kByCommentDown = {"folder", "c.mdl", "a.mdl", "b.mdl", "d.mdl"};

// ---- what the view shows

TEST_F(BrowserTitles, ModelsShowTheirTitlesByColumn) {
  StartInTitleView({201, 1, 2});
  Run([](Browser& browser) {
    EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント", "図面名称", "図番"}));
    EXPECT_EQ(Widths(browser), DefaultWidths(browser, 3));
    EXPECT_EQ(browser.Rows(), kByName);
    EXPECT_EQ(browser.SortMark(0), kUp);
    ExpectRow(browser, {"a.mdl", "三", "平面図", "X-1"});
    ExpectRow(browser, {"b.mdl", "一", "表示ソ", ""});
    ExpectRow(browser, {"d.mdl", "", "", ""});
    ExpectRow(browser, {"folder", "", "", ""});
  });
}

TEST_F(BrowserTitles, BadFilesShowWhatCanBeRead) {
  World().files.AddFile("C:\\bad\\empty.mdl");
  World().files.AddFile("C:\\bad\\cut.mdl", "CORVANE MODEL 1\n201=" + test_texts::Euc("表") + "\n1=\xC9");
  World().files.AddFile("C:\\bad\\binary.mdl", std::string("CORVANE MODEL 1\n201=ab\0cd\n\xFF\xFE\x00\x01", 30));
  World().files.AddFile("C:\\bad\\range.mdl",
                        "CORVANE MODEL 1\n99999999999=x\n-1=y\n208=z\n0=w\n201=kept\nEND\n201=behind\n");
  World().files.AddFile("C:\\bad\\long.mdl", "CORVANE MODEL 1\n201=" + std::string(100000, 'n') + "\n1=behind\nEND\n");
  startUp_.initialFolder = "C:\\bad";
  StartInTitleView({201, 1});
  Run([](Browser& browser) {
    ExpectRow(browser, {"empty.mdl", "", ""});
    ExpectRow(browser, {"cut.mdl", "表", "?"});
    ExpectRow(browser, {"binary.mdl", "ab", ""});
    ExpectRow(browser, {"range.mdl", "kept", ""});
    ExpectRow(browser, {"long.mdl", "", ""});
  });
}

TEST_F(BrowserTitles, TitlesAreReadOnceAndOnlyOfRowsInSight) {
  for (int i = 0; i < 300; ++i) played_models::Add("m" + std::to_string(i) + ".mdl", {{201, "t"}});
  SetNumber("Confirm", 0);
  StartInTitleView({201});
  Run([](Browser& browser) {
    browser.Person().WaitUntil("the rows in sight are read", [] { return World().calls.Count("files.Read") > 5; });
    browser.Person().Settle();
    EXPECT_LT(World().calls.Count("files.Read"), 100U);
    SortByColumn(browser, 1);
    EXPECT_EQ(World().calls.Count("files.Read"), 304U);
    SortByColumn(browser, 1);
    browser.Person().Key(VK_END);
    browser.Person().Key(VK_HOME);
    EXPECT_EQ(World().calls.Count("files.Read"), 304U);
  });
}

TEST_F(BrowserTitles, OtherTitledKindsHaveADescription) {
  startUp_.kindCode = 6;
  startUp_.title = "#TEXT#(*.TXT)";
  World().files.AddFile("C:\\models\\a.txt", "CORVANE TEXT 1\nTITLE=" + test_texts::Euc("注記表") + "\nEND\n");
  World().files.AddFile("C:\\models\\b.txt", "CORVANE TEXT 1\nTITLE=" + test_texts::Euc("あ") + "\nEND\n");
  World().files.AddFile("C:\\models\\c.txt", "something else");
  Run([](Browser& browser) {
    browser.ChooseView(kTitleView);
    EXPECT_FALSE(browser.Person().Sees("#32770", kItemsTitle));
    EXPECT_EQ(Headers(browser), (Texts{"名前", "説明"}));
    EXPECT_EQ(Widths(browser), DefaultWidths(browser, 1));
    ExpectRow(browser, {"a.txt", "注記表"});
    ExpectRow(browser, {"c.txt", ""});
    ExpectRow(browser, {"folder", ""});
    SortByColumn(browser, 1);
    EXPECT_EQ(browser.Rows(), (Texts{"folder", "c.txt", "b.txt", "a.txt"}));
    EXPECT_EQ(browser.SortMark(1), kUp);
  });
  const std::string key = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #TEXT#";
  EXPECT_EQ(World().registry.Value(key, "Form")->bytes, LittleEndian(kTitleMode, 4));
  EXPECT_NE(World().registry.Value(key, "TWidth0")->bytes, LittleEndian(0, 4));
  EXPECT_FALSE(World().registry.Value(key, "Title1").has_value());
}

TEST_F(BrowserTitles, KindsWithoutTitlesHaveNoTitleView) {
  for (const int kind : {0, 9}) {
    startUp_.kindCode = kind;
    Run([](Browser& browser) {
      browser.Person().Click(driver::Center(browser.Window().Child(IDC_VIEW).ScreenRect()));
      const driver::MenuView menu = browser.Person().WaitMenu();
      EXPECT_EQ(menu.items.size(), 4U);
      browser.Person().Key(VK_ESCAPE);
    });
  }
}

// ---- choosing the titles

TEST_F(BrowserTitles, TheTitleViewAsksForTheTitlesFirst) {
  Run([](Browser& browser) {
    const Window dialog = OpenItems(browser);
    EXPECT_EQ(dialog.Owner(), browser.Window());
    EXPECT_EQ(SavedNumber("Form"), 2U);  // the view that is left is saved before
    PickTitle(browser.Person(), dialog, 1, 3);
    Close(browser, dialog, IDOK);
    EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント", "図番"}));
    EXPECT_EQ(Widths(browser), DefaultWidths(browser, 2));
    ExpectRow(browser, {"a.mdl", "三", "X-1"});
    EXPECT_EQ(SavedItems(), (Texts{"201", "2", "0", "0"}));
    EXPECT_EQ(Saved("Text1"), "コメント");
    EXPECT_EQ(Saved("Text2"), "図番");
    EXPECT_EQ(SavedNumber("Form"), 2U);
  });
  EXPECT_EQ(SavedNumber("Form"), 4U);
}

TEST_F(BrowserTitles, CancellingTheTitlesShowsTheFormerOnes) {
  Run([](Browser& browser) {
    const Window dialog = OpenItems(browser);
    PickTitle(browser.Person(), dialog, 1, 3);
    Close(browser, dialog, IDCANCEL);
    EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント"}));
    ExpectRow(browser, {"b.mdl", "一"});
  });
  EXPECT_EQ(SavedItems(), (Texts{"201", "0", "0", "0"}));
}

// ---- sorting

TEST_F(BrowserTitles, AClickOnATitleSortsByItAndAFurtherOneTurnsAround) {
  StartInTitleView({201, 1});
  Run([](Browser& browser) {
    SortByColumn(browser, 1);
    EXPECT_EQ(browser.Rows(), kByComment);
    EXPECT_EQ(browser.SortMark(0), kNoMark);
    EXPECT_EQ(browser.SortMark(1), kUp);
    SortByColumn(browser, 1);
    EXPECT_EQ(browser.Rows(), kByCommentDown);
    EXPECT_EQ(browser.SortMark(1), kDown);
    SortByColumn(browser, 2);  // equal titles: by name
    EXPECT_EQ(browser.Rows(), (Texts{"folder", "d.mdl", "b.mdl", "a.mdl", "c.mdl"}));
    SortByColumn(browser, 2);
    EXPECT_EQ(browser.Rows(), (Texts{"folder", "c.mdl", "a.mdl", "b.mdl", "d.mdl"}));
    SortByColumn(browser, 0);
    EXPECT_EQ(browser.Rows(), kByName);
    EXPECT_EQ(browser.SortMark(0), kUp);
    EXPECT_EQ(browser.SortMark(2), kNoMark);
  });
}

TEST_F(BrowserTitles, BeyondTheLimitTheUserIsAskedUntilHeSaysYes) {
  StartInTitleView({201});
  SetNumber("Count", 4);
  Run([](Browser& browser) {
    browser.ClickHeader(1);
    Window question = WaitQuestion(browser);
    EXPECT_EQ(question.Owner(), browser.Window());
    EXPECT_EQ(question.Child(IDC_CONFIRM_COUNT).Text(), "モデルの数が制限 4 を超えました。");
    EXPECT_FALSE(browser.List().Header().IsEnabled());
    Close(browser, question, IDCANCEL);
    EXPECT_TRUE(browser.List().Header().IsEnabled());
    EXPECT_EQ(browser.Rows(), kByName);
    EXPECT_EQ(browser.SortMark(1), kNoMark);

    browser.ClickHeader(1);
    question = WaitQuestion(browser);
    Close(browser, question, IDOK);
    EXPECT_TRUE(browser.List().Header().IsEnabled());
    EXPECT_EQ(browser.Rows(), kByComment);
    EXPECT_EQ(browser.SortMark(1), kUp);

    SortByColumn(browser, 1);  // a yes holds for the listing
    EXPECT_EQ(browser.Rows(), kByCommentDown);

    browser.ChooseView("詳細表示");
    const Window items = OpenItems(browser);
    Close(browser, items, IDCANCEL);
    EXPECT_EQ(browser.Rows(), kByName);
    browser.ClickHeader(1);
    question = WaitQuestion(browser);
    Close(browser, question, IDCANCEL);
    EXPECT_EQ(browser.Rows(), kByName);
  });
}

TEST_F(BrowserTitles, ConditionsChangedInTheQuestionCountFromTheNextSort) {
  StartInTitleView({201});
  SetNumber("Count", 4);
  Run([](Browser& browser) {
    browser.ClickHeader(1);
    const Window question = WaitQuestion(browser);
    browser.Person().Click(question.Child(IDC_CONFIRM_SORT));
    const Window conditions = browser.Person().WaitDialog(kConditionsTitle);
    EXPECT_EQ(conditions.Child(IDC_SORT_LIMIT).Text(), "4");
    browser.Person().Replace(conditions.Child(IDC_SORT_LIMIT), "10");
    Close(browser, conditions, IDOK);
    EXPECT_EQ(question.Child(IDC_CONFIRM_COUNT).Text(), "モデルの数が制限 4 を超えました。");
    Close(browser, question, IDCANCEL);
    EXPECT_EQ(browser.Rows(), kByName);
    SortByColumn(browser, 1);
    EXPECT_EQ(browser.Rows(), kByComment);
  });
  EXPECT_EQ(SavedNumber("Count"), 10U);
  EXPECT_EQ(SavedNumber("Confirm"), 2U);
}

TEST_F(BrowserTitles, ConditionsSetAmongTheTitlesHoldWithoutThem) {
  Run([](Browser& browser) {
    const Window dialog = OpenItems(browser);
    browser.Person().Click(dialog.Child(IDC_TITLE_SORT));
    const Window conditions = browser.Person().WaitDialog(kConditionsTitle);
    browser.Person().Click(conditions.Child(IDC_SORT_WITHIN_LIMIT));
    browser.Person().Replace(conditions.Child(IDC_SORT_LIMIT), "12");
    Close(browser, conditions, IDOK);
    Close(browser, dialog, IDCANCEL);
  });
  EXPECT_EQ(SavedNumber("Confirm"), 1U);
  EXPECT_EQ(SavedNumber("Count"), 12U);
}

using Keys = std::vector<std::pair<WORD, DWORD>>;  ///< key and flags

/// Sends keys in one piece, so that no message is worked off between them.
void SendKeys(const Keys& keys) {
  std::vector<INPUT> inputs;
  for (const auto& [key, flags] : keys) {
    INPUT& input = inputs.emplace_back();
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
  }
  ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

/// A folder of many models, sorted by title while something happens in the middle of the reading.
class BrowserSlowSort : public BrowserTitles {
 protected:
  BrowserSlowSort() {
    for (int i = 0; i < kModels; ++i)
      played_models::Add("m" + std::to_string(i) + ".mdl", {{201, std::to_string(kModels - i)}});
    SetNumber("Confirm", 0);
    StartInTitleView({201});
  }

  /// `act` runs on the worker each time a title is read for the sort; it is told how many were read before.
  void SortAndMeanwhile(Browser& browser, const std::function<void(int)>& act) {
    browser.Person().Settle();
    World().calls.Watch([this, act](const std::string& call) {
      if (call == "files.Read") act(reads_++);
    });
    SortByColumn(browser, 1);
    World().calls.Watch({});
  }

  /// Selects a model, sorts by name downwards, and begins to sort by title while `interrupt` gives it up.
  void GiveUp(Browser& browser, const std::function<void()>& interrupt) {
    SortByColumn(browser, 0);
    browser.ClickRow(browser.List().Cell(3));
    const Texts selected = browser.SelectedNames();
    const Texts top = {browser.List().Cell(1), browser.List().Cell(2)};
    SortAndMeanwhile(browser, [&](int read) {
      if (read == kInTheMiddle) interrupt();
      // The machine is faster than any person: the next title does not come before the sort is given up.
      while (read > kInTheMiddle && !isGivenUp_) ::Sleep(1);
    });
    isGivenUp_ = true;
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ((Texts{browser.List().Cell(1), browser.List().Cell(2)}), top);
    EXPECT_EQ(browser.SelectedNames(), selected);
    EXPECT_EQ(browser.SortMark(0), kDown);
    EXPECT_EQ(browser.SortMark(1), kNoMark);
  }

  static constexpr int kModels = 400;
  static constexpr int kInTheMiddle = 100;

  std::atomic<int> reads_ = 0;
  std::atomic<bool> isGivenUp_ = false;
};

TEST_F(BrowserSlowSort, EscGivesItUpAndNothingHasChanged) {
  const Outcome outcome = Run([this](Browser& browser) {
    GiveUp(browser, [] { SendKeys({{VK_ESCAPE, 0}, {VK_ESCAPE, KEYEVENTF_KEYUP}}); });
    SortByColumn(browser, 1);  // the next one is not given up
    EXPECT_EQ(browser.SortMark(1), kUp);
    EXPECT_EQ(browser.List().Cell(2), "m399.mdl");
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(outcome.answer, IDCANCEL);
}

TEST_F(BrowserSlowSort, EscThatIsHeldDownOnlyGivesItUp) {
  Run([this](Browser& browser) {
    GiveUp(browser, [] { SendKeys({{VK_ESCAPE, 0}, {VK_ESCAPE, 0}}); });
    for (int repeats = 0; repeats < 3; ++repeats) SendKeys({{VK_ESCAPE, 0}});
    browser.Person().Settle();
    EXPECT_TRUE(browser.IsOpen());
    SendKeys({{VK_ESCAPE, KEYEVENTF_KEYUP}});
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitGone(browser.Window());
  });
}

TEST_F(BrowserSlowSort, EscIsFoundBehindAKeyThatStays) {
  Run([this](Browser& browser) {
    browser.ClickRow("a.mdl");
    GiveUp(browser, [] {
      SendKeys({{VK_SHIFT, 0}, {VK_ESCAPE, 0}, {VK_ESCAPE, KEYEVENTF_KEYUP}, {VK_SHIFT, KEYEVENTF_KEYUP}});
    });
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitGone(browser.Window());
  });
}

TEST_F(BrowserSlowSort, APostedEscCountsToo) {
  Run([this](Browser& browser) {
    const HWND list = browser.List().Handle();
    GiveUp(browser, [list] { ::PostMessageA(list, WM_KEYDOWN, VK_ESCAPE, 0); });
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitGone(browser.Window());
  });
}

TEST_F(BrowserSlowSort, EverythingElseWaits) {
  Run([this](Browser& browser) {
    const HWND dialog = browser.Window().Handle();
    SortAndMeanwhile(browser, [dialog](int read) {
      if (read != kInTheMiddle) return;
      SendKeys({{'B', 0}, {'B', KEYEVENTF_KEYUP}});
      ::PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(ID_VIEW_LIST, 0), 0);
    });
    EXPECT_GT(reads_, kModels - 40);
    EXPECT_EQ(browser.List().Style() & LVS_TYPEMASK, DWORD{LVS_LIST});  // afterwards
    EXPECT_EQ(browser.Name(), "b.mdl");
  });
}

TEST_F(BrowserSlowSort, ShowsTheWaitCursor) {
  const HCURSOR wait = ::LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT));
  int others = 0;
  Run([&](Browser& browser) {
    SortAndMeanwhile(browser, [&](int) {
      CURSORINFO shown = {};
      shown.cbSize = sizeof shown;
      ::GetCursorInfo(&shown);
      if (shown.hCursor != wait) ++others;
    });
    EXPECT_GT(reads_, kModels - 40);
    EXPECT_EQ(others, 0);
    CURSORINFO shown = {};
    shown.cbSize = sizeof shown;
    ::GetCursorInfo(&shown);
    EXPECT_NE(shown.hCursor, wait);
  });
}

// ---- other views

TEST_F(BrowserTitles, TheListViewScrollsToColumnsThatAreOutOfSight) {
  played_models::Add(std::string(60, 'w') + ".mdl", {});
  for (int i = 0; i < 12; ++i) played_models::Add("m" + std::to_string(i) + ".mdl", {});
  SetNumber("Form", 3);
  Run([](Browser& browser) {
    browser.Person().Settle();
    EXPECT_NE(browser.List().Style() & WS_HSCROLL, 0U);
    browser.Person().Key(VK_END);
    browser.Person().Settle();
    EXPECT_GT(::GetScrollPos(browser.List().Handle(), SB_HORZ), 0);
  });
}

TEST_F(BrowserTitles, IconsHaveTheScrollBarsTheyNeed) {
  for (int i = 0; i < 25; ++i) played_models::Add("m" + std::to_string(i) + ".mdl", {});
  const auto bars = [](const Browser& browser) { return browser.List().Style() & (WS_VSCROLL | WS_HSCROLL); };
  SetNumber("Form", 0);
  Run([&](Browser& browser) {
    browser.Person().Settle();
    EXPECT_EQ(bars(browser), DWORD{WS_VSCROLL});
    browser.ChooseView("小さいアイコン");
    EXPECT_EQ(bars(browser), 0U);
    browser.ChooseView("一覧表示");
    EXPECT_EQ(bars(browser), 0U);
    browser.ChooseView("大きいアイコン");
    EXPECT_EQ(bars(browser), DWORD{WS_VSCROLL});
    browser.ChooseView("詳細表示");
    browser.ChooseView("小さいアイコン");
    EXPECT_EQ(bars(browser), 0U);
  });
}

TEST_F(BrowserTitles, IconsFollowTheWidthOfTheWindow) {
  for (int i = 0; i < 30; ++i) played_models::Add("m" + std::to_string(i) + ".mdl", {});
  SetNumber("Form", 0);
  Run([](Browser& browser) {
    const auto inFirstLine = [&] {
      int count = 0;
      while (browser.List().ItemRect(count, LVIR_ICON).top == browser.List().ItemRect(0, LVIR_ICON).top) ++count;
      return count;
    };
    browser.Person().Settle();
    const int before = inFirstLine();
    const RECT window = browser.Window().ScreenRect();
    ::SetWindowPos(browser.Window().Handle(), nullptr, 0, 0, window.right - window.left + 300,
                   window.bottom - window.top + 300, SWP_NOMOVE | SWP_NOZORDER);
    browser.Person().Settle();
    EXPECT_GE(inFirstLine(), before + 3);
    EXPECT_EQ(browser.List().Style() & (WS_VSCROLL | WS_HSCROLL), 0U);
  });
}

// ---- without a mouse

TEST_F(BrowserTitles, TheArrowKeysWalkThroughIcons) {
  for (int i = 0; i < 10; ++i) played_models::Add("m" + std::to_string(i) + ".mdl", {});
  for (const std::uint32_t form : {0U, 1U}) {
    SetNumber("Form", form);
    Run([](Browser& browser) {
      const User& user = browser.Person();
      const auto top = [&](int row) { return browser.List().ItemRect(row, LVIR_ICON).top; };
      int line = 0;
      while (top(line) == top(0)) ++line;
      user.Key(VK_HOME);
      for (const int key : {VK_LEFT, VK_UP, VK_RIGHT, VK_RIGHT, VK_DOWN, VK_LEFT}) user.Key(static_cast<WORD>(key));
      user.Settle();
      EXPECT_EQ(browser.List().SelectedRows(), std::vector<int>{line + 1});
      EXPECT_EQ(browser.Name(), browser.List().Cell(line + 1));
      user.Key(VK_UP);
      user.Settle();
      EXPECT_EQ(browser.List().SelectedRows(), std::vector<int>{1});
      EXPECT_EQ(browser.Name(), "a.mdl");
    });
  }
}

TEST_F(BrowserTitles, AKeyOfAnAreaGivesAnEditedNameFirst) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    browser.List().Send(LVM_EDITLABELA, static_cast<WPARAM>(browser.List().FindRow("b.mdl")));
    user.WaitUntil("the name is edited", [&] { return static_cast<bool>(browser.List().LabelEdit()); });
    user.Type("renamed.mdl");
    user.Key('V', {VK_MENU});
    EXPECT_EQ(user.WaitMenu().items.size(), 5U);
    EXPECT_NE(World().files.Find("C:\\models\\renamed.mdl"), nullptr);
    EXPECT_FALSE(browser.List().LabelEdit());
    user.Key(VK_ESCAPE);
    user.Settle();
    EXPECT_TRUE(browser.IsOpen());
  });
}

TEST_F(BrowserTitles, ViewsFoldersAndCountsAreReachedByTheKeyboard) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    user.Key('V', {VK_MENU});
    EXPECT_EQ(user.WaitMenu().items.size(), 5U);
    user.Key(VK_UP);
    user.Key(VK_RETURN);
    const Window items = user.WaitDialog(kItemsTitle);
    user.Key(VK_ESCAPE);
    user.WaitGone(items);
    user.Settle();
    EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント"}));

    user.Key('N', {VK_MENU});
    user.WaitUntil("the new folder is asked for", [&] { return !browser.Window().IsEnabled(); });
    const Window folder = user.WaitDialog();
    user.Key(VK_ESCAPE);
    user.WaitGone(folder);

    user.Key('R', {VK_MENU});
    const Window count = browser.Window().Child(IDC_RECENT_COUNT);
    user.WaitUntil("the count box drops down", [&] { return count.IsVisible() && count.IsDropped(); });
    user.Key(VK_ESCAPE);
    user.WaitUntil("the count box closes", [&] { return !count.IsVisible(); });
    user.Settle();
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_TRUE(browser.IsOpen());
  });
}

}  // namespace
