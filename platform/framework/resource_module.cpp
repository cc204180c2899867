#include "platform/framework/resource_module.h"

#include <atomic>

namespace {

// Null stands for the program itself.
std::atomic<HINSTANCE> moduleInForce{nullptr};

HINSTANCE OrProgram(HINSTANCE module) noexcept { return module != nullptr ? module : ::GetModuleHandleW(nullptr); }

}  // namespace

HINSTANCE GetResourceModule() noexcept { return OrProgram(moduleInForce.load()); }

HINSTANCE SetResourceModule(const void* module) noexcept {
  return OrProgram(moduleInForce.exchange(static_cast<HINSTANCE>(const_cast<void*>(module))));
}
