#include "dlglib/filedialog/names/entry_name.h"

#include <algorithm>
#include <array>
#include <string>

#include "dlglib/base/characters.h"
#include "dlglib/base/shift_jis.h"

namespace filedialog {

namespace {

constexpr std::array<std::string_view, 24> kDevices = {
    "CON",  "PRN",  "AUX",  "NUL",  "CONIN$", "CONOUT$", "COM1", "COM2", "COM3", "COM4", "COM5", "COM6",
    "COM7", "COM8", "COM9", "LPT1", "LPT2",   "LPT3",    "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9"};

bool IsSecondByte(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x40 && value <= 0xFC && value != 0x7F;
}

bool IsInvalidSingle(char byte) {
  const bool isControl = static_cast<unsigned char>(byte) < 0x20;
  return isControl || std::string_view("\\/:*?\"<>|").find(byte) != std::string_view::npos;
}

bool HasInvalidCharacter(std::string_view name) {
  for (std::size_t at = 0; at < name.size(); at += shift_jis::CharLength(name, at)) {
    const bool isPair = shift_jis::IsLead(name[at]);
    if (!isPair && IsInvalidSingle(name[at])) return true;
    if (isPair && (at + 1 == name.size() || !IsSecondByte(name[at + 1]))) return true;
  }
  return false;
}

bool IsDevice(std::string_view name) {
  std::string_view stem = name.substr(0, name.find('.'));
  while (stem.ends_with(' ')) stem.remove_suffix(1);
  return std::ranges::find(kDevices, shift_jis::ToUpperBytes(stem)) != kDevices.end();
}

}  // namespace

NameFlaw FlawOfName(std::string_view name) {
  if (name.empty()) return NameFlaw::Empty;
  if (HasInvalidCharacter(name)) return NameFlaw::InvalidCharacter;
  // Neither byte is the second one of a character.
  if (name.ends_with('.') || name.ends_with(' ')) return NameFlaw::Ending;
  if (IsDevice(name)) return NameFlaw::Device;
  if (HasMoreCharacters(name, kNewNameLimit)) return NameFlaw::TooLong;
  return NameFlaw::None;
}

}  // namespace filedialog
