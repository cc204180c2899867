#include "platform/suite/session_file.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "platform/suite/crvnbc.h"
#include "platform/suite/crvnmdl.h"
#include "platform/suite/unicode_table.h"

namespace suite {
namespace {

/// One line "name = value" in EUC-JP, without the blanks around either. Without "=", the name is the whole line.
struct Entry {
  std::string name;
  std::string value;
  bool hasValue = false;
};

std::string Trimmed(std::string_view text) {
  constexpr const char* kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

Entry SplitEntry(const std::string& line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos) return {Trimmed(line), {}, false};
  return {Trimmed(line.substr(0, equals)), Trimmed(line.substr(equals + 1)), true};
}

/// Up to `count` fields; the last one keeps any further "|".
std::vector<std::string> SplitFields(std::string_view value, std::size_t count) {
  std::vector<std::string> fields;
  for (std::size_t bar = value.find('|'); fields.size() + 1 < count && bar != std::string_view::npos;) {
    fields.push_back(Trimmed(value.substr(0, bar)));
    value.remove_prefix(bar + 1);
    bar = value.find('|');
  }
  fields.push_back(Trimmed(value));
  return fields;
}

/// A whole number, or a decimal one, that is all of the text.
template <class Number>
std::optional<Number> ToNumber(const std::string& text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

std::optional<CwLetterCase> ToLetterCase(const std::string& text) {
  if (text.empty() || text == "asis") return CwLetterCase::AsIs;
  if (text == "upper") return CwLetterCase::Upper;
  if (text == "lower") return CwLetterCase::Lower;
  return std::nullopt;
}

// Each section's reader answers whether it could use the entry.

bool ReadKind(const Entry& entry, CwSession* session) {
  std::vector<std::string> fields = SplitFields(entry.value, 5);
  fields.resize(5);
  const std::optional<int> flag = fields[2].empty() ? 0 : ToNumber<int>(fields[2]);
  const std::optional<CwLetterCase> letterCase = ToLetterCase(fields[3]);
  if (!entry.hasValue || entry.name.empty() || !flag || !letterCase) return false;
  CwFileType type(entry.name, fields[0], fields[1], *flag, *letterCase);
  type.SetDescription(fields[4]);
  return session->GetActiveFileTypeSet()->AddFileType(type);
}

bool ReadTitle(const Entry& entry, CwSession* session) {
  const std::vector<std::string> fields = SplitFields(entry.value, 2);
  const std::optional<int> number = ToNumber<int>(entry.name);
  const std::optional<std::uint16_t> kindCode = ToNumber<std::uint16_t>(fields[0]);
  if (fields.size() != 2 || !number || !kindCode || *number < 1 || *number > 207) return false;
  return session->OpenModel()->GetModelTitleSet()->SetTitle(*number, *kindCode, fields[1]);
}

bool ReadText(const Entry& entry, CwMessageTable* table) {
  const std::optional<int> number = ToNumber<int>(entry.name);
  if (!entry.hasValue || !number || *number < 1) return false;
  table->SetMessage(*number, entry.value);
  return true;
}

bool ReadMessage(const Entry& entry, CwSession*) { return ReadText(entry, CwMessage::GetMessageTable()); }

bool ReadError(const Entry& entry, CwSession*) { return ReadText(entry, CwMessage::GetErrorTable()); }

bool ReadRegister(const Entry& entry, CwSession* session) {
  if (!entry.hasValue || entry.name.empty()) return false;
  CwRegisterSet* registers = session->GetRegisterSet();
  if (entry.value.empty()) {
    registers->AddRegister(entry.name)->SetEmpty();
    return true;
  }
  const std::vector<std::string> fields = SplitFields(entry.value, 2);
  if (fields.size() != 2) return false;
  if (fields[0] == "text") {
    registers->AddRegister(entry.name)->SetText(fields[1]);
    return true;
  }
  const std::optional<double> scalar = ToNumber<double>(fields[1]);
  if (fields[0] != "scalar" || !scalar) return false;
  registers->AddRegister(entry.name)->SetScalar(*scalar);
  return true;
}

bool ReadLibraryText(const Entry& entry, CwSession* session) {
  if (!entry.hasValue || entry.name.empty()) return false;
  session->GetTextLibrary()->AddText(entry.name, entry.value);
  return true;
}

bool ReadParameter(const Entry& entry, CwSession* session) {
  if (entry.name.empty()) return false;
  if (entry.name != "FileTitleDisplay") {
    session->GetStartupParam()->Define(entry.name);
    return true;
  }
  const std::optional<int> display = ToNumber<int>(entry.value);
  if (!display) return false;
  session->GetSessionParam()->SetFileTitleDisplay(*display);
  return true;
}

using Reader = bool (*)(const Entry&, CwSession*);

struct Section {
  const char* head;
  Reader read;
};

constexpr Section kSections[] = {{"[kinds]", ReadKind},          {"[titles]", ReadTitle},
                                 {"[messages]", ReadMessage},    {"[errors]", ReadError},
                                 {"[registers]", ReadRegister},  {"[texts]", ReadLibraryText},
                                 {"[parameters]", ReadParameter}};

Reader FindReader(const std::string& head) {
  for (const Section& section : kSections) {
    if (head == section.head) return section.read;
  }
  return nullptr;
}

/// Reads line after line; `reader` is the current section's, null in front of the first one and in an unknown one.
class TextReader {
 public:
  explicit TextReader(CwSession* session) : session_(session) {}

  [[nodiscard]] bool ReadLine(std::string_view utf8) {
    const std::optional<std::string> euc = Utf8ToEuc(utf8);
    if (!euc) return false;
    const std::string line = Trimmed(*euc);
    if (line.empty() || line[0] == ';') return true;
    if (line[0] != '[') return reader_ != nullptr && reader_(SplitEntry(line), session_);
    reader_ = FindReader(line);
    return reader_ != nullptr;
  }

 private:
  CwSession* session_;
  Reader reader_ = nullptr;
};

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::vector<CwUnreadableLine> ReadSessionText(std::string_view utf8, CwSession* session) {
  if (utf8.starts_with(kByteOrderMark)) utf8.remove_prefix(kByteOrderMark.size());
  std::vector<CwUnreadableLine> unreadable;
  TextReader reader(session);
  for (int number = 1; !utf8.empty(); ++number) {
    const std::size_t end = std::min(utf8.find('\n'), utf8.size());
    const std::string_view line = utf8.substr(0, end);
    if (!reader.ReadLine(line)) unreadable.push_back({{}, number, Trimmed(line)});
    utf8.remove_prefix(std::min(end + 1, utf8.size()));
  }
  return unreadable;
}

}  // namespace suite
