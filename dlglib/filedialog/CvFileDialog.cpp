#include "dlglib/filedialog/CvFileDialog.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "dlglib/filedialog/CvFileUser.h"
#include "dlglib/filedialog/recent_files.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/at_scope_end.h"
#include "platform/framework/gdi.h"
#include "platform/os/os.h"

using filedialog::HotArea;
using filedialog::Point;
using filedialog::Rect;

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

}  // namespace

CvFileDialog::CvFileDialog(CWnd* parent, filedialog::StartUp startUp)
    : CDialog(IDD_FILE_DIALOG, parent), startUp_(std::move(startUp)), locationBar_(places_) {
  constexpr std::size_t kUsualEntries = 20000;
  kind_ = filedialog::MakeFileKind(startUp_.title, startUp_.description, startUp_.kindCode);
  table_.Clear(kUsualEntries);
}

CvFileDialog::~CvFileDialog() = default;

Handled CvFileDialog::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvFileDialog> kRows[] = {
      OnMessage(WM_SIZE, &CvFileDialog::OnSize),
      OnMessage(WM_GETMINMAXINFO, &CvFileDialog::OnGetMinMaxInfo),
      OnMessage(WM_PAINT, &CvFileDialog::OnPaint),
      OnMessage(WM_MOUSEMOVE, &CvFileDialog::OnMouseMove),
      OnMessage(WM_MOUSELEAVE, &CvFileDialog::OnMouseLeave),
      OnMessage(WM_LBUTTONDOWN, &CvFileDialog::OnButtonDown),
      OnMessage(WM_LBUTTONDBLCLK, &CvFileDialog::OnButtonDown),
      OnMessage(WM_LBUTTONUP, &CvFileDialog::OnButtonUp),
      OnMessage(WM_RBUTTONDOWN, &CvFileDialog::OnRightButtonDown),
      OnMessage(WM_CAPTURECHANGED, &CvFileDialog::OnCaptureLost),
      OnCommand(IDC_FILE_NAME, CBN_EDITCHANGE, &CvFileDialog::OnNameTyped),
      OnCommand(IDC_FILE_NAME, CBN_SELCHANGE, &CvFileDialog::OnNameTyped),
      OnCommand(IDC_RECENT_COUNT, CBN_SELCHANGE, &CvFileDialog::OnCountChosen),
      OnCommand(IDC_RECENT_COUNT, CBN_CLOSEUP, &CvFileDialog::OnCountClosed),
      OnCommand(IDC_BACK, BN_CLICKED, &CvFileDialog::OnBack),
      OnCommand(IDC_UP, BN_CLICKED, &CvFileDialog::OnUp),
      OnCommand(IDC_VIEW, BN_CLICKED, &CvFileDialog::OnViewMenu),
      OnCommandRange(ID_VIEW_LARGE_ICONS, ID_VIEW_TITLES, 0, &CvFileDialog::OnViewCommand),
      OnNotify(IDC_FILE_LIST, NM_CLICK, &CvFileDialog::OnListClick),
      OnNotify(IDC_FILE_LIST, NM_DBLCLK, &CvFileDialog::OnListDoubleClick),
      OnCommand(IDC_CREATE_FOLDER, BN_CLICKED, &CvFileDialog::OnNewFolder),
      OnCommand(ID_ENTRY_RENAME, 0, &CvFileDialog::OnRename),
      OnCommand(ID_ENTRY_DELETE, 0, &CvFileDialog::OnDelete),
      OnMessage(WM_CONTEXTMENU, &CvFileDialog::OnContextMenu),
      OnMessage(kCommitLabel, &CvFileDialog::OnCommitLabel),
      OnNotify(IDC_FILE_LIST, NM_RCLICK, &CvFileDialog::OnListRightClick),
      OnNotify(IDC_FILE_LIST, LVN_BEGINLABELEDITA, &CvFileDialog::OnBeginLabelEdit),
      OnNotify(IDC_FILE_LIST, LVN_ENDLABELEDITA, &CvFileDialog::OnEndLabelEdit),
      OnNotify(IDC_FILE_LIST, LVN_COLUMNCLICK, &CvFileDialog::OnHeaderClick),
  };
  return Route<CDialog>(*this, kRows, message);
}

BOOL CvFileDialog::PreTranslateMessage(MSG* message) {
  list_.SplitDoubleClick(message);
  return TakePress(*message) || RunKey(*message) ? TRUE : CDialog::PreTranslateMessage(message);
}

/// The areas are no controls that the Tab key could reach, so each one but "up" has a key that goes with Alt. As a
/// click does, it ends the edit of a name first.
bool CvFileDialog::RunAreaKey(WPARAM key) {
  static constexpr struct {
    WPARAM key;
    HotArea area;
  } kKeys[] = {{'V', HotArea::View}, {'N', HotArea::NewFolder}, {'R', HotArea::Label}, {VK_LEFT, HotArea::Back}};
  const auto* const found =
      std::find_if(std::begin(kKeys), std::end(kKeys), [key](const auto& k) { return k.key == key; });
  if (found == std::end(kKeys)) return false;
  if (!filedialog::IsRefusal(FinishLabelEdit())) RunArea(found->area);
  return true;
}

/// Keys that do what areas and menus do: in the list Backspace goes up, which it would take for a letter of a name, F2
/// renames and Delete deletes.
bool CvFileDialog::RunKey(const MSG& message) {
  if (escWatch_.Takes(message)) return true;
  if (message.message == WM_SYSKEYDOWN) return RunAreaKey(message.wParam);
  if (message.message != WM_KEYDOWN || !list_.Is(message.hwnd)) return false;
  switch (message.wParam) {
    case VK_BACK:
      OnUp();
      return true;
    case VK_F2:
      OnRename();
      return true;
    case VK_DELETE:
      OnDelete();
      return true;
    default:
      return false;
  }
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

filedialog::LayoutTarget CvFileDialog::Target() const {
  const auto titles = ShowsModelTitles() ? filedialog::TitleView::Models : filedialog::TitleView::Plain;
  return {layoutKeys_.primary, titleKeys_.primary, titles};
}

void CvFileDialog::SaveWindowLayout() {
  if (!initialised_ || m_hWnd == nullptr) return;
  RECT window{};
  GetWindowRect(&window);
  layout_.left = window.left;
  layout_.top = window.top;
  layout_.width = window.right - window.left;
  layout_.height = window.bottom - window.top;
  const std::vector<std::int32_t> widths = list_.ColumnWidths();
  // A view that failed half-way may be without its columns; those of the last one stay.
  if (!widths.empty()) {
    filedialog::TakeColumnWidths({layout_.viewMode, listing_, listingRunning_, Target().titles, widths}, &layout_);
  }
  WriteWindowLayout();
}

void CvFileDialog::WriteWindowLayout() {
  const os::ServiceTable& services = os::Services();
  filedialog::SaveLayout(*services.registry, *services.session, Target(), filedialog::LayoutPart::Window, layout_);
}

void CvFileDialog::SaveRecentFiles() {
  const os::ServiceTable& services = os::Services();
  filedialog::SaveLayout(*services.registry, *services.session, Target(), filedialog::LayoutPart::RecentFiles, layout_);
}

/// Ends the dialog whatever becomes of a name that is being edited.
void CvFileDialog::OnCancel() {
  const LifeWatch watch(*this);
  const AtScopeEnd end([&] {
    if (watch.Alive()) EndDialog(IDCANCEL);
  });
  FinishLabelEdit();
  if (watch.Alive()) SaveWindowLayout();
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
  if (filedialog::IsRefusal(FinishLabelEdit())) return;
  buttonDown_ = true;
  SetCapture();
  const auto area = navigation_.Areas().Press(ToPoint(message.Position()), startUp_.folderFixed);
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
  const LifeWatch watch(*this);
  areaRuns_ = true;
  const AtScopeEnd end([&] {
    if (watch.Alive()) EndArea();
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

void CvFileDialog::OnCountChosen() {
  const int count = ComboBoxRef(::GetDlgItem(m_hWnd, IDC_RECENT_COUNT)).GetCurSel();
  if (count < 0) return;
  layout_.recentCount = count;
  SaveRecentFiles();
  FillRecentFiles();
}

void CvFileDialog::OnCountClosed() {
  ::ShowWindow(::GetDlgItem(m_hWnd, IDC_RECENT_COUNT), SW_HIDE);
  list_.SetFocus();
  areaRuns_ = false;
  ReleaseAreas();
}

// ---------------------------------------------------------------------------------------------------------------------
// what the core asks

bool CvFileDialog::Ask(const std::string& path, std::string* userName, std::string* password) {
  CvFileUser logon(this, path);
  logon.SetUserName(*userName);
  if (logon.DoModal() != IDOK) return false;
  *userName = logon.UserName();
  *password = logon.Password();
  return true;
}

void CvFileDialog::Warn(const std::string& text) {
  MessageBox(text.c_str(), startUp_.caption.c_str(), MB_OK | MB_ICONEXCLAMATION);
}

bool CvFileDialog::AskOverwrite(const std::string& text) {
  return MessageBox(text.c_str(), startUp_.caption.c_str(), MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}
