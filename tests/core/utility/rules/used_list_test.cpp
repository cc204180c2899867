#include "dlglib/utility/rules/used_list.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "platform/os/os_scripted.h"

namespace {

using used_list::Entries;
using used_list::Kind;

class UsedListTest : public testing::Test {
 protected:
  UsedListTest() { os::scripted::World().Reset(); }

  [[nodiscard]] std::unique_ptr<os::RegistryKey> Key() { return os::Services().registry->Create(name_); }
  void Store(const std::string& value, os::RegistryType type, std::string_view bytes) {
    os::scripted::World().registry.SetValue(name_, value, type, bytes);
  }
  [[nodiscard]] std::optional<os::RegistryValue> Stored(const std::string& value) {
    return os::scripted::World().registry.Value(name_, value);
  }
  void StoreCount(std::uint32_t count) {
    const std::string bytes = {static_cast<char>(count & 0xFF), static_cast<char>(count >> 8 & 0xFF),
                               static_cast<char>(count >> 16 & 0xFF), static_cast<char>(count >> 24 & 0xFF)};
    Store("iFileCount", os::RegistryType::Dword, bytes);
  }
  [[nodiscard]] used_list::List Read() { return used_list::Read(*Key(), Kind::InputFiles); }

  std::string name_ = "Software\\test";
};

TEST_F(UsedListTest, KeysAreNamedByListAndKeyword) {
  EXPECT_EQ(used_list::KeyName(Kind::InputFiles, "#MODEL#"), "Software\\Nalbo\\Corvane\\FileDialog\\Use #MODEL#");
  EXPECT_EQ(used_list::KeyName(Kind::OutputFiles, "#MODEL#"), "Software\\Nalbo\\Corvane\\FileDialog\\Use #MODEL#");
  EXPECT_EQ(used_list::KeyName(Kind::InputFiles, "MODEL"), "Software\\Nalbo\\Corvane\\FileDialog\\Use ##");
  EXPECT_EQ(used_list::KeyName(Kind::InputFiles, ""), "Software\\Nalbo\\Corvane\\FileDialog\\Use ##");
  EXPECT_EQ(used_list::KeyName(Kind::Names, "#MODEL#"), "Software\\Nalbo\\Corvane\\XRF\\Use #MODEL#");
  EXPECT_EQ(used_list::KeyName(Kind::Names, "MODEL"), "Software\\Nalbo\\Corvane\\XRF\\Use MODEL");
  EXPECT_EQ(used_list::KeyName(Kind::Names, ""), "Software\\Nalbo\\Corvane\\XRF\\Use ");
}

TEST_F(UsedListTest, AnEmptyKeyReadsAsTenToShowAndNoEntries) {
  EXPECT_EQ(Read().count, 10);
  EXPECT_TRUE(Read().entries.empty());
}

TEST_F(UsedListTest, ACountCountsFromOneToTwenty) {
  for (const auto& [stored, read] : {std::pair{0U, 10}, {1U, 1}, {20U, 20}, {21U, 10}, {25U, 10}, {0xFFFFFFFFU, 10}}) {
    StoreCount(stored);
    EXPECT_EQ(Read().count, read) << stored;
  }
}

TEST_F(UsedListTest, ACountOfAnotherSizeDoesNotCount) {
  Store("iFileCount", os::RegistryType::Binary, "\x05");
  EXPECT_EQ(Read().count, 10);
  Store("iFileCount", os::RegistryType::Binary, std::string("\x05\0\0\0\0", 5));
  EXPECT_EQ(Read().count, 10);
}

TEST_F(UsedListTest, OnlyTheBytesOfAValueCount) {
  Store("iFileCount", os::RegistryType::Binary, std::string("\x07\0\0\0", 4));
  Store("iFile01", os::RegistryType::ExpandString, "%TEMP%\\a");
  Store("iFile02", os::RegistryType::Binary, std::string("b\0c", 3));
  Store("iFile03", os::RegistryType::Dword, std::string("D\0\0\0", 4));
  Store("iFile04", os::RegistryType::None, "");
  Store("iFile05", os::RegistryType::Other, "e");
  EXPECT_EQ(Read().count, 7);
  EXPECT_EQ(Read().entries, (Entries{"%TEMP%\\a", "b", "D", "e"}));
  Store("iFileCount", os::RegistryType::String, std::string("12\0", 3));
  EXPECT_EQ(Read().count, 10);
  Store("iFileCount", os::RegistryType::String, "12345");
  EXPECT_EQ(Read().count, 10);
}

TEST_F(UsedListTest, EveryCountByteIsRead) {
  for (std::uint32_t count = 0; count < 512; ++count) {
    StoreCount(count);
    EXPECT_EQ(Read().count, count >= 1 && count <= 20 ? static_cast<int>(count) : 10) << count;
  }
}

TEST_F(UsedListTest, ATerminatorAloneIsAnEmptyEntry) {
  Store("iFile01", os::RegistryType::String, std::string(1, '\0'));
  Store("iFile02", os::RegistryType::String, "b");
  EXPECT_EQ(Read().entries, (Entries{"", "b"}));
  EXPECT_EQ(used_list::Shown(Read().entries, 10), Entries{"b "});
}

TEST_F(UsedListTest, EveryGapIsClosed) {
  for (unsigned int kept = 0; kept < 1U << 10; ++kept) {
    const std::unique_ptr<os::RegistryKey> key = Key();
    used_list::Write(*key, Kind::InputFiles, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}, 10);
    Entries expected;
    for (int number = 1; number <= 10; ++number) {
      const std::string name = (number < 10 ? "iFile0" : "iFile") + std::to_string(number);
      if ((kept >> (number - 1) & 1U) != 0) {
        expected.push_back(std::to_string(number));
      } else {
        key->Delete(name);
      }
    }
    ASSERT_EQ(Read().entries, expected) << kept;
  }
}

TEST_F(UsedListTest, GapsAreClosed) {
  Store("iFile02", os::RegistryType::String, "b");
  Store("iFile05", os::RegistryType::String, std::string("e\0", 2));
  Store("iFile20", os::RegistryType::String, "t");
  Store("iFile21", os::RegistryType::String, "behind the last");
  Store("iFile3", os::RegistryType::String, "another name");
  Store("iFile04", os::RegistryType::String, "");
  EXPECT_EQ(Read().entries, (Entries{"b", "e", "t"}));
}

TEST_F(UsedListTest, EntriesOfUpTo256BytesAreRead) {
  Store("iFile01", os::RegistryType::String, std::string(256, 'a'));
  Store("iFile02", os::RegistryType::String, std::string(257, 'b'));
  Store("iFile03", os::RegistryType::String, std::string(256, 'c') + '\0');
  Store("iFile04", os::RegistryType::String, std::string(100000, 'd'));
  EXPECT_EQ(Read().entries, (Entries{std::string(256, 'a'), std::string(256, 'c')}));
}

TEST_F(UsedListTest, TheThreeListsHaveValuesOfTheirOwn) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  used_list::Write(*key, Kind::InputFiles, {"in"}, 3);
  used_list::Write(*key, Kind::OutputFiles, {"out"}, 4);
  used_list::Write(*key, Kind::Names, {"name"}, 5);
  EXPECT_EQ(Stored("iFile01")->bytes, "in");
  EXPECT_EQ(Stored("oFile01")->bytes, "out");
  EXPECT_EQ(Stored("Name01")->bytes, "name");
  EXPECT_EQ(Stored("iFileCount")->bytes, std::string("\x03\0\0\0", 4));
  EXPECT_EQ(Stored("oFileCount")->bytes, std::string("\x04\0\0\0", 4));
  EXPECT_EQ(Stored("NameCount")->bytes, std::string("\x05\0\0\0", 4));
  EXPECT_EQ(Stored("iFileCount")->type, os::RegistryType::Dword);
  EXPECT_EQ(Stored("iFile01")->type, os::RegistryType::String);
}

TEST_F(UsedListTest, WritingLeavesNothingOfTheFormerList) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  used_list::Write(*key, Kind::Names, Entries(20, "old"), 20);
  EXPECT_TRUE(Stored("Name20").has_value());
  used_list::Write(*key, Kind::Names, {"new", "", "third", "fourth"}, 3);
  EXPECT_EQ(Stored("Name01")->bytes, "new");
  EXPECT_FALSE(Stored("Name02").has_value());
  EXPECT_EQ(Stored("Name03")->bytes, "third");
  for (int number = 4; number <= 20; ++number) {
    EXPECT_FALSE(Stored((number < 10 ? "Name0" : "Name") + std::to_string(number)).has_value()) << number;
  }
  EXPECT_EQ(used_list::Read(*key, Kind::Names).entries, (Entries{"new", "third"}));
}

/// Other programs watch the key: the former entries go first, then comes the count, then the entries from the top.
TEST_F(UsedListTest, ReadsAndWritesTheCountInFrontOfTheEntries) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  const auto numbered = [](const std::string& call) {
    std::vector<std::string> lines;
    for (int number = 1; number <= 20; ++number) {
      lines.push_back(call + (number < 10 ? " oFile0" : " oFile") + std::to_string(number));
    }
    return lines;
  };
  os::scripted::World().calls.ClearLog();
  used_list::Write(*key, Kind::OutputFiles, {"new", "", "third", "fourth"}, 3);
  std::vector<std::string> expected = numbered("registry.Delete");
  for (const char* name : {"oFileCount", "oFile01", "oFile03"}) expected.push_back(std::string("registry.Set ") + name);
  // What each value held before is asked in between.
  std::vector<std::string> changes = os::scripted::World().calls.Log();
  std::erase_if(changes, [](const std::string& call) { return call.starts_with("registry.Query "); });
  EXPECT_EQ(changes, expected);

  os::scripted::World().calls.ClearLog();
  EXPECT_EQ(used_list::Read(*key, Kind::OutputFiles).count, 3);
  expected = numbered("registry.Query");
  expected.insert(expected.begin(), "registry.Query oFileCount");
  EXPECT_EQ(os::scripted::World().calls.Log(), expected);
}

TEST_F(UsedListTest, TheCountIsWrittenAsGiven) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  used_list::Write(*key, Kind::Names, {"a"}, 0);
  EXPECT_EQ(Stored("NameCount")->bytes, std::string(4, '\0'));
  EXPECT_FALSE(Stored("Name01").has_value());
  used_list::Write(*key, Kind::Names, {"a"}, -1);
  EXPECT_EQ(Stored("NameCount")->bytes, "\xFF\xFF\xFF\xFF");
  EXPECT_FALSE(Stored("Name01").has_value());
  used_list::Write(*key, Kind::Names, {"a"}, 1000);
  EXPECT_EQ(Stored("Name01")->bytes, "a");
}

TEST_F(UsedListTest, EntriesBehindTheTwentiethAreWrittenButNotRead) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  used_list::Write(*key, Kind::Names, Entries(25, "a"), 25);
  EXPECT_EQ(Stored("NameCount")->bytes, std::string("\x19\0\0\0", 4));
  EXPECT_EQ(Stored("Name25")->bytes, "a");
  EXPECT_FALSE(Stored("Name26").has_value());
  EXPECT_EQ(used_list::Read(*key, Kind::Names).entries, Entries(20, "a"));
  EXPECT_EQ(used_list::Read(*key, Kind::Names).count, 10);
  used_list::Write(*key, Kind::Names, {}, 1);
  EXPECT_FALSE(Stored("Name20").has_value());
  EXPECT_TRUE(Stored("Name21").has_value());
}

TEST_F(UsedListTest, TwoWritersInTurn) {
  const std::unique_ptr<os::RegistryKey> one = Key();
  const std::unique_ptr<os::RegistryKey> other = Key();
  used_list::Write(*one, Kind::Names, {"a", "b", "c"}, 3);
  used_list::Write(*other, Kind::Names, {"x"}, 2);
  EXPECT_EQ(used_list::Read(*one, Kind::Names).entries, Entries{"x"});
  EXPECT_EQ(used_list::Read(*one, Kind::Names).count, 2);
  used_list::Write(*one, Kind::Names, {"a", "b"}, 5);
  EXPECT_EQ(used_list::Read(*other, Kind::Names).entries, (Entries{"a", "b"}));
  EXPECT_EQ(used_list::Read(*other, Kind::Names).count, 5);
}

TEST_F(UsedListTest, WhatIsWrittenIsReadBack) {
  std::mt19937 random(3);
  for (int round = 0; round < 300; ++round) {
    Entries entries(random() % 21);
    for (std::string& entry : entries) entry.assign(1 + random() % 256, static_cast<char>(1 + random() % 255));
    const int count = static_cast<int>(1 + random() % 20);
    const std::unique_ptr<os::RegistryKey> key = Key();
    used_list::Write(*key, Kind::OutputFiles, entries, count);
    const used_list::List list = used_list::Read(*key, Kind::OutputFiles);
    EXPECT_EQ(list.count, count);
    if (entries.size() > static_cast<std::size_t>(count)) entries.resize(static_cast<std::size_t>(count));
    EXPECT_EQ(list.entries, entries);
  }
}

TEST_F(UsedListTest, ValuesThatCannotBeWrittenOrReadAreLeftOut) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  used_list::Write(*key, Kind::InputFiles, {"a", "b"}, 2);
  os::scripted::World().calls.FailNext("registry.Query", 5, 2);
  const used_list::List list = used_list::Read(*key, Kind::InputFiles);
  EXPECT_EQ(list.count, 10);
  EXPECT_EQ(list.entries, Entries{"b"});
  EXPECT_FALSE(list.whole);
  EXPECT_TRUE(used_list::Read(*key, Kind::InputFiles).whole);
}

TEST_F(UsedListTest, AWriteThatFailsLeavesTheListFromBefore) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  ASSERT_TRUE(used_list::Write(*key, Kind::InputFiles, {"a", "b", "c"}, 5));
  std::size_t step = 0;
  for (;;) {
    os::scripted::World().calls.FailNumber(++step);
    const bool written = used_list::Write(*key, Kind::InputFiles, {"x", "y"}, 3);
    if (os::scripted::World().calls.FaultPending()) break;
    // What cannot be read is replaced all the same.
    EXPECT_EQ(written, os::scripted::World().calls.Failed().starts_with("registry.Query")) << step;
    const used_list::List list = used_list::Read(*key, Kind::InputFiles);
    EXPECT_EQ(list.entries, written ? (Entries{"x", "y"}) : (Entries{"a", "b", "c"})) << step;
    EXPECT_EQ(list.count, written ? 3 : 5) << step;
    ASSERT_TRUE(used_list::Write(*key, Kind::InputFiles, {"a", "b", "c"}, 5));
  }
  EXPECT_EQ(step, 1U + 2 * (20 + 1 + 2));
}

TEST_F(UsedListTest, AListHoldsWhatItsReaderLeavesOutToo) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  EXPECT_FALSE(used_list::HoldsEntries(*key, Kind::InputFiles));
  used_list::Write(*key, Kind::OutputFiles, {"a"}, 1);
  used_list::Write(*key, Kind::InputFiles, {}, 7);  // a count is no entry
  key->Set("iFile02", os::RegistryType::String, "");
  key->Set("iFile21", os::RegistryType::String, "beyond");
  EXPECT_FALSE(used_list::HoldsEntries(*key, Kind::InputFiles));
  EXPECT_TRUE(used_list::HoldsEntries(*key, Kind::OutputFiles));
  key->Set("iFile20", os::RegistryType::String, std::string(1000, 'x'));
  EXPECT_TRUE(used_list::HoldsEntries(*key, Kind::InputFiles));
  key->Delete("iFile20");
  os::scripted::World().calls.FailNext("registry.Query", 5);
  EXPECT_TRUE(used_list::HoldsEntries(*key, Kind::InputFiles));
}

TEST_F(UsedListTest, OfAKeyThatIsDeletedNothingIsLeftToRead) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  os::scripted::World().calls.FailNext("registry.Query", os::kErrorKeyDeleted, 21);
  EXPECT_TRUE(used_list::Read(*key, Kind::Names).whole);
  os::scripted::World().calls.FailNext("registry.Query", os::kErrorKeyDeleted, 20);
  EXPECT_FALSE(used_list::HoldsEntries(*key, Kind::Names));
}

TEST(FindSame, IgnoresTheCaseOfAsciiLetters) {
  const Entries entries = {"", "abc", "ABC", "表"};
  EXPECT_EQ(used_list::FindSame(entries, "aBc"), 1U);
  EXPECT_EQ(used_list::FindSame(entries, "abd"), used_list::kNone);
  EXPECT_EQ(used_list::FindSame(entries, "表"), 3U);
  EXPECT_EQ(used_list::FindSame(entries, ""), used_list::kNone);
  EXPECT_EQ(used_list::FindSame({}, "a"), used_list::kNone);
}

TEST(FindSame, EveryPairOfBytesEqualsItselfInCapitals) {
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string entry = {static_cast<char>(first), static_cast<char>(second)};
      std::string capitals = entry;
      for (char& byte : capitals) byte = byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 0x20) : byte;
      ASSERT_EQ(used_list::FindSame({"x", entry}, capitals), 1U) << first << ' ' << second;
      ASSERT_EQ(used_list::FindSame({capitals}, entry), 0U) << first << ' ' << second;
    }
  }
}

TEST(FindSame, ComparesByteByByte) {
  // The second byte of a two-byte character counts as a letter too.
  EXPECT_EQ(used_list::FindSame({"\x83\x61"}, "\x83\x41"), 0U);
  EXPECT_EQ(used_list::FindSame({"Ａ"}, "ａ"), used_list::kNone);
}

TEST(Shown, EntriesHaveABlankBehindThem) {
  EXPECT_EQ(used_list::Shown({"a", "", "c"}, 10), (Entries{"a ", "c "}));
  EXPECT_EQ(used_list::Shown({"a", "", "c"}, 2), Entries{"a "});
  EXPECT_EQ(used_list::Shown({"a", "b"}, 0), Entries{});
  EXPECT_EQ(used_list::Shown({"a", "b"}, -5), Entries{});
  EXPECT_EQ(used_list::Shown({}, 5), Entries{});
}

}  // namespace
