#include "tests/robustness/watchdog.h"

#include <windows.h>

#include <atomic>
#include <cstdio>

#include "tests/windows/driver/crash_backtrace.h"

namespace robustness {
namespace {

constexpr DWORD kLook = 1000;  // milliseconds

std::atomic<ULONGLONG> lastProgress;

/// Takes no memory: the thread may hold the heap's lock.
DWORD WINAPI Watch(void* thread) {
  while (::GetTickCount64() - lastProgress < kLongestSilence) ::SleepEx(kLook, FALSE);
  driver::PrintBacktrace(thread, "no progress");
  ::TerminateProcess(::GetCurrentProcess(), kHangExitCode);
  return 0;
}

HANDLE ThisThread() {
  HANDLE thread = nullptr;
  const HANDLE process = ::GetCurrentProcess();
  ::DuplicateHandle(process, ::GetCurrentThread(), process, &thread, 0, FALSE, DUPLICATE_SAME_ACCESS);
  return thread;
}

}  // namespace

void NoteProgress() {
  lastProgress = ::GetTickCount64();
  [[maybe_unused]] static const HANDLE watch = ::CreateThread(nullptr, 0, &Watch, ThisThread(), 0, nullptr);
}

}  // namespace robustness
