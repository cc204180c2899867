#include "dlglib/filedialog/basics/suite_text.h"

#include "platform/suite/crvnbc.h"

namespace filedialog {

std::string ToEuc(std::string_view text) { return CwEucEncoder::Sjis2Euc(std::string(text), kWholeText); }

std::string FromEuc(const std::string& euc, std::size_t limit) { return CwEucEncoder::Euc2Sjis(euc, limit); }

std::string ToSuitePath(std::string_view path) {
  std::string euc = ToEuc(path);
  CwFile::ToAbstractPathSeparator(euc);
  return euc;
}

std::string FromSuitePath(const std::string& eucPath) {
  std::string path = FromEuc(eucPath);
  CwFile::ToPlatformPathSeparator(path);
  return path;
}

}  // namespace filedialog
