#include "dlglib/filedialog/window/CvListNotice.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/framework/detail/text_drawing.h"
#include "platform/framework/gdi.h"
#include "platform/os/sjis_wide.h"

namespace {

constexpr UINT kLine = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;

bool IsInput(UINT message) {
  const bool isKey = message >= WM_KEYFIRST && message <= WM_KEYLAST;
  const bool isMouse = message > WM_MOUSEMOVE && message <= WM_MOUSELAST;
  return isKey || isMouse;
}

/// Of a key or a button, anywhere in the dialog. The wheel would move a line that is painted over the rows.
bool IsPress(UINT message) {
  constexpr std::array kPresses = {WM_KEYDOWN,       WM_SYSKEYDOWN,    WM_LBUTTONDOWN,   WM_RBUTTONDOWN, WM_MBUTTONDOWN,
                                   WM_NCLBUTTONDOWN, WM_NCRBUTTONDOWN, WM_NCMBUTTONDOWN, WM_MOUSEWHEEL};
  return std::find(kPresses.begin(), kPresses.end(), static_cast<int>(message)) != kPresses.end();
}

/// Grey on the list's ground.
void DrawLine(HDC dc, const CListCtrl& list, const std::string& text, RECT* place, UINT align) {
  const Selected font(dc, list.GetFont());
  const COLORREF ink = ::SetTextColor(dc, ::GetSysColor(COLOR_GRAYTEXT));
  const int mode = ::SetBkMode(dc, TRANSPARENT);
  framework::DrawSjis(dc, text, place, kLine | align);
  ::SetBkMode(dc, mode);
  ::SetTextColor(dc, ink);
}

}  // namespace

void CvListNotice::Show(const std::string& text) {
  const std::string former = std::exchange(text_, text);
  Change({former, remark_});
}

void CvListNotice::Hide() noexcept {
  const std::string former = std::exchange(text_, {});
  Change({former, remark_});
}

void CvListNotice::ShowRemark(const std::string& text) {
  const std::string former = std::exchange(remark_, text);
  Change({text_, former});
}

void CvListNotice::HideRemarkAt(const MSG& message) {
  if (!remark_.empty() && IsPress(message.message)) ShowRemark({});
}

/// The system tells of each new window text by itself.
void CvListNotice::Change(const filedialog::ListNotice& before) const {
  const filedialog::NoticeNews news = filedialog::NewsOf(before, Said());
  if (news.line) ::SetWindowTextW(list_.m_hWnd, os::WideOf(text_).c_str());
  Redraw();
  if (news != filedialog::NoticeNews()) changed_(news);
}

void CvListNotice::Redraw() const noexcept { ::InvalidateRect(list_.m_hWnd, nullptr, TRUE); }

Handled CvListNotice::RouteMessage(const Message& message) {
  if (!text_.empty()) {
    if (message.id == WM_PAINT) OnPaint();
    return message.id == WM_PAINT || IsInput(message.id) ? Handled(0) : std::nullopt;
  }
  if (remark_.empty() || message.id != WM_PAINT) return std::nullopt;
  PaintRemark(message);
  return 0;
}

/// The rows' part of the list, below the titles of its columns.
RECT CvListNotice::Room() const {
  RECT room{};
  list_.GetClientRect(&room);
  const HeaderRef header = list_.GetHeaderCtrl();
  if (header.m_hWnd == nullptr || !header.IsWindowVisible()) return room;
  RECT titles{};
  header.GetWindowRect(&titles);
  room.top += titles.bottom - titles.top;
  return room;
}

void CvListNotice::OnPaint() {
  const PaintDc dc(list_.m_hWnd);
  if (dc.Get() == nullptr) return;
  RECT room = Room();
  ::FillRect(dc.Get(), &room, ::GetSysColorBrush(COLOR_WINDOW));
  DrawLine(dc.Get(), list_, text_, &room, DT_CENTER);
}

/// Above the rows that the list has drawn.
void CvListNotice::PaintRemark(const Message& message) {
  list_.CallDefault(message);
  const ClientDc dc(list_.m_hWnd);
  RECT line = Room();
  if (dc.Get() == nullptr) return;
  const Selected font(dc.Get(), list_.GetFont());
  line.top = line.bottom - framework::ExtentOf(dc.Get(), remark_).cy;
  ::FillRect(dc.Get(), &line, ::GetSysColorBrush(COLOR_WINDOW));
  DrawLine(dc.Get(), list_, remark_, &line, DT_LEFT);
}
