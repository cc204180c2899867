#include "tests/windows/input/typist.h"

#include <windows.h>

#include <cstdlib>
#include <fstream>

#include "tests/windows/driver/window.h"

namespace japanese_input {
namespace {

/// A path of the system below.
std::string Told(const char* variable) {
  const char* const value = std::getenv(variable);
  if (value == nullptr) throw driver::Stuck("there is no input method here: these tests are started by ctest");
  return value;
}

void Command(const std::string& command) {
  std::ofstream out("Z:" + Told("DLGLIB_INPUT_KEYS"), std::ios::binary | std::ios::app);
  out << command << '\n';
}

/// A key that does nothing by itself; when it has come, so have all before it.
void PressAndWait(const driver::User& user, const std::string& name, int key) {
  Command("keydown " + name);
  user.WaitUntil("a key has come", [key] { return ::GetAsyncKeyState(key) < 0; });
  Command("keyup " + name);
  user.WaitUntil("it has gone", [key] { return ::GetAsyncKeyState(key) >= 0; });
  user.Settle();
}

}  // namespace

bool ServerIsThere() {
  const std::string process = "Z:\\proc\\" + Told("DLGLIB_INPUT_SERVER") + "\\comm";
  return ::GetFileAttributesA(process.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool ShowsInTheBox() { return Told("DLGLIB_INPUT_STYLE") == "onthespot"; }

void WaitForText(const driver::User& user, const std::function<std::string()>& shown, const std::string& text) {
  try {
    user.WaitUntil("\"" + text + "\" is shown", [&] { return shown() == text; });
  } catch (const driver::Stuck& stuck) {
    throw driver::Stuck("\"" + shown() + "\" is shown: " + stuck.what());
  }
  user.Settle();
}

void PressKeys(const std::string& names) { Command("key --delay 1 " + names); }

/// The system connects a window with the input method at its first key, which must not be the one that switches.
void SwitchInputMethod(const driver::User& user) {
  PressAndWait(user, "Shift_L", VK_SHIFT);
  PressKeys("shift+space");
  PressAndWait(user, "Control_L", VK_CONTROL);
}

}  // namespace japanese_input
