#include "dlglib/c_interface/handles.h"

#include <atomic>

namespace c_interface {

std::uintptr_t NextHandle() noexcept {
  static std::atomic<std::uintptr_t> last = 0;
  return ++last;
}

}  // namespace c_interface
