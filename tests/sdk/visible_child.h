// The editors of a grid, as a person finds them: by what is on the screen.
#pragma once

#include "tests/windows/driver/window.h"

namespace client {

/// The child of a dialog that has that ID and is shown; an empty window when there is none.
[[nodiscard]] inline driver::Window VisibleChild(const driver::Window& dialog, int id) {
  for (const driver::Window& child : dialog.Children()) {
    if (child.Id() == id && child.IsVisible()) return child;
  }
  return {};
}

}  // namespace client
