#include "tests/windows/grid/grid_host.h"

#include <array>

namespace grid_test {
namespace {

constexpr UINT kDo = WM_APP + 1;
constexpr UINT kDoLater = WM_APP + 2;

/// Style, extended style, number of controls, place and size in dialog units, no menu, no class, no title, font.
struct Template {
  DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_SETFONT | DS_MODALFRAME;
  DWORD exStyle = 0;
  WORD count = 0;
  short x = 10, y = 10, width = 240, height = 160;
  WORD menu = 0, windowClass = 0, title = 0;
  WORD pointSize = 9;
  std::array<wchar_t, 10> face = {L"ＭＳ ゴシック"};
};
constexpr Template kTemplate;

const DLGTEMPLATE* TemplateData() { return reinterpret_cast<const DLGTEMPLATE*>(&kTemplate); }

class FrameworkHost : public Host, public CDialog {
 public:
  ~FrameworkHost() override { list.reset(); }

  int Run(const std::function<void(Host&)>& fill) override {
    fill_ = fill;
    InitModalIndirect(TemplateData());
    return static_cast<int>(DoModal());
  }
  void Destroy() override { DestroyWindow(); }
  CWnd* Window() override { return this; }

  Handled RouteMessage(const Message& message) override {
    if (message.id == WM_COMMAND && onCommand) onCommand(LOWORD(message.wParam), HIWORD(message.wParam));
    if (message.id != WM_COMMAND && Forward(message.id, message.wParam, message.lParam)) return 0;
    return CDialog::RouteMessage(message);
  }

 protected:
  void Create() override { CreateIndirect(TemplateData()); }
  BOOL OnInitDialog() override {
    SetWindowText(kTitle);
    AddControls();
    if (fill_) fill_(*this);
    return TRUE;
  }
  void DoDataExchange(CDataExchange*) override {
    if (onExchange) onExchange();
  }
};

/// A dialog of the system with a dialog procedure of its own, in 8-bit form.
class PlainHost : public Host {
 public:
  ~PlainHost() override {
    list.reset();
    PlainHost::Destroy();
  }

  int Run(const std::function<void(Host&)>& fill) override {
    fill_ = fill;
    return static_cast<int>(::DialogBoxIndirectParamA(nullptr, TemplateData(), nullptr, &PlainHost::Receive, Self()));
  }
  void Destroy() override {
    if (window_ != nullptr) ::DestroyWindow(std::exchange(window_, nullptr));
  }
  CWnd* Window() override { return CWnd::FromHandle(window_); }

 protected:
  void Create() override {
    ::CreateDialogIndirectParamA(nullptr, TemplateData(), nullptr, &PlainHost::Receive, Self());
  }

 private:
  LPARAM Self() { return reinterpret_cast<LPARAM>(this); }

  static INT_PTR CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
      ::SetWindowLongPtrA(window, GWLP_USERDATA, lParam);
      reinterpret_cast<PlainHost*>(lParam)->Initialise(window);
      return TRUE;
    }
    auto* const host = reinterpret_cast<PlainHost*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
    if (host == nullptr) return FALSE;
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
      ::EndDialog(window, LOWORD(wParam));
      return TRUE;
    }
    if (message == WM_NCDESTROY) host->window_ = nullptr;
    return host->Forward(message, wParam, lParam) ? TRUE : FALSE;
  }
  void Initialise(HWND window) {
    window_ = window;
    ::SetWindowTextA(window, kTitle);
    AddControls();
    if (fill_) fill_(*this);
  }

  HWND window_ = nullptr;
};

}  // namespace

std::unique_ptr<Host> Host::Make(HostKind kind) {
  if (kind == HostKind::Framework) return std::make_unique<FrameworkHost>();
  return std::make_unique<PlainHost>();
}

void Host::Open(const std::function<void(Host&)>& fill) {
  fill_ = fill;
  Create();
  Window()->ShowWindow(SW_SHOW);
  Window()->UpdateWindow();
  driver::WaitForDisplay();  // which has a window that it shows painted once more
  Pump();
}

void Host::AddControls() {
  const auto add = [this](const char* name, const char* text, DWORD style, int id, RECT place) {
    const HWND control =
        ::CreateWindowExA(0, name, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right,
                          place.bottom, Handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    ::SendMessageA(control, WM_SETFONT, static_cast<WPARAM>(::SendMessageA(Handle(), WM_GETFONT, 0, 0)), 0);
  };
  add(WC_LISTVIEWA, "", WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS, kList, {10, 10, 322, 202});
  add("STATIC", "", SS_NOPREFIX, kZone, {10, 230, 320, 16});
  add("EDIT", "", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, kOther, {10, 220, 60, 18});
  add("BUTTON", "OK", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, {200, 220, 60, 20});
  add("BUTTON", "取消", WS_TABSTOP, IDCANCEL, {270, 220, 60, 20});
  ::ShowWindow(Child(kZone), SW_HIDE);
}

bool Host::Forward(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND && onCommand) onCommand(LOWORD(wParam), HIWORD(wParam));
  if (message == kDo || message == kDoLater) {
    (*reinterpret_cast<const std::function<void()>*>(lParam))();
    return true;
  }
  if (message == WM_DRAWITEM && list != nullptr) {
    ++drawn;
    auto* const item = reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
    if (onDraw) {
      onDraw(item);
    } else {
      list->OnDrawItem(item);
    }
    return true;
  }
  if (message != WM_NOTIFY || list == nullptr) return false;
  const auto* const notified = reinterpret_cast<const NMHDR*>(lParam);
  if (notified->idFrom != kList || notified->code != NM_CLICK) return false;
  ++clicks;
  list->ClickItem();
  return true;
}

std::string Host::Text(int row, int col) {
  std::array<char, 386> text = {};
  Do([&] { list->GetItemText(row, col, text.data()); });
  return text.data();
}

driver::Window Host::Editor(int id) {
  for (const driver::Window& child : driver::Window(Handle()).Children()) {
    if (child.Id() == id && child.IsVisible()) return child;
  }
  return {};
}

void Host::Do(const std::function<void()>& action) {
  ::SendMessageA(Handle(), kDo, 0, reinterpret_cast<LPARAM>(&action));
}

void Host::DoLater(const std::function<void()>& action) {
  ::PostMessageA(Handle(), kDoLater, 0, reinterpret_cast<LPARAM>(&action));
}

void Host::Pump() {
  MSG message = {};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

}  // namespace grid_test
