#include "dlglib/base/keyword_class.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/suite/crvncontrol.h"

namespace keyword_class {

int ClassOf(std::string_view keyword, bool titleDisplay) noexcept {
  if (keyword == "#MODEL#" || keyword == "#SUBMODEL#") return titleDisplay ? 1 : 0;
  constexpr std::array<std::pair<std::string_view, int>, 7> kClasses = {{{"#PARTS:BIN#", 2},
                                                                         {"#PSET:BIN#", 3},
                                                                         {"#MACRO#", 4},
                                                                         {"#MASK:SAVE#", 5},
                                                                         {"#TEXT#", 6},
                                                                         {"#CONSTANT#", 7},
                                                                         {"#ATRTABLE#", 8}}};
  const auto* found =
      std::find_if(kClasses.begin(), kClasses.end(), [keyword](const auto& entry) { return entry.first == keyword; });
  return found != kClasses.end() ? found->second : 0;
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

int LetterCaseOf(std::string_view keyword) {
  const CwFileType* kind = CwSession::GetInstance()->GetActiveFileTypeSet()->GetFileType(std::string(keyword));
  if (kind == nullptr) return 0;
  if (kind->IsUpperCase()) return 1;
  return kind->IsLowerCase() ? -1 : 0;
}

std::string FloppyRoot(std::string_view folder) {
  const std::size_t colon = folder.find(':');
  if (colon == std::string_view::npos || colon == 0) return "A:/";
  return std::string(folder.substr(colon - 1, 1)) + ":/";
}

}  // namespace keyword_class
