// The places of the location bar: the fixed tree of desktop, computer, drives and network, the folders of the current
// path under their drive, and the history of places that "back" walks.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/place/network_level.h"
#include "platform/os/os.h"

namespace filedialog {

/// One row of the location bar. Texts and paths are Shift_JIS.
struct Place {
  bool marked = false;  ///< the fixed place that holds the current folder
  int level = 0;        ///< indentation
  EntryKind kind = EntryKind::Desktop;
  int index = 0;     ///< position among the fixed places; -1 for a place made ready to be shown on demand
  int sub = 0;       ///< 0 for a fixed place, k for the k-th folder of the current path
  std::string path;  ///< root of a drive, network name, folder; empty for desktop and computer
  std::string text;
  std::shared_ptr<const os::NetResource> resource;  ///< the network's own record of the place, when it came from there
};

/// Where the browser stands: a fixed place and the folders entered below it.
struct Location {
  std::size_t fixed = 0;     ///< position in the fixed places
  std::vector<Place> trail;  ///< outermost first; each has its whole path
};

/// What is listed at a location.
enum class LocationKind { Desktop, Computer, Network, Folder };

class LocationTree {
 public:
  /// Takes the fixed places from the machine: drives in the order of their letters, the client drives of a remote
  /// session, the network. Client drives are looked for in every session, as only the network knows of them; `logon` is
  /// asked when it refuses to list them, before anything is shown.
  void Build(NetworkLogon& logon);

  [[nodiscard]] const std::vector<Place>& fixed() const { return fixed_; }
  [[nodiscard]] const Location& current() const { return current_; }
  /// Position of the computer and of the network among the fixed places.
  [[nodiscard]] std::size_t computer() const { return 1; }
  [[nodiscard]] std::size_t network() const { return network_; }
  [[nodiscard]] LocationKind Kind() const;

  /// The folder that is listed: no trailing "\" but for a drive's root; empty for computer and network places that are
  /// no folders. The desktop gives the desktop directory.
  [[nodiscard]] std::string Folder() const;

  /// The location of a folder: its drive or the network, and one trail place a component; "/" parts components too, "."
  /// and ".." are worked out.
  /// The desktop's own folder is the desktop while that is the current location, and a folder below a computer or share
  /// that the current location came through stands there, so the network's records of them stay.
  /// None when no fixed place holds it (no such drive, a relative path) or its path passes kPathLimit. The file system
  /// is not asked whether it exists.
  [[nodiscard]] std::optional<Location> Find(const std::string& folder) const;

  /// The location of the first drive, or of the computer when the machine has none.
  [[nodiscard]] Location FirstDrive() const;

  /// The location that a displayed row stands for; the current one when there is no such row.
  [[nodiscard]] Location LocationOfRow(std::size_t row) const;

  /// The current location with one more place below it. The two places that stand below the network lead to themselves;
  /// what is found in them stands below the network itself, where the path of a network place is shown.
  [[nodiscard]] Location Below(const Place& place) const;

  /// The network's record of the current location: that of its innermost place that has one. Null when there is none.
  [[nodiscard]] const os::NetResource* Resource() const;

  /// Makes a location of this tree the current one, marks its fixed place and makes the rows anew. Throws
  /// std::bad_alloc and then changes nothing.
  void Enter(Location location);

  /// The displayed rows: the fixed places, each with its position, and below the marked one the folders of the current
  /// path.
  [[nodiscard]] const std::vector<Place>& rows() const { return rows_; }
  [[nodiscard]] std::size_t currentRow() const { return currentRow_; }

  /// The row that "up" goes to: the nearest one before the current row with a lower level; none at the desktop.
  [[nodiscard]] std::optional<std::size_t> RowAbove() const;

 private:
  void AddFixed(int level, EntryKind kind, std::string path, std::string text);
  void AddDrives();
  void AddClientDrives(NetworkLogon& logon);
  void AddNetwork();
  struct Rows {
    std::vector<Place> rows;
    std::size_t current = 0;
  };
  [[nodiscard]] Rows RowsAt(const Location& location) const;
  [[nodiscard]] std::optional<Location> FindFromHere(std::string_view folder) const;
  [[nodiscard]] std::vector<Place> TrailOf(std::size_t holder, std::string_view folder) const;

  std::vector<Place> fixed_;
  std::vector<Place> rows_;
  Location current_;
  std::size_t currentRow_ = 0;
  std::size_t firstDrive_ = 1;
  std::size_t network_ = 0;
};

/// What one step of the history restores.
struct HistoryRecord {
  Location location;
  std::string name;  ///< text of the file name box
  std::string pattern;
  std::string extension;
};

/// The places the user came through, the current one last; at most 1,000, further ones are not recorded.
class LocationHistory {
 public:
  static constexpr std::size_t kCapacity = 1000;

  void Record(HistoryRecord record);
  /// Whether the newest step shows the same: going there again is no step.
  [[nodiscard]] bool EndsAt(const Location& location, std::string_view pattern, std::string_view extension) const;
  [[nodiscard]] bool CanGoBack() const { return records_.size() >= 2; }
  /// Drops the newest record and answers the one before it. Only when CanGoBack.
  [[nodiscard]] const HistoryRecord& Back();
  [[nodiscard]] std::size_t size() const { return records_.size(); }

 private:
  std::vector<HistoryRecord> records_;
};

}  // namespace filedialog
