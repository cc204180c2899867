// The library's header after <windows.h>: it must not take anything away.
#include <windows.h>

#include "same_macros.h"

#include <dlglib/dlglib.h>

#include "same_macros.h"

int UseOfWindowsFirst() { return CString("x").GetLength(); }
