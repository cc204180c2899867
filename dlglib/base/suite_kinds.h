// The file kinds of the session, with their texts in the encoding in which the suite keeps them.
#pragma once

#include "dlglib/base/encoded_text.h"

class CwFileType;
class CwFileTypeSet;

namespace suite_kinds {

/// The kind of exactly that keyword, or null. Owned by the set.
[[nodiscard]] const CwFileType* Find(const CwFileTypeSet& kinds, const EucText& keyword);

/// The texts of a kind; views live as long as the kind does not change.
[[nodiscard]] EucView FolderOf(const CwFileType& kind);    ///< internal path, with or without a "/" at its end
[[nodiscard]] EucView PatternsOf(const CwFileType& kind);  ///< "*.MDL"; several of them, the first is the default
[[nodiscard]] EucView DescriptionOf(const CwFileType& kind);
[[nodiscard]] EucText ExtensionOf(const CwFileType& kind);  ///< of the first pattern, such as ".MDL"; may be empty

/// How names of the kind are written: 1 in capitals, -1 in small letters, 0 as they are. 0 for null as well.
[[nodiscard]] int LetterCaseOf(const CwFileType* kind);

}  // namespace suite_kinds
