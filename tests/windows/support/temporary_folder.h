// A folder of real files for tests, gone afterwards with all that is in it. Names are Shift_JIS.
#pragma once

#include <windows.h>

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

class TemporaryFolder {
 public:
  /// Empty at first, whatever a former run that was ended from outside has left there.
  explicit TemporaryFolder(const std::string& stem) : path_(PathOf(stem)) {
    RemoveTree(path_);
    ::CreateDirectoryA(path_.c_str(), nullptr);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { RemoveTree(path_); }

  /// Where the folder of that stem lies: each process has its own.
  [[nodiscard]] static std::string PathOf(const std::string& stem) {
    std::array<char, MAX_PATH> temporary = {};
    ::GetTempPathA(static_cast<DWORD>(temporary.size()), temporary.data());
    return temporary.data() + stem + "_" + std::to_string(::GetCurrentProcessId());
  }

  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] std::string Path(std::string_view name) const { return path_ + "\\" + std::string(name); }

  void MakeFolder(std::string_view name) const { ::CreateDirectoryA(Path(name).c_str(), nullptr); }
  void Write(std::string_view name, std::string_view bytes) const { ::CloseHandle(Open(name, bytes)); }
  /// The same; the handle keeps everybody else out of the file until it is closed.
  [[nodiscard]] HANDLE Open(std::string_view name, std::string_view bytes) const {
    const HANDLE file =
        ::CreateFileA(Path(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot make " + Path(name));
    DWORD written = 0;
    ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    return file;
  }

  /// A folder, or the files of one that does not let itself be removed.
  static void RemoveTree(const std::string& folder) {
    WIN32_FIND_DATAA found = {};
    const HANDLE pass = ::FindFirstFileA((folder + "\\*").c_str(), &found);
    if (pass == INVALID_HANDLE_VALUE) return;
    do {
      const std::string_view name(found.cFileName);
      if (name == "." || name == "..") continue;
      const std::string path = folder + "\\" + std::string(name);
      ::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
      if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) RemoveTree(path);
      ::DeleteFileA(path.c_str());
    } while (::FindNextFileA(pass, &found) != FALSE);
    ::FindClose(pass);
    ::RemoveDirectoryA(folder.c_str());
  }

 private:
  std::string path_;
};
