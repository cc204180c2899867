#include "dlglib/filedialog/listing/row_reader.h"

#include <algorithm>
#include <atomic>
#include <string_view>
#include <utility>
#include <vector>

#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/basics/call_site.h"

namespace filedialog {

namespace {

bool IsKnown(const FileEntry& entry) { return IsFile(entry.kind) && entry.described; }

}  // namespace

/// Rows that are asked about together.
class RowReader::Page {
 public:
  Page(const EntryTable& table, const ShownListing& listing, std::vector<std::size_t> rows,
       std::function<void()> answered)
      : descriptions_(table, listing, std::move(rows)), answered_(std::move(answered)) {}

  /// On a worker.
  void FindOut(os::Files& files) {
    if (isLeft_) return;
    descriptions_.FindOut(files, [this] {
      SayNews();
      return !isLeft_;
    });
  }
  /// From now on each answer is said, as no drawing waits for them any more.
  void BeLate() { isLate_ = true; }
  void Leave() { isLeft_ = true; }
  void Tell(EntryTable* table, std::set<std::size_t>* fresh) {
    descriptions_.Tell(table, [this, fresh](std::size_t row) {
      told_.push_back(row);
      fresh->insert(row);
    });
  }
  /// What is answered from here on is said again.
  void BeginNews() { hasNews_ = false; }
  [[nodiscard]] bool Has(std::size_t row) const {
    const std::vector<std::size_t>& rows = descriptions_.Rows();
    return std::find(rows.begin(), rows.end(), row) != rows.end();
  }
  [[nodiscard]] bool HasOpen() const { return descriptions_.HasOpen(); }
  [[nodiscard]] bool IsAskingAny() const { return descriptions_.IsAskingAny(); }
  [[nodiscard]] bool IsAnswered() const { return descriptions_.Count() == descriptions_.Rows().size(); }
  [[nodiscard]] const std::vector<std::size_t>& Told() const { return told_; }

  /// Whether a row of that path is being asked about, so that asking again would only hang beside it.
  [[nodiscard]] bool IsAsking(std::string_view path) const { return descriptions_.IsAsking(path); }
  /// A row was drawn without its answer, as this still asks about it.
  void BeMissed() { isMissed_ = true; }
  [[nodiscard]] bool IsMissed() const { return isMissed_; }

 private:
  /// One message for all that has been answered since the last one was taken.
  void SayNews() {
    if (isLate_ && !hasNews_.exchange(true)) answered_();
  }

  RowDescriptions descriptions_;
  std::function<void()> answered_;
  std::vector<std::size_t> told_;
  std::atomic<bool> isLeft_ = false;
  std::atomic<bool> isLate_ = false;
  std::atomic<bool> hasNews_ = false;
  bool isMissed_ = false;
};

/// The drives' space. Only that is asked while rows are drawn.
class RowReader::Spaces final : public os::Drives {
 public:
  explicit Spaces(RowReader& reader) : reader_(reader) {}

  std::uint32_t Mask() override { return reader_.services_.drives->Mask(); }
  os::DriveType Type(const std::string& /*root*/) override { return os::DriveType::Unknown; }
  std::optional<std::string> VolumeName(const std::string& /*root*/) override { return std::nullopt; }

  std::optional<os::DriveSpace> Space(const std::string& root) override {
    Known& known = known_[root];
    if (reader_.workers_ == nullptr) return known.space = reader_.services_.drives->Space(root);
    if (known.call == nullptr && !std::exchange(known.isFresh, false)) Ask(root, &known);
    if (known.call != nullptr && reader_.AnswersAtOnce(*known.call)) Take(&known);
    return known.space;
  }
  /// The last answer.
  [[nodiscard]] std::optional<os::DriveSpace> Told(const std::string& root) const {
    const auto known = known_.find(root);
    return known != known_.end() ? known->second.space : std::nullopt;
  }
  /// Late answers. True when there is one.
  bool TakeAll() {
    bool isNew = false;
    for (auto& [root, known] : known_) {
      if (known.call == nullptr || !known.call->IsDone()) continue;
      Take(&known);
      known.isFresh = true;
      isNew = true;
    }
    return isNew;
  }

 private:
  struct Known {
    std::optional<os::DriveSpace> space;  ///< what it answered last
    std::shared_ptr<std::optional<os::DriveSpace>> answer;
    std::unique_ptr<BackgroundCall> call;  ///< on its way
    bool isFresh = false;                  ///< answered and not drawn since
  };

  void Ask(const std::string& root, Known* known) {
    known->answer = std::make_shared<std::optional<os::DriveSpace>>();
    const auto ask = [answer = known->answer, drives = reader_.services_.drives, root] {
      *answer = drives->Space(root);
    };
    known->call = std::make_unique<BackgroundCall>(reader_.workers_, SiteOf(root), ask, reader_.answered_);
  }
  static void Take(Known* known) {
    known->space = *known->answer;
    known->call.reset();
  }

  RowReader& reader_;
  std::map<std::string, Known> known_;
};

/// The same for those who only want to know what is to be seen.
class RowReader::ToldSpaces final : public os::Drives {
 public:
  explicit ToldSpaces(const Spaces& spaces) : spaces_(spaces) {}

  std::uint32_t Mask() override { return 0; }
  os::DriveType Type(const std::string& /*root*/) override { return os::DriveType::Unknown; }
  std::optional<std::string> VolumeName(const std::string& /*root*/) override { return std::nullopt; }
  std::optional<os::DriveSpace> Space(const std::string& root) override { return spaces_.Told(root); }

 private:
  const Spaces& spaces_;
};

RowReader::RowReader(const os::ServiceTable& services, os::Workers* workers, std::function<void()> answered,
                     unsigned glanceMs)
    : services_(services),
      workers_(workers),
      answered_(std::move(answered)),
      glanceMs_(glanceMs),
      spaces_(std::make_unique<Spaces>(*this)),
      toldSpaces_(std::make_unique<ToldSpaces>(*spaces_)) {}

RowReader::~RowReader() {
  if (page_) page_->Leave();
}

void RowReader::Show(EntryTable* table, const ShownListing& listing) {
  table_ = table;
  listing_ = listing;
  LeavePage();
  fresh_.clear();
  isSlow_ = false;
}

/// One that still asks is remembered until that call has come back.
void RowReader::LeavePage() {
  if (!page_) return;
  page_->Leave();
  if (page_->IsAskingAny()) left_.push_back(page_);
  page_.reset();
  calls_.clear();
}

void RowReader::BeginPaint() {
  if (!std::exchange(keepsFresh_, false)) fresh_.clear();
}

void RowReader::Describe(std::size_t row, std::size_t page) {
  if (table_ == nullptr) return;
  FileEntry& entry = table_->rows()[row];
  const bool isInPlace = workers_ == nullptr || !NeedsAnswer(entry);
  if (isInPlace) return filedialog::Describe(*services_.files, &entry, listing_);
  if (IsKnown(entry) || fresh_.erase(row) > 0) return;
  const bool isOnItsWay = page_ && page_->Has(row);
  if (!isOnItsWay && IsMissing(entry)) return;
  if (!isOnItsWay) AskPage(row, page);
  if (isSlow_) return;
  isSlow_ = !calls_.front()->IsDoneWithin(glanceMs_);
  if (isSlow_) GoOnBeside();
  Tell();
  fresh_.erase(row);
}

/// Whether a page that was left still asks about it.
bool RowReader::IsMissing(const FileEntry& entry) const {
  for (const std::shared_ptr<Page>& left : left_) {
    if (!left->IsAsking(entry.path)) continue;
    left->BeMissed();
    return true;
  }
  return false;
}

void RowReader::AskPage(std::size_t row, std::size_t page) {
  LeavePage();
  std::vector<std::size_t> rows;
  const std::size_t end = std::min(row + std::max<std::size_t>(page, 1), table_->size());
  for (std::size_t at = row; at < end; ++at) {
    const FileEntry& entry = table_->rows()[at];
    if (!IsKnown(entry) && NeedsAnswer(entry) && !IsMissing(entry)) rows.push_back(at);
  }
  auto asked = std::make_shared<Page>(*table_, listing_, std::move(rows), answered_);
  Ask(asked);
  page_ = std::move(asked);
  if (isSlow_) GoOnBeside();
}

/// Throws where there is no memory for the call: a page without one would be waited for in vain. It counts on no
/// device: a row may be a folder that hangs where all others answer.
void RowReader::Ask(std::shared_ptr<Page> page) {
  const auto ask = [page = std::move(page), files = services_.files] { page->FindOut(*files); };
  calls_.push_back(std::make_unique<BackgroundCall>(workers_, os::Site{}, ask, answered_));
}

/// A row that does not answer keeps no other one back: a second worker goes on behind it.
void RowReader::GoOnBeside() {
  page_->BeLate();
  if (page_->HasOpen()) Ask(page_);
}

/// What has been found out so far. At the end all of it counts as fresh: rows that were told before the others are
/// drawn once more with them.
void RowReader::Tell() {
  const bool isDone =
      page_->IsAnswered() || std::all_of(calls_.begin(), calls_.end(), [](const auto& call) { return call->IsDone(); });
  page_->Tell(table_, &fresh_);
  if (!isDone) return;
  fresh_.insert(page_->Told().begin(), page_->Told().end());
  LeavePage();
}

/// Rows of pages that were left can be asked about again.
bool RowReader::TakeLeft() {
  const auto hasEnded = [](const std::shared_ptr<Page>& left) { return !left->IsAskingAny(); };
  const auto isMissed = [&hasEnded](const std::shared_ptr<Page>& left) { return hasEnded(left) && left->IsMissed(); };
  const bool areMissed = std::any_of(left_.begin(), left_.end(), isMissed);
  std::erase_if(left_, hasEnded);
  return areMissed;
}

/// True when there are rows to be drawn anew.
bool RowReader::TakePage() {
  if (!page_) return false;
  const std::shared_ptr<Page> page = page_;
  const std::size_t before = page->Told().size();
  page->BeginNews();
  Tell();
  return page->Told().size() > before;
}

bool RowReader::TakeAnswers() {
  const bool hadPage = page_ != nullptr;
  const bool hasSpace = spaces_->TakeAll();
  const bool hasLeft = TakeLeft();
  const bool hasRows = TakePage();
  if (hadPage || hasSpace || hasLeft) isSlow_ = page_ != nullptr;
  if (!hasRows && !hasSpace && !hasLeft) return false;
  keepsFresh_ = true;
  return true;
}

os::Drives& RowReader::Drives() const { return *spaces_; }

os::Drives& RowReader::ToldDrives() const { return *toldSpaces_; }

bool RowReader::AnswersAtOnce(const BackgroundCall& call) {
  if (!isSlow_) isSlow_ = !call.IsDoneWithin(glanceMs_);
  return call.IsDone();
}

}  // namespace filedialog
