// The keys of the browser that do what areas and menus do.
#pragma once

#include <optional>

#include "dlglib/filedialog/basics/hot_areas.h"

namespace filedialog {

/// Virtual keys, as the platform numbers them.
inline constexpr int kKeyBackspace = 0x08;
inline constexpr int kKeyLeft = 0x25;
inline constexpr int kKeyDelete = 0x2E;
inline constexpr int kKeyF2 = 0x71;

enum class ListCommand { Up, Rename, Delete };

/// What a key does in the list: Backspace goes up, which the list would take for a letter of a name, F2 renames and
/// Delete deletes.
[[nodiscard]] std::optional<ListCommand> ListCommandOf(int key);

/// The area that a key runs together with Alt. The areas are no controls that the Tab key could reach, so each one but
/// "up" has such a key.
[[nodiscard]] std::optional<HotArea> AreaOfAltKey(int key);

}  // namespace filedialog
