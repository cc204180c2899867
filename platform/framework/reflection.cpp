#include "platform/framework/reflection.h"

#include "platform/framework/detail/procedures.h"
#include "platform/framework/detail/window_table.h"

namespace framework {

namespace {

struct ReflectionRow {
  UINT message;
  ControlPlace place;
};

constexpr ReflectionRow kReflections[] = {
    {WM_COMMAND, ControlPlace::LParam},        {WM_NOTIFY, ControlPlace::NotifyHeader},
    {WM_DRAWITEM, ControlPlace::DrawItem},     {WM_MEASUREITEM, ControlPlace::MeasureItem},
    {WM_DELETEITEM, ControlPlace::DeleteItem}, {WM_COMPAREITEM, ControlPlace::CompareItem},
    {WM_CTLCOLORBTN, ControlPlace::LParam},    {WM_CTLCOLORDLG, ControlPlace::LParam},
    {WM_CTLCOLOREDIT, ControlPlace::LParam},   {WM_CTLCOLORLISTBOX, ControlPlace::LParam},
    {WM_CTLCOLORMSGBOX, ControlPlace::LParam}, {WM_CTLCOLORSCROLLBAR, ControlPlace::LParam},
    {WM_CTLCOLORSTATIC, ControlPlace::LParam}, {WM_HSCROLL, ControlPlace::LParam},
    {WM_VSCROLL, ControlPlace::LParam},        {WM_VKEYTOITEM, ControlPlace::LParam},
    {WM_CHARTOITEM, ControlPlace::LParam},     {WM_PARENTNOTIFY, ControlPlace::ParentNotified},
};

// The control may be in the middle of its creation and then have no ID yet that its parent could find it by.
HWND MeasuredControl(const Message& message) noexcept {
  const auto* item = message.Data<MEASUREITEMSTRUCT>();
  if (item->CtlType == ODT_MENU) return nullptr;
  const HWND created = CreationScope::Find(message.window, item->CtlID);
  return created != nullptr ? created : ::GetDlgItem(message.window, static_cast<int>(item->CtlID));
}

HWND ParentNotifiedControl(const Message& message) noexcept {
  const UINT event = LOWORD(message.wParam);
  return event == WM_CREATE || event == WM_DESTROY ? message.Control() : nullptr;
}

HWND DrawnControl(const Message& message) noexcept {
  const auto* item = message.Data<DRAWITEMSTRUCT>();
  return item->CtlType != ODT_MENU ? item->hwndItem : nullptr;
}

HWND NamedControl(const Message& message) noexcept {
  switch (ReflectionOf(message.id)) {
    case ControlPlace::LParam:
      return message.Control();
    case ControlPlace::NotifyHeader:
      return message.Notification()->hwndFrom;
    case ControlPlace::DrawItem:
      return DrawnControl(message);
    case ControlPlace::DeleteItem:
      return message.Data<DELETEITEMSTRUCT>()->hwndItem;
    case ControlPlace::CompareItem:
      return message.Data<COMPAREITEMSTRUCT>()->hwndItem;
    case ControlPlace::ParentNotified:
      return ParentNotifiedControl(message);
    case ControlPlace::MeasureItem:
    case ControlPlace::None:
      break;
  }
  return nullptr;
}

bool ReturnsItsResult(UINT message) noexcept {
  switch (message) {
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC:
    case WM_COMPAREITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_QUERYDRAGICON:
    case WM_INITDIALOG:
      return true;
    default:
      return false;
  }
}

}  // namespace

ControlPlace ReflectionOf(UINT message) noexcept {
  for (const ReflectionRow& row : kReflections) {
    if (row.message == message) return row.place;
  }
  return ControlPlace::None;
}

HWND ReflectionTarget(const Message& message) noexcept {
  if (ReflectionOf(message.id) == ControlPlace::MeasureItem) return MeasuredControl(message);
  const HWND control = NamedControl(message);
  // A notification that a child passes on from its own child has been reflected there already.
  return control != nullptr && IsSameWindow(::GetParent(control), message.window) ? control : nullptr;
}

INT_PTR DialogResult(HWND dialog, UINT message, LRESULT result) noexcept {
  if (ReturnsItsResult(message)) return result;
  if (::IsWindow(dialog) != FALSE) ::SetWindowLongPtrW(dialog, DWLP_MSGRESULT, result);
  return TRUE;
}

}  // namespace framework

HostReflector::HostReflector() noexcept = default;

HostReflector::~HostReflector() { Release(); }

void HostReflector::Watch(WindowArg host) {
  if (entry_ != nullptr && framework::IsSameWindow(Host(), host.handle)) return;
  Release();
  if (::IsWindow(host.handle) != FALSE) entry_ = framework::WindowTable::Instance().Watch(host.handle);
}

void HostReflector::Release() noexcept {
  if (entry_ == nullptr) return;
  framework::WindowTable::Instance().Unwatch(entry_);
  entry_.reset();
}

HWND HostReflector::Host() const noexcept { return entry_ != nullptr && !entry_->gone ? entry_->window : nullptr; }
