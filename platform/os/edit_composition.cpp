#include "platform/os/edit_composition.h"

#include <array>
#include <memory>
#include <string>
#include <utility>

#include "platform/os/composed_text.h"
#include "platform/os/edit_text.h"
#include "platform/os/kept_with_window.h"

namespace os {
namespace {

struct Composition {
  static constexpr const wchar_t* kProperty = L"corvane.edit_composition";

  LRESULT Receive(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);

  bool isLeftAlone = false;
  bool isOpen = false;
  ComposedText before = {};  ///< when the open one began
};

/// Enter, Esc and Tab: what a dialog or a list would act on.
bool IsKeyOfDialogs(WPARAM key) { return key == VK_RETURN || key == VK_ESCAPE || key == VK_TAB; }

void Begin(HWND edit, Composition* composition) {
  DWORD from = 0;
  DWORD to = 0;
  ::SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  composition->before = {TextOfEdit(edit), from, to};
  composition->isOpen = true;
}

/// It is still open to those who hear of the change.
void PutBack(HWND edit, Composition* composition) {
  const ComposedText& before = composition->before;
  if (TextOfEdit(edit) != before.text) {
    ::SetWindowTextW(edit, before.text.c_str());
    ::SendMessageW(edit, EM_SETSEL, before.markedFrom, static_cast<LPARAM>(before.markedTo));
  }
  composition->isOpen = false;
}

void TellOfChange(HWND edit) {
  const WPARAM code = MAKEWPARAM(static_cast<WORD>(::GetDlgCtrlID(edit)), EN_CHANGE);
  ::SendMessageW(::GetParent(edit), WM_COMMAND, code, reinterpret_cast<LPARAM>(edit));
}

void End(HWND edit, Composition* composition) {
  const std::wstring text = TextOfEdit(edit);
  if (IsGivenUp(composition->before, text)) return PutBack(edit, composition);
  composition->isOpen = false;
  if (text != composition->before.text) TellOfChange(edit);
}

/// What the box is not to see while a composition is open.
bool IsUsedUp(UINT message, WPARAM wParam) {
  const bool isKey = message == WM_KEYDOWN || message == WM_CHAR;
  return isKey && IsKeyOfDialogs(wParam);
}

LRESULT Composition::Receive(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_IME_STARTCOMPOSITION && !isLeftAlone) Begin(edit, this);
  if (!isOpen) return ::DefSubclassProc(edit, message, wParam, lParam);
  if (IsUsedUp(message, wParam)) return 0;
  if (message == WM_KILLFOCUS) PutBack(edit, this);
  const LRESULT result = ::DefSubclassProc(edit, message, wParam, lParam);
  if (message == WM_GETDLGCODE) return result | DLGC_WANTALLKEYS;
  if (message == WM_IME_ENDCOMPOSITION) End(edit, this);
  return result;
}

void Keep(HWND edit, Composition composition) {
  if (::GetWindowThreadProcessId(edit, nullptr) != ::GetCurrentThreadId()) return;
  if (KeptWith<Composition>(edit) == nullptr) KeepWith(edit, std::make_unique<Composition>(std::move(composition)));
}

/// Controls of other classes may be edit boxes inside, and do not behave as such.
bool IsEdit(HWND window) {
  std::array<wchar_t, 8> name = {};
  ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return ::lstrcmpiW(name.data(), WC_EDITW) == 0;
}

/// What stands before an 8-bit box gets texts in the system's own code page: in another one than 932 they would be
/// lost on the way, and no Japanese is composed in such a box there.
bool LosesNoText(HWND edit) {
  constexpr UINT kShiftJis = 932;
  return ::IsWindowUnicode(edit) != FALSE || ::GetACP() == kShiftJis;
}

/// Nothing may be thrown through the system.
BOOL CALLBACK KeepWhole(HWND window, LPARAM) noexcept {
  try {
    if (IsEdit(window) && LosesNoText(window)) KeepCompositionsWhole(window);
  } catch (...) {
    return FALSE;
  }
  return TRUE;
}

}  // namespace

void KeepCompositionsWhole(HWND edit) { Keep(edit, {}); }

void KeepCompositionsWholeIn(HWND window) {
  if (::IsWindow(window) != FALSE) ::EnumChildWindows(window, &KeepWhole, 0);
}

void KeepsCompositionsItself(HWND edit) { Keep(edit, {.isLeftAlone = true}); }

bool IsComposing(HWND edit) noexcept {
  const Composition* const composition = KeptWith<Composition>(edit);
  return composition != nullptr && composition->isOpen;
}

bool IsComposingIn(HWND window) noexcept {
  const HWND focus = ::GetFocus();
  return ::IsChild(window, focus) != FALSE && IsComposing(focus);
}

}  // namespace os
