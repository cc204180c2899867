// What the release of Alt does behind a key that a program has handled together with it.
#include <gtest/gtest.h>

#include <vector>

#include "platform/framework/detail/message_watch.h"
#include "tests/framework/fixtures.h"

namespace {

constexpr WPARAM kHandledKey = 'V';

// A dialog that handles Alt+V where `handles` says so, and notes when the system's menu is about to open.
class KeyedDialog : public ScriptedDialog {
 public:
  enum class Handles { BeforeDispatch, AsMessage, Nowhere };

  KeyedDialog(const DLGTEMPLATE* dialogTemplate, Handles handles) : ScriptedDialog(dialogTemplate), handles_(handles) {}

  BOOL PreTranslateMessage(MSG* message) override {
    const bool isKey = message->message == WM_SYSKEYDOWN && message->wParam == kHandledKey;
    return isKey && handles_ == Handles::BeforeDispatch ? TRUE : ScriptedDialog::PreTranslateMessage(message);
  }
  Handled RouteMessage(const Message& message) override {
    if (message.id == WM_SYSCOMMAND && (message.wParam & 0xFFF0U) == SC_KEYMENU) {
      ++menus;
      return 0;
    }
    const bool isKey = message.id == WM_SYSKEYDOWN && message.wParam == kHandledKey;
    return isKey && handles_ == Handles::AsMessage ? Handled(0) : ScriptedDialog::RouteMessage(message);
  }

  int menus = 0;

 private:
  Handles handles_;
};

/// As the dialog's loop does it with a fetched message.
void Play(HWND window, UINT id, WPARAM key) {
  MSG message{};
  message.hwnd = window;
  message.message = id;
  message.wParam = key;
  message.lParam = MAKELPARAM(1, KF_ALTDOWN | (id == WM_SYSKEYUP ? KF_UP : 0));
  if (CWnd::OfferMessage(&message)) return;
  ::DispatchMessageW(&message);
}

/// Alt is let go before the other key.
void PressWithAlt(HWND window, WPARAM key) {
  Play(window, WM_SYSKEYDOWN, VK_MENU);
  Play(window, WM_SYSKEYDOWN, key);
  Play(window, WM_SYSKEYUP, VK_MENU);
}

int MenusAfter(KeyedDialog::Handles handles, const std::vector<WPARAM>& keys) {
  TemplateBuilder builder;
  KeyedDialog dialog(builder.Get(), handles);
  dialog.script = [&](ScriptedDialog& self) {
    for (const WPARAM key : keys) PressWithAlt(self.m_hWnd, key);
  };
  dialog.DoModal();
  return dialog.menus;
}

TEST(AltKey, OpensNoMenuBehindAKeyThatWasHandledBeforeItsDispatch) {
  EXPECT_EQ(MenusAfter(KeyedDialog::Handles::BeforeDispatch, {kHandledKey, kHandledKey}), 0);
}

TEST(AltKey, OpensNoMenuBehindAKeyThatWasHandledAsAMessage) {
  EXPECT_EQ(MenusAfter(KeyedDialog::Handles::AsMessage, {kHandledKey}), 0);
}

TEST(AltKey, OpensNoMenuBehindAKeyThatAWatchHasTaken) {
  PlainHost host;
  int menus = 0;
  host.onMessage = [&](UINT id, WPARAM wParam, LPARAM) {
    const bool isMenu = id == WM_SYSCOMMAND && (wParam & 0xFFF0U) == SC_KEYMENU;
    if (isMenu) ++menus;
    return std::pair(isMenu, LRESULT{});
  };
  MessageWatch watch([](const Message& message) {
    return message.id == WM_SYSKEYDOWN && message.wParam == kHandledKey ? Handled(0) : std::nullopt;
  });
  watch.Watch(host.Window());
  PressWithAlt(host.Window(), kHandledKey);
  EXPECT_EQ(menus, 0);
}

TEST(AltKey, OpensTheMenuByItself) {
  PlainHost host;
  TemplateBuilder builder;
  KeyedDialog dialog(builder.Get(), KeyedDialog::Handles::BeforeDispatch);
  dialog.script = [&](ScriptedDialog& self) {
    PressWithAlt(self.m_hWnd, kHandledKey);
    Play(self.m_hWnd, WM_SYSKEYDOWN, VK_MENU);
    Play(self.m_hWnd, WM_SYSKEYUP, VK_MENU);
  };
  dialog.DoModal();
  EXPECT_EQ(dialog.menus, 1);
}

TEST(AltKey, OfAKeyThatNobodyHandlesIsLeftToTheSystem) {
  EXPECT_EQ(MenusAfter(KeyedDialog::Handles::Nowhere, {kHandledKey}), 0);
}

// The key closes the dialog, and Alt is let go over the owner.
TEST(AltKey, OpensNoMenuOfTheOwnerBehindAKeyThatClosedTheDialog) {
  PlainHost owner;
  int menus = 0;
  owner.onMessage = [&](UINT id, WPARAM wParam, LPARAM) {
    const bool isMenu = id == WM_SYSCOMMAND && (wParam & 0xFFF0U) == SC_KEYMENU;
    if (isMenu) ++menus;
    return std::pair(isMenu, LRESULT{});
  };
  class Closing : public CDialog {
   public:
    BOOL PreTranslateMessage(MSG* message) override {
      if (message->message != WM_SYSKEYDOWN || message->wParam != kHandledKey) return FALSE;
      DestroyWindow();
      return TRUE;
    }
  };
  TemplateBuilder builder;
  Closing dialog;
  ASSERT_TRUE(dialog.CreateIndirect(builder.Get(), CWnd::FromHandle(owner.Window())));
  Play(dialog.m_hWnd, WM_SYSKEYDOWN, VK_MENU);
  Play(dialog.m_hWnd, WM_SYSKEYDOWN, kHandledKey);
  Play(owner.Window(), WM_SYSKEYUP, VK_MENU);
  EXPECT_EQ(menus, 0);
}

}  // namespace
