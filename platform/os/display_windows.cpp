#include "platform/os/display_windows.h"

#include <windows.h>

namespace os {
namespace {

constexpr int kUnscaledDpi = 96;
/// Nothing but the folder of the system is searched.
constexpr DWORD kSystemFolder = 0x800;  // LOAD_LIBRARY_SEARCH_SYSTEM32

/// A function of a system library, null where this system has none of that name. The libraries are there before this
/// one, or were loaded for good.
template <class Function>
Function Find(const wchar_t* library, const char* name) {
  HMODULE module = ::GetModuleHandleW(library);
  if (module == nullptr) module = ::LoadLibraryExW(library, nullptr, kSystemFolder);
  return module == nullptr ? nullptr
                           : reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
}

using DpiForWindow = UINT(WINAPI*)(HWND);
using MetricsForDpi = int(WINAPI*)(int, UINT);
using DpiForMonitor = HRESULT(WINAPI*)(HMONITOR, int, UINT*, UINT*);
using SetDialogBehaviour = BOOL(WINAPI*)(HWND, int, int);
using ClientsAreListening = BOOL(WINAPI*)();
using Awareness = HRESULT(WINAPI*)(HANDLE, int*);

/// From Windows 10 on.
int DpiOfWindow(HWND window) {
  static const auto ask = Find<DpiForWindow>(L"user32.dll", "GetDpiForWindow");
  return ask == nullptr ? 0 : static_cast<int>(ask(window));
}

/// Windows 8.1, where a process as a whole knows of monitors or does not.
int DpiOfMonitor(HWND window) {
  constexpr int kPerMonitor = 2;
  constexpr int kEffective = 0;
  static const auto awareness = Find<Awareness>(L"shcore.dll", "GetProcessDpiAwareness");
  static const auto ask = Find<DpiForMonitor>(L"shcore.dll", "GetDpiForMonitor");
  int knows = 0;
  if (awareness == nullptr || ask == nullptr || awareness(nullptr, &knows) != S_OK || knows != kPerMonitor) return 0;
  UINT across = 0;
  UINT down = 0;
  const HMONITOR monitor = ::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST);
  return ask(monitor, kEffective, &across, &down) == S_OK ? static_cast<int>(down) : 0;
}

/// Windows 7: one for all of the screen.
int DpiOfScreen() {
  const HDC screen = ::GetDC(nullptr);
  if (screen == nullptr) return kUnscaledDpi;
  const int dpi = ::GetDeviceCaps(screen, LOGPIXELSY);
  ::ReleaseDC(nullptr, screen);
  return dpi;
}

BOOL CALLBACK AddMonitor(HMONITOR, HDC, RECT* rect, LPARAM monitors) noexcept {
  try {
    reinterpret_cast<std::vector<Monitor>*>(monitors)->push_back(
        {static_cast<int>(rect->left), static_cast<int>(rect->top), static_cast<int>(rect->right),
         static_cast<int>(rect->bottom)});
    return TRUE;
  } catch (...) {  // nothing may be thrown through the system
    return FALSE;
  }
}

}  // namespace

int WindowsDisplay::DpiOf(WindowHandle window) {
  const auto handle = static_cast<HWND>(window);
  if (const int dpi = DpiOfWindow(handle); dpi > 0) return dpi;
  if (const int dpi = DpiOfMonitor(handle); dpi > 0) return dpi;
  return DpiOfScreen();
}

int WindowsDisplay::Metric(int metric, int dpi) {
  static const auto ask = Find<MetricsForDpi>(L"user32.dll", "GetSystemMetricsForDpi");
  return ask == nullptr ? ::GetSystemMetrics(metric) : ask(metric, static_cast<UINT>(dpi));
}

std::vector<Monitor> WindowsDisplay::Monitors() {
  std::vector<Monitor> monitors;
  if (!::EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&monitors))) monitors.clear();
  return monitors;
}

void WindowsDisplay::KeepLayout(WindowHandle dialog) {
  constexpr int kDisableAll = 1;
  static const auto set = Find<SetDialogBehaviour>(L"user32.dll", "SetDialogDpiChangeBehavior");
  if (set != nullptr) set(static_cast<HWND>(dialog), kDisableAll, kDisableAll);
}

bool WindowsDisplay::HasHighContrast() {
  HIGHCONTRASTW contrast = {};
  contrast.cbSize = sizeof contrast;
  return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool WindowsDisplay::HasScreenReader() {
  BOOL runs = FALSE;
  const bool hasSaid = ::SystemParametersInfoW(SPI_GETSCREENREADER, 0, &runs, 0) != FALSE && runs != FALSE;
  return hasSaid || HasListener();
}

bool WindowsDisplay::HasListener() {
  static const auto ask = Find<ClientsAreListening>(L"uiautomationcore.dll", "UiaClientsAreListening");
  return ask != nullptr && ask() != FALSE;
}

}  // namespace os
