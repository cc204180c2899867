// The way through the places: where the browser stands, what kind of file it looks for there, and the steps back.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/file_kind.h"
#include "dlglib/filedialog/browser/browser_view.h"
#include "dlglib/filedialog/names/typed_name.h"
#include "dlglib/filedialog/place/location_history.h"
#include "dlglib/filedialog/place/location_tree.h"

namespace filedialog {

class Journey {
 public:
  /// `folderFixed`: the folder cannot be changed, no step is recorded and no way is open.
  Journey(const os::ServiceTable& services, FileKind kind, bool folderFixed)
      : services_(services), kind_(std::move(kind)), folderFixed_(folderFixed), places_(*services.shell) {}

  /// Reads the places of the machine, with the drives as far as they are known. `logon` may be asked by the network.
  [[nodiscard]] Reply<Done> ReadPlaces(const DriveNames& drives, NetworkLogon& logon);
  /// Stands in the start folder (StartLocation).
  void StandAtStart(std::string_view initialFolder);
  /// LocationTree::TakeDrives.
  bool TakeDrives(const DriveNames& drives) { return places_.TakeDrives(drives.Drives()); }
  /// Lets the initial file name choose extension and pattern (filedialog::ApplyInitialName).
  void ApplyInitialName(std::string_view name) { filedialog::ApplyInitialName(name, &kind_); }

  [[nodiscard]] const LocationTree& Places() const { return places_; }
  [[nodiscard]] const FileKind& Kind() const { return kind_; }
  [[nodiscard]] bool FolderFixed() const { return folderFixed_; }
  /// The folder that is listed; empty at the computer and at network places that are no folders.
  [[nodiscard]] std::string Folder() const { return places_.Folder(); }

  /// Goes to a place of the tree. `name`: the text of the name box, to which "back" returns. Going to where the newest
  /// step stands already records none.
  void Enter(Location location, const std::string& name);
  /// Goes there without a step: the start has not been shown yet.
  void StandAt(Location location) { places_.Enter(std::move(location)); }
  /// Records where it stands, as the start and a new folder do.
  void Record(const std::string& name);
  void UsePattern(const PatternChange& change);
  /// Where to start instead when the place where it stands does not answer: the deepest folder above it that does,
  /// asked for from the device's root down, then the root, then what lies above the device. None while the folder is
  /// fixed. Each call that hangs takes a worker, so that no other folder of the device is tried.
  [[nodiscard]] std::vector<Location> Instead() const;
  /// The place that "up" leads to; none at the desktop and while the folder is fixed.
  [[nodiscard]] std::optional<Location> Above() const;
  /// Takes back the newest step, place, pattern and extension; answers the name that was shown there. None without a
  /// step to go back to, and while the folder is fixed.
  [[nodiscard]] std::optional<std::string> Back();

  /// Where it stands, to be put back when a step is given up.
  struct State {
    FileKind kind;
    LocationTree places;
    LocationHistory history;
  };
  [[nodiscard]] State Remember() const { return {kind_, places_, history_}; }
  void PutBack(State state);
  /// Whether it has recorded a step since.
  [[nodiscard]] bool HasSteppedSince(const State& state) const { return history_.size() > state.history.size(); }

  [[nodiscard]] Ways OpenWays() const;
  /// Whether a place of the location bar is still there. A folder below a drive may have gone since its row was made;
  /// everything else is shown as far as it can be read.
  [[nodiscard]] bool CanOpen(const Location& location) const;

 private:
  [[nodiscard]] bool Answers(std::size_t row) const;

  const os::ServiceTable& services_;
  FileKind kind_;
  bool folderFixed_;
  LocationTree places_;
  LocationHistory history_;
};

}  // namespace filedialog
