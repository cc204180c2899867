#include "dlglib/filedialog/listing/row_reader.h"

#include <algorithm>
#include <atomic>
#include <string_view>
#include <utility>
#include <vector>

#include "dlglib/base/path_text.h"

namespace filedialog {

namespace {

bool IsKnown(const FileEntry& entry) { return IsFile(entry.kind) && entry.described; }

/// Rows of a folder in which a call hangs are not asked about beside it. It is no path: to list that folder is another
/// question.
std::string NameOfRows(const FileEntry& entry) {
  return std::string("rows ").append(entry.path.substr(0, entry.path.size() - NamePart(entry.path).size()));
}

}  // namespace

/// Rows that are asked about together.
class RowReader::Page {
 public:
  Page(const EntryTable& table, const ShownListing& listing, std::vector<std::size_t> rows)
      : descriptions(table, listing, std::move(rows)) {}

  void FindOut(os::Files& files) {
    descriptions.FindOut(files, [this] { return !isLeft; });
  }
  [[nodiscard]] bool Has(std::size_t row) const {
    return std::find(descriptions.Rows().begin(), descriptions.Rows().end(), row) != descriptions.Rows().end();
  }

  RowDescriptions descriptions;
  std::atomic<bool> isLeft = false;
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
    if (known.call == nullptr && !std::exchange(known.isFresh, false)) Ask(root, &known);
    if (known.call != nullptr && reader_.AnswersAtOnce(*known.call)) Take(&known);
    return known.space;
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
    known->call = std::make_unique<BackgroundCall>(reader_.workers_, root, ask, reader_.answered_);
  }
  static void Take(Known* known) {
    known->space = *known->answer;
    known->call.reset();
  }

  RowReader& reader_;
  std::map<std::string, Known> known_;
};

RowReader::RowReader(const os::ServiceTable& services, os::Workers* workers, std::function<void()> answered,
                     unsigned glanceMs)
    : services_(services),
      workers_(workers),
      answered_(std::move(answered)),
      glanceMs_(glanceMs),
      spaces_(std::make_unique<Spaces>(*this)) {}

RowReader::~RowReader() { LeavePage(); }

void RowReader::Show(EntryTable* table, const ShownListing& listing) {
  table_ = table;
  listing_ = listing;
  LeavePage();
  fresh_.clear();
  isSlow_ = false;
}

void RowReader::LeavePage() {
  if (page_) page_->isLeft = true;
  page_.reset();
  pageCall_.reset();
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
  if (!page_ || !page_->Has(row)) AskPage(row, page);
  const bool answers = AnswersAtOnce(*pageCall_);
  Tell();
  if (answers) fresh_.erase(row);
}

void RowReader::AskPage(std::size_t row, std::size_t page) {
  LeavePage();
  std::vector<std::size_t> rows;
  const std::size_t end = std::min(row + std::max<std::size_t>(page, 1), table_->size());
  for (std::size_t at = row; at < end; ++at) {
    const FileEntry& entry = table_->rows()[at];
    if (!IsKnown(entry) && NeedsAnswer(entry)) rows.push_back(at);
  }
  page_ = std::make_shared<Page>(*table_, listing_, std::move(rows));
  const auto ask = [page = page_, files = services_.files] { page->FindOut(*files); };
  pageCall_ = std::make_unique<BackgroundCall>(workers_, NameOfRows(table_->rows()[row]), ask, answered_);
}

/// What has been found out so far. Rows that are not being drawn now need no question when they are.
void RowReader::Tell() {
  const bool isDone = pageCall_->IsDone();
  const std::size_t before = page_->descriptions.Told();
  page_->descriptions.Tell(table_);
  const std::vector<std::size_t>& rows = page_->descriptions.Rows();
  for (std::size_t i = before; i < page_->descriptions.Told(); ++i) fresh_.insert(rows[i]);
  if (isDone) LeavePage();
}

bool RowReader::TakeAnswers() {
  const bool hasSpace = spaces_->TakeAll();
  const bool hasRows = pageCall_ != nullptr && pageCall_->IsDone();
  if (hasRows) Tell();
  if (!hasRows && !hasSpace) return false;
  isSlow_ = false;
  keepsFresh_ = true;
  return true;
}

os::Drives& RowReader::Drives() const { return workers_ == nullptr ? *services_.drives : *spaces_; }

bool RowReader::AnswersAtOnce(const BackgroundCall& call) {
  if (!isSlow_) isSlow_ = !call.IsDoneWithin(glanceMs_);
  return call.IsDone();
}

}  // namespace filedialog
