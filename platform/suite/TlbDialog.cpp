#include <windows.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "platform/os/edit_composition.h"
#include "platform/os/sjis_edit.h"
#include "platform/os/sjis_wide.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvndlg.h"
#include "platform/suite/euc_jp.h"
#include "platform/suite/suite_dialog.h"
#include "platform/suite/suite_resource.h"

namespace {

constexpr std::size_t kShownBytes = 1023;
constexpr int kNameBytes = 256;
constexpr std::size_t kEucBytes = 512;
constexpr char kAllLibraries[] = "*";

std::string Shown(const std::string& euc) { return CwEucEncoder::Euc2Sjis(euc, kShownBytes); }

/// Pixels that a text takes in a window's font.
int WidthIn(HWND window, const std::string& sjis) {
  const HDC dc = ::GetDC(window);
  const HGDIOBJ former = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(::SendMessageW(window, WM_GETFONT, 0, 0)));
  SIZE size = {};
  const std::wstring text = os::WideOf(sjis);
  ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
  ::SelectObject(dc, former);
  ::ReleaseDC(window, dc);
  return size.cx;
}

class TextLibraryDialog {
 public:
  explicit TextLibraryDialog(const std::string& library) : library_(library) {}

  [[nodiscard]] const std::optional<std::string>& Chosen() const { return chosen_; }

  INT_PTR Handle(HWND window, UINT message, WPARAM wParam, LPARAM) {
    window_ = window;
    if (message == WM_INITDIALOG) return OnInit();
    return message == WM_COMMAND ? OnCommand(LOWORD(wParam), HIWORD(wParam)) : FALSE;
  }

 private:
  /// The list has the focus.
  INT_PTR OnInit() {
    FillNames();
    Fill(library_);
    ::SetFocus(Control(IDC_LIBRARY_TEXTS));
    return FALSE;
  }

  INT_PTR OnCommand(int id, int code) {
    switch (id) {
      case IDC_LIBRARY_NAME:
        OnName(code);
        return TRUE;
      case IDC_LIBRARY_TEXTS:
        if (code == LBN_DBLCLK) Choose();
        EnableChoice();
        return TRUE;
      case IDOK:
        Choose();
        return TRUE;
      case IDCANCEL:
        ::EndDialog(window_, IDCANCEL);
        return TRUE;
      default:
        return FALSE;
    }
  }

  void OnName(int code) {
    if (code == CBN_EDITCHANGE && !os::IsComposing(NameEdit())) Fill(TypedName());
    if (code == CBN_SELCHANGE) Fill(PickedName());
  }

  void FillNames() {
    const CwTextLibrary& texts = *CwSession::GetInstance()->GetTextLibrary();
    names_ = {kAllLibraries};
    for (std::string& name : texts.GetLibraries()) names_.push_back(std::move(name));
    for (const std::string& name : names_) Send(IDC_LIBRARY_NAME, CB_ADDSTRING, 0, Shown(name));
    ::SendMessageW(Control(IDC_LIBRARY_NAME), CB_LIMITTEXT, kNameBytes - 1, 0);
    os::KeepToShiftJis(NameEdit(), kNameBytes - 1);
    os::KeepCompositionsWhole(NameEdit());
    SetText(IDC_LIBRARY_NAME, Shown(library_));
  }

  void Fill(const std::string& library) {
    texts_ = CwSession::GetInstance()->GetTextLibrary()->GetTexts(library);
    const HWND list = Control(IDC_LIBRARY_TEXTS);
    ::SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    ::SendMessageW(list, LB_RESETCONTENT, 0, 0);
    int width = 0;
    for (const std::string& text : texts_) {
      const std::string shown = Shown(text);
      Send(IDC_LIBRARY_TEXTS, LB_ADDSTRING, 0, shown);
      width = std::max(width, WidthIn(list, shown));
    }
    ::SendMessageW(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width + WidthIn(list, kMargin)), 0);
    ::SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(list, nullptr, TRUE);
    SetText(IDC_LIBRARY_COUNT, std::to_string(texts_.size()) + " 件");
    EnableChoice();
  }

  void EnableChoice() { ::EnableWindow(Control(IDOK), Selected().has_value()); }

  void Choose() {
    const std::optional<std::size_t> selected = Selected();
    if (!selected) return;
    chosen_ = texts_[*selected];
    ::EndDialog(window_, IDOK);
  }

  [[nodiscard]] std::optional<std::size_t> Selected() const {
    const LRESULT index = ::SendMessageW(Control(IDC_LIBRARY_TEXTS), LB_GETCURSEL, 0, 0);
    if (index < 0 || static_cast<std::size_t>(index) >= texts_.size()) return std::nullopt;
    return static_cast<std::size_t>(index);
  }

  [[nodiscard]] std::string TypedName() const {
    wchar_t name[kNameBytes] = L"";
    ::GetDlgItemTextW(window_, IDC_LIBRARY_NAME, name, kNameBytes);
    return CwEucEncoder::Sjis2Euc(os::SjisOf(name, os::kNoNameCharacter).bytes, kEucBytes);
  }
  /// The edit part does not show it yet when the choice is told.
  [[nodiscard]] std::string PickedName() const {
    const LRESULT index = ::SendMessageW(Control(IDC_LIBRARY_NAME), CB_GETCURSEL, 0, 0);
    const bool known = index >= 0 && static_cast<std::size_t>(index) < names_.size();
    return known ? names_[static_cast<std::size_t>(index)] : TypedName();
  }

  [[nodiscard]] HWND Control(int id) const { return ::GetDlgItem(window_, id); }
  [[nodiscard]] HWND NameEdit() const { return ::GetWindow(Control(IDC_LIBRARY_NAME), GW_CHILD); }
  void Send(int id, UINT message, WPARAM wParam, const std::string& sjis) const {
    ::SendMessageW(Control(id), message, wParam, reinterpret_cast<LPARAM>(os::WideOf(sjis).c_str()));
  }
  void SetText(int id, const std::string& sjis) const { ::SetDlgItemTextW(window_, id, os::WideOf(sjis).c_str()); }

  static constexpr const char* kMargin = " ";  ///< behind the longest text

  HWND window_ = nullptr;
  std::string library_;
  std::vector<std::string> names_;
  std::vector<std::string> texts_;
  std::optional<std::string> chosen_;
};

int RunTextLibrary(void* owner, const std::string& library, char* out, std::size_t size) {
  TextLibraryDialog dialog(library);
  if (suite::RunDialog(IDD_TEXT_LIBRARY, owner, &dialog) != IDOK || !dialog.Chosen()) return 0;
  const std::string_view text = euc_jp::Truncate(*dialog.Chosen(), size - 1);
  out[text.copy(out, text.size())] = '\0';
  return 1;
}

}  // namespace

int TlbDialog(void* owner, int, const std::string& library, char* out, int size) {
  if (out == nullptr || size < 1) return 0;
  try {
    return RunTextLibrary(owner, library, out, static_cast<std::size_t>(size));
  } catch (const std::exception&) {
    return 0;
  }
}
