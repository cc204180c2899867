// A lock and a signal between threads, for whoever has workers (workers.h).
//
// Unlike std::mutex neither needs memory or a handle of the system where the platform has slim ones, so that locking
// cannot fail and nothing is left behind when a thread that hangs goes down with the process.
#pragma once

#ifndef _WIN32
#include <condition_variable>
#include <mutex>
#endif

namespace os {

/// For std::lock_guard and std::unique_lock. Not recursive.
class Lock {
 public:
  Lock() = default;
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;
  ~Lock() = default;

  void lock() noexcept;
  void unlock() noexcept;

 private:
  friend class Signal;
#ifdef _WIN32
  void* word_ = nullptr;  ///< a slim lock of the system, which is one pointer
#else
  std::mutex mutex_;
#endif
};

/// What threads wait for that hold a lock.
class Signal {
 public:
  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;
  ~Signal() = default;

  void NotifyAll() noexcept;
  /// Lets go of the lock until it is notified, or so many milliseconds have passed; false when they have. May also come
  /// back for no reason.
  bool WaitFor(Lock& held, unsigned milliseconds) noexcept;

 private:
#ifdef _WIN32
  void* word_ = nullptr;  ///< a condition variable of the system, which is one pointer
#else
  std::condition_variable_any condition_;
#endif
};

}  // namespace os
