// Every character of two and more bytes that EUC-JP (eucJP-ms) and Shift_JIS (Windows-31J) have in common.
#pragma once

#include <cstdint>
#include <memory>

namespace suite {

/// Codes by the code of the other encoding. 0 stands for "has no counterpart".
///
/// Shift_JIS codes are two bytes, the first one in front. So are two-byte EUC codes; a three-byte one (0x8F in front)
/// is *packed*: its last two bytes with bit 7 of the last one cleared.
class EncodingTables {
 public:
  /// Built once, at the first use.
  [[nodiscard]] static const EncodingTables& Instance();

  /// Shift_JIS code of an EUC pair, both bytes of 0x80 or above.
  [[nodiscard]] std::uint16_t SjisOfPair(unsigned char first, unsigned char second) const noexcept {
    return ofPair_[EucIndex(first, second)];
  }
  /// Shift_JIS code of 0x8F and two bytes of 0x80 or above.
  [[nodiscard]] std::uint16_t SjisOfSupplement(unsigned char second, unsigned char third) const noexcept {
    return ofSupplement_[EucIndex(second, third)];
  }
  /// EUC code of a Shift_JIS pair whose first byte is 0x80 or above.
  [[nodiscard]] std::uint16_t EucOfSjis(unsigned char first, unsigned char second) const noexcept {
    return ofSjis_[SjisIndex(first, second)];
  }

 private:
  EncodingTables();

  static constexpr std::size_t EucIndex(unsigned char first, unsigned char second) noexcept {
    return (first & 0x7Fu) << 7 | (second & 0x7Fu);
  }
  static constexpr std::size_t SjisIndex(unsigned char first, unsigned char second) noexcept {
    return (first & 0x7Fu) << 8 | second;
  }
  void Link(std::uint16_t sjis, std::uint16_t euc);
  void AddJisRows();
  void AddUserRows();
  void AddVendorRow(std::uint8_t firstLead, const std::uint16_t* codes, std::size_t count);

  std::uint16_t ofPair_[1 << 14] = {};
  std::uint16_t ofSupplement_[1 << 14] = {};
  std::uint16_t ofSjis_[1 << 15] = {};
};

/// The Shift_JIS code of a cell. Rows 1 to 94 are JIS X 0208, 95 to 114 the user-defined rows, 115 to 120 the IBM
/// extensions; cells are 1 to 94.
[[nodiscard]] constexpr std::uint16_t SjisOfCell(unsigned row, unsigned cell) noexcept {
  const unsigned lead = (row - 1) / 2 + (row <= 62 ? 0x81u : 0xC1u);
  const unsigned trail = row % 2 == 0 ? cell + 0x9E : cell + 0x3F + (cell >= 64 ? 1 : 0);
  return static_cast<std::uint16_t>(lead << 8 | trail);
}

}  // namespace suite
