// What users and programs do to a grid, undo and redo in between: on the grid and on a plain one whose steps are whole
// texts, with every cell compared. And what keys mean in every state on the way.
#include "dlglib/listcontrol/grid_editing.h"

#include <algorithm>
#include <string>
#include <vector>

#include "dlglib/base/shift_jis.h"
#include "dlglib/listcontrol/grid_keys.h"
#include "fuzz/fuzz.h"
#include "tests/core/listcontrol/plain_undo.h"

namespace {

using grid::CellPosition;
using grid_test::NewText;

constexpr int kColumns = 3;
constexpr int kCapacity = 9;
constexpr int kLimit = 12;

std::size_t At(int index) { return static_cast<std::size_t>(index); }

/// A text without a zero byte that ends with a whole character, as cells hold them.
std::string Whole(const std::string& text, int limit) {
  return std::string(shift_jis::Truncate(text.substr(0, text.find('\0')), At(limit)));
}

class Player {
 public:
  explicit Player(fuzz::Input* input) : input_(*input), plain_(kColumns, 0, kCapacity) {
    for (int column = 0; column < kColumns; ++column) model_.SetTextLimit(column, kLimit);
    const int rows = input_.Number(0, 5);
    model_.Init(kColumns, rows, kCapacity, -1);
    plain_ = grid_test::PlainUndo(kColumns, rows, kCapacity);
    for (int row = 0; row < rows; ++row) model_.SetAvailable(row, 0);
    for (int column = 0; column < kColumns; ++column) SetColumn(column);
  }

  void Play() {
    for (int step = 0; step < 300 && !input_.IsUsedUp(); ++step) {
      Step();
      Compare();
    }
  }

 private:
  void SetColumn(int column) {
    const int kind = input_.Number(0, 5);
    grid::ColumnEditors& editors = editors_[At(column)];
    editors = {kind == 1 ? 1 : 0, kind != 2 && kind != 3, grid::ColumnList::None};
    if (kind >= 3) editors.list = kind == 5 ? grid::ColumnList::OfDialog : grid::ColumnList::OfGrid;
    grid::PasteColumn& rules = rules_[At(column)];
    rules = {"", input_.Number(1, 14), grid::LetterCase::AsTyped, 1, 0, {"a x", "b"}};
    rules.letterCase = static_cast<grid::LetterCase>(input_.Number(0, 2));
    rules.modes.edit = input_.Number(0, 1);
    rules.modes.space = input_.Number(0, 1);
  }

  [[nodiscard]] grid::EditableCells Cells() const { return {model_, editors_}; }
  std::string Text() {
    static const std::vector<std::string> kTexts = {"", "a", "b", "\x95\x5C", "A ", "\xB1"};
    const std::size_t which = input_.Size(kTexts.size());
    return which < kTexts.size() ? kTexts[which] : input_.Text(20);
  }

  void Step() {
    const int operation = input_.Number(0, 16);
    const int used = model_.UsedRows();
    const CellPosition cell = {input_.Number(0, std::max(used - 1, 0)), input_.Number(0, kColumns - 1)};
    if (operation == 0) return Insert(input_.Number(-1, used + 1));
    if (operation == 1) return Paste();
    if (operation == 2) return PlanAKey(cell);
    if (operation == 3) FUZZ_CHECK(editing_.Redo().has_value() == plain_.Redo());
    if (operation == 4 || operation == 5) FUZZ_CHECK(editing_.Undo().has_value() == plain_.Undo());
    if (operation == 6) SetLimit();
    if (operation == 15) Tell();
    if (operation == 16) ForgetSteps();
    if (used > 0) ChangeCell(operation, cell);
  }

  void ChangeCell(int operation, CellPosition cell) {
    switch (operation) {
      case 7:
        return Delete();
      case 8:
        return Clear(cell);
      case 9:
        return Type(cell);
      case 10:
        return Pick(cell);
      case 11:
        return SetText(cell);
      case 12:
        return SetFlags(cell);
      case 13:
        editing_.BeginVisit(cell);
        return plain_.BeginVisit(cell.row, cell.column);
      case 14:
        editing_.EndVisit();
        return plain_.EndVisit();
      default:
        return;
    }
  }

  void Insert(int at) {
    const bool fits = at >= 0 && at <= model_.UsedRows() && model_.UsedRows() < kCapacity;
    FUZZ_CHECK(editing_.InsertRow(at) == fits);
    if (fits) plain_.Insert(at);
  }

  void Delete() {
    std::vector<int> selected;
    for (int row = 0; row < model_.UsedRows(); ++row) {
      model_.Select(row, input_.Number(0, 3) == 0 ? 1 : 0);
      if (model_.Selected(row) != 0) selected.push_back(row);
    }
    FUZZ_CHECK(editing_.DeleteSelectedRows() == static_cast<int>(selected.size()));
    plain_.Delete(selected);
  }

  void Paste() {
    grid::ClipboardText text = {input_.Text(40), {}};
    if (input_.Number(0, 9) == 0) text.lacking.push_back({input_.Size(40), 0x20AC});
    const CellPosition at = {input_.Number(-1, kCapacity), input_.Number(-1, kColumns)};
    editing_.SetPasteRows(input_.Number(0, 1));
    const std::vector<std::string> before = Texts();
    const grid::PastePlan plan = editing_.Plan({Cells(), rules_, ' '}, text, at);
    std::vector<NewText> texts;
    for (const grid::PasteCell& cell : plan.Cells()) {
      CheckPasted(cell, plan.TextOf(cell));
      texts.push_back({cell.row, cell.column, std::string(plan.TextOf(cell))});
    }
    const grid::Written written = editing_.Paste(plan);
    if (!plan.Refused()) {
      FUZZ_CHECK(written.cells == plain_.Write(texts, plan.AddedRows()));
    } else {
      FUZZ_CHECK(written.cells == grid::kRefused && plan.Cells().empty() && Texts() == before);
      FUZZ_CHECK(!plan.Refused()->Message().empty());
    }
  }

  void CheckPasted(const grid::PasteCell& cell, std::string_view text) const {
    const grid::PasteColumn& rules = rules_[At(cell.column)];
    const grid::ColumnEditors& editors = editors_[At(cell.column)];
    FUZZ_CHECK(editors.Any() && text.size() <= At(kLimit) && text.find('\0') == std::string_view::npos);
    FUZZ_CHECK(shift_jis::Truncate(text, text.size()) == text);
    FUZZ_CHECK(!model_.IsUsed(cell.row) || model_.Available(cell.row, cell.column) == 0);
    for (std::size_t at = 0; rules.modes.edit == 0 && at < text.size(); at += shift_jis::CharLength(text, at)) {
      FUZZ_CHECK(!shift_jis::IsHalfWidthKatakana(text[at]));
    }
    if (editors.hasBox) {
      FUZZ_CHECK(text.size() <= At(rules.boxLimit));
      FUZZ_CHECK(rules.modes.space != 0 || text.empty() || text.back() != ' ' ||
                 shift_jis::IsLead(text[text.size() - 2]));
    } else if (editors.list == grid::ColumnList::OfGrid) {
      FUZZ_CHECK(text == "a" || text == "b");
    }
  }

  void Clear(CellPosition cell) {
    const grid::CellBlock block = grid::CutBlock(model_, cell.row - 1, cell.column, input_.Number(0, 4), 2);
    std::vector<NewText> texts;
    for (const int row : block.rows) {
      for (int column = block.firstColumn; column < block.firstColumn + block.columns; ++column) {
        const bool isTyped = editors_[At(column)].Any() && editors_[At(column)].kind == 0;
        if (isTyped && model_.Available(row, column) == 0) texts.push_back({row, column, ""});
      }
    }
    FUZZ_CHECK(editing_.Clear(Cells(), block).cells == plain_.Write(texts, 0));
  }

  void Type(CellPosition cell) {
    const std::string text = Text();
    editing_.Type(cell, text.c_str());
    plain_.Type(cell.row, cell.column, Whole(text, kLimit));
  }
  void Pick(CellPosition cell) {
    const std::string text = Text();
    editing_.Pick(cell, text.c_str());
    plain_.Pick(cell.row, cell.column, Whole(text, kLimit));
  }
  void SetText(CellPosition cell) {
    const std::string text = Text();
    editing_.SetText(cell.row, cell.column, text.c_str());
    plain_.ProgramText(cell.row, cell.column, Whole(text, kLimit));
  }
  void SetFlags(CellPosition cell) {
    grid_test::UndoCell& plain = (*plain_.rows[At(cell.row)])[At(cell.column)];
    plain.available = input_.Byte() & 1U;
    plain.error = input_.Byte() & 1U;
    model_.SetAvailable(cell.row, cell.column, plain.available);
    model_.SetError(cell.row, cell.column, plain.error);
  }
  void Tell() {
    if (editing_.CollectVisitChange()) plain_.Tell();
    FUZZ_CHECK(!editing_.CollectVisitChange());
  }
  void ForgetSteps() {
    editing_.ForgetSteps();
    plain_.ForgetSteps();
    FUZZ_CHECK(!editing_.CanUndo() && !editing_.CanRedo());
  }
  void SetLimit() {
    const int limit = input_.Number(-1, 8);
    editing_.SetLimit(limit);
    plain_.SetLimit(limit);
  }

  /// A cell that a key leads to can be edited.
  void PlanAKey(CellPosition cell) {
    grid::KeyState state;
    state.flags = input_.Number(0, 15);
    if (input_.Flag() && Cells().CanEdit(cell)) state.edited = cell;
    state.lastColumn = input_.Number(-1, kColumns);
    state.boxHasFocus = state.edited.row != grid::kNoRow && input_.Flag();
    state.listIsOpen = input_.Flag();
    state.isComposing = input_.Number(0, 3) == 0;
    state.rowsPerPage = input_.Number(-1, 12);
    const unsigned int modifiers = input_.Byte();
    const grid::KeyPress press = {grid::KeyOf(input_.Byte()), (modifiers & 1U) != 0, (modifiers & 2U) != 0,
                                  (modifiers & 4U) != 0};
    const grid::KeyCommand byKey = grid::PlanKey(press, state, Cells());
    if (state.isComposing) FUZZ_CHECK(byKey.action == grid::KeyAction::Pass);
    for (const grid::KeyCommand& command : {byKey, grid::PlanCharacter(input_.Byte(), state, Cells())}) {
      const bool moves = state.listIsOpen && command.action == grid::KeyAction::MoveInList;
      if (state.isComposing && !moves) FUZZ_CHECK(command.action == grid::KeyAction::Pass);
      if (state.flags == 0) FUZZ_CHECK(command.action == grid::KeyAction::Pass);
      if (command.cell.row == grid::kNoRow) continue;
      const bool pastes = command.action == grid::KeyAction::Paste || command.action == grid::KeyAction::PasteOrBox;
      FUZZ_CHECK(pastes ? model_.IsUsed(command.cell.row) : Cells().CanEdit(command.cell));
    }
  }

  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (int row = 0; row < model_.UsedRows(); ++row) {
      for (int column = 0; column < kColumns; ++column) texts.emplace_back(model_.Text(row, column));
    }
    return texts;
  }

  void Compare() {
    FUZZ_CHECK(model_.UsedRows() == static_cast<int>(plain_.rows.size()));
    FUZZ_CHECK(editing_.CanUndo() == plain_.CanUndo());
    FUZZ_CHECK(editing_.CanRedo() == plain_.CanRedo());
    for (int row = 0; row < model_.UsedRows(); ++row) {
      for (int column = 0; column < kColumns; ++column) {
        const grid_test::UndoCell& cell = (*plain_.rows[At(row)])[At(column)];
        FUZZ_CHECK(model_.Text(row, column) == cell.text);
        FUZZ_CHECK(model_.Available(row, column) == cell.available);
        FUZZ_CHECK(model_.Error(row, column) == cell.error);
      }
    }
  }

  fuzz::Input& input_;
  grid::GridModel model_;
  grid::GridEditing editing_{&model_};
  grid_test::PlainUndo plain_;
  std::vector<grid::ColumnEditors> editors_{kColumns};
  std::vector<grid::PasteColumn> rules_{kColumns};
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  Player(&input).Play();
  return 0;
}
