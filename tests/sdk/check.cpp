#include "check.h"

#include <atomic>
#include <cstdio>

namespace client {
namespace {

std::atomic<int> failures = 0;

}  // namespace

void Check(bool holds, const std::string& what) {
  if (holds) return;
  ++failures;
  std::fprintf(stderr, "failed: %s\n", what.c_str());
}

void CheckText(const std::string& got, const std::string& want, const std::string& what) {
  Check(got == want, what + ": \"" + got + "\" instead of \"" + want + "\"");
}

int Failures() { return failures; }

}  // namespace client
