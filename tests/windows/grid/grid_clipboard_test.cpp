// Copying, clearing and pasting blocks of cells, by keys and by calls, with the system's own clipboard.
#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstdio>
#include <string>

#include "tests/windows/grid/grid_keyed.h"
#include "tests/windows/support/fenced_heap.h"
#include "tests/windows/support/import_table.h"

namespace {

using driver::User;
using driver::Window;
using grid_test::Edited;
using grid_test::Host;
using grid_test::HostKind;
using grid_test::kMaterial;
using grid_test::kName;
using grid_test::kNumber;
using grid_test::kSwatch;
using grid_test::kUnit;

class GridClipboardTest : public grid_test::KeyedGridTest {
 protected:
  int Paste(int row, int col) {
    return Ask([=](CvListControl& list) { return list.PasteCells(row, col); });
  }
  int SetText(int row, int col, const char* text) {
    return Ask([=](CvListControl& list) { return list.SetCellsText(row, col, text); });
  }
  int Clear(int row, int col, int rows, int cols) {
    return Ask([=](CvListControl& list) { return list.ClearCells(row, col, rows, cols); });
  }
  int Copy(int row, int col, int rows, int cols) {
    return Ask([=](CvListControl& list) { return list.CopyCells(row, col, rows, cols); });
  }
  /// The text is refused, nothing is changed, one beep is heard and the message says `why`.
  void ExpectRefused(int row, int col, const char* text, const std::string& why) {
    const std::string before = Block(0, 0, 30, 5);
    TakeBeeps();
    EXPECT_LT(SetText(row, col, text), 0) << text;
    EXPECT_EQ(Block(0, 0, 30, 5), before) << text;
    EXPECT_EQ(TakeBeeps(), 1) << text;
    EXPECT_NE(host_->ZoneText().find(why), std::string::npos) << host_->ZoneText() << ", not " << why;
    EXPECT_EQ(Ask([](CvListControl& list) { return list.CanUndo(); }), 0);
  }
};

INSTANTIATE_TEST_SUITE_P(Hosts, GridClipboardTest, testing::Values(HostKind::Framework, HostKind::Plain),
                         grid_test::NameOfHost);

// --------------------------------------------------------------------------------------------------------------- calls

TEST_P(GridClipboardTest, ExtremeNumbersHaveTheirAnswers) {
  constexpr std::array<int, 6> kExtremes = {INT_MIN, INT_MIN + 1, -1, 1000, INT_MAX - 1, INT_MAX};
  Use([&](User&) {
    grid_test::SetClipboard(L"x\ty\r\nz");
    host_->Do([&] { host_->list->SetPasteRows(1); });
    const std::string before = Block(0, 0, 30, 5);
    for (const int odd : kExtremes) {
      EXPECT_LT(SetText(odd, kName, "x"), 0) << odd;
      EXPECT_LT(SetText(0, odd, "x\ty"), 0) << odd;
      EXPECT_LT(SetText(odd, odd, "x"), 0) << odd;
      EXPECT_LT(Paste(odd, kName), 0) << odd;
      EXPECT_LT(Paste(0, odd), 0) << odd;
      EXPECT_EQ(SetText(odd, odd, nullptr), 0) << odd;
      EXPECT_EQ(Clear(odd, odd, 1, 1), 0) << odd;
      EXPECT_EQ(Copy(odd, 0, 1, 1), 0) << odd;
      EXPECT_EQ(Copy(0, odd, 1, 1), 0) << odd;
    }
    EXPECT_EQ(grid_test::ClipboardText(), L"x\ty\r\nz") << "nothing was copied";
    for (const int size : {INT_MIN, -1, 0}) {
      EXPECT_EQ(Clear(0, kName, size, 1) + Clear(0, kName, 1, size) + Copy(0, 0, size, 5) + Copy(0, 0, 5, size), 0);
    }
    EXPECT_EQ(Block(0, 0, 30, 5), before);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.CanUndo(); }), 0);
    EXPECT_EQ(Copy(INT_MIN, INT_MIN, INT_MAX, INT_MAX), 0) << "the block ends before the first cell";
    EXPECT_EQ(Copy(-5, -5, INT_MAX, INT_MAX), 12 * 5);
    EXPECT_EQ(Copy(11, 4, INT_MAX, INT_MAX), 1);
    EXPECT_EQ(Clear(11, kName, INT_MAX, INT_MAX), 3);
  });
}

TEST_P(GridClipboardTest, ExtremeBuffersHaveTheirAnswers) {
  Use([&](User&) {
    host_->Do([&] {
      CvListControl& list = *host_->list;
      for (const int odd : {INT_MIN, -1, 1000, INT_MAX}) {
        std::array<char, 4> out = {'x', 'x', 'x', 'x'};
        EXPECT_EQ(list.GetCellsText(odd, 0, 1, 1, out.data(), 4), 1) << odd;
        EXPECT_EQ(out[0], '\0') << odd;
        EXPECT_EQ(list.GetCellsText(0, odd, 1, 1, nullptr, INT_MAX), 1) << odd;
      }
      const int needed = list.GetCellsText(0, 0, INT_MAX, INT_MAX, nullptr, 0);
      EXPECT_EQ(list.GetCellsText(-1, -1, INT_MAX, INT_MAX, nullptr, INT_MAX), needed) << "a null buffer of any size";
      std::array<char, 2> out = {'x', 'x'};
      for (const int size : {INT_MIN, -1, 0}) EXPECT_EQ(list.GetCellsText(0, 0, 12, 5, out.data(), size), needed);
      EXPECT_EQ(out[0], 'x') << "there is no room for a terminator";
      EXPECT_EQ(list.GetCellsText(0, 0, 12, 5, out.data(), 1), needed);
      EXPECT_EQ(out[0], '\0');
      EXPECT_EQ(out[1], 'x');
      EXPECT_EQ(list.GetCellsText(0, 0, INT_MIN, 5, nullptr, 0), 1);
      EXPECT_EQ(list.GetCellsText(0, 0, 5, -1, nullptr, 0), 1);
    });
  });
}

TEST_P(GridClipboardTest, ABlockIsATextAsSpreadsheetsWriteIt) {
  Use([&](User&) {
    host_->Do([&] { host_->list->SetItemText(1, kName, "a\"b\tc"); });
    EXPECT_EQ(Block(0, 0, 2, 5), "1\t部品0\t2\t個\t\r\n2\t\"a\"\"b\tc\"\t2\t個\t\r\n");
    EXPECT_EQ(Block(1, kName, 1, 1), "\"a\"\"b\tc\"\r\n");
    EXPECT_EQ(Block(10, kMaterial, 100, 100), "2\t個\t\r\n2\t個\t\r\n") << "cut at the rows in use and the columns";
    EXPECT_EQ(Block(-1, -1, 2, 2), "1\r\n");
    EXPECT_EQ(Block(12, 0, 5, 5), "");
    EXPECT_EQ(Block(0, 0, -3, 5), "");
  });
}

TEST_P(GridClipboardTest, ATextTooLongForItsBufferIsTheEmptyOne) {
  Use([&](User&) {
    host_->Do([&] {
      std::array<char, 16> text = {"before"};
      EXPECT_EQ(host_->list->GetCellsText(0, kName, 1, 1, text.data(), 7), 8);
      EXPECT_STREQ(text.data(), "");
      EXPECT_EQ(host_->list->GetCellsText(0, kName, 1, 1, text.data(), 8), 8);
      EXPECT_STREQ(text.data(), "部品0\r\n");
      EXPECT_EQ(host_->list->GetCellsText(0, kName, 1, 1, nullptr, 100), 8);
      text[0] = 'x';
      EXPECT_EQ(host_->list->GetCellsText(0, kName, 1, 1, text.data(), 0), 8);
      EXPECT_EQ(text[0], 'x');
      EXPECT_EQ(host_->list->GetCellsText(20, kName, 1, 1, text.data(), 16), 1);
      EXPECT_STREQ(text.data(), "");
    });
  });
}

TEST_P(GridClipboardTest, ACopyIsUnicodeAndTheSystemMakesTheBytesOfIt) {
  Use([&](User&) {
    host_->Do([&] { host_->list->SetItemText(0, kName, "表ソ①"); });
    EXPECT_EQ(Copy(0, kName, 2, 2), 4);
    EXPECT_EQ(grid_test::ClipboardText(),
              L"\x8868\x30BD\x2460\t2\r\n\x90E8\x54C1"
              L"1\t2\r\n");
    EXPECT_EQ(grid_test::ClipboardBytes(), "表ソ①\t2\r\n部品1\t2\r\n");
    EXPECT_EQ(Copy(0, kName, 0, 2), 0);
    EXPECT_EQ(Copy(50, kName, 1, 1), 0);
    EXPECT_EQ(grid_test::ClipboardBytes(), "表ソ①\t2\r\n部品1\t2\r\n") << "nothing was copied";
  });
}

TEST_P(GridClipboardTest, APasteFillsABlockAndCountsWhatHasChanged) {
  Use([&](User&) {
    grid_test::SetClipboard(L"\x8868\t7\nb\t2\r\nc");
    EXPECT_EQ(Paste(0, kName), 4) << "the second row's material is what it was";
    EXPECT_EQ(Block(0, kName, 3, 2), "表\t7\r\nb\t2\r\nc\t2\r\n") << "missing cells stay";
    EXPECT_EQ(Paste(0, kName), 0);
    EXPECT_EQ(SetText(0, kName, "x y  \r"), 1) << "without the blanks at its end";
    EXPECT_EQ(Block(0, kName, 1, 1), "x y\r\n");
    EXPECT_EQ(SetText(0, kName, "\"a\nb\"c"), 1);
    EXPECT_EQ(Block(0, kName, 1, 1), "a bc\r\n") << "a line break is a blank, text behind a quote belongs to the cell";
    EXPECT_EQ(SetText(0, kMaterial, "sus"), 1);
    EXPECT_EQ(Block(0, kMaterial, 1, 1), "SUS\r\n") << "as the box folds it";
    EXPECT_EQ(SetText(0, kName, ""), 0);
    EXPECT_EQ(SetText(0, kName, nullptr), 0);
    EXPECT_EQ(SetText(0, kName, "\r\n"), 1) << "an empty line is one empty cell";
    EXPECT_EQ(Block(0, kName, 1, 1), "\r\n");
  });
}

TEST_P(GridClipboardTest, TheCopyIsMarkedAsJapanese) {
  Use([&](User&) {
    EXPECT_EQ(Copy(0, kName, 1, 1), 1);
    EXPECT_EQ(grid_test::ClipboardLanguage(), LANG_JAPANESE);
  });
}

TEST_P(GridClipboardTest, ATextInBytesIsReadAsTheSystemMakesItWide) {
  Use([&](User&) {
    grid_test::SetClipboardBytes("表ソ\t7", LANG_JAPANESE);
    EXPECT_EQ(Paste(0, kName), 2);
    EXPECT_EQ(Block(0, kName, 1, 2), "表ソ\t7\r\n");
  });
}

TEST_P(GridClipboardTest, AClipboardWithoutATextPastesNothing) {
  Use([&](User&) {
    grid_test::SetClipboardOfOtherFormat();
    TakeBeeps();
    EXPECT_EQ(Paste(0, kName), 0);
    EXPECT_EQ(TakeBeeps(), 0);
    EXPECT_EQ(Block(0, kName, 1, 1), "部品0\r\n");
  });
}

TEST_P(GridClipboardTest, AnEmptyClipboardPastesNothing) {
  Use([&](User&) {
    grid_test::EmptyTheClipboard();
    TakeBeeps();
    EXPECT_EQ(Paste(0, kName), 0);
    EXPECT_EQ(TakeBeeps(), 0);
    grid_test::SetClipboard(L"");
    EXPECT_EQ(Paste(0, kName), 0);
    grid_test::SetClipboard(std::wstring(L"a\0b", 3));
    EXPECT_EQ(Paste(0, kName), 1);
    EXPECT_EQ(host_->Text(0, kName), "a") << "a zero ends a text";
  });
}

TEST_P(GridClipboardTest, APasteIsAllOrNothing) {
  Use([&](User&) {
    host_->Do([&] { host_->list->SetUndoLimit(100); });
    ExpectRefused(3, kName, "a\nb", "5");                  // row 4 is not available
    ExpectRefused(0, kSwatch, "a\tb", "");                 // behind the last column
    ExpectRefused(0, kNumber, "a", "No");                  // no editor
    ExpectRefused(11, kName, "a\nb", "13");                // behind the last row in use
    ExpectRefused(0, kName, "ok\n1234567890123", "品名");  // 12 bytes are what the box takes
    ExpectRefused(0, kUnit, "kg\nton", "単位");            // not in the list
    ExpectRefused(-1, kName, "a", "");
    ExpectRefused(0, -1, "a", "");
    host_->Do([&] { host_->list->SetEditMode(kName, 0); });
    ExpectRefused(0, kName, "ｱ", "品名");
    EXPECT_EQ(SetText(0, kUnit, "kg\nmm"), 2);
  });
}

TEST_P(GridClipboardTest, ACharacterThatShiftJisLacksIsRefusedByName) {
  Use([&](User&) {
    TakeBeeps();
    grid_test::SetClipboard(L"a\r\nb\xD55C");
    EXPECT_LT(Paste(0, kName), 0);
    EXPECT_NE(host_->ZoneText().find("U+D55C"), std::string::npos) << host_->ZoneText();
    EXPECT_NE(host_->ZoneText().find("2"), std::string::npos) << "the row";
    EXPECT_NE(host_->ZoneText().find("品名"), std::string::npos);
    EXPECT_EQ(Block(0, kName, 1, 1), "部品0\r\n");
    EXPECT_EQ(TakeBeeps(), 1);
    grid_test::SetClipboard(L"\xD83D\xDE00");
    EXPECT_LT(Paste(0, kName), 0);
    EXPECT_NE(host_->ZoneText().find("U+1F600"), std::string::npos) << host_->ZoneText();
    grid_test::SetClipboard(L"\x00E9");
    EXPECT_LT(Paste(0, kName), 0) << "e with an accent is no e";
  });
}

TEST_P(GridClipboardTest, ACharacterThatOnlyLooksLikeOneOfShiftJisIsRefusedByName) {
  constexpr wchar_t kLookAlikes[] = {0x00A0, 0x00A2, 0x00A3, 0x00A5, 0x00A6, 0x00AC,
                                     0x00AF, 0x2014, 0x2016, 0x203E, 0x2212, 0x301C};
  Use([&](User&) {
    for (const wchar_t character : kLookAlikes) {
      grid_test::SetClipboard({L'1', character});
      EXPECT_LT(Paste(0, kName), 0) << static_cast<unsigned int>(character);
      std::array<char, 8> name = {};
      std::snprintf(name.data(), name.size(), "U+%04X", static_cast<unsigned int>(character));
      EXPECT_NE(host_->ZoneText().find(name.data()), std::string::npos) << host_->ZoneText();
    }
    EXPECT_EQ(Block(0, kName, 1, 1), "部品0\r\n");
  });
}

TEST_P(GridClipboardTest, RowsAreAddedWhereTheProgramWantsIt) {
  Use([&](User&) {
    const auto count = [&] { return Ask([](CvListControl& list) { return list.GetItemCount(); }); };
    host_->Do([&] { host_->list->SetPasteRows(1); });
    EXPECT_EQ(SetText(11, kName, "a\nb\nc"), 3);
    EXPECT_EQ(count(), 14);
    EXPECT_EQ(Block(12, 0, 2, 4), "13\tb\t\t\r\n14\tc\t\t\r\n") << "numbered";
    EXPECT_EQ(SetText(14, kName, "d"), 1) << "the first free row";
    EXPECT_EQ(count(), 15);
    EXPECT_LT(SetText(16, kName, "d"), 0) << "behind it";
    EXPECT_LT(SetText(15, kName, "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14\n15\n16"), 0) << "beyond the room";
    EXPECT_EQ(count(), 15);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.Undo(); }), 1);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.Undo(); }), 1);
    EXPECT_EQ(count(), 12) << "the paste and its rows were one step";
    EXPECT_EQ(Block(11, kName, 1, 1), "部品11\r\n");
    host_->Do([&] { host_->list->SetPasteRows(2); });
    EXPECT_LT(SetText(11, kName, "a\nb"), 0);
  });
}

TEST_P(GridClipboardTest, ACopiedRowCanBePasted) {
  Use([&](User&) {
    EXPECT_EQ(SetText(0, kName, "new\t9"), 2);
    EXPECT_EQ(Copy(0, 0, 1, 5), 5);
    EXPECT_EQ(Paste(2, 0), 2);
    EXPECT_EQ(Block(2, 0, 1, 5), "3\tnew\t9\t個\t\r\n") << "the number is the row's own";
  });
}

TEST_P(GridClipboardTest, ClearingLeavesNumbersColoursAndCellsThatAreNotAvailable) {
  Use([&](User&) {
    host_->Do([&] { host_->list->SetItemText(2, kSwatch, "9"); });
    EXPECT_EQ(Clear(2, 0, 3, 5), 6) << "row 4 is not available";
    EXPECT_EQ(Block(2, 0, 3, 4), "3\t\t\t\r\n4\t\t\t\r\n5\t部品4\t2\t個\r\n");
    EXPECT_EQ(host_->Text(2, kSwatch), "9");
    EXPECT_EQ(Clear(2, 0, 2, 5), 0);
    EXPECT_EQ(Clear(100, 100, 5, 5), 0);
    EXPECT_EQ(Clear(0, 0, 0, 0), 0);
  });
}

TEST_P(GridClipboardTest, FlagsAndColoursStayAsInTyping) {
  Use([&](User&) {
    host_->Do([&] { host_->list->SetErrorFlag(0, kName, 1); });
    EXPECT_EQ(SetText(0, kName, "x"), 1);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.GetErrorFlag(0, kName); }), 0);
  });
}

TEST_P(GridClipboardTest, AClipboardThatIsHeldIsAMessageAndNoHang) {
  Use([&](User&) {
    grid_test::SetClipboard(L"x");
    {
      const grid_test::HeldClipboard held;
      TakeBeeps();
      EXPECT_LT(Paste(0, kName), 0);
      EXPECT_EQ(TakeBeeps(), 1);
      EXPECT_NE(host_->ZoneText().find("クリップボード"), std::string::npos) << host_->ZoneText();
      host_->Do([&] { host_->list->MessageText(""); });
      EXPECT_EQ(Copy(0, kName, 1, 1), 0);
      EXPECT_EQ(TakeBeeps(), 1);
      EXPECT_NE(host_->ZoneText().find("クリップボード"), std::string::npos);
    }
    EXPECT_EQ(host_->Text(0, kName), "部品0");
    EXPECT_EQ(Paste(0, kName), 1);
  });
}

TEST_P(GridClipboardTest, KeysClearAndPasteNothingWhileTheClipboardIsHeld) {
  Use([&](User& user) {
    grid_test::SetClipboard(L"x\ty");
    SelectRows(user, {1, 3}, kName);
    const std::string before = Block(0, 0, 30, 5);
    const grid_test::HeldClipboard held;
    for (const WORD key : {WORD{'X'}, WORD{'V'}, WORD{'C'}}) {
      TakeBeeps();
      user.Key(key, {VK_CONTROL});
      EXPECT_EQ(TakeBeeps(), 1) << key;
      EXPECT_NE(host_->ZoneText().find("クリップボード"), std::string::npos) << host_->ZoneText();
    }
    EXPECT_EQ(Block(0, 0, 30, 5), before);
    EXPECT_EQ(Ask([](CvListControl& list) { return list.CanUndo(); }), 0);
  });
}

HGLOBAL WINAPI GiveNoMemory(UINT, SIZE_T) { return nullptr; }
HANDLE WINAPI TakeNoData(UINT, HANDLE) { return nullptr; }
/// The system's own is found by its name, as this one stands in its place.
HANDLE WINAPI TakeNoLocale(UINT format, HANDLE data) {
  using Set = HANDLE(WINAPI*)(UINT, HANDLE);
  const auto set = reinterpret_cast<Set>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"user32"), "SetClipboardData")));
  return format != CF_LOCALE ? set(format, data) : nullptr;
}

TEST_P(GridClipboardTest, ACopyWithoutMemorySaysSo) {
  Use([&](User&) {
    grid_test::SetClipboard(L"before");
    const auto expectRefused = [&](const char* function, void* replacement) {
      const import_table::Replaced replaced(function, replacement);
      ASSERT_TRUE(replaced.IsInPlace());
      host_->Do([&] { host_->list->MessageText(""); });
      TakeBeeps();
      EXPECT_EQ(Copy(0, kName, 1, 1), 0);
      EXPECT_EQ(TakeBeeps(), 1);
      EXPECT_NE(host_->ZoneText().find("メモリ"), std::string::npos) << host_->ZoneText();
      EXPECT_EQ(host_->ZoneText().find("他のプログラム"), std::string::npos) << host_->ZoneText();
    };
    expectRefused("GlobalAlloc", reinterpret_cast<void*>(&GiveNoMemory));
    EXPECT_EQ(grid_test::ClipboardText(), L"before");
    expectRefused("SetClipboardData", reinterpret_cast<void*>(&TakeNoData));
    EXPECT_EQ(Copy(0, kName, 1, 1), 1);
    expectRefused("SetClipboardData", reinterpret_cast<void*>(&TakeNoLocale));
    EXPECT_EQ(grid_test::ClipboardText(), L"") << "no text that is marked as nothing";
  });
}

TEST_P(GridClipboardTest, ACopyThatFindsNoMemoryAnywhereSaysSo) {
  constexpr std::size_t kMost = 1000;
  Use([&](User&) {
    std::size_t requests = 0;
    std::string wrong;
    host_->Do([&] {
      const HWND zone = host_->Child(grid_test::kZone);
      bool hasFailed = true;
      while (hasFailed && requests < kMost) {
        ::SetWindowTextW(zone, L"");
        fenced::FailRequest(++requests);
        const int copied = host_->list->CopyCells(0, kName, 12, 2);
        hasFailed = fenced::HasFailed();
        fenced::FailRequest(0);
        const bool isSaid = host_->ZoneText().find("メモリ") != std::string::npos;
        if (copied != (hasFailed ? 0 : 24) || isSaid != hasFailed) wrong += std::to_string(requests) + ";";
      }
    });
    EXPECT_EQ(wrong, "");
    EXPECT_GT(requests, 3U);
    EXPECT_LT(requests, kMost);
  });
}

// ---------------------------------------------------------------------------------------------- the caller's own check

struct Check {
  static int Refuse(void* context, int row, int col, const char* text) {
    auto& self = *static_cast<Check*>(context);
    self.asked += std::to_string(row) + "," + std::to_string(col) + "=" + text + ";";
    return self.refused == text ? 0 : 1;
  }
  std::string asked;
  std::string refused;
};

TEST_P(GridClipboardTest, TheCallersCheckRefusesTheWholeText) {
  Check check;
  check.refused = "bad";
  Use([&](User&) {
    host_->Do([&] { host_->list->SetPasteCheck(&Check::Refuse, &check); });
    EXPECT_EQ(SetText(0, kName, "a \t7"), 2);
    EXPECT_EQ(check.asked, "0,1=a;0,2=7;") << "with the text that the cell would hold";
    const std::string before = Block(0, 0, 12, 5);
    TakeBeeps();
    EXPECT_LT(SetText(0, kName, "b\nbad"), 0);
    EXPECT_EQ(Block(0, 0, 12, 5), before);
    EXPECT_EQ(TakeBeeps(), 1);
    EXPECT_NE(host_->ZoneText().find("品名"), std::string::npos) << host_->ZoneText();
    host_->Do([&] { host_->list->SetPasteCheck(nullptr, nullptr); });
    EXPECT_EQ(SetText(0, kName, "b\nbad"), 2);
  });
}

// ---------------------------------------------------------------------------------------------------------------- keys

TEST_P(GridClipboardTest, SeveralRowsAreCopiedCutAndCleared) {
  Use([&](User& user) {
    SelectRows(user, {1, 3}, kName);
    user.Key('C', {VK_CONTROL});
    EXPECT_EQ(grid_test::ClipboardBytes(), "2\t部品1\t2\t個\t\r\n4\t部品3\t2\t個\t\r\n");
    user.Key(VK_DELETE);
    EXPECT_EQ(Block(1, 0, 3, 4), "2\t\t\t\r\n3\t部品2\t2\t個\r\n4\t\t\t\r\n");
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(Block(1, kName, 1, 1), "部品1\r\n");
    EXPECT_EQ(Block(3, kName, 1, 1), "部品3\r\n");
    user.Key('X', {VK_CONTROL});
    EXPECT_EQ(Block(1, kName, 1, 1), "\r\n");
    EXPECT_EQ(Block(3, kName, 1, 1), "\r\n");
    EXPECT_EQ(host_->EditBox().Text(), "") << "the box shows what its cell holds";
  });
}

TEST_P(GridClipboardTest, InABoxTheKeysAreTheBoxs) {
  Use([&](User& user) {
    ClickCell(user, 1, kName);
    grid_test::SetClipboard(L"?");
    user.Key('C', {VK_CONTROL});
    EXPECT_EQ(grid_test::ClipboardText(),
              L"\x90E8\x54C1"
              L"1");
    user.Key(VK_DELETE);
    EXPECT_EQ(Block(1, 0, 1, 4), "2\t\t2\t個\r\n") << "the marked text only";
    grid_test::SetClipboard(L"one");
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(host_->Text(1, kName), "one");
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(host_->Text(1, kName), "oneone") << "at the caret";
  });
}

TEST_P(GridClipboardTest, ASingleCellGoesIntoTheBoxAsItsText) {
  Use([&](User& user) {
    ClickCell(user, 1, kName);
    grid_test::SetClipboard(L"\"a\"\"\t\x8868\"\r\n");
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(host_->Text(1, kName), "a\"\t表");
    grid_test::SetClipboard(L"7\r\n");
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(host_->Text(1, kName), "a\"\t表7") << "at the caret";
    EXPECT_EQ(Block(2, kName, 1, 1), "部品2\r\n");
  });
}

TEST_P(GridClipboardTest, SeveralCellsArePastedAtTheEditedOne) {
  Use([&](User& user) {
    ClickCell(user, 1, kName);
    grid_test::SetClipboard(L"a\t1\r\nb\t3\r\n");
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(Block(1, kName, 2, 2), "a\t1\r\nb\t3\r\n");
    EXPECT_EQ(host_->EditBox().Text(), "a");
    EXPECT_EQ(EditedCell(), Edited(1, kName));
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(Block(1, kName, 2, 2), "部品1\t2\r\n部品2\t2\r\n") << "one step";
    EXPECT_EQ(host_->EditBox().Text(), "部品1");
  });
}

TEST_P(GridClipboardTest, OneValueFillsTheColumnOfSeveralRows) {
  Use([&](User& user) {
    SelectRows(user, {1, 2, 6}, kName);
    grid_test::SetClipboard(L"7");
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(Block(1, kName, 1, 1) + Block(2, kName, 1, 1) + Block(6, kName, 1, 1), "7\r\n7\r\n7\r\n");
    EXPECT_EQ(Block(3, kName, 1, 1), "部品3\r\n");
  });
}

TEST_P(GridClipboardTest, WithoutACellRowsArePastedAtTheFirstSelectedOne) {
  Use([&](User& user) {
    EXPECT_EQ(Copy(0, 0, 1, 5), 5);
    host_->Do([&] { host_->list->ClickItem(6, kNumber); });
    FocusListView(user);
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(Block(6, 0, 1, 4), "7\t部品0\t2\t個\r\n");
    user.Key('C', {VK_CONTROL});
    EXPECT_EQ(grid_test::ClipboardBytes(), "7\t部品0\t2\t個\t\r\n");
    user.Key(VK_DELETE);
    EXPECT_EQ(Block(6, 0, 1, 4), "7\t\t\t\r\n");
  });
}

TEST_P(GridClipboardTest, APasteThatAddsRowsEditsItsCellAgain) {
  Use([&](User& user) {
    host_->Do([&] { host_->list->SetPasteRows(1); });
    ClickCell(user, 11, kName);
    user.Type("typed");
    grid_test::SetClipboard(L"a\r\nb\r\n");
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(Block(11, kName, 2, 1), "a\r\nb\r\n");
    EXPECT_EQ(EditedCell(), Edited(11, kName));
    EXPECT_EQ(host_->EditBox().Text(), "a");
    EXPECT_TRUE(host_->EditBox().HasFocus());
    user.Key('Z', {VK_CONTROL});
    EXPECT_EQ(Block(11, kName, 5, 1), "typed\r\n");
  });
}

TEST_P(GridClipboardTest, ARefusedPasteByKeyKeepsTheBoxAndSpeaksInTheOutermostZone) {
  CvListControl outer;
  Use([&](User& user) {
    host_->Do([&] {
      host_->list->SetMessageWindow(nullptr);
      outer.SetParentWindow(host_->Window());
      outer.SetMessageWindow(CWnd::FromHandle(host_->Child(grid_test::kZone)));
      host_->list->SetParentList(&outer);
    });
    ClickCell(user, 3, kName);
    grid_test::SetClipboard(L"a\r\nb\r\n");
    TakeBeeps();
    user.Key('V', {VK_CONTROL});
    EXPECT_EQ(TakeBeeps(), 1);
    EXPECT_NE(host_->ZoneText().find("5"), std::string::npos) << host_->ZoneText();
    EXPECT_EQ(host_->EditBox().Text(), "部品3");
    EXPECT_TRUE(host_->EditBox().HasFocus());
  });
}

}  // namespace
