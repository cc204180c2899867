// A table of parts in a grid: texts, numbers, choices and colours, edited in place.
#pragma once

#include "demo/demo_window.h"

namespace demo {

/// Runs the window; it takes no arguments. With OK it prints how many parts there are and how many pieces they make.
int RunPartsTable(const Arguments& arguments);

}  // namespace demo
