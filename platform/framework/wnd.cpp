#include "platform/framework/wnd.h"

#include <string>

#include "platform/framework/data_exchange.h"
#include "platform/framework/detail/alt_key.h"
#include "platform/framework/detail/procedures.h"
#include "platform/framework/detail/wide_text.h"
#include "platform/framework/detail/window_table.h"

namespace {

framework::WindowTable& Table() { return framework::WindowTable::Instance(); }

bool IsOfThisProcess(HWND window) noexcept {
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  return process == ::GetCurrentProcessId();
}

}  // namespace

CWnd::CWnd() noexcept = default;

CWnd::~CWnd() {
  for (LifeWatch* watch = watches_; watch != nullptr; watch = watch->next_) watch->object_ = nullptr;
  if (ownsWindow_) ::DestroyWindow(m_hWnd);
  Table().Unbind(*this);
}

CWnd* CWnd::FromHandle(WindowArg window) { return framework::ObjectOf(window); }

CWnd* CWnd::FromHandlePermanent(WindowArg window) {
  return window.handle != nullptr ? Table().Attached(window.handle) : nullptr;
}

BOOL CWnd::Attach(WindowArg window) {
  return Table().TryBind(*this, window.handle, framework::Binding::Attached, false) ? TRUE : FALSE;
}

HWND CWnd::Detach() { return Table().Unbind(*this); }

BOOL CWnd::TakeWindow(WindowArg window) {
  if (!IsOfThisProcess(window.handle)) return FALSE;
  return Table().TryBind(*this, window.handle, framework::Binding::Subclassed, false) ? TRUE : FALSE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
  return TakeWindow(::GetDlgItem(HandleOf(parent), static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow() {
  const auto entry = Table().Find(m_hWnd);
  if (entry == nullptr || entry->object != this || !entry->TakesPart()) return nullptr;
  return Table().Unbind(*this);
}

BOOL CWnd::Create(const char* className, const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateEx(0, className, text, style, rect, parent, id);
}

BOOL CWnd::CreateEx(DWORD exStyle, const char* className, const char* text, DWORD style, const RECT& rect, CWnd* parent,
                    UINT id) {
  if (m_hWnd != nullptr) return FALSE;
  const bool isChild = (style & WS_CHILD) != 0;
  const bool byItself = rect.left == CW_USEDEFAULT;
  const HWND owner = HandleOf(parent);
  // Only a child has an ID; for any other window the same argument is a menu.
  const auto idOrMenu = reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(isChild ? id : 0U));
  const framework::CreationScope scope(*this, owner, id);
  const std::wstring wideText = framework::ToWide(text != nullptr ? text : "");
  const std::wstring wideClass = framework::ToWide(className);
  const HWND window = ::CreateWindowExW(exStyle, wideClass.c_str(), text != nullptr ? wideText.c_str() : nullptr, style,
                                        rect.left, rect.top, byItself ? CW_USEDEFAULT : rect.right - rect.left,
                                        byItself ? CW_USEDEFAULT : rect.bottom - rect.top, owner, idOrMenu,
                                        ::GetModuleHandleW(nullptr), nullptr);
  if (window == nullptr) Table().Unbind(*this);
  if (scope.BindingFailed()) ::DestroyWindow(window);  // it is nobody's
  return window != nullptr && Is(window) ? TRUE : FALSE;
}

BOOL CWnd::DestroyWindow() { return m_hWnd != nullptr ? ::DestroyWindow(m_hWnd) : FALSE; }

BOOL CWnd::UpdateData(BOOL save) {
  if (m_hWnd == nullptr) return FALSE;
  CDataExchange exchange{save, this};
  DoDataExchange(&exchange);
  return exchange.failed ? FALSE : TRUE;
}

BOOL CWnd::OfferMessage(MSG* message) noexcept {
  framework::NoteKeyWithAlt(message->hwnd, message->message, message->wParam);
  try {
    for (HWND window = message->hwnd; ::IsWindow(window) != FALSE; window = ::GetAncestor(window, GA_PARENT)) {
      CWnd* const object = FromHandlePermanent(window);
      if (object != nullptr && object->PreTranslateMessage(message)) return TRUE;
    }
    return FALSE;
  } catch (...) {
    return TRUE;
  }
}

LRESULT CWnd::CallDefault(const Message& message) {
  const auto entry = Table().Find(message.window);
  if (entry == nullptr) return ::DefWindowProcW(message.window, message.id, message.wParam, message.lParam);
  if (entry->binding == framework::Binding::Dialog) {
    entry->skipOnce = true;
    const LRESULT result = ::DefDlgProcW(message.window, message.id, message.wParam, message.lParam);
    entry->skipOnce = false;
    return result;
  }
  if (entry->previous == nullptr) return ::SendMessageW(message.window, message.id, message.wParam, message.lParam);
  return ::CallWindowProcW(entry->previous, message.window, message.id, message.wParam, message.lParam);
}

Handled CWnd::RouteMessage(const Message&) { return std::nullopt; }

void CWnd::DoDataExchange(CDataExchange*) {}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

void CWnd::PostNcDestroy() {}

LifeWatch::LifeWatch(CWnd& object) noexcept : object_(&object), next_(object.watches_) { object.watches_ = this; }

LifeWatch::~LifeWatch() {
  if (object_ == nullptr) return;
  LifeWatch** link = &object_->watches_;
  while (*link != this) link = &(*link)->next_;
  *link = next_;
}

bool LifeWatch::Alive() const noexcept { return object_ != nullptr; }
