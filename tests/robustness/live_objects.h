// What this process holds: windows, menus, GDI objects, kernel handles and blocks of memory. Counted by asking for each
// possible handle whether it is one, as the system's own counters answer 0 on some systems.
#pragma once

#include <ostream>

namespace robustness {

struct LiveObjects {
  long windows = 0;
  long menus = 0;
  long gdiObjects = 0;     ///< of every kind; icons, cursors and image lists consist of them
  long kernelHandles = 0;  ///< files, searches, registry keys, threads, events ...
  long newBlocks = 0;      ///< of operator new
  long heapBlocks = 0;     ///< of the C heap, those of operator new included; see HasGroupedHeap

  friend bool operator==(const LiveObjects&, const LiveObjects&) = default;
};

std::ostream& operator<<(std::ostream& out, const LiveObjects& live);

/// The framework keeps objects that stand for the windows of others until many of those windows are gone. It looks
/// through them now.
void ForgetDeadWindows();

/// The library's workers end when nobody has needed them for two seconds; until then they hold memory and a window.
void WaitForWorkers();

/// Threads of this process.
[[nodiscard]] long CountThreads();

/// What the system itself creates at the first use and keeps is created first. Takes a few tenths of a second.
[[nodiscard]] LiveObjects CountLiveObjects();

/// Whether the C heap hands out blocks from groups, of which only each whole one is counted. It makes groups for a size
/// once that is often asked for, so that the count can grow for a while although nothing is lost.
[[nodiscard]] bool HasGroupedHeap();

}  // namespace robustness
