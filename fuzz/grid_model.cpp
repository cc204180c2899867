// Sequences of grid operations, on the model and on a plain grid, with every cell compared.
#include "dlglib/listcontrol/grid_model.h"

#include <vector>

#include "fuzz/fuzz.h"
#include "tests/core/listcontrol/plain_grid.h"

namespace {

using grid_test::PlainGrid;

std::size_t At(int index) { return static_cast<std::size_t>(index); }

class Player {
 public:
  explicit Player(fuzz::Input* input) : input_(*input) { Init(); }

  void Play() {
    // Long sequences find no more than several short ones.
    for (int step = 0; step < 400 && !input_.IsUsedUp(); ++step) {
      Step();
      FUZZ_CHECK(model_.ItemCount() == items_);
      FUZZ_CHECK(model_.UsedRows() == plain_.count);
      FUZZ_CHECK(model_.FirstSelected() == plain_.FirstSelected());
    }
    Compare();
  }

 private:
  // Now and then outside.
  int Row() { return input_.Number(-2, plain_.capacity + 2); }
  int Column() { return input_.Number(-1, static_cast<int>(plain_.limits.size())); }

  void Init() {
    const int capacity = input_.Number(0, 12);
    std::vector<int> limits(At(input_.Number(0, 20)));
    model_.ResetTextLimits();
    for (std::size_t c = 0; c < limits.size(); ++c) {
      const int limit = input_.Number(-1, 30);
      limits[c] = std::max(limit, 4);
      model_.SetTextLimit(static_cast<int>(c), limit);
    }
    const int numberColumn = input_.Number(-1, 21);
    items_ = input_.Number(0, capacity + 2);
    model_.Init(static_cast<int>(limits.size()), items_, capacity, numberColumn);
    plain_ = PlainGrid(limits, items_, capacity, numberColumn >= 20 ? 0 : numberColumn);
    items_ = plain_.count;
    // The next storage's limits do not touch this one's.
    model_.SetTextLimit(0, 385);
  }

  void Step() {
    const int operation = input_.Number(0, 13);
    const int row = Row();
    const int column = Column();
    const unsigned flag = input_.Byte() & 3U;
    switch (operation) {
      case 0:
        return WriteText(row, column, &grid::GridModel::SetText, &PlainGrid::SetText);
      case 1:
        return WriteText(row, column, &grid::GridModel::TypeText, &PlainGrid::TypeText);
      case 2:
        model_.SetColours(row, column, flag * 0x123456U, flag * 0x55555555U);
        return plain_.SetColours(row, column, flag * 0x123456U, flag * 0x55555555U);
      case 3:
        model_.SetAvailable(row, flag);
        return plain_.SetAvailable(row, flag);
      case 4:
        model_.SetAvailable(row, column, flag);
        return plain_.SetAvailable(row, column, flag);
      case 5:
        model_.SetError(row, column, flag);
        return plain_.SetError(row, column, flag);
      case 6:
      case 7:
        model_.Select(row, static_cast<int>(flag));
        return plain_.Select(row, static_cast<int>(flag));
      case 8:
        return Insert(row);
      case 9:
        return Delete();
      case 10:
        model_.ClearSelection();
        return plain_.ClearSelection();
      case 11:
        items_ = row;
        model_.SetItemCount(items_);
        plain_.count = std::clamp(items_, 0, plain_.capacity);
        return;
      case 12:
        return flag == 0 ? Init() : Compare();
      default:
        model_.Renumber();
        return plain_.Renumber();
    }
  }

  void WriteText(int row, int column, void (grid::GridModel::*write)(int, int, const char*) noexcept,
                 void (PlainGrid::*writePlain)(int, int, const std::string&)) {
    const std::string text = input_.Text(40);
    const fuzz::Block exact(std::string_view(text.c_str(), text.size() + 1));
    (model_.*write)(row, column, exact.View().data());
    (plain_.*writePlain)(row, column, text.substr(0, text.find('\0')));
  }

  void Insert(int at) {
    const bool fits = items_ == plain_.count && at >= 0 && at <= plain_.count && plain_.count < plain_.capacity;
    if (fits) plain_.Insert(at);
    FUZZ_CHECK(model_.InsertRow(at) == fits);
    if (fits) items_ = plain_.count;
  }

  void Delete() {
    const int deleted = plain_.DeleteSelected();
    FUZZ_CHECK(model_.DeleteSelectedRows() == deleted);
    if (deleted != 0) items_ = plain_.count;
  }

  void Compare() const {
    FUZZ_CHECK(model_.ColumnCount() == static_cast<int>(plain_.limits.size()));
    for (int row = -1; row <= plain_.capacity; ++row) {
      const bool exists = row >= 0 && row < plain_.capacity;
      const bool answers = exists && row < std::min(plain_.count + (items_ == plain_.count ? 1 : 0), plain_.capacity);
      FUZZ_CHECK(model_.Selected(row) == (answers ? plain_.rows[At(row)].selected : 0));
      for (int column = -1; column <= model_.ColumnCount(); ++column) CompareCell(row, column);
    }
  }

  void CompareCell(int row, int column) const {
    const bool exists = model_.HasCell(row, column);
    FUZZ_CHECK(exists == (row >= 0 && row < plain_.capacity && column >= 0 && At(column) < plain_.limits.size()));
    const grid_test::PlainCell outside;
    const grid_test::PlainCell& cell = exists ? plain_.rows[At(row)].cells[At(column)] : outside;
    const grid::CellLooks looks = model_.Looks(row, column);
    FUZZ_CHECK(std::string_view(model_.Text(row, column)) == cell.content);
    FUZZ_CHECK(looks.available == cell.available && looks.error == cell.error);
    FUZZ_CHECK(looks.text == cell.text && looks.back == cell.back);
    const bool isUsed = exists && row < plain_.count;
    FUZZ_CHECK(model_.Available(row, column) == (isUsed ? cell.available : 1));
    FUZZ_CHECK(isUsed ? model_.Error(row, column) == cell.error : model_.Error(row, column) != 0);
    if (isUsed && column == 0) FUZZ_CHECK(model_.Available(row) == cell.available);
  }

  fuzz::Input& input_;
  grid::GridModel model_;
  PlainGrid plain_{{}, 0, 0, -1};
  int items_ = 0;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  Player(&input).Play();
  return 0;
}
