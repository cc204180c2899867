#include "dlglib/filsel/request_names.h"

#include <algorithm>
#include <array>
#include <utility>

#include "dlglib/utility/shift_jis.h"
#include "platform/suite/crvnbc.h"

namespace filsel {

namespace {

struct KindRow {
  std::string_view keyword;
  int code;
};

constexpr std::array<KindRow, 9> kKinds = {{{"#MODEL#", 1},
                                            {"#SUBMODEL#", 1},
                                            {"#PARTS:BIN#", 2},
                                            {"#PSET:BIN#", 3},
                                            {"#MACRO#", 4},
                                            {"#MASK:SAVE#", 5},
                                            {"#TEXT#", 6},
                                            {"#CONSTANT#", 7},
                                            {"#ATRTABLE#", 8}}};

constexpr char kAnyName[] = "*";

// The extension from the last "." on; empty without one.
std::string_view Extension(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(dot);
}

}  // namespace

int KindCode(std::string_view keyword) noexcept {
  const auto found =
      std::find_if(kKinds.begin(), kKinds.end(), [keyword](const KindRow& row) { return row.keyword == keyword; });
  return found == kKinds.end() ? 0 : found->code;
}

std::string ToReal(std::string internalName, std::size_t limit) {
  CwFile::ToPlatformPathSeparator(internalName);
  return CwEucEncoder::Euc2Sjis(internalName, limit);
}

std::string ToInternal(const std::string& realName, std::size_t limit) {
  std::string internalName = CwEucEncoder::Sjis2Euc(realName, limit);
  CwFile::ToAbstractPathSeparator(internalName);
  return internalName;
}

std::string FullName(const std::string& keyword, const std::string& name, FullNameUse use) {
  std::string full = CwFile::ToFullPath(keyword, name, use == FullNameUse::ShortName, true);
  return full.size() <= kTextLimit ? full : std::string();
}

std::string FilterTitle(const std::string& keyword) {
  const std::string pattern = CwFile::GetFilename(CwFile::ToFullPath(keyword, kAnyName, false, true));
  const std::string title = keyword + "(" + (pattern.empty() ? kAnyName : pattern) + ")";
  return CwEucEncoder::Euc2Sjis(title, title.size());
}

StartPlace DeriveStart(const std::string& keyword, const std::string& initialName) {
  std::string place = FullName(keyword, initialName, FullNameUse::Path);
  if (place.empty()) place = initialName;
  const std::size_t slash = place.rfind('/');
  if (slash == std::string::npos) return {ToReal(std::move(place), kTextLimit), initialName};
  return {ToReal(place.substr(0, slash), kTextLimit), place.substr(slash + 1)};
}

std::string WithoutDefaults(const std::string& keyword, const std::string& name) {
  const std::string defaultPath = FullName(keyword, kAnyName, FullNameUse::Path);
  const std::string defaults = shift_jis::ToUpperBytes(defaultPath.empty() ? kAnyName : defaultPath);
  const std::string capitals = shift_jis::ToUpperBytes(name);

  std::size_t end = name.size();
  const std::string_view extension = Extension(capitals);
  if (!extension.empty() && extension == Extension(defaults)) end -= extension.size();

  const std::string_view folder = std::string_view(defaults).substr(0, defaults.rfind('/') + 1);
  const std::size_t start = capitals.starts_with(folder) ? folder.size() : 0;
  return start < end ? name.substr(start, end - start) : std::string();
}

}  // namespace filsel
