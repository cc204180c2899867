#include "dlglib/filedialog/listing/file_filter.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/basics/kind_class.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncui.h"

namespace filedialog {

namespace {

constexpr char kAttributeTable[] = "#ATRTABLE#";

// ".JIF" is one of them and ".GIF" is not: callers rely on it.
constexpr std::array<std::string_view, 6> kRasterExtensions{".TIF", ".TIFF", ".BMP", ".JPG", ".JIF", ".JPEG"};
constexpr std::array<std::string_view, 2> kSxfExtensions{".P21", ".SFC"};

/// In capitals, from the last "." of the file part on; empty when there is none. In EUC-JP no byte of a longer
/// character looks like "/" or ".", so the bytes are searched.
std::string UpperExtension(const std::string& eucPath) {
  const std::string_view name = std::string_view(eucPath).substr(eucPath.rfind('/') + 1);
  const std::size_t point = name.rfind('.');
  return point == std::string_view::npos ? std::string() : shift_jis::ToUpperBytes(name.substr(point));
}

template <std::size_t N>
bool HasExtension(const std::string& eucPath, const std::array<std::string_view, N>& extensions) {
  return std::find(extensions.begin(), extensions.end(), UpperExtension(eucPath)) != extensions.end();
}

bool IsAttributeTable(const std::string& eucPath) {
  return CwItemAttrTable2::IsDefinitionFile(CwFile::ToFullPath(kAttributeTable, eucPath, true, true));
}

}  // namespace

FileFilter::FileFilter(const FileKind& kind) : rule_(RuleOf(kind)) {}

FileFilter::Rule FileFilter::RuleOf(const FileKind& kind) {
  if (kind.keyword == "#CONSTANT#") return Rule::Constant;
  if (kind.keyword == kAttributeTable) return Rule::AttributeTable;
  if (IsRasterKind(kind.keyword)) return HasExactExtension(kind) ? Rule::All : Rule::Raster;
  return IsSxfKind(kind.keyword) && kind.sharesSxfFolder ? Rule::Sxf : Rule::All;
}

bool FileFilter::Keeps(const std::string& eucPath) const {
  switch (rule_) {
    case Rule::Constant:
      return cnsver(eucPath.c_str(), nullptr) == 0;
    case Rule::AttributeTable:
      return IsAttributeTable(eucPath);
    case Rule::Raster:
      return HasExtension(eucPath, kRasterExtensions);
    case Rule::Sxf:
      return HasExtension(eucPath, kSxfExtensions);
    case Rule::All:
      break;
  }
  return true;
}

}  // namespace filedialog
