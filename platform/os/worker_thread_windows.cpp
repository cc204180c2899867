#include <windows.h>

// It needs windows.h before it.
#include <objbase.h>

#include "platform/os/lock.h"
#include "platform/os/worker_thread.h"

namespace os {
namespace {

static_assert(sizeof(SRWLOCK) == sizeof(void*) && sizeof(CONDITION_VARIABLE) == sizeof(void*));

SRWLOCK* SlimLock(void** word) noexcept { return reinterpret_cast<SRWLOCK*>(word); }
CONDITION_VARIABLE* Condition(void** word) noexcept { return reinterpret_cast<CONDITION_VARIABLE*>(word); }

/// The module of an address, held once more; null when there is none.
HMODULE HeldModule(const void* address) noexcept {
  HMODULE module = nullptr;
  if (address != nullptr) {
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, static_cast<LPCWSTR>(address), &module);
  }
  return module;
}

/// What a thread is given, and the modules that it holds.
struct Start {
  std::unique_ptr<ThreadTask> task;
  HMODULE own = nullptr;
  HMODULE library = nullptr;
};

void RunTask(std::unique_ptr<ThreadTask> task) noexcept {
  ::SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, nullptr);
  const HRESULT com = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  task->Run();
  task.reset();
  if (SUCCEEDED(com)) ::CoUninitialize();
}

DWORD WINAPI RunThread(void* given) noexcept {
  std::unique_ptr<Start> start(static_cast<Start*>(given));
  const HMODULE own = start->own;
  const HMODULE library = start->library;
  RunTask(std::move(start->task));
  start.reset();
  if (library != nullptr) ::FreeLibrary(library);
  if (own != nullptr) ::FreeLibraryAndExitThread(own, 0);
  return 0;
}

/// Older systems lack the call.
using CancelCallOfSystem = BOOL(WINAPI*)(HANDLE);

CancelCallOfSystem FindCancel() noexcept {
  const HMODULE kernel = ::GetModuleHandleW(L"kernel32.dll");
  const FARPROC found = kernel == nullptr ? nullptr : ::GetProcAddress(kernel, "CancelSynchronousIo");
  return reinterpret_cast<CancelCallOfSystem>(reinterpret_cast<void*>(found));
}

}  // namespace

void Lock::lock() noexcept { ::AcquireSRWLockExclusive(SlimLock(&word_)); }
void Lock::unlock() noexcept { ::ReleaseSRWLockExclusive(SlimLock(&word_)); }

void Signal::NotifyAll() noexcept { ::WakeAllConditionVariable(Condition(&word_)); }

bool Signal::WaitFor(Lock& held, unsigned milliseconds) noexcept {
  return ::SleepConditionVariableSRW(Condition(&word_), SlimLock(&held.word_), milliseconds, 0) != FALSE;
}

bool StartThread(std::unique_ptr<ThreadTask> task, const void* library) noexcept {
  std::unique_ptr<Start> start(new (std::nothrow) Start{std::move(task), nullptr, nullptr});
  if (start == nullptr) return false;
  start->own = HeldModule(reinterpret_cast<const void*>(&RunThread));
  start->library = HeldModule(library);
  const HANDLE thread = ::CreateThread(nullptr, 0, &RunThread, start.get(), 0, nullptr);
  if (thread == nullptr) {
    if (start->library != nullptr) ::FreeLibrary(start->library);
    if (start->own != nullptr) ::FreeLibrary(start->own);
    return false;
  }
  static_cast<void>(start.release());
  ::CloseHandle(thread);
  return true;
}

ThreadName ThisThread() noexcept { return ::GetCurrentThreadId(); }

void CancelCall(ThreadName thread) noexcept {
  const CancelCallOfSystem cancel = FindCancel();
  const HANDLE opened = cancel == nullptr ? nullptr : ::OpenThread(THREAD_TERMINATE, FALSE, thread);
  if (opened == nullptr) return;
  cancel(opened);
  ::CloseHandle(opened);
}

}  // namespace os
