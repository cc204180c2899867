#include "platform/os/os_scripted_display.h"

namespace os {

int ScriptedDisplay::DpiOf(WindowHandle window) { return dpi ? *dpi : WindowsDisplay::DpiOf(window); }

bool ScriptedDisplay::HasHighContrast() { return highContrast ? *highContrast : WindowsDisplay::HasHighContrast(); }

bool ScriptedDisplay::HasListener() { return listener ? *listener : WindowsDisplay::HasListener(); }

std::vector<Monitor> ScriptedDisplay::Monitors() { return monitors ? *monitors : WindowsDisplay::Monitors(); }

ScriptedDisplay& DisplayOfTest() {
  static ScriptedDisplay display;
  return display;
}

Display& ThisDisplay() { return DisplayOfTest(); }

}  // namespace os
