// CvRowReader: what the rows of the list say beside their names, read while they are drawn and never waited for.
//
// The rows that are seen are asked about first, a page at a time and on a worker. A device that answers at once is
// waited for with the drawing, so that nobody sees a row without its date; from one that does not, the rows are drawn
// anew when it has answered.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/shown_listing.h"
#include "platform/framework/wnd.h"
#include "platform/os/os.h"
#include "platform/os/workers.h"

class CvRowReader final {
 public:
  /// `services` must be callable on any thread. Without workers all calls are made in place. All must outlive this.
  CvRowReader(CWnd& list, const os::ServiceTable& services, os::Workers* workers);
  CvRowReader(const CvRowReader&) = delete;
  CvRowReader& operator=(const CvRowReader&) = delete;
  ~CvRowReader();

  /// Other rows are shown: `table` (null for none) and what they say.
  void Show(filedialog::EntryTable* table, const filedialog::ShownListing& listing);
  /// The list begins to paint.
  void BeginPaint();
  /// Describes a row that is about to be drawn, if the device answers at once, and asks about the `page` rows from it
  /// on.
  void Describe(std::size_t row, std::size_t page);
  /// Asked for the space of a drive; what it answered last when it does not at once.
  [[nodiscard]] os::Drives& Drives() const;

  /// The message that a late answer comes with.
  static constexpr UINT kAnswered = WM_APP + 2;
  void OnAnswered();

 private:
  class Call;
  class Page;
  class Spaces;

  [[nodiscard]] std::shared_ptr<Call> Begin(std::string path, std::function<void()> ask);
  [[nodiscard]] bool AnswersAtOnce(Call& call);
  void AskPage(std::size_t row, std::size_t page);
  void LeavePage();
  void Tell();

  CWnd& list_;
  const os::ServiceTable& services_;
  os::Workers* workers_;
  filedialog::EntryTable* table_ = nullptr;
  filedialog::ShownListing listing_;
  std::shared_ptr<Page> page_;      ///< on its way
  std::shared_ptr<Call> pageCall_;  ///< the same, on its worker
  std::set<std::size_t> fresh_;     ///< rows that were told and not drawn since
  bool keepsFresh_ = false;         ///< the next paint draws them
  bool isSlow_ = false;             ///< the device was not waited for last time
  std::unique_ptr<Spaces> spaces_;
};
