#include "dlglib/listcontrol/grid_keys.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "dlglib/base/virtual_keys.h"

namespace grid {

namespace {

constexpr KeyCommand kPass = {};
constexpr KeyCommand kSwallow = {KeyAction::Swallow};
constexpr char16_t kFirstPrintable = 0x20;
constexpr char16_t kDeleteCharacter = 0x7F;

struct KeyCode {
  unsigned int code;
  Key key;
};

constexpr KeyCode kKeyCodes[] = {{virtual_key::kTab, Key::Tab},
                                 {virtual_key::kEnter, Key::Enter},
                                 {virtual_key::kEscape, Key::Escape},
                                 {virtual_key::kSpace, Key::Space},
                                 {virtual_key::kPageUp, Key::PageUp},
                                 {virtual_key::kPageDown, Key::PageDown},
                                 {virtual_key::kEnd, Key::End},
                                 {virtual_key::kHome, Key::Home},
                                 {virtual_key::kLeft, Key::Left},
                                 {virtual_key::kUp, Key::Up},
                                 {virtual_key::kRight, Key::Right},
                                 {virtual_key::kDown, Key::Down},
                                 {virtual_key::kInsert, Key::Insert},
                                 {virtual_key::kDelete, Key::Delete},
                                 {'C', Key::C},
                                 {'V', Key::V},
                                 {'X', Key::X},
                                 {'Y', Key::Y},
                                 {'Z', Key::Z},
                                 {virtual_key::kKeypadMinus, Key::Minus},
                                 {virtual_key::kF2, Key::F2},
                                 {virtual_key::kF4, Key::F4},
                                 {virtual_key::kMinus, Key::Minus},
                                 {virtual_key::kProcess, Key::Process}};

enum class Modifiers : std::uint8_t { None, Shift, Control, Alt, Several };

[[nodiscard]] Modifiers ModifiersOf(const KeyPress& press) noexcept {
  const int count = (press.shift ? 1 : 0) + (press.control ? 1 : 0) + (press.alt ? 1 : 0);
  if (count > 1) return Modifiers::Several;
  if (press.shift) return Modifiers::Shift;
  if (press.control) return Modifiers::Control;
  return press.alt ? Modifiers::Alt : Modifiers::None;
}

/// The cell, or nothing happens.
[[nodiscard]] KeyCommand EditOrStay(CellPosition cell) noexcept {
  return cell.row == kNoRow ? kSwallow : KeyCommand{KeyAction::Edit, cell};
}

class Planner {
 public:
  Planner(const KeyPress& press, const KeyState& state, const EditableCells& cells) noexcept
      : key_(press.key), with_(ModifiersOf(press)), state_(state), cells_(cells) {}

  [[nodiscard]] KeyCommand Plan() const {
    if (state_.isComposing) return InComposition();
    const bool moves = Has(kKeysMove);
    if (state_.listIsOpen) return OverOpenList();
    const KeyCommand command = ForGrid();
    if (command.action != KeyAction::Pass || !moves) return command;
    if (!IsEdited()) return WithoutCell();
    const KeyCommand move = FromCell();
    return move.action != KeyAction::Pass || state_.boxHasFocus ? move : OnCellWithoutBox();
  }

  [[nodiscard]] KeyCommand PlanCharacter() const {
    if (!Has(kKeysMove)) return kPass;
    const bool isComposed = state_.isComposing && state_.boxHasFocus;
    if (state_.listIsOpen && !isComposed) return {KeyAction::MoveInList};
    if (state_.isComposing || state_.boxHasFocus) return kPass;
    if (IsEdited()) return HasBox() ? KeyCommand{KeyAction::Type, state_.edited} : DropDown();
    const CellPosition cell = CellOfSelectedRow();
    if (cell.row == kNoRow) return kPass;
    return {cells_.EditorsOf(cell.column).hasBox ? KeyAction::Type : KeyAction::EditAndDrop, cell};
  }

 private:
  [[nodiscard]] bool Has(int flag) const noexcept { return (state_.flags & flag) != 0; }
  [[nodiscard]] bool IsEdited() const noexcept { return state_.edited.row != kNoRow; }
  [[nodiscard]] bool IsPlain(Key key) const noexcept { return key_ == key && with_ == Modifiers::None; }
  [[nodiscard]] bool IsControl(Key key) const noexcept { return key_ == key && with_ == Modifiers::Control; }
  [[nodiscard]] bool HasShiftOrControl() const noexcept { return with_ != Modifiers::None && with_ != Modifiers::Alt; }
  [[nodiscard]] bool DropsDown() const noexcept {
    return IsPlain(Key::F4) || (key_ == Key::Down && with_ == Modifiers::Alt);
  }

  // ---- a composition

  /// The input method has had its look at the key. The dialog would end, or move the focus away from the composition.
  [[nodiscard]] KeyCommand InComposition() const noexcept {
    const bool isOfDialog = key_ == Key::Enter || key_ == Key::Escape || key_ == Key::Tab;
    return state_.flags != 0 && isOfDialog ? kSwallow : kPass;
  }

  // ---- clipboard, undo, rows

  [[nodiscard]] KeyCommand ForGrid() const {
    if (Has(kKeysUndo) && IsControl(Key::Z)) return {KeyAction::Undo};
    if (Has(kKeysUndo) && IsControl(Key::Y)) return {KeyAction::Redo};
    if (Has(kKeysRows) && IsPlain(Key::Insert)) return {KeyAction::InsertRow};
    if (Has(kKeysRows) && IsControl(Key::Minus)) return {KeyAction::DeleteRows};
    return Has(kKeysClipboard) ? ForClipboard() : kPass;
  }

  [[nodiscard]] KeyCommand ForClipboard() const {
    if (IsControl(Key::V)) return Paste();
    const bool areRows = !state_.boxHasFocus || SelectsSeveral();
    if (!areRows || cells_.Model().FirstSelected() == kNoRow) return kPass;
    if (IsControl(Key::C)) return {KeyAction::Copy};
    if (IsControl(Key::X)) return {KeyAction::Cut};
    return IsPlain(Key::Delete) ? KeyCommand{KeyAction::Clear} : kPass;
  }

  [[nodiscard]] KeyCommand Paste() const {
    const int selected = cells_.Model().FirstSelected();
    const CellPosition cell = IsEdited() ? state_.edited : CellPosition{selected, 0};
    if (cell.row == kNoRow) return kPass;
    const bool mayBeOfBox = state_.boxHasFocus && !SelectsSeveral();
    return {mayBeOfBox ? KeyAction::PasteOrBox : KeyAction::Paste, cell};
  }

  [[nodiscard]] bool SelectsSeveral() const noexcept {
    const GridModel& model = cells_.Model();
    const int first = model.FirstSelected();
    for (int row = first + 1; first != kNoRow && row < model.UsedRows(); ++row) {
      if (model.Selected(row) != 0) return true;
    }
    return false;
  }

  // ---- a cell is edited

  [[nodiscard]] KeyCommand FromCell() const {
    if (DropsDown()) return DropDown();
    switch (key_) {
      case Key::Tab:
        return FromTab();
      case Key::Enter:
        return FromEnter();
      case Key::Up:
        return with_ == Modifiers::None ? EditOrStay(cells_.Above(state_.edited)) : kPass;
      case Key::Down:
        return with_ == Modifiers::None ? EditOrStay(cells_.Below(state_.edited)) : kPass;
      case Key::PageUp:
        return with_ == Modifiers::None ? EditOrStay(cells_.Page(state_.edited, -Page())) : kPass;
      case Key::PageDown:
        return with_ == Modifiers::None ? EditOrStay(cells_.Page(state_.edited, Page())) : kPass;
      case Key::Home:
        return with_ == Modifiers::Control ? EditOrStay(cells_.First()) : kPass;
      case Key::End:
        return with_ == Modifiers::Control ? EditOrStay(cells_.Last()) : kPass;
      case Key::F2:
        return with_ == Modifiers::None && state_.boxHasFocus ? KeyCommand{KeyAction::CaretToEnd} : kPass;
      case Key::Escape:
        return with_ == Modifiers::None && state_.hasTextToGiveBack ? KeyCommand{KeyAction::GiveBack} : kPass;
      default:
        return kPass;
    }
  }

  [[nodiscard]] int Page() const noexcept { return std::max(state_.rowsPerPage, 1); }

  [[nodiscard]] KeyCommand FromTab() const {
    const bool isBack = with_ == Modifiers::Shift;
    if (!isBack && with_ != Modifiers::None) return kPass;
    const CellPosition cell = isBack ? cells_.Former(state_.edited) : cells_.Next(state_.edited);
    if (cell.row != kNoRow) return {KeyAction::Edit, cell};
    return {isBack ? KeyAction::LeaveBackward : KeyAction::LeaveForward};
  }

  [[nodiscard]] KeyCommand FromEnter() const {
    if (with_ == Modifiers::None) return EditOrStay(cells_.Below(state_.edited));
    return with_ == Modifiers::Shift ? EditOrStay(cells_.Above(state_.edited)) : kPass;
  }

  [[nodiscard]] KeyCommand DropDown() const {
    const bool hasList = cells_.EditorsOf(state_.edited.column).list != ColumnList::None;
    return hasList ? KeyCommand{KeyAction::DropDown} : kPass;
  }

  [[nodiscard]] bool HasBox() const noexcept { return cells_.EditorsOf(state_.edited.column).hasBox; }

  /// The list view has the focus, and its keys would move its own selection away from the cell. Selecting further rows
  /// is what they are good for. A box that does not have the focus has been scrolled out of sight.
  [[nodiscard]] KeyCommand OnCellWithoutBox() const {
    if (IsPlain(Key::F2)) return HasBox() ? KeyCommand{KeyAction::Edit, state_.edited} : DropDown();
    if (IsPlain(Key::Process)) return PlanCharacter();
    if (!IsListViewKey() || with_ == Modifiers::Alt) return kPass;
    return HasShiftOrControl() ? KeyCommand{KeyAction::ListView} : kSwallow;
  }

  [[nodiscard]] bool IsListViewKey() const noexcept { return IsArrow() || IsListViewJump(); }
  [[nodiscard]] bool IsArrow() const noexcept {
    return key_ == Key::Up || key_ == Key::Down || key_ == Key::Left || key_ == Key::Right;
  }
  [[nodiscard]] bool IsListViewJump() const noexcept {
    return key_ == Key::Home || key_ == Key::End || key_ == Key::PageUp || key_ == Key::PageDown;
  }

  // ---- an open list

  [[nodiscard]] KeyCommand OverOpenList() const {
    const KeyCommand inList = Has(kKeysMove) ? InOpenList() : kPass;
    if (inList.action != KeyAction::Pass) return inList;
    const KeyCommand command = ForGrid();
    return command.action == KeyAction::Pass && IsForTextInBox() ? KeyCommand{KeyAction::LeaveToBox} : command;
  }

  /// What it does to the box would be seen of nobody, or be lost with the next pick.
  [[nodiscard]] bool IsForTextInBox() const noexcept {
    if (!Has(kKeysClipboard) || !state_.boxHasFocus) return false;
    return IsControl(Key::C) || IsControl(Key::X) || IsPlain(Key::Delete);
  }

  [[nodiscard]] KeyCommand InOpenList() const {
    if (DropsDown() || IsPlain(Key::Escape)) return {KeyAction::CloseList};
    if (key_ == Key::Up && with_ == Modifiers::Alt) return {KeyAction::CloseList};
    if (key_ == Key::Tab) return FromTab();
    if (key_ == Key::Enter && with_ == Modifiers::Shift) return UpFromOpenList();
    if (with_ != Modifiers::None) return WithModifiersInOpenList();
    if (key_ == Key::Enter) return {KeyAction::PickFromList};
    return IsListViewKey() ? KeyCommand{KeyAction::MoveInList} : kPass;
  }

  [[nodiscard]] KeyCommand UpFromOpenList() const {
    const KeyCommand up = FromEnter();
    return up.action == KeyAction::Edit ? up : KeyCommand{KeyAction::CloseList};
  }

  /// The list view would move its own selection away from the cell, behind the list.
  [[nodiscard]] KeyCommand WithModifiersInOpenList() const noexcept {
    const bool isOfListView = IsListViewKey() || key_ == Key::Space;
    return isOfListView && HasShiftOrControl() && !state_.boxHasFocus ? kSwallow : kPass;
  }

  // ---- no cell is edited

  [[nodiscard]] KeyCommand WithoutCell() const {
    if (IsPlain(Key::Process)) return PlanCharacter();
    const bool isOfGrid = IsArrow() || key_ == Key::F2;
    const bool isOfListView = isOfGrid || IsListViewJump() || key_ == Key::Space;
    if (isOfListView && HasShiftOrControl()) return {KeyAction::ListView};
    if (with_ != Modifiers::None) return kPass;
    if (IsListViewJump()) return {KeyAction::ListView};
    if (!isOfGrid) return kPass;
    // A grid that is never edited is a list.
    return cells_.HasEditor(Column()) ? EditOrStay(Entered()) : KeyCommand{KeyAction::ListView};
  }

  [[nodiscard]] CellPosition Entered() const {
    const int selected = cells_.Model().FirstSelected();
    if (selected == kNoRow || (key_ != Key::Up && key_ != Key::Down)) return CellOfSelectedRow();
    const CellPosition from = {selected, Column()};
    return key_ == Key::Up ? cells_.Above(from) : cells_.Below(from);
  }

  /// The column that was edited last, else the first that has an editor.
  [[nodiscard]] int Column() const noexcept {
    int column = state_.lastColumn;
    if (cells_.HasEditor(column)) return column;
    for (column = 0; column < cells_.Model().ColumnCount() && !cells_.HasEditor(column);) ++column;
    return column;
  }

  /// In the first row when none is selected.
  [[nodiscard]] CellPosition CellOfSelectedRow() const {
    return cells_.InRow(std::max(cells_.Model().FirstSelected(), 0), Column());
  }

  Key key_;
  Modifiers with_;
  const KeyState& state_;
  const EditableCells& cells_;
};

}  // namespace

Key KeyOf(unsigned int code) noexcept {
  const auto* const found =
      std::find_if(std::begin(kKeyCodes), std::end(kKeyCodes), [code](const KeyCode& key) { return key.code == code; });
  return found != std::end(kKeyCodes) ? found->key : Key::Other;
}

KeyCommand PlanKey(const KeyPress& press, const KeyState& state, const EditableCells& cells) {
  return Planner(press, state, cells).Plan();
}

KeyCommand PlanCharacter(char16_t character, const KeyState& state, const EditableCells& cells) {
  if (character < kFirstPrintable || character == kDeleteCharacter) return kPass;
  if (character == kComposition && state.listIsOpen) return kPass;
  return Planner({}, state, cells).PlanCharacter();
}

bool IsMadeBy(Key key, char16_t character) noexcept {
  if (character < kFirstPrintable) return true;
  return (key == Key::Minus && character == u'-') || (key == Key::Space && character == u' ');
}

int EntryAfter(Key key, const ListEntries& entries) noexcept {
  const int last = entries.count - 1;
  const int page = std::max(entries.perPage - 1, 1);
  const auto moved = [&](int by) { return std::clamp(entries.shown + by, std::min(0, last), last); };
  switch (key) {
    case Key::Up:
    case Key::Left:
      return moved(-1);
    case Key::Down:
    case Key::Right:
      return moved(1);
    case Key::PageUp:
      return moved(-page);
    case Key::PageDown:
      return moved(page);
    case Key::Home:
      return std::min(0, last);
    case Key::End:
      return last;
    default:
      return entries.shown;
  }
}

}  // namespace grid
