// The rules behind the toolbar and the picker of metacharacters.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "dlglib/base/stored_text.h"
#include "dlglib/base/virtual_keys.h"
#include "dlglib/utility/toolbar/clipboard_copy.h"
#include "dlglib/utility/toolbar/insert_text.h"
#include "dlglib/utility/toolbar/meta_char_table.h"
#include "dlglib/utility/toolbar/tool_buttons.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/support/encodings.h"

namespace {

using test_texts::Euc;

std::string OfLibraryText(std::string_view euc) { return insert_text::OfLibraryText(EucView(euc)).bytes(); }

// ---- buttons

TEST(ToolButtons, TheirBitsEnableThem) {
  for (const int mask : {0, 1, 2, 3, 4, 5, 6, 7, 8, 255, -1, INT_MIN, INT_MAX}) {
    const tool_buttons::Buttons buttons = tool_buttons::FromMask(mask);
    for (int i = 0; i < 3; ++i) {
      const tool_buttons::Button& button = buttons[static_cast<std::size_t>(i)];
      EXPECT_EQ(button.command, 2001 + i);
      EXPECT_EQ(button.image, i);
      EXPECT_EQ(button.enabled, ((static_cast<unsigned>(mask) >> i) & 1U) != 0) << mask;
    }
  }
}

TEST(ToolButtons, AreFoundWithTheirEdges) {
  tool_buttons::Buttons buttons = tool_buttons::FromMask(7);
  buttons[0].rect = {0, 2, 23, 24};
  buttons[1].rect = {23, 2, 46, 24};
  buttons[2].rect = {46, 2, 69, 24};
  EXPECT_EQ(tool_buttons::Find(buttons, {0, 2}), 0U);
  EXPECT_EQ(tool_buttons::Find(buttons, {23, 24}), 0U);
  EXPECT_EQ(tool_buttons::Find(buttons, {24, 24}), 1U);
  EXPECT_EQ(tool_buttons::Find(buttons, {69, 24}), 2U);
  EXPECT_EQ(tool_buttons::Find(buttons, {70, 24}), std::nullopt);
  EXPECT_EQ(tool_buttons::Find(buttons, {69, 25}), std::nullopt);
  EXPECT_EQ(tool_buttons::Find(buttons, {-1, 10}), std::nullopt);
  EXPECT_EQ(tool_buttons::Find(buttons, {INT_MIN, INT_MAX}), std::nullopt);
}

TEST(ToolButtons, AreWalkedThroughAndPressedByKeys) {
  using tool_buttons::ActionOf;
  using tool_buttons::KeyAction;
  for (const int key : {virtual_key::kRight, virtual_key::kDown}) EXPECT_EQ(ActionOf(key), KeyAction::Forward);
  for (const int key : {virtual_key::kLeft, virtual_key::kUp}) EXPECT_EQ(ActionOf(key), KeyAction::Backward);
  for (const int key : {virtual_key::kEnter, virtual_key::kSpace}) EXPECT_EQ(ActionOf(key), KeyAction::Press);
  EXPECT_EQ(ActionOf(virtual_key::kHome), KeyAction::First);
  EXPECT_EQ(ActionOf(virtual_key::kEnd), KeyAction::Last);
  EXPECT_EQ(ActionOf(virtual_key::kEscape), KeyAction::Leave);
  for (const int key : {virtual_key::kTab, virtual_key::kF4, int{'A'}}) EXPECT_EQ(ActionOf(key), KeyAction::Pass);
}

TEST(ToolButtons, KeepEnterAndEscFromTheDialog) {
  for (const int key : {virtual_key::kEnter, virtual_key::kEscape}) EXPECT_TRUE(tool_buttons::AsksFor(key));
  for (const int key : {virtual_key::kTab, virtual_key::kSpace}) EXPECT_FALSE(tool_buttons::AsksFor(key));
}

TEST(ToolButtons, AreToldByTheTextOfTheirBalloon) {
  const tool_buttons::Button button = tool_buttons::FromMask(7)[1];
  const auto item = tool_buttons::ItemOf(button, true);
  EXPECT_EQ(item.name, "メタ文字");
  EXPECT_EQ(item.action, "押す");
  EXPECT_EQ(item.states & accessible::kUnavailable, 0U);
  EXPECT_EQ(tool_buttons::ItemOf(button, false).states & accessible::kUnavailable, accessible::kUnavailable);
}

TEST(ToolButtons, AreWalkedByKeysWhereTheyMayBeUsed) {
  using tool_buttons::NextUsable;
  using tool_buttons::Step;
  EXPECT_EQ(NextUsable({true, true, true}, std::nullopt, Step::Forward), 0U);
  EXPECT_EQ(NextUsable({true, true, true}, 0U, Step::Forward), 1U);
  EXPECT_EQ(NextUsable({true, false, true}, 0U, Step::Forward), 2U);
  EXPECT_EQ(NextUsable({true, false, true}, 2U, Step::Forward), 2U) << "the last one";
  EXPECT_EQ(NextUsable({true, false, false}, 2U, Step::Backward), 0U);
  EXPECT_EQ(NextUsable({false, true, false}, std::nullopt, Step::Backward), 1U);
  EXPECT_EQ(NextUsable({true, false, true}, 0U, Step::Backward), 0U) << "the first one";
  EXPECT_EQ(NextUsable({}, std::nullopt, Step::Forward), std::nullopt);
}

TEST(ToolButtons, TipsBelongToTheirCommands) {
  EXPECT_EQ(tool_buttons::TipOf(2001), "テキストライブラリ");
  EXPECT_EQ(tool_buttons::TipOf(2002), "メタ文字");
  EXPECT_EQ(tool_buttons::TipOf(2003), "レジスタ");
  EXPECT_EQ(tool_buttons::TipOf(2004), "詳細");
  EXPECT_EQ(tool_buttons::TipOf(2005), "ヘルプ");
  for (const int command : {0, 2000, 2006, -2001, INT_MIN, INT_MAX}) EXPECT_EQ(tool_buttons::TipOf(command), "");
}

// ---- metacharacters

TEST(MetaCharTable, HoldsElevenRows) {
  const std::vector<std::string_view> rows = {
      "<mc>0 : °記号",  "<mc>1 : φ記号",    "<mc>2 : ±記号",    "<mc>3 : □記号",    "<mc>F : 分数", "<mc>S : ２段文字",
      "<mc>M : マーク", "<mc>W : 区切右寄", "<mc>X : 区切中央", "<mc>, : 区切左寄", "<mc>; : 終端"};
  ASSERT_EQ(meta_char_table::kRows.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(meta_char_table::kRows[i], rows[i]);
    EXPECT_LT(meta_char_table::kRows[i].size(), 64U);
    EXPECT_EQ(meta_char_table::EscapeOf(static_cast<int>(i)), rows[i].substr(0, 5));
  }
  EXPECT_EQ(meta_char_table::EscapeOf(9), "<mc>,");
}

TEST(MetaCharTable, HasNoRowOutside) {
  for (const int row : {-1, 11, INT_MIN, INT_MAX}) EXPECT_EQ(meta_char_table::EscapeOf(row), std::nullopt);
}

// ---- inserted texts

TEST(InsertText, ALibraryTextEndsAtItsTerminator) {
  EXPECT_EQ(OfLibraryText(Euc("寸法ソ表")), "寸法ソ表");
  EXPECT_EQ(OfLibraryText(std::string_view("ab\0cd", 5)), "ab");
  EXPECT_EQ(OfLibraryText(""), "");
}

TEST(InsertText, ALongLibraryTextIsCutBetweenCharacters) {
  for (const std::size_t length : {1022U, 1023U, 1024U, 5000U}) {
    const std::string ascii(length, 'a');
    EXPECT_EQ(OfLibraryText(ascii), ascii.substr(0, 1023));
  }
  std::string pairs;
  for (int i = 0; i < 3000; ++i) pairs += "表";
  EXPECT_EQ(OfLibraryText(Euc(pairs)), pairs.substr(0, 1022));
  EXPECT_EQ(OfLibraryText(Euc("a" + pairs)), ("a" + pairs).substr(0, 1023));
}

TEST(InsertText, MetacharactersAndLineBreaksAreWrittenAsEscapes) {
  EXPECT_EQ(OfLibraryText("\x8D\xB1" + Euc("５０") + "\x8D\xB2"), "<mc>1５０<mc>2");
  EXPECT_EQ(OfLibraryText("\x8D\xD9\x8D\xDA"), "<mc>,<mc>;");
  EXPECT_EQ(OfLibraryText(Euc("一") + "\r" + Euc("二") + "\n"), "一<cr>二<cr>");
}

TEST(InsertText, NoEscapeIsCutInHalf) {
  for (std::size_t length = 1010; length <= 1025; ++length) {
    const std::string before(length, 'a');
    const std::size_t kept = std::min<std::size_t>(length, 1023);
    EXPECT_EQ(OfLibraryText(before + "\x8D\xB1"), before.substr(0, kept) + (length <= 1018 ? "<mc>1" : ""));
    EXPECT_EQ(OfLibraryText(before + "\r"), before.substr(0, kept) + (length <= 1019 ? "<cr>" : ""));
  }
}

TEST(InsertText, AnyTwoBytesAreInsertedAsTheScreenShowsThem) {
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second)};
      EXPECT_EQ(OfLibraryText(text), stored_text::ToScreen(EucView(text), insert_text::kLimit).bytes());
    }
  }
}

class InsertRegister : public testing::Test {
 protected:
  InsertRegister() { CwSession::Reset(); }
  ~InsertRegister() override { CwSession::Reset(); }
  static std::string OfRegister(int code) {
    return insert_text::OfRegister(*CwSession::GetInstance()->GetRegisterSet(), code).bytes();
  }
  static CwRegister* Add(const std::string& name) {
    return CwSession::GetInstance()->GetRegisterSet()->AddRegister(name);
  }
};

TEST_F(InsertRegister, NumbersHaveTenDigits) {
  const std::vector<std::pair<double, std::string>> table = {{0.1, "0.1"},
                                                             {1.0 / 3, "0.3333333333"},
                                                             {-1250.5, "-1250.5"},
                                                             {841, "841"},
                                                             {1e-05, "1e-05"},
                                                             {1e10, "1e+10"},
                                                             {1234567890, "1234567890"},
                                                             {12345678901.0, "1.23456789e+10"},
                                                             {0, "0"},
                                                             {-0.0, "-0"},
                                                             {1e-300, "1e-300"},
                                                             {0.0001, "0.0001"},
                                                             {2.0 / 3, "0.6666666667"},
                                                             {std::numeric_limits<double>::max(), "1.797693135e+308"}};
  CwRegister* content = Add("A1");
  for (const auto& [value, text] : table) {
    content->SetScalar(value);
    EXPECT_EQ(OfRegister(1), text);
  }
}

TEST_F(InsertRegister, NumbersThatAreNoneAreNamed) {
  Add("A1")->SetScalar(std::numeric_limits<double>::infinity());
  EXPECT_EQ(OfRegister(1), "inf");
  Add("A1")->SetScalar(std::nan(""));
  EXPECT_EQ(OfRegister(1), "nan");
}

TEST_F(InsertRegister, TheCodeIsGroupAndIndex) {
  Add("A1")->SetText("a");
  Add("A999")->SetText("b");
  Add("B0")->SetText("c");
  Add("Z999")->SetText(Euc("終"));
  EXPECT_EQ(OfRegister(1), "a");
  EXPECT_EQ(OfRegister(999), "b");
  EXPECT_EQ(OfRegister(1000), "c");
  EXPECT_EQ(OfRegister(25999), "終");
}

TEST_F(InsertRegister, ACodeOfNothingGivesNothing) {
  Add("A0")->SetScalar(5);
  Add("A1");
  // A code beyond the set has no name, and what bears no name is not meant.
  Add("")->SetText("nameless");
  for (const int code : {0, -1, -1000, INT_MIN, 1, 2, 26000, 27000, INT_MAX}) {
    EXPECT_EQ(OfRegister(code), "") << code;
  }
}

TEST_F(InsertRegister, ALongTextIsCutBetweenCharacters) {
  std::string pairs;
  for (int i = 0; i < 3000; ++i) pairs += "ソ";
  Add("C7")->SetText(Euc(pairs));
  EXPECT_EQ(OfRegister(2007), pairs.substr(0, 1022));
}

TEST_F(InsertRegister, TextsAreInsertedAsTheScreenShowsThem) {
  Add("C7")->SetText(Euc("表") + "\x8D\xB0\r");
  EXPECT_EQ(OfRegister(2007), "表<mc>0<cr>");
}

// ---- clipboard

class ClipboardCopy : public testing::Test {
 protected:
  ClipboardCopy() { os::scripted::World().Reset(); }
  ~ClipboardCopy() override { os::scripted::World().Reset(); }

  static os::Clipboard& Clipboard() { return *os::Services().clipboard; }
  static os::scripted::ClipboardState& Board() { return os::scripted::World().clipboard; }
  void Put(const std::string& text) {
    ++copies_;
    Board().text = text;
    ++Board().sequence;
  }
  bool Try(
      const std::function<void()>& copy, const std::function<void()>& meanwhile = [] {}) {
    return clipboard_copy::TryCopy(Clipboard(), "new", nullptr, {copy, [&](unsigned milliseconds) {
                                                                   waitedMs_ += milliseconds;
                                                                   meanwhile();
                                                                 }});
  }

  int copies_ = 0;
  unsigned waitedMs_ = 0;
};

TEST_F(ClipboardCopy, SucceedsAtOnce) {
  EXPECT_TRUE(Try([this] { Put("new"); }));
  EXPECT_EQ(copies_, 1);
  EXPECT_EQ(waitedMs_, 0U);
}

TEST_F(ClipboardCopy, ACopyThatChangesNothingHasFailed) {
  Board().text = "new";
  EXPECT_FALSE(Try([] {}));
  EXPECT_EQ(waitedMs_, 500U);
}

TEST_F(ClipboardCopy, AHeldClipboardIsGivenUpAfterHalfASecond) {
  Board().heldByOther = true;
  EXPECT_FALSE(Try([this] { Put("new"); }));
  EXPECT_EQ(copies_, 0);
  EXPECT_EQ(waitedMs_, 500U);
}

TEST_F(ClipboardCopy, AClipboardThatBecomesFreeIsUsed) {
  Board().heldByOther = true;
  EXPECT_TRUE(Try([this] { Put("new"); },
                  [this] {
                    if (waitedMs_ >= 100) Board().heldByOther = false;
                  }));
  EXPECT_EQ(copies_, 1);
  EXPECT_EQ(waitedMs_, 100U);
}

TEST_F(ClipboardCopy, WhatAnotherProgramPutThereIsNotTheText) {
  EXPECT_FALSE(Try([this] { Put("foreign"); }));
  EXPECT_EQ(waitedMs_, 500U);
}

TEST_F(ClipboardCopy, IsRepeatedWhenAnotherProgramComesBetween) {
  EXPECT_TRUE(Try([this] { Put(copies_ == 0 ? "foreign" : "new"); }));
  EXPECT_EQ(copies_, 2);
}

TEST_F(ClipboardCopy, IsLookedUpOnceTheClipboardIsFree) {
  const auto pause = [this](unsigned milliseconds) {
    waitedMs_ += milliseconds;
    if (waitedMs_ == 100) Board().heldByOther = false;
  };
  Board().text = "new";
  EXPECT_TRUE(clipboard_copy::Holds(Clipboard(), "new", nullptr, pause));
  EXPECT_FALSE(clipboard_copy::Holds(Clipboard(), "old", nullptr, pause));
  EXPECT_EQ(waitedMs_, 0U);
  Board().heldByOther = true;
  EXPECT_TRUE(clipboard_copy::Holds(Clipboard(), "new", nullptr, pause));
  EXPECT_EQ(waitedMs_, 100U);
  Board().heldByOther = true;
  EXPECT_FALSE(clipboard_copy::Holds(Clipboard(), "new", nullptr, pause));
  EXPECT_EQ(waitedMs_, 600U);
}

TEST_F(ClipboardCopy, IsRepeatedWhenItCannotBeRead) {
  os::scripted::World().calls.FailNext("clipboard.Text", 5, 3);
  EXPECT_TRUE(Try([this] { Put("new"); }));
  EXPECT_EQ(copies_, 4);
}

}  // namespace
