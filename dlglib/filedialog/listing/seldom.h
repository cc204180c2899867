// A value that few rows of a long table have: it takes the room of a pointer until there is one.
#pragma once

#include <memory>
#include <utility>

namespace filedialog {

/// Empty at first; an empty value takes no more room than none. `T`: a container with a default.
template <class T>
class Seldom {
 public:
  Seldom() = default;
  Seldom(const Seldom& other) : value_(other.value_ ? std::make_unique<T>(*other.value_) : nullptr) {}
  Seldom(Seldom&&) noexcept = default;
  Seldom& operator=(Seldom other) noexcept {
    value_ = std::move(other.value_);
    return *this;
  }
  ~Seldom() = default;

  /// Without memory it throws std::bad_alloc, and the value is as before.
  Seldom& operator=(T value) {
    value_ = value.empty() ? nullptr : std::make_unique<T>(std::move(value));
    return *this;
  }

  [[nodiscard]] const T& operator*() const {
    static const T none{};
    return value_ ? *value_ : none;
  }
  [[nodiscard]] const T* operator->() const { return &**this; }

 private:
  std::unique_ptr<T> value_;
};

}  // namespace filedialog
