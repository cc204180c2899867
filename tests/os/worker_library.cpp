// A DLL that leaves a call behind on a worker of its own, as the library does when a device does not answer.
#include <windows.h>

#include <memory>

#include "platform/os/workers.h"

namespace {

class Wait final : public os::Errand {
 public:
  explicit Wait(HANDLE until) : until_(until) {}
  void Run() noexcept override { ::WaitForSingleObject(until_, INFINITE); }

 private:
  HANDLE until_;
};

}  // namespace

/// `until` stays the caller's. Nobody keeps the workers; the thread stays until its call has come back.
extern "C" __declspec(dllexport) bool LeaveCallBehind(HANDLE until) {
  return os::MakeWorkers(nullptr)->Begin(std::make_shared<Wait>(until), {}, os::Urgency::Awaited);
}
