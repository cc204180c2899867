// Where a call goes, as the workers are told.
#pragma once

#include <string_view>

#include "platform/os/workers.h"

namespace filedialog {

/// Paths (Shift_JIS) that name the same place give the same texts. The device is that of a drive, or a computer with
/// all its shares, as these stop answering together. A text that is no full path has none.
[[nodiscard]] os::Site SiteOf(std::string_view path);

}  // namespace filedialog
