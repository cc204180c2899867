#include "dlglib/base/shown_text.h"

#include <cstddef>
#include <vector>

#include "dlglib/base/shift_jis.h"

namespace shown_text {
namespace {

struct Character {
  std::string_view bytes;
  std::wstring wide;
};

[[nodiscard]] std::vector<Character> CharactersOf(std::string_view text, const Conversion& conversion) {
  std::vector<Character> characters;
  for (std::size_t at = 0; at < text.size();) {
    const std::string_view bytes = text.substr(at, shift_jis::CharLength(text, at));
    characters.push_back({bytes, conversion.toWide(bytes)});
    at += bytes.size();
  }
  return characters;
}

/// What two texts share, in bytes of the one and units of the other.
struct Shared {
  std::size_t characters = 0;
  std::size_t bytes = 0;
  std::size_t units = 0;

  void Add(const Character& character) noexcept {
    ++characters;
    bytes += character.bytes.size();
    units += character.wide.size();
  }
};

[[nodiscard]] Shared SharedStart(const std::vector<Character>& former, std::wstring_view shown) {
  Shared shared;
  for (const Character& character : former) {
    if (!shown.substr(shared.units).starts_with(character.wide)) break;
    shared.Add(character);
  }
  return shared;
}

/// What the two end in alike; the first `taken` characters of `former` do not count.
[[nodiscard]] Shared SharedEnd(const std::vector<Character>& former, std::size_t taken, std::wstring_view shown) {
  Shared shared;
  for (std::size_t at = former.size(); at > taken; --at) {
    if (!shown.substr(0, shown.size() - shared.units).ends_with(former[at - 1].wide)) break;
    shared.Add(former[at - 1]);
  }
  return shared;
}

/// Bytes in front of the first character that begins at `units` or behind.
[[nodiscard]] std::size_t BytesBefore(const std::vector<Character>& characters, std::size_t units) {
  Shared passed;
  for (const Character& character : characters) {
    if (passed.units >= units) break;
    passed.Add(character);
  }
  return passed.bytes;
}

}  // namespace

std::string BytesOf(std::string_view former, std::wstring_view shown, const Conversion& conversion) {
  if (conversion.toWide(former) == shown) return std::string(former);
  const std::vector<Character> characters = CharactersOf(former, conversion);
  const Shared start = SharedStart(characters, shown);
  const std::wstring_view behindStart = shown.substr(start.units);
  const Shared end = SharedEnd(characters, start.characters, behindStart);
  const std::string changed = conversion.toBytes(behindStart.substr(0, behindStart.size() - end.units));
  const std::string kept =
      std::string(former.substr(0, start.bytes)) + changed + std::string(former.substr(former.size() - end.bytes));
  // Bytes that are no characters may stand for something else in a row than one by one.
  return conversion.toWide(kept) == shown ? kept : conversion.toBytes(shown);
}

std::string Replace(std::string_view text, Part part, std::string_view inserted, const Conversion& conversion) {
  const std::vector<Character> characters = CharactersOf(text, conversion);
  const std::string_view start = text.substr(0, BytesBefore(characters, part.start));
  const std::string_view end = text.substr(BytesBefore(characters, part.end));
  return std::string(start) + std::string(inserted) + std::string(end);
}

}  // namespace shown_text
