// The slow sort: by a title, for which every file of the listing has to be read first.
#pragma once

#include <cstdint>

namespace filedialog {

/// What the user has settled for a slow sort of more entries than his limit. The numbers lie in the registry; any other
/// number that lies there asks, and stays.
enum class SlowSort : std::int32_t { Always = 0, NeverBeyondLimit = 1, AskBeyondLimit = 2 };

struct SlowSortRule {
  SlowSort mode = SlowSort::AskBeyondLimit;
  std::int32_t limit = 1000;  ///< most entries that are sorted unasked
};

}  // namespace filedialog
