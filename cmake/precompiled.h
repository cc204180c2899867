// As precompiled_core.h, for what knows windows.
#pragma once

#if defined(_WIN32)
#include <windows.h>
//
#include <commctrl.h>
#endif

#include "cmake/precompiled_core.h"
