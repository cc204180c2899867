// What a call finds on a worker's thread: its modules, its COM apartment, its error mode, and the end of what it waits
// for when nobody wants it any more.
#include <windows.h>

// It needs windows.h before it.
#include <objbase.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/os/workers.h"

namespace {

constexpr ULONGLONG kLongestMs = 10'000;
constexpr wchar_t kSomeLibrary[] = L"avicap32.dll";  // which nothing else here loads

bool ComesTrue(const std::function<bool()>& condition) {
  const ULONGLONG begun = ::GetTickCount64();
  while (!condition()) {
    if (::GetTickCount64() - begun > kLongestMs) return false;
    ::Sleep(1);
  }
  return true;
}

bool IsLoaded(const wchar_t* library) { return ::GetModuleHandleW(library) != nullptr; }

class Task final : public os::Errand {
 public:
  explicit Task(std::function<void()> run) : run_(std::move(run)) {}
  void Run() noexcept override {
    run_();
    isDone_ = true;
  }
  [[nodiscard]] bool IsDone() const { return isDone_; }

 private:
  std::function<void()> run_;
  std::atomic<bool> isDone_ = false;
};

/// Something that a call waits for.
class Event {
 public:
  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  ~Event() { ::CloseHandle(handle_); }
  void Set() const { ::SetEvent(handle_); }
  void Wait() const { ::WaitForSingleObject(handle_, INFINITE); }
  [[nodiscard]] HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_ = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
};

std::shared_ptr<Task> Begin(os::Workers& workers, std::function<void()> run) {
  auto task = std::make_shared<Task>(std::move(run));
  EXPECT_TRUE(workers.Begin(task, {}, os::Urgency::Awaited));
  return task;
}

/// Runs it on a worker, to the end.
void RunThere(std::function<void()> run) {
  const auto workers = os::MakeWorkers(nullptr);
  const auto task = Begin(*workers, std::move(run));
  ASSERT_TRUE(ComesTrue([&] { return task->IsDone(); }));
}

TEST(WorkerThread, HasAComApartmentOfItsOwn) {
  const auto find = [](APTTYPE* type) {
    APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
    return ::CoGetApartmentType(type, &qualifier);
  };
  APTTYPE type = APTTYPE_CURRENT;
  ASSERT_EQ(find(&type), CO_E_NOTINITIALIZED) << "this thread has none";
  HRESULT found = E_FAIL;
  RunThere([&] { found = find(&type); });
  EXPECT_EQ(found, S_OK);
  EXPECT_TRUE(type == APTTYPE_STA || type == APTTYPE_MAINSTA) << type;
  EXPECT_EQ(find(&type), CO_E_NOTINITIALIZED) << "nor has it now";
}

TEST(WorkerThread, LetsNoMissingDiskAskTheUser) {
  const DWORD here = ::GetThreadErrorMode();
  DWORD there = 0;
  RunThere([&there] { there = ::GetThreadErrorMode(); });
  EXPECT_EQ(there, DWORD{SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX});
  EXPECT_EQ(::GetThreadErrorMode(), here);
}

TEST(WorkerThread, HoldsTheOtherLibraryUntilItEnds) {
  const HMODULE library = ::LoadLibraryW(kSomeLibrary);
  ASSERT_NE(library, nullptr);
  const Event answer;
  auto workers = os::MakeWorkers(reinterpret_cast<const void*>(::GetProcAddress(library, "capCreateCaptureWindowW")));
  const auto task = Begin(*workers, [&answer] { answer.Wait(); });
  ::FreeLibrary(library);
  EXPECT_TRUE(IsLoaded(kSomeLibrary));
  workers.reset();
  EXPECT_TRUE(IsLoaded(kSomeLibrary)) << "the call may be in it";
  answer.Set();
  EXPECT_TRUE(ComesTrue([] { return !IsLoaded(kSomeLibrary); }));
  EXPECT_TRUE(task->IsDone());
}

TEST(WorkerThread, HoldsItsOwnLibraryUntilItEnds) {
  const HMODULE library = ::LoadLibraryW(L"" WORKER_LIBRARY);
  ASSERT_NE(library, nullptr);
  const auto leave =
      reinterpret_cast<bool (*)(HANDLE)>(reinterpret_cast<void*>(::GetProcAddress(library, "LeaveCallBehind")));
  const Event answer;
  ASSERT_TRUE(leave(answer.Get()));
  ::FreeLibrary(library);
  EXPECT_TRUE(IsLoaded(L"" WORKER_LIBRARY)) << "or the call would come back to nothing";
  answer.Set();
  EXPECT_TRUE(ComesTrue([] { return !IsLoaded(L"" WORKER_LIBRARY); }));
}

TEST(WorkerThread, CancelsWhatNobodyWantsAnyMore) {
  const auto workers = os::MakeWorkers(nullptr);
  HANDLE reader = nullptr;
  HANDLE writer = nullptr;
  ASSERT_TRUE(::CreatePipe(&reader, &writer, nullptr, 0));
  std::atomic<bool> isRunning = false;
  std::atomic<DWORD> error = 0;
  const auto task = Begin(*workers, [&, reader] {
    isRunning = true;
    char byte = 0;
    DWORD count = 0;
    if (::ReadFile(reader, &byte, 1, &count, nullptr) == FALSE) error = ::GetLastError();
  });
  ASSERT_TRUE(ComesTrue([&] { return isRunning.load(); }));
  const bool hasEnded = ComesTrue([&] {
    workers->Forget(*task);  // again and again: it may not have come to its call yet
    return task->IsDone();
  });
  ::CloseHandle(writer);
  EXPECT_TRUE(hasEnded);
  EXPECT_EQ(error, DWORD{ERROR_OPERATION_ABORTED});
  ASSERT_TRUE(ComesTrue([&] { return task->IsDone(); })) << "it ends with its pipe";
  ::CloseHandle(reader);
}

}  // namespace
