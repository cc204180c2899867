#include "platform/framework/dialog.h"

#include <algorithm>

#include "platform/framework/detail/procedures.h"
#include "platform/framework/detail/text_notifications.h"

namespace {

// Keeps the owner of a modal dialog disabled.
class OwnerLock {
 public:
  explicit OwnerLock(HWND owner) noexcept : owner_(::IsWindowEnabled(owner) != FALSE ? owner : nullptr) {
    if (owner_ != nullptr) ::EnableWindow(owner_, FALSE);
  }
  OwnerLock(const OwnerLock&) = delete;
  OwnerLock& operator=(const OwnerLock&) = delete;
  ~OwnerLock() { Unlock(); }

  void Unlock() noexcept {
    if (owner_ != nullptr) ::EnableWindow(owner_, TRUE);
    owner_ = nullptr;
  }

 private:
  HWND owner_;
};

HWND OwnerOf(const CWnd* parent) noexcept {
  const HWND window = WindowRef::HandleOf(parent);
  return window != nullptr ? ::GetAncestor(window, GA_ROOT) : nullptr;
}

HINSTANCE ToModule(const void* module) noexcept { return static_cast<HINSTANCE>(const_cast<void*>(module)); }

const DLGTEMPLATE* LoadTemplate(const void* moduleAddress, UINT id) noexcept {
  const HINSTANCE module = ToModule(moduleAddress);
  constexpr ULONG_PTR kDialogType = 5;  // RT_DIALOG, whose type follows UNICODE
  const HRSRC found = ::FindResourceW(module, reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(id)),
                                      reinterpret_cast<LPCWSTR>(kDialogType));
  const HGLOBAL loaded = found != nullptr ? ::LoadResource(module, found) : nullptr;
  return loaded != nullptr ? static_cast<const DLGTEMPLATE*>(::LockResource(loaded)) : nullptr;
}

void RegisterControls() noexcept {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
  ::InitCommonControlsEx(&classes);
}

/// A dialog that takes the focus before it is seen is active already, and may have been told to look inactive because
/// another program was still in front then. Nobody would tell it otherwise now.
void ShowFirst(HWND dialog) {
  ::ShowWindow(dialog, SW_SHOWNORMAL);
  if (framework::IsSameWindow(::GetForegroundWindow(), dialog)) ::SendMessageW(dialog, WM_NCACTIVATE, TRUE, 0);
}

}  // namespace

CDialog::CDialog() noexcept = default;

CDialog::CDialog(UINT templateId, CWnd* parent, const void* module) noexcept
    : templateId_(templateId), module_(module), parent_(parent) {}

CDialog::CDialog(const DLGTEMPLATE* dialogTemplate, CWnd* parent, const void* module) noexcept
    : template_(dialogTemplate), module_(module), parent_(parent) {}

CDialog::~CDialog() = default;

BOOL CDialog::InitModalIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent, const void* module) {
  if (m_hWnd != nullptr || phase_ != Phase::Idle) return FALSE;
  template_ = dialogTemplate;
  parent_ = parent;
  module_ = module;
  return TRUE;
}

INT_PTR CDialog::DoModal() {
  if (m_hWnd != nullptr || phase_ != Phase::Idle) return -1;
  const HWND owner = OwnerOf(parent_);
  OwnerLock lock(owner);
  phase_ = Phase::Running;
  result_ = IDCANCEL;
  const bool created =
      CreateFrom(template_ != nullptr ? template_ : LoadTemplate(module_, templateId_), module_, owner);
  if (created) RunLoop();
  const INT_PTR result = created || phase_ == Phase::Ended ? result_ : -1;
  // The owner is enabled first, so that it and no other window becomes the active one.
  lock.Unlock();
  phase_ = Phase::Idle;
  DestroyWindow();
  return result;
}

void CDialog::EndDialog(INT_PTR result) {
  if (phase_ == Phase::Idle) {
    if (m_hWnd != nullptr) ShowWindow(SW_HIDE);
    return;
  }
  phase_ = Phase::Ended;
  result_ = result;
  ::PostMessageW(m_hWnd, WM_NULL, 0, 0);
}

BOOL CDialog::Create(UINT templateId, CWnd* parent, const void* module) {
  return CreateIndirect(LoadTemplate(module, templateId), parent, module);
}

BOOL CDialog::CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent, const void* module) {
  if (m_hWnd != nullptr || phase_ != Phase::Idle) return FALSE;
  return CreateFrom(dialogTemplate, module, HandleOf(parent)) ? TRUE : FALSE;
}

bool CDialog::CreateFrom(const DLGTEMPLATE* dialogTemplate, const void* module, HWND owner) {
  if (dialogTemplate == nullptr) return false;
  RegisterControls();
  const framework::DialogCreationScope scope(*this);
  const HWND created =
      ::CreateDialogIndirectParamW(ToModule(module), dialogTemplate, owner, &framework::DialogProcedure, 0);
  // Without memory for the binding the window is nobody's.
  if (m_hWnd == nullptr && created != nullptr) ::DestroyWindow(created);
  return m_hWnd != nullptr;
}

void CDialog::RunLoop() {
  bool idleBefore = false;
  while (phase_ == Phase::Running && m_hWnd != nullptr) {
    MSG message{};
    if (!::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
      HandleIdle(!idleBefore);
      idleBefore = true;
      if (phase_ != Phase::Running || m_hWnd == nullptr) return;
    }
    const BOOL fetched = ::GetMessageW(&message, nullptr, 0, 0);
    if (fetched > 0) {
      HandleOne(message);
      continue;
    }
    if (fetched == 0) ::PostQuitMessage(static_cast<int>(message.wParam));
    return;
  }
}

// As the system's own modal dialogs do: shown at the latest when nothing else is left to do, the owner told each time.
void CDialog::HandleIdle(bool firstTime) {
  if (firstTime && !IsWindowVisible()) ShowFirst(m_hWnd);
  if (m_hWnd == nullptr || (GetStyle() & DS_NOIDLEMSG) != 0) return;
  const HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
  if (owner != nullptr) ::SendMessageW(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
}

void CDialog::HandleOne(MSG& message) {
  if (OfferMessage(&message) || m_hWnd == nullptr || phase_ != Phase::Running) return;
  if (::IsDialogMessageW(m_hWnd, &message)) return;
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
}

Handled CDialog::RouteMessage(const Message& message) {
  static constexpr MessageRow<CDialog> kRows[] = {
      OnMessage(WM_INITDIALOG, &CDialog::HandleInitDialog),
      OnMessage(WM_NOTIFYFORMAT, &CDialog::HandleNotifyFormat),
      OnMessage(WM_WINDOWPOSCHANGING, &CDialog::HandleWindowPosChanging),
      OnCommand(IDOK, BN_CLICKED, &CDialog::OnOK),
      OnCommand(IDCANCEL, BN_CLICKED, &CDialog::OnCancel),
  };
  return Route<CWnd>(*this, kRows, message);
}

// The keyboard of a modeless dialog, in whatever loop fetches its messages.
BOOL CDialog::PreTranslateMessage(MSG* message) {
  const bool isKey = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
  return isKey && m_hWnd != nullptr ? ::IsDialogMessageW(m_hWnd, message) : FALSE;
}

LRESULT CDialog::HandleInitDialog() { return OnInitDialog(); }

/// Dialogs handle the A codes. Where the framework can make them itself, with Shift_JIS texts, the control is told to
/// send the wide form, as its own 8-bit form has the system's code page.
Handled CDialog::HandleNotifyFormat(const Message& message) {
  if (message.lParam != NF_QUERY) return std::nullopt;
  return framework::HasTurnedNotifications(reinterpret_cast<HWND>(message.wParam)) ? NFR_UNICODE : NFR_ANSI;
}

// A dialog that ends during its initialisation is never shown.
Handled CDialog::HandleWindowPosChanging(const Message& message) {
  if (phase_ == Phase::Ended) message.Data<WINDOWPOS>()->flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
  return std::nullopt;
}

BOOL CDialog::OnInitDialog() {
  UpdateData(FALSE);
  return TRUE;
}

void CDialog::OnOK() {
  if (UpdateData(TRUE)) EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

void CDialog::CenterWindow() const {
  const HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
  const bool hasOwner = owner != nullptr && ::IsWindowVisible(owner);
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  ::GetMonitorInfoW(::MonitorFromWindow(hasOwner ? owner : m_hWnd, MONITOR_DEFAULTTOPRIMARY), &screen);
  RECT around = screen.rcWork;
  if (hasOwner) ::GetWindowRect(owner, &around);
  RECT window{};
  GetWindowRect(&window);
  const LONG width = window.right - window.left;
  const LONG height = window.bottom - window.top;
  const LONG left = std::min((around.left + around.right - width) / 2, screen.rcWork.right - width);
  const LONG top = std::min((around.top + around.bottom - height) / 2, screen.rcWork.bottom - height);
  ::SetWindowPos(m_hWnd, nullptr, std::max(left, screen.rcWork.left), std::max(top, screen.rcWork.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
