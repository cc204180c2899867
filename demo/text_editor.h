// A window in which drawing texts are edited: a toolbar over three fields inserts texts of the text libraries,
// metacharacters and registers; the texts are stored as EUC-JP and read back.
#pragma once

#include "demo/demo_window.h"

namespace demo {

/// Runs the window. The argument names the file that the texts are stored in; by default it lies in the folder for
/// temporary files.
int RunTextEditor(const Arguments& arguments);

}  // namespace demo
