#include "dlglib/base/registry_change.h"

#include <utility>

RegistryChange::~RegistryChange() { PutBack(); }

void RegistryChange::Set(const std::string& name, os::RegistryType type, std::string_view bytes) {
  if (failed_) return;
  Remember(name);
  if (key_.Set(name, type, bytes) != 0) Fail();
}

void RegistryChange::Delete(const std::string& name) {
  if (failed_) return;
  Remember(name);
  const std::uint32_t error = key_.Delete(name);
  if (error != 0 && error != os::kErrorNotFound) Fail();
}

bool RegistryChange::Finish() noexcept {
  formers_.clear();
  return !failed_;
}

void RegistryChange::Remember(const std::string& name) {
  std::uint32_t error = 0;
  Former former{name, key_.Copy(name, &error)};
  if (former.value || !os::IsReadFailure(error)) formers_.push_back(std::move(former));
}

void RegistryChange::Fail() noexcept {
  failed_ = true;
  PutBack();
}

/// The newest first, so that a value that was written twice gets its first content.
void RegistryChange::PutBack() noexcept {
  for (; !formers_.empty(); formers_.pop_back()) {
    const Former& former = formers_.back();
    try {
      if (former.value) {
        key_.PutBack(former.name, *former.value);
      } else {
        key_.Delete(former.name);
      }
    } catch (...) {  // one that cannot be put back keeps no other from being put back
      continue;
    }
  }
}
