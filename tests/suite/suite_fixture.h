// A fresh session on a fresh machine for each test.
#pragma once

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"

inline constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

/// The stored form of a literal.
[[nodiscard]] inline std::string Euc(const std::string& sjis) { return CwEucEncoder::Sjis2Euc(sjis, kNoLimit); }

class SuiteTest : public testing::Test {
 protected:
  SuiteTest() {
    os::scripted::World().Reset();
    CwSession::Reset();
  }

  os::scripted::Machine& world_ = os::scripted::World();
  CwSession& session_ = *CwSession::GetInstance();
};
