#include "platform/framework/wnd.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/framework/fixtures.h"

namespace {

using Window = Probe<CWnd>;

HWND PlainWindow(const char* className = "STATIC") {
  return ::CreateWindowExA(0, className, "plain", WS_POPUP, 0, 0, 100, 50, nullptr, nullptr, nullptr, nullptr);
}

// A window that is destroyed with its scope, whatever the test does to it.
class Plain {
 public:
  explicit Plain(const char* className = "STATIC") : window(PlainWindow(className)) {}
  Plain(const Plain&) = delete;
  Plain& operator=(const Plain&) = delete;
  ~Plain() { ::DestroyWindow(window); }

  const HWND window;
};

TEST(FromHandle, GivesNullForNull) {
  EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
  EXPECT_EQ(CWnd::FromHandlePermanent(nullptr), nullptr);
}

TEST(FromHandle, GivesOneLightObjectForAPlainWindow) {
  const Plain plain;
  CWnd* const light = CWnd::FromHandle(plain.window);
  ASSERT_NE(light, nullptr);
  EXPECT_EQ(light->m_hWnd, plain.window);
  EXPECT_EQ(light->GetSafeHwnd(), plain.window);
  EXPECT_EQ(CWnd::FromHandle(plain.window), light);
  EXPECT_EQ(CWnd::FromHandlePermanent(plain.window), nullptr);
}

TEST(FromHandle, GivesTheAttachedObject) {
  const Plain plain;
  CWnd* const light = CWnd::FromHandle(plain.window);
  CWnd object;
  ASSERT_TRUE(object.Attach(plain.window));
  EXPECT_EQ(CWnd::FromHandle(plain.window), &object);
  EXPECT_EQ(CWnd::FromHandlePermanent(plain.window), &object);
  EXPECT_EQ(light->m_hWnd, plain.window);
  EXPECT_EQ(object.Detach(), plain.window);
  EXPECT_EQ(object.m_hWnd, nullptr);
  EXPECT_EQ(CWnd::FromHandle(plain.window), light);
}

TEST(FromHandle, ForgetsAnAttachedObjectWithItsWindow) {
  CWnd object;
  const HWND window = PlainWindow();
  ASSERT_TRUE(object.Attach(window));
  ::DestroyWindow(window);
  EXPECT_NE(CWnd::FromHandle(window), &object);
  EXPECT_EQ(object.m_hWnd, nullptr);
}

TEST(FromHandle, ForgetsAnObjectWithItsScope) {
  const Plain plain;
  {
    CWnd object;
    object.Attach(plain.window);
  }
  EXPECT_EQ(CWnd::FromHandlePermanent(plain.window), nullptr);
  EXPECT_TRUE(::IsWindow(plain.window));
}

TEST(FromHandle, KeepsManyLightObjectsApart) {
  const Plain plain;
  CWnd* const light = CWnd::FromHandle(plain.window);
  for (ULONG_PTR value = 1; value < 20000; ++value) {
    const auto nowhere = reinterpret_cast<HWND>(value << 17);
    ASSERT_EQ(CWnd::FromHandle(nowhere)->m_hWnd, nowhere);
  }
  EXPECT_EQ(CWnd::FromHandle(plain.window), light);
  EXPECT_EQ(light->m_hWnd, plain.window);
}

TEST(FromHandle, KnowsAWindowByEachOfItsHandles) {
  const Plain plain;
  CWnd* const light = CWnd::FromHandle(plain.window);
  EXPECT_EQ(CWnd::FromHandle(OtherHandle(plain.window)), light);
  Window object;
  ASSERT_TRUE(object.TakeWindow(plain.window));
  EXPECT_EQ(CWnd::FromHandlePermanent(OtherHandle(plain.window)), &object);
  EXPECT_TRUE(object.Is(OtherHandle(plain.window)));
  EXPECT_FALSE(object.Is(nullptr));
  CWnd second;
  EXPECT_FALSE(second.Attach(OtherHandle(plain.window)));
  object.onMessage = [](const Message& message) -> Handled { return message.id == WM_APP ? Handled(5) : std::nullopt; };
  EXPECT_EQ(::SendMessageW(OtherHandle(plain.window), WM_APP, 0, 0), 5);
}

TEST(Attach, IsRefusedWhereItWouldHurt) {
  const Plain plain;
  CWnd first;
  CWnd second;
  EXPECT_FALSE(first.Attach(nullptr));
  EXPECT_FALSE(first.Attach(reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0xDEAD))));
  ASSERT_TRUE(first.Attach(plain.window));
  EXPECT_FALSE(first.Attach(::GetDesktopWindow()));
  EXPECT_FALSE(second.Attach(plain.window));
  EXPECT_FALSE(second.TakeWindow(plain.window));
  EXPECT_EQ(second.m_hWnd, nullptr);
  EXPECT_EQ(first.UnsubclassWindow(), nullptr);
  EXPECT_EQ(CWnd::FromHandle(plain.window), &first);
}

TEST(Detach, LeavesALightObjectAlone) {
  const Plain plain;
  CWnd* const light = CWnd::FromHandle(plain.window);
  EXPECT_EQ(light->Detach(), nullptr);
  EXPECT_EQ(light->m_hWnd, plain.window);
}

TEST(Create, BindsTheObjectBeforeTheFirstMessageAndPartsItAfterTheLast) {
  Window window;
  std::vector<UINT> seen;
  bool boundThroughout = true;
  window.onMessage = [&](const Message& message) -> Handled {
    seen.push_back(message.id);
    boundThroughout = boundThroughout && window.m_hWnd == message.window && CWnd::FromHandle(message.window) == &window;
    return std::nullopt;
  };
  ASSERT_TRUE(window.Create("STATIC", "text", WS_POPUP, kSomewhere, nullptr, 0));
  EXPECT_FALSE(window.Create("STATIC", "text", WS_POPUP, kSomewhere, nullptr, 0));
  const HWND handle = window.m_hWnd;
  EXPECT_TRUE(window.DestroyWindow());
  EXPECT_FALSE(window.DestroyWindow());
  EXPECT_EQ(window.m_hWnd, nullptr);
  EXPECT_TRUE(boundThroughout);
  ASSERT_GE(seen.size(), 4U);
  EXPECT_TRUE(seen.front() == WM_GETMINMAXINFO || seen.front() == WM_NCCREATE) << seen.front();
  EXPECT_EQ(seen.back(), static_cast<UINT>(WM_NCDESTROY));
  EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
}

TEST(Create, FailsQuietly) {
  Window window;
  EXPECT_FALSE(window.Create("no such class", "", WS_POPUP, kSomewhere, nullptr, 0));
  EXPECT_EQ(window.m_hWnd, nullptr);
  window.onMessage = [](const Message& message) -> Handled {
    return message.id == WM_NCCREATE ? Handled(FALSE) : std::nullopt;
  };
  EXPECT_FALSE(window.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
  EXPECT_EQ(window.m_hWnd, nullptr);
  window.onMessage = nullptr;
  EXPECT_TRUE(window.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
}

TEST(Create, PlacesAndNamesAChild) {
  Window parent;
  ASSERT_TRUE(parent.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
  CEdit edit;
  ASSERT_TRUE(edit.Create(WS_CHILD, {5, 6, 55, 26}, &parent, 10000));
  EXPECT_EQ(parent.GetDlgItem(10000), &edit);
  EXPECT_EQ(edit.GetDlgCtrlID(), 10000);
  EXPECT_EQ(edit.GetParent(), &parent);
  RECT rect{};
  edit.GetWindowRect(&rect);
  parent.ScreenToClient(&rect);
  EXPECT_EQ(rect.left, 5);
  EXPECT_EQ(rect.top, 6);
  EXPECT_EQ(rect.right - rect.left, 50);
  EXPECT_EQ(rect.bottom - rect.top, 20);
  EXPECT_EQ(parent.GetDlgItem(1), nullptr);
}

TEST(Create, ATooltipBelongsToItsParent) {
  Window parent;
  ASSERT_TRUE(parent.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
  CToolTipCtrl tips;
  ASSERT_TRUE(tips.Create(&parent));
  EXPECT_EQ(tips.GetToolCount(), 0);
  parent.DestroyWindow();
  EXPECT_EQ(tips.m_hWnd, nullptr);
}

TEST(Destruction, OfTheObjectDestroysTheWindowThatItCreated) {
  HWND handle = nullptr;
  {
    Window window;
    ASSERT_TRUE(window.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
    handle = window.m_hWnd;
  }
  EXPECT_FALSE(::IsWindow(handle));
}

TEST(Destruction, OfTheWindowFreesItsChildren) {
  Window parent;
  CEdit child;
  ASSERT_TRUE(parent.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
  ASSERT_TRUE(child.Create(WS_CHILD, {0, 0, 9, 9}, &parent, 1));
  ::DestroyWindow(parent.m_hWnd);
  EXPECT_EQ(parent.m_hWnd, nullptr);
  EXPECT_EQ(child.m_hWnd, nullptr);
}

class SelfDeleting : public CWnd {
 public:
  explicit SelfDeleting(int* deleted) : deleted_(deleted) {}
  ~SelfDeleting() override { ++*deleted_; }
  void PostNcDestroy() override {
    EXPECT_EQ(m_hWnd, nullptr);
    delete this;
  }
  Handled RouteMessage(const Message& message) override {
    static constexpr MessageRow<SelfDeleting> kRows[] = {
        OnMessage(WM_APP, &SelfDeleting::OnEnd),
        OnMessage(WM_APP, &SelfDeleting::OnNeverReached),
    };
    return Route<CWnd>(*this, kRows, message);
  }

 private:
  Handled OnEnd() {
    DestroyWindow();
    return std::nullopt;
  }
  Handled OnNeverReached() {
    ADD_FAILURE();
    return std::nullopt;
  }

  int* deleted_;
};

TEST(Destruction, WithinAHandlerIsSafe) {
  int deleted = 0;
  auto window = std::make_unique<SelfDeleting>(&deleted);
  ASSERT_TRUE(window->Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
  const HWND handle = window.release()->m_hWnd;
  EXPECT_EQ(::SendMessageW(handle, WM_APP, 0, 0), 0);
  EXPECT_EQ(deleted, 1);
  EXPECT_FALSE(::IsWindow(handle));
}

TEST(Subclassing, TakesPartAndLetsGo) {
  const Plain plain("EDIT");
  Probe<CEdit> edit;
  int chars = 0;
  edit.onMessage = [&](const Message& message) -> Handled {
    if (message.id != WM_CHAR) return std::nullopt;
    ++chars;
    return message.wParam == 'x' ? Handled(0) : std::nullopt;
  };
  ASSERT_TRUE((edit.SubclassWindow)(plain.window));
  const LONG_PTR ours = ::GetWindowLongPtrW(plain.window, GWLP_WNDPROC);
  EXPECT_TRUE(::IsWindowUnicode(plain.window));
  edit.SetWindowText("");
  for (const wchar_t letter : {L'a', L'x', L'表'}) ::SendMessageW(plain.window, WM_CHAR, letter, 1);
  EXPECT_EQ(chars, 3);
  CString text;
  edit.GetWindowText(text);
  EXPECT_STREQ(text, "a表");
  EXPECT_EQ(edit.UnsubclassWindow(), plain.window);
  EXPECT_EQ(edit.m_hWnd, nullptr);
  EXPECT_NE(::GetWindowLongPtrW(plain.window, GWLP_WNDPROC), ours);
  ::SendMessageW(plain.window, WM_CHAR, L'b', 1);
  EXPECT_EQ(chars, 3);
  WindowRef(plain.window).GetWindowText(text);
  EXPECT_STREQ(text, "a表b");
}

TEST(Subclassing, EndsWithTheObjectAndLeavesTheWindow) {
  PlainHost host;
  const LONG_PTR before = host.Procedure();
  {
    CWnd object;
    ASSERT_TRUE(object.TakeWindow(host.Window()));
    EXPECT_NE(host.Procedure(), before);
  }
  EXPECT_TRUE(::IsWindow(host.Window()));
  EXPECT_EQ(host.Procedure(), before);
}

TEST(Subclassing, KeepsAnEightBitWindowOneForItsControls) {
  PlainHost host(false);
  ASSERT_FALSE(::IsWindowUnicode(host.Window()));
  const LONG_PTR before = host.Procedure();
  Window window;
  ASSERT_TRUE(window.TakeWindow(host.Window()));
  EXPECT_EQ(::SendMessageW(host.Window(), WM_NOTIFYFORMAT, 0, NF_QUERY), NFR_ANSI);
  window.UnsubclassWindow();
  EXPECT_FALSE(::IsWindowUnicode(host.Window()));
  EXPECT_EQ(host.Procedure(), before);
}

LRESULT CALLBACK SomebodyElse(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  const auto previous = reinterpret_cast<WNDPROC>(::GetPropA(window, "previous"));
  return ::CallWindowProcW(previous, window, id, wParam, lParam);
}

TEST(Subclassing, PassesOnWhenSomebodyElseCameInFront) {
  const Plain plain;
  Window first;
  int seen = 0;
  first.onMessage = [&](const Message& message) -> Handled {
    if (message.id != WM_APP) return std::nullopt;
    return ++seen;
  };
  ASSERT_TRUE(first.TakeWindow(plain.window));
  const LONG_PTR ours = ::GetWindowLongPtrW(plain.window, GWLP_WNDPROC);
  ::SetPropA(plain.window, "previous", reinterpret_cast<HANDLE>(ours));
  ::SetWindowLongPtrW(plain.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SomebodyElse));
  EXPECT_EQ(::SendMessageW(plain.window, WM_APP, 0, 0), 1);
  first.UnsubclassWindow();
  EXPECT_EQ(::GetWindowLongPtrW(plain.window, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(&SomebodyElse));
  EXPECT_EQ(::SendMessageW(plain.window, WM_APP, 0, 0), 0);
  EXPECT_EQ(seen, 1);
  ASSERT_TRUE(first.TakeWindow(plain.window));
  EXPECT_EQ(::SendMessageW(plain.window, WM_APP, 0, 0), 2);
  ::SetWindowLongPtrW(plain.window, GWLP_WNDPROC, ours);
  first.UnsubclassWindow();
  ::RemovePropA(plain.window, "previous");
}

TEST(Subclassing, WithinAHandlerStillReachesTheWindowsOwnProcedure) {
  const Plain plain("EDIT");
  Probe<CEdit> edit;
  edit.onMessage = [&](const Message& message) -> Handled {
    if (message.id == WM_SETTEXT) edit.UnsubclassWindow();
    return std::nullopt;
  };
  ASSERT_TRUE(edit.TakeWindow(plain.window));
  ::SetWindowTextA(plain.window, "after");
  CString text;
  WindowRef(plain.window).GetWindowText(text);
  EXPECT_STREQ(text, "after");
}

TEST(Handlers, DecideBetweenHandledZeroAndNotMine) {
  Window window;
  ASSERT_TRUE(window.Create("EDIT", "", WS_POPUP, kSomewhere, nullptr, 0));
  window.onMessage = [](const Message& message) -> Handled {
    return message.id == WM_GETTEXTLENGTH || message.id == WM_SETTEXT ? Handled(0) : std::nullopt;
  };
  EXPECT_EQ(::SendMessageW(window.m_hWnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"kept out")), 0);
  window.onMessage = nullptr;
  EXPECT_EQ(window.GetWindowTextLength(), 0);
}

TEST(Handlers, MayRunTheDefaultFirst) {
  Probe<CEdit> edit;
  ASSERT_TRUE(edit.Create(WS_POPUP, kSomewhere, nullptr, 0));
  edit.onMessage = [&](const Message& message) -> Handled {
    return message.id == WM_GETTEXTLENGTH ? Handled(edit.CallDefault(message) + 100) : std::nullopt;
  };
  edit.SetWindowText("abc");
  EXPECT_EQ(::SendMessageW(edit.m_hWnd, WM_GETTEXTLENGTH, 0, 0), 103);
}

TEST(Handlers, ThatThrowDropTheMessageAndNothingElse) {
  Window window;
  ASSERT_TRUE(window.Create("STATIC", "", WS_POPUP | WS_VISIBLE, kSomewhere, nullptr, 0));
  window.onMessage = [](const Message& message) -> Handled {
    if (message.id == WM_APP) throw std::runtime_error("handler");
    if (message.id == WM_APP + 1) throw 5;
    return std::nullopt;
  };
  EXPECT_EQ(::SendMessageW(window.m_hWnd, WM_APP, 0, 0), 0);
  EXPECT_EQ(::SendMessageW(window.m_hWnd, WM_APP + 1, 0, 0), 0);
  EXPECT_TRUE(::IsWindow(window.m_hWnd));
}

TEST(Handlers, ThatThrowDuringPaintingOrTheEndDoNoHarm) {
  Window window;
  ASSERT_TRUE(window.Create("STATIC", "", WS_POPUP | WS_VISIBLE, kSomewhere, nullptr, 0));
  window.onMessage = [](const Message& message) -> Handled {
    if (message.id == WM_PAINT || message.id == WM_NCDESTROY) throw std::runtime_error("handler");
    return std::nullopt;
  };
  window.Invalidate();
  window.UpdateWindow();
  EXPECT_FALSE(::GetUpdateRect(window.m_hWnd, nullptr, FALSE));
  window.DestroyWindow();
  EXPECT_EQ(window.m_hWnd, nullptr);
}

TEST(Calls, ChangeStylesOnlyWhereAsked) {
  Window window;
  ASSERT_TRUE(window.Create("STATIC", "", WS_POPUP | WS_BORDER, kSomewhere, nullptr, 0));
  EXPECT_TRUE(window.ModifyStyle(WS_BORDER, SS_CENTER));
  EXPECT_EQ(window.GetStyle() & (WS_BORDER | SS_CENTER), static_cast<DWORD>(SS_CENTER));
  EXPECT_FALSE(window.ModifyStyle(WS_BORDER, SS_CENTER));
  EXPECT_TRUE(window.ModifyStyleEx(0, WS_EX_TRANSPARENT, SWP_FRAMECHANGED));
  EXPECT_NE(window.GetExStyle() & WS_EX_TRANSPARENT, 0U);
  EXPECT_NE(window.GetStyle() & WS_POPUP, 0U);
}

TEST(Calls, ReadAndWriteTexts) {
  Window window;
  ASSERT_TRUE(window.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
  const std::string large(5000, 'x');
  for (const std::string& want : {std::string("表示ソ"), std::string(), large}) {
    window.SetWindowText(want.c_str());
    CString text = "before";
    window.GetWindowText(text);
    EXPECT_EQ(text.View(), want);
  }
  window.SetWindowText("abcdef");
  char buffer[4]{};
  EXPECT_EQ(window.GetWindowText(buffer, 4), 3);
  EXPECT_STREQ(buffer, "abc");
}

TEST(Calls, OnNoWindowDoNoHarm) {
  const WindowRef none;
  EXPECT_FALSE(none.IsWindow());
  EXPECT_EQ(none.GetSafeHwnd(), nullptr);
  EXPECT_EQ(none.GetDlgItem(1), nullptr);
  EXPECT_EQ(none.GetParent(), nullptr);
  CString text = "before";
  none.GetWindowText(text);
  EXPECT_STREQ(text, "");
  CWnd object;
  EXPECT_FALSE(object.UpdateData(TRUE));
  EXPECT_EQ(object.Detach(), nullptr);
  EXPECT_EQ(object.UnsubclassWindow(), nullptr);
  EXPECT_FALSE(object.SubclassDlgItem(1, nullptr));
}

TEST(PreTranslation, AsksFromTheWindowUpToItsTopLevelWindow) {
  class Listener : public CWnd {
   public:
    BOOL PreTranslateMessage(MSG*) override {
      ++asked;
      if (throws) throw std::runtime_error("listener");
      return takes;
    }
    int asked = 0;
    bool takes = false;
    bool throws = false;
  };
  Listener top;
  Listener child;
  ASSERT_TRUE(top.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
  ASSERT_TRUE(child.Create("STATIC", "", WS_CHILD, kSomewhere, &top, 1));
  MSG message{child.m_hWnd, WM_KEYDOWN, 'A', 0, 0, {0, 0}};
  EXPECT_FALSE(CWnd::OfferMessage(&message));
  EXPECT_EQ(child.asked, 1);
  EXPECT_EQ(top.asked, 1);
  child.takes = true;
  EXPECT_TRUE(CWnd::OfferMessage(&message));
  EXPECT_EQ(top.asked, 1);
  child.takes = false;
  top.throws = true;
  EXPECT_TRUE(CWnd::OfferMessage(&message));
  message.hwnd = nullptr;
  EXPECT_FALSE(CWnd::OfferMessage(&message));
}

TEST(Watches, SeeTheEndOfTheirObject) {
  auto object = std::make_unique<CWnd>();
  const LifeWatch outer(*object);
  {
    const LifeWatch inner(*object);
    EXPECT_TRUE(inner.Alive());
  }
  const LifeWatch last(*object);
  object.reset();
  EXPECT_FALSE(outer.Alive());
  EXPECT_FALSE(last.Alive());
}

}  // namespace
