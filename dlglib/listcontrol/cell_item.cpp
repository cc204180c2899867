#include "dlglib/listcontrol/cell_item.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace grid {

namespace {

struct Named {
  Colour colour;  ///< 0x00BBGGRR
  const char* name;
};

constexpr std::array<Named, 12> kNamed = {{{0x000000, "黒"},
                                           {0xFFFFFF, "白"},
                                           {0x808080, "灰色"},
                                           {0x0000FF, "赤"},
                                           {0x00FF00, "緑"},
                                           {0xFF0000, "青"},
                                           {0x00FFFF, "黄"},
                                           {0xFFFF00, "水色"},
                                           {0xFF00FF, "紫"},
                                           {0x0080FF, "橙"},
                                           {0x004080, "茶"},
                                           {0x800000, "紺"}}};

int Part(Colour colour, unsigned int shift) { return static_cast<int>(colour >> shift & 0xFFU); }

int Distance(Colour a, Colour b) {
  int sum = 0;
  for (const unsigned int shift : {0U, 8U, 16U}) {
    const int difference = Part(a, shift) - Part(b, shift);
    sum += difference * difference;
  }
  return sum;
}

/// The entry whose value is the cell's text; the colour's name without one.
std::string ColourText(const std::string& text, Colour colour, const SpokenColumn& column) {
  const auto isMeant = [&](const std::string& entry) {
    return entry == text || (!text.empty() && entry.starts_with(text + column.separator));
  };
  const auto found = std::ranges::find_if(column.entries, isMeant);
  return found != column.entries.end() ? *found : ColourName(colour);
}

std::string StateText(bool available, bool error) {
  if (available) return error ? "誤り" : "";
  return error ? "使用不可、誤り" : "使用不可";
}

/// A click on a cell without editors, as that of a row's number, selects its row.
const char* ActionText(bool available, const SpokenColumn& column) {
  if (!available) return "";
  return column.hasBox || column.hasList ? "編集" : "選択";
}

std::string FirstTexts(const GridModel& model, int row, std::span<const int> columns) {
  constexpr int kMostTexts = 3;
  std::string texts;
  int count = 0;
  for (const int column : columns) {
    const std::string text = model.Text(row, column);
    if (text.empty()) continue;
    if (++count > kMostTexts) break;
    texts += (count > 1 ? "、" : "") + text;
  }
  return texts;
}

}  // namespace

const char* ColourName(Colour colour) noexcept {
  const auto nearer = [colour](const Named& a, const Named& b) {
    return Distance(a.colour, colour) < Distance(b.colour, colour);
  };
  return std::min_element(kNamed.begin(), kNamed.end(), nearer)->name;
}

accessible::Item CellItem(const GridModel& model, CellPosition cell, const SpokenColumn& column) {
  const CellLooks looks = model.Looks(cell.row, cell.column);
  const std::string text = model.Text(cell.row, cell.column);
  const bool available = looks.available == 0;
  accessible::Item item;
  item.name = column.title;
  item.value = column.kind == kColourColumn ? ColourText(text, looks.text, column) : text;
  item.description = StateText(available, looks.error != 0);
  item.role = accessible::Role::Cell;
  item.action = ActionText(available, column);
  item.states = available ? accessible::kFocusable | accessible::kSelectable : accessible::kUnavailable;
  if (available && column.hasList) item.states |= accessible::kHasPopup;
  if (model.ShowsSelected(cell.row)) item.states |= accessible::kSelected;
  return item;
}

accessible::Item RowItem(const GridModel& model, int row, std::span<const int> columns) {
  accessible::Item item;
  item.name = std::to_string(row + 1) + " 行";
  item.value = FirstTexts(model, row, columns);
  item.role = accessible::Role::Row;
  item.states = accessible::kFocusable | accessible::kSelectable;
  if (model.ShowsSelected(row)) item.states |= accessible::kSelected;
  return item;
}

std::string BoxName(CellPosition cell, const std::string& title) {
  return title + "、" + std::to_string(cell.row + 1) + " 行";
}

}  // namespace grid
