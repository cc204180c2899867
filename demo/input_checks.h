// A window in which the checks of CvUtility can be tried: a file name, a model name, a scale and a number, each with
// its own check, and the lists of recent files and model names beside them.
#pragma once

#include "demo/demo_window.h"

namespace demo {

/// Runs the window; it takes no arguments. The lists are written when it is closed.
int RunInputChecks(const Arguments& arguments);

}  // namespace demo
