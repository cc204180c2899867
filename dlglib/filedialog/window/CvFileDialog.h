// CvFileDialog: the library's own file browser, a modal dialog.
//
// A caller hands it a start-up record, runs it, and finds the chosen real path (Shift_JIS) in its own file buffer after
// DoModal has answered IDOK. Any other answer leaves the buffer's contents of no meaning.
//
// What is left to it:
// - A position that was saved on a monitor that has gone is brought into sight: where no part of the caption lies on a
//   monitor, the dialog moves by the least distance that shows the caption's full height and 200 pixels of it.
// - Among several selected files a shortcut to a file counts as its target. A shortcut whose target has gone is listed
//   when the target's name fits the pattern; opening it says that there is no such file.
// - A text on a drive that does not exist, and a pattern without a folder, changes nothing and gives one signal: the
//   message of the name check where it has one, else a beep.
// - A start folder that does not exist gives the nearest folder above it that does; one on no drive of the machine the
//   first drive; a file its folder.
// - The list is filled once in a step of the user, also where a step changes folder and view.
// - Clicks, typed letters and arrow keys select alike. OK acts on what the user selected as long as nothing else has
//   been typed or taken from the recent files since; on what a program selected (a new folder, a renamed entry) only
//   while the name box is empty or shows the name of that very entry.
// - A right click or a frame drawn with the mouse selects like a click, so that the name box tells what OK will take.
// - Icons are arranged anew when the dialog's size changes.
// - Esc gives a sort or a listing up: a sort changes nothing then, of a listing what was found so far is shown, in
//   order. It does nothing else, however long it is held down; other input waits until the work is over. It is looked
//   for whenever an entry that fits the pattern has been found or a file read, so a device that does not answer is
//   waited for.
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

#include "dlglib/base/CvWindowTexts.h"
#include "dlglib/filedialog/basics/start_up.h"
#include "dlglib/filedialog/basics/window_layout.h"
#include "dlglib/filedialog/browser/file_browser.h"
#include "dlglib/filedialog/window/CvBrowserMenus.h"
#include "dlglib/filedialog/window/CvEscWatch.h"
#include "dlglib/filedialog/window/CvFileList.h"
#include "dlglib/filedialog/window/CvLocationBar.h"
#include "dlglib/filedialog/window/CvNavigation.h"
#include "dlglib/utility/toolbar/CvToolTip.h"
#include "platform/framework/dialog.h"
#include "platform/framework/gdi.h"

class CvFileDialog : public CDialog, private filedialog::BrowserView {
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

 private:
  // ---- start
  void Start();
  void PlaceButtons();
  void RegisterTips();
  void PlaceOnScreen();
  void MatchItemHeights();

  // ---- frame
  void OnSize();
  void OnGetMinMaxInfo(const Message& message);
  void RememberControls();
  void ArrangeControls();
  void PlaceAreas();
  [[nodiscard]] filedialog::Size ClientSize() const;

  // ---- keys and presses
  [[nodiscard]] bool RunKey(const MSG& message);
  bool RunAreaKey(int key);
  bool TakePress(const MSG& message);
  bool FinishByPress(const MSG& message);
  [[nodiscard]] bool PressesCancel(const MSG& message) const;

  // ---- areas
  void OnPaint();
  void OnMouseMove(const Message& message);
  void OnMouseLeave();
  void WatchPointer() const;
  void OnButtonDown(const Message& message);
  void OnButtonUp(const Message& message);
  void OnRightButtonDown();
  void OnCaptureLost();
  void RunArea(filedialog::HotArea area);
  void EndArea() noexcept;
  void StartArea(filedialog::HotArea area);
  void ReleaseAreas();
  void ShowCountBox();
  void OnCountChosen();
  void OnCountClosed();

  // ---- intents
  void OnUp() { browser_.Up(); }
  void OnBack() { browser_.Back(); }
  void OnNewFolder() { browser_.MakeFolder(); }
  void OnRename() { browser_.Rename(); }
  void OnDelete() { browser_.Delete(); }
  void OnNameTyped() { browser_.NameTyped(); }
  void OnListClick() { browser_.SelectionChanged(); }
  void OnListDoubleClick(NMHDR* notification);
  void OnHeaderClick(NMHDR* notification);
  void OnViewMenu();
  void OnViewCommand(const Message& message);
  void OnListRightClick();
  Handled OnContextMenu(const Message& message);
  void ShowEntryMenu(POINT at);
  LRESULT OnBeginLabelEdit(NMHDR* notification);
  LRESULT OnEndLabelEdit(NMHDR* notification);
  void OnCommitLabel() { browser_.CommitLabel(); }

  // ---- BrowserView
  void ShowCaption(const std::string& caption) override;
  void ShowButtonTexts(const filedialog::ButtonTexts& texts) override;
  void ShowPlaces() override;
  void ShowWays(const filedialog::Ways& ways) override;
  void ShowView(filedialog::ViewMode view, std::uint32_t listStyle) override;
  void ShowColumns(const std::vector<filedialog::ListColumn>& columns) override;
  void ShowRows(filedialog::EntryTable* table, const filedialog::ShownListing& listing) override;
  void ShowSortMark(int column, int direction) override;
  void SelectRow(std::size_t row) override;
  void FocusList() override;
  void LimitName(std::size_t limit) override;
  void ShowName(const std::string& text) override;
  void OfferName(const std::string& name) override;
  void ShowRecentFiles(const std::vector<std::string>& files) override;
  void ShowRecentCounts(const std::vector<std::string>& items, int selected) override;
  void ShowKindLine(const std::string& line) override;
  void EndLabelEdit() override;
  [[nodiscard]] std::string Caption() const override;
  [[nodiscard]] std::string NameText() const override;
  [[nodiscard]] std::vector<int> SelectedRows() const override;
  [[nodiscard]] std::vector<std::int32_t> ColumnWidths() const override;
  [[nodiscard]] int ColumnSpace() const override;
  [[nodiscard]] filedialog::Rect Place() const override;
  void StartWork() override;
  [[nodiscard]] bool GoesOn() override;
  void EndWork() noexcept override;
  [[nodiscard]] filedialog::Reply<filedialog::Done> Warn(const std::string& text) override;
  [[nodiscard]] filedialog::Reply<filedialog::Done> Refuse(const std::string& text,
                                                           const std::string& caption) override;
  [[nodiscard]] filedialog::Reply<bool> AskOverwrite(const std::string& text) override;
  [[nodiscard]] filedialog::Reply<std::optional<filedialog::Credentials>> AskLogon(
      const std::string& path, const std::string& userName) override;
  [[nodiscard]] filedialog::Reply<std::optional<std::string>> AskNewFolder(const std::string& folder) override;
  [[nodiscard]] filedialog::Reply<bool> AskRename(const std::string& folder, const std::string& name,
                                                  bool isFile) override;
  [[nodiscard]] filedialog::Reply<bool> RunAbove(const std::function<bool(os::WindowHandle)>& run) override;
  [[nodiscard]] filedialog::Reply<std::optional<filedialog::TitleSlots>> AskTitles(
      filedialog::SlowSortRule& rule, const filedialog::TitleSlots& slots) override;
  [[nodiscard]] filedialog::Reply<bool> AskSlowSort(filedialog::SlowSortRule& rule) override;
  void End(filedialog::Ending ending) override;

  template <class Answer>
  [[nodiscard]] filedialog::Reply<Answer> Answered(Answer answer) const;
  [[nodiscard]] ComboBoxRef NameBox() const;

  static constexpr UINT kCommitLabel = WM_APP + 1;  ///< sent to itself: a name was edited in the list

  /// What the last press of a mouse button, or the first half of a double click, did to an edited name.
  enum class Press {
    Plain,      ///< nothing was being edited
    EndedEdit,  ///< ended an edit that changed nothing, and then did its work
    Taken,      ///< gave a name and did nothing more
  };

  struct AnchoredControl {
    HWND window;
    filedialog::Rect start;
    filedialog::Anchor anchor;
  };

  filedialog::FileBrowser browser_;

  CvNavigation navigation_;
  CvLocationBar locationBar_;
  CvFileList list_;
  CvEscWatch escWatch_;
  std::unique_ptr<CvToolTip> tips_;
  std::optional<WaitCursor> waitCursor_;
  CvWindowTexts nameBytes_;  ///< of the name that was last put into the box
  CvBrowserMenus menus_;

  std::vector<AnchoredControl> controls_;
  filedialog::Size startClient_;
  filedialog::Size minimum_;
  bool viewMenuOpen_ = false;
  bool buttonDown_ = false;
  bool areaRuns_ = false;  ///< an area's action is under way, so the area stays pressed
  Press press_ = Press::Plain;
  bool initialised_ = false;
};
