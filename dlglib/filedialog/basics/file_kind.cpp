#include "dlglib/filedialog/basics/file_kind.h"

#include "dlglib/base/encoder.h"
#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/base/suite_kinds.h"
#include "dlglib/filedialog/basics/kind_class.h"
#include "platform/suite/crvncontrol.h"

namespace filedialog {

namespace {

constexpr char kRasterLine[] = "#RASTER#(*.TIF,*.BMP,*.JPG) 画像ファイル";
constexpr char kSxfLine[] = "#SXF:xxx#(*.SFC,*.P21) SXFファイル";

std::string_view PatternOfTitle(std::string_view title, std::size_t open) {
  if (open == shift_jis::kNone) return {};
  const std::string_view rest = title.substr(open + 1);
  return rest.substr(0, shift_jis::FindLast(rest, ')'));
}

std::string DescriptionOfSuite(const SjisText& keyword, CwSession& session) {
  const CwFileType* type = suite_kinds::Find(*session.GetActiveFileTypeSet(), encoder::ToEuc(keyword));
  if (type == nullptr) return {};
  return encoder::ToSjis(EucText(suite_kinds::DescriptionOf(*type))).bytes();
}

std::string_view KeywordOfDescription(std::string_view description) {
  const std::size_t first = shift_jis::FindFirst(description, '#');
  if (first == shift_jis::kNone) return {};
  const std::size_t next = shift_jis::FindFirst(description, '#', first + 1);
  return next == shift_jis::kNone ? std::string_view() : description.substr(first, next - first + 1);
}

}  // namespace

FileKind MakeFileKind(std::string_view title, std::string_view description, int titleClass, CwSession& session) {
  const std::size_t open = shift_jis::FindFirst(title, '(');
  FileKind kind;
  kind.titleClass = titleClass;
  kind.keyword = title.substr(0, open);
  kind.pattern = PatternOfTitle(title, open);
  if (kind.pattern.empty()) kind.pattern += '*';
  kind.extension = ExtensionPart(kind.pattern);
  kind.keywordFromDescription = kind.keyword.empty();
  kind.description = description;
  if (kind.keywordFromDescription) {
    kind.keyword = KeywordOfDescription(description);
  } else if (description.empty()) {
    kind.description = DescriptionOfSuite(SjisText(kind.keyword), session);
  }
  kind.sharesSxfFolder = session.GetStartupParam()->IsDefined("SXF_USE_LAST_HOLDER");
  return kind;
}

void ApplyInitialName(std::string_view name, FileKind* kind) {
  const std::string_view extension = ExtensionPart(NamePart(name));
  if (extension.size() < 2) return;
  kind->extension = extension;
  if (!shift_jis::HasWildcard(name)) kind->pattern = std::string("*").append(extension);
}

bool HasExactExtension(const FileKind& kind) { return IsExactExtension(ExtensionPart(kind.pattern)); }

std::string KindLine(const FileKind& kind) {
  if (kind.keywordFromDescription) return kind.description;
  if (!IsExactExtension(kind.extension)) {
    if (IsRasterKind(kind.keyword)) return kRasterLine;
    if (IsSxfKind(kind.keyword) && kind.sharesSxfFolder) return kSxfLine;
  }
  return kind.keyword + "(*" + kind.extension + ") " + kind.description;
}

}  // namespace filedialog
