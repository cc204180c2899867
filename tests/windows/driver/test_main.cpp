// The entry of every test program for Windows.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>

#include "tests/windows/driver/crash_backtrace.h"

int main(int argc, char** argv) {
  driver::InstallCrashBacktrace();
  // Set for prefixes whose screen has other than 96 dots per inch; a program that does not know of that sees 96.
  if (std::getenv("DLGLIB_DPI") != nullptr) ::SetProcessDPIAware();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
