#include "dlglib/listcontrol/paste_plan.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

#include "dlglib/base/shift_jis.h"
#include "dlglib/base/trailing_blanks.h"
#include "dlglib/listcontrol/block_text.h"
#include "dlglib/listcontrol/grid_text.h"

namespace grid {

namespace {

[[nodiscard]] std::size_t Index(int value) noexcept { return static_cast<std::size_t>(value); }

/// Of columns about which nothing was said.
const PasteColumn kNoRules;

/// U+ and at least four digits.
[[nodiscard]] std::string CodeOf(char32_t character) {
  std::array<char, 16> code = {};
  std::snprintf(code.data(), code.size(), "U+%04X", static_cast<unsigned int>(character));
  return code.data();
}

[[nodiscard]] std::string ReasonText(const Refusal& refusal) {
  switch (refusal.reason) {
    case RefusalReason::NotAvailable:
      return "編集できないセルです。";
    case RefusalReason::NoColumn:
      return "列がありません。";
    case RefusalReason::NoRow:
      return "行がありません。";
    case RefusalReason::NoEditor:
      return "編集できない列です。";
    case RefusalReason::TooLong:
      return "長すぎます（" + std::to_string(refusal.limit) + "バイトまで）。";
    case RefusalReason::HalfWidthKatakana:
      return "半角カナは使えません。";
    case RefusalReason::LackingCharacter:
      return "使えない文字です（" + CodeOf(refusal.lacking) + "）。";
    case RefusalReason::NotInList:
      return "リストにない値です。";
    case RefusalReason::NotAccepted:
      break;
  }
  return "使えない値です。";
}

[[nodiscard]] bool HoldsHalfWidthKatakana(std::string_view text) noexcept {
  for (std::size_t at = 0; at < text.size(); at += shift_jis::CharLength(text, at)) {
    if (shift_jis::IsHalfWidthKatakana(text[at])) return true;
  }
  return false;
}

/// The width of a block, as far as it matters: nothing is asked about rows that are wider than the grid.
[[nodiscard]] int WidthOf(std::string_view text, int columns) {
  BlockReader reader(text);
  int widest = 0;
  int width = 0;
  while (const std::optional<BlockField> field = reader.Next()) {
    widest = std::max(widest, ++width);
    if (widest > columns) return widest;
    if (field->endsRow) width = 0;
  }
  return widest;
}

}  // namespace

std::string Refusal::Message() const {
  // Whatever number a program has given.
  const auto fromOne = [](int index) { return std::to_string(std::int64_t{index} + 1); };
  const std::string column = title.empty() ? fromOne(cell.column) + "列目" : title;
  return "貼り付けできません。" + fromOne(cell.row) + "行目 " + column + "：" + ReasonText(*this);
}

bool PastePlan::Fits(const GridModel& model) const noexcept {
  return model.UsedRows() == usedRows_ && model.Capacity() == capacity_ && Index(model.ColumnCount()) == titles_.size();
}

void PastePlan::Ask(PasteCheck check, void* context) {
  if (check == nullptr || refusal_) return;
  for (const PasteCell& cell : cells_) {
    if (check(context, cell.row, cell.column, texts_.data() + cell.at) != 0) continue;
    refusal_ = Refusal{RefusalReason::NotAccepted, {cell.row, cell.column}, 0, 0, titles_[Index(cell.column)]};
    return;
  }
}

class PastePlanner {
 public:
  PastePlanner(const PasteRules& rules, const ClipboardText& text, PasteTarget target)
      : rules_(rules), model_(rules.cells.Model()), text_(text), target_(target) {
    plan_.usedRows_ = model_.UsedRows();
    plan_.capacity_ = model_.Capacity();
    for (int column = 0; column < model_.ColumnCount(); ++column) {
      Column& at = columns_[Index(column)];
      at.editors = rules.cells.EditorsOf(column);
      at.isTyped = rules.cells.HoldsTypedText(column);
      at.limit = model_.TextLimit(column);
      if (Index(column) < rules.columns.size()) at.rules = &rules.columns[Index(column)];
      if (at.editors.hasBox) at.limit = std::min(at.limit, at.rules->boxLimit);
      plan_.titles_.push_back(at.rules->title);
    }
  }

  [[nodiscard]] PastePlan Plan() {
    const std::vector<int> selected = RowsToFill();
    if (!selected.empty()) {
      Fill(selected);
    } else {
      PlanBlock();
    }
    if (plan_.refusal_) plan_.cells_.clear();
    return std::move(plan_);
  }

 private:
  using Reason = RefusalReason;
  enum class Block { OfRows, OfCells };

  struct Column {
    const PasteColumn* rules = &kNoRules;
    ColumnEditors editors;
    bool isTyped = false;
    int limit = 0;
  };

  [[nodiscard]] const Column& ColumnAt(int column) const noexcept { return columns_[Index(column)]; }

  /// The selected rows when there are several and the text is a single value.
  [[nodiscard]] std::vector<int> RowsToFill() const {
    BlockReader reader(text_.sjis);
    if (!reader.Next() || reader.Next()) return {};
    std::vector<int> rows = SelectedBlock(model_).rows;
    return rows.size() > 1 ? rows : std::vector<int>();
  }

  void Fill(const std::vector<int>& rows) {
    BlockReader reader(text_.sjis);
    const BlockField field = *reader.Next();
    const int column = target_.column;
    if (!HasPlaceFor({target_.row, column})) return;
    const bool isRow = column == 0 && model_.ColumnCount() == 1;
    if (isRow && !ColumnAt(column).isTyped) return;
    for (const int row : rows) {
      if (!IsEditable({row, column})) return;
      const bool isFirst = plan_.cells_.empty();
      if (isFirst && !PlanText(field, {row, column})) return;
      if (isFirst) continue;
      PasteCell cell = plan_.cells_.front();
      cell.row = row;
      plan_.cells_.push_back(cell);
    }
  }

  /// Only where a field was left alone it matters whether the block is one of rows, which is seldom worth the time to
  /// find out beforehand.
  void PlanBlock() {
    const bool leftAlone = PlanFields(target_.column == 0 ? Block::OfRows : Block::OfCells);
    if (leftAlone && WidthOf(text_.sjis, model_.ColumnCount()) != model_.ColumnCount()) PlanFields(Block::OfCells);
  }

  /// From the start. Whether a field was left alone.
  bool PlanFields(Block block) {
    plan_.cells_.clear();
    plan_.texts_.clear();
    plan_.addedRows_ = 0;
    plan_.refusal_.reset();
    nextLacking_ = 0;
    MakeRoom();
    bool leftAlone = false;
    BlockReader reader(text_.sjis);
    CellPosition at = {target_.row, target_.column};
    while (const std::optional<BlockField> field = reader.Next()) {
      if (!HasPlaceFor(at)) break;
      if (at.row >= plan_.usedRows_) plan_.addedRows_ = at.row + 1 - plan_.usedRows_;
      const bool isLeftAlone = block == Block::OfRows && !ColumnAt(at.column).isTyped;
      leftAlone = leftAlone || isLeftAlone;
      if (!isLeftAlone && (!IsEditable(at) || !PlanText(*field, at))) break;
      at = field->endsRow ? CellPosition{at.row + 1, target_.column} : CellPosition{at.row, at.column + 1};
    }
    return leftAlone;
  }

  /// A guess, so that large blocks are not moved again and again while they grow.
  void MakeRoom() {
    constexpr std::size_t kBytesOfACell = 8;
    const std::size_t room = Index(plan_.capacity_) * Index(model_.ColumnCount());
    plan_.texts_.reserve(text_.sjis.size() + 1);
    plan_.cells_.reserve(std::min(text_.sjis.size() / kBytesOfACell, room));
  }

  bool Refuse(Reason reason, CellPosition cell) {
    const bool hasTitle = model_.HasColumn(cell.column);
    plan_.refusal_ = Refusal{reason, cell, 0, 0, hasTitle ? plan_.titles_[Index(cell.column)] : std::string()};
    return false;
  }

  [[nodiscard]] bool HasPlaceFor(CellPosition cell) {
    if (!model_.HasColumn(cell.column)) return Refuse(Reason::NoColumn, cell);
    const bool addsRows = target_.rows == PasteRows::Added;
    const int end = addsRows ? plan_.capacity_ : plan_.usedRows_;
    const bool isBehindFree = target_.row > plan_.usedRows_;
    const bool isThere = cell.row >= 0 && cell.row < end && !isBehindFree;
    return isThere ? true : Refuse(Reason::NoRow, cell);
  }

  /// Of rows to be added all cells will be available.
  [[nodiscard]] bool IsEditable(CellPosition cell) {
    if (!ColumnAt(cell.column).editors.Any()) return Refuse(Reason::NoEditor, cell);
    const bool isAvailable = cell.row >= plan_.usedRows_ || model_.Available(cell.row, cell.column) == 0;
    return isAvailable ? true : Refuse(Reason::NotAvailable, cell);
  }

  /// Puts what the cell would store into the plan, when it would.
  [[nodiscard]] bool PlanText(const BlockField& field, CellPosition at) {
    if (!HasAllCharacters(field, at)) return false;
    const Column& column = ColumnAt(at.column);
    const std::size_t from = plan_.texts_.size();
    plan_.texts_ += field.text;
    if (column.editors.hasBox) Shape(*column.rules, from);
    DropHalfCharacter(from);
    const std::string_view text(plan_.texts_.data() + from, plan_.texts_.size() - from);
    if (!Fits(text, at)) return false;
    const auto size = static_cast<std::uint16_t>(text.size());
    plan_.cells_.push_back({at.row, static_cast<std::uint16_t>(at.column), size, from});
    plan_.texts_ += '\0';
    return true;
  }

  /// As typing would.
  void Shape(const PasteColumn& rules, std::size_t from) {
    std::string& texts = plan_.texts_;
    if (rules.letterCase != LetterCase::AsTyped) FoldCase(std::span(texts).subspan(from), rules.letterCase);
    const bool endsWithBlank = texts.size() > from && texts.back() == ' ';
    if (rules.modes.space != 0 || !endsWithBlank) return;
    texts.resize(from + trailing_blanks::TrimmedLength(std::string_view(texts).substr(from)));
  }

  void DropHalfCharacter(std::size_t from) {
    std::string& texts = plan_.texts_;
    if (texts.size() == from || !shift_jis::IsLead(texts.back())) return;
    const std::string_view text = std::string_view(texts).substr(from);
    texts.resize(from + shift_jis::Truncate(text, text.size()).size());
  }

  /// Fields come in the order of the text, and so do the lacking characters.
  [[nodiscard]] bool HasAllCharacters(const BlockField& field, CellPosition at) {
    const std::vector<LackingCharacter>& lacking = text_.lacking;
    while (nextLacking_ < lacking.size() && lacking[nextLacking_].at < field.from) ++nextLacking_;
    if (nextLacking_ == lacking.size() || lacking[nextLacking_].at >= field.to) return true;
    Refuse(Reason::LackingCharacter, at);
    plan_.refusal_->lacking = lacking[nextLacking_].character;
    return false;
  }

  [[nodiscard]] bool Fits(std::string_view text, CellPosition at) {
    const Column& column = ColumnAt(at.column);
    if (column.rules->modes.edit == 0 && HoldsHalfWidthKatakana(text)) return Refuse(Reason::HalfWidthKatakana, at);
    const bool isPicked = !column.editors.hasBox && column.editors.list == ColumnList::OfGrid;
    if (isPicked && !IsValue(text, at.column)) return Refuse(Reason::NotInList, at);
    return FitsLimit(text, at);
  }

  [[nodiscard]] bool IsValue(std::string_view text, int column) {
    const std::vector<std::string>& values = ValuesOf(column);
    return std::binary_search(values.begin(), values.end(), text);
  }

  [[nodiscard]] bool FitsLimit(std::string_view text, CellPosition at) {
    const int limit = ColumnAt(at.column).limit;
    if (text.size() <= Index(limit)) return true;
    Refuse(Reason::TooLong, at);
    plan_.refusal_->limit = limit;
    return false;
  }

  /// What picks would store, sorted; found out once for a column.
  [[nodiscard]] const std::vector<std::string>& ValuesOf(int column) {
    std::optional<std::vector<std::string>>& values = values_[Index(column)];
    if (values) return *values;
    values.emplace();
    for (const std::string& entry : ColumnAt(column).rules->entries) {
      const std::string value = ValuePart(entry, rules_.comboSeparator);
      values->emplace_back(shift_jis::Truncate(value, Index(ColumnAt(column).limit)));
    }
    std::sort(values->begin(), values->end());
    return *values;
  }

  const PasteRules& rules_;
  const GridModel& model_;
  const ClipboardText& text_;
  PasteTarget target_;
  PastePlan plan_;
  std::size_t nextLacking_ = 0;
  std::array<Column, kMaxColumns> columns_ = {};
  std::array<std::optional<std::vector<std::string>>, kMaxColumns> values_;
};

PastePlan PlanPaste(const PasteRules& rules, const ClipboardText& text, PasteTarget target) {
  return PastePlanner(rules, text, target).Plan();
}

}  // namespace grid
