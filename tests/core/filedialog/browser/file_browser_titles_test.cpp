// The title view: its columns, the choice of titles, and sorting by them under conditions.
#include <optional>
#include <string>
#include <vector>

#include "platform/suite/crvnmdl.h"
#include "tests/core/filedialog/browser/file_browser_fixture.h"
#include "tests/support/encodings.h"
#include "tests/support/played_models.h"

namespace browser_test {
namespace {

using filedialog::ViewMode;

using filedialog::SlowSortRule;
using filedialog::TitleSlots;

constexpr int kDetails = 2;
constexpr int kTitles = 4;
constexpr int kSpace = 600;  ///< what the columns of the played window share

class FileBrowserTitles : public FileBrowserTest {
 protected:
  FileBrowserTitles() {
    played_models::Begin();
    startUp_.initialFolder = played_models::kFolder;
  }

  static void SetItem(int slot, int number) {
    const std::string bytes = {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8)};
    World().registry.SetValue(kLayoutKey, "Title" + std::to_string(slot), os::RegistryType::Binary, bytes);
  }
  /// The layout of a run before: title view with these items.
  static void StartInTitleView(const std::vector<int>& items) {
    SaveNumber("Form", kTitles);
    int slot = 0;
    for (const int item : items) SetItem(++slot, item);
  }
  static std::vector<std::int64_t> SavedNumbers(const std::string& name, int first, int last) {
    std::vector<std::int64_t> numbers;
    for (int i = first; i <= last; ++i) numbers.push_back(SavedNumber(name + std::to_string(i)));
    return numbers;
  }
  static Texts Headers(const PlayedBrowser& browser) {
    Texts headers;
    for (const filedialog::ListColumn& column : browser.Columns()) headers.push_back(column.header);
    return headers;
  }
  static std::vector<int> Widths(const PlayedBrowser& browser) {
    std::vector<int> widths;
    for (const filedialog::ListColumn& column : browser.Columns()) widths.push_back(column.widthPx);
    return widths;
  }
  /// The widths of columns that nobody has drawn.
  static std::vector<int> DefaultWidths(int titles) {
    std::vector<int> widths(static_cast<std::size_t>(titles) + 1, 2 * kSpace / (3 * titles));
    widths[0] = kSpace / 3;
    return widths;
  }
};

const Texts kByName = {"folder", "a.mdl", "b.mdl", "c.mdl", "d.mdl"};
const Texts kByComment = {"folder", "d.mdl", "b.mdl", "a.mdl", "c.mdl"};  // none, 一, 三, 二 by their bytes
const Texts kByCommentDown = {"folder", "c.mdl", "a.mdl", "b.mdl", "d.mdl"};

// ---- columns

TEST_F(FileBrowserTitles, ModelsHaveAColumnForEachTitle) {
  StartInTitleView({201, 1, 2});
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント", "図面名称", "図番"}));
    EXPECT_EQ(Widths(browser), DefaultWidths(3));
    EXPECT_EQ(browser.Rows(), kByName);
    EXPECT_EQ(browser.SortMark(0), 1);
  });
}

TEST_F(FileBrowserTitles, AColumnHasItsOwnTextOrTheTitlesNameOrItsNumber) {
  StartInTitleView({201, 1, 7});
  World().registry.SetValue(kLayoutKey, "Text1", os::RegistryType::String, "表題");
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Headers(browser), (Texts{"名前", "表題", "図面名称", "7"})); });
}

TEST_F(FileBrowserTitles, WithoutAModelHeadersAreNumbers) {
  CwSession::Reset();
  Kinds().AddFileType(CwFileType("#MODEL#", "C:/data", "*.MDL", 0));
  StartInTitleView({201, 1});
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Headers(browser), (Texts{"名前", "201", "1"})); });
}

TEST_F(FileBrowserTitles, BadItemsInTheRegistryAreLeftOut) {
  SaveNumber("Form", kTitles);
  SetItem(1, 0);
  SetItem(2, 208);
  SetItem(3, 65535);
  SetItem(4, 1);
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Headers(browser), (Texts{"名前", "図面名称"})); });
  SetItem(1, 0);
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント"})); });
  for (int slot = 1; slot <= 4; ++slot) SetItem(slot, 2);
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Headers(browser), (Texts{"名前", "図番", "図番", "図番", "図番"})); });
}

TEST_F(FileBrowserTitles, OtherTitledKindsHaveADescription) {
  startUp_.kindCode = 6;
  startUp_.title = "#TEXT#(*.TXT)";
  World().files.AddFile("C:\\models\\a.txt", "CORVANE TEXT 1\nTITLE=" + test_texts::Euc("注記表") + "\nEND\n");
  World().files.AddFile("C:\\models\\b.txt", "CORVANE TEXT 1\nTITLE=" + test_texts::Euc("あ") + "\nEND\n");
  World().files.AddFile("C:\\models\\c.txt", "something else");
  Run([](PlayedBrowser& browser) {
    browser.ChooseView(ViewMode::Titles);
    EXPECT_TRUE(browser.TakeShown().empty());
    EXPECT_EQ(Headers(browser), (Texts{"名前", "説明"}));
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), (Texts{"folder", "c.txt", "b.txt", "a.txt"}));
    EXPECT_EQ(browser.SortMark(1), 1);
  });
  const std::string key = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #TEXT#";
  EXPECT_EQ(SavedNumber("Form", key), kTitles);
  EXPECT_GT(SavedNumber("TWidth0", key), 0);
  EXPECT_EQ(SavedNumber("Title1", key), -1);
}

TEST_F(FileBrowserTitles, WidthsAreKeptForTheNextRun) {
  StartInTitleView({201, 1});
  Run([](PlayedBrowser& browser) { browser.SetColumnWidth(1, 240); });
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Widths(browser), (std::vector<int>{200, 240, 200})); });
}

TEST_F(FileBrowserTitles, AWidthThatIsMissingResetsThemAll) {
  StartInTitleView({201, 1});
  SaveNumber("Width0", 90);
  SaveNumber("Width2", 92);
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Widths(browser), DefaultWidths(2)); });
}

TEST_F(FileBrowserTitles, FourTitlesNeedFiveWidths) {
  StartInTitleView({1, 2, 3, 4});
  for (const int column : {0, 1, 2, 3}) SaveNumber("Width" + std::to_string(column), 50);
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Widths(browser), DefaultWidths(4)); });
  for (const int column : {0, 1, 2, 3, 4}) {
    SaveNumber("Width" + std::to_string(column), static_cast<std::uint32_t>(60 + column));
  }
  Run([](PlayedBrowser& browser) { EXPECT_EQ(Widths(browser), (std::vector<int>{60, 61, 62, 63, 64})); });
}

// ---- choosing the titles

TEST_F(FileBrowserTitles, TheTitleViewAsksForTheTitlesFirst) {
  Run([](PlayedBrowser& browser) {
    browser.answerTitles = [](const SlowSortRule&, TitleSlots slots) {
      EXPECT_EQ(SavedNumber("Form"), kDetails) << "the view that is left is saved before";
      slots.slots[1] = {2, "図番"};
      return std::optional(slots);
    };
    browser.ChooseView(ViewMode::Titles);
    EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント", "図番"}));
    EXPECT_EQ(Widths(browser), DefaultWidths(2));
    EXPECT_EQ(SavedNumbers("Title", 1, 4), (std::vector<std::int64_t>{201, 2, 0, 0}));
    EXPECT_EQ(SavedNumber("Form"), kDetails);
  });
  EXPECT_EQ(SavedNumber("Form"), kTitles);
}

TEST_F(FileBrowserTitles, CancellingTheTitlesShowsTheFormerOnes) {
  Run([](PlayedBrowser& browser) {
    browser.ChooseView(ViewMode::Titles);
    EXPECT_EQ(browser.TakeShown(), (std::vector<PlayedBrowser::Shown>{{"titles", "", ""}}));
    EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント"}));
  });
  EXPECT_EQ(SavedNumbers("Title", 1, 4), (std::vector<std::int64_t>{201, 0, 0, 0}));
}

TEST_F(FileBrowserTitles, OtherTitlesStartWithWidthsOfTheirOwn) {
  StartInTitleView({201, 1});
  for (const int column : {0, 1, 2}) {
    SaveNumber("Width" + std::to_string(column), static_cast<std::uint32_t>(90 + column));
  }
  Run([](PlayedBrowser& browser) {
    EXPECT_EQ(Widths(browser), (std::vector<int>{90, 91, 92}));
    browser.answerTitles = [](const SlowSortRule&, TitleSlots slots) {
      EXPECT_EQ(SavedNumbers("Width", 0, 4), (std::vector<std::int64_t>{90, 91, 92, 0, 0}));
      slots.slots[1] = {};
      return std::optional(slots);
    };
    browser.ChooseView(ViewMode::Titles);
    EXPECT_EQ(SavedNumbers("Width", 0, 4), (std::vector<std::int64_t>{0, 0, 0, 0, 0}));
    EXPECT_EQ(Headers(browser), (Texts{"名前", "コメント"}));
    EXPECT_EQ(Widths(browser), DefaultWidths(1));
  });
  EXPECT_NE(SavedNumber("Width1"), 0);
  EXPECT_EQ(SavedNumber("Width2"), 0);
}

TEST_F(FileBrowserTitles, AWindowThatGoesDuringTheChoiceIsNotTouched) {
  Run([](PlayedBrowser& browser) {
    browser.answerTitles = [&browser](const SlowSortRule&, TitleSlots slots) {
      browser.CloseNow();
      return std::optional(slots);
    };
    browser.ChooseView(ViewMode::Titles);
    EXPECT_FALSE(browser.IsOpen());
  });
}

// ---- sorting

TEST_F(FileBrowserTitles, AClickOnATitleSortsByItAndAFurtherOneTurnsAround) {
  StartInTitleView({201, 1});
  Run([](PlayedBrowser& browser) {
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), kByComment);
    EXPECT_EQ(browser.SortMark(0), 0);
    EXPECT_EQ(browser.SortMark(1), 1);
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), kByCommentDown);
    EXPECT_EQ(browser.SortMark(1), -1);
    browser.ClickHeader(2);  // equal titles: by name
    EXPECT_EQ(browser.Rows(), (Texts{"folder", "d.mdl", "b.mdl", "a.mdl", "c.mdl"}));
    browser.ClickHeader(2);
    EXPECT_EQ(browser.Rows(), (Texts{"folder", "c.mdl", "a.mdl", "b.mdl", "d.mdl"}));
    browser.ClickHeader(0);
    EXPECT_EQ(browser.Rows(), kByName);
    EXPECT_EQ(browser.SortMark(2), 0);
  });
}

TEST_F(FileBrowserTitles, NothingIsSortedBeyondTheLimitWhenTheConditionForbidsIt) {
  StartInTitleView({201});
  SaveNumber("Confirm", 1);
  SaveNumber("Count", 4);
  Run([](PlayedBrowser& browser) {
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), kByName);
    EXPECT_EQ(browser.SortMark(0), 1);
    browser.ClickHeader(0);
    EXPECT_EQ(browser.SortMark(0), -1);
    EXPECT_EQ(browser.Rows(), (Texts{"folder", "d.mdl", "c.mdl", "b.mdl", "a.mdl"}));
  });
  SaveNumber("Count", 5);  // the folder counts: five entries do not pass the limit
  Run([](PlayedBrowser& browser) {
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), kByComment);
  });
}

TEST_F(FileBrowserTitles, AlwaysSortsWhateverTheLimit) {
  StartInTitleView({201});
  SaveNumber("Confirm", 0);
  SaveNumber("Count", 0);
  Run([](PlayedBrowser& browser) {
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), kByComment);
    EXPECT_TRUE(browser.TakeShown().empty());
  });
}

TEST_F(FileBrowserTitles, BeyondTheLimitTheUserIsAskedUntilHeSaysYes) {
  StartInTitleView({201});
  SaveNumber("Count", 4);
  Run([](PlayedBrowser& browser) {
    const std::vector<PlayedBrowser::Shown> question = {{"sort", "", ""}};
    browser.ClickHeader(1);
    EXPECT_EQ(browser.TakeShown(), question);
    EXPECT_EQ(browser.Rows(), kByName);
    EXPECT_EQ(browser.SortMark(1), 0);

    browser.answerSlowSort = [](SlowSortRule& settings) {
      EXPECT_EQ(settings.limit, 4);
      return true;
    };
    browser.ClickHeader(1);
    EXPECT_EQ(browser.TakeShown(), question);
    EXPECT_EQ(browser.Rows(), kByComment);
    EXPECT_EQ(browser.SortMark(1), 1);

    browser.ClickHeader(1);  // a yes holds for the listing
    EXPECT_TRUE(browser.TakeShown().empty());
    EXPECT_EQ(browser.Rows(), kByCommentDown);

    browser.ChooseView(ViewMode::Details);
    browser.ChooseView(ViewMode::Titles);
    static_cast<void>(browser.TakeShown());
    browser.answerSlowSort = {};
    browser.ClickHeader(1);
    EXPECT_EQ(browser.TakeShown(), question);
    EXPECT_EQ(browser.Rows(), kByName);
  });
}

TEST_F(FileBrowserTitles, ConditionsChangedInAQuestionCountFromTheNextSort) {
  StartInTitleView({201});
  SaveNumber("Count", 4);
  Run([](PlayedBrowser& browser) {
    browser.answerSlowSort = [](SlowSortRule& settings) {
      settings.limit = 10;
      return false;
    };
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), kByName);
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), kByComment);
    browser.answerTitles = [](SlowSortRule& settings, const TitleSlots&) {
      settings.mode = filedialog::SlowSort::NeverBeyondLimit;
      return std::optional<TitleSlots>();
    };
    browser.ChooseView(ViewMode::Titles);
  });
  EXPECT_EQ(SavedNumber("Count"), 10);
  EXPECT_EQ(SavedNumber("Confirm"), 1) << "they hold also when the titles are not changed";
}

TEST_F(FileBrowserTitles, ASortThatIsGivenUpChangesNothing) {
  StartInTitleView({201});
  Run([](PlayedBrowser& browser) {
    browser.goesOn = [] { return false; };
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), kByName);
    EXPECT_EQ(browser.SortMark(0), 1);
    EXPECT_FALSE(browser.IsWorking());
    browser.goesOn = {};
    browser.ClickHeader(1);
    EXPECT_EQ(browser.Rows(), kByComment);
  });
}

TEST_F(FileBrowserTitles, AnEmptyListingTakesClicksOnItsHeaders) {
  startUp_.initialFolder = "C:\\models\\folder";
  StartInTitleView({201});
  Run([](PlayedBrowser& browser) {
    for (const int column : {1, 1, 0, 5, -1}) browser.ClickHeader(column);
    EXPECT_EQ(browser.Rows(), Texts{});
    EXPECT_TRUE(browser.TakeShown().empty());
  });
}

}  // namespace
}  // namespace browser_test
