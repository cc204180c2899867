#include "platform/framework/detail/procedures.h"

#include <memory>
#include <utility>

#include "platform/framework/detail/alt_key.h"
#include "platform/framework/detail/message_watch.h"
#include "platform/framework/detail/paint_watch.h"
#include "platform/framework/detail/retirement.h"
#include "platform/framework/detail/text_notifications.h"
#include "platform/framework/detail/thread_slot.h"
#include "platform/framework/detail/window_table.h"
#include "platform/framework/reflection.h"

namespace framework {

namespace {

const ThreadSlot<CreationScope> innermostCreation;
const ThreadSlot<CWnd> waitingDialog;

// Left out, these would leave a window half made, half destroyed or painting for ever, so a failing handler cannot drop
// them.
bool IsVital(UINT id) noexcept { return id == WM_NCCREATE || id == WM_NCDESTROY || id == WM_PAINT; }

/// The control that a message of its parent is about; null when there is no object for it.
std::shared_ptr<WindowEntry> ReflectedControl(const Message& message) {
  const HWND control = ReflectionTarget(message);
  if (control == nullptr || WindowTable::Instance().Attached(control) == nullptr) return nullptr;
  return WindowTable::Instance().Find(control);
}

/// Offers a notification in wide form, and in the 8-bit form when nobody has a row for that.
Handled Offer(WindowEntry& entry, const Message& message) {
  const Handled handled = entry.object->RouteMessage(message);
  if (handled || entry.object == nullptr) return handled;
  const auto narrow = Narrowed(message);
  if (narrow == nullptr) return std::nullopt;
  Message turned = message;
  turned.lParam = reinterpret_cast<LPARAM>(narrow->Get());
  const Handled answer = entry.object->RouteMessage(turned);
  if (answer) narrow->GiveBack(&entry.givenText);
  return answer;
}

Handled Reflect(WindowEntry* control, const Message& message) {
  if (control == nullptr || control->object == nullptr) return std::nullopt;
  Message reflected = message;
  reflected.reflected = true;
  return Offer(*control, reflected);
}

// Child first, then the parent. The child's handler may have destroyed the parent's object or parted it from its
// window.
Handled RouteThrough(WindowEntry& entry, const Message& message) {
  const auto control = ReflectedControl(message);
  const UnderWay about(control);
  const Handled reflected = Reflect(control.get(), message);
  if (reflected) return reflected;
  return entry.object != nullptr ? Offer(entry, message) : std::nullopt;
}

// An 8-bit host still gets its notifications in 8-bit form, although it counts as a wide window while it is subclassed.
LRESULT PassOn(const WindowEntry& entry, WNDPROC previous, const Message& message) {
  const LRESULT result = ::CallWindowProcW(previous, message.window, message.id, message.wParam, message.lParam);
  const bool asked = message.id == WM_NOTIFYFORMAT && message.lParam == NF_QUERY;
  return asked && entry.wasAnsi && result == NFR_UNICODE ? NFR_ANSI : result;
}

Handled ReflectOrDecline(WindowEntry* control, const Message& message) noexcept {
  try {
    return Reflect(control, message);
  } catch (...) {
    return std::nullopt;
  }
}

// The host sees every message, its controls' answer is the result. A control that fails costs the host nothing.
LRESULT AnswerForHost(WindowEntry& entry, WNDPROC previous, const Message& message) {
  const auto control = ReflectedControl(message);
  const UnderWay about(control);
  const Handled handled = ReflectOrDecline(control.get(), message);
  if (entry.gone) return handled.value_or(0);
  const LRESULT own = PassOn(entry, previous, message);
  return handled.value_or(own);
}

LRESULT AnswerForObject(WindowEntry& entry, WNDPROC previous, const Message& message) {
  const Handled handled = RouteThrough(entry, message);
  if (entry.gone) return handled.value_or(0);
  if (handled && message.id != WM_NCDESTROY) return *handled;
  return PassOn(entry, previous, message);
}

LRESULT Answer(WindowEntry& entry, WNDPROC previous, const Message& message) {
  if (entry.listener != nullptr) {
    const Handled taken = entry.listener->Ask(message);
    if (taken || entry.gone) return taken.value_or(0);
  }
  if (entry.object != nullptr && entry.binding == Binding::Subclassed) return AnswerForObject(entry, previous, message);
  if (entry.ReflectsForHost()) return AnswerForHost(entry, previous, message);
  return PassOn(entry, previous, message);
}

// The message is dropped and the window lives on.
LRESULT AnswerOrDrop(WindowEntry& entry, WNDPROC previous, const Message& message) noexcept {
  try {
    return Answer(entry, previous, message);
  } catch (...) {
    if (!IsVital(message.id) || entry.gone) return 0;
  }
  return ::CallWindowProcW(previous, message.window, message.id, message.wParam, message.lParam);
}

LRESULT AnswerAndTell(WindowEntry& entry, WNDPROC previous, const Message& message) noexcept {
  if (message.id != WM_PAINT || entry.painter == nullptr) return AnswerOrDrop(entry, previous, message);
  entry.painter->Tell(true);
  const LRESULT result = AnswerOrDrop(entry, previous, message);
  if (entry.painter != nullptr) entry.painter->Tell(false);
  return result;
}

Handled DialogAnswerOrDrop(WindowEntry& entry, const Message& message) noexcept {
  try {
    return RouteThrough(entry, message);
  } catch (...) {
    if (IsVital(message.id)) return std::nullopt;
    return message.id == WM_INITDIALOG ? TRUE : FALSE;
  }
}

// An object's last handler may throw as well.
void FinishQuietly(const std::shared_ptr<WindowEntry>& entry) noexcept {
  try {
    WindowTable::Instance().Finish(entry);
  } catch (...) {
    return;
  }
}

// The dialog's first message binds the object that waits for it.
std::shared_ptr<WindowEntry> DialogEntry(HWND dialog) noexcept {
  WindowTable& table = WindowTable::Instance();
  auto entry = table.Find(dialog);
  if (entry != nullptr && entry->binding == Binding::Dialog) return entry;
  CWnd* const object = DialogCreationScope::Take();
  if (object == nullptr) return nullptr;
  return table.TryBind(*object, dialog, Binding::Dialog, true) ? table.Find(dialog) : nullptr;
}

}  // namespace

LRESULT CALLBACK WindowProcedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) noexcept {
  const auto entry = WindowTable::Instance().Find(window);
  const WNDPROC previous = entry != nullptr ? entry->previous : nullptr;
  if (previous == nullptr) return ::DefWindowProcW(window, id, wParam, lParam);
  if (DestroysRetired(*entry, id)) return 0;
  NoteKeyWithAlt(window, id, wParam);
  const UnderWay answering(entry);
  const LRESULT result = AnswerAndTell(*entry, previous, {window, id, wParam, lParam});
  if (id == WM_NCDESTROY) FinishQuietly(entry);
  return result;
}

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT id, WPARAM wParam, LPARAM lParam) noexcept {
  const auto entry = DialogEntry(dialog);
  if (entry == nullptr || entry->object == nullptr || std::exchange(entry->skipOnce, false)) return FALSE;
  NoteKeyWithAlt(dialog, id, wParam);
  const Handled handled = DialogAnswerOrDrop(*entry, {dialog, id, wParam, lParam});
  if (id == WM_NCDESTROY) FinishQuietly(entry);
  return handled ? DialogResult(dialog, id, *handled) : FALSE;
}

CreationScope::CreationScope(CWnd& object, HWND parent, UINT id) noexcept
    : object_(&object), parent_(parent), id_(id), outer_(innermostCreation.Exchange(this)) {
  hook_ = ::SetWindowsHookExW(WH_CBT, &CreationScope::Hook, nullptr, ::GetCurrentThreadId());
}

CreationScope::~CreationScope() {
  if (hook_ != nullptr) ::UnhookWindowsHookEx(hook_);
  innermostCreation.Set(outer_);
}

HWND CreationScope::Find(HWND parent, UINT id) noexcept {
  for (const CreationScope* scope = innermostCreation.Get(); scope != nullptr; scope = scope->outer_) {
    if (scope->window_ != nullptr && IsSameWindow(scope->parent_, parent) && scope->id_ == id) return scope->window_;
  }
  return nullptr;
}

// The input method's helper window may be made before the one that is meant.
LRESULT CALLBACK CreationScope::Hook(int code, WPARAM wParam, LPARAM lParam) noexcept {
  CreationScope* const scope = innermostCreation.Get();
  const auto window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_CREATEWND && scope != nullptr && scope->object_ != nullptr &&
      (::GetClassLongPtrW(window, GCL_STYLE) & CS_IME) == 0) {
    CWnd* const object = std::exchange(scope->object_, nullptr);
    scope->window_ = window;
    scope->bound_ = WindowTable::Instance().TryBind(*object, window, Binding::Subclassed, true);
  }
  return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

DialogCreationScope::DialogCreationScope(CWnd& object) noexcept : outer_(waitingDialog.Exchange(&object)) {}

DialogCreationScope::~DialogCreationScope() { waitingDialog.Set(outer_); }

CWnd* DialogCreationScope::Take() noexcept { return waitingDialog.Exchange(nullptr); }

}  // namespace framework
