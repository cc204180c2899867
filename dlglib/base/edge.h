// The edge of the library: every function that a program calls ends here, whatever happens within.
#pragma once

#include <memory>

namespace edge {

/// Does `work` and answers what it answers, or `failure` when it throws.
template <class Answer, class Work>
[[nodiscard]] Answer Guarded(Answer failure, const Work& work) noexcept {
  try {
    return work();
  } catch (...) {
    return failure;
  }
}

/// Does `work`, which ends where it throws. False when it has thrown.
template <class Work>
bool Guarded(const Work& work) noexcept {
  try {
    work();
    return true;
  } catch (...) {
    return false;
  }
}

/// What `make` gives: the state of an object that is constructed. None when it throws.
template <class State, class Make>
[[nodiscard]] std::unique_ptr<State> Made(const Make& make) noexcept {
  return Guarded(std::unique_ptr<State>(), make);
}

}  // namespace edge
