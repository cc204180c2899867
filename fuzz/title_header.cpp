// Headers of model and title files with arbitrary bytes, against a reader that splits the file into lines first.
#include <array>
#include <vector>

#include "fuzz/fuzz.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncui.h"

namespace {

constexpr std::size_t kHeaderLimit = 16 * 1024;
const char* const kPath = "C:/m/a.mdl";

using Lines = std::vector<std::string>;

/// The lines that count: of the first 16 KiB, up to "END"; a line that the limit cuts is none.
Lines LinesOf(const std::string& file) {
  std::string head = file.substr(0, kHeaderLimit);
  if (head.size() == kHeaderLimit) head.resize(head.rfind('\n') + 1);
  head += '\n';
  Lines lines;
  for (std::size_t at = 0; at < head.size();) {
    const std::size_t end = head.find('\n', at);
    lines.push_back(head.substr(at, end - at));
    if (lines.back().ends_with('\r')) lines.back().pop_back();
    if (lines.back() == "END" && lines.size() > 1) break;
    at = end + 1;
  }
  return lines;
}

bool IsOfKind(const Lines& lines, const std::string& kind) { return lines.front() == "CORVANE " + kind + " 1"; }

std::string ValueOf(const Lines& lines, const std::string& key) {
  const std::string start = key + "=";
  std::string value;
  for (const std::string& line : lines) {
    if (line.starts_with(start)) value = line.substr(start.size());
  }
  return value.substr(0, value.find('\0'));
}

void CheckModel(const Lines& lines) {
  constexpr std::array<int, 6> kNumbers = {1, 201, 20, -1, 0, 201};
  std::array<std::string, kNumbers.size()> texts;
  texts.fill("old");
  const bool isModel = IsOfKind(lines, "MODEL");
  FUZZ_CHECK(GetFilTtl(kPath, kNumbers.data(), kNumbers.size(), texts.data()) == (isModel ? 0 : 1));
  for (std::size_t i = 0; i < texts.size(); ++i) {
    FUZZ_CHECK(texts[i] == (isModel ? ValueOf(lines, std::to_string(kNumbers[i])) : ""));
  }
}

void CheckOtherKinds(const Lines& lines) {
  int titleClass = 2;
  for (const std::string kind : {"PARTS", "PSET", "MACRO", "MASK", "TEXT", "CONST", "ATTR"}) {
    const bool isOfKind = IsOfKind(lines, kind);
    std::string text = "old";
    FUZZ_CHECK(GetFilTtl(titleClass++, kPath, &text) == (isOfKind ? 0 : 1));
    FUZZ_CHECK(text == (isOfKind ? ValueOf(lines, "TITLE") : ""));
  }
  FUZZ_CHECK(cnsver(kPath, nullptr) == (IsOfKind(lines, "CONST") ? 0 : 1));
  FUZZ_CHECK(CwItemAttrTable2::IsDefinitionFile(kPath) == IsOfKind(lines, "ATTR"));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  // Some files reach the limits: filling is put between two parts of the input, in one line or in several.
  const std::size_t filling = input.Number(0, 3) == 0 ? input.Size(0x5000) : 0;
  const bool isOneLine = input.Flag();
  std::string file = input.Flag() ? "CORVANE MODEL 1\n" : "";
  file += input.Text(200);
  for (std::size_t i = 0; i < filling; ++i) file += isOneLine || i % 128 != 0 ? 'x' : '\n';
  file += input.Rest();

  os::scripted::World().Reset();
  os::scripted::World().files.AddFile("C:\\m\\a.mdl", file);
  const Lines lines = LinesOf(file);
  CheckModel(lines);
  CheckOtherKinds(lines);
  os::scripted::World().Reset();
  return 0;
}
