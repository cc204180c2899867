// Recent files and names in the real registry, looked at as other programs of the suite see them.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "dlglib/utility/CvUtility.h"
#include "platform/os/sjis_wide.h"

namespace {

constexpr char kFilesKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Use #UTILITYTEST#";
constexpr char kNamesKey[] = "Software\\Nalbo\\Corvane\\XRF\\Use #UTILITYTEST#";
constexpr char kKeyword[] = "#UTILITYTEST#";

class UtilityRegistryTest : public testing::Test {
 protected:
  UtilityRegistryTest() { DeleteKeys(); }
  ~UtilityRegistryTest() override { DeleteKeys(); }

  static void DeleteKeys() {
    ::RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(kFilesKey).c_str());
    ::RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(kNamesKey).c_str());
  }

  /// Bytes and type of a value; empty when there is none.
  [[nodiscard]] static std::string Value(const char* key, const char* name, DWORD* type) {
    std::array<char, 1024> bytes = {};
    auto size = static_cast<DWORD>(bytes.size());
    const LSTATUS status = ::RegGetValueA(HKEY_CURRENT_USER, key, name, RRF_RT_ANY, type, bytes.data(), &size);
    return status == ERROR_SUCCESS ? std::string(bytes.data(), size) : std::string();
  }

  CvUtility utility_;
  CStringArray list_;
  int count_ = 5;
};

TEST_F(UtilityRegistryTest, ValuesAreWrittenAsTheSuiteReadsThem) {
  list_.Add("D:\\表\\ソ.txt");
  list_.Add("");
  list_.Add("third");
  utility_.SetUsedFile(kKeyword, 0, &list_, &count_);
  DWORD type = 0;
  EXPECT_EQ(Value(kFilesKey, "iFileCount", &type), std::string("\5\0\0\0", 4));
  EXPECT_EQ(type, static_cast<DWORD>(REG_DWORD));
  EXPECT_STREQ(Value(kFilesKey, "iFile01", &type).c_str(), "D:\\表\\ソ.txt");
  EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
  EXPECT_EQ(Value(kFilesKey, "iFile02", &type), "");
  EXPECT_STREQ(Value(kFilesKey, "iFile03", &type).c_str(), "third");
}

TEST_F(UtilityRegistryTest, WhatIsWrittenIsReadBack) {
  list_.Add(std::string(256, 'x').c_str());
  list_.Add(std::string(257, 'y').c_str());
  list_.Add("表");
  utility_.SetUsedName(kKeyword, &list_, &count_);
  CStringArray names;
  int count = 0;
  utility_.GetUsedName(kKeyword, &names, &count, nullptr);
  EXPECT_EQ(count, 5);
  ASSERT_EQ(names.GetSize(), 2);
  EXPECT_EQ(names.GetAt(0), std::string(256, 'x').c_str());
  EXPECT_EQ(names.GetAt(1), "表");
}

TEST_F(UtilityRegistryTest, EntriesOfAnyKindAreReadByTheirBytes) {
  HKEY key = nullptr;
  ASSERT_EQ(::RegCreateKeyExA(HKEY_CURRENT_USER, kNamesKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  const auto set = [key](const char* name, DWORD type, const std::string& bytes) {
    ::RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()));
  };
  set("NameCount", REG_SZ, "12345");
  set("Name01", REG_SZ, "unterminated");
  set("Name03", REG_BINARY, std::string("b\0c", 3));
  set("Name05", REG_SZ, std::string(300, 'x'));
  set("Name07", REG_SZ, "");
  set("Name20", REG_DWORD, std::string("D\0\0\0", 4));
  ::RegCloseKey(key);
  utility_.GetUsedName(kKeyword, &list_, &count_, nullptr);
  EXPECT_EQ(count_, 10);
  ASSERT_EQ(list_.GetSize(), 3);
  EXPECT_EQ(list_.GetAt(0), "unterminated");
  EXPECT_EQ(list_.GetAt(1), "b");
  EXPECT_EQ(list_.GetAt(2), "D");
}

TEST_F(UtilityRegistryTest, TwoUtilitiesWriteInTurn) {
  CvUtility other;
  CStringArray read;
  for (int round = 0; round < 10; ++round) {
    list_.Add(std::to_string(round).c_str());
    count_ = 10;
    (round % 2 == 0 ? utility_ : other).SetUsedName(kKeyword, &list_, &count_);
    (round % 2 == 0 ? other : utility_).GetUsedName(kKeyword, &read, &count_, nullptr);
    EXPECT_EQ(read.GetSize(), round + 1);
    EXPECT_EQ(count_, 10);
  }
}

TEST_F(UtilityRegistryTest, AKeyThatCannotBeMadeIsLeftAlone) {
  const std::string keyword = "#" + std::string(300, 'k') + "#";
  list_.Add("kept");
  utility_.SetUsedFile(keyword.c_str(), 0, &list_, &count_);
  utility_.GetUsedFile(keyword.c_str(), 0, &list_, &count_, nullptr);
  EXPECT_EQ(count_, 5);
  ASSERT_EQ(list_.GetSize(), 1);
  EXPECT_EQ(list_.GetAt(0), "kept");
}

TEST_F(UtilityRegistryTest, ReadingMakesTheKey) {
  utility_.GetUsedFile(kKeyword, 1, &list_, &count_, nullptr);
  EXPECT_EQ(count_, 10);
  HKEY key = nullptr;
  EXPECT_EQ(::RegOpenKeyExA(HKEY_CURRENT_USER, kFilesKey, 0, KEY_READ, &key), ERROR_SUCCESS);
  ::RegCloseKey(key);
}

}  // namespace
