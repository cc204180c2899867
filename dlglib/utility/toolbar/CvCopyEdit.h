// CvCopyEdit: a hidden edit control that carries a text to the clipboard.
#pragma once

#include <string>

#include "platform/framework/controls.h"

class CvCopyEdit : public CEdit {
 public:
  /// Copies all of the control's text. False when the clipboard does not hold it within half a second, because another
  /// program keeps the clipboard open, or when there is no text; messages are not pumped meanwhile. What the user had
  /// on the clipboard before is lost.
  [[nodiscard]] bool CopyAll() const;

  /// Whether the clipboard holds a text (Shift_JIS) now: another program may have copied something since. `reader` is
  /// the window that opens it. Waits for a clipboard that is held open as CopyAll does.
  [[nodiscard]] static bool IsOnClipboard(const std::string& text, HWND reader);
};
