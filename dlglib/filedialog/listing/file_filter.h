// Whether a file that the finder found belongs to the kind.
#pragma once

#include <string>

#include "dlglib/base/encoded_text.h"
#include "dlglib/filedialog/basics/file_kind.h"
#include "dlglib/filedialog/listing/long_names.h"

namespace filedialog {

/// The test of one listing. Constant files and attribute tables are opened to see what they are; all other kinds are
/// told by the name alone.
class FileFilter {
 public:
  /// Keeps nothing of `kind`. On the thread that the suite is used on.
  explicit FileFilter(const FileKind& kind);

  /// Whether the file belongs to the kind. `path` is the finder's: full, "/" as separator. Folders are not asked about.
  /// `names`: of the same listing. Any thread.
  [[nodiscard]] bool Keeps(EucView path, LongNames& names) const;

 private:
  enum class Rule { All, Constant, AttributeTable, Raster, Sxf };
  static Rule RuleOf(const FileKind& kind);

  Rule rule_;
  std::string extension_;  ///< which names of attribute tables get that have none
};

}  // namespace filedialog
