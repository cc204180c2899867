#include "platform/suite/encoding_tables.h"

#include <iterator>

namespace suite {
namespace {

struct CellRun {
  std::uint8_t row;
  std::uint8_t first;
  std::uint8_t last;
};

struct CodePair {
  std::uint16_t euc;
  std::uint16_t sjis;
};

#include "platform/suite/encoding_tables.inc"

constexpr unsigned kFirstUserRow = 95;
constexpr unsigned kUserRows = 10;  // with two bytes in EUC, and as many again with three
constexpr unsigned kFirstUserEucRow = 85;
constexpr unsigned kCells = 94;

constexpr std::uint16_t Pair(unsigned row, unsigned cell) {
  return static_cast<std::uint16_t>((row + 0xA0) << 8 | (cell + 0xA0));
}

constexpr std::uint16_t Packed(unsigned row, unsigned cell) {
  return static_cast<std::uint16_t>(Pair(row, cell) & ~0x80u);
}

constexpr bool IsPacked(std::uint16_t euc) { return (euc & 0x80) == 0; }

}  // namespace

const EncodingTables& EncodingTables::Instance() {
  static const EncodingTables tables;
  return tables;
}

EncodingTables::EncodingTables() {
  AddJisRows();
  AddUserRows();
  // The IBM extensions come first: they are the preferred codes of characters that the NEC-selected ones hold again.
  AddVendorRow(0xFA, kIbmCodes, std::size(kIbmCodes));
  AddVendorRow(0xED, kNecSelectedCodes, std::size(kNecSelectedCodes));
  for (const CodePair& other : kOtherSupplements) {
    ofSupplement_[EucIndex(static_cast<unsigned char>(other.euc >> 8), static_cast<unsigned char>(other.euc))] =
        other.sjis;
  }
}

/// Makes the two codes each other's counterpart; a code that has one keeps it.
void EncodingTables::Link(std::uint16_t sjis, std::uint16_t euc) {
  const std::size_t at = EucIndex(static_cast<unsigned char>(euc >> 8), static_cast<unsigned char>(euc));
  std::uint16_t& back = IsPacked(euc) ? ofSupplement_[at] : ofPair_[at];
  if (back == 0) back = sjis;
  ofSjis_[SjisIndex(static_cast<unsigned char>(sjis >> 8), static_cast<unsigned char>(sjis))] = euc;
}

/// Row 13 repeats nine mathematical signs of row 2. Both encodings hold both cells, so each goes to its own cell: a
/// text comes back byte for byte.
void EncodingTables::AddJisRows() {
  for (const CellRun& run : kAssignedCells) {
    for (unsigned cell = run.first; cell <= run.last; ++cell) Link(SjisOfCell(run.row, cell), Pair(run.row, cell));
  }
}

void EncodingTables::AddUserRows() {
  for (unsigned row = 0; row < kUserRows; ++row) {
    for (unsigned cell = 1; cell <= kCells; ++cell) {
      Link(SjisOfCell(kFirstUserRow + row, cell), Pair(kFirstUserEucRow + row, cell));
      Link(SjisOfCell(kFirstUserRow + kUserRows + row, cell), Packed(kFirstUserEucRow + row, cell));
    }
  }
}

void EncodingTables::AddVendorRow(std::uint8_t firstLead, const std::uint16_t* codes, std::size_t count) {
  constexpr std::size_t kTrails = 2 * kCells;
  for (std::size_t i = 0; i < count; ++i) {
    if (codes[i] == 0) continue;
    const std::size_t trail = i % kTrails + 0x40 + (i % kTrails >= 63 ? 1 : 0);
    Link(static_cast<std::uint16_t>((firstLead + i / kTrails) << 8 | trail), codes[i]);
  }
}

}  // namespace suite
