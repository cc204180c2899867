// A block of zeroed elements that costs address space only until it is written to.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

namespace grid {

/// Owns `size` elements, all bytes zero at first. Large blocks come zeroed from the system, which gives a page its
/// memory when the page is first written: rows that are never used cost none. Throws std::bad_alloc.
template <class T>
class ZeroedBlock {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

 public:
  ZeroedBlock() = default;
  explicit ZeroedBlock(std::size_t size)
      : bytes_(size > 0 ? static_cast<T*>(std::calloc(size, sizeof(T))) : nullptr), size_(size) {
    if (size > 0 && bytes_ == nullptr) throw std::bad_alloc();
  }

  [[nodiscard]] std::size_t Size() const noexcept { return size_; }
  [[nodiscard]] T* Data() noexcept { return bytes_.get(); }
  [[nodiscard]] const T* Data() const noexcept { return bytes_.get(); }
  [[nodiscard]] T& operator[](std::size_t index) noexcept { return bytes_.get()[index]; }
  [[nodiscard]] const T& operator[](std::size_t index) const noexcept { return bytes_.get()[index]; }

 private:
  struct Free {
    void operator()(void* block) const noexcept { std::free(block); }
  };

  std::unique_ptr<T[], Free> bytes_;
  std::size_t size_ = 0;
};

}  // namespace grid
