// Reading session files; their format is described at CwSession.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/suite/crvncontrol.h"

namespace suite {

/// Puts what the text of a session file says into the session and answers the lines that could not be read, whose
/// `file` is left empty.
std::vector<CwUnreadableLine> ReadSessionText(std::string_view utf8, CwSession* session);

}  // namespace suite
