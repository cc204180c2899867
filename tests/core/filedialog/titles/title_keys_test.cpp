#include "dlglib/filedialog/titles/title_keys.h"

#include <gtest/gtest.h>

#include "dlglib/base/virtual_keys.h"

namespace {

using filedialog::PlanTitleKey;
using filedialog::PlanTitleKeyWithAlt;
using filedialog::TitleAction;
using filedialog::TitleCommand;
using filedialog::TitleKeyState;

constexpr int kF1 = 0x70;
constexpr int kWalks[] = {virtual_key::kUp,       virtual_key::kDown, virtual_key::kPageUp,
                          virtual_key::kPageDown, virtual_key::kHome, virtual_key::kEnd};

void Expect(const TitleCommand& command, TitleAction action, int at = -1) {
  EXPECT_EQ(command.action, action);
  EXPECT_EQ(command.at, at);
}

TitleKeyState OnRow(int row) { return {.rowsHaveFocus = true, .row = row, .rows = 4, .entries = 30}; }

TitleKeyState InList(int entry) {
  return {.rowsHaveFocus = true, .row = 1, .rows = 4, .listIsOpen = true, .entry = entry, .entries = 30};
}

TEST(TitleKeys, WalkThroughTheRowsAndStayAtTheLast) {
  Expect(PlanTitleKey(virtual_key::kDown, OnRow(1)), TitleAction::ChooseRow, 2);
  Expect(PlanTitleKey(virtual_key::kUp, OnRow(1)), TitleAction::ChooseRow, 0);
  Expect(PlanTitleKey(virtual_key::kEnd, OnRow(1)), TitleAction::ChooseRow, 3);
  Expect(PlanTitleKey(virtual_key::kHome, OnRow(1)), TitleAction::ChooseRow, 0);
  Expect(PlanTitleKey(virtual_key::kPageDown, OnRow(1)), TitleAction::ChooseRow, 3);
  Expect(PlanTitleKey(virtual_key::kPageUp, OnRow(1)), TitleAction::ChooseRow, 0);
  Expect(PlanTitleKey(virtual_key::kDown, OnRow(3)), TitleAction::Stay);
  Expect(PlanTitleKey(virtual_key::kUp, OnRow(0)), TitleAction::Stay);
  Expect(PlanTitleKey(virtual_key::kEnd, OnRow(3)), TitleAction::Stay);
}

TEST(TitleKeys, BeginAtTheFirstRowWhenNoneIsChosen) {
  for (const int key : {virtual_key::kDown, virtual_key::kUp, virtual_key::kHome, virtual_key::kPageUp}) {
    Expect(PlanTitleKey(key, OnRow(-1)), TitleAction::ChooseRow, 0);
  }
}

TEST(TitleKeys, EditTheAnnotationOfTheChosenRow) {
  Expect(PlanTitleKey(virtual_key::kF2, OnRow(2)), TitleAction::EditText, 2);
}

TEST(TitleKeys, OpenTheListOfTheChosenRowElseOfTheFirst) {
  Expect(PlanTitleKey(virtual_key::kF4, OnRow(2)), TitleAction::OpenList, 2);
  Expect(PlanTitleKey(virtual_key::kF4, OnRow(-1)), TitleAction::OpenList, 0);
  Expect(PlanTitleKeyWithAlt(virtual_key::kDown, OnRow(2)), TitleAction::OpenList, 2);
  Expect(PlanTitleKeyWithAlt(virtual_key::kUp, OnRow(2)), TitleAction::Pass);
  Expect(PlanTitleKeyWithAlt(virtual_key::kF4, OnRow(2)), TitleAction::Pass);
}

TEST(TitleKeys, AreOfTheOtherControlsWhenTheRowsHaveNotTheFocus) {
  TitleKeyState elsewhere = OnRow(2);
  elsewhere.rowsHaveFocus = false;
  for (const int key : kWalks) Expect(PlanTitleKey(key, elsewhere), TitleAction::Pass);
  for (const int key : {virtual_key::kF2, virtual_key::kF4}) Expect(PlanTitleKey(key, elsewhere), TitleAction::Pass);
  Expect(PlanTitleKeyWithAlt(virtual_key::kDown, elsewhere), TitleAction::Pass);
}

TEST(TitleKeys, ThatMeanNothingOnRowsAreTheDialogs) {
  for (const int key : {virtual_key::kEnter, virtual_key::kEscape, virtual_key::kTab, kF1, int{'A'}}) {
    Expect(PlanTitleKey(key, OnRow(2)), TitleAction::Pass);
  }
}

TEST(TitleKeys, WalkThroughTheOpenListWhereverTheFocusIs) {
  TitleKeyState open = InList(10);
  open.rowsHaveFocus = false;
  Expect(PlanTitleKey(virtual_key::kDown, open), TitleAction::WalkTo, 11);
  Expect(PlanTitleKey(virtual_key::kUp, open), TitleAction::WalkTo, 9);
  Expect(PlanTitleKey(virtual_key::kPageDown, open), TitleAction::WalkTo, 18);
  Expect(PlanTitleKey(virtual_key::kPageUp, open), TitleAction::WalkTo, 2);
  Expect(PlanTitleKey(virtual_key::kHome, open), TitleAction::WalkTo, 0);
  Expect(PlanTitleKey(virtual_key::kEnd, open), TitleAction::WalkTo, 29);
  Expect(PlanTitleKey(virtual_key::kDown, InList(29)), TitleAction::WalkTo, 29);
  Expect(PlanTitleKey(virtual_key::kDown, InList(-1)), TitleAction::WalkTo, 0);
}

TEST(TitleKeys, PickTheMarkedEntryAndNothingWithoutOne) {
  Expect(PlanTitleKey(virtual_key::kEnter, InList(0)), TitleAction::Pick);
  Expect(PlanTitleKey(virtual_key::kEnter, InList(-1)), TitleAction::CloseList);
  Expect(PlanTitleKey(virtual_key::kEscape, InList(3)), TitleAction::CloseList);
}

TEST(TitleKeys, ThatMeanNothingInTheOpenListPass) {
  for (const int key : {virtual_key::kF2, virtual_key::kF4, virtual_key::kTab, int{'A'}}) {
    Expect(PlanTitleKey(key, InList(3)), TitleAction::Pass);
  }
  Expect(PlanTitleKeyWithAlt(virtual_key::kDown, InList(3)), TitleAction::Pass);
}

TEST(TitleKeys, InAnEmptyListComeToItsBeginning) {
  TitleKeyState empty = InList(-1);
  empty.entries = 0;
  for (const int key : kWalks) Expect(PlanTitleKey(key, empty), TitleAction::WalkTo, 0);
}

}  // namespace
