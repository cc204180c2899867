// Alt together with a key that a program handles by itself.
#pragma once

#include "platform/framework/win32.h"

namespace framework {

/// To be told of each message before anybody handles it. The default processing takes a press and a release of Alt with
/// no key in between for a lone Alt, and opens the window's menu: the next arrow key would walk in it. A key that is
/// handled never comes there, so the default processing is told beforehand that there is one, by a key that has no
/// meaning of its own. It holds whatever becomes of the window, and in whichever window and loop Alt is let go.
void NoteKeyWithAlt(HWND window, UINT message, WPARAM key) noexcept;

}  // namespace framework
