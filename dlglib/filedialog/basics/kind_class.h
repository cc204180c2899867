// The classes of file kinds: what titles their files carry, and the kinds that stand for several.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace filedialog {

/// What files of a class carry for titles.
enum class FileTitles {
  None,
  Model,   ///< those of the model's title set
  Single,  ///< one
};

/// By class, as callers number it: models, parts, sets of parts, macros, masks, texts, constants, attribute tables.
inline constexpr std::array kTitlesOfClass = {FileTitles::None,   FileTitles::Model,  FileTitles::Single,
                                              FileTitles::Single, FileTitles::Single, FileTitles::Single,
                                              FileTitles::Single, FileTitles::Single, FileTitles::Single};

/// None for a number that is no class.
[[nodiscard]] constexpr FileTitles TitlesOf(int titleClass) {
  const bool known = titleClass >= 0 && static_cast<std::size_t>(titleClass) < kTitlesOfClass.size();
  return known ? kTitlesOfClass[static_cast<std::size_t>(titleClass)] : FileTitles::None;
}

[[nodiscard]] constexpr bool HasModelTitles(int titleClass) { return TitlesOf(titleClass) == FileTitles::Model; }
[[nodiscard]] constexpr bool HasSingleTitle(int titleClass) { return TitlesOf(titleClass) == FileTitles::Single; }
[[nodiscard]] constexpr bool HasTitles(int titleClass) { return TitlesOf(titleClass) != FileTitles::None; }

/// Kinds that stand for several while their extension is not an exact one, by their keyword.
[[nodiscard]] constexpr bool IsRasterKind(std::string_view keyword) { return keyword == "#RASTER#"; }
[[nodiscard]] constexpr bool IsSxfKind(std::string_view keyword) {
  return keyword == "#SXF:P21#" || keyword == "#SXF:SFC#";
}

}  // namespace filedialog
