// The library's header before <windows.h>: it must not decide anything for the client.
#include <dlglib/dlglib.h>

#include "same_macros.h"

#include <windows.h>

#include "same_macros.h"

int UseOfHeaderFirst() { return CString("x").GetLength(); }
