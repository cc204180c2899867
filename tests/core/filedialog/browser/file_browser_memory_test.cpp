// What the browser remembers from one run to the next, what it does not believe, and what the start-up record asks for.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/core/filedialog/browser/file_browser_fixture.h"

namespace browser_test {
namespace {

using filedialog::ViewMode;

using filedialog::kFlagFileMustExist;
using filedialog::kFlagHideReadOnly;
using filedialog::kFlagMultiSelect;
using filedialog::kFlagPathMustExist;
using filedialog::kFlagPlainOk;
using os::RegistryType;

constexpr char kFallbackKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Reg.MDL";
// As the registry numbers the views.
constexpr int kLargeIcons = 0;
constexpr int kSmallIcons = 1;
constexpr int kDetails = 2;
constexpr int kList = 3;
constexpr int kSpace = 600;  ///< what the columns of the played window share

class FileBrowserMemory : public FileBrowserTest {
 protected:
  static std::vector<int> Widths(const PlayedBrowser& browser) {
    std::vector<int> widths;
    for (const filedialog::ListColumn& column : browser.Columns()) widths.push_back(column.widthPx);
    return widths;
  }
  static Texts Headers(const PlayedBrowser& browser) {
    Texts headers;
    for (const filedialog::ListColumn& column : browser.Columns()) headers.push_back(column.header);
    return headers;
  }
};

const std::vector<int> kUsualDetails = {kSpace * 3 / 6, kSpace / 6, kSpace * 2 / 6};

TEST_F(FileBrowserMemory, TheFlagsNameTheButtons) {
  struct Row {
    std::uint32_t flags;
    std::uint32_t listStyle;
    const char* ok;
    const char* cancel;
    std::uint32_t shownStyle;
  };
  using filedialog::kListMultiple;
  using filedialog::kListSingle;
  const Row rows[] = {
      {kFlagFileMustExist, kListSingle, "開く", "取消", kListSingle},
      {kFlagFileMustExist, kListMultiple, "開く", "取消", kListMultiple},
      {kFlagPathMustExist, kListMultiple, "保存", "取消", kListSingle},
      {kFlagPathMustExist | kFlagPlainOk, kListMultiple, "ＯＫ", "キャンセル", kListSingle},
      {kFlagPlainOk, kListSingle, "開く", "取消", kListSingle},
      {kFlagFileMustExist | kFlagMultiSelect, kListSingle, "ＯＫ", "キャンセル", kListMultiple},
      {kFlagPathMustExist | kFlagMultiSelect, kListSingle, "ＯＫ", "キャンセル", kListMultiple},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.flags);
    startUp_.flags = kFlagHideReadOnly | row.flags;
    startUp_.listStyle = row.listStyle;
    Run([&row](PlayedBrowser& browser) {
      EXPECT_EQ(browser.OkText(), row.ok);
      EXPECT_EQ(browser.CancelText(), row.cancel);
      EXPECT_EQ(browser.ListStyle(), row.shownStyle);
    });
  }
}

TEST_F(FileBrowserMemory, TheWindowStandsWhereItWasLeft) {
  Run([](PlayedBrowser& browser) { browser.Resize(700, 500); });
  EXPECT_EQ(SavedNumber("SizeX"), 700);
  EXPECT_EQ(SavedNumber("SizeY"), 500);
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Area().width(), 700);
    EXPECT_EQ(browser.Area().height(), 500);
  });
}

/// What the registry was asked, in order, since the log was cleared: the arguments of calls of that name.
Texts AskedOfRegistry(const std::string& call) {
  Texts asked;
  for (const std::string& line : os::scripted::World().calls.Log()) {
    if (line.starts_with(call + " ")) asked.push_back(line.substr(call.size() + 1));
  }
  return asked;
}

TEST_F(FileBrowserMemory, AnOpeningReadsTheRegistryInOnePass) {
  SaveNumber("SizeX", 700);
  Run([](PlayedBrowser&) {
    EXPECT_EQ(AskedOfRegistry("registry.Open"), Texts{kLayoutKey});
    Texts values = AskedOfRegistry("registry.Query");
    EXPECT_GT(values.size(), 40U);
    std::sort(values.begin(), values.end());
    EXPECT_EQ(std::adjacent_find(values.begin(), values.end()), values.end()) << "none is asked for twice";
    EXPECT_EQ(AskedOfRegistry("registry.Create"), Texts{});
  });
}

TEST_F(FileBrowserMemory, AFirstOpeningLooksOnceForEachKey) {
  World().registry.RemoveKey(kLayoutKey);
  Run([](PlayedBrowser&) { EXPECT_EQ(AskedOfRegistry("registry.Open"), (Texts{kLayoutKey, kFallbackKey})); });
}

TEST_F(FileBrowserMemory, LengthsAreKeptAsOnAScreenOf96Dpi) {
  Run([](PlayedBrowser& browser) {
    browser.screenScale = scale::Scale(192);
    browser.Resize(1400, 1000);
    for (const std::size_t column : {0U, 1U, 2U}) browser.SetColumnWidth(column, 201);
  });
  EXPECT_EQ(SavedNumber("SizeX"), 700);
  EXPECT_EQ(SavedNumber("SizeY"), 500);
  EXPECT_EQ(SavedNumber("RWidth0"), 101) << "rounded";
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Area().width(), 700);
    EXPECT_EQ(browser.Columns().at(0).widthPx, 101);
    browser.screenScale = scale::Scale(144);
    EXPECT_EQ(browser.Core().SavedPlace({600, 400}, {{2560, 1600}, {}}).width(), 1050);
  });
}

TEST_F(FileBrowserMemory, ASavedSizeIsCutByTheMonitorThatItIsOn) {
  const filedialog::Screens screens{{1280, 1024}, {{0, 0, 1280, 1024}, {1280, 0, 3840, 1600}}};
  SaveNumber("SizeX", 2000);
  SaveNumber("SizeY", 1500);
  const auto placeAt = [&](std::uint32_t x, std::uint32_t y) {
    SaveNumber("PosX", x);
    SaveNumber("PosY", y);
    filedialog::Rect place;
    Run([&](PlayedBrowser& browser) { place = browser.Core().SavedPlace({550, 340}, screens); });
    return place;
  };
  EXPECT_EQ(placeAt(1300, 10), (filedialog::Rect{1300, 10, 3300, 1510}));
  SaveNumber("SizeX", 1300);
  SaveNumber("SizeY", 1100);
  EXPECT_EQ(placeAt(10, 10), (filedialog::Rect{10, 10, 1290, 1034}));
  SaveNumber("SizeX", 2000);
  SaveNumber("SizeY", 1500);
  EXPECT_EQ(placeAt(0, 0), (filedialog::Rect{0, 0, 1280, 1024})) << "centred on the primary one";
}

TEST_F(FileBrowserMemory, ValuesOfAnotherKindLeaveTheirDefaults) {
  const Texts names = {"Form",    "PosX",    "PosY",      "SizeX",  "SizeY",   "Confirm", "Count",
                       "Title1",  "Title2",  "Title3",    "Title4", "Width0",  "Width1",  "Width2",
                       "Width3",  "Width4",  "Text1",     "Text2",  "TWidth0", "TWidth1", "RWidth0",
                       "RWidth1", "RWidth2", "FileCount", "File01", "File02",  "File20"};
  const std::vector<std::pair<RegistryType, std::string>> values = {
      {RegistryType::String, std::string("7\0", 2)},
      {RegistryType::Binary, std::string("\1\0\0\0", 4)},
      {RegistryType::Dword, std::string("\1\0\0", 3)},
      {RegistryType::Dword, std::string("\1\0\0\0\0\0\0\0", 8)},
      {RegistryType::Binary, ""},
      {RegistryType::Dword, ""},
      {RegistryType::Binary, std::string(70000, '\xFF')},
      {RegistryType::Dword, "\xFF\xFF\xFF\xFF"},
  };
  filedialog::Rect usual{};
  Run([&usual](PlayedBrowser& browser) { usual = browser.Area(); });
  for (const auto& [type, bytes] : values) {
    World().registry.RemoveKey(kLayoutKey);
    for (const std::string& name : names) {
      const bool text = name.starts_with("File0") || name.starts_with("File2") || name.starts_with("Text");
      const bool position = name.starts_with("Pos") || name == "Confirm" || name == "Count";
      if (type == RegistryType::String && text) continue;
      if (bytes == "\xFF\xFF\xFF\xFF" && position) continue;
      World().registry.SetValue(kLayoutKey, name, type, bytes);
    }
    Run([&usual](PlayedBrowser& browser) {
      EXPECT_EQ(browser.Area(), usual);
      EXPECT_EQ(Widths(browser), kUsualDetails);
      EXPECT_EQ(browser.ShownRecentCount(), 10);
      EXPECT_EQ(browser.OfferedNames(), Texts{});
    });
    EXPECT_EQ(SavedNumber("Form"), kDetails);
  }
}

TEST_F(FileBrowserMemory, RecentNamesOfAnyBytesAreShownOrPassedOver) {
  World().registry.SetValue(kLayoutKey, "File01", RegistryType::String, "unterminated.mdl");
  World().registry.SetValue(kLayoutKey, "File02", RegistryType::String, std::string("cut\0behind\0", 11));
  World().registry.SetValue(kLayoutKey, "File03", RegistryType::String, std::string(300, 'x'));
  World().registry.SetValue(kLayoutKey, "File04", RegistryType::String, std::string(255, 'y') + "\x95");
  World().registry.SetValue(kLayoutKey, "File05", RegistryType::String, std::string(1, '\0'));
  World().registry.SetValue(kLayoutKey, "File20", RegistryType::String, "表.mdl");
  SaveNumber("FileCount", 20);
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.OfferedNames(), (Texts{"unterminated.mdl", "cut", std::string(255, 'y'), "表.mdl"}));
  });
}

TEST_F(FileBrowserMemory, ACountOutOfRangeIsIgnored) {
  for (const std::uint32_t count : {0U, 21U, 0x80000000U}) {
    SaveNumber("FileCount", count);
    Run([](PlayedBrowser& browser) { EXPECT_EQ(browser.ShownRecentCount(), 10); });
  }
  for (const int count : {1, 20}) {
    SaveNumber("FileCount", static_cast<std::uint32_t>(count));
    Run([count](PlayedBrowser& browser) { EXPECT_EQ(browser.ShownRecentCount(), count); });
  }
}

TEST_F(FileBrowserMemory, AChosenCountIsRememberedAndTheListCut) {
  for (const int number : {1, 2, 3}) {
    const std::string digit = std::to_string(number);
    World().registry.SetValue(kLayoutKey, "File0" + digit, RegistryType::String, digit + ".mdl");
  }
  Run([](PlayedBrowser& browser) {
    browser.ChooseRecentCount(2);
    EXPECT_EQ(browser.OfferedNames(), (Texts{"1.mdl", "2.mdl"}));
    EXPECT_EQ(SavedNumber("FileCount"), 2);
    browser.ChooseRecentCount(-1);
    EXPECT_EQ(SavedNumber("FileCount"), 2) << "nothing was chosen";
    browser.ChooseRecentCount(0);
    EXPECT_EQ(browser.OfferedNames(), Texts{});
  });
  EXPECT_EQ(SavedNumber("FileCount"), 0);
}

TEST_F(FileBrowserMemory, TheOlderKeyIsReadOnceAndNeverWritten) {
  SaveNumber("Form", kList, kFallbackKey);
  SaveNumber("FileCount", 5, kFallbackKey);
  World().registry.SetValue(kFallbackKey, "File01", RegistryType::String, "old.mdl");
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.View(), ViewMode::List);
    EXPECT_EQ(SavedNumber("Form"), kList) << "moved before anything else happens";
    EXPECT_EQ(SavedNumber("SizeX"), browser.Area().width()) << "a size that is missing is the template's";
    EXPECT_EQ(SavedNumber("SizeY"), browser.Area().height());
    EXPECT_EQ(SavedNumber("FileCount"), 5);
    EXPECT_EQ(SavedRecentFiles(), Texts{"old.mdl"});
    EXPECT_EQ(browser.OfferedNames(), Texts{"old.mdl"});
    browser.ChooseView(ViewMode::SmallIcons);
  });
  EXPECT_EQ(SavedNumber("Form"), kSmallIcons);
  EXPECT_EQ(SavedNumber("Form", kFallbackKey), kList);
  EXPECT_EQ(SavedNumber("PosX", kFallbackKey), -1);
}

TEST_F(FileBrowserMemory, ASuiteWithoutModelsKeepsTheLayoutOfOtherKinds) {
  CwSession::Reset();
  Kinds().AddFileType(CwFileType("#ANY#", "C:/data", "*", 0));
  startUp_.title = "#ANY#(*)";
  Run([](PlayedBrowser& browser) { browser.Resize(700, 500); });
  Run([](PlayedBrowser& browser) { EXPECT_EQ(browser.Area().width(), 700); });
}

TEST_F(FileBrowserMemory, TheOlderKeyBearsTheExtensionOfTheInitialName) {
  const std::string stem = "Software\\Nalbo\\Corvane\\FileDialog\\Reg";
  SaveNumber("FileCount", 3, stem + ".*");
  SaveNumber("FileCount", 4, stem + ".MD?");
  SaveNumber("FileCount", 5, stem + ".bak");
  SaveNumber("FileCount", 6, kFallbackKey);
  struct Case {
    std::string name;
    std::string line;
    int count;
    std::size_t files;
  };
  const Case cases[] = {{"*.*", "#MODEL#(*.*) ", 3, 5},
                        {"A.MD?", "#MODEL#(*.MD?) ", 4, 5},
                        {"a.bak", "#MODEL#(*.bak) ", 5, 0},
                        {"new", "#MODEL#(*.MDL) ", 6, 5}};
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    World().registry.RemoveKey(kLayoutKey);
    initialName_ = row.name;
    Run([&row](PlayedBrowser& browser) {
      EXPECT_EQ(browser.KindLine(), row.line);
      EXPECT_EQ(browser.Rows().size(), 3 + row.files) << "only a name without a wildcard chooses the pattern";
    });
    EXPECT_EQ(SavedNumber("FileCount"), row.count);
  }
}

TEST_F(FileBrowserMemory, ALockedRegistryMeansDefaultsAndNoMessage) {
  World().registry.MakeUnopenable(kLayoutKey);
  World().registry.MakeUnopenable(kFallbackKey);
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    EXPECT_EQ(browser.Columns().size(), 3U);
    browser.ChooseView(ViewMode::List);
    browser.ClickRow("a.mdl");
    browser.Ok();
    EXPECT_TRUE(browser.TakeShown().empty());
  });
  EXPECT_EQ(outcome.answer, 1);
  EXPECT_TRUE(Beeps().empty());
}

TEST_F(FileBrowserMemory, AViewIsRememberedWhenTheBrowserIsLeft) {
  Run([](PlayedBrowser& browser) {
    browser.ChooseView(ViewMode::LargeIcons);
    EXPECT_EQ(SavedNumber("Form"), kDetails) << "the layout is written before the view changes";
  });
  EXPECT_EQ(SavedNumber("Form"), kLargeIcons);
  Run([](PlayedBrowser& browser) { EXPECT_EQ(browser.View(), ViewMode::LargeIcons); });
  SaveNumber("Form", 5);
  Run([](PlayedBrowser& browser) { EXPECT_EQ(browser.View(), ViewMode::Details); });
}

TEST_F(FileBrowserMemory, WidthsOfTheDetailsAreRememberedAllOrNone) {
  const std::vector<int> widths = {250, 100, 200};
  Run([](PlayedBrowser& browser) { browser.SetColumnWidth(0, 250); });
  EXPECT_EQ(SavedNumber("RWidth0"), 250);
  Run([&widths](PlayedBrowser& browser) {
    EXPECT_EQ(Widths(browser), widths);
    browser.OpenRow("Sub");
    EXPECT_EQ(Widths(browser), widths);
    browser.ChooseView(ViewMode::LargeIcons);
    EXPECT_TRUE(browser.Columns().empty());
    browser.ChooseView(ViewMode::Details);
    EXPECT_EQ(Widths(browser), widths);
    browser.ChoosePlace("マイコンピュータ");
  });
  EXPECT_EQ(SavedNumber("RWidth0"), 250) << "widths of the drives are nobody's";
  SaveNumber("RWidth1", 0);
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Widths(browser), kUsualDetails); });
}

TEST_F(FileBrowserMemory, TheTitleViewOfOtherKindsHasADescription) {
  startUp_.kindCode = 2;
  const std::vector<int> usual = {kSpace / 3, 2 * kSpace / 3};
  Run([&usual](PlayedBrowser& browser) {
    browser.ChooseView(ViewMode::Titles);
    EXPECT_TRUE(browser.TakeShown().empty()) << "there are no titles to choose";
    EXPECT_EQ(Widths(browser), usual);
    EXPECT_EQ(Headers(browser), (Texts{"名前", "説明"}));
    EXPECT_EQ(browser.SortMark(0), 1);
    EXPECT_EQ(browser.SortMark(1), 0);
  });
  EXPECT_EQ(SavedNumber("TWidth0"), usual[0]);
  EXPECT_EQ(SavedNumber("Width0"), -1) << "only kinds of models have those";
  SaveNumber("TWidth0", 120);
  SaveNumber("TWidth1", 90);
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Widths(browser), (std::vector<int>{120, 90})); });
  SaveNumber("TWidth1", 0);
  Run([&usual](PlayedBrowser& browser) { EXPECT_EQ(Widths(browser), usual); });
}

TEST_F(FileBrowserMemory, DrivesAndTheNetworkShareTheWidthInTheirOwnWay) {
  World().network.present = true;
  for (const char* name : {"RWidth0", "RWidth1", "RWidth2"}) SaveNumber(name, 33);
  Run([](PlayedBrowser& browser) {
    browser.ChoosePlace("マイコンピュータ");
    EXPECT_EQ(Widths(browser), (std::vector<int>{kSpace * 2 / 6, kSpace * 2 / 6, kSpace / 6, kSpace / 6}));
    EXPECT_EQ(Headers(browser), (Texts{"名前", "種類", "合計サイズ", "空き領域"}));
    browser.ChoosePlace("マイネットワーク");
    EXPECT_EQ(Widths(browser), (std::vector<int>{2 * kSpace / 5, 3 * kSpace / 5}));
    EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント"}));
  });
}

TEST_F(FileBrowserMemory, AHeaderClickTurnsTheMarkAlsoWithoutRows) {
  startUp_.initialFolder = "C:\\data\\old";
  Run([](PlayedBrowser& browser) {
    browser.ClickHeader(1);
    EXPECT_EQ(browser.SortMark(1), 1);
    browser.ClickHeader(1);
    EXPECT_EQ(browser.SortMark(1), -1);
    EXPECT_EQ(browser.Rows(), Texts{});
  });
}

}  // namespace
}  // namespace browser_test
