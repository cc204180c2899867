// The entry of every test program for Windows.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/windows/driver/crash_backtrace.h"

namespace {

constexpr int kOtherCodePage = 2;

/// A run on another code page would repeat the one on the usual one, and pass, when prefix or manifest did not work.
bool HasTheCodePageThatIsAskedFor() {
  const char* const asked = std::getenv("DLGLIB_CODE_PAGE");
  const std::string wanted = asked != nullptr ? asked : "932";
  const std::string found = std::to_string(::GetACP());
  if (found == wanted) return true;
  std::fprintf(stderr, "The code page is %s instead of %s\n", found.c_str(), wanted.c_str());
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  driver::InstallCrashBacktrace();
  if (!HasTheCodePageThatIsAskedFor()) return kOtherCodePage;
  // Set for prefixes whose screen has other than 96 dots per inch; a program that does not know of that sees 96.
  if (std::getenv("DLGLIB_DPI") != nullptr) ::SetProcessDPIAware();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
