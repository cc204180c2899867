// The numbers by which tools know the things of a window.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/os/accessible.h"

namespace accessible {

/// Parts have their own positions. Parts of parts are counted from here on, in steps of kSubs for each part.
inline constexpr std::int32_t kFirstSubNumber = 0x40000000;
inline constexpr std::int32_t kSubs = 1024;
/// Parts of later parts have no number: tools reach them by the part's own object.
inline constexpr std::int32_t kLastPartOfSubs = (0x7FFFFFFF - kFirstSubNumber - (kSubs - 1)) / kSubs;

/// None for what has no number.
[[nodiscard]] constexpr std::optional<std::int32_t> NumberOf(Node node) noexcept {
  if (node.sub == 0) return node.part >= 0 && node.part < kFirstSubNumber ? std::optional(node.part) : std::nullopt;
  const bool isCounted = node.part > 0 && node.part <= kLastPartOfSubs && node.sub > 0 && node.sub < kSubs;
  return isCounted ? std::optional(kFirstSubNumber + node.part * kSubs + node.sub) : std::nullopt;
}

/// None for a number that is nobody's.
[[nodiscard]] constexpr std::optional<Node> NodeOfNumber(std::int32_t number) noexcept {
  if (number < 0) return std::nullopt;
  if (number < kFirstSubNumber) return Node{number, 0};
  const std::int32_t at = number - kFirstSubNumber;
  const Node node{at / kSubs, at % kSubs};
  return node.part > 0 && node.sub > 0 ? std::optional(node) : std::nullopt;
}

}  // namespace accessible
