#include "dlglib/filedialog/browser/file_browser.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/base/encoder.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/base/suite_kinds.h"
#include "dlglib/filedialog/basics/kind_class.h"
#include "platform/suite/crvncontrol.h"

namespace filedialog {

namespace {

constexpr std::size_t kCaptionLimit = 256;

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
                         const os::ServiceTable& services, CwSession& session)
    : startUp_(std::move(startUp)),
      view_(view),
      questions_(questions),
      services_(services),
      session_(session),
      journey_(services, MakeFileKind(startUp_.title, startUp_.description, startUp_.kindCode, session),
               startUp_.folderFixed),
      listing_(services),
      label_(services),
      memory_(services) {}

// ---------------------------------------------------------------------------------------------------------------------
// start

Reply<Done> FileBrowser::Start() {
  ShowCaption();
  ShowInitialName();
  if (!journey_.Start(startUp_.initialFolder, *this)) return std::nullopt;
  ShowButtonTexts();
  ReadLayout();
  ShowRecentFiles();
  ShowRecentCounts();
  view_.ShowKindLine(KindLine(Kind()));
  view_.ShowPlaces();
  journey_.Record(view_.NameText());
  ShowWays();
  return ListAnew();
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
  if (row && !OpenPlaceOfRow(*row)) return;
  view_.FocusList();
}

Reply<Done> FileBrowser::OpenPlaceOfRow(std::size_t row) {
  Location location = Places().LocationOfRow(row);
  return journey_.CanOpen(location) ? EnterPlace(std::move(location)) : ListAnew();
}

void FileBrowser::Up() {
  if (startUp_.folderFixed) return;
  auto above = journey_.Above();
  if (above && !EnterPlace(std::move(*above))) return;
  view_.FocusList();
}

void FileBrowser::Back() {
  const auto name = journey_.Back();
  if (!name) return;
  view_.ShowName(*name);
  view_.ShowPlaces();
  ListAnew();
}

Reply<Done> FileBrowser::EnterPlace(Location location) {
  journey_.Enter(std::move(location), view_.NameText());
  view_.ShowPlaces();
  return ListAnew();
}

void FileBrowser::ShowWays() { view_.ShowWays(journey_.OpenWays()); }

// ---------------------------------------------------------------------------------------------------------------------
// views

/// What could be listed is shown also when the listing has failed.
Reply<Done> FileBrowser::SetView(ViewMode view) {
  memory_.Layout().view = view;
  view_.ShowView(view, startUp_.listStyle);
  Reply<Done> filled = Done{};
  const auto list = [this, view, &filled] {
    const LongWork work(view_);
    filled = listing_.Fill(journey_, view, *this, work.Asked());
  };
  DoBoth(list, [this, &filled] {
    if (filled) ShowView();
  });
  return filled;
}

void FileBrowser::ShowView() {
  ShowListing();
  ShowWays();
  view_.FocusList();
}

void FileBrowser::ShowListing() {
  const LayoutRecord& layout = memory_.Layout();
  const bool report = IsReport(layout.view);
  if (report) view_.ShowColumns(ColumnsOf(Shown(), layout, view_.ColumnSpace(), view_.ScreenScale()));
  view_.ShowRows(&listing_.Table(), Shown());
  if (report) view_.ShowSortMark(0, listing_.Order().direction);
}

void FileBrowser::ChangeView(ViewMode view) {
  SaveWindow();
  if (view == ViewMode::Titles && HasModelTitles(Kind().titleClass) && !EditTitles()) return;
  SetView(view);
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
