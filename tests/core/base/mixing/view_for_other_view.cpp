// A view of the finder's path where a real path is asked for.
#include "dlglib/utility/rules/path_name.h"

SjisView FolderOfFound(EucView found) {
#ifdef MIXED
  return path_name::FolderOf(found);
#else
  return path_name::FolderOf(SjisView(found.bytes()));
#endif
}
