// Programs beside this one, started as a person would start them.
#pragma once

#include <windows.h>

#include <string>

namespace client {

/// The folder of this program, its DLLs and the programs beside it, with "\\" at its end.
[[nodiscard]] std::string OwnFolder();

/// While it lives, programs that are started write to a file of their own, which is removed at the end.
class Output {
 public:
  explicit Output(std::string path);
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /// What has been written, with plain line ends.
  [[nodiscard]] std::string Text() const;

 private:
  std::string path_;
  HANDLE former_;
  HANDLE file_;
};

}  // namespace client
