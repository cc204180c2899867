#include "dlglib/filedialog/window/CvFileDialog.h"

#include <algorithm>
#include <utility>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/filedialog/basics/kind_class.h"
#include "dlglib/filedialog/dialogs/CvFileUser.h"
#include "dlglib/filedialog/dialogs/CvMdlConfirm.h"
#include "dlglib/filedialog/dialogs/CvMdlTitle.h"
#include "dlglib/filedialog/dialogs/CvNewFolder.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/gdi.h"
#include "platform/suite/crvncontrol.h"

using filedialog::Done;
using filedialog::HotArea;
using filedialog::Reply;

namespace {

constexpr std::size_t kMaxEditedName = 1024;

std::string EditedText(const char* text) { return {text, std::find(text, text + kMaxEditedName, '\0')}; }

}  // namespace

CvFileDialog::CvFileDialog(CWnd* parent, filedialog::StartUp startUp)
    : CDialog(IDD_FILE_DIALOG, parent),
      browser_(std::move(startUp), *this, os::Services(), *CwSession::GetInstance()),
      locationBar_(browser_.Places()),
      list_(os::Services()) {}

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

/// Ends the dialog whatever becomes of a name that is being edited.
void CvFileDialog::OnCancel() {
  const AtScopeEnd end([this] {
    if (m_hWnd != nullptr) EndDialog(IDCANCEL);
  });
  browser_.Leave();
}

// ---------------------------------------------------------------------------------------------------------------------
// intents that come with a message

void CvFileDialog::OnListDoubleClick(NMHDR* notification) {
  const bool beside = reinterpret_cast<NMITEMACTIVATE*>(notification)->iItem < 0;
  if (press_ == Press::EndedEdit && (beside || SelectedRows().empty())) return;
  browser_.OpenSelected();
}

void CvFileDialog::OnHeaderClick(NMHDR* notification) {
  browser_.ClickHeader(reinterpret_cast<NMLISTVIEW*>(notification)->iSubItem);
}

void CvFileDialog::OnViewMenu() {
  const filedialog::Rect& button = navigation_.Areas().RectOf(HotArea::View);
  POINT corner{button.left, button.bottom};
  ClientToScreen(&corner);
  {
    viewMenuOpen_ = true;
    const AtScopeEnd closed([this] { viewMenuOpen_ = false; });
    menus_.RunViews(m_hWnd, corner, browser_.View(), filedialog::HasTitles(browser_.Kind().titleClass));
  }
  if (m_hWnd != nullptr) ReleaseAreas();
}

void CvFileDialog::OnViewCommand(const Message& message) {
  browser_.ChangeView(CvBrowserMenus::ViewOf(message.ControlId()));
}

void CvFileDialog::OnListRightClick() {
  browser_.SelectionChanged();
  POINT at{};
  ::GetCursorPos(&at);
  ShowEntryMenu(at);
}

/// The menu key: the mouse's way comes as the list's own notification.
Handled CvFileDialog::OnContextMenu(const Message& message) {
  const bool fromKeyboard = message.lParam == -1;
  if (!fromKeyboard || !list_.Is(::GetFocus())) return std::nullopt;
  RECT row{};
  const int focused = list_.GetNextItem(-1, LVNI_FOCUSED);
  if (focused < 0 || !list_.GetItemRect(focused, &row, LVIR_LABEL)) list_.GetClientRect(&row);
  POINT at{row.left, focused < 0 ? row.top : row.bottom};
  list_.ClientToScreen(&at);
  ShowEntryMenu(at);
  return 0;
}

void CvFileDialog::ShowEntryMenu(POINT at) { menus_.RunEntries(m_hWnd, at, browser_.OfferedOperations()); }

/// The edit box shows what the row shows, which may be cut.
LRESULT CvFileDialog::OnBeginLabelEdit(NMHDR* notification) {
  const auto label = browser_.BeginLabel(reinterpret_cast<NMLVDISPINFOA*>(notification)->item.iItem);
  if (!label) return TRUE;
  if (label->isShownCut) list_.GetEditControl().SetWindowText(label->name.c_str());
  return FALSE;
}

/// The list is in the middle of ending the edit, so it is filled anew by a message of its own.
LRESULT CvFileDialog::OnEndLabelEdit(NMHDR* notification) {
  const LVITEMA& item = reinterpret_cast<NMLVDISPINFOA*>(notification)->item;
  if (item.pszText == nullptr) return FALSE;
  browser_.GiveLabel(EditedText(item.pszText));
  PostMessage(kCommitLabel);
  return FALSE;
}

void CvFileDialog::OnCountChosen() {
  browser_.ChooseRecentCount(ComboBoxRef(::GetDlgItem(m_hWnd, IDC_RECENT_COUNT)).GetCurSel());
}

// ---------------------------------------------------------------------------------------------------------------------
// shows

ComboBoxRef CvFileDialog::NameBox() const { return ComboBoxRef(::GetDlgItem(m_hWnd, IDC_FILE_NAME)); }

void CvFileDialog::ShowCaption(const std::string& caption) { SetWindowText(caption.c_str()); }

void CvFileDialog::ShowButtonTexts(const filedialog::ButtonTexts& texts) {
  if (texts.ok) SetDlgItemText(IDOK, texts.ok->c_str());
  if (texts.cancel) SetDlgItemText(IDCANCEL, texts.cancel->c_str());
}

void CvFileDialog::ShowPlaces() { locationBar_.ShowPlaces(); }

void CvFileDialog::ShowWays(const filedialog::Ways& ways) {
  filedialog::HotAreas& areas = navigation_.Areas();
  areas.Enable(HotArea::Up, ways.up);
  areas.Enable(HotArea::Back, ways.back);
  areas.Enable(HotArea::NewFolder, ways.newFolder);
  navigation_.Show(*this);
}

void CvFileDialog::ShowView(filedialog::ViewMode view, std::uint32_t listStyle) { list_.SetView(view, listStyle); }

void CvFileDialog::ShowColumns(const std::vector<filedialog::ListColumn>& columns) { list_.ShowColumns(columns); }

void CvFileDialog::ShowRows(filedialog::EntryTable* table, const filedialog::ShownListing& listing) {
  list_.ShowRows(table, listing);
}

void CvFileDialog::ShowSortMark(int column, int direction) { list_.SetSortMark(column, direction); }

void CvFileDialog::SelectRow(std::size_t row) { list_.SelectRow(static_cast<int>(row)); }

void CvFileDialog::FocusList() { list_.SetFocus(); }

void CvFileDialog::LimitName(std::size_t limit) { NameBox().LimitText(static_cast<int>(limit)); }

void CvFileDialog::ShowName(const std::string& text) {
  NameBox().SetWindowText(text.c_str());
  nameBytes_.Note(NameBox().m_hWnd, text);
}

/// Names that differ in their spelling are different ones here.
void CvFileDialog::OfferName(const std::string& name) {
  const ComboBoxRef box = NameBox();
  const int count = box.GetCount();
  for (int item = 0; item < count; ++item) {
    CString text;
    box.GetLBText(item, text);
    if (name != text.GetString()) continue;
    box.SetCurSel(item);
    return;
  }
  box.SetCurSel(box.InsertString(0, name.c_str()));
}

void CvFileDialog::ShowRecentFiles(const std::vector<std::string>& files) {
  const ComboBoxRef box = NameBox();
  const std::string text = NameText();
  box.ResetContent();
  for (const std::string& file : files) box.AddString(file.c_str());
  ShowName(text);
}

void CvFileDialog::ShowRecentCounts(const std::vector<std::string>& items, int selected) {
  const ComboBoxRef box(::GetDlgItem(m_hWnd, IDC_RECENT_COUNT));
  for (const std::string& item : items) box.AddString(item.c_str());
  box.SetCurSel(selected);
}

void CvFileDialog::ShowKindLine(const std::string& line) {
  const ComboBoxRef box(::GetDlgItem(m_hWnd, IDC_FILE_KIND));
  box.ResetContent();
  box.AddString(line.c_str());
  box.SetCurSel(0);
}

void CvFileDialog::EndLabelEdit() {
  if (list_.GetEditControl().m_hWnd != nullptr) list_.SetFocus();
}

// ---------------------------------------------------------------------------------------------------------------------
// tells

std::string CvFileDialog::Caption() const {
  CString text;
  GetWindowText(text);
  return text.GetString();
}

/// What has not been touched since it was put there has the bytes that it had then.
std::string CvFileDialog::NameText() const {
  if (const auto untouched = nameBytes_.Untouched(NameBox().m_hWnd)) return *untouched;
  CString text;
  GetDlgItemText(IDC_FILE_NAME, text);
  return text.GetString();
}

std::vector<int> CvFileDialog::SelectedRows() const { return list_.SelectedRows(); }

std::vector<std::int32_t> CvFileDialog::ColumnWidths() const { return list_.ColumnWidths(); }

int CvFileDialog::ColumnSpace() const { return list_.ColumnSpace(); }

filedialog::Rect CvFileDialog::Place() const {
  RECT window{};
  GetWindowRect(&window);
  return {window.left, window.top, window.right, window.bottom};
}

// ---------------------------------------------------------------------------------------------------------------------
// long work

void CvFileDialog::StartWork() {
  waitCursor_.emplace();
  escWatch_.Start(m_hWnd);
}

bool CvFileDialog::GoesOn() { return !escWatch_.Pressed(); }

void CvFileDialog::EndWork() noexcept { waitCursor_.reset(); }

// ---------------------------------------------------------------------------------------------------------------------
// asks

/// A question lets messages through, and one of them may have destroyed the window.
template <class Answer>
Reply<Answer> CvFileDialog::Answered(Answer answer) const {
  return m_hWnd != nullptr ? Reply<Answer>(std::move(answer)) : std::nullopt;
}

Reply<Done> CvFileDialog::Warn(const std::string& text) {
  MessageBox(text.c_str(), browser_.Record().caption.c_str(), MB_OK | MB_ICONEXCLAMATION);
  return Answered(Done{});
}

Reply<Done> CvFileDialog::Refuse(const std::string& text, const std::string& caption) {
  MessageBox(text.c_str(), caption.c_str(), MB_OK | MB_ICONHAND);
  return Answered(Done{});
}

Reply<bool> CvFileDialog::AskOverwrite(const std::string& text) {
  const int answer = MessageBox(text.c_str(), browser_.Record().caption.c_str(), MB_YESNO | MB_ICONEXCLAMATION);
  return Answered(answer == IDYES);
}

Reply<std::optional<filedialog::Credentials>> CvFileDialog::AskLogon(const std::string& path,
                                                                     const std::string& userName) {
  CvFileUser logon(this, path);
  logon.SetUserName(userName);
  const bool given = logon.DoModal() == IDOK;
  return Answered(given ? std::optional(filedialog::Credentials{logon.UserName(), logon.Password()}) : std::nullopt);
}

Reply<std::optional<std::string>> CvFileDialog::AskNewFolder(const std::string& folder) {
  CvNewFolder dialog(this, folder);
  const bool made = dialog.DoModal() == IDOK;
  return Answered(made ? std::optional(dialog.Name()) : std::nullopt);
}

Reply<bool> CvFileDialog::AskRename(const std::string& folder, const std::string& name, bool isFile) {
  CvNewFolder dialog(this, folder);
  dialog.SetRename(name, isFile);
  const bool renamed = dialog.DoModal() == IDOK;
  return Answered(renamed || dialog.HasStranded());
}

Reply<bool> CvFileDialog::RunAbove(const std::function<bool(os::WindowHandle)>& run) { return Answered(run(m_hWnd)); }

Reply<std::optional<filedialog::TitleSlots>> CvFileDialog::AskTitles(filedialog::SlowSortRule& rule,
                                                                     const filedialog::TitleSlots& slots) {
  CvMdlTitle dialog(this, rule);
  dialog.SetTitles(slots);
  const bool taken = dialog.DoModal() == IDOK;
  return Answered(taken ? std::optional(dialog.Titles()) : std::nullopt);
}

/// The header takes no further click while the question is open.
Reply<bool> CvFileDialog::AskSlowSort(filedialog::SlowSortRule& rule) {
  const HeaderRef header = list_.GetHeaderCtrl();
  CvMdlConfirm question(this, rule);
  header.EnableWindow(FALSE);
  const AtScopeEnd answered([&] {
    if (m_hWnd != nullptr) header.EnableWindow(TRUE);
  });
  const bool agreed = question.DoModal() == IDOK;
  return Answered(agreed);
}

void CvFileDialog::End(filedialog::Ending ending) { EndDialog(static_cast<int>(ending)); }
