// Long to read and the same for nearly every file of the Windows build.
#pragma once

#include <windows.h>
//
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>
