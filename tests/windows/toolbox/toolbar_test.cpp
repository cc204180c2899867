// The toolbar over edit controls, used with the real mouse, in a dialog of the framework and in one that knows nothing
// of it. The suite's two dialogs answer as the tests say.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <climits>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "dlglib/resources/resource.h"
#include "platform/framework/framework.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvndlg.h"
#include "tests/support/encodings.h"
#include "tests/windows/toolbox/toolbar_host.h"

namespace {

using driver::ListView;
using driver::User;
using driver::Window;
using toolbar_test::ClipboardText;
using toolbar_test::Host;
using toolbar_test::HostKind;
using toolbar_test::kButton;
using toolbar_test::kFirstEdit;
using toolbar_test::kSecondEdit;
using toolbar_test::MakeHost;
using toolbar_test::SetClipboard;

constexpr char kBefore[] = "前からの文字";

/// What the suite's dialogs are asked and answer.
struct Stage {
  std::function<int(char* out, int size)> answerText = [](char*, int) { return 0; };
  std::function<int()> answerRegister = [] { return 0; };
  int textCalls = 0;
  int registerCalls = 0;
  HWND owner = nullptr;
  int reserved = -1;
  std::string library;
  int size = 0;
  std::string title;
};
Stage stage;

using test_texts::Euc;

CwRegisterSet& Registers() { return *CwSession::GetInstance()->GetRegisterSet(); }

}  // namespace

int TlbDialog(void* owner, int reserved, const std::string& library, char* out, int size) {
  ++stage.textCalls;
  stage.owner = static_cast<HWND>(owner);
  stage.reserved = reserved;
  stage.library = library;
  stage.size = size;
  return stage.answerText(out, size);
}

int RegDspDialog(const char* title, void* owner, int reserved) {
  ++stage.registerCalls;
  stage.owner = static_cast<HWND>(owner);
  stage.reserved = reserved;
  stage.title = title;
  return stage.answerRegister();
}

namespace {

class ToolBarTest : public testing::TestWithParam<HostKind> {
 protected:
  ToolBarTest() {
    stage = {};
    CwSession::Reset();
    SetClipboard(kBefore);
  }
  ~ToolBarTest() override { CwSession::Reset(); }

  using Script = std::function<void(User&, Host&)>;

  /// The dialog with a toolbar and room for it.
  void Run(int mask, const Script& script) {
    const auto host = MakeHost(GetParam());
    host->Run(
        [mask](CvUtility& utility) {
          CDWordArray ids;
          for (const int id : {kFirstEdit, kSecondEdit, kButton}) ids.Add(static_cast<DWORD>(id));
          utility.SetToolBar(mask, &ids);
        },
        script);
  }

  /// Clicks on button 0 with the caret in an empty edit control; what the control then holds.
  std::string InsertLibraryText(const std::string& given, bool closed = true) {
    stage.answerText = [&](char* out, int size) {
      const std::size_t room = static_cast<std::size_t>(size) - (closed ? 1 : 0);
      const std::size_t copied = given.copy(out, room);
      if (closed) out[copied] = '\0';
      return 1;
    };
    std::string shown;
    Run(7, [&](User& user, Host& host) {
      host.Focus(user, kFirstEdit, 0, 0);
      user.Click(host.ButtonMiddle(0));
      shown = host.Edit().Text();
    });
    return shown;
  }

  std::string InsertRegister(int code) {
    stage.answerRegister = [code] { return code; };
    std::string shown;
    Run(7, [&](User& user, Host& host) {
      host.Focus(user, kFirstEdit, 0, 0);
      user.Click(host.ButtonMiddle(2));
      shown = host.Edit().Text();
    });
    return shown;
  }

  static void AnswerText(const std::string& sjis) {
    stage.answerText = [sjis](char* out, int) {
      const std::string euc = Euc(sjis);
      out[euc.copy(out, 1023)] = '\0';
      return 1;
    };
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, ToolBarTest, testing::Values(HostKind::Framework, HostKind::Plain),
                         [](const auto& kind) { return kind.param == HostKind::Plain ? "Plain" : "Framework"; });

// ------------------------------------------------------------------------------------------------------- making it

TEST_P(ToolBarTest, IsABorderedChildAtTheTop) {
  Run(7, [](User&, Host& host) {
    const Window bar = host.ToolBar();
    EXPECT_EQ(bar.ClassName(), "ToolbarWindow32");
    EXPECT_EQ(bar.Style() & ~static_cast<DWORD>(WS_CLIPSIBLINGS), 0x50800121U);
    const RECT place = bar.RectInParent();
    const RECT client = host.Dialog().ClientScreenRect();
    EXPECT_LE(place.left, 0);
    EXPECT_LE(place.top, 0);
    EXPECT_GE(place.right, client.right - client.left);
    for (int i = 0; i < 3; ++i) EXPECT_LE(host.ButtonRect(i).bottom, bar.ScreenRect().bottom);
  });
}

/// The tooltip control that is not the toolbar's own.
TEST_P(ToolBarTest, TheDialogHasATooltipControl) {
  Run(7, [](User&, Host& host) {
    host.OnDialogThread([&] {
      std::vector<HWND> tips;
      const auto add = [](HWND window, LPARAM found) -> BOOL {
        if (Window(window).ClassName() == "tooltips_class32") {
          reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
        }
        return TRUE;
      };
      ::EnumThreadWindows(::GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&tips));
      std::erase(tips, ToolBarRef(host.ToolBar().Handle()).GetToolTips());
      ASSERT_EQ(tips.size(), 1U);
      EXPECT_EQ(Window(tips[0]).Owner(), host.Dialog());
    });
  });
}

TEST_P(ToolBarTest, AButtonIsNotLitOnceItsDialogIsGone) {
  Run(7, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    user.Click(host.ButtonMiddle(1));
    const Window picker = user.WaitDialog("メタ文字");
    user.Settle();
    user.MoveTo({1200, 900});
    user.Key(VK_ESCAPE);
    user.WaitGone(picker);
    user.WaitUntil("the focus is back", [&] { return host.Edit().HasFocus(); });
    user.Settle();
    EXPECT_EQ(host.ToolBar().Send(TB_GETHOTITEM), -1);
  });
}

TEST_P(ToolBarTest, HasThreeButtonsWithTheirImages) {
  Run(7, [](User&, Host& host) {
    host.OnDialogThread([&] {
      const ToolBarRef bar(host.ToolBar().Handle());
      ASSERT_EQ(bar.GetButtonCount(), 3);
      for (int i = 0; i < 3; ++i) {
        TBBUTTON button = {};
        ASSERT_TRUE(bar.GetButton(i, &button));
        EXPECT_EQ(button.idCommand, 2001 + i);
        EXPECT_EQ(button.iBitmap, i);
        EXPECT_EQ(button.fsState, TBSTATE_ENABLED);
      }
      const auto images = reinterpret_cast<HIMAGELIST>(bar.Send(TB_GETIMAGELIST));
      EXPECT_EQ(::ImageList_GetImageCount(images), 3);
    });
  });
}

TEST_P(ToolBarTest, TheMaskSaysWhichButtonsAreEnabled) {
  for (const int mask : {0, 1, 2, 5, 7, 8, 0x7FFFFFFF, -1, INT_MIN, 8 + 2}) {
    Run(mask, [mask](User&, Host& host) {
      host.OnDialogThread([&] {
        const ToolBarRef bar(host.ToolBar().Handle());
        EXPECT_EQ(bar.GetButtonCount(), 3);
        for (int i = 0; i < 3; ++i) {
          EXPECT_EQ(bar.GetState(2001 + i), (mask >> i & 1) != 0 ? TBSTATE_ENABLED : TBSTATE_INDETERMINATE) << mask;
        }
      });
    });
  }
}

struct Places {
  SIZE dialog;
  std::vector<RECT> controls;
};

Places PlacesOf(const Host& host) {
  const RECT rect = host.Dialog().ScreenRect();
  Places places = {{rect.right - rect.left, rect.bottom - rect.top}, {}};
  for (const int id : {kFirstEdit, kSecondEdit, kButton}) places.controls.push_back(host.Edit(id).RectInParent());
  return places;
}

TEST_P(ToolBarTest, MakesRoomForTheListedControls) {
  Places before;
  MakeHost(GetParam())->Run([](CvUtility&) {}, [&](User&, Host& host) { before = PlacesOf(host); });
  const auto host = MakeHost(GetParam());
  host->Run(
      [](CvUtility& utility) {
        CDWordArray ids;
        for (const DWORD id : {101UL, 103UL, 999UL, 0UL, 0xFFFFFFFFUL}) ids.Add(id);
        utility.SetToolBar(5, &ids);
      },
      [&](User&, Host& shown) {
        const Places after = PlacesOf(shown);
        const RECT bar = shown.ToolBar().ScreenRect();
        const int height = bar.bottom - bar.top;
        EXPECT_GT(height, 20);
        EXPECT_EQ(after.dialog.cy, before.dialog.cy + height);
        EXPECT_EQ(after.dialog.cx, before.dialog.cx);
        EXPECT_EQ(after.controls[0].top, before.controls[0].top + height);
        EXPECT_EQ(after.controls[0].left, before.controls[0].left);
        EXPECT_EQ(after.controls[0].bottom, before.controls[0].bottom + height);
        EXPECT_EQ(after.controls[1].top, before.controls[1].top);
        EXPECT_EQ(after.controls[2].top, before.controls[2].top + height);
      });
}

TEST_P(ToolBarTest, WithoutAListNothingMoves) {
  Places before;
  MakeHost(GetParam())->Run([](CvUtility&) {}, [&](User&, Host& host) { before = PlacesOf(host); });
  for (const bool withNull : {false, true}) {
    MakeHost(GetParam())
        ->Run([withNull](CvUtility& utility) { withNull ? utility.SetToolBar(5, nullptr) : utility.SetToolBar(5); },
              [&](User&, Host& host) {
                const Places after = PlacesOf(host);
                EXPECT_EQ(after.dialog.cy, before.dialog.cy);
                for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(after.controls[i].top, before.controls[i].top);
              });
  }
}

TEST_P(ToolBarTest, AFurtherCallReplacesItAndMakesNoMoreRoom) {
  Run(7, [](User& user, Host& host) {
    const Places before = PlacesOf(host);
    host.OnDialogThread([&] {
      CDWordArray ids;
      ids.Add(kFirstEdit);
      host.Utility()->SetToolBar(2, &ids);
    });
    const Places after = PlacesOf(host);
    EXPECT_EQ(after.dialog.cy, before.dialog.cy);
    EXPECT_EQ(after.controls[0].top, before.controls[0].top);
    int bars = 0;
    for (const Window& child : host.Dialog().Children()) bars += child.ClassName() == "ToolbarWindow32" ? 1 : 0;
    EXPECT_EQ(bars, 1);
    user.Click(host.ButtonMiddle(0));
    EXPECT_EQ(stage.textCalls, 0);
  });
}

TEST(ToolBarWithoutHost, NothingHappens) {
  CvUtility utility;
  CDWordArray ids;
  ids.Add(1);
  utility.SetToolBar(7);
  utility.SetToolBar(7, &ids);
  utility.SetTlbFileName(nullptr);
  CWnd none;
  utility.SetParentWindow(&none);
  utility.SetToolBar(7, &ids);
  utility.SetParentWindow(nullptr);
  utility.SetToolBar(7, nullptr);
}

// ------------------------------------------------------------------------------------------------------------- tips

TEST_P(ToolBarTest, TipsAppearOverTheButtons) {
  Run(7, [](User& user, Host& host) {
    const std::vector<std::string> tips = {"テキストライブラリ", "メタ文字", "レジスタ"};
    for (int i = 0; i < 3; ++i) {
      user.MoveTo(host.ButtonMiddle(i));
      Window tip;
      user.WaitUntil("a tip appears", [&] {
        for (const Window& window : driver::VisibleWindows(::GetCurrentProcessId())) {
          if (window.ClassName() == "tooltips_class32") tip = window;
        }
        return tip && tip.IsVisible() && tip.Text() == tips[static_cast<std::size_t>(i)];
      });
      user.MoveTo({1200, 900});
      user.WaitGone(tip);
    }
  });
}

TEST_P(ToolBarTest, ATipIsCopiedForTheEightBitRequestOnly) {
  Run(7, [](User&, Host& host) {
    const std::array<std::string, 7> tips = {"", "テキストライブラリ", "メタ文字", "レジスタ", "詳細", "ヘルプ", ""};
    host.OnDialogThread([&] {
      const HWND bar = host.ToolBar().Handle();
      for (int i = 0; i < 7; ++i) {
        NMTTDISPINFOA narrow = {};
        narrow.hdr = {bar, static_cast<UINT_PTR>(2000 + i), TTN_NEEDTEXTA};
        ::SendMessageW(bar, WM_NOTIFY, narrow.hdr.idFrom, reinterpret_cast<LPARAM>(&narrow));
        EXPECT_EQ(std::string(narrow.szText), tips[static_cast<std::size_t>(i)]);
        NMTTDISPINFOW wide = {};
        wide.hdr = {bar, static_cast<UINT_PTR>(2000 + i), TTN_NEEDTEXTW};
        ::SendMessageW(bar, WM_NOTIFY, wide.hdr.idFrom, reinterpret_cast<LPARAM>(&wide));
        EXPECT_EQ(wide.szText[0], L'\0');
        EXPECT_EQ(wide.lpszText, nullptr);
      }
    });
  });
}

TEST_P(ToolBarTest, RequestsThatReachTheDialogAreAnsweredToo) {
  Run(7, [](User&, Host& host) {
    host.OnDialogThread([&] {
      NMTTDISPINFOA narrow = {};
      narrow.hdr = {host.ToolBar().Handle(), 2005, TTN_NEEDTEXTA};
      ::SendMessageW(host.Dialog().Handle(), WM_NOTIFY, 2005, reinterpret_cast<LPARAM>(&narrow));
      EXPECT_STREQ(narrow.szText, "ヘルプ");
    });
  });
}

// -------------------------------------------------------------------------------------------------------- inserting

TEST_P(ToolBarTest, ATextOfTheLibraryGoesToTheCaret) {
  AnswerText("寸法ソ表");
  Run(7, [](User& user, Host& host) {
    host.Edit().Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("前後"));
    host.Focus(user, kFirstEdit, 1, 1);
    user.Click(host.ButtonMiddle(0));
    EXPECT_EQ(host.Edit().Text(), "前寸法ソ表後");
    EXPECT_TRUE(host.Edit().HasFocus());
    EXPECT_EQ(host.Edit().TextSelection(), std::pair(5, 5));
    EXPECT_EQ(stage.owner, host.ToolBar().Handle());
    EXPECT_EQ(stage.reserved, 0);
    EXPECT_EQ(stage.library, "*");
    EXPECT_EQ(stage.size, 1024);
    EXPECT_EQ(ClipboardText(), "寸法ソ表");
    EXPECT_EQ(::GetDlgItem(host.ToolBar().Handle(), toolbar_test::kCarrier), nullptr);
  });
}

TEST_P(ToolBarTest, WhatIsSelectedIsReplaced) {
  AnswerText("新");
  Run(7, [](User& user, Host& host) {
    host.Edit(kSecondEdit).Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("一二三"));
    host.Focus(user, kSecondEdit, 1, 2);
    user.Click(host.ButtonMiddle(0));
    EXPECT_EQ(host.Edit(kSecondEdit).Text(), "一新三");
    EXPECT_EQ(host.Edit(kFirstEdit).Text(), "");
  });
}

TEST_P(ToolBarTest, MetacharactersAndLineBreaksAreInsertedAsEscapes) {
  const std::string stored = "\x8D\xB1" + Euc("５０") + "\x8D\xD9\r" + Euc("二");
  EXPECT_EQ(InsertLibraryText(stored), "<mc>1５０<mc>,<cr>二");
  Registers().AddRegister("A1")->SetText("\x8D\xB0\r\n");
  EXPECT_EQ(InsertRegister(1), "<mc>0<cr><cr>");
  // In a control of several lines too, from where it is stored as what it was.
  Run(7, [&](User& user, Host& host) {
    stage.answerText = [&](char* out, int) {
      out[stored.copy(out, stored.size())] = '\0';
      return 1;
    };
    host.Focus(user, kSecondEdit, 0, 0);
    user.Click(host.ButtonMiddle(0));
    std::array<char, 513> back = {};
    host.OnDialogThread(
        [&] { host.Utility()->GetTextData(CWnd::FromHandle(host.Edit(kSecondEdit).Handle()), back.data(), 513); });
    EXPECT_EQ(back.data(), stored);
  });
}

TEST_P(ToolBarTest, NoEscapeIsCutInHalf) {
  EXPECT_EQ(InsertLibraryText(std::string(1018, 'a') + "\x8D\xB1", false), std::string(1018, 'a') + "<mc>1");
  EXPECT_EQ(InsertLibraryText(std::string(1019, 'b') + "\x8D\xB1", false), std::string(1019, 'b'));
}

TEST_P(ToolBarTest, ADialogThatWasGivenUpInsertsNothing) {
  for (const int result : {0, -1, INT_MIN}) {
    stage.answerText = [result](char* out, int) {
      out[0] = 'x';
      return result;
    };
    stage.answerRegister = [result] { return result; };
    Run(7, [](User& user, Host& host) {
      host.Focus(user, kFirstEdit, 0, 0);
      user.Click(host.ButtonMiddle(0));
      user.Click(host.ButtonMiddle(2));
      EXPECT_EQ(host.Edit().Text(), "");
      EXPECT_EQ(ClipboardText(), kBefore);
    });
  }
  EXPECT_EQ(stage.textCalls, 3);
  EXPECT_EQ(stage.registerCalls, 3);
}

TEST_P(ToolBarTest, AnEmptyTextNeverPastesWhatTheClipboardHeld) {
  EXPECT_EQ(InsertLibraryText(""), "");
  EXPECT_EQ(ClipboardText(), kBefore);
}

TEST_P(ToolBarTest, LongTextsAreCutBetweenCharacters) {
  const std::string full(1023, 'a');
  EXPECT_EQ(InsertLibraryText(full), full);
  EXPECT_EQ(InsertLibraryText(std::string(1024, 'b'), false), std::string(1023, 'b'));
  EXPECT_EQ(InsertLibraryText(std::string(5000, 'c')), std::string(1023, 'c'));
  const std::string pairs = Euc("a") + [] {
    std::string text;
    for (int i = 0; i < 511; ++i) text += Euc("表");
    return text;
  }();
  ASSERT_EQ(pairs.size(), 1023U);
  EXPECT_EQ(Euc(InsertLibraryText(pairs)), pairs);
  EXPECT_EQ(Euc(InsertLibraryText("x" + pairs, false)).size(), 1022U);
}

TEST_P(ToolBarTest, HalfACharacterIsLeftOutAtTheEndAndAQuestionMarkElsewhere) {
  EXPECT_EQ(InsertLibraryText("a\xC9"), "a");
  EXPECT_EQ(InsertLibraryText("\xC9"
                              "a"),
            "?a");
  EXPECT_EQ(InsertLibraryText("\x8F\xB0"), "??");
}

TEST_P(ToolBarTest, RegistersAreInsertedByTheirValues) {
  Registers().AddRegister("A1")->SetScalar(0.1);
  Registers().AddRegister("A2")->SetScalar(1.0 / 3);
  Registers().AddRegister("B0")->SetText(Euc("北港水道ソ"));
  Registers().AddRegister("Z999")->SetScalar(-1250.5);
  EXPECT_EQ(InsertRegister(1), "0.1");
  EXPECT_EQ(InsertRegister(2), "0.3333333333");
  EXPECT_EQ(InsertRegister(1000), "北港水道ソ");
  EXPECT_EQ(InsertRegister(25999), "-1250.5");
  EXPECT_EQ(stage.title, "レジスタ");
  EXPECT_EQ(stage.reserved, 0);
}

// AD F0 is shown as the character of A2 E2, and comes back from a window as that one.
TEST_P(ToolBarTest, WhatWasInsertedIsStoredWithItsBytes) {
  Registers().AddRegister("A1")->SetText("\xAD\xF0");
  stage.answerRegister = [] { return 1; };
  stage.answerText = [](char* out, int) {
    out[std::string("t\xAD\xF0").copy(out, 1023)] = '\0';
    return 1;
  };
  Run(7, [&](User& user, Host& host) {
    const auto stored = [&] {
      std::array<char, 600> out = {};
      host.OnDialogThread(
          [&] { host.Utility()->GetTextData(CWnd::FromHandle(host.Edit().Handle()), out.data(), 600); });
      return std::string(out.data());
    };
    host.Focus(user, kFirstEdit, 0, 0);
    user.Click(host.ButtonMiddle(2));
    EXPECT_EQ(stored(), "\xAD\xF0");
    user.Click(host.ButtonMiddle(0));
    EXPECT_EQ(stored(), "\xAD\xF0t\xAD\xF0");
    user.Type("ab");
    EXPECT_EQ(stored(),
              "\xAD\xF0t\xAD\xF0"
              "ab");
    host.Focus(user, kFirstEdit, 1, 1);
    user.Click(host.ButtonMiddle(2));
    EXPECT_EQ(stored(),
              "\xAD\xF0\xAD\xF0t\xAD\xF0"
              "ab");
  });
}

TEST_P(ToolBarTest, RegistersThatAreNoneInsertNothing) {
  Registers().AddRegister("A0")->SetScalar(5);
  Registers().AddRegister("A1");
  Registers().AddRegister("A2")->SetText("");
  for (const int code : {0, -1, -1000, INT_MIN, 1, 2, 3, 26000, 1000000, INT_MAX}) {
    EXPECT_EQ(InsertRegister(code), "") << code;
  }
  EXPECT_EQ(ClipboardText(), kBefore);
}

TEST_P(ToolBarTest, TheLibraryIsOpenedUnderItsName) {
  Run(7, [](User& user, Host& host) {
    const auto opened = [&](const char* name) {
      host.OnDialogThread([&] { host.Utility()->SetTlbFileName(name); });
      user.Click(host.ButtonMiddle(0));
      return stage.library;
    };
    EXPECT_EQ(opened("NOTES.TLB"), "NOTES.TLB");
    EXPECT_EQ(opened(std::string(255, 'a').c_str()), std::string(255, 'a'));
    EXPECT_EQ(opened(std::string(300, 'b').c_str()), std::string(255, 'b'));
    EXPECT_EQ(opened((std::string(254, 'c') + "\xC9\xBD").c_str()), std::string(254, 'c'));
    EXPECT_EQ(opened(nullptr), "*");
    EXPECT_EQ(opened(""), "");
  });
}

// ------------------------------------------------------------------------------------------------------ metacharacter

TEST_P(ToolBarTest, APickedMetacharacterGoesToTheCaret) {
  Run(7, [](User& user, Host& host) {
    host.Edit().Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("AB"));
    host.Focus(user, kFirstEdit, 1, 1);
    user.Click(host.ButtonMiddle(1));
    const Window picker = user.WaitDialog("メタ文字");
    const RECT button = host.ButtonRect(1);
    EXPECT_EQ(picker.ScreenRect().left, button.left);
    EXPECT_EQ(picker.ScreenRect().top, button.bottom);
    EXPECT_EQ(picker.Owner(), host.Dialog());
    user.Settle();
    user.Click(driver::Center(ListView(picker.Child(IDC_META_LIST)).ItemRect(9)));
    user.WaitGone(picker);
    user.WaitUntil("the escape is inserted", [&] { return host.Edit().Text() == "A<mc>,B"; });
    EXPECT_TRUE(host.Edit().HasFocus());
    EXPECT_EQ(host.Edit().TextSelection(), std::pair(6, 6));
    EXPECT_EQ(stage.textCalls + stage.registerCalls, 0);
  });
}

TEST_P(ToolBarTest, AMetacharacterByKeyboard) {
  Run(2, [](User& user, Host& host) {
    host.Focus(user, kSecondEdit, 0, 0);
    user.Click(host.ButtonMiddle(1));
    const Window picker = user.WaitDialog("メタ文字");
    user.WaitUntil("the picker is in front", [&] { return picker.IsForeground(); });
    user.Key(VK_DOWN);
    user.Key(VK_DOWN);
    user.Key(VK_RETURN);
    user.WaitGone(picker);
    user.WaitUntil("the escape is inserted", [&] { return host.Edit(kSecondEdit).Text() == "<mc>1"; });
  });
}

// A dialog gives the toolbar the focus by a key of its own.
void GiveFocus(User& user, Host& host) {
  host.Focus(user, kFirstEdit, 0, 0);
  host.OnDialogThread([&] { ::SetFocus(host.ToolBar().Handle()); });
  user.WaitUntil("the toolbar has the focus", [&] { return host.ToolBar().HasFocus(); });
}

TEST_P(ToolBarTest, ArrowsWalkAmongTheButtonsAndEnterPressesOne) {
  stage.answerRegister = [] { return 0; };
  Run(7, [&](User& user, Host& host) {
    GiveFocus(user, host);
    for (const WORD key : std::array<WORD, 3>{VK_RIGHT, VK_RIGHT, VK_RETURN}) user.Key(key);
    EXPECT_EQ(stage.registerCalls, 1);
    user.WaitUntil("the focus is back", [&] { return host.Edit().HasFocus(); });
    EXPECT_EQ(stage.textCalls, 0);
    GiveFocus(user, host);
    for (const WORD key : std::array<WORD, 4>{VK_END, VK_LEFT, VK_LEFT, VK_SPACE}) user.Key(key);
    EXPECT_EQ(stage.textCalls, 1) << "Space presses too";
  });
}

TEST_P(ToolBarTest, AMetacharacterIsPickedWithoutAMouse) {
  Run(7, [&](User& user, Host& host) {
    GiveFocus(user, host);
    user.Key(VK_RIGHT);
    user.Key(VK_RETURN);
    const Window picker = user.WaitDialog("メタ文字");
    user.Settle();
    for (const WORD key : std::array<WORD, 2>{VK_DOWN, VK_RETURN}) user.Key(key);
    user.WaitGone(picker);
    user.WaitUntil("the escape is inserted", [&] { return !host.Edit().Text().empty(); });
    EXPECT_TRUE(host.Edit().Text().starts_with("<mc>"));
    EXPECT_TRUE(host.Edit().HasFocus());
  });
}

TEST_P(ToolBarTest, ArrowsPassOverGreyButtonsAndEscGoesBack) {
  Run(4, [&](User& user, Host& host) {
    GiveFocus(user, host);
    user.Key(VK_RETURN);
    EXPECT_EQ(stage.registerCalls, 1) << "the only button that may be used";
    GiveFocus(user, host);
    user.Key(VK_LEFT);
    user.Key(VK_ESCAPE);
    user.WaitUntil("the focus is back", [&] { return host.Edit().HasFocus(); });
    EXPECT_TRUE(host.Dialog().IsVisible());
    EXPECT_EQ(stage.registerCalls, 1);
  });
}

TEST_P(ToolBarTest, TheButtonThatKeysHaveComeToHasAFrameWhileTheToolbarHasTheFocus) {
  Run(7, [&](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    const driver::Picture before = user.Look(host.ButtonRect(1));
    GiveFocus(user, host);
    user.Key(VK_RIGHT);
    EXPECT_NE(user.Look(host.ButtonRect(1)), before);
    user.Key(VK_ESCAPE);
    user.WaitUntil("the focus is back", [&] { return host.Edit().HasFocus(); });
    EXPECT_EQ(user.Look(host.ButtonRect(1)), before);
  });
}

TEST_P(ToolBarTest, APickerThatIsGivenUpChangesNothing) {
  Run(7, [](User& user, Host& host) {
    host.Edit().Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("AB"));
    host.Focus(user, kFirstEdit, 0, 2);
    user.Click(host.ButtonMiddle(1));
    const Window picker = user.WaitDialog("メタ文字");
    user.WaitUntil("the picker is in front", [&] { return picker.IsForeground(); });
    user.Key(VK_ESCAPE);
    user.WaitGone(picker);
    user.WaitUntil("the focus is back", [&] { return host.Edit().HasFocus(); });
    EXPECT_EQ(host.Edit().Text(), "AB");
    EXPECT_EQ(host.Edit().TextSelection(), std::pair(0, 2));
    EXPECT_EQ(ClipboardText(), kBefore);
  });
}

// ---------------------------------------------------------------------------------------------- clicks of other kinds

TEST_P(ToolBarTest, AGreyButtonDoesNothing) {
  AnswerText("x");
  Run(5, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    user.Click(host.ButtonMiddle(1));
    user.Settle();
    EXPECT_FALSE(user.Sees("#32770", "メタ文字"));
    EXPECT_EQ(host.Edit().Text(), "");
    user.Click(host.ButtonMiddle(0));
    EXPECT_EQ(host.Edit().Text(), "x");
  });
}

/// A picture of the toolbar is left beside the results.
driver::Picture LookOf(User& user, Host& host, const std::string& name) {
  EXPECT_TRUE(user.Look(host.ToolBar()).SavePng("toolbar-" + name + ".png"));
  return user.Look(host.ButtonRect(1));
}

TEST_P(ToolBarTest, AGreyButtonLooksGrey) {
  driver::Picture enabled(1, 1);
  Run(7, [&](User& user, Host& host) { enabled = LookOf(user, host, "enabled"); });
  Run(5, [&](User& user, Host& host) { EXPECT_NE(LookOf(user, host, "grey"), enabled); });
}

TEST_P(ToolBarTest, TheEdgesOfAButtonBelongToIt) {
  Run(7, [](User&, Host& host) {
    const RECT client = host.ToolBar().ClientScreenRect();
    RECT first = host.ButtonRect(0);
    RECT last = host.ButtonRect(2);
    ::OffsetRect(&first, -client.left, -client.top);
    ::OffsetRect(&last, -client.left, -client.top);
    const auto calls = [&](LONG x, LONG y) {
      const int before = stage.textCalls + stage.registerCalls;
      host.ToolBar().Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
      host.ToolBar().Send(WM_LBUTTONUP, 0, MAKELPARAM(500, 500));
      return stage.textCalls + stage.registerCalls - before;
    };
    EXPECT_EQ(calls(first.left, first.top), 1);
    EXPECT_EQ(calls(first.left, first.bottom), 1);
    EXPECT_EQ(calls(first.left, first.bottom + 1), 0);
    EXPECT_EQ(calls(last.right, last.bottom), 1);
    EXPECT_EQ(calls(last.right + 1, last.bottom), 0);
    EXPECT_EQ(stage.registerCalls, 1);
    // Where two buttons meet, the first one has it: the second one's picker would come up.
    EXPECT_EQ(calls(first.right, first.top), 1);
  });
}

TEST_P(ToolBarTest, ASecondClickSoonAfterIsAClickToo) {
  Run(7, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    user.DoubleClick(host.ButtonMiddle(2));
    EXPECT_EQ(stage.registerCalls, 2);
  });
}

TEST_P(ToolBarTest, ADoubleClickBesideTheButtonsOffersNoChanges) {
  Run(7, [](User& user, Host& host) {
    const RECT bar = host.ToolBar().ScreenRect();
    user.DoubleClick({bar.right - 20, (bar.top + bar.bottom) / 2});
    user.Settle();
    EXPECT_TRUE(host.Dialog().IsEnabled());
    EXPECT_TRUE(host.Dialog().IsForeground());
  });
}

TEST_P(ToolBarTest, WithoutAFocusTheClickIsTheToolbarsOwn) {
  Run(7, [](User& user, Host& host) {
    host.OnDialogThread([] { ::SetFocus(nullptr); });
    const RECT client = host.ToolBar().ClientScreenRect();
    const POINT at = host.ButtonMiddle(0);
    const LPARAM place = MAKELPARAM(at.x - client.left, at.y - client.top);
    host.OnDialogThread([&] {
      ::SendMessageW(host.ToolBar().Handle(), WM_LBUTTONDOWN, MK_LBUTTON, place);
      ::SendMessageW(host.ToolBar().Handle(), WM_LBUTTONUP, 0, place);
    });
    user.Settle();
    EXPECT_EQ(stage.textCalls, 0);
    EXPECT_EQ(host.Commands(), std::vector<int>{2001});
  });
}

TEST_P(ToolBarTest, AFocusThatIsNoEditControlTakesNoHarm) {
  AnswerText("x");
  Run(7, [](User& user, Host& host) {
    host.OnDialogThread([&] { ::SetFocus(host.Edit(kButton).Handle()); });
    user.Click(host.ButtonMiddle(0));
    EXPECT_EQ(stage.textCalls, 1);
    EXPECT_EQ(host.Edit(kFirstEdit).Text() + host.Edit(kSecondEdit).Text() + host.Edit(kButton).Text(), "");
    EXPECT_TRUE(host.Edit(kButton).HasFocus());
  });
}

// --------------------------------------------------------------------------------------- what happens behind a dialog

TEST_P(ToolBarTest, AControlThatIsGoneAfterwardsGetsNothing) {
  Run(7, [](User& user, Host& host) {
    stage.answerText = [&](char* out, int) {
      ::DestroyWindow(host.Edit().Handle());
      out[0] = 'x';
      return 1;
    };
    host.Focus(user, kFirstEdit, 0, 0);
    user.Click(host.ButtonMiddle(0));
    user.Settle();
    EXPECT_EQ(host.Edit(kSecondEdit).Text(), "");
    EXPECT_EQ(ClipboardText(), kBefore);
  });
}

TEST_P(ToolBarTest, AControlThatIsDisabledAfterwardsGetsNothing) {
  Run(7, [](User& user, Host& host) {
    stage.answerText = [&](char* out, int) {
      ::EnableWindow(host.Edit().Handle(), FALSE);
      out[0] = 'x';
      return 1;
    };
    host.Focus(user, kFirstEdit, 0, 0);
    user.Click(host.ButtonMiddle(0));
    user.Settle();
    EXPECT_EQ(host.Edit().Text(), "");
  });
}

TEST_P(ToolBarTest, TheFocusComesBackToTheControl) {
  Run(7, [](User& user, Host& host) {
    stage.answerText = [&](char* out, int) {
      ::SetFocus(host.Edit(kButton).Handle());
      out[0] = 'x';
      return 1;
    };
    host.Focus(user, kFirstEdit, 0, 0);
    user.Click(host.ButtonMiddle(0));
    EXPECT_EQ(host.Edit().Text(), "x");
    EXPECT_TRUE(host.Edit().HasFocus());
  });
}

TEST_P(ToolBarTest, TheUtilityMayEndMeanwhile) {
  Run(7, [](User& user, Host& host) {
    stage.answerText = [&](char* out, int) {
      host.Utility().reset();
      out[0] = 'x';
      return 1;
    };
    host.Focus(user, kFirstEdit, 0, 0);
    user.Click(host.ButtonMiddle(0));
    user.Settle();
    EXPECT_EQ(host.Edit().Text(), "");
    EXPECT_EQ(host.Dialog().FindChild(toolbar_test::kToolBar), Window());
  });
}

TEST_P(ToolBarTest, TheUtilityMayEndBehindThePicker) {
  Run(7, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    user.Click(host.ButtonMiddle(1));
    const Window picker = user.WaitDialog("メタ文字");
    user.Settle();
    host.OnDialogThread([&] { host.Utility().reset(); });
    user.Click(driver::Center(ListView(picker.Child(IDC_META_LIST)).ItemRect(0)));
    user.WaitGone(picker);
    user.WaitUntil("the dialog is enabled again", [&] { return host.Dialog().IsEnabled(); });
  });
}

TEST_P(ToolBarTest, TheDialogMayEndBehindThePicker) {
  Run(7, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    user.Click(host.ButtonMiddle(1));
    const Window picker = user.WaitDialog("メタ文字");
    user.Settle();
    const Window dialog = host.Dialog();
    const std::function<void()> destroy = [dialog] { ::DestroyWindow(dialog.Handle()); };
    host.OnDialogLoop(destroy);
    user.WaitGone(picker);
    user.WaitUntil("the dialog is gone", [dialog] { return !dialog.Exists(); });
  });
}

// -------------------------------------------------------------------------------------------- clipboard and programs

TEST_P(ToolBarTest, AClipboardThatIsHeldOpenIsGivenUp) {
  AnswerText("x");
  Run(7, [](User& user, Host& host) {
    host.Focus(user, kFirstEdit, 0, 0);
    ASSERT_TRUE(::OpenClipboard(nullptr));
    const DWORD start = ::GetTickCount();
    user.Click(host.ButtonMiddle(0));
    user.Settle();
    EXPECT_LT(::GetTickCount() - start, 5000U);
    ::CloseClipboard();
    EXPECT_EQ(stage.textCalls, 1);
    EXPECT_EQ(host.Edit().Text(), "");
    EXPECT_EQ(ClipboardText(), kBefore);
    user.Click(host.ButtonMiddle(0));
    EXPECT_EQ(host.Edit().Text(), "x");
  });
}

/// Opens a dialog's picker and clicks on its first row.
void PickFirstMetaChar(User& user, Host& host) {
  host.Focus(user, kFirstEdit, 0, 0);
  user.Click(host.ButtonMiddle(1));
  const Window picker = user.WaitDialog("メタ文字");
  user.Settle();
  user.Click(driver::Center(ListView(picker.Child(IDC_META_LIST)).ItemRect(0)));
  user.WaitGone(picker);
}

TEST_P(ToolBarTest, WhatAnotherProgramCopiesBehindThePickerIsNotPasted) {
  Run(7, [](User& user, Host& host) {
    host.WhenEnabled([] { SetClipboard("他の文字"); });
    PickFirstMetaChar(user, host);
    user.Settle();
    EXPECT_EQ(host.Edit().Text(), "");
    EXPECT_TRUE(host.Edit().HasFocus());
    EXPECT_EQ(ClipboardText(), "他の文字");
  });
}

/// A thread that holds the clipboard open, as strange to the dialog's thread as another program.
class HeldClipboard {
 public:
  ~HeldClipboard() { Close(); }
  /// Returns when the clipboard is open.
  void Open() {
    if (thread_.joinable()) return;
    thread_ = std::thread([this] {
      isOpen_ = ::OpenClipboard(nullptr) != FALSE;
      hasTried_ = true;
      while (isOpen_) ::Sleep(1);
      ::CloseClipboard();
    });
    while (!hasTried_) ::Sleep(1);
  }
  void Close() {
    isOpen_ = false;
    if (thread_.joinable()) thread_.join();
  }

 private:
  std::atomic<bool> isOpen_ = false;
  std::atomic<bool> hasTried_ = false;
  std::thread thread_;
};

TEST_P(ToolBarTest, AClipboardHeldOpenBehindThePickerIsGivenUp) {
  HeldClipboard held;
  Run(7, [&](User& user, Host& host) {
    host.WhenEnabled([&] { held.Open(); });
    PickFirstMetaChar(user, host);
    host.OnDialogThread([] {});
    held.Close();
    EXPECT_EQ(host.Edit().Text(), "");
    EXPECT_TRUE(host.Edit().HasFocus());
    host.WhenEnabled({});
    PickFirstMetaChar(user, host);
    user.WaitUntil("the escape is inserted", [&] { return host.Edit().Text() == "<mc>0"; });
  });
}

/// A window of another thread with the input of the dialog's thread attached to its own.
class ForeignEdit {
 public:
  explicit ForeignEdit(DWORD dialogThread) {
    thread_ = std::thread([this, dialogThread] {
      window_ = ::CreateWindowExA(0, "EDIT", "", WS_POPUP | WS_VISIBLE, 700, 500, 100, 30, nullptr, nullptr, nullptr,
                                  nullptr);
      ::AttachThreadInput(::GetCurrentThreadId(), dialogThread, TRUE);
      ready_ = true;
      MSG message = {};
      while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
      ::DestroyWindow(window_);
    });
    while (!ready_) std::this_thread::yield();
  }
  ~ForeignEdit() {
    ::PostThreadMessageW(::GetWindowThreadProcessId(window_, nullptr), WM_QUIT, 0, 0);
    thread_.join();
  }
  [[nodiscard]] HWND Handle() const { return window_; }

 private:
  std::atomic<bool> ready_ = false;
  HWND window_ = nullptr;
  std::thread thread_;
};

TEST_P(ToolBarTest, AFocusOfAnotherThreadGetsThePaste) {
  AnswerText("他");
  Run(7, [](User& user, Host& host) {
    const ForeignEdit foreign(::GetWindowThreadProcessId(host.Dialog().Handle(), nullptr));
    const RECT client = host.ToolBar().ClientScreenRect();
    const POINT at = host.ButtonMiddle(0);
    host.OnDialogThread([&] {
      ::SetFocus(foreign.Handle());
      ASSERT_EQ(::GetFocus(), foreign.Handle());
      ::SendMessageW(host.ToolBar().Handle(), WM_LBUTTONDOWN, MK_LBUTTON,
                     MAKELPARAM(at.x - client.left, at.y - client.top));
    });
    user.WaitUntil("the text arrives", [&] { return Window(foreign.Handle()).Text() == "他"; });
    EXPECT_EQ(host.Edit().Text(), "");
  });
}

// ------------------------------------------------------------------------------------------------------------- lives

TEST_P(ToolBarTest, GoesWithTheUtility) {
  Run(7, [](User&, Host& host) {
    host.OnDialogThread([&] { host.Utility().reset(); });
    EXPECT_EQ(host.Dialog().FindChild(toolbar_test::kToolBar), Window());
    EXPECT_TRUE(host.Dialog().IsVisible());
  });
}

TEST_P(ToolBarTest, MayOutliveTheDialog) {
  const auto host = MakeHost(GetParam());
  host->Run([](CvUtility& utility) { utility.SetToolBar(7); }, [](User&, Host&) {});
  EXPECT_FALSE(host->Dialog().Exists());
}

TEST_P(ToolBarTest, LeavesNoHandleBehind) {
  AnswerText("x");
  const auto once = [this] {
    Run(7, [](User& user, Host& host) {
      host.Focus(user, kFirstEdit, 0, 0);
      user.Click(host.ButtonMiddle(0));
      EXPECT_EQ(host.Edit().Text(), "x");
    });
  };
  once();
  const int before = framework::LiveHandles();
  for (int i = 0; i < 3; ++i) once();
  EXPECT_EQ(framework::LiveHandles(), before);
}

}  // namespace
