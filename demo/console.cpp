#include "demo/console.h"

#include <windows.h>

#include <cstdio>

namespace demo {
namespace {

constexpr UINT kShiftJis = 932;

void Print(std::FILE* out, const std::string& sjis) {
  std::fprintf(out, "%s\n", Utf8(sjis).c_str());
  std::fflush(out);
}

}  // namespace

std::string Utf8(const std::string& sjis) {
  if (sjis.empty()) return {};
  const int size = static_cast<int>(sjis.size());
  std::wstring wide(sjis.size(), L'\0');
  const int units = MultiByteToWideChar(kShiftJis, 0, sjis.data(), size, wide.data(), size);
  // A UTF-16 unit needs three bytes of UTF-8 at most.
  std::string text(static_cast<std::size_t>(units) * 3, '\0');
  const int bytes =
      WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, text.data(), static_cast<int>(text.size()), nullptr, nullptr);
  text.resize(static_cast<std::size_t>(bytes));
  return text;
}

void PrintLine(const std::string& sjis) { Print(stdout, sjis); }

void PrintError(const std::string& sjis) { Print(stderr, sjis); }

}  // namespace demo
