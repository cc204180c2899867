// The least that listing a folder can take.
#pragma once

#include <windows.h>

#include <string>

namespace bench {

/// The bare loop over the files of a folder; `take` is called with the WIN32_FIND_DATAW of each. The path is of ASCII
/// letters.
template <class Take>
void FindAll(const std::string& folder, Take take) {
  WIN32_FIND_DATAW found = {};
  const std::wstring pattern = std::wstring(folder.begin(), folder.end()) + L"\\*";
  const HANDLE pass = ::FindFirstFileW(pattern.c_str(), &found);
  do {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) take(found);
  } while (::FindNextFileW(pass, &found) != FALSE);
  ::FindClose(pass);
}

inline void FindAll(const std::string& folder) {
  FindAll(folder, [](const WIN32_FIND_DATAW&) {});
}

}  // namespace bench
