#include <windows.h>

#include <array>

#include "tests/os/contract_world.h"

namespace {

[[nodiscard]] std::string Unique() { return "os_contract_" + std::to_string(::GetCurrentProcessId()); }

void RemoveTree(const std::string& folder) {
  WIN32_FIND_DATAA data = {};
  const HANDLE find = ::FindFirstFileA((folder + "\\*").c_str(), &data);
  if (find == INVALID_HANDLE_VALUE) return;
  do {
    const std::string name = data.cFileName;
    if (name == "." || name == "..") continue;
    const std::string path = folder + "\\" + name;
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      RemoveTree(path);
    } else {
      ::DeleteFileA(path.c_str());
    }
  } while (::FindNextFileA(find, &data) != FALSE);
  ::FindClose(find);
  ::RemoveDirectoryA(folder.c_str());
}

}  // namespace

ContractWorld::ContractWorld() { ::CreateDirectoryA(Folder().c_str(), nullptr); }

ContractWorld::~ContractWorld() {
  RemoveTree(Folder());
  ::RegDeleteKeyA(HKEY_CURRENT_USER, Key().c_str());
}

std::string ContractWorld::Folder() const {
  std::array<char, MAX_PATH> temporary = {};
  ::GetTempPathA(static_cast<DWORD>(temporary.size()), temporary.data());
  return temporary.data() + Unique();
}

std::string ContractWorld::Key() const { return "Software\\" + Unique(); }
