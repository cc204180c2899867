// Message boxes fit the screen whatever their text is.
#include <gtest/gtest.h>

#include <string>

#include "platform/framework/framework.h"
#include "tests/windows/driver/user.h"

namespace {

using driver::MessageBoxView;
using driver::User;
using driver::Window;

/// What a box looked like, and how it was answered.
struct Shown {
  MessageBoxView box;
  RECT frame = {};
  RECT text = {};
  RECT button = {};
  int answer = 0;
};

template <class Show>
Shown ShowAndSayNo(const Show& show) {
  Shown shown;
  driver::RunDialog([&] { shown.answer = show(); },
                    [&](User& user) {
                      shown.box = user.WaitMessageBox();
                      shown.frame = shown.box.window.ScreenRect();
                      shown.text = shown.box.window.Child(0xFFFF).ScreenRect();
                      shown.button = shown.box.window.Child(IDNO).ScreenRect();
                      user.Answer(shown.box, IDNO);
                    });
  return shown;
}

Shown ShowOurs(const std::string& text) {
  return ShowAndSayNo([&] { return WindowRef().MessageBox(text.c_str(), "box", MB_YESNO | MB_ICONHAND); });
}

void ExpectInside(const RECT& inner, const RECT& outer) {
  EXPECT_GE(inner.left, outer.left);
  EXPECT_GE(inner.top, outer.top);
  EXPECT_LE(inner.right, outer.right);
  EXPECT_LE(inner.bottom, outer.bottom);
}

TEST(MessageBoxes, BreakALongPathIntoLinesThatFitTheScreen) {
  const std::string text = "名前に誤りがあります\n\nC:\\" + std::string(600, 'n');
  const Shown shown = ShowOurs(text);
  EXPECT_EQ(shown.box.text, text) << "the text itself stays as it is";
  EXPECT_EQ(shown.answer, IDNO);
  RECT screen = {};
  SystemParametersInfoA(SPI_GETWORKAREA, 0, &screen, 0);
  ExpectInside(shown.frame, screen);
  ExpectInside(shown.text, shown.frame);
  ExpectInside(shown.button, shown.frame);
  EXPECT_GE(shown.button.top, shown.text.bottom);
  constexpr LONG kLineHeight = 12;
  EXPECT_GE(shown.text.bottom - shown.text.top, 6 * kLineHeight) << "two lines, and the path in several";
}

TEST(MessageBoxes, OfOrdinaryTextsAreAsTheSystemMakesThem) {
  for (const std::string& text : {std::string("text"), std::string(100, 'n'), std::string("a\nb\nc")}) {
    const Shown ours = ShowOurs(text);
    const Shown plain = ShowAndSayNo([&] { return MessageBoxA(nullptr, text.c_str(), "box", MB_YESNO | MB_ICONHAND); });
    EXPECT_TRUE(EqualRect(&ours.frame, &plain.frame));
    EXPECT_TRUE(EqualRect(&ours.text, &plain.text));
    EXPECT_TRUE(EqualRect(&ours.button, &plain.button));
  }
}

}  // namespace
