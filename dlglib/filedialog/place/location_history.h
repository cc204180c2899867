// The steps through the places that "back" walks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/place/place.h"

namespace filedialog {

/// What one step of the history restores.
struct HistoryRecord {
  Location location;
  std::string name;  ///< text of the file name box
  std::string pattern;
  std::string extension;
};

/// The places the user came through, the current one last; at most 1,000, further ones are not recorded.
class LocationHistory {
 public:
  static constexpr std::size_t kCapacity = 1000;

  void Record(HistoryRecord record);
  /// Whether the newest step shows the same: going there again is no step.
  [[nodiscard]] bool EndsAt(const Location& location, std::string_view pattern, std::string_view extension) const;
  [[nodiscard]] bool CanGoBack() const { return records_.size() >= 2; }
  /// Drops the newest record and answers the one before it. Only when CanGoBack.
  [[nodiscard]] const HistoryRecord& Back();
  [[nodiscard]] std::size_t size() const { return records_.size(); }

 private:
  std::vector<HistoryRecord> records_;
};

}  // namespace filedialog
