// What the suite's dialogs share: plain Win32 dialogs whose templates lie beside this code, in the DLL or, where the
// suite is linked statically, in the program.
#pragma once

#include <windows.h>

#include <exception>

namespace suite {

/// Runs a template modally. `object` is the `Dialog` whose `Handle(window, message, wParam, lParam)` answers as a
/// dialog procedure does. The value given to EndDialog; 0 or below when the dialog cannot be shown.
template <class Dialog>
[[nodiscard]] INT_PTR RunDialog(int templateId, void* owner, Dialog* object) noexcept;

/// The address that tells this module from all others.
[[nodiscard]] HINSTANCE OwnModule() noexcept;
/// A template's number, or a control's class, in the form that the system's calls take.
[[nodiscard]] inline LPCWSTR ResourceName(int id) noexcept {
  return reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(id));
}
/// Makes the classes of the list view and its like known.
void RegisterControls() noexcept;

/// Finds the object and asks it. What it throws is dropped with the message.
template <class Dialog>
INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_INITDIALOG) ::SetWindowLongPtrW(window, DWLP_USER, lParam);
  auto* const object = reinterpret_cast<Dialog*>(::GetWindowLongPtrW(window, DWLP_USER));
  if (object == nullptr) return FALSE;
  try {
    return object->Handle(window, message, wParam, lParam);
  } catch (const std::exception&) {
    return FALSE;
  }
}

template <class Dialog>
INT_PTR RunDialog(int templateId, void* owner, Dialog* object) noexcept {
  RegisterControls();
  const auto window = static_cast<HWND>(owner);
  return ::DialogBoxParamW(OwnModule(), ResourceName(templateId), ::IsWindow(window) != FALSE ? window : nullptr,
                           &DialogProcedure<Dialog>, reinterpret_cast<LPARAM>(object));
}

}  // namespace suite
