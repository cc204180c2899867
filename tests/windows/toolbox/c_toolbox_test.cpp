// The message zone and the recent lists by their C functions.
#include <array>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "dlglib/dlglib_c.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/toolbox/utility_host.h"

namespace utility_test {
namespace {

const char* const kHyouUtf8 = "\xE8\xA1\xA8";  // 表

DlglibResult OnAnotherThread(const std::function<DlglibResult()>& ask) {
  DlglibResult result = DLGLIB_OK;
  std::thread([&] { result = ask(); }).join();
  return result;
}

std::string Entry(DlglibRecentList list, std::int32_t index) {
  std::array<char, 300> room = {};
  const DlglibResult result = DlglibRecentListEntrySjis(list, index, 300, room.data(), nullptr);
  return result == DLGLIB_OK ? room.data() : "(" + std::to_string(result) + ")";
}

TEST(CToolboxTest, AZoneShowsItsMessagesAsLongAsItsDialogIsThere) {
  HWND dialog = ::CreateWindowExW(0, L"#32770", L"zone", WS_POPUP | WS_CAPTION | WS_VISIBLE, 20, 20, 300, 200, nullptr,
                                  nullptr, nullptr, nullptr);
  HWND label =
      ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 200, 16, dialog, nullptr, nullptr, nullptr);
  DlglibMessageZone zone = nullptr;
  EXPECT_EQ(DlglibMessageZoneCreate(nullptr, dialog), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibMessageZoneCreate(&zone, nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibMessageZoneCreate(&zone, ::GetDesktopWindow()), DLGLIB_WRONG_THREAD);
  ASSERT_EQ(DlglibMessageZoneCreate(&zone, dialog), DLGLIB_OK);
  RECT before = {};
  RECT after = {};
  ::GetWindowRect(dialog, &before);
  EXPECT_EQ(DlglibMessageZoneMakeRoom(zone), DLGLIB_OK);
  ::GetWindowRect(dialog, &after);
  EXPECT_GT(after.bottom - after.top, before.bottom - before.top);
  EXPECT_EQ(DlglibMessageZoneShowSjis(zone, "図面"), DLGLIB_OK) << "drawn";
  EXPECT_EQ(DlglibMessageZoneSetWindow(zone, label), DLGLIB_OK);
  EXPECT_EQ(DlglibMessageZoneShowUtf8(zone, kHyouUtf8), DLGLIB_OK);
  EXPECT_EQ(driver::Window(label).Text(), "表");
  EXPECT_EQ(DlglibMessageZoneErrorSjis(zone, "だめ"), DLGLIB_OK);
  EXPECT_EQ(driver::Window(label).Text(), "だめ");
  EXPECT_EQ(DlglibMessageZoneErrorUtf8(zone, "\xFF"), DLGLIB_BAD_ENCODING);
  EXPECT_EQ(DlglibMessageZoneShowSjis(zone, std::string(513, 'a').c_str()), DLGLIB_TOO_LONG);
  EXPECT_EQ(driver::Window(label).Text(), "だめ");
  EXPECT_EQ(DlglibMessageZoneShowUtf8(zone, nullptr), DLGLIB_OK);
  EXPECT_EQ(driver::Window(label).Text(), "");
  EXPECT_EQ(DlglibMessageZoneErrorNumber(zone, 0), DLGLIB_OK);
  EXPECT_EQ(OnAnotherThread([&] { return DlglibMessageZoneMakeRoom(zone); }), DLGLIB_WRONG_THREAD);
  EXPECT_EQ(OnAnotherThread([&] { return DlglibMessageZoneDestroy(zone); }), DLGLIB_WRONG_THREAD);
  ::DestroyWindow(dialog);
  EXPECT_EQ(DlglibMessageZoneShowSjis(zone, "a"), DLGLIB_NOT_ATTACHED);
  EXPECT_EQ(DlglibMessageZoneDestroy(zone), DLGLIB_OK);
}

TEST(CToolboxTest, AZoneThatHasEndedIsAnAnswer) {
  int local = 0;
  for (auto bad : {DlglibMessageZone(), reinterpret_cast<DlglibMessageZone>(&local)}) {
    EXPECT_EQ(DlglibMessageZoneDestroy(bad), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibMessageZoneMakeRoom(bad), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibMessageZoneSetWindow(bad, nullptr), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibMessageZoneShowSjis(bad, "a"), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibMessageZoneShowUtf8(bad, "a"), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibMessageZoneErrorSjis(bad, "a"), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibMessageZoneErrorUtf8(bad, "a"), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibMessageZoneErrorNumber(bad, 1), DLGLIB_BAD_HANDLE);
  }
}

TEST(CToolboxTest, ARecentListIsReadChangedAndWritten) {
  DlglibRecentList list = nullptr;
  ASSERT_EQ(DlglibRecentListCreateUtf8(&list, DLGLIB_RECENT_NAMES, "#C TOOLBOX#"), DLGLIB_OK);
  std::int32_t number = -7;
  EXPECT_EQ(DlglibRecentListCount(list, &number), DLGLIB_OK);
  EXPECT_EQ(number, 0);
  for (const char* entry : {"a", "B", "図面", "b"}) EXPECT_EQ(DlglibRecentListAddSjis(list, entry), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListAddUtf8(list, kHyouUtf8), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListRemoveSjis(list, "A"), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListRemoveUtf8(list, "A"), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibRecentListSetShown(list, 2), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListSetShown(list, 21), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibRecentListSetShown(list, 3), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListWrite(list), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListDestroy(list), DLGLIB_OK);

  DlglibRecentList again = nullptr;
  ASSERT_EQ(DlglibRecentListCreateSjis(&again, DLGLIB_RECENT_NAMES, "#C TOOLBOX#"), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListShown(again, &number), DLGLIB_OK);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(Entry(again, 0), "表");
  EXPECT_EQ(Entry(again, 1), "b") << "in place of B";
  EXPECT_EQ(Entry(again, 2), "図面");
  EXPECT_EQ(Entry(again, 3), "(-3)");
  std::array<char, 10> room = {};
  EXPECT_EQ(DlglibRecentListEntryUtf8(again, 0, 10, room.data(), nullptr), DLGLIB_OK);
  EXPECT_STREQ(room.data(), kHyouUtf8);
  EXPECT_EQ(DlglibRecentListDestroy(again), DLGLIB_OK);
}

TEST(CToolboxTest, ARecentListFillsAComboBox) {
  HWND combo = ::CreateWindowExW(0, L"COMBOBOX", L"", WS_POPUP | CBS_DROPDOWNLIST, 0, 0, 100, 100, nullptr, nullptr,
                                 nullptr, nullptr);
  DlglibRecentList list = nullptr;
  ASSERT_EQ(DlglibRecentListCreateSjis(&list, DLGLIB_RECENT_INPUT_FILES, "#C COMBO#"), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListAddSjis(list, "図面"), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListFill(list, nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibRecentListFill(list, combo), DLGLIB_OK);
  EXPECT_EQ(::SendMessageW(combo, CB_GETCOUNT, 0, 0), 1);
  EXPECT_EQ(DlglibRecentListDestroy(list), DLGLIB_OK);
  ::DestroyWindow(combo);
}

TEST(CToolboxTest, WhatIsNoRecentListOrEntryIsRefused) {
  DlglibRecentList list = nullptr;
  EXPECT_EQ(DlglibRecentListCreateSjis(nullptr, DLGLIB_RECENT_NAMES, "#A#"), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibRecentListCreateSjis(&list, DLGLIB_RECENT_NAMES, nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibRecentListCreateSjis(&list, 3, "#A#"), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibRecentListCreateUtf8(&list, 0, "\xFF"), DLGLIB_BAD_ENCODING);
  EXPECT_EQ(DlglibRecentListCreateSjis(&list, 0, std::string(256, 'k').c_str()), DLGLIB_TOO_LONG);
  ASSERT_EQ(DlglibRecentListCreateSjis(&list, DLGLIB_RECENT_OUTPUT_FILES, "#A#"), DLGLIB_OK);
  EXPECT_EQ(DlglibRecentListAddSjis(list, ""), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibRecentListAddSjis(list, std::string(257, 'a').c_str()), DLGLIB_TOO_LONG);
  EXPECT_EQ(DlglibRecentListCount(list, nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibRecentListShown(list, nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(OnAnotherThread([&] { return DlglibRecentListWrite(list); }), DLGLIB_WRONG_THREAD);
  EXPECT_EQ(DlglibRecentListDestroy(list), DLGLIB_OK);
  std::int32_t number = 0;
  EXPECT_EQ(DlglibRecentListDestroy(list), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(DlglibRecentListCount(list, &number), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(DlglibRecentListShown(list, &number), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(DlglibRecentListSetShown(list, 3), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(DlglibRecentListAddSjis(list, "a"), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(DlglibRecentListAddUtf8(list, "a"), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(DlglibRecentListRemoveSjis(list, "a"), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(DlglibRecentListRemoveUtf8(list, "a"), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(DlglibRecentListFill(list, ::GetDesktopWindow()), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(DlglibRecentListWrite(list), DLGLIB_BAD_HANDLE);
  EXPECT_EQ(Entry(list, 0), "(-1)");
}

}  // namespace
}  // namespace utility_test
