// A text with a fixed upper length and the room for it, as the callers of this library know them from its interface.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "dlglib/base/encoded_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/base/stored_text.h"

/// Holds at most `kLimit` bytes and a terminator. What is longer is cut between two characters.
template <std::size_t kLimit>
class BoundedText {
 public:
  static constexpr std::size_t kCapacity = kLimit + 1;

  void AssignScreen(SjisView sjis) noexcept { AssignScreen(sjis.bytes()); }
  /// For bytes that are only ever in the screen's encoding.
  void AssignScreen(std::string_view sjis) noexcept { shift_jis::CopyBounded(bytes_.data(), kCapacity, sjis); }
  void AssignStored(EucView euc) noexcept { stored_text::CopyBounded(bytes_.data(), kCapacity, euc); }
  void Clear() noexcept { bytes_.front() = '\0'; }

  /// Up to the terminator. Callers may write into Data(), so the last byte is taken for one in any case.
  [[nodiscard]] std::string_view View() const noexcept {
    const std::string_view room(bytes_.data(), kLimit);
    return room.substr(0, room.find('\0'));
  }
  [[nodiscard]] const char* Text() const noexcept { return bytes_.data(); }
  /// `kCapacity` bytes, closed with a terminator; they stay where they are as long as the object lives.
  [[nodiscard]] char* Data() noexcept { return bytes_.data(); }

 private:
  std::array<char, kCapacity> bytes_ = {};
};

/// The bytes of a caller's text; a null pointer is the empty text. The second and third form are for texts that the
/// interface takes in one encoding.
[[nodiscard]] inline std::string_view ViewOf(const char* text) noexcept {
  return text != nullptr ? std::string_view(text) : std::string_view();
}
[[nodiscard]] inline SjisView SjisOf(const char* text) noexcept { return SjisView(ViewOf(text)); }
[[nodiscard]] inline EucView EucOf(const char* text) noexcept { return EucView(ViewOf(text)); }
