// What the grid's rows and cells say, and where they are.
#include <gtest/gtest.h>

#include "platform/framework/accessible_name.h"
#include "tests/windows/accessible/tool.h"
#include "tests/windows/grid/grid_keyed.h"

namespace grid_test {
namespace {

using driver::Accessible;
using driver::User;
using spoken::PartOf;
using spoken::Tool;

class GridTree : public KeyedGridTest {
 protected:
  /// Value, description, and whether it can be used.
  struct Said {
    std::string value;
    std::string description;
    bool isAvailable = true;
    friend bool operator==(const Said&, const Said&) = default;
  };
  Said Ask(const User& user, int row, int col) {
    return Tool(user)
        .Ask(host_->ListView(), PartOf(row + 1, col + 1),
             [](const Accessible& cell) {
               return Said{cell.Value(), cell.Description(), (cell.States() & STATE_SYSTEM_UNAVAILABLE) == 0};
             })
        .value();
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridTree, testing::Values(HostKind::Framework, HostKind::Plain), NameOfHost);

TEST_P(GridTree, SaysWhatIsWrongAndWhatCannotBeUsed) {
  Use([&](User& user) {
    constexpr int kLocked = 4;
    host_->Do([&] {
      host_->list->SetErrorFlag(2, kName, 1);
      host_->list->SetErrorFlag(kLocked, kName, 1);
    });
    EXPECT_EQ(Ask(user, 1, kName), (Said{"部品1", "", true}));
    EXPECT_EQ(Ask(user, 2, kName), (Said{"部品2", "誤り", true}));
    EXPECT_EQ(Ask(user, kLocked, kMaterial), (Said{"2", "使用不可", false}));
    EXPECT_EQ(Ask(user, kLocked, kName), (Said{"部品4", "使用不可、誤り", false}));
  });
}

TEST_P(GridTree, SaysAColourByItsName) {
  Use([&](User& user) {
    host_->Do([&] {
      host_->list->SetItemColor(1, kSwatch, 0x0000FF, 0xFFFFFF);
      host_->list->SetItemColor(2, kSwatch, 0xF01010, 0xFFFFFF);
    });
    EXPECT_EQ(Ask(user, 1, kSwatch).value, "赤");
    EXPECT_EQ(Ask(user, 2, kSwatch).value, "青") << "the nearest one";
  });
}

TEST_P(GridTree, TheTableSaysThatItHasTheKeyboardAndLetsSeveralRowsBeSelected) {
  Use([&](User& user) {
    const auto states = [&] {
      return Tool(user)
          .Ask(host_->ListView(), spoken::Whole, [](const Accessible& table) { return table.States(); })
          .value();
    };
    ClickCell(user, 1, kName);
    EXPECT_EQ(states() & STATE_SYSTEM_FOCUSED, 0) << "it is in the box";
    EXPECT_NE(states() & STATE_SYSTEM_MULTISELECTABLE, 0);
    ClickCell(user, 1, kUnit);
    EXPECT_NE(states() & STATE_SYSTEM_FOCUSED, 0);
  });
}

TEST_P(GridTree, OnlyACellWithAnEditorIsEditedByItsAction) {
  Use([&](User& user) {
    const auto action = [&](int col) {
      return Tool(user)
          .Ask(host_->ListView(), PartOf(2, col + 1), [](const Accessible& cell) { return cell.Action(); })
          .value();
    };
    for (const int col : {kName, kMaterial, kUnit}) EXPECT_EQ(action(col), "編集") << col;
    for (const int col : {kNumber, kSwatch}) EXPECT_EQ(action(col), "選択") << col;
    EXPECT_EQ(Tool(user).Act(host_->ListView(), PartOf(2, kNumber + 1)), S_OK);
    user.WaitUntil("its row is selected", [&] { return SelectedRows() == std::vector<int>{1}; });
    EXPECT_FALSE(host_->EditBox());
  });
}

TEST_P(GridTree, ARowSaysWhatItsFirstColumnsHold) {
  Use([&](User& user) {
    const auto value = [&] {
      return Tool(user)
          .Ask(host_->ListView(), spoken::Part(2), [](const Accessible& row) { return row.Value(); })
          .value();
    };
    EXPECT_EQ(value(), "部品1、2、個") << "the number is its name, and a colour is no text";
    host_->Do([&] { host_->list->SetItemText(1, kMaterial, ""); });
    EXPECT_EQ(value(), "部品1、個");
  });
}

TEST_P(GridTree, CellsAreWhereTheyAreDrawn) {
  Use([&](User& user) {
    for (const int col : {kName, kMaterial, kUnit, kSwatch}) {
      const RECT drawn = host_->ListView().CellRect(3, col);
      const auto told =
          Tool(user).Ask(host_->ListView(), PartOf(4, col + 1), [](const Accessible& cell) { return cell.Place(); });
      ASSERT_TRUE(told);
      EXPECT_NE(::EqualRect(&*told, &drawn), FALSE) << "column " << col;
    }
  });
}

TEST_P(GridTree, ARowThatIsHeldSaysThatThereIsNoSuchRowAnyMore) {
  Use([&](User& user) {
    const auto answers = Tool(user).Ask(host_->ListView(), spoken::Part(kKeyedRows), [&](const Accessible& last) {
      host_->list->SetItemCount(kKeyedRows - 1);
      BSTR name = nullptr;
      VARIANT role{};
      LONG parts = -1;
      return std::tuple(last.Get()->get_accName(last.Self(), &name), last.Get()->get_accRole(last.Self(), &role),
                        last.Get()->accSelect(SELFLAG_TAKEFOCUS, last.Self()), last.Get()->get_accChildCount(&parts),
                        parts);
    });
    ASSERT_TRUE(answers);
    EXPECT_EQ(*answers, std::tuple(E_INVALIDARG, E_INVALIDARG, S_FALSE, S_OK, 0L));
  });
}

/// What two grids of a dialog are told apart by.
constexpr char kGivenName[] = "部品表";

TEST_P(GridTree, AGridIsCalledAsItIsGivenAndKeepsItsRowsAndCells) {
  Use([&](User& user) {
    const auto name = [&] {
      return Tool(user)
          .Ask(host_->ListView(), spoken::Whole, [](const Accessible& grid) { return grid.Name(); })
          .value();
    };
    EXPECT_EQ(name(), "表");
    host_->Do([&] { framework::SetAccessibleName(host_->ListView().Handle(), kGivenName); });
    EXPECT_EQ(name(), kGivenName);
    EXPECT_EQ(Ask(user, 1, kName), (Said{"部品1", "", true}));
    host_->Do([&] { framework::SetAccessibleName(host_->ListView().Handle(), nullptr); });
    EXPECT_EQ(name(), "表");
  });
}

TEST_P(GridTree, ANameThatAListViewHadBeforeItBecameAGridIsTheGrids) {
  const auto fill = [](Host& host) {
    framework::SetAccessibleName(host.Child(kList), kGivenName);
    FillKeyedTable(host);
  };
  Use(
      [&](User& user) {
        EXPECT_EQ(Tool(user).Ask(host_->ListView(), spoken::Whole, [](const Accessible& grid) { return grid.Name(); }),
                  kGivenName);
        EXPECT_EQ(Ask(user, 1, kName), (Said{"部品1", "", true}));
      },
      fill);
}

/// Two columns share a list of the dialog.
class GridTreeOfSharedList : public GridTree {
 protected:
  static void Fill(Host& host) {
    ::CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 50, 200, host.Handle(),
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(kDialogCombo)), nullptr, nullptr);
    FillKeyedTable(host);
    for (const int col : {kMaterial, kUnit}) {
      host.list->ClearCombo(col);
      Give(host, col);
    }
  }
  static void Give(Host& host, int col) {
    CStringList entries;
    for (const char* entry : {"1", "2", "3"}) entries.AddTail(entry);
    host.list->SetCombo(col, col, &entries, kDialogCombo, "");
  }
  [[nodiscard]] driver::Window List() { return driver::Window(host_->Child(kDialogCombo)); }
  [[nodiscard]] std::string NameOfList(const User& user) {
    return Tool(user).Ask(List(), spoken::Whole, [](const Accessible& list) { return list.Name(); }).value();
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridTreeOfSharedList, testing::Values(HostKind::Framework, HostKind::Plain),
                         NameOfHost);

TEST_P(GridTreeOfSharedList, ItIsCalledByTheColumnThatItIsOpenIn) {
  Use(
      [&](User& user) {
        for (const auto& [col, title] : {std::pair(kMaterial, "材質"), std::pair(kUnit, "単位")}) {
          ClickCell(user, 1, col);
          user.Key(VK_F4);
          user.WaitUntil("the list drops down", [&] { return List().IsDropped(); });
          EXPECT_EQ(NameOfList(user), title);
          user.Key(VK_ESCAPE);
          user.WaitUntil("the list closes", [&] { return !List().IsVisible(); });
        }
      },
      &Fill);
}

TEST_P(GridTreeOfSharedList, AColumnThatGivesItBackTakesItsNameAlong) {
  Use(
      [&](User& user) {
        host_->Do([&] { host_->list->ClearCombo(kUnit); });
        EXPECT_EQ(NameOfList(user), "材質");
        host_->Do([&] { host_->list->ClearCombo(kMaterial); });
        EXPECT_EQ(NameOfList(user).find("材質"), std::string::npos);
      },
      &Fill);
}

TEST_P(GridTreeOfSharedList, ATitleThatIsGivenAnewIsItsName) {
  Use(
      [&](User& user) {
        host_->Do([&] {
          host_->list->SetColumn(kUnit, "長さの単位", 1.5);
          Give(*host_, kUnit);
        });
        EXPECT_EQ(NameOfList(user), "長さの単位");
      },
      &Fill);
}

}  // namespace
}  // namespace grid_test
