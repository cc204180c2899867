#include "dlglib/base/keyword_class.h"

#include <algorithm>
#include <array>
#include <string>

namespace keyword_class {

namespace {

struct Row {
  std::string_view keyword;
  int titleClass;
};

constexpr int kModels = 1;

constexpr std::array<Row, 9> kRows = {{{"#MODEL#", kModels},
                                       {"#SUBMODEL#", kModels},
                                       {"#PARTS:BIN#", 2},
                                       {"#PSET:BIN#", 3},
                                       {"#MACRO#", 4},
                                       {"#MASK:SAVE#", 5},
                                       {"#TEXT#", 6},
                                       {"#CONSTANT#", 7},
                                       {"#ATRTABLE#", 8}}};

}  // namespace

int ClassOf(std::string_view keyword) noexcept {
  const auto* found =
      std::find_if(kRows.begin(), kRows.end(), [keyword](const Row& row) { return row.keyword == keyword; });
  return found != kRows.end() ? found->titleClass : 0;
}

int ClassOf(std::string_view keyword, TitleDisplay display) noexcept {
  const int titleClass = ClassOf(keyword);
  return titleClass == kModels && display == TitleDisplay::Off ? 0 : titleClass;
}

std::string_view Extract(std::string_view text) noexcept {
  constexpr std::size_t kSearched = 16;
  const std::string_view start = text.substr(0, kSearched);
  const std::size_t opening = start.find('#');
  if (opening == std::string_view::npos) return {};
  const std::size_t closing = start.find('#', opening + 1);
  if (closing == std::string_view::npos) return start.substr(opening);
  return start.substr(opening, closing + 1 - opening);
}

EucText FloppyRoot(EucView folder) {
  const std::string_view bytes = folder.bytes();
  const std::size_t colon = bytes.find(':');
  if (colon == std::string_view::npos || colon == 0) return EucText("A:/");
  return EucText(std::string(bytes.substr(colon - 1, 1)) + ":/");
}

}  // namespace keyword_class
