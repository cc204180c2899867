// What the list holds: the rows of the place where the browser stands, and their order.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/keep_going.h"
#include "dlglib/filedialog/basics/patient_services.h"
#include "dlglib/filedialog/browser/journey.h"
#include "dlglib/filedialog/listing/entry_order.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/list_columns.h"
#include "dlglib/filedialog/listing/shown_listing.h"
#include "dlglib/filedialog/memory/layout_record.h"

namespace filedialog {

class Listing {
 public:
  /// Without rows. `machine` must outlive this.
  explicit Listing(const PatientServices& machine);
  ~Listing();

  /// Begins to list the place on a worker, if it is a folder, for the next Fill.
  void Begin(const Journey& journey);
  /// What Fill is going to show of the place, without its rows.
  void Announce(const Journey& journey, ViewMode view);
  /// Lists the place anew, by name: the table is filled once. The title view shows titles. `logon` is asked by
  /// the network. Given up, what was found stays, sorted; where nothing was found, WaitEnded leaves the rows of before.
  [[nodiscard]] Reply<Done> Fill(const Journey& journey, ViewMode view, NetworkLogon& logon,
                                 const KeepGoing& keepGoing);

  [[nodiscard]] EntryTable& Table() { return now_.table; }
  [[nodiscard]] std::span<const FileEntry> Rows() const { return now_.table.rows(); }
  [[nodiscard]] const FileEntry* Row(int row) const;
  [[nodiscard]] ListingMode Mode() const { return now_.mode; }
  [[nodiscard]] const SortOrder& Order() const { return now_.order; }
  /// Whether the rows are being collected: the list's columns are not those of a finished view then.
  [[nodiscard]] bool IsRunning() const { return running_; }
  [[nodiscard]] ShownListing Shown(const FileKind& kind, const TitleColumns& titles) const {
    return {now_.mode, kind.titleClass, titles};
  }

  /// What a click on a column's title asks for, in the view and with the rule for slow sorts of `layout`.
  [[nodiscard]] HeaderClick Click(int column, const LayoutRecord& layout) const;
  /// The user has agreed to slow sorts of this listing.
  void AgreeToSlowSort() { now_.slowSortAgreed = true; }
  /// Puts the rows into order, having described them where the order needs it. False when that was given up: nothing
  /// changes.
  bool SortBy(const SortOrder& order, const ShownListing& shown, const KeepGoing& keepGoing);

  /// Makes the rows of the given positions the selected ones.
  void MarkSelected(std::span<const int> rows);
  /// Marks the row of a name as selected, and answers its position; none when no row shows it.
  std::optional<std::size_t> MarkNamed(std::string_view name);
  /// The place that opening a row leads to; none when it is not there any more.
  [[nodiscard]] std::optional<Location> Opened(const FileEntry& entry, const LocationTree& places) const;

 private:
  /// What is listed. A new listing takes the place of the former one when it is there.
  struct Contents {
    EntryTable table;
    std::vector<Place> networkPlaces;  ///< what the rows of a network listing stand for
    ListingMode mode = ListingMode::Details;
    SortOrder order;
    bool slowSortAgreed = false;
  };
  /// Whom a listing asks.
  struct Asks {
    NetworkLogon& logon;
    const KeepGoing& keepGoing;
  };

  class Begun;

  [[nodiscard]] static ListingMode ModeAt(const Journey& journey, ViewMode view);
  [[nodiscard]] Begun BegunAt(const Journey& journey, const KeepGoing& keepGoing);
  [[nodiscard]] Reply<Done> Collect(const Journey& journey, ViewMode view, const Asks& asks, Contents* next);
  [[nodiscard]] Reply<Done> FillByNetwork(const Journey& journey, const Asks& asks, Contents* next) const;
  [[nodiscard]] Reply<Done> FillByFolder(const Journey& journey, const Asks& asks, Contents* next);
  void ListRows(const Journey& journey, const KeepGoing& keepGoing, EntryTable* table);
  [[nodiscard]] bool DescribeRows(const ShownListing& shown, const KeepGoing& keepGoing);

  const PatientServices& machine_;
  Contents now_;
  std::unique_ptr<Begun> begun_;  ///< beforehand
  bool running_ = false;
};

}  // namespace filedialog
