// A stored text where one of the screen is asked for.
#include "dlglib/base/stored_text.h"

SjisText Shown(const EucText& title) {
#ifdef MIXED
  return title;
#else
  return stored_text::ToScreen(title, 256);
#endif
}
