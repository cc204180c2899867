#include "dlglib/filsel/raster_memory.h"

#include "dlglib/base/shift_jis.h"
#include "dlglib/filsel/request_names.h"
#include "platform/os/os.h"
#include "platform/suite/crvncontrol.h"

namespace filsel {

namespace {

constexpr char kKeyword[] = "#RASTER#";
constexpr char kKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\#RASTER#";
constexpr char kValue[] = "Latest";
constexpr std::size_t kPathBytes = 513;

CwFileTypeSet& Kinds() { return *CwSession::GetInstance()->GetActiveFileTypeSet(); }

bool IsAskedFor(std::string_view keyword) {
  return keyword == kKeyword && CwSession::GetInstance()->GetStartupParam()->IsDefined("SXF_USE_LAST_HOLDER");
}

void SetFolder(const std::string& folder) { Kinds().AddFileType(CwFileType(kKeyword, folder, "", 0)); }

std::string FolderOfKind() {
  const CwFileType* kind = Kinds().GetFileType(kKeyword);
  return kind != nullptr ? kind->GetFolder() : std::string();
}

// The remembered folder in real form; none when it cannot be read.
std::optional<std::string> ReadFolder() {
  const auto key = os::Services().registry->Create(kKey);
  if (!key) return std::nullopt;
  const auto value = key->Query(kValue, kPathBytes);
  if (!value || value->type != os::RegistryType::String) return std::nullopt;
  return value->bytes.substr(0, value->bytes.find('\0'));
}

}  // namespace

RasterMemory& RasterMemory::OfProcess() {
  static RasterMemory memory;
  return memory;
}

std::optional<std::string> RasterMemory::Recall(std::string_view keyword) {
  if (!IsAskedFor(keyword)) return std::nullopt;
  std::string former = FolderOfKind();
  if (!saved_) return former;
  const std::string latest = ToInternal(ReadFolder().value_or(""), kPathBytes - 1);
  const std::size_t slash = latest.rfind('/');
  if (slash != std::string::npos) SetFolder(latest.substr(0, slash + 1));
  return former;
}

void RasterMemory::Remember(const std::string& formerFolder, std::string_view chosenPath) {
  const std::size_t separator = shift_jis::FindLast(chosenPath, '\\');
  SetFolder(formerFolder);
  const auto key = os::Services().registry->Create(kKey);
  if (!key) return;
  key->Set(kValue, os::RegistryType::String,
           separator == shift_jis::kNone ? chosenPath : chosenPath.substr(0, separator + 1));
  saved_ = true;
}

}  // namespace filsel
