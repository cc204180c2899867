#include "platform/framework/detail/message_watch.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/framework/controls.h"
#include "tests/framework/fixtures.h"

namespace {

constexpr UINT kAsked = WM_APP + 7;
constexpr LRESULT kOwn = 3;
constexpr LRESULT kTaken = 0;

class MessageWatchTest : public testing::Test {
 protected:
  MessageWatchTest() {
    host_.onMessage = [this](UINT id, WPARAM, LPARAM) {
      if (id == kAsked) ++seen_;
      return std::pair(id == kAsked, kOwn);
    };
  }
  LRESULT Ask() { return ::SendMessageW(host_.Window(), kAsked, 0, 0); }

  int seen_ = 0;
  PlainHost host_;
};

TEST_F(MessageWatchTest, AnswersInTheWindowsPlaceWhatItTakes) {
  bool takes = true;
  MessageWatch watch(
      [&](const Message& message) { return takes && message.id == kAsked ? Handled(kTaken) : std::nullopt; });
  EXPECT_EQ(Ask(), kOwn);
  watch.Watch(host_.Window());
  EXPECT_EQ(Ask(), kTaken);
  EXPECT_EQ(seen_, 1);
  takes = false;
  EXPECT_EQ(Ask(), kOwn);
  EXPECT_EQ(seen_, 2);
}

TEST_F(MessageWatchTest, LeavesTheWindowAsItWas) {
  const LONG_PTR before = host_.Procedure();
  MessageWatch watch([](const Message&) { return Handled(); });
  watch.Watch(host_.Window());
  EXPECT_NE(host_.Procedure(), before);
  watch.Release();
  EXPECT_EQ(host_.Procedure(), before);
}

TEST_F(MessageWatchTest, IsAskedBeforeAnObjectOfTheWindow) {
  CWnd object;
  ASSERT_TRUE(object.TakeWindow(host_.Window()));
  MessageWatch watch([](const Message& message) { return message.id == kAsked ? Handled(kTaken) : std::nullopt; });
  watch.Watch(host_.Window());
  EXPECT_EQ(Ask(), kTaken);
  object.Detach();
  EXPECT_EQ(Ask(), kTaken) << "the object has gone, the watch has not";
}

TEST_F(MessageWatchTest, MayEndWhileItIsAsked) {
  std::unique_ptr<MessageWatch> watch;
  watch = std::make_unique<MessageWatch>([&](const Message& message) {
    if (message.id == kAsked) watch.reset();
    return Handled();
  });
  watch->Watch(host_.Window());
  EXPECT_EQ(Ask(), kOwn);
  EXPECT_EQ(watch, nullptr);
}

TEST_F(MessageWatchTest, MayDestroyTheWindowWhileItIsAsked) {
  MessageWatch watch([&](const Message& message) {
    if (message.id == kAsked) ::DestroyWindow(message.window);
    return Handled();
  });
  const HWND window = host_.Window();
  watch.Watch(window);
  EXPECT_EQ(Ask(), 0);
  EXPECT_EQ(seen_, 0);
  EXPECT_FALSE(::IsWindow(window));
}

TEST_F(MessageWatchTest, DropsAMessageWhenItFails) {
  MessageWatch watch([](const Message& message) -> Handled {
    if (message.id == kAsked) throw std::runtime_error("no");
    return std::nullopt;
  });
  watch.Watch(host_.Window());
  EXPECT_EQ(Ask(), 0);
  EXPECT_EQ(seen_, 0);
}

TEST_F(MessageWatchTest, TheLastWatchOfAWindowIsAsked) {
  const auto taking = [](LRESULT result) {
    return [result](const Message& message) { return message.id == kAsked ? Handled(result) : std::nullopt; };
  };
  MessageWatch first(taking(11));
  MessageWatch second(taking(12));
  first.Watch(host_.Window());
  second.Watch(host_.Window());
  EXPECT_EQ(Ask(), 12);
  first.Release();
  EXPECT_EQ(Ask(), 12);
}

}  // namespace
