#include "dlglib/listcontrol/block_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <utility>

#include "dlglib/base/shift_jis.h"
#include "dlglib/listcontrol/cell_batches.h"
#include "dlglib/listcontrol/editable_cells.h"

namespace grid {

namespace {

constexpr std::string_view kRowEnd = "\r\n";

/// What a byte is at the start of a character. A look-up for each is what makes large blocks quick.
enum class ByteKind : std::uint8_t { Plain, Lead, Quote, Separator };

constexpr std::array<ByteKind, 256> kByteKinds = [] {
  std::array<ByteKind, 256> kinds = {};
  for (std::size_t byte = 0; byte < kinds.size(); ++byte) {
    if (shift_jis::IsLead(static_cast<char>(byte))) kinds[byte] = ByteKind::Lead;
  }
  for (const char separator : {'\t', '\r', '\n'}) kinds[static_cast<unsigned char>(separator)] = ByteKind::Separator;
  kinds['"'] = ByteKind::Quote;
  return kinds;
}();

[[nodiscard]] constexpr ByteKind KindOf(char byte) noexcept { return kByteKinds[static_cast<unsigned char>(byte)]; }
[[nodiscard]] constexpr bool IsSpecial(char byte) noexcept { return KindOf(byte) >= ByteKind::Quote; }

/// Begins at `from`, ends before `to`.
struct Range {
  int from;
  int to;
};

[[nodiscard]] Range Cut(int first, int count, int end) noexcept {
  const std::int64_t behind = std::int64_t{first} + count;
  const int from = std::max(first, 0);
  return {from, static_cast<int>(std::clamp<std::int64_t>(behind, from, std::max(end, from)))};
}

/// Writes as far as there is room, and counts the rest.
class Counted {
 public:
  Counted(char* out, std::size_t size) noexcept : out_(out), size_(out != nullptr ? size : 0) {}

  void Put(std::string_view text) noexcept {
    if (used_ + text.size() <= size_) std::copy(text.begin(), text.end(), out_ + used_);
    used_ += text.size();
  }
  void Put(char byte) noexcept { Put(std::string_view(&byte, 1)); }
  [[nodiscard]] std::size_t Used() const noexcept { return used_; }

 private:
  char* out_;
  std::size_t size_;
  std::size_t used_ = 0;
};

class Appended {
 public:
  explicit Appended(std::string* out) noexcept : out_(*out) {}

  void Put(std::string_view text) { out_ += text; }
  void Put(char byte) { out_ += byte; }

 private:
  std::string& out_;
};

[[nodiscard]] bool NeedsQuotes(std::string_view cell) noexcept {
  for (std::size_t at = 0; at < cell.size(); at += shift_jis::CharLength(cell, at)) {
    if (IsSpecial(cell[at])) return true;
  }
  return false;
}

struct CellText {
  std::string_view text;
  bool mayNeedQuotes = false;  ///< a byte looks as if, but may be the second one of a character
};

[[nodiscard]] CellText Scan(const char* text) noexcept {
  bool mayNeedQuotes = false;
  std::size_t size = 0;
  for (; text[size] != '\0'; ++size) mayNeedQuotes |= IsSpecial(text[size]);
  return {{text, size}, mayNeedQuotes};
}

template <class Out>
void PutCell(Out& out, const CellText& scanned) {
  const std::string_view cell = scanned.text;
  if (!scanned.mayNeedQuotes || !NeedsQuotes(cell)) return out.Put(cell);
  out.Put('"');
  for (std::size_t at = 0; at < cell.size();) {
    const std::size_t length = shift_jis::CharLength(cell, at);
    if (cell[at] == '"') out.Put('"');
    out.Put(cell.substr(at, length));
    at += length;
  }
  out.Put('"');
}

template <class Out>
void PutBlock(Out& out, const GridModel& model, const CellBlock& block, TextlessColumns textless) {
  if (block.columns <= 0) return;
  std::uint32_t withoutText = 0;
  for (const int column : textless) withoutText |= 1U << column;
  const int last = block.firstColumn + block.columns - 1;
  const auto forEachCell = [&block, last](const auto& visit) {
    for (const int row : block.rows) {
      for (int column = block.firstColumn; column <= last; ++column) visit(CellPosition{row, column});
    }
  };
  ForEachInBatches<CellPosition>(model, forEachCell, [&](CellPosition cell) {
    if ((withoutText >> cell.column & 1U) == 0) PutCell(out, Scan(model.Text(cell.row, cell.column)));
    out.Put(cell.column < last ? "\t" : kRowEnd);
  });
}

}  // namespace

CellBlock CutBlock(const GridModel& model, int row, int column, int rows, int columns) {
  const Range inRows = Cut(row, rows, model.UsedRows());
  const Range inColumns = Cut(column, columns, model.ColumnCount());
  CellBlock block;
  block.firstColumn = inColumns.from;
  block.columns = inColumns.to - inColumns.from;
  if (block.columns == 0) return block;
  block.rows.resize(static_cast<std::size_t>(inRows.to - inRows.from));
  std::iota(block.rows.begin(), block.rows.end(), inRows.from);
  return block;
}

CellBlock SelectedBlock(const GridModel& model) {
  CellBlock block;
  block.columns = model.ColumnCount();
  const int first = model.FirstSelected();
  for (int row = first; row != kNoRow && row < model.UsedRows(); ++row) {
    if (model.Selected(row) != 0) block.rows.push_back(row);
  }
  return block;
}

std::string WriteBlock(const GridModel& model, const CellBlock& block, TextlessColumns textless) {
  std::string text;
  Appended out(&text);
  PutBlock(out, model, block, textless);
  return text;
}

std::size_t WriteBlock(const GridModel& model, const CellBlock& block, TextlessColumns textless, char* out,
                       std::size_t size) {
  Counted counted(out, size);
  PutBlock(counted, model, block, textless);
  const std::size_t needed = counted.Used() + 1;
  if (out != nullptr && size > 0) out[needed <= size ? needed - 1 : 0] = '\0';
  return needed;
}

// ------------------------------------------------------------------------------------------------------------- reading

std::optional<BlockField> BlockReader::Next() {
  if (at_ == text_.size() && !rowIsOpen_) return std::nullopt;
  const bool isQuoted = at_ < text_.size() && text_[at_] == '"';
  BlockField field = isQuoted ? ReadQuoted() : ReadPlain();
  field.endsRow = EndField();
  return field;
}

BlockField BlockReader::ReadPlain() noexcept {
  const std::size_t from = at_;
  std::size_t at = from;
  while (at < text_.size()) {
    // A loop of its own for by far the most bytes: each is looked at without waiting for what the one before it is.
    while (at < text_.size() && KindOf(text_[at]) == ByteKind::Plain) ++at;
    if (at == text_.size() || KindOf(text_[at]) == ByteKind::Separator) break;
    at += KindOf(text_[at]) == ByteKind::Lead ? 2U : 1U;
  }
  at_ = std::min(at, text_.size());
  return {{text_.data() + from, at_ - from}, from, at_};
}

BlockField BlockReader::ReadQuoted() {
  const std::size_t from = at_;
  unquoted_.clear();
  ++at_;
  ReadWithinQuotes();
  unquoted_ += ReadPlain().text;
  return {unquoted_, from, at_};
}

/// Up to behind the closing quote.
void BlockReader::ReadWithinQuotes() {
  while (at_ < text_.size()) {
    if (text_[at_] == '"') {
      ++at_;
      if (at_ == text_.size() || text_[at_] != '"') return;
    }
    Append();
  }
}

/// One character, or a line break as a blank.
void BlockReader::Append() {
  const std::string_view rest = text_.substr(at_);
  const bool isBreak = rest.front() == '\r' || rest.front() == '\n';
  const std::size_t length = rest.starts_with(kRowEnd) ? kRowEnd.size() : shift_jis::CharLength(rest, 0);
  unquoted_ += isBreak ? " " : rest.substr(0, length);
  at_ += length;
}

/// Steps over what separates the cell from the next one. Whether the row ends.
bool BlockReader::EndField() noexcept {
  rowIsOpen_ = false;
  if (at_ == text_.size()) return true;
  const char separator = text_[at_++];
  rowIsOpen_ = separator == '\t';
  if (separator == '\r' && at_ < text_.size() && text_[at_] == '\n') ++at_;
  return !rowIsOpen_;
}

std::optional<std::string> SingleCell(std::string_view text) {
  BlockReader reader(text);
  const std::optional<BlockField> field = reader.Next();
  if (!field) return std::nullopt;
  std::string cell(field->text);
  return reader.Next() ? std::nullopt : std::optional(std::move(cell));
}

bool HoldsSeveralCells(std::string_view text) {
  BlockReader reader(text);
  return reader.Next() && reader.Next();
}

}  // namespace grid
