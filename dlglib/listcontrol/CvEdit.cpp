#include "dlglib/listcontrol/CvEdit.h"

#include <algorithm>

#include "dlglib/listcontrol/CvGrid.h"
#include "platform/framework/detail/wide_text.h"
#include "platform/framework/gdi.h"
#include "platform/framework/message_map.h"
#include "platform/os/os.h"

using framework::ToShiftJis;
using framework::ToWide;

namespace {

constexpr wchar_t kFirstPrintable = 0x20;

[[nodiscard]] std::size_t BytesOf(wchar_t unit) { return ToShiftJis({&unit, 1}).size(); }

/// Counts up as long as it lives.
class Scope {
 public:
  explicit Scope(int& counter) noexcept : counter_(counter) { ++counter_; }
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
  ~Scope() { --counter_; }

 private:
  int& counter_;
};

void Refuse() { os::Services().session->Beep(os::kBeepDefault); }

}  // namespace

CvEdit::CvEdit(CvGrid* grid, int byteLimit) noexcept : grid_(grid), byteLimit_(byteLimit) {}

void CvEdit::Part() noexcept {
  grid_ = nullptr;
  cell_.reset();
}

/// Nothing may fail between cell and text: a box that shows the text of one cell must not be another one's.
void CvEdit::StandFor(grid::CellPosition cell, const char* text, grid::BoxModes modes) {
  const std::wstring shown = ToWide(text);
  cell_ = cell;
  modes_ = modes;
  composing_ = false;
  origin_ = grid::TextOrigin::Given;
  SetQuietly(shown);
}

void CvEdit::ShowAt(const grid::Place& place) {
  SetWindowPos(HWND_TOP, place.x, place.y, place.width, place.height, SWP_SHOWWINDOW);
  SetFocus();
  SetSel(0, -1);
  ScrollCaret();
}

void CvEdit::Leave() {
  if (!cell_ || !IsWindow()) return;
  if (composing_) PutBackComposed();
  origin_ = Origin();
  const std::wstring text = WideText();
  const std::wstring kept(grid::KeptWhenLeft(modes_, text));
  Commit(kept);
  if (kept != text) SetQuietly(kept);
}

/// An open composition may have changed the text, or may have been given up and left it as it was.
grid::TextOrigin CvEdit::Origin() const {
  return quiet_ == 0 && WideText() != accepted_ ? grid::TextOrigin::Typed : origin_;
}

void CvEdit::CaretToEnd() {
  const auto end = static_cast<int>(WideText().size());
  SetSel(end, end);
  ScrollCaret();
}

void CvEdit::Hide() { SetWindowPos(HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_HIDEWINDOW); }

void CvEdit::ShowText(const char* text) {
  const std::wstring wide = ToWide(text);
  origin_ = grid::TextOrigin::Given;
  if (WideText() == wide) return;
  int start = 0;
  int end = 0;
  GetSel(&start, &end);
  SetQuietly(wide);
  SetSel(start, end);
}

void CvEdit::GiveText(const std::string& text, grid::TextOrigin origin) {
  origin_ = origin;
  SetQuietly(ToWide(text));
  if (grid_ != nullptr && cell_ && IsWindow()) grid_->Commit(*cell_, {WideText(), text, origin});
}

void CvEdit::Commit(std::wstring_view shown) {
  if (grid_ != nullptr && cell_ && IsWindow()) grid_->Commit(*cell_, shown, origin_);
}

Handled CvEdit::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvEdit> kRows[] = {
      OnMessage(WM_GETDLGCODE, &CvEdit::OnDialogCode),
      OnMessage(WM_KEYDOWN, &CvEdit::OnInput),
      OnMessage(WM_SYSKEYDOWN, &CvEdit::OnInput),
      OnMessage(WM_KEYUP, &CvEdit::OnInput),
      OnMessage(WM_SYSKEYUP, &CvEdit::OnInput),
      OnMessage(WM_CHAR, &CvEdit::OnInput),
      OnMessage(WM_SETFOCUS, &CvEdit::OnFocus),
      OnMessage(WM_CHAR, &CvEdit::OnChar),
      OnMessage(WM_KEYDOWN, &CvEdit::OnDeleteKey),
      OnMessage(EM_REPLACESEL, &CvEdit::OnReplace),
      OnMessage(WM_PASTE, &CvEdit::OnPaste),
      OnMessage(WM_CUT, &CvEdit::OnCut),
      OnMessage(WM_CLEAR, &CvEdit::OnClear),
      OnMessage(WM_SETTEXT, &CvEdit::OnSetText),
      OnMessage(WM_IME_STARTCOMPOSITION, &CvEdit::OnStartComposition),
      OnMessage(WM_IME_ENDCOMPOSITION, &CvEdit::OnEndComposition),
      OnReflectedCommand(EN_CHANGE, &CvEdit::OnChange),
      OnReflectedCommand(EN_KILLFOCUS, &CvEdit::OnKillFocus),
  };
  const auto shared = weak_from_this().lock();
  return Route<CEdit>(*this, kRows, message);
}

/// Keys of the grid are none of the box.
Handled CvEdit::OnInput(const Message& message) { return grid_ != nullptr ? grid_->OnInput(message) : std::nullopt; }

/// Keys of the grid are none of the dialog, and those of a composition are its own.
Handled CvEdit::OnDialogCode(const Message& message) {
  if (composing_) return CallDefault(message) | DLGC_WANTALLKEYS;
  if (grid_ == nullptr || !grid_->WantsKey(message)) return std::nullopt;
  return CallDefault(message) | DLGC_WANTMESSAGE;
}

Handled CvEdit::OnFocus() {
  if (grid_ != nullptr) grid_->OnFocusChange();
  return std::nullopt;
}

// Double-byte characters come in one piece here, also those that were sent as two bytes.
Handled CvEdit::OnChar(const Message& message) {
  const auto typed = static_cast<wchar_t>(message.wParam);
  grid::TextRange marked = Selection();
  if (typed == VK_BACK) {
    if (marked.from == marked.to && marked.from > 0) --marked.from;
    return DeleteBeyondBox(marked) ? Handled(0) : std::nullopt;
  }
  if (typed < kFirstPrintable) return std::nullopt;
  if (!grid::Lets(modes_, typed)) return 0;
  if (Fits(typed) && !IsBeyondBoxWithout(marked)) return std::nullopt;
  Refuse();
  return 0;
}

// ---- A box that does not scroll takes no more text than it has room for. A cell's text may be wider all the same, and
// then there are systems whose boxes lose characters in front of the caret, or write in front of their text, with every
// change. So nothing is added to such a text, and the box is given the rest of it whole when something is deleted.

Handled CvEdit::OnDeleteKey(const Message& message) {
  if (message.wParam != VK_DELETE) return std::nullopt;
  grid::TextRange marked = Selection();
  if (marked.from == marked.to) ++marked.to;
  if (!IsBeyondBoxWithout(marked)) return std::nullopt;
  if (::GetKeyState(VK_SHIFT) < 0) Copy();
  DeleteBeyondBox(marked);
  return 0;
}

Handled CvEdit::OnReplace(const Message& message) {
  const auto* const text = reinterpret_cast<const wchar_t*>(message.lParam);
  if (!IsBeyondBoxWithout(Selection())) return std::nullopt;
  if (text == nullptr || *text == L'\0') {
    DeleteBeyondBox(Selection());
  } else {
    Refuse();
  }
  return 0;
}

Handled CvEdit::OnPaste() {
  if (!IsBeyondBoxWithout(Selection())) return std::nullopt;
  Refuse();
  return 0;
}

Handled CvEdit::OnCut() {
  if (!IsBeyondBoxWithout(Selection())) return std::nullopt;
  Copy();
  DeleteBeyondBox(Selection());
  return 0;
}

Handled CvEdit::OnClear() { return DeleteBeyondBox(Selection()) ? Handled(0) : std::nullopt; }

grid::TextRange CvEdit::Selection() const {
  int start = 0;
  int end = 0;
  GetSel(&start, &end);
  return {static_cast<std::size_t>(std::max(start, 0)), static_cast<std::size_t>(std::max(end, 0))};
}

bool CvEdit::IsBeyondBoxWithout(grid::TextRange part) const {
  const std::wstring rest = grid::Without(WideText(), part);
  const ClientDc dc(m_hWnd);
  const Selected font(dc.Get(), reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
  SIZE size{};
  ::GetTextExtentPoint32W(dc.Get(), rest.data(), static_cast<int>(rest.size()), &size);
  RECT room{};
  ::SendMessageW(m_hWnd, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
  return size.cx > room.right - room.left;
}

/// False, and nothing changed, when the rest has room: then the box can do it by itself.
bool CvEdit::DeleteBeyondBox(grid::TextRange part) {
  if (!IsBeyondBoxWithout(part)) return false;
  const std::wstring text = WideText();
  const auto caret = static_cast<int>(std::min(part.from, text.size()));
  ::SetWindowTextW(m_hWnd, grid::Without(text, part).c_str());
  SetSel(caret, caret);
  return true;
}

/// A text given as a whole replaces all of the former one; none of it counts as what was there before.
Handled CvEdit::OnSetText() {
  accepted_.clear();
  if (quiet_ == 0) origin_ = grid::TextOrigin::Typed;
  return std::nullopt;
}

Handled CvEdit::OnStartComposition() {
  composing_ = true;
  const grid::TextRange marked = Selection();
  composed_ = {WideText(), marked.from, marked.to};
  return std::nullopt;
}

/// One that is given up puts back what it has displaced; any other is committed, once.
LRESULT CvEdit::OnEndComposition(const Message& message) {
  const bool wasOpen = composing_;
  const LRESULT result = CallDefault(message);
  if (wasOpen && os::IsGivenUp(composed_, WideText())) {
    PutBackComposed();
  } else {
    composing_ = false;
    OnChange();
  }
  return result;
}

/// The cell has kept its text meanwhile.
void CvEdit::PutBackComposed() {
  composing_ = false;
  SetQuietly(composed_.text);
  SetSel(static_cast<int>(composed_.markedFrom), static_cast<int>(composed_.markedTo));
}

/// What is too long, and what Shift_JIS does not know, shows as the cell will hold it.
void CvEdit::OnChange() {
  if (quiet_ > 0 || composing_) return;  // the end of a composition commits it once
  const std::wstring typed = WideText();
  origin_ = Origin();
  const std::wstring held = ToWide(ToShiftJis(typed));
  const auto excess = grid::Excess(accepted_, held, static_cast<std::size_t>(byteLimit_), BytesOf);
  std::wstring kept = held;
  if (excess) kept.erase(excess->from, excess->to - excess->from);
  Commit(kept);
  ShowHeld(typed, held);
  Remove(excess);
  accepted_ = WideText();
}

void CvEdit::ShowHeld(std::wstring_view typed, const std::wstring& held) {
  if (held == typed) return;
  int start = 0;
  int end = 0;
  GetSel(&start, &end);
  SetQuietly(held);
  SetSel(end, end);
}

void CvEdit::Remove(const std::optional<grid::TextRange>& excess) {
  if (!excess) return;
  const Scope quiet(quiet_);
  SetSel(static_cast<int>(excess->from), static_cast<int>(excess->to));
  ReplaceSel("");
  Refuse();
}

void CvEdit::OnKillFocus() {
  Leave();
  if (grid_ != nullptr) grid_->OnFocusChange();
}

std::wstring CvEdit::WideText() const { return framework::WideTextOf(m_hWnd); }

bool CvEdit::Fits(wchar_t typed) const {
  return grid::MayType(WideText(), Selection(), typed, static_cast<std::size_t>(byteLimit_), BytesOf);
}

/// A composition that is open meanwhile and given up then must not put back what stood there before.
void CvEdit::SetQuietly(const std::wstring& text) {
  const Scope quiet(quiet_);
  ::SetWindowTextW(m_hWnd, text.c_str());
  accepted_ = WideText();
  if (composing_) composed_ = {accepted_, accepted_.size(), accepted_.size()};
}
