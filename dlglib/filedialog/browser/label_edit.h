// The edit of a name in the list, from its begin to the moment at which the name is carried out. The listing may change
// in between, so the row is kept as a copy.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/names/folder_operations.h"
#include "platform/os/os.h"

namespace filedialog {

class LabelEdit {
 public:
  /// `services` must outlive this.
  explicit LabelEdit(const os::ServiceTable& services) : services_(services) {}

  /// Begins with a row of `folder`. Without memory no row is being edited.
  void Begin(std::string folder, const FileEntry& row);
  /// The edit has ended with a name (bytes behind a terminator do not count).
  void Give(std::string_view name);

  struct Committed {
    OperationResult result;
    std::string folder;
    std::optional<std::string> listedName;  ///< the entry's name now, when the folder is to be listed again
  };
  /// Carries the given name out, once; none when there is no name to carry out.
  [[nodiscard]] std::optional<Committed> Commit();

 private:
  const os::ServiceTable& services_;
  EntryTable row_;
  std::string folder_;
  std::optional<std::string> name_;
};

}  // namespace filedialog
