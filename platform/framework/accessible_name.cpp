#include "platform/framework/accessible_name.h"

#include <commctrl.h>

#include <memory>
#include <new>
#include <string>

#include "platform/framework/detail/accessible_object.h"
#include "platform/framework/window_ref.h"

namespace framework {
namespace {

constexpr UINT_PTR kId = 0x4E414D45;  ///< of the subclass
constexpr wchar_t kProperty[] = L"dlglib.AccessibleName";

/// Belongs to its control, and goes with it.
struct KeptName {
  std::shared_ptr<ControlName> name = std::make_shared<ControlName>();
  std::unique_ptr<Apartment> apartment;
};

/// Made for each request, as the system does it, and only where the control does not speak for itself: with an object
/// of the system's in front of its own, its rows and cells would be gone. 0 where it is left to the system.
LRESULT Answer(KeptName& kept, HWND control, WPARAM wParam) {
  if (kept.apartment == nullptr) kept.apartment = std::make_unique<Apartment>();
  IAccessible* const inner = kept.apartment->Entered() ? SystemObjectOf(control) : nullptr;
  return inner == nullptr ? 0 : AnswerWith(wParam, MakeNamed(inner, control, kept.name));
}

LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR given);

void Forget(HWND control) noexcept {
  const std::unique_ptr<KeptName> kept(static_cast<KeptName*>(::RemovePropW(control, kProperty)));
  if (kept == nullptr) return;
  ::RemoveWindowSubclass(control, &Procedure, kId);
  kept->name->holds = false;
}

LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR given) {
  if (message == WM_DESTROY) Forget(control);
  const bool isAsked = message == WM_GETOBJECT && static_cast<LONG>(static_cast<DWORD>(lParam)) == OBJID_CLIENT;
  const LRESULT own = ::DefSubclassProc(control, message, wParam, lParam);
  if (!isAsked || own != 0 || ::GetPropW(control, kProperty) != reinterpret_cast<HANDLE>(given)) return own;
  try {
    return Answer(*reinterpret_cast<KeptName*>(given), control, wParam);
  } catch (const std::bad_alloc&) {
    return own;  // the system's own object has to do
  }
}

void Keep(HWND control, const char* name) {
  auto kept = std::make_unique<KeptName>();
  kept->name->name = [text = std::string(name)] { return text; };
  if (::SetWindowSubclass(control, &Procedure, kId, reinterpret_cast<DWORD_PTR>(kept.get())) == FALSE) return;
  if (::SetPropW(control, kProperty, kept.get()) != FALSE) {
    static_cast<void>(kept.release());
  } else {
    ::RemoveWindowSubclass(control, &Procedure, kId);
  }
}

}  // namespace

std::shared_ptr<const ControlName> GivenNameOf(HWND window) noexcept {
  const auto* const kept = static_cast<const KeptName*>(::GetPropW(window, kProperty));
  return kept != nullptr ? kept->name : nullptr;
}

void SetAccessibleName(WindowArg control, const char* name) noexcept {
  Forget(control.handle);
  if (name == nullptr || *name == '\0') return;
  try {
    Keep(control.handle, name);
  } catch (const std::bad_alloc&) {
    // It stays as the system calls it.
  }
}

}  // namespace framework
