#include "dlglib/utility/rules/path_name.h"

#include <algorithm>

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

/// The full path of a typed one, both EUC-JP; its file-name part stays as typed.
[[nodiscard]] std::string Resolve(std::string_view keyword, const std::string& typed) {
  const std::string name = typed.substr(FileNamePos(typed));
  std::string full = CwFile::ToFullPath(std::string(keyword), typed, false, false);
  if (full.empty() || full.size() > kMaxLength) full = typed;
  RestoreSpelling(&full, name);
  return full;
}

[[nodiscard]] std::string FromSjis(std::string_view path) {
  return CwEucEncoder::Sjis2Euc(std::string(path), kMaxLength);
}

[[nodiscard]] std::string RealOfEuc(std::string_view keyword, const std::string& typed) {
  std::string real = CwEucEncoder::Euc2Sjis(Resolve(keyword, typed), kMaxLength);
  std::replace(real.begin(), real.end(), '/', '\\');
  return real;
}

}  // namespace

std::size_t FileNamePos(std::string_view path) noexcept { return path.find_last_of("/\\") + 1; }

std::size_t LastByte(std::string_view sjis, int byte) noexcept {
  if (byte < 0 || byte >= 0x80) return kNone;
  return shift_jis::FindLast(sjis, static_cast<char>(byte));
}

std::string_view FolderOf(std::string_view realPath) noexcept { return realPath.substr(0, LastByte(realPath, '\\')); }

std::string Real(std::string_view keyword, std::string_view path) {
  return RealOfEuc(keyword, path_encoding::Read(path, kMaxLength).likely);
}

std::vector<std::string> RealPaths(std::string_view keyword, std::string_view path) {
  const path_encoding::Readings readings = path_encoding::Read(path, kMaxLength);
  std::vector<std::string> paths = {RealOfEuc(keyword, readings.likely)};
  if (readings.other) paths.push_back(RealOfEuc(keyword, *readings.other));
  return paths;
}

std::string RealOfSjis(std::string_view keyword, std::string_view sjis) { return RealOfEuc(keyword, FromSjis(sjis)); }

std::string Internal(std::string_view keyword, std::string_view path) {
  const std::string full = Resolve(keyword, FromSjis(path));
  std::string internal(euc_jp::Truncate(full, kMaxLength));
  std::replace(internal.begin(), internal.end(), '\\', '/');
  return internal;
}

}  // namespace path_name
