// Stored and screen form of arbitrary bytes, with every limit.
#include "dlglib/base/stored_text.h"

#include <limits>

#include "dlglib/base/bounded_text.h"
#include "dlglib/base/shift_jis.h"
#include "fuzz/fuzz.h"
#include "platform/suite/euc_encoder.h"
#include "platform/suite/euc_jp.h"
#include "tests/support/stored_bytes.h"

namespace {

using stored_bytes::Escape;
using stored_bytes::ToScreen;
using stored_bytes::ToScreenInWholeEscapes;
using stored_bytes::ToStored;
using stored_bytes::Unescape;

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();
constexpr std::size_t kNone = std::string::npos;

unsigned ByteAt(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

/// As the rules are told, one character after the other, without a limit.
std::string PlainEscape(std::string_view euc) {
  std::string out;
  const auto isHigh = [euc](std::size_t at) { return ByteAt(euc, at) >= 0xA1 && ByteAt(euc, at) <= 0xFE; };
  for (std::size_t at = 0; at < euc.size();) {
    const unsigned byte = ByteAt(euc, at);
    const std::size_t length = byte < 0x80 ? 1 : byte == 0x8F && isHigh(at + 1) && isHigh(at + 2) ? 3 : 2;
    if (at + length > euc.size()) break;
    if (byte == 0x8D) {
      const unsigned code = ByteAt(euc, at + 1);
      out += "<mc>";
      out += code == 0xD9 ? ',' : code == 0xDA ? ';' : static_cast<char>(code - 0x80);
    } else if (byte == 0x0D || byte == 0x0A) {
      out += "<cr>";
    } else {
      out += euc.substr(at, length);
    }
    at += length;
  }
  return out;
}

/// The two passes of the way back, a byte at a time.
std::string PlainUnescape(std::string_view text) {
  std::string withBreaks;
  for (std::size_t at = 0; at < text.size();) {
    const unsigned shown = ByteAt(text, at + 4);
    if (text.substr(at, 4) == "<mc>" && at + 4 < text.size() && shown < 0x80) {
      withBreaks += '\x8D';
      withBreaks += shown == ',' ? '\xD9' : shown == ';' ? '\xDA' : static_cast<char>(shown + 0x80);
      at += 5;
    } else {
      withBreaks += text[at++];
    }
  }
  std::string out;
  for (std::size_t at = 0; at < withBreaks.size();) {
    const bool isBreak = withBreaks.compare(at, 4, "<cr>") == 0;
    out += isBreak ? '\r' : withBreaks[at];
    at += isBreak ? 4 : 1;
  }
  return out;
}

void CheckScreenForm(std::string_view stored, std::size_t limit) {
  const std::string escaped = Escape(stored);
  const std::string plain = PlainEscape(stored);
  FUZZ_CHECK(escaped.size() <= stored_text::kEscapedLimit);
  FUZZ_CHECK(plain.size() > stored_text::kEscapedLimit ? plain.starts_with(escaped) : plain == escaped);
  FUZZ_CHECK(plain.size() <= stored_text::kEscapedLimit || escaped.size() + 5 > stored_text::kEscapedLimit);

  const std::string whole = ToScreen(stored, kNoLimit);
  const std::string cut = ToScreen(stored, limit);
  FUZZ_CHECK(suite::IsValidSjis(whole));
  FUZZ_CHECK(cut.size() <= limit && whole.starts_with(cut));
  FUZZ_CHECK(cut == shift_jis::Truncate(cut, cut.size()));
  FUZZ_CHECK(cut.size() + 2 > std::min(limit, whole.size()));
  // In a bad text a break may be taken for the second byte of a character.
  FUZZ_CHECK(whole.find_first_of("\r\n") == kNone || !euc_jp::IsValid(stored));
}

/// Whether the escapes of a screen text, read from its start, end at `end` or in front of it.
bool EndsBetweenEscapes(std::string_view screen, std::size_t end) {
  std::size_t at = 0;
  while (at < end) {
    const bool isMeta = screen.substr(at, 4) == "<mc>" && at + 4 < screen.size() && ByteAt(screen, at + 4) < 0x80;
    const bool isBreak = screen.substr(at, 4) == "<cr>";
    at += isMeta ? 5 : isBreak ? 4 : shift_jis::CharLength(screen, at);
  }
  return at == end;
}

void CheckWholeEscapes(std::string_view stored, std::size_t limit) {
  const std::string whole = ToScreen(stored, stored_text::kEscapedLimit);
  const std::string cut = ToScreenInWholeEscapes(stored, limit);
  FUZZ_CHECK(cut.size() <= limit && whole.starts_with(cut));
  FUZZ_CHECK(EndsBetweenEscapes(whole, cut.size()));
  FUZZ_CHECK(cut.size() + 5 > std::min(limit, whole.size()));
}

void CheckStoredForm(std::string_view screen, std::size_t limit) {
  FUZZ_CHECK(Unescape(screen) == PlainUnescape(screen));
  const std::string whole = ToStored(screen, kNoLimit);
  FUZZ_CHECK(whole.size() <= stored_text::kStoredLimit);
  FUZZ_CHECK(ToStored(screen, limit) == whole.substr(0, limit));
}

/// What is on the screen once is stored and shown again without a change.
void CheckRoundTrip(std::string_view screen) {
  const std::string shown = ToScreen(ToStored(screen, kNoLimit), kNoLimit);
  FUZZ_CHECK(ToScreen(ToStored(shown, kNoLimit), kNoLimit) == shown);
}

void CheckCopies(std::string_view euc, std::size_t capacity) {
  fuzz::Block out(capacity);
  const std::size_t copied = stored_text::CopyBounded(out.Data(), capacity, EucView(euc));
  FUZZ_CHECK(copied < std::max<std::size_t>(capacity, 1));
  if (capacity == 0) return;
  const std::string_view shown = euc.substr(0, euc.find('\0'));
  FUZZ_CHECK(out.View().substr(0, copied) == euc_jp::Truncate(shown, capacity - 1));
  FUZZ_CHECK(out.View()[copied] == '\0');
  FUZZ_CHECK(out.IsUntouchedFrom(copied + 1));
  FUZZ_CHECK(euc_jp::Truncate(out.View().substr(0, copied), copied).size() == copied);
}

void CheckBoundedTexts(std::string_view text) {
  BoundedText<7> bounded;
  bounded.AssignStored(EucView(text));
  FUZZ_CHECK(bounded.View().size() <= 7 && bounded.Data()[bounded.View().size()] == '\0');
  FUZZ_CHECK(euc_jp::Truncate(bounded.View(), 7) == bounded.View());
  bounded.AssignScreen(text);
  FUZZ_CHECK(bounded.View().size() <= 7 && bounded.Data()[bounded.View().size()] == '\0');
  FUZZ_CHECK(shift_jis::Truncate(bounded.View(), 7) == bounded.View());
}

/// Texts beyond every limit: what is left of them.
void CheckLongText(std::string text, std::size_t limit) {
  while (!text.empty() && text.size() < 17000) text += text;
  FUZZ_CHECK(Escape(text).size() <= stored_text::kEscapedLimit);
  FUZZ_CHECK(ToStored(text, kNoLimit).size() <= stored_text::kStoredLimit);
  FUZZ_CHECK(ToScreen(text, limit).size() <= limit);
  FUZZ_CHECK(ToStored(text, limit).size() <= limit);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::size_t limit = input.Size(700);
  const bool isLong = input.Byte() == 0xFF;
  const fuzz::Block exact(input.Rest());

  CheckScreenForm(exact.View(), limit);
  CheckWholeEscapes(exact.View(), limit);
  CheckStoredForm(exact.View(), limit);
  CheckCopies(exact.View(), limit);
  CheckBoundedTexts(exact.View());
  CheckRoundTrip(exact.View());
  if (isLong) CheckLongText(std::string(exact.View()), limit);
  return 0;
}
