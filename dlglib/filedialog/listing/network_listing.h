// One level of the network as a listing: its places, and their rows.
#pragma once

#include <vector>

#include "dlglib/filedialog/basics/keep_going.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/place/location_tree.h"
#include "dlglib/filedialog/place/network_level.h"

namespace filedialog {

/// The places that the network listing shows at the current location, in the network's order:
/// - the network itself shows the entire network and the nearby computers, when the system reports a network;
/// - the entire network shows the networks of the providers;
/// - the nearby computers are the computers of the own surroundings;
/// - a provider, a domain and a computer show what they hold, whatever it is: a provider may hold computers.
/// Each place has the network's record of it; its kind tells what it is. Places without any name, and those whose path
/// passes kPathLimit, are left out. `logon` is asked when the place refuses to be listed, and then the answer is empty.
/// When it is given up, the answer is what had been found.
[[nodiscard]] Reply<std::vector<Place>> NetworkPlaces(os::Network& network, const LocationTree& tree,
                                                      NetworkLogon& logon, const KeepGoing& keepGoing = {});

/// Empties the table and fills it with network places in their order; FileEntry::net is the position among them. The
/// description is the place's comment.
void ListPlaces(const std::vector<Place>& places, EntryTable* table);

}  // namespace filedialog
