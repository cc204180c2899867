// The bytes of a cell that is edited: what has not been changed in its box comes back as it was, although 398 codes of
// the screen's encoding and all undefined pairs would come back from the window as others.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/windows/grid/grid_host.h"
#include "tests/windows/grid/grid_table.h"

namespace {

using grid_test::Host;
using grid_test::HostKind;
using grid_test::kMaterial;
using grid_test::kName;

/// The code that comes back from wide form as 81 E0.
constexpr char kTwice[] = "\x87\x90";

class GridBytesTest : public testing::Test {
 protected:
  void SetUp() override {
    host_->Open([](Host& host) {
      grid_test::FillTable(host);
      host.list->SetSpaceMode(kName, 1);
    });
  }
  [[nodiscard]] CvListControl& List() { return *host_->list; }
  void TypeBehind(const char* text) {
    host_->EditBox().Send(EM_SETSEL, 1000, 1000);
    for (; *text != '\0'; ++text) host_->EditBox().Send(WM_CHAR, static_cast<unsigned char>(*text));
  }
  /// What a click on the cell and a click beside it leave of a text.
  std::string AfterAMereClick(int col, const std::string& text) {
    List().SetItemText(1, col, text.c_str());
    List().ClickItem(1, col);
    EXPECT_TRUE(host_->EditBox());
    List().ClickItem(-1, -1);
    return host_->Text(1, col);
  }

  std::unique_ptr<Host> host_ = Host::Make(HostKind::Plain);
};

/// A dot behind each pair keeps it from the next one.
std::string PairsFrom(int lead, int first, int count) {
  std::string pairs;
  for (int trail = first; trail < first + count; ++trail) {
    pairs += static_cast<char>(lead);
    if (trail != 0) pairs += static_cast<char>(trail);
    pairs += '.';
  }
  return pairs;
}

TEST_F(GridBytesTest, AMereClickChangesNoByteOfAnyPair) {
  List().InitList(host_->Window(), grid_test::kList, 2, 12, 12, -1);
  List().SetColumn(kName, "x", 9.0);
  List().SetEdit(kName, 0, 0, "");
  List().SetSpaceMode(kName, 1);
  constexpr int kAtOnce = 128;  // as many as a cell holds
  for (int lead = 1; lead <= 0xFF; ++lead) {
    for (int trail = 0; trail <= 0xFF; trail += kAtOnce) {
      const std::string pairs = PairsFrom(lead, trail, kAtOnce);
      List().SetItemText(1, kName, pairs.c_str());
      const std::string before = host_->Text(1, kName);
      ASSERT_EQ(AfterAMereClick(kName, pairs), before) << "lead byte " << lead << ", from " << trail;
    }
  }
}

TEST_F(GridBytesTest, BlanksGoFromTheEndAndTheRestKeepsItsBytes) {
  List().SetSpaceMode(kName, 0);
  EXPECT_EQ(AfterAMereClick(kName, std::string("a") + kTwice + "  "), std::string("a") + kTwice);
  EXPECT_EQ(AfterAMereClick(kName, "\x85\x40 "), "\x85\x40") << "no character";
}

TEST_F(GridBytesTest, WhatIsTypedBesideACharacterLeavesItsBytesAlone) {
  List().SetItemText(1, kName, kTwice);
  List().ClickItem(1, kName);
  TypeBehind("x");
  EXPECT_EQ(host_->Text(1, kName), std::string(kTwice) + "x");
  TypeBehind("\b");
  EXPECT_EQ(host_->Text(1, kName), kTwice);
  host_->EditBox().Send(EM_SETSEL, 0, 0);
  host_->EditBox().Send(WM_CHAR, 'y');
  EXPECT_EQ(host_->Text(1, kName), std::string("y") + kTwice);
  host_->EditBox().Send(EM_SETSEL, 0, -1);
  ::SendMessageW(host_->EditBox().Handle(), WM_CHAR, 0x2252, 1);
  EXPECT_EQ(host_->Text(1, kName).size(), 2U);
}

TEST_F(GridBytesTest, AFoldedTextIsWrittenFoldedWhenItsBoxIsLeft) {
  List().SetEdit(kName, 1, 12, "");
  EXPECT_EQ(AfterAMereClick(kName, std::string("ab") + kTwice), std::string("AB") + kTwice);
}

TEST_F(GridBytesTest, APickedEntryKeepsItsBytes) {
  CStringList entries;
  const std::string entry = std::string(kTwice) + "\x85\x40 long";
  entries.AddTail(entry.c_str());
  List().SetCombo(kMaterial, kMaterial, &entries, "");
  List().ClickItem(1, kMaterial);
  List().OpenComboBox();
  const driver::Window combo = host_->ComboBox();
  combo.Send(CB_SETCURSEL, 0);
  ::SendMessageA(host_->Handle(), WM_COMMAND, MAKEWPARAM(10002, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo.Handle()));
  EXPECT_EQ(host_->Text(1, kMaterial), std::string(kTwice) + "\x85\x40");
  List().SelchangeComboBox(kTwice);
  EXPECT_EQ(host_->Text(1, kMaterial), kTwice);
  List().ClickItem(-1, -1);
  EXPECT_EQ(host_->Text(1, kMaterial), kTwice);
}

}  // namespace
