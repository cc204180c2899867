#include "platform/framework/dialog.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/framework/fixtures.h"
#include "tests/framework/test_resource.h"

namespace {

constexpr DWORD kFrame = WS_POPUP | WS_CAPTION | WS_SYSMENU;

TEST(Modal, RunsUntilItIsEnded) {
  TemplateBuilder builder;
  ScriptedDialog dialog(builder.Get());
  dialog.script = [](ScriptedDialog& self) {
    EXPECT_EQ(CWnd::FromHandle(self.m_hWnd), &self);
    EXPECT_EQ(self.DoModal(), -1);
  };
  EXPECT_EQ(dialog.DoModal(), 77);
  EXPECT_EQ(dialog.m_hWnd, nullptr);
  EXPECT_EQ(dialog.DoModal(), 77);
}

TEST(Modal, IsShownAtTheLatestWhenTheQueueIsEmpty) {
  TemplateBuilder builder;
  class Waiting : public CDialog {
   public:
    using CDialog::CDialog;
    Handled RouteMessage(const Message& message) override {
      if (message.id == WM_SHOWWINDOW && message.wParam != FALSE) SetTimer(1, 1);
      if (message.id == WM_TIMER) EndDialog(IsWindowVisible() ? 5 : 6);
      return CDialog::RouteMessage(message);
    }
  };
  Waiting hidden(builder.Get());
  EXPECT_EQ(hidden.DoModal(), 5);
  TemplateBuilder visibleBuilder(kFrame | WS_VISIBLE);
  Waiting visible(visibleBuilder.Get());
  EXPECT_EQ(visible.DoModal(), 5);
}

TEST(Modal, LooksActiveAlthoughItTookTheFocusBeforeItWasInFront) {
  TemplateBuilder builder;
  builder.Add("EDIT", 5, WS_TABSTOP);
  class Eager : public CDialog {
   public:
    using CDialog::CDialog;
    BOOL OnInitDialog() override {
      ::SetForegroundWindow(::GetDesktopWindow());
      GetDlgItem(5)->SetFocus();
      SetTimer(1, 1);
      return FALSE;
    }
    Handled RouteMessage(const Message& message) override {
      if (message.id == WM_NCACTIVATE) looksActive_ = message.wParam != FALSE;
      if (message.id == WM_TIMER && IsWindowVisible()) EndDialog(looksActive_ ? 5 : 6);
      return CDialog::RouteMessage(message);
    }

   private:
    bool looksActive_ = false;
  };
  Eager dialog(builder.Get());
  EXPECT_EQ(dialog.DoModal(), 5);
}

TEST(Modal, AnswersMinusOneWhenItCannotBeCreated) {
  CDialog none;
  EXPECT_EQ(none.DoModal(), -1);
  CDialog missing(9999);
  EXPECT_EQ(missing.DoModal(), -1);
  EXPECT_FALSE(none.Create(9999));
  TemplateBuilder builder;
  builder.Add("no such class", 5, 0);
  PlainHost owner;
  CDialog broken(builder.Get(), CWnd::FromHandle(owner.Window()));
  EXPECT_EQ(broken.DoModal(), -1);
  EXPECT_EQ(broken.m_hWnd, nullptr);
  EXPECT_TRUE(::IsWindowEnabled(owner.Window()));
}

TEST(Modal, DisablesItsOwnerMeanwhile) {
  PlainHost owner;
  const HWND child =
      ::CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 9, 9, owner.Window(), nullptr, nullptr, nullptr);
  TemplateBuilder builder;
  ScriptedDialog dialog(builder.Get(), CWnd::FromHandle(child));
  dialog.script = [&](ScriptedDialog& self) {
    EXPECT_FALSE(::IsWindowEnabled(owner.Window()));
    EXPECT_EQ(::GetWindow(self.m_hWnd, GW_OWNER), owner.Window());
  };
  EXPECT_EQ(dialog.DoModal(), 77);
  EXPECT_TRUE(::IsWindowEnabled(owner.Window()));
  ::EnableWindow(owner.Window(), FALSE);
  EXPECT_EQ(dialog.DoModal(), 77);
  EXPECT_FALSE(::IsWindowEnabled(owner.Window()));
}

TEST(Modal, GivesItsOwnerTheInputBack) {
  PlainHost owner;
  ::ShowWindow(owner.Window(), SW_SHOW);
  ::SetActiveWindow(owner.Window());
  TemplateBuilder builder(kFrame | WS_VISIBLE);
  ScriptedDialog dialog(builder.Get(), CWnd::FromHandle(owner.Window()));
  dialog.script = [](ScriptedDialog& self) { EXPECT_EQ(::GetActiveWindow(), self.m_hWnd); };
  EXPECT_EQ(dialog.DoModal(), 77);
  EXPECT_EQ(::GetActiveWindow(), owner.Window());
}

// Blocks of the C library's heap that are in use.
int UsedHeapBlocks() {
  int used = 0;
  _HEAPINFO info{};
  while (_heapwalk(&info) == _HEAPOK) used += info._useflag == _USEDENTRY ? 1 : 0;
  return used;
}

TEST(Modal, LeavesNothingBehindHoweverOftenItRuns) {
  TemplateBuilder builder;
  builder.Add("EDIT", 20, WS_TABSTOP).Add(WC_LISTVIEWA, 21, LVS_REPORT);
  const auto run = [&](int times) {
    for (int at = 0; at < times; ++at) {
      ScriptedDialog dialog(builder.Get());
      CEdit edit;
      dialog.script = [&](ScriptedDialog& self) { EXPECT_TRUE(edit.SubclassDlgItem(20, &self)); };
      EXPECT_EQ(dialog.DoModal(), 77);
    }
  };
  run(5);
  const int before = UsedHeapBlocks();
  ASSERT_GT(before, 0);
  run(50);
  EXPECT_EQ(UsedHeapBlocks(), before);
}

TEST(Modal, TellsItsOwnerThatItIsIdle) {
  PlainHost owner;
  HWND told = nullptr;
  TemplateBuilder builder;
  CDialog dialog(builder.Get(), CWnd::FromHandle(owner.Window()));
  owner.onMessage = [&](UINT id, WPARAM wParam, LPARAM lParam) {
    if (id == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX) {
      told = reinterpret_cast<HWND>(lParam);
      ::PostMessageW(told, WM_COMMAND, IDCANCEL, 0);
    }
    return std::pair(false, LRESULT{});
  };
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_NE(told, nullptr);
}

TEST(Modal, EndedDuringItsInitialisationIsNeverShown) {
  TemplateBuilder builder(kFrame | WS_VISIBLE);
  ScriptedDialog dialog(builder.Get());
  bool shown = false;
  dialog.onInit = [](ScriptedDialog& self) { self.EndDialog(12); };
  dialog.onMessage = [&](const Message& message) -> Handled {
    if (message.id == WM_WINDOWPOSCHANGED) {
      shown = shown || (message.Data<WINDOWPOS>()->flags & SWP_SHOWWINDOW) != 0;
    }
    return std::nullopt;
  };
  EXPECT_EQ(dialog.DoModal(), 12);
  EXPECT_FALSE(shown);
}

TEST(Modal, EndsWithIdCancelWhenItsWindowIsDestroyed) {
  TemplateBuilder builder;
  PlainHost owner;
  ScriptedDialog dialog(builder.Get(), CWnd::FromHandle(owner.Window()));
  dialog.script = [](ScriptedDialog& self) { self.DestroyWindow(); };
  dialog.endsWith = IDCANCEL;
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_TRUE(::IsWindowEnabled(owner.Window()));
  ScriptedDialog orphan(builder.Get(), CWnd::FromHandle(owner.Window()));
  orphan.script = [&](ScriptedDialog&) { owner.Destroy(); };
  orphan.endsWith = IDCANCEL;
  EXPECT_EQ(orphan.DoModal(), IDCANCEL);
  EXPECT_EQ(orphan.m_hWnd, nullptr);
}

TEST(Modal, PassesTheRequestToQuitOn) {
  class Quitting : public CDialog {
   public:
    using CDialog::CDialog;
    BOOL OnInitDialog() override {
      ::PostQuitMessage(31);
      return CDialog::OnInitDialog();
    }
  };
  TemplateBuilder builder;
  Quitting dialog(builder.Get());
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(dialog.m_hWnd, nullptr);
  MSG message{};
  ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 31U);
}

TEST(Modal, MayBeNested) {
  TemplateBuilder builder;
  ScriptedDialog outer(builder.Get());
  std::string order;
  outer.script = [&](ScriptedDialog& self) {
    ScriptedDialog inner(builder.Get(), &self);
    inner.endsWith = 5;
    inner.script = [&](ScriptedDialog&) {
      EXPECT_FALSE(self.IsWindowEnabled());
      order += "inner ";
    };
    EXPECT_EQ(inner.DoModal(), 5);
    EXPECT_TRUE(self.IsWindowEnabled());
    order += "outer";
  };
  outer.endsWith = 6;
  EXPECT_EQ(outer.DoModal(), 6);
  EXPECT_EQ(order, "inner outer");
}

TEST(Modal, LivesOnWhenAHandlerThrows) {
  TemplateBuilder builder;
  builder.Add("BUTTON", 20, BS_PUSHBUTTON, "press");
  ScriptedDialog dialog(builder.Get());
  int presses = 0;
  dialog.onInit = [](ScriptedDialog&) { throw std::runtime_error("initialisation"); };
  dialog.onMessage = [&](const Message& message) -> Handled {
    if (message.id != WM_COMMAND || message.ControlId() != 20) return std::nullopt;
    if (++presses == 1) throw std::runtime_error("press");
    return 0;
  };
  dialog.script = [&](ScriptedDialog& self) {
    EXPECT_EQ(self.SendDlgItemMessage(20, BM_CLICK), 0);
    EXPECT_TRUE(self.IsWindow());
    self.SendDlgItemMessage(20, BM_CLICK);
  };
  EXPECT_EQ(dialog.DoModal(), 77);
  EXPECT_EQ(presses, 2);
}

TEST(Modal, AsksForPreTranslationFirst) {
  class Listening : public ScriptedDialog {
   public:
    using ScriptedDialog::ScriptedDialog;
    BOOL PreTranslateMessage(MSG* message) override {
      if (message->message != WM_APP + 9) return ScriptedDialog::PreTranslateMessage(message);
      EndDialog(static_cast<INT_PTR>(message->wParam));
      return TRUE;
    }
  };
  TemplateBuilder builder;
  builder.Add("EDIT", 20, WS_TABSTOP);
  Listening dialog(builder.Get());
  dialog.onMessage = [](const Message& message) -> Handled {
    if (message.id == WM_APP + 9) ADD_FAILURE();
    return std::nullopt;
  };
  dialog.onInit = [](ScriptedDialog& self) { ::PostMessageW(::GetDlgItem(self.m_hWnd, 20), WM_APP + 9, 41, 0); };
  dialog.endsWith = 41;
  EXPECT_EQ(dialog.DoModal(), 41);
}

TEST(Buttons, EndTheDialog) {
  TemplateBuilder builder;
  builder.Add("BUTTON", IDOK, BS_DEFPUSHBUTTON).Add("BUTTON", IDCANCEL, BS_PUSHBUTTON);
  for (const int button : {IDOK, IDCANCEL}) {
    ScriptedDialog dialog(builder.Get());
    dialog.onInit = [&](ScriptedDialog& self) { ::PostMessageW(::GetDlgItem(self.m_hWnd, button), BM_CLICK, 0, 0); };
    dialog.script = [&](ScriptedDialog& self) {
      self.endsWith = 1000 + button;
      self.SendDlgItemMessage(button, BM_CLICK);
      self.endsWith = button;
    };
    EXPECT_EQ(dialog.DoModal(), button);
  }
}

TEST(Buttons, AndKeysReachTheirHandlers) {
  class Keys : public CDialog {
   public:
    using CDialog::CDialog;
    BOOL OnInitDialog() override {
      ::PostMessageW(::GetDlgItem(m_hWnd, 20), WM_KEYDOWN, key, 0);
      return TRUE;
    }
    WPARAM key = VK_RETURN;
  };
  TemplateBuilder builder;
  builder.Add("EDIT", 20, WS_TABSTOP).Add("BUTTON", IDOK, BS_DEFPUSHBUTTON).Add("BUTTON", IDCANCEL, BS_PUSHBUTTON);
  Keys dialog(builder.Get());
  EXPECT_EQ(dialog.DoModal(), IDOK);
  dialog.key = VK_ESCAPE;
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(Buttons, CloseBoxCancels) {
  TemplateBuilder builder;
  CDialog dialog(builder.Get());
  PlainHost owner;
  owner.onMessage = [&](UINT id, WPARAM, LPARAM lParam) {
    if (id == WM_ENTERIDLE) ::PostMessageW(reinterpret_cast<HWND>(lParam), WM_CLOSE, 0, 0);
    return std::pair(false, LRESULT{});
  };
  ASSERT_TRUE(dialog.InitModalIndirect(builder.Get(), CWnd::FromHandle(owner.Window())));
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(Focus, IsTheFirstControlUnlessInitialisationSetsIt) {
  TemplateBuilder builder;
  builder.Add("EDIT", 20, WS_TABSTOP).Add("EDIT", 21, WS_TABSTOP);
  class Focusing : public ScriptedDialog {
   public:
    using ScriptedDialog::ScriptedDialog;
    BOOL OnInitDialog() override {
      ScriptedDialog::OnInitDialog();
      if (own) GetDlgItem(21)->SetFocus();
      return own ? FALSE : TRUE;
    }
    bool own = false;
  };
  Focusing dialog(builder.Get());
  int focused = 0;
  dialog.script = [&](ScriptedDialog& self) {
    self.ShowWindow(SW_SHOW);
    focused = ::GetDlgCtrlID(::GetFocus());
  };
  dialog.DoModal();
  EXPECT_EQ(focused, 20);
  dialog.own = true;
  dialog.DoModal();
  EXPECT_EQ(focused, 21);
}

TEST(Modeless, LivesUntilItIsDestroyed) {
  TemplateBuilder builder;
  CDialog dialog;
  ASSERT_TRUE(dialog.CreateIndirect(builder.Get()));
  EXPECT_FALSE(dialog.CreateIndirect(builder.Get()));
  EXPECT_FALSE(dialog.InitModalIndirect(builder.Get()));
  EXPECT_EQ(dialog.DoModal(), -1);
  EXPECT_FALSE(dialog.IsWindowVisible());
  dialog.ShowWindow(SW_SHOWNA);
  dialog.EndDialog(1);
  EXPECT_FALSE(dialog.IsWindowVisible());
  EXPECT_TRUE(dialog.IsWindow());
  const HWND window = dialog.m_hWnd;
  dialog.DestroyWindow();
  EXPECT_FALSE(::IsWindow(window));
  EXPECT_EQ(dialog.m_hWnd, nullptr);
  HWND second = nullptr;
  {
    CDialog scoped;
    ASSERT_TRUE(scoped.CreateIndirect(builder.Get()));
    second = scoped.m_hWnd;
  }
  EXPECT_FALSE(::IsWindow(second));
}

TEST(Modeless, AnswersItsKeysInAnyLoop) {
  TemplateBuilder builder;
  builder.Add("EDIT", 20, WS_TABSTOP).Add("EDIT", 21, WS_TABSTOP);
  CDialog dialog;
  ASSERT_TRUE(dialog.CreateIndirect(builder.Get()));
  dialog.ShowWindow(SW_SHOW);
  dialog.GetDlgItem(20)->SetFocus();
  MSG tab{::GetDlgItem(dialog.m_hWnd, 20), WM_KEYDOWN, VK_TAB, 0, 0, {0, 0}};
  EXPECT_TRUE(CWnd::OfferMessage(&tab));
  EXPECT_EQ(CWnd::GetFocus(), dialog.GetDlgItem(21));
}

TEST(Messages, OfADialogMayBeProcessedByTheSystemFirst) {
  class Wrapping : public CDialog {
   public:
    Handled RouteMessage(const Message& message) override {
      if (message.id != DM_GETDEFID) return CDialog::RouteMessage(message);
      ++asked;
      fromSystem = CallDefault(message);
      return 5;
    }
    int asked = 0;
    LRESULT fromSystem = 0;
  };
  TemplateBuilder builder;
  builder.Add("BUTTON", IDOK, BS_DEFPUSHBUTTON);
  Wrapping dialog;
  ASSERT_TRUE(dialog.CreateIndirect(builder.Get()));
  dialog.asked = 0;
  EXPECT_EQ(::SendMessageW(dialog.m_hWnd, DM_GETDEFID, 0, 0), 5);
  EXPECT_EQ(dialog.asked, 1);
  EXPECT_EQ(dialog.fromSystem, MAKELRESULT(IDOK, DC_HASDEFID));
}

TEST(Messages, ComeInEightBitForm) {
  class Listing : public CDialog {
   public:
    Handled RouteMessage(const Message& message) override {
      static constexpr MessageRow<Listing> kRows[] = {
          OnNotify(20, LVN_ENDLABELEDITA, &Listing::OnLabel),
          OnNotify(0, HDN_ITEMCLICKA, &Listing::OnHeader),
      };
      return Route<CDialog>(*this, kRows, message);
    }
    std::string label;
    int headerClicks = 0;

   private:
    void OnLabel(const Message& message) {
      const char* text = message.Notification<NMLVDISPINFOA>()->item.pszText;
      label = text != nullptr ? text : "(none)";
    }
    Handled OnHeader() { return ++headerClicks, std::nullopt; }
  };
  TemplateBuilder builder;
  builder.Add(WC_LISTVIEWA, 20, LVS_REPORT | LVS_EDITLABELS);
  Listing dialog;
  ASSERT_TRUE(dialog.CreateIndirect(builder.Get()));
  dialog.ShowWindow(SW_SHOW);
  const ListCtrlRef list(::GetDlgItem(dialog.m_hWnd, 20));
  list.InsertColumn(0, "名前", LVCFMT_LEFT, 80);
  list.GetHeaderCtrl().SendMessage(WM_LBUTTONDOWN, 0, MAKELPARAM(20, 5));
  list.GetHeaderCtrl().SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(20, 5));
  EXPECT_EQ(dialog.headerClicks, 1);
  list.InsertItem(0, "前");
  list.SetFocus();
  const EditRef editor = list.EditLabel(0);
  ASSERT_TRUE(editor.IsWindow());
  editor.SetWindowText("表ソ");
  editor.SendMessage(WM_KEYDOWN, VK_RETURN);
  EXPECT_EQ(dialog.label, "表ソ");
}

// --- templates and modules

TEST(Resources, AreThoseOfTheCallingModule) {
  EXPECT_EQ(ThisModule(), ::GetModuleHandleW(nullptr));
  class FromResource : public CDialog {
   public:
    FromResource() : CDialog(IDD_FRAMEWORK_TEST) {}
    BOOL OnInitDialog() override {
      GetWindowText(title);
      EndDialog(3);
      return TRUE;
    }
    CString title;
  };
  FromResource dialog;
  EXPECT_EQ(dialog.DoModal(), 3);
  EXPECT_STREQ(dialog.title, "資源の表");
  CDialog modeless;
  EXPECT_TRUE(modeless.Create(IDD_FRAMEWORK_TEST));
  const HMODULE other = ::GetModuleHandleW(L"kernel32.dll");
  CDialog elsewhere(IDD_FRAMEWORK_TEST, nullptr, other);
  EXPECT_EQ(elsewhere.DoModal(), -1);
}

TEST(Resources, OfAnotherModuleAreNotTouchedByTheModuleInForce) {
  const ResourceModuleScope scope(::GetModuleHandleW(L"kernel32.dll"));
  CDialog modeless;
  EXPECT_TRUE(modeless.Create(IDD_FRAMEWORK_TEST));
}

TEST(ResourceModule, IsTheProgramUnlessSwitched) {
  const HINSTANCE program = ::GetModuleHandleW(nullptr);
  const HINSTANCE library = ::GetModuleHandleW(L"user32.dll");
  EXPECT_EQ(GetResourceModule(), program);
  EXPECT_EQ(SetResourceModule(library), program);
  EXPECT_EQ(GetResourceModule(), library);
  EXPECT_EQ(SetResourceModule(nullptr), library);
  EXPECT_EQ(GetResourceModule(), program);
}

TEST(ResourceModule, IsSwitchedAroundNestedRunsAndOnFailure) {
  const HINSTANCE program = ::GetModuleHandleW(nullptr);
  const HINSTANCE first = ::GetModuleHandleW(L"user32.dll");
  const HINSTANCE second = ::GetModuleHandleW(L"gdi32.dll");
  TemplateBuilder builder;
  ScriptedDialog outer(builder.Get());
  outer.script = [&](ScriptedDialog& self) {
    EXPECT_EQ(GetResourceModule(), first);
    ScriptedDialog inner(builder.Get(), &self);
    inner.script = [&](ScriptedDialog&) { EXPECT_EQ(GetResourceModule(), second); };
    {
      const ResourceModuleScope scope(second);
      inner.DoModal();
    }
    EXPECT_EQ(GetResourceModule(), first);
    const ResourceModuleScope scope(second);
    throw std::runtime_error("in the middle");
  };
  outer.onMessage = [&](const Message& message) -> Handled {
    if (message.id == WM_TIMER) outer.EndDialog(8);
    return std::nullopt;
  };
  outer.onInit = [](ScriptedDialog& self) { self.SetTimer(1, 10); };
  {
    const ResourceModuleScope scope(first);
    EXPECT_EQ(outer.DoModal(), 8);
    EXPECT_EQ(GetResourceModule(), first);
  }
  EXPECT_EQ(GetResourceModule(), program);
}

}  // namespace
