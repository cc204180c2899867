#include "platform/framework/detail/paint_watch.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/framework/fixtures.h"

namespace {

using Story = std::vector<std::string>;

class PaintWatchTest : public testing::Test {
 protected:
  PaintWatchTest() {
    host_.onMessage = [this](UINT id, WPARAM, LPARAM) {
      if (id == WM_PAINT) story_.emplace_back("paints");
      return std::pair(false, LRESULT{0});
    };
  }
  [[nodiscard]] PaintWatch::Told Noting(const char* name) {
    return [this, name](bool begins) { story_.push_back(name + std::string(begins ? " begins" : " ends")); };
  }
  Story Paint() {
    story_.clear();
    ::SendMessageW(host_.Window(), WM_PAINT, 0, 0);
    return story_;
  }

  Story story_;
  PlainHost host_;
};

TEST_F(PaintWatchTest, TellsInFrontOfAPaintAndBehindIt) {
  const LONG_PTR before = host_.Procedure();
  PaintWatch watch(Noting("watch"));
  EXPECT_EQ(Paint(), (Story{"paints"}));
  watch.Watch(host_.Window());
  ::SendMessageW(host_.Window(), WM_NULL, 0, 0);
  EXPECT_EQ(Paint(), (Story{"watch begins", "paints", "watch ends"}));
  watch.Release();
  watch.Release();
  EXPECT_EQ(Paint(), (Story{"paints"}));
  EXPECT_EQ(host_.Procedure(), before);
}

TEST_F(PaintWatchTest, TheLastWatchOfAWindowIsTold) {
  PaintWatch first(Noting("first"));
  PaintWatch second(Noting("second"));
  first.Watch(host_.Window());
  second.Watch(host_.Window());
  first.Release();
  EXPECT_EQ(Paint(), (Story{"second begins", "paints", "second ends"}));
}

TEST_F(PaintWatchTest, MayEndInTheMiddle) {
  PaintWatch watch(Noting("watch"));
  host_.onMessage = [&](UINT id, WPARAM, LPARAM) {
    if (id == WM_PAINT) watch.Release();
    return std::pair(false, LRESULT{0});
  };
  watch.Watch(host_.Window());
  EXPECT_EQ(Paint(), (Story{"watch begins"}));
}

TEST_F(PaintWatchTest, StandsBesideAnObjectOfTheWindow) {
  const LONG_PTR before = host_.Procedure();
  PaintWatch watch(Noting("watch"));
  Probe<CWnd> object;
  object.onMessage = [this](const Message& message) -> Handled {
    if (message.id == WM_PAINT) story_.emplace_back("object");
    return std::nullopt;
  };
  watch.Watch(host_.Window());
  ASSERT_TRUE(object.TakeWindow(host_.Window()));
  EXPECT_EQ(Paint(), (Story{"watch begins", "object", "paints", "watch ends"}));
  object.UnsubclassWindow();
  EXPECT_EQ(Paint(), (Story{"watch begins", "paints", "watch ends"}));
  watch.Release();
  EXPECT_EQ(host_.Procedure(), before);
}

TEST_F(PaintWatchTest, LeavesReflectionAlone) {
  PaintWatch watch(Noting("watch"));
  watch.Watch(host_.Window());
  Probe<CEdit> edit;
  int reflected = 0;
  edit.onMessage = [&](const Message& message) -> Handled {
    reflected += message.reflected ? 1 : 0;
    return std::nullopt;
  };
  CWnd* const parent = CWnd::FromHandle(host_.Window());
  ASSERT_TRUE(edit.Create(WS_CHILD, kSomewhere, parent, 10001));
  edit.SetWindowText("text");
  EXPECT_EQ(reflected, 0) << "a window that is only watched is no host";
}

TEST_F(PaintWatchTest, OutlivesItsWindow) {
  PaintWatch watch(Noting("watch"));
  watch.Watch(host_.Window());
  host_.Destroy();
  watch.Release();
  watch.Watch(nullptr);
  PlainHost next;
  watch.Watch(next.Window());
  story_.clear();
  ::SendMessageW(next.Window(), WM_PAINT, 0, 0);
  EXPECT_EQ(story_, (Story{"watch begins", "watch ends"}));
}

}  // namespace
