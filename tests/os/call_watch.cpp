#include "tests/os/call_watch.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "tests/os/imports.h"

namespace os_test {

namespace {

constexpr std::size_t kMostNames = 100;
constexpr std::size_t kDetourBytes = 64;

struct Watched {
  std::string name;
  WatchedCalls calls;
};

/// One address of the import table, and what stood there.
struct Patch {
  std::uintptr_t* place;
  std::uintptr_t former;
};

std::array<Watched, kMostNames> watched;
std::size_t watchedCount = 0;
std::vector<Patch> patches;
unsigned char* detours = nullptr;
DWORD watchedThread = 0;  ///< 0: all
SRWLOCK noteLock = SRWLOCK_INIT;

/// Called before the function itself. What the function finds in the thread's last error stays.
void Note(std::size_t index) noexcept {
  if (watchedThread != 0 && GetCurrentThreadId() != watchedThread) return;
  const DWORD lastError = GetLastError();
  const DWORD mode = GetThreadErrorMode();
  AcquireSRWLockExclusive(&noteLock);
  WatchedCalls& calls = watched[index].calls;
  ++calls.count;
  calls.always &= mode;
  calls.ever |= mode;
  ReleaseSRWLockExclusive(&noteLock);
  SetLastError(lastError);
}

/// Machine code: keeps the four registers in which integers and addresses are handed over, calls Note(index) and jumps
/// to the function.
void WriteDetour(unsigned char* to, std::uint64_t index, std::uintptr_t function) {
  const auto note = reinterpret_cast<std::uintptr_t>(&Note);
  std::array<unsigned char, 52> code = {
      0x51, 0x52, 0x41, 0x50, 0x41, 0x51,                   // push rcx, rdx, r8, r9
      0x48, 0x83, 0xEC, 0x28,                               // sub rsp, 40
      0x48, 0xB9, 0,    0,    0,    0,    0,    0,   0, 0,  // mov rcx, index
      0x48, 0xB8, 0,    0,    0,    0,    0,    0,   0, 0,  // mov rax, Note
      0xFF, 0xD0,                                           // call rax
      0x48, 0x83, 0xC4, 0x28,                               // add rsp, 40
      0x41, 0x59, 0x41, 0x58, 0x5A, 0x59, 0x48, 0xB8};      // pop r9, r8, rdx, rcx; mov rax, ...
  std::memcpy(code.data() + 12, &index, sizeof index);
  std::memcpy(code.data() + 22, &note, sizeof note);
  std::memcpy(to, code.data(), 44);
  std::memcpy(to + 44, &function, sizeof function);
  const std::array<unsigned char, 2> jump = {0xFF, 0xE0};  // jmp rax
  std::memcpy(to + 52, jump.data(), jump.size());
}

[[nodiscard]] std::size_t IndexOf(const std::string& name) {
  const auto end = watched.begin() + static_cast<std::ptrdiff_t>(watchedCount);
  const auto found = std::find_if(watched.begin(), end, [&](const Watched& each) { return each.name == name; });
  return static_cast<std::size_t>(found - watched.begin());
}

void Redirect(const char* name, std::uintptr_t* place) {
  const std::size_t index = IndexOf(name);
  if (index == watchedCount) return;
  unsigned char* detour = detours + patches.size() * kDetourBytes;
  WriteDetour(detour, index, *place);
  patches.push_back({place, *place});
  WriteImport(place, reinterpret_cast<std::uintptr_t>(detour));
}

}  // namespace

CallWatch::CallWatch(const std::vector<std::string>& names, Threads threads) {
  for (const std::string& name : names) watched.at(watchedCount++) = {name, {}};
  watchedThread = threads == Threads::Own ? GetCurrentThreadId() : 0;
  // A function may be imported from more than one module.
  detours = static_cast<unsigned char*>(
      VirtualAlloc(nullptr, 2 * kMostNames * kDetourBytes, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
  ForEachImport(&Redirect);
}

CallWatch::~CallWatch() {
  for (const Patch& patch : patches) WriteImport(patch.place, patch.former);
  patches.clear();
  watchedCount = 0;
  VirtualFree(detours, 0, MEM_RELEASE);
}

WatchedCalls CallWatch::Calls(const std::string& name) const {
  const std::size_t index = IndexOf(name);
  return index < watchedCount ? watched[index].calls : WatchedCalls{};
}

WatchedCalls CallWatch::All() const {
  WatchedCalls all;
  for (std::size_t i = 0; i < watchedCount; ++i) {
    all.count += watched[i].calls.count;
    all.always &= watched[i].calls.always;
    all.ever |= watched[i].calls.ever;
  }
  return all;
}

std::string CallWatch::CalledWithout(unsigned bits) const {
  std::string names;
  for (std::size_t i = 0; i < watchedCount; ++i) {
    if ((watched[i].calls.always & bits) != bits) names += watched[i].name + ' ';
  }
  return names;
}

void CallWatch::Clear() {
  for (Watched& each : watched) each.calls = {};
}

const std::vector<std::string>& DriveCalls() {
  static const std::vector<std::string> names = {
      // kernel32
      "CopyFileA", "CopyFileW", "CreateDirectoryA", "CreateDirectoryW", "CreateFileA", "CreateFileW", "DeleteFileA",
      "DeleteFileW", "FindFirstFileA", "FindFirstFileExA", "FindFirstFileExW", "FindFirstFileW", "FindNextFileA",
      "FindNextFileW", "GetDiskFreeSpaceA", "GetDiskFreeSpaceExA", "GetDiskFreeSpaceExW", "GetDiskFreeSpaceW",
      "GetDriveTypeA", "GetDriveTypeW", "GetFileAttributesA", "GetFileAttributesExA", "GetFileAttributesExW",
      "GetFileAttributesW", "GetFileSize", "GetFileSizeEx", "GetFileTime", "GetLongPathNameA", "GetLongPathNameW",
      "GetShortPathNameA", "GetShortPathNameW", "GetVolumeInformationA", "GetVolumeInformationW", "MoveFileA",
      "MoveFileExA", "MoveFileExW", "MoveFileW", "ReadFile", "RemoveDirectoryA", "RemoveDirectoryW",
      "SetCurrentDirectoryA", "SetCurrentDirectoryW", "SetFileAttributesA", "SetFileAttributesW", "WriteFile",
      // the C library
      "_access", "_stat64", "_waccess", "_wfopen", "_wremove", "_wrename", "_wstat64", "fclose", "fflush", "fopen",
      "fread", "fwrite", "remove", "rename",
      // the shell and COM
      "CoCreateInstance", "SHFileOperationA", "SHFileOperationW", "SHGetFileInfoA", "SHGetFileInfoW",
      "SHGetFolderPathA", "SHGetFolderPathW", "SHGetSpecialFolderPathA", "SHGetSpecialFolderPathW",
      // the network
      "WNetAddConnection2A", "WNetAddConnection2W", "WNetCloseEnum", "WNetEnumResourceA", "WNetEnumResourceW",
      "WNetGetProviderNameA", "WNetGetProviderNameW", "WNetGetUniversalNameA", "WNetGetUniversalNameW", "WNetOpenEnumA",
      "WNetOpenEnumW"};
  return names;
}

}  // namespace os_test
