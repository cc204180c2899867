#include "platform/framework/detail/wide_text.h"

namespace framework {

namespace {

constexpr UINT kShiftJis = 932;

}  // namespace

std::wstring ToWide(std::string_view sjis) {
  const int bytes = static_cast<int>(sjis.size());
  std::wstring wide(sjis.size(), L'\0');
  const int units = ::MultiByteToWideChar(kShiftJis, 0, sjis.data(), bytes, wide.data(), bytes);
  wide.resize(static_cast<std::size_t>(units));
  return wide;
}

std::string ToShiftJis(std::wstring_view wide) {
  const int units = static_cast<int>(wide.size());
  std::string sjis(wide.size() * 2, '\0');
  const int room = static_cast<int>(sjis.size());
  const int bytes = ::WideCharToMultiByte(kShiftJis, 0, wide.data(), units, sjis.data(), room, nullptr, nullptr);
  sjis.resize(static_cast<std::size_t>(bytes));
  return sjis;
}

std::wstring WideTextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  const int units = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(units));
  return text;
}

}  // namespace framework
