#include "dlglib/utility/rules/message_text.h"

#include <limits>

#include "dlglib/base/encoder.h"
#include "platform/suite/crvnbc.h"

namespace message_text {

SjisText Find(int number) {
  if (number == 0 || number == std::numeric_limits<int>::min()) return {};
  const CwMessageTable* table = number > 0 ? CwMessage::GetMessageTable() : CwMessage::GetErrorTable();
  const char* found = CwMessage::FindMessage(table, number > 0 ? number : -number);
  if (found == nullptr) return {};
  return encoder::ToSjis(EucText(found), kMaxLength);
}

}  // namespace message_text
