#include "dlglib/base/stored_text.h"

#include <string>
#include <string_view>
#include <utility>

#include "dlglib/base/encoder.h"
#include "dlglib/base/shift_jis.h"
#include "platform/suite/euc_jp.h"

namespace stored_text {
namespace {

constexpr std::string_view kMetaEscape = "<mc>";
constexpr std::string_view kBreakEscape = "<cr>";
constexpr char kMetaLead = static_cast<char>(euc_jp::kMetacharacter);
constexpr char kStoredComma = '\xD9';
constexpr char kStoredSemicolon = '\xDA';
constexpr unsigned char kCodeOffset = 0x80;

[[nodiscard]] char ShownOf(char code) noexcept {
  if (code == kStoredComma) return ',';
  if (code == kStoredSemicolon) return ';';
  return static_cast<char>(static_cast<unsigned char>(code) - kCodeOffset);
}

[[nodiscard]] char CodeOf(char shown) noexcept {
  if (shown == ',') return kStoredComma;
  if (shown == ';') return kStoredSemicolon;
  return static_cast<char>(static_cast<unsigned char>(shown) + kCodeOffset);
}

[[nodiscard]] bool IsAscii(char byte) noexcept { return static_cast<unsigned char>(byte) < 0x80; }

/// Bytes of the stored character that starts at `at`, which may be more than the text still holds.
[[nodiscard]] std::size_t StoredLength(std::string_view text, std::size_t at) noexcept {
  constexpr std::size_t kThreeBytes = 3;
  if (IsAscii(text[at])) return 1;
  return euc_jp::ValidLength(text, at) == kThreeBytes ? kThreeBytes : 2;
}

/// The screen's spelling of one whole character.
[[nodiscard]] std::string EscapeOf(std::string_view character) {
  if (character.front() == kMetaLead) return std::string(kMetaEscape) + ShownOf(character[1]);
  if (character == "\r" || character == "\n") return std::string(kBreakEscape);
  return std::string(character);
}

[[nodiscard]] std::string ReplaceMetaEscapes(std::string_view text) {
  std::string out;
  for (;;) {
    const std::size_t escape = text.find(kMetaEscape);
    const std::size_t shown = escape == std::string_view::npos ? text.size() : escape + kMetaEscape.size();
    if (shown >= text.size()) return out.append(text);
    if (!IsAscii(text[shown])) {
      out.append(text.substr(0, shown));
      text.remove_prefix(shown);
      continue;
    }
    out.append(text.substr(0, escape)).append({kMetaLead, CodeOf(text[shown])});
    text.remove_prefix(shown + 1);
  }
}

[[nodiscard]] std::string ReplaceBreakEscapes(std::string_view text) {
  std::string out;
  for (std::size_t escape = text.find(kBreakEscape); escape != std::string_view::npos;
       escape = text.find(kBreakEscape)) {
    out.append(text.substr(0, escape)).push_back('\r');
    text.remove_prefix(escape + kBreakEscape.size());
  }
  return out.append(text);
}

/// Bytes of the escape that starts at `at` of a screen text; 0 when none starts there.
[[nodiscard]] std::size_t EscapeLength(std::string_view screen, std::size_t at) noexcept {
  const std::string_view rest = screen.substr(at);
  if (rest.starts_with(kBreakEscape)) return kBreakEscape.size();
  const std::size_t shown = kMetaEscape.size();
  return rest.starts_with(kMetaEscape) && rest.size() > shown && IsAscii(rest[shown]) ? shown + 1 : 0;
}

/// The longest start of a screen text of at most `limit` bytes that splits neither a character nor an escape.
[[nodiscard]] std::string_view TruncateInFrontOfEscape(std::string_view screen, std::size_t limit) noexcept {
  std::size_t end = 0;
  while (end < screen.size()) {
    const std::size_t escape = EscapeLength(screen, end);
    const std::size_t length = escape != 0 ? escape : shift_jis::CharLength(screen, end);
    if (end + length > limit) break;
    end += length;
  }
  return screen.substr(0, end);
}

}  // namespace

EucText Escape(EucView euc) {
  const std::string_view bytes = euc.bytes();
  std::string out;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length = StoredLength(bytes, at);
    if (at + length > bytes.size()) break;
    const std::string shown = EscapeOf(bytes.substr(at, length));
    if (out.size() + shown.size() > kEscapedLimit) break;
    out.append(shown);
    at += length;
  }
  return EucText(std::move(out));
}

EucText Unescape(EucView euc) { return EucText(ReplaceBreakEscapes(ReplaceMetaEscapes(euc.bytes()))); }

std::size_t CopyBounded(char* out, std::size_t capacity, EucView euc) noexcept {
  if (out == nullptr || capacity == 0) return 0;
  const std::string_view bytes = euc.bytes();
  const std::string_view fitting = euc_jp::Truncate(bytes.substr(0, bytes.find('\0')), capacity - 1);
  // The text may be the one in `out` itself.
  std::char_traits<char>::move(out, fitting.data(), fitting.size());
  out[fitting.size()] = '\0';
  return fitting.size();
}

SjisText ToScreen(EucView euc, std::size_t limit) { return encoder::ToSjis(Escape(euc), limit); }

SjisText ToScreenInWholeEscapes(EucView euc, std::size_t limit) {
  const SjisText whole = ToScreen(euc, kEscapedLimit);
  return SjisText(std::string(TruncateInFrontOfEscape(whole.bytes(), limit)));
}

EucText ToStored(SjisView sjis, std::size_t limit) {
  return EucText(Unescape(encoder::ToEuc(SjisText(sjis), kStoredLimit)).bytes().substr(0, limit));
}

}  // namespace stored_text
