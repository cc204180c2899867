// What the browser does before it is shown.
#include <algorithm>

#include "dlglib/filedialog/CvFileDialog.h"
#include "dlglib/filedialog/place_opening.h"
#include "dlglib/filedialog/recent_files.h"
#include "dlglib/filedialog/suite_text.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/shift_jis.h"
#include "platform/framework/exceptions.h"
#include "platform/os/os.h"
#include "platform/suite/crvncontrol.h"

using filedialog::HotArea;

namespace {

constexpr std::size_t kCaptionLimit = 256;

UniqueMenu LoadPopup(int id) {
  UniqueMenu menu(::LoadMenuA(ThisModule(), reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(id))));
  if (!menu) throw CResourceException();
  return menu;
}

std::string TextInBuffer(const filedialog::StartUp& startUp) {
  if (startUp.fileBuffer == nullptr) return {};
  const char* const begin = startUp.fileBuffer;
  return {begin, std::find(begin, begin + startUp.capacity, '\0')};
}

/// The extension of the suite's model files; none when the suite knows no such kind.
std::optional<std::string> ModelExtension() {
  const CwFileType* model = CwSession::GetInstance()->GetActiveFileTypeSet()->GetFileType("#MODEL#");
  if (model == nullptr) return std::nullopt;
  return filedialog::FromEuc(model->GetExtension());
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
    reinterpret_cast<std::vector<filedialog::Rect>*>(monitors)->push_back(
        {static_cast<int>(rect->left), static_cast<int>(rect->top), static_cast<int>(rect->right),
         static_cast<int>(rect->bottom)});
    return TRUE;
  } catch (...) {  // nothing may be thrown through the system
    return FALSE;
  }
}

/// The rectangles of all monitors on the screen; none when they cannot all be had.
std::vector<filedialog::Rect> Monitors() {
  std::vector<filedialog::Rect> monitors;
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

}  // namespace

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
  ShowCaption();
  PlaceButtons();
  RegisterTips();
  list_.TakeControl(this, [this] { TakeSelection(); });
  TakeInitialName();
  locationBar_.TakeControl(this, [this](std::optional<std::size_t> row) { OnPlaceChosen(row); });
  places_.Build(*this);
  places_.Enter(filedialog::StartLocation(places_, startUp_.initialFolder));
  NameButtons();
  ReadLayout();
  FillRecentFiles();
  FillRecentCounts();
  ShowKindLine();
  ShowPlaces();
  RecordStep();
  EnableWays();
  SetViewMode(layout_.viewMode);
  LoadMenus();
  PlaceOnScreen();
  locationBar_.EnableWindow(!startUp_.folderFixed);
  initialised_ = true;
}

void CvFileDialog::ShowCaption() {
  if (startUp_.caption.empty()) {
    CString text;
    GetWindowText(text);
    startUp_.caption = text.GetString();
  }
  startUp_.caption = shift_jis::Truncate(startUp_.caption, kCaptionLimit);
  SetWindowText(startUp_.caption.c_str());
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

void CvFileDialog::TakeInitialName() {
  const std::string name = TextInBuffer(startUp_);
  filedialog::TakeInitialName(name, &kind_);
  const ComboBoxRef box(::GetDlgItem(m_hWnd, IDC_FILE_NAME));
  if (startUp_.capacity > 1) box.LimitText(static_cast<int>(startUp_.capacity - 1));
  ShowName(name);
}

void CvFileDialog::NameButtons() {
  const bool plain = (startUp_.flags & filedialog::kFlagPlainOk) != 0;
  const bool multiple = (startUp_.flags & filedialog::kFlagMultiSelect) != 0;
  const bool saves = (startUp_.flags & filedialog::kFlagPathMustExist) != 0;
  if (saves) {
    if (!plain) SetDlgItemText(IDOK, "保存");
    startUp_.listStyle = filedialog::kListSingle;
  }
  if (multiple) startUp_.listStyle = filedialog::kListMultiple;
  if (multiple || (saves && plain)) {
    SetDlgItemText(IDOK, "ＯＫ");
    SetDlgItemText(IDCANCEL, "キャンセル");
  }
}

void CvFileDialog::ReadLayout() {
  os::Registry& registry = *os::Services().registry;
  layoutKeys_ = filedialog::KindLayoutKeys(kind_.keyword, kind_.extension);
  titleKeys_ = filedialog::TitleLayoutKeys(ModelExtension());
  const auto source = ShowsModelTitles() ? filedialog::LoadModelLayout(registry, layoutKeys_, titleKeys_, &layout_)
                                         : filedialog::LoadLayout(registry, layoutKeys_, &layout_);
  GiveLayoutASize();
  if (source != filedialog::LayoutSource::Fallback) return;
  const os::ServiceTable& services = os::Services();
  filedialog::SaveLayout(registry, *services.session, Target(), filedialog::LayoutPart::Window, layout_);
  SaveRecentFiles();
}

/// A layout without a size has the template's, which the window still has: what is moved to the kind's key is complete.
void CvFileDialog::GiveLayoutASize() {
  RECT window{};
  GetWindowRect(&window);
  if (layout_.width <= 0) layout_.width = window.right - window.left;
  if (layout_.height <= 0) layout_.height = window.bottom - window.top;
}

void CvFileDialog::FillRecentFiles() {
  const ComboBoxRef box(::GetDlgItem(m_hWnd, IDC_FILE_NAME));
  const std::string text = NameText();
  box.ResetContent();
  for (const std::string& file : filedialog::ShownRecentFiles(layout_.recentFiles, layout_.recentCount)) {
    box.AddString(file.c_str());
  }
  ShowName(text);
}

void CvFileDialog::FillRecentCounts() {
  const ComboBoxRef box(::GetDlgItem(m_hWnd, IDC_RECENT_COUNT));
  for (int count = 0; count < filedialog::kRecentCountItems; ++count) {
    box.AddString(filedialog::RecentCountItem(count).c_str());
  }
  box.SetCurSel(layout_.recentCount);
}

void CvFileDialog::ShowKindLine() {
  const ComboBoxRef box(::GetDlgItem(m_hWnd, IDC_FILE_KIND));
  box.ResetContent();
  box.AddString(filedialog::KindLine(kind_).c_str());
  box.SetCurSel(0);
}

void CvFileDialog::LoadMenus() {
  viewMenu_ = LoadPopup(IDM_VIEW);
  viewMenuWithTitles_ = LoadPopup(IDM_VIEW_TITLE);
  entryMenu_ = LoadPopup(IDM_ENTRY);
}

void CvFileDialog::PlaceOnScreen() {
  RECT window{};
  GetWindowRect(&window);
  minimum_ = {window.right - window.left, window.bottom - window.top};
  MatchItemHeights();
  RememberControls();
  const filedialog::Size screen{::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
  const filedialog::Rect saved =
      filedialog::PlaceWindow(minimum_, {layout_.left, layout_.top}, {layout_.width, layout_.height}, screen);
  const filedialog::Rect place = filedialog::BroughtIntoSight(saved, CaptionOf(m_hWnd), Monitors());
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
