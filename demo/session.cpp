#include "demo/session.h"

#include <dlglib/dlglib.h>

#include <array>

#include "demo/console.h"

namespace demo {
namespace {

constexpr std::array kKeywords = {"#MODEL#", "#SUBMODEL#", "#PARTS:BIN#", "#PSET:BIN#", "#MACRO#",   "#MASK:SAVE#",
                                  "#TEXT#",  "#CONSTANT#", "#ATRTABLE#",  "#RASTER#",   "#SXF:SFC#", "#SXF:P21#"};

constexpr std::size_t kPathLimit = 512;

/// The session file names the kinds' folders relative to the sample files.
void PutKindBelow(const std::string& data, const char* keyword) {
  CwFileTypeSet* kinds = CwSession::GetInstance()->GetActiveFileTypeSet();
  const CwFileType* kind = kinds->GetFileType(keyword);
  if (kind == nullptr) return;
  const CwLetterCase letterCase = kind->IsUpperCase()   ? CwLetterCase::Upper
                                  : kind->IsLowerCase() ? CwLetterCase::Lower
                                                        : CwLetterCase::AsIs;
  CwFileType placed(keyword, data + "/" + kind->GetFolder(), kind->GetPatterns(), kind->GetFlag(), letterCase);
  placed.SetDescription(kind->GetDescription());
  kinds->AddFileType(placed);
}

}  // namespace

bool LoadSession(const std::string& home) {
  if (!CwSession::LoadFile(home + "\\corvane.session")) {
    PrintError("セッションファイルを読めません: " + home + "\\corvane.session");
    return false;
  }
  for (const CwUnreadableLine& line : CwSession::GetInstance()->GetUnreadableLines()) {
    PrintError(line.file + ":" + std::to_string(line.line) + ": 読めない行です");
  }
  std::string data = CwEucEncoder::Sjis2Euc(home, kPathLimit) + "/data";
  CwFile::ToAbstractPathSeparator(data);
  for (const char* keyword : kKeywords) PutKindBelow(data, keyword);
  return true;
}

}  // namespace demo
