// The module whose resources are in force: the program itself, unless a library has put its own in place for a while.
#pragma once

#include "platform/framework/export.h"
#include "platform/framework/win32.h"

/// The linker's: the start of the module that a source is linked into.
extern "C" IMAGE_DOS_HEADER __ImageBase;

/// The module that the calling code belongs to. As a default argument it is the module of whoever makes the call.
[[nodiscard]] inline HINSTANCE ThisModule() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

/// The module in force; the program's own by default.
[[nodiscard]] DLGLIB_API HINSTANCE GetResourceModule() noexcept;
/// Null puts the program's own in force again. Returns the former one.
DLGLIB_API HINSTANCE SetResourceModule(const void* module) noexcept;

/// Puts a module in force and, at the end of its scope, the former one again. May be nested.
class ResourceModuleScope {
 public:
  /// Null stands for the program's own module.
  explicit ResourceModuleScope(const void* module) noexcept : former_(SetResourceModule(module)) {}
  ResourceModuleScope(const ResourceModuleScope&) = delete;
  ResourceModuleScope& operator=(const ResourceModuleScope&) = delete;
  ~ResourceModuleScope() { SetResourceModule(former_); }

 private:
  HINSTANCE former_;
};
