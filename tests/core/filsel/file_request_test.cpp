#include "dlglib/filsel/file_request.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "dlglib/filsel/list_file.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/support/encodings.h"

namespace filsel {
namespace {

using filedialog::StartUp;
using os::scripted::World;

using test_texts::Euc;

// A browser in which the user's choice is already made.
class FakeWindows final : public RequestWindows {
 public:
  int RunBrowser(const StartUp& startUp) override {
    ++runs;
    last = startUp;
    initialFile = startUp.fileBuffer;
    if (whileRunning) whileRunning();
    if (choice) *std::copy(choice->begin(), choice->end(), startUp.fileBuffer) = '\0';
    return answer;
  }
  void ShowRefusal(const SjisText& text) override { refusals.push_back(text.bytes()); }

  int answer = kAccepted;
  std::optional<std::string> choice;
  std::function<void()> whileRunning;
  int runs = 0;
  StartUp last;
  std::string initialFile;
  std::vector<std::string> refusals;
};

class FileRequestTest : public ::testing::Test {
 protected:
  void SetUp() override {
    World().Reset();
    World().AddDrive('C');
    World().files.AddFolder("C:\\out");
    CwSession::Reset();
    Add("#MODEL#", "C:/plant/model", "*.MDL");
    Add("#SUBMODEL#", "C:/plant/sub", "*.SUB");
    Add("#RASTER#", "C:/img/", "");
  }
  void TearDown() override {
    CwSession::Reset();
    EXPECT_EQ(World().registry.openHandles, 0);
  }

  static void Add(const std::string& keyword, const std::string& folder, const std::string& patterns) {
    CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType(keyword, folder, patterns, 0));
  }
  static FileRequest Request(const RequestTexts& texts, RequestMode mode, int openMode) {
    return {texts, mode, openMode, os::Services(), *CwSession::GetInstance()};
  }
  static FileRequest One(const std::string& keyword, const std::string& initialName, int openMode = 0) {
    return Request({{}, EucView(keyword), EucView(initialName), {}}, RequestMode::OneFile, openMode);
  }
  static FileRequest List(const std::string& keyword, const std::string& listFilePath) {
    return Request({{}, EucView(keyword), {}, EucView(listFilePath)}, RequestMode::FileList, 0);
  }
  int Run(FileRequest& request, int option = 0) { return request.Run(option, windows_, memory_); }
  int Choose(FileRequest& request, const std::string& choice) {
    windows_.choice = choice;
    return Run(request);
  }
  static std::string FileText(const std::string& path) {
    const auto* node = World().files.Find(path);
    return node != nullptr ? node->bytes : "(none)";
  }

  FakeWindows windows_;
  RasterMemory memory_;
};

// ---- what the browser is given

TEST_F(FileRequestTest, TheBrowserGetsTheStartUpRecord) {
  FileRequest request = One("#MODEL#", Euc("D:/図面/表.mdl"));
  EXPECT_EQ(Run(request), 1);
  EXPECT_EQ(windows_.last.capacity, 256'000U);
  EXPECT_EQ(windows_.last.title, "#MODEL#(*.MDL)");
  EXPECT_EQ(windows_.last.initialFolder, "D:\\図面");
  EXPECT_EQ(windows_.last.description, "");
  EXPECT_EQ(windows_.last.caption, "ファイルの選択");
  EXPECT_EQ(windows_.last.kindCode, 1);
  EXPECT_EQ(windows_.last.listStyle, filedialog::kListSingle);
  EXPECT_FALSE(windows_.last.folderFixed);
  EXPECT_EQ(windows_.initialFile, "表.mdl");
}

TEST_F(FileRequestTest, TheOpenModeChoosesTheFlags) {
  const std::vector<std::pair<int, std::uint32_t>> rows = {
      {0, 0x1004}, {1, 0x804}, {2, 0x824}, {3, 0x804}, {-1, 0x804}};
  for (const auto& [openMode, flags] : rows) {
    FileRequest request = One("#MODEL#", "A", openMode);
    Run(request);
    EXPECT_EQ(windows_.last.flags, flags) << openMode;
  }
}

TEST_F(FileRequestTest, AListIsOpenedWithMultipleSelection) {
  FileRequest request = List("#SUBMODEL#", "");
  EXPECT_EQ(Run(request), 1);
  EXPECT_EQ(windows_.last.flags, 0x1004U);
  EXPECT_EQ(windows_.last.listStyle, filedialog::kListMultiple);
  EXPECT_EQ(windows_.last.kindCode, 1);
  EXPECT_EQ(windows_.last.title, "#SUBMODEL#(*.SUB)");
}

TEST_F(FileRequestTest, AnyOptionButZeroFixesTheFolder) {
  FileRequest request = One("#MODEL#", "A");
  for (const int option : {1, -1, 2}) {
    Run(request, option);
    EXPECT_TRUE(windows_.last.folderFixed);
  }
  Run(request, 0);
  EXPECT_FALSE(windows_.last.folderFixed);
}

TEST_F(FileRequestTest, TheCaptionIsConverted) {
  const std::string caption = Euc("モデルを開く");
  FileRequest request = Request({EucView(caption), EucView("#MODEL#"), {}, {}}, RequestMode::OneFile, 0);
  EXPECT_EQ(request.caption().bytes(), "モデルを開く");
  Run(request);
  EXPECT_EQ(windows_.last.caption, "モデルを開く");
  const FileRequest none = Request({EucView(), EucView("#MODEL#"), {}, {}}, RequestMode::OneFile, 0);
  EXPECT_TRUE(none.caption().empty());
}

TEST_F(FileRequestTest, LongTextsAreCutAtACharacter) {
  const std::string text =
      "x" + Euc(std::string(1, 'y')) + std::string(253, 'z') + Euc("表") + std::string(99'000, 'w');
  const EucView all(text);
  const FileRequest request = Request({all, all, all, all}, RequestMode::FileList, 0);
  EXPECT_EQ(request.caption().bytes(), "xy" + std::string(253, 'z'));
  EXPECT_EQ(request.keyword().bytes(), "xy" + std::string(253, 'z'));
}

TEST_F(FileRequestTest, TextsEndAtAZeroByte) {
  const std::string text("#MODEL#\0rest", 12);
  const EucView all(text);
  const FileRequest request = Request({all, all, all, all}, RequestMode::FileList, 0);
  EXPECT_EQ(request.caption().bytes(), "#MODEL#");
  EXPECT_EQ(request.keyword().bytes(), "#MODEL#");
}

TEST_F(FileRequestTest, HugeInputIsHarmless) {
  for (const std::string& text : {std::string(100'000, 'a'), std::string(100'000, '\x95'), std::string(100'000, '\x8F'),
                                  std::string(100'000, '/'), std::string(100'000, ' ')}) {
    const EucView all(text);
    FileRequest request = Request({all, all, all, all}, RequestMode::FileList, 0);
    windows_.choice = text;
    EXPECT_TRUE(Run(request) == 1 || !windows_.refusals.empty());
    EXPECT_LE(request.FirstName().size(), 256U);
    EXPECT_LE(request.Name().size(), 256U);
    EXPECT_LE(request.FullInternalName().size(), 256U);
    EXPECT_LE(request.FullRealName().size(), 256U);
  }
}

// ---- answers

TEST_F(FileRequestTest, AnyAnswerButOkIsPassedOnAndNothingElseHappens) {
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  for (const int answer : {2, 0, -1, 7}) {
    windows_.answer = answer;
    FileRequest list = List("#MODEL#", "C:/out/list.txt");
    EXPECT_EQ(Run(list), answer);
    FileRequest raster = One("#RASTER#", "a.tif");
    EXPECT_EQ(Run(raster), answer);
  }
  EXPECT_EQ(FileText("C:\\out\\list.txt"), "(none)");
  EXPECT_EQ(World().calls.Count("registry.Set"), 0U);
}

TEST_F(FileRequestTest, ACancelledRunKeepsTheInitialName) {
  windows_.answer = 2;
  FileRequest request = One("#MODEL#", Euc("C:/plant/model/表.MDL"));
  EXPECT_EQ(Run(request), 2);
  EXPECT_EQ(request.FirstName().bytes(), "表.MDL");
}

TEST_F(FileRequestTest, ABrowserThatThrowsLeavesTheRequestUsable) {
  windows_.whileRunning = [] { throw std::runtime_error("no resource"); };
  FileRequest request = One("#MODEL#", "A.MDL");
  EXPECT_THROW(Run(request), std::runtime_error);
  EXPECT_EQ(request.FirstName().bytes(), "A.MDL");
  windows_.whileRunning = nullptr;
  EXPECT_EQ(Choose(request, "C:\\b.MDL"), 1);
  EXPECT_EQ(request.FirstName().bytes(), "C:\\b.MDL");
}

TEST_F(FileRequestTest, ASecondRunStartsFromTheFilePartOfTheFirst) {
  FileRequest request = One("#MODEL#", "D:/far/A.MDL");
  Run(request);
  EXPECT_EQ(windows_.last.initialFolder, "D:\\far");
  Run(request);
  EXPECT_EQ(windows_.last.initialFolder, "C:\\plant\\model");
  EXPECT_EQ(windows_.initialFile, "A.MDL");
}

TEST_F(FileRequestTest, ARequestRunFromWithinItsOwnRunLeavesTheBufferAlive) {
  FileRequest request = One("#MODEL#", "A.MDL");
  windows_.choice = "C:\\outer.MDL";
  FakeWindows inner;
  inner.choice = "C:\\inner.MDL";
  windows_.whileRunning = [&] { EXPECT_EQ(request.Run(0, inner, memory_), 1); };
  EXPECT_EQ(Run(request), 1);
  EXPECT_EQ(inner.runs, 1);
}

// ---- reading the choice

TEST_F(FileRequestTest, BeforeTheFirstRunAllNamesAreEmpty) {
  FileRequest request = One("#MODEL#", "A.MDL");
  EXPECT_EQ(request.FirstName().bytes(), "");
  EXPECT_EQ(request.NextName().bytes(), "");
  EXPECT_EQ(request.Name().bytes(), "");
  EXPECT_EQ(request.FullInternalName().bytes(), "");
  EXPECT_EQ(request.FullRealName().bytes(), "");
}

TEST_F(FileRequestTest, TheNameInItsThreeForms) {
  FileRequest request = One("#MODEL#", "");
  Choose(request, "C:\\plant\\model\\表1.MDL");
  EXPECT_EQ(request.FirstName().bytes(), "C:\\plant\\model\\表1.MDL");
  EXPECT_EQ(request.NextName().bytes(), "");
  EXPECT_EQ(request.Name().bytes(), Euc("表1"));
  EXPECT_EQ(request.FullInternalName().bytes(), Euc("C:/plant/model/表1.MDL"));
  EXPECT_EQ(request.FullRealName().bytes(), "C:\\plant\\model\\表1.MDL");
}

TEST_F(FileRequestTest, ABareChoiceIsCompleted) {
  FileRequest request = One("#MODEL#", "");
  Choose(request, "a1");
  EXPECT_EQ(request.Name().bytes(), "a1");
  EXPECT_EQ(request.FullInternalName().bytes(), "C:/plant/model/a1.MDL");
  EXPECT_EQ(request.FullRealName().bytes(), "C:\\plant\\model\\a1.MDL");
}

TEST_F(FileRequestTest, ANameInAnotherFolderKeepsItsFolder) {
  FileRequest request = One("#MODEL#", "");
  Choose(request, "D:\\my files\\b.mdl");
  EXPECT_EQ(request.FirstName().bytes(), "D:\\my files\\b.mdl");
  EXPECT_EQ(request.Name().bytes(), "D:/my files/b");
  Choose(request, "D:\\b.txt");
  EXPECT_EQ(request.Name().bytes(), "D:/b.txt");
}

TEST_F(FileRequestTest, ANameTooLongToCompleteStaysAsItIs) {
  Add("#FAR#", "C:/" + std::string(249, 'f'), "*.F");
  FileRequest request = One("#FAR#", "");
  Choose(request, "ab");
  EXPECT_EQ(request.FullInternalName().bytes(), "ab");
  EXPECT_EQ(request.Name().bytes(), "ab");
  Choose(request, "a");
  EXPECT_EQ(request.FullInternalName().size(), 256U);
  EXPECT_EQ(request.Name().bytes(), "a");
}

TEST_F(FileRequestTest, AChosenNameThatIsTooLongIsCutAtACharacter) {
  FileRequest request = One("#MODEL#", "");
  Choose(request, "C:\\" + std::string(252, 'a') + "表.MDL");
  EXPECT_EQ(request.FirstName().bytes(), "C:\\" + std::string(252, 'a'));
}

TEST_F(FileRequestTest, AListIsWalkedNameByName) {
  FileRequest request = List("#MODEL#", "");
  EXPECT_EQ(Choose(request, "C:\\a.MDL C:\\表.MDL C:\\my c.MDL"), 1);
  EXPECT_EQ(request.FirstName().bytes(), "C:\\a.MDL");
  EXPECT_EQ(request.NextName().bytes(), "C:\\表.MDL");
  EXPECT_EQ(request.NextName().bytes(), "C:\\my");
  EXPECT_EQ(request.NextName().bytes(), "c.MDL");
  EXPECT_EQ(request.NextName().bytes(), "");
  EXPECT_EQ(request.NextName().bytes(), "");
  EXPECT_EQ(request.FullRealName().bytes(), "C:\\a.MDL");
}

TEST_F(FileRequestTest, TheChosenFilesAreWhole) {
  FileRequest request = List("#MODEL#", "");
  EXPECT_TRUE(request.Chosen().empty());
  EXPECT_EQ(Choose(request, "C:\\plant\\model\\a b.MDL D:\\表\\c"), 1);
  const std::vector<ChosenFile> files = request.Chosen();
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[0].real.bytes(), "C:\\plant\\model\\a b.MDL");
  EXPECT_EQ(files[0].internal.bytes(), "C:/plant/model/a b.MDL");
  EXPECT_EQ(files[0].shortName.bytes(), "a b");
  EXPECT_EQ(files[1].real.bytes(), "D:\\表\\c.MDL");
  EXPECT_EQ(files[1].internal.bytes(), Euc("D:/表/c.MDL"));
  EXPECT_EQ(files[1].shortName.bytes(), Euc("D:/表/c"));

  FileRequest one = One("#MODEL#", "");
  EXPECT_TRUE(one.Chosen().empty());
  const std::string longPath = "D:\\x C:\\" + std::string(300, 'b');
  EXPECT_EQ(Choose(one, longPath), 1);
  ASSERT_EQ(one.Chosen().size(), 1U);
  EXPECT_EQ(one.Chosen().front().real.bytes(), longPath);
}

TEST_F(FileRequestTest, AWalkDoesNotGoOnIntoTheNextRun) {
  FileRequest request = List("#MODEL#", "");
  Choose(request, "C:\\a.MDL C:\\b.MDL");
  EXPECT_EQ(request.FirstName().bytes(), "C:\\a.MDL");
  Choose(request, "C:\\c.MDL C:\\d.MDL");
  EXPECT_EQ(request.NextName().bytes(), "");
}

// ---- copies

TEST_F(FileRequestTest, ACopySharesTheChoiceAndOutlivesTheOriginal) {
  auto request = std::make_unique<FileRequest>(List("#MODEL#", ""));
  Choose(*request, "C:\\a.MDL C:\\b.MDL");
  EXPECT_EQ(request->FirstName().bytes(), "C:\\a.MDL");
  FileRequest copy = *request;
  EXPECT_EQ(request->NextName().bytes(), "C:\\b.MDL");
  request.reset();
  EXPECT_EQ(copy.NextName().bytes(), "C:\\b.MDL");
  EXPECT_EQ(copy.FirstName().bytes(), "C:\\a.MDL");
}

TEST_F(FileRequestTest, ACopyKeepsTheChoiceWhenTheOriginalIsRunAgain) {
  FileRequest request = One("#MODEL#", "");
  Choose(request, "C:\\a.MDL");
  FileRequest copy = request;
  Choose(request, "C:\\b.MDL");
  EXPECT_EQ(copy.FirstName().bytes(), "C:\\a.MDL");
  EXPECT_EQ(request.FirstName().bytes(), "C:\\b.MDL");
  copy = request;
  EXPECT_EQ(copy.FirstName().bytes(), "C:\\b.MDL");
}

TEST_F(FileRequestTest, AssigningARequestToItselfChangesNothing) {
  FileRequest request = One("#MODEL#", "");
  Choose(request, "C:\\a.MDL");
  const FileRequest& same = request;
  request = same;
  EXPECT_EQ(request.FirstName().bytes(), "C:\\a.MDL");
  EXPECT_EQ(request.keyword().bytes(), "#MODEL#");
}

// ---- list file

TEST_F(FileRequestTest, TheListFileHoldsTheShortNames) {
  FileRequest request = List("#MODEL#", "C:/out/list.txt");
  EXPECT_EQ(Choose(request, "C:\\plant\\model\\a.MDL C:\\plant\\model\\表.mdl D:\\c.MDL D:\\d.txt"), 1);
  EXPECT_EQ(FileText("C:\\out\\list.txt"), Euc("a\r\n表\r\nD:/c\r\nD:/d.txt\r\n"));
  EXPECT_TRUE(windows_.refusals.empty());
}

TEST_F(FileRequestTest, AListFileThatExistsIsMadeAnew) {
  World().files.AddFile("C:\\out\\一覧.txt", "a longer text that was there before");
  FileRequest request = List("#MODEL#", Euc("C:/out/一覧.txt"));
  EXPECT_EQ(Choose(request, "C:\\plant\\model\\a.MDL"), 1);
  EXPECT_EQ(FileText("C:\\out\\一覧.txt"), "a\r\n");
  EXPECT_EQ(World().calls.Count("files.Remove"), 1U);
}

TEST_F(FileRequestTest, WithoutAListFilePathNothingIsWritten) {
  FileRequest request = List("#MODEL#", "");
  EXPECT_EQ(Choose(request, "C:\\a.MDL"), 1);
  EXPECT_EQ(World().calls.Count("files.CreateText"), 0U);
}

TEST_F(FileRequestTest, AnEmptyChoiceWritesAnEmptyListFile) {
  FileRequest request = List("#MODEL#", "C:/out/list.txt");
  EXPECT_EQ(Choose(request, ""), 1);
  EXPECT_EQ(FileText("C:\\out\\list.txt"), "");
}

TEST_F(FileRequestTest, AListFileThatCannotBeMadeIsRefused) {
  FileRequest request = List("#MODEL#", Euc("C:/無い/list.txt"));
  EXPECT_EQ(Choose(request, "C:\\a.MDL"), kListNotWritten);
  EXPECT_EQ(windows_.refusals, std::vector<std::string>{"C:\\無い\\list.txt\nファイルを開けません。"
                                                        "\n名前が正しいか確認してください。"});
  EXPECT_EQ(request.FirstName().bytes(), "C:\\a.MDL");
}

TEST_F(FileRequestTest, ThePathIsConvertedAnewForEachRun) {
  FileRequest request = List("#MODEL#", Euc("C:/out/表.txt"));
  EXPECT_EQ(Choose(request, "C:\\plant\\model\\a.MDL"), 1);
  EXPECT_EQ(Choose(request, "C:\\plant\\model\\b.MDL"), 1);
  EXPECT_EQ(FileText("C:\\out\\表.txt"), "b\r\n");
}

TEST_F(FileRequestTest, AListFileThatCannotBeWrittenIsNotLeftBehind) {
  for (const std::string& call : {std::string("files.Write"), std::string("files.Close")}) {
    windows_.refusals.clear();
    World().calls.FailNext(call);
    FileRequest request = List("#MODEL#", "C:/out/list.txt");
    EXPECT_EQ(Choose(request, "C:\\a.MDL C:\\b.MDL"), kListNotWritten) << call;
    EXPECT_EQ(windows_.refusals.size(), 1U);
    EXPECT_EQ(FileText("C:\\out\\list.txt"), "(none)");
  }
}

TEST_F(FileRequestTest, AFolderInThePlaceOfTheListFileIsLeftAlone) {
  World().files.AddFolder("C:\\out\\list.txt");
  World().files.AddFile("C:\\out\\list.txt\\keep.txt", "kept");
  FileRequest request = List("#MODEL#", "C:/out/list.txt");
  EXPECT_EQ(Choose(request, "C:\\a.MDL"), kListNotWritten);
  EXPECT_EQ(FileText("C:\\out\\list.txt\\keep.txt"), "kept");
}

// ---- raster folder

TEST_F(FileRequestTest, TheRasterFolderIsRememberedAfterOk) {
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  FileRequest request = One("#RASTER#", "");
  EXPECT_EQ(Choose(request, "D:\\scan\\a.tif"), 1);
  EXPECT_EQ(windows_.last.initialFolder, "C:\\img");
  EXPECT_EQ(windows_.last.kindCode, 0);
  EXPECT_EQ(Run(request), 1);
  EXPECT_EQ(windows_.last.initialFolder, "D:\\scan");
}

TEST_F(FileRequestTest, ACancelledRunLeavesTheRememberedFolderInForce) {
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  FileRequest request = One("#RASTER#", "");
  Choose(request, "D:\\scan\\a.tif");
  windows_.answer = 2;
  EXPECT_EQ(Run(request), 2);
  EXPECT_EQ(CwSession::GetInstance()->GetActiveFileTypeSet()->GetFileType("#RASTER#")->GetFolder(), "D:/scan/");
}

TEST_F(FileRequestTest, AListOfRasterFilesLeavesTheMemoryAlone) {
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  FileRequest request = List("#RASTER#", "");
  EXPECT_EQ(Choose(request, "D:\\scan\\a.tif"), 1);
  EXPECT_EQ(World().calls.Count("registry.Create"), 0U);
}

TEST_F(FileRequestTest, WithoutTheParameterNothingIsRemembered) {
  FileRequest request = One("#RASTER#", "");
  EXPECT_EQ(Choose(request, "D:\\scan\\a.tif"), 1);
  EXPECT_EQ(Run(request), 1);
  EXPECT_EQ(windows_.last.initialFolder, "C:\\img");
  EXPECT_EQ(World().calls.Count("registry.Create"), 0U);
}

TEST_F(FileRequestTest, AnyServiceCallThatFailsLeavesAnAnswer) {
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  std::size_t step = 0;
  do {
    World().calls.FailNumber(++step);
    FileRequest list = List("#MODEL#", "C:/out/list.txt");
    FileRequest raster = One("#RASTER#", "");
    const int answer = Choose(list, "C:\\a.MDL C:\\b.MDL");
    EXPECT_TRUE(answer == 1 || answer == kListNotWritten);
    EXPECT_EQ(answer == kListNotWritten, !windows_.refusals.empty());
    EXPECT_EQ(Choose(raster, "D:\\scan\\a.tif"), 1);
    windows_.refusals.clear();
  } while (!World().calls.FaultPending());
  EXPECT_GT(step, 5U);
}

}  // namespace
}  // namespace filsel
