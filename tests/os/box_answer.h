// A user who answers every box of the platform in one way.
#pragma once

#include <windows.h>

#include <array>
#include <atomic>
#include <string>
#include <thread>

namespace os_test {

/// Answers the platform's confirmation box as a user would, for as long as the object lives.
class BoxAnswer {
 public:
  explicit BoxAnswer(WPARAM button) : thread_{[this, button] { Run(button); }} {}
  BoxAnswer(const BoxAnswer&) = delete;
  BoxAnswer& operator=(const BoxAnswer&) = delete;
  ~BoxAnswer() {
    done_ = true;
    thread_.join();
  }

 private:
  static BOOL CALLBACK Answer(HWND window, LPARAM button) {
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    std::array<char, 16> name = {};
    ::GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    const bool ours = process == ::GetCurrentProcessId() && std::string{name.data()} == "#32770";
    if (ours && ::IsWindowVisible(window) != FALSE) ::PostMessageA(window, WM_COMMAND, static_cast<WPARAM>(button), 0);
    return TRUE;
  }

  void Run(WPARAM button) {
    while (!done_) {
      ::EnumWindows(&Answer, static_cast<LPARAM>(button));
      ::Sleep(10);
    }
  }

  std::atomic<bool> done_ = false;
  std::thread thread_;
};

}  // namespace os_test
