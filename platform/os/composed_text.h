// What an edit box held when the input method began to compose in it, and whether what it has composed was given up.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace os {

/// A box as it is when a composition begins in it.
struct ComposedText {
  std::wstring text;
  std::size_t markedFrom = 0;  ///< units; the end excluded
  std::size_t markedTo = 0;
};

/// Whether a composition that has ended was given up: the box holds what it held at its beginning, but for the marked
/// text, which the composition has displaced.
[[nodiscard]] inline bool IsGivenUp(const ComposedText& before, std::wstring_view after) {
  const std::wstring_view text = before.text;
  const std::size_t from = std::min(before.markedFrom, text.size());
  const std::size_t to = std::clamp(before.markedTo, from, text.size());
  const std::size_t rest = text.size() - to;
  return after.size() == from + rest && after.starts_with(text.substr(0, from)) && after.ends_with(text.substr(to));
}

}  // namespace os
