// What tools are told of a window's things: the events that a screen reader hears, from the own process and others.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/windows/driver/user.h"

namespace driver {

/// Hears the events of one window from here on. On one thread, which has messages; one object at a time.
class Events {
 public:
  explicit Events(Window window);
  Events(const Events&) = delete;
  Events& operator=(const Events&) = delete;
  ~Events();

  /// How many events of that kind have come for a child since Forget, once the first one has.
  [[nodiscard]] int Count(const User& user, DWORD event, LONG child);
  /// The same without waiting for any more.
  [[nodiscard]] int Heard(DWORD event, LONG child) const;
  /// Of any child.
  [[nodiscard]] int HeardOfAny(DWORD event) const;
  /// Of any kind, of all children.
  [[nodiscard]] int HeardOfParts() const;
  /// All that is said of parts, and of the whole that its parts are others or others of them are selected, in its
  /// order, as "FOCUS 3".
  [[nodiscard]] std::vector<std::string> OfParts() const;
  void Forget();
  /// Takes what has come until now, where nothing is waited for.
  void Take() { Pump(); }

 private:
  struct Event {
    DWORD event;
    LONG child;
    friend bool operator==(const Event&, const Event&) = default;
  };

  [[nodiscard]] static std::string TextOf(const Event& event);
  static void Pump();
  static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD);

  static inline Events* all_ = nullptr;
  Window window_;
  HWINEVENTHOOK hook_ = nullptr;
  std::vector<Event> heard_;
};

}  // namespace driver
