// CvLateNews: tells a window of answers that come late, from whatever thread, for as long as the window is there. A
// call that hangs may answer when the window's handle has long been another window's, so nobody posts to it by himself.
#pragma once

#include <functional>
#include <memory>

#include "platform/framework/win32.h"

class CvLateNews {
 public:
  /// `message` is posted to the window.
  explicit CvLateNews(UINT message);
  CvLateNews(const CvLateNews&) = delete;
  CvLateNews& operator=(const CvLateNews&) = delete;
  ~CvLateNews();

  /// From now on; null for no window.
  void Begin(HWND window);
  /// What tells it, on any thread, and nobody when this has gone.
  [[nodiscard]] std::function<void()> Teller() const;

 private:
  class Address;

  std::shared_ptr<Address> address_;
};
