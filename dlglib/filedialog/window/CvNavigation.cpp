#include "dlglib/filedialog/window/CvNavigation.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/filedialog/basics/area_item.h"
#include "dlglib/filedialog/window/CvGeometry.h"
#include "dlglib/filedialog/window/CvMessagePart.h"
#include "dlglib/resources/resource.h"
#include "platform/os/display.h"

using filedialog::AreaState;
using filedialog::BrowserImages;
using filedialog::ButtonImage;
using filedialog::FrameLine;
using filedialog::HotArea;
using filedialog::Point;
using filedialog::Rect;
using filedialog::Size;

namespace {

// In the order in which a press is tested.
constexpr struct {
  HotArea area;
  int id;
} kControls[] = {{HotArea::View, IDC_VIEW},
                 {HotArea::NewFolder, IDC_CREATE_FOLDER},
                 {HotArea::Up, IDC_UP},
                 {HotArea::Back, IDC_BACK},
                 {HotArea::Label, IDC_NAME_LABEL}};

constexpr std::size_t Index(HotArea area) { return static_cast<std::size_t>(area); }

ButtonImage ImageOf(AreaState state) {
  switch (state) {
    case AreaState::Disabled:
      return ButtonImage::Disabled;
    case AreaState::Pressed:
      return ButtonImage::Pressed;
    case AreaState::Hot:
      return ButtonImage::Hot;
    default:
      return ButtonImage::Normal;
  }
}

Size SizeOf(HBITMAP image) {
  BITMAP info{};
  ::GetObjectW(image, sizeof info, &info);
  return {info.bmWidth, info.bmHeight};
}

bool IsRaised(AreaState state) { return state == AreaState::Hot || state == AreaState::Pressed; }

/// A pixel that is off the screen has no colour; there the dialog's own stands for it.
COLORREF BackgroundAt(HDC dc, Point at) {
  const COLORREF pixel = ::GetPixel(dc, at.x, at.y);
  return pixel == CLR_INVALID ? ::GetSysColor(COLOR_3DFACE) : pixel;
}

/// With high contrast a frame is one of the texts' colour.
filedialog::FrameColours ColoursOfFrame() {
  if (!os::ThisDisplay().HasHighContrast()) return {};
  const COLORREF text = ::GetSysColor(COLOR_BTNTEXT);
  return {.shadow = text, .light = text, .outer = text};
}

void DrawLine(HDC dc, const FrameLine& line) {
  ::SetDCPenColor(dc, line.colour);
  ::MoveToEx(dc, line.points[0].x, line.points[0].y, nullptr);
  ::LineTo(dc, line.points[1].x, line.points[1].y);
  ::LineTo(dc, line.points[2].x, line.points[2].y);
}

// A pointer that a program only pretends has never come in, so it never leaves.
bool IsPointerOver(const WindowRef& window) {
  POINT at{};
  ::GetCursorPos(&at);
  return window.Is(::WindowFromPoint(at));
}

}  // namespace

CvNavigation::CvNavigation(CWnd& dialog, bool folderFixed, Actions actions)
    : dialog_(dialog), folderFixed_(folderFixed), actions_(std::move(actions)), images_(BrowserImages::For(scale_)) {}

void CvNavigation::SetScale(scale::Scale scale) {
  if (scale == scale_) return;
  scale_ = scale;
  FollowColours();
  if (tips_ == nullptr) return;
  tips_->Hide();
  tips_->SetScale(scale);
}

Handled CvNavigation::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvNavigation> kRows[] = {
      OnMessage(WM_PAINT, &CvNavigation::OnPaint),
      OnMessage(WM_MOUSEMOVE, &CvNavigation::OnMouseMove),
      OnMessage(WM_MOUSELEAVE, &CvNavigation::OnMouseLeave),
      OnMessage(WM_LBUTTONDOWN, &CvNavigation::OnButtonDown),
      OnMessage(WM_LBUTTONDBLCLK, &CvNavigation::OnButtonDown),
      OnMessage(WM_LBUTTONUP, &CvNavigation::OnButtonUp),
      OnMessage(WM_RBUTTONDOWN, &CvNavigation::OnRightButtonDown),
      OnMessage(WM_CAPTURECHANGED, &CvNavigation::OnCaptureLost),
  };
  return RoutePart(*this, kRows, message);
}

// ---------------------------------------------------------------------------------------------------------------------
// places

void CvNavigation::Start() {
  PlaceButtons();
  Place();
}

void CvNavigation::PlaceButtons() const {
  constexpr int kGap = 2;
  static constexpr struct {
    HotArea area;
    int id;
  } kButtonsInRow[] = {{HotArea::Back, IDC_BACK},
                       {HotArea::Up, IDC_UP},
                       {HotArea::NewFolder, IDC_CREATE_FOLDER},
                       {HotArea::View, IDC_VIEW}};
  const Rect view = filedialog::RectInDialog(dialog_, ::GetDlgItem(dialog_.m_hWnd, IDC_VIEW));
  std::vector<Size> sizes;
  for (const auto& button : kButtonsInRow) sizes.push_back(ImageSize(button.area));
  const auto row = filedialog::RowEndingAt(view.right, view.top, sizes, scale_.ToScreen(kGap));
  for (std::size_t i = 0; i < row.size(); ++i) {
    const HWND button = ::GetDlgItem(dialog_.m_hWnd, kButtonsInRow[i].id);
    ::MoveWindow(button, row[i].left, row[i].top, row[i].width(), row[i].height(), FALSE);
    ::ShowWindow(button, SW_HIDE);
    ::EnableWindow(button, FALSE);
  }
}

/// Made when the pointer first rests on something: most dialogs are closed before, and a window takes its time.
CvToolTip* CvNavigation::Tips() {
  if (tips_ != nullptr) return tips_.get();
  auto tips = std::make_unique<CvToolTip>(&dialog_);
  tips->SetScale(scale_);
  for (const auto& control : kControls) {
    tips->AddTool(control.id, filedialog::ToSystem(areas_.RectOf(control.area)), filedialog::TipOf(control.area));
  }
  tips_ = std::move(tips);
  return tips_.get();
}

void CvNavigation::MoveOver(POINT at) {
  if (tips_ == nullptr && !areas_.IsOnOne(filedialog::ToPoint(at))) return;
  Tips()->MouseMove(at);
}

void CvNavigation::Place() {
  for (const auto& control : kControls) {
    const Rect rect = filedialog::RectInDialog(dialog_, ::GetDlgItem(dialog_.m_hWnd, control.id));
    areas_.Place(control.area, rect);
    if (tips_ != nullptr) tips_->SetToolRect(control.id, filedialog::ToSystem(rect));
  }
}

Size CvNavigation::ImageSize(HotArea area) const { return SizeOf(images_->Button(area, ButtonImage::Normal)); }

void CvNavigation::ShowWays(const filedialog::Ways& ways) {
  areas_.Enable(HotArea::Up, ways.up);
  areas_.Enable(HotArea::Back, ways.back);
  areas_.Enable(HotArea::NewFolder, ways.newFolder);
  Show();
}

// ---------------------------------------------------------------------------------------------------------------------
// pointer

void CvNavigation::OnMouseMove(const Message& message) {
  if (menuOpen_) return;
  areas_.Move(filedialog::ToPoint(message.Position()));
  Show();
  MoveOver(message.Position());
  WatchPointer();
}

/// Asks to be told when the pointer leaves the dialog, as it may go from a hot area straight to a control.
void CvNavigation::WatchPointer() const {
  if (!IsPointerOver(dialog_)) return;
  TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, dialog_.m_hWnd, 0};
  ::TrackMouseEvent(&track);
}

void CvNavigation::OnMouseLeave() {
  if (menuOpen_ || buttonDown_) return;
  constexpr Point kNowhere{-32768, -32768};
  areas_.Move(kNowhere);
  Show();
}

void CvNavigation::OnButtonDown(const Message& message) {
  if (tips_ != nullptr) tips_->Hide();
  if (!actions_.mayPress()) return;
  buttonDown_ = true;
  dialog_.SetCapture();
  const auto area = areas_.Press(filedialog::ToPoint(message.Position()), folderFixed_);
  Show();
  if (area) Run(*area);
}

void CvNavigation::OnButtonUp(const Message& message) {
  LetGo();
  areas_.Release(filedialog::ToPoint(message.Position()));
  Show();
  WatchPointer();
  MoveOver(message.Position());
}

void CvNavigation::OnRightButtonDown() {
  if (tips_ != nullptr) tips_->Hide();
}

// Another window took the mouse: the release will not come here.
void CvNavigation::OnCaptureLost() {
  if (buttonDown_ && !actionRuns_) Release();
}

void CvNavigation::LetGo() {
  buttonDown_ = false;
  if (dialog_.Is(::GetCapture())) ::ReleaseCapture();
}

void CvNavigation::Release() {
  LetGo();
  POINT at{};
  ::GetCursorPos(&at);
  dialog_.ScreenToClient(&at);
  areas_.Release(filedialog::ToPoint(at));
  Show();
  WatchPointer();
}

// ---------------------------------------------------------------------------------------------------------------------
// actions

std::optional<HotArea> CvNavigation::AreaOf(int controlId) {
  for (const auto& control : kControls) {
    if (control.id == controlId) return control.area;
  }
  return std::nullopt;
}

bool CvNavigation::Press(HotArea area) {
  if (areas_.StateOf(area) == AreaState::Disabled || !actions_.mayPress()) return false;
  Run(area);
  return true;
}

void CvNavigation::Run(HotArea area) {
  actionRuns_ = true;
  const AtScopeEnd end([this] {
    if (dialog_.m_hWnd != nullptr) EndAction();
  });
  actions_.start(area);
}

void CvNavigation::EndAction() noexcept {
  // The count box is open until it closes.
  actionRuns_ = ::IsWindowVisible(::GetDlgItem(dialog_.m_hWnd, IDC_RECENT_COUNT)) != FALSE;
  if (actionRuns_ || dialog_.Is(::GetCapture())) return;
  try {
    Release();
  } catch (...) {
    dialog_.Invalidate();  // they are released, and not all of them drawn so
  }
}

void CvNavigation::RunViewMenu(const std::function<void(POINT)>& run) {
  const Rect& button = areas_.RectOf(HotArea::View);
  POINT corner{button.left, button.bottom};
  dialog_.ClientToScreen(&corner);
  {
    menuOpen_ = true;
    const AtScopeEnd closed([this] { menuOpen_ = false; });
    run(corner);
  }
  if (dialog_.m_hWnd != nullptr) Release();
}

void CvNavigation::Finish() {
  actionRuns_ = false;
  Release();
}

// ---------------------------------------------------------------------------------------------------------------------
// drawing

/// Shows what has changed since the last call: buttons are erased and painted at once, the label is drawn on the spot.
void CvNavigation::Show() {
  const filedialog::HotAreas::States before = shown_;
  shown_ = areas_.states();
  for (std::size_t i = 0; i < filedialog::kHotAreaCount; ++i) {
    if (before[i] == shown_[i]) continue;
    actions_.changed(static_cast<HotArea>(i));
    if (i == Index(HotArea::Label)) {
      ShowLabel(before[i]);
      continue;
    }
    const RECT rect = filedialog::ToSystem(areas_.RectOf(static_cast<HotArea>(i)));
    dialog_.InvalidateRect(&rect);
    dialog_.UpdateWindow();
  }
}

/// A pressed label whose button is released passes through normal, which takes the frame's outer line away.
void CvNavigation::ShowLabel(AreaState before) const {
  const WindowRef label(::GetDlgItem(dialog_.m_hWnd, IDC_NAME_LABEL));
  const AreaState now = areas_.StateOf(HotArea::Label);
  label.SetWindowText(filedialog::LabelText(now));
  label.UpdateWindow();
  const ClientDc dc(dialog_.m_hWnd);
  if (before == AreaState::Pressed) DrawFrame(dc.Get(), AreaState::Normal);
  DrawFrame(dc.Get(), now);
}

/// All areas in their present states.
void CvNavigation::OnPaint() {
  const PaintDc dc(dialog_.m_hWnd);
  const UniqueMemoryDc source(::CreateCompatibleDC(dc.Get()));
  for (std::size_t i = 0; i < kButtons; ++i) DrawButton(dc.Get(), source.Get(), static_cast<HotArea>(i));
  const AreaState label = areas_.StateOf(HotArea::Label);
  if (IsRaised(label)) DrawFrame(dc.Get(), label);
}

void CvNavigation::DrawButton(HDC dc, HDC source, HotArea area) const {
  const Rect& rect = areas_.RectOf(area);
  const HBITMAP image = images_->Button(area, ImageOf(areas_.StateOf(area)));
  const Size size = SizeOf(image);
  const Selected selected(source, image);
  ::BitBlt(dc, rect.left, rect.top, std::min(rect.width(), size.width), std::min(rect.height(), size.height), source, 0,
           0, SRCCOPY);
}

void CvNavigation::DrawFrame(HDC dc, AreaState state) const {
  const Rect& label = areas_.RectOf(HotArea::Label);
  const COLORREF background = BackgroundAt(dc, filedialog::LabelBackgroundPoint(label, scale_));
  const Selected pen(dc, ::GetStockObject(DC_PEN));
  const COLORREF former = ::GetDCPenColor(dc);
  for (const FrameLine& line : filedialog::LabelFrame(label, state, background, scale_, ColoursOfFrame())) {
    DrawLine(dc, line);
  }
  ::SetDCPenColor(dc, former);
}
