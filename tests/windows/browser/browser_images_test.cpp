// The images of the browser are made once for many dialogs.
#include <memory>
#include <thread>
#include <vector>

#include "dlglib/filedialog/window/CvBrowserImages.h"
#include "dlglib/resources/resource.h"
#include "platform/os/os_scripted_display.h"
#include "tests/windows/browser/browser_world.h"

namespace browser_test {
namespace {

using filedialog::BrowserImages;
using Lists = std::vector<LRESULT>;

constexpr int kDesign = 96;

std::shared_ptr<BrowserImages> At(int dpi) { return BrowserImages::For(scale::Scale(dpi)); }

/// Ends when nobody uses them and they are not kept.
std::weak_ptr<BrowserImages> Left(int dpi) { return At(dpi); }

class BrowserImagesTest : public BrowserTest {
 protected:
  Lists ListsOfABrowser() {
    Lists lists;
    Run([&lists](Browser& browser) {
      const HWND list = browser.Window().Child(IDC_FILE_LIST).Handle();
      for (const WPARAM kind : {WPARAM{LVSIL_NORMAL}, WPARAM{LVSIL_SMALL}}) {
        lists.push_back(::SendMessageW(list, LVM_GETIMAGELIST, kind, 0));
      }
    });
    return lists;
  }

 private:
  const os::DisplayScope display_;
};

TEST_F(BrowserImagesTest, AreThoseOfTheFormerDialogForTheNextOne) {
  const std::weak_ptr<BrowserImages> before = Left(kDesign);
  const Lists first = ListsOfABrowser();
  EXPECT_EQ(ListsOfABrowser(), first);
  EXPECT_FALSE(before.expired());
}

TEST_F(BrowserImagesTest, AreOthersInOtherColoursAndTheFirstOnesAgainAfterwards) {
  const std::weak_ptr<BrowserImages> plain = Left(kDesign);
  os::DisplayOfTest().highContrast = true;
  EXPECT_NE(At(kDesign), plain.lock());
  os::DisplayOfTest().highContrast = false;
  EXPECT_EQ(At(kDesign), plain.lock());
}

TEST_F(BrowserImagesTest, OfTheTwoScalesAskedForLastStay) {
  const std::weak_ptr<BrowserImages> first = Left(kDesign);
  const std::weak_ptr<BrowserImages> second = Left(144);
  static_cast<void>(At(kDesign));
  const std::weak_ptr<BrowserImages> third = Left(192);
  EXPECT_FALSE(first.expired());
  EXPECT_TRUE(second.expired());
  EXPECT_FALSE(third.expired());
}

TEST_F(BrowserImagesTest, InUseStayHoweverManyOthersAreAskedFor) {
  const std::shared_ptr<BrowserImages> used = At(kDesign);
  static_cast<void>(At(144));
  static_cast<void>(At(192));
  EXPECT_NE(::GetObjectType(used->Button(filedialog::HotArea::Up, filedialog::ButtonImage::Normal)), 0U);
  EXPECT_EQ(::ImageList_GetImageCount(used->Small()), filedialog::kImageCount);
}

TEST_F(BrowserImagesTest, OfTwoThreadsAreNeverTheSame) {
  const std::shared_ptr<BrowserImages> here = At(kDesign);
  std::shared_ptr<BrowserImages> there;
  std::thread([&there] { there = At(kDesign); }).join();
  EXPECT_NE(here, there);
}

}  // namespace
}  // namespace browser_test
