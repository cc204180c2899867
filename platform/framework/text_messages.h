// Messages that carry texts, given with Shift_JIS texts and sent in wide form, whatever the system's own code page is.
// What the inline calls of the windows and controls stand on; sizes of buffers are bytes with the terminator.
#pragma once

#include "platform/framework/export.h"
#include "platform/framework/strings.h"
#include "platform/framework/win32.h"

struct WindowArg;

namespace framework {

/// Sends a message. The texts of the system's own messages (WM_SETTEXT, CB_ADDSTRING, EM_REPLACESEL, WM_CHAR ...) are
/// Shift_JIS and their lengths bytes, as they are in the 8-bit form of the call. Structures of the common controls
/// (LVM_..., TB_...) pass as they are: those have calls of their own below.
DLGLIB_API LRESULT SendText(WindowArg window, UINT message, WPARAM wParam, LPARAM lParam);
/// Posts a message; the character of WM_CHAR is Shift_JIS.
DLGLIB_API BOOL PostText(WindowArg window, UINT message, WPARAM wParam, LPARAM lParam);

/// A window's text. Reading one of another program does not wait for that.
DLGLIB_API void SetTextOf(WindowArg window, const char* text);
/// Copies at most `size` - 1 bytes and a terminator, whole characters; returns the bytes copied.
DLGLIB_API int CopyTextOf(WindowArg window, char* buffer, int size);
DLGLIB_API void GetTextOf(WindowArg window, CString& text);
/// Bytes of the text.
[[nodiscard]] DLGLIB_API int TextLengthOf(WindowArg window);

/// Messages of the common controls in their wide form (`wideMessage`), with the structures of their 8-bit form: what
/// they point to is Shift_JIS. A text that is asked for is copied into the structure's buffer, whole characters and a
/// terminator.
DLGLIB_API LRESULT SendListItem(WindowArg list, UINT wideMessage, WPARAM wParam, LVITEMA* item);
DLGLIB_API LRESULT SendListColumn(WindowArg list, UINT wideMessage, WPARAM wParam, LVCOLUMNA* column);
DLGLIB_API LRESULT SendHeaderItem(WindowArg header, UINT wideMessage, WPARAM wParam, HDITEMA* item);
DLGLIB_API LRESULT SendTool(WindowArg tips, UINT wideMessage, const TOOLINFOA* tool);
DLGLIB_API LRESULT SendButtons(WindowArg toolBar, UINT wideMessage, WPARAM count, const TBBUTTON* buttons);
/// A message whose lParam is a text.
DLGLIB_API LRESULT SendPlainText(WindowArg window, UINT wideMessage, WPARAM wParam, const char* text);

}  // namespace framework
