// A network whose names Shift_JIS cannot hold: nothing is opened by another name than its own.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/os/os.h"
#include "tests/os/imports.h"

namespace {

// Korean letters, which Shift_JIS lacks.
wchar_t foreignServer[] = L"\\\\\xD55C\xAE00";
wchar_t foreignProvider[] = L"\xD55C\xAE00 Network";
wchar_t server[] = L"\\\\server";
wchar_t provider[] = L"Network";

std::vector<NETRESOURCEW> offered;
struct Opened {
  std::wstring name;
  bool hasProvider;
};
std::optional<Opened> opened;

DWORD WINAPI OpenEnum(DWORD, DWORD, DWORD, NETRESOURCEW* parent, HANDLE* enumeration) {
  if (parent != nullptr) opened = Opened{parent->lpRemoteName, parent->lpProvider != nullptr};
  *enumeration = &offered;
  return NO_ERROR;
}
DWORD WINAPI EnumResource(HANDLE, DWORD* count, void* buffer, DWORD*) {
  if (offered.empty()) return ERROR_NO_MORE_ITEMS;
  *count = static_cast<DWORD>(offered.size());
  std::copy(offered.begin(), offered.end(), static_cast<NETRESOURCEW*>(buffer));
  offered.clear();
  return NO_ERROR;
}
DWORD WINAPI CloseEnum(HANDLE) { return NO_ERROR; }
DWORD WINAPI ForeignProviderName(DWORD, wchar_t* name, DWORD*) {
  std::copy(std::begin(foreignProvider), std::end(foreignProvider), name);
  return NO_ERROR;
}
DWORD WINAPI ForeignUniversalName(const wchar_t*, DWORD, void* buffer, DWORD*) {
  static_cast<UNIVERSAL_NAME_INFOW*>(buffer)->lpUniversalName = foreignServer;
  return NO_ERROR;
}

class NetworkNamesTest : public testing::Test {
 protected:
  void Offer(wchar_t* remoteName, wchar_t* providerName, wchar_t* comment = nullptr) {
    NETRESOURCEW record = {};
    record.lpRemoteName = remoteName;
    record.lpProvider = providerName;
    record.lpComment = comment;
    offered.push_back(record);
  }
  std::vector<os::NetResource> Found() {
    std::vector<os::NetResource> records;
    const std::unique_ptr<os::NetPass> pass = network_.Open(os::kNetScopeGlobal, nullptr, nullptr);
    static_cast<void>(pass->Next(&records));
    EXPECT_TRUE(pass->Close());
    return records;
  }

  os::Network& network_ = *os::Services().network;

 private:
  const os_test::ReplacedImport open_{"WNetOpenEnumW", &OpenEnum};
  const os_test::ReplacedImport next_{"WNetEnumResourceW", &EnumResource};
  const os_test::ReplacedImport close_{"WNetCloseEnum", &CloseEnum};
};

TEST_F(NetworkNamesTest, APlaceOfAProviderThatCannotBeNamedIsOpenedByItsOwnName) {
  Offer(server, foreignProvider);
  const std::vector<os::NetResource> found = Found();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].remoteName, "\\\\server");
  EXPECT_EQ(found[0].provider, std::nullopt);
  ASSERT_NE(network_.Open(os::kNetScopeGlobal, found.data(), nullptr), nullptr);
  ASSERT_TRUE(opened);
  EXPECT_EQ(opened->name, server);
  EXPECT_FALSE(opened->hasProvider);
}

TEST_F(NetworkNamesTest, WhatCannotBeNamedIsLeftOut) {
  Offer(foreignServer, provider);
  Offer(nullptr, foreignProvider);
  Offer(nullptr, provider);
  const std::vector<os::NetResource> found = Found();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].provider, "Network");
}

TEST_F(NetworkNamesTest, ARemarkIsShownAsFarAsItCanBe) {
  Offer(server, provider, foreignProvider);
  const std::vector<os::NetResource> found = Found();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].comment, "?? Network");
}

TEST_F(NetworkNamesTest, AProviderOfClientDrivesThatCannotBeNamedIsNone) {
  const os_test::ReplacedImport name("WNetGetProviderNameW", &ForeignProviderName);
  EXPECT_EQ(network_.TerminalProvider(), std::nullopt);
}

TEST_F(NetworkNamesTest, AUniversalNameThatCannotBeSaidIsNone) {
  const os_test::ReplacedImport name("WNetGetUniversalNameW", &ForeignUniversalName);
  EXPECT_EQ(network_.UniversalName("Z:\\"), std::nullopt);
}

}  // namespace
