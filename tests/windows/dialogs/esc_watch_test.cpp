// Esc that gives work up, and what comes of the key while the next work runs.
#include "dlglib/filedialog/waiting/CvEscWatch.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

constexpr ULONGLONG kLongestMs = 10'000;
constexpr LPARAM kPress = 0x00010001;
constexpr LPARAM kRepeat = 0x40010001;
constexpr LPARAM kRelease = static_cast<LPARAM>(0xC0010001);

MSG KeyDown(LPARAM how) { return {nullptr, WM_KEYDOWN, VK_ESCAPE, how, 0, {}}; }
MSG KeyUp() { return {nullptr, WM_KEYUP, VK_ESCAPE, kRelease, 0, {}}; }

/// As a person's finger: other programs see it as well.
void Send(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags;
  ::SendInput(1, &input, sizeof input);
}

bool ComesTrue(const std::function<bool()>& condition) {
  const ULONGLONG begun = ::GetTickCount64();
  while (!condition()) {
    if (::GetTickCount64() - begun > kLongestMs) return false;
    ::Sleep(1);
  }
  return true;
}

class EscWatch : public testing::Test {
 protected:
  EscWatch() {
    ::SetForegroundWindow(window_);
    ::SetFocus(window_);
    esc_.Start(window_);
  }
  ~EscWatch() override { ::DestroyWindow(window_); }

  void Post(WPARAM key, LPARAM how) const { ::PostMessageW(window_, WM_KEYDOWN, key, how); }
  /// Each look may come a little later than the one before.
  [[nodiscard]] bool IsPressedSoon() {
    return ComesTrue([this] { return esc_.Pressed(); });
  }
  /// The next key of the queue, as the dialog's own loop fetches it.
  static MSG FetchKey() {
    MSG message{};
    EXPECT_TRUE(ComesTrue([&] { return ::PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE); }));
    return message;
  }

  HWND window_ = ::CreateWindowExW(0, L"STATIC", L"Esc", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 300, 300, 200, 100, nullptr,
                                   nullptr, nullptr, nullptr);
  CvEscWatch esc_;
};

TEST_F(EscWatch, GivesWorkUpOnce) {
  EXPECT_FALSE(esc_.Pressed());
  Post(VK_ESCAPE, kPress);
  EXPECT_TRUE(IsPressedSoon());
  EXPECT_TRUE(esc_.Drops(KeyDown(kRepeat)));
  EXPECT_FALSE(esc_.Drops(KeyUp()));
  EXPECT_FALSE(esc_.Drops(KeyDown(kPress))) << "the next press is the dialog's";
}

TEST_F(EscWatch, HeldDownItDoesNothingToTheNextWorkEither) {
  Post(VK_ESCAPE, kPress);
  ASSERT_TRUE(IsPressedSoon());
  esc_.Start(window_);
  EXPECT_TRUE(esc_.Takes(KeyDown(kRepeat))) << "or it would close the dialog";
  Post(VK_ESCAPE, kRepeat);
  EXPECT_FALSE(esc_.Pressed());
  EXPECT_TRUE(esc_.Drops(KeyDown(kRepeat))) << "behind the work too";
  EXPECT_FALSE(esc_.Takes(KeyUp()));
  EXPECT_FALSE(esc_.Drops(KeyUp()));
  Post(VK_ESCAPE, kPress);
  EXPECT_TRUE(IsPressedSoon()) << "the next press gives that work up";
}

TEST_F(EscWatch, HeldDownSinceSomethingElseItDoesNotCloseTheDialog) {
  EXPECT_TRUE(esc_.Takes(KeyDown(kRepeat)));
  EXPECT_FALSE(esc_.Pressed());
  EXPECT_TRUE(esc_.Drops(KeyDown(kRepeat)));
}

TEST_F(EscWatch, BehindAnotherKeyItDoesNotGiveUpWhatThatKeyBegins) {
  Post(VK_BACK, kPress);
  Send(VK_ESCAPE, 0);
  Send(VK_ESCAPE, KEYEVENTF_KEYUP);
  ASSERT_TRUE(IsPressedSoon());
  EXPECT_EQ(FetchKey().wParam, WPARAM{VK_BACK});
  esc_.Start(window_);
  EXPECT_FALSE(esc_.Pressed()) << "it has given up the work before";
  Post(VK_ESCAPE, kPress);
  EXPECT_TRUE(IsPressedSoon());
}

TEST_F(EscWatch, BehindAnotherKeyItIsForgottenWhenAnotherWindowHasWorkedItOff) {
  Post(VK_BACK, kPress);
  Send(VK_ESCAPE, 0);
  Send(VK_ESCAPE, KEYEVENTF_KEYUP);
  ASSERT_TRUE(IsPressedSoon());
  EXPECT_EQ(FetchKey().wParam, WPARAM{VK_BACK});
  EXPECT_EQ(FetchKey().wParam, WPARAM{VK_ESCAPE});
  esc_.Start(window_);
  EXPECT_FALSE(esc_.Pressed());
  EXPECT_FALSE(esc_.Drops(KeyDown(kPress)));
}

}  // namespace
