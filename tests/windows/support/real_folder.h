// A fixture with a folder of real files.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/os/os.h"
#include "platform/os/sjis_wide.h"
#include "tests/windows/support/temporary_folder.h"

namespace real_folder {

/// An open file or folder.
class Opened {
 public:
  Opened(const std::string& path, DWORD flags)
      : handle_(CreateFileW(os::WideOf(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, flags, nullptr)) {}
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  ~Opened() { CloseHandle(handle_); }
  [[nodiscard]] explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE handle_;
};

class RealFolder : public testing::Test {
 protected:
  [[nodiscard]] std::string Path(std::string_view name) const { return made_.Path(name); }
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

 private:
  const TemporaryFolder made_{"operations"};

 protected:
  const std::string folder_ = made_.Path();
};

}  // namespace real_folder
