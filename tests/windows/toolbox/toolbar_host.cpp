#include "tests/windows/toolbox/toolbar_host.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "platform/framework/framework.h"
#include "platform/os/os.h"
#include "platform/os/sjis_wide.h"

namespace toolbar_test {
namespace {

/// Style, extended style, number of controls, place and size in dialog units, no menu, no class, no title, font.
struct Template {
  DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT;
  DWORD exStyle = 0;
  WORD count = 0;
  short x = 40, y = 40, width = 200, height = 90;
  WORD menu = 0, windowClass = 0, title = 0;
  WORD pointSize = 9;
  std::array<wchar_t, 10> face = {L"ＭＳ ゴシック"};
};
constexpr Template kTemplate;

const DLGTEMPLATE* TheTemplate() { return reinterpret_cast<const DLGTEMPLATE*>(&kTemplate); }

void AddControl(HWND parent, const char* windowClass, DWORD style, int id, RECT place) {
  const HWND control = ::CreateWindowExA(0, windowClass, "", WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, place.left,
                                         place.top, place.right, place.bottom, parent,
                                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  ::SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(::SendMessageW(parent, WM_GETFONT, 0, 0)), FALSE);
}

/// Whether something happens while a person waits. The desktop, too, opens the clipboard for a moment after each
/// change.
bool InTime(const std::function<bool()>& happens) {
  constexpr DWORD kLookMs = 10;
  for (DWORD waited = 0; waited < driver::kPatienceMs; waited += kLookMs) {
    if (happens()) return true;
    ::Sleep(kLookMs);
  }
  return false;
}

class FrameworkHost : public Host, private CDialog {
 public:
  FrameworkHost() : CDialog(TheTemplate()) {}

 private:
  void RunModal() override { DoModal(); }
  BOOL OnInitDialog() override {
    Start(m_hWnd, this);
    return FALSE;
  }
  Handled RouteMessage(const Message& message) override {
    if (!message.reflected) Watch(message.id, message.wParam, message.lParam);
    return CDialog::RouteMessage(message);
  }
};

/// Its message loop and its procedure are the system's and its own.
class PlainHost : public Host {
 private:
  void RunModal() override {
    ::DialogBoxIndirectParamW(::GetModuleHandleW(nullptr), TheTemplate(), nullptr, &Procedure,
                              reinterpret_cast<LPARAM>(this));
  }

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
      ::SetWindowLongPtrW(window, DWLP_USER, lParam);
      reinterpret_cast<PlainHost*>(lParam)->Start(window, CWnd::FromHandle(window));
      return FALSE;
    }
    auto* const host = reinterpret_cast<PlainHost*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (host == nullptr) return FALSE;
    host->Watch(message, wParam, lParam);
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) ::EndDialog(window, IDCANCEL);
    return FALSE;
  }
};

}  // namespace

void Host::Run(const std::function<void(CvUtility&)>& prepare,
               const std::function<void(driver::User&, Host&)>& script) {
  prepare_ = prepare;
  commands_.clear();
  driver::RunDialog([this] { RunModal(); },
                    [&](driver::User& user) {
                      const driver::Window dialog = user.WaitDialog(kTitle);
                      user.WaitUntil("the dialog is in front", [&] { return dialog.IsForeground(); });
                      user.Settle();
                      script(user, *this);
                      if (dialog.Exists()) Close();
                    });
  utility_.reset();
}

RECT Host::ButtonRect(int index) const {
  const driver::Window bar = ToolBar();
  RECT rect = {};
  OnDialogThread([&] {
    ::SendMessageW(bar.Handle(), TB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
  });
  const RECT client = bar.ClientScreenRect();
  ::OffsetRect(&rect, client.left, client.top);
  return rect;
}

void Host::OnDialogThread(const std::function<void()>& action) const {
  Dialog().Send(kRunAction, 0, reinterpret_cast<LPARAM>(&action));
}

void Host::OnDialogLoop(const std::function<void()>& action) const {
  ::PostMessageW(window_, kRunAction, 0, reinterpret_cast<LPARAM>(&action));
}

void Host::Focus(driver::User& user, int id, int from, int to) const {
  OnDialogThread([&] {
    ::SetFocus(Edit(id).Handle());
    ::SendMessageW(Edit(id).Handle(), EM_SETSEL, static_cast<WPARAM>(from), to);
  });
  user.WaitUntil("the edit control has the focus", [&] { return Edit(id).HasFocus(); });
}

void Host::Start(HWND window, CWnd* object) {
  window_ = window;
  ::SetWindowTextW(window, os::WideOf(kTitle).c_str());
  AddControl(window, "EDIT", WS_BORDER | ES_AUTOHSCROLL, kFirstEdit, {10, 10, 250, 20});
  AddControl(window, "EDIT", WS_BORDER | ES_MULTILINE | ES_AUTOVSCROLL, kSecondEdit, {10, 40, 250, 40});
  AddControl(window, "BUTTON", BS_PUSHBUTTON, kButton, {10, 90, 60, 22});
  utility_ = std::make_unique<CvUtility>();
  utility_->SetParentWindow(object);
  prepare_(*utility_);
  ::SetFocus(::GetDlgItem(window, kFirstEdit));
}

void Host::Watch(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kRunAction) (*reinterpret_cast<const std::function<void()>*>(lParam))();
  if (message == WM_ENABLE && wParam != FALSE && whenEnabled_) whenEnabled_();
  const bool ofToolBar =
      message == WM_COMMAND && lParam != 0 && ::GetDlgCtrlID(reinterpret_cast<HWND>(lParam)) == kToolBar;
  if (ofToolBar) commands_.push_back(LOWORD(wParam));
}

std::string ClipboardText() {
  std::optional<std::string> text;
  InTime([&] { return (text = os::Services().clipboard->Text(nullptr)).has_value(); });
  return text.value_or("(none)");
}

void SetClipboard(const std::string& text) {
  ASSERT_TRUE(InTime([] { return ::OpenClipboard(nullptr) != FALSE; }));
  ::EmptyClipboard();
  const std::wstring wide = os::WideOf(text);
  const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, (wide.size() + 1) * sizeof(wchar_t));
  auto* const units = static_cast<wchar_t*>(::GlobalLock(memory));
  units[wide.copy(units, wide.size())] = L'\0';
  ::GlobalUnlock(memory);
  ::SetClipboardData(CF_UNICODETEXT, memory);
  ::CloseClipboard();
}

std::unique_ptr<Host> MakeHost(HostKind kind) {
  if (kind == HostKind::Plain) return std::make_unique<PlainHost>();
  return std::make_unique<FrameworkHost>();
}

}  // namespace toolbar_test
