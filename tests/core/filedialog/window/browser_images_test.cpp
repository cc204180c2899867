#include "dlglib/filedialog/window/browser_images.h"

#include <gtest/gtest.h>

#include <limits>

#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/place/location.h"

namespace {

using namespace filedialog;

TEST(IconOfImage, PlacesHaveTheirIcons) {
  EXPECT_EQ(IconOfImage(kImageDesktop), 10076);
  EXPECT_EQ(IconOfImage(kImageComputer), 10075);
  EXPECT_EQ(IconOfImage(kImageNetwork), 10083);
  EXPECT_EQ(IconOfImage(kImageEntireNetwork), 10084);
  EXPECT_EQ(IconOfImage(kImageProvider), 10087);
  EXPECT_EQ(IconOfImage(kImageDomain), 10079);
  EXPECT_EQ(IconOfImage(kImageNearby), 10086);
  EXPECT_EQ(IconOfImage(kImageServer), 10090);
  EXPECT_EQ(IconOfImage(kImageShare), 10091);
  EXPECT_EQ(IconOfImage(kImageClientDrive), 10085);
  EXPECT_EQ(IconOfImage(kImageFixedDrive), 10080);
  EXPECT_EQ(IconOfImage(kImageNetworkDrive), 10085);
  EXPECT_EQ(IconOfImage(kImageCdRom), 10074);
  EXPECT_EQ(IconOfImage(kImageRemovable), 10089);
  EXPECT_EQ(IconOfImage(kImageRamDisk), 10088);
  EXPECT_EQ(IconOfImage(kImageFolder), 10078);
}

TEST(IconOfImage, EntriesHaveTheIconsOfTheirKinds) {
  EXPECT_EQ(IconOfImage(static_cast<int>(EntryKind::FolderShortcut)), 10077);
  EXPECT_EQ(IconOfImage(static_cast<int>(EntryKind::FileShortcut)), 10082);
  EXPECT_EQ(IconOfImage(static_cast<int>(EntryKind::File)), 10081);
}

TEST(IconOfImage, AnyOtherNumberIsAFile) {
  for (const int image : {-1, 10, 20, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(IconOfImage(image), 10081) << image;
  }
}

TEST(EntryKind, NetworkPlacesAndDrivesBearTheNumbersOfTheirImages) {
  EXPECT_EQ(static_cast<int>(EntryKind::EntireNetwork), kImageEntireNetwork);
  EXPECT_EQ(static_cast<int>(EntryKind::NetworkProvider), kImageProvider);
  EXPECT_EQ(static_cast<int>(EntryKind::NetworkDomain), kImageDomain);
  EXPECT_EQ(static_cast<int>(EntryKind::NearbyComputers), kImageNearby);
  EXPECT_EQ(static_cast<int>(EntryKind::NetworkServer), kImageServer);
  EXPECT_EQ(static_cast<int>(EntryKind::NetworkShare), kImageShare);
  EXPECT_EQ(static_cast<int>(EntryKind::ClientDrive), kImageClientDrive);
  EXPECT_EQ(static_cast<int>(EntryKind::FixedDrive), kImageFixedDrive);
  EXPECT_EQ(static_cast<int>(EntryKind::NetworkDrive), kImageNetworkDrive);
  EXPECT_EQ(static_cast<int>(EntryKind::CdRomDrive), kImageCdRom);
  EXPECT_EQ(static_cast<int>(EntryKind::RemovableDrive), kImageRemovable);
  EXPECT_EQ(static_cast<int>(EntryKind::RamDisk), kImageRamDisk);
  EXPECT_EQ(static_cast<int>(EntryKind::Folder), kImageFolder);
}

}  // namespace
