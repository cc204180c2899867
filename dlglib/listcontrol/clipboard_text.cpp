#include "dlglib/listcontrol/clipboard_text.h"

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

class Reader {
 public:
  explicit Reader(const ConvertPiece& convert) : convert_(convert) {}

  void Read(std::u16string_view piece) {
    if (Convert(piece)) return;
    if (piece.size() <= kSmallPiece) return ReadEach(piece);
    std::size_t middle = piece.size() / 2;
    if (IsLow(piece[middle]) && IsHigh(piece[middle - 1])) ++middle;
    Read(piece.substr(0, middle));
    Read(piece.substr(middle));
  }
  [[nodiscard]] ClipboardText Done() { return std::move(result_); }

 private:
  bool Convert(std::u16string_view piece) {
    const std::optional<std::string> sjis = convert_(piece);
    if (sjis) result_.sjis += *sjis;
    return sjis.has_value();
  }
  void ReadEach(std::u16string_view piece) {
    while (!piece.empty()) {
      const std::u16string_view units = piece.substr(0, LengthOf(piece));
      if (!Convert(units)) {
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

ClipboardText ReadClipboardText(std::u16string_view text, const ConvertPiece& convert) {
  Reader reader(convert);
  reader.Read(text.substr(0, text.find(u'\0')));
  return reader.Done();
}

}  // namespace grid
