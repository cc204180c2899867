#include "dlglib/base/encoder.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/suite/crvnbc.h"

namespace encoder {

SjisText ToSjis(const EucText& euc, std::size_t limit) { return SjisText(CwEucEncoder::Euc2Sjis(euc.bytes(), limit)); }

void AppendSjis(EucView euc, std::string* sjis) {
  // ASCII is the same in both, and most names are nothing else.
  const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
  if (std::all_of(euc.bytes().begin(), euc.bytes().end(), isAscii)) {
    sjis->append(euc.bytes());
  } else {
    sjis->append(ToSjis(EucText(euc)).bytes());
  }
}

EucText ToEuc(const SjisText& sjis, std::size_t limit) { return EucText(CwEucEncoder::Sjis2Euc(sjis.bytes(), limit)); }

// Separators are exchanged here, not by the suite, of which listings may ask the encoder alone on a thread of their
// own. Neither is a byte of a longer character: "/" in no encoding, "\" not in EUC-JP.

SjisText ToRealPath(const EucText& internal, std::size_t limit) {
  std::string real = CwEucEncoder::Euc2Sjis(internal.bytes(), limit);
  std::replace(real.begin(), real.end(), '/', '\\');
  return SjisText(std::move(real));
}

EucText ToInternalPath(const SjisText& real, std::size_t limit) {
  std::string internal = CwEucEncoder::Sjis2Euc(real.bytes(), limit);
  std::replace(internal.begin(), internal.end(), '\\', '/');
  return EucText(std::move(internal));
}

}  // namespace encoder
