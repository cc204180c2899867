#include "dlglib/filedialog/listing/list_notice.h"

#include <gtest/gtest.h>

namespace filedialog {
namespace {

constexpr NoticeNews kNothing = {};

TEST(ListNotices, ALineThatComesTakesTheRowsAwayAndOneThatGoesGivesThemBack) {
  const NoticeNews both = {true, true, false};
  EXPECT_EQ(NewsOf({}, {"読み込み中…　Esc で中止", ""}), both);
  EXPECT_EQ(NewsOf({"読み込み中…　Esc で中止", ""}, {}), both);
  EXPECT_EQ(NewsOf({}, {}), kNothing);
}

TEST(ListNotices, ACountThatMovesIsNothingNew) {
  EXPECT_EQ(NewsOf({"読み込み中… 99 件　Esc で中止", ""}, {"読み込み中… 1,234 件　Esc で中止", ""}), kNothing);
  EXPECT_EQ(NewsOf({"読み込み中… 99 件", ""}, {"作成中… 99 件", ""}), (NoticeNews{false, true, false}));
  EXPECT_EQ(NewsOf({"読み込み中… 99", ""}, {"読み込み中… 99 件", ""}), (NoticeNews{false, true, false}));
}

TEST(ListNotices, ARemarkIsNewsWhileTheRowsAreSeen) {
  const NoticeNews remark = {false, false, true};
  EXPECT_EQ(NewsOf({}, {"", "応答がありません"}), remark);
  EXPECT_EQ(NewsOf({"", "応答がありません"}, {}), remark);
  EXPECT_EQ(NewsOf({"", "1 件"}, {"", "2 件"}), remark);
  EXPECT_EQ(NewsOf({"読み込み中…", ""}, {"読み込み中…", "応答がありません"}), kNothing) << "it is not seen";
  EXPECT_EQ(NewsOf({"", "応答がありません"}, {"読み込み中…", "応答がありません"}), (NoticeNews{true, true, true}));
}

}  // namespace
}  // namespace filedialog
