// The file browser without its window: one function for each thing that the user can want, and what comes of it.
//
// It owns where the browser stands, what is listed, which names are meant and what is remembered. The window
// (BrowserView) tells it intents and shows what it is told to show. Every function may ask the user something (Reply),
// and may wait for a device (Patience), during which the window lives. What is told meanwhile:
// - A new intent of place, view or name gives the wait up and begins when the running one has unwound; the place that
//   it means is the one that was on the screen when it was told.
// - To delete, to rename and to make a folder have to wait for another time: they beep.
// - Given up with nothing found, an intent leaves rows, place, history and name as they were before it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/patient_services.h"
#include "dlglib/filedialog/basics/start_up.h"
#include "dlglib/filedialog/browser/browser_memory.h"
#include "dlglib/filedialog/browser/browser_questions.h"
#include "dlglib/filedialog/browser/browser_view.h"
#include "dlglib/filedialog/browser/journey.h"
#include "dlglib/filedialog/browser/label_edit.h"
#include "dlglib/filedialog/browser/listing.h"
#include "dlglib/filedialog/browser/name_choice.h"
#include "dlglib/filedialog/listing/selection_text.h"
#include "dlglib/filedialog/memory/recent_files.h"
#include "dlglib/filedialog/names/typed_name.h"

class CwModel;
class CwSession;

namespace filedialog {

class FileBrowser final : private NetworkLogon {
 public:
  /// Answers the model that is open, null for none.
  using ActiveModel = CwModel* (*)();

  /// What is given by reference must outlive this, the record's file buffer the run of the dialog.
  FileBrowser(StartUp startUp, BrowserView& view, BrowserQuestions& questions, const PatientServices& machine,
              CwSession& session, ActiveModel activeModel);

  // ---- start
  /// The window has been made: what is asked beside it begins.
  void WindowMade() { drives_.Ask(startUp_.initialFolder); }
  /// Shows everything for the first time, before the window itself is shown.
  [[nodiscard]] Reply<Done> Start();
  /// Where the window was left, from its size in the template (filedialog::PlaceWindow): on the monitor that has the
  /// most of it there, on the primary one for a window that is to be centred or is on none.
  [[nodiscard]] Rect SavedPlace(Size current, const Screens& screens) const;
  /// The window stands where it belongs: from now on its layout is kept, and what was wanted meanwhile is done.
  void Started();

  // ---- late answers
  /// WaitingWindow::LateWaker was called: drives have said their names.
  void LateAnswers();

  // ---- places
  /// A row of the location bar was chosen; none: it was closed without a choice.
  void ChoosePlace(std::optional<std::size_t> row);
  void Up();
  void Back();

  /// Lists the folder anew where it stands: rows that are still there stay selected, and count as before for OK.
  void Refresh();

  // ---- views
  [[nodiscard]] ViewMode View() const { return memory_.Layout().view; }
  void ChangeView(ViewMode view);
  void ClickHeader(int column);

  // ---- selection and names
  void SelectionChanged();
  void NameTyped() { choice_.Touched(); }
  /// A double click in the list.
  void OpenSelected();
  void Confirm();
  /// The dialog is about to end without a choice: a name that is being edited is given, the layout kept. Whatever
  /// becomes of the name, the window ends afterwards.
  void Leave();
  void ChooseRecentCount(int count);

  // ---- entries of the folder
  [[nodiscard]] EntryMenu OfferedOperations() const;
  void MakeFolder();
  void Rename();
  void Delete();
  struct EditedLabel {
    std::string name;         ///< whole
    bool isShownCut = false;  ///< the row shows only the beginning of it
  };
  /// The name with which the edit of a row's name in the list starts; none when it cannot be edited.
  [[nodiscard]] std::optional<EditedLabel> BeginLabel(int row);
  void GiveLabel(std::string_view name) { label_.Give(name); }

  enum class LabelEnd {
    Nothing,  ///< no name was being edited, or it stays as it is
    Renamed,
    Refused,
  };
  /// Carries out a name that was given.
  Reply<LabelEnd> CommitLabel();
  /// Ends an edit that goes on and carries its name out. A renaming that is given up may still happen: it counts as
  /// refused, without a message.
  [[nodiscard]] Reply<LabelEnd> FinishLabel();

  // ---- what the window draws
  [[nodiscard]] const LocationTree& Places() const { return journey_.Places(); }
  [[nodiscard]] const FileKind& Kind() const { return journey_.Kind(); }
  [[nodiscard]] const StartUp& Record() const { return startUp_; }

 private:
  // start
  void ShowCaption();
  void ShowInitialName();
  void ShowButtonTexts();
  void ShowRecentFiles();
  void ShowRecentCounts();
  void ReadLayout();
  void ShowFirstView();
  void AwaitNames();
  void AskDrivesAnew();
  [[nodiscard]] Rect PlaceToKeep() const;

  // intents
  using Intent = std::function<void()>;
  enum class Ended { Done, GivenUp, Gone };
  void Take(Intent intent);
  Ended Carry(const Intent& intent);
  void RunNext();
  void RememberPlace();
  void PutBack();
  [[nodiscard]] bool IsBusy();
  [[nodiscard]] Reply<LabelEnd> Finished(const std::function<Reply<LabelEnd>()>& finish);
  [[nodiscard]] Reply<LabelEnd> CommitGivenLabel();
  [[nodiscard]] Reply<LabelEnd> EndLabel();
  [[nodiscard]] Reply<Done> StartAt();
  [[nodiscard]] Reply<bool> ListStart();
  void ShowHowItStarted(bool listed);
  [[nodiscard]] Reply<bool> ListsAt(Location location);
  void GoBack();
  void ChangeViewTo(ViewMode view);
  void SortByHeader(int column);
  void Choose();
  void AskForFolder();
  void AskForName();
  void DeleteSelected();

  // places and views
  Reply<Done> OpenPlace(Location location);
  Reply<Done> EnterPlace(Location location);
  [[nodiscard]] Reply<Done> LeaveFor(Location above);
  void ListAndRestore();
  void ShowWays();
  [[nodiscard]] KeptRows KeptNow() const { return KeepRows(listing_.Rows(), view_.States()); }
  void FocusAgain(const KeptRows& kept);
  void FocusPlace(const Place& place);
  Reply<Done> SetView(ViewMode view);
  Reply<Done> FillAnew() { return SetView(View()); }
  void ShowView(ViewMode view);
  void ShowColumns();
  void ShowRows();
  [[nodiscard]] Reply<Done> EditTitles();
  [[nodiscard]] Reply<bool> AgreesToSlowSort();
  void SortBy(const SortOrder& order, int column);
  [[nodiscard]] ShownListing Shown() const { return listing_.Shown(Kind(), memory_.Layout().titles); }

  // names
  void ShowSelectedNames();
  void SelectNamed(const std::string& name);
  Reply<Done> ListAgain();
  [[nodiscard]] std::vector<const FileEntry*> SelectedEntries() const;
  void AcceptSelection(const std::vector<int>& rows);
  void AcceptSeveral();
  void OpenRow(const FileEntry& entry);
  void AcceptFile(std::string path);
  void Accept(const std::string& path);
  void ResolveText(const std::string& text);
  void ResolveList(const std::string& text);
  void OpenTypedFolder(const NameAnswer& answer);
  void Deliver(const std::string& result);
  void SaveWindow();
  [[nodiscard]] NameRules Rules() const;
  [[nodiscard]] NameRules SingleRules() const;

  [[nodiscard]] Reply<bool> Accepts(std::string* path, const NameRules& rules);
  [[nodiscard]] Reply<std::optional<Credentials>> Ask(const std::string& path, const std::string& userName) override;

  StartUp startUp_;
  BrowserView& view_;
  BrowserQuestions& questions_;
  const PatientServices& machine_;
  const os::ServiceTable& services_;
  CwSession& session_;
  ActiveModel activeModel_;
  DriveNames drives_;
  Journey journey_;
  Listing listing_;
  NameChoice choice_;
  LabelEdit label_;
  BrowserMemory memory_;
  bool started_ = false;
  int carried_ = 0;                       ///< intents under way, one within another
  bool hasNewNames_ = false;              ///< of drives, which the list shows
  std::optional<ListingMode> announced_;  ///< whose columns are on the screen, before there are rows
  std::optional<Intent> next_;            ///< begins when the running intent has unwound

  /// What an intent that is given up puts back.
  struct Before {
    Journey::State journey;
    std::string name;
    std::string shownName;  ///< by the intent
    NameChoice choice;
  };
  std::optional<Before> before_;
};

}  // namespace filedialog
