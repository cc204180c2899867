#include "platform/suite/euc_encoder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "platform/suite/crvnbc.h"
#include "platform/suite/encoding_tables.h"
#include "platform/suite/euc_blocks.h"
#include "platform/suite/euc_jp.h"
#include "platform/suite/euc_wide_blocks.h"

namespace suite {
namespace {

/// The instructions that a conversion may use.
enum class Blocks { OfAnyProcessor, OfThisProcessor };

/// One character on its way: bytes to read, and up to three bytes to write.
struct Character {
  std::size_t read = 1;
  std::size_t written = 1;
  std::array<char, 3> bytes = {'?', '?', '?'};
  bool clean = false;
};

constexpr bool IsKatakana(unsigned char byte) { return byte >= 0xA1 && byte <= 0xDF; }
constexpr char High(unsigned code) { return static_cast<char>(code >> 8); }
constexpr char Low(unsigned code) { return static_cast<char>(code); }

Character Unknown(std::size_t read, std::size_t marks = 1) { return {.read = read, .written = marks}; }

Character Pair(std::size_t read, unsigned code) {
  if (code == 0) return Unknown(read);
  return {.read = read, .written = 2, .bytes = {High(code), Low(code)}, .clean = true};
}

Character Single(std::size_t read, unsigned char byte) {
  return {.read = read, .written = 1, .bytes = {static_cast<char>(byte)}, .clean = true};
}

struct EucSource {
  using Block = blocks::EucToSjisBlock;
  static constexpr auto ConvertWide = wide_blocks::ConvertToSjis;

  /// Bytes that no block converts.
  static bool IsForTables(unsigned char byte) {
    return byte >= 0x80 && (byte < 0xB0 || byte > 0xF3) && byte != 0xA4 && byte != 0x8E;
  }

  static Character Take(const EncodingTables& tables, std::string_view euc, std::size_t at) {
    const auto lead = static_cast<unsigned char>(euc[at]);
    if (lead < 0x80) return Single(1, lead);
    const unsigned char second = euc_jp::ByteAt(euc, at + 1);
    const unsigned char third = euc_jp::ByteAt(euc, at + 2);
    if (lead == euc_jp::kKatakana && IsKatakana(second)) return Single(2, second);
    if (!euc_jp::IsHigh(second)) return Unknown(1);
    // A metacharacter's code is no first byte of a pair: reading it as one would spoil the rest of the title.
    if (lead == euc_jp::kMetacharacter) return Unknown(2, 2);
    if (lead != euc_jp::kSupplement)
      return euc_jp::IsHigh(lead) ? Pair(2, tables.SjisOfPair(lead, second)) : Unknown(1);
    return euc_jp::IsHigh(third) ? Pair(3, tables.SjisOfSupplement(second, third)) : Unknown(1);
  }
};

struct SjisSource {
  using Block = blocks::SjisToEucBlock;
  static constexpr auto ConvertWide = wide_blocks::ConvertToEuc;

  static bool IsForTables(unsigned char byte) {
    return byte == 0x80 || (byte >= 0x84 && byte < 0x88) || byte == 0xA0 || byte > 0xEA;
  }

  static Character Take(const EncodingTables& tables, std::string_view sjis, std::size_t at) {
    const auto lead = static_cast<unsigned char>(sjis[at]);
    if (lead < 0x80) return Single(1, lead);
    if (IsKatakana(lead)) return Pair(1, euc_jp::kKatakana << 8 | lead);
    const unsigned char trail = euc_jp::ByteAt(sjis, at + 1);
    const bool isLead = lead >= 0x81 && lead <= 0xFC && lead != 0xA0;
    const bool isTrail = trail >= 0x40 && trail <= 0xFC && trail != 0x7F;
    if (!isLead || !isTrail) return Unknown(1);
    const unsigned code = tables.EucOfSjis(lead, trail);
    const bool isPacked = code != 0 && (code & 0x80) == 0;
    if (!isPacked) return Pair(2, code);
    return {.read = 2,
            .written = 3,
            .bytes = {static_cast<char>(euc_jp::kSupplement), High(code), Low(code | 0x80)},
            .clean = true};
  }
};

void Write(const Character& character, char* out) {
  out[0] = character.bytes[0];
  if (character.written > 1) out[1] = character.bytes[1];
  if (character.written > 2) out[2] = character.bytes[2];
}

/// Blocks as far as they go, the widest first: those leave the end of a text to the others.
template <class Source>
blocks::Progress ConvertBlocks(const unsigned char* in, std::size_t inSize, char* out, std::size_t capacity,
                               Blocks widest) noexcept {
  const bool isWide = widest == Blocks::OfThisProcessor && inSize >= wide_blocks::kShortestText;
  blocks::Progress wide;
  if (isWide && wide_blocks::AreThere()) wide = Source::ConvertWide(in, inSize, out, capacity);
  if (wide.isAtOther) return wide;
  const auto read = static_cast<std::size_t>(wide.read);
  const auto written = static_cast<std::size_t>(wide.read + wide.excess);
  const blocks::Progress rest =
      blocks::Convert<typename Source::Block>(in + read, inSize - read, out + written, capacity - written);
  return {wide.read + rest.read, wide.excess + rest.excess};
}

/// Blocks as far as they go, then by the tables until blocks can go on.
template <class Source>
Converted Convert(std::string_view text, char* out, std::size_t capacity, Blocks widest) noexcept {
  const auto* in = reinterpret_cast<const unsigned char*>(text.data());
  Converted done;
  while (done.read < text.size()) {
    const std::size_t before = done.read;
    const blocks::Progress progress = ConvertBlocks<Source>(in + done.read, text.size() - done.read, out + done.written,
                                                            capacity - done.written, widest);
    done.read += static_cast<std::size_t>(progress.read);
    done.written += static_cast<std::size_t>(progress.read + progress.excess);
    if (done.read == text.size()) break;
    const EncodingTables& tables = EncodingTables::Instance();
    while (done.read < text.size() && (done.read == before || Source::IsForTables(in[done.read]))) {
      const Character character = Source::Take(tables, text, done.read);
      if (character.written > capacity - done.written) return done;
      Write(character, out + done.written);
      done.read += character.read;
      done.written += character.written;
      done.clean = done.clean && character.clean;
    }
  }
  return done;
}

/// A whole text in pieces that stay in the fastest memory; only what is needed is allocated. `all`: how far it came.
template <class Source>
std::string ConvertAll(std::string_view text, std::size_t limit, Converted* all) {
  constexpr std::size_t kPiece = 8192;
  char piece[kPiece];
  Converted part = Convert<Source>(text, piece, std::min(kPiece, limit), Blocks::OfThisProcessor);
  *all = part;
  if (part.read == text.size()) return {piece, part.written};
  std::string out;
  out.reserve(std::min(limit, text.size() + text.size() / 8));
  while (part.written != 0) {
    out.append(piece, part.written);
    part =
        Convert<Source>(text.substr(all->read), piece, std::min(kPiece, limit - all->written), Blocks::OfThisProcessor);
    *all = {all->read + part.read, all->written + part.written, all->clean && part.clean};
  }
  return out;
}

}  // namespace

Converted EucToSjis(std::string_view euc, char* out, std::size_t capacity) noexcept {
  return Convert<EucSource>(euc, out, capacity, Blocks::OfThisProcessor);
}

Converted SjisToEuc(std::string_view sjis, char* out, std::size_t capacity) noexcept {
  return Convert<SjisSource>(sjis, out, capacity, Blocks::OfThisProcessor);
}

Converted EucToSjisOnAnyProcessor(std::string_view euc, char* out, std::size_t capacity) noexcept {
  return Convert<EucSource>(euc, out, capacity, Blocks::OfAnyProcessor);
}

Converted SjisToEucOnAnyProcessor(std::string_view sjis, char* out, std::size_t capacity) noexcept {
  return Convert<SjisSource>(sjis, out, capacity, Blocks::OfAnyProcessor);
}

bool IsValidSjis(std::string_view sjis) noexcept {
  const EncodingTables& tables = EncodingTables::Instance();
  for (std::size_t at = 0; at < sjis.size();) {
    const Character character = SjisSource::Take(tables, sjis, at);
    if (!character.clean) return false;
    at += character.read;
  }
  return true;
}

}  // namespace suite

std::string CwEucEncoder::Euc2Sjis(const std::string& text, std::size_t limit) {
  suite::Converted done;
  return suite::ConvertAll<suite::EucSource>(text, limit, &done);
}

std::string CwEucEncoder::Sjis2Euc(const std::string& text, std::size_t limit) {
  suite::Converted done;
  std::string euc = suite::ConvertAll<suite::SjisSource>(text, limit, &done);
  const bool isWhole = done.read == text.size();
  const bool isSjis = done.clean && (isWhole || suite::IsValidSjis(std::string_view(text).substr(done.read)));
  if (!isSjis && euc_jp::IsValid(text)) euc = euc_jp::Truncate(text, limit);
  return euc;
}
