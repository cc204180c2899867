#include "tests/windows/support/import_table.h"

#include <cstring>

namespace import_table {
namespace {

/// Null when the library does not give this program such a function.
void** PlaceIn(unsigned char* base, const IMAGE_IMPORT_DESCRIPTOR& library, const char* name) {
  const auto* given = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library.OriginalFirstThunk);
  auto* places = reinterpret_cast<void**>(base + library.FirstThunk);
  for (; given->u1.AddressOfData != 0; ++given, ++places) {
    if (IMAGE_SNAP_BY_ORDINAL(given->u1.Ordinal)) continue;
    const auto* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + given->u1.AddressOfData);
    if (std::strcmp(reinterpret_cast<const char*>(import->Name), name) == 0) return places;
  }
  return nullptr;
}

void** PlaceOf(const char* name) {
  auto* base = reinterpret_cast<unsigned char*>(::GetModuleHandleA(nullptr));
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  void** place = nullptr;
  for (; library->Name != 0 && place == nullptr; ++library) place = PlaceIn(base, *library, name);
  return place;
}

}  // namespace

Replaced::Replaced(const char* name, void* replacement) : place_(PlaceOf(name)) {
  if (place_ == nullptr) return;
  former_ = *place_;
  Write(replacement);
}

Replaced::~Replaced() {
  if (place_ != nullptr) Write(former_);
}

void Replaced::Write(void* function) {
  DWORD former = 0;
  ::VirtualProtect(place_, sizeof *place_, PAGE_READWRITE, &former);
  *place_ = function;
  ::VirtualProtect(place_, sizeof *place_, former, &former);
}

}  // namespace import_table
