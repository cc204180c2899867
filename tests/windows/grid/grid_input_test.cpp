// The grid under a person's hands: mouse and keyboard, in a dialog of the framework and in one that knows nothing of
// it.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "platform/os/sjis_wide.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/grid/grid_host.h"
#include "tests/windows/grid/grid_table.h"

namespace {

using driver::User;
using driver::Window;
using grid_test::CellPoint;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kColour;
using grid_test::kMaterial;
using grid_test::kName;
using grid_test::kNumber;

class GridInputTest : public testing::TestWithParam<HostKind> {
 protected:
  int Use(const std::function<void(User&)>& script, const std::function<void(Host&)>& fill = grid_test::FillTable) {
    int result = 0;
    driver::RunDialog([&] { result = host_->Run(fill); },
                      [&](User& user) {
                        (void)user.WaitDialog(grid_test::kTitle);
                        script(user);
                        if (::IsWindow(host_->Handle()) != FALSE) user.Click(Window(host_->Child(IDCANCEL)));
                      });
    return result;
  }
  void ClickCell(User& user, int row, int col, int step = 0) { user.Click(CellPoint(*host_, row, col, step)); }

  std::unique_ptr<Host> host_ = Host::Make(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridInputTest, testing::Values(HostKind::Framework, HostKind::Plain),
                         [](const auto& host) { return host.param == HostKind::Framework ? "Framework" : "Plain"; });

TEST_P(GridInputTest, AClickEditsACellAndTypingIsInItAtOnce) {
  Use([&](User& user) {
    EXPECT_FALSE(host_->EditBox());
    ClickCell(user, 2, kName);
    const Window box = host_->EditBox();
    ASSERT_TRUE(box);
    EXPECT_TRUE(box.HasFocus());
    EXPECT_EQ(box.Text(), "部品2");
    EXPECT_EQ(box.TextSelection(), (std::pair(0, 3)));
    EXPECT_EQ(host_->ZoneText(), "品名を入力");
    user.Type("表A");
    EXPECT_EQ(host_->Text(2, kName), "表A");
    user.Type("ソ");
    EXPECT_EQ(host_->Text(2, kName), "表Aソ");
    ClickCell(user, 4, kName);
    EXPECT_EQ(host_->EditBox().Text(), "部品4");
    EXPECT_EQ(host_->Text(2, kName), "表Aソ");
    host_->Do([&] {
      EXPECT_EQ(host_->list->GetSelectedItem(), 4);
      EXPECT_EQ(host_->list->GetSelectedColumn(), kName);
      EXPECT_EQ(host_->list->GetSelectFlag(2), 0);
    });
  });
}

TEST_P(GridInputTest, AFurtherClickOnTheSameCellDropsItsListDown) {
  Use([&](User& user) {
    ClickCell(user, 1, kMaterial);
    EXPECT_FALSE(host_->ComboBox());
    // The edit box covers the left part of the cell; the button lies right of it.
    const RECT cell = host_->ListView().CellRect(1, kMaterial);
    const POINT button = {cell.right - 9, (cell.top + cell.bottom) / 2};
    user.Click(button);
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    EXPECT_EQ(host_->ComboBox().Items().size(), 5U);
    EXPECT_EQ(host_->ZoneText(), "材質を選択");
    const Window entries = host_->ComboBox().ComboList();
    RECT entry = {};
    host_->Do([&] { entries.Send(LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&entry)); });
    ::MapWindowPoints(entries.Handle(), nullptr, reinterpret_cast<POINT*>(&entry), 2);
    user.Click(driver::Center(entry));
    user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
    EXPECT_EQ(host_->Text(1, kMaterial), "1");
    ASSERT_TRUE(host_->EditBox());
    EXPECT_EQ(host_->EditBox().Text(), "1");
    EXPECT_TRUE(host_->EditBox().HasFocus());
    EXPECT_EQ(host_->ZoneText(), "材質を入力");
    user.Click({button.x - 8, button.y});
    user.WaitUntil("the list drops down again", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    user.Key(VK_ESCAPE);
  });
}

TEST_P(GridInputTest, TheListLiesInFrontOfTheDialog) {
  Use([&](User& user) {
    ClickCell(user, 1, kMaterial);
    const RECT cell = host_->ListView().CellRect(1, kMaterial);
    const POINT button = {cell.right - 9, (cell.top + cell.bottom) / 2};
    const auto open = [&] {
      user.Click(button);
      user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
      return host_->ComboBox().ComboList().ScreenRect();
    };
    const RECT place = open();
    user.Key(VK_ESCAPE);
    user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
    const driver::Picture without = user.Look(place);
    open();
    user.WaitUntil("the screen shows the list", [&] { return user.Look(place) != without; });
    user.Key(VK_ESCAPE);
  });
}

TEST_P(GridInputTest, TabLeavesTheBoxAndTakesNoTextBack) {
  Use([&](User& user) {
    ClickCell(user, 0, kName);
    user.Type("abc ");
    const Window box = host_->EditBox();
    user.Key(VK_TAB);
    EXPECT_FALSE(box.HasFocus());
    EXPECT_EQ(host_->Text(0, kName), "abc");
    // The list view, which has the focus now, has painted under the box.
    ASSERT_TRUE(box.IsVisible());
    user.WaitUntil("the box shows its text", [&] {
      const driver::Picture picture = user.Look(box);
      return picture.Count({0, 0, picture.Width(), picture.Height()}, RGB(0, 0, 0)) > 0;
    });
  });
}

TEST_P(GridInputTest, TheDialogFindsTheTypedTextOnEnterAndEsc) {
  for (const WORD key : {WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
    EXPECT_EQ(Use([&](User& user) {
                ClickCell(user, 3, kName);
                user.Type("typed");
                user.Key(key);
                user.WaitUntil("the dialog ends", [&] { return host_->Handle() == nullptr; });
              }),
              key == VK_RETURN ? IDOK : IDCANCEL);
    std::array<char, 386> text = {};
    host_->list->GetItemText(3, kName, text.data());
    EXPECT_STREQ(text.data(), "typed");
  }
}

TEST_P(GridInputTest, BlanksAtTheEndGoUnlessTheColumnKeepsThem) {
  Use([&](User& user) {
    ClickCell(user, 0, kName);
    user.Type("AB  ");
    EXPECT_EQ(host_->Text(0, kName), "AB  ");
    ClickCell(user, 1, kName);
    EXPECT_EQ(host_->Text(0, kName), "AB");
    user.Type("A　 ");
    host_->Do([&] { host_->list->SetSpaceMode(kName, 1); });
    ClickCell(user, 2, kName);
    EXPECT_EQ(host_->Text(1, kName), "A　") << "full-width blanks stay";
    user.Type("AB  ");
    ClickCell(user, 3, kName);
    EXPECT_EQ(host_->Text(2, kName), "AB  ");
  });
}

TEST_P(GridInputTest, HalfWidthKatakanaIsRefusedWhereAColumnSaysSo) {
  Use([&](User& user) {
    ClickCell(user, 0, kName);
    user.Type("ｱ1");
    EXPECT_EQ(host_->Text(0, kName), "ｱ1");
    host_->Do([&] { host_->list->SetEditMode(kName, 0); });
    ClickCell(user, 1, kName);
    user.Type("aｱｲ｡ﾟ表±°");
    EXPECT_EQ(host_->Text(1, kName), "a表±°");
    host_->Do([&] {
      for (const int byte : {0xA0, 0xA1, 0xDF, 0x62}) {
        ::SendMessageA(host_->EditBox().Handle(), WM_CHAR, static_cast<WPARAM>(byte), 1);
      }
    });
    EXPECT_EQ(host_->Text(1, kName), "a表±°b");
    user.Key(VK_HOME);
    user.Key(VK_END, {VK_SHIFT});
    host_->Do([&] {
      for (const int byte : {0x8A, 0xBF, 0x83, 0x5C, 0xB1}) {
        ::SendMessageA(host_->EditBox().Handle(), WM_CHAR, static_cast<WPARAM>(byte), 1);
      }
    });
    EXPECT_EQ(host_->Text(1, kName), "漢ソ") << "double-byte characters that came as single bytes";
  });
}

TEST_P(GridInputTest, NoTextPassesItsLimitInBytes) {
  Use([&](User& user) {
    ClickCell(user, 0, kName);
    user.Type("表表表表表x表y");
    EXPECT_EQ(host_->Text(0, kName), "表表表表表xy") << "the sixth does not fit behind the x";
    EXPECT_EQ(host_->EditBox().Text(), "表表表表表xy");
    EXPECT_EQ(host_->EditBox().Send(EM_GETLIMITTEXT), 12);
    ClickCell(user, 1, kName);
    user.Paste("1234567890表表");
    EXPECT_EQ(host_->EditBox().Text(), "1234567890表");
    EXPECT_EQ(host_->Text(1, kName), "1234567890表");
    user.Key(VK_HOME);
    user.Paste("ソ");
    EXPECT_EQ(host_->EditBox().Text(), "1234567890表");
    host_->Do([&] { ::SetWindowTextW(host_->EditBox().Handle(), os::WideOf("abcdefghijk表表").c_str()); });
    EXPECT_EQ(host_->EditBox().Text(), "abcdefghijk");
    EXPECT_EQ(host_->Text(1, kName), "abcdefghijk");
    host_->Do([&] { host_->list->SelchangeComboBox("ソソソソソソソソソソソ"); });
    EXPECT_EQ(host_->EditBox().Text(), "ソソソソソソソソソソ") << "what is not typed may fill the cell";
    EXPECT_EQ(host_->Text(1, kName), "ソソソソソソソソソソ");
    host_->Do([&] { ::SetWindowTextW(host_->EditBox().Handle(), L"a\xAC00z"); });
    EXPECT_EQ(host_->EditBox().Text(), "a|z");
    EXPECT_EQ(host_->Text(1, kName), "a|z") << "what Shift_JIS does not know must not become a pattern";
  });
}

TEST_P(GridInputTest, ATextWiderThanItsBoxOnlyShrinks) {
  const std::string wide = "12345678901234567890";  // 20 letters of 6 pixels in a box of 70
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetItemText(1, kMaterial, wide.c_str()); });
    ClickCell(user, 1, kMaterial);
    user.Key(VK_HOME);
    user.Type("x");
    EXPECT_EQ(host_->Text(1, kMaterial), wide);
    user.Key(VK_DELETE);
    EXPECT_EQ(host_->Text(1, kMaterial), wide.substr(1));
    user.Key(VK_BACK);
    EXPECT_EQ(host_->Text(1, kMaterial), wide.substr(1));
    user.Key(VK_END);
    user.Key(VK_BACK);
    EXPECT_EQ(host_->Text(1, kMaterial), wide.substr(1, 18));
    for (const UINT message : {UINT{EM_REPLACESEL}, UINT{WM_PASTE}}) {
      host_->Do([&] { ::SendMessageA(host_->EditBox().Handle(), message, 0, reinterpret_cast<LPARAM>("more")); });
      EXPECT_EQ(host_->Text(1, kMaterial), wide.substr(1, 18));
    }
    user.Key(VK_HOME, {VK_SHIFT});
    user.Type("y");
    EXPECT_EQ(host_->Text(1, kMaterial), "y");
  });
}

TEST_P(GridInputTest, ComposingIsNeverDisturbed) {
  Use([&](User& user) {
    ClickCell(user, 0, kName);
    host_->Do([&] {
      const HWND box = host_->EditBox().Handle();
      ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"1234567890"));
      ::SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
      ::SendMessageW(box, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"表表"));
      EXPECT_EQ(host_->EditBox().Text(), "1234567890表表");
      EXPECT_EQ(host_->Text(0, kName), "1234567890") << "an open composition is no text yet";
      ::SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0);
      EXPECT_EQ(host_->EditBox().Text(), "1234567890表");
    });
    EXPECT_EQ(host_->Text(0, kName), "1234567890表");
  });
}

TEST_P(GridInputTest, TypingCommitsNothingOnceNoCellIsEdited) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    user.Type("abc ");
    host_->Do([&] { host_->list->ClearSelectFlag(); });
    user.Type("xyz ");
    EXPECT_EQ(host_->Text(2, kName), "abc ");
    host_->Do([&] { host_->list->KeyInput(); });
    EXPECT_EQ(host_->Text(2, kName), "abc ");
    user.Key(VK_TAB);
    EXPECT_EQ(host_->Text(2, kName), "abc ");
    ClickCell(user, 5, kName);
    EXPECT_EQ(host_->Text(2, kName), "abc ");
    EXPECT_EQ(host_->EditBox().Text(), "部品5");
    user.Type("new");
    EXPECT_EQ(host_->Text(5, kName), "new");
  });
}

TEST_P(GridInputTest, WhatIsTypedForNoCellStaysOutOfAllWhenAProgramSelectsOne) {
  const std::vector<std::function<void(CvListControl&)>> ways = {[](CvListControl& list) {
                                                                   list.SelectItem(5, kName);
                                                                   list.SelectItem();
                                                                 },
                                                                 [](CvListControl& list) {
                                                                   list.SelectItem(5, kMaterial);
                                                                   list.SelectItem();
                                                                 },
                                                                 [](CvListControl& list) {
                                                                   list.SetSelectFlag(5, 1);
                                                                   list.SelectItem();
                                                                 }};
  for (const auto& select : ways) {
    Use([&](User& user) {
      ClickCell(user, 2, kName);
      host_->Do([&] { host_->list->ClearSelectFlag(); });
      user.Type("xyz");
      host_->Do([&] { select(*host_->list); });
      user.Settle();
      host_->Do([&] { host_->list->SelectItem(2, kName); });
      EXPECT_EQ(host_->Text(2, kName), "部品2");
      EXPECT_EQ(host_->Text(5, kName), "部品5");
    });
  }
}

TEST_P(GridInputTest, EscClosesTheOpenListAndOnlyThenTheDialog) {
  for (const int col : {kMaterial, kNumber}) {
    const int result = Use(
        [&](User& user) {
          host_->Do([&] {
            host_->list->ClickItem(1, col);
            host_->list->OpenComboBox();
          });
          user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
          user.Key(VK_ESCAPE);
          user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
          user.Settle();
          EXPECT_NE(host_->Handle(), nullptr);
          EXPECT_EQ(host_->Text(1, kMaterial), "2");
          user.Key(VK_ESCAPE);
          user.WaitUntil("the dialog ends", [&] { return host_->Handle() == nullptr; });
        },
        [](Host& host) {
          grid_test::FillTable(host);
          CStringList entries;
          entries.AddTail("1");
          host.list->SetCombo(kNumber, kNumber, &entries, "");  // a column without an edit box
        });
    EXPECT_EQ(result, IDCANCEL);
  }
}

TEST_P(GridInputTest, EscClosesAnOpenListThatIsTheDialogsOwn) {
  Use(
      [&](User& user) {
        const Window combo(host_->Child(grid_test::kDialogCombo));
        host_->Do([&] {
          host_->list->ClickItem(1, kName);
          host_->list->OpenComboBox();
        });
        user.WaitUntil("the list drops down", [&] { return combo.IsDropped(); });
        user.Key(VK_ESCAPE);
        user.WaitUntil("the list closes", [&] { return !combo.IsVisible(); });
        user.Settle();
        EXPECT_NE(host_->Handle(), nullptr);
        EXPECT_TRUE(host_->EditBox().HasFocus());
      },
      [](Host& host) {
        ::CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 50, 200, host.Handle(),
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(grid_test::kDialogCombo)), nullptr, nullptr);
        grid_test::FillTable(host);
        CStringList entries;
        entries.AddTail("1");
        host.list->SetCombo(kName, kName, &entries, grid_test::kDialogCombo, "");
      });
}

TEST_P(GridInputTest, EscThatIsHeldDownClosesTheListOnly) {
  Use([&](User& user) {
    host_->Do([&] {
      host_->list->ClickItem(1, kMaterial);
      host_->list->OpenComboBox();
    });
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
    const HWND focus = host_->EditBox().Handle();
    constexpr LPARAM kRepeated = 0x40000001;
    ::PostMessageA(focus, WM_KEYDOWN, VK_ESCAPE, 1);
    for (int repeats = 0; repeats < 3; ++repeats) ::PostMessageA(focus, WM_KEYDOWN, VK_ESCAPE, kRepeated);
    user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
    user.Settle();
    EXPECT_NE(host_->Handle(), nullptr);
    ::PostMessageA(focus, WM_KEYUP, VK_ESCAPE, static_cast<LPARAM>(0xC0000001));
    ::PostMessageA(focus, WM_KEYDOWN, VK_ESCAPE, 1);
    user.WaitUntil("the dialog ends", [&] { return host_->Handle() == nullptr; });
  });
}

TEST_P(GridInputTest, ACellThatIsNotAvailableIsNotEdited) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetAvailableFlag(2, kName, 1); });
    ClickCell(user, 0, kName);
    ClickCell(user, 2, kName);
    EXPECT_FALSE(host_->EditBox());
    host_->Do([&] {
      EXPECT_EQ(host_->list->GetSelectedItem(), -1);
      EXPECT_EQ(host_->list->GetSelectFlag(2), 0);
    });
    EXPECT_TRUE(host_->ListView().HasFocus());
  });
}

TEST_P(GridInputTest, ArrowKeysStayInTheBoxOrInTheListView) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    user.Type("abc");
    const RECT place = host_->EditBox().RectInParent();
    for (const WORD key : {WORD{VK_DOWN}, WORD{VK_UP}, WORD{VK_LEFT}, WORD{VK_RIGHT}, WORD{VK_NEXT}}) user.Key(key);
    EXPECT_EQ(host_->EditBox().RectInParent().top, place.top);
    EXPECT_TRUE(host_->EditBox().HasFocus());
    EXPECT_EQ(host_->Text(2, kName), "abc");
    host_->Do([&] { ::SetFocus(host_->Child(grid_test::kList)); });
    user.Key(VK_DOWN);
    host_->Do([&] {
      EXPECT_EQ(host_->list->GetSelectedItem(), 2)
          << "the list view's own selection has moved, the edited cell has not";
      EXPECT_EQ(host_->list->GetSelectedColumn(), kName);
    });
    EXPECT_EQ(host_->EditBox().RectInParent().top, place.top);
  });
}

TEST_P(GridInputTest, ClicksBesideTheTableEditNothing) {
  Use([&](User& user) {
    ClickCell(user, 0, kName);
    const RECT cell = host_->ListView().CellRect(1, kColour);
    user.Click({cell.right + 5, (cell.top + cell.bottom) / 2});
    EXPECT_FALSE(host_->EditBox());
    host_->Do([&] {
      EXPECT_EQ(host_->list->GetSelectedColumn(), -1);
      EXPECT_EQ(host_->list->GetSelectedItem(), -1);
    });
    host_->Do([&] { host_->list->SetItemCount(2); });
    ClickCell(user, 3, kName);
    EXPECT_FALSE(host_->EditBox());
    host_->Do([&] { EXPECT_EQ(host_->list->GetSelectedItem(), -1); });
  });
}

TEST_P(GridInputTest, EachFurtherClickOpensTheListAgain) {
  Use([&](User& user) {
    const RECT cell = host_->ListView().CellRect(1, kMaterial);
    const POINT button = {cell.right - 9, (cell.top + cell.bottom) / 2};
    user.Click(button);
    for (int click = 0; click < 2; ++click) {
      user.Click(button);
      user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
      host_->Do([&] { host_->list->CloseComboBox(); });
      EXPECT_FALSE(host_->ComboBox());
      EXPECT_TRUE(host_->EditBox().HasFocus());
    }
    user.Click(button);
    host_->Do([&] { host_->list->OpenComboBox(); });
    EXPECT_FALSE(host_->ComboBox()) << "a toggle";
    EXPECT_EQ(host_->ZoneText(), "材質を入力");
  });
}

TEST_P(GridInputTest, APickStoresTheValuePart) {
  Use([&](User& user) {
    const auto pick = [&](int row, int entry) {
      host_->Do([&] {
        host_->list->ClickItem(row, kMaterial);
        host_->list->OpenComboBox();
        const Window combo = host_->ComboBox();
        combo.Send(CB_SETCURSEL, static_cast<WPARAM>(entry));
        ::SendMessageA(host_->Handle(), WM_COMMAND, MAKEWPARAM(10002, CBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(combo.Handle()));
        EXPECT_FALSE(host_->ComboBox());
      });
      user.Settle();
      return host_->Text(row, kMaterial);
    };
    host_->Do([&] { host_->list->SetErrorFlag(0, kMaterial, 1); });
    EXPECT_EQ(pick(0, 1), "2");
    EXPECT_EQ(host_->EditBox().Text(), "2");
    host_->Do([&] { EXPECT_EQ(host_->list->GetErrorFlag(0, kMaterial), 1); });
    EXPECT_EQ(pick(1, 2), "7");
    EXPECT_EQ(pick(2, 4), "12345678901234567890") << "20 bytes";
    host_->Do([&] { host_->list->SetEdit(kMaterial, 0, 3, ""); });
    EXPECT_EQ(pick(5, 4), "12345678901234567890") << "more than may be typed";
    EXPECT_EQ(host_->EditBox().Text(), "12345678901234567890");
    host_->Do([&] { host_->list->SetComboSeparator(':'); });
    EXPECT_EQ(pick(3, 0), "1 SS400");
    EXPECT_EQ(pick(4, -1), "2") << "nothing picked";
  });
}

TEST_P(GridInputTest, AScrolledListTakesTheBoxAlong) {
  Use([&](User& user) {
    ClickCell(user, 3, kName);
    const int top = static_cast<int>(host_->EditBox().RectInParent().top);
    user.Type("x");
    host_->Do([&] { host_->ListView().Send(LVM_SCROLL, 0, 34); });
    user.Settle();
    const int rows = host_->ListView().TopRow();
    ASSERT_GT(rows, 0);
    const RECT item = host_->ListView().ItemRect(0, LVIR_BOUNDS);
    ASSERT_TRUE(host_->EditBox());
    EXPECT_EQ(host_->EditBox().RectInParent().top, top - rows * (item.bottom - item.top));
    EXPECT_EQ(host_->EditBox().Text(), "x");
    EXPECT_TRUE(host_->EditBox().HasFocus());
    host_->Do([&] { host_->ListView().Send(LVM_SCROLL, 0, 170); });
    user.Settle();
    EXPECT_FALSE(host_->EditBox()) << "its row has left the page";
    host_->Do([&] { host_->ListView().Send(LVM_SCROLL, 0, -500); });
    user.Settle();
    EXPECT_TRUE(host_->EditBox());
    EXPECT_EQ(host_->EditBox().RectInParent().top, top);
  });
}

TEST_P(GridInputTest, AListScrolledSidewaysHidesTheBox) {
  Use(
      [&](User& user) {
        host_->Do([&] { host_->list->ClickItem(3, kName); });
        user.Settle();
        host_->Do([&] { host_->ListView().Send(LVM_SCROLL, 40, 0); });
        user.Settle();
        EXPECT_FALSE(host_->EditBox());
        const driver::Picture scrolled = user.Look(host_->ListView());
        host_->Do([&] { ::InvalidateRect(host_->ListView().Handle(), nullptr, TRUE); });
        user.Settle();
        EXPECT_TRUE(user.Look(host_->ListView()) == scrolled) << "something of the box is left";
        host_->Do([&] { host_->ListView().Send(LVM_SCROLL, static_cast<WPARAM>(-40), 0); });
        user.Settle();
        EXPECT_FALSE(host_->EditBox()) << "until the next click";
        ClickCell(user, 3, kName, 1);
        EXPECT_TRUE(host_->EditBox());
      },
      [](Host& host) {
        grid_test::FillTable(host);
        host.ListView().Send(LVM_SETCOLUMNWIDTH, kColour, 200);
      });
}

TEST_P(GridInputTest, AFullListSaysSo) {
  driver::MessageBoxView full;
  driver::MessageBoxView none;
  driver::MessageBoxView nothingToDelete;
  HWND owner = nullptr;
  const auto press = [&](User& user, const std::function<void()>& action) {
    host_->DoLater(action);
    driver::MessageBoxView box = user.WaitMessageBox();
    owner = box.window.Owner().Handle();
    user.Answer(box, IDOK);
    user.Settle();
    return box;
  };
  Use([&](User& user) {
    int at = -5;
    none = press(user, [&] { at = host_->list->InsertItem(); });
    EXPECT_EQ(at, -1);
    EXPECT_EQ(owner, host_->Handle());
    nothingToDelete = press(user, [&] { host_->list->DeleteItem(); });
    host_->Do([&] { host_->list->SetItemCount(30); });
    full = press(user, [&] { at = host_->list->AddItem(); });
    EXPECT_EQ(at, 30);
    host_->Do([&] { EXPECT_EQ(host_->list->GetItemCount(), 30); });
  });
  EXPECT_EQ(full.text, "追加・挿入できません。");
  EXPECT_EQ(none.text, "アイテムを選択してください。");
  EXPECT_EQ(nothingToDelete.text, "アイテムを選択してください。");
  EXPECT_EQ(full.caption, "");
  EXPECT_EQ(full.icon, static_cast<UINT>(MB_ICONEXCLAMATION));
  EXPECT_EQ(full.buttons, std::vector<int>{IDOK});
}

}  // namespace
