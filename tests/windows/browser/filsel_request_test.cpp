// The exported request with a staged browser: what it lends the browser, what it answers, what the caller reads.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/filsel/CvFilSelDlg.h"
#include "platform/framework/exceptions.h"
#include "platform/framework/resource_module.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/support/encodings.h"
#include "tests/windows/driver/user.h"

namespace {

using filedialog::StartUp;
using os::scripted::World;

using test_texts::Euc;

/// Has the staged browser answer with a choice.
void Choose(std::string_view choice, INT_PTR answer = IDOK) {
  StagedBrowser::Stage().whenRun = [choice = std::string(choice), answer](const StartUp& startUp) {
    std::memcpy(startUp.fileBuffer, choice.c_str(), choice.size() + 1);
    return answer;
  };
}

std::string First(CvFilSelDlg& request) {
  std::array<char, 257> out = {};
  request.GetFirstName(out.data());
  return out.data();
}

std::string Next(CvFilSelDlg& request) {
  std::array<char, 257> out = {};
  out.fill('x');
  request.GetNextName(out.data());
  return out.data();
}

class FilselRequestTest : public ::testing::Test {
 protected:
  void SetUp() override {
    World().Reset();
    World().AddDrive('C');
    CwSession::Reset();
    Kinds().AddFileType(CwFileType("#MODEL#", "C:/plant/model", "*.MDL", 0));
    Kinds().AddFileType(CwFileType("#RASTER#", "C:/img/", "", 0));
    StagedBrowser::Stage() = {};
    Choose("C:\\plant\\model\\表.MDL");
  }
  void TearDown() override {
    StagedBrowser::Stage() = {};
    CwSession::Reset();
  }

  static CwFileTypeSet& Kinds() { return *CwSession::GetInstance()->GetActiveFileTypeSet(); }
};

TEST_F(FilselRequestTest, HoldsOnePointerAndIsCopied) {
  EXPECT_EQ(sizeof(CvFilSelDlg), sizeof(void*));
  EXPECT_FALSE(std::is_polymorphic_v<CvFilSelDlg>);
  EXPECT_TRUE(std::is_copy_constructible_v<CvFilSelDlg>);
  EXPECT_TRUE(std::is_copy_assignable_v<CvFilSelDlg>);
}

TEST_F(FilselRequestTest, GivesTheChosenNameInItsForms) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "A-001", 0);
  EXPECT_EQ(request.DoModal(), IDOK);
  EXPECT_EQ(First(request), "C:\\plant\\model\\表.MDL");
  EXPECT_EQ(Next(request), "");
  EXPECT_EQ(request.GetName(), Euc("表").c_str());
  EXPECT_EQ(request.GetFullName(), Euc("C:/plant/model/表.MDL").c_str());
  EXPECT_EQ(request.GetActName(), "C:\\plant\\model\\表.MDL");
}

TEST_F(FilselRequestTest, LendsTheBrowserParentAndRecord) {
  CWnd parent;
  const std::string caption = Euc("モデルを開く");
  StartUp seen;
  std::string initial;
  StagedBrowser::Stage().whenRun = [&](const StartUp& startUp) {
    seen = startUp;
    initial = startUp.fileBuffer;
    return INT_PTR{IDCANCEL};
  };
  CvFilSelDlg request(&caption, &parent, "#MODEL#", "A-001", 2);
  EXPECT_EQ(request.DoModal(1), IDCANCEL);
  EXPECT_EQ(StagedBrowser::Stage().parent, &parent);
  EXPECT_EQ(seen.caption, "モデルを開く");
  EXPECT_EQ(seen.flags, 0x824U);
  EXPECT_TRUE(seen.folderFixed);
  EXPECT_EQ(initial, "A-001.MDL");
  EXPECT_EQ(request.DoModal(), IDCANCEL);
  EXPECT_FALSE(seen.folderFixed);
}

TEST_F(FilselRequestTest, TheLibrarysResourcesAreInForceWhileTheBrowserLives) {
  const HINSTANCE other = GetModuleHandleW(L"kernel32.dll");
  std::vector<HINSTANCE> seen;
  const auto look = [&seen] { seen.push_back(GetResourceModule()); };
  StagedBrowser::Stage().whenMade = look;
  StagedBrowser::Stage().whenDestroyed = look;
  StagedBrowser::Stage().whenRun = [&look](const StartUp&) {
    look();
    return INT_PTR{IDOK};
  };
  const ResourceModuleScope clients(other);
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", 0);
  EXPECT_EQ(request.DoModal(), IDOK);
  EXPECT_EQ(seen, (std::vector<HINSTANCE>{ThisModule(), ThisModule(), ThisModule()}));
  EXPECT_EQ(GetResourceModule(), other);
}

TEST_F(FilselRequestTest, ABrowserThatCannotBeMadeIsACancelledOne) {
  const HINSTANCE other = GetModuleHandleW(L"kernel32.dll");
  const ResourceModuleScope clients(other);
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "A.MDL", 0);
  StagedBrowser::Stage().whenMade = [] { throw CResourceException(); };
  EXPECT_EQ(request.DoModal(), IDCANCEL);
  StagedBrowser::Stage().whenMade = [] { throw std::bad_alloc(); };
  EXPECT_EQ(request.DoModal(), IDCANCEL);
  StagedBrowser::Stage().whenMade = nullptr;
  Choose("A.MDL", -1);
  EXPECT_EQ(request.DoModal(), IDCANCEL);
  EXPECT_EQ(GetResourceModule(), other);
  EXPECT_EQ(First(request), "A.MDL");
}

TEST_F(FilselRequestTest, BeforeTheFirstRunThereIsNoName) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "A.MDL", 0);
  EXPECT_EQ(First(request), "");
  EXPECT_EQ(Next(request), "");
  EXPECT_EQ(request.GetName(), "");
  EXPECT_EQ(request.GetFullName(), "");
  EXPECT_EQ(request.GetActName(), "");
}

TEST_F(FilselRequestTest, NamesNeverOverrunTheCallersBuffer) {
  Choose("C:\\" + std::string(100'000, 'a') + " b");
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", "");
  EXPECT_EQ(request.DoModal(), IDOK);
  std::array<char, 258> out = {};
  out.fill('#');
  request.GetFirstName(out.data());
  EXPECT_EQ(std::strlen(out.data()), 256U);
  EXPECT_EQ(out[257], '#');
  EXPECT_EQ(Next(request), "b");
  EXPECT_LE(request.GetActName().GetLength(), 256);
}

TEST_F(FilselRequestTest, CopiesOutliveTheOriginal) {
  Choose("C:\\a.MDL C:\\b.MDL");
  auto original = std::make_unique<CvFilSelDlg>(nullptr, nullptr, "#MODEL#", "", std::string());
  EXPECT_EQ(original->DoModal(), IDOK);
  EXPECT_EQ(First(*original), "C:\\a.MDL");
  CvFilSelDlg copy = *original;
  CvFilSelDlg assigned(nullptr, nullptr, "#TEXT#", "", 0);
  assigned = *original;
  original.reset();
  EXPECT_EQ(Next(copy), "C:\\b.MDL");
  EXPECT_EQ(Next(assigned), "C:\\b.MDL");
  const CvFilSelDlg& same = copy;
  copy = same;
  EXPECT_EQ(First(copy), "C:\\a.MDL");
}

TEST_F(FilselRequestTest, ConvertsInTheCallersBuffer) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", 0);
  std::array<char, 257> path = {};
  Euc("C:/図/表.mdl").copy(path.data(), path.size());
  request.RealPathName(path.data(), path.size());
  EXPECT_STREQ(path.data(), "C:\\図\\表.mdl");
  request.InternalPathName(path.data(), path.size());
  EXPECT_EQ(path.data(), Euc("C:/図/表.mdl"));
  request.ExceptDefaultName(nullptr);
  request.ToUpper(nullptr);
  request.RealPathName(nullptr, 257);
  request.InternalPathName(path.data(), 0);
  EXPECT_EQ(path.data(), Euc("C:/図/表.mdl"));
}

TEST_F(FilselRequestTest, ABufferWithoutATerminatorIsNotReadBeyondItsSize) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", 0);
  std::array<char, 8> path = {'a', '/', 'b', '/', 'c', '!', '!', '!'};
  request.RealPathName(path.data(), 5);
  EXPECT_STREQ(path.data(), "a\\b\\");
  EXPECT_EQ(path[5], '!');
  std::array<char, 4> kana = {'\xB1', '\xB2', '\0', '!'};  // half-width katakana takes two bytes in EUC-JP
  request.InternalPathName(kana.data(), 3);
  EXPECT_STREQ(kana.data(), "\x8E\xB1");
  EXPECT_EQ(kana[3], '!');
}

TEST_F(FilselRequestTest, TakesDefaultsOffInPlace) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", 0);
  std::array<char, 64> name = {"c:/PLANT/model/AbC.mdl"};
  request.ExceptDefaultName(name.data());
  EXPECT_STREQ(name.data(), "AbC");
  std::array<char, 8> text = {
      "aZ\x83\x61"
      "9"};
  request.ToUpper(text.data());
  EXPECT_STREQ(text.data(),
               "AZ\x83\x41"
               "9");
}

TEST_F(FilselRequestTest, AllRequestsOfTheProcessShareTheRasterFolder) {
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  Choose("D:\\scan\\a.tif");
  CvFilSelDlg first(nullptr, nullptr, "#RASTER#", "", 0);
  EXPECT_EQ(first.DoModal(), IDOK);
  std::string folder;
  StagedBrowser::Stage().whenRun = [&folder](const StartUp& startUp) {
    folder = startUp.initialFolder;
    return INT_PTR{IDCANCEL};
  };
  CvFilSelDlg second(nullptr, nullptr, "#RASTER#", "", 0);
  EXPECT_EQ(second.DoModal(), IDCANCEL);
  EXPECT_EQ(folder, "D:\\scan");
}

TEST_F(FilselRequestTest, AListFileThatCannotBeMadeIsToldToTheUser) {
  const HWND owner = CreateWindowExA(0, "STATIC", "所有者", WS_OVERLAPPED | WS_VISIBLE, 10, 10, 300, 200, nullptr,
                                     nullptr, nullptr, nullptr);
  const std::string caption = Euc("一覧の作成");
  CvFilSelDlg request(&caption, CWnd::FromHandle(owner), "#MODEL#", "", Euc("C:/無い/一覧.txt"));
  int answer = 0;
  driver::RunDialog([&] { answer = request.DoModal(); },
                    [&](driver::User& user) {
                      const driver::MessageBoxView box = user.WaitMessageBox();
                      EXPECT_EQ(box.caption, "一覧の作成");
                      EXPECT_EQ(box.text,
                                "C:\\無い\\一覧.txt\nファイルを開けません。\n名前が正しいか確認してください。");
                      EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
                      EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONHAND));
                      EXPECT_EQ(box.window.Owner().Handle(), owner);
                      user.Answer(box, IDOK);
                    });
  EXPECT_EQ(answer, 2);
  DestroyWindow(owner);
}

}  // namespace
