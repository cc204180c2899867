#include "dlglib/listcontrol/clipboard_text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace grid {

namespace {

/// How far a piece is halved before its characters are tried one by one.
constexpr std::size_t kSmallPiece = 16;

[[nodiscard]] constexpr bool IsHigh(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
[[nodiscard]] constexpr bool IsLow(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

[[nodiscard]] std::size_t LengthOf(std::u16string_view text) noexcept {
  return text.size() > 1 && IsHigh(text[0]) && IsLow(text[1]) ? 2 : 1;
}

[[nodiscard]] char32_t CharacterOf(std::u16string_view units) noexcept {
  if (units.size() < 2) return units.front();
  return 0x10000U + (static_cast<char32_t>(units[0] - 0xD800) << 10) + (units[1] - 0xDC00U);
}

struct Twin {
  char16_t character;
  char16_t held;
};

constexpr Twin kTwins[] = {{0x00A0, 0x0020}, {0x00A2, 0xFFE0}, {0x00A3, 0xFFE1}, {0x00A5, 0xFFE5},
                           {0x00A6, 0xFFE4}, {0x00AC, 0xFFE2}, {0x00AF, 0xFFE3}, {0x2014, 0x2015},
                           {0x2016, 0x2225}, {0x203E, 0xFFE3}, {0x2212, 0xFF0D}, {0x301C, 0xFF5E}};

class Reader {
 public:
  explicit Reader(const ConvertPiece& convert) : convert_(convert) {}

  void Read(std::u16string_view piece) {
    if (Take(piece)) return;
    if (piece.size() <= kSmallPiece) return ReadEach(piece);
    std::size_t middle = piece.size() / 2;
    if (IsLow(piece[middle]) && IsHigh(piece[middle - 1])) ++middle;
    Read(piece.substr(0, middle));
    Read(piece.substr(middle));
  }
  [[nodiscard]] ClipboardText Done() { return std::move(result_); }

 private:
  bool Take(std::u16string_view piece) {
    const std::optional<std::string> sjis = convert_(piece);
    if (sjis) result_.sjis += *sjis;
    return sjis.has_value();
  }
  bool TakeTwin(std::u16string_view units) {
    const char16_t twin = TwinInWindows31J(CharacterOf(units));
    return twin != 0 && Take({&twin, 1});
  }
  void ReadEach(std::u16string_view piece) {
    while (!piece.empty()) {
      const std::u16string_view units = piece.substr(0, LengthOf(piece));
      if (!Take(units) && !TakeTwin(units)) {
        result_.lacking.push_back({result_.sjis.size(), CharacterOf(units)});
        result_.sjis += '?';
      }
      piece.remove_prefix(units.size());
    }
  }

  const ConvertPiece& convert_;
  ClipboardText result_;
};

}  // namespace

char16_t TwinInWindows31J(char32_t character) noexcept {
  const auto* const found = std::find_if(std::begin(kTwins), std::end(kTwins),
                                         [character](const Twin& twin) { return twin.character == character; });
  return found != std::end(kTwins) ? found->held : u'\0';
}

ClipboardText ReadClipboardText(std::u16string_view text, const ConvertPiece& convert) {
  Reader reader(convert);
  reader.Read(text.substr(0, text.find(u'\0')));
  return reader.Done();
}

}  // namespace grid
