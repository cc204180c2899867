// The keys of the browser: what each one means, where it means something.
#pragma once

#include <optional>

#include "dlglib/filedialog/basics/hot_areas.h"

namespace filedialog {

/// Virtual keys, as the platform numbers them.
inline constexpr int kKeyBackspace = 0x08;
inline constexpr int kKeyLeft = 0x25;
inline constexpr int kKeyUp = 0x26;
inline constexpr int kKeyDelete = 0x2E;
inline constexpr int kKeyF2 = 0x71;
inline constexpr int kKeyF4 = 0x73;
inline constexpr int kKeyF5 = 0x74;
inline constexpr int kKeyF6 = 0x75;

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

/// The parts between which F6 walks.
enum class BrowserPart { List, Names, Places };
enum class Walk { Forward, Backward };

/// The part behind, or before, that one; the list when the focus is in none of them. A location bar that cannot be used
/// is passed over.
[[nodiscard]] BrowserPart NextPart(std::optional<BrowserPart> from, Walk walk, bool hasPlaces);

}  // namespace filedialog
