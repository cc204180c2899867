// Whether a file that the finder found belongs to the kind.
#pragma once

#include <string>

#include "dlglib/filedialog/basics/file_kind.h"

namespace filedialog {

/// The test of one listing. Constant files and attribute tables are opened to see what they are; all other kinds are
/// told by the name alone.
class FileFilter {
 public:
  /// Keeps nothing of `kind`.
  explicit FileFilter(const FileKind& kind);

  /// Whether the file belongs to the kind. `eucPath` is the finder's: EUC-JP, full, "/" as separator. Folders are not
  /// asked about.
  [[nodiscard]] bool Keeps(const std::string& eucPath) const;

 private:
  enum class Rule { All, Constant, AttributeTable, Raster, Sxf };
  static Rule RuleOf(const FileKind& kind);

  Rule rule_;
};

}  // namespace filedialog
