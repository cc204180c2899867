// What the list holds: the rows of the place where the browser stands, and their order.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/keep_going.h"
#include "dlglib/filedialog/browser/journey.h"
#include "dlglib/filedialog/listing/entry_order.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/list_columns.h"
#include "dlglib/filedialog/listing/shown_listing.h"
#include "dlglib/filedialog/memory/layout_record.h"

namespace filedialog {

class Listing {
 public:
  /// Without rows, and with room for those of a usual folder. `services` must outlive this.
  explicit Listing(const os::ServiceTable& services);

  /// Lists the place anew, by name: the table is filled once. The title view shows titles. `logon` is asked by
  /// the network. Given up, what was found stays, sorted.
  [[nodiscard]] Reply<Done> Fill(const Journey& journey, ViewMode view, NetworkLogon& logon,
                                 const KeepGoing& keepGoing);

  [[nodiscard]] EntryTable& Table() { return table_; }
  [[nodiscard]] std::span<const FileEntry> Rows() const { return table_.rows(); }
  [[nodiscard]] const FileEntry* Row(int row) const;
  [[nodiscard]] ListingMode Mode() const { return mode_; }
  [[nodiscard]] const SortOrder& Order() const { return order_; }
  /// Whether the rows are being collected: the list's columns are not those of a finished view then.
  [[nodiscard]] bool IsRunning() const { return running_; }
  [[nodiscard]] ShownListing Shown(const FileKind& kind, const TitleColumns& titles) const {
    return {mode_, kind.titleClass, titles};
  }

  /// What a click on a column's title asks for, in the view and with the rule for slow sorts of `layout`.
  [[nodiscard]] HeaderClick Click(int column, const LayoutRecord& layout) const;
  /// The user has agreed to slow sorts of this listing.
  void AgreeToSlowSort() { slowSortAgreed_ = true; }
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
  [[nodiscard]] Reply<Done> FillByNetwork(const Journey& journey, NetworkLogon& logon, const KeepGoing& keepGoing);
  [[nodiscard]] Reply<Done> FillByFolder(const Journey& journey, NetworkLogon& logon, const KeepGoing& keepGoing);
  void ListRows(const Journey& journey, const KeepGoing& keepGoing);

  const os::ServiceTable& services_;
  EntryTable table_;
  std::vector<Place> networkPlaces_;  ///< what the rows of a network listing stand for
  ListingMode mode_ = ListingMode::Details;
  SortOrder order_;
  bool slowSortAgreed_ = false;
  bool running_ = false;
};

}  // namespace filedialog
