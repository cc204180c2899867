#include "dlglib/filedialog/place/location_history.h"

#include <algorithm>
#include <utility>

#include "dlglib/base/path_text.h"

namespace filedialog {

void LocationHistory::Record(HistoryRecord record) {
  if (records_.size() < kCapacity) records_.push_back(std::move(record));
}

bool LocationHistory::EndsAt(const Location& location, std::string_view pattern, std::string_view extension) const {
  if (records_.empty()) return false;
  const HistoryRecord& newest = records_.back();
  const auto isSame = [](const Place& a, const Place& b) { return a.kind == b.kind && IsSamePath(a.path, b.path); };
  return newest.location.fixed == location.fixed && newest.pattern == pattern && newest.extension == extension &&
         std::equal(newest.location.trail.begin(), newest.location.trail.end(), location.trail.begin(),
                    location.trail.end(), isSame);
}

const HistoryRecord& LocationHistory::Back() {
  records_.pop_back();
  return records_.back();
}

}  // namespace filedialog
