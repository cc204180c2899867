// Bytes of which nobody has said what they are.
#include <string>

#include "dlglib/base/stored_text.h"

EucText Escaped(const std::string& bytes) {
#ifdef MIXED
  return stored_text::Escape(bytes);
#else
  return stored_text::Escape(EucView(bytes));
#endif
}
