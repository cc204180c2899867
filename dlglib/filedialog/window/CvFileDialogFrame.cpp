// The browser's frame: its controls and their places, its areas, its keys, and presses that end the edit of a name.
#include <algorithm>
#include <iterator>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/filedialog/browser/browser_keys.h"
#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/exceptions.h"
#include "platform/framework/gdi.h"

using filedialog::HotArea;
using filedialog::ListCommand;
using filedialog::Point;
using filedialog::Rect;
using filedialog::Size;
using LabelEnd = filedialog::FileBrowser::LabelEnd;

namespace {

Point ToPoint(POINT at) { return {at.x, at.y}; }

/// The rectangle of a child in client coordinates of its dialog.
Rect RectInDialog(const WindowRef& dialog, HWND control) {
  RECT rect{};
  ::GetWindowRect(control, &rect);
  dialog.ScreenToClient(&rect);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

// A pointer that a program only pretends has never come in, so it never leaves.
bool IsPointerOver(const WindowRef& window) {
  POINT at{};
  ::GetCursorPos(&at);
  return window.Is(::WindowFromPoint(at));
}

/// Some systems add a border to the height that is asked for.
void SetFaceHeight(const ComboBoxRef& box, int height) {
  box.SetItemHeight(-1, static_cast<UINT>(height));
  const int added = box.GetItemHeight(-1) - height;
  if (added != 0) box.SetItemHeight(-1, static_cast<UINT>(height - added));
}

/// The box itself would take the height of its rows only if it drew them itself.
void SetRowHeight(const ComboBoxRef& box, int height) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (::GetComboBoxInfo(box.m_hWnd, &parts)) ListBoxRef(parts.hwndList).SetItemHeight(0, static_cast<UINT>(height));
}

BOOL CALLBACK AddMonitor(HMONITOR, HDC, RECT* rect, LPARAM monitors) noexcept {
  try {
    reinterpret_cast<std::vector<Rect>*>(monitors)->push_back(
        {static_cast<int>(rect->left), static_cast<int>(rect->top), static_cast<int>(rect->right),
         static_cast<int>(rect->bottom)});
    return TRUE;
  } catch (...) {  // nothing may be thrown through the system
    return FALSE;
  }
}

/// The rectangles of all monitors on the screen; none when they cannot all be had.
std::vector<Rect> Monitors() {
  std::vector<Rect> monitors;
  if (!::EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&monitors))) return {};
  return monitors;
}

/// A caption lies right above the client area, as far from the sides as that.
filedialog::CaptionStrip CaptionOf(HWND dialog) {
  RECT window{};
  POINT client{};
  ::GetWindowRect(dialog, &window);
  ::ClientToScreen(dialog, &client);
  const int height = ::GetSystemMetrics(SM_CYCAPTION);
  return {.inset = static_cast<int>(client.x - window.left),
          .top = static_cast<int>(client.y - window.top) - height,
          .height = height};
}

bool IsPress(UINT message) {
  constexpr UINT kPresses[] = {WM_LBUTTONDOWN,   WM_LBUTTONDBLCLK,  WM_RBUTTONDOWN,   WM_RBUTTONDBLCLK,
                               WM_MBUTTONDOWN,   WM_MBUTTONDBLCLK,  WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK,
                               WM_NCRBUTTONDOWN, WM_NCRBUTTONDBLCLK};
  return std::find(std::begin(kPresses), std::end(kPresses), message) != std::end(kPresses);
}

/// Whether the step that has ended the edit of a name is over by that.
bool IsRefusal(filedialog::Reply<LabelEnd> end) { return !end || *end == LabelEnd::Refused; }

}  // namespace

// ---------------------------------------------------------------------------------------------------------------------
// start

/// A browser that is made only in part is never shown: it would save a layout that it has not read.
BOOL CvFileDialog::OnInitDialog() {
  try {
    Start();
  } catch (...) {
    EndDialog(IDCANCEL);
  }
  return FALSE;  // the list has the focus
}

void CvFileDialog::Start() {
  CDialog::OnInitDialog();
  PlaceButtons();
  RegisterTips();
  list_.TakeControl(this, [this] { browser_.SelectionChanged(); });
  locationBar_.TakeControl(this, [this](std::optional<std::size_t> row) { browser_.ChoosePlace(row); });
  if (!browser_.Start()) return;
  menus_.Load();
  PlaceOnScreen();
  locationBar_.EnableWindow(!browser_.Record().folderFixed);
  initialised_ = true;
  browser_.Started();
}

void CvFileDialog::PlaceButtons() {
  constexpr int kGap = 2;
  static constexpr struct {
    HotArea area;
    int id;
  } kButtons[] = {{HotArea::Back, IDC_BACK},
                  {HotArea::Up, IDC_UP},
                  {HotArea::NewFolder, IDC_CREATE_FOLDER},
                  {HotArea::View, IDC_VIEW}};
  RECT view{};
  ::GetWindowRect(::GetDlgItem(m_hWnd, IDC_VIEW), &view);
  ScreenToClient(&view);
  std::vector<filedialog::Size> sizes;
  for (const auto& button : kButtons) sizes.push_back(navigation_.ImageSize(button.area));
  const auto row = filedialog::RowEndingAt(view.right, view.top, sizes, kGap);
  for (std::size_t i = 0; i < row.size(); ++i) {
    const HWND button = ::GetDlgItem(m_hWnd, kButtons[i].id);
    ::MoveWindow(button, row[i].left, row[i].top, row[i].width(), row[i].height(), FALSE);
    ::ShowWindow(button, SW_HIDE);
    ::EnableWindow(button, FALSE);
  }
}

void CvFileDialog::RegisterTips() {
  static constexpr struct {
    int id;
    const char* text;
  } kTips[] = {{IDC_VIEW, "表示メニュー"},
               {IDC_CREATE_FOLDER, "新しいフォルダの作成"},
               {IDC_UP, "１つ上のホルダに移動"},  // so it has always been written
               {IDC_BACK, "直前に表示していたフォルダに移動"},
               {IDC_NAME_LABEL, "最近使用したファイル数を変更"}};
  tips_ = std::make_unique<CvToolTip>(this);
  for (const auto& tip : kTips) tips_->AddTool(tip.id, RECT{}, tip.text);
  PlaceAreas();
}

void CvFileDialog::PlaceOnScreen() {
  RECT window{};
  GetWindowRect(&window);
  minimum_ = {window.right - window.left, window.bottom - window.top};
  MatchItemHeights();
  RememberControls();
  const Size screen{::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
  const Rect place = filedialog::BroughtIntoSight(browser_.SavedPlace(minimum_, screen), CaptionOf(m_hWnd), Monitors());
  SetWindowPos(nullptr, place.left, place.top, place.width(), place.height(), SWP_NOZORDER | SWP_NOACTIVATE);
  ArrangeControls();
}

/// The three boxes are equally high, and so are the rows of places and of names. Faces and rows have room for an icon.
void CvFileDialog::MatchItemHeights() {
  constexpr int kIconRoom = 16;
  constexpr int kFaceRoom = kIconRoom + 2;
  const ComboBoxRef names(::GetDlgItem(m_hWnd, IDC_FILE_NAME));
  const ComboBoxRef kinds(::GetDlgItem(m_hWnd, IDC_FILE_KIND));
  const int face = std::max(names.GetItemHeight(-1), kFaceRoom);
  for (const ComboBoxRef& box : {names, kinds, ComboBoxRef(locationBar_.m_hWnd)}) SetFaceHeight(box, face);
  SetRowHeight(names, std::max(names.GetItemHeight(0), kIconRoom));
  locationBar_.SetItemHeight(0, static_cast<UINT>(names.GetItemHeight(0)));
}

// ---------------------------------------------------------------------------------------------------------------------
// keys and presses

BOOL CvFileDialog::PreTranslateMessage(MSG* message) {
  list_.SplitDoubleClick(message);
  return TakePress(*message) || RunKey(*message) ? TRUE : CDialog::PreTranslateMessage(message);
}

/// As a click on the area does, its key ends the edit of a name first.
bool CvFileDialog::RunAreaKey(int key) {
  const auto area = filedialog::AreaOfAltKey(key);
  if (area && !IsRefusal(browser_.FinishLabel())) RunArea(*area);
  return area.has_value();
}

bool CvFileDialog::RunKey(const MSG& message) {
  if (escWatch_.Takes(message)) return true;
  const int key = static_cast<int>(message.wParam);
  if (message.message == WM_SYSKEYDOWN) return RunAreaKey(key);
  if (message.message != WM_KEYDOWN || !list_.Is(message.hwnd)) return false;
  const auto command = filedialog::ListCommandOf(key);
  if (command == ListCommand::Up) OnUp();
  if (command == ListCommand::Rename) OnRename();
  if (command == ListCommand::Delete) OnDelete();
  return command.has_value();
}

/// Gives an edited name before a press of a mouse button does its work: the list is filled anew and takes the focus,
/// which would let go of a pressed button, and put another row below the second half of a double click. True for a
/// press that must not be acted on.
bool CvFileDialog::TakePress(const MSG& message) {
  if (!IsPress(message.message)) return false;
  const EditRef edit = list_.GetEditControl();
  const bool endsEdit = edit.m_hWnd != nullptr && !edit.Is(message.hwnd);
  if (endsEdit) {
    press_ = Press::Taken;  // also when an exception ends it: the rows may have moved
    if (!FinishByPress(message)) press_ = Press::EndedEdit;
  } else if (message.message != WM_LBUTTONDBLCLK) {
    press_ = Press::Plain;
  }
  return press_ == Press::Taken;
}

/// Whether the press that gives the name has thereby done its work.
bool CvFileDialog::FinishByPress(const MSG& message) {
  filedialog::Reply<LabelEnd> end = LabelEnd::Refused;  // also what an exception makes of it
  const AtScopeEnd cancelled([&] {
    // A message has taken the release of the button, or the press is lost: it would not close the browser.
    if (end == LabelEnd::Refused && m_hWnd != nullptr && PressesCancel(message)) PostMessage(WM_COMMAND, IDCANCEL);
  });
  end = browser_.FinishLabel();
  return IsRefusal(end) || (end == LabelEnd::Renamed && list_.Is(message.hwnd));
}

bool CvFileDialog::PressesCancel(const MSG& message) const {
  if (message.message == WM_NCLBUTTONDOWN) return message.wParam == HTCLOSE && Is(message.hwnd);
  return message.message == WM_LBUTTONDOWN && WindowRef(::GetDlgItem(m_hWnd, IDCANCEL)).Is(message.hwnd);
}

// ---------------------------------------------------------------------------------------------------------------------
// frame

void CvFileDialog::OnSize() {
  if (!initialised_) return;
  ArrangeControls();
  RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void CvFileDialog::OnGetMinMaxInfo(const Message& message) {
  if (initialised_) message.Data<MINMAXINFO>()->ptMinTrackSize = {minimum_.width, minimum_.height};
}

filedialog::Size CvFileDialog::ClientSize() const {
  RECT client{};
  GetClientRect(&client);
  return {client.right, client.bottom};
}

void CvFileDialog::RememberControls() {
  startClient_ = ClientSize();
  for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const auto anchor = filedialog::AnchorOf(::GetDlgCtrlID(child));
    if (anchor) controls_.push_back({child, RectInDialog(*this, child), *anchor});
  }
}

/// A combo box that is given its own height keeps that of its list.
void CvFileDialog::ArrangeControls() {
  const filedialog::Size client = ClientSize();
  const filedialog::Size growth{client.width - startClient_.width, client.height - startClient_.height};
  for (const AnchoredControl& control : controls_) {
    const Rect rect = filedialog::Anchored(control.start, control.anchor, growth);
    ::SetWindowPos(control.window, nullptr, rect.left, rect.top, rect.width(), rect.height(),
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
  }
  list_.ArrangeIcons();
  PlaceAreas();
}

void CvFileDialog::PlaceAreas() {
  static constexpr struct {
    HotArea area;
    int id;
  } kAreas[] = {{HotArea::View, IDC_VIEW},
                {HotArea::NewFolder, IDC_CREATE_FOLDER},
                {HotArea::Up, IDC_UP},
                {HotArea::Back, IDC_BACK},
                {HotArea::Label, IDC_NAME_LABEL}};
  for (const auto& place : kAreas) {
    const Rect rect = RectInDialog(*this, ::GetDlgItem(m_hWnd, place.id));
    navigation_.Areas().Place(place.area, rect);
    if (tips_ != nullptr) tips_->SetToolRect(place.id, {rect.left, rect.top, rect.right, rect.bottom});
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// areas

void CvFileDialog::OnPaint() {
  const PaintDc dc(m_hWnd);
  navigation_.Paint(dc.Get());
}

void CvFileDialog::OnMouseMove(const Message& message) {
  if (viewMenuOpen_) return;
  navigation_.Areas().Move(ToPoint(message.Position()));
  navigation_.Show(*this);
  if (tips_ != nullptr) tips_->MouseMove(message.Position());
  WatchPointer();
}

/// Asks to be told when the pointer leaves the dialog, as it may go from a hot area straight to a control.
void CvFileDialog::WatchPointer() const {
  if (!IsPointerOver(*this)) return;
  TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, m_hWnd, 0};
  ::TrackMouseEvent(&track);
}

void CvFileDialog::OnMouseLeave() {
  if (viewMenuOpen_ || buttonDown_) return;
  constexpr Point kNowhere{-32768, -32768};
  navigation_.Areas().Move(kNowhere);
  navigation_.Show(*this);
}

void CvFileDialog::OnButtonDown(const Message& message) {
  if (tips_ != nullptr) tips_->Hide();
  if (IsRefusal(browser_.FinishLabel())) return;
  buttonDown_ = true;
  SetCapture();
  const auto area = navigation_.Areas().Press(ToPoint(message.Position()), browser_.Record().folderFixed);
  navigation_.Show(*this);
  if (area) RunArea(*area);
}

void CvFileDialog::OnButtonUp(const Message& message) {
  buttonDown_ = false;
  if (Is(::GetCapture())) ::ReleaseCapture();
  navigation_.Areas().Release(ToPoint(message.Position()));
  navigation_.Show(*this);
  WatchPointer();
  if (tips_ != nullptr) tips_->MouseMove(message.Position());
}

void CvFileDialog::OnRightButtonDown() {
  if (tips_ != nullptr) tips_->Hide();
}

// Another window took the mouse: the release will not come here.
void CvFileDialog::OnCaptureLost() {
  if (buttonDown_ && !areaRuns_) ReleaseAreas();
}

void CvFileDialog::ReleaseAreas() {
  buttonDown_ = false;
  if (Is(::GetCapture())) ::ReleaseCapture();
  POINT at{};
  ::GetCursorPos(&at);
  ScreenToClient(&at);
  navigation_.Areas().Release(ToPoint(at));
  navigation_.Show(*this);
  WatchPointer();
}

void CvFileDialog::RunArea(HotArea area) {
  areaRuns_ = true;
  const AtScopeEnd end([this] {
    if (m_hWnd != nullptr) EndArea();
  });
  StartArea(area);
}

void CvFileDialog::EndArea() noexcept {
  areaRuns_ = ::IsWindowVisible(::GetDlgItem(m_hWnd, IDC_RECENT_COUNT)) != FALSE;  // until it closes
  if (areaRuns_ || Is(::GetCapture())) return;
  try {
    ReleaseAreas();
  } catch (...) {
    Invalidate();  // they are released, and not all of them drawn so
  }
}

void CvFileDialog::StartArea(HotArea area) {
  switch (area) {
    case HotArea::View:
      OnViewMenu();
      break;
    case HotArea::NewFolder:
      OnNewFolder();
      break;
    case HotArea::Up:
      OnUp();
      break;
    case HotArea::Back:
      OnBack();
      break;
    case HotArea::Label:
      ShowCountBox();
      break;
  }
}

void CvFileDialog::ShowCountBox() {
  const ComboBoxRef box(::GetDlgItem(m_hWnd, IDC_RECENT_COUNT));
  box.ShowWindow(SW_SHOW);
  box.BringWindowToTop();
  box.SetFocus();
  box.ShowDropDown();
}

void CvFileDialog::OnCountClosed() {
  ::ShowWindow(::GetDlgItem(m_hWnd, IDC_RECENT_COUNT), SW_HIDE);
  list_.SetFocus();
  areaRuns_ = false;
  ReleaseAreas();
}
