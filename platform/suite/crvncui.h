// Core library crvncui: what files say about themselves.
//
// Model and title files start with a text header in EUC-JP: a line "CORVANE <KIND> 1", then lines "<number>=<title>" in
// a model file or one line "TITLE=<title>" in any other, then "END"; whatever follows is the file's body. KIND is
// MODEL, PARTS, PSET, MACRO, MASK, TEXT, CONST or ATTR. Lines end with LF or CR LF. At most the first 16 KiB of a file
// are read. The first line decides whether a file is valid; a title that is not found is empty, and so is what lies
// behind a lost "END".
#pragma once

#include <string>

#include "platform/suite/export.h"

/// Titles of a model file. `path`: internal form (EUC-JP). `numbers`: `count` title numbers; `texts`: as many texts,
/// which receive the titles (EUC-JP), empty for a number that the file does not hold. 0 on success; 1, and `texts`
/// empty, when the file cannot be read or is no model file, when a pointer is null or the count below 0.
SUITE_API int GetFilTtl(const std::string& path, const int* numbers, int count, std::string* texts);

/// The title of a file of another kind. `titleClass`: 2 PARTS, 3 PSET, 4 MACRO, 5 MASK, 6 TEXT, 7 CONST, 8 ATTR. `text`
/// receives the title (EUC-JP). 0 on success; 1, and `text` empty, when the class is none of these, the file cannot be
/// read or is not of that kind.
SUITE_API int GetFilTtl(int titleClass, const std::string& path, std::string* text);

/// The table of item attributes.
class SUITE_API CwItemAttrTable2 {
 public:
  /// Whether the file at `path` (internal form, EUC-JP) is an attribute table definition: its header says ATTR.
  [[nodiscard]] static bool IsDefinitionFile(const std::string& path);
};
