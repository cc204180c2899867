// A pointer that each thread has for itself. Internal to the framework.
#pragma once

#include <utility>

#include "platform/framework/win32.h"

namespace framework {

/// Null at first on every thread. Unlike thread_local it needs no memory, for want of which the run-time library would
/// end the process. Where the system has no slot left it stays null. For objects with static storage.
template <class Type>
class ThreadSlot {
 public:
  ThreadSlot() noexcept : index_(::TlsAlloc()) {}
  ThreadSlot(const ThreadSlot&) = delete;
  ThreadSlot& operator=(const ThreadSlot&) = delete;
  ~ThreadSlot() {
    if (index_ != TLS_OUT_OF_INDEXES) ::TlsFree(index_);
  }

  /// Keeps the last error.
  [[nodiscard]] Type* Get() const noexcept {
    const DWORD error = ::GetLastError();
    auto* const value = static_cast<Type*>(::TlsGetValue(index_));
    ::SetLastError(error);
    return value;
  }
  void Set(Type* value) const noexcept { ::TlsSetValue(index_, value); }
  /// Sets another value and returns the former one.
  Type* Exchange(Type* value) const noexcept {
    Type* const former = Get();
    Set(value);
    return former;
  }

 private:
  DWORD index_;
};

}  // namespace framework
