#include "dlglib/filedialog/window/CvRowReader.h"

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

#include "dlglib/filedialog/listing/entry_description.h"
#include "platform/os/lock.h"

using filedialog::FileEntry;
using filedialog::RowDescriptions;

namespace {

constexpr unsigned kGlanceMs = 60;  ///< longest that drawing waits for a device

}  // namespace

/// A question on its worker.
class CvRowReader::Call final : public os::Errand {
 public:
  Call(std::function<void()> ask, HWND list) : ask_(std::move(ask)), list_(list) {}

  void Run() noexcept override {
    try {
      ask_();
    } catch (...) {
      // Without memory the rows stay as they are.
    }
    lock_.lock();
    isDone_ = true;
    changed_.NotifyAll();
    lock_.unlock();
    ::PostMessageW(list_, kAnswered, 0, 0);
  }
  [[nodiscard]] bool IsDone() const { return isDone_; }
  /// Whether it is done within so many milliseconds.
  [[nodiscard]] bool WaitDone(unsigned milliseconds) {
    const ULONGLONG until = ::GetTickCount64() + milliseconds;
    lock_.lock();
    for (ULONGLONG now = ::GetTickCount64(); !isDone_ && now < until; now = ::GetTickCount64()) {
      changed_.WaitFor(lock_, static_cast<unsigned>(until - now));
    }
    lock_.unlock();
    return isDone_;
  }

 private:
  std::function<void()> ask_;
  HWND list_;
  os::Lock lock_;
  os::Signal changed_;
  std::atomic<bool> isDone_ = false;
};

/// Rows that are asked about together.
class CvRowReader::Page {
 public:
  Page(const filedialog::EntryTable& table, const filedialog::ShownListing& listing, std::vector<std::size_t> rows)
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
class CvRowReader::Spaces final : public os::Drives {
 public:
  explicit Spaces(CvRowReader& reader) : reader_(reader) {}

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
    std::shared_ptr<Call> call;  ///< on its way
    bool isFresh = false;        ///< answered and not drawn since
  };

  void Ask(const std::string& root, Known* known) {
    known->answer = std::make_shared<std::optional<os::DriveSpace>>();
    known->call = reader_.Begin(
        root, [answer = known->answer, drives = reader_.services_.drives, root] { *answer = drives->Space(root); });
  }
  static void Take(Known* known) {
    known->space = *known->answer;
    known->call.reset();
  }

  CvRowReader& reader_;
  std::map<std::string, Known> known_;
};

CvRowReader::CvRowReader(CWnd& list, const os::ServiceTable& services, os::Workers* workers)
    : list_(list), services_(services), workers_(workers), spaces_(std::make_unique<Spaces>(*this)) {}

CvRowReader::~CvRowReader() { Show(nullptr, {}); }

void CvRowReader::Show(filedialog::EntryTable* table, const filedialog::ShownListing& listing) {
  table_ = table;
  listing_ = listing;
  LeavePage();
  fresh_.clear();
  isSlow_ = false;
}

void CvRowReader::LeavePage() {
  if (page_) page_->isLeft = true;
  if (pageCall_) workers_->Forget(*pageCall_);
  page_.reset();
  pageCall_.reset();
}

void CvRowReader::BeginPaint() {
  if (!std::exchange(keepsFresh_, false)) fresh_.clear();
}

void CvRowReader::Describe(std::size_t row, std::size_t page) {
  if (table_ == nullptr) return;
  FileEntry& entry = table_->rows()[row];
  const bool isInPlace = workers_ == nullptr || !filedialog::NeedsAnswer(entry);
  if (isInPlace) return filedialog::Describe(*services_.files, &entry, listing_);
  const bool isKnown = IsFile(entry.kind) && entry.described;
  if (isKnown || fresh_.erase(row) > 0) return;
  if (!page_ || !page_->Has(row)) AskPage(row, page);
  if (!pageCall_) {
    page_.reset();
    return filedialog::Describe(*services_.files, &entry, listing_);
  }
  if (!AnswersAtOnce(*pageCall_)) return Tell();
  Tell();
  fresh_.erase(row);
}

/// The page that is on its way is left where it is: what is seen now comes first.
void CvRowReader::AskPage(std::size_t row, std::size_t page) {
  LeavePage();
  std::vector<std::size_t> rows;
  const std::size_t end = std::min(row + std::max<std::size_t>(page, 1), table_->size());
  for (std::size_t at = row; at < end; ++at) {
    const FileEntry& entry = table_->rows()[at];
    const bool isKnown = IsFile(entry.kind) && entry.described;
    if (!isKnown && filedialog::NeedsAnswer(entry)) rows.push_back(at);
  }
  page_ = std::make_shared<Page>(*table_, listing_, std::move(rows));
  pageCall_ = Begin({}, [page = page_, files = services_.files] { page->FindOut(*files); });
}

/// What has been found out so far. Rows that are not being drawn now need no question when they are.
void CvRowReader::Tell() {
  const std::size_t before = page_->descriptions.Told();
  const bool isDone = pageCall_->IsDone();
  page_->descriptions.Tell(table_);
  const std::vector<std::size_t>& rows = page_->descriptions.Rows();
  for (std::size_t i = before; i < page_->descriptions.Told(); ++i) fresh_.insert(rows[i]);
  if (!isDone) return;
  page_.reset();
  pageCall_.reset();
}

void CvRowReader::OnAnswered() {
  const bool hasSpace = spaces_->TakeAll();
  const bool hasRows = pageCall_ != nullptr && pageCall_->IsDone();
  if (hasRows) Tell();
  if (!hasRows && !hasSpace) return;
  isSlow_ = false;
  keepsFresh_ = true;
  ::InvalidateRect(list_.m_hWnd, nullptr, FALSE);
}

os::Drives& CvRowReader::Drives() const { return workers_ == nullptr ? *services_.drives : *spaces_; }

/// Null when no worker can be had.
std::shared_ptr<CvRowReader::Call> CvRowReader::Begin(std::string path, std::function<void()> ask) {
  auto call = std::make_shared<Call>(std::move(ask), list_.m_hWnd);
  return workers_->Begin(call, std::move(path), os::Urgency::Background) ? call : nullptr;
}

/// A device that has let one drawing wait lets none wait until it has answered.
bool CvRowReader::AnswersAtOnce(Call& call) {
  if (!isSlow_) isSlow_ = !call.WaitDone(kGlanceMs);
  return call.IsDone();
}
