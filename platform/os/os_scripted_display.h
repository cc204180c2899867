// The screen of tests: the real one, but for what a test has set.
#pragma once

#include <optional>

#include "platform/os/display_windows.h"

namespace os {

class ScriptedDisplay : public WindowsDisplay {
 public:
  std::optional<int> dpi;                        ///< of every window; none: the window's own
  std::optional<bool> highContrast;              ///< none: the system's
  std::optional<bool> listener;                  ///< a tool that listens without a word; none: the system's
  std::optional<std::vector<Monitor>> monitors;  ///< none: the system's

  [[nodiscard]] int DpiOf(WindowHandle window) override;
  [[nodiscard]] bool HasHighContrast() override;
  [[nodiscard]] std::vector<Monitor> Monitors() override;

 protected:
  [[nodiscard]] bool HasListener() override;
};

/// What ThisDisplay() answers in a program that links the scripted services.
[[nodiscard]] ScriptedDisplay& DisplayOfTest();

/// Sets the display, and sets it back at the end of the scope.
class DisplayScope {
 public:
  DisplayScope() = default;
  DisplayScope(const DisplayScope&) = delete;
  DisplayScope& operator=(const DisplayScope&) = delete;
  ~DisplayScope() {
    DisplayOfTest().dpi = {};
    DisplayOfTest().highContrast = {};
    DisplayOfTest().listener = {};
    DisplayOfTest().monitors = {};
  }
};

}  // namespace os
