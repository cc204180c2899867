#include "dlglib/utility/toolbar/CvToolBar.h"

#include <array>
#include <utility>

#include "dlglib/base/CvGeometry.h"
#include "dlglib/base/CvScaledImages.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/toolbar/CvMetaChar.h"
#include "dlglib/utility/toolbar/insert_text.h"
#include "platform/framework/detail/scale_messages.h"
#include "platform/framework/detail/wide_text.h"
#include "platform/framework/resource_module.h"
#include "platform/os/display.h"
#include "platform/os/os.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvndlg.h"

namespace {

using tool_buttons::Button;
using tool_buttons::KeyAction;
using tool_buttons::Kind;

constexpr UINT kToolBarId = 10003;
constexpr UINT kCarrierId = 10000;
constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | TBSTYLE_TOOLTIPS | CCS_ADJUSTABLE | CCS_TOP;
static_assert(kStyle == 0x50800121);
constexpr RECT kPlace = {0, 0, 100, 10};
constexpr geometry::Size kButtonSize = {23, 22};  // the control's own, pixels at 96 dpi
constexpr int kFocusInset = 3;                    // of the focus's frame in a button, pixels at 96 dpi
constexpr int kLibraryTextSize = 1024;
/// How long a window of another thread may take to answer the paste, in milliseconds.
constexpr UINT kPasteMs = 2000;

void Beep() { os::Services().session->Beep(os::kBeepExclamation); }

void RegisterControls() {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
  ::InitCommonControlsEx(&classes);
}

}  // namespace

/// The window that had the focus when a button was clicked. It may be gone when the choice has been made.
class CvToolBar::FormerFocus {
 public:
  explicit FormerFocus(HWND window) : window_(window), parent_(::GetParent(window)) {}

  /// Whether it is still there, in its place, and takes input.
  [[nodiscard]] bool IsThere() const {
    const bool inPlace = framework::IsSameWindow(::GetParent(window_), parent_);
    return ::IsWindow(window_) != FALSE && inPlace && ::IsWindowEnabled(window_) != FALSE;
  }
  [[nodiscard]] HWND Window() const noexcept { return window_; }
  /// Gives the focus back where closing the dialog has not done it.
  void Restore() const {
    if (IsThere() && !framework::IsSameWindow(::GetFocus(), window_)) ::SetFocus(window_);
  }
  /// A window of another thread that hangs is not waited for.
  void Paste() const {
    if (!IsThere()) return Beep();
    DWORD_PTR result = 0;
    ::SendMessageTimeoutW(window_, WM_PASTE, 0, 0, SMTO_ABORTIFHUNG, kPasteMs, &result);
  }
  /// The same some time after the copy: what another program has copied since is not pasted.
  /// `reader` opens the clipboard, if it is still there.
  void PasteWhenHeld(const std::string& text, HWND reader) const {
    if (!CvCopyEdit::IsOnClipboard(text, ::IsWindow(reader) != FALSE ? reader : nullptr)) return Beep();
    Paste();
  }

 private:
  HWND window_;
  HWND parent_;
};

CvToolBar::CvToolBar(CvWindowTexts* texts) : texts_(texts) { SetTlbFileName(nullptr); }

void CvToolBar::SetTlbFileName(const char* name) { tlbFileName_.AssignStored(EucView(name != nullptr ? name : "*")); }

BOOL CvToolBar::CreateOn(CWnd* parent, int buttonMask) {
  if (m_hWnd != nullptr) return FALSE;
  RegisterControls();
  reflector_.Watch(parent->m_hWnd);  // first, as it may fail for want of memory, and then there is no toolbar
  if (!Create(kStyle, kPlace, parent, kToolBarId)) {
    reflector_.Release();
    return FALSE;
  }
  AddButtons(buttonMask);
  SetTips();
  AutoSize();
  accessible_.Begin(m_hWnd, tree_);
  AddParentTips(parent);
  return TRUE;
}

void CvToolBar::AddImages() {
  scale_ = scale::Scale(os::ThisDisplay().DpiOf(m_hWnd));
  images_.Reset();
  if (NeedsImages() && ShowScaledImages()) return;
  AddBitmap(static_cast<int>(tool_buttons::kCount), IDB_TOOLBAR, ThisModule());
}

/// The control's own images are for 96 dpi and have no outline.
bool CvToolBar::NeedsImages() const {
  return images_ || scale_ != scale::Scale() || os::ThisDisplay().HasHighContrast();
}

/// False, and nothing changed, when the images cannot be had.
bool CvToolBar::ShowScaledImages() {
  constexpr int kCount = static_cast<int>(tool_buttons::kCount);
  const UniqueBitmap strip = scaled_images::LoadBitmapOf(IDB_TOOLBAR, scale_);
  BITMAP info = {};
  if (!strip || ::GetObjectW(strip.Get(), sizeof info, &info) == 0) return false;
  UniqueImageList images(::ImageList_Create(info.bmWidth / kCount, info.bmHeight, ILC_COLOR24 | ILC_MASK, kCount, 0));
  // What is not of the ground's colour is drawn in grey where a button cannot be used.
  const COLORREF ground = ::GetSysColor(COLOR_3DFACE);
  if (!images || ::ImageList_AddMasked(images.Get(), strip.Get(), ground) < 0) return false;
  ::SendMessageW(m_hWnd, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images.Get()));
  const geometry::Size size = scale_.ToScreen(kButtonSize);
  ::SendMessageW(m_hWnd, TB_SETBUTTONSIZE, 0, MAKELPARAM(size.width, size.height));
  std::swap(images_, images);
  return true;
}

/// Not every system says so to the toolbar. The room that the dialog has made stays the dialog's matter.
Handled CvToolBar::OnParentScaled() {
  const scale::Scale now(os::ThisDisplay().DpiOf(m_hWnd));
  const bool isMade = ::SendMessageW(m_hWnd, TB_BUTTONCOUNT, 0, 0) > 0;
  if (now == scale_ || !isMade) return std::nullopt;
  scale_ = now;
  if (ShowScaledImages()) {
    AutoSize();
    FindButtons();
  }
  return std::nullopt;
}

/// The control's own images follow by themselves.
Handled CvToolBar::OnColoursChanged() {
  if (NeedsImages()) static_cast<void>(ShowScaledImages());
  return std::nullopt;
}

void CvToolBar::AddButtons(int buttonMask) {
  buttons_ = tool_buttons::FromMask(buttonMask);
  AddImages();
  for (Button& button : buttons_) {
    TBBUTTON added = {};
    added.iBitmap = button.image;
    added.idCommand = button.command;
    added.fsState = button.enabled ? TBSTATE_ENABLED : TBSTATE_INDETERMINATE;
    added.fsStyle = TBSTYLE_BUTTON;
    CToolBarCtrl::AddButtons(1, &added);
  }
  FindButtons();
}

void CvToolBar::FindButtons() {
  for (Button& button : buttons_) {
    RECT place = {};
    GetItemRect(button.image, &place);
    button.rect = geometry::ToRect(place);
  }
}

/// Set beforehand, in wide form. What is asked for in 8-bit form would be taken for a text of the system's code page.
void CvToolBar::SetTips() const {
  const HWND tips = GetToolTips();
  for (const Button& button : buttons_) {
    std::wstring text = framework::ToWide(tool_buttons::TipOf(button.command));
    TOOLINFOW tool = {};
    tool.cbSize = sizeof tool;
    tool.hwnd = m_hWnd;
    tool.uId = static_cast<UINT_PTR>(button.command);
    tool.lpszText = text.data();
    ::SendMessageW(tips, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

/// A button that a user has moved is a new one for the tips.
Handled CvToolBar::OnChanged() {
  SetTips();
  return std::nullopt;
}

/// The dialog gets a tooltip control that is ready for tools of its own. The buttons' tips are the toolbar's.
void CvToolBar::AddParentTips(CWnd* parent) {
  parentTips_.DestroyWindow();
  if (parentTips_.Create(parent)) parentTips_.Activate(TRUE);
}

Handled CvToolBar::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvToolBar> kRows[] = {
      OnMessage(WM_LBUTTONDOWN, &CvToolBar::OnLeftButtonDown),
      OnMessage(WM_LBUTTONDBLCLK, &CvToolBar::OnLeftDoubleClick),
      OnMessage(framework::kDpiChangedAfterParent, &CvToolBar::OnParentScaled),
      OnMessage(WM_SIZE, &CvToolBar::OnParentScaled),
      OnMessage(WM_PAINT, &CvToolBar::OnParentScaled),
      OnMessage(WM_SYSCOLORCHANGE, &CvToolBar::OnColoursChanged),
      OnMessage(WM_THEMECHANGED, &CvToolBar::OnColoursChanged),
      OnMessage(WM_SETTINGCHANGE, &CvToolBar::OnColoursChanged),
      OnMessage(WM_SETFOCUS, &CvToolBar::OnFocus),
      OnMessage(WM_KILLFOCUS, &CvToolBar::OnFocusLost),
      OnMessage(WM_GETDLGCODE, &CvToolBar::OnDialogCode),
      OnMessage(WM_KEYDOWN, &CvToolBar::OnKey),
      OnReflectedNotify(NM_CUSTOMDRAW, &CvToolBar::OnCustomDraw),
      OnMessage(WM_NOTIFYFORMAT, &CvToolBar::OnNotifyFormat),
      OnNotify(kAnyId, TTN_NEEDTEXTA, &CvToolBar::OnNeedText8),
      OnNotify(kAnyId, TTN_NEEDTEXTW, &CvToolBar::OnNeedText16),
      OnReflectedNotify(TBN_TOOLBARCHANGE, &CvToolBar::OnChanged),
      OnReflectedNotify(TTN_NEEDTEXTA, &CvToolBar::OnNeedText8),
      OnReflectedNotify(TTN_NEEDTEXTW, &CvToolBar::OnNeedText16),
  };
  if (!message.reflected) {
    if (const Handled answered = accessible_.Answer(message)) return answered;
  }
  return Route<CToolBarCtrl>(*this, kRows, message);
}

/// The toolbar's tooltip control is told to ask in 8-bit form: the other form gets no text.
Handled CvToolBar::OnNotifyFormat(const Message& message) {
  if (message.lParam != NF_QUERY) return std::nullopt;
  return NFR_ANSI;
}

Handled CvToolBar::OnNeedText8(NMHDR* header) {
  const std::string_view tip = tool_buttons::TipOf(static_cast<int>(header->idFrom));
  if (tip.empty()) return std::nullopt;
  auto* const request = reinterpret_cast<NMTTDISPINFOA*>(header);
  static_assert(sizeof request->szText == tool_buttons::kTipLimit + 1);
  shift_jis::CopyBounded(request->szText, sizeof request->szText, tip);
  return 0;
}

/// Answered without a text: dialogs that ask in this form put in one of their own.
Handled CvToolBar::OnNeedText16(NMHDR* header) {
  if (tool_buttons::TipOf(static_cast<int>(header->idFrom)).empty()) return std::nullopt;
  return 0;
}

Handled CvToolBar::OnLeftButtonDown(const Message& message) {
  const auto found = tool_buttons::Find(buttons_, geometry::ToPoint(message.Position()));
  const HWND focus = FocusToServe();
  if (!found || focus == nullptr || !IsUsable(buttons_[*found])) return std::nullopt;
  Press(buttons_[*found], FormerFocus(focus));
  return 0;
}

void CvToolBar::Press(const Button& button, const FormerFocus& former) {
  const HWND bar = m_hWnd;
  Act(Button(button), former);
  // The pointer has left the button while the dialog was up, and the toolbar has not noticed.
  if (::IsWindow(bar) != FALSE) ::SendMessageW(bar, TB_SETHOTITEM, static_cast<WPARAM>(-1), 0);
}

/// While keys walk in the toolbar, a button works for what had the focus before.
HWND CvToolBar::FocusToServe() const {
  const HWND focus = ::GetFocus();
  return Is(focus) ? focusBefore_ : focus;
}

/// The second of two quick clicks is a click. Beside the buttons it must not offer to rearrange them.
Handled CvToolBar::OnLeftDoubleClick(const Message& message) {
  return tool_buttons::Find(buttons_, geometry::ToPoint(message.Position())) ? OnLeftButtonDown(message) : 0;
}

// ---------------------------------------------------------------------------------------------------------------------
// keyboard

/// Another program that had the focus in between is nothing to insert into.
Handled CvToolBar::OnFocus(const Message& message) {
  const auto before = reinterpret_cast<HWND>(message.wParam);
  if (::IsChild(::GetAncestor(m_hWnd, GA_ROOT), before)) focusBefore_ = before;
  Walk(std::nullopt, tool_buttons::Step::Forward);
  return std::nullopt;
}

Handled CvToolBar::OnFocusLost() {
  WalkTo(std::nullopt);
  return std::nullopt;
}

Handled CvToolBar::OnDialogCode(const Message& message) {
  const auto* const asked = message.Data<const MSG>();
  const bool isOwn = asked != nullptr && tool_buttons::AsksFor(static_cast<int>(asked->wParam));
  return isOwn ? DLGC_WANTARROWS | DLGC_WANTMESSAGE : DLGC_WANTARROWS;
}

Handled CvToolBar::OnKey(const Message& message) {
  const KeyAction action = tool_buttons::ActionOf(static_cast<int>(message.wParam));
  if (action == KeyAction::Pass) return std::nullopt;
  Run(action);
  return 0;
}

void CvToolBar::Run(KeyAction action) {
  switch (action) {
    case KeyAction::Forward:
      return Walk(walkedTo_, tool_buttons::Step::Forward);
    case KeyAction::Backward:
      return Walk(walkedTo_, tool_buttons::Step::Backward);
    case KeyAction::First:
      return Walk(std::nullopt, tool_buttons::Step::Forward);
    case KeyAction::Last:
      return Walk(std::nullopt, tool_buttons::Step::Backward);
    case KeyAction::Press:
      return PressWalkedTo();
    case KeyAction::Leave:
      return FormerFocus(focusBefore_).Restore();
    case KeyAction::Pass:
      return;
  }
}

void CvToolBar::Walk(std::optional<std::size_t> from, tool_buttons::Step step) {
  std::array<bool, tool_buttons::kCount> usable = {};
  for (std::size_t i = 0; i < usable.size(); ++i) usable[i] = IsUsable(buttons_[i]);
  WalkTo(tool_buttons::NextUsable(usable, from, step));
}

void CvToolBar::WalkTo(std::optional<std::size_t> button) {
  if (button && button != walkedTo_) accessible_.Tell(EVENT_OBJECT_FOCUS, {static_cast<int>(*button) + 1, 0});
  walkedTo_ = button;
  Invalidate();
}

bool CvToolBar::PressButton(std::size_t button) {
  const HWND focus = FocusToServe();
  if (focus == nullptr || !IsUsable(buttons_[button])) return false;
  Press(buttons_[button], FormerFocus(focus));
  return true;
}

bool CvToolBar::FocusButton(std::size_t button) {
  if (!IsUsable(buttons_[button])) return false;
  const LifeWatch watch(*this);
  SetFocus();
  if (watch.Alive()) WalkTo(button);
  return true;
}

void CvToolBar::PressWalkedTo() {
  if (!walkedTo_ || focusBefore_ == nullptr) return;
  const Button button = buttons_[*walkedTo_];
  if (IsUsable(button)) Press(button, FormerFocus(focusBefore_));
}

/// The button that keys have come to has the frame of the focus.
Handled CvToolBar::OnCustomDraw(NMHDR* header) {
  const NMCUSTOMDRAW& request = reinterpret_cast<NMTBCUSTOMDRAW*>(header)->nmcd;
  if (!walkedTo_) return std::nullopt;
  if (request.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYPOSTPAINT;
  if (request.dwDrawStage != CDDS_POSTPAINT) return std::nullopt;
  const int inset = scale_.ToScreen(kFocusInset);
  RECT frame = geometry::ToSystem(buttons_[*walkedTo_].rect);
  ::InflateRect(&frame, -inset, -inset);
  ::DrawFocusRect(request.hdc, &frame);
  return CDRF_DODEFAULT;
}

bool CvToolBar::IsUsable(const Button& button) const { return (GetState(button.command) & TBSTATE_ENABLED) != 0; }

/// The dialogs pump messages, so this object may be gone behind them.
void CvToolBar::Act(const Button& button, const FormerFocus& former) {
  if (button.kind == Kind::MetaChar) return PickMetaChar(button, former);
  const LifeWatch watch(*this);
  const std::string text = button.kind == Kind::Register ? AskRegister() : AskLibraryText();
  former.Restore();
  if (watch.Alive() && !text.empty()) Insert(text, former);
}

void CvToolBar::PickMetaChar(const Button& button, const FormerFocus& former) {
  RECT place = geometry::ToSystem(button.rect);
  ClientToScreen(&place);
  const HWND bar = m_hWnd;
  CvMetaChar picker(this);
  picker.SetButtonRect(place);
  const bool chosen = picker.DoModal() == IDOK;
  former.Restore();
  if (!chosen) return;
  if (picker.HasCopied()) {
    former.PasteWhenHeld(picker.Escape().GetString(), bar);
  } else {
    Beep();
  }
}

std::string CvToolBar::AskLibraryText() const {
  std::array<char, kLibraryTextSize> text = {};
  if (TlbDialog(m_hWnd, 0, tlbFileName_.Text(), text.data(), kLibraryTextSize) <= 0) return {};
  return insert_text::OfLibraryText(EucView(std::string_view(text.data(), text.size()))).bytes();
}

std::string CvToolBar::AskRegister() const {
  const int code = RegDspDialog("レジスタ", m_hWnd, 0);
  return insert_text::OfRegister(*CwSession::GetInstance()->GetRegisterSet(), code).bytes();
}

void CvToolBar::Insert(const std::string& text, const FormerFocus& former) {
  if (!former.IsThere()) return Beep();
  constexpr DWORD kHidden = WS_CHILD | ES_AUTOHSCROLL;
  CvCopyEdit carrier;
  if (carrier.Create(kHidden, {}, this, kCarrierId)) carrier.SetWindowText(text.c_str());
  if (carrier.CopyAll()) {
    const CvWindowTexts::Before before = texts_->LookAt(former.Window());
    const LifeWatch watch(*this);
    former.Paste();
    if (watch.Alive()) texts_->NoteInsertion(before, text);
  } else {
    Beep();
  }
}
