#include "dlglib/filedialog/listing/list_columns.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>

#include "dlglib/filedialog/basics/model_titles.h"

namespace filedialog {

namespace {

constexpr char kName[] = "名前";

/// `part` / `parts` of the space, in whole pixels.
int Share(int spacePx, int part, int parts) { return static_cast<int>(static_cast<long long>(spacePx) * part / parts); }

ListColumn Left(const char* header, int widthPx) { return {header, TextAlign::Left, widthPx}; }
ListColumn Right(const char* header, int widthPx) { return {header, TextAlign::Right, widthPx}; }

bool IsSaved(std::int32_t widthPx) { return widthPx >= 1; }

void UseSavedIfAll(std::span<const std::int32_t> saved, scale::Scale scale, std::vector<ListColumn>* columns) {
  if (!std::all_of(saved.begin(), saved.end(), IsSaved)) return;
  for (std::size_t i = 0; i < columns->size(); ++i) (*columns)[i].widthPx = scale.ToScreen(saved[i]);
}

std::string TitleHeader(CwModel* model, int item, const std::string& ownText) {
  if (!ownText.empty()) return ownText;
  const std::optional<SjisText> name = ShownTitleName(model, item);
  return name ? name->bytes() : std::to_string(item);
}

std::vector<ListColumn> ModelTitleColumns(const ShownListing& listing, CwModel* model, int spacePx,
                                          scale::Scale scale) {
  const std::size_t count = TitleCount(listing);
  std::vector<ListColumn> columns{Left(kName, Share(spacePx, 1, 3))};
  for (std::size_t i = 0; i < count; ++i) {
    columns.push_back({TitleHeader(model, listing.titles.items[i], listing.titles.texts[i]), TextAlign::Left,
                       Share(spacePx, 2, 3 * static_cast<int>(count))});
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::int32_t widthPx = listing.titles.widths[i];
    if (IsSaved(widthPx)) columns[i].widthPx = scale.ToScreen(widthPx);
  }
  return columns;
}

std::vector<ListColumn> SingleTitleColumns(const LayoutRecord& saved, int spacePx, scale::Scale scale) {
  std::vector<ListColumn> columns{Left(kName, Share(spacePx, 1, 3)), Left("説明", Share(spacePx, 2, 3))};
  UseSavedIfAll(saved.plainTitleWidths, scale, &columns);
  return columns;
}

std::vector<ListColumn> DetailColumns(const LayoutRecord& saved, int spacePx, scale::Scale scale) {
  std::vector<ListColumn> columns{Left(kName, Share(spacePx, 3, 6)), Right("サイズ", Share(spacePx, 1, 6)),
                                  Left("更新日時", Share(spacePx, 2, 6))};
  UseSavedIfAll(saved.detailWidths, scale, &columns);
  return columns;
}

}  // namespace

int ColumnSpace(int listWidthPx, int scrollBarWidthPx, scale::Scale scale) {
  constexpr int kLeftFree = 4;
  return std::max(0, listWidthPx - scrollBarWidthPx - scale.ToScreen(kLeftFree));
}

std::vector<ListColumn> ColumnsOf(const ShownListing& listing, const LayoutRecord& saved, CwModel* model, int spacePx,
                                  scale::Scale scale) {
  if (ShowsModelTitles(listing)) return ModelTitleColumns(listing, model, spacePx, scale);
  switch (listing.mode) {
    case ListingMode::Titles:
      return SingleTitleColumns(saved, spacePx, scale);
    case ListingMode::Network:
      return {Left(kName, Share(spacePx, 2, 5)), Left("コメント", Share(spacePx, 3, 5))};
    case ListingMode::Drives:
      return {Left(kName, Share(spacePx, 2, 6)), Left("種類", Share(spacePx, 2, 6)),
              Right("合計サイズ", Share(spacePx, 1, 6)), Right("空き領域", Share(spacePx, 1, 6))};
    case ListingMode::Details:
      break;
  }
  return DetailColumns(saved, spacePx, scale);
}

}  // namespace filedialog
