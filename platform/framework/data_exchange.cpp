#include "platform/framework/data_exchange.h"

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/framework/detail/wide_text.h"

namespace {

// The control that this step is about; null ends the step.
HWND ControlOf(const CDataExchange* exchange, int id) noexcept {
  return exchange->failed ? nullptr : ::GetDlgItem(WindowRef::HandleOf(exchange->m_pDlgWnd), id);
}

// Whether the window shows this very text (Shift_JIS). It would give some of its codes back as others that mean the
// same.
bool Shows(HWND control, const CString& text) {
  return framework::WideTextOf(control) == framework::ToWide(text.View());
}

std::optional<int> ToNumber(std::string_view text) noexcept {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  if (text.starts_with('+')) text.remove_prefix(1);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

void Fail(CDataExchange* exchange, HWND control) {
  exchange->failed = TRUE;
  ::SetFocus(control);
  ::SendMessageW(control, EM_SETSEL, 0, -1);
}

int IndexOf(HWND control, UINT question) { return static_cast<int>(::SendMessageW(control, question, 0, 0)); }

bool IsRadioButton(HWND control) { return (::SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0; }

// The next control of the same group; null behind the last one.
HWND NextInGroup(HWND control) {
  const HWND next = ::GetWindow(control, GW_HWNDNEXT);
  const bool opensGroup = next != nullptr && (::GetWindowLongPtrW(next, GWL_STYLE) & WS_GROUP) != 0;
  return opensGroup ? nullptr : next;
}

}  // namespace

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
  const HWND control = ControlOf(exchange, id);
  if (control == nullptr) return;
  CString shown;
  WindowRef(control).GetWindowText(shown);
  if (exchange->m_bSaveAndValidate) {
    if (!Shows(control, value)) value = shown;
  } else if (shown != value) {
    framework::SetTextOf(control, value);
  }
}

void DDX_Text(CDataExchange* exchange, int id, int& value) {
  const HWND control = ControlOf(exchange, id);
  if (control == nullptr) return;
  CString text;
  if (!exchange->m_bSaveAndValidate) {
    text.Format("%d", value);
    DDX_Text(exchange, id, text);
    return;
  }
  DDX_Text(exchange, id, text);
  const auto number = ToNumber(text.View());
  if (!number) return Fail(exchange, control);
  value = *number;
}

void DDX_Radio(CDataExchange* exchange, int id, int& value) {
  HWND button = ControlOf(exchange, id);
  if (button == nullptr) return;
  const bool save = exchange->m_bSaveAndValidate != FALSE;
  if (save) value = -1;
  for (int index = 0; button != nullptr; button = NextInGroup(button)) {
    if (!IsRadioButton(button)) continue;
    if (!save) {
      ::SendMessageW(button, BM_SETCHECK, index == value ? BST_CHECKED : BST_UNCHECKED, 0);
    } else if (::SendMessageW(button, BM_GETCHECK, 0, 0) != BST_UNCHECKED) {
      value = index;
    }
    ++index;
  }
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
  const HWND control = ControlOf(exchange, id);
  if (control == nullptr) return;
  if (exchange->m_bSaveAndValidate) {
    value = IndexOf(control, BM_GETCHECK);
    return;
  }
  if (value < BST_UNCHECKED || value > BST_INDETERMINATE) value = BST_CHECKED;
  ::SendMessageW(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

void DDX_CBIndex(CDataExchange* exchange, int id, int& value) {
  const HWND control = ControlOf(exchange, id);
  if (control == nullptr) return;
  if (exchange->m_bSaveAndValidate) {
    value = IndexOf(control, CB_GETCURSEL);
  } else {
    ::SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(static_cast<INT_PTR>(value)), 0);
  }
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
  if (control.m_hWnd != nullptr) return;
  const HWND window = ControlOf(exchange, id);
  if (window != nullptr) control.TakeWindow(window);
}
