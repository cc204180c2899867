// What the windows of the library ask of the screen that they stand on. Kept apart from the other services: only
// windows ask, and the core is told what it has to know.
//
// As with those, exactly one definition of ThisDisplay() is linked into each program: the real one into the shipped
// DLLs, the one that a test can set into tests. Calls are made on the window's thread; nothing throws.
#pragma once

#include <vector>

#include "platform/os/os.h"

namespace os {

/// A monitor in pixels of the one screen that all of them make; right and bottom lie just outside.
struct Monitor {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

class Display {
 public:
  virtual ~Display() = default;
  /// Dots per inch at which the system shows a window: those of its monitor where the process has said that it knows
  /// of monitors, those of the system where it has said that it knows of scales, else 96.
  [[nodiscard]] virtual int DpiOf(WindowHandle window) = 0;
  /// GetSystemMetrics of a window that is shown at so many dots per inch; the process's own where the system cannot
  /// tell.
  [[nodiscard]] virtual int Metric(int metric, int dpi) = 0;
  /// As they are now; none when they cannot all be had.
  [[nodiscard]] virtual std::vector<Monitor> Monitors() = 0;
  /// The system is not to lay a dialog out anew by itself when its scale changes: the dialog does so.
  virtual void KeepLayout(WindowHandle dialog) = 0;
  /// Whether the user has chosen colours of high contrast.
  [[nodiscard]] virtual bool HasHighContrast() = 0;
  /// Whether a tool that reads the screen to its user runs: one that has said so, or one that listens without a word,
  /// as the reader that comes with the system does.
  [[nodiscard]] virtual bool HasScreenReader() = 0;
};

[[nodiscard]] Display& ThisDisplay();

}  // namespace os
