// What the user chose: the buffer that the browser fills, and the walk through the names in it.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "dlglib/base/encoded_text.h"

namespace filsel {

/// The buffer that a request lends to the browser. It holds real names in Shift_JIS: one, or several joined by single
/// blanks.
class ResultBuffer {
 public:
  static constexpr std::size_t kCapacity = 256'000;  ///< bytes the browser may use, terminator included

  /// Holds `text`, cut at a character when it does not fit.
  explicit ResultBuffer(SjisView text);

  /// kCapacity bytes and a few more, closed with a terminator behind them; they never move.
  [[nodiscard]] char* Data() noexcept { return bytes_.data(); }
  /// The text up to its terminator.
  [[nodiscard]] SjisView Text() const noexcept;

 private:
  static constexpr std::size_t kBytes = 256'010;

  std::vector<char> bytes_;
};

/// The paths of a list result, whole: unlike names, which end at every blank, a path ends only at a blank with a drive
/// ("C:\\") or a server ("\\\\") behind it. Empty for an empty result.
[[nodiscard]] std::vector<SjisView> WholePaths(SjisView result);

/// Whether a result is one name, blanks and all, or a list of names.
enum class ResultForm { OneName, List };

/// A walk through the names of a result. A name with a blank in it counts as two in a list: the names are joined by
/// single blanks, and callers take lists apart in the same way. Copies walk on their own.
class NameWalk {
 public:
  [[nodiscard]] SjisView First(SjisView result, ResultForm form) noexcept;
  /// The name behind the last one; empty when there is no more, and in a result of one name.
  [[nodiscard]] SjisView Next(SjisView result) noexcept;
  /// Next() finds no more.
  void End() noexcept { cursor_.reset(); }

 private:
  [[nodiscard]] SjisView UpToBlank(SjisView result, std::size_t from) noexcept;

  std::optional<std::size_t> cursor_;  // of the blank behind the last name
};

}  // namespace filsel
