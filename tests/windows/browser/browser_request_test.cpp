// The two ways into the file browser, with the real browser behind them: the request and the dialog utility.
#include <array>
#include <string>
#include <vector>

#include "dlglib/filsel/CvFilSelDlg.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/CvUtility.h"
#include "platform/framework/framework.h"
#include "platform/framework/resource_module.h"
#include "tests/support/encodings.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/toolbox/utility_host.h"

namespace browser_test {
namespace {

using driver::User;

using test_texts::Euc;

std::string First(CvFilSelDlg& request) {
  std::array<char, 257> out = {};
  request.GetFirstName(out.data());
  return out.data();
}

std::string Next(CvFilSelDlg& request) {
  std::array<char, 257> out = {};
  request.GetNextName(out.data());
  return out.data();
}

/// Runs something that shows a browser with that caption; a browser that the script leaves open is cancelled.
template <class Show, class Script>
int RunShown(const std::string& caption, const Show& show, const Script& script) {
  int answer = 0;
  driver::RunDialog([&] { answer = show(); },
                    [&](User& user) {
                      Browser browser(user, caption);
                      script(browser);
                      if (browser.IsOpen()) browser.Cancel();
                    });
  return answer;
}

class RequestTest : public BrowserTest {
 protected:
  template <class Script>
  int Show(CvFilSelDlg& request, const Script& script, int option = 0) {
    return RunShown(
        "ファイルの選択", [&] { return request.DoModal(option); }, script);
  }
};

TEST_F(RequestTest, GivesTheChosenFileInItsForms) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", Euc("表"), 0);
  EXPECT_EQ(Show(request,
                 [](Browser& browser) {
                   EXPECT_EQ(browser.Name(), "表.MDL");
                   EXPECT_EQ(browser.Rows().front(), "old");
                   EXPECT_EQ(browser.Window().Child(IDC_FILE_KIND).Items(), Texts{"#MODEL#(*.MDL) "});
                   browser.OpenRow("A-001.MDL");
                 }),
            IDOK);
  EXPECT_EQ(First(request), "C:\\data\\A-001.MDL");
  EXPECT_EQ(Next(request), "");
  EXPECT_EQ(request.GetName(), "A-001");
  EXPECT_EQ(request.GetFullName(), "C:/data/A-001.MDL");
  EXPECT_EQ(request.GetActName(), "C:\\data\\A-001.MDL");
}

TEST_F(RequestTest, AFileBelowTheFolderOfTheKindKeepsTheWayToIt) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", 0);
  EXPECT_EQ(Show(request,
                 [](Browser& browser) {
                   browser.OpenRow("表示");
                   browser.OpenRow("図.mdl");
                 }),
            IDOK);
  EXPECT_EQ(std::string(request.GetName().GetString()), Euc("表示/図"));
  EXPECT_EQ(std::string(request.GetFullName().GetString()), Euc("C:/data/表示/図.mdl"));
  EXPECT_EQ(request.GetActName(), "C:\\data\\表示\\図.mdl");
}

TEST_F(RequestTest, TheInitialNameMayBringItsFolder) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "C:/data/Sub/inner", 0);
  EXPECT_EQ(Show(request,
                 [](Browser& browser) {
                   EXPECT_EQ(browser.Name(), "inner.MDL");
                   EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
                   browser.Ok();
                 }),
            IDOK);
  EXPECT_EQ(First(request), "C:\\data\\Sub\\inner.MDL");
  EXPECT_EQ(Show(request,
                 [](Browser& browser) {
                   EXPECT_EQ(browser.Name(), "inner.MDL");
                   EXPECT_EQ(browser.Trail(), Texts{"data"}) << "a further run knows the name only";
                 }),
            IDCANCEL);
  EXPECT_EQ(First(request), "inner.MDL");
}

TEST_F(RequestTest, AKindsFolderWithoutADriveIsOneOfTheCurrentDrive) {
  World().files.AddFile("D:\\DATA\\MDL\\ABC.MDL");
  World().files.currentFolder = "D:\\仕事";
  Kinds().AddFileType(CwFileType("#MODEL#", "/DATA/MDL/", "*.MDL", 0));
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "new", 0);
  EXPECT_EQ(Show(request,
                 [](Browser& browser) {
                   EXPECT_EQ(browser.Trail(), (Texts{"DATA", "MDL"}));
                   EXPECT_EQ(browser.Name(), "new.MDL");
                   browser.OpenRow("ABC.MDL");
                 }),
            IDOK);
  EXPECT_EQ(request.GetName(), "ABC");
  EXPECT_EQ(request.GetFullName(), "D:/DATA/MDL/ABC.MDL");
  EXPECT_EQ(request.GetActName(), "D:\\DATA\\MDL\\ABC.MDL");
}

TEST_F(RequestTest, AListHasTheNamesInAFolderWithoutADriveToo) {
  World().files.AddFile("D:\\DATA\\MDL\\ABC.MDL");
  World().files.AddFile("D:\\DATA\\MDL\\表.MDL");
  World().files.currentFolder = "D:\\";
  Kinds().AddFileType(CwFileType("#MODEL#", "/DATA/MDL/", "*.MDL", 0));
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", std::string("C:/data/list.txt"));
  EXPECT_EQ(Show(request,
                 [](Browser& browser) {
                   browser.ClickRow("ABC.MDL");
                   browser.ClickRow("表.MDL", {VK_SHIFT});
                   browser.Ok();
                 }),
            IDOK);
  EXPECT_EQ(World().files.Find("C:\\data\\list.txt")->bytes, "ABC\r\n" + Euc("表") + "\r\n");
}

// AD F0 is shown as the character of A2 E2, and comes back from a window as that one.
TEST_F(RequestTest, AnInitialNameThatIsNotTouchedKeepsItsBytes) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "C:/data/\xAD\xF0", 1);
  EXPECT_EQ(Show(request, [](Browser& browser) { browser.Ok(); }), IDOK);
  EXPECT_EQ(std::string(request.GetFullName().GetString()), "C:/data/\xAD\xF0.MDL");
}

TEST_F(RequestTest, TheButtonsTellTheOpenMode) {
  const std::vector<std::pair<std::string, std::string>> texts = {
      {"開く", "取消"}, {"保存", "取消"}, {"ＯＫ", "キャンセル"}, {"保存", "取消"}};
  for (int mode = 0; mode < 4; ++mode) {
    CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "new", mode);
    const int answer = Show(request, [&texts, mode](Browser& browser) {
      EXPECT_EQ(browser.Window().Child(IDOK).Text(), texts[static_cast<std::size_t>(mode)].first);
      EXPECT_EQ(browser.Window().Child(IDCANCEL).Text(), texts[static_cast<std::size_t>(mode)].second);
      browser.Ok();
      if (mode != 0) return;
      browser.Person().Answer(browser.Person().WaitMessageBox(), IDOK);
    });
    EXPECT_EQ(answer, mode == 0 ? IDCANCEL : IDOK) << mode;
    EXPECT_EQ(First(request), mode == 0 ? "new.MDL" : "C:\\data\\new.MDL") << mode;
  }
}

TEST_F(RequestTest, AnOptionFixesTheFolder) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", 0);
  EXPECT_EQ(Show(
                request,
                [](Browser& browser) {
                  EXPECT_FALSE(browser.LocationBar().IsEnabled());
                  EXPECT_EQ(browser.Rows().front(), "a.mdl");
                  browser.OpenRow("a.mdl");
                },
                1),
            IDOK);
  EXPECT_EQ(SavedRecentFiles(), Texts{"a.mdl"});
}

TEST_F(RequestTest, TheCaptionComesInTheStoredEncoding) {
  const std::string caption = Euc("表を開く");
  CvFilSelDlg request(&caption, nullptr, "#MODEL#", "", 0);
  EXPECT_EQ(RunShown(
                "表を開く", [&] { return request.DoModal(); }, [](Browser&) {}),
            IDCANCEL);
}

TEST_F(RequestTest, SeveralFilesAreWrittenToTheListFile) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", std::string("C:/data/list.txt"));
  World().files.AddFile("C:\\data\\list.txt", "old contents");
  EXPECT_EQ(Show(request,
                 [](Browser& browser) {
                   browser.ClickRow("a.mdl");
                   browser.ClickRow("b.mdl", {VK_SHIFT});
                   browser.ClickRow("表.mdl", {VK_CONTROL});
                   browser.Ok();
                 }),
            IDOK);
  EXPECT_EQ(World().files.Find("C:\\data\\list.txt")->bytes, "a\r\nA-001\r\nb\r\n" + Euc("表") + "\r\n");
  EXPECT_EQ(First(request), "C:\\data\\a.mdl");
  EXPECT_EQ(Next(request), "C:\\data\\A-001.MDL");
  EXPECT_EQ(Next(request), "C:\\data\\b.mdl");
  EXPECT_EQ(Next(request), "C:\\data\\表.mdl");
  EXPECT_EQ(Next(request), "");
}

TEST_F(RequestTest, ANameWithABlankCountsAsTwo) {
  World().files.AddFile("C:\\data\\two words.mdl");
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", std::string("C:/data/list.txt"));
  EXPECT_EQ(Show(request, [](Browser& browser) { browser.OpenRow("two words.mdl"); }), IDOK);
  EXPECT_EQ(World().files.Find("C:\\data\\list.txt")->bytes, "two\r\nwords\r\n");
  EXPECT_EQ(First(request), "C:\\data\\two");
  EXPECT_EQ(Next(request), "words.mdl");
  EXPECT_EQ(Next(request), "");
}

TEST_F(RequestTest, ACancelledListLeavesItsFileAlone) {
  World().files.AddFile("C:\\data\\list.txt", "old contents");
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "A-001", std::string("C:/data/list.txt"));
  EXPECT_EQ(Show(request, [](Browser& browser) { browser.ClickRow("a.mdl"); }), IDCANCEL);
  EXPECT_EQ(World().files.Find("C:\\data\\list.txt")->bytes, "old contents");
  EXPECT_EQ(First(request), "A-001.MDL");
}

TEST_F(RequestTest, AListIsAsLongAsTheResultBufferAllows) {
  constexpr std::size_t kNameBytes = 120;
  constexpr int kFitting = 256'000 / (8 + kNameBytes + 1);  // folder, name and a blank or the terminator
  const auto addFile = [](int number) {
    const std::string digits = std::to_string(10'000 + number);
    World().files.AddFile("C:\\many\\" + digits + std::string(kNameBytes - digits.size() - 4, 'n') + ".mdl");
  };
  const auto chooseAll = [](Browser& browser) {
    browser.Person().Key(VK_HOME);
    browser.Person().Key(VK_END, {VK_SHIFT});
    browser.Ok();
    browser.Person().WaitGone(browser.Window());
  };
  for (int number = 0; number < kFitting; ++number) addFile(number);
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "C:/many/", std::string());
  EXPECT_EQ(Show(request, chooseAll), IDOK);
  int count = First(request).empty() ? 0 : 1;
  while (!Next(request).empty()) ++count;
  EXPECT_EQ(count, kFitting);
  addFile(kFitting);
  CvFilSelDlg longer(nullptr, nullptr, "#MODEL#", "C:/many/", std::string());
  EXPECT_EQ(Show(longer, chooseAll), IDCANCEL);
}

TEST_F(RequestTest, EachKindListsItsFiles) {
  const std::vector<std::pair<std::string, std::string>> files = {{"good.con", "CORVANE CONST 1\nEND\n"},
                                                                  {"bad.con", "CORVANE MODEL 1\nEND\n"},
                                                                  {"good.atr", "CORVANE ATTR 1\nEND\n"},
                                                                  {"bad.atr", ""},
                                                                  {"one.sfc", ""},
                                                                  {"two.P21", ""},
                                                                  {"three.x", ""},
                                                                  {"四.図面", ""}};
  for (const auto& [name, bytes] : files) World().files.AddFile("C:\\kinds\\" + name, bytes);
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  struct Kind {
    const char* keyword;
    const char* pattern;
    const char* line;
    Texts rows;
  };
  const std::vector<Kind> kinds = {{"#CONSTANT#", "*.CON", "#CONSTANT#(*.CON) ", {"good.con"}},
                                   {"#ATRTABLE#", "*.ATR", "#ATRTABLE#(*.ATR) ", {"good.atr"}},
                                   {"#SXF:SFC#", "*", "#SXF:xxx#(*.SFC,*.P21) SXFファイル", {"one.sfc", "two.P21"}},
                                   {"#SXF:P21#", "*", "#SXF:xxx#(*.SFC,*.P21) SXFファイル", {"one.sfc", "two.P21"}},
                                   {"#TEXT#", "*.X", "#TEXT#(*.X) ", {"three.x"}},
                                   {"#DRAWING#", "*.図面", "#DRAWING#(*.図面) ", {"四.図面"}}};
  for (const Kind& kind : kinds) {
    Kinds().AddFileType(CwFileType(kind.keyword, "C:/kinds", Euc(kind.pattern), 0));
    CvFilSelDlg request(nullptr, nullptr, kind.keyword, "", 0);
    Show(request, [&kind](Browser& browser) {
      EXPECT_EQ(browser.Rows(), kind.rows) << kind.keyword;
      EXPECT_EQ(browser.Window().Child(IDC_FILE_KIND).Items(), Texts{kind.line});
    });
  }
}

TEST_F(RequestTest, AnUnknownKindOpensTheFolderOfTheName) {
  CvFilSelDlg request(nullptr, nullptr, "#NONE#", "C:/data/other.txt", 0);
  EXPECT_EQ(Show(request,
                 [](Browser& browser) {
                   EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "other.txt"}));
                   EXPECT_EQ(browser.Window().Child(IDC_FILE_KIND).Items(), Texts{"#NONE#(*.txt) "});
                   browser.Ok();
                 }),
            IDOK);
  EXPECT_EQ(request.GetActName(), "C:\\data\\other.txt");
}

TEST_F(RequestTest, HugeTextsAreCutAndTheBrowserOpens) {
  const std::string huge(100'000, 'n');
  CvFilSelDlg request(&huge, nullptr, huge, huge, huge);
  EXPECT_EQ(RunShown(
                huge.substr(0, 256), [&] { return request.DoModal(1); },
                [](Browser& browser) { EXPECT_TRUE(browser.IsOpen()); }),
            IDCANCEL);
  EXPECT_EQ(First(request), huge.substr(0, 256));
}

TEST_F(RequestTest, AListFileThatCannotBeWrittenIsReported) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", std::string("C:/none/list.txt"));
  const int answer = Show(request, [](Browser& browser) {
    browser.OpenRow("a.mdl");
    const driver::MessageBoxView box = browser.Person().WaitMessageBox();
    EXPECT_EQ(box.caption, "ファイルの選択");
    EXPECT_EQ(box.text, "C:\\none\\list.txt\nファイルを開けません。\n名前が正しいか確認してください。");
    EXPECT_EQ(box.icon, UINT{MB_ICONHAND});
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    browser.Person().Answer(box, IDOK);
  });
  EXPECT_EQ(answer, IDCANCEL);
}

TEST_F(RequestTest, WithoutAListFileNothingIsWritten) {
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", std::string());
  EXPECT_EQ(Show(request, [](Browser& browser) { browser.OpenRow("a.mdl"); }), IDOK);
  EXPECT_EQ(World().calls.Count("files.CreateText"), 0U);
}

TEST_F(RequestTest, TheRasterFolderIsRemembered) {
  CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
  Kinds().AddFileType(CwFileType("#RASTER#", "C:/data", "*", 0));
  for (const char* file : {"scan.TIFF", "photo.jpeg", "z.png", "bare"}) {
    World().files.AddFile(std::string("C:\\data\\Sub\\") + file);
  }
  CvFilSelDlg first(nullptr, nullptr, "#RASTER#", "", 0);
  EXPECT_EQ(Show(first,
                 [](Browser& browser) {
                   EXPECT_EQ(browser.Window().Child(IDC_FILE_KIND).Items(),
                             Texts{"#RASTER#(*.TIF,*.BMP,*.JPG) 画像ファイル"});
                   EXPECT_EQ(browser.Trail(), Texts{"data"});
                   browser.OpenRow("Sub");
                   EXPECT_EQ(browser.Rows(), (Texts{"photo.jpeg", "scan.TIFF"}));
                   browser.OpenRow("scan.TIFF");
                 }),
            IDOK);
  EXPECT_EQ(World().registry.Value("Software\\Nalbo\\Corvane\\FileDialog\\#RASTER#", "Latest")->bytes,
            "C:\\data\\Sub\\");
  CvFilSelDlg second(nullptr, nullptr, "#RASTER#", "", 0);
  EXPECT_EQ(Show(second, [](Browser& browser) { EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"})); }), IDCANCEL);
}

/// Style, extended style, number of controls, place and size in dialog units, no menu, no class, no title, font.
struct Template {
  DWORD style = WS_POPUP | WS_CAPTION | WS_VISIBLE | WS_SYSMENU | DS_SETFONT;
  DWORD exStyle = 0;
  WORD count = 0;
  short x = 10, y = 10, width = 200, height = 60;
  WORD menu = 0, windowClass = 0, title = 0;
  WORD pointSize = 9;
  std::array<wchar_t, 10> face = {L"ＭＳ ゴシック"};
};
constexpr Template kHostTemplate;

/// A modal dialog of a host whose OK button asks for a file.
class AskingHost : public CDialog {
 public:
  AskingHost() : CDialog(reinterpret_cast<const DLGTEMPLATE*>(&kHostTemplate)) {}

  int answer = 0;
  std::string chosen;

 protected:
  BOOL OnInitDialog() override {
    SetWindowText("親の画面");
    return CDialog::OnInitDialog();
  }
  void OnOK() override {
    CvFilSelDlg request(nullptr, this, "#MODEL#", "", 0);
    answer = request.DoModal();
    chosen = First(request);
  }
};

TEST_F(RequestTest, AHostsModalDialogWaitsForTheBrowser) {
  AskingHost host;
  driver::RunDialog([&] { host.DoModal(); },
                    [&](User& user) {
                      const driver::Window parent = user.WaitDialog("親の画面");
                      for (int round = 0; round < 2; ++round) {
                        PostMessageA(parent.Handle(), WM_COMMAND, IDOK, 0);
                        Browser browser(user, "ファイルの選択");
                        EXPECT_EQ(browser.Window().Owner(), parent);
                        EXPECT_FALSE(parent.IsEnabled());
                        if (round == 0) browser.OpenRow("b.mdl");
                        if (round == 1) user.Key(VK_ESCAPE);
                        user.WaitUntil("the host is free again", [&] { return parent.IsEnabled(); });
                        user.Settle();
                        EXPECT_TRUE(parent.IsForeground());
                        EXPECT_EQ(host.answer, round == 0 ? IDOK : IDCANCEL);
                        EXPECT_EQ(host.chosen, round == 0 ? "C:\\data\\b.mdl" : "");
                      }
                      user.Key(VK_ESCAPE);
                    });
}

// ---------------------------------------------------------------------------------------------------------------------
// the dialog utility

class UtilityBrowserTest : public BrowserTest {
 protected:
  UtilityBrowserTest() {
    utility_.SetParentWindow(&host_);
    utility_.SetKeyword("#MODEL#");
  }

  template <class Script>
  int Show(int mode, const Script& script) {
    return RunShown(
        utility_.GetCaption(), [&] { return utility_.FileDialog(mode); }, script);
  }

  utility_test::Host host_;
  CvUtility utility_;
};

TEST_F(UtilityBrowserTest, TheModeNamesTheButtons) {
  const std::vector<std::pair<std::string, std::string>> texts = {
      {"開く", "取消"}, {"保存", "取消"}, {"ＯＫ", "キャンセル"}, {"ＯＫ", "キャンセル"}};
  for (int mode = 0; mode < 4; ++mode) {
    EXPECT_EQ(Show(mode,
                   [&texts, mode, this](Browser& browser) {
                     const auto& [ok, cancel] = texts[static_cast<std::size_t>(mode)];
                     EXPECT_EQ(browser.Window().Child(IDOK).Text(), ok) << mode;
                     EXPECT_EQ(browser.Window().Child(IDCANCEL).Text(), cancel) << mode;
                     EXPECT_EQ(browser.Window().Owner().Handle(), host_.m_hWnd);
                     EXPECT_NE(browser.List().Style() & LVS_SINGLESEL, 0U);
                   }),
              IDCANCEL);
  }
}

TEST_F(UtilityBrowserTest, TheChosenPathLiesInTheNameBuffer) {
  EXPECT_EQ(Show(0, [](Browser& browser) { browser.OpenRow("表.mdl"); }), IDOK);
  EXPECT_STREQ(utility_.GetFileName(), "C:\\data\\表.mdl");
  EXPECT_EQ(Show(0, [](Browser& browser) { browser.ClickRow("b.mdl"); }), IDCANCEL);
  EXPECT_STREQ(utility_.GetFileName(), "C:\\data\\表.mdl") << "cancel keeps what was there";
  EXPECT_EQ(Show(1, [](Browser& browser) { browser.Enter("new"); }), IDOK);
  EXPECT_STREQ(utility_.GetFileName(), "C:\\data\\new.MDL");
}

TEST_F(UtilityBrowserTest, AKindsFolderWithoutADriveIsOneOfTheCurrentDrive) {
  World().files.AddFile("D:\\DATA\\MDL\\ABC.MDL");
  World().files.currentFolder = "D:\\仕事";
  Kinds().AddFileType(CwFileType("#MODEL#", "/DATA/MDL/", "*.MDL", 0));
  EXPECT_EQ(Show(0, [](Browser& browser) { browser.OpenRow("ABC.MDL"); }), IDOK);
  EXPECT_STREQ(utility_.GetFileName(), "D:\\DATA\\MDL\\ABC.MDL");
}

TEST_F(UtilityBrowserTest, AnExistingFileIsWantedInModeZeroOnly) {
  EXPECT_EQ(Show(0,
                 [](Browser& browser) {
                   browser.Enter("new");
                   browser.Person().Answer(browser.Person().WaitMessageBox(), IDOK);
                 }),
            IDCANCEL);
  EXPECT_EQ(Show(2, [](Browser& browser) { browser.Enter("new"); }), IDOK);
}

/// A path of 256 bytes: the name buffer holds 255.
const std::string kLongFolder = "C:\\data\\" + std::string(119, 'f') + "\\" + std::string(120, 'g');
const std::string kTooLongPath = kLongFolder + "\\t23.mdl";
const std::string kFittingPath = kLongFolder + "\\f2.mdl";
const std::string kNotFound = "\nファイルが見つかりません。\n指定したファイル名が正しいかどうか確認してください。";
const std::string kNoPath = "\nパスが見つかりません。\n指定したパス名が正しいかどうか確認してください。";

TEST_F(UtilityBrowserTest, ATypedPathBeyondTheNameBufferIsRefusedInTheBrowser) {
  ASSERT_EQ(kTooLongPath.size(), 256U);
  ASSERT_EQ(kFittingPath.size(), 255U);
  World().files.AddFile(kTooLongPath);
  World().files.AddFile(kFittingPath);
  EXPECT_EQ(Show(0, [](Browser& browser) { browser.Enter("b.mdl"); }), IDOK);
  EXPECT_EQ(Show(0,
                 [](Browser& browser) {
                   browser.PasteName(kTooLongPath);
                   browser.Ok();
                   browser.ExpectMessage(kTooLongPath + kNotFound);
                   EXPECT_TRUE(browser.IsOpen());
                   EXPECT_EQ(browser.Name(), kTooLongPath);
                 }),
            IDCANCEL);
  EXPECT_STREQ(utility_.GetFileName(), "C:\\data\\b.mdl") << "the name buffer stays";
  EXPECT_EQ(Show(0,
                 [](Browser& browser) {
                   browser.PasteName(kFittingPath);
                   browser.Ok();
                 }),
            IDOK);
  EXPECT_EQ(utility_.GetFileName(), kFittingPath);
}

TEST_F(UtilityBrowserTest, ANewPathBeyondTheNameBufferIsRefusedInTheBrowser) {
  World().files.AddFolder(kLongFolder);
  EXPECT_EQ(Show(1,
                 [](Browser& browser) {
                   browser.PasteName(kLongFolder + "\\t23");
                   browser.Ok();
                   browser.ExpectMessage(kLongFolder + "\\t23.MDL" + kNoPath);
                   EXPECT_TRUE(browser.IsOpen());
                   browser.PasteName(kLongFolder + "\\f2.mdl");
                   browser.Ok();
                 }),
            IDOK);
  EXPECT_EQ(utility_.GetFileName(), kFittingPath);
}

TEST_F(UtilityBrowserTest, ASelectedPathBeyondTheNameBufferIsRefusedInTheBrowser) {
  World().files.AddFile(kTooLongPath);
  World().files.AddFile(kFittingPath);
  EXPECT_EQ(Show(0,
                 [](Browser& browser) {
                   browser.PasteName(kLongFolder);
                   browser.Ok();
                   EXPECT_EQ(browser.Rows(), (Texts{"f2.mdl", "t23.mdl"}));
                   browser.OpenRow("t23.mdl");
                   browser.ExpectMessage(kTooLongPath + kNotFound);
                   browser.OpenRow("f2.mdl");
                 }),
            IDOK);
  EXPECT_EQ(utility_.GetFileName(), kFittingPath);
}

TEST_F(UtilityBrowserTest, AShortcutsTargetBeyondTheNameBufferIsRefusedInTheBrowser) {
  World().files.AddFile(kTooLongPath);
  World().files.AddFile("C:\\desktop\\far.lnk");
  World().shell.links["C:\\desktop\\far.lnk"] = kTooLongPath;
  EXPECT_EQ(Show(0,
                 [](Browser& browser) {
                   browser.ChoosePlace("デスクトップ");
                   browser.OpenRow("far.lnk");
                   browser.ExpectMessage(kTooLongPath + kNotFound);
                   EXPECT_TRUE(browser.IsOpen());
                 }),
            IDCANCEL);
  EXPECT_STREQ(utility_.GetFileName(), "");
}

TEST_F(RequestTest, APathOf256BytesIsChosen) {
  World().files.AddFile(kTooLongPath);
  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", 0);
  EXPECT_EQ(Show(request,
                 [](Browser& browser) {
                   browser.PasteName(kTooLongPath);
                   browser.Ok();
                 }),
            IDOK);
  EXPECT_EQ(First(request), kTooLongPath);
}

TEST_F(UtilityBrowserTest, TheLibrarysResourcesAreInForceWhileTheBrowserRuns) {
  const HINSTANCE other = GetModuleHandleW(L"kernel32.dll");
  const ResourceModuleScope clients(other);
  Show(0, [](Browser&) { EXPECT_EQ(GetResourceModule(), ThisModule()); });
  EXPECT_EQ(GetResourceModule(), other);
}

TEST_F(UtilityBrowserTest, PatternCommentAndCaptionAreTheUtilitys) {
  World().files.AddFile("C:\\data\\other.txt");
  utility_.SetCaption("表の選択");
  utility_.SetWildcard("*.txt");
  utility_.SetComment("説明の文");
  EXPECT_EQ(Show(0,
                 [](Browser& browser) {
                   EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "other.txt"}));
                   EXPECT_EQ(browser.Window().Child(IDC_FILE_KIND).Items(), Texts{"#MODEL#(*.txt) 説明の文"});
                   EXPECT_EQ(browser.Window().Child(IDC_FILE_KIND).Selection(), 0);
                   browser.Enter("other");
                 }),
            IDOK);
  EXPECT_STREQ(utility_.GetFileName(), "C:\\data\\other.txt");
}

TEST_F(UtilityBrowserTest, AKeywordInJapaneseIsTheSuitesWhetherAPatternIsSetOrNot) {
  CwFileType drawings(Euc("#図面#"), "C:/data", "*.mdl", 0);
  drawings.SetDescription(Euc("図面の種類"));
  Kinds().AddFileType(drawings);
  utility_.SetKeyword(Euc("#図面#").c_str());
  Show(0, [](Browser& browser) {
    EXPECT_EQ(browser.Window().Child(IDC_FILE_KIND).Items(), Texts{"#図面#(*.mdl) 図面の種類"});
  });
  utility_.SetWildcard("*.txt");
  Show(0, [](Browser& browser) {
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "表示", "other.txt"}));
    EXPECT_EQ(browser.Window().Child(IDC_FILE_KIND).Items(), Texts{"#図面#(*.txt) 図面の種類"});
  });
}

TEST_F(UtilityBrowserTest, WithoutAKeywordTheCommentNamesTheKind) {
  CvUtility plain;
  plain.SetParentWindow(&host_);
  plain.SetWildcard("*.txt");
  plain.SetComment("文書 #TEXT# の種類");
  RunShown(
      plain.GetCaption(), [&] { return plain.FileDialog(0); },
      [](Browser& browser) { EXPECT_EQ(browser.Window().Child(IDC_FILE_KIND).Items(), Texts{"文書 #TEXT# の種類"}); });
  EXPECT_NE(World().registry.FindKey("Software\\Nalbo\\Corvane\\FileDialog\\Reg #TEXT#"), nullptr);
}

TEST_F(UtilityBrowserTest, NoDirectoryEntriesFixTheFolder) {
  utility_.SetNoDirectoryEntry(1);
  EXPECT_EQ(Show(0,
                 [](Browser& browser) {
                   EXPECT_EQ(browser.Rows().front(), "a.mdl");
                   EXPECT_FALSE(browser.LocationBar().IsEnabled());
                   browser.OpenRow("b.mdl");
                 }),
            IDOK);
  EXPECT_STREQ(utility_.GetFileName(), "C:\\data\\b.mdl");
}

TEST_F(UtilityBrowserTest, TitlesAreOfferedWhenTheSessionShowsThem) {
  const auto count = [](Browser& browser) {
    browser.Person().Click(driver::Center(browser.Window().Child(IDC_VIEW).ScreenRect()));
    const std::size_t items = browser.Person().WaitMenu().items.size();
    browser.Person().Key(VK_ESCAPE);
    return items;
  };
  Show(0, [&](Browser& browser) { EXPECT_EQ(count(browser), 4U); });
  CwSession::GetInstance()->GetSessionParam()->SetFileTitleDisplay(1);
  utility_.SetKeyword("#MODEL#");
  Show(0, [&](Browser& browser) { EXPECT_EQ(count(browser), 5U); });
}

}  // namespace
}  // namespace browser_test
