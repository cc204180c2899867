// CvFileDialog: the library's own file browser, a modal dialog.
//
// A caller hands it a start-up record, runs it, and finds the chosen real path (Shift_JIS) in its own file buffer after
// DoModal has answered IDOK. Any other answer leaves the buffer's contents of no meaning.
//
// What its callers and users can rely on, beside the rules of the browser:
// - A position that was saved on a monitor that has gone is brought into sight: where no part of the caption lies on a
//   monitor, the dialog moves by the least distance that shows the caption's full height and 200 pixels of it.
// - Among several selected files a shortcut to a file counts as its target. A shortcut whose target has gone is listed
//   when the target's name fits the pattern; opening it says that there is no such file.
// - A text on a drive that does not exist, and a pattern without a folder, changes nothing and gives one signal: the
//   message of the name check where it has one, else a beep.
// - A start folder that does not exist gives the nearest folder above it that does; one on no drive of the machine the
//   first drive; a file its folder.
// - After going up, the folder that was left has the keyboard's frame; so has the row that had it before a change of
//   the view and before a deletion that was given up. The frame selects nothing. F5 alone keeps selection and scrolling
//   too, and a selection that it keeps counts as the user's; it lists by name, as every new listing is sorted.
// - The list is filled once in a step of the user, also where a step changes folder and view.
// - Clicks, typed letters and arrow keys select alike. OK acts on what the user selected as long as nothing else has
//   been typed or taken from the recent files since; on what a program selected (a new folder, a renamed entry) only
//   while the name box is empty or shows the name of that very entry.
// - A right click or a frame drawn with the mouse selects like a click, so that the name box tells what OK will take.
// - Icons are arranged anew when the dialog's size changes.
// - Esc gives a sort, a listing or any other wait for a device up: a sort changes nothing then, of a listing what was
//   found so far is shown, in order; where nothing was found, everything is as before. It does nothing else, however
//   long it is held down. For 0.3 s other input waits until the work is over; then the list says what is being done,
//   and the window answers: a new place, view or name takes the place of the wait, cancel ends the dialog.
// - A pressed area stays pressed while its action runs: as long as its dialog, its menu or the count box is open.
// - A press of a mouse button outside a name that is being edited in the list, and a key of an area, gives the name
//   first, and then does what it does elsewhere; it does nothing when the name was refused. In the list it does nothing
//   more when it has renamed the entry: that one is selected, and the rows have moved. A name that is as before gives
//   nothing, so the press does its work.
// - Cancel ends the dialog also when the name that it gives is refused.
// - A double click beside the rows is OK, but for one that ended the edit of a name.
// - A name that the list shows cut is edited whole. Names given in the list may be as long as their path allows.
// - When the dialog grows, the list takes the room; the location bar and the two boxes below the list become wider.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dlglib/base/CvScaledDialog.h"
#include "dlglib/filedialog/basics/start_up.h"
#include "dlglib/filedialog/browser/file_browser.h"
#include "dlglib/filedialog/waiting/CvEscWatch.h"
#include "dlglib/filedialog/waiting/CvWait.h"
#include "dlglib/filedialog/window/CvBrowserFrame.h"
#include "dlglib/filedialog/window/CvBrowserKeys.h"
#include "dlglib/filedialog/window/CvBrowserMenus.h"
#include "dlglib/filedialog/window/CvBrowserTree.h"
#include "dlglib/filedialog/window/CvCountBox.h"
#include "dlglib/filedialog/window/CvFileList.h"
#include "dlglib/filedialog/window/CvListLabel.h"
#include "dlglib/filedialog/window/CvListTree.h"
#include "dlglib/filedialog/window/CvLocationBar.h"
#include "dlglib/filedialog/window/CvNameBox.h"
#include "dlglib/filedialog/window/CvNavigation.h"
#include "dlglib/filedialog/window/CvQuestions.h"
#include "platform/framework/gdi.h"

class CvFileDialog : public CvScaledDialog, private filedialog::BrowserView {
 public:
  /// `parent` (borrowed, may be null) owns the dialog. The record's file buffer must live until DoModal has returned.
  /// Throws CResourceException when an image is missing.
  CvFileDialog(CWnd* parent, filedialog::StartUp startUp);
  ~CvFileDialog() override;

  Handled RouteMessage(const Message& message) override;
  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override { browser_.Confirm(); }
  void OnCancel() override;
  void OnControlsScaled(scale::Scale before) override;
  void OnScaled(scale::Scale before) override;
  void OnColoursChanged() override;

 private:
  void Start();
  void FollowScale();
  void MoveToSavedPlace();
  void ShowWait(const std::string& text);
  void Speak();
  void Arrange();
  void OnLateAnswers() { browser_.LateAnswers(); }
  void OnSize();
  void OnGetMinMaxInfo(const Message& message);

  // ---- intents
  void StartArea(filedialog::HotArea area);
  void OnUp() { browser_.Up(); }
  void OnBack() { browser_.Back(); }
  void OnNewFolder() { browser_.MakeFolder(); }
  void OnRename() { browser_.Rename(); }
  void OnDelete() { browser_.Delete(); }
  void OnNameTyped();
  void OnListClick() { browser_.SelectionChanged(); }
  void OnListDoubleClick(NMHDR* notification);
  void OnListRightClick();
  void OnHeaderClick(NMHDR* notification);
  void OnViewMenu();
  void OnViewCommand(const Message& message);
  Handled OnContextMenu(const Message& message);
  void ShowEntryMenu(POINT at);
  void OnCountClosed();

  // ---- BrowserView
  void ShowCaption(const std::string& caption) override;
  void ShowButtonTexts(const filedialog::ButtonTexts& texts) override;
  void PutInPlace() override;
  void ShowPlaces() override { locationBar_.ShowPlaces(); }
  void ShowPlaceNames() override { locationBar_.ShowNames(); }
  void ShowWays(const filedialog::Ways& ways) override { navigation_.ShowWays(ways); }
  void ShowView(filedialog::ViewMode view, std::uint32_t listStyle) override { list_.SetView(view, listStyle); }
  void ShowColumns(const std::vector<filedialog::ListColumn>& columns) override { list_.ShowColumns(columns); }
  void ShowRows(filedialog::EntryTable* table, const filedialog::ShownListing& listing) override {
    list_.ShowRows(table, listing);
  }
  void ShowSortMark(int column, int direction) override { list_.SetSortMark(column, direction); }
  void ShowRemark(const std::string& text) override { list_.Notice().ShowRemark(text); }
  void SelectRow(std::size_t row) override { list_.SelectRow(static_cast<int>(row)); }
  void FocusRow(std::size_t row) override { list_.FocusRow(static_cast<int>(row)); }
  void RestoreRows(const filedialog::RowStates& states) override { list_.RestoreRows(states); }
  void FocusList() override { list_.SetFocus(); }
  void LimitName(std::size_t limit) override { names_.Limit(limit); }
  void ShowName(const std::string& text) override { names_.Show(text); }
  void OfferName(const std::string& name) override { names_.Offer(name); }
  void ShowRecentFiles(const std::vector<std::string>& files) override { names_.ShowRecentFiles(files); }
  void ShowRecentCounts(const std::vector<std::string>& items, int selected) override {
    countBox_.Fill(items, selected);
  }
  void ShowKindLine(const std::string& line) override;
  void EndLabelEdit() override;
  [[nodiscard]] std::string Caption() const override;
  [[nodiscard]] scale::Scale ScreenScale() const override { return WindowScale(); }
  [[nodiscard]] std::string NameText() const override { return names_.Text(); }
  [[nodiscard]] std::vector<int> SelectedRows() const override { return list_.SelectedRows(); }
  [[nodiscard]] filedialog::RowStates States() const override { return list_.States(); }
  [[nodiscard]] std::vector<std::int32_t> ColumnWidths() const override { return list_.ColumnWidths(); }
  [[nodiscard]] int ColumnSpace() const override { return list_.ColumnSpace(); }
  [[nodiscard]] filedialog::Rect Place() const override;
  void StartWork() override;
  [[nodiscard]] bool GoesOn() override;
  void EndWork() noexcept override;
  void End(filedialog::Ending ending) override;

  CvEscWatch escWatch_;
  CvWait wait_;
  filedialog::Patience patience_;
  filedialog::PatientServices machine_;
  CvFileList list_;
  CvQuestions questions_;
  filedialog::FileBrowser browser_;
  CvLocationBar locationBar_;
  CvListLabel label_;
  CvNavigation navigation_;
  CvNameBox names_;
  CvCountBox countBox_;
  CvBrowserFrame frame_;
  CvBrowserKeys keys_;
  CvListTree listTree_;
  CvBrowserTree tree_;
  AccessibleWindow accessible_;
  std::vector<std::unique_ptr<NamedControl>> named_;
  CvBrowserMenus menus_;
  std::optional<WaitCursor> waitCursor_;
  bool initialised_ = false;
};
