#include "tests/robustness/dll_memory.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <string_view>

#include "dlglib/utility/CvUtility.h"
#include "platform/suite/crvncontrol.h"

namespace robustness {
namespace {

// The DLLs' threads ask too.
std::atomic<bool> counting = false;
std::atomic<std::size_t> counted = 0;
// From the first one up to the last one, both included.
std::size_t firstRefused = 0;
std::size_t lastRefused = 0;

bool Refuses() {
  if (!counting) return false;
  const std::size_t number = ++counted;
  return number >= firstRefused && number <= lastRefused;
}

void* Allocate(std::size_t size) { return Refuses() ? nullptr : std::malloc(size); }
void* AllocateZeroed(std::size_t count, std::size_t size) { return Refuses() ? nullptr : std::calloc(count, size); }
void* Reallocate(void* block, std::size_t size) { return Refuses() ? nullptr : std::realloc(block, size); }

struct Replacement {
  std::string_view name;
  void* function;
};

const std::array<Replacement, 3> kReplacements = {{{"malloc", reinterpret_cast<void*>(&Allocate)},
                                                   {"calloc", reinterpret_cast<void*>(&AllocateZeroed)},
                                                   {"realloc", reinterpret_cast<void*>(&Reallocate)}}};

void Replace(void** slot, std::string_view name) {
  for (const Replacement& replacement : kReplacements) {
    if (replacement.name != name) continue;
    DWORD former = 0;
    ::VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &former);
    *slot = replacement.function;
    ::VirtualProtect(slot, sizeof *slot, former, &former);
  }
}

/// Walks through what a module imports from all others.
void LeadHere(const char* module) {
  auto* const base = reinterpret_cast<std::byte*>(::GetModuleHandleA(module));
  const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos.e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  for (; library->Name != 0; ++library) {
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + library->OriginalFirstThunk);
    auto** slot = reinterpret_cast<void**>(base + library->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal)) continue;
      const auto& byName = *reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      Replace(slot, &byName.Name[0]);
    }
  }
}

/// Nothing is refused up to a last one of 0.
void Count(std::size_t first, std::size_t last) {
  firstRefused = first;
  lastRefused = last;
  counted = 0;
  counting = true;
}

/// The run-time library has a store for exceptions that find no memory, and a lock for it that takes memory when it is
/// used first. Refused that as well, a process could only end.
template <class Object, class... Arguments>
void OpenStoreOfExceptions(Arguments... arguments) {
  Count(1, 2);  // the object's request, and the exception's
  try {
    const Object object(arguments...);
  } catch (const std::exception&) {
    counting = false;
  }
  counting = false;
}

bool Prepare() {
  LeadHere("crvndlglib.dll");
  LeadHere("crvnsuite.dll");
  OpenStoreOfExceptions<CvUtility>();
  OpenStoreOfExceptions<CwFileType>("", "", "", 0);
  return true;
}

}  // namespace

void RefuseMemory(Refused which, std::size_t n) {
  static const bool prepared = Prepare();
  static_cast<void>(prepared);
  const std::size_t last = which == Refused::One ? n : static_cast<std::size_t>(-1);
  Count(n, n == 0 ? 0 : last);
}

std::size_t StopRefusing() {
  counting = false;
  return counted;
}

}  // namespace robustness
