#include "dlglib/filedialog/window/CvFileDialog.h"

#include <utility>

#include "dlglib/base/CvMonitors.h"
#include "dlglib/base/at_scope_end.h"
#include "dlglib/filedialog/basics/kind_class.h"
#include "dlglib/filedialog/window/CvGeometry.h"
#include "dlglib/resources/resource.h"
#include "platform/suite/crvncontrol.h"

using filedialog::HotArea;

CvFileDialog::CvFileDialog(CWnd* parent, filedialog::StartUp startUp)
    : CvScaledDialog(IDD_FILE_DIALOG, parent),
      wait_(*this, escWatch_,
            {[this](MSG& message) { HandleOne(message); }, [this](const std::string& text) { ShowWait(text); },
             [this] { list_.Notice().Hide(); }}),
      patience_(&wait_, CvWait::Workers()),
      machine_(os::Services(), patience_),
      list_(os::Services(), CvWait::Workers()),
      questions_(*this, list_),
      browser_(std::move(startUp), *this, questions_, machine_, *CwSession::GetInstance(), GetActiveModel),
      locationBar_(browser_.Places()),
      label_(*this, list_, browser_),
      navigation_(*this, browser_.Record().folderFixed,
                  {[this] { return label_.Finish(); }, [this](HotArea area) { StartArea(area); },
                   [this](HotArea area) { accessible_.Tell(EVENT_OBJECT_STATECHANGE, tree_.NodeOf(area)); }}),
      names_(*this),
      countBox_(*this, {[this](int count) { browser_.ChooseRecentCount(count); }, [this] { OnCountClosed(); }}),
      frame_(*this),
      keys_({*this, list_, locationBar_, label_, navigation_, browser_}),
      listTree_(list_, [this] { browser_.OpenSelected(); }),
      tree_(*this, navigation_) {}

CvFileDialog::~CvFileDialog() = default;

Handled CvFileDialog::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvFileDialog> kRows[] = {
      OnMessage(WM_SIZE, &CvFileDialog::OnSize),
      OnMessage(WM_GETMINMAXINFO, &CvFileDialog::OnGetMinMaxInfo),
      OnMessage(CvWait::kLateAnswers, &CvFileDialog::OnLateAnswers),
      OnMessage(WM_CONTEXTMENU, &CvFileDialog::OnContextMenu),
      OnCommand(IDC_FILE_NAME, CBN_EDITCHANGE, &CvFileDialog::OnNameTyped),
      OnCommand(IDC_FILE_NAME, CBN_SELCHANGE, &CvFileDialog::OnNameTyped),
      OnCommand(IDC_BACK, BN_CLICKED, &CvFileDialog::OnBack),
      OnCommand(IDC_UP, BN_CLICKED, &CvFileDialog::OnUp),
      OnCommand(IDC_VIEW, BN_CLICKED, &CvFileDialog::OnViewMenu),
      OnCommand(IDC_CREATE_FOLDER, BN_CLICKED, &CvFileDialog::OnNewFolder),
      OnCommandRange(ID_VIEW_LARGE_ICONS, ID_VIEW_TITLES, 0, &CvFileDialog::OnViewCommand),
      OnCommand(ID_ENTRY_RENAME, 0, &CvFileDialog::OnRename),
      OnCommand(ID_ENTRY_DELETE, 0, &CvFileDialog::OnDelete),
      OnNotify(IDC_FILE_LIST, NM_CLICK, &CvFileDialog::OnListClick),
      OnNotify(IDC_FILE_LIST, NM_DBLCLK, &CvFileDialog::OnListDoubleClick),
      OnNotify(IDC_FILE_LIST, NM_RCLICK, &CvFileDialog::OnListRightClick),
      OnNotify(IDC_FILE_LIST, LVN_COLUMNCLICK, &CvFileDialog::OnHeaderClick),
  };
  if (const Handled answered = accessible_.Answer(message)) return answered;
  // A box or a dialog above this one: its user does not wait.
  if (message.id == WM_ENABLE && message.wParam == FALSE) patience_.HideProgress();
  if (const Handled handled = navigation_.RouteMessage(message)) return handled;
  if (const Handled handled = label_.RouteMessage(message)) return handled;
  if (const Handled handled = countBox_.RouteMessage(message)) return handled;
  return Route<CvScaledDialog>(*this, kRows, message);
}

// ---------------------------------------------------------------------------------------------------------------------
// start and end

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
  browser_.WindowMade();
  FollowScale();
  navigation_.Start();
  list_.TakeControl(this, [this] { browser_.SelectionChanged(); });
  locationBar_.TakeControl(this, [this](std::optional<std::size_t> row) { browser_.ChoosePlace(row); });
  Speak();  // first: what takes a control later leaves it first
  names_.Start();
  if (!browser_.Start()) return;
  browser_.Started();
}

/// As soon as it may be seen: when the first rows are waited for, or something before them has to be.
void CvFileDialog::PutInPlace() {
  if (initialised_) return;
  menus_.Load();
  frame_.Start(ComboBoxRef(locationBar_.m_hWnd), WindowScale());
  MoveToSavedPlace();
  Arrange();
  locationBar_.EnableWindow(!browser_.Record().folderFixed);
  initialised_ = true;
}

/// A place on a monitor of another scale is known for sure once the dialog stands there.
void CvFileDialog::MoveToSavedPlace() {
  const auto move = [this] {
    frame_.MoveTo(browser_.SavedPlace(frame_.Smallest(), monitors::CurrentScreens()), WindowScale());
  };
  const scale::Scale before = WindowScale();
  move();
  if (WindowScale() != before) move();
}

void CvFileDialog::ShowWait(const std::string& text) {
  list_.Notice().Show(text);
  if (IsWindowVisible()) return;
  PutInPlace();
  ShowWindow(SW_SHOWNORMAL);
}

/// Controls of the system say their texts, but not what they are for.
void CvFileDialog::Speak() {
  accessible_.Begin(m_hWnd, tree_);
  list_.SpeakBy(listTree_);
  const HWND names = ::GetDlgItem(m_hWnd, IDC_FILE_NAME);
  const std::pair<HWND, const char*> controls[] = {{names, "ファイル名"},
                                                   {::GetWindow(names, GW_CHILD), "ファイル名"},
                                                   {::GetDlgItem(m_hWnd, IDC_FILE_KIND), "ファイルの種類"},
                                                   {::GetDlgItem(m_hWnd, IDC_RECENT_COUNT), "ファイル数"},
                                                   {list_.GetHeaderCtrl().m_hWnd, "見出し"}};
  for (const auto& [control, name] : controls) named_.push_back(std::make_unique<NamedControl>(control, name));
}

/// Ends the dialog whatever becomes of a name that is being edited.
void CvFileDialog::OnCancel() {
  const AtScopeEnd end([this] {
    if (m_hWnd != nullptr) EndDialog(IDCANCEL);
  });
  browser_.Leave();
}

void CvFileDialog::End(filedialog::Ending ending) { EndDialog(static_cast<int>(ending)); }

// ---------------------------------------------------------------------------------------------------------------------
// size

void CvFileDialog::OnSize() {
  if (!initialised_) return;
  Arrange();
  RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void CvFileDialog::OnGetMinMaxInfo(const Message& message) {
  const filedialog::Size smallest = frame_.Smallest();
  if (initialised_) message.Data<MINMAXINFO>()->ptMinTrackSize = {smallest.width, smallest.height};
}

void CvFileDialog::FollowScale() {
  list_.SetScale(WindowScale());
  locationBar_.SetScale(WindowScale());
  navigation_.SetScale(WindowScale());
}

/// An image is not always as large as the scale makes of the one before.
void CvFileDialog::OnControlsScaled(scale::Scale before) {
  navigation_.SetScale(WindowScale());
  navigation_.PlaceButtons();
  frame_.Rescale(ComboBoxRef(locationBar_.m_hWnd), before, WindowScale());
}

void CvFileDialog::OnScaled(scale::Scale) {
  FollowScale();
  if (initialised_) Arrange();
}

void CvFileDialog::OnColoursChanged() {
  list_.FollowColours();
  locationBar_.FollowColours();
  navigation_.FollowColours();
}

void CvFileDialog::Arrange() {
  frame_.Arrange();
  list_.ArrangeIcons();
  navigation_.Place();
}

// ---------------------------------------------------------------------------------------------------------------------
// keys, presses, areas

BOOL CvFileDialog::PreTranslateMessage(MSG* message) {
  list_.Notice().HideRemarkAt(*message);
  list_.SplitDoubleClick(message);
  const bool usedUp = label_.UsesUpPress(*message) || escWatch_.Drops(*message) || keys_.Run(*message);
  return usedUp ? TRUE : CDialog::PreTranslateMessage(message);
}

/// A half word is no name.
void CvFileDialog::OnNameTyped() {
  if (!names_.IsComposing()) browser_.NameTyped();
}

void CvFileDialog::StartArea(HotArea area) {
  switch (area) {
    case HotArea::View:
      return OnViewMenu();
    case HotArea::NewFolder:
      return OnNewFolder();
    case HotArea::Up:
      return OnUp();
    case HotArea::Back:
      return OnBack();
    case HotArea::Label:
      return countBox_.Open();
  }
}

void CvFileDialog::OnCountClosed() {
  list_.SetFocus();
  navigation_.Finish();
}

// ---------------------------------------------------------------------------------------------------------------------
// list and menus

/// One beside the rows is OK as well.
void CvFileDialog::OnListDoubleClick(NMHDR* notification) {
  const bool isOnRow = reinterpret_cast<NMITEMACTIVATE*>(notification)->iItem >= 0;
  if (label_.OpensByDoubleClick(isOnRow && !SelectedRows().empty())) browser_.OpenSelected();
}

void CvFileDialog::OnHeaderClick(NMHDR* notification) {
  browser_.ClickHeader(reinterpret_cast<NMLISTVIEW*>(notification)->iSubItem);
}

void CvFileDialog::OnViewMenu() {
  navigation_.RunViewMenu([this](POINT corner) {
    menus_.RunViews(m_hWnd, corner, browser_.View(), filedialog::HasTitles(browser_.Kind().titleClass));
  });
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
  ShowEntryMenu(list_.MenuCorner());
  return 0;
}

void CvFileDialog::ShowEntryMenu(POINT at) { menus_.RunEntries(m_hWnd, at, browser_.OfferedOperations()); }

// ---------------------------------------------------------------------------------------------------------------------
// shows

void CvFileDialog::ShowCaption(const std::string& caption) {
  questions_.SetCaption(caption);
  SetWindowText(caption.c_str());
}

void CvFileDialog::ShowButtonTexts(const filedialog::ButtonTexts& texts) {
  if (texts.ok) SetDlgItemText(IDOK, texts.ok->c_str());
  if (texts.cancel) SetDlgItemText(IDCANCEL, texts.cancel->c_str());
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

filedialog::Rect CvFileDialog::Place() const { return filedialog::RectOnScreen(*this); }

// ---------------------------------------------------------------------------------------------------------------------
// long work

void CvFileDialog::StartWork() {
  waitCursor_.emplace();
  escWatch_.Start(m_hWnd);
}

bool CvFileDialog::GoesOn() { return !escWatch_.Pressed(); }

void CvFileDialog::EndWork() noexcept { waitCursor_.reset(); }
