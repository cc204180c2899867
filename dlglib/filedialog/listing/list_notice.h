// What the list says beside its rows, and what those who do not see it are told of that.
#pragma once

#include <string_view>

namespace filedialog {

/// Shift_JIS; empty for what is not said.
struct ListNotice {
  std::string_view line;    ///< in place of the rows, while something is waited for
  std::string_view remark;  ///< at the lower edge, below rows that are seen
};

/// What is another one.
struct NoticeNews {
  bool rows = false;  ///< a line has taken their place, or has gone
  bool line = false;  ///< its words: a count that moves says nothing new
  bool remark = false;

  friend bool operator==(const NoticeNews&, const NoticeNews&) = default;
};

[[nodiscard]] NoticeNews NewsOf(const ListNotice& before, const ListNotice& now) noexcept;

}  // namespace filedialog
