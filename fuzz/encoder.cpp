// The encoder on arbitrary bytes: exact sizes, every capacity, one character at a time against all at once.
#include "platform/suite/euc_encoder.h"

#include <limits>
#include <optional>

#include "fuzz/fuzz.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/euc_jp.h"
#include "platform/suite/unicode_table.h"

namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

using Conversion = suite::Converted (*)(std::string_view text, char* out, std::size_t capacity) noexcept;

/// One character after the other, each into a block of its own size.
std::string InSteps(Conversion convert, std::string_view text) {
  std::string all;
  while (!text.empty()) {
    suite::Converted done;
    for (std::size_t capacity = 1; done.read == 0; ++capacity) {
      FUZZ_CHECK(capacity <= 3);
      fuzz::Block out(capacity);
      done = convert(text, out.Data(), capacity);
      if (done.read != 0) all += out.View().substr(0, done.written);
    }
    text.remove_prefix(done.read);
  }
  return all;
}

void CheckConversion(Conversion convert, std::string_view text, std::size_t capacity, std::size_t growth) {
  const std::string whole = InSteps(convert, text);
  FUZZ_CHECK(whole.size() <= growth * text.size());

  fuzz::Block ample(growth * text.size());
  const suite::Converted all = convert(text, ample.Data(), growth * text.size());
  FUZZ_CHECK(all.read == text.size() && ample.View().substr(0, all.written) == whole);

  fuzz::Block out(capacity);
  const suite::Converted done = convert(text, out.Data(), capacity);
  FUZZ_CHECK(done.read <= text.size() && done.written <= capacity);
  FUZZ_CHECK(whole.starts_with(out.View().substr(0, done.written)));
  FUZZ_CHECK(InSteps(convert, text.substr(0, done.read)) == out.View().substr(0, done.written));
  FUZZ_CHECK(done.read == text.size() || done.written + 3 > capacity);
}

/// The instructions that a processor has besides change nothing.
void CheckAlike(Conversion convert, Conversion onAnyProcessor, std::string_view text, std::size_t capacity) {
  fuzz::Block out(capacity);
  fuzz::Block plain(capacity);
  const suite::Converted done = convert(text, out.Data(), capacity);
  const suite::Converted expected = onAnyProcessor(text, plain.Data(), capacity);
  FUZZ_CHECK(done.read == expected.read && done.written == expected.written && done.clean == expected.clean);
  FUZZ_CHECK(out.View().substr(0, done.written) == plain.View().substr(0, done.written));
}

void CheckTexts(const std::string& text, std::size_t limit) {
  const std::string sjis = CwEucEncoder::Euc2Sjis(text, kNoLimit);
  FUZZ_CHECK(suite::IsValidSjis(sjis));
  FUZZ_CHECK(sjis.starts_with(CwEucEncoder::Euc2Sjis(text, limit)));
  FUZZ_CHECK(CwEucEncoder::Euc2Sjis(text, limit).size() <= limit);

  const std::string euc = CwEucEncoder::Sjis2Euc(text, kNoLimit);
  FUZZ_CHECK(euc_jp::IsValid(euc));
  FUZZ_CHECK(euc.starts_with(CwEucEncoder::Sjis2Euc(text, limit)));
  FUZZ_CHECK(CwEucEncoder::Sjis2Euc(text, limit).size() <= limit);
  FUZZ_CHECK(suite::IsValidSjis(text) || !euc_jp::IsValid(text) || euc == text);

  // What has been converted once comes back the same from then on.
  const std::string back = CwEucEncoder::Sjis2Euc(sjis, kNoLimit);
  FUZZ_CHECK(CwEucEncoder::Euc2Sjis(back, kNoLimit) == sjis);
}

/// Length of the well-formed UTF-8 character at the start; 0 for none. The table of the standard, row by row.
std::size_t Utf8Length(std::string_view text) {
  const auto in = [text](std::size_t at, unsigned low, unsigned high) {
    const unsigned byte = at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
    return byte >= low && byte <= high;
  };
  if (in(0, 0x00, 0x7F)) return 1;
  if (in(0, 0xC2, 0xDF) && in(1, 0x80, 0xBF)) return 2;
  if (!in(2, 0x80, 0xBF)) return 0;
  if (in(0, 0xE0, 0xE0)) return in(1, 0xA0, 0xBF) ? 3 : 0;
  if (in(0, 0xED, 0xED)) return in(1, 0x80, 0x9F) ? 3 : 0;
  if (in(0, 0xE1, 0xEF)) return in(1, 0x80, 0xBF) ? 3 : 0;
  if (!in(3, 0x80, 0xBF)) return 0;
  if (in(0, 0xF0, 0xF0)) return in(1, 0x90, 0xBF) ? 4 : 0;
  if (in(0, 0xF1, 0xF3)) return in(1, 0x80, 0xBF) ? 4 : 0;
  return in(0, 0xF4, 0xF4) && in(1, 0x80, 0x8F) ? 4 : 0;
}

void CheckUtf8(std::string_view text) {
  bool isUtf8 = true;
  std::string_view rest = text;
  while (!rest.empty() && isUtf8) {
    const std::size_t length = Utf8Length(rest);
    isUtf8 = length != 0;
    rest.remove_prefix(length);
  }
  const std::optional<std::string> euc = suite::Utf8ToEuc(text);
  FUZZ_CHECK(euc.has_value() == isUtf8);
  FUZZ_CHECK(!euc || euc_jp::IsValid(*euc));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::size_t capacity = input.Size(300);
  const fuzz::Block exact(input.Rest());
  CheckConversion(suite::EucToSjis, exact.View(), capacity, 1);
  CheckConversion(suite::SjisToEuc, exact.View(), capacity, 2);
  for (const std::size_t room : {capacity, 2 * exact.View().size() + 64}) {
    CheckAlike(suite::EucToSjis, suite::EucToSjisOnAnyProcessor, exact.View(), room);
    CheckAlike(suite::SjisToEuc, suite::SjisToEucOnAnyProcessor, exact.View(), room);
  }
  CheckTexts(std::string(exact.View()), capacity);
  CheckUtf8(exact.View());
  return 0;
}
