// Selection, the file name box, what OK makes of them, and the entries of the folder.
#include <utility>

#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/browser/file_browser.h"

namespace filedialog {

// ---------------------------------------------------------------------------------------------------------------------
// selection

/// During a wait the rows are not what the list shows.
void FileBrowser::SelectionChanged() {
  if (machine_.Waits().IsWaiting()) return;
  listing_.MarkSelected(view_.SelectedRows());
  ShowSelectedNames();
  ShowWays();
}

void FileBrowser::ShowSelectedNames() {
  const SelectedNames names = JoinSelectedNames(listing_.Rows(), startUp_.capacity);
  if (startUp_.capacity > 1) view_.LimitName(startUp_.capacity - 1);
  if (names.count == 1) view_.OfferName(names.text);
  if (names.count > 1) view_.ShowName(names.text);
  choice_.UserSelected(view_.NameText());
}

void FileBrowser::SelectNamed(const std::string& name) {
  const auto row = listing_.MarkNamed(name);
  if (!row) return;
  view_.SelectRow(*row);
  choice_.BrowserSelected();
}

/// After an operation: nothing is selected, the file name box keeps its text.
Reply<Done> FileBrowser::ListAgain() {
  const auto listed = FillAnew();
  if (listed) SelectionChanged();
  return listed;
}

std::vector<const FileEntry*> FileBrowser::SelectedEntries() const {
  std::vector<const FileEntry*> entries;
  for (const int row : view_.SelectedRows()) entries.push_back(&listing_.Rows()[static_cast<std::size_t>(row)]);
  return entries;
}

// ---------------------------------------------------------------------------------------------------------------------
// OK

void FileBrowser::OpenSelected() {
  if (!view_.SelectedRows().empty()) SelectionChanged();
  Confirm();
}

void FileBrowser::Confirm() {
  Take([this] { Choose(); });
}

void FileBrowser::Choose() {
  const auto label = EndLabel();
  if (!label || *label == LabelEnd::Refused) return;
  SaveWindow();
  const std::string text = view_.NameText();
  if (choice_.IsSelection(text, SelectedEntries())) return AcceptSelection(view_.SelectedRows());
  if (shift_jis::HasWildcard(text) || startUp_.listStyle == kListSingle) return ResolveText(text);
  ResolveList(text);
}

/// A wait ends with the window, which is as good as gone.
void FileBrowser::Leave() {
  if (machine_.Waits().IsWaiting()) {
    SaveWindow();
    next_.reset();
    return machine_.Waits().EndWithWindow();
  }
  const Ended ended = Carry([this] {
    machine_.Waits().LimitTo(0);  // a name that is given may still be taken when nobody is there any more
    if (EndLabel()) SaveWindow();
  });
  if (ended == Ended::GivenUp) SaveWindow();
}

void FileBrowser::AcceptSelection(const std::vector<int>& rows) {
  if (rows.size() > 1) return AcceptSeveral();
  const FileEntry entry = listing_.Rows()[static_cast<std::size_t>(rows.front())];
  return IsFile(entry.kind) ? AcceptFile(std::string(entry.path)) : OpenRow(entry);
}

void FileBrowser::AcceptSeveral() {
  SelectionChanged();
  const auto check = [this](std::string* path) { return Accepts(path, Rules()); };
  const auto paths = JoinSelectedPaths(listing_.Rows(), startUp_.capacity, check);
  if (!paths) return;
  switch (paths->outcome) {
    case SelectedPaths::Outcome::Accept:
      return Deliver(paths->text);
    case SelectedPaths::Outcome::TooLong:
      return view_.End(Ending::Cancelled);
    case SelectedPaths::Outcome::NoFile:
      services_.session->Beep(os::kBeepDefault);
      return static_cast<void>(questions_.Warn("ファイルが選択されていません。"));
    case SelectedPaths::Outcome::Refuse:
      return;
  }
}

void FileBrowser::OpenRow(const FileEntry& entry) {
  if (startUp_.folderFixed) return;
  auto location = listing_.Opened(entry, Places());
  if (location) {
    EnterPlace(std::move(*location));
  } else {
    FillAnew();  // gone since it was listed
  }
}

void FileBrowser::AcceptFile(std::string path) {
  if (Accepts(&path, SingleRules()).value_or(false)) Accept(path);
}

NameRules FileBrowser::Rules() const {
  return {.flags = startUp_.flags,
          .folder = journey_.Folder(),
          .extension = Kind().extension,
          .folderFixed = startUp_.folderFixed};
}

/// For a name that is the whole result. Several names are bounded by the caller's buffer, all of them together.
NameRules FileBrowser::SingleRules() const {
  NameRules rules = Rules();
  rules.longestPath = startUp_.longestPath;
  return rules;
}

void FileBrowser::ResolveText(const std::string& text) {
  const auto answer = ResolveTypedName(text, SingleRules(), {services_, questions_});
  if (!answer) return;
  if (answer->outcome == NameAnswer::Outcome::Accept) Accept(answer->path);
  if (answer->outcome == NameAnswer::Outcome::OpenFolder) OpenTypedFolder(*answer);
}

void FileBrowser::OpenTypedFolder(const NameAnswer& answer) {
  auto location = IsOnMissingDrive(*services_.drives, answer.folder) ? std::nullopt : Places().Find(answer.folder);
  if (!location && !answer.told) services_.session->Beep(os::kBeepDefault);
  if (!location) return;
  RememberPlace();
  before_->shownName = answer.nameField;
  journey_.UsePattern(answer.change);
  view_.ShowName(answer.nameField);
  EnterPlace(std::move(*location));
}

void FileBrowser::ResolveList(const std::string& text) {
  const auto list = ResolveTypedList(text, Rules(), {services_, questions_});
  if (list && *list) Deliver(**list);  // also one without names, which callers take for an empty choice
}

/// Ends with one name, which becomes the most recent file.
void FileBrowser::Accept(const std::string& path) {
  if (path.size() < startUp_.capacity) {
    const RecentForm form = startUp_.folderFixed ? RecentForm::NameOnly : RecentForm::FullPath;
    AddRecentFile(RecentName(path, form), &memory_.Layout().recentFiles);
    memory_.SaveRecentFiles();
  }
  Deliver(path);
}

/// Ends with a result; one that does not fit the caller's buffer ends as cancelled.
void FileBrowser::Deliver(const std::string& result) {
  if (result.size() >= startUp_.capacity) return view_.End(Ending::Cancelled);
  shift_jis::CopyBounded(startUp_.fileBuffer, startUp_.capacity, result);
  view_.End(Ending::Chosen);
}

void FileBrowser::SaveWindow() {
  if (!started_) return;
  std::vector<std::int32_t> widths = view_.ColumnWidths();
  for (std::int32_t& width : widths) width = view_.ScreenScale().FromScreen(width);
  ShownColumns shown;
  shown.view = View();
  shown.listing = listing_.Mode();
  shown.listingRunning = listing_.IsRunning();
  shown.widths = widths;
  memory_.SaveWindow(PlaceToKeep(), shown);
}

void FileBrowser::ChooseRecentCount(int count) {
  if (count < 0) return;
  memory_.Layout().recentCount = count;
  memory_.SaveRecentFiles();
  ShowRecentFiles();
}

// ---------------------------------------------------------------------------------------------------------------------
// entries of the folder

EntryMenu FileBrowser::OfferedOperations() const {
  std::vector<EntryKind> kinds;
  for (const FileEntry* entry : SelectedEntries()) kinds.push_back(entry->kind);
  return EntryMenuFor(kinds);
}

void FileBrowser::MakeFolder() {
  if (IsBusy()) return;
  Take([this] { AskForFolder(); });
}

void FileBrowser::AskForFolder() {
  const std::string folder = journey_.Folder();
  ShowWays();
  if (!CanCreateFolder(folder)) return;
  const auto name = questions_.AskNewFolder(folder);
  if (!name || !*name) return;
  view_.ShowPlaces();
  journey_.Record(view_.NameText());
  if (FillAnew()) SelectNamed(**name);
}

void FileBrowser::Rename() {
  if (IsBusy()) return;
  Take([this] { AskForName(); });
}

void FileBrowser::AskForName() {
  if (!OfferedOperations().canRename) return;
  const FileEntry& entry = *SelectedEntries().front();
  const auto done = questions_.AskRename(journey_.Folder(), std::string(NameInFolder(entry)), IsFile(entry.kind));
  if (done.value_or(false)) ListAgain();
}

void FileBrowser::Delete() {
  if (IsBusy()) return;
  Take([this] { DeleteSelected(); });
}

void FileBrowser::DeleteSelected() {
  if (!OfferedOperations().canDelete) return;
  const std::vector<const FileEntry*> entries = SelectedEntries();
  const KeptRows kept = KeptNow();
  const auto changed = questions_.RunAbove([this, &entries](os::WindowHandle owner) {
    std::vector<std::string_view> names;
    names.reserve(entries.size());
    for (const FileEntry* entry : entries) names.push_back(NameInFolder(*entry));
    return DeleteEntries(services_, owner, journey_.Folder(), names);
  });
  if (changed.value_or(false) && ListAgain()) FocusAgain(kept);
}

std::optional<FileBrowser::EditedLabel> FileBrowser::BeginLabel(int row) {
  const FileEntry* const entry = IsBusy() ? nullptr : listing_.Row(row);
  if (entry == nullptr) return std::nullopt;
  const EntryKind kinds[] = {entry->kind};
  if (!EntryMenuFor(kinds).canRename) return std::nullopt;
  label_.Begin(journey_.Folder(), *entry);
  const std::string_view name = NameInFolder(*entry);
  return EditedLabel{std::string(name), name != entry->name};
}

Reply<FileBrowser::LabelEnd> FileBrowser::CommitLabel() {
  return Finished([this] { return CommitGivenLabel(); });
}

Reply<FileBrowser::LabelEnd> FileBrowser::FinishLabel() {
  return Finished([this] { return EndLabel(); });
}

Reply<FileBrowser::LabelEnd> FileBrowser::Finished(const std::function<Reply<LabelEnd>()>& finish) {
  if (machine_.Waits().IsWaiting()) return LabelEnd::Nothing;
  Reply<LabelEnd> end;
  const Ended ended = Carry([&] { end = finish(); });
  if (ended == Ended::Gone) return std::nullopt;
  if (ended == Ended::GivenUp) end = LabelEnd::Refused;
  RunNext();
  return end;
}

Reply<FileBrowser::LabelEnd> FileBrowser::EndLabel() {
  view_.EndLabelEdit();
  return CommitGivenLabel();
}

/// A rename that stopped half-way is refused, and the folder is listed again all the same.
Reply<FileBrowser::LabelEnd> FileBrowser::CommitGivenLabel() {
  const auto committed = label_.Commit();
  if (!committed) return LabelEnd::Nothing;
  const bool refused = IsRefusal(committed->result.outcome);
  if (refused && !questions_.Refuse(committed->result.message, committed->result.caption)) return std::nullopt;
  if (!committed->listedName) return refused ? LabelEnd::Refused : LabelEnd::Nothing;
  if (!FillAnew()) return std::nullopt;
  if (committed->folder == journey_.Folder()) SelectNamed(*committed->listedName);
  return refused ? LabelEnd::Refused : LabelEnd::Renamed;
}

}  // namespace filedialog
