#include "dlglib/filedialog/window/CvLocationBar.h"

#include <algorithm>
#include <utility>

#include "dlglib/resources/resource.h"
#include "platform/framework/detail/text_drawing.h"
#include "platform/framework/exceptions.h"
#include "platform/framework/gdi.h"

using filedialog::Place;

namespace {

// Pixels at 96 dpi.
constexpr int kIndent = 16;
constexpr int kTextOffset = 20;

// Sent to itself behind the notifications of a closing list, whose order differs: a mouse click reports the choice
// after the closing, the keyboard before.
constexpr UINT kListClosed = WM_APP + 1;

}  // namespace

void CvLocationBar::TakeControl(CWnd* dialog, std::function<void(std::optional<std::size_t>)> chosen) {
  chosen_ = std::move(chosen);
  if (!SubclassDlgItem(IDC_LOCATION, dialog)) throw CResourceException();
  accessible_.Begin(m_hWnd, tree_);
}

void CvLocationBar::SetScale(scale::Scale scale) {
  if (scale == scale_) return;
  images_ = filedialog::BrowserImages::ForOr(scale, images_);
  scale_ = scale;
}

Handled CvLocationBar::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvLocationBar> kRows[] = {
      OnReflectedCommand(CBN_SETFOCUS, &CvLocationBar::OnFocus),
      OnReflectedCommand(CBN_KILLFOCUS, &CvLocationBar::OnFocusLost),
      OnReflectedCommand(CBN_DROPDOWN, &CvLocationBar::OnDropDown),
      OnReflectedCommand(CBN_SELENDCANCEL, &CvLocationBar::OnCancelled),
      OnReflectedCommand(CBN_SELCHANGE, &CvLocationBar::OnSelection),
      OnReflectedCommand(CBN_CLOSEUP, &CvLocationBar::OnCloseUp),
      OnMessage(kListClosed, &CvLocationBar::OnClosed),
      OnReflectedMessage(WM_DRAWITEM, &CvLocationBar::OnDrawItem),
  };
  if (!message.reflected) {
    if (const Handled answered = accessible_.Answer(message)) return answered;
  }
  return Route<CComboBox>(*this, kRows, message);
}

void CvLocationBar::ShowPlaces() {
  ResetContent();
  names_.clear();
  for (const Place& place : places_.rows()) {
    AddString(place.text.c_str());
    names_.push_back(place.text);
  }
  SetCurSel(-1);
  Invalidate();
  TellPlace();
}

/// A list that is open stays so, at the row where it is.
void CvLocationBar::ShowNames() {
  const int selected = GetCurSel();
  const LRESULT top = Send(CB_GETTOPINDEX);
  for (std::size_t row = 0; row < std::min(names_.size(), places_.rows().size()); ++row) {
    Rename(row, places_.rows()[row].text);
  }
  SetCurSel(selected);
  Send(CB_SETTOPINDEX, static_cast<WPARAM>(top));
  Invalidate();
  TellPlace();
}

/// The bar is shown anew after questions and waits too, and for the names of other rows: that is no news.
void CvLocationBar::TellPlace() {
  if (places_.currentRow() >= places_.rows().size()) return;
  const Place& place = places_.rows()[places_.currentRow()];
  Told now{place.path, place.text};
  if (told_ == now) return;
  told_ = std::move(now);
  accessible_.Tell(EVENT_OBJECT_VALUECHANGE, accessible::kWhole);
}

void CvLocationBar::Rename(std::size_t row, const std::string& name) {
  if (names_[row] == name) return;
  names_[row] = name;
  DeleteString(static_cast<int>(row));
  InsertString(static_cast<int>(row), name.c_str());
}

// So that the arrow keys walk from the current place.
void CvLocationBar::OnFocus() { SetCurSel(static_cast<int>(places_.currentRow())); }

void CvLocationBar::OnFocusLost() { SetCurSel(-1); }

void CvLocationBar::OnDropDown() {
  pending_ = false;
  SetCurSel(static_cast<int>(places_.currentRow()));
}

void CvLocationBar::OnCancelled() { pending_ = false; }

void CvLocationBar::OnSelection() {
  if (GetDroppedState()) {
    pending_ = true;
    return;
  }
  Choose();
}

void CvLocationBar::OnCloseUp() {
  if (pending_) {
    Choose();
  } else {
    PostMessage(kListClosed);
  }
}

void CvLocationBar::OnClosed() {
  if (GetDroppedState() || GetCurSel() < 0) return;
  SetCurSel(-1);
  chosen_(std::nullopt);
}

void CvLocationBar::Choose() {
  pending_ = false;
  const int row = GetCurSel();
  SetCurSel(-1);
  const bool isRow = row >= 0 && static_cast<std::size_t>(row) < places_.rows().size();
  chosen_(isRow ? std::optional(static_cast<std::size_t>(row)) : std::nullopt);
}

/// As a click on the row in the open list does.
void CvLocationBar::GoTo(std::size_t row) {
  if (GetDroppedState()) ShowDropDown(FALSE);
  SetCurSel(static_cast<int>(row));
  Choose();
}

LRESULT CvLocationBar::OnDrawItem(const Message& message) {
  const auto& request = *message.Data<DRAWITEMSTRUCT>();
  const bool face = (request.itemState & ODS_COMBOBOXEDIT) != 0 || static_cast<int>(request.itemID) < 0;
  const std::size_t row = face ? places_.currentRow() : request.itemID;
  if (row < places_.rows().size()) DrawPlace(request, places_.rows()[row], face);
  return TRUE;
}

void CvLocationBar::DrawPlace(const DRAWITEMSTRUCT& request, const Place& place, bool face) {
  const HDC dc = request.hDC;
  const RECT& item = request.rcItem;
  const bool selected = (request.itemState & ODS_SELECTED) != 0;
  ::FillRect(dc, &item, ::GetSysColorBrush(COLOR_WINDOW));
  const LONG x = item.left + (face ? 0 : place.level * scale_.ToScreen(kIndent));
  filedialog::SmallIcons& icons = images_->Icons();
  ::DrawIconEx(dc, x, item.top, icons.Of(place.kind), icons.Side(), icons.Side(), 0, nullptr, DI_NORMAL);

  const int mode = ::SetBkMode(dc, OPAQUE);
  const COLORREF ground = ::SetBkColor(dc, ::GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  const COLORREF text = ::SetTextColor(dc, ::GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  RECT line{x + scale_.ToScreen(kTextOffset), item.top, item.right, item.bottom};
  framework::DrawSjis(dc, place.text, &line, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  ::SetTextColor(dc, text);
  ::SetBkColor(dc, ground);
  ::SetBkMode(dc, mode);
}
