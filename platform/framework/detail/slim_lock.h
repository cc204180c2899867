// A lock for std::lock_guard. Internal to the library.
#pragma once

#include "platform/framework/win32.h"

namespace framework {

/// Unlike std::mutex it needs no memory when it is first locked, so locking cannot fail. Not recursive.
class SlimLock {
 public:
  SlimLock() noexcept = default;
  SlimLock(const SlimLock&) = delete;
  SlimLock& operator=(const SlimLock&) = delete;
  ~SlimLock() = default;

  void lock() noexcept { ::AcquireSRWLockExclusive(&lock_); }
  void unlock() noexcept { ::ReleaseSRWLockExclusive(&lock_); }

 private:
  SRWLOCK lock_ = SRWLOCK_INIT;
};

}  // namespace framework
