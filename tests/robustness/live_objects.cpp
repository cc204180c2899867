#include "tests/robustness/live_objects.h"

#include <windows.h>

#include <malloc.h>
#include <tlhelp32.h>

#include <array>

#include "platform/framework/framework.h"
#include "tests/robustness/heap_watch.h"

namespace robustness {
namespace {

// Low handles are given out first, so what leaks is found among them; asking for each possible one takes a second.
constexpr ULONG_PTR kUserHandles = 0x4000;
constexpr ULONG_PTR kGdiHandles = 0x10000;
constexpr ULONG_PTR kKernelHandles = 0x4000;

template <class Test>
long CountHandles(ULONG_PTR first, ULONG_PTR end, ULONG_PTR step, Test test) {
  long count = 0;
  for (ULONG_PTR handle = first; handle < end; handle += step) count += test(handle) ? 1 : 0;
  return count;
}

bool IsOwnWindow(ULONG_PTR handle) {
  DWORD process = 0;
  const auto window = reinterpret_cast<HWND>(handle);
  return ::GetWindowThreadProcessId(window, &process) != 0 && process == ::GetCurrentProcessId();
}

bool IsKernelHandle(ULONG_PTR handle) {
  DWORD flags = 0;
  return ::GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != FALSE;
}

long CountHeapBlocks() {
  long count = 0;
  _HEAPINFO block{};
  while (::_heapwalk(&block) == _HEAPOK) count += block._useflag == _USEDENTRY ? 1 : 0;
  return count;
}

/// The system lends device contexts from a store, which grows with what is drawn at one time and is never made smaller.
/// It is made larger than it grows by itself, so that more objects from then on are a context that was not given back.
/// The end of the window empties what it lent.
void FillDeviceContextStore() {
  std::array<HDC, 100> taken = {};
  const HWND window = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
  for (HDC& dc : taken) dc = ::GetDCEx(window, nullptr, DCX_CACHE);
  for (const HDC dc : taken) ::ReleaseDC(window, dc);
  ::DestroyWindow(window);
}

/// The registry keys of the mouse's and the sound's settings stay open from their first use on, and so do the icons of
/// message boxes.
void LoadSystemSettings() {
  static_cast<void>(::GetDoubleClickTime());
  ::MessageBeep(MB_OK);
  for (const LPCSTR icon : {IDI_HAND, IDI_QUESTION, IDI_EXCLAMATION, IDI_ASTERISK}) ::LoadIconA(nullptr, icon);
}

}  // namespace

long CountThreads() {
  const HANDLE all = ::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof thread;
  long count = 0;
  for (BOOL found = ::Thread32First(all, &thread); found != FALSE; found = ::Thread32Next(all, &thread)) {
    count += thread.th32OwnerProcessID == ::GetCurrentProcessId() ? 1 : 0;
  }
  ::CloseHandle(all);
  return count;
}

void WaitForWorkers() {
  constexpr long kAtRest = 2;  // this thread and the watchdog's
  constexpr DWORD kLongestMs = 10'000;
  const DWORD begun = ::GetTickCount();
  while (CountThreads() > kAtRest && ::GetTickCount() - begun < kLongestMs) ::Sleep(20);
}

/// Handles that are none fill the room for such objects.
void ForgetDeadWindows() {
  constexpr ULONG_PTR kNoWindow = 0x7000'0000;
  constexpr ULONG_PTR kMost = 10'000;
  for (ULONG_PTR i = 0; i < kMost; ++i) {
    const long before = LiveBlocks();
    static_cast<void>(CWnd::FromHandle(reinterpret_cast<HWND>(kNoWindow + i)));
    if (LiveBlocks() < before) return;
  }
}

LiveObjects CountLiveObjects() {
  WaitForWorkers();
  ForgetDeadWindows();
  FillDeviceContextStore();
  LoadSystemSettings();
  LiveObjects live;
  live.windows = CountHandles(0x20, kUserHandles, 2, IsOwnWindow);
  live.menus = CountHandles(0x20, kUserHandles, 2,
                            [](ULONG_PTR handle) { return ::IsMenu(reinterpret_cast<HMENU>(handle)) != FALSE; });
  live.gdiObjects = CountHandles(
      1, kGdiHandles, 1, [](ULONG_PTR handle) { return ::GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0; });
  live.kernelHandles = CountHandles(4, kKernelHandles, 4, IsKernelHandle);
  live.newBlocks = LiveBlocks();
  live.heapBlocks = CountHeapBlocks();
  return live;
}

bool HasGroupedHeap() {
  constexpr ULONG kLowFragmentation = 2;
  ULONG kind = 0;
  return ::HeapQueryInformation(::GetProcessHeap(), HeapCompatibilityInformation, &kind, sizeof kind, nullptr) !=
             FALSE &&
         kind == kLowFragmentation;
}

std::ostream& operator<<(std::ostream& out, const LiveObjects& live) {
  return out << live.windows << " windows, " << live.menus << " menus, " << live.gdiObjects << " GDI objects, "
             << live.kernelHandles << " kernel handles, " << live.newBlocks << " blocks of operator new, "
             << live.heapBlocks << " blocks of the C heap";
}

}  // namespace robustness
