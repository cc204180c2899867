#include <map>

#include "platform/suite/crvnbc.h"

struct CwMessageTable::State {
  std::map<int, std::string> texts;
};

CwMessageTable::CwMessageTable() : state_(std::make_unique<State>()) {}
CwMessageTable::~CwMessageTable() = default;

void CwMessageTable::SetMessage(int number, const std::string& text) { state_->texts[number] = text; }

void CwMessageTable::Clear() { state_->texts.clear(); }

CwMessageTable* CwMessage::GetMessageTable() {
  static CwMessageTable table;
  return &table;
}

CwMessageTable* CwMessage::GetErrorTable() {
  static CwMessageTable table;
  return &table;
}

const char* CwMessage::FindMessage(const CwMessageTable* table, int number) {
  if (table == nullptr) return nullptr;
  const auto found = table->state_->texts.find(number);
  return found == table->state_->texts.end() ? nullptr : found->second.c_str();
}
