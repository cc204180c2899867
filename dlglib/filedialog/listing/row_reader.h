// What rows say beside their names, read while they are drawn and never waited for.
//
// Whoever draws a row has it described first. A row that is not known yet is asked about with those below it that are
// seen with it, a page at a time, on a worker in the background; the page before is left where it is, as what is seen
// now comes first. A device that answers at once is waited for with the drawing, so that nobody sees a row without its
// date. One that has let a drawing wait lets none wait until it has answered: rows are drawn without, and anew as the
// answers come. Folders and shortcuts to folders are asked about at every drawing, everything else once.
//
// One row may hang and the others not: a shortcut to a share that has died, a file that is fetched from far away. A
// second worker goes on behind it then, and the row is not asked about again before that call has come back. Two that
// hang hold all workers of the background.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "dlglib/filedialog/basics/background_call.h"
#include "dlglib/filedialog/listing/entry_description.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/shown_listing.h"
#include "platform/os/os.h"
#include "platform/os/workers.h"

namespace filedialog {

class RowReader {
 public:
  static constexpr unsigned kGlanceMs = 60;  ///< longest that a drawing waits

  /// `services` must be callable on any thread and live as long as the program. Without workers (null) all calls are
  /// made in place. `answered` is called behind each answer, on any thread, and also when nobody needs it any more.
  RowReader(const os::ServiceTable& services, os::Workers* workers, std::function<void()> answered,
            unsigned glanceMs = kGlanceMs);
  RowReader(const RowReader&) = delete;
  RowReader& operator=(const RowReader&) = delete;
  ~RowReader();

  /// Other rows are shown: `table` (null for none) and what they say.
  void Show(EntryTable* table, const ShownListing& listing);
  /// A drawing of all that is seen begins.
  void BeginPaint();
  /// Describes a row that is about to be drawn, if the device answers at once, and asks about the `page` rows from it
  /// on.
  void Describe(std::size_t row, std::size_t page);
  /// Asked for the space of a drive; what it answered last when it does not at once.
  [[nodiscard]] os::Drives& Drives() const;
  /// Tells the space that a drive answered last when its row was drawn, and asks none.
  [[nodiscard]] os::Drives& ToldDrives() const;
  /// Takes over what has been answered late; true when the rows are to be drawn anew.
  [[nodiscard]] bool TakeAnswers();

 private:
  class Page;
  class Spaces;
  class ToldSpaces;

  [[nodiscard]] bool AnswersAtOnce(const BackgroundCall& call);
  [[nodiscard]] bool IsMissing(const FileEntry& entry) const;
  void AskPage(std::size_t row, std::size_t page);
  void Ask(std::shared_ptr<Page> page);
  void GoOnBeside();
  void LeavePage();
  void Tell();
  [[nodiscard]] bool TakeLeft();
  [[nodiscard]] bool TakePage();

  const os::ServiceTable& services_;
  os::Workers* workers_;
  std::function<void()> answered_;
  unsigned glanceMs_;
  EntryTable* table_ = nullptr;
  ShownListing listing_;
  std::shared_ptr<Page> page_;                          ///< on its way
  std::vector<std::unique_ptr<BackgroundCall>> calls_;  ///< the same, on one worker or two; none without a page
  std::vector<std::shared_ptr<Page>> left_;             ///< seen no more, and still asking
  std::set<std::size_t> fresh_;                         ///< rows that were told and not drawn since
  bool keepsFresh_ = false;                             ///< the next drawing draws them
  bool isSlow_ = false;                                 ///< the device was not waited for last time
  std::unique_ptr<Spaces> spaces_;
  std::unique_ptr<ToldSpaces> toldSpaces_;
};

}  // namespace filedialog
