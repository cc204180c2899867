#include "dlglib/filedialog/listing/file_filter.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "dlglib/base/encoder.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/basics/kind_class.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncui.h"

namespace filedialog {

namespace {

constexpr char kAttributeTable[] = "#ATRTABLE#";

// ".JIF" is one of them and ".GIF" is not: programs that ask for images expect exactly these.
constexpr std::array<std::string_view, 6> kRasterExtensions{".TIF", ".TIFF", ".BMP", ".JPG", ".JIF", ".JPEG"};
constexpr std::array<std::string_view, 2> kSxfExtensions{".P21", ".SFC"};

/// The last "." is searched byte by byte: it is no byte of a longer character in either encoding.
std::string UpperExtension(std::string_view name) {
  const std::size_t point = name.rfind('.');
  return point == std::string_view::npos ? std::string() : shift_jis::ToUpperBytes(name.substr(point));
}

/// Only a short name stands for another one.
std::string ExtensionOf(EucView path, LongNames& names) {
  const std::string_view name = path.bytes().substr(path.bytes().rfind('/') + 1);
  if (name.find('~') == std::string_view::npos) return UpperExtension(name);
  return UpperExtension(names.NameOf(encoder::ToRealPath(EucText(path)).bytes()));
}

template <std::size_t N>
bool IsOneOf(const std::string& extension, const std::array<std::string_view, N>& extensions) {
  return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

/// What the suite puts behind the names of attribute tables that have no extension.
std::string ExtensionOfTables() {
  const std::string bare = "/A";
  const std::string full = CwFile::ToFullPath(kAttributeTable, bare, true, true);
  return full.starts_with(bare) ? full.substr(bare.size()) : std::string();
}

bool IsAttributeTable(EucView path, const std::string& extension) {
  const std::string_view name = path.bytes().substr(path.bytes().rfind('/') + 1);
  std::string full(path.bytes());
  if (name.find('.') == std::string_view::npos) full += extension;
  return CwItemAttrTable2::IsDefinitionFile(full);
}

}  // namespace

FileFilter::FileFilter(const FileKind& kind) : rule_(RuleOf(kind)) {
  if (rule_ == Rule::AttributeTable) extension_ = ExtensionOfTables();
}

FileFilter::Rule FileFilter::RuleOf(const FileKind& kind) {
  if (kind.keyword == "#CONSTANT#") return Rule::Constant;
  if (kind.keyword == kAttributeTable) return Rule::AttributeTable;
  if (IsRasterKind(kind.keyword)) return HasExactExtension(kind) ? Rule::All : Rule::Raster;
  return IsSxfKind(kind.keyword) && kind.sharesSxfFolder ? Rule::Sxf : Rule::All;
}

bool FileFilter::Keeps(EucView path, LongNames& names) const {
  switch (rule_) {
    case Rule::Constant:
      return cnsver(std::string(path.bytes()).c_str(), nullptr) == 0;
    case Rule::AttributeTable:
      return IsAttributeTable(path, extension_);
    case Rule::Raster:
      return IsOneOf(ExtensionOf(path, names), kRasterExtensions);
    case Rule::Sxf:
      return IsOneOf(ExtensionOf(path, names), kSxfExtensions);
    case Rule::All:
      break;
  }
  return true;
}

}  // namespace filedialog
