// What the rows of the browser's list say where they have other columns than a folder's: drives, and titles of models.
#include <gtest/gtest.h>

#include "tests/support/played_models.h"
#include "tests/windows/accessible/tool.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/support/hanging_calls.h"

namespace browser_test {
namespace {

using driver::Accessible;
using spoken::Tool;

class BrowserTree : public BrowserTest {
 protected:
  static std::string ToldOfList(const Browser& browser) {
    return Tool(browser.Person())
        .Ask(browser.List(), spoken::Whole, [](const Accessible& list) { return driver::TreeText(list); })
        .value();
  }
  /// Once the rows have been drawn.
  static void ExpectTold(const Browser& browser, const std::string& tree) {
    browser.Person().WaitUntil("the list says\n" + tree, [&] { return ToldOfList(browser) == tree; });
  }
};

TEST_F(BrowserTree, DrivesSayTheirColumns) {
  Run([](Browser& browser) {
    browser.Up();
    browser.Up();
    browser.Person().WaitUntil("the drives are listed", [&] { return browser.Rows().size() == 2; });
    browser.Person().Settle();
    ExpectTold(
        browser,
        "リスト「一覧」 フォーカス\n"
        "  項目「SYSTEM (C:)」 説明「ドライブ、種類 ローカルドライブ、合計サイズ 1.00 GB、空き領域 512.00 MB」"
        " 動作「開く」 フォーカス\n"
        "  項目「REMOVABLE (D:)」 説明「ドライブ、種類 リムーバブルドライブ、合計サイズ 1.00 GB、空き領域 512.00 MB」"
        " 動作「開く」\n"
        "  （部品）「見出し」\n");
  });
}

TEST_F(BrowserTree, ReadingTheRowsReadsNoFile) {
  constexpr int kFiles = 300;
  for (int i = 0; i < kFiles; ++i) World().files.AddFile("C:\\data\\f" + std::to_string(1000 + i) + ".mdl");
  SaveNumber("Form", 2);
  Run([](Browser& browser) {
    browser.Person().Settle();
    World().calls.ClearLog();
    const std::string told = ToldOfList(browser);
    EXPECT_NE(told.find("f1299.mdl"), std::string::npos) << "one that is far out of sight";
    EXPECT_EQ(World().calls.Log(), Texts{});
    EXPECT_EQ(World().calls.Total(), 0U);
  });
}

TEST_F(BrowserTree, ReadingTheDrivesAsksNoneOfThem) {
  Run([](Browser& browser) {
    driver::HangingCalls hanging("drives.Space");
    browser.Up();
    browser.Up();
    browser.Person().WaitUntil("a drive is asked", [&] { return hanging.Now() > 0; });
    browser.Person().Settle();
    const std::size_t asked = World().calls.Count("drives.Space");
    for (int times = 0; times < 3; ++times) {
      EXPECT_NE(ToldOfList(browser).find("「SYSTEM (C:)」 説明「ドライブ、種類 ローカルドライブ」"), std::string::npos);
    }
    EXPECT_EQ(World().calls.Count("drives.Space"), asked) << "a drive that hangs is not asked again";
    hanging.LetGo();
    browser.Person().WaitUntil("the space is told",
                               [&] { return ToldOfList(browser).find("合計サイズ") != std::string::npos; });
    browser.Person().Settle();
    World().calls.ClearLog();
    for (int times = 0; times < 3; ++times) static_cast<void>(ToldOfList(browser));
    EXPECT_EQ(World().calls.Count("drives.Space"), 0U) << "nor one that answers";
  });
}

TEST_F(BrowserTree, ModelsSayTheirTitles) {
  played_models::Begin();
  startUp_.initialFolder = played_models::kFolder;
  constexpr int kTitleView = 4;
  SaveNumber("Form", kTitleView);
  World().registry.SetValue(kLayoutKey, "Title1", os::RegistryType::Binary, std::string("\x01\0", 2));
  Run([](Browser& browser) {
    browser.Person().Settle();
    ExpectTold(browser,
               "リスト「一覧」 フォーカス\n"
               "  項目「folder」 説明「フォルダ」 動作「開く」\n"
               "  項目「a.mdl」 説明「ファイル、図面名称 平面図」 動作「開く」\n"
               "  項目「b.mdl」 説明「ファイル、図面名称 表示ソ」 動作「開く」\n"
               "  項目「c.mdl」 説明「ファイル、図面名称 平面図」 動作「開く」\n"
               "  項目「d.mdl」 説明「ファイル」 動作「開く」\n"
               "  （部品）「見出し」\n");
  });
}

}  // namespace
}  // namespace browser_test
