// The picker of metacharacters, driven by mouse and keyboard.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "dlglib/resources/resource.h"
#include "dlglib/utility/toolbar/CvMetaChar.h"
#include "platform/framework/gdi.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/toolbox/toolbar_host.h"

namespace {

using driver::ListView;
using driver::User;
using driver::Window;
using toolbar_test::ClipboardText;
using toolbar_test::SetClipboard;

constexpr RECT kButton = {200, 100, 223, 122};
constexpr char kBefore[] = "前からの文字";

const std::vector<std::string> kRows = {"<mc>0 : °記号",    "<mc>1 : φ記号",    "<mc>2 : ±記号",  "<mc>3 : □記号",
                                        "<mc>F : 分数",     "<mc>S : ２段文字", "<mc>M : マーク", "<mc>W : 区切右寄",
                                        "<mc>X : 区切中央", "<mc>, : 区切左寄", "<mc>; : 終端"};

struct Answer {
  INT_PTR result = 0;
  bool hasCopied = false;
};

/// The picker with a script that ends it.
Answer RunPicker(const std::function<void(User&, Window, ListView)>& script,
                 const std::optional<RECT>& button = kButton) {
  SetClipboard(kBefore);
  CvMetaChar picker;
  if (button) picker.SetButtonRect(*button);
  Answer answer;
  driver::RunDialog([&] { answer.result = picker.DoModal(); },
                    [&](User& user) {
                      const Window dialog = user.WaitDialog("メタ文字");
                      user.WaitUntil("the picker is in front", [&] { return dialog.IsForeground(); });
                      user.Settle();
                      script(user, dialog, ListView(dialog.Child(IDC_META_LIST)));
                    });
  answer.hasCopied = picker.HasCopied();
  return answer;
}

TEST(MetaChar, ListsElevenRows) {
  RunPicker([](User& user, Window, ListView list) {
    EXPECT_EQ(list.Names(), kRows);
    EXPECT_EQ(list.ColumnCount(), 1);
    for (int row = 0; row < list.Count(); ++row) {
      EXPECT_EQ(list.Send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK), INDEXTOSTATEIMAGEMASK(1));
    }
    EXPECT_TRUE(list.SelectedRows().empty());
    user.Key(VK_ESCAPE);
  });
}

TEST(MetaChar, HasAGridOfFullRowsAsWideAsTheList) {
  RunPicker([](User& user, Window, ListView list) {
    EXPECT_EQ(list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    const RECT client = list.ClientScreenRect();
    EXPECT_EQ(list.ColumnAt(0).width, client.right - client.left);
    EXPECT_EQ(list.Style() & (LVS_TYPEMASK | LVS_SINGLESEL | LVS_NOCOLUMNHEADER | WS_VSCROLL | WS_HSCROLL),
              static_cast<DWORD>(LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER));
    user.Key(VK_ESCAPE);
  });
}

TEST(MetaChar, StandsBelowItsButtonAndKeepsItsSize) {
  SIZE placed = {};
  RunPicker([&](User& user, Window dialog, ListView) {
    const RECT place = dialog.ScreenRect();
    EXPECT_EQ(place.left, kButton.left);
    EXPECT_EQ(place.top, kButton.bottom);
    placed = {place.right - place.left, place.bottom - place.top};
    user.Key(VK_ESCAPE);
  });
  RunPicker(
      [&](User& user, Window dialog, ListView) {
        const RECT place = dialog.ScreenRect();
        EXPECT_EQ(place.right - place.left, placed.cx);
        EXPECT_EQ(place.bottom - place.top, placed.cy);
        user.Key(VK_ESCAPE);
      },
      std::nullopt);
}

TEST(MetaChar, AClickPutsTheEscapeOnTheClipboard) {
  for (int row = 0; row < 11; ++row) {
    const Answer answer = RunPicker([row](User& user, Window dialog, ListView list) {
      EXPECT_EQ(dialog.Child(IDC_META_EDIT).Text(), "");
      user.Click(driver::Center(list.ItemRect(row)));
      user.WaitGone(dialog);
    });
    EXPECT_EQ(answer.result, IDOK);
    EXPECT_TRUE(answer.hasCopied);
    EXPECT_EQ(ClipboardText(), kRows[static_cast<std::size_t>(row)].substr(0, 5));
  }
}

TEST(MetaChar, AClickAtTheRightEndOfARowChoosesIt) {
  const Answer answer = RunPicker([](User& user, Window dialog, ListView list) {
    const RECT row = list.ItemRect(9, LVIR_BOUNDS);
    user.Click({row.right - 2, row.bottom - 2});
    user.WaitGone(dialog);
  });
  EXPECT_EQ(answer.result, IDOK);
  EXPECT_EQ(ClipboardText(), "<mc>,");
}

TEST(MetaChar, AClickBesideTheRowsDoesNothing) {
  const Answer answer = RunPicker([](User& user, Window dialog, ListView list) {
    const RECT client = list.ClientScreenRect();
    ASSERT_GT(client.bottom - 1, list.ItemRect(10, LVIR_BOUNDS).bottom);
    user.Click({client.left + 20, client.bottom - 1});
    user.Settle();
    EXPECT_TRUE(dialog.IsVisible());
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(answer.result, IDCANCEL);
  EXPECT_EQ(ClipboardText(), kBefore);
}

TEST(MetaChar, EscAndTheCloseBoxLeaveTheClipboardAlone) {
  Answer answer = RunPicker([](User& user, Window, ListView) { user.Key(VK_ESCAPE); });
  EXPECT_EQ(answer.result, IDCANCEL);
  EXPECT_FALSE(answer.hasCopied);
  EXPECT_EQ(ClipboardText(), kBefore);
  answer = RunPicker([](User&, Window dialog, ListView) { ::PostMessageW(dialog.Handle(), WM_CLOSE, 0, 0); });
  EXPECT_EQ(answer.result, IDCANCEL);
  EXPECT_EQ(ClipboardText(), kBefore);
}

TEST(MetaChar, ArrowKeysAndEnterChooseARow) {
  const Answer answer = RunPicker([](User& user, Window dialog, ListView list) {
    EXPECT_TRUE(list.HasFocus());
    user.Key(VK_DOWN);
    user.Settle();
    EXPECT_EQ(list.SelectedRows(), std::vector<int>{0});
    user.Key(VK_DOWN);
    user.Key(VK_DOWN);
    user.Key(VK_UP);
    user.Settle();
    EXPECT_EQ(list.SelectedRows(), std::vector<int>{1});
    user.Key(VK_RETURN);
    user.WaitGone(dialog);
  });
  EXPECT_EQ(answer.result, IDOK);
  EXPECT_EQ(ClipboardText(), "<mc>1");
}

TEST(MetaChar, TheEndKeyReachesTheTerminator) {
  const Answer answer = RunPicker([](User& user, Window dialog, ListView) {
    user.Key(VK_END);
    user.Key(VK_RETURN);
    user.WaitGone(dialog);
  });
  EXPECT_EQ(answer.result, IDOK);
  EXPECT_EQ(ClipboardText(), "<mc>;");
}

TEST(MetaChar, EnterWithoutARowDoesNothing) {
  const Answer answer = RunPicker([](User& user, Window dialog, ListView) {
    user.Key(VK_RETURN);
    user.Settle();
    EXPECT_TRUE(dialog.IsVisible());
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(answer.result, IDCANCEL);
  EXPECT_EQ(ClipboardText(), kBefore);
}

TEST(MetaChar, ASelectionBehindTheTableIsPassedOver) {
  const Answer answer = RunPicker([](User& user, Window dialog, ListView list) {
    LVITEMA item = {};
    item.mask = LVIF_TEXT;
    item.iItem = 11;
    char text[] = "<mc>Z : ?";
    item.pszText = text;
    list.Send(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    list.Send(LVM_ENSUREVISIBLE, 11, FALSE);
    user.Click(driver::Center(list.ItemRect(11)));
    user.Settle();
    EXPECT_TRUE(dialog.IsVisible());
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(answer.result, IDCANCEL);
  EXPECT_EQ(ClipboardText(), kBefore);
}

TEST(MetaChar, GivesUpWhenAnotherProgramKeepsTheClipboard) {
  const Answer answer = RunPicker([](User& user, Window dialog, ListView list) {
    ASSERT_TRUE(::OpenClipboard(nullptr));  // this thread is as strange to the dialog as another program
    user.Click(driver::Center(list.ItemRect(3)));
    user.WaitGone(dialog);
    ::CloseClipboard();
  });
  EXPECT_EQ(answer.result, IDOK);
  EXPECT_FALSE(answer.hasCopied);
  EXPECT_EQ(ClipboardText(), kBefore);
}

TEST(MetaChar, WaitsUntilTheClipboardIsFree) {
  const Answer answer = RunPicker([](User& user, Window dialog, ListView list) {
    const POINT row = driver::Center(list.ItemRect(4));
    user.Press(row);
    ASSERT_TRUE(::OpenClipboard(nullptr));
    INPUT release = {};
    release.type = INPUT_MOUSE;
    release.mi.dwFlags = MOUSEEVENTF_LEFTUP;
    ::SendInput(1, &release, sizeof release);
    user.WaitUntil("the picker tries to copy", [dialog] {
      DWORD_PTR result = 0;
      return ::SendMessageTimeoutW(dialog.Handle(), WM_NULL, 0, 0, SMTO_NORMAL, 60, &result) == 0;
    });
    ::CloseClipboard();
    user.WaitGone(dialog);
  });
  EXPECT_TRUE(answer.hasCopied);
  EXPECT_EQ(ClipboardText(), "<mc>F");
}

TEST(MetaChar, CanBeShownAgain) {
  CvMetaChar picker;
  for (int run = 0; run < 3; ++run) {
    driver::RunDialog([&] { EXPECT_EQ(picker.DoModal(), run == 1 ? IDCANCEL : IDOK); },
                      [&](User& user) {
                        const Window dialog = user.WaitDialog("メタ文字");
                        user.WaitUntil("it is in front", [&] { return dialog.IsForeground(); });
                        user.Settle();
                        const ListView list(dialog.Child(IDC_META_LIST));
                        if (run == 1) {
                          user.Key(VK_ESCAPE);
                        } else {
                          user.Click(driver::Center(list.ItemRect(run)));
                        }
                      });
    EXPECT_EQ(picker.HasCopied(), run != 1);
  }
}

TEST(MetaChar, LeavesNoHandleBehind) {
  const int before = framework::LiveHandles();
  for (int i = 0; i < 3; ++i) {
    RunPicker([](User& user, Window dialog, ListView list) {
      user.Click(driver::Center(list.ItemRect(2)));
      user.WaitGone(dialog);
    });
  }
  EXPECT_EQ(framework::LiveHandles(), before);
}

}  // namespace
