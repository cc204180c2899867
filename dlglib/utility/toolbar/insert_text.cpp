#include "dlglib/utility/toolbar/insert_text.h"

#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "dlglib/base/stored_text.h"
#include "platform/suite/crvncontrol.h"

namespace insert_text {
namespace {

constexpr int kGroupStep = 1000;
constexpr int kDigits = 10;

/// As "%.10g" writes it, whatever the program's locale is.
SjisText NumberText(double value) {
  std::array<char, 32> text = {};
  const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::general, kDigits).ptr;
  return SjisText(std::string(text.begin(), end));
}

const CwRegister* Find(const CwRegisterSet& registers, int code) {
  if (code < 1) return nullptr;
  const std::string name = CwRegisterSet::GetRegisterName(code / kGroupStep + 1, code % kGroupStep);
  return name.empty() ? nullptr : registers.GetRegister(name);
}

}  // namespace

SjisText OfLibraryText(EucView text) {
  const std::string_view bytes = text.bytes();
  return stored_text::ToScreenInWholeEscapes(EucView(bytes.substr(0, bytes.find('\0'))), kLimit);
}

SjisText OfRegister(const CwRegisterSet& registers, int code) {
  const CwRegister* found = Find(registers, code);
  if (found == nullptr || found->IsEmpty()) return {};
  return found->IsScalar() ? NumberText(found->GetScalar()) : OfLibraryText(EucView(found->GetText()));
}

}  // namespace insert_text
