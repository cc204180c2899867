// The one door to the Windows headers. It defines and undefines nothing, so a client may include <windows.h> before or
// after it and choose its own UNICODE, STRICT and NOMINMAX.
#pragma once

#include <windows.h>
//
#include <commctrl.h>
