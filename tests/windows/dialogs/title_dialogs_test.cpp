// The choice of the titles that the browser shows as columns, as a user meets it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "dlglib/filedialog/dialogs/CvMdlTitle.h"
#include "dlglib/resources/resource.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvnmdl.h"
#include "tests/support/encodings.h"
#include "tests/windows/dialogs/title_dialogs_look.h"

namespace {

using driver::ListView;
using driver::User;
using driver::Window;
using filedialog::TitleSlot;
using filedialog::TitleSlots;
using os::scripted::World;
using title_dialogs::ExpectControls;

using Texts = std::vector<std::string>;
using Slots = std::vector<TitleSlot>;

constexpr char kTitle[] = "表示モデルタイトル項目の設定";
constexpr char kSortTitle[] = "モデルタイトルでのソート条件設定";
constexpr char kChosenAlready[] = "項目は既に設定されています。";
constexpr char kNothingChosen[] = "少なくとも１項目は設定してください。";
constexpr int kNumber = 0;
constexpr int kText = 1;
constexpr COLORREF kSelectedPaper = RGB(0, 0, 192);

std::string Repeat(const std::string& text, int count) {
  std::string repeated;
  for (; count > 0; --count) repeated += text;
  return repeated;
}

/// The open dialog and what a person does with it.
class Items {
 public:
  Items(User& user, Window window) : user_(user), window_(window) {}

  [[nodiscard]] User& Person() const { return user_; }
  [[nodiscard]] Window Dialog() const { return window_; }
  [[nodiscard]] ListView List() const { return ListView(window_.Child(IDC_TITLE_LIST)); }
  [[nodiscard]] Window Combo() const { return window_.Child(IDC_TITLE_COMBO); }
  /// The visible edit box over a cell; an empty window for none.
  [[nodiscard]] Window EditBox() const {
    for (const Window& child : window_.Children()) {
      if (child.ClassName() == "Edit" && child.IsVisible()) return child;
    }
    return {};
  }

  /// Two clicks on one point would be a double click, so each goes a little further to the right.
  void ClickCell(int row, int col) {
    const RECT cell = CellRect(row, col);
    step_ = (step_ + 1) % 5;
    user_.Click(POINT{cell.left + 8 + 6 * step_, (cell.top + cell.bottom) / 2});
    user_.Settle();
  }

  /// Drops the list of titles down over a row: the first click chooses the cell, the second one opens its list.
  void OpenTitles(int row) {
    ClickCell(row, kText);
    ClickCell(row, kNumber);
    ClickCell(row, kNumber);
    user_.WaitUntil("the list of titles drops down", [&] { return Combo().IsVisible() && Combo().IsDropped(); });
  }

  void Pick(int row, const std::string& entry) {
    OpenTitles(row);
    const Texts entries = Combo().Items();
    const auto found = std::find(entries.begin(), entries.end(), entry);
    ASSERT_NE(found, entries.end()) << entry;
    ClickEntry(static_cast<int>(found - entries.begin()));
  }

  void Annotate(int row, const std::string& text) {
    ClickCell(row, kText);
    user_.Type(text);
  }

  void Ok() {
    user_.Click(window_.Child(IDOK));
    user_.Settle();
  }

  void ExpectMessage(const std::string& text) {
    const driver::MessageBoxView box = user_.WaitMessageBox();
    EXPECT_EQ(box.caption, kTitle);
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.icon, UINT{MB_ICONEXCLAMATION});
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    EXPECT_EQ(box.window.Owner(), window_);
    user_.Answer(box, IDOK);
    user_.Settle();
  }

  void ExpectCell(int row, int col, const std::string& text, bool selected = false) const {
    RECT cell = CellRect(row, col);
    cell = {cell.left + 2, cell.top, cell.right - 2, cell.bottom - 1};
    title_dialogs::ExpectText(user_, window_, cell, {0, 0}, text,
                              selected ? title_dialogs::kWhite : title_dialogs::kBlack,
                              selected ? kSelectedPaper : title_dialogs::kWhite);
  }

 private:
  [[nodiscard]] RECT CellRect(int row, int col) const {
    RECT cell = List().ItemRect(row, LVIR_BOUNDS);
    if (col == kText) cell.left += List().ColumnAt(kNumber).width;
    cell.right = cell.left + List().ColumnAt(col).width;
    return cell;
  }

  void ClickEntry(int index) {
    const Window list = Combo().ComboList();
    list.Send(LB_SETTOPINDEX, static_cast<WPARAM>(index));
    RECT entry = {};
    list.Send(LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&entry));
    ::MapWindowPoints(list.Handle(), nullptr, reinterpret_cast<POINT*>(&entry), 2);
    user_.Click(driver::Center(entry));
    user_.WaitUntil("the list of titles closes", [&] { return !list.IsVisible(); });
    user_.Settle();
  }

  User& user_;
  Window window_;
  int step_ = 0;
};

class TitleItemsTest : public testing::Test {
 protected:
  TitleItemsTest() {
    World().Reset();
    CwSession::Reset();
    Define(1, "図面名称");
    Define(2, "図番");
    Define(3, "作成者表");
    Define(14, "改訂履歴", filedialog::kUnofferedKind);
    Define(101, "発注者側の担当者名および所属する部署の名称");
    Define(201, "コメント");
    Define(202, "モデル名");
    Define(205, "状態");
    Define(207, "識別子", filedialog::kUnofferedKind);
  }
  ~TitleItemsTest() override {
    CwSession::Reset();
    World().Reset();
  }

  static void Define(int number, const std::string& name, std::uint16_t kind = 1) {
    CwSession::GetInstance()->OpenModel();
    GetActiveModel()->GetModelTitleSet()->SetTitle(number, kind, test_texts::Euc(name));
  }

  static TitleSlots Given(const Slots& used, std::size_t count = filedialog::kTitleRows) {
    TitleSlots slots;
    slots.slots = {};
    std::copy(used.begin(), used.end(), slots.slots.begin());
    slots.count = count;
    return slots;
  }

  template <class Act>
  INT_PTR Run(CvMdlTitle& dialog, const Act& act) {
    INT_PTR result = -1;
    driver::RunDialog([&] { result = dialog.DoModal(); },
                      [&](User& user) {
                        Items items(user, user.WaitDialog(kTitle));
                        user.Settle();
                        act(items);
                      });
    taken_.assign(dialog.Titles().slots.begin(), dialog.Titles().slots.begin() + filedialog::kTitleRows);
    return result;
  }

  template <class Act>
  INT_PTR Run(const TitleSlots& given, const Act& act) {
    CvMdlTitle dialog(nullptr, rule_);
    dialog.SetTitles(given);
    return Run(dialog, act);
  }

  filedialog::SlowSortRule rule_;
  Slots taken_;  ///< of the rows, after Run
};

// ---- what it shows

TEST_F(TitleItemsTest, HasItsControls) {
  Run(Given({}), [](Items& items) {
    const Window window = items.Dialog();
    constexpr std::size_t kGridEditBox = 1;
    title_dialogs::ExpectControls(window,
                                  {
                                      {IDC_TITLE_LIST, "SysListView32", {7, 7, 309, 68}, ""},
                                      {IDC_TITLE_SORT, "Button", {7, 79, 66, 15}, "ソート条件設定"},
                                      {IDC_TITLE_COMBO, "ComboBox", {116, 82, 81, 123}, "", false},
                                      {IDOK, "Button", {205, 80, 50, 14}, "設定"},
                                      {IDCANCEL, "Button", {266, 80, 50, 14}, "取消"},
                                  },
                                  kGridEditBox);
    EXPECT_EQ(window.ClientUnits().cx, 323);
    EXPECT_EQ(window.ClientUnits().cy, 101);
    items.Person().Key(VK_ESCAPE);
  });
}

TEST_F(TitleItemsTest, TheGridHasFourRowsAndTwoColumns) {
  Run(Given({}), [](Items& items) {
    const ListView list = items.List();
    EXPECT_EQ(list.Count(), 4);
    ASSERT_EQ(list.ColumnCount(), 2);
    const ListView::Column numbers = list.ColumnAt(kNumber);
    const ListView::Column texts = list.ColumnAt(kText);
    EXPECT_EQ(numbers.title, "項目番号");
    EXPECT_EQ(texts.title, "注　　釈");
    const RECT window = list.ScreenRect();
    const int space = window.right - window.left - ::GetSystemMetrics(SM_CXVSCROLL);
    EXPECT_EQ(numbers.width, space * 2 / 10 - 3);
    EXPECT_EQ(texts.width, space * 8 / 10 - 3);
    EXPECT_EQ(list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), LRESULT{LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT});
    for (const DWORD style :
         {DWORD{LVS_REPORT}, DWORD{LVS_SINGLESEL}, DWORD{LVS_NOSORTHEADER}, DWORD{LVS_OWNERDRAWFIXED}}) {
      EXPECT_NE(list.Style() & style, 0U) << style;
    }
    items.Person().Key(VK_ESCAPE);
  });
}

TEST_F(TitleItemsTest, RowsShowNumbersAndAnnotationsElseNames) {
  Run(Given({{201, ""}, {2, "図の番号"}, {202, ""}, {0, "unused"}}), [](Items& items) {
    items.ExpectCell(0, kNumber, "  201");
    items.ExpectCell(0, kText, "コメント");
    items.ExpectCell(1, kNumber, "    2");
    items.ExpectCell(1, kText, "図の番号");
    items.ExpectCell(2, kNumber, "  202");
    items.ExpectCell(2, kText, "モデル名");
    items.ExpectCell(3, kNumber, "    0");
    items.ExpectCell(3, kText, "");
    items.Person().Key(VK_ESCAPE);
  });
}

TEST_F(TitleItemsTest, WithoutBeingToldTheFirstTwoRowsHaveTitles) {
  CvMdlTitle dialog(nullptr, rule_);
  const INT_PTR result = Run(dialog, [](Items& items) {
    items.ExpectCell(0, kNumber, "  201");
    items.ExpectCell(1, kNumber, "    1");
    items.ExpectCell(2, kNumber, "    0");
    items.ExpectCell(3, kNumber, "    0");
    items.Ok();
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(taken_, (Slots{{201, "コメント"}, {1, "図面名称"}, {0, ""}, {0, ""}}));
}

// ---- picking

TEST_F(TitleItemsTest, TheListOfTitlesDropsDownOverBothColumns) {
  Run(Given({{201, ""}}), [](Items& items) {
    items.OpenTitles(0);
    EXPECT_EQ(items.Combo().Items(),
              (Texts{"    0 : 取消", "  201 : コメント", "  205 : 状態", "    1 : 図面名称", "    2 : 図番",
                     "    3 : 作成者表", "  101 : 発注者側の担当者名および所属する部署の名称"}));
    EXPECT_EQ(items.Combo().Selection(), -1);
    const RECT combo = items.Combo().ScreenRect();
    const RECT list = items.List().ClientScreenRect();
    const int columns = items.List().ColumnAt(kNumber).width + items.List().ColumnAt(kText).width;
    EXPECT_EQ(combo.right - combo.left, columns - 2);
    EXPECT_LT(combo.left, list.left + 4);
    items.Person().Key(VK_ESCAPE);
    items.Person().WaitUntil("the list closes", [&] { return !items.Combo().IsVisible(); });
    items.Person().Key(VK_ESCAPE);
  });
}

TEST_F(TitleItemsTest, ADoubleClickDropsTheListOfTitlesDown) {
  Run(Given({{201, ""}}), [](Items& items) {
    items.Person().DoubleClick(driver::Center(items.List().CellRect(0, kNumber)));
    items.Person().WaitUntil("the list of titles drops down", [&] { return items.Combo().IsDropped(); });
    items.Person().Settle();
    EXPECT_TRUE(items.Combo().IsDropped()) << "after the button is up";
    items.Person().Key(VK_ESCAPE);
    items.Person().WaitUntil("the list closes", [&] { return !items.Combo().IsVisible(); });
    items.Person().Key(VK_ESCAPE);
  });
}

TEST_F(TitleItemsTest, APickedTitleBringsItsName) {
  const INT_PTR result = Run(Given({{201, ""}}), [](Items& items) {
    items.Pick(2, "  205 : 状態");
    EXPECT_FALSE(items.Combo().IsVisible());
    items.ExpectCell(2, kText, "状態", true);
    items.Pick(0, "    3 : 作成者表");
    items.ExpectCell(0, kText, "作成者表", true);
    items.ExpectCell(2, kNumber, "  205");
    items.Ok();
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(taken_, (Slots{{3, "作成者表"}, {0, ""}, {205, "状態"}, {0, ""}}));
}

TEST_F(TitleItemsTest, ANameThatIsPickedIsCutBetweenTwoCharacters) {
  Run(Given({{201, ""}}), [](Items& items) {
    items.Pick(1, "  101 : 発注者側の担当者名および所属する部署の名称");
    items.ExpectCell(1, kText, "発注者側の担当者名および所属する", true);
    items.Ok();
  });
  EXPECT_EQ(taken_[1], (TitleSlot{101, "発注者側の担当者名および所属する"}));
}

TEST_F(TitleItemsTest, ATitleIsPickedOnce) {
  const INT_PTR result = Run(Given({{201, ""}, {2, "B"}}), [](Items& items) {
    items.Pick(2, "    2 : 図番");
    items.ExpectMessage(kChosenAlready);
    items.Pick(1, "    2 : 図番");
    items.ExpectMessage(kChosenAlready);
    items.ExpectCell(2, kNumber, "    0");
    items.Ok();
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(taken_, (Slots{{201, "コメント"}, {2, "B"}, {0, ""}, {0, ""}}));
}

TEST_F(TitleItemsTest, ARefusedTitleCanBePickedOnceItIsFree) {
  Run(Given({{201, ""}, {2, "B"}}), [](Items& items) {
    items.Pick(2, "    2 : 図番");
    items.ExpectMessage(kChosenAlready);
    items.Pick(1, "    0 : 取消");
    items.Pick(2, "    2 : 図番");
    items.Ok();
  });
  EXPECT_EQ(taken_, (Slots{{201, "コメント"}, {0, ""}, {2, "図番"}, {0, ""}}));
}

TEST_F(TitleItemsTest, NoneTakesTheTitleAway) {
  const INT_PTR result = Run(Given({{201, "A"}, {2, "B"}}), [](Items& items) {
    items.Pick(0, "    0 : 取消");
    items.ExpectCell(0, kText, "", true);
    items.Pick(2, "    0 : 取消");  // none is not taken, however often it is picked
    items.ExpectCell(0, kNumber, "    0");
    items.Ok();
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(taken_, (Slots{{0, ""}, {2, "B"}, {0, ""}, {0, ""}}));
}

// Alt is let go before the arrow, so the next arrows must not walk in the system's menu.
TEST_F(TitleItemsTest, TheKeysBehindAltDownWalkInTheTitles) {
  Run(Given({{201, ""}}), [](Items& items) {
    const User& user = items.Person();
    user.HoldKey(VK_MENU);
    user.HoldKey(VK_DOWN);
    user.ReleaseKey(VK_MENU);
    user.ReleaseKey(VK_DOWN);
    user.WaitUntil("the titles drop down", [&] { return items.Combo().IsDropped(); });
    for (int i = 0; i < 3; ++i) user.Key(VK_DOWN);
    EXPECT_FALSE(user.Sees("#32768"));
    EXPECT_EQ(items.Combo().ComboList().Send(LB_GETCURSEL), 2);
    user.Key(VK_ESCAPE);
    user.WaitUntil("the titles close", [&] { return !items.Combo().IsVisible(); });
    user.Key(VK_ESCAPE);
  });
}

TEST_F(TitleItemsTest, TitlesAreChosenByTheKeyboard) {
  const INT_PTR result = Run(Given({{201, ""}}), [](Items& items) {
    const User& user = items.Person();
    const auto waitOpen = [&] { user.WaitUntil("the titles drop down", [&] { return items.Combo().IsDropped(); }); };
    const auto waitClosed = [&] {
      user.WaitUntil("the titles close", [&] { return !items.Combo().IsVisible(); });
      user.Settle();
    };
    ASSERT_TRUE(items.List().HasFocus());
    user.Key(VK_DOWN);  // the first one only selects a row
    user.Settle();
    items.ExpectCell(0, kText, "コメント", true);
    for (const int key : {VK_DOWN, VK_DOWN, VK_UP}) user.Key(static_cast<WORD>(key));
    user.Settle();
    items.ExpectCell(0, kText, "コメント");
    EXPECT_EQ(items.List().SelectedRows(), std::vector<int>{1});
    user.Key(VK_DOWN, {VK_MENU});
    waitOpen();
    for (const int key : {VK_END, VK_UP, VK_HOME, VK_DOWN, VK_DOWN}) user.Key(static_cast<WORD>(key));
    user.Key(VK_RETURN);
    waitClosed();
    items.ExpectCell(1, kText, "状態", true);

    user.Key(VK_F4);
    waitOpen();
    user.Key(VK_NEXT);
    user.Key(VK_ESCAPE);
    waitClosed();
    user.Key(VK_F4);
    waitOpen();
    user.Key(VK_RETURN);  // what was walked to before does not count
    waitClosed();
    user.Key(VK_F4);
    waitOpen();
    for (const int key : {VK_HOME, VK_DOWN, VK_RETURN}) user.Key(static_cast<WORD>(key));
    items.ExpectMessage(kChosenAlready);
    EXPECT_FALSE(items.Combo().IsVisible());
    items.ExpectCell(1, kText, "状態", true);
    user.Key(VK_F2);
    user.WaitUntil("the annotation is edited", [&] { return static_cast<bool>(items.EditBox()); });
    user.Type("表示");
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(taken_, (Slots{{201, "コメント"}, {205, "表示"}, {0, ""}, {0, ""}}));
}

TEST_F(TitleItemsTest, AListThatIsClosedPicksNothing) {
  Run(Given({{201, ""}}), [](Items& items) {
    items.OpenTitles(1);
    items.ClickCell(0, kNumber);  // the rows below lie under the list
    items.Person().WaitUntil("the list closes", [&] { return !items.Combo().IsVisible(); });
    items.Ok();
  });
  EXPECT_EQ(taken_, (Slots{{201, "コメント"}, {0, ""}, {0, ""}, {0, ""}}));
}

// ---- annotations

TEST_F(TitleItemsTest, AnnotationsAreTyped) {
  Run(Given({{201, ""}, {2, "B"}}), [](Items& items) {
    items.Annotate(0, "表ソ①ｱ");
    items.Annotate(1, "b");
    items.Ok();
  });
  EXPECT_EQ(taken_, (Slots{{201, "表ソ①ｱ"}, {2, "b"}, {0, ""}, {0, ""}}));
}

TEST_F(TitleItemsTest, AnAnnotationHasAtMost32Bytes) {
  Run(Given({{201, ""}, {2, ""}, {3, Repeat("c", 40)}, {205, Repeat("表", 17)}}), [](Items& items) {
    items.Annotate(0, Repeat("a", 40));
    items.Annotate(1, Repeat("ソ", 17));
    items.Ok();
  });
  EXPECT_EQ(taken_,
            (Slots{{201, Repeat("a", 32)}, {2, Repeat("ソ", 16)}, {3, Repeat("c", 32)}, {205, Repeat("表", 16)}}));
}

TEST_F(TitleItemsTest, OnlyARowWithATitleHasAnAnnotationToEdit) {
  Run(Given({{201, ""}}), [](Items& items) {
    items.ClickCell(1, kText);
    EXPECT_FALSE(items.EditBox());
    items.ClickCell(0, kText);
    ASSERT_TRUE(items.EditBox());
    EXPECT_EQ(items.EditBox().Text(), "コメント");
    items.Pick(1, "    2 : 図番");
    items.ClickCell(1, kText);
    ASSERT_TRUE(items.EditBox());
    EXPECT_EQ(items.EditBox().Text(), "図番");
    items.Person().Key(VK_ESCAPE);
  });
}

// ---- end

TEST_F(TitleItemsTest, AtLeastOneTitleIsNeeded) {
  const Slots given = {{201, "A"}, {0, ""}, {0, ""}, {0, ""}};
  const INT_PTR result = Run(Given(given), [](Items& items) {
    items.Pick(0, "    0 : 取消");
    items.Ok();
    items.ExpectMessage(kNothingChosen);
    EXPECT_TRUE(items.Dialog().IsVisible());
    items.Person().Key(VK_ESCAPE);
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_EQ(taken_, given);
}

TEST_F(TitleItemsTest, CancelKeepsTheTitles) {
  const Slots given = {{201, "A"}, {3, "B"}, {0, ""}, {0, ""}};
  const auto change = [](Items& items) {
    items.Pick(2, "    2 : 図番");
    items.Annotate(0, "changed");
  };
  EXPECT_EQ(Run(Given(given),
                [&](Items& items) {
                  change(items);
                  items.Person().Click(items.Dialog().Child(IDCANCEL));
                }),
            IDCANCEL);
  EXPECT_EQ(taken_, given);
  EXPECT_EQ(Run(Given(given),
                [&](Items& items) {
                  change(items);
                  items.Person().Key(VK_ESCAPE);
                }),
            IDCANCEL);
  EXPECT_EQ(taken_, given);
}

TEST_F(TitleItemsTest, TheSameDialogRunsAgain) {
  CvMdlTitle dialog(nullptr, rule_);
  dialog.SetTitles(Given({{201, ""}}));
  EXPECT_EQ(Run(dialog,
                [](Items& items) {
                  items.Pick(1, "    2 : 図番");
                  items.Ok();
                }),
            IDOK);
  EXPECT_EQ(Run(dialog,
                [](Items& items) {
                  items.ExpectCell(1, kText, "図番");
                  items.Pick(3, "    3 : 作成者表");
                  items.Ok();
                }),
            IDOK);
  EXPECT_EQ(taken_, (Slots{{201, "コメント"}, {2, "図番"}, {0, ""}, {3, "作成者表"}}));
}

TEST_F(TitleItemsTest, TheRuleForSlowSortsIsStoredAtOnce) {
  Run(Given({{201, ""}}), [&](Items& items) {
    items.Person().Click(items.Dialog().Child(IDC_TITLE_SORT));
    const Window conditions = items.Person().WaitDialog(kSortTitle);
    EXPECT_EQ(conditions.Owner(), items.Dialog());
    EXPECT_EQ(conditions.Child(IDC_SORT_LIMIT).Text(), "1000");
    items.Person().Click(conditions.Child(IDC_SORT_ALWAYS));
    items.Person().Replace(conditions.Child(IDC_SORT_LIMIT), "77");
    items.Person().Click(conditions.Child(IDOK));
    items.Person().WaitGone(conditions);
    items.Person().Settle();
    items.ExpectCell(0, kText, "コメント");
    items.Person().Key(VK_ESCAPE);
  });
  EXPECT_EQ(rule_.mode, filedialog::SlowSort::Always);
  EXPECT_EQ(rule_.limit, 77);
}

// ---- odd worlds

TEST_F(TitleItemsTest, WithoutAModelOnlyNoneCanBePicked) {
  CwSession::Reset();
  const INT_PTR result = Run(Given({{201, ""}, {2, "B"}}), [](Items& items) {
    items.ExpectCell(0, kText, "");
    items.OpenTitles(1);
    EXPECT_EQ(items.Combo().Items(), Texts{"    0 : 取消"});
    items.Person().Key(VK_ESCAPE);
    items.Ok();
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(taken_, (Slots{{201, ""}, {2, "B"}, {0, ""}, {0, ""}}));
}

TEST_F(TitleItemsTest, NumbersWithoutATitleStay) {
  Run(Given({{65535, ""}, {208, "x"}, {202, ""}, {207, ""}}), [](Items& items) {
    items.ExpectCell(0, kNumber, "65535");
    items.ExpectCell(0, kText, "");
    items.ExpectCell(3, kText, "識別子");
    items.Ok();
  });
  EXPECT_EQ(taken_, (Slots{{65535, ""}, {208, "x"}, {202, "モデル名"}, {207, "識別子"}}));
}

TEST_F(TitleItemsTest, SlotsWithoutARowAreEmptyAfterOk) {
  TitleSlots given = Given({{1, "a"}, {2, "b"}, {3, "c"}, {201, "d"}, {205, "e"}}, filedialog::kMaxTitleSlots);
  given.slots.back() = {101, "z"};
  CvMdlTitle dialog(nullptr, rule_);
  dialog.SetTitles(given);
  EXPECT_EQ(Run(dialog, [](Items& items) { items.Ok(); }), IDOK);
  EXPECT_EQ(taken_, (Slots{{1, "a"}, {2, "b"}, {3, "c"}, {201, "d"}}));
  for (std::size_t i = filedialog::kTitleRows; i < filedialog::kMaxTitleSlots; ++i) {
    EXPECT_EQ(dialog.Titles().slots.at(i), TitleSlot());
  }
}

TEST_F(TitleItemsTest, RowsThatDoNotCountAreShownButNotTaken) {
  const INT_PTR result = Run(Given({{1, "a"}, {2, "b"}}, 0), [](Items& items) {
    items.ExpectCell(1, kText, "b");
    items.Ok();
    items.ExpectMessage(kNothingChosen);
    items.Person().Key(VK_ESCAPE);
  });
  EXPECT_EQ(result, IDCANCEL);
}

}  // namespace
