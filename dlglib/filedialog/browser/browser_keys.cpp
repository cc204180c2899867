#include "dlglib/filedialog/browser/browser_keys.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "dlglib/base/virtual_keys.h"

namespace filedialog {

namespace {

template <class Value, std::size_t kCount>
std::optional<Value> Find(const std::pair<int, Value> (&table)[kCount], int key) {
  const auto* const found = std::ranges::find(table, key, &std::pair<int, Value>::first);
  return found == std::end(table) ? std::nullopt : std::optional(found->second);
}

}  // namespace

std::optional<ListCommand> ListCommandOf(int key) {
  static constexpr std::pair<int, ListCommand> kKeys[] = {{virtual_key::kBackspace, ListCommand::Up},
                                                          {virtual_key::kF2, ListCommand::Rename},
                                                          {virtual_key::kDelete, ListCommand::Delete},
                                                          {virtual_key::kF4, ListCommand::OpenPlaces}};
  return Find(kKeys, key);
}

std::optional<int> ColumnOfCtrlKey(int key) {
  if (key < '1' || key > '5') return std::nullopt;
  return key - '1';
}

std::optional<HotArea> AreaOfAltKey(int key) {
  static constexpr std::pair<int, HotArea> kKeys[] = {{'V', HotArea::View},
                                                      {'N', HotArea::NewFolder},
                                                      {'R', HotArea::Label},
                                                      {virtual_key::kLeft, HotArea::Back},
                                                      {virtual_key::kUp, HotArea::Up}};
  return Find(kKeys, key);
}

std::optional<WindowCommand> WindowCommandOf(int key) {
  static constexpr std::pair<int, WindowCommand> kKeys[] = {{virtual_key::kF5, WindowCommand::Refresh},
                                                            {virtual_key::kF6, WindowCommand::WalkParts}};
  return Find(kKeys, key);
}

BrowserPart NextPart(std::optional<BrowserPart> from, Walk walk, bool hasPlaces) {
  if (!from) return BrowserPart::List;
  const int count = hasPlaces ? 3 : 2;
  const int step = walk == Walk::Forward ? 1 : count - 1;
  return static_cast<BrowserPart>((static_cast<int>(*from) + step) % count);
}

}  // namespace filedialog
