#include "dlglib/listcontrol/grid_keys.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/core/listcontrol/edited_grid.h"

namespace {

using grid::CellPosition;
using grid::ColumnList;
using grid::Key;
using grid::KeyAction;
using grid::KeyCommand;
using grid::KeyPress;

constexpr KeyPress Plain(Key key) { return {key}; }
constexpr KeyPress Shift(Key key) { return {key, true}; }
constexpr KeyPress Control(Key key) { return {key, false, true}; }
constexpr KeyPress Alt(Key key) { return {key, false, false, true}; }

const std::vector<Key> kAllKeys = {Key::Other,    Key::Tab,  Key::Enter, Key::Escape, Key::Space,  Key::Up,
                                   Key::Down,     Key::Left, Key::Right, Key::Home,   Key::End,    Key::PageUp,
                                   Key::PageDown, Key::F2,   Key::F4,    Key::Insert, Key::Delete, Key::Minus,
                                   Key::C,        Key::V,    Key::X,     Key::Y,      Key::Z,      Key::Process};

/// Six rows; column 0 is not edited, 1 and 2 have boxes, 2 a list too, 3 a list only. Row 2 is not available.
class Keys : public testing::Test {
 protected:
  Keys() {
    grid_.editors[0] = {};
    grid_.editors[2].list = ColumnList::OfGrid;
    grid_.editors[3] = {0, false, ColumnList::OfDialog};
    grid_.model.SetAvailable(2, 1);
    state_.flags = grid::kKeysAll;
    state_.rowsPerPage = 3;
  }

  void EditBox(int row, int column) {
    Select({row});
    state_.edited = {row, column};
    state_.lastColumn = column;
    state_.boxHasFocus = grid_.editors[static_cast<std::size_t>(column)].hasBox;
  }
  void Select(const std::vector<int>& rows) {
    grid_.model.ClearSelection();
    for (const int row : rows) grid_.model.Select(row, 1);
  }
  [[nodiscard]] KeyCommand Press(const KeyPress& press) const { return PlanKey(press, state_, grid_.Cells()); }
  [[nodiscard]] KeyAction ActionOf(const KeyPress& press) const { return Press(press).action; }
  [[nodiscard]] KeyCommand Type(char16_t character) const { return PlanCharacter(character, state_, grid_.Cells()); }

  static KeyCommand Edit(int row, int column) { return {KeyAction::Edit, {row, column}}; }

  grid_test::EditedGrid grid_{4, 6, 8};
  grid::KeyState state_;
};

TEST_F(Keys, AreKnownByTheirCodes) {
  EXPECT_EQ(grid::KeyOf(0x09), Key::Tab);
  EXPECT_EQ(grid::KeyOf(0x28), Key::Down);
  EXPECT_EQ(grid::KeyOf('V'), Key::V);
  EXPECT_EQ(grid::KeyOf(0x6D), Key::Minus);
  EXPECT_EQ(grid::KeyOf(0xBD), Key::Minus);
  EXPECT_EQ(grid::KeyOf(0xE5), Key::Process);
  EXPECT_EQ(grid::KeyOf('A'), Key::Other);
  EXPECT_EQ(grid::KeyOf(0), Key::Other);
}

TEST_F(Keys, MeanNothingWithoutFlags) {
  state_.flags = 0;
  for (const bool edits : {false, true}) {
    state_ = {};
    if (edits) EditBox(1, 2);
    state_.flags = 0;
    for (const Key key : kAllKeys) {
      for (int bits = 0; bits < 8; ++bits) {
        const KeyPress press = {key, (bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
        for (const bool isOpen : {false, true}) {
          state_.listIsOpen = isOpen;
          EXPECT_EQ(ActionOf(press), KeyAction::Pass);
        }
      }
    }
    EXPECT_EQ(Type(u'a').action, KeyAction::Pass);
  }
}

TEST_F(Keys, BelongToAnOpenComposition) {
  state_.isComposing = true;
  for (const bool edits : {false, true}) {
    if (edits) EditBox(1, 2);
    for (const Key key : kAllKeys) {
      const bool isOfDialog = key == Key::Tab || key == Key::Enter || key == Key::Escape;
      for (int bits = 0; bits < 8; ++bits) {
        EXPECT_EQ(ActionOf({key, (bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0}),
                  isOfDialog ? KeyAction::Swallow : KeyAction::Pass)
            << "nothing may end the dialog under it";
      }
    }
    EXPECT_EQ(Type(u'a').action, KeyAction::Pass);
  }
  state_.flags = 0;
  for (const Key key : kAllKeys) EXPECT_EQ(ActionOf(Plain(key)), KeyAction::Pass) << "as ever";
}

// --------------------------------------------------------------------------------------------------------------- a box

TEST_F(Keys, TabToTheNextAndTheFormerCell) {
  EditBox(1, 1);
  EXPECT_EQ(Press(Plain(Key::Tab)), Edit(1, 2));
  EXPECT_EQ(Press(Shift(Key::Tab)), Edit(0, 3));
  EditBox(1, 3);
  EXPECT_EQ(Press(Plain(Key::Tab)), Edit(3, 1)) << "over the row's end, past a row that is not available";
  EXPECT_EQ(ActionOf(Control(Key::Tab)), KeyAction::Pass);
  EXPECT_EQ(ActionOf(Alt(Key::Tab)), KeyAction::Pass);
}

TEST_F(Keys, TabOutOfTheGridAtItsEnds) {
  EditBox(5, 3);
  EXPECT_EQ(ActionOf(Plain(Key::Tab)), KeyAction::LeaveForward);
  EditBox(0, 1);
  EXPECT_EQ(ActionOf(Shift(Key::Tab)), KeyAction::LeaveBackward);
}

TEST_F(Keys, GoUpAndDownInTheColumnAndStayAtTheEnds) {
  EditBox(1, 1);
  EXPECT_EQ(Press(Plain(Key::Down)), Edit(3, 1));
  EXPECT_EQ(Press(Plain(Key::Enter)), Edit(3, 1));
  EXPECT_EQ(Press(Plain(Key::Up)), Edit(0, 1));
  EXPECT_EQ(Press(Shift(Key::Enter)), Edit(0, 1));
  EditBox(0, 1);
  EXPECT_EQ(ActionOf(Plain(Key::Up)), KeyAction::Swallow);
  EXPECT_EQ(ActionOf(Shift(Key::Enter)), KeyAction::Swallow);
  EditBox(5, 1);
  EXPECT_EQ(ActionOf(Plain(Key::Down)), KeyAction::Swallow);
  EXPECT_EQ(ActionOf(Plain(Key::Enter)), KeyAction::Swallow);
}

TEST_F(Keys, GoByPagesAndToTheFirstAndTheLastCell) {
  EditBox(0, 2);
  EXPECT_EQ(Press(Plain(Key::PageDown)), Edit(3, 2));
  EXPECT_EQ(ActionOf(Plain(Key::PageUp)), KeyAction::Swallow);
  EXPECT_EQ(Press(Control(Key::End)), Edit(5, 3));
  EditBox(4, 2);
  EXPECT_EQ(Press(Plain(Key::PageDown)), Edit(5, 2));
  EXPECT_EQ(Press(Plain(Key::PageUp)), Edit(1, 2));
  EXPECT_EQ(Press(Control(Key::Home)), Edit(0, 1));
  state_.rowsPerPage = 0;
  EXPECT_EQ(Press(Plain(Key::PageDown)), Edit(5, 2)) << "a page has one row at least";
}

TEST_F(Keys, AreTheBoxsWhereTheyEditText) {
  EditBox(1, 1);
  for (const Key key : {Key::Left, Key::Right, Key::Home, Key::End, Key::Space, Key::Delete, Key::C, Key::X, Key::Other,
                        Key::Process}) {
    EXPECT_EQ(ActionOf(Plain(key)), KeyAction::Pass);
    EXPECT_EQ(ActionOf(Shift(key)), KeyAction::Pass);
  }
  for (const Key key : {Key::C, Key::X, Key::Left, Key::Right}) EXPECT_EQ(ActionOf(Control(key)), KeyAction::Pass);
  for (const Key key : {Key::Up, Key::Down, Key::PageUp, Key::PageDown, Key::F2, Key::Escape}) {
    EXPECT_EQ(ActionOf(Shift(key)), KeyAction::Pass);
    EXPECT_EQ(ActionOf(Control(key)), KeyAction::Pass);
  }
  EXPECT_EQ(ActionOf(Control(Key::Enter)), KeyAction::Pass);
  EXPECT_EQ(ActionOf(Alt(Key::Up)), KeyAction::Pass);
  EXPECT_EQ(Type(u'a').action, KeyAction::Pass);
}

TEST_F(Keys, GiveTheTextBackOnceAndAreTheDialogsThen) {
  EditBox(1, 1);
  state_.hasTextToGiveBack = true;
  EXPECT_EQ(ActionOf(Plain(Key::Escape)), KeyAction::GiveBack);
  EXPECT_EQ(ActionOf(Shift(Key::Escape)), KeyAction::Pass);
  state_.hasTextToGiveBack = false;
  EXPECT_EQ(ActionOf(Plain(Key::Escape)), KeyAction::Pass);
}

TEST_F(Keys, PutTheCaretAtTheEnd) {
  EditBox(1, 1);
  EXPECT_EQ(ActionOf(Plain(Key::F2)), KeyAction::CaretToEnd);
}

TEST_F(Keys, DropTheListDownWhereThereIsOne) {
  EditBox(1, 2);
  EXPECT_EQ(ActionOf(Alt(Key::Down)), KeyAction::DropDown);
  EXPECT_EQ(ActionOf(Plain(Key::F4)), KeyAction::DropDown);
  EXPECT_EQ(ActionOf(Alt(Key::F4)), KeyAction::Pass) << "closes the window";
  EditBox(1, 1);
  EXPECT_EQ(ActionOf(Alt(Key::Down)), KeyAction::Pass);
  EXPECT_EQ(ActionOf(Plain(Key::F4)), KeyAction::Pass);
}

// -------------------------------------------------------------------------------------------------------- an open list

TEST_F(Keys, MoveInAnOpenListAndPickOrCloseIt) {
  EditBox(1, 2);
  state_.listIsOpen = true;
  for (const Key key : {Key::Up, Key::Down, Key::PageUp, Key::PageDown, Key::Home, Key::End}) {
    EXPECT_EQ(ActionOf(Plain(key)), KeyAction::MoveInList);
  }
  EXPECT_EQ(Type(u'a').action, KeyAction::MoveInList);
  EXPECT_EQ(ActionOf(Plain(Key::Enter)), KeyAction::PickFromList);
  EXPECT_EQ(ActionOf(Plain(Key::Escape)), KeyAction::CloseList);
  EXPECT_EQ(ActionOf(Plain(Key::F4)), KeyAction::CloseList);
  EXPECT_EQ(ActionOf(Alt(Key::Down)), KeyAction::CloseList);
  EXPECT_EQ(ActionOf(Alt(Key::Up)), KeyAction::CloseList);
  EXPECT_EQ(Press(Plain(Key::Tab)), Edit(1, 3));
  EXPECT_EQ(Press(Shift(Key::Tab)), Edit(1, 1));
  EXPECT_EQ(ActionOf(Shift(Key::Down)), KeyAction::Pass);
  EXPECT_EQ(ActionOf(Plain(Key::F2)), KeyAction::Pass);
}

TEST_F(Keys, WithShiftOrControlLeaveTheListViewAloneBehindAnOpenList) {
  EditBox(3, 3);
  state_.listIsOpen = true;
  for (const Key key :
       {Key::Up, Key::Down, Key::Left, Key::Right, Key::PageUp, Key::PageDown, Key::Home, Key::End, Key::Space}) {
    EXPECT_EQ(ActionOf(Shift(key)), KeyAction::Swallow);
    EXPECT_EQ(ActionOf(Control(key)), KeyAction::Swallow);
    EXPECT_EQ(ActionOf({key, true, true}), KeyAction::Swallow);
  }
  EXPECT_EQ(ActionOf(Alt(Key::Left)), KeyAction::Pass) << "the dialog's";
  EXPECT_EQ(Press(Shift(Key::Enter)), Edit(1, 3)) << "row 2 is not available";
  EditBox(0, 2);
  EXPECT_EQ(ActionOf(Shift(Key::Enter)), KeyAction::CloseList) << "there is no row above";
  EXPECT_EQ(ActionOf(Shift(Key::Home)), KeyAction::Pass) << "the box's";
}

TEST_F(Keys, ActOnTheGridOverAnOpenListAsWithoutOne) {
  for (const int moves : {grid::kKeysMove, 0}) {
    EditBox(1, 3);
    state_.flags = moves | grid::kKeysClipboard | grid::kKeysUndo | grid::kKeysRows;
    state_.listIsOpen = true;
    EXPECT_EQ(ActionOf(Control(Key::Z)), KeyAction::Undo);
    EXPECT_EQ(ActionOf(Control(Key::Y)), KeyAction::Redo);
    EXPECT_EQ(ActionOf(Control(Key::C)), KeyAction::Copy);
    EXPECT_EQ(ActionOf(Control(Key::X)), KeyAction::Cut);
    EXPECT_EQ(Press(Control(Key::V)), (KeyCommand{KeyAction::Paste, {1, 3}}));
    EXPECT_EQ(ActionOf(Control(Key::Minus)), KeyAction::DeleteRows);
    EXPECT_EQ(ActionOf(Plain(Key::Delete)), KeyAction::Clear);
    EXPECT_EQ(ActionOf(Plain(Key::Insert)), KeyAction::InsertRow);
    EXPECT_EQ(ActionOf(Plain(Key::F2)), KeyAction::Pass);
  }
}

TEST_F(Keys, CloseAnOpenListForTheBoxThatTheyAreFor) {
  EditBox(1, 2);
  state_.listIsOpen = true;
  EXPECT_EQ(ActionOf(Control(Key::C)), KeyAction::LeaveToBox);
  EXPECT_EQ(ActionOf(Control(Key::X)), KeyAction::LeaveToBox);
  EXPECT_EQ(ActionOf(Plain(Key::Delete)), KeyAction::LeaveToBox);
  EXPECT_EQ(ActionOf(Control(Key::V)), KeyAction::PasteOrBox);
  EXPECT_EQ(ActionOf(Control(Key::Delete)), KeyAction::Pass);
  state_.flags = grid::kKeysMove;
  EXPECT_EQ(ActionOf(Plain(Key::Delete)), KeyAction::Pass);
}

TEST_F(Keys, OfACompositionOverAnOpenListAreItsOwn) {
  EditBox(1, 3);
  state_.listIsOpen = true;
  EXPECT_EQ(Type(grid::kComposition).action, KeyAction::Pass) << "it moves nothing when it begins";
  state_.isComposing = true;
  for (const Key key : {Key::Enter, Key::Escape, Key::Tab}) EXPECT_EQ(ActionOf(Plain(key)), KeyAction::Swallow);
  for (const Key key : {Key::Down, Key::End, Key::F4, Key::Insert}) EXPECT_EQ(ActionOf(Plain(key)), KeyAction::Pass);
  EXPECT_EQ(Type(u'表').action, KeyAction::MoveInList) << "what comes of it does";
  EditBox(1, 2);
  EXPECT_EQ(Type(u'表').action, KeyAction::Pass) << "the box's own";
}

// ------------------------------------------------------------------------------------------------ a list without a box

TEST_F(Keys, WorkOnACellWithoutABoxAsWithOne) {
  EditBox(1, 3);
  EXPECT_EQ(Press(Plain(Key::Tab)), Edit(3, 1));
  EXPECT_EQ(Press(Shift(Key::Tab)), Edit(1, 2));
  EXPECT_EQ(Press(Plain(Key::Down)), Edit(3, 3));
  EXPECT_EQ(Press(Plain(Key::Enter)), Edit(3, 3));
  EXPECT_EQ(Press(Plain(Key::Up)), Edit(0, 3));
  EXPECT_EQ(Press(Plain(Key::PageDown)), Edit(4, 3));
  EXPECT_EQ(Press(Control(Key::Home)), Edit(0, 1));
  EXPECT_EQ(ActionOf(Alt(Key::Down)), KeyAction::DropDown);
  EXPECT_EQ(ActionOf(Plain(Key::Escape)), KeyAction::Pass);
  state_.hasTextToGiveBack = true;
  EXPECT_EQ(ActionOf(Plain(Key::Escape)), KeyAction::GiveBack);
}

TEST_F(Keys, DropTheListOfACellWithoutABoxByF2AndLetters) {
  EditBox(1, 3);
  EXPECT_EQ(ActionOf(Plain(Key::F2)), KeyAction::DropDown);
  EXPECT_EQ(ActionOf(Plain(Key::Process)), KeyAction::DropDown);
  EXPECT_EQ(Type(u'あ').action, KeyAction::DropDown);
  EXPECT_EQ(Type(grid::kComposition).action, KeyAction::DropDown);
  EXPECT_EQ(Type(u'\t').action, KeyAction::Pass);
}

TEST_F(Keys, KeepTheListViewFromMovingAwayFromACellWithoutABox) {
  EditBox(1, 3);
  for (const Key key : {Key::Left, Key::Right, Key::Home, Key::End})
    EXPECT_EQ(ActionOf(Plain(key)), KeyAction::Swallow);
  EXPECT_EQ(ActionOf(Shift(Key::Down)), KeyAction::ListView);
  EXPECT_EQ(ActionOf(Control(Key::Up)), KeyAction::ListView);
  EXPECT_EQ(ActionOf(Alt(Key::Left)), KeyAction::Pass);
  EXPECT_EQ(ActionOf(Plain(Key::Other)), KeyAction::Pass);
}

// --------------------------------------------------------------------------------------------------- no cell is edited

TEST_F(Keys, EditFromTheSelectedRow) {
  Select({3});
  state_.lastColumn = 2;
  EXPECT_EQ(Press(Plain(Key::Down)), Edit(4, 2));
  EXPECT_EQ(Press(Plain(Key::Up)), Edit(1, 2)) << "past a row that is not available";
  for (const Key key : {Key::Left, Key::Right, Key::F2}) EXPECT_EQ(Press(Plain(key)), Edit(3, 2));
  state_.lastColumn = 0;
  EXPECT_EQ(Press(Plain(Key::F2)), Edit(3, 1)) << "the first column with an editor";
  state_.lastColumn = -1;
  EXPECT_EQ(Press(Plain(Key::F2)), Edit(3, 1));
  grid_.model.SetAvailable(3, 1, 1);
  EXPECT_EQ(Press(Plain(Key::F2)), Edit(3, 2)) << "the first cell that is available";
}

TEST_F(Keys, EditTheFirstRowWhenNoneIsSelected) {
  for (const Key key : {Key::Left, Key::Right, Key::F2, Key::Up, Key::Down}) EXPECT_EQ(Press(Plain(key)), Edit(0, 1));
}

TEST_F(Keys, StayWhereNoCellFollows) {
  Select({5});
  EXPECT_EQ(ActionOf(Plain(Key::Down)), KeyAction::Swallow);
  Select({2});
  EXPECT_EQ(ActionOf(Plain(Key::F2)), KeyAction::Swallow);
}

TEST_F(Keys, AreTheListViewsWithShiftOrControl) {
  Select({3});
  for (const Key key : {Key::Up, Key::Down, Key::Left, Key::Right, Key::F2, Key::Home, Key::End, Key::PageUp,
                        Key::PageDown, Key::Space}) {
    EXPECT_EQ(ActionOf(Shift(key)), KeyAction::ListView);
    EXPECT_EQ(ActionOf(Control(key)), KeyAction::ListView);
    EXPECT_EQ(ActionOf(Alt(key)), KeyAction::Pass);
    EXPECT_EQ(ActionOf({key, true, true}), KeyAction::ListView);
  }
  EXPECT_EQ(ActionOf(Plain(Key::PageDown)), KeyAction::ListView);
  EXPECT_EQ(ActionOf(Plain(Key::Space)), KeyAction::Pass);
}

TEST_F(Keys, AreTheDialogsWithoutACell) {
  Select({3});
  for (const Key key : {Key::Tab, Key::Enter, Key::Escape, Key::F4, Key::Other}) {
    EXPECT_EQ(ActionOf(Plain(key)), KeyAction::Pass);
  }
}

TEST_F(Keys, AreTheListViewsInAGridWithoutEditors) {
  grid_.editors.assign(4, {});
  Select({3});
  EXPECT_EQ(ActionOf(Plain(Key::Down)), KeyAction::ListView);
  EXPECT_EQ(Type(u'a').action, KeyAction::Pass);
}

TEST_F(Keys, StartTyping) {
  Select({3});
  const KeyCommand type = {KeyAction::Type, {3, 1}};
  EXPECT_EQ(Type(u'a'), type);
  EXPECT_EQ(Type(u' '), type);
  EXPECT_EQ(Type(u'漢'), type);
  EXPECT_EQ(Type(grid::kComposition), type);
  EXPECT_EQ(Press(Plain(Key::Process)), type);
  for (const char16_t character : {u'\b', u'\t', u'\r', u'\x1B', u'\x7F', u'\x03'}) {
    EXPECT_EQ(Type(character).action, KeyAction::Pass);
  }
  state_.lastColumn = 3;
  EXPECT_EQ(Type(u'a'), (KeyCommand{KeyAction::EditAndDrop, {3, 3}}));
  Select({});
  state_.lastColumn = 2;
  EXPECT_EQ(Type(u'a'), (KeyCommand{KeyAction::Type, {0, 2}}));
}

// ----------------------------------------------------------------------------------------------- clipboard, undo, rows

TEST_F(Keys, CopyAndClearTheSelectedRows) {
  Select({1, 3});
  EXPECT_EQ(ActionOf(Control(Key::C)), KeyAction::Copy);
  EXPECT_EQ(ActionOf(Control(Key::X)), KeyAction::Cut);
  EXPECT_EQ(ActionOf(Plain(Key::Delete)), KeyAction::Clear);
  EXPECT_EQ(ActionOf(Shift(Key::Delete)), KeyAction::Pass);
  EXPECT_EQ(ActionOf({Key::C, true, true}), KeyAction::Pass);
  Select({1});
  EXPECT_EQ(ActionOf(Control(Key::C)), KeyAction::Copy);
  Select({});
  EXPECT_EQ(ActionOf(Control(Key::C)), KeyAction::Pass);
  EXPECT_EQ(ActionOf(Plain(Key::Delete)), KeyAction::Pass);
}

TEST_F(Keys, CopySelectedRowsFromABoxWhenThereAreSeveral) {
  EditBox(1, 1);
  EXPECT_EQ(ActionOf(Control(Key::C)), KeyAction::Pass);
  grid_.model.Select(4, 1);
  EXPECT_EQ(ActionOf(Control(Key::C)), KeyAction::Copy);
  EXPECT_EQ(ActionOf(Plain(Key::Delete)), KeyAction::Clear);
  EditBox(1, 3);
  EXPECT_EQ(ActionOf(Plain(Key::Delete)), KeyAction::Clear) << "a cell without a box";
}

TEST_F(Keys, PasteAtTheEditedCellOrTheFirstSelectedRow) {
  EditBox(1, 2);
  EXPECT_EQ(Press(Control(Key::V)), (KeyCommand{KeyAction::PasteOrBox, {1, 2}}));
  Select({});
  EXPECT_EQ(Press(Control(Key::V)), (KeyCommand{KeyAction::PasteOrBox, {1, 2}})) << "a program has taken the selection";
  Select({1, 4});
  EXPECT_EQ(Press(Control(Key::V)), (KeyCommand{KeyAction::Paste, {1, 2}}));
  EditBox(1, 3);
  EXPECT_EQ(Press(Control(Key::V)), (KeyCommand{KeyAction::Paste, {1, 3}}));
  state_.edited = {};
  Select({3, 4});
  EXPECT_EQ(Press(Control(Key::V)), (KeyCommand{KeyAction::Paste, {3, 0}}));
  Select({});
  EXPECT_EQ(ActionOf(Control(Key::V)), KeyAction::Pass);
}

TEST_F(Keys, UndoAndChangeRows) {
  for (const bool edits : {false, true}) {
    if (edits) EditBox(1, 1);
    EXPECT_EQ(ActionOf(Control(Key::Z)), KeyAction::Undo);
    EXPECT_EQ(ActionOf(Control(Key::Y)), KeyAction::Redo);
    EXPECT_EQ(ActionOf(Plain(Key::Insert)), KeyAction::InsertRow);
    EXPECT_EQ(ActionOf(Control(Key::Minus)), KeyAction::DeleteRows);
    EXPECT_EQ(ActionOf(Shift(Key::Insert)), KeyAction::Pass);
    EXPECT_EQ(ActionOf(Plain(Key::Minus)), KeyAction::Pass);
    EXPECT_EQ(ActionOf({Key::Z, true, true}), KeyAction::Pass);
  }
}

TEST_F(Keys, AreSwitchedOnOneGroupAtATime) {
  EditBox(1, 3);
  const auto actionsWith = [this](int flags) {
    state_.flags = flags;
    return std::vector<KeyAction>{ActionOf(Plain(Key::Down)), ActionOf(Control(Key::C)), ActionOf(Control(Key::V)),
                                  ActionOf(Control(Key::Z)), ActionOf(Plain(Key::Insert))};
  };
  using enum KeyAction;
  EXPECT_EQ(actionsWith(grid::kKeysMove), (std::vector{Edit, Pass, Pass, Pass, Pass}));
  EXPECT_EQ(actionsWith(grid::kKeysClipboard), (std::vector{Pass, Copy, Paste, Pass, Pass}));
  EXPECT_EQ(actionsWith(grid::kKeysUndo), (std::vector{Pass, Pass, Pass, Undo, Pass}));
  EXPECT_EQ(actionsWith(grid::kKeysRows), (std::vector{Pass, Pass, Pass, Pass, InsertRow}));
}

TEST_F(Keys, BringABoxBackThatHasBeenScrolledOutOfSight) {
  EditBox(1, 2);
  state_.boxHasFocus = false;
  EXPECT_EQ(Press(Plain(Key::F2)), Edit(1, 2));
  EXPECT_EQ(Type(u'a'), (KeyCommand{KeyAction::Type, {1, 2}}));
  EXPECT_EQ(Press(Plain(Key::Process)), (KeyCommand{KeyAction::Type, {1, 2}}));
  EXPECT_EQ(Press(Plain(Key::Down)), Edit(3, 2));
}

// ------------------------------------------------------------------------------------------------- characters, entries

TEST(KeyCharacters, GoWithTheKeyThatMakesThem) {
  EXPECT_TRUE(grid::IsMadeBy(Key::Tab, u'\t'));
  EXPECT_TRUE(grid::IsMadeBy(Key::V, 0x16));
  EXPECT_TRUE(grid::IsMadeBy(Key::Minus, u'-'));
  EXPECT_TRUE(grid::IsMadeBy(Key::Space, u' '));
  EXPECT_FALSE(grid::IsMadeBy(Key::Tab, u'a'));
  EXPECT_FALSE(grid::IsMadeBy(Key::Enter, u' '));
  EXPECT_FALSE(grid::IsMadeBy(Key::Enter, u'-'));
  EXPECT_FALSE(grid::IsMadeBy(Key::Minus, u'a'));
  EXPECT_FALSE(grid::IsMadeBy(Key::Space, u'a'));
}

TEST(ListEntries, AreShownOneAfterTheOther) {
  EXPECT_EQ(grid::EntryAfter(Key::Down, {2, 5, 3}), 3);
  EXPECT_EQ(grid::EntryAfter(Key::Right, {2, 5, 3}), 3);
  EXPECT_EQ(grid::EntryAfter(Key::Up, {2, 5, 3}), 1);
  EXPECT_EQ(grid::EntryAfter(Key::Left, {2, 5, 3}), 1);
  EXPECT_EQ(grid::EntryAfter(Key::Down, {4, 5, 3}), 4);
  EXPECT_EQ(grid::EntryAfter(Key::Up, {0, 5, 3}), 0);
  EXPECT_EQ(grid::EntryAfter(Key::F2, {2, 5, 3}), 2);
}

TEST(ListEntries, BeginWithTheFirstWhenNoneIsShown) {
  EXPECT_EQ(grid::EntryAfter(Key::Down, {-1, 5, 3}), 0);
  EXPECT_EQ(grid::EntryAfter(Key::Up, {-1, 5, 3}), 0);
}

TEST(ListEntries, AreShownAPageFurther) {
  EXPECT_EQ(grid::EntryAfter(Key::PageDown, {0, 9, 4}), 3);
  EXPECT_EQ(grid::EntryAfter(Key::PageUp, {7, 9, 4}), 4);
  EXPECT_EQ(grid::EntryAfter(Key::PageDown, {7, 9, 4}), 8);
  EXPECT_EQ(grid::EntryAfter(Key::PageDown, {0, 9, 0}), 1) << "a list of no height";
  EXPECT_EQ(grid::EntryAfter(Key::Home, {7, 9, 4}), 0);
  EXPECT_EQ(grid::EntryAfter(Key::End, {0, 9, 4}), 8);
}

TEST(ListEntries, OfAnEmptyListAreNone) {
  for (const Key key : {Key::Down, Key::Up, Key::Home, Key::End, Key::PageUp, Key::PageDown}) {
    EXPECT_EQ(grid::EntryAfter(key, {}), -1);
  }
}

}  // namespace
