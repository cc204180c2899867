// Texts of tests are written as the screen shows them (Shift_JIS literals); the suite is given EUC-JP.
#pragma once

#include <limits>
#include <string>

#include "platform/suite/crvnbc.h"

namespace test_texts {

inline constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

/// A Shift_JIS text in EUC-JP, and back.
[[nodiscard]] inline std::string Euc(const std::string& sjis) { return CwEucEncoder::Sjis2Euc(sjis, kNoLimit); }
[[nodiscard]] inline std::string Sjis(const std::string& euc) { return CwEucEncoder::Euc2Sjis(euc, kNoLimit); }

}  // namespace test_texts
