// Threads for calls that may have to wait for a device.
//
// A call of the system that hangs cannot be stopped, only be left behind. So such calls are made on a few threads of
// the library's own, and whoever wants an answer waits for as long as he likes. Windows, messages and results stay on
// his thread. What a worker runs
//  - owns everything that it touches, as it may end long after whoever began it, and is destroyed on the worker,
//  - finds the thread with its own COM apartment, and with disks that are missing failing instead of asking the user,
//  - keeps the DLLs from being unloaded until it ends. Nobody ever waits for it: a process ends while it hangs.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace os {

/// One piece of work.
class Errand {
 public:
  virtual ~Errand() = default;
  /// On a worker.
  virtual void Run() noexcept = 0;
};

/// Whether somebody waits for an errand. Those in the background leave two workers to the others.
enum class Urgency { Awaited, Background };

inline constexpr std::size_t kMostWorkers = 4;
inline constexpr std::size_t kMostInBackground = 2;
/// A device that has died takes no more, however many of its paths are asked about, so that one is left to all others.
inline constexpr std::size_t kMostOnDevice = 3;

/// What an errand asks. Texts are compared byte by byte: whoever brings errands spells one place in one way.
struct Site {
  std::string path;    ///< empty: no one else's
  std::string device;  ///< what hangs as a whole, such as a drive or a computer; empty: not known
};

/// Any thread may call it.
class Workers {
 public:
  virtual ~Workers() = default;
  /// Runs the errand when a worker is free, no other errand on the same path runs, and fewer than kMostOnDevice on the
  /// same device: where one hangs, the next one would only hang beside it. False when no thread can be had for it: the
  /// errand is forgotten then, and whoever brings it makes the call himself.
  [[nodiscard]] virtual bool Begin(std::shared_ptr<Errand> errand, Site site, Urgency urgency) = 0;
  /// Nobody wants the errand any more: one that has not begun never will, and one that runs is cancelled where the
  /// platform can.
  virtual void Forget(const Errand& errand) noexcept = 0;
};

/// Workers of their own for whoever makes them. `library`: an address in each further module that the errands run in
/// (null for none), which is held too. When they go, nobody waits for what still runs.
[[nodiscard]] std::unique_ptr<Workers> MakeWorkers(const void* library);

}  // namespace os
