#include "dlglib/filedialog/basics/call_site.h"

#include <gtest/gtest.h>

namespace {

using filedialog::SiteOf;

TEST(CallSite, IsTheSameForAllSpellingsOfAPath) {
  EXPECT_EQ(SiteOf("C:\\Dead").path, SiteOf("c:\\dead\\").path);
  EXPECT_NE(SiteOf("C:\\dead").path, SiteOf("C:\\other").path);
}

TEST(CallSite, BelongsToItsDrive) {
  EXPECT_EQ(SiteOf("z:\\a\\b").device, "Z:");
  EXPECT_EQ(SiteOf("Z:").device, "Z:");
}

TEST(CallSite, BelongsToItsComputerWhicheverShareItIsOn) {
  EXPECT_EQ(SiteOf("\\\\dead\\one\\a").device, "\\\\DEAD");
  EXPECT_EQ(SiteOf("\\\\Dead\\two").device, "\\\\DEAD");
  EXPECT_EQ(SiteOf("\\\\dead").device, "\\\\DEAD");
  EXPECT_EQ(SiteOf("\\\\表\\one").device, "\\\\表") << "a second byte is no separator";
}

TEST(CallSite, OfATextThatIsNoFullPathHasNoDevice) {
  EXPECT_EQ(SiteOf("").path, "");
  EXPECT_EQ(SiteOf("").device, "");
  EXPECT_EQ(SiteOf("network").device, "");
}

}  // namespace
