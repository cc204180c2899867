// Whether anything was thrown, caught or not: debuggers and the handlers of a host see it.
#pragma once

#include <windows.h>

/// Counts what is thrown on its thread while it lives.
class ThrowCount {
 public:
  ThrowCount() : handler_(::AddVectoredExceptionHandler(1, Count)) { thrown_ = 0; }
  ~ThrowCount() { ::RemoveVectoredExceptionHandler(handler_); }
  ThrowCount(const ThrowCount&) = delete;
  ThrowCount& operator=(const ThrowCount&) = delete;

  [[nodiscard]] static int Thrown() { return thrown_; }

 private:
  static constexpr DWORD kCxxException = 0x20474343;  // "GCC "
  static constexpr DWORD kItsNumber = 0x00FFFFFF;

  static LONG CALLBACK Count(EXCEPTION_POINTERS* exception) {
    if ((exception->ExceptionRecord->ExceptionCode & kItsNumber) == (kCxxException & kItsNumber)) ++thrown_;
    return EXCEPTION_CONTINUE_SEARCH;
  }

  static inline thread_local int thrown_ = 0;
  void* handler_;
};
