// crvnsuite.dll is loaded when the library first calls it, from the folder in which the library itself is. So a program
// that stands elsewhere and loads the library by its path finds both, whatever the system's order of search is. Linked
// into crvndlglib.dll alone.
#include <windows.h>

#include <delayimp.h>

#include <string>

// The linker's name for the start of this DLL.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace {

constexpr wchar_t kSuite[] = L"crvnsuite.dll";
constexpr DWORD kLongestPath = 0x8000;  // of any path, in characters

/// The suite's DLL beside this one, there or not; empty when this one has no path.
std::wstring PathBeside() {
  std::wstring path(kLongestPath, L'\0');
  const auto self = reinterpret_cast<HMODULE>(&__ImageBase);
  path.resize(::GetModuleFileNameW(self, path.data(), kLongestPath));
  path.resize(path.rfind(L'\\') + 1);
  return path.empty() ? path : path + kSuite;
}

bool IsFile(const std::wstring& path) {
  return !path.empty() && ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Where the system would find it by its name: in the program, or in its order of search.
bool IsFoundByName() {
  return ::GetModuleHandleW(kSuite) != nullptr || ::SearchPathW(nullptr, kSuite, nullptr, 0, nullptr, nullptr) != 0;
}

/// The address of a function is written over the call that loads it. Newer linkers put that into pages that can only be
/// read. They stay writable: another thread may be about to write beside it.
void LetWrite(FARPROC* address) {
  DWORD before = 0;
  ::VirtualProtect(address, sizeof *address, PAGE_READWRITE, &before);
}

/// Null lets the DLL be looked for by its name.
FARPROC WINAPI LoadBeside(unsigned notification, PDelayLoadInfo info) {
  if (notification == dliStartProcessing) LetWrite(info->ppfn);
  if (notification != dliNotePreLoadLibrary) return nullptr;
  const std::wstring path = PathBeside();
  if (!IsFile(path)) return nullptr;
  return reinterpret_cast<FARPROC>(::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
}

}  // namespace

extern "C" {

PfnDliHook __pfnDliNotifyHook2 = LoadBeside;

/// Without the suite's DLL this one cannot be loaded either, as if it were bound to it: nothing fails in the middle of
/// a call.
BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
  if (reason != DLL_PROCESS_ATTACH || IsFoundByName() || IsFile(PathBeside())) return TRUE;
  ::SetLastError(ERROR_MOD_NOT_FOUND);
  return FALSE;
}

}  // extern "C"
