#include "tests/os/imports.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace os_test {

namespace {

using Take = std::function<void(const char* name, std::uintptr_t* place)>;

void ForEachOf(unsigned char* base, const IMAGE_IMPORT_DESCRIPTOR& module, const Take& take) {
  const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + module.OriginalFirstThunk);
  auto* places = reinterpret_cast<std::uintptr_t*>(base + module.FirstThunk);
  for (; names->u1.AddressOfData != 0; ++names, ++places) {
    if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
    take(reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData)->Name, places);
  }
}

}  // namespace

void ForEachImport(const Take& take) {
  auto* base = reinterpret_cast<unsigned char*>(GetModuleHandleA(nullptr));
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* module = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  for (; module->Name != 0; ++module) ForEachOf(base, *module, take);
}

void WriteImport(std::uintptr_t* place, std::uintptr_t address) {
  DWORD former = 0;
  VirtualProtect(place, sizeof *place, PAGE_READWRITE, &former);
  *place = address;
  VirtualProtect(place, sizeof *place, former, &former);
}

ReplacedImport::ReplacedImport(std::string name, std::uintptr_t address) : name_(std::move(name)) {
  ForEachImport([this](const char* each, const std::uintptr_t* place) {
    if (name_ == each) former_ = *place;
  });
  EXPECT_NE(former_, 0U) << "nobody calls " << name_;
  Write(address);
}

ReplacedImport::~ReplacedImport() { Write(former_); }

void ReplacedImport::Write(std::uintptr_t address) const {
  ForEachImport([&](const char* each, std::uintptr_t* place) {
    if (name_ == each) WriteImport(place, address);
  });
}

}  // namespace os_test
