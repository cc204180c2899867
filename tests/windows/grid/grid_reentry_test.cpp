// A dialog that takes the grid's editors, the grid or itself away while an editor tells it something. Freed memory is
// fenced, so whoever still uses it is seen.
#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>
#include <tuple>

#include "platform/os/sjis_wide.h"
#include "tests/windows/grid/grid_host.h"
#include "tests/windows/grid/grid_table.h"
#include "tests/windows/support/fenced_heap.h"

namespace {

using driver::Window;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kMaterial;
using grid_test::kName;

constexpr int kEditId = 10000;
constexpr int kComboId = 10002;

void TypeOver(Host& host, const char* text) {
  const Window box = host.EditBox();
  box.Send(EM_SETSEL, 0, -1);
  for (; *text != '\0' && box.Exists(); ++text) box.Send(WM_CHAR, static_cast<unsigned char>(*text));
}

struct Call {
  const char* name;
  std::function<void(Host&)> act;
  bool keepsCells = true;
};

const Call kCalls[] = {
    {"ClearEdit", [](Host& host) { host.list->ClearEdit(kName); }},
    {"ClearEditOfTheOtherColumn", [](Host& host) { host.list->ClearEdit(kMaterial); }},
    {"ClearCombo", [](Host& host) { host.list->ClearCombo(kMaterial); }},
    {"SetEdit", [](Host& host) { host.list->SetEdit(kName, 0, 12, ""); }},
    {"SetColumn", [](Host& host) { host.list->SetColumn(kName, "x", 3.0); }},
    {"SetColumnOfTheOtherColumn", [](Host& host) { host.list->SetColumn(kMaterial, "x", 3.0); }},
    {"SetCombo", [](Host& host) { host.list->SetCombo(kName, kName, nullptr, ""); }},
    {"ClickElsewhere", [](Host& host) { host.list->ClickItem(5, kName); }},
    {"TermList", [](Host& host) { host.list->TermList(); }, false},
    {"InitList", [](Host& host) { grid_test::FillTable(host); }, false},
    {"DestroyTheList", [](Host& host) { host.list.reset(); }, false},
    {"DestroyTheDialog", [](Host& host) { host.Destroy(); }},
    {"DestroyBoth", [](Host& host) { host.Destroy(), host.list.reset(); }, false},
};

void PrintTo(const Call& call, std::ostream* out) { *out << call.name; }

struct Occasion {
  const char* name;
  int control;
  int code;
  std::function<void(Host&)> before;
  std::function<void(Host&)> happen;
  int column;
  const char* text;  ///< of the cell in row 1 afterwards
};

void PrintTo(const Occasion& occasion, std::ostream* out) { *out << occasion.name; }

void EditNameCell(Host& host) { host.list->ClickItem(1, kName); }
void EditAndType(Host& host) {
  EditNameCell(host);
  TypeOver(host, "Z ");
}
void TypeZ(Host& host) { TypeOver(host, "Z"); }
void LeaveBox(Host& host) { ::SetFocus(host.Child(grid_test::kOther)); }
void OpenCombo(Host& host) {
  host.list->ClickItem(1, kMaterial);
  host.list->OpenComboBox();
}
void PickSecondByMessage(Host& host) {
  const Window combo = host.ComboBox();
  combo.Send(CB_SETCURSEL, 2);
  ::SendMessageA(host.Handle(), WM_COMMAND, MAKEWPARAM(kComboId, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo.Handle()));
}
/// As the mouse does: the list tells the dialog by itself, not through the combo box.
void PickSecondByMouse(Host& host) {
  const HWND entries = host.ComboBox().ComboList().Handle();
  RECT entry = {};
  ::SendMessageA(entries, LB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&entry));
  const LPARAM at = MAKELPARAM(entry.left + 5, (entry.top + entry.bottom) / 2);
  ::SendMessageA(entries, WM_LBUTTONDOWN, MK_LBUTTON, at);
  ::SendMessageA(entries, WM_LBUTTONUP, 0, at);
}

const Occasion kOccasions[] = {
    {"TypingUpdates", kEditId, EN_UPDATE, EditNameCell, TypeZ, kName, "Z"},
    {"Typing", kEditId, EN_CHANGE, EditNameCell, TypeZ, kName, "Z"},
    {"TypingTooMuch", kEditId, EN_CHANGE, EditNameCell,
     [](Host& host) { ::SetWindowTextW(host.EditBox().Handle(), os::WideOf("1234567890表表").c_str()); }, kName,
     "1234567890表"},
    {"Leaving", kEditId, EN_KILLFOCUS, EditAndType, LeaveBox, kName, "Z"},
    {"LeavingWithBlanks", kEditId, EN_CHANGE, EditAndType, LeaveBox, kName, "Z"},
    {"ClickingElsewhere", kEditId, EN_CHANGE, EditAndType, [](Host& host) { host.list->ClickItem(2, kName); }, kName,
     "Z"},
    {"ClickingAnotherColumn", kEditId, EN_CHANGE, EditAndType, [](Host& host) { host.list->ClickItem(2, kMaterial); },
     kName, "Z"},
    {"PlacingTheBox", kEditId, EN_CHANGE, [](Host&) {}, EditNameCell, kName, "部品1"},
    {"TakingTheFocus", kEditId, EN_SETFOCUS, [](Host&) {}, EditNameCell, kName, "部品1"},
    {"GivingText", kEditId, EN_CHANGE, EditNameCell, [](Host& host) { host.list->SetItemText(1, kName, "given"); },
     kName, "given"},
    {"DeletingRows", kEditId, EN_CHANGE, EditAndType, [](Host& host) { host.list->DeleteItem(); }, kName, nullptr},
    {"AddingARow", kEditId, EN_CHANGE, EditAndType, [](Host& host) { host.list->AddItem(); }, kName, "Z"},
    {"EndingTheList", kEditId, EN_CHANGE, EditAndType, [](Host& host) { host.list->TermList(); }, kName, nullptr},
    {"StartingTheListAnew", kEditId, EN_CHANGE, EditAndType,
     [](Host& host) { host.list->InitList(host.Window(), grid_test::kList, 2, 1, 1, -1); }, kName, nullptr},
    {"SettingTheColumnAnew", kEditId, EN_CHANGE, EditAndType, [](Host& host) { host.list->SetColumn(kName, "y", 2.0); },
     kName, "Z"},
    {"TakingTheBoxAway", kEditId, EN_CHANGE, EditAndType, [](Host& host) { host.list->ClearEdit(kName); }, kName, "Z"},
    {"Opening", kComboId, CBN_DROPDOWN, [](Host& host) { host.list->ClickItem(1, kMaterial); },
     [](Host& host) { host.list->OpenComboBox(); }, kMaterial, "2"},
    {"Picking", kComboId, CBN_SELCHANGE, OpenCombo, PickSecondByMessage, kMaterial, "7"},
    {"PickingWritesTheBox", kEditId, EN_CHANGE, OpenCombo, PickSecondByMessage, kMaterial, "7"},
    {"PickingCloses", kComboId, CBN_CLOSEUP, OpenCombo, PickSecondByMessage, kMaterial, "7"},
    {"PickingByMouse", kComboId, CBN_SELCHANGE, OpenCombo, PickSecondByMouse, kMaterial, "7"},
    {"PickingByMouseCloses", kComboId, CBN_CLOSEUP, OpenCombo, PickSecondByMouse, kMaterial, nullptr},
    {"Closing", kComboId, CBN_CLOSEUP, OpenCombo, [](Host& host) { host.list->CloseComboBox(); }, kMaterial, "2"},
    {"TakingTheListAway", kComboId, CBN_CLOSEUP, OpenCombo, [](Host& host) { host.list->ClearCombo(kMaterial); },
     kMaterial, "2"},
};

class GridReentryTest : public testing::TestWithParam<std::tuple<Call, Occasion>> {};

INSTANTIATE_TEST_SUITE_P(Calls, GridReentryTest,
                         testing::Combine(testing::ValuesIn(kCalls), testing::ValuesIn(kOccasions)),
                         [](const auto& pair) {
                           return std::string(std::get<0>(pair.param).name) + "When" + std::get<1>(pair.param).name;
                         });

TEST_P(GridReentryTest, NothingThatIsGoneIsUsed) {
  const auto& [call, occasion] = GetParam();
  const fenced::FencedHeap heap;
  auto host = Host::Make(HostKind::Plain);
  host->Open(grid_test::FillTable);
  occasion.before(*host);
  bool called = false;
  host->onCommand = [&, act = call.act](int control, int code) {
    if (called || control != occasion.control || code != occasion.code) return;
    called = true;
    act(*host);
  };
  occasion.happen(*host);
  EXPECT_TRUE(called);
  Host::Pump();
  if (call.keepsCells && occasion.text != nullptr) {
    std::array<char, 386> text = {};
    host->list->GetItemText(1, occasion.column, text.data());
    EXPECT_STREQ(text.data(), occasion.text);
  }
  host.reset();
  Host::Pump();
  EXPECT_EQ(heap.Violations(), 0);
}

class RetiredEditorTest : public testing::Test {
 protected:
  void SetUp() override {
    host_->Open(grid_test::FillTable);
    host_->list->ClickItem(1, kName);
  }
  /// Once, at the next change of the box.
  void AtAChange(const std::function<void()>& act) {
    host_->onCommand = [this, act](int control, int code) {
      if (control != kEditId || code != EN_CHANGE) return;
      const auto once = act;
      host_->onCommand = nullptr;
      once();
    };
  }

  std::unique_ptr<Host> host_ = Host::Make(HostKind::Plain);
};

TEST_F(RetiredEditorTest, ABoxOutlivesItsOwnNotificationUnseen) {
  const HWND box = host_->EditBox().Handle();
  AtAChange([&] {
    host_->list->ClearEdit(kName);
    EXPECT_FALSE(host_->EditBox());
  });
  TypeZ(*host_);
  EXPECT_TRUE(::IsWindow(box));
  Host::Pump();
  EXPECT_FALSE(::IsWindow(box));
}

TEST_F(RetiredEditorTest, AMessageLoopInsideTheNotificationDoesNotEndTheBox) {
  const HWND box = host_->EditBox().Handle();
  AtAChange([&] {
    host_->list->TermList();
    Host::Pump();
    EXPECT_TRUE(::IsWindow(box));
  });
  TypeZ(*host_);
  Host::Pump();
  EXPECT_FALSE(::IsWindow(box));
}

TEST_F(RetiredEditorTest, AComboBoxOutlivesWhatItsListTells) {
  for (const int code : {CBN_SELCHANGE, CBN_CLOSEUP}) {
    OpenCombo(*host_);
    const HWND combo = host_->ComboBox().Handle();
    const HWND entries = host_->ComboBox().ComboList().Handle();
    host_->onCommand = [&](int control, int told) {
      if (control != kComboId || told != code) return;
      host_->list->ClearCombo(kMaterial);
      EXPECT_FALSE(host_->ComboBox());
    };
    PickSecondByMouse(*host_);
    EXPECT_TRUE(::IsWindow(combo));
    EXPECT_TRUE(::IsWindow(entries));
    Host::Pump();
    EXPECT_FALSE(::IsWindow(combo));
    EXPECT_FALSE(::IsWindow(entries));
    grid_test::FillTable(*host_);
  }
}

TEST_F(RetiredEditorTest, OutsideANotificationABoxEndsAtOnce) {
  const HWND box = host_->EditBox().Handle();
  host_->list->ClearEdit(kName);
  EXPECT_FALSE(::IsWindow(box));
}

TEST_F(RetiredEditorTest, WithoutAMessageLoopTheBoxEndsWithItsDialog) {
  const HWND box = host_->EditBox().Handle();
  const fenced::FencedHeap heap;
  AtAChange([&] { host_->list->ClearEdit(kName); });
  TypeZ(*host_);
  host_->Destroy();
  EXPECT_FALSE(::IsWindow(box));
  EXPECT_EQ(heap.Violations(), 0);
}

TEST(FencedHeapTest, SeesTheUseOfAFreedBlock) {
  const fenced::FencedHeap heap;
  volatile int* freed = nullptr;
  {
    const auto block = std::make_unique<int>(1);
    freed = block.get();
  }
  EXPECT_NE(*freed, 1);
  EXPECT_EQ(heap.Violations(), 1);
}

}  // namespace
