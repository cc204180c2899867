#include "dlglib/utility/rules/path_name.h"

#include <algorithm>
#include <string>
#include <utility>

#include "dlglib/base/encoder.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/utility/rules/path_encoding.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/euc_jp.h"

namespace path_name {
namespace {

/// Writes `name` over the file-name part, byte for byte: a longer resolved name keeps its end.
void RestoreSpelling(std::string* path, std::string_view name) {
  const std::size_t at = FileNamePos(*path);
  path->replace(at, std::min(name.size(), path->size() - at), name);
}

/// The full path of a typed one; its file-name part stays as typed.
[[nodiscard]] EucText Resolve(EucView keyword, const EucText& typed) {
  const std::string& path = typed.bytes();
  std::string full = CwFile::ToFullPath(std::string(keyword.bytes()), path, false, false);
  if (full.empty() || full.size() > kMaxLength) full = path;
  RestoreSpelling(&full, std::string_view(path).substr(FileNamePos(path)));
  return EucText(std::move(full));
}

[[nodiscard]] SjisText RealOfEuc(EucView keyword, const EucText& typed) {
  return encoder::ToRealPath(Resolve(keyword, typed), kMaxLength);
}

}  // namespace

std::size_t FileNamePos(std::string_view path) noexcept { return path.find_last_of("/\\") + 1; }

std::size_t LastByte(SjisView text, int byte) noexcept {
  if (byte < 0 || byte >= 0x80) return kNone;
  return shift_jis::FindLast(text.bytes(), static_cast<char>(byte));
}

SjisView FolderOf(SjisView realPath) noexcept { return SjisView(realPath.bytes().substr(0, LastByte(realPath, '\\'))); }

SjisText Real(EucView keyword, std::string_view path) {
  return RealOfEuc(keyword, path_encoding::Read(path, kMaxLength).likely);
}

std::vector<SjisText> RealPaths(EucView keyword, std::string_view path) {
  const path_encoding::Readings readings = path_encoding::Read(path, kMaxLength);
  std::vector<SjisText> paths = {RealOfEuc(keyword, readings.likely)};
  if (readings.other) paths.push_back(RealOfEuc(keyword, *readings.other));
  return paths;
}

SjisText RealOfSjis(EucView keyword, SjisView path) {
  return RealOfEuc(keyword, encoder::ToEuc(SjisText(path), kMaxLength));
}

EucText Internal(EucView keyword, SjisView path) {
  const EucText full = Resolve(keyword, encoder::ToEuc(SjisText(path), kMaxLength));
  std::string internal(euc_jp::Truncate(full.bytes(), kMaxLength));
  std::replace(internal.begin(), internal.end(), '\\', '/');
  return EucText(std::move(internal));
}

}  // namespace path_name
