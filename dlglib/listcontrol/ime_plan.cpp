#include "dlglib/listcontrol/ime_plan.h"

#include <algorithm>
#include <cstddef>

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
  if (IsColumn(column))
    modes_[static_cast<std::size_t>(column)] = isMode ? static_cast<ImeMode>(mode) : ImeMode::AsItIs;
}

ImeMode ImePlan::ModeOf(int column) const noexcept {
  return IsColumn(column) ? modes_[static_cast<std::size_t>(column)] : ImeMode::AsItIs;
}

bool ImePlan::HasModes() const noexcept {
  return std::any_of(modes_.begin(), modes_.end(), [](ImeMode mode) { return mode != ImeMode::AsItIs; });
}

std::optional<ImeStatus> ImePlan::EnterColumn(int column, const ImeStatus& now) noexcept {
  if (!entered_) entered_ = now;
  const ImeMode mode = ModeOf(column);
  if (mode == ImeMode::AsItIs) return PutBack();
  isOurs_ = true;
  const ImeStatus wanted = WithMode(now, mode);
  return wanted == now ? std::nullopt : std::optional(wanted);
}

/// What the user has chosen in a column without a mode is the user's, and no column's mode was in force then.
std::optional<ImeStatus> ImePlan::PutBack() noexcept {
  if (!isOurs_) return std::nullopt;
  isOurs_ = false;
  return entered_;
}

std::optional<ImeStatus> ImePlan::Leave() noexcept {
  const std::optional<ImeStatus> status = PutBack();
  entered_.reset();
  return status;
}

bool IsGivenUp(const ComposedBox& before, std::wstring_view after) {
  const std::wstring& text = before.text;
  const std::size_t from = std::min(before.markedFrom, text.size());
  const std::size_t to = std::clamp(before.markedTo, from, text.size());
  const std::size_t rest = text.size() - to;
  const std::wstring_view left(text);
  return after.size() == from + rest && after.starts_with(left.substr(0, from)) && after.ends_with(left.substr(to));
}

}  // namespace grid
