#include "dlglib/utility/rules/path_encoding.h"

#include <algorithm>
#include <string>
#include <utility>

#include "dlglib/base/encoder.h"
#include "dlglib/base/shift_jis.h"
#include "platform/suite/euc_jp.h"

namespace path_encoding {
namespace {

constexpr bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

/// Whether a character is a pair of Shift_JIS, be it one that stands for something or not.
bool IsDoubleByte(std::string_view character) {
  const auto trail = static_cast<unsigned char>(character.back());
  return character.size() == 2 && trail >= 0x40 && trail != 0x7F;
}

/// Whether every character other than ASCII is a pair of Shift_JIS.
bool HasOnlyDoubleBytes(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = shift_jis::CharLength(text, at);
    if (!IsAscii(text[at]) && !IsDoubleByte(text.substr(at, length))) return false;
    at += length;
  }
  return true;
}

/// The text without its three-byte characters: Shift_JIS lacks most of them, so its encoder knows no more of them.
std::string WithoutThreeBytes(std::string_view euc) {
  std::string kept;
  for (std::size_t at = 0; at < euc.size();) {
    const std::size_t length = euc_jp::CharLength(euc, at);
    if (length < 3) kept.append(euc.substr(at, length));
    at += length;
  }
  return kept;
}

bool IsEuc(std::string_view text) {
  if (!euc_jp::IsValid(text)) return false;
  const std::string pairs = WithoutThreeBytes(text);
  const std::string sjis = encoder::ToSjis(EucText(pairs), pairs.size()).bytes();
  return std::count(sjis.begin(), sjis.end(), '?') == std::count(pairs.begin(), pairs.end(), '?');
}

}  // namespace

Readings Read(std::string_view path, std::size_t limit) {
  // The encoder gives a text back as it is that is EUC-JP and no Shift_JIS.
  EucText ofSjis = encoder::ToEuc(SjisText(std::string(path)), limit);
  EucText ofEuc(std::string(euc_jp::Truncate(path, limit)));
  if (ofSjis == ofEuc || !IsEuc(path)) return {std::move(ofSjis), std::nullopt};
  if (HasOnlyDoubleBytes(path)) return {std::move(ofSjis), std::move(ofEuc)};
  return {std::move(ofEuc), std::move(ofSjis)};
}

}  // namespace path_encoding
