// What tools are told of while somebody works on the grid.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/windows/accessible/tool.h"
#include "tests/windows/driver/events.h"
#include "tests/windows/grid/grid_keyed.h"

namespace grid_test {
namespace {

using driver::Events;
using driver::User;

/// Cells are numbered from here on, 1024 to a row; both count from 1.
LONG CellId(int row, int col) { return 0x40000000 + (row + 1) * 1024 + col + 1; }
LONG RowId(int row) { return row + 1; }

using Told = std::vector<std::string>;

std::string OfRow(const std::string& event, int row) { return event + " " + std::to_string(RowId(row)); }
std::string OfCell(const std::string& event, int row, int col) {
  return event + " " + std::to_string(CellId(row, col));
}

class GridEvents : public KeyedGridTest {
 protected:
  /// What is told from Forget on until nothing more happens.
  static Told TakeAll(User& user, Events& events, std::size_t least) {
    user.WaitUntil("tools are told of something", [&] {
      events.Take();
      return events.OfParts().size() >= least;
    });
    user.Settle();
    events.Take();
    Told told = events.OfParts();
    events.Forget();
    return told;
  }
  static void ExpectTold(User& user, Events& events, const Told& expected) {
    EXPECT_EQ(TakeAll(user, events, expected.size()), expected);
  }
  void OpenList(const User& user) {
    user.Key(VK_F4);
    user.WaitUntil("the list drops down", [&] { return host_->ComboBox() && host_->ComboBox().IsDropped(); });
  }
  void CloseList(const User& user) {
    user.Key(VK_ESCAPE);
    user.WaitUntil("the list closes", [&] { return !host_->ComboBox(); });
  }
  /// The window of a combo box that shows its entries.
  [[nodiscard]] static driver::Window EntriesOf(const driver::Window& combo) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ::SendMessageW(combo.Handle(), CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&parts));
    return driver::Window(parts.hwndList);
  }
  [[nodiscard]] LONG FocusedPart(const User& user) {
    const spoken::Tool tool(user);
    return tool
        .Ask(host_->ListView(), spoken::Whole,
             [](const driver::Accessible& grid) {
               VARIANT part{};
               grid.Get()->get_accFocus(&part);
               if (part.vt != VT_DISPATCH) return LONG{part.lVal};
               const driver::Accessible row(static_cast<IAccessible*>(part.pdispVal));
               const std::string name = row.Name();
               return LONG{std::stoi(name)};
             })
        .value();
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridEvents, testing::Values(HostKind::Framework, HostKind::Plain), NameOfHost);

TEST_P(GridEvents, ACellThatIsEditedIsToldOnce) {
  Use([&](User& user) {
    Events events(host_->ListView());
    ClickCell(user, 2, kName);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_FOCUS, CellId(2, kName)), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_SELECTION, CellId(2, kName)), 1);
    events.Forget();
    user.Key(VK_TAB);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_FOCUS, CellId(2, kMaterial)), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_SELECTION, CellId(2, kMaterial)), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_VALUECHANGE), 0) << "nothing was typed";
  });
}

TEST_P(GridEvents, WhatWasTypedIsToldOnceWhenItsCellIsLeft) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    Events events(host_->ListView());
    user.Type("abc");
    user.Settle();
    events.Take();
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_VALUECHANGE), 0);
    user.Key(VK_DOWN);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_VALUECHANGE, CellId(2, kName)), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_VALUECHANGE), 1);
  });
}

TEST_P(GridEvents, EachRowThatIsDeletedIsToldOnce) {
  Use([&](User& user) {
    SelectRows(user, {1, 3, 6}, kName);
    Events events(host_->ListView());
    host_->Do([&] { host_->list->DeleteItem(); });
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_DESTROY, RowId(1)), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_DESTROY, RowId(3)), 1);
    EXPECT_EQ(events.Heard(EVENT_OBJECT_DESTROY, RowId(6)), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_DESTROY), 3);
  });
}

TEST_P(GridEvents, ARowThatIsInsertedIsToldOnce) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    Events events(host_->ListView());
    host_->Do([&] { host_->list->InsertItem(); });
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_CREATE, RowId(2)), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_CREATE), 1);
  });
}

TEST_P(GridEvents, RowsThatComeBackByUndoAreToldAsOne) {
  Use([&](User& user) {
    SelectRows(user, {1, 3, 6}, kName);
    host_->Do([&] { host_->list->DeleteItem(); });
    user.Settle();
    Events events(host_->ListView());
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_REORDER, CHILDID_SELF), 1);
    EXPECT_EQ(events.HeardOfAny(EVENT_OBJECT_CREATE), 0);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetItemCount(); }), kKeyedRows);
  });
}

TEST_P(GridEvents, RowsThatAreSelectedByKeysAreToldOnce) {
  Use([&](User& user) {
    FocusListView(user);
    user.Settle();
    Events events(host_->ListView());
    user.Key(VK_END);
    ExpectTold(user, events, {OfRow("SELECTION", 11), OfRow("FOCUS", 11)});
    EXPECT_EQ(FocusedPart(user), RowId(11));
    user.Key(VK_HOME, {VK_SHIFT});
    ExpectTold(user, events, {"SELECTIONWITHIN", OfRow("FOCUS", 0)});
    user.Key(VK_DOWN, {VK_CONTROL});
    ExpectTold(user, events, {OfRow("FOCUS", 1)});
    user.Key(VK_SPACE, {VK_CONTROL});
    ExpectTold(user, events, {OfRow("SELECTIONREMOVE", 1)});
    user.Key(VK_SPACE, {VK_CONTROL});
    ExpectTold(user, events, {OfRow("SELECTIONADD", 1)});
    user.Key(VK_HOME);
    ExpectTold(user, events, {"SELECTIONWITHIN", OfRow("FOCUS", 0)});
    user.Key(VK_NEXT);
    const Told paged = TakeAll(user, events, 2);
    const int row = host_->ListView().FocusedRow();
    EXPECT_EQ(paged, (Told{OfRow("SELECTION", row), OfRow("FOCUS", row)}));
    EXPECT_GT(row, 3);
  });
}

TEST_P(GridEvents, RowsThatAreSelectedFromACellWithoutABoxAreToldOnce) {
  Use([&](User& user) {
    ClickCell(user, 2, kUnit);
    user.Settle();
    Events events(host_->ListView());
    user.Key(VK_DOWN, {VK_SHIFT});
    ExpectTold(user, events, {OfRow("SELECTIONADD", 3), OfRow("FOCUS", 3)});
    user.Key(VK_DOWN, {VK_CONTROL});
    ExpectTold(user, events, {OfRow("FOCUS", 4)});
    user.Click(CellPoint(*host_, 6, kUnit));
    ExpectTold(user, events, {OfCell("SELECTION", 6, kUnit), OfCell("FOCUS", 6, kUnit)});
  });
}

TEST_P(GridEvents, AClickOnARowsNumberIsToldOnce) {
  Use([&](User& user) {
    Events events(host_->ListView());
    user.Click(CellPoint(*host_, 2, kNumber));
    ExpectTold(user, events, {OfRow("SELECTION", 2), OfRow("FOCUS", 2)});
    EXPECT_EQ(FocusedPart(user), RowId(2));
    const POINT further = CellPoint(*host_, 5, kNumber, 1);
    user.MoveTo(further);
    user.Settle();
    user.HoldKey(VK_CONTROL);
    user.Click(further);
    user.ReleaseKey(VK_CONTROL);
    ExpectTold(user, events, {OfRow("SELECTIONADD", 5), OfRow("FOCUS", 5)});
  });
}

TEST_P(GridEvents, TheRowThatTheKeyboardComesBackToIsToldOnce) {
  Use([&](User& user) {
    FocusListView(user);
    user.Key(VK_END);
    host_->Do([&] { ::SetFocus(host_->Child(kOther)); });
    user.Settle();
    Events events(host_->ListView());
    FocusListView(user);
    ExpectTold(user, events, {OfRow("FOCUS", 11)});
  });
}

TEST_P(GridEvents, EachEntryThatKeysComeToInAnOpenListIsToldOnce) {
  Use([&](User& user) {
    for (const int col : {kMaterial, kUnit}) {
      ClickCell(user, 2, col);
      OpenList(user);
      Events events(EntriesOf(host_->ComboBox()));
      const auto expect = [&](int entry) {
        const std::string number = std::to_string(entry + 1);
        ExpectTold(user, events, {"FOCUS " + number, "SELECTION " + number});
      };
      user.Key(VK_HOME);
      user.Settle();
      events.Forget();
      user.Key(VK_DOWN);
      expect(1);
      user.Key(VK_END);
      expect(3);
      user.Key(VK_DOWN);
      user.Settle();
      EXPECT_EQ(events.HeardOfParts(), 0) << "it is the last one";
      user.Type(col == kMaterial ? "2" : "k");
      expect(col == kMaterial ? 1 : 0);
      CloseList(user);
    }
  });
}

TEST_P(GridEvents, TheEntryThatAListOpensAtIsToldOnce) {
  Use([&](User& user) {
    ClickCell(user, 2, kUnit);
    OpenList(user);
    const driver::Window entries = EntriesOf(host_->ComboBox());
    CloseList(user);
    Events events(entries);
    OpenList(user);
    ExpectTold(user, events, {"FOCUS 3", "SELECTION 3"});
    CloseList(user);
  });
}

TEST_P(GridEvents, AListWithoutAnEntryOfTheCellsTextIsToldAsAWhole) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetItemText(2, kUnit, "t"); });
    ClickCell(user, 2, kUnit);
    OpenList(user);
    const driver::Window entries = EntriesOf(host_->ComboBox());
    CloseList(user);
    Events events(entries);
    user.Key(VK_F4);
    EXPECT_EQ(events.Count(user, EVENT_OBJECT_FOCUS, CHILDID_SELF), 1);
    EXPECT_EQ(events.HeardOfParts(), 0);
    CloseList(user);
  });
}

TEST_P(GridEvents, TheCellIsToldOnceWhenItsListHasClosed) {
  Use([&](User& user) {
    for (const int col : {kMaterial, kUnit}) {
      const int row = col == kMaterial ? 2 : 6;
      ClickCell(user, row, col);
      OpenList(user);
      user.Settle();
      Events events(host_->ListView());
      CloseList(user);
      ExpectTold(user, events, {OfCell("FOCUS", row, col)});
      OpenList(user);
      user.Key(VK_DOWN);
      user.Settle();
      events.Forget();
      user.Key(VK_TAB);
      const Edited next = col == kMaterial ? Edited(row, kUnit) : Edited(row + 1, kName);
      ExpectTold(user, events,
                 {OfCell("SELECTION", next.first, next.second), OfCell("FOCUS", next.first, next.second)});
    }
  });
}

TEST_P(GridEvents, ACellHasTheFocusWhileTheKeyboardIsInItsBox) {
  Use([&](User& user) {
    const spoken::Tool tool(user);
    const auto isFocused = [&] {
      const auto states = tool.Ask(host_->ListView(), spoken::PartOf(3, kName + 1),
                                   [](const driver::Accessible& cell) { return cell.States(); });
      return (states.value() & STATE_SYSTEM_FOCUSED) != 0;
    };
    const auto focus = [&] {
      return tool.Ask(host_->ListView(), spoken::Whole, [](const driver::Accessible& grid) {
        VARIANT part{};
        const HRESULT answer = grid.Get()->get_accFocus(&part);
        const bool isObject = answer == S_OK && part.vt == VT_DISPATCH;
        return std::pair(answer, isObject ? driver::Accessible(static_cast<IAccessible*>(part.pdispVal)).Value() : "");
      });
    };
    ClickCell(user, 2, kName);
    EXPECT_TRUE(isFocused());
    EXPECT_EQ(focus(), std::pair(S_OK, host_->Text(2, kName)));
    host_->Do([&] { ::SetFocus(host_->Child(kOther)); });
    user.Settle();
    EXPECT_FALSE(isFocused());
    EXPECT_EQ(focus(), std::pair(S_FALSE, std::string()));
  });
}

TEST_P(GridEvents, WhatTheProgramMarksIsToldOnce) {
  Use([&](User& user) {
    Events events(host_->ListView());
    host_->Do([&] {
      for (int times = 0; times < 3; ++times) host_->list->SetErrorFlag(2, kName, 1);
    });
    ExpectTold(user, events, {OfCell("STATECHANGE", 2, kName), OfCell("DESCRIPTIONCHANGE", 2, kName)});
    host_->Do([&] {
      host_->list->SetErrorFlag(2, kName, 2);
      host_->list->SetAvailableFlag(2, kName, 0);
      host_->list->SetAvailableFlag(3, kUnit, 1);
    });
    ExpectTold(user, events, {OfCell("STATECHANGE", 3, kUnit), OfCell("DESCRIPTIONCHANGE", 3, kUnit)});
    host_->Do([&] { host_->list->SetAvailableFlag(3, 1); });
    const Told row = TakeAll(user, events, 8);
    EXPECT_EQ(row.size(), 8U) << "each cell but the one that was not available before";
  });
}

TEST_P(GridEvents, WhatTheProgramSetsIsToldOnce) {
  Use([&](User& user) {
    Events events(host_->ListView());
    host_->Do([&] {
      host_->list->SetItemText(3, kName, host_->Text(3, kName).c_str());
      host_->list->SetItemText(2, kName, "a");
      host_->list->SetItemText(2, kName, "b");
      host_->list->SetItemText(kKeyedRows, kName, "of no row yet");
      host_->list->SetItemColor(2, kSwatch, 0x0000FF, 0xFFFFFF);
      host_->list->SetItemColor(2, kName, 0x0000FF, 0xFFFFFF);
    });
    ExpectTold(user, events, {OfCell("VALUECHANGE", 2, kName), OfCell("VALUECHANGE", 2, kSwatch)});
  });
}

TEST_P(GridEvents, AGridThatIsFilledAnewIsToldAsOne) {
  Use([&](User& user) {
    Events events(host_->ListView());
    host_->Do([&] {
      host_->list->SetItemCount(0);
      host_->list->SetItemCount(20);
      for (int row = 0; row < 20; ++row) {
        for (const int col : {kNumber, kName, kMaterial, kUnit}) host_->list->SetItemText(row, col, "9");
      }
    });
    ExpectTold(user, events, {"REORDER"});
  });
}

TEST_P(GridEvents, NothingIsToldOfAGridThatIsNotShown) {
  Use([&](User& user) {
    Events events(host_->ListView());
    host_->Do([&] {
      ::ShowWindow(host_->Child(kList), SW_HIDE);
      host_->list->SetItemText(2, kName, "a");
      host_->list->SetSelectFlag(3, 1);
      host_->list->SetItemCount(kKeyedRows - 1);
      ::ShowWindow(host_->Child(kList), SW_SHOW);
    });
    user.Settle();
    host_->Do([&] { host_->list->SetItemText(2, kName, "b"); });
    ExpectTold(user, events, {OfCell("VALUECHANGE", 2, kName)});
  });
}

TEST_P(GridEvents, RowsAtTheEndThatTheProgramAddsOrTakesAwayAreToldOnce) {
  Use([&](User& user) {
    Events events(host_->ListView());
    host_->Do([&] { host_->list->SetItemCount(kKeyedRows - 2); });
    ExpectTold(user, events, {OfRow("DESTROY", kKeyedRows - 1), OfRow("DESTROY", kKeyedRows - 2)});
    host_->Do([&] {
      host_->list->SetItemCount(kKeyedRows - 1);
      host_->list->SetItemCount(kKeyedRows);
    });
    ExpectTold(user, events, {OfRow("CREATE", kKeyedRows - 2), OfRow("CREATE", kKeyedRows - 1)});
  });
}

TEST_P(GridEvents, RowsThatTheProgramSelectsAreToldOnce) {
  Use([&](User& user) {
    Events events(host_->ListView());
    host_->Do([&] { host_->list->SetSelectFlag(3, 1); });
    ExpectTold(user, events, {OfRow("SELECTION", 3)});
    host_->Do([&] {
      for (int row = 5; row < 9; ++row) host_->list->SetSelectFlag(row, 1);
    });
    ExpectTold(user, events, {"SELECTIONWITHIN"});
    host_->Do([&] { host_->list->SetSelectFlag(3, 0); });
    ExpectTold(user, events, {OfRow("SELECTIONREMOVE", 3)});
  });
}

TEST_P(GridEvents, EachCellOfAPasteIsToldOnce) {
  Use([&](User& user) {
    SetClipboard(L"p\tq\r\nr\ts");
    ClickCell(user, 1, kName);
    user.Settle();
    Events events(host_->ListView());
    user.Key('V', {VK_CONTROL});
    ExpectTold(user, events,
               {OfCell("VALUECHANGE", 1, kName), OfCell("VALUECHANGE", 1, kMaterial), OfCell("VALUECHANGE", 2, kName),
                OfCell("VALUECHANGE", 2, kMaterial)});
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(TakeAll(user, events, 4).size(), 4U);
  });
}

TEST_P(GridEvents, TheTypedTextIsToldBeforeItsRowMoves) {
  Use([&](User& user) {
    ClickCell(user, 2, kName);
    user.Settle();
    Events events(host_->ListView());
    user.Type("abc");
    host_->Do([&] { host_->list->InsertItem(); });
    const Told told = TakeAll(user, events, 4);
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told.front(), OfCell("VALUECHANGE", 2, kName));
    EXPECT_EQ(std::ranges::count(told, OfRow("CREATE", 2)), 1);
    EXPECT_EQ(std::ranges::count(told, OfCell("FOCUS", 2, kName)), 1);
    EXPECT_EQ(std::ranges::count_if(told, [](const std::string& text) { return text.starts_with("VALUECHANGE"); }), 1);
  });
}

}  // namespace
}  // namespace grid_test
