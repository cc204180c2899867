// The demo's session file and sample files fit together: every kind has its folder, every file the header of its kind.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvncui.h"
#include "platform/suite/crvnmdl.h"

namespace {

namespace fs = std::filesystem;

const fs::path kDemo = DEMO_FOLDER;
/// Real names may hold characters that a test's file system does not know; each sample is read under this one.
constexpr char kSample[] = "C:\\SAMPLE";

std::string Bytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> FilesBelow(const std::string& folder, const std::string& extension) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(kDemo / "data" / folder)) {
    std::string found = entry.path().extension().string();
    std::transform(found.begin(), found.end(), found.begin(), [](unsigned char c) { return std::toupper(c); });
    if (entry.is_regular_file() && found == extension) files.push_back(entry.path());
  }
  return files;
}

class DemoData : public testing::Test {
 protected:
  void SetUp() override {
    os::scripted::World().Reset();
    CwSession::Reset();
    os::scripted::World().files.AddFile("C:\\demo.session", Bytes(kDemo / "corvane.session"));
    ASSERT_TRUE(CwSession::LoadFile("C:\\demo.session"));
  }
  void TearDown() override { CwSession::Reset(); }

  static void Put(const fs::path& file) { os::scripted::World().files.AddFile(kSample, Bytes(file)); }
  static const CwFileType* Kind(const std::string& keyword) {
    return CwSession::GetInstance()->GetActiveFileTypeSet()->GetFileType(keyword);
  }
};

TEST_F(DemoData, EveryLineOfTheSessionIsRead) {
  for (const CwUnreadableLine& line : CwSession::GetInstance()->GetUnreadableLines()) {
    ADD_FAILURE() << "line " << line.line << ": " << line.text;
  }
}

TEST_F(DemoData, EveryKindHasItsFolderAndDescription) {
  for (const char* keyword : {"#MODEL#", "#SUBMODEL#", "#PARTS:BIN#", "#PSET:BIN#", "#MACRO#", "#MASK:SAVE#", "#TEXT#",
                              "#CONSTANT#", "#ATRTABLE#", "#RASTER#", "#SXF:SFC#", "#SXF:P21#"}) {
    const CwFileType* kind = Kind(keyword);
    ASSERT_NE(kind, nullptr) << keyword;
    EXPECT_TRUE(fs::is_directory(kDemo / "data" / kind->GetFolder())) << keyword;
    EXPECT_FALSE(kind->GetDescription().empty()) << keyword;
  }
}

TEST_F(DemoData, TheModelDefinesTitlesToChooseFrom) {
  ASSERT_NE(GetActiveModel(), nullptr);
  CwModelTitleSet* titles = GetActiveModel()->GetModelTitleSet();
  for (const int number : {1, 2, 20, 201, 203, 204, 205, 206}) ASSERT_NE(titles->GetTitle(number), nullptr) << number;
  EXPECT_EQ(titles->GetTitle(207)->GetKindCode(), 30001);
  EXPECT_EQ(CwEucEncoder::Euc2Sjis(titles->GetTitle(1)->GetName(), 256), "図面名称");
}

TEST_F(DemoData, EveryModelIsReadBySomeoneWhoAsksForItsTitles) {
  const std::vector<fs::path> models = FilesBelow("MODEL", ".MDL");
  EXPECT_GE(models.size(), 40U);
  int named = 0;
  int unreadable = 0;
  for (const fs::path& model : models) {
    Put(model);
    const int number = 1;
    std::string title;
    if (GetFilTtl(std::string("C:/SAMPLE"), &number, 1, &title) != 0) ++unreadable;
    if (!title.empty()) ++named;
  }
  EXPECT_EQ(unreadable, 1);  // the empty file
  EXPECT_GE(named, static_cast<int>(models.size()) - 3);
}

TEST_F(DemoData, EveryFileOfATitledKindHasItsTitle) {
  struct Row {
    int titleClass;
    const char* keyword;
  };
  for (const Row row : {Row{2, "#PARTS:BIN#"},
                        {3, "#PSET:BIN#"},
                        {4, "#MACRO#"},
                        {5, "#MASK:SAVE#"},
                        {6, "#TEXT#"},
                        {7, "#CONSTANT#"},
                        {8, "#ATRTABLE#"}}) {
    int titled = 0;
    for (const fs::path& file : FilesBelow(Kind(row.keyword)->GetFolder(), Kind(row.keyword)->GetExtension())) {
      Put(file);
      std::string title;
      if (GetFilTtl(row.titleClass, "C:/SAMPLE", &title) == 0 && !title.empty()) ++titled;
    }
    EXPECT_GE(titled, 3) << row.keyword;
  }
}

TEST_F(DemoData, OneConstantFileOnlyLooksLikeOne) {
  int strangers = 0;
  for (const fs::path& file : FilesBelow("CONSTANT", ".CNS")) {
    Put(file);
    if (cnsver("C:/SAMPLE", nullptr) != 0) ++strangers;
  }
  EXPECT_EQ(strangers, 1);
}

TEST_F(DemoData, EverySampleHasADay) {
  std::ifstream dates(kDemo / "dates.tsv");
  std::string line;
  std::size_t count = 0;
  while (std::getline(dates, line)) {
    ASSERT_GT(line.size(), 20U);
    EXPECT_TRUE(fs::is_regular_file(kDemo / "data" / line.substr(20))) << line;
    ++count;
  }
  std::size_t files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(kDemo / "data")) files += entry.is_regular_file() ? 1U : 0U;
  EXPECT_EQ(count, files);
}

}  // namespace
