// Sees in which error mode of its thread a program calls functions of the system.
//
//   CallWatch watch({"CreateFileA", "FindNextFileW"});
//   ...                                        // whatever calls them
//   watch.Calls("CreateFileA")                 // how often, and in which modes
//
// Works on the addresses through which this program calls other modules, so it sees the calls of this program's own
// code and not those that other modules make among themselves. Calls of other threads than the one that made the object
// are not counted. One object at a time.
#pragma once

#include <string>
#include <vector>

namespace os_test {

struct WatchedCalls {
  unsigned count = 0;
  unsigned always = ~0U;  ///< bits of the mode that every call has seen
  unsigned ever = 0;      ///< bits that any call has seen
};

/// On which threads calls are noted: that of whoever watches, or all.
enum class Threads { Own, All };

class CallWatch {
 public:
  /// A name that this program does not import is never called.
  explicit CallWatch(const std::vector<std::string>& names, Threads threads = Threads::Own);
  CallWatch(const CallWatch&) = delete;
  CallWatch& operator=(const CallWatch&) = delete;
  ~CallWatch();

  [[nodiscard]] WatchedCalls Calls(const std::string& name) const;
  /// All watched calls together.
  [[nodiscard]] WatchedCalls All() const;
  /// The names of those that were called at least once in a mode without all of those bits.
  [[nodiscard]] std::string CalledWithout(unsigned bits) const;
  /// Forgets what was seen.
  void Clear();
};

/// Every function of the system by which the library, or what it stands on, may reach a disk, a volume, the shell or a
/// share.
[[nodiscard]] const std::vector<std::string>& DriveCalls();

}  // namespace os_test
