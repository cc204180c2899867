// In a fuzzer a broken property ends the program, which makes the fuzzer keep the input.
#include <cstdio>
#include <cstdlib>

#include "fuzz/fuzz.h"

void fuzz::Fail(const char* file, int line, const char* property) {
  std::fprintf(stderr, "%s:%d: broken: %s\n", file, line, property);
  std::abort();
}
