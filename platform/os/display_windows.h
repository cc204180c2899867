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
};

}  // namespace os
