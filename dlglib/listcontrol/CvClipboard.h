// CvClipboard: texts to and from the system's clipboard, which another program may hold. It waits for that half a
// second at most, without messages.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dlglib/listcontrol/clipboard_text.h"
#include "platform/framework/win32.h"

class CvClipboard {
 public:
  enum class Result {
    Done,
    Held,      ///< by another program; it is as it was
    NoMemory,  ///< it is as it was, or empty when the system has found none for it
  };

  /// Puts a text (Shift_JIS) there in wide form, marked as Japanese, so that the system makes the 8-bit form for other
  /// programs. `owner`: the window that opens it.
  [[nodiscard]] static Result Put(HWND owner, std::string_view text);

  /// What it holds: an empty text where that is no text. Nothing when another program holds it.
  [[nodiscard]] static std::optional<grid::ClipboardText> Read(HWND owner);
};
