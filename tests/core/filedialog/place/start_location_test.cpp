#include "dlglib/filedialog/place/start_location.h"

#include <gtest/gtest.h>

#include <string>

#include "dlglib/filedialog/basics/entry_kind.h"
#include "tests/core/filedialog/place/places.h"

namespace {

using namespace filedialog;
using os::DriveType;
using os::scripted::World;

class StartLocationTest : public places::Machine {
 protected:
  void BuildTwoDrives() {
    AddDrive('C', DriveType::Fixed);
    AddDrive('D', DriveType::CdRom);
    Build();
  }

  std::string Start(const std::string& folder) {
    tree_.Enter(StartLocation(*os::Services().files, tree_, folder));
    return tree_.Folder();
  }
};

TEST_F(StartLocationTest, StartsInTheFolder) {
  BuildTwoDrives();
  World().files.AddFolder("C:\\図面\\表");
  EXPECT_EQ(Start("C:\\図面\\表"), "C:\\図面\\表");
  EXPECT_EQ(Start("C:\\図面\\表\\"), "C:\\図面\\表");
  EXPECT_EQ(Start("D:\\"), "D:\\");
  EXPECT_EQ(Start("d:"), "D:\\");
}

TEST_F(StartLocationTest, StartsInTheNearestFolderThatExists) {
  BuildTwoDrives();
  World().files.AddFile("D:\\data\\a.mdl");
  EXPECT_EQ(Start("D:\\data\\gone\\表\\x"), "D:\\data");
  EXPECT_EQ(Start("D:\\data\\a.mdl"), "D:\\data");
  EXPECT_EQ(Start("D:\\gone"), "D:\\");
}

TEST_F(StartLocationTest, StartsAtTheFirstDriveWhenThereIsNoSuchPlace) {
  BuildTwoDrives();
  for (const char* folder : {"", "Q:\\", "Q:\\data\\x", "data", "data\\x", "\\data", "\\", "表", "C", ":"}) {
    EXPECT_EQ(Start(folder), "C:\\") << folder;
  }
}

TEST_F(StartLocationTest, StartsAtTheComputerWithoutADrive) {
  Build();
  EXPECT_EQ(StartLocation(*os::Services().files, tree_, "C:\\data").fixed, kComputerPlace);
}

TEST_F(StartLocationTest, ANetworkFolderIsNotAskedFor) {
  BuildTwoDrives();
  World().calls.ClearLog();
  EXPECT_EQ(Start("\\\\srv\\share\\gone"), "\\\\srv\\share\\gone");
  EXPECT_EQ(World().calls.Count("files.Attributes"), 0U);
}

TEST_F(StartLocationTest, PathsBeyondTheLimitStartWhereTheyStillExist) {
  BuildTwoDrives();
  World().files.AddFolder("D:\\x\\x");
  std::string deep = "D:";
  while (deep.size() < 100000) deep += "\\x";
  World().calls.ClearLog();
  EXPECT_EQ(Start(deep), "D:\\x\\x");
  EXPECT_LT(World().calls.Count("files.Attributes"), kPathLimit);
  World().files.AddFolder("D:\\" + std::string(kPathLimit - 3, 'y'));
  EXPECT_EQ(Start("D:\\" + std::string(kPathLimit - 3, 'y')), "D:\\" + std::string(kPathLimit - 3, 'y'));
  EXPECT_EQ(Start("D:\\" + std::string(kPathLimit - 2, 'y')), "D:\\");
  EXPECT_EQ(Start(std::string(100000, 'y')), "C:\\");
  EXPECT_EQ(Start("D:\\" + std::string(100000, '\x95')), "D:\\");
}

}  // namespace
