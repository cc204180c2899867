// Walking, cutting and copying Shift_JIS, against a walk written down once more.
#include "dlglib/base/shift_jis.h"

#include <vector>

#include "dlglib/base/trailing_blanks.h"
#include "dlglib/listcontrol/grid_text.h"
#include "dlglib/utility/rules/file_name_check.h"
#include "dlglib/utility/rules/path_name.h"
#include "fuzz/fuzz.h"

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// The characters of a text, each a view of its bytes; the last one may be half of one.
std::vector<std::string_view> CharactersOf(std::string_view text) {
  std::vector<std::string_view> characters;
  while (!text.empty()) {
    const unsigned byte = static_cast<unsigned char>(text.front());
    const bool isSingle = byte < 0x80 || (byte > 0x9F && byte < 0xE0);
    characters.push_back(text.substr(0, isSingle ? 1 : 2));
    text.remove_prefix(characters.back().size());
  }
  return characters;
}

bool IsHalf(std::string_view character) {
  return character.size() == 1 && (static_cast<unsigned char>(character[0]) >= 0xE0 ||
                                   (character[0] < 0 && static_cast<unsigned char>(character[0]) < 0xA0));
}

/// The whole characters of `text` that fit.
std::string Cut(std::string_view text, std::size_t limit) {
  std::string cut;
  for (const std::string_view character : CharactersOf(text)) {
    if (IsHalf(character) || cut.size() + character.size() > limit) break;
    cut += character;
  }
  return cut;
}

void CheckSearches(std::string_view text, char ascii) {
  std::size_t first = kNone;
  std::size_t last = kNone;
  std::size_t at = 0;
  bool isFileName = true;
  bool hasWildcard = false;
  for (const std::string_view character : CharactersOf(text)) {
    FUZZ_CHECK(shift_jis::CharLength(text, at) == character.size());
    FUZZ_CHECK(shift_jis::FindFirst(text, character[0], at) == at || static_cast<unsigned char>(character[0]) >= 0x80);
    if (character.size() == 1 && character[0] == ascii) {
      first = std::min(first, at);
      last = at;
    }
    const bool isWildcard = character == "*" || character == "?";
    hasWildcard = hasWildcard || isWildcard;
    isFileName = isFileName &&
                 (character.size() == 2 || std::strchr("'|\"<>*?", character[0]) == nullptr || character[0] == '\0');
    at += character.size();
  }
  FUZZ_CHECK(at == text.size());
  FUZZ_CHECK(shift_jis::FindFirst(text, ascii) == first);
  FUZZ_CHECK(shift_jis::FindLast(text, ascii) == last);
  FUZZ_CHECK(path_name::LastByte(SjisView(text), ascii) == last);
  FUZZ_CHECK(shift_jis::HasWildcard(text) == hasWildcard);
  FUZZ_CHECK(file_name_check::IsFileName(text, file_name_check::Wildcards::Forbidden) == isFileName);
}

void CheckCopies(std::string_view text, std::size_t capacity) {
  const std::string_view shown = text.substr(0, text.find('\0'));
  fuzz::Block out(capacity);
  const std::size_t copied = shift_jis::CopyBounded(out.Data(), capacity, text);
  if (capacity == 0) {
    FUZZ_CHECK(copied == 0);
  } else {
    const std::string expected = Cut(shown, capacity - 1);
    FUZZ_CHECK(copied == expected.size());
    FUZZ_CHECK(out.View().substr(0, copied) == expected);
    FUZZ_CHECK(out.View()[copied] == '\0');
    FUZZ_CHECK(out.IsUntouchedFrom(copied + 1));
    // Once more onto itself: nothing changes.
    FUZZ_CHECK(shift_jis::CopyBounded(out.Data(), capacity, out.Data()) == copied);
    FUZZ_CHECK(out.View().substr(0, copied) == expected);
  }
  FUZZ_CHECK(shift_jis::CopyBounded(nullptr, capacity, text) == 0);
}

void CheckCellCopies(const std::string& text, int limit) {
  const std::size_t room = static_cast<std::size_t>(std::max(limit, 1)) + 1;
  fuzz::Block out(room);
  grid::CopyText(out.Data(), text.c_str(), limit);
  const std::string_view copied = out.View().substr(0, out.View().find('\0'));
  FUZZ_CHECK(copied.size() < room);
  const std::string_view shown = std::string_view(text).substr(0, text.find('\0'));
  const std::string one = Cut(shown, 1);
  FUZZ_CHECK(copied == (limit >= 1 ? Cut(shown, static_cast<std::size_t>(limit)) : one));
  FUZZ_CHECK(out.IsUntouchedFrom(copied.size() + 1));
}

void CheckTrimming(const std::string& text) {
  std::string expected = text.substr(0, text.find('\0'));
  while (expected.ends_with(' ')) expected.pop_back();
  FUZZ_CHECK(trailing_blanks::TrimmedLength(text.c_str()) == expected.size());
  fuzz::Block in(std::string_view(text.c_str(), std::strlen(text.c_str()) + 1));
  trailing_blanks::Trim(in.Data());
  FUZZ_CHECK(std::string_view(in.Data()) == expected);
  const std::size_t kept = trailing_blanks::TrimmedLengthAfterFirst(text.c_str());
  FUZZ_CHECK(kept == (expected.empty() && text[0] != '\0' ? 1 : expected.size()));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const char ascii = static_cast<char>(input.Byte() & 0x7F);
  const std::size_t limit = input.Size(600);
  const std::string rest = input.Rest();
  const fuzz::Block exact(rest);
  const std::string_view text = exact.View();

  CheckSearches(text, ascii);
  FUZZ_CHECK(shift_jis::Truncate(text, limit) == Cut(text, limit));
  CheckCopies(text, limit);
  CheckCellCopies(rest, static_cast<int>(limit) - 2);
  CheckTrimming(rest);

  const std::string upper = shift_jis::ToUpperBytes(text);
  FUZZ_CHECK(upper.size() == text.size());
  for (std::size_t i = 0; i < upper.size(); ++i) {
    FUZZ_CHECK(upper[i] == (text[i] >= 'a' && text[i] <= 'z' ? text[i] - 0x20 : text[i]));
  }
  const std::string value = grid::ValuePart(text, ascii);
  FUZZ_CHECK(value.find(ascii) == kNone && text.find(value) != kNone);
  return 0;
}
