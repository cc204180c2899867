// What the machine's drives are called, asked beside the dialog: a drive that does not answer keeps nobody waiting, nor
// the names of the others back, unless a second one does not answer either.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/background_call.h"
#include "dlglib/filedialog/place/drive_label.h"
#include "platform/os/os.h"

namespace filedialog {

/// A drive whose letter the machine has.
struct NamedDrive {
  std::string root;               ///< letter, colon, backslash
  bool isKnown = false;           ///< it has answered, or has gone
  std::optional<DriveLook> look;  ///< none for a drive that is not shown; until it has answered a fixed one's, unnamed
};

/// What its row in the location bar says.
[[nodiscard]] std::string DriveText(const DriveLook& look, std::string_view root);

class DriveNames {
 public:
  /// `services` must be callable on any thread and live as long as the program. Without workers (null) all is asked in
  /// place. `answered` is called after each answer, on any thread.
  DriveNames(const os::ServiceTable& services, os::Workers* workers, std::function<void()> answered);
  DriveNames(const DriveNames&) = delete;
  DriveNames& operator=(const DriveNames&) = delete;
  ~DriveNames();

  /// Begins to ask about every drive of the machine, that of the folder first. Asked again, a drive that has gone since
  /// is known to be none.
  void Ask(std::string_view folder);
  /// What is known by now, in the order of the letters.
  [[nodiscard]] std::vector<NamedDrive> Drives() const;
  /// Whether all drives have answered.
  [[nodiscard]] bool AreKnown() const;
  /// Whether the drive of a folder has; where the machine has no such drive, all have to.
  [[nodiscard]] bool IsKnownFor(std::string_view folder) const;

 private:
  struct Asked;

  [[nodiscard]] std::vector<Asked> AllOf(std::uint32_t mask) const;
  void Begin(Asked* drive);

  const os::ServiceTable& services_;
  os::Workers* workers_;
  std::function<void()> answered_;
  std::vector<Asked> asked_;
};

}  // namespace filedialog
