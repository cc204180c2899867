#include "dlglib/filsel/result_buffer.h"

#include <string_view>

#include "dlglib/base/shift_jis.h"

namespace filsel {

namespace {

bool StartsFullPath(std::string_view text) noexcept {
  return text.starts_with("\\\\") || (text.size() > 2 && text.substr(1, 2) == ":\\");
}

}  // namespace

ResultBuffer::ResultBuffer(SjisView text) : bytes_(kBytes, '\0') {
  shift_jis::CopyBounded(bytes_.data(), kCapacity, text.bytes());
}

SjisView ResultBuffer::Text() const noexcept {
  const std::string_view room(bytes_.data(), kCapacity);
  return SjisView(room.substr(0, room.find('\0')));
}

std::vector<SjisView> WholePaths(SjisView result) {
  const std::string_view bytes = result.bytes();
  std::vector<SjisView> paths;
  std::size_t start = 0;
  for (std::size_t blank = bytes.find(' '); blank != std::string_view::npos; blank = bytes.find(' ', blank + 1)) {
    if (!StartsFullPath(bytes.substr(blank + 1))) continue;
    paths.emplace_back(bytes.substr(start, blank - start));
    start = blank + 1;
  }
  if (start < bytes.size()) paths.emplace_back(bytes.substr(start));
  return paths;
}

SjisView NameWalk::First(SjisView result, ResultForm form) noexcept {
  End();
  return form == ResultForm::List ? UpToBlank(result, 0) : result;
}

SjisView NameWalk::Next(SjisView result) noexcept {
  if (!cursor_ || *cursor_ >= result.size() || result.bytes()[*cursor_] != ' ') return {};
  return UpToBlank(result, *cursor_ + 1);
}

SjisView NameWalk::UpToBlank(SjisView result, std::size_t from) noexcept {
  const std::string_view bytes = result.bytes();
  const std::size_t blank = bytes.find(' ', from);
  if (blank == std::string_view::npos) {
    End();
    return SjisView(bytes.substr(from));
  }
  cursor_ = blank;
  return SjisView(bytes.substr(from, blank - from));
}

}  // namespace filsel
