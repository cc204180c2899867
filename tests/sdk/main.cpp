// An application with a plain main() that uses the library: client <part>. The exit code is 0 when every check holds.
#include <cstdio>
#include <exception>
#include <map>
#include <string>

#include "check.h"
#include "parts.h"
#include "tests/windows/driver/crash_backtrace.h"

int main(int argc, char** argv) {
  driver::InstallCrashBacktrace();
  const std::map<std::string, void (*)()> parts = {{"c_example", client::UseCExample},
                                                   {"c_pages", client::UseCPages},
                                                   {"c_programs", client::UseCPrograms},
                                                   {"demo", client::UseDemo},
                                                   {"grid", client::UseGrid},
                                                   {"guide", client::UseGuide},
                                                   {"node", client::UseNode},
                                                   {"own_dialog", client::UseOwnDialog},
                                                   {"request", client::UseRequest},
                                                   {"toolbar", client::UseToolBar},
                                                   {"utility", client::UseUtility}};
  const auto part = argc == 2 ? parts.find(argv[1]) : parts.end();
  if (part == parts.end()) {
    std::fprintf(stderr, "no such part\n");
    return 2;
  }
  try {
    part->second();
  } catch (const std::exception& failure) {
    client::Check(false, failure.what());
  }
  return client::Failures() == 0 ? 0 : 1;
}
