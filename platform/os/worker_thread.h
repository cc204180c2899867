// What a platform's threads are to the workers. Internal to workers.cpp.
#pragma once

#include <cstdint>
#include <memory>

namespace os {

/// A thread, for as long as it runs.
using ThreadName = std::uint32_t;

/// What a worker's thread does.
class ThreadTask {
 public:
  virtual ~ThreadTask() = default;
  virtual void Run() noexcept = 0;
};

/// Starts a thread that runs the task, destroys it and ends. The thread keeps its own module and that of `library` (may
/// be null). False when it cannot be had.
[[nodiscard]] bool StartThread(std::unique_ptr<ThreadTask> task, const void* library) noexcept;

[[nodiscard]] ThreadName ThisThread() noexcept;

/// Cancels the call that the thread waits in, where the platform can.
void CancelCall(ThreadName thread) noexcept;

}  // namespace os
