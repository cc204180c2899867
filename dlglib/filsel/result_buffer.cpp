#include "dlglib/filsel/result_buffer.h"

#include "dlglib/utility/shift_jis.h"

namespace filsel {

ResultBuffer::ResultBuffer(std::string_view text) : bytes_(kBytes, '\0') {
  shift_jis::CopyBounded(bytes_.data(), kCapacity, text);
}

std::string_view ResultBuffer::Text() const noexcept {
  const std::string_view room(bytes_.data(), kCapacity);
  return room.substr(0, room.find('\0'));
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
