/*
 * The types for those who look functions up by name: that each is the type of its function, which the compiler sees,
 * and that the DLL has all of them.
 */
#include <dlglib/dlglib_c_names.h>
#include <stdio.h>
#include <windows.h>

#define HAS_TYPE(name) \
  static name##Function type_of_##name(void) { return name; }
DLGLIB_FUNCTIONS(HAS_TYPE)

#define NAMED(name) {#name, type_of_##name() != NULL},
static int CountMissing(HMODULE library) {
  const struct {
    const char* name;
    int linked;
  } functions[] = {DLGLIB_FUNCTIONS(NAMED)};
  int missing = 0;
  for (size_t at = 0; at < sizeof functions / sizeof *functions; ++at) {
    if (functions[at].linked && GetProcAddress(library, functions[at].name) != NULL) continue;
    fprintf(stderr, "missing: %s\n", functions[at].name);
    ++missing;
  }
  return missing;
}

int main(void) {
  const HMODULE library = GetModuleHandleA("crvndlglib.dll");
  const DlglibVersionFunction version = (DlglibVersionFunction)(void (*)(void))GetProcAddress(library, "DlglibVersion");
  return CountMissing(library) == 0 && version != NULL && version() == DlglibVersion() ? 0 : 1;
}
