#include "dlglib/utility/rules/char_class.h"

namespace char_class {

unsigned int ClassOf(unsigned int code) noexcept {
  if (code >= 'A' && code <= 'Z') return kCapital;
  if (code >= 'a' && code <= 'z') return kSmall;
  if (code >= '0' && code <= '9') return kDigit;
  if (code <= 0x7F) return kOtherSingleByte;
  if (code >= 0xA0 && code <= 0xDF) return kHalfWidthKatakana;
  return kDoubleByte;
}

}  // namespace char_class
