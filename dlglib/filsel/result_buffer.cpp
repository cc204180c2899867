#include "dlglib/filsel/result_buffer.h"

#include "dlglib/base/shift_jis.h"

namespace filsel {

namespace {

bool StartsFullPath(std::string_view text) noexcept {
  return text.starts_with("\\\\") || (text.size() > 2 && text.substr(1, 2) == ":\\");
}

}  // namespace

ResultBuffer::ResultBuffer(std::string_view text) : bytes_(kBytes, '\0') {
  shift_jis::CopyBounded(bytes_.data(), kCapacity, text);
}

std::string_view ResultBuffer::Text() const noexcept {
  const std::string_view room(bytes_.data(), kCapacity);
  return room.substr(0, room.find('\0'));
}

std::vector<std::string_view> WholePaths(std::string_view result) {
  std::vector<std::string_view> paths;
  std::size_t start = 0;
  for (std::size_t blank = result.find(' '); blank != std::string_view::npos; blank = result.find(' ', blank + 1)) {
    if (!StartsFullPath(result.substr(blank + 1))) continue;
    paths.push_back(result.substr(start, blank - start));
    start = blank + 1;
  }
  if (start < result.size()) paths.push_back(result.substr(start));
  return paths;
}

std::string_view NameWalk::First(std::string_view result, ResultForm form) noexcept {
  End();
  return form == ResultForm::List ? UpToBlank(result, 0) : result;
}

std::string_view NameWalk::Next(std::string_view result) noexcept {
  if (!cursor_ || *cursor_ >= result.size() || result[*cursor_] != ' ') return {};
  return UpToBlank(result, *cursor_ + 1);
}

std::string_view NameWalk::UpToBlank(std::string_view result, std::size_t from) noexcept {
  const std::size_t blank = result.find(' ', from);
  if (blank == std::string_view::npos) {
    End();
    return result.substr(from);
  }
  cursor_ = blank;
  return result.substr(from, blank - from);
}

}  // namespace filsel
