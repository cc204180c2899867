#include "dlglib/filedialog/listing/list_notice.h"

#include <algorithm>

namespace filedialog {

namespace {

/// Neither is the second byte of a character.
bool IsOfCount(char c) noexcept { return (c >= '0' && c <= '9') || c == ','; }

bool HaveSameWords(std::string_view one, std::string_view other) noexcept {
  const auto* a = one.begin();
  const auto* b = other.begin();
  while (true) {
    a = std::find_if_not(a, one.end(), IsOfCount);
    b = std::find_if_not(b, other.end(), IsOfCount);
    if (a == one.end() || b == other.end()) return a == one.end() && b == other.end();
    if (*a++ != *b++) return false;
  }
}

std::string_view SeenRemark(const ListNotice& notice) noexcept {
  return notice.line.empty() ? notice.remark : std::string_view();
}

}  // namespace

NoticeNews NewsOf(const ListNotice& before, const ListNotice& now) noexcept {
  return {before.line.empty() != now.line.empty(), !HaveSameWords(before.line, now.line),
          SeenRemark(before) != SeenRemark(now)};
}

}  // namespace filedialog
