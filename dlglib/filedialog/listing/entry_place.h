// The rows of the machine's drives, and where opening a row leads.
#pragma once

#include <optional>
#include <span>

#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/place/location_tree.h"

namespace filedialog {

/// Empties the table and fills it with the drives of the location bar, client drives included, in the bar's order. A
/// row's path is the drive's root or the client drive's network name, its name the bar's text.
void ListDrives(const LocationTree& places, EntryTable* table);

/// The location that opening a row leads to; none for a file, and for a place that is not there any more. A drive is
/// opened whether it is ready or not. `network`: the places of the network listing that the row belongs to.
[[nodiscard]] std::optional<Location> LocationOfEntry(os::Files& files, const LocationTree& places,
                                                      const FileEntry& entry, std::span<const Place> network);

}  // namespace filedialog
