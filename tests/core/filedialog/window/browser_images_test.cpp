#include "dlglib/filedialog/window/browser_images.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace filedialog;

TEST(IconOfImage, PlacesHaveTheirIcons) {
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::Desktop)), 10076);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::Computer)), 10075);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::Network)), 10083);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::EntireNetwork)), 10084);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::NetworkProvider)), 10087);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::NetworkDomain)), 10079);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::NearbyComputers)), 10086);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::NetworkServer)), 10090);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::NetworkShare)), 10091);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::ClientDrive)), 10085);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::FixedDrive)), 10080);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::NetworkDrive)), 10085);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::CdRomDrive)), 10074);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::RemovableDrive)), 10089);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::RamDisk)), 10088);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::Folder)), 10078);
}

TEST(IconOfImage, EntriesHaveTheIconsOfTheirKinds) {
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::FolderShortcut)), 10077);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::FileShortcut)), 10082);
  EXPECT_EQ(IconOfImage(ImageOf(EntryKind::File)), 10081);
}

TEST(IconOfImage, AnyOtherNumberIsAFile) {
  for (const int image : {-1, 10, 20, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(IconOfImage(image), 10081) << image;
  }
}

}  // namespace
