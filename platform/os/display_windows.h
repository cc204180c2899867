// The screen as the system tells of it.
#pragma once

#include "platform/os/display.h"

namespace os {

/// What is newer than Windows 7 is looked up when it is first asked.
class WindowsDisplay : public Display {
 public:
  [[nodiscard]] int DpiOf(WindowHandle window) override;
  [[nodiscard]] int Metric(int metric, int dpi) override;
  [[nodiscard]] std::vector<Monitor> Monitors() override;
  void KeepLayout(WindowHandle dialog) override;
  [[nodiscard]] bool HasHighContrast() override;
  [[nodiscard]] bool HasScreenReader() override;

 protected:
  /// Whether a tool has asked for the events of UI Automation. Not the same as a hook on the older events, which others
  /// have too.
  [[nodiscard]] virtual bool HasListener();
};

}  // namespace os
