// How a drive is shown among the places.
#pragma once

#include <optional>
#include <string>

#include "dlglib/filedialog/basics/entry_kind.h"
#include "platform/os/os.h"

namespace filedialog {

struct DriveLook {
  EntryKind kind;
  std::string label;  ///< Shift_JIS: the volume, 'server' の share, or a word for the type
};

/// The look of the drive with this root (letter, colon, backslash); none for a type that is not shown.
[[nodiscard]] std::optional<DriveLook> LookOf(os::Drives& drives, os::Network& network, const std::string& root);

}  // namespace filedialog
