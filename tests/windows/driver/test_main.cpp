// The entry of every test program for Windows.
#include <gtest/gtest.h>

#include "tests/windows/driver/crash_backtrace.h"

int main(int argc, char** argv) {
  driver::InstallCrashBacktrace();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
