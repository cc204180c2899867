#include "dlglib/base/at_scope_end.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace {

TEST(AtScopeEnd, CallsOnceAtTheEnd) {
  int calls = 0;
  {
    const AtScopeEnd end([&] { ++calls; });
    EXPECT_EQ(calls, 0);
  }
  EXPECT_EQ(calls, 1);
}

TEST(AtScopeEnd, CallsAlsoWhenAnExceptionEndsTheScope) {
  bool running = false;
  const auto work = [&] {
    running = true;
    const AtScopeEnd over([&] { running = false; });
    throw std::bad_alloc();
  };
  EXPECT_THROW(work(), std::bad_alloc);
  EXPECT_FALSE(running);
}

TEST(DoBoth, DoesOneAfterTheOther) {
  std::string done;
  DoBoth([&] { done += 'a'; }, [&] { done += 'b'; });
  EXPECT_EQ(done, "ab");
}

TEST(DoBoth, DoesTheSecondAfterAFailureOfTheFirst) {
  std::string done;
  const auto fail = [&] {
    done += 'a';
    throw std::bad_alloc();
  };
  EXPECT_THROW(DoBoth(fail, [&] { done += 'b'; }), std::bad_alloc);
  EXPECT_EQ(done, "ab");
}

TEST(DoBoth, PassesOnWhatWasThrownLast) {
  const auto fail = [] { throw std::bad_alloc(); };
  const auto failToo = [] { throw std::length_error("second"); };
  EXPECT_THROW(DoBoth(fail, failToo), std::length_error);
  EXPECT_THROW(DoBoth([] {}, failToo), std::length_error);
}

}  // namespace
