#include "dlglib/filedialog/listing/row_item.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dlglib/filedialog/basics/area_item.h"
#include "platform/os/os_scripted.h"

namespace filedialog {
namespace {

const std::vector<std::string> kDetails = {"名前", "サイズ", "更新日時"};

class RowItems : public testing::Test {
 protected:
  RowItems() { os::scripted::World().Reset(); }

  static std::string Said(const FileEntry& entry, const std::vector<std::string>& titles,
                          const ShownListing& listing = {}) {
    return RowItem(*os::Services().drives, entry, listing, titles).description;
  }
};

FileEntry Described(EntryKind kind, const std::string& description) {
  FileEntry entry;
  entry.name = "A.MDL";
  entry.kind = kind;
  entry.sizeKb = 12;
  entry.description = description;
  entry.described = true;
  return entry;
}

TEST_F(RowItems, SayTheirKindAndTheirColumns) {
  const FileEntry file = Described(EntryKind::File, "  2021/04/05 09:30:00");
  EXPECT_EQ(Said(file, kDetails), "ファイル、サイズ 12 KB、更新日時 2021/04/05 09:30:00");
  EXPECT_EQ(Said(Described(EntryKind::Folder, "2021/04/05"), kDetails), "フォルダ、更新日時 2021/04/05");
  const auto item = RowItem(*os::Services().drives, file, {}, kDetails);
  EXPECT_EQ(item.name, "A.MDL");
  EXPECT_EQ(item.action, "開く");
  EXPECT_EQ(item.role, accessible::Role::ListItem);
}

TEST_F(RowItems, AreOthersByTheirPathsOrTheirNames) {
  const auto row = IdentityOf(EntryKind::File, "C:\\data\\a.mdl", "a.mdl");
  EXPECT_EQ(row, IdentityOf(EntryKind::File, "C:\\data\\a.mdl", "a late name"));
  EXPECT_NE(row, IdentityOf(EntryKind::File, "C:\\other\\a.mdl", "a.mdl"));
  EXPECT_NE(row, IdentityOf(EntryKind::Folder, "C:\\data\\a.mdl", "a.mdl"));
  EXPECT_NE(IdentityOf(EntryKind::NetworkServer, "", "one"), IdentityOf(EntryKind::NetworkServer, "", "two"));
}

TEST_F(RowItems, SayOnlyColumnsThatAreShownAndHoldSomething) {
  EXPECT_EQ(Said(Described(EntryKind::File, "2021/04/05"), {"名前", "サイズ"}), "ファイル、サイズ 12 KB");
  EXPECT_EQ(Said(Described(EntryKind::Folder, "  "), kDetails), "フォルダ");
}

TEST_F(RowItems, SayTheirKindAloneWithoutColumnsOrBeforeTheyAreDescribed) {
  FileEntry file = Described(EntryKind::File, "2021/04/05");
  EXPECT_EQ(Said(file, {}), "ファイル");
  file.described = false;
  EXPECT_EQ(Said(file, kDetails), "ファイル");
}

TEST_F(RowItems, OfDrivesSayTheirSizesWhenTheyAreReady) {
  os::scripted::World().AddDrive('C', {});
  FileEntry drive = Described(EntryKind::FixedDrive, "ローカルディスク");
  drive.path = "Q:\\";
  const ShownListing drives{ListingMode::Drives, 0, {}};
  EXPECT_EQ(Said(drive, {"名前", "種類", "合計サイズ", "空き領域"}, drives), "ドライブ、種類 ローカルディスク");
}

TEST(KindTexts, TellTheKindsApart) {
  EXPECT_STREQ(KindText(EntryKind::File), "ファイル");
  EXPECT_STREQ(KindText(EntryKind::FileShortcut), "ショートカット");
  EXPECT_STREQ(KindText(EntryKind::FolderShortcut), "フォルダへのショートカット");
  EXPECT_STREQ(KindText(EntryKind::RamDisk), "ドライブ");
  EXPECT_STREQ(KindText(EntryKind::NetworkServer), "ネットワークのコンピュータ");
  EXPECT_STREQ(KindText(EntryKind::NetworkShare), "共有フォルダ");
  EXPECT_STREQ(KindText(EntryKind::NearbyComputers), "ネットワーク");
  EXPECT_STREQ(KindText(EntryKind::Computer), "コンピュータ");
  EXPECT_STREQ(KindText(EntryKind::Desktop), "デスクトップ");
}

TEST(AreaItems, AreButtonsWithTheTextOfTheirBalloon) {
  const auto back = AreaItem(HotArea::Back, AreaState::Disabled);
  EXPECT_EQ(back.name, "戻る");
  EXPECT_EQ(back.description, TipOf(HotArea::Back));
  EXPECT_EQ(back.key, "Alt+Left");
  EXPECT_EQ(back.action, "押す");
  EXPECT_EQ(back.role, accessible::Role::PushButton);
  EXPECT_EQ(back.states, accessible::kUnavailable);
}

TEST(AreaItems, HaveTheStatesOfTheirAreas) {
  EXPECT_EQ(AreaItem(HotArea::Up, AreaState::Normal).states, 0U);
  EXPECT_EQ(AreaItem(HotArea::Up, AreaState::Pressed).states, accessible::kPressed);
  EXPECT_EQ(AreaItem(HotArea::NewFolder, AreaState::Hot).states, accessible::kHot);
  EXPECT_EQ(AreaItem(HotArea::View, AreaState::Normal).states, accessible::kHasPopup);
  EXPECT_EQ(AreaItem(HotArea::Label, AreaState::Normal).name, "ファイル数");
}

}  // namespace
}  // namespace filedialog
