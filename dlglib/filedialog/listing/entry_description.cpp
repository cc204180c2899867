#include "dlglib/filedialog/listing/entry_description.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/base/encoder.h"
#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/listing/size_text.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncui.h"

namespace filedialog {

namespace {

constexpr std::size_t kSingleTitleLimit = 256;

const char* DriveText(EntryKind kind) {
  switch (kind) {
    case EntryKind::ClientDrive:
      return "クライアントドライブ";
    case EntryKind::FixedDrive:
      return "ローカルドライブ";
    case EntryKind::NetworkDrive:
      return "ネットワークドライブ";
    case EntryKind::CdRomDrive:
      return "CD-ROM";
    case EntryKind::RemovableDrive:
      return "リムーバブルドライブ";
    default:
      return "RAM-DISK";
  }
}

void AnswerByDate(os::Files& files, const std::string& path, RowAnswer* answer) {
  const auto status = files.Status(FolderPath(path));
  if (!status) return;
  answer->sizeKb = SizeKb(status->size);
  if (const auto local = files.LocalTime(status->modified)) answer->description = DateText(*local);
}

/// Of a file whose contents lie elsewhere, so that opening it would fetch them.
bool IsElsewhere(std::uint32_t attributes) {
  constexpr std::uint32_t kElsewhere = os::kAttributeOffline | os::kAttributeRecallOnOpen | os::kAttributeRecallOnRead;
  return (attributes & kElsewhere) != 0;
}

bool IsPlaceHolder(os::Files& files, const RowQuestion& question) {
  return !question.isNear && IsElsewhere(files.Attributes(FolderPath(question.path)).value_or(0));
}

void AnswerByModelTitles(const std::string& path, const ShownListing& listing, RowAnswer* answer) {
  const std::size_t count = TitleCount(listing);
  if (count == 0) return;
  std::array<int, kTitleSlots> numbers{};
  std::copy(listing.titles.items.begin(), listing.titles.items.end(), numbers.begin());
  std::array<std::string, kTitleSlots> texts;
  const bool failed = GetFilTtl(path, numbers.data(), static_cast<int>(count), texts.data()) != 0;
  if (failed) texts = {};
  for (std::size_t i = 0; i < count; ++i) {
    answer->titles.push_back(encoder::ToSjis(EucText(std::move(texts[i])), kTitleLimit).bytes());
  }
  answer->description = answer->titles.front();
}

void AnswerBySingleTitle(const std::string& path, int titleClass, RowAnswer* answer) {
  std::string title;
  if (GetFilTtl(titleClass, path, &title) != 0) title.clear();
  answer->description = encoder::ToSjis(EucText(std::move(title)), kSingleTitleLimit).bytes();
}

/// Network places keep the comment that they came with.
void DescribeInPlace(FileEntry* entry) {
  if (IsDrive(entry->kind)) entry->description = DriveText(entry->kind);
  entry->described = true;
}

std::vector<std::size_t> RowsToDescribe(const EntryTable& table) {
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < table.size(); ++row) {
    const FileEntry& entry = table.rows()[row];
    if (!entry.described && NeedsAnswer(entry)) rows.push_back(row);
  }
  return rows;
}

bool ShowsSingleTitles(const ShownListing& listing) {
  return listing.mode == ListingMode::Titles && HasSingleTitle(listing.titleClass);
}

/// With the "\\" at its end.
std::string_view FolderBefore(std::string_view path) { return path.substr(0, path.size() - NamePart(path).size()); }

bool ShowsTitles(const ShownListing& listing) { return ShowsModelTitles(listing) || ShowsSingleTitles(listing); }

}  // namespace

void Describe(os::Files& files, FileEntry* entry, const ShownListing& listing) {
  const bool known = IsFile(entry->kind) && entry->described;
  if (known) return;
  if (!NeedsAnswer(*entry)) return DescribeInPlace(entry);
  TakeAnswer(AnswerOf(files, QuestionAbout(*entry, listing), listing), entry);
}

bool NeedsAnswer(const FileEntry& entry) { return !IsDrive(entry.kind) && !IsNetworkPlace(entry.kind); }

RowQuestion QuestionAbout(const FileEntry& entry, const ShownListing& listing) {
  RowQuestion question{entry.kind, std::string(entry.path), {}};
  if (!IsFile(entry.kind)) return question;
  if (ShowsModelTitles(listing)) {
    const EucText internal = encoder::ToInternalPath(SjisText(question.path));
    question.internal = CwFile::ToFullPath("#MODEL#", internal.bytes(), true, false);
  } else if (ShowsSingleTitles(listing)) {
    question.internal = encoder::ToInternalPath(SjisText(question.path)).bytes();
  }
  return question;
}

RowAnswer AnswerOf(os::Files& files, const RowQuestion& question, const ShownListing& listing) {
  RowAnswer answer;
  const bool isFile = IsFile(question.kind);
  if (isFile && ShowsTitles(listing) && IsPlaceHolder(files, question)) return answer;
  if (isFile && ShowsModelTitles(listing)) {
    AnswerByModelTitles(question.internal, listing, &answer);
  } else if (isFile && ShowsSingleTitles(listing)) {
    AnswerBySingleTitle(question.internal, listing.titleClass, &answer);
  } else if (isFile || listing.mode != ListingMode::Titles) {
    AnswerByDate(files, question.path, &answer);
  }
  return answer;
}

void TakeAnswer(RowAnswer answer, FileEntry* entry) {
  entry->sizeKb = answer.sizeKb;
  entry->description = std::move(answer.description);
  entry->titles = std::move(answer.titles);
  entry->described = true;
}

RowDescriptions::RowDescriptions(const EntryTable& table, const ShownListing& listing)
    : RowDescriptions(table, listing, RowsToDescribe(table)) {
  isOfAll_ = true;
  isOfMost_ = rows_.size() >= table.size() / 2;
}

RowDescriptions::RowDescriptions(const EntryTable& table, const ShownListing& listing, std::vector<std::size_t> rows)
    : listing_(listing), rows_(std::move(rows)), found_(rows_.size()) {
  questions_.reserve(rows_.size());
  for (const std::size_t row : rows_) questions_.push_back(QuestionAbout(table.rows()[row], listing));
}

/// To ask about each file by itself takes a fifth of the time in which it is read, a pass over its folder next to none.
/// What the pass has not seen is asked about: it may have failed half-way. False when it was given up.
bool RowDescriptions::FindNear(os::Files& files, const KeepGoing& keepGoing) {
  const auto first = std::ranges::find(questions_, EntryKind::File, &RowQuestion::kind);
  if (first == questions_.end()) return true;
  const std::string_view before = FolderBefore(first->path);
  std::unordered_map<std::string_view, RowQuestion*> byName;
  for (RowQuestion& question : questions_) {
    if (question.kind == EntryKind::File && FolderBefore(question.path) == before) {
      byName.emplace(NamePart(question.path), &question);
    }
  }
  const std::unique_ptr<os::FolderPass> pass = files.OpenFolder(FolderPath(before));
  os::FoundName found;
  while (pass && pass->Next(&found)) {
    const auto asked = byName.find(found.name);
    if (asked != byName.end()) asked->second->isNear = found.exact && !IsElsewhere(found.attributes);
    if (isLeft_ || !GoesOn(keepGoing)) return false;
  }
  return true;
}

bool RowDescriptions::FindOut(os::Files& files, const KeepGoing& keepGoing) {
  if (isOfMost_ && ShowsTitles(listing_) && !FindNear(files, keepGoing)) return false;
  for (std::size_t at = next_++; at < rows_.size(); at = next_++) {
    AnswerRow(files, at);
    ++answered_;
    if (isLeft_ || !GoesOn(keepGoing)) return false;
  }
  return true;
}

/// A row for whose answer there is no memory is one that nobody asks about any more.
void RowDescriptions::AnswerRow(os::Files& files, std::size_t at) {
  Found& found = found_[at];
  State state = State::Failed;
  const AtScopeEnd over([&found, &state] { found.state = state; });
  found.state = State::Asking;
  found.answer = AnswerOf(files, questions_[at], listing_);
  if (!isLeft_) state = State::Answered;
}

bool RowDescriptions::IsAsking(std::string_view path) const {
  for (std::size_t at = 0; at < found_.size(); ++at) {
    if (found_[at].state == State::Asking && questions_[at].path == path) return true;
  }
  return false;
}

bool RowDescriptions::IsAskingAny() const {
  return std::any_of(found_.begin(), found_.end(), [](const Found& found) { return found.state == State::Asking; });
}

void RowDescriptions::Tell(EntryTable* table, const std::function<void(std::size_t row)>& told) {
  for (std::size_t at = 0; at < found_.size(); ++at) {
    if (found_[at].state != State::Answered) continue;
    TakeAnswer(std::move(found_[at].answer), &table->rows()[rows_[at]]);
    found_[at].state = State::Told;
    if (told) told(rows_[at]);
  }
  if (!isOfAll_) return;
  for (FileEntry& entry : table->rows()) {
    if (!NeedsAnswer(entry)) DescribeInPlace(&entry);
  }
}

}  // namespace filedialog
