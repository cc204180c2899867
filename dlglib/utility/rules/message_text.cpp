#include "dlglib/utility/rules/message_text.h"

#include <limits>

#include "platform/suite/crvnbc.h"

namespace message_text {

std::string Find(int number) {
  if (number == 0 || number == std::numeric_limits<int>::min()) return {};
  const CwMessageTable* table = number > 0 ? CwMessage::GetMessageTable() : CwMessage::GetErrorTable();
  const char* found = CwMessage::FindMessage(table, number > 0 ? number : -number);
  if (found == nullptr) return {};
  return CwEucEncoder::Euc2Sjis(found, kMaxLength);
}

}  // namespace message_text
