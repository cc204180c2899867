#include "dlglib/filedialog/listing/list_columns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvnmdl.h"
#include "tests/support/encodings.h"

namespace {

using namespace filedialog;

class ListColumns : public testing::Test {
 protected:
  ListColumns() { CwSession::Reset(); }
  ~ListColumns() override { CwSession::Reset(); }

  static ShownListing Listing(ListingMode mode, int titleClass = 0, int titleCount = 0) {
    ShownListing listing;
    listing.mode = mode;
    listing.titleClass = titleClass;
    listing.titles.count = titleCount;
    listing.titles.items = {201, 1, 203, 204};
    return listing;
  }

  /// "header:alignment:width " of each column.
  std::string Columns(const ShownListing& listing, int spacePx, scale::Scale scale = {}) const {
    std::string text;
    for (const ListColumn& column : ColumnsOf(listing, saved_, GetActiveModel(), spacePx, scale)) {
      const char* align = column.align == TextAlign::Right ? ":R:" : ":L:";
      text += column.header + align + std::to_string(column.widthPx) + " ";
    }
    return text;
  }

  LayoutRecord saved_;
};

TEST_F(ListColumns, ShareTheWindowWithoutItsScrollBar) {
  EXPECT_EQ(ColumnSpace(520, 16), 500);
  EXPECT_EQ(ColumnSpace(20, 16), 0);
  EXPECT_EQ(ColumnSpace(0, 16), 0);
}

TEST_F(ListColumns, TheColumnOfNamesAloneHasAFifthOfTheList) {
  EXPECT_EQ(filedialog::LeastListWidth(504), 100);
  EXPECT_EQ(filedialog::LeastListWidth(4), 0);
}

TEST_F(ListColumns, Details) {
  EXPECT_EQ(Columns(Listing(ListingMode::Details), 500), "名前:L:250 サイズ:R:83 更新日時:L:166 ");
  EXPECT_EQ(Columns(Listing(ListingMode::Details), 505), "名前:L:252 サイズ:R:84 更新日時:L:168 ");
  EXPECT_EQ(Columns(Listing(ListingMode::Details), 0), "名前:L:0 サイズ:R:0 更新日時:L:0 ");
}

TEST_F(ListColumns, DetailsUseSavedWidthsOnlyTogether) {
  saved_.detailWidths = {10, 20, 30};
  EXPECT_EQ(Columns(Listing(ListingMode::Details), 600), "名前:L:10 サイズ:R:20 更新日時:L:30 ");
  saved_.detailWidths = {10, 0, 30};
  EXPECT_EQ(Columns(Listing(ListingMode::Details), 600), "名前:L:300 サイズ:R:100 更新日時:L:200 ");
  saved_.detailWidths = {10, 20, -5};
  EXPECT_EQ(Columns(Listing(ListingMode::Details), 600), "名前:L:300 サイズ:R:100 更新日時:L:200 ");
}

TEST_F(ListColumns, SavedWidthsAreOfAScreenOf96Dpi) {
  const scale::Scale scale(144);
  EXPECT_EQ(ColumnSpace(520, 16, scale), 498);
  saved_.detailWidths = {10, 20, 31};
  EXPECT_EQ(Columns(Listing(ListingMode::Details), 600, scale), "名前:L:15 サイズ:R:30 更新日時:L:47 ");
  saved_.plainTitleWidths = {11, 12};
  EXPECT_EQ(Columns(Listing(ListingMode::Titles), 600, scale), "名前:L:17 説明:L:18 ");
  saved_.detailWidths = {};
  EXPECT_EQ(Columns(Listing(ListingMode::Details), 600, scale), "名前:L:300 サイズ:R:100 更新日時:L:200 ")
      << "shares are of the screen's own pixels";
}

TEST_F(ListColumns, NetworkAndDrivesRememberNoWidths) {
  saved_.detailWidths = {1, 1, 1};
  saved_.plainTitleWidths = {1, 1};
  EXPECT_EQ(Columns(Listing(ListingMode::Network), 503), "名前:L:201 コメント:L:301 ");
  EXPECT_EQ(Columns(Listing(ListingMode::Drives), 503), "名前:L:167 種類:L:167 合計サイズ:R:83 空き領域:R:83 ");
}

TEST_F(ListColumns, SingleTitles) {
  for (const int titleClass : {0, 2, 8}) {
    EXPECT_EQ(Columns(Listing(ListingMode::Titles, titleClass, 2), 500), "名前:L:166 説明:L:333 ");
  }
  saved_.plainTitleWidths = {11, 12};
  EXPECT_EQ(Columns(Listing(ListingMode::Titles, 2), 500), "名前:L:11 説明:L:12 ");
  saved_.plainTitleWidths = {11, 0};
  EXPECT_EQ(Columns(Listing(ListingMode::Titles, 2), 500), "名前:L:166 説明:L:333 ");
}

TEST_F(ListColumns, AModelTitleIsHeadedByItsNumberWithoutAModel) {
  EXPECT_EQ(Columns(Listing(ListingMode::Titles, 1, 2), 500), "名前:L:166 201:L:166 1:L:166 ");
}

TEST_F(ListColumns, AModelTitleIsHeadedByTheModelsName) {
  CwModelTitleSet* const titles = CwSession::GetInstance()->OpenModel()->GetModelTitleSet();
  titles->SetTitle(201, 1, test_texts::Euc("図面番号"));
  EXPECT_EQ(Columns(Listing(ListingMode::Titles, 1, 4), 500), "名前:L:166 図面番号:L:83 1:L:83 203:L:83 204:L:83 ");
}

TEST_F(ListColumns, ANameOfTheModelIsCutAt256Bytes) {
  CwModelTitleSet* const titles = CwSession::GetInstance()->OpenModel()->GetModelTitleSet();
  std::string name = "a";
  while (name.size() < 400) name += "表";
  titles->SetTitle(201, 1, test_texts::Euc(name));
  const std::vector<ListColumn> columns = ColumnsOf(Listing(ListingMode::Titles, 1, 1), saved_, GetActiveModel(), 500);
  EXPECT_EQ(columns[1].header, name.substr(0, 255));
}

TEST_F(ListColumns, WithoutAModelATitleHasItsNumber) {
  CwSession::GetInstance()->OpenModel()->GetModelTitleSet()->SetTitle(201, 1, "open, and not the one asked for");
  const std::vector<ListColumn> columns = ColumnsOf(Listing(ListingMode::Titles, 1, 1), saved_, nullptr, 500);
  EXPECT_EQ(columns[1].header, "201");
}

TEST_F(ListColumns, ATitlesOwnTextComesFirst) {
  CwSession::GetInstance()->OpenModel()->GetModelTitleSet()->SetTitle(201, 1, "model");
  ShownListing listing = Listing(ListingMode::Titles, 1, 2);
  listing.titles.texts = {"注釈", ""};
  EXPECT_EQ(Columns(listing, 300), "名前:L:100 注釈:L:100 1:L:100 ");
}

TEST_F(ListColumns, ModelTitlesUseSavedWidthsEachOnItsOwn) {
  ShownListing listing = Listing(ListingMode::Titles, 1, 3);
  listing.titles.widths = {0, 55, -1, 66, 77};
  EXPECT_EQ(Columns(listing, 900), "名前:L:300 201:L:55 1:L:200 203:L:66 ");
  listing.titles.widths = {44, 0, 0, 0, 0};
  EXPECT_EQ(Columns(listing, 900), "名前:L:44 201:L:200 1:L:200 203:L:200 ");
}

TEST_F(ListColumns, WithoutChosenTitlesThereIsOnlyTheName) {
  EXPECT_EQ(Columns(Listing(ListingMode::Titles, 1, 0), 500), "名前:L:166 ");
  EXPECT_EQ(Columns(Listing(ListingMode::Titles, 1, -3), 500), "名前:L:166 ");
  EXPECT_EQ(ColumnsOf(Listing(ListingMode::Titles, 1, 99), saved_, nullptr, 500).size(), 5U);
}

}  // namespace
