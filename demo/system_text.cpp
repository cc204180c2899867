#include "demo/system_text.h"

#include <windows.h>

#include <shellapi.h>

#include <memory>

namespace demo {
namespace {

constexpr UINT kShiftJis = 932;
constexpr char kNoNameCharacter[] = "|";

struct Converted {
  std::string sjis;
  bool exact;  ///< no character had to be replaced; a look-alike is not the character
};

Converted Convert(const std::wstring& text) {
  const int units = static_cast<int>(text.size());
  std::string sjis(text.size() * 2, '\0');  // a unit needs two bytes at most
  BOOL replaced = FALSE;
  const int bytes = ::WideCharToMultiByte(kShiftJis, WC_NO_BEST_FIT_CHARS, text.data(), units, sjis.data(),
                                          static_cast<int>(sjis.size()), kNoNameCharacter, &replaced);
  sjis.resize(static_cast<std::size_t>(bytes));
  return {sjis, replaced == FALSE};
}

/// A text that the system writes into room it is given: `write` takes room and its size, and answers the length that it
/// has written, or the size that it needs, or 0.
template <class Write>
std::wstring Written(Write write) {
  std::wstring text(MAX_PATH, L'\0');
  DWORD length = write(text.data(), static_cast<DWORD>(text.size()));
  if (length >= text.size()) {
    text.resize(length);
    length = write(text.data(), length);
  }
  text.resize(length < text.size() ? length : 0);
  return text;
}

struct LocalMemory {
  void operator()(wchar_t** memory) const { ::LocalFree(static_cast<void*>(memory)); }
};

}  // namespace

std::wstring Wide(const std::string& sjis) {
  const int size = static_cast<int>(sjis.size());
  std::wstring wide(sjis.size(), L'\0');  // never more units than bytes
  wide.resize(static_cast<std::size_t>(::MultiByteToWideChar(kShiftJis, 0, sjis.data(), size, wide.data(), size)));
  return wide;
}

std::string SjisName(const std::wstring& name) {
  const Converted whole = Convert(name);
  if (whole.exact) return whole.sjis;
  const std::wstring shortName =
      Written([&name](wchar_t* room, DWORD size) { return ::GetShortPathNameW(name.c_str(), room, size); });
  return shortName.empty() ? whole.sjis : Convert(shortName).sjis;
}

std::vector<std::string> CommandLineArguments() {
  int count = 0;
  const std::unique_ptr<wchar_t*, LocalMemory> given(::CommandLineToArgvW(::GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int i = 1; given != nullptr && i < count; ++i) arguments.push_back(SjisName(given.get()[i]));
  return arguments;
}

std::string FullPath(const std::string& path) {
  const std::wstring wide = Wide(path);
  const std::wstring full =
      Written([&wide](wchar_t* room, DWORD size) { return ::GetFullPathNameW(wide.c_str(), size, room, nullptr); });
  return full.empty() ? path : SjisName(full);
}

std::string TemporaryFolder() {
  return SjisName(Written([](wchar_t* room, DWORD size) { return ::GetTempPathW(size, room); }));
}

}  // namespace demo
