// What every implementation of the services must keep, the real and the scripted one alike. Only what the interface
// promises is used, so that the same lines run against both.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/os/os.h"
#include "tests/os/contract_world.h"

namespace {

using os::RegistryType;

[[nodiscard]] bool WriteText(const std::string& path, std::string_view text) {
  const std::unique_ptr<os::TextWriter> writer = os::Services().files->CreateText(path);
  return writer != nullptr && writer->Write(text) && writer->Close();
}

[[nodiscard]] std::map<std::string, os::FoundName> List(const std::string& folder) {
  std::map<std::string, os::FoundName> names;
  const std::unique_ptr<os::FolderPass> pass = os::Services().files->OpenFolder(folder);
  os::FoundName found;
  while (pass != nullptr && pass->Next(&found)) names[found.name] = found;
  return names;
}

class FilesContract : public testing::Test {
 protected:
  os::Files& files_ = *os::Services().files;
  ContractWorld world_;
  std::string folder_ = world_.Folder();
};

TEST_F(FilesContract, AWrittenFileExistsAndIsReadBack) {
  const std::string path = folder_ + "\\表ソ①ｱ.txt";
  EXPECT_FALSE(files_.Exists(path));
  ASSERT_TRUE(WriteText(path, "abc"));
  EXPECT_TRUE(files_.Exists(path));
  EXPECT_EQ(files_.Read(path, 100), "abc");
}

TEST_F(FilesContract, ReadStopsAtTheLimit) {
  const std::string path = folder_ + "\\long.bin";
  const std::string body(40000, 'x');
  ASSERT_TRUE(WriteText(path, body));
  EXPECT_EQ(files_.Read(path, 0), "");
  EXPECT_EQ(files_.Read(path, 1), "x");
  EXPECT_EQ(files_.Read(path, 16384), body.substr(0, 16384));
  EXPECT_EQ(files_.Read(path, 40000), body);
  EXPECT_EQ(files_.Read(path, 40001), body);
}

TEST_F(FilesContract, WhatIsNotThereCannotBeRead) {
  EXPECT_FALSE(files_.Read(folder_ + "\\missing", 10).has_value());
  EXPECT_FALSE(files_.Read(folder_, 10).has_value());
  EXPECT_FALSE(files_.Read("", 10).has_value());
  EXPECT_FALSE(files_.Status(folder_ + "\\missing").has_value());
  EXPECT_FALSE(files_.Attributes(folder_ + "\\missing").has_value());
  EXPECT_FALSE(files_.Exists(folder_ + "\\missing"));
}

TEST_F(FilesContract, OnlyLineEndsAreTranslated) {
  const std::string path = folder_ + "\\lines.txt";
  ASSERT_TRUE(WriteText(path, "a\nb\n\x1A\x80z"));
  EXPECT_EQ(files_.Read(path, 100), "a\r\nb\r\n\x1A\x80z");
}

TEST_F(FilesContract, CreatingAnewDropsTheFormerBytes) {
  const std::string path = folder_ + "\\again.txt";
  ASSERT_TRUE(WriteText(path, "a longer text"));
  ASSERT_TRUE(WriteText(path, "b"));
  EXPECT_EQ(files_.Read(path, 100), "b");
}

TEST_F(FilesContract, ATextIsNotWrittenWhereItCannotBe) {
  EXPECT_EQ(files_.CreateText(folder_), nullptr);
  EXPECT_EQ(files_.CreateText(folder_ + "\\missing\\a.txt"), nullptr);
}

TEST_F(FilesContract, StatusTellsFilesFromFolders) {
  const std::string path = folder_ + "\\size.txt";
  ASSERT_TRUE(WriteText(path, "12345"));
  const std::optional<os::FileStatus> file = files_.Status(path);
  ASSERT_TRUE(file.has_value());
  EXPECT_FALSE(file->isFolder);
  EXPECT_EQ(file->size, 5U);
  const std::optional<os::FileStatus> folder = files_.Status(folder_);
  ASSERT_TRUE(folder.has_value());
  EXPECT_TRUE(folder->isFolder);
}

TEST_F(FilesContract, AttributesTellFilesFromFolders) {
  ASSERT_TRUE(WriteText(folder_ + "\\a.txt", ""));
  EXPECT_EQ(files_.Attributes(folder_ + "\\a.txt").value_or(os::kAttributeFolder) & os::kAttributeFolder, 0U);
  EXPECT_EQ(files_.Attributes(folder_).value_or(0) & os::kAttributeFolder, os::kAttributeFolder);
}

TEST_F(FilesContract, APassFindsEverythingOnce) {
  ASSERT_TRUE(WriteText(folder_ + "\\a.txt", ""));
  ASSERT_TRUE(WriteText(folder_ + "\\表.txt", ""));
  ASSERT_EQ(files_.CreateFolder(folder_ + "\\ソ"), 0U);
  const std::map<std::string, os::FoundName> names = List(folder_);
  EXPECT_EQ(names.size(), 5U);
  for (const char* name : {".", "..", "a.txt", "表.txt", "ソ"}) {
    ASSERT_TRUE(names.contains(name)) << name;
    EXPECT_TRUE(names.at(name).exact);
  }
  EXPECT_EQ(names.at("ソ").attributes & os::kAttributeFolder, os::kAttributeFolder);
  EXPECT_EQ(names.at("a.txt").attributes & os::kAttributeFolder, 0U);
}

TEST_F(FilesContract, APassNeedsAFolder) {
  ASSERT_TRUE(WriteText(folder_ + "\\a.txt", ""));
  EXPECT_EQ(files_.OpenFolder(folder_ + "\\missing"), nullptr);
  EXPECT_EQ(files_.OpenFolder(folder_ + "\\a.txt"), nullptr);
  EXPECT_EQ(files_.OpenFolder(""), nullptr);
}

TEST_F(FilesContract, ADriveExistsWithoutItsSeparatorToo) {
  EXPECT_TRUE(files_.Exists(folder_.substr(0, 3)));
  EXPECT_TRUE(files_.Exists(folder_.substr(0, 2)));
}

TEST_F(FilesContract, RemoveDeletesOneFile) {
  ASSERT_TRUE(WriteText(folder_ + "\\a.txt", ""));
  EXPECT_TRUE(files_.Remove(folder_ + "\\a.txt"));
  EXPECT_FALSE(files_.Exists(folder_ + "\\a.txt"));
  EXPECT_FALSE(files_.Remove(folder_ + "\\a.txt"));
  EXPECT_FALSE(files_.Remove(folder_));
  EXPECT_TRUE(files_.Exists(folder_));
}

TEST_F(FilesContract, RenameMovesFilesAndFolders) {
  ASSERT_TRUE(WriteText(folder_ + "\\a.txt", "body"));
  EXPECT_EQ(files_.Rename(folder_ + "\\a.txt", folder_ + "\\能.txt"), 0);
  EXPECT_EQ(files_.Read(folder_ + "\\能.txt", 10), "body");
  EXPECT_FALSE(files_.Exists(folder_ + "\\a.txt"));
  ASSERT_EQ(files_.CreateFolder(folder_ + "\\sub"), 0U);
  EXPECT_EQ(files_.Rename(folder_ + "\\sub", folder_ + "\\moved"), 0);
  EXPECT_TRUE(files_.Exists(folder_ + "\\moved"));
}

TEST_F(FilesContract, RenameChangesLetterCaseAlone) {
  ASSERT_TRUE(WriteText(folder_ + "\\a表.txt", "body"));
  ASSERT_EQ(files_.CreateFolder(folder_ + "\\sub"), 0U);
  EXPECT_EQ(files_.Rename(folder_ + "\\a表.txt", folder_ + "\\A表.TXT"), 0);
  EXPECT_EQ(files_.Rename(folder_ + "\\sub", folder_ + "\\Sub"), 0);
  const std::map<std::string, os::FoundName> names = List(folder_);
  EXPECT_EQ(names.size(), 4U);
  EXPECT_TRUE(names.contains("A表.TXT"));
  EXPECT_TRUE(names.contains("Sub"));
  EXPECT_EQ(files_.Read(folder_ + "\\A表.TXT", 10), "body");
}

TEST_F(FilesContract, RenameTakesNamesThatEndInABackslashByte) {
  ASSERT_TRUE(WriteText(folder_ + "\\ソ", "body"));
  EXPECT_EQ(files_.Rename(folder_ + "\\ソ", folder_ + "\\表"), 0);
  EXPECT_EQ(files_.Read(folder_ + "\\表", 10), "body");
}

TEST_F(FilesContract, RenameAnswersTheReason) {
  constexpr int kNotFound = 2;
  ASSERT_TRUE(WriteText(folder_ + "\\a.txt", "a"));
  ASSERT_TRUE(WriteText(folder_ + "\\b.txt", "b"));
  EXPECT_EQ(files_.Rename(folder_ + "\\missing", folder_ + "\\c.txt"), kNotFound);
  EXPECT_NE(files_.Rename(folder_ + "\\a.txt", folder_ + "\\b.txt"), 0);
  EXPECT_EQ(files_.Read(folder_ + "\\b.txt", 10), "b");
}

TEST_F(FilesContract, RenameGivesNoDevicesName) {
  ASSERT_TRUE(WriteText(folder_ + "\\a.txt", "a"));
  for (const char* device : {"con", "PRN", "Aux.txt", "nul.a.b", "COM1", "com9.txt", "LPT1", "lpt9.x"}) {
    EXPECT_NE(files_.Rename(folder_ + "\\a.txt", folder_ + "\\" + device), 0) << device;
  }
  EXPECT_EQ(files_.Read(folder_ + "\\a.txt", 10), "a");
}

TEST_F(FilesContract, CreateFolderAnswersTheReason) {
  constexpr std::uint32_t kPathNotFound = 3;
  constexpr std::uint32_t kInvalidName = 123;
  constexpr std::uint32_t kAlreadyExists = 183;
  EXPECT_EQ(files_.CreateFolder(folder_ + "\\new"), 0U);
  EXPECT_EQ(files_.CreateFolder(folder_ + "\\new"), kAlreadyExists);
  EXPECT_EQ(files_.CreateFolder(folder_ + "\\missing\\new"), kPathNotFound);
  EXPECT_EQ(files_.CreateFolder(folder_ + "\\a?b"), kInvalidName);
}

TEST(LocalTimeContract, KeepsTheFieldsOfTheCalendar) {
  const std::optional<std::tm> local = os::Services().files->LocalTime(1'000'000'000);  // 2001-09-09 01:46:40 UTC
  ASSERT_TRUE(local.has_value());
  EXPECT_EQ(local->tm_year, 101);
  EXPECT_EQ(local->tm_mon, 8);
  EXPECT_EQ(local->tm_sec, 40);
  EXPECT_FALSE(os::Services().files->LocalTime(std::numeric_limits<std::int64_t>::max()).has_value());
}

class RegistryContract : public testing::Test {
 protected:
  [[nodiscard]] std::unique_ptr<os::RegistryKey> Key() { return registry_.Create(name_); }

  os::Registry& registry_ = *os::Services().registry;
  ContractWorld world_;
  std::string name_ = world_.Key();
};

TEST_F(RegistryContract, OpenNeedsTheKey) {
  constexpr std::uint32_t kNotFound = 2;
  std::uint32_t error = 0;
  EXPECT_EQ(registry_.Open(name_, &error), nullptr);
  EXPECT_EQ(error, kNotFound);
  EXPECT_EQ(registry_.Open(name_), nullptr);
  EXPECT_NE(registry_.Create(name_, &error), nullptr);
  EXPECT_EQ(error, 0U);
  EXPECT_NE(registry_.Open(name_, &error), nullptr);
}

TEST_F(RegistryContract, ValuesOutliveTheirKeyObject) {
  ASSERT_EQ(Key()->Set("表 ソ#", RegistryType::Binary, std::string_view{"\1\0\2", 3}), 0U);
  const std::optional<os::RegistryValue> value = registry_.Open(name_)->Query("表 ソ#", 10);
  ASSERT_TRUE(value.has_value());
  EXPECT_EQ(value->type, RegistryType::Binary);
  EXPECT_EQ(value->bytes, std::string("\1\0\2", 3));
}

TEST_F(RegistryContract, NamesOfValuesAndKeysIgnoreLetterCase) {
  ASSERT_EQ(Key()->Set("Latest", RegistryType::Binary, "x"), 0U);
  EXPECT_TRUE(Key()->Query("LATEST", 10).has_value());
  std::string capitals = name_;
  std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                 [](char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte; });
  EXPECT_NE(registry_.Open(capitals), nullptr);
}

TEST_F(RegistryContract, AQueryKeepsItsLimit) {
  ASSERT_EQ(Key()->Set("v", RegistryType::Binary, "12345"), 0U);
  EXPECT_FALSE(Key()->Query("v", 4).has_value());
  EXPECT_TRUE(Key()->Query("v", 5).has_value());
  EXPECT_FALSE(Key()->Query("missing", 5).has_value());
}

TEST_F(RegistryContract, TypesComeBackAsWritten) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  ASSERT_EQ(key->Set("number", RegistryType::Dword, std::string_view{"\x0A\0\0\0", 4}), 0U);
  ASSERT_EQ(key->Set("text", RegistryType::String, "表ソ"), 0U);
  EXPECT_EQ(key->Query("number", 4)->type, RegistryType::Dword);
  EXPECT_EQ(key->Query("text", 10)->type, RegistryType::String);
  const std::string text = key->Query("text", 10)->bytes;
  EXPECT_EQ(text.substr(0, text.find('\0')), "表ソ");
}

TEST_F(RegistryContract, AnEmptyValueIsAValue) {
  const std::unique_ptr<os::RegistryKey> key = Key();
  ASSERT_EQ(key->Set("empty", RegistryType::Binary, ""), 0U);
  ASSERT_TRUE(key->Query("empty", 10).has_value());
  EXPECT_EQ(key->Query("empty", 10)->bytes, "");
  EXPECT_TRUE(key->Query("empty", 0).has_value());
}

TEST_F(RegistryContract, DeletedValuesAreGone) {
  constexpr std::uint32_t kNotFound = 2;
  const std::unique_ptr<os::RegistryKey> key = Key();
  ASSERT_EQ(key->Set("v", RegistryType::Binary, "x"), 0U);
  EXPECT_EQ(key->Delete("v"), 0U);
  EXPECT_EQ(key->Delete("v"), kNotFound);
  EXPECT_FALSE(key->Query("v", 10).has_value());
}

}  // namespace
