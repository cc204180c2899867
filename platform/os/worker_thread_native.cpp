#include <new>
#include <system_error>
#include <thread>

#include "platform/os/lock.h"
#include "platform/os/worker_thread.h"

namespace os {

void Lock::lock() noexcept { mutex_.lock(); }
void Lock::unlock() noexcept { mutex_.unlock(); }

void Signal::NotifyAll() noexcept { condition_.notify_all(); }

bool Signal::WaitFor(Lock& held, unsigned milliseconds) noexcept {
  return condition_.wait_for(held, std::chrono::milliseconds(milliseconds)) == std::cv_status::no_timeout;
}

bool StartThread(std::unique_ptr<ThreadTask> task, const void* /*library*/) noexcept {
  try {
    std::thread([run = std::move(task)] { run->Run(); }).detach();
    return true;
  } catch (const std::system_error&) {
    return false;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

ThreadName ThisThread() noexcept { return 0; }

void CancelCall(ThreadName /*thread*/) noexcept {}

}  // namespace os
