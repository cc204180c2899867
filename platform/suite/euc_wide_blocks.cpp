#include "platform/suite/euc_wide_blocks.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace suite::wide_blocks {

#if defined(__x86_64__)

namespace {

// Functions that have been put into their callers pass no vector in memory, where a stack of Windows has too little
// alignment for one.
#define SUITE_BLOCK [[gnu::target("avx2"), gnu::always_inline]] inline

using Vector = __m256i;
using Half = __m128i;
using Mask = std::uint64_t;
constexpr std::size_t kBlock = 32;

SUITE_BLOCK Vector Fill(int byte) { return _mm256_set1_epi8(static_cast<char>(byte)); }
SUITE_BLOCK Vector Zero() { return _mm256_setzero_si256(); }
SUITE_BLOCK Vector Or(Vector a, Vector b) { return _mm256_or_si256(a, b); }
SUITE_BLOCK Vector And(Vector a, Vector b) { return _mm256_and_si256(a, b); }
SUITE_BLOCK Vector AndNot(Vector no, Vector yes) { return _mm256_andnot_si256(no, yes); }
SUITE_BLOCK Vector Xor(Vector a, Vector b) { return _mm256_xor_si256(a, b); }
SUITE_BLOCK Vector Plus(Vector a, Vector b) { return _mm256_add_epi8(a, b); }
SUITE_BLOCK Vector Minus(Vector a, Vector b) { return _mm256_sub_epi8(a, b); }
SUITE_BLOCK Vector PlusUpTo(Vector a, Vector b) { return _mm256_adds_epu8(a, b); }
SUITE_BLOCK Vector Average(Vector a, Vector b) { return _mm256_avg_epu8(a, b); }
SUITE_BLOCK Vector Least(Vector a, Vector b) { return _mm256_min_epu8(a, b); }
SUITE_BLOCK Vector Most(Vector a, Vector b) { return _mm256_max_epu8(a, b); }
SUITE_BLOCK Vector IsEqual(Vector a, Vector b) { return _mm256_cmpeq_epi8(a, b); }
SUITE_BLOCK Vector IsGreater(Vector a, Vector b) { return _mm256_cmpgt_epi8(a, b); }
SUITE_BLOCK Mask Bits(Vector mask) { return static_cast<std::uint32_t>(_mm256_movemask_epi8(mask)); }
SUITE_BLOCK Vector Load(const unsigned char* from) {
  Vector bytes;
  std::memcpy(&bytes, from, kBlock);
  return bytes;
}
SUITE_BLOCK void Store(char* to, Vector bytes) { std::memcpy(to, &bytes, kBlock); }

SUITE_BLOCK Vector Expand(Mask bits) {
  const Vector spread = _mm256_shuffle_epi8(_mm256_set1_epi32(static_cast<int>(bits)),
                                            _mm256_set_epi64x(0x0303030303030303, 0x0202020202020202,  //
                                                              0x0101010101010101, 0));
  const Vector single = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201ULL));
  return _mm256_cmpeq_epi8(_mm256_and_si256(spread, single), single);
}

SUITE_BLOCK Vector Follow(Vector bytes, Vector front) {
  const Vector halves =
      _mm256_permute2x128_si256(front, bytes, 0x21);  // the upper one of `front`, the lower of `bytes`
  return _mm256_alignr_epi8(bytes, halves, 15);
}

#include "platform/suite/euc_block.inc"

// ---------------------------------------------------------------------------------------------------------------------
// half-width katakana: eight bytes of the block at a time lose 0x8E, or get it

constexpr std::size_t kGroup = 8;
constexpr unsigned kGroups = 1u << kGroup;
constexpr std::uint8_t kNew = 0x80;  ///< no byte of the group's

/// Which of eight bytes stay, for each set of those that go.
constexpr std::array<std::array<std::uint8_t, kGroup>, kGroups> MakeLess() {
  std::array<std::array<std::uint8_t, kGroup>, kGroups> all = {};
  for (unsigned gone = 0; gone < kGroups; ++gone) {
    std::size_t to = 0;
    for (std::uint8_t at = 0; at < kGroup; ++at) {
      if ((gone >> at & 1) == 0) all[gone][to++] = at;
    }
  }
  return all;
}

/// Where each byte of what eight become comes from, for each set of those that get another in front of them.
constexpr std::array<std::array<std::uint8_t, 2 * kGroup>, kGroups> MakeMore() {
  std::array<std::array<std::uint8_t, 2 * kGroup>, kGroups> all = {};
  for (unsigned marked = 0; marked < kGroups; ++marked) {
    std::size_t to = 0;
    for (std::uint8_t at = 0; at < kGroup; ++at) {
      if ((marked >> at & 1) != 0) all[marked][to++] = kNew;
      all[marked][to++] = at;
    }
  }
  return all;
}

constexpr auto kLess = MakeLess();
constexpr auto kMore = MakeMore();

SUITE_BLOCK std::ptrdiff_t EmitGroup(EucToSjisBlock, Half bytes, unsigned katakana, char* out) {
  const Half places = _mm_loadl_epi64(reinterpret_cast<const Half*>(kLess[katakana].data()));
  _mm_storel_epi64(reinterpret_cast<Half*>(out), _mm_shuffle_epi8(bytes, places));
  return -std::popcount(katakana);
}

SUITE_BLOCK std::ptrdiff_t EmitGroup(SjisToEucBlock, Half bytes, unsigned katakana, char* out) {
  const Half places = _mm_loadu_si128(reinterpret_cast<const Half*>(kMore[katakana].data()));
  const Half sign = _mm_set1_epi8(static_cast<char>(0x8E));
  const Half all = _mm_blendv_epi8(_mm_shuffle_epi8(bytes, places), sign, places);
  _mm_storeu_si128(reinterpret_cast<Half*>(out), all);
  return std::popcount(katakana);
}

/// Writes the converted block without 0x8E, or with it; answers what that has changed in its length.
template <class Block>
SUITE_BLOCK std::ptrdiff_t Emit(Vector converted, Mask katakana, char* out) {
  const Half halves[] = {_mm256_castsi256_si128(converted), _mm256_extracti128_si256(converted, 1)};
  std::ptrdiff_t change = 0;
  for (const Half half : halves) {
    const Half groups[] = {half, _mm_unpackhi_epi64(half, half)};
    for (const Half group : groups) {
      change += EmitGroup(Block(), group, katakana % kGroups, out + change);
      katakana >>= kGroup;
      out += kGroup;
    }
  }
  return change;
}

/// Whole characters of the text's start, and no more than whole blocks.
template <class Block>
SUITE_BLOCK blocks::Progress Convert(const unsigned char* in, std::size_t inSize, char* out, std::size_t capacity) {
  constexpr auto kSize = static_cast<std::ptrdiff_t>(kBlock);
  const std::ptrdiff_t last = static_cast<std::ptrdiff_t>(inSize) - kSize - 1;  // the byte behind it is looked at too
  const std::ptrdiff_t room = static_cast<std::ptrdiff_t>(capacity) - 2 * kSize;
  blocks::Progress done;
  Carry carry = NoCarry();
  while (!done.isAtOther && done.read <= last && done.read + done.excess <= room) {
    const unsigned char* from = in + done.read;
    Masks masks;
    const Vector block = ConvertBlock<Block>(Load(from), Load(from + 1), &carry, &masks);
    char* to = out + done.read + done.excess;
    if ((masks.bad | masks.katakana) == 0) {
      Store(to, block);
      done.read += kSize;
      continue;
    }
    const std::ptrdiff_t count = GoodBytes(masks, kSize);
    const Mask kept = count > 0 ? (Mask{1} << count) - 1 : 0;
    done.excess += Emit<Block>(block, masks.katakana & kept, to);
    done.read += count;
    if (masks.bad == 0) continue;
    carry = NoCarry();
    done.isAtOther = masks.bad != Block::Cut(masks);
  }
  done.read -= static_cast<std::ptrdiff_t>(carry.inPair);
  return done;
}

}  // namespace

bool AreThere() noexcept { return __builtin_cpu_supports("avx2") != 0; }

[[gnu::target("avx2")]] blocks::Progress ConvertToSjis(const unsigned char* in, std::size_t inSize, char* out,
                                                       std::size_t capacity) noexcept {
  return Convert<EucToSjisBlock>(in, inSize, out, capacity);
}

[[gnu::target("avx2")]] blocks::Progress ConvertToEuc(const unsigned char* in, std::size_t inSize, char* out,
                                                      std::size_t capacity) noexcept {
  return Convert<SjisToEucBlock>(in, inSize, out, capacity);
}

#undef SUITE_BLOCK

#else

bool AreThere() noexcept { return false; }
blocks::Progress ConvertToSjis(const unsigned char*, std::size_t, char*, std::size_t) noexcept { return {}; }
blocks::Progress ConvertToEuc(const unsigned char*, std::size_t, char*, std::size_t) noexcept { return {}; }

#endif

}  // namespace suite::wide_blocks
