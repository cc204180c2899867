// A program of its own, as it makes some 65,000 windows: after so many the system hands out the same handle again.
#include <gtest/gtest.h>

#include "platform/framework/wnd.h"

namespace {

constexpr const wchar_t* kClass = L"framework test window";

HWND MakeWindow() {
  return ::CreateWindowExW(0, kClass, nullptr, WS_POPUP, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

// Null when the system keeps giving out other handles.
HWND MakeWindowWithHandle(HWND wanted) {
  constexpr int kPatience = 200000;
  for (int tries = 0; tries < kPatience; ++tries) {
    const HWND window = MakeWindow();
    if (window == wanted) return window;
    ::DestroyWindow(window);
  }
  return nullptr;
}

TEST(HandleReuse, NeverFindsTheObjectOfTheEarlierWindow) {
  WNDCLASSW data{};
  data.lpfnWndProc = ::DefWindowProcW;
  data.lpszClassName = kClass;
  ::RegisterClassW(&data);
  CWnd former;
  const HWND first = MakeWindow();
  ASSERT_TRUE(former.Attach(first));
  ::DestroyWindow(first);
  const HWND again = MakeWindowWithHandle(first);
  ASSERT_NE(again, nullptr) << "the system has not used the handle again";
  EXPECT_NE(CWnd::FromHandle(again), &former);
  EXPECT_EQ(CWnd::FromHandle(again)->m_hWnd, again);
  EXPECT_EQ(former.m_hWnd, nullptr);
  CWnd next;
  EXPECT_TRUE(next.TakeWindow(again));
  EXPECT_EQ(CWnd::FromHandle(again), &next);
  ::DestroyWindow(again);
  EXPECT_EQ(next.m_hWnd, nullptr);
}

}  // namespace
