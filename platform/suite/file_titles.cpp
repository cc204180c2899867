#include <iterator>

#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncui.h"
#include "platform/suite/file_header.h"

namespace {

constexpr int kOk = 0;
constexpr int kFailed = 1;
constexpr int kFirstTitleClass = 2;
constexpr const char* kKinds[] = {"PARTS", "PSET", "MACRO", "MASK", "TEXT", "CONST", "ATTR"};  // by title class

}  // namespace

int GetFilTtl(const std::string& path, const int* numbers, int count, std::string* texts) {
  if (texts == nullptr || count < 0) return kFailed;
  for (int i = 0; i < count; ++i) texts[i].clear();
  if (numbers == nullptr) return kFailed;
  const std::optional<suite::FileHeader> header = suite::FileHeader::Read(path, "MODEL");
  if (!header) return kFailed;
  for (int i = 0; i < count; ++i) texts[i] = header->Find(std::to_string(numbers[i]));
  return kOk;
}

int GetFilTtl(int titleClass, const std::string& path, std::string* text) {
  if (text == nullptr) return kFailed;
  text->clear();
  const int kind = titleClass - kFirstTitleClass;
  if (kind < 0 || kind >= static_cast<int>(std::size(kKinds))) return kFailed;
  const std::optional<suite::FileHeader> header = suite::FileHeader::Read(path, kKinds[kind]);
  if (!header) return kFailed;
  *text = header->Find("TITLE");
  return kOk;
}

bool CwItemAttrTable2::IsDefinitionFile(const std::string& path) {
  return suite::FileHeader::Read(path, "ATTR").has_value();
}

int cnsver(const char* path, void*) {
  return path != nullptr && suite::FileHeader::Read(path, "CONST") ? kOk : kFailed;
}
