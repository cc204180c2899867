#include "platform/framework/detail/utf8.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/framework/win32.h"

namespace framework {
namespace {

constexpr UINT kSjis = 932;

/// What the platform makes of single bytes that no Shift_JIS text holds.
[[nodiscard]] bool IsFiller(wchar_t unit) noexcept {
  return unit == 0x80 || unit == 0xA0 || (unit >= 0xF8F0 && unit <= 0xF8F3);
}

/// None when the bytes are not of that code page. No text here reaches the range of int.
[[nodiscard]] std::optional<std::wstring> Wide(UINT codePage, std::string_view bytes) {
  if (bytes.empty()) return std::wstring();
  const auto size = static_cast<int>(bytes.size());
  std::wstring wide(bytes.size(), L'\0');  // never more units than bytes
  const int units = ::MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), size, wide.data(), size);
  if (units <= 0) return std::nullopt;
  wide.resize(static_cast<std::size_t>(units));
  return wide;
}

/// None when the code page lacks a character.
[[nodiscard]] std::optional<std::string> Narrow(UINT codePage, const std::wstring& wide) {
  if (wide.empty()) return std::string();
  constexpr std::size_t kMostBytes = 3;  // for a unit
  const auto units = static_cast<int>(wide.size());
  std::string bytes(kMostBytes * wide.size(), '\0');
  const bool toUtf8 = codePage == CP_UTF8;
  BOOL lossy = FALSE;
  const int size =
      ::WideCharToMultiByte(codePage, toUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS, wide.data(), units,
                            bytes.data(), static_cast<int>(bytes.size()), nullptr, toUtf8 ? nullptr : &lossy);
  if (size <= 0 || lossy != FALSE) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(size));
  return bytes;
}

}  // namespace

ConvertedText SjisFromUtf8(std::string_view utf8) {
  const std::optional<std::wstring> wide = Wide(CP_UTF8, utf8);
  if (!wide) return {{}, TextProblem::BadEncoding};
  if (std::any_of(wide->begin(), wide->end(), IsFiller)) return {{}, TextProblem::NoSuchCharacter};
  std::optional<std::string> sjis = Narrow(kSjis, *wide);
  if (!sjis) return {{}, TextProblem::NoSuchCharacter};
  return {*std::move(sjis), TextProblem::None};
}

ConvertedText Utf8FromSjis(std::string_view sjis) {
  const std::optional<std::wstring> wide = Wide(kSjis, sjis);
  if (!wide || std::any_of(wide->begin(), wide->end(), IsFiller)) return {{}, TextProblem::BadEncoding};
  std::optional<std::string> utf8 = Narrow(CP_UTF8, *wide);
  if (!utf8) return {{}, TextProblem::NoSuchCharacter};
  return {*std::move(utf8), TextProblem::None};
}

}  // namespace framework
