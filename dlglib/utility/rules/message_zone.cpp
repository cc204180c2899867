#include "dlglib/utility/rules/message_zone.h"

namespace message_zone {

Point TextOrigin(int fontHeight, int clientBottom) noexcept {
  return {fontHeight, clientBottom - static_cast<int>(fontHeight * 1.5)};
}

int Growth(int fontHeight) noexcept { return fontHeight * 3 / 2; }

}  // namespace message_zone
