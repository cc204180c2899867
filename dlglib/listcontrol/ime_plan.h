// The state of the input method while a grid is edited: columns may ask for one, and what was there before comes back.
#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "dlglib/listcontrol/editable_cells.h"

namespace grid {

/// As CvListControl::SetImeMode numbers them.
enum class ImeMode { AsItIs, Off, Hiragana, FullWidthKatakana, HalfWidthKatakana, FullWidthLetters };

/// Open or closed, and the platform's bits of the conversion.
struct ImeStatus {
  bool isOpen = false;
  unsigned int conversion = 0;

  friend bool operator==(const ImeStatus&, const ImeStatus&) = default;
};

/// The status with the mode: what it does not speak of, such as the way of typing, stays.
[[nodiscard]] ImeStatus WithMode(const ImeStatus& status, ImeMode mode) noexcept;

class ImePlan {
 public:
  /// Of one of the 20 columns; a number that is no mode, as AsItIs.
  void SetMode(int column, int mode) noexcept;
  [[nodiscard]] ImeMode ModeOf(int column) const noexcept;
  /// Whether any column has a mode. As long as none has, the window need not ask the system for anything.
  [[nodiscard]] bool HasModes() const noexcept;

  /// A cell is edited, or none; `now` is the status as it stands. Returns what it has to become; nothing when it is
  /// right, and when nothing but the focus within the cell has changed: there the user has the say.
  [[nodiscard]] std::optional<ImeStatus> EnterCell(CellPosition cell, const ImeStatus& now) noexcept;
  /// The grid is left. Returns what was there when it was entered, whatever the user has switched meanwhile; nothing
  /// when it was not entered.
  [[nodiscard]] std::optional<ImeStatus> Leave() noexcept;

 private:
  std::array<ImeMode, kMaxColumns> modes_ = {};
  std::optional<ImeStatus> entered_;  ///< when the grid was entered
  std::optional<CellPosition> cell_;  ///< whose mode is in force
};

}  // namespace grid
