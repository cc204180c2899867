// What is kept with a window of the system's and sees its messages first, until the window goes.
//
//   struct Guard {
//     static constexpr const wchar_t* kProperty = L"...";  // by which it is found
//     LRESULT Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam);  // goes on with ::DefSubclassProc
//   };
//   os::KeepWith(window, std::make_unique<Guard>());
//   if (Guard* const guard = os::KeptWith<Guard>(window)) ...
//
// One of each kind for a window, on the window's own thread.
#pragma once

#include <windows.h>
//
#include <commctrl.h>

#include <memory>

namespace os {

/// Null when there is none.
template <class Kept>
[[nodiscard]] Kept* KeptWith(HWND window) noexcept {
  return static_cast<Kept*>(::GetPropW(window, Kept::kProperty));
}

template <class Kept>
LRESULT CALLBACK ReceiveFor(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                            DWORD_PTR data) noexcept {
  auto* const kept = reinterpret_cast<Kept*>(data);
  // Not at the last message: a list view gives the box of a label its own procedure back in front of that.
  if (message == WM_DESTROY) {
    ::RemoveWindowSubclass(window, &ReceiveFor<Kept>, id);
    ::RemovePropW(window, Kept::kProperty);
    delete kept;
    return ::DefSubclassProc(window, message, wParam, lParam);
  }
  try {
    return kept->Receive(window, message, wParam, lParam);
  } catch (...) {
    return 0;  // the message is dropped, as everywhere
  }
}

/// The window stays as it is when the system refuses.
template <class Kept>
void KeepWith(HWND window, std::unique_ptr<Kept> kept) noexcept {
  constexpr UINT_PTR kId = 1;
  if (::SetPropW(window, Kept::kProperty, kept.get()) == FALSE) return;
  if (::SetWindowSubclass(window, &ReceiveFor<Kept>, kId, reinterpret_cast<DWORD_PTR>(kept.get())) != FALSE) {
    (void)kept.release();  // goes with the window
  } else {
    ::RemovePropW(window, Kept::kProperty);
  }
}

}  // namespace os
