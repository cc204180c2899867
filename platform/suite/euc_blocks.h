// Sixteen bytes of text at a time: the part of the conversion that is arithmetic.
//
// A block converts ASCII and the characters of the fully assigned rows of JIS X 0208 (signs, Hiragana, Katakana, most
// Kanji), all of which have as many bytes in one encoding as in the other. It stops in front of anything else:
// half-width katakana, vendor and user-defined rows, empty cells, bad bytes. Those are for the tables. SSE2 is part of
// every 64-bit x86 processor; elsewhere no block converts anything and the tables do all the work.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace suite::blocks {

inline constexpr std::size_t kBlock = 16;

#if defined(__SSE2__)

using Vector = __m128i;

inline Vector Fill(int byte) { return _mm_set1_epi8(static_cast<char>(byte)); }
inline Vector Load(const unsigned char* from) {
  Vector bytes;
  std::memcpy(&bytes, from, kBlock);
  return bytes;
}
inline void Store(char* to, Vector bytes) { std::memcpy(to, &bytes, kBlock); }
inline unsigned Bits(Vector mask) { return static_cast<unsigned>(_mm_movemask_epi8(mask)); }
inline Vector Select(Vector mask, Vector yes, Vector no) {
  return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
}
/// Unsigned comparisons.
inline Vector AtLeast(Vector bytes, int limit) { return _mm_cmpeq_epi8(_mm_max_epu8(bytes, Fill(limit)), bytes); }
inline Vector AtMost(Vector bytes, int limit) { return _mm_cmpeq_epi8(_mm_min_epu8(bytes, Fill(limit)), bytes); }
/// For bytes of 0x80 and above alone, as is `limit`; of others it says yes.
inline Vector HighAtLeast(Vector bytes, int limit) { return _mm_cmpgt_epi8(bytes, Fill(limit - 1)); }
inline Vector Within(Vector bytes, int low, int high) { return AtMost(_mm_sub_epi8(bytes, Fill(low)), high - low); }
inline Vector Equal(Vector bytes, int value) { return _mm_cmpeq_epi8(bytes, Fill(value)); }

/// All bits of byte n for each bit n.
inline Vector Expand(unsigned bits) {
  Vector spread = _mm_cvtsi32_si128(static_cast<int>(bits));
  spread = _mm_unpacklo_epi8(spread, spread);
  spread = _mm_shufflelo_epi16(spread, 0x50);
  spread = _mm_shuffle_epi32(spread, 0x50);
  const Vector single = _mm_set1_epi64x(static_cast<long long>(0x8040201008040201ULL));
  return _mm_cmpeq_epi8(_mm_and_si128(spread, single), single);
}

/// What a block knows of the one in front of it: its rows and which bytes start pairs. Only the last one counts;
/// `inPair` says of it alone whether it does (0 or 1), where the next block can have it soonest.
struct Carry {
  Vector rows = _mm_setzero_si128();
  Vector leads = _mm_setzero_si128();
  unsigned inPair = 0;
};

/// What a block found; bit 0 is its first byte.
struct Masks {
  unsigned lead = 0;      ///< first bytes of pairs
  unsigned trail = 0;     ///< second bytes of pairs
  unsigned katakana = 0;  ///< first bytes of half-width katakana
  unsigned bad = 0;       ///< bytes that the block cannot convert
};

/// `bytes` moved up by one, with the last byte of the block in front of it.
inline Vector Follow(Vector bytes, Vector front) {
  return _mm_or_si128(_mm_slli_si128(bytes, 1), _mm_srli_si128(front, 15));
}

/// Which bytes start pairs, when every byte in `candidates` starts one unless it is the second byte of one. In a run of
/// candidates they alternate from its start on. Runs that start at even places are found all at once: adding their
/// first bits clears them and no other run. `inPair` (0 or 1): the first byte is a second byte.
inline unsigned FindLeads(unsigned candidates, unsigned inPair) {
  constexpr unsigned kEven = 0x5555;
  const unsigned runs = candidates & ~inPair;
  const unsigned starts = runs & ~(runs << 1) & kEven;
  return runs & ((runs + starts) ^ kEven);
}

/// Whether a byte is the first one of an EUC-JP row in which every cell is assigned, or of row 4 or 5.
inline Vector IsFullRow(Vector lead) {
  const Vector letters = Equal(_mm_or_si128(lead, Fill(1)), 0xA5);
  const Vector kanji = _mm_andnot_si128(Equal(lead, 0xCF), Within(lead, 0xB0, 0xF3));
  return _mm_or_si128(_mm_or_si128(Equal(lead, 0xA1), letters), kanji);
}

/// Whether a byte is the second one of a cell of such an EUC-JP row. Those that have no place in their row are pushed
/// behind the last one: by `push`, and in rows 4 and 5 the ones above 0xF3.
inline Vector IsInRow(Vector second, Vector row, Vector push) {
  const Vector isLetter = Equal(_mm_or_si128(row, Fill(1)), 0xA5);
  const Vector pushAll = _mm_or_si128(push, _mm_and_si128(isLetter, Fill(0xFE - 0xF3)));
  return AtMost(_mm_adds_epu8(_mm_sub_epi8(second, Fill(0xA1)), pushAll), 0xFE - 0xA1);
}

/// A block with every byte converted in its place, half-width katakana without regard to 0x8E.
struct Converted {
  Vector bytes;
  Vector bad;
};

struct EucToSjisBlock {
  static unsigned Candidates(Vector bytes) { return Bits(bytes); }

  /// First bytes of half-width katakana.
  static unsigned Katakana(Vector bytes, Masks masks) { return Bits(Equal(bytes, kKatakana)) & masks.lead; }

  /// A katakana whose second byte lies in the next block would have its two bytes counted in two blocks.
  static unsigned Cut(Masks masks) { return masks.katakana & 1u << (kBlock - 1); }

  /// First bytes of EUC-JP pairs, which are their rows.
  static Vector Rows(Vector bytes, Vector) { return bytes; }

  /// `row`, `leads`: of each byte that starts a pair, its row and all bits; `front`, `trails`: of each second byte, the
  /// row of the one in front of it and all bits.
  static Converted Convert(Vector bytes, Vector row, Vector front, Vector leads, Vector trails) {
    const Vector isKatakana = Equal(front, kKatakana);
    const Vector converted =
        _mm_sub_epi8(bytes, _mm_and_si128(_mm_andnot_si128(isKatakana, trails), TrailOffset(bytes, front)));
    const Vector goodLead = _mm_or_si128(IsFullRow(row), Equal(row, kKatakana));
    const Vector goodTrail = IsInRow(bytes, front, _mm_and_si128(isKatakana, Fill(0xFE - 0xDF)));
    const Vector bad = _mm_or_si128(_mm_andnot_si128(goodLead, leads), _mm_andnot_si128(goodTrail, trails));
    return {Select(leads, Lead(bytes), converted), bad};
  }

  /// Writes the converted block without the first bytes of its katakana; answers what has come off its length.
  static std::ptrdiff_t Emit(Vector converted, unsigned katakana, char* out) {
    Store(out, converted);
    unsigned char bytes[2 * kBlock] = {};
    std::memcpy(bytes, &converted, kBlock);
    std::ptrdiff_t less = 0;
    for (; katakana != 0; katakana &= katakana - 1, ++less) {
      const int at = std::countr_zero(katakana);
      Store(out + at - less, Load(bytes + at + 1));
    }
    return -less;
  }

 private:
  static constexpr int kKatakana = 0x8E;

  /// (euc - 0xA1) / 2 + 0x81 as an average, which does not overflow, and over the gap behind 0x9F.
  static Vector Lead(Vector euc) {
    const Vector half = _mm_avg_epu8(euc, Fill(0x60));
    return _mm_add_epi8(half, _mm_and_si128(HighAtLeast(euc, 0xDF), Fill(0x40)));
  }
  /// What a second byte is less in Shift_JIS: 2 in even rows, in odd ones 0x61, or 0x60 behind the gap at 0x7F.
  static Vector TrailOffset(Vector euc, Vector lead) {
    const Vector isOddRow = Equal(_mm_and_si128(lead, Fill(1)), 1);
    const Vector more = _mm_and_si128(isOddRow, _mm_add_epi8(Fill(0x5F), HighAtLeast(euc, 0xE0)));
    return _mm_add_epi8(more, Fill(2));
  }
};

struct SjisToEucBlock {
  /// The bytes that start nothing at all too: their rows are none.
  static unsigned Candidates(Vector bytes) { return Bits(bytes) & ~KatakanaRange(bytes); }

  static unsigned Katakana(Vector bytes, Masks masks) { return KatakanaRange(bytes) & ~(masks.lead | masks.trail); }

  static unsigned Cut(Masks) { return 0; }

  /// EUC-JP first bytes that byte and byte behind it make.
  static Vector Rows(Vector bytes, Vector next) {
    const Vector rank = Rank(bytes);
    return _mm_sub_epi8(_mm_add_epi8(_mm_add_epi8(rank, rank), Fill(0xA1)), AtLeast(next, 0x9F));
  }

  static Converted Convert(Vector bytes, Vector row, Vector front, Vector leads, Vector trails) {
    const Vector converted = _mm_add_epi8(bytes, _mm_and_si128(trails, TrailOffset(bytes)));
    const Vector goodTrail = _mm_andnot_si128(Equal(bytes, 0x7F), IsInRow(converted, front, _mm_setzero_si128()));
    const Vector bad = _mm_or_si128(_mm_andnot_si128(IsFullRow(row), leads), _mm_andnot_si128(goodTrail, trails));
    return {Select(leads, row, converted), bad};
  }

  /// Writes the converted block with 0x8E in front of its katakana; answers what has been added to its length.
  static std::ptrdiff_t Emit(Vector converted, unsigned katakana, char* out) {
    Store(out, converted);
    unsigned char bytes[2 * kBlock] = {};
    std::memcpy(bytes, &converted, kBlock);
    std::ptrdiff_t more = 0;
    for (; katakana != 0; katakana &= katakana - 1) {
      const int at = std::countr_zero(katakana);
      out[at + more++] = static_cast<char>(0x8E);
      Store(out + at + more, Load(bytes + at));
    }
    return more;
  }

 private:
  static unsigned KatakanaRange(Vector bytes) { return Bits(Within(bytes, 0xA1, 0xDF)); }

  /// First bytes 0x81 to 0x9F and 0xE0 to 0xFC as 0, 1, 2 ... without the gap; 0x3B is the last one.
  static Vector Rank(Vector bytes) { return _mm_sub_epi8(_mm_xor_si128(bytes, Fill(0x20)), Fill(0xA1)); }

  /// What a second byte is more in EUC-JP: 0x61, or 0x60 behind the gap at 0x7F, and from 0x9F on, in even rows, 2.
  static Vector TrailOffset(Vector sjis) {
    const Vector more = _mm_add_epi8(Fill(0x61), AtLeast(sjis, 0x80));
    return _mm_sub_epi8(more, _mm_and_si128(AtLeast(sjis, 0x9F), Fill(0x5E)));
  }
};

/// Converts the 16 bytes `bytes`; `next` are the bytes behind each. What stands behind the first bad byte is without
/// meaning. (Functions that one conversion calls once are static: they are put in its place.)
template <class Block>
static Vector ConvertBlock(Vector bytes, Vector next, Carry* carry, Masks* masks) {
  const unsigned inPair = carry->inPair;
  *masks = Masks();
  if ((Bits(bytes) | inPair) == 0) {
    *carry = Carry();
    return bytes;
  }
  masks->lead = FindLeads(Block::Candidates(bytes), inPair);
  masks->trail = (masks->lead << 1 | inPair) & 0xFFFF;
  masks->katakana = Block::Katakana(bytes, *masks);
  const Vector leads = Expand(masks->lead);
  const Vector rows = Block::Rows(bytes, next);
  const Converted converted =
      Block::Convert(bytes, rows, Follow(rows, carry->rows), leads, Follow(leads, carry->leads));
  masks->bad = Bits(converted.bad) | Block::Cut(*masks);
  *carry = {rows, leads, masks->lead >> (kBlock - 1)};
  return converted.bytes;
}

/// How many of the first `size` bytes of a block are converted whole characters; -1 when the pair that began in front
/// of the block is bad. The last byte of a whole block may start a pair that goes on in the next one.
inline std::ptrdiff_t GoodBytes(Masks masks, std::ptrdiff_t size) {
  const int stop = std::countr_zero(masks.bad | 1u << size);
  return stop - static_cast<std::ptrdiff_t>(masks.trail >> stop & 1);
}

/// How far blocks came: bytes read, and bytes written in excess of them.
struct Progress {
  std::ptrdiff_t read = 0;
  std::ptrdiff_t excess = 0;
};

/// `Word` bytes as a number, the first one lowest.
template <class Word>
inline std::uint64_t LoadWord(const unsigned char* from) {
  Word word;
  std::memcpy(&word, from, sizeof(Word));
  return word;
}

/// The last `size` bytes of a text, 1 to 8, without a loop: from both of their ends, which may overlap.
inline std::uint64_t LoadFew(const unsigned char* from, std::size_t size) {
  if (size >= 4) return LoadWord<std::uint32_t>(from) | LoadWord<std::uint32_t>(from + size - 4) << 8 * (size - 4);
  const std::size_t middle = size / 2;
  return LoadWord<std::uint8_t>(from) | LoadWord<std::uint8_t>(from + middle) << 8 * middle |
         LoadWord<std::uint8_t>(from + size - 1) << 8 * (size - 1);
}

/// The last `size` bytes of a text, 1 to 16, with zero bytes behind them, none of which is the second byte of a pair.
/// Put together in registers: bytes that have just been copied to memory piece by piece are long in coming back.
inline Vector LoadEnd(const unsigned char* from, std::size_t size) {
  const std::uint64_t low = size > 8 ? LoadWord<std::uint64_t>(from) : LoadFew(from, size);
  const std::uint64_t high = size > 8 ? LoadWord<std::uint64_t>(from + size - 8) >> 8 * (kBlock - size) : 0;
  return _mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low));
}

/// Converts a start of the text: whole characters, as far as blocks can. They need some room behind what they convert;
/// where there is less, they stop.
template <class Block>
static Progress Convert(const unsigned char* in, std::size_t inSize, char* out, std::size_t capacity) {
  constexpr auto kSize = static_cast<std::ptrdiff_t>(kBlock);
  const auto end = static_cast<std::ptrdiff_t>(inSize);
  const auto room = static_cast<std::ptrdiff_t>(capacity) - 3 * kSize;
  Progress done;
  Carry carry;
  while (done.read < end && done.read + done.excess <= room) {
    const unsigned char* from = in + done.read;
    const bool isEnd = end - done.read <= kSize;
    const std::ptrdiff_t size = std::min(end - done.read, kSize);
    const Vector bytes = isEnd ? LoadEnd(from, static_cast<std::size_t>(size)) : Load(from);
    const Vector next = isEnd ? _mm_srli_si128(bytes, 1) : Load(from + 1);
    Masks masks;
    const Vector block = ConvertBlock<Block>(bytes, next, &carry, &masks);
    if (isEnd) masks.bad |= masks.lead & 1u << (kBlock - 1);
    char* to = out + done.read + done.excess;
    if ((masks.bad | masks.katakana) == 0) {
      Store(to, block);
      done.read += size;
      continue;
    }
    const std::ptrdiff_t count = GoodBytes(masks, size);
    const unsigned kept = count > 0 ? (1u << count) - 1 : 0;
    done.excess += Block::Emit(block, masks.katakana & kept, to);
    done.read += count;
    if (isEnd || masks.bad != 0) return done;
  }
  done.read -= static_cast<std::ptrdiff_t>(carry.inPair);
  return done;
}

#else

struct EucToSjisBlock {};
struct SjisToEucBlock {};

struct Progress {
  std::ptrdiff_t read = 0;
  std::ptrdiff_t excess = 0;
};

template <class Block>
Progress Convert(const unsigned char*, std::size_t, char*, std::size_t) {
  return {};
}

#endif

}  // namespace suite::blocks
