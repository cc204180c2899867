#include "dlglib/filsel/request_names.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dlglib/base/encoder.h"
#include "dlglib/base/shift_jis.h"
#include "platform/suite/crvnbc.h"

namespace filsel {

namespace {

constexpr char kAnyName[] = "*";

// Letters of a double-byte character are none of ASCII in EUC-JP, so capitals are made byte by byte.
bool IsSameText(std::string_view a, std::string_view b) {
  return shift_jis::ToUpperBytes(a) == shift_jis::ToUpperBytes(b);
}

// Bytes of the extension (from the last "." on) that both texts end in; 0 without one.
std::size_t SharedExtension(std::string_view name, std::string_view defaults) {
  const std::size_t dot = name.rfind('.');
  const std::size_t defaultDot = defaults.rfind('.');
  if (dot == std::string_view::npos || defaultDot == std::string_view::npos) return 0;
  return IsSameText(name.substr(dot), defaults.substr(defaultDot)) ? name.size() - dot : 0;
}

bool IsNetworkPath(std::string_view path) { return path.starts_with("//"); }

bool NamesDrive(std::string_view path) { return IsNetworkPath(path) || (path.size() > 1 && path[1] == ':'); }

// Bytes of the drive ("C:") or of the share ("//server/share") that a path begins with.
std::size_t RootSize(std::string_view path) {
  constexpr std::size_t kDriveSize = 2;
  if (!IsNetworkPath(path)) return NamesDrive(path) ? kDriveSize : 0;
  const std::size_t server = std::min(path.find('/', 2), path.size());
  return std::min(path.find('/', server + 1), path.size());
}

// A path (internal form) without a drive is one of the current drive, one without a root lies in the current folder.
// "/" is no byte of a double-byte character, whatever the path's encoding is.
std::string OnItsDrive(std::string path, os::Files& files) {
  CwFile::ToAbstractPathSeparator(path);
  if (path.empty() || NamesDrive(path)) return path;
  const SjisText folder(files.CurrentFolder());
  std::string current = encoder::ToInternalPath(folder, 2 * folder.size()).bytes();
  if (current.empty()) return path;
  if (path.starts_with('/')) return current.substr(0, RootSize(current)) + path;
  if (!current.ends_with('/')) current += '/';
  return current + path;
}

// The drive or share of a path and the names behind it; "." and ".." are worked out, as the browser does it.
std::vector<std::string> PartsOf(const std::string& path, os::Files& files) {
  const std::string whole = OnItsDrive(path, files);
  const std::size_t rootSize = RootSize(whole);
  std::vector<std::string> parts{whole.substr(0, rootSize)};
  for (std::size_t at = rootSize; at < whole.size(); ++at) {
    const std::size_t end = std::min(whole.find('/', at), whole.size());
    const std::string part = whole.substr(at, end - at);
    at = end;
    if (part == ".." && parts.size() > 1) parts.pop_back();
    if (!part.empty() && part != "." && part != "..") parts.push_back(part);
  }
  return parts;
}

// The name without a folder that ends in "/". When they differ as they stand, what they lead to decides; a name that
// begins at no root leads into the folder of its kind, and not into the current one.
std::string WithoutFolder(const std::string& name, const std::string& folder, os::Files& files) {
  if (IsSameText(std::string_view(name).substr(0, folder.size()), folder)) return name.substr(folder.size());
  if (!name.starts_with('/') && !name.starts_with('\\') && !NamesDrive(name)) return name;
  const std::vector<std::string> parts = PartsOf(name, files);
  const std::vector<std::string> folders = PartsOf(folder, files);
  const bool inside =
      parts.size() > folders.size() && std::equal(folders.begin(), folders.end(), parts.begin(), IsSameText);
  if (!inside) return name;
  std::string rest = parts[folders.size()];
  for (std::size_t i = folders.size() + 1; i < parts.size(); ++i) rest += '/' + parts[i];
  return rest;
}

SjisText RealFolder(std::string internal, os::Files& files) {
  return encoder::ToRealPath(EucText(OnItsDrive(std::move(internal), files)), kTextLimit);
}

}  // namespace

EucText FullName(const EucText& keyword, const EucText& name, FullNameUse use) {
  std::string full = CwFile::ToFullPath(keyword.bytes(), name.bytes(), use == FullNameUse::ShortName, true);
  return full.size() <= kTextLimit ? EucText(std::move(full)) : EucText();
}

SjisText FilterTitle(const EucText& keyword) {
  const std::string pattern = CwFile::GetFilename(CwFile::ToFullPath(keyword.bytes(), kAnyName, false, true));
  const EucText title(keyword.bytes() + "(" + (pattern.empty() ? kAnyName : pattern) + ")");
  return encoder::ToSjis(title, title.size());
}

StartPlace DeriveStart(const EucText& keyword, const EucText& initialName, os::Files& files) {
  EucText place = FullName(keyword, initialName, FullNameUse::Path);
  if (place.empty()) place = initialName;
  const std::string& path = place.bytes();
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return {RealFolder(path, files), initialName};
  return {RealFolder(path.substr(0, std::max<std::size_t>(slash, 1)), files), EucText(path.substr(slash + 1))};
}

EucText WithoutDefaults(const EucText& keyword, const EucText& name, os::Files& files) {
  const EucText defaultPath = FullName(keyword, EucText(kAnyName), FullNameUse::Path);
  const std::string defaults = defaultPath.empty() ? kAnyName : defaultPath.bytes();
  std::string kept = WithoutFolder(name.bytes(), defaults.substr(0, defaults.rfind('/') + 1), files);
  const std::size_t extension = SharedExtension(name.bytes(), defaults);
  kept.resize(kept.size() - std::min(extension, kept.size()));
  return EucText(std::move(kept));
}

}  // namespace filsel
