// Texts of cells taken apart and put together.
#include "dlglib/listcontrol/block_text.h"

#include <string>
#include <vector>

#include "dlglib/base/shift_jis.h"
#include "dlglib/listcontrol/clipboard_text.h"
#include "dlglib/listcontrol/letter_case.h"
#include "fuzz/fuzz.h"

namespace {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;
using Characters = std::vector<std::string>;

Characters CharactersOf(std::string_view text) {
  Characters characters;
  for (std::size_t at = 0; at < text.size();) {
    characters.emplace_back(text.substr(at, shift_jis::CharLength(text, at)));
    at += characters.back().size();
  }
  return characters;
}

/// What ends at a zero byte, with one character for each line end.
Characters WithPlainLineEnds(std::string_view text) {
  Characters characters;
  for (const std::string& character : CharactersOf(text.substr(0, text.find('\0')))) {
    const bool endsPair = character == "\n" && !characters.empty() && characters.back() == "\r";
    if (endsPair) {
      characters.back() = "\r\n";
    } else {
      characters.push_back(character);
    }
  }
  for (std::string& character : characters) {
    if (character == "\r" || character == "\r\n") character = "\n";
  }
  return characters;
}

/// The rules once more, a character at a time.
Rows ReadPlainly(std::string_view text) {
  enum class In { Start, Plain, Quotes, QuoteInQuotes };
  Rows rows;
  In in = In::Start;
  bool rowIsOpen = false;
  const auto cell = [&]() -> std::string& {
    if (!rowIsOpen) rows.emplace_back(1);
    rowIsOpen = true;
    return rows.back().back();
  };
  for (const std::string& character : WithPlainLineEnds(text)) {
    std::string& last = cell();
    if (in == In::Quotes || (in == In::QuoteInQuotes && character == "\"")) {
      const bool isQuote = character == "\"";
      if (!isQuote || in == In::QuoteInQuotes) last += character == "\n" ? " " : character;
      in = isQuote && in == In::Quotes ? In::QuoteInQuotes : In::Quotes;
    } else if (character == "\t") {
      rows.back().emplace_back();
      in = In::Start;
    } else if (character == "\n") {
      rowIsOpen = false;
      in = In::Start;
    } else if (character == "\"" && in == In::Start) {
      in = In::Quotes;
    } else {
      last += character;
      in = In::Plain;
    }
  }
  return rows;
}

Rows Read(std::string_view text) {
  const fuzz::Block exact(text);
  Rows rows;
  grid::BlockReader reader(exact.View());
  bool begins = true;
  std::size_t last = 0;
  while (const auto field = reader.Next()) {
    if (begins) rows.emplace_back();
    rows.back().emplace_back(field->text);
    FUZZ_CHECK(field->from >= last && field->from <= field->to && field->to <= text.size());
    last = field->to;
    begins = field->endsRow;
  }
  FUZZ_CHECK(begins);
  return rows;
}

void CheckReading(const std::string& text) {
  const Rows rows = Read(text);
  FUZZ_CHECK(rows == ReadPlainly(text));
  std::size_t cells = 0;
  for (const Row& row : rows) cells += row.size();
  FUZZ_CHECK(grid::HoldsSeveralCells(text) == (cells > 1));
}

/// A cell's text as it comes back: with a blank for each line break.
std::string AsRead(std::string_view text) {
  std::string read;
  for (const std::string& character : WithPlainLineEnds(text)) read += character == "\n" ? " " : character;
  return read;
}

void CheckWriting(fuzz::Input* input) {
  const int rows = input->Number(1, 3);
  const int columns = input->Number(1, 3);
  grid::GridModel model;
  model.Init(columns, rows, rows, -1);
  Rows wanted;
  for (int row = 0; row < rows; ++row) {
    wanted.emplace_back();
    for (int column = 0; column < columns; ++column) {
      model.SetText(row, column, input->Text(20).c_str());
      wanted.back().push_back(AsRead(model.Text(row, column)));
    }
  }
  const grid::CellBlock all = grid::CutBlock(model, 0, 0, rows, columns);
  const std::string text = grid::WriteBlock(model, all, {});
  FUZZ_CHECK(Read(text) == wanted);
  fuzz::Block out(input->Size(60));
  const std::size_t needed = grid::WriteBlock(model, all, {}, out.Data(), out.View().size());
  FUZZ_CHECK(needed == text.size() + 1);
  const std::size_t written = needed <= out.View().size() ? needed : std::min<std::size_t>(out.View().size(), 1);
  if (written == needed) FUZZ_CHECK(out.View().substr(0, text.size()) == text);
  if (written > 0) FUZZ_CHECK(out.View()[written - 1] == '\0');
}

/// ASCII is all that this Shift_JIS has.
void CheckClipboard(const std::string& bytes) {
  const std::u16string text(bytes.begin(), bytes.end());
  const auto convert = [](std::u16string_view piece) -> std::optional<std::string> {
    for (const char16_t unit : piece) {
      if (unit >= 0x80) return std::nullopt;
    }
    return std::string(piece.begin(), piece.end());
  };
  const grid::ClipboardText read = grid::ReadClipboardText(text, convert);
  FUZZ_CHECK(read.sjis.size() == std::min(text.find(u'\0'), text.size()));
  std::size_t lacking = 0;
  for (std::size_t i = 0; i < read.sjis.size(); ++i) {
    const bool lacks = text[i] >= 0x80;
    FUZZ_CHECK(read.sjis[i] == (lacks ? '?' : static_cast<char>(text[i])));
    if (!lacks) continue;
    FUZZ_CHECK(read.lacking.at(lacking) == (grid::LackingCharacter{i, text[i]}));
    ++lacking;
  }
  FUZZ_CHECK(read.lacking.size() == lacking);
}

void CheckCases(const std::string& text) {
  for (const grid::LetterCase letterCase : {grid::LetterCase::Capitals, grid::LetterCase::Small}) {
    std::string folded = text;
    grid::FoldCase(folded, letterCase);
    std::string twice = folded;
    grid::FoldCase(twice, letterCase);
    FUZZ_CHECK(folded == twice);
    const Characters before = CharactersOf(text);
    const Characters after = CharactersOf(folded);
    FUZZ_CHECK(before.size() == after.size());
    for (std::size_t i = 0; i < before.size(); ++i) FUZZ_CHECK(before[i].size() == after[i].size());
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  if (input.Flag()) CheckWriting(&input);
  const std::string text = input.Rest();
  CheckReading(text);
  CheckClipboard(text);
  CheckCases(text);
  return 0;
}
