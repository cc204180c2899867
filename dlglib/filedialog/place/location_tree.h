// The places of the location bar: the fixed places, and the folders of the current path under their drive.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/place/fixed_places.h"
#include "dlglib/filedialog/place/place.h"
#include "platform/os/os.h"

namespace filedialog {

/// What is listed at a location.
enum class LocationKind { Desktop, Computer, Network, Folder };

class LocationTree {
 public:
  /// `shell` knows the desktop directory; it must outlive the tree.
  explicit LocationTree(os::Shell& shell) : shell_(&shell) {}

  /// Begins with these fixed places, at the first drive.
  void Build(FixedPlaces places);
  /// Takes over what is known of the drives by now. Rows stay where they are: one that turns out to be none goes when
  /// the rows are made the next time. True when the text or image of a row has changed.
  bool TakeDrives(const std::vector<NamedDrive>& drives);

  [[nodiscard]] const std::vector<Place>& fixed() const { return fixed_; }
  [[nodiscard]] const Location& current() const { return current_; }
  /// Position of the network among the fixed places.
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

  /// The location of the first drive that is shown, or of the computer when the machine has none.
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

  /// The row that "up" goes to from a row: the nearest one before it with a lower level; none at the desktop.
  [[nodiscard]] std::optional<std::size_t> RowAbove(std::size_t below) const;
  [[nodiscard]] std::optional<std::size_t> RowAbove() const { return RowAbove(currentRow_); }
  /// The rows of the folders above the current row, from their device's root down. Those of networks and computers are
  /// no folders.
  [[nodiscard]] std::vector<std::size_t> FolderRowsAbove() const;

 private:
  struct Rows {
    std::vector<Place> rows;
    std::size_t current = 0;
  };
  [[nodiscard]] Rows RowsAt(const Location& location) const;
  bool ShowDrive(std::size_t fixed, const DriveLook& look);
  [[nodiscard]] std::optional<Location> FindFromHere(std::string_view folder) const;

  os::Shell* shell_;
  std::vector<Place> fixed_;
  std::vector<Place> rows_;
  Location current_;
  std::size_t currentRow_ = 0;
  std::size_t firstDrive_ = kComputerPlace;
  std::size_t network_ = 0;
};

}  // namespace filedialog
