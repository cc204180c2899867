// What the browser knows of the file kind that it was asked for.
#pragma once

#include <string>
#include <string_view>

class CwSession;

namespace filedialog {

/// The kind's keyword, name pattern and texts, all Shift_JIS.
struct FileKind {
  std::string keyword;      ///< such as "#MODEL#"; may be empty
  std::string pattern;      ///< such as "*.MDL"; never empty when made by MakeFileKind
  std::string extension;    ///< the pattern's text from its last "." on, such as ".MDL"; may be empty or hold wildcards
  std::string description;  ///< what users call the kind; may be empty
  int titleClass = 0;       ///< see kind_class.h
  bool keywordFromDescription = false;  ///< the title named no keyword
  bool sharesSxfFolder = false;         ///< the session lets the SXF kinds share their folder and their files
};

/// Makes the kind from the title field of the start-up record: keyword, "(", pattern, ")". Without "(" all of it is the
/// keyword; an empty pattern is "*". `description` is the caller's; when it is empty the suite's kind of that keyword
/// gives one. An empty keyword is taken from the description: the text from its first "#" to the next one, if there are
/// two.
[[nodiscard]] FileKind MakeFileKind(std::string_view title, std::string_view description, int titleClass,
                                    CwSession& session);

/// Lets the initial file name (a name or a path) choose the extension, wildcards in it included, and the pattern "*"
/// with that extension unless the name is a pattern itself: "*.*" and "A.MD?" leave the pattern as it was. A name
/// without an extension ("." alone is none) changes nothing.
void ApplyInitialName(std::string_view name, FileKind* kind);

/// Whether the pattern ends in an extension without wildcards.
[[nodiscard]] bool HasExactExtension(const FileKind& kind);

/// The one line of the kind combo box. Kinds without an exact extension that stand for several ("#RASTER#", and the SXF
/// kinds while they share their folder) have fixed lines; a kind whose keyword came from the description is described
/// by it alone. The "xxx" of the SXF line is literal: it stands for either kind.
[[nodiscard]] std::string KindLine(const FileKind& kind);

}  // namespace filedialog
