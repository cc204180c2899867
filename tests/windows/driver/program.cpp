#include "tests/windows/driver/program.h"

#include "platform/os/sjis_wide.h"
#include "tests/windows/driver/user.h"

namespace driver {

Program::Program(const std::string& commandLine) {
  std::wstring wide = os::WideOf(commandLine);
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  if (!CreateProcessW(nullptr, wide.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process_)) {
    throw Stuck("the program cannot be started: " + commandLine);
  }
}

Program::~Program() {
  if (WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT) TerminateProcess(process_.hProcess, kHangExitCode);
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

int Program::WaitForEnd() const {
  if (WaitForSingleObject(process_.hProcess, kPatienceMs) != WAIT_OBJECT_0) throw Stuck("the program does not end");
  DWORD code = 0;
  GetExitCodeProcess(process_.hProcess, &code);
  return static_cast<int>(code);
}

}  // namespace driver
