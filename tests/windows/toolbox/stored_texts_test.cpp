// Every text that the library keeps in the registry, byte for byte as it is stored there: in UTF-16, without a
// terminator.
#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "dlglib/base/registry_change.h"
#include "dlglib/filedialog/memory/layout_record.h"
#include "dlglib/filsel/raster_memory.h"
#include "dlglib/utility/CvUtility.h"
#include "platform/os/os.h"
#include "platform/os/sjis_wide.h"
#include "platform/suite/crvncontrol.h"

namespace {

constexpr char kKeyword[] = "#STOREDTEXTS#";
constexpr char kFilesKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Use #STOREDTEXTS#";
constexpr char kNamesKey[] = "Software\\Nalbo\\Corvane\\XRF\\Use #STOREDTEXTS#";
constexpr char kLayoutKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #STOREDTEXTS#";
constexpr char kRasterKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\#RASTER#";

class StoredTextsTest : public testing::Test {
 protected:
  StoredTextsTest() { DeleteKeys(); }
  ~StoredTextsTest() override { DeleteKeys(); }

  static void DeleteKeys() {
    for (const char* key : {kFilesKey, kNamesKey, kLayoutKey, kRasterKey})
      ::RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(key).c_str());
  }

  /// The bytes of a text value as the registry holds them.
  [[nodiscard]] static std::string Stored(const char* keyName, const wchar_t* name) {
    HKEY key = nullptr;
    ::RegOpenKeyExA(HKEY_CURRENT_USER, keyName, 0, KEY_READ, &key);
    std::string bytes(100000, '?');
    DWORD type = REG_NONE;
    auto size = static_cast<DWORD>(bytes.size());
    const LSTATUS status = ::RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()), &size);
    ::RegCloseKey(key);
    EXPECT_EQ(status, ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    bytes.resize(status == ERROR_SUCCESS ? size : 0);
    return bytes;
  }

  /// How many bytes programs get that ask with the 8-bit call.
  [[nodiscard]] static DWORD Size(const char* keyName, const char* name) {
    HKEY key = nullptr;
    ::RegOpenKeyExA(HKEY_CURRENT_USER, keyName, 0, KEY_READ, &key);
    DWORD size = 0;
    ::RegQueryValueExA(key, name, nullptr, nullptr, nullptr, &size);
    ::RegCloseKey(key);
    return size;
  }

  [[nodiscard]] static std::string BytesOf(std::wstring_view text) {
    std::string bytes(text.size() * sizeof(wchar_t), '\0');
    std::memcpy(bytes.data(), text.data(), bytes.size());
    return bytes;
  }

  int count_ = 5;
  CvUtility utility_;
};

TEST_F(StoredTextsTest, RecentFilesAndNamesHaveNoTerminator) {
  CStringArray list;
  list.Add("D:\\表\\ソ.txt");
  list.Add("a");
  utility_.SetUsedFile(kKeyword, 0, &list, &count_);
  utility_.SetUsedFile(kKeyword, 1, &list, &count_);
  utility_.SetUsedName(kKeyword, &list, &count_);
  EXPECT_EQ(Stored(kFilesKey, L"iFile01"), BytesOf(L"D:\\表\\ソ.txt"));
  EXPECT_EQ(Size(kFilesKey, "iFile01"), 12U);
  EXPECT_EQ(Stored(kFilesKey, L"iFile02"), BytesOf(L"a"));
  EXPECT_EQ(Size(kFilesKey, "iFile02"), 1U);
  EXPECT_EQ(Stored(kFilesKey, L"oFile01"), BytesOf(L"D:\\表\\ソ.txt"));
  EXPECT_EQ(Stored(kNamesKey, L"Name02"), BytesOf(L"a"));
  EXPECT_EQ(Size(kNamesKey, "Name02"), 1U);
}

TEST_F(StoredTextsTest, TheBrowsersRecentFilesAndTitleTextsHaveNoTerminator) {
  filedialog::LayoutRecord record;
  record.recentFiles = {"C:\\機械.mdl", "b"};
  record.titles.texts = {"図番", "", "x", std::string(63, 't')};
  const filedialog::LayoutTarget target{kLayoutKey, kLayoutKey, filedialog::TitleView::Models};
  const os::ServiceTable& services = os::Services();
  for (const auto part : {filedialog::LayoutPart::Window, filedialog::LayoutPart::RecentFiles}) {
    ASSERT_FALSE(filedialog::SaveLayout(*services.registry, *services.session, target, part, record));
  }
  EXPECT_EQ(Stored(kLayoutKey, L"File01"), BytesOf(L"C:\\機械.mdl"));
  EXPECT_EQ(Size(kLayoutKey, "File01"), 11U);
  EXPECT_EQ(Size(kLayoutKey, "File02"), 1U);
  EXPECT_EQ(Stored(kLayoutKey, L"Text1"), BytesOf(L"図番"));
  EXPECT_EQ(Size(kLayoutKey, "Text1"), 4U);
  EXPECT_EQ(Stored(kLayoutKey, L"Text2"), "");
  EXPECT_EQ(Size(kLayoutKey, "Text3"), 1U);
  EXPECT_EQ(Size(kLayoutKey, "Text4"), 63U);
  filedialog::LayoutRecord read;
  filedialog::LoadLayout(*services.registry, {kLayoutKey, kLayoutKey}, &read);
  EXPECT_EQ(read.recentFiles, record.recentFiles);
  EXPECT_EQ(read.titles.texts, record.titles.texts);
}

TEST_F(StoredTextsTest, TheFolderOfTheLastImageHasNoTerminator) {
  filsel::RasterMemory memory;
  memory.Remember(EucText("/images/"), SjisView("C:\\表\\a.tif"), *CwSession::GetInstance(), *os::Services().registry);
  EXPECT_EQ(Stored(kRasterKey, L"Latest"), BytesOf(L"C:\\表\\"));
  EXPECT_EQ(Size(kRasterKey, "Latest"), 6U);
}

TEST_F(StoredTextsTest, AWriteThatIsTakenBackLeavesTextsOfOtherProgramsAsTheyWere) {
  // Longer than any text of the library, of no Shift_JIS, and without a terminator.
  const std::wstring foreign(20000, L'한');
  HKEY key = nullptr;
  ASSERT_EQ(::RegCreateKeyExA(HKEY_CURRENT_USER, kNamesKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  const std::string bytes = BytesOf(foreign + L'x');
  ::RegSetValueExW(key, L"Name03", 0, REG_SZ, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size() - sizeof(wchar_t)));
  ::RegCloseKey(key);
  {
    const auto opened = os::Services().registry->Create(kNamesKey);
    RegistryChange change(*opened);
    change.Delete("Name03");
    change.Set("Name03", os::RegistryType::String, "new");
  }
  EXPECT_EQ(Stored(kNamesKey, L"Name03"), BytesOf(foreign));
}

}  // namespace
