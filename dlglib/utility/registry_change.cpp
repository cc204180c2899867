#include "dlglib/utility/registry_change.h"

#include <utility>

namespace {

/// Far more than any value of the suite's keys has. A longer one is somebody else's and cannot be put back.
constexpr std::size_t kLongestValue = 16384;

}  // namespace

RegistryChange::~RegistryChange() { PutBack(); }

void RegistryChange::Set(const std::string& name, os::RegistryType type, std::string_view bytes) {
  if (!Remember(name)) return;
  if (key_.Set(name, type, bytes) != 0) Fail();
}

void RegistryChange::Delete(const std::string& name) {
  if (!Remember(name)) return;
  const std::uint32_t error = key_.Delete(name);
  if (error != 0 && error != os::kErrorNotFound) Fail();
}

bool RegistryChange::Finish() noexcept {
  formers_.clear();
  return !failed_;
}

bool RegistryChange::Remember(const std::string& name) {
  if (failed_) return false;
  std::uint32_t error = 0;
  Former former{name, key_.Query(name, kLongestValue, &error)};
  if (!former.value && os::IsReadFailure(error)) {
    Fail();
    return false;
  }
  formers_.push_back(std::move(former));
  return true;
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
        key_.Set(former.name, former.value->type, former.value->bytes);
      } else {
        key_.Delete(former.name);
      }
    } catch (...) {  // one that cannot be put back keeps no other from being put back
      continue;
    }
  }
}
