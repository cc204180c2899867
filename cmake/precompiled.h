// Long to read and the same for nearly every file.
#pragma once

#if defined(_WIN32)
#include <windows.h>
//
#include <commctrl.h>
#endif

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>
