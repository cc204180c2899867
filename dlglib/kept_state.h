// The one pointer of an exported class.
#pragma once

#include <memory>
#include <new>
#include <utility>

/// Owns what an exported class keeps. None when there was no memory for it as the object was constructed; asking for it
/// then fails as the request for memory did, so a function that needs it answers as it does without memory.
template <class State>
class KeptState {
 public:
  /// None.
  KeptState() noexcept = default;
  /// Owns `state` from now on; null is none.
  explicit KeptState(std::unique_ptr<State> state) noexcept : state_(std::move(state)) {}

  /// Whether there is one.
  [[nodiscard]] explicit operator bool() const noexcept { return state_ != nullptr; }
  /// Throws std::bad_alloc when there is none.
  [[nodiscard]] State& operator*() const {
    if (state_ == nullptr) throw std::bad_alloc();
    return *state_;
  }
  /// The same for a member.
  [[nodiscard]] State* operator->() const { return &**this; }

 private:
  std::unique_ptr<State> state_;
};
