// Where the browser starts, the rows of its drives, and where opening a row leads.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "dlglib/filedialog/file_entry.h"
#include "dlglib/filedialog/location.h"

namespace filedialog {

/// The location that the browser starts in: `folder` (Shift_JIS real path), or the nearest folder above it that exists;
/// a file stands for its folder. The first drive when the folder names no drive of the machine. A network folder is
/// taken as it is: climbing it could wait for a computer that does not answer. What passes kPathLimit does not exist.
[[nodiscard]] Location StartLocation(const LocationTree& places, std::string_view folder);

/// Empties the table and fills it with the drives of the location bar, client drives included, in the bar's order. A
/// row's path is the drive's root or the client drive's network name, its name the bar's text.
void ListDrives(const LocationTree& places, EntryTable* table);

/// The location that opening a row leads to; none for a file, and for a place that is not there any more. A drive is
/// opened whether it is ready or not. `network`: the places of the network listing that the row belongs to.
[[nodiscard]] std::optional<Location> LocationOfEntry(const LocationTree& places, const FileEntry& entry,
                                                      std::span<const Place> network);

}  // namespace filedialog
