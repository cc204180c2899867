// The keys of the browser: what each one means, where it means something.
#pragma once

#include <optional>

#include "dlglib/filedialog/basics/hot_areas.h"

namespace filedialog {

// `key`: as in virtual_keys.h.

enum class ListCommand { Up, Rename, Delete, OpenPlaces };

/// What a key does in the list: Backspace goes up, which the list would take for a letter of a name, F2 renames, Delete
/// deletes and F4 drops the location bar down.
[[nodiscard]] std::optional<ListCommand> ListCommandOf(int key);

/// The column, counted from 0, by which a key sorts the list together with Ctrl: 1 to 5.
[[nodiscard]] std::optional<int> ColumnOfCtrlKey(int key);

/// The area that a key runs together with Alt. The areas are no controls that the Tab key could reach, so each one has
/// such a key.
[[nodiscard]] std::optional<HotArea> AreaOfAltKey(int key);

/// The key that goes to the location bar together with Alt.
inline constexpr int kKeyOfPlaces = 'D';

enum class WindowCommand { Refresh, WalkParts };

/// What a key does wherever the focus is: F5 lists anew, F6 walks to the next part, and with Shift to the one before.
[[nodiscard]] std::optional<WindowCommand> WindowCommandOf(int key);

/// The parts between which F6 walks.
enum class BrowserPart { List, Names, Places };
enum class Walk { Forward, Backward };

/// The part behind, or before, that one; the list when the focus is in none of them. A location bar that cannot be used
/// is passed over.
[[nodiscard]] BrowserPart NextPart(std::optional<BrowserPart> from, Walk walk, bool hasPlaces);

}  // namespace filedialog
