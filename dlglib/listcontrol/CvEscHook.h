// CvEscHook: hands the key presses of Esc to an open list, before a dialog takes them for its own end. The focus may be
// anywhere in the dialog, and whatever loop fetches the messages.
#pragma once

#include <functional>

#include "platform/framework/win32.h"

class CvEscHook {
 public:
  /// Asked for each press of Esc, with the window that has the focus; true uses the press up. It must not throw. It may
  /// stop or destroy the hook.
  using Asked = std::function<bool(HWND focus)>;

  CvEscHook() noexcept = default;
  CvEscHook(const CvEscHook&) = delete;
  CvEscHook& operator=(const CvEscHook&) = delete;
  ~CvEscHook();

  /// Begins to look at the messages that this thread fetches.
  void Start(Asked asked);
  /// A key that is held down stays used up until it is let go.
  void Stop() noexcept;

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) noexcept;
  [[nodiscard]] static bool TakesAny(const MSG& message);
  [[nodiscard]] bool Takes(const MSG& message);
  void Unhook() noexcept;

  Asked asked_;
  HHOOK hook_ = nullptr;
  bool held_ = false;  ///< a press has been used up, and the key is still down
  CvEscHook* next_ = nullptr;
};
