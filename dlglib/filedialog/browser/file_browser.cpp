#include "dlglib/filedialog/browser/file_browser.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/base/encoder.h"
#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/base/suite_kinds.h"
#include "dlglib/filedialog/basics/kind_class.h"
#include "platform/suite/crvncontrol.h"

namespace filedialog {

namespace {

constexpr std::size_t kCaptionLimit = 256;
constexpr std::int64_t kStartMs = 2000;   ///< longest wait for what is shown first
constexpr std::int64_t kPlacesMs = 1000;  ///< of it for drives of a remote session's client, before the folder's turn
constexpr std::int64_t kNamesMs = 300;    ///< and for the names of drives, which it can do without
constexpr std::int64_t kDriveMs = 100;    ///< for that of the drive that it starts on, which decides where
constexpr char kAboveIsShown[] = "フォルダの応答がないため、上のフォルダを表示しています。";
constexpr char kDoesNotAnswer[] = "フォルダの応答がありません。";

std::string TextInBuffer(const StartUp& startUp) {
  if (startUp.fileBuffer == nullptr) return {};
  const char* const begin = startUp.fileBuffer;
  return {begin, std::find(begin, begin + startUp.capacity, '\0')};
}

/// The extension of the suite's model files; none when the suite knows no such kind.
std::optional<std::string> ModelExtension(CwSession& session) {
  const CwFileType* model = suite_kinds::Find(*session.GetActiveFileTypeSet(), EucText("#MODEL#"));
  if (model == nullptr) return std::nullopt;
  return encoder::ToSjis(suite_kinds::ExtensionOf(*model)).bytes();
}

/// The list style and the buttons' texts that the flags of the record ask for.
ButtonTexts ApplyFlags(StartUp* startUp) {
  const bool plain = (startUp->flags & kFlagPlainOk) != 0;
  const bool multiple = (startUp->flags & kFlagMultiSelect) != 0;
  const bool saves = (startUp->flags & kFlagPathMustExist) != 0;
  if (saves) startUp->listStyle = kListSingle;
  if (multiple) startUp->listStyle = kListMultiple;
  if (multiple || (saves && plain)) return {"ＯＫ", "キャンセル"};
  return saves ? ButtonTexts{"保存", {}} : ButtonTexts{};
}

/// Long work: the window shows it, and Esc gives it up.
class LongWork {
 public:
  explicit LongWork(BrowserView& view) : view_(view) { view_.StartWork(); }
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;
  ~LongWork() { view_.EndWork(); }

  [[nodiscard]] KeepGoing Asked() const {
    return [this] { return view_.GoesOn(); };
  }

 private:
  BrowserView& view_;
};

}  // namespace

FileBrowser::FileBrowser(StartUp startUp, BrowserView& view, BrowserQuestions& questions,
                         const PatientServices& machine, CwSession& session, ActiveModel activeModel)
    : startUp_(std::move(startUp)),
      view_(view),
      questions_(questions),
      machine_(machine),
      services_(machine.Table()),
      session_(session),
      activeModel_(activeModel),
      drives_(machine.Plain(), machine.Waits().Workers(), machine.Waits().LateWaker()),
      journey_(services_, MakeFileKind(startUp_.title, startUp_.description, startUp_.kindCode, session),
               startUp_.folderFixed),
      listing_(machine),
      label_(services_),
      memory_(services_) {}

// ---------------------------------------------------------------------------------------------------------------------
// start

Reply<Done> FileBrowser::Start() {
  Reply<Done> started;
  const Ended ended = Carry([this, &started] { started = StartAt(); });
  return ended == Ended::Done ? started : std::nullopt;
}

Reply<Done> FileBrowser::StartAt() {
  machine_.Waits().LimitTo(kPlacesMs);
  ShowCaption();
  ShowInitialName();
  ReadLayout();
  machine_.Waits().Linger(kDriveMs, [this] { return drives_.IsKnownFor(startUp_.initialFolder); });
  if (!journey_.ReadPlaces(drives_, *this)) return std::nullopt;
  machine_.Waits().LimitTo(kStartMs);
  journey_.StandAtStart(startUp_.initialFolder);
  listing_.Begin(journey_);
  ShowButtonTexts();
  ShowRecentFiles();
  ShowRecentCounts();
  view_.ShowKindLine(KindLine(Kind()));
  view_.ShowPlaces();
  ShowFirstView();
  view_.PutInPlace();
  const Reply<bool> listed = ListStart();
  if (!listed) return std::nullopt;
  AwaitNames();
  journey_.Record(view_.NameText());
  ShowHowItStarted(*listed);
  return Done{};
}

/// What the user wants meanwhile says it by itself, and something else that does not answer keeps the folder that was
/// asked for from nobody.
void FileBrowser::ShowHowItStarted(bool listed) {
  if (next_) return;
  if (!listed) return view_.ShowRemark(kDoesNotAnswer);
  const bool standsElsewhere = !IsSamePath(Places().Folder(), startUp_.initialFolder);
  if (machine_.Waits().WasCutShort() && standsElsewhere) view_.ShowRemark(kAboveIsShown);
}

/// Its columns take the window's first size for their measure, and are there while the rows are waited for.
void FileBrowser::ShowFirstView() {
  listing_.Announce(journey_, View());
  view_.ShowView(View(), startUp_.listStyle);
  ShowColumns();
  ShowWays();
  view_.FocusList();
  announced_ = listing_.Mode();
}

/// Drives that answer have their names when the window is shown.
void FileBrowser::AwaitNames() {
  machine_.Waits().Linger(kNamesMs, [this] { return drives_.AreKnown(); });
  if (journey_.TakeDrives(drives_)) view_.ShowPlaceNames();
}

/// Where the start folder does not answer, the nearest place above it that does is shown; a fixed folder has none above
/// it and stays empty. The user can go there all the same, and where he wants to go elsewhere that is what is listed.
/// Whether anything was.
Reply<bool> FileBrowser::ListStart() {
  Reply<bool> lists = next_ ? Reply<bool>(false) : ListsAt(Places().current());
  const auto searches = [&] { return lists && !*lists && !next_; };
  const std::vector<Location> instead = searches() ? journey_.Instead() : std::vector<Location>();
  for (auto place = instead.begin(); place != instead.end() && searches(); ++place) lists = ListsAt(*place);
  if (lists && !*lists) ShowView(View());
  return lists;
}

/// Whether the place at which the browser is to start answers.
Reply<bool> FileBrowser::ListsAt(Location location) {
  journey_.StandAt(std::move(location));
  try {
    return FillAnew() ? Reply<bool>(true) : std::nullopt;
  } catch (const WaitEnded& ended) {
    if (ended.how == WaitEnded::How::WindowGone) throw;
  }
  view_.ShowPlaces();
  return false;
}

void FileBrowser::Started() {
  started_ = true;
  RunNext();
}

// ---------------------------------------------------------------------------------------------------------------------
// intents

/// What comes during a wait takes its place.
void FileBrowser::Take(Intent intent) {
  if (machine_.Waits().IsWaiting()) {
    next_ = std::move(intent);
    return machine_.Waits().GiveUp();
  }
  next_.reset();
  if (Carry(intent) != Ended::Gone && started_) RunNext();
}

/// The list of drives is made anew when nothing else is under way.
void FileBrowser::LateAnswers() {
  if (!journey_.TakeDrives(drives_)) return;
  view_.ShowPlaceNames();
  hasNewNames_ = listing_.Mode() == ListingMode::Drives;
  if (started_ && carried_ == 0) RunNext();
}

void FileBrowser::RunNext() {
  while (next_) {
    const Intent intent = *std::exchange(next_, std::nullopt);
    if (Carry(intent) == Ended::Gone) return next_.reset();
  }
  if (carried_ > 0 || !std::exchange(hasNewNames_, false) || listing_.Mode() != ListingMode::Drives) return;
  Carry([this] { ListAndRestore(); });
}

/// The one place where a wait without an answer comes out.
FileBrowser::Ended FileBrowser::Carry(const Intent& intent) {
  std::optional<Before> outer = std::exchange(before_, std::nullopt);
  ++carried_;
  const AtScopeEnd over([this, &outer] {
    before_ = std::move(outer);
    --carried_;
  });
  try {
    const Patience::Step step(machine_.Waits());
    intent();
    return Ended::Done;
  } catch (const WaitEnded& ended) {
    if (ended.how == WaitEnded::How::WindowGone) return Ended::Gone;
  }
  PutBack();
  return Ended::GivenUp;
}

/// Before an intent goes to another place.
void FileBrowser::RememberPlace() {
  if (!before_) before_ = Before{journey_.Remember(), view_.NameText(), view_.NameText(), choice_};
}

/// What the user has typed meanwhile stays.
void FileBrowser::PutBack() {
  if (!before_) return;
  journey_.PutBack(std::move(before_->journey));
  journey_.TakeDrives(drives_);
  choice_ = std::move(before_->choice);
  if (view_.NameText() == before_->shownName) view_.ShowName(before_->name);
  view_.ShowPlaces();
  ShowWays();
}

/// What changes the folder's entries cannot be done during a wait.
bool FileBrowser::IsBusy() {
  const bool busy = machine_.Waits().IsWaiting();
  if (busy) services_.session->Beep(os::kBeepDefault);
  return busy;
}

void FileBrowser::ShowCaption() {
  if (startUp_.caption.empty()) startUp_.caption = view_.Caption();
  startUp_.caption = shift_jis::Truncate(startUp_.caption, kCaptionLimit);
  view_.ShowCaption(startUp_.caption);
}

void FileBrowser::ShowInitialName() {
  const std::string name = TextInBuffer(startUp_);
  journey_.ApplyInitialName(name);
  if (startUp_.capacity > 1) view_.LimitName(startUp_.capacity - 1);
  view_.ShowName(name);
}

void FileBrowser::ShowButtonTexts() { view_.ShowButtonTexts(ApplyFlags(&startUp_)); }

void FileBrowser::ReadLayout() { memory_.Load(Kind(), ModelExtension(session_), PlaceToKeep()); }

/// Its corner in pixels of the screen, its size in those at 96 dpi.
Rect FileBrowser::PlaceToKeep() const {
  const Rect place = view_.Place();
  const Size size = view_.ScreenScale().FromScreen(Size{place.width(), place.height()});
  return {place.left, place.top, place.left + size.width, place.top + size.height};
}

void FileBrowser::ShowRecentFiles() {
  const LayoutRecord& layout = memory_.Layout();
  view_.ShowRecentFiles(ShownRecentFiles(layout.recentFiles, layout.recentCount));
}

void FileBrowser::ShowRecentCounts() {
  std::vector<std::string> items;
  items.reserve(kRecentCountItems);
  for (int count = 0; count < kRecentCountItems; ++count) items.push_back(RecentCountItem(count));
  view_.ShowRecentCounts(items, memory_.Layout().recentCount);
}

Rect FileBrowser::SavedPlace(Size current, const Screens& screens) const {
  const LayoutRecord& layout = memory_.Layout();
  const Point at{layout.left, layout.top};
  const Size saved = view_.ScreenScale().ToScreen(Size{layout.width, layout.height});
  constexpr Size kNoLimit{std::numeric_limits<int>::max(), std::numeric_limits<int>::max()};
  const Size screen = at == Point{} ? screens.primary : ScreenUnder(PlaceWindow(current, at, saved, kNoLimit), screens);
  return PlaceWindow(current, at, saved, screen);
}

// ---------------------------------------------------------------------------------------------------------------------
// places

void FileBrowser::ChoosePlace(std::optional<std::size_t> row) {
  if (!row) return view_.FocusList();
  Take([this, location = Places().LocationOfRow(*row)] {
    if (OpenPlace(location)) view_.FocusList();
  });
}

Reply<Done> FileBrowser::OpenPlace(Location location) {
  return journey_.CanOpen(location) ? EnterPlace(std::move(location)) : FillAnew();
}

/// The place that was left has the focus, so that the keyboard goes on from there. It is not selected: OK means what it
/// meant.
void FileBrowser::Up() {
  if (startUp_.folderFixed) return;
  Take([this, above = journey_.Above()] {
    if (!above || LeaveFor(*above)) view_.FocusList();
  });
}

Reply<Done> FileBrowser::LeaveFor(Location above) {
  const Place left = Places().rows()[Places().currentRow()];
  const auto entered = EnterPlace(std::move(above));
  if (entered) FocusPlace(left);
  return entered;
}

void FileBrowser::FocusPlace(const Place& place) {
  const auto row = FindRowAt(listing_.Rows(), place.kind, place.path);
  if (row) view_.FocusRow(*row);
}

void FileBrowser::FocusAgain(const KeptRows& kept) {
  const auto row = FindRows(listing_.Rows(), {{}, kept.focused, {}}).focused;
  if (row) view_.FocusRow(static_cast<std::size_t>(*row));
}

void FileBrowser::Refresh() {
  Take([this] {
    if (listing_.Mode() == ListingMode::Drives) AskDrivesAnew();
    ListAndRestore();
  });
}

/// What comes later is shown then, as at the start.
void FileBrowser::AskDrivesAnew() {
  drives_.Ask({});
  AwaitNames();
}

/// The name box is written to only when it shows the names of rows that have gone.
void FileBrowser::ListAndRestore() {
  const KeptRows kept = KeptNow();
  const bool counted = choice_.IsSelection(view_.NameText(), SelectedEntries());
  if (!FillAnew()) return;
  const RowStates found = FindRows(listing_.Rows(), kept);
  listing_.MarkSelected(found.selected);
  view_.RestoreRows(found);
  if (counted && found.selected.size() < kept.selected.size()) return SelectionChanged();
  if (counted) choice_.UserSelected(view_.NameText());
}

/// From a place of which nothing is listed yet, giving that up is the way back.
void FileBrowser::Back() {
  const bool isOnItsWay = machine_.Waits().IsWaiting() && before_ && journey_.HasSteppedSince(before_->journey);
  if (!isOnItsWay) return Take([this] { GoBack(); });
  Take([this, before = before_->journey] {
    if (journey_.HasSteppedSince(before)) GoBack();
  });
}

void FileBrowser::GoBack() {
  RememberPlace();
  const auto name = journey_.Back();
  if (!name) return;
  before_->shownName = *name;
  view_.ShowName(*name);
  view_.ShowPlaces();
  FillAnew();
}

Reply<Done> FileBrowser::EnterPlace(Location location) {
  RememberPlace();
  journey_.Enter(std::move(location), view_.NameText());
  view_.ShowPlaces();
  return FillAnew();
}

void FileBrowser::ShowWays() { view_.ShowWays(journey_.OpenWays()); }

// ---------------------------------------------------------------------------------------------------------------------
// views

/// What could be listed is shown also when the listing has failed. Until there is something to show, what is on the
/// screen stays.
Reply<Done> FileBrowser::SetView(ViewMode view) {
  Reply<Done> filled = Done{};
  bool isThere = true;
  const auto list = [&] {
    try {
      const LongWork work(view_);
      filled = listing_.Fill(journey_, view, *this, work.Asked());
    } catch (const WaitEnded&) {
      isThere = false;
      throw;
    }
  };
  DoBoth(list, [&] {
    if (filled && isThere) ShowView(view);
  });
  return filled;
}

void FileBrowser::ShowView(ViewMode view) {
  const bool hasColumns = std::exchange(announced_, std::nullopt) == listing_.Mode();
  memory_.Layout().view = view;
  if (!hasColumns) {
    view_.ShowView(view, startUp_.listStyle);
    ShowColumns();
  }
  ShowRows();
  ShowWays();
  view_.FocusList();
}

void FileBrowser::ShowColumns() {
  const LayoutRecord& layout = memory_.Layout();
  if (!IsReport(layout.view)) return;
  view_.ShowColumns(ColumnsOf(Shown(), layout, activeModel_(), view_.ColumnSpace(), view_.ScreenScale()));
}

void FileBrowser::ShowRows() {
  view_.ShowRows(&listing_.Table(), Shown());
  if (IsReport(View())) view_.ShowSortMark(0, listing_.Order().direction);
}

void FileBrowser::ChangeView(ViewMode view) {
  Take([this, view] { ChangeViewTo(view); });
}

void FileBrowser::ChangeViewTo(ViewMode view) {
  SaveWindow();
  const KeptRows kept = KeptNow();
  if (view == ViewMode::Titles && HasModelTitles(Kind().titleClass) && !EditTitles()) return;
  if (SetView(view)) FocusAgain(kept);
}

/// New columns start with widths of their own: those on the screen are of the former ones, so they are not taken over.
Reply<Done> FileBrowser::EditTitles() {
  LayoutRecord& layout = memory_.Layout();
  const auto titles = questions_.AskTitles(layout.slowSort, SlotsOf(layout.titles));
  if (!titles) return std::nullopt;
  if (!*titles) return Done{};
  layout.titles = TitleColumnsOf(**titles);
  memory_.SaveWindow();
  return Done{};
}

void FileBrowser::ClickHeader(int column) {
  Take([this, column] { SortByHeader(column); });
}

/// A key may mean a column that there is not.
void FileBrowser::SortByHeader(int column) {
  if (static_cast<std::size_t>(column) >= view_.ColumnWidths().size()) return;
  const HeaderClick click = listing_.Click(column, memory_.Layout());
  if (click.answer == HeaderAnswer::Ignore) return;
  if (click.answer == HeaderAnswer::Ask && !AgreesToSlowSort().value_or(false)) return;
  SortBy(click.order, column);
}

/// A yes holds until the view is set anew.
Reply<bool> FileBrowser::AgreesToSlowSort() {
  const auto agreed = questions_.AskSlowSort(memory_.Layout().slowSort);
  if (agreed && *agreed) listing_.AgreeToSlowSort();
  return agreed;
}

/// Given up, everything stays as it was.
void FileBrowser::SortBy(const SortOrder& order, int column) {
  const LongWork work(view_);
  if (!listing_.SortBy(order, Shown(), work.Asked())) return;
  view_.ShowRows(&listing_.Table(), Shown());
  view_.ShowSortMark(column, order.direction);
}

// ---------------------------------------------------------------------------------------------------------------------
// what the core asks

/// Work that was under way begins anew: Esc that closed the question gives up nothing.
Reply<std::optional<Credentials>> FileBrowser::Ask(const std::string& path, const std::string& userName) {
  auto credentials = questions_.AskLogon(path, userName);
  if (credentials && listing_.IsRunning()) view_.StartWork();
  return credentials;
}

Reply<bool> FileBrowser::Accepts(std::string* path, const NameRules& rules) {
  return CheckName(path, rules, {services_, questions_});
}

}  // namespace filedialog
