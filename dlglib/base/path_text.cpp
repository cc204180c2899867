#include "dlglib/base/path_text.h"

#include "dlglib/base/folded_path.h"
#include "dlglib/base/shift_jis.h"

namespace filedialog {

namespace {

bool IsDrive(std::string_view path) { return path.size() == 2 && path[1] == ':'; }

}  // namespace

std::string_view WithoutSeparator(std::string_view path) {
  const std::size_t last = shift_jis::FindLast(path, '\\');
  return last != shift_jis::kNone && last + 1 == path.size() ? path.substr(0, last) : path;
}

std::string FolderPath(std::string_view path) {
  std::string folder(WithoutSeparator(path));
  if (IsDrive(folder)) folder += '\\';
  return folder;
}

bool IsSamePath(std::string_view a, std::string_view b) { return FoldedPath(a) == FoldedPath(b); }

std::string_view NamePart(std::string_view path) {
  const std::size_t last = shift_jis::FindLast(path, '\\');
  return last == shift_jis::kNone ? path : path.substr(last + 1);
}

std::string_view ExtensionPart(std::string_view name) {
  const std::size_t point = shift_jis::FindLast(name, '.');
  return point == shift_jis::kNone ? std::string_view() : name.substr(point);
}

bool IsExactExtension(std::string_view extension) {
  return !extension.empty() && extension.front() == '.' && !shift_jis::HasWildcard(extension);
}

}  // namespace filedialog
