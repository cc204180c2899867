// Edit boxes in which an input method's composition is no text before it ends, for dialogs that read them, act on their
// changes, or end at Enter and Esc. Some systems show the composition in the box itself.
#pragma once

#include <windows.h>

namespace os {

/// From now on the end of a composition in `edit` tells its parent once that the text has changed (EN_CHANGE). One that
/// is given up, or still open when the box is left, puts back what the box held when it began, marked text included.
/// Enter, Esc and Tab of an open one reach neither the box nor its dialog. The window's own notifications of changes
/// come all the same: whoever acts on them asks IsComposing. Nothing happens without a window, and to one of another
/// thread.
void KeepCompositionsWhole(HWND edit);

/// The same for all edit boxes in a window, those of combo boxes too, but for boxes whose own class keeps their
/// compositions whole, and for 8-bit ones where the system's own code page is not 932. Those that are made later come
/// with the next call.
void KeepCompositionsWholeIn(HWND window);

/// For such a class: KeepCompositionsWhole passes over `edit`.
void KeepsCompositionsItself(HWND edit);

/// Whether a composition is open in such a box. What the box shows is no text then.
[[nodiscard]] bool IsComposing(HWND edit) noexcept;

/// Whether one is open in the box in `window` that has the focus.
[[nodiscard]] bool IsComposingIn(HWND window) noexcept;

}  // namespace os
