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
  unsigned lead = 0;   ///< first bytes of pairs
  unsigned trail = 0;  ///< second bytes of pairs
  unsigned bad = 0;    ///< bytes that the block cannot convert
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

/// Whether a byte is the first one of an EUC-JP row in which every cell is assigned (rows 4 and 5 up to their last
/// letter).
inline Vector IsFullRow(Vector lead) {
  const Vector kana = Equal(_mm_or_si128(lead, Fill(1)), 0xA5);
  const Vector kanji = _mm_andnot_si128(Equal(lead, 0xCF), Within(lead, 0xB0, 0xF3));
  return _mm_or_si128(_mm_or_si128(Equal(lead, 0xA1), kana), kanji);
}

/// The last letters of rows 4 (Hiragana) and 5 (Katakana) and the last second byte of all.
struct LetterRows {
  int lead4, last4, lead5, last5, last;
};

/// Second bytes with those of the empty cells of rows 4 and 5 pushed behind the last second byte.
inline Vector PushEmptyCells(Vector trail, Vector lead, LetterRows rows) {
  const Vector push4 = _mm_and_si128(Equal(lead, rows.lead4), Fill(rows.last - rows.last4));
  const Vector push5 = _mm_and_si128(Equal(lead, rows.lead5), Fill(rows.last - rows.last5));
  return _mm_adds_epu8(trail, _mm_or_si128(push4, push5));
}

struct EucToSjisBlock {
  static unsigned Candidates(Vector bytes) { return Bits(bytes); }

  static Vector Lead(Vector euc, Vector) {
    const Vector half = _mm_and_si128(_mm_srli_epi16(_mm_sub_epi8(euc, Fill(0xA1)), 1), Fill(0x7F));
    const Vector second = _mm_and_si128(AtLeast(euc, 0xDF), Fill(0x40));
    return _mm_add_epi8(_mm_add_epi8(half, Fill(0x81)), second);
  }
  static Vector Trail(Vector euc, Vector lead) {
    const Vector isOddRow = Equal(_mm_and_si128(lead, Fill(1)), 1);
    const Vector ofOdd = _mm_sub_epi8(_mm_sub_epi8(euc, Fill(0x61)), AtLeast(euc, 0xE0));
    return Select(isOddRow, ofOdd, _mm_sub_epi8(euc, Fill(2)));
  }
  static Vector IsLead(Vector euc, Vector) { return IsFullRow(euc); }
  static Vector IsTrail(Vector euc, Vector lead) {
    constexpr LetterRows kRows = {.lead4 = 0xA4, .last4 = 0xF3, .lead5 = 0xA5, .last5 = 0xF6, .last = 0xFE};
    return _mm_and_si128(AtLeast(euc, 0xA1), AtMost(PushEmptyCells(euc, lead, kRows), kRows.last));
  }
};

struct SjisToEucBlock {
  /// First bytes 0x81 to 0x9F and 0xE0 to 0xFC as 0, 1, 2 ... without the gap; 0x3B is the last one.
  static Vector Rank(Vector bytes) { return _mm_sub_epi8(_mm_xor_si128(bytes, Fill(0x20)), Fill(0xA1)); }

  static unsigned Candidates(Vector bytes) { return Bits(AtMost(Rank(bytes), 0x3B)); }

  static Vector Lead(Vector sjis, Vector trail) {
    const Vector rank = Rank(sjis);
    return _mm_sub_epi8(_mm_add_epi8(_mm_add_epi8(rank, rank), Fill(0xA1)), AtLeast(trail, 0x9F));
  }
  static Vector Trail(Vector sjis, Vector) {
    const Vector ofOdd = _mm_add_epi8(_mm_add_epi8(sjis, Fill(0x61)), AtLeast(sjis, 0x80));
    return Select(AtLeast(sjis, 0x9F), _mm_add_epi8(sjis, Fill(2)), ofOdd);
  }
  static Vector IsLead(Vector, Vector converted) { return IsFullRow(converted); }
  /// Rows 4 and 5 share their first bytes with rows 3 and 6, none of which is full.
  static Vector IsTrail(Vector sjis, Vector lead) {
    constexpr LetterRows kRows = {.lead4 = 0x82, .last4 = 0xF1, .lead5 = 0x83, .last5 = 0x96, .last = 0xFC};
    const Vector inRange = _mm_and_si128(AtLeast(sjis, 0x40), AtMost(PushEmptyCells(sjis, lead, kRows), kRows.last));
    return _mm_andnot_si128(Equal(sjis, 0x7F), inRange);
  }
};

/// Converts the 16 bytes at `in` into `out`; the 17th is read too. What stands behind the first bad byte is without
/// meaning.
template <class Block>
Masks ConvertBlock(const unsigned char* in, Carry* carry, char* out) {
  const Vector bytes = Load(in);
  Masks masks;
  const unsigned inPair = carry->inPair;
  const unsigned high = Bits(bytes);
  if ((high | inPair) == 0) {
    Store(out, bytes);
    *carry = Carry();
    return masks;
  }
  masks.lead = FindLeads(Block::Candidates(bytes), inPair);
  masks.trail = (masks.lead << 1 | inPair) & 0xFFFF;
  const Vector leads = Expand(masks.lead);
  const Vector trails = Follow(leads, carry->leads);
  const Vector previous = Follow(bytes, carry->bytes);
  const Vector lead = Block::Lead(bytes, Load(in + 1));
  Store(out, Select(leads, lead, Select(trails, Block::Trail(bytes, previous), bytes)));
  const Vector badLead = _mm_andnot_si128(Block::IsLead(bytes, lead), leads);
  const Vector badTrail = _mm_andnot_si128(Block::IsTrail(bytes, previous), trails);
  masks.bad = Bits(_mm_or_si128(badLead, badTrail)) | (high & ~(masks.lead | masks.trail));
  *carry = {bytes, leads, masks.lead >> (kBlock - 1)};
  return masks;
}

/// How many bytes at the start of a block are converted whole characters; -1 when the pair that began in front of the
/// block is bad. `masks.bad` is not 0.
inline int GoodBytes(Masks masks) {
  const int stop = std::countr_zero(masks.bad);
  return stop - static_cast<int>(masks.trail >> stop & 1);
}

/// The end of a text, with room around it for a whole block.
template <class Block>
std::size_t ConvertEnd(const unsigned char* in, std::size_t size, char* out, std::size_t capacity) {
  unsigned char padded[2 * kBlock] = {};
  char converted[kBlock];
  std::memcpy(padded, in, std::min(size, kBlock + 1));
  Carry carry;
  const Masks masks = ConvertBlock<Block>(padded, &carry, converted);
  std::size_t count = std::min({size, capacity, kBlock});
  if (masks.bad != 0) count = std::min(count, static_cast<std::size_t>(GoodBytes(masks)));
  if (count > 0) count -= masks.lead >> (count - 1) & 1;
  std::memcpy(out, converted, count);
  return count;
}

/// Converts a start of the text and answers its number of bytes, which is the same on both sides: whole characters, as
/// far as blocks can, at most `capacity`.
template <class Block>
std::size_t Convert(const unsigned char* in, std::size_t size, char* out, std::size_t capacity) {
  std::size_t at = 0;
  Carry carry;
  while (size - at > kBlock && capacity - at >= kBlock) {
    const Masks masks = ConvertBlock<Block>(in + at, &carry, out + at);
    if (masks.bad != 0) return at + static_cast<std::size_t>(GoodBytes(masks));
    at += kBlock;
  }
  at -= carry.inPair;
  return at + ConvertEnd<Block>(in + at, size - at, out + at, capacity - at);
}

#else

struct EucToSjisBlock {};
struct SjisToEucBlock {};

template <class Block>
std::size_t Convert(const unsigned char*, std::size_t, char*, std::size_t) {
  return 0;
}

#endif

}  // namespace suite::blocks
