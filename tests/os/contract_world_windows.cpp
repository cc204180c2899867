#include <windows.h>

#include <array>

#include "platform/os/sjis_wide.h"
#include "tests/os/contract_world.h"

namespace {

[[nodiscard]] std::string Unique() { return "os_contract_" + std::to_string(::GetCurrentProcessId()); }

void RemoveTree(const std::string& folder) {
  WIN32_FIND_DATAW data = {};
  const HANDLE find = ::FindFirstFileW(os::WideOf(folder + "\\*").c_str(), &data);
  if (find == INVALID_HANDLE_VALUE) return;
  do {
    const std::string name = os::SjisOf(data.cFileName, os::kUnknown).bytes;
    if (name == "." || name == "..") continue;
    const std::string path = folder + "\\" + name;
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      RemoveTree(path);
    } else {
      ::DeleteFileW(os::WideOf(path).c_str());
    }
  } while (::FindNextFileW(find, &data) != FALSE);
  ::FindClose(find);
  ::RemoveDirectoryW(os::WideOf(folder).c_str());
}

}  // namespace

ContractWorld::ContractWorld() { ::CreateDirectoryW(os::WideOf(Folder()).c_str(), nullptr); }

ContractWorld::~ContractWorld() {
  RemoveTree(Folder());
  ::RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(Key()).c_str());
}

std::string ContractWorld::Folder() const {
  std::array<wchar_t, MAX_PATH> temporary = {};
  ::GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
  return os::SjisOf(temporary.data(), os::kUnknown).bytes + Unique();
}

std::string ContractWorld::Key() const { return "Software\\" + Unique(); }
