// Many bytes of text at a time: the part of the conversion that is arithmetic (euc_block.inc).
//
// Blocks convert ASCII and the fully assigned rows of JIS X 0208, and half-width katakana among them. They stop in
// front of anything else: vendor and user-defined rows, empty cells, bad bytes. Those are for the tables. SSE2 is part
// of every 64-bit x86 processor; elsewhere no block converts anything and the tables do all the work. Where the
// processor has AVX2 as well, euc_wide_blocks.h goes first.
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

/// How far blocks came: bytes read, and bytes written in excess of them.
struct Progress {
  std::ptrdiff_t read = 0;
  std::ptrdiff_t excess = 0;
  bool isAtOther = false;  ///< what comes next is no block's
};

#if defined(__SSE2__)

using Vector = __m128i;
using Mask = unsigned;
inline constexpr std::size_t kBlock = 16;

inline Vector Fill(int byte) { return _mm_set1_epi8(static_cast<char>(byte)); }
inline Vector Zero() { return _mm_setzero_si128(); }
inline Vector Or(Vector a, Vector b) { return _mm_or_si128(a, b); }
inline Vector And(Vector a, Vector b) { return _mm_and_si128(a, b); }
inline Vector AndNot(Vector no, Vector yes) { return _mm_andnot_si128(no, yes); }
inline Vector Xor(Vector a, Vector b) { return _mm_xor_si128(a, b); }
inline Vector Plus(Vector a, Vector b) { return _mm_add_epi8(a, b); }
inline Vector Minus(Vector a, Vector b) { return _mm_sub_epi8(a, b); }
inline Vector PlusUpTo(Vector a, Vector b) { return _mm_adds_epu8(a, b); }
inline Vector Average(Vector a, Vector b) { return _mm_avg_epu8(a, b); }
inline Vector Least(Vector a, Vector b) { return _mm_min_epu8(a, b); }
inline Vector Most(Vector a, Vector b) { return _mm_max_epu8(a, b); }
inline Vector IsEqual(Vector a, Vector b) { return _mm_cmpeq_epi8(a, b); }
inline Vector IsGreater(Vector a, Vector b) { return _mm_cmpgt_epi8(a, b); }
inline Mask Bits(Vector mask) { return static_cast<Mask>(_mm_movemask_epi8(mask)); }
inline Vector Load(const unsigned char* from) {
  Vector bytes;
  std::memcpy(&bytes, from, kBlock);
  return bytes;
}
inline void Store(char* to, Vector bytes) { std::memcpy(to, &bytes, kBlock); }

inline Vector Expand(Mask bits) {
  Vector spread = _mm_cvtsi32_si128(static_cast<int>(bits));
  spread = _mm_unpacklo_epi8(spread, spread);
  spread = _mm_shufflelo_epi16(spread, 0x50);
  spread = _mm_shuffle_epi32(spread, 0x50);
  const Vector single = _mm_set1_epi64x(static_cast<long long>(0x8040201008040201ULL));
  return _mm_cmpeq_epi8(_mm_and_si128(spread, single), single);
}

inline Vector Follow(Vector bytes, Vector front) {
  return _mm_or_si128(_mm_slli_si128(bytes, 1), _mm_srli_si128(front, 15));
}

#define SUITE_BLOCK inline
#include "platform/suite/euc_block.inc"
#undef SUITE_BLOCK

/// Writes the converted block without the first bytes of its katakana; answers what has come off its length.
inline std::ptrdiff_t Emit(EucToSjisBlock, Vector converted, Mask katakana, char* out) {
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

/// Writes the converted block with 0x8E in front of its katakana; answers what has been added to its length.
inline std::ptrdiff_t Emit(SjisToEucBlock, Vector converted, Mask katakana, char* out) {
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
  Carry carry = NoCarry();
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
    done.excess += Emit(Block(), block, masks.katakana & kept, to);
    done.read += count;
    if (isEnd || masks.bad != 0) return done;
  }
  done.read -= static_cast<std::ptrdiff_t>(carry.inPair);
  return done;
}

#else

struct EucToSjisBlock {};
struct SjisToEucBlock {};

template <class Block>
Progress Convert(const unsigned char*, std::size_t, char*, std::size_t) {
  return {};
}

#endif

}  // namespace suite::blocks
