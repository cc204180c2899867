// What the rows say beside their names: dates, sizes, drive types and titles, worked out when a row is first needed.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/keep_going.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/shown_listing.h"
#include "platform/os/os.h"

namespace filedialog {

/// Fills in the row's description, and its size or titles, for the listing; call it before a row is drawn or compared
/// by anything but its name.
///
/// - Drives get the text of their type. Network places keep the comment they came with.
/// - Folders and shortcuts to folders get date and size from the file system, in title display an empty description.
///   Drives and folders are worked out again at every call.
/// - Files and shortcuts to files are worked out once, while `described` is false: date and size; in title display the
///   titles of the chosen items for model files (at most kTitleLimit bytes each, all empty when the file cannot be
///   read; the first one is the description too), or the one title of the other kinds that have one.
/// - What cannot be examined gets an empty description and the size 0; a date that cannot be expressed is empty.
///
/// Texts are Shift_JIS. Afterwards `described` is true.
void Describe(os::Files& files, FileEntry* entry, const ShownListing& listing);

/// What a row says, and what is needed to find it out: texts of its own, so that any thread may do it.
struct RowQuestion {
  EntryKind kind = EntryKind::File;
  std::string path;      ///< as the row's
  std::string internal;  ///< EUC-JP: as the suite wants it for titles
  bool isNear = false;   ///< known to be no mere place-holder of a file whose contents lie elsewhere
};
struct RowAnswer {
  std::int32_t sizeKb = 0;
  std::string description;
  std::vector<std::string> titles;
};

/// On the thread that the suite is used on.
[[nodiscard]] RowQuestion QuestionAbout(const FileEntry& entry, const ShownListing& listing);
/// Any thread.
[[nodiscard]] RowAnswer AnswerOf(os::Files& files, const RowQuestion& question, const ShownListing& listing);
/// Whether the row says something that only a device knows, and has not been asked.
[[nodiscard]] bool NeedsAnswer(const FileEntry& entry);
void TakeAnswer(RowAnswer answer, FileEntry* entry);

/// Describes rows: finds out on any thread, and tells the rows afterwards.
class RowDescriptions {
 public:
  /// Every row that is not described yet, as sorting by anything but the name needs it. On the thread that the suite is
  /// used on.
  RowDescriptions(const EntryTable& table, const ShownListing& listing);
  /// The rows of these positions, each of which NeedsAnswer. On the same thread.
  RowDescriptions(const EntryTable& table, const ShownListing& listing, std::vector<std::size_t> rows);

  /// Asks after each row whether to go on, as a file may take long to open. False when it was given up. Several threads
  /// may call it: they share the rows, and one whose row does not answer leaves the others to the next thread.
  bool FindOut(os::Files& files, const KeepGoing& keepGoing = {});
  /// Nobody waits any more, and a call under way may be cancelled: what comes from now on is no answer. Any thread.
  void Leave() { isLeft_ = true; }
  /// Rows so far; any thread.
  [[nodiscard]] std::size_t Count() const { return answered_; }
  /// Whether there are rows that nobody has begun to ask about; any thread.
  [[nodiscard]] bool HasOpen() const { return next_ < rows_.size(); }
  /// Whether a row of that path is being asked about; any thread.
  [[nodiscard]] bool IsAsking(std::string_view path) const;
  [[nodiscard]] bool IsAskingAny() const;
  /// Describes the rows that were found out since the last call of this, and, when this is about every row, those that
  /// need no answer; the others stay as they are. FindOut may still run. `told`: each row that is described now.
  void Tell(EntryTable* table, const std::function<void(std::size_t row)>& told = {});
  [[nodiscard]] const std::vector<std::size_t>& Rows() const { return rows_; }
  /// Of the first row that is asked about; empty when there is none.
  [[nodiscard]] std::string_view FirstPath() const {
    return questions_.empty() ? std::string_view() : questions_.front().path;
  }

 private:
  enum class State : std::uint8_t { Open, Asking, Answered, Told, Failed };
  struct Found {
    RowAnswer answer;
    std::atomic<State> state = State::Open;
  };

  bool FindNear(os::Files& files, const KeepGoing& keepGoing);
  void AnswerRow(os::Files& files, std::size_t at);

  ShownListing listing_;
  std::vector<std::size_t> rows_;
  std::vector<RowQuestion> questions_;
  std::vector<Found> found_;
  std::atomic<std::size_t> next_ = 0;  ///< that nobody has begun
  std::atomic<std::size_t> answered_ = 0;
  std::atomic<bool> isLeft_ = false;
  bool isOfAll_ = false;
  bool isOfMost_ = false;  ///< of the files that the table has
};

}  // namespace filedialog
