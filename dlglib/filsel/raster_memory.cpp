#include "dlglib/filsel/raster_memory.h"

#include <string>
#include <string_view>

#include "dlglib/base/encoder.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/base/suite_kinds.h"
#include "platform/suite/crvncontrol.h"

namespace filsel {

namespace {

constexpr char kKeyword[] = "#RASTER#";
constexpr char kKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\#RASTER#";
constexpr char kValue[] = "Latest";
constexpr std::size_t kPathBytes = 513;

bool IsAskedFor(const EucText& keyword, CwSession& session) {
  return keyword.bytes() == kKeyword && session.GetStartupParam()->IsDefined("SXF_USE_LAST_HOLDER");
}

void SetFolder(const EucText& folder, CwSession& session) {
  session.GetActiveFileTypeSet()->AddFileType(CwFileType(kKeyword, folder.bytes(), "", 0));
}

EucText FolderOfKind(CwSession& session) {
  const CwFileType* kind = suite_kinds::Find(*session.GetActiveFileTypeSet(), EucText(kKeyword));
  return kind != nullptr ? EucText(suite_kinds::FolderOf(*kind)) : EucText();
}

// The remembered folder in real form; empty when it cannot be read.
SjisText ReadFolder(os::Registry& registry) {
  const auto key = registry.Create(kKey);
  if (!key) return {};
  const auto value = key->Query(kValue, kPathBytes);
  if (!value || value->type != os::RegistryType::String) return {};
  return SjisText(value->bytes.substr(0, value->bytes.find('\0')));
}

}  // namespace

RasterMemory& RasterMemory::OfProcess() {
  static RasterMemory memory;
  return memory;
}

std::optional<EucText> RasterMemory::Recall(const EucText& keyword, CwSession& session, os::Registry& registry) {
  if (!IsAskedFor(keyword, session)) return std::nullopt;
  EucText former = FolderOfKind(session);
  if (!saved_) return former;
  const std::string latest = encoder::ToInternalPath(ReadFolder(registry), kPathBytes - 1).bytes();
  const std::size_t slash = latest.rfind('/');
  if (slash != std::string::npos) SetFolder(EucText(latest.substr(0, slash + 1)), session);
  return former;
}

void RasterMemory::Remember(const EucText& formerFolder, SjisView chosenPath, CwSession& session,
                            os::Registry& registry) {
  const std::string_view path = chosenPath.bytes();
  const std::size_t separator = shift_jis::FindLast(path, '\\');
  SetFolder(formerFolder, session);
  const auto key = registry.Create(kKey);
  if (!key) return;
  key->Set(kValue, os::RegistryType::String, separator == shift_jis::kNone ? path : path.substr(0, separator + 1));
  saved_ = true;
}

}  // namespace filsel
