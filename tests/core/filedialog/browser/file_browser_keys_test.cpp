// What keeps its place for somebody who works with the keyboard: the focused row, the selection, and the meaning of
// keys.
#include <optional>
#include <string>
#include <vector>

#include "dlglib/base/virtual_keys.h"
#include "dlglib/filedialog/browser/browser_keys.h"
#include "tests/core/filedialog/browser/file_browser_fixture.h"

namespace browser_test {
namespace {

using filedialog::BrowserPart;
using filedialog::HotArea;
using filedialog::ListCommand;
using filedialog::NextPart;
using filedialog::ViewMode;
using filedialog::Walk;

constexpr int kKeyF1 = 0x70;

class FileBrowserKeys : public FileBrowserTest {};

// ---------------------------------------------------------------------------------------------------------------------
// keys

TEST(BrowserKeys, OfTheListHaveCommands) {
  EXPECT_EQ(filedialog::ListCommandOf(virtual_key::kBackspace), ListCommand::Up);
  EXPECT_EQ(filedialog::ListCommandOf(virtual_key::kF2), ListCommand::Rename);
  EXPECT_EQ(filedialog::ListCommandOf(virtual_key::kDelete), ListCommand::Delete);
  EXPECT_EQ(filedialog::ListCommandOf(virtual_key::kF4), ListCommand::OpenPlaces);
  EXPECT_EQ(filedialog::ListCommandOf(kKeyF1), std::nullopt);
}

TEST(BrowserKeys, RunEachAreaWithAlt) {
  EXPECT_EQ(filedialog::AreaOfAltKey('V'), HotArea::View);
  EXPECT_EQ(filedialog::AreaOfAltKey('N'), HotArea::NewFolder);
  EXPECT_EQ(filedialog::AreaOfAltKey('R'), HotArea::Label);
  EXPECT_EQ(filedialog::AreaOfAltKey(virtual_key::kLeft), HotArea::Back);
  EXPECT_EQ(filedialog::AreaOfAltKey(virtual_key::kUp), HotArea::Up);
  EXPECT_EQ(filedialog::AreaOfAltKey(filedialog::kKeyOfPlaces), std::nullopt);
}

TEST(BrowserKeys, ListAnewAndWalkWhereverTheFocusIs) {
  EXPECT_EQ(filedialog::WindowCommandOf(virtual_key::kF5), filedialog::WindowCommand::Refresh);
  EXPECT_EQ(filedialog::WindowCommandOf(virtual_key::kF6), filedialog::WindowCommand::WalkParts);
  for (const int key : {kKeyF1, virtual_key::kF2, virtual_key::kF4}) {
    EXPECT_EQ(filedialog::WindowCommandOf(key), std::nullopt);
  }
}

TEST(BrowserKeys, SortByTheColumnOfTheirNumber) {
  for (int column = 0; column < 5; ++column) EXPECT_EQ(filedialog::ColumnOfCtrlKey('1' + column), column);
  for (const char key : {'0', '6', 'A'}) EXPECT_EQ(filedialog::ColumnOfCtrlKey(key), std::nullopt);
}

TEST(BrowserKeys, WalkThroughThePartsAndBack) {
  const std::vector<BrowserPart> round = {BrowserPart::List, BrowserPart::Names, BrowserPart::Places,
                                          BrowserPart::List};
  for (std::size_t at = 0; at + 1 < round.size(); ++at) {
    EXPECT_EQ(NextPart(round[at], Walk::Forward, true), round[at + 1]);
    EXPECT_EQ(NextPart(round[at + 1], Walk::Backward, true), round[at]);
  }
  EXPECT_EQ(NextPart(std::nullopt, Walk::Forward, true), BrowserPart::List);
  EXPECT_EQ(NextPart(std::nullopt, Walk::Backward, true), BrowserPart::List);
}

TEST(BrowserKeys, PassOverALocationBarThatCannotBeUsed) {
  EXPECT_EQ(NextPart(BrowserPart::Names, Walk::Forward, false), BrowserPart::List);
  EXPECT_EQ(NextPart(BrowserPart::List, Walk::Backward, false), BrowserPart::Names);
}

// ---------------------------------------------------------------------------------------------------------------------
// the focused row

TEST_F(FileBrowserKeys, TheFolderThatWasLeftHasTheFocusAfterGoingUp) {
  Run([](PlayedBrowser& browser) {
    browser.OpenRow("Sub");
    browser.Up();
    EXPECT_EQ(browser.FocusedName(), "Sub");
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    browser.Up();
    EXPECT_EQ(browser.FocusedName(), "data");
    browser.Up();
    EXPECT_EQ(browser.Rows(), (Texts{"SYSTEM (C:)", "REMOVABLE (D:)"}));
    EXPECT_EQ(browser.FocusedName(), "SYSTEM (C:)");
  });
}

TEST_F(FileBrowserKeys, TheLetterCaseInWhichAFolderWasTypedDoesNotMatterAfterGoingUp) {
  Run([](PlayedBrowser& browser) {
    browser.Enter("C:\\DATA\\sub");
    browser.Up();
    EXPECT_EQ(browser.FocusedName(), "Sub");
  });
}

// The focus is no choice: OK acts on the text, as it would have without it.
TEST_F(FileBrowserKeys, AfterGoingUpOkMeansWhatItMeantBefore) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.OpenRow("Sub");
    browser.TypeName("a.mdl");
    browser.Up();
    browser.Ok();
  });
  EXPECT_EQ(outcome.answer, 1);
  EXPECT_EQ(outcome.result, "C:\\data\\a.mdl");
}

TEST_F(FileBrowserKeys, AChangeOfTheViewKeepsTheFocusedRowByItsName) {
  Run([](PlayedBrowser& browser) {
    browser.ClickHeader(0);  // descending
    browser.ClickRow("A-001.MDL");
    browser.ChooseView(ViewMode::List);
    EXPECT_EQ(browser.FocusedName(), "A-001.MDL");
    EXPECT_EQ(browser.SelectedNames(), Texts{});
  });
}

TEST_F(FileBrowserKeys, ADeclinedDeletionKeepsTheFocusedRow) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    World().shell.deleteOutcome.aborted = true;
    browser.Delete();
    EXPECT_EQ(browser.FocusedName(), "b.mdl");
    EXPECT_EQ(browser.SelectedNames(), Texts{});
  });
}

TEST_F(FileBrowserKeys, ADeletedRowLeavesTheFocusToNoOther) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    browser.Delete();
    EXPECT_EQ(browser.FocusedName(), "");
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// listing anew

TEST_F(FileBrowserKeys, RefreshingShowsWhatIsNewAndKeepsSelectionFocusAndScrolling) {
  startUp_.listStyle = filedialog::kListMultiple;
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    browser.AddRow("表.mdl");
    browser.FocusRow("ソ.mdl");
    browser.ScrollTo({0, 3});
    World().files.AddFile("C:\\data\\0.mdl");
    TakeListings();
    browser.Refresh();
    EXPECT_EQ(TakeListings(), 1U);
    EXPECT_EQ(browser.Rows().at(3), "0.mdl");
    EXPECT_EQ(browser.SelectedNames(), (Texts{"b.mdl", "表.mdl"}));
    EXPECT_EQ(browser.FocusedName(), "ソ.mdl");
    EXPECT_EQ(browser.ScrollPlace().y, 3);
  });
}

TEST_F(FileBrowserKeys, OkTakesASelectionThatWasKeptAsTheUsers) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ClickRow("Sub");  // the name box shows no folder
    browser.TypeName("");
    browser.ClickRow("Sub");
    browser.Refresh();
    browser.Ok();
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
  });
  EXPECT_EQ(outcome.answer, 2);
}

TEST_F(FileBrowserKeys, ATypedNameStaysWhatOkMeansWhenTheListIsRefreshed) {
  const Outcome outcome = Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    browser.TypeName("a.mdl");
    browser.Refresh();
    EXPECT_EQ(browser.Name(), "a.mdl");
    browser.Ok();
  });
  EXPECT_EQ(outcome.result, "C:\\data\\a.mdl");
}

TEST_F(FileBrowserKeys, ASelectedRowThatHasGoneIsTakenOutOfTheNameBox) {
  startUp_.listStyle = filedialog::kListMultiple;
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    browser.AddRow("表.mdl");
    World().files.Remove("C:\\data\\b.mdl");
    browser.Refresh();
    EXPECT_EQ(browser.SelectedNames(), Texts{"表.mdl"});
    EXPECT_EQ(browser.Name(), "表.mdl");
  });
}

TEST_F(FileBrowserKeys, ATypedNameStaysAlsoWhenASelectedRowHasGone) {
  Run([](PlayedBrowser& browser) {
    browser.ClickRow("b.mdl");
    browser.TypeName("new.mdl");
    World().files.Remove("C:\\data\\b.mdl");
    browser.Refresh();
    EXPECT_EQ(browser.SelectedNames(), Texts{});
    EXPECT_EQ(browser.Name(), "new.mdl");
  });
}

TEST_F(FileBrowserKeys, AColumnThatThereIsNotIsNotSortedBy) {
  Run([](PlayedBrowser& browser) {
    browser.ClickHeader(1);
    for (const int column : {3, 4}) browser.ClickHeader(column);
    EXPECT_EQ(browser.SortMark(1), 1);
    browser.ChooseView(ViewMode::List);
    browser.ClickHeader(0);
    EXPECT_EQ(browser.Rows(), kAllRows);
  });
}

}  // namespace
}  // namespace browser_test
