// The addresses through which this program calls functions of other modules.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace os_test {

/// Each function that this program imports by its name, and where its address stands. A function may come from more
/// than one module.
void ForEachImport(const std::function<void(const char* name, std::uintptr_t* place)>& take);
void WriteImport(std::uintptr_t* place, std::uintptr_t address);

/// Stands for a function of the system while the object lives, for the calls of this program's own code.
class ReplacedImport {
 public:
  /// `function` is called in the same way as the one of that name.
  template <class Function>
  ReplacedImport(std::string name, Function* function)
      : ReplacedImport(std::move(name), reinterpret_cast<std::uintptr_t>(function)) {}
  ReplacedImport(const ReplacedImport&) = delete;
  ReplacedImport& operator=(const ReplacedImport&) = delete;
  ~ReplacedImport();

 private:
  ReplacedImport(std::string name, std::uintptr_t address);
  void Write(std::uintptr_t address) const;

  std::string name_;
  std::uintptr_t former_ = 0;
};

}  // namespace os_test
