// Session files of arbitrary bytes: what is read is in order, and each line is either used or told.
#include "platform/suite/session_file.h"

#include <vector>

#include "fuzz/fuzz.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvnmdl.h"
#include "platform/suite/euc_jp.h"
#include "platform/suite/register_rows.h"
#include "platform/suite/unicode_table.h"

namespace {

std::vector<std::string> LinesOf(std::string text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.erase(0, end + 1);
  }
  return lines;
}

bool IsBlank(char byte) { return byte == ' ' || byte == '\t' || byte == '\r'; }

std::string Trimmed(std::string text) {
  while (!text.empty() && IsBlank(text.back())) text.pop_back();
  while (!text.empty() && IsBlank(text.front())) text.erase(0, 1);
  return text;
}

bool IsSection(const std::string& line) {
  for (const char* head : {"[kinds]", "[titles]", "[messages]", "[errors]", "[registers]", "[texts]", "[parameters]"}) {
    if (line == head) return true;
  }
  return false;
}

/// Each told line is one of the file's, once and in order; comments, empty lines and sections are never told, and what
/// is not UTF-8 or stands in no section always is.
void CheckUnreadable(const std::string& text, const std::vector<CwUnreadableLine>& told) {
  const std::vector<std::string> lines = LinesOf(text);
  auto next = told.begin();
  bool inSection = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool isTold = next != told.end() && next->line == static_cast<int>(i) + 1;
    const std::string line = Trimmed(lines[i]);
    if (isTold) FUZZ_CHECK((next++)->text == line);
    if (!suite::Utf8ToEuc(lines[i])) {
      FUZZ_CHECK(isTold);
    } else if (line.empty() || line[0] == ';') {
      FUZZ_CHECK(!isTold);
    } else if (line[0] == '[') {
      inSection = IsSection(line);
      FUZZ_CHECK(isTold != inSection);
    } else if (!inSection) {
      FUZZ_CHECK(isTold);
    }
  }
  FUZZ_CHECK(next == told.end());
}

void CheckTitles() {
  CwModel* model = GetActiveModel();
  if (model == nullptr) return;
  int count = 0;
  for (int number = -1; number <= 210; ++number) {
    const CwModelTitle* title = model->GetModelTitleSet()->GetTitle(number);
    if (title == nullptr) continue;
    FUZZ_CHECK(number >= 1 && number <= 207 && title->GetNumber() == number);
    FUZZ_CHECK(euc_jp::IsValid(title->GetName()));
    ++count;
  }
  FUZZ_CHECK(count > 0);
}

void CheckRegisters() {
  const CwRegisterSet& registers = *CwSession::GetInstance()->GetRegisterSet();
  const std::vector<std::string> names = registers.GetNames();
  const std::vector<suite::RegisterRow> rows = suite::RegisterRows(registers);
  FUZZ_CHECK(rows.size() == names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    FUZZ_CHECK(!names[i].empty() && euc_jp::IsValid(names[i]));
    FUZZ_CHECK(rows[i].code >= 0 && rows[i].code <= 25999);
    FUZZ_CHECK(rows[i].name.size() <= 1023 && rows[i].value.size() <= 1023);
    const bool isNumbered = !rows[i].group.empty();
    FUZZ_CHECK(isNumbered || rows[i].code == 0);
    if (isNumbered) {
      FUZZ_CHECK(CwRegisterSet::GetRegisterName(rows[i].code / 1000 + 1, rows[i].code % 1000) == names[i]);
    }
    const CwRegister* content = registers.GetRegister(names[i]);
    FUZZ_CHECK(euc_jp::IsValid(content->GetText()));
    FUZZ_CHECK(!content->IsEmpty() || (!content->IsScalar() && rows[i].value.empty()));
  }
}

void CheckSession() {
  CwSession* session = CwSession::GetInstance();
  CheckTitles();
  CheckRegisters();
  for (const std::string& library : session->GetTextLibrary()->GetLibraries()) {
    FUZZ_CHECK(!library.empty() && euc_jp::IsValid(library));
  }
  for (const std::string& text : session->GetTextLibrary()->GetTexts("*")) FUZZ_CHECK(euc_jp::IsValid(text));
  if (const CwFileType* kind = session->GetActiveFileTypeSet()->GetFileType("#K#")) {
    FUZZ_CHECK(!(kind->IsUpperCase() && kind->IsLowerCase()));
    FUZZ_CHECK(euc_jp::IsValid(kind->GetFolder()) && euc_jp::IsValid(kind->GetDescription()));
    FUZZ_CHECK(kind->GetPatterns().find(kind->GetExtension()) != std::string::npos);
  }
  for (const CwMessageTable* table : {CwMessage::GetMessageTable(), CwMessage::GetErrorTable()}) {
    const char* message = CwMessage::FindMessage(table, 1);
    FUZZ_CHECK(message == nullptr || euc_jp::IsValid(message));
    FUZZ_CHECK(CwMessage::FindMessage(table, 0) == nullptr && CwMessage::FindMessage(table, -1) == nullptr);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  CwSession* session = CwSession::GetInstance();
  CwSession::Reset();
  const fuzz::Block exact(text);
  const std::vector<CwUnreadableLine> told = suite::ReadSessionText(exact.View(), session);
  CheckUnreadable(text, told);
  CheckSession();

  // The same file through the session: the same lines, with its name.
  os::scripted::World().Reset();
  os::scripted::World().files.AddFile("C:\\a.session", text);
  CwSession::Reset();
  FUZZ_CHECK(CwSession::LoadFile("C:\\a.session"));
  FUZZ_CHECK(session->GetUnreadableLines().size() == told.size());
  for (std::size_t i = 0; i < told.size(); ++i) {
    const CwUnreadableLine& line = session->GetUnreadableLines()[i];
    FUZZ_CHECK(line.line == told[i].line && line.text == told[i].text && line.file == "C:\\a.session");
  }
  CwSession::Reset();
  os::scripted::World().Reset();
  return 0;
}
