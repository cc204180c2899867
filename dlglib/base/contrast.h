// How well a text can be told from its ground.
#pragma once

#include <cstdint>

namespace contrast {

/// 0x00BBGGRR.
using Colour = std::uint32_t;

/// What a text needs so that people with weak eyes can read it.
inline constexpr double kReadable = 4.5;

/// From 1 (none) to 21 (black on white), as accessibility guidelines count it: from the luminances of the two, in
/// either order.
[[nodiscard]] double Between(Colour one, Colour other) noexcept;

/// `ink` as it is where it can be read on `paper`, else the first shade of it on the way to white or to black,
/// whichever stands out more, that can.
[[nodiscard]] Colour ReadableOn(Colour paper, Colour ink) noexcept;

}  // namespace contrast
