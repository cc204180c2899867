// Values of one registry key that belong together: all of them are written, or none.
//
//   RegistryChange change(key);
//   change.Delete("File02");
//   change.Set("File01", os::RegistryType::String, name);
//   if (!change.Finish()) ...   // the key holds what it held before
//
// Each step takes effect at once. The first one that fails puts every value back, of whatever type and size it was, and
// the steps behind it do nothing. The same happens when the object dies unfinished, as it does when memory runs out
// between two steps. A value that the system does not let be read is changed all the same; it alone cannot be put back.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/os/os.h"

class RegistryChange {
 public:
  /// The key must outlive the change.
  explicit RegistryChange(os::RegistryKey& key) : key_(key) {}
  RegistryChange(const RegistryChange&) = delete;
  RegistryChange& operator=(const RegistryChange&) = delete;
  ~RegistryChange();

  void Set(const std::string& name, os::RegistryType type, std::string_view bytes);
  /// A value that is not there is no failure.
  void Delete(const std::string& name);
  /// Keeps what was written. False when a step has failed: the key is as it was, as far as it lets itself be written.
  bool Finish() noexcept;

 private:
  struct Former {
    std::string name;
    std::optional<os::StoredValue> value;  ///< none: there was no such value
  };

  /// Notes what the value is now.
  void Remember(const std::string& name);
  void PutBack() noexcept;
  void Fail() noexcept;

  os::RegistryKey& key_;
  std::vector<Former> formers_;
  bool failed_ = false;
};
