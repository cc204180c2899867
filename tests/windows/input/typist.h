// Somebody who types on the display's own keyboard, so that what is typed passes the input method
// (cmake/input-method.sh).
#pragma once

#include <functional>
#include <string>

#include "tests/windows/driver/user.h"

namespace japanese_input {

/// Whether the input method's server is there. It dies now and then; the program is run anew then.
[[nodiscard]] bool ServerIsThere();

/// Whether compositions are shown in the box itself.
[[nodiscard]] bool ShowsInTheBox();

/// Switches the input method on, and off again, for the dialog that has the focus; the pointer must be over it. Each
/// dialog begins switched off.
void SwitchInputMethod(const driver::User& user);

/// Waits until something shows that text.
void WaitForText(const driver::User& user, const std::function<std::string()>& shown, const std::string& text);

/// Keys by their names on the display, with blanks between: "n i h o n space Return", "shift+space". What they do is
/// seen a while later; whoever needs it waits for that.
void PressKeys(const std::string& names);

}  // namespace japanese_input
