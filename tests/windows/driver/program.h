// A program that the person uses: started with a command line, seen through its windows.
#pragma once

#include <windows.h>

#include <string>

namespace driver {

/// Ended when it outlives this object. Throws Stuck when it cannot be started. `commandLine` is Shift_JIS.
class Program {
 public:
  explicit Program(const std::string& commandLine);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// The process ID, for User.
  [[nodiscard]] DWORD Id() const { return process_.dwProcessId; }
  /// The exit code; throws Stuck when the program does not end within kPatienceMs.
  [[nodiscard]] int WaitForEnd() const;

 private:
  PROCESS_INFORMATION process_ = {};
};

}  // namespace driver
