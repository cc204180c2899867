#include "dlglib/listcontrol/packed_cells.h"

#include <cstring>
#include <utility>

namespace grid {

namespace {

constexpr unsigned kBits = 7;
constexpr std::size_t kMore = 1U << kBits;

constexpr std::size_t kLongestNumber = 10;
/// A run takes three numbers.
constexpr std::size_t kRoomForRuns = 3 * 3 * kLongestNumber;

void MakeRoom(std::string* bytes, std::size_t more) {
  if (bytes->capacity() - bytes->size() < more) bytes->reserve(bytes->size() + more);
}

[[nodiscard]] std::string_view ReadText(std::string_view* bytes, std::size_t size) noexcept {
  const std::string_view text = bytes->substr(0, size);
  bytes->remove_prefix(size);
  return text;
}

[[nodiscard]] bool IsSame(const CellLooks& a, const CellLooks& b) noexcept {
  return a.available == b.available && a.error == b.error && a.text == b.text && a.back == b.back;
}

}  // namespace

void PutNumber(std::string* bytes, std::size_t number) {
  for (; number >= kMore; number >>= kBits) *bytes += static_cast<char>(number | kMore);
  *bytes += static_cast<char>(number);
}

std::size_t ReadNumber(std::string_view* bytes) noexcept {
  std::size_t number = 0;
  for (unsigned shift = 0;; shift += kBits) {
    const auto byte = static_cast<unsigned char>(bytes->front());
    bytes->remove_prefix(1);
    number |= (byte & (kMore - 1)) << shift;
    if (byte < kMore) return number;
  }
}

// Room is made first, for the ends of the row and of its run too, so that no half of a cell is left behind.
void PackedCells::Add(int row, int column, std::string_view text, Mark mark) {
  MakeRoom(&texts_, text.size() + kLongestNumber);
  if (row != row_) {
    MakeRoom(&runs_, kRoomForRuns);
    EndRow();
    row_ = row;
  }
  columns_ |= 1U << column;
  PutNumber(&texts_, text.size() * 2 + (mark == Mark::OfProgram ? 1 : 0));
  texts_ += text;
}

void PackedCells::EndRow() noexcept {
  if (columns_ == 0) return;
  const bool goesOn = run_.count > 0 && row_ == run_.first + run_.count && columns_ == run_.columns;
  if (!goesOn) {
    EndRun();
    run_ = {row_, 0, columns_};
  }
  ++run_.count;
  columns_ = 0;
}

void PackedCells::EndRun() noexcept {
  if (run_.count == 0) return;
  PutNumber(&runs_, static_cast<std::size_t>(run_.first - rowsEnd_));
  PutNumber(&runs_, static_cast<std::size_t>(run_.count));
  PutNumber(&runs_, run_.columns);
  rowsEnd_ = run_.first + run_.count;
}

void PackedCells::End() noexcept {
  EndRow();
  EndRun();
  run_ = {};
}

void PackedCells::Finish() {
  End();
  runs_.shrink_to_fit();
  texts_.shrink_to_fit();
}

PackedCells::Cell PackedCells::ReadCell(int row, int column, std::string_view* texts) noexcept {
  const std::size_t head = ReadNumber(texts);
  const Mark mark = (head & 1U) != 0 ? Mark::OfProgram : Mark::None;
  return {row, column, ReadText(texts, head / 2), mark};
}

// ---------------------------------------------------------------------------------------------------------- whole rows

void RowPacker::Add(const GridModel& model, int row, ColumnBits marks) {
  PutNumber(&bytes_, marks);
  for (int column = 0; column < model.ColumnCount(); ++column) {
    const std::string_view text = model.Text(row, column);
    const CellLooks looks = model.Looks(row, column);
    CellLooks& last = last_[static_cast<std::size_t>(column)];
    const bool differs = !IsSame(looks, last);
    PutNumber(&bytes_, text.size() * 2 + (differs ? 1 : 0));
    if (differs) bytes_.append(reinterpret_cast<const char*>(&looks), sizeof looks);
    bytes_ += text;
    last = looks;
  }
}

std::string RowPacker::Finish() {
  bytes_.shrink_to_fit();
  return std::move(bytes_);
}

ColumnBits RowUnpacker::PutNext(GridModel* model, int row) noexcept {
  const auto marks = static_cast<ColumnBits>(ReadNumber(&bytes_));
  for (int column = 0; column < model->ColumnCount(); ++column) {
    CellLooks& looks = last_[static_cast<std::size_t>(column)];
    const std::size_t head = ReadNumber(&bytes_);
    if ((head & 1U) != 0) std::memcpy(&looks, ReadText(&bytes_, sizeof looks).data(), sizeof looks);
    model->PutText(row, column, ReadText(&bytes_, head / 2));
    model->SetLooks(row, column, looks);
  }
  return marks;
}

}  // namespace grid
