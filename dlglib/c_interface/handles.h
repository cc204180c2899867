// The handles of the C interface. Internal to it.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/framework/detail/slim_lock.h"

namespace c_interface {

/// A number that no handle of any kind has had: a stale handle, or one of another kind, is always noticed.
[[nodiscard]] std::uintptr_t NextHandle() noexcept;

/// The objects of one kind that are alive, by their handles. Any thread.
template <class Handle, class Object>
class Handles {
 public:
  /// Never destroyed: what a program has left at its end may need what has gone by then.
  [[nodiscard]] static Handles& All() {
    static Handles& handles = *new Handles;
    return handles;
  }

  [[nodiscard]] Handle Add(std::shared_ptr<Object> object) {
    const std::lock_guard lock(lock_);
    const std::uintptr_t handle = NextHandle();
    objects_.emplace(handle, std::move(object));
    return reinterpret_cast<Handle>(handle);
  }

  /// Null when there is none.
  [[nodiscard]] std::shared_ptr<Object> Find(Handle handle) {
    const std::lock_guard lock(lock_);
    const auto found = objects_.find(reinterpret_cast<std::uintptr_t>(handle));
    return found != objects_.end() ? found->second : nullptr;
  }

  void Remove(Handle handle) {
    const std::lock_guard lock(lock_);
    objects_.erase(reinterpret_cast<std::uintptr_t>(handle));
  }

  template <class Visit>
  void ForEach(const Visit& visit) {
    const std::lock_guard lock(lock_);
    for (const auto& [handle, object] : objects_) visit(*object);
  }

 private:
  framework::SlimLock lock_;
  std::map<std::uintptr_t, std::shared_ptr<Object>> objects_;
};

}  // namespace c_interface
