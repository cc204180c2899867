// A composition of an input method as a box gets it where it is shown in the box itself; sent, as no input method is
// there.
#pragma once

#include <string>

#include "platform/os/sjis_wide.h"
#include "tests/windows/driver/window.h"

namespace japanese_input {

/// Begins, and puts the text in the place of what is marked. Shift_JIS.
inline void BeginComposition(driver::Window box, const std::string& text) {
  box.Send(WM_IME_STARTCOMPOSITION);
  const int from = box.TextSelection().first;
  const std::wstring shown = os::WideOf(text);
  box.Send(EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(shown.c_str()));
  box.Send(EM_SETSEL, static_cast<WPARAM>(from), from + static_cast<LPARAM>(shown.size()));
}

/// What it shows has become text.
inline void EndComposition(driver::Window box) { box.Send(WM_IME_ENDCOMPOSITION); }

/// What it shows goes again.
inline void GiveCompositionUp(driver::Window box) {
  box.Send(EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L""));
  EndComposition(box);
}

}  // namespace japanese_input
