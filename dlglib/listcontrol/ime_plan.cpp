#include "dlglib/listcontrol/ime_plan.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace grid {

namespace {

// Bits of the conversion.
constexpr unsigned int kNative = 0x1;
constexpr unsigned int kKatakana = 0x2;
constexpr unsigned int kFullShape = 0x8;
constexpr unsigned int kAll = kNative | kKatakana | kFullShape;

[[nodiscard]] unsigned int ConversionOf(ImeMode mode) noexcept {
  if (mode == ImeMode::FullWidthKatakana) return kNative | kKatakana | kFullShape;
  if (mode == ImeMode::HalfWidthKatakana) return kNative | kKatakana;
  return mode == ImeMode::FullWidthLetters ? kFullShape : kNative | kFullShape;
}

[[nodiscard]] constexpr bool IsColumn(int column) noexcept { return column >= 0 && column < kMaxColumns; }

}  // namespace

ImeStatus WithMode(const ImeStatus& status, ImeMode mode) noexcept {
  if (mode == ImeMode::AsItIs) return status;
  if (mode == ImeMode::Off) return {false, status.conversion};
  return {true, (status.conversion & ~kAll) | ConversionOf(mode)};
}

void ImePlan::SetMode(int column, int mode) noexcept {
  constexpr int kLast = static_cast<int>(ImeMode::FullWidthLetters);
  const bool isMode = mode >= 0 && mode <= kLast;
  if (!IsColumn(column)) return;
  modes_[static_cast<std::size_t>(column)] = isMode ? static_cast<ImeMode>(mode) : ImeMode::AsItIs;
  cell_.reset();
}

ImeMode ImePlan::ModeOf(int column) const noexcept {
  return IsColumn(column) ? modes_[static_cast<std::size_t>(column)] : ImeMode::AsItIs;
}

bool ImePlan::HasModes() const noexcept {
  return std::any_of(modes_.begin(), modes_.end(), [](ImeMode mode) { return mode != ImeMode::AsItIs; });
}

std::optional<ImeStatus> ImePlan::EnterCell(CellPosition cell, const ImeStatus& now) noexcept {
  if (!entered_) entered_ = now;
  if (cell_ == cell) return std::nullopt;
  cell_ = cell;
  const ImeMode mode = ModeOf(cell.column);
  const ImeStatus wanted = mode == ImeMode::AsItIs ? *entered_ : WithMode(now, mode);
  return wanted == now ? std::nullopt : std::optional(wanted);
}

std::optional<ImeStatus> ImePlan::Leave() noexcept {
  cell_.reset();
  return std::exchange(entered_, std::nullopt);
}

}  // namespace grid
