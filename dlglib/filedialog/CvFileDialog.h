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

#include "dlglib/filedialog/CvEscWatch.h"
#include "dlglib/filedialog/CvFileList.h"
#include "dlglib/filedialog/CvLocationBar.h"
#include "dlglib/filedialog/CvNavigation.h"
#include "dlglib/filedialog/entry_order.h"
#include "dlglib/filedialog/file_entry.h"
#include "dlglib/filedialog/file_kind.h"
#include "dlglib/filedialog/folder_operations.h"
#include "dlglib/filedialog/keep_going.h"
#include "dlglib/filedialog/layout_record.h"
#include "dlglib/filedialog/location.h"
#include "dlglib/filedialog/network_level.h"
#include "dlglib/filedialog/ok_subject.h"
#include "dlglib/filedialog/selection_text.h"
#include "dlglib/filedialog/start_up.h"
#include "dlglib/filedialog/typed_name.h"
#include "dlglib/filedialog/window_layout.h"
#include "dlglib/utility/CvToolTip.h"
#include "dlglib/utility/CvWindowTexts.h"
#include "platform/framework/dialog.h"

class CvFileDialog : public CDialog, private filedialog::NetworkLogon, private filedialog::NamePrompt {
 public:
  /// `parent` (borrowed, may be null) owns the dialog. The record's file buffer must live until DoModal has returned.
  /// Throws CResourceException when an image is missing.
  CvFileDialog(CWnd* parent, filedialog::StartUp startUp);
  ~CvFileDialog() override;

  Handled RouteMessage(const Message& message) override;
  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;

 private:
  // ---- start
  void Start();
  void ShowCaption();
  void PlaceButtons();
  void RegisterTips();
  void TakeInitialName();
  void NameButtons();
  void ReadLayout();
  void GiveLayoutASize();
  void FillRecentFiles();
  void FillRecentCounts();
  void ShowKindLine();
  void LoadMenus();
  void PlaceOnScreen();
  void MatchItemHeights();

  // ---- frame
  void OnSize();
  void OnGetMinMaxInfo(const Message& message);
  void RememberControls();
  void ArrangeControls();
  void PlaceAreas();
  [[nodiscard]] filedialog::Size ClientSize() const;
  void SaveWindowLayout();
  void WriteWindowLayout();
  void SaveRecentFiles();
  [[nodiscard]] filedialog::LayoutTarget Target() const;
  [[nodiscard]] bool ShowsModelTitles() const { return filedialog::HasModelTitles(kind_.titleClass); }

  [[nodiscard]] bool RunKey(const MSG& message);
  bool RunAreaKey(WPARAM key);

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

  // ---- places
  void OnPlaceChosen(std::optional<std::size_t> row);
  void OnUp();
  void OnBack();
  void EnterPlace(filedialog::Location location);
  void ShowPlaces();
  void RecordStep();
  void EnableWays();
  [[nodiscard]] bool CanOpen(const filedialog::Location& location) const;

  // ---- listing and views
  void SetViewMode(int viewMode);
  void ListPlace();
  void ListFolderRows();
  [[nodiscard]] filedialog::KeepGoing StartEscWatch();
  void ShowView();
  void ShowListing();
  void OnViewMenu();
  void OnViewCommand(const Message& message);
  void OnHeaderClick(NMHDR* notification);
  void SortBy(const filedialog::SortOrder& order, int column);
  [[nodiscard]] filedialog::ShownListing Listing() const;

  // ---- titles of models
  void EditTitles();
  [[nodiscard]] bool ConfirmSlowSort();

  // ---- entries of the folder
  void OnNewFolder();
  void OnRename();
  void OnDelete();
  void OnListRightClick();
  Handled OnContextMenu(const Message& message);
  LRESULT OnBeginLabelEdit(NMHDR* notification);
  LRESULT OnEndLabelEdit(NMHDR* notification);
  void OnCommitLabel();
  filedialog::OperationResult::Outcome CommitLabel();
  filedialog::OperationResult::Outcome FinishLabelEdit();
  bool TakePress(const MSG& message);
  bool FinishByPress(const MSG& message);
  [[nodiscard]] bool PressesCancel(const MSG& message) const;
  void ShowEntryMenu(POINT at);
  void SelectNamed(const std::string& name);
  void ListAgain();
  [[nodiscard]] std::vector<const filedialog::FileEntry*> SelectedEntries() const;
  [[nodiscard]] filedialog::EntryMenu OfferedOperations() const;

  // ---- selection and names
  void OnListClick();
  void OnListDoubleClick(NMHDR* notification);
  void TakeSelection();
  void ShowSelectedNames();
  void OnNameTyped();
  void OfferName(const std::string& name);
  void ShowName(const std::string& name);
  [[nodiscard]] std::string NameText() const;
  void AcceptSelection(const std::vector<int>& rows);
  void OpenRow(const filedialog::FileEntry& entry);
  void AcceptFile(std::string path);
  void Accept(const std::string& path);
  void ResolveText(const std::string& text);
  void ResolveList(const std::string& text);
  void OpenTypedFolder(const filedialog::NameAnswer& answer);
  void Deliver(const std::string& result);
  [[nodiscard]] bool IsMultiple() const { return startUp_.listStyle != filedialog::kListSingle; }
  [[nodiscard]] filedialog::NameRules Rules() const;
  [[nodiscard]] filedialog::NameRules SingleRules() const;

  // ---- what the core asks
  [[nodiscard]] bool Ask(const std::string& path, std::string* userName, std::string* password) override;
  void Warn(const std::string& text) override;
  [[nodiscard]] bool AskOverwrite(const std::string& text) override;

  static constexpr UINT kCommitLabel = WM_APP + 1;  ///< sent to itself: a name was edited in the list

  /// What the last press of a mouse button, or the first half of a double click, did to an edited name.
  enum class Press {
    Plain,      ///< nothing was being edited
    EndedEdit,  ///< ended an edit, and then did its work
    Taken,      ///< gave a name and did nothing more
  };

  struct AnchoredControl {
    HWND window;
    filedialog::Rect start;
    filedialog::Anchor anchor;
  };

  filedialog::StartUp startUp_;
  filedialog::FileKind kind_;
  filedialog::LayoutRecord layout_;
  filedialog::LayoutKeys layoutKeys_;
  filedialog::LayoutKeys titleKeys_;

  filedialog::LocationTree places_;
  filedialog::LocationHistory history_;
  filedialog::EntryTable table_;
  std::vector<filedialog::Place> networkPlaces_;  ///< what the rows of a network listing stand for
  filedialog::ListingMode listing_ = filedialog::ListingMode::Details;
  filedialog::SortOrder order_;
  bool sortConfirmed_ = false;
  bool listingRunning_ = false;

  CvNavigation navigation_;
  CvLocationBar locationBar_;
  CvFileList list_;
  CvEscWatch escWatch_;
  std::unique_ptr<CvToolTip> tips_;
  UniqueMenu viewMenu_;
  UniqueMenu viewMenuWithTitles_;
  UniqueMenu entryMenu_;

  std::vector<AnchoredControl> controls_;
  filedialog::Size startClient_;
  filedialog::Size minimum_;
  CvWindowTexts nameBytes_;                ///< of the name that was last put into the box
  filedialog::OkSubject okSubject_;        ///< the selection or the name box
  filedialog::EntryTable editedRow_;       ///< a copy of the row whose name is edited: the listing may change meanwhile
  std::string editedFolder_;               ///< the folder of that row
  std::optional<std::string> editedName_;  ///< the name that the edit gave, until it is carried out
  bool viewMenuOpen_ = false;
  bool buttonDown_ = false;
  bool areaRuns_ = false;  ///< an area's action is under way, so the area stays pressed
  Press press_ = Press::Plain;
  bool initialised_ = false;
};
