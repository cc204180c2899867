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

/// What a block knows of the one in front of it: its bytes and which of them start pairs. Only the last one counts;
/// `inPair` says of it alone whether it does (0 or 1), where the next block can have it soonest.
struct Carry {
  Vector bytes = _mm_setzero_si128();
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
/// first bits carries through them and through no other run. `inPair` (0 or 1): the first byte is a second byte.
inline unsigned FindLeads(unsigned candidates, unsigned inPair) {
  const unsigned runs = candidates & ~inPair;
  const unsigned starts = runs & ~(runs << 1) & 0x5555;
  const unsigned evenRuns = runs & ~(runs + starts);
  return (evenRuns & 0x5555) | (runs & ~evenRuns & 0xAAAA);
}

/// Whether a byte is the first one of an EUC-JP row in which every cell is assigned, or of row 4 or 5.
inline Vector IsFullRow(Vector lead) {
  const Vector letters = Equal(_mm_or_si128(lead, Fill(1)), 0xA5);
  const Vector kanji = _mm_andnot_si128(Equal(lead, 0xCF), Within(lead, 0xB0, 0xF3));
  return _mm_or_si128(_mm_or_si128(Equal(lead, 0xA1), letters), kanji);
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

  /// `leads`, `trails`: all bits of the first and second bytes of pairs. `previous`: the byte in front of each.
  static Converted Convert(Vector bytes, Vector, Vector previous, Vector leads, Vector trails) {
    const Vector isKatakana = Equal(previous, kKatakana);
    const Vector converted =
        _mm_sub_epi8(bytes, _mm_and_si128(_mm_andnot_si128(isKatakana, trails), TrailOffset(bytes, previous)));
    const Vector goodLead = _mm_or_si128(IsFullRow(bytes), Equal(bytes, kKatakana));
    const Vector bad =
        _mm_or_si128(_mm_andnot_si128(goodLead, leads), _mm_andnot_si128(IsTrail(bytes, previous, isKatakana), trails));
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
    return _mm_add_epi8(half, _mm_and_si128(AtLeast(euc, 0xDF), Fill(0x40)));
  }
  /// What a second byte is less in Shift_JIS: 2 in even rows, in odd ones 0x61, or 0x60 behind the gap at 0x7F.
  static Vector TrailOffset(Vector euc, Vector lead) {
    const Vector isOddRow = Equal(_mm_and_si128(lead, Fill(1)), 1);
    const Vector more = _mm_and_si128(isOddRow, _mm_add_epi8(Fill(0x5F), AtLeast(euc, 0xE0)));
    return _mm_add_epi8(more, Fill(2));
  }
  /// Second bytes that have no place in their row are pushed behind the last one: in rows 4 and 5 those above 0xF3, and
  /// the ones above 0xDF that are no katakana.
  static Vector IsTrail(Vector euc, Vector lead, Vector isKatakana) {
    const Vector isLetter = Equal(_mm_or_si128(lead, Fill(1)), 0xA5);
    const Vector push =
        _mm_or_si128(_mm_and_si128(isLetter, Fill(0xFE - 0xF3)), _mm_and_si128(isKatakana, Fill(0xFE - 0xDF)));
    return AtMost(_mm_adds_epu8(_mm_sub_epi8(euc, Fill(0xA1)), push), 0xFE - 0xA1);
  }
};

struct SjisToEucBlock {
  static unsigned Candidates(Vector bytes) { return Bits(AtMost(Rank(bytes), 0x3B)); }

  static unsigned Katakana(Vector bytes, Masks masks) {
    return Bits(Within(bytes, 0xA1, 0xDF)) & ~(masks.lead | masks.trail);
  }

  static Converted Convert(Vector bytes, Vector next, Vector previous, Vector leads, Vector trails) {
    const Vector lead = Lead(bytes, next);
    const Vector converted = _mm_add_epi8(bytes, _mm_and_si128(trails, TrailOffset(bytes)));
    const Vector bad =
        _mm_or_si128(_mm_andnot_si128(IsFullRow(lead), leads), _mm_andnot_si128(IsTrail(bytes, previous), trails));
    return {Select(leads, lead, converted), bad};
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
  /// First bytes 0x81 to 0x9F and 0xE0 to 0xFC as 0, 1, 2 ... without the gap; 0x3B is the last one.
  static Vector Rank(Vector bytes) { return _mm_sub_epi8(_mm_xor_si128(bytes, Fill(0x20)), Fill(0xA1)); }

  static Vector Lead(Vector sjis, Vector trail) {
    const Vector rank = Rank(sjis);
    return _mm_sub_epi8(_mm_add_epi8(_mm_add_epi8(rank, rank), Fill(0xA1)), AtLeast(trail, 0x9F));
  }
  /// What a second byte is more in EUC-JP: 0x61, or 0x60 behind the gap at 0x7F, and from 0x9F on, in even rows, 2.
  static Vector TrailOffset(Vector sjis) {
    const Vector more = _mm_add_epi8(Fill(0x61), AtLeast(sjis, 0x80));
    return _mm_sub_epi8(more, _mm_and_si128(AtLeast(sjis, 0x9F), Fill(0x5E)));
  }
  /// Rows 4 and 5 share their first bytes with rows 3 and 6, none of which is full. Second bytes behind their last
  /// letters are pushed behind the last one.
  static Vector IsTrail(Vector sjis, Vector lead) {
    const Vector push4 = _mm_and_si128(Equal(lead, 0x82), Fill(0xFC - 0xF1));
    const Vector push5 = _mm_and_si128(Equal(lead, 0x83), Fill(0xFC - 0x96));
    const Vector pushed = _mm_adds_epu8(_mm_sub_epi8(sjis, Fill(0x40)), _mm_or_si128(push4, push5));
    return _mm_andnot_si128(Equal(sjis, 0x7F), AtMost(pushed, 0xFC - 0x40));
  }
};

/// Converts the 16 bytes at `in`; the 17th is read too. What stands behind the first bad byte is without meaning.
/// (Functions that one conversion calls once are static: they are put in its place.)
template <class Block>
static Vector ConvertBlock(const unsigned char* in, Carry* carry, Masks* masks) {
  const Vector bytes = Load(in);
  const unsigned inPair = carry->inPair;
  const unsigned high = Bits(bytes);
  *masks = Masks();
  if ((high | inPair) == 0) {
    *carry = Carry();
    return bytes;
  }
  masks->lead = FindLeads(Block::Candidates(bytes), inPair);
  masks->trail = (masks->lead << 1 | inPair) & 0xFFFF;
  masks->katakana = Block::Katakana(bytes, *masks);
  const Vector leads = Expand(masks->lead);
  const Converted converted =
      Block::Convert(bytes, Load(in + 1), Follow(bytes, carry->bytes), leads, Follow(leads, carry->leads));
  const unsigned stray = high & ~(masks->lead | masks->trail | masks->katakana);
  // A katakana whose second byte lies in the next block would have its two bytes counted in two blocks.
  const unsigned cut = masks->katakana & masks->lead & (1u << (kBlock - 1));
  masks->bad = Bits(converted.bad) | stray | cut;
  *carry = {bytes, leads, masks->lead >> (kBlock - 1)};
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

/// The end of a text with zero bytes behind it, none of which is the second byte of a pair.
inline const unsigned char* Pad(const unsigned char* from, std::ptrdiff_t size, unsigned char* padded) {
  std::memset(padded, 0, 2 * kBlock);
  std::memcpy(padded, from, static_cast<std::size_t>(size));
  return padded;
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
    unsigned char padded[2 * kBlock];
    const bool isEnd = end - done.read <= kSize;
    const std::ptrdiff_t size = std::min(end - done.read, kSize);
    Masks masks;
    const Vector block =
        ConvertBlock<Block>(isEnd ? Pad(in + done.read, size, padded) : in + done.read, &carry, &masks);
    if (isEnd) masks.bad |= masks.lead & 1u << (kBlock - 1);
    char* to = out + done.read + done.excess;
    if (!isEnd && (masks.bad | masks.katakana) == 0) {
      Store(to, block);
      done.read += kSize;
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
