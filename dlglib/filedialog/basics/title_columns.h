// The title columns of model files: which titles are shown, under which texts, how wide.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "dlglib/filedialog/basics/entry_kind.h"

namespace filedialog {

inline constexpr int kDefaultTitleItem = 201;        ///< the item that is shown when none is chosen
inline constexpr int kLastTitleItem = 207;           ///< items are numbered from 1
inline constexpr std::size_t kColumnTextLimit = 63;  ///< bytes of a title column's own text, terminator not counted
inline constexpr std::size_t kTitleColumns = 1 + kTitleSlots;

/// The title columns of model files.
struct TitleColumns {
  int count = 1;                                                         ///< items in use, 0 to 4, from slot 0 on
  std::array<std::int16_t, kTitleSlots> items = {kDefaultTitleItem, 0};  ///< title numbers
  std::array<std::string, kTitleSlots> texts;  ///< own header texts, Shift_JIS; empty: the title's own name
  std::array<std::int32_t, kTitleColumns> widths =
      {};  ///< pixels at 96 dpi: name, then one for each item; 0: automatic
};

}  // namespace filedialog
