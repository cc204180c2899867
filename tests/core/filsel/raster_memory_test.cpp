#include "dlglib/filsel/raster_memory.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"

namespace filsel {
namespace {

using os::RegistryType;
using os::scripted::World;

const std::string kRasterKey = "Software\\Nalbo\\Corvane\\FileDialog\\#RASTER#";

class RasterMemoryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    World().Reset();
    CwSession::Reset();
    CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
    Kinds().AddFileType(CwFileType("#RASTER#", "C:/img/", "*.TIF", 3));
  }
  void TearDown() override {
    CwSession::Reset();
    EXPECT_EQ(World().registry.openHandles, 0);
  }

  static CwFileTypeSet& Kinds() { return *CwSession::GetInstance()->GetActiveFileTypeSet(); }
  static std::string Folder() { return Kinds().GetFileType("#RASTER#")->GetFolder(); }
  static void PutLatest(const std::string& bytes, RegistryType type = RegistryType::String) {
    World().registry.SetValue(kRasterKey, "Latest", type, bytes);
  }

  static std::optional<std::string> Recall(RasterMemory& memory, const std::string& keyword) {
    const auto folder = memory.Recall(EucText(keyword), *CwSession::GetInstance(), *os::Services().registry);
    return folder ? std::optional(folder->bytes()) : std::nullopt;
  }
  static void Remember(RasterMemory& memory, const std::string& formerFolder, const std::string& chosenPath) {
    memory.Remember(EucText(formerFolder), SjisView(chosenPath), *CwSession::GetInstance(), *os::Services().registry);
  }

  // A memory that has saved a folder in this process, and the kind as it was before.
  static RasterMemory Used() {
    RasterMemory memory;
    Remember(memory, "C:/img/", "D:\\scan\\a.tif");
    return memory;
  }
};

TEST_F(RasterMemoryTest, OnlyTheRasterKindOfASessionThatAsksForItIsRemembered) {
  RasterMemory memory;
  EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/img/");
  EXPECT_FALSE(Recall(memory, "#MODEL#"));
  EXPECT_FALSE(Recall(memory, "#raster#"));
  CwSession::GetInstance()->GetStartupParam()->Undefine("SXF_USE_LAST_HOLDER");
  EXPECT_FALSE(Recall(memory, "#RASTER#"));
}

TEST_F(RasterMemoryTest, AMissingKindHasAnEmptyFolder) {
  CwSession::Reset();
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  RasterMemory memory;
  EXPECT_EQ(Recall(memory, "#RASTER#"), "");
  EXPECT_EQ(Kinds().GetFileType("#RASTER#"), nullptr);
}

TEST_F(RasterMemoryTest, NothingIsReadBeforeThisProcessHasSavedAFolder) {
  PutLatest("D:\\scan\\");
  RasterMemory memory;
  EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/img/");
  EXPECT_EQ(Folder(), "C:/img/");
  EXPECT_EQ(World().calls.Count("registry.Create"), 0U);
  EXPECT_EQ(World().calls.Count("registry.Query"), 0U);
}

TEST_F(RasterMemoryTest, TheFolderOfTheChosenPathIsSaved) {
  RasterMemory memory;
  Remember(memory, "C:/img/", "D:\\スキャン\\表.tif");
  const auto value = World().registry.Value(kRasterKey, "Latest");
  ASSERT_TRUE(value);
  EXPECT_EQ(value->type, RegistryType::String);
  EXPECT_EQ(value->bytes, "D:\\スキャン\\");  // no terminator
  EXPECT_EQ(Folder(), "C:/img/");
  EXPECT_EQ(Kinds().GetFileType("#RASTER#")->GetPatterns(), "");
  EXPECT_EQ(Kinds().GetFileType("#RASTER#")->GetFlag(), 0);
}

TEST_F(RasterMemoryTest, APathWithoutASeparatorIsSavedWhole) {
  RasterMemory memory;
  Remember(memory, "C:/img/", "表.tif");
  EXPECT_EQ(World().registry.Value(kRasterKey, "Latest")->bytes, "表.tif");
}

TEST_F(RasterMemoryTest, TheSavedFolderIsTheNextOnesStart) {
  RasterMemory memory = Used();
  EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/img/");
  EXPECT_EQ(Folder(), "D:/scan/");
  Remember(memory, "C:/img/", "E:\\b.tif");
  EXPECT_EQ(Folder(), "C:/img/");
  EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/img/");
  EXPECT_EQ(Folder(), "E:/");
}

TEST_F(RasterMemoryTest, TheLatestValueIsReadAnewEachTime) {
  RasterMemory memory = Used();
  PutLatest(std::string("F:\\other\\x\0rest", 14));
  EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/img/");
  EXPECT_EQ(Folder(), "F:/other/");
}

TEST_F(RasterMemoryTest, ALatestValueThatIsNoFolderIsPassedOver) {
  RasterMemory memory = Used();
  for (const std::string& bytes : {std::string("plain"), std::string(), std::string(514, '\\')}) {
    PutLatest(bytes);
    EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/img/");
    EXPECT_EQ(Folder(), "C:/img/");
  }
  PutLatest("D:\\scan\\", RegistryType::Binary);
  EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/img/");
  EXPECT_EQ(Folder(), "C:/img/");
}

TEST_F(RasterMemoryTest, AnUnreadableKeyIsPassedOver) {
  RasterMemory memory = Used();
  World().calls.FailNext("registry.Query");
  EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/img/");
  EXPECT_EQ(Folder(), "C:/img/");
  World().calls.FailNext("registry.Create");
  EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/img/");
  EXPECT_EQ(Folder(), "C:/img/");
}

TEST_F(RasterMemoryTest, AKeyThatCannotBeOpenedSavesNothing) {
  RasterMemory memory;
  World().calls.FailNext("registry.Create");
  Remember(memory, "C:/former/", "D:\\scan\\a.tif");
  EXPECT_EQ(Folder(), "C:/former/");
  PutLatest("D:\\scan\\");
  EXPECT_EQ(Recall(memory, "#RASTER#"), "C:/former/");
  EXPECT_EQ(Folder(), "C:/former/");  // the memory was not switched on
}

TEST_F(RasterMemoryTest, AllRequestsShareOneMemory) {
  EXPECT_EQ(&RasterMemory::OfProcess(), &RasterMemory::OfProcess());
}

}  // namespace
}  // namespace filsel
