// A folder of real files for tests, gone afterwards with all that is in it. Names are Shift_JIS.
#pragma once

#include <windows.h>

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/os/sjis_wide.h"

class TemporaryFolder {
 public:
  /// Empty at first, whatever a former run that was ended from outside has left there.
  explicit TemporaryFolder(const std::string& stem) : path_(PathOf(stem)) {
    RemoveTree(path_);
    ::CreateDirectoryW(os::WideOf(path_).c_str(), nullptr);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { RemoveTree(path_); }

  /// Where the folder of that stem lies: each process has its own.
  [[nodiscard]] static std::string PathOf(const std::string& stem) {
    std::array<wchar_t, MAX_PATH> temporary = {};
    ::GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
    return os::SjisOf(temporary.data(), os::kUnknown).bytes + stem + "_" + std::to_string(::GetCurrentProcessId());
  }

  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] std::string Path(std::string_view name) const { return path_ + "\\" + std::string(name); }

  void MakeFolder(std::string_view name) const { ::CreateDirectoryW(os::WideOf(Path(name)).c_str(), nullptr); }
  void Write(std::string_view name, std::string_view bytes) const { ::CloseHandle(Open(name, bytes)); }
  /// The same; the handle keeps everybody else out of the file until it is closed.
  [[nodiscard]] HANDLE Open(std::string_view name, std::string_view bytes) const {
    const HANDLE file = ::CreateFileW(os::WideOf(Path(name)).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot make " + Path(name));
    DWORD written = 0;
    ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    return file;
  }

  /// A folder, or the files of one that does not let itself be removed.
  static void RemoveTree(const std::string& folder) { RemoveWideTree(os::WideOf(folder)); }

 private:
  static void RemoveWideTree(const std::wstring& folder) {
    WIN32_FIND_DATAW found = {};
    const HANDLE pass = ::FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (pass == INVALID_HANDLE_VALUE) return;
    do {
      const std::wstring_view name(found.cFileName);
      if (name == L"." || name == L"..") continue;
      const std::wstring path = folder + L"\\" + std::wstring(name);
      ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
      if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) RemoveWideTree(path);
      ::DeleteFileW(path.c_str());
    } while (::FindNextFileW(pass, &found) != FALSE);
    ::FindClose(pass);
    ::RemoveDirectoryW(folder.c_str());
  }

  std::string path_;
};
