// The guard at the library's edge, and the one pointer of an exported class.
#include "dlglib/base/edge.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include "dlglib/kept_state.h"

namespace {

TEST(EdgeTest, WhatWorksIsAnsweredAsItIs) {
  EXPECT_EQ(edge::Guarded(-1, [] { return 7; }), 7);
  EXPECT_EQ(edge::Guarded(std::string("none"), [] { return std::string("some"); }), "some");
  bool done = false;
  EXPECT_TRUE(edge::Guarded([&] { done = true; }));
  EXPECT_TRUE(done);
}

TEST(EdgeTest, WhateverIsThrownBecomesTheFailure) {
  EXPECT_EQ(edge::Guarded(-1, []() -> int { throw std::bad_alloc(); }), -1);
  EXPECT_EQ(edge::Guarded(-1, []() -> int { throw std::runtime_error("x"); }), -1);
  EXPECT_EQ(edge::Guarded(-1, []() -> int { throw 5; }), -1);
  EXPECT_FALSE(edge::Guarded([] { throw std::bad_alloc(); }));
  static_assert(noexcept(edge::Guarded(0, [] { return 1; })));
  static_assert(noexcept(edge::Guarded([] {})));
}

TEST(EdgeTest, StateThatCannotBeMadeIsAskedForInVain) {
  const KeptState<std::string> made(edge::Made<std::string>([] { return std::make_unique<std::string>("state"); }));
  EXPECT_TRUE(static_cast<bool>(made));
  EXPECT_EQ(made->size(), 5U);
  EXPECT_EQ(*made, "state");
  const KeptState<std::string> none(
      edge::Made<std::string>([]() -> std::unique_ptr<std::string> { throw std::bad_alloc(); }));
  EXPECT_FALSE(static_cast<bool>(none));
  EXPECT_THROW(static_cast<void>(none->size()), std::bad_alloc);
  EXPECT_THROW(static_cast<void>(*none), std::bad_alloc);
}

}  // namespace
