#include "dlglib/utility/toolbar/CvToolTip.h"

#include <cstdlib>

#include "dlglib/base/CvGeometry.h"
#include "dlglib/base/CvMonitors.h"
#include "dlglib/base/bounded_text.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/detail/text_drawing.h"
#include "platform/framework/gdi.h"
#include "platform/framework/message_map.h"
#include "platform/os/display.h"

namespace {

using tool_table::Rect;
using tool_table::Size;
using tool_table::Step;
using tool_table::Timer;

constexpr COLORREF kPaper = 0xFFFFF0;
constexpr COLORREF kInk = 0x000000;

/// A balloon of high contrast may have the colour of what lies around it.
void FrameBalloon(HDC dc, const RECT& client) {
  const UniqueRegion outline(::CreateRoundRectRgn(0, 0, client.right, client.bottom, client.bottom, client.bottom));
  ::FrameRgn(dc, outline.Get(), ::GetSysColorBrush(COLOR_INFOTEXT), 1, 1);
}

}  // namespace

CvToolTip::CvToolTip(CWnd* parent) : parent_(parent) {
  if (WindowRef(HandleOf(parent)).IsWindow()) Create(IDD_TOOL_TIP, parent);
}

void CvToolTip::AddTool(int id, const RECT& rect, const char* text) {
  tools_.Register(id, geometry::ToRect(rect), ViewOf(text));
}

void CvToolTip::SetToolRect(int id, const RECT& rect) { tools_.SetRect(id, geometry::ToRect(rect)); }

void CvToolTip::SetToolText(int id, const char* text) { tools_.SetText(id, ViewOf(text)); }

void CvToolTip::SetShowDelay(UINT milliseconds) { course_.SetShowDelay(milliseconds); }

void CvToolTip::SetHideDelay(UINT milliseconds) { course_.SetHideDelay(milliseconds); }

void CvToolTip::MouseMove(POINT at) { Do(course_.Move(tools_.Find(geometry::ToPoint(at)))); }

void CvToolTip::Hide() { Do(course_.Dismiss()); }

Handled CvToolTip::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvToolTip> kRows[] = {
      OnMessage(WM_TIMER, &CvToolTip::OnTimer),
      OnMessage(WM_PAINT, &CvToolTip::OnPaint),
      OnMessage(WM_ERASEBKGND, &CvToolTip::OnEraseBackground),
      OnMessage(WM_NCHITTEST, &CvToolTip::OnHitTest),
  };
  if (const Handled answered = accessible_.Answer(message)) return answered;
  return Route<CDialog>(*this, kRows, message);
}

/// FALSE: the focus stays where it is.
BOOL CvToolTip::OnInitDialog() {
  CDialog::OnInitDialog();
  accessible_.Begin(m_hWnd, tree_);
  return FALSE;
}

std::optional<accessible::Item> CvToolTip::Tree::Find(accessible::Node node) const {
  if (node != accessible::kWhole) return std::nullopt;
  accessible::Item item;
  item.name = tip_.shownText_;
  item.role = accessible::Role::ToolTip;
  item.states = tip_.IsWindowVisible() ? 0 : accessible::kInvisible;
  RECT place = {};
  tip_.GetWindowRect(&place);
  item.place = {place.left, place.top, place.right - place.left, place.bottom - place.top};
  return item;
}

void CvToolTip::OnTimer(const Message& message) { Do(course_.Fire(static_cast<Timer>(message.wParam))); }

void CvToolTip::OnPaint() {
  const PaintDc dc(m_hWnd);
  RECT client;
  GetClientRect(&client);
  const bool contrast = os::ThisDisplay().HasHighContrast();
  const UniqueBrush paper(::CreateSolidBrush(contrast ? ::GetSysColor(COLOR_INFOBK) : kPaper));
  ::FillRect(dc.Get(), &client, paper.Get());

  if (contrast) FrameBalloon(dc.Get(), client);
  RECT text = geometry::ToSystem(tool_table::TextRect(FontHeight(), client.right, scale_));
  const Selected font(dc.Get(), ParentFont());
  ::SetBkMode(dc.Get(), TRANSPARENT);
  ::SetTextColor(dc.Get(), contrast ? ::GetSysColor(COLOR_INFOTEXT) : kInk);
  // The font's lines are a little higher than the text's place; nothing is cut off below.
  constexpr UINT kFormat = DT_CENTER | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP;
  framework::DrawSjis(dc.Get(), shownText_, &text, kFormat);
}

/// Painting fills the whole balloon.
LRESULT CvToolTip::OnEraseBackground() { return TRUE; }

LRESULT CvToolTip::OnHitTest() { return HTTRANSPARENT; }

void CvToolTip::Do(const Step& step) {
  if (m_hWnd == nullptr) return;
  if (step.stop != Timer::None) KillTimer(static_cast<UINT_PTR>(step.stop));
  if (step.hide) ShowWindow(SW_HIDE);
  if (step.show && course_.Current()) ShowBalloon(tools_.At(*course_.Current()));
  if (step.start != Timer::None) SetTimer(static_cast<UINT_PTR>(step.start), step.delayMs);
}

void CvToolTip::ShowBalloon(const tool_table::Tool& tool) {
  shownText_ = tool.text;
  const Size size = tool_table::BalloonSize(FontHeight(), tool.text.size(), scale_);
  Place(tool.rect, size);
  Shape(size);
  ShowWindow(SW_SHOWNOACTIVATE);
  accessible_.Tell(EVENT_OBJECT_NAMECHANGE, accessible::kWhole);
  Invalidate();
  UpdateWindow();
}

void CvToolTip::Place(const Rect& tool, Size size) {
  POINT corner = geometry::ToSystem(tool_table::Anchor(tool));
  parent_->ClientToScreen(&corner);
  const Rect above{static_cast<int>(corner.x), static_cast<int>(corner.y) - size.height,
                   static_cast<int>(corner.x) + size.width, static_cast<int>(corner.y)};
  RECT owner = {};
  parent_->GetWindowRect(&owner);
  const Rect place = monitors::BroughtTo(geometry::ToRect(owner), above, monitors::CurrentScreens().monitors);
  SetWindowPos(nullptr, place.left, place.top, place.width(), place.height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The corners' ellipses are as wide and high as the balloon is high, so its ends are half circles.
void CvToolTip::Shape(Size size) {
  UniqueRegion region(::CreateRoundRectRgn(0, 0, size.width, size.height, size.height, size.height));
  if (::SetWindowRgn(m_hWnd, region.Get(), TRUE) != 0) (void)region.Release();  // the window owns it now
}

/// Borrowed from the parent; the system's when the parent uses that one.
HFONT CvToolTip::ParentFont() const {
  HFONT font = parent_->GetFont();
  return font != nullptr ? font : static_cast<HFONT>(::GetStockObject(SYSTEM_FONT));
}

int CvToolTip::FontHeight() const {
  LOGFONTW font = {};
  ::GetObjectW(ParentFont(), sizeof font, &font);
  return std::abs(font.lfHeight);
}
