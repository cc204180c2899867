// Texts whose type says how their bytes are to be read. Two encodings meet in this library: the suite keeps its texts
// in EUC-JP, the screen and the operating system get Shift_JIS. The same bytes are other characters in the other one,
// and often no character at all, so nothing turns one into the other but the encoder (encoder.h), and bytes become a
// text only where somebody says which encoding they are in:
//
//   const EucView stored(type.GetDescription());
//   ShowText(encoder::ToSjis(EucText(stored)).bytes());
//
// A text of plain bytes (std::string, std::string_view) is one that is only ever in the screen's encoding, or one of
// which nobody knows the encoding yet. What a type says is not checked: a text may hold bytes that are no character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

template <class Encoding>
class EncodedText;

/// A text that somebody else owns; it must outlive the view.
template <class Encoding>
class EncodedView {
 public:
  constexpr EncodedView() noexcept = default;
  constexpr explicit EncodedView(std::string_view bytes) noexcept : bytes_(bytes) {}
  constexpr explicit EncodedView(const char* bytes) noexcept : bytes_(bytes) {}
  // An owner is a view of itself wherever one is asked for.
  EncodedView(const EncodedText<Encoding>& text) noexcept : bytes_(text.bytes()) {}

  [[nodiscard]] constexpr std::string_view bytes() const noexcept { return bytes_; }
  [[nodiscard]] constexpr bool empty() const noexcept { return bytes_.empty(); }
  [[nodiscard]] constexpr std::size_t size() const noexcept { return bytes_.size(); }

  friend constexpr bool operator==(const EncodedView&, const EncodedView&) noexcept = default;

 private:
  std::string_view bytes_;
};

/// A text that owns its bytes.
template <class Encoding>
class EncodedText {
 public:
  EncodedText() noexcept = default;
  explicit EncodedText(std::string bytes) noexcept : bytes_(std::move(bytes)) {}
  explicit EncodedText(EncodedView<Encoding> view) : bytes_(view.bytes()) {}

  [[nodiscard]] const std::string& bytes() const& noexcept { return bytes_; }
  [[nodiscard]] std::string bytes() && noexcept { return std::move(bytes_); }
  [[nodiscard]] bool empty() const noexcept { return bytes_.empty(); }
  [[nodiscard]] std::size_t size() const noexcept { return bytes_.size(); }

  /// Takes another text into the room that is there already.
  void Assign(EncodedView<Encoding> view) { bytes_.assign(view.bytes()); }

  friend bool operator==(const EncodedText&, const EncodedText&) noexcept = default;

 private:
  std::string bytes_;
};

struct ShiftJisEncoding;  ///< Windows-31J: the screen, the operating system, real paths with "\"
struct EucJpEncoding;     ///< eucJP-ms: the suite, internal paths with "/"

using SjisView = EncodedView<ShiftJisEncoding>;
using SjisText = EncodedText<ShiftJisEncoding>;
using EucView = EncodedView<EucJpEncoding>;
using EucText = EncodedText<EucJpEncoding>;
