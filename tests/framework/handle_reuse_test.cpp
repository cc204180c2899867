// A program of its own, as it makes some 65,000 windows.
#include <gtest/gtest.h>

#include "platform/framework/wnd.h"

namespace {

// The system hands out the same value again after some 65,000 windows.
TEST(HandleReuse, NeverFindsTheObjectOfAnEarlierWindowBehindAReusedHandle) {
  CWnd object;
  const HWND first = ::CreateWindowExA(0, "STATIC", "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
  ASSERT_TRUE(object.Attach(first));
  CWnd* const light = CWnd::FromHandle(::GetDesktopWindow());
  ::DestroyWindow(first);
  for (int tries = 0; tries < 200000; ++tries) {
    const HWND again = ::CreateWindowExA(0, "STATIC", "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
    if (again == first) {
      EXPECT_NE(CWnd::FromHandle(again), &object);
      EXPECT_EQ(CWnd::FromHandle(again)->m_hWnd, again);
      EXPECT_EQ(object.m_hWnd, nullptr);
      CWnd second;
      EXPECT_TRUE(second.TakeWindow(again));
      EXPECT_EQ(CWnd::FromHandle(again), &second);
      ::DestroyWindow(again);
      EXPECT_EQ(CWnd::FromHandle(::GetDesktopWindow()), light);
      return;
    }
    ::DestroyWindow(again);
  }
  GTEST_SKIP() << "the system has not used the handle again";
}

}  // namespace
