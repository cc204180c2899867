// What the user typed, given to the suite as it is.
#include "dlglib/base/encoder.h"
#include "dlglib/filsel/request_names.h"

EucText Resolved(const EucText& keyword, const SjisText& typed) {
#ifdef MIXED
  return filsel::FullName(keyword, typed, filsel::FullNameUse::Path);
#else
  return filsel::FullName(keyword, encoder::ToEuc(typed), filsel::FullNameUse::Path);
#endif
}
