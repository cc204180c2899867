#include "dlglib/filedialog/browser/browser_keys.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace filedialog {

namespace {

template <class Value, std::size_t kCount>
std::optional<Value> Find(const std::pair<int, Value> (&table)[kCount], int key) {
  const auto* const found = std::ranges::find(table, key, &std::pair<int, Value>::first);
  return found == std::end(table) ? std::nullopt : std::optional(found->second);
}

}  // namespace

std::optional<ListCommand> ListCommandOf(int key) {
  static constexpr std::pair<int, ListCommand> kKeys[] = {
      {kKeyBackspace, ListCommand::Up}, {kKeyF2, ListCommand::Rename}, {kKeyDelete, ListCommand::Delete}};
  return Find(kKeys, key);
}

std::optional<HotArea> AreaOfAltKey(int key) {
  static constexpr std::pair<int, HotArea> kKeys[] = {
      {'V', HotArea::View}, {'N', HotArea::NewFolder}, {'R', HotArea::Label}, {kKeyLeft, HotArea::Back}};
  return Find(kKeys, key);
}

}  // namespace filedialog
