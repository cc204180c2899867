#include "dlglib/base/folded_path.h"

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"

namespace filedialog {

/// Letters of single-byte characters made capitals; second bytes stay, for they tell characters apart.
std::string FoldedPath(std::string_view path) {
  const std::string plain = FolderPath(path);
  std::string folded = shift_jis::ToUpperBytes(plain);
  for (std::size_t at = 0; at < plain.size(); at += shift_jis::CharLength(plain, at)) {
    if (shift_jis::CharLength(plain, at) == 2) folded[at + 1] = plain[at + 1];
  }
  return folded;
}

}  // namespace filedialog
