#include "dlglib/utility/toolbar/insert_text.h"

#include <array>
#include <charconv>

#include "dlglib/base/stored_text.h"
#include "platform/suite/crvncontrol.h"

namespace insert_text {
namespace {

constexpr int kGroupStep = 1000;
constexpr int kDigits = 10;

/// As "%.10g" writes it, whatever the program's locale is.
std::string NumberText(double value) {
  std::array<char, 32> text = {};
  const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::general, kDigits).ptr;
  return std::string(text.begin(), end);
}

const CwRegister* Find(int code) {
  if (code < 1) return nullptr;
  const std::string name = CwRegisterSet::GetRegisterName(code / kGroupStep + 1, code % kGroupStep);
  return name.empty() ? nullptr : CwSession::GetInstance()->GetRegisterSet()->GetRegister(name);
}

}  // namespace

std::string OfLibraryText(std::string_view euc) {
  return stored_text::ToScreenInWholeEscapes(euc.substr(0, euc.find('\0')), kLimit);
}

std::string OfRegister(int code) {
  const CwRegister* found = Find(code);
  if (found == nullptr || found->IsEmpty()) return {};
  return found->IsScalar() ? NumberText(found->GetScalar()) : OfLibraryText(found->GetText());
}

}  // namespace insert_text
