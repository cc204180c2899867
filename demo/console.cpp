#include "demo/console.h"

#include <windows.h>

#include <cstdio>

#include "demo/system_text.h"

namespace demo {
namespace {

void Print(std::FILE* out, const std::string& sjis) {
  std::fprintf(out, "%s\n", Utf8(sjis).c_str());
  std::fflush(out);
}

}  // namespace

std::string Utf8(const std::string& sjis) {
  if (sjis.empty()) return {};
  const std::wstring wide = Wide(sjis);
  std::string text(wide.size() * 3, '\0');  // a UTF-16 unit needs three bytes of UTF-8 at most
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                                        static_cast<int>(text.size()), nullptr, nullptr);
  text.resize(static_cast<std::size_t>(bytes));
  return text;
}

void PrintLine(const std::string& sjis) { Print(stdout, sjis); }

void PrintError(const std::string& sjis) { Print(stderr, sjis); }

}  // namespace demo
