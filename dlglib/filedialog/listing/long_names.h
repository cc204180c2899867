// The names that kinds and patterns are tested on, where a file is given by its short one.
//
// A name that the screen's encoding cannot hold is listed, opened and given back by its short name, which has three
// bytes of the extension at most: "_~~1.JPE" may be a ".jpeg". The suite's finder gives the short name alone.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/os/os.h"

namespace filedialog {

/// Of one listing, and on its thread: it reads the folder of a short name once, and no folder without any.
class LongNames {
 public:
  explicit LongNames(os::Files& files) : files_(files) {}

  /// The long name of the file that a real path ends with (Shift_JIS, "?" for what that lacks), or the name in the path
  /// when that is its own. Only a name with "~" can be a short one.
  [[nodiscard]] std::string NameOf(std::string_view path);

 private:
  void ReadFolder(std::string_view folder);

  os::Files& files_;
  std::string folder_;                         ///< that was read last
  std::map<std::string, std::string> longOf_;  ///< by short name
};

}  // namespace filedialog
