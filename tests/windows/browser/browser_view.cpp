#include "tests/windows/browser/browser_view.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "dlglib/resources/resource.h"
#include "platform/os/sjis_wide.h"

namespace browser_test {

using driver::Picture;
using driver::User;

namespace {

/// A host may bear the same caption, but it has no file list.
driver::Window FindBrowser(const std::string& caption) {
  HWND dialog = nullptr;
  while ((dialog = FindWindowExW(nullptr, dialog, L"#32770", os::WideOf(caption).c_str())) != nullptr) {
    DWORD process = 0;
    GetWindowThreadProcessId(dialog, &process);
    const bool isBrowser = GetDlgItem(dialog, IDC_FILE_LIST) != nullptr;
    if (process == GetCurrentProcessId() && isBrowser && IsWindowVisible(dialog) != FALSE) break;
  }
  return driver::Window(dialog);
}

}  // namespace

Browser::Browser(User& user, const std::string& caption) : user_(user), caption_(caption) {
  user.WaitUntil("the browser \"" + caption + "\" is shown", [&] {
    window_ = FindBrowser(caption);
    return static_cast<bool>(window_);
  });
  Rest();  // a window whose first listing takes long is there without it
}

/// The list then says so in its text. Read without a message, as the window may go.
bool Browser::IsReading() const {
  wchar_t text[2] = L"";
  return InternalGetWindowText(window_.FindChild(IDC_FILE_LIST).Handle(), text, 2) > 0;
}

void Browser::Rest() const {
  user_.WaitUntil("nothing is read", [this] {
    user_.Settle();
    return !IsReading();
  });
}

driver::ListView Browser::List() const { return driver::ListView(window_.Child(IDC_FILE_LIST)); }
driver::Window Browser::NameBox() const { return window_.Child(IDC_FILE_NAME); }
driver::Window Browser::NameEdit() const { return NameBox().FindChildOfClass("Edit"); }
driver::Window Browser::LocationBar() const { return window_.Child(IDC_LOCATION); }

Texts Browser::Trail() const {
  Texts trail;
  for (const std::string& text : LocationBar().Items()) {
    const bool fixed = text == "デスクトップ" || text == "ネットワーク全体" || text == "近くのコンピュータ" ||
                       text.starts_with("マイ") || text.ends_with(":)") || text.find(" の ") != std::string::npos;
    if (!fixed) trail.push_back(text);
  }
  return trail;
}

Texts Browser::SelectedNames() const {
  Texts names;
  for (const int row : List().SelectedRows()) names.push_back(List().Cell(row));
  return names;
}

POINT Browser::RowPoint(const std::string& name) const {
  const int row = List().FindRow(name);
  if (row < 0) throw driver::Stuck("no row \"" + name + "\"");
  const RECT label = List().ItemRect(row);
  return {label.left + 6, (label.top + label.bottom) / 2};
}

/// So far apart that two clicks are never taken for a double click, and no time has to pass between them.
LONG Browser::NextOffset() {
  offset_ = 7 - offset_;
  return offset_;
}

void Browser::ClickRow(const std::string& name, const std::vector<WORD>& held) {
  // The display server tells the real keyboard's state when the pointer enters a window, so it goes there first.
  POINT point = RowPoint(name);
  point.x += NextOffset();
  user_.MoveTo(point);
  user_.Settle();
  for (const WORD key : held) user_.HoldKey(key);
  user_.Click(point);
  for (const WORD key : held) user_.ReleaseKey(key);
  Rest();
}

void Browser::OpenRow(const std::string& name) {
  POINT point = RowPoint(name);
  point.x += NextOffset();
  user_.DoubleClick(point);
  Rest();
}

void Browser::ClickHeader(int column) {
  user_.Click(driver::Center(List().HeaderRect(column)));
  Rest();
}

int Browser::SortMark(int column) const {
  const driver::Window header = List().Header();
  HDITEMA item = {};
  item.mask = HDI_FORMAT | HDI_IMAGE;
  header.Send(HDM_GETITEMA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
  return (item.fmt & HDF_IMAGE) != 0 ? item.iImage : -1;
}

RECT Browser::CellOnScreen(int row, int column) const {
  RECT cell = List().ItemRect(row, LVIR_BOUNDS);
  for (int before = 0; before < column; ++before) cell.left += List().ColumnAt(before).width;
  cell.right = cell.left + List().ColumnAt(column).width;
  return cell;
}

Picture Browser::CellPicture(int row, int column) const { return user_.Look(CellOnScreen(row, column)); }

Picture Browser::TextPicture(int row, int column, const std::string& text, UINT side) const {
  constexpr int kInset = 2;
  const RECT cell = CellOnScreen(row, column);
  const RECT all = {0, 0, cell.right - cell.left, cell.bottom - cell.top};
  const HDC screen = GetDC(nullptr);
  const HDC dc = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, all.right, all.bottom);
  const HGDIOBJ oldBitmap = SelectObject(dc, bitmap);
  const HGDIOBJ oldFont = SelectObject(dc, reinterpret_cast<HFONT>(List().Send(WM_GETFONT)));
  FillRect(dc, &all, GetSysColorBrush(COLOR_WINDOW));
  SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
  SetBkColor(dc, GetSysColor(COLOR_WINDOW));
  RECT inner = {kInset, 0, all.right - kInset, all.bottom};
  DrawTextW(dc, os::WideOf(text).c_str(), -1, &inner,
            DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX | side);
  Picture picture(all.right, all.bottom);
  for (int y = 0; y < all.bottom; ++y) {
    for (int x = 0; x < all.right; ++x) picture.Set(x, y, GetPixel(dc, x, y));
  }
  SelectObject(dc, oldFont);
  SelectObject(dc, oldBitmap);
  DeleteObject(bitmap);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
  return picture;
}

void Browser::ExpectCell(int row, int column, const std::string& text, UINT side) const {
  const Picture wanted = TextPicture(row, column, text, side);
  user_.WaitUntil("column " + std::to_string(column) + " of row " + std::to_string(row) + " shows \"" + text + "\"",
                  [&] { return CellPicture(row, column) == wanted; });
}

void Browser::ChoosePlace(const std::string& text) {
  const Texts items = LocationBar().Items();
  const auto found = std::find(items.begin(), items.end(), text);
  if (found == items.end()) throw driver::Stuck("no place \"" + text + "\"");
  user_.ChooseComboItem(LocationBar(), static_cast<int>(found - items.begin()));
  Rest();
}

void Browser::ClickArea(int id) {
  POINT point = driver::Center(window_.Child(id).ScreenRect());
  point.x += NextOffset() - 3;
  user_.Click(point);
  Rest();
}

void Browser::Up() { ClickArea(IDC_UP); }
void Browser::Back() { ClickArea(IDC_BACK); }

void Browser::ChooseView(const std::string& text) {
  ClickArea(IDC_VIEW);
  user_.Choose(user_.WaitMenu(), text);
  Rest();
}

void Browser::TypeName(const std::string& text) { user_.Replace(NameEdit(), text); }

void Browser::PasteName(const std::string& text) {
  user_.Replace(NameEdit(), "");
  user_.Paste(text);
}

void Browser::PressOk() { user_.Click(window_.Child(IDOK)); }
void Browser::Ok() {
  PressOk();
  Rest();
}
void Browser::Cancel() { user_.Click(window_.Child(IDCANCEL)); }

void Browser::Enter(const std::string& text) {
  TypeName(text);
  Ok();
}

void Browser::ExpectMessage(const std::string& text, UINT icon) {
  const driver::MessageBoxView box = user_.WaitMessageBox();
  EXPECT_EQ(box.caption, caption_);
  EXPECT_EQ(box.text, text);
  EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
  EXPECT_EQ(box.icon, icon);
  EXPECT_EQ(box.window.Owner(), window_);
  user_.Answer(box, IDOK);
  Rest();
}

void Browser::ExpectQuestion(const std::string& text, int button) {
  const driver::MessageBoxView box = user_.WaitMessageBox();
  EXPECT_EQ(box.caption, caption_);
  EXPECT_EQ(box.text, text);
  EXPECT_EQ(box.buttons, (std::vector<int>{IDYES, IDNO}));
  EXPECT_EQ(box.icon, UINT{MB_ICONEXCLAMATION});
  user_.Answer(box, button);
  Rest();
}

}  // namespace browser_test
