// What only the real services can show: names that Shift_JIS cannot hold, the platform's errors, links, the recycle
// bin.
#include <windows.h>

// These need windows.h before them.
#include <aclapi.h>
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/os/os.h"
#include "platform/os/sjis_wide.h"
#include "tests/os/box_answer.h"
#include "tests/os/contract_world.h"

namespace {

void Touch(const std::string& path) {
  const HANDLE file = ::CreateFileW(os::WideOf(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  ::CloseHandle(file);
}

class RealFilesTest : public testing::Test {
 protected:
  [[nodiscard]] std::wstring WideFolder() const {
    std::array<wchar_t, MAX_PATH> wide = {};
    ::MultiByteToWideChar(932, 0, folder_.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    return wide.data();
  }

  os::Files& files_ = *os::Services().files;
  ContractWorld world_;
  std::string folder_ = world_.Folder();
};

/// The code page that the run is meant for.
TEST(CodePage, IsThatOfTheRun) {
  ASSERT_EQ(std::to_string(::GetACP()), os::Services().session->Variable("DLGLIB_CODE_PAGE").value_or("932"));
}

void Touch(const std::wstring& path) {
  const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  ::CloseHandle(file);
}

struct HardName {
  std::wstring name;
  std::string longName;
};

const std::array<HardName, 4> kHardNames = {{{L"\uD55C\uAD6D.txt", "??.txt"},
                                             {L"caf\u00E9.txt", "caf?.txt"},
                                             {L"\u00A5.txt", "?.txt"},
                                             {L"\U0001F600.txt", "?.txt"}}};

TEST_F(RealFilesTest, NamesThatShiftJisCannotHoldAreGivenByTheirShortNames) {
  for (const HardName& hard : kHardNames) Touch(WideFolder() + L"\\" + hard.name);
  const std::unique_ptr<os::FolderPass> pass = files_.OpenFolder(folder_);
  ASSERT_NE(pass, nullptr);
  std::vector<std::string> longNames;
  os::FoundName found;
  while (pass->Next(&found)) {
    EXPECT_TRUE(found.exact) << found.name;
    EXPECT_TRUE(files_.Exists(folder_ + "\\" + found.name)) << found.name;
    if (found.longName.empty()) continue;
    EXPECT_TRUE(found.name.ends_with(".TXT")) << found.name;
    longNames.push_back(found.longName);
  }
  std::vector<std::string> wanted;
  for (const HardName& hard : kHardNames) wanted.push_back(hard.longName);
  std::ranges::sort(wanted);
  std::ranges::sort(longNames);
  EXPECT_EQ(longNames, wanted);
  for (const HardName& hard : kHardNames) ::DeleteFileW((WideFolder() + L"\\" + hard.name).c_str());
}

TEST_F(RealFilesTest, NamesOfVendorRowsAreExactAndCanBeOpened) {
  for (const char* name : {"髙﨑.txt", "①Ⅳ㈱.txt", "ｱｲｳ.txt", "〜∥－.txt", "ソ表能.txt"}) Touch(folder_ + "\\" + name);
  const std::unique_ptr<os::FolderPass> pass = files_.OpenFolder(folder_);
  ASSERT_NE(pass, nullptr);
  int count = 0;
  os::FoundName found;
  while (pass->Next(&found)) {
    EXPECT_TRUE(found.exact) << found.name;
    EXPECT_TRUE(files_.Exists(folder_ + "\\" + found.name)) << found.name;
    ++count;
  }
  EXPECT_EQ(count, 7);
}

TEST_F(RealFilesTest, AFolderWhoseNameEndsInABackslashByteIsRead) {
  const std::string folder = folder_ + "\\表";
  ASSERT_EQ(files_.CreateFolder(folder), 0U);
  Touch(folder + "\\a");
  const std::unique_ptr<os::FolderPass> pass = files_.OpenFolder(folder);
  ASSERT_NE(pass, nullptr);
  EXPECT_TRUE(files_.Status(folder).has_value());
}

TEST_F(RealFilesTest, AFolderOfTextThatIsNoShiftJisIsRefused) {
  EXPECT_EQ(files_.OpenFolder(folder_ + "\\\x81"), nullptr);
  EXPECT_EQ(files_.OpenFolder(std::string(100000, 'x')), nullptr);
}

TEST_F(RealFilesTest, TheCurrentFolderIsThatOfTheProcess) {
  std::array<wchar_t, MAX_PATH> former = {};
  ASSERT_NE(::GetCurrentDirectoryW(MAX_PATH, former.data()), 0U);
  ASSERT_EQ(files_.CreateFolder(folder_ + "\\表ソ"), 0U);
  ASSERT_TRUE(::SetCurrentDirectoryW(os::WideOf(folder_ + "\\表ソ").c_str()));
  EXPECT_EQ(files_.CurrentFolder(), folder_ + "\\表ソ");
  ASSERT_TRUE(::SetCurrentDirectoryW(L"C:\\"));
  EXPECT_EQ(files_.CurrentFolder(), "C:\\");
  ASSERT_TRUE(::CreateDirectoryW((WideFolder() + L"\\\xD55C").c_str(), nullptr));
  ASSERT_TRUE(::SetCurrentDirectoryW((WideFolder() + L"\\\xD55C").c_str()));
  const std::string byShortName = files_.CurrentFolder();
  EXPECT_TRUE(byShortName.starts_with(folder_ + "\\") && files_.Exists(byShortName)) << byShortName;
  ::SetCurrentDirectoryW(former.data());
  ::RemoveDirectoryW((WideFolder() + L"\\\xD55C").c_str());
}

TEST_F(RealFilesTest, AttributesOfEntriesComeWithThePass) {
  Touch(folder_ + "\\hidden");
  ASSERT_TRUE(
      ::SetFileAttributesW(os::WideOf(folder_ + "\\hidden").c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM));
  const std::unique_ptr<os::FolderPass> pass = files_.OpenFolder(folder_);
  os::FoundName found;
  std::uint32_t attributes = 0;
  while (pass->Next(&found)) {
    if (found.name == "hidden") attributes = found.attributes;
  }
  EXPECT_EQ(attributes & (os::kAttributeHidden | os::kAttributeSystem), os::kAttributeHidden | os::kAttributeSystem);
}

TEST_F(RealFilesTest, ATrailingSeparatorIsLeftOutOfAStatus) {
  EXPECT_TRUE(files_.Status(folder_ + "\\").has_value());
  ASSERT_TRUE(files_.Status("C:\\").has_value());
  EXPECT_TRUE(files_.Status("C:\\")->isFolder);
}

TEST_F(RealFilesTest, TheTimeOfAFileIsTheTimeOfItsLastChange) {
  Touch(folder_ + "\\now");
  const std::int64_t now = std::time(nullptr);
  const std::int64_t modified = files_.Status(folder_ + "\\now")->modified;
  EXPECT_LE(std::abs(now - modified), 60);
}

TEST_F(RealFilesTest, LocalTimeIsInTheZoneOfTheProcess) {
  const char* former = std::getenv("TZ");
  const std::string restore = std::string{"TZ="} + (former == nullptr ? "" : former);
  ::_putenv("TZ=JST-9");
  ::_tzset();
  const std::optional<std::tm> local = files_.LocalTime(0);
  ::_putenv(restore.c_str());
  ::_tzset();
  ASSERT_TRUE(local.has_value());
  EXPECT_EQ(local->tm_year, 70);
  EXPECT_EQ(local->tm_mday, 1);
  EXPECT_EQ(local->tm_hour, 9);
}

TEST_F(RealFilesTest, DevicesAreNotRead) {
  EXPECT_FALSE(files_.Read("CON", 10).has_value());
  EXPECT_FALSE(files_.Read("NUL", 10).has_value());
}

TEST_F(RealFilesTest, RenamingAnOpenFileIsDenied) {
  constexpr int kDenied = 13;
  const std::string path = folder_ + "\\open";
  const HANDLE file = ::CreateFileW(os::WideOf(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  EXPECT_EQ(files_.Rename(path, folder_ + "\\moved"), kDenied);
  ::CloseHandle(file);
  EXPECT_EQ(files_.Rename(path, folder_ + "\\moved"), 0);
}

TEST_F(RealFilesTest, TheLetterCaseOfAnOpenFileStaysAsItIs) {
  const std::string path = folder_ + "\\open";
  const HANDLE file = ::CreateFileW(os::WideOf(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  EXPECT_NE(files_.Rename(path, folder_ + "\\OPEN"), 0);
  ::CloseHandle(file);
  const std::unique_ptr<os::FolderPass> pass = files_.OpenFolder(folder_);
  os::FoundName found;
  int opens = 0;
  while (pass->Next(&found)) opens += found.name == "open" ? 1 : 0;
  EXPECT_EQ(opens, 1);
}

TEST_F(RealFilesTest, AWriterThatIsDroppedClosesItsFile) {
  const std::string path = folder_ + "\\dropped";
  {
    const std::unique_ptr<os::TextWriter> writer = files_.CreateText(path);
    ASSERT_NE(writer, nullptr);
    ASSERT_TRUE(writer->Write("abc"));
  }
  EXPECT_EQ(files_.Read(path, 10), "abc");
  EXPECT_TRUE(files_.Remove(path));
}

/// Handles of this process are numbered upwards from the lowest free one.
[[nodiscard]] std::uintptr_t NextHandle() {
  const HANDLE event = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  ::CloseHandle(event);
  return reinterpret_cast<std::uintptr_t>(event);
}

TEST_F(RealFilesTest, NothingIsLeftOpen) {
  Touch(folder_ + "\\a");
  const auto useAll = [&] {
    const std::unique_ptr<os::FolderPass> pass = files_.OpenFolder(folder_);
    os::FoundName found;
    EXPECT_TRUE(pass->Next(&found));
    EXPECT_TRUE(files_.Read(folder_ + "\\a", 1).has_value());
    EXPECT_TRUE(os::Services().registry->Create(world_.Key()) != nullptr);
    EXPECT_FALSE(os::Services().registry->Open(world_.Key() + "\\missing") != nullptr);
    EXPECT_TRUE(files_.CreateText(folder_ + "\\b") != nullptr);
  };
  useAll();
  const std::uintptr_t before = NextHandle();
  for (int i = 0; i < 200; ++i) useAll();
  EXPECT_EQ(NextHandle(), before);
}

TEST(RealRegistryTest, AKeyThatMayNotBeOpenedAnswersTheError) {
  const ContractWorld world;
  HKEY key = nullptr;
  ASSERT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, os::WideOf(world.Key()).c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  std::array<BYTE, 64> storage = {};
  PACL nobody = reinterpret_cast<PACL>(storage.data());
  ASSERT_TRUE(::InitializeAcl(nobody, static_cast<DWORD>(storage.size()), ACL_REVISION));
  ASSERT_EQ(::SetSecurityInfo(key, SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr, nullptr, nobody, nullptr),
            static_cast<DWORD>(ERROR_SUCCESS));
  std::uint32_t error = 0;
  EXPECT_EQ(os::Services().registry->Create(world.Key(), &error), nullptr);
  EXPECT_EQ(error, os::kErrorAccessDenied);
  error = 0;
  EXPECT_EQ(os::Services().registry->Open(world.Key(), &error), nullptr);
  EXPECT_EQ(error, os::kErrorAccessDenied);
  ::SetSecurityInfo(key, SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr, nullptr, nullptr, nullptr);
  ::RegCloseKey(key);
}

TEST(RealRegistryTest, AUnterminatedTextIsReadWithinItsBuffer) {
  const ContractWorld world;
  const std::unique_ptr<os::RegistryKey> key = os::Services().registry->Create(world.Key());
  ASSERT_EQ(key->Set("longest", os::RegistryType::String, std::string(256, 'x')), 0U);
  ASSERT_EQ(key->Set("filling", os::RegistryType::String, std::string(257, 'x')), 0U);
  ASSERT_EQ(key->Set("longer", os::RegistryType::String, std::string(258, 'x')), 0U);
  const std::optional<os::RegistryValue> value = key->Query("longest", 257);
  ASSERT_TRUE(value.has_value());
  EXPECT_EQ(value->bytes.substr(0, value->bytes.find('\0')), std::string(256, 'x'));
  EXPECT_EQ(key->Query("filling", 257)->bytes, std::string(257, 'x'));
  EXPECT_FALSE(key->Query("longer", 257).has_value());
}

/// A value's bytes and type as they are stored; none when there is none.
[[nodiscard]] std::optional<std::pair<DWORD, std::string>> Stored(const std::string& keyName, const wchar_t* name) {
  HKEY key = nullptr;
  ::RegOpenKeyExW(HKEY_CURRENT_USER, os::WideOf(keyName).c_str(), 0, KEY_READ, &key);
  std::string bytes(100000, '\0');
  DWORD type = REG_NONE;
  auto size = static_cast<DWORD>(bytes.size());
  const LSTATUS status = ::RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()), &size);
  ::RegCloseKey(key);
  if (status != ERROR_SUCCESS) return std::nullopt;
  bytes.resize(size);
  return std::pair{type, bytes};
}

[[nodiscard]] std::string BytesOf(std::wstring_view text) {
  std::string bytes(text.size() * sizeof(wchar_t), '\0');
  std::memcpy(bytes.data(), text.data(), bytes.size());
  return bytes;
}

TEST(RealRegistryTest, ATextIsStoredInTheLengthThatIsGiven) {
  const ContractWorld world;
  const std::unique_ptr<os::RegistryKey> key = os::Services().registry->Create(world.Key());
  const std::pair<std::string_view, std::wstring_view> texts[] = {
      {"a", L"a"}, {"abc", L"abc"}, {"D:\\表\\ソ.txt", L"D:\\表\\ソ.txt"}, {"ｱｲｳ", L"ｱｲｳ"}, {"", L""}};
  for (const auto& [text, wide] : texts) {
    for (const os::RegistryType type : {os::RegistryType::String, os::RegistryType::ExpandString}) {
      ASSERT_EQ(key->Set("v", type, text), 0U);
      EXPECT_EQ(Stored(world.Key(), L"v"), std::pair(static_cast<DWORD>(type), BytesOf(wide))) << text;
      EXPECT_EQ(key->Query("v", 100)->bytes, text);
    }
  }
  ASSERT_EQ(key->Set("v", os::RegistryType::String, std::string_view("a\0", 2)), 0U);
  EXPECT_EQ(Stored(world.Key(), L"v")->second, BytesOf(std::wstring(L"a\0", 2)));
}

TEST(RealRegistryTest, ACopyThatIsPutBackIsTheValueThatItWas) {
  const ContractWorld world;
  const std::unique_ptr<os::RegistryKey> key = os::Services().registry->Create(world.Key());
  HKEY raw = nullptr;
  ASSERT_EQ(::RegOpenKeyExW(HKEY_CURRENT_USER, os::WideOf(world.Key()).c_str(), 0, KEY_ALL_ACCESS, &raw),
            ERROR_SUCCESS);
  const std::string open = BytesOf(L"한국");               // a text of no Shift_JIS, without a terminator
  const std::string closed = open + std::string(2, '\0');  // and with one
  const std::string odd = open + "x";                      // half a character at its end
  const std::string large(70000, 'b');
  const std::pair<DWORD, std::string> values[] = {
      {REG_SZ, open},         {REG_SZ, closed},        {REG_SZ, odd},           {REG_SZ, ""},
      {REG_EXPAND_SZ, open},  {REG_BINARY, ""},        {REG_BINARY, odd},       {REG_BINARY, large},
      {REG_MULTI_SZ, closed}, {REG_DWORD, "\1\2\3\4"}, {REG_QWORD, "12345678"}, {0x12345, "any type"}};
  for (const auto& [type, bytes] : values) {
    const std::string behind = bytes + "yy";  // nothing that the system would take for a terminator
    ASSERT_EQ(::RegSetValueExW(raw, L"v", 0, type, reinterpret_cast<const BYTE*>(behind.data()),
                               static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
    std::uint32_t error = 1;
    const std::optional<os::StoredValue> copy = key->Copy("v", &error);
    ASSERT_TRUE(copy.has_value());
    EXPECT_EQ(error, 0U);
    ASSERT_EQ(key->Set("v", os::RegistryType::String, "another"), 0U);
    ASSERT_EQ(key->PutBack("v", *copy), 0U);
    EXPECT_EQ(Stored(world.Key(), L"v"), std::pair(type, bytes)) << type << ", " << bytes.size() << " bytes";
  }
  ::RegCloseKey(raw);
  std::uint32_t error = 0;
  EXPECT_FALSE(key->Copy("missing", &error).has_value());
  EXPECT_EQ(error, os::kErrorNotFound);
}

TEST(RealDrivesTest, TheSystemDriveIsThere) {
  os::Drives& drives = *os::Services().drives;
  EXPECT_NE(drives.Mask() & 4U, 0U);
  EXPECT_EQ(drives.Type("C:\\"), os::DriveType::Fixed);
  EXPECT_TRUE(drives.VolumeName("C:\\").has_value());
  const std::optional<os::DriveSpace> space = drives.Space("C:\\");
  ASSERT_TRUE(space.has_value());
  EXPECT_GT(space->total, 0U);
  EXPECT_LE(space->free, space->total);
}

TEST(RealDrivesTest, AMissingDriveAnswersNothing) {
  os::Drives& drives = *os::Services().drives;
  ASSERT_EQ(drives.Mask() & (1U << 16), 0U);
  EXPECT_EQ(drives.Type("Q:\\"), os::DriveType::NoRoot);
  EXPECT_FALSE(drives.VolumeName("Q:\\").has_value());
  EXPECT_FALSE(drives.Space("Q:\\").has_value());
  EXPECT_FALSE(os::Services().network->UniversalName("Q:\\").has_value());
}

class RealShellTest : public RealFilesTest {
 protected:
  void MakeLink(const std::string& linkPath, const std::string& target) {
    ASSERT_TRUE(SUCCEEDED(::CoInitialize(nullptr)));
    IShellLinkW* link = nullptr;
    IPersistFile* file = nullptr;
    void* object = nullptr;
    ASSERT_TRUE(
        SUCCEEDED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &object)));
    link = static_cast<IShellLinkW*>(object);
    link->SetPath(os::WideOf(target).c_str());
    ASSERT_TRUE(SUCCEEDED(link->QueryInterface(IID_IPersistFile, &object)));
    file = static_cast<IPersistFile*>(object);
    std::array<wchar_t, MAX_PATH> wide = {};
    ::MultiByteToWideChar(932, 0, linkPath.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    EXPECT_TRUE(SUCCEEDED(file->Save(wide.data(), TRUE)));
    file->Release();
    link->Release();
    ::CoUninitialize();
  }

  os::Shell& shell_ = *os::Services().shell;
};

TEST_F(RealShellTest, TheDesktopIsAFolder) {
  const std::optional<std::string> desktop = shell_.DesktopFolder();
  ASSERT_TRUE(desktop.has_value());
  EXPECT_NE(desktop->back(), '\\');
  EXPECT_TRUE(files_.Exists(*desktop));
}

TEST_F(RealShellTest, ALinkNamesItsTarget) {
  Touch(folder_ + "\\表ソ.txt");
  MakeLink(folder_ + "\\能.lnk", folder_ + "\\表ソ.txt");
  const std::optional<std::string> target = shell_.ResolveLink(folder_ + "\\能.lnk");
  ASSERT_TRUE(target.has_value());
  EXPECT_TRUE(files_.Exists(*target)) << *target;
  EXPECT_TRUE(target->ends_with("表ソ.txt")) << *target;
}

TEST_F(RealShellTest, ALinkNamesATargetThatHasGone) {
  Touch(folder_ + "\\表ソ.txt");
  MakeLink(folder_ + "\\gone.lnk", folder_ + "\\表ソ.txt");
  ASSERT_TRUE(files_.Remove(folder_ + "\\表ソ.txt"));
  const std::optional<std::string> target = shell_.ResolveLink(folder_ + "\\gone.lnk");
  ASSERT_TRUE(target.has_value());
  EXPECT_FALSE(files_.Exists(*target)) << *target;
  EXPECT_TRUE(target->ends_with("表ソ.txt")) << *target;
  MakeLink(folder_ + "\\no drive.lnk", "Q:\\none\\x.mdl");
  EXPECT_EQ(shell_.ResolveLink(folder_ + "\\no drive.lnk"), "Q:\\none\\x.mdl");
}

TEST_F(RealShellTest, WhatIsNoLinkNamesNothing) {
  Touch(folder_ + "\\plain.lnk");
  EXPECT_FALSE(shell_.ResolveLink(folder_ + "\\plain.lnk").has_value());
  EXPECT_FALSE(shell_.ResolveLink(folder_ + "\\missing.lnk").has_value());
  EXPECT_FALSE(shell_.ResolveLink("").has_value());
  EXPECT_FALSE(shell_.ResolveLink("\x81").has_value());
}

TEST_F(RealShellTest, ADeleteThatTheUserRefusesIsAborted) {
  Touch(folder_ + "\\keep.txt");
  const os_test::BoxAnswer no{IDNO};
  const os::DeleteOutcome outcome =
      shell_.DeleteToRecycleBin(nullptr, folder_ + "\\keep.txt" + std::string(2, '\0'), "削除");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_TRUE(outcome.aborted);
  EXPECT_TRUE(files_.Exists(folder_ + "\\keep.txt"));
}

TEST_F(RealShellTest, ADeleteThatTheUserConfirmsRemovesTheFile) {
  Touch(folder_ + "\\drop.txt");
  const os_test::BoxAnswer yes{IDYES};
  const os::DeleteOutcome outcome =
      shell_.DeleteToRecycleBin(nullptr, folder_ + "\\drop.txt" + std::string(2, '\0'), "削除");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_FALSE(outcome.aborted);
  EXPECT_FALSE(files_.Exists(folder_ + "\\drop.txt"));
}

TEST_F(RealShellTest, ADeleteOfNothingFails) {
  EXPECT_NE(shell_.DeleteToRecycleBin(nullptr, "", "削除").result, 0);
  EXPECT_NE(shell_.DeleteToRecycleBin(nullptr, std::string(2, '\0'), "削除").result, 0);
}

TEST(RealNetworkTest, AnEnumerationOpensOrNamesItsError) {
  std::uint32_t error = 0;
  const std::unique_ptr<os::NetPass> pass = os::Services().network->Open(os::kNetScopeGlobal, nullptr, &error);
  EXPECT_EQ(pass == nullptr, error != 0);
}

TEST(RealNetworkTest, APlaceThatDoesNotExistCannotBeConnected) {
  os::NetResource place;
  place.remoteName = "\\\\no-such-server\\no-such-share";
  place.provider = "no such provider";
  EXPECT_NE(os::Services().network->Connect(place, "", "user"), 0U);
  EXPECT_NE(os::Services().network->Connect(os::NetResource{}, "", ""), 0U);
}

/// Puts a text with its end on the clipboard, as another program would.
template <class Text>
void PutOnClipboard(unsigned format, const Text& text) {
  ASSERT_TRUE(::OpenClipboard(nullptr));
  ::EmptyClipboard();
  HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof text[0]);
  std::copy_n(text.c_str(), text.size() + 1, static_cast<typename Text::value_type*>(::GlobalLock(memory)));
  ::GlobalUnlock(memory);
  ::SetClipboardData(format, memory);
  ::CloseClipboard();
}

TEST(RealClipboardTest, ItsTextIsRead) {
  os::Clipboard& clipboard = *os::Services().clipboard;
  const std::uint32_t before = clipboard.Sequence();
  PutOnClipboard(CF_UNICODETEXT, os::WideOf("表ソ\r\nabc"));
  EXPECT_EQ(clipboard.Text(nullptr), "表ソ\r\nabc");
  EXPECT_NE(clipboard.Sequence(), before);
  EXPECT_TRUE(clipboard.CanOpen(nullptr));
}

TEST(RealClipboardTest, TheTextOfAProgramForTheSystemsCodePageIsRead) {
  PutOnClipboard(CF_TEXT, std::string("表ソ\r\nabc"));
  EXPECT_EQ(os::Services().clipboard->Text(nullptr), "表ソ\r\nabc");
}

TEST(RealClipboardTest, AnEmptyOneHasNoText) {
  ASSERT_TRUE(::OpenClipboard(nullptr));
  ::EmptyClipboard();
  ::CloseClipboard();
  EXPECT_FALSE(os::Services().clipboard->Text(nullptr).has_value());
}

TEST(RealClipboardTest, OneHeldByAnotherWindowCannotBeOpened) {
  HANDLE held = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  HANDLE release = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::thread holder{[held, release] {
    HWND window = ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ::OpenClipboard(window);
    ::SetEvent(held);
    ::WaitForSingleObject(release, 10000);
    ::CloseClipboard();
    ::DestroyWindow(window);
  }};
  ::WaitForSingleObject(held, 10000);
  EXPECT_FALSE(os::Services().clipboard->CanOpen(nullptr));
  EXPECT_FALSE(os::Services().clipboard->Text(nullptr).has_value());
  ::SetEvent(release);
  holder.join();
  ::CloseHandle(held);
  ::CloseHandle(release);
  EXPECT_TRUE(os::Services().clipboard->CanOpen(nullptr));
}

TEST(RealSessionTest, VariablesOfAnyLengthAreRead) {
  os::Session& session = *os::Services().session;
  ::SetEnvironmentVariableW(L"OS_TEST", nullptr);
  EXPECT_FALSE(session.Variable("OS_TEST").has_value());
  for (const std::size_t length : {std::size_t{1}, std::size_t{255}, std::size_t{256}, std::size_t{5000}}) {
    ::SetEnvironmentVariableW(L"OS_TEST", std::wstring(length, L'x').c_str());
    EXPECT_EQ(session.Variable("OS_TEST"), std::string(length, 'x'));
  }
  ::SetEnvironmentVariableW(L"OS_TEST", os::WideOf("機械ソ表").c_str());
  EXPECT_EQ(session.Variable("OS_TEST"), "機械ソ表");
  ::SetEnvironmentVariableW(L"OS_TEST", nullptr);
}

TEST(RealSessionTest, ErrorTextsCarryNoLineBreak) {
  const std::string text = os::Services().session->ErrorText(2);
  ASSERT_FALSE(text.empty());
  EXPECT_EQ(text.find('\n'), std::string::npos);
  EXPECT_EQ(os::Services().session->ErrorText(0x2FFFFFFF), "");
}

}  // namespace
