#include "tests/framework/fixtures.h"

TemplateBuilder::TemplateBuilder(DWORD style, std::string_view title) {
  PutLong(style);
  PutLong(0);
  words_.insert(words_.end(), {0, 10, 10, 120, 60, 0, 0});  // item count, place and size, no menu, standard class
  PutText(title);
}

TemplateBuilder& TemplateBuilder::Add(std::string_view className, WORD id, DWORD style, std::string_view text) {
  Align();
  PutLong(style | WS_CHILD | WS_VISIBLE);
  PutLong(0);
  const auto row = static_cast<WORD>(count_ * 12);
  words_.insert(words_.end(), {0, row, 60, 12, id});
  PutText(className);
  PutText(text);
  words_.push_back(0);
  ++count_;
  return *this;
}

const DLGTEMPLATE* TemplateBuilder::Get() {
  constexpr std::size_t kItemCount = 4;
  words_[kItemCount] = count_;
  return reinterpret_cast<const DLGTEMPLATE*>(words_.data());
}

void TemplateBuilder::PutLong(DWORD value) {
  words_.push_back(LOWORD(value));
  words_.push_back(HIWORD(value));
}

void TemplateBuilder::PutText(std::string_view text) {
  for (const char letter : text) words_.push_back(static_cast<WORD>(letter));
  words_.push_back(0);
}

void TemplateBuilder::Align() {
  if (words_.size() % 2 != 0) words_.push_back(0);
}

Handled ScriptedDialog::RouteMessage(const Message& message) {
  if (message.id == kRunScript) {
    if (script) script(*this);
    EndDialog(endsWith);
    return 0;
  }
  if (onMessage) {
    if (const Handled handled = onMessage(message)) return handled;
  }
  return CDialog::RouteMessage(message);
}

BOOL ScriptedDialog::OnInitDialog() {
  PostMessage(kRunScript);
  const BOOL result = CDialog::OnInitDialog();
  if (onInit) onInit(*this);
  return result;
}

PlainHost::PlainHost(bool wide) {
  constexpr const char* kNarrowClass = "framework test host";
  constexpr const wchar_t* kWideClass = L"framework test host (wide)";
  const HINSTANCE module = ::GetModuleHandleW(nullptr);
  if (wide) {
    WNDCLASSW data{};
    data.lpfnWndProc = &PlainHost::Receive;
    data.hInstance = module;
    data.lpszClassName = kWideClass;
    ::RegisterClassW(&data);
    window_ = ::CreateWindowExW(0, kWideClass, L"", WS_OVERLAPPED, 0, 0, 300, 200, nullptr, nullptr, module, nullptr);
  } else {
    WNDCLASSA data{};
    data.lpfnWndProc = &PlainHost::Receive;
    data.hInstance = module;
    data.lpszClassName = kNarrowClass;
    ::RegisterClassA(&data);
    window_ = ::CreateWindowExA(0, kNarrowClass, "", WS_OVERLAPPED, 0, 0, 300, 200, nullptr, nullptr, module, nullptr);
  }
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

PlainHost::~PlainHost() { Destroy(); }

LONG_PTR PlainHost::Procedure() const {
  return ::IsWindowUnicode(window_) != FALSE ? ::GetWindowLongPtrW(window_, GWLP_WNDPROC)
                                             : ::GetWindowLongPtrA(window_, GWLP_WNDPROC);
}

void PlainHost::Destroy() {
  if (window_ != nullptr) ::DestroyWindow(std::exchange(window_, nullptr));
}

LRESULT CALLBACK PlainHost::Receive(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  auto* host = reinterpret_cast<PlainHost*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (host != nullptr && host->onMessage) {
    const auto [handled, result] = host->onMessage(id, wParam, lParam);
    if (handled) return result;
  }
  return ::IsWindowUnicode(window) != FALSE ? ::DefWindowProcW(window, id, wParam, lParam)
                                            : ::DefWindowProcA(window, id, wParam, lParam);
}

HWND OtherHandle(HWND window) {
  constexpr ULONG_PTR kUpperBits = 0xFFFFFFFF00000000;
  return reinterpret_cast<HWND>(reinterpret_cast<ULONG_PTR>(window) ^ kUpperBits);
}

bool PumpUntil(const std::function<bool()>& done) {
  constexpr ULONGLONG kPatienceMs = 30000;
  const ULONGLONG start = ::GetTickCount64();
  while (!done()) {
    if (::GetTickCount64() - start > kPatienceMs) return false;
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
  }
  return true;
}
