// What this program imports from the system's libraries, so that a test can put a function of its own in the place of
// one.
#pragma once

#include <windows.h>

namespace import_table {

/// Puts `replacement` in the place of an imported function while it lives. Calls from this program only.
class Replaced {
 public:
  Replaced(const char* name, void* replacement);
  Replaced(const Replaced&) = delete;
  Replaced& operator=(const Replaced&) = delete;
  ~Replaced();

  /// False when this program does not import the function.
  [[nodiscard]] bool IsInPlace() const { return place_ != nullptr; }

 private:
  void Write(void* function);

  void** place_;
  void* former_ = nullptr;
};

}  // namespace import_table
