// A folder of real files for tests, gone afterwards.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/os/os.h"

namespace real_folder {

/// An open file or folder.
class Opened {
 public:
  Opened(const std::string& path, DWORD flags)
      : handle_(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, flags, nullptr)) {}
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  ~Opened() { CloseHandle(handle_); }
  [[nodiscard]] explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE handle_;
};

class RealFolder : public testing::Test {
 protected:
  RealFolder() {
    std::array<char, MAX_PATH> temporary = {};
    GetTempPathA(static_cast<DWORD>(temporary.size()), temporary.data());
    folder_ = temporary.data() + ("operations_" + std::to_string(GetCurrentProcessId()));
    RemoveTree(folder_);  // of a former run that was ended from outside
    CreateDirectoryA(folder_.c_str(), nullptr);
  }
  ~RealFolder() override { RemoveTree(folder_); }

  [[nodiscard]] std::string Path(std::string_view name) const { return folder_ + "\\" + std::string(name); }
  void Touch(std::string_view name, const char* text = "") const {
    const auto writer = os::Services().files->CreateText(Path(name));
    ASSERT_TRUE(writer != nullptr && writer->Write(text) && writer->Close()) << name;
  }
  [[nodiscard]] std::string Body(std::string_view name) const {
    return os::Services().files->Read(Path(name), 100).value_or("missing");
  }
  [[nodiscard]] bool Exists(std::string_view name) const { return os::Services().files->Exists(Path(name)); }

  /// The names in the folder as they are written.
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    const auto pass = os::Services().files->OpenFolder(folder_);
    os::FoundName found;
    while (pass != nullptr && pass->Next(&found)) {
      if (found.name != "." && found.name != "..") names.push_back(found.name);
    }
    return names;
  }

  static void RemoveTree(const std::string& folder) {
    const auto pass = os::Services().files->OpenFolder(folder);
    os::FoundName found;
    while (pass != nullptr && pass->Next(&found)) {
      if (found.name == "." || found.name == "..") continue;
      const std::string path = folder + "\\" + found.name;
      SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
      if ((found.attributes & os::kAttributeFolder) != 0) RemoveTree(path);
      DeleteFileA(path.c_str());
    }
    RemoveDirectoryA(folder.c_str());
  }

  std::string folder_;
};

}  // namespace real_folder
