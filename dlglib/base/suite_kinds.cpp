#include "dlglib/base/suite_kinds.h"

#include "platform/suite/crvncontrol.h"

namespace suite_kinds {

const CwFileType* Find(const CwFileTypeSet& kinds, const EucText& keyword) {
  return kinds.GetFileType(keyword.bytes());
}

EucView FolderOf(const CwFileType& kind) { return EucView(kind.GetFolder()); }

EucView PatternsOf(const CwFileType& kind) { return EucView(kind.GetPatterns()); }

EucView DescriptionOf(const CwFileType& kind) { return EucView(kind.GetDescription()); }

EucText ExtensionOf(const CwFileType& kind) { return EucText(kind.GetExtension()); }

int LetterCaseOf(const CwFileType* kind) {
  if (kind == nullptr) return 0;
  if (kind->IsUpperCase()) return 1;
  return kind->IsLowerCase() ? -1 : 0;
}

}  // namespace suite_kinds
