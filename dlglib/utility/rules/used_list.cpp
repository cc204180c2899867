#include "dlglib/utility/rules/used_list.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

#include "dlglib/base/little_endian.h"
#include "dlglib/base/registry_change.h"
#include "dlglib/base/shift_jis.h"

namespace used_list {
namespace {

struct ValueNames {
  const char* count;
  const char* entry;
};

[[nodiscard]] ValueNames NamesOf(Kind kind) noexcept {
  switch (kind) {
    case Kind::InputFiles:
      return {"iFileCount", "iFile"};
    case Kind::OutputFiles:
      return {"oFileCount", "oFile"};
    case Kind::Names:
      break;
  }
  return {"NameCount", "Name"};
}

/// Numbers start at 1.
[[nodiscard]] std::string EntryName(Kind kind, int number) {
  std::array<char, 32> name = {};
  std::snprintf(name.data(), name.size(), "%s%2.2d", NamesOf(kind).entry, number);
  return name.data();
}

/// Clears *whole when there is a value that cannot be had.
[[nodiscard]] std::optional<os::RegistryValue> QueryValue(os::RegistryKey& key, const std::string& name,
                                                          std::size_t limit, bool* whole) {
  std::uint32_t error = 0;
  std::optional<os::RegistryValue> value = key.Query(name, limit, &error);
  if (!value && os::IsReadFailure(error)) *whole = false;
  return value;
}

[[nodiscard]] int ReadCount(os::RegistryKey& key, Kind kind, bool* whole) {
  const std::optional<os::RegistryValue> value = QueryValue(key, NamesOf(kind).count, sizeof(std::uint32_t), whole);
  if (!value || value->bytes.size() != sizeof(std::uint32_t)) return kDefaultCount;
  const std::uint32_t count = little_endian::Decode(value->bytes);
  return count >= 1 && count <= kMaxKept ? static_cast<int>(count) : kDefaultCount;
}

[[nodiscard]] std::size_t FirstOf(const Entries& entries, int count) noexcept {
  return std::min(entries.size(), static_cast<std::size_t>(std::max(count, 0)));
}

}  // namespace

std::string KeyName(Kind kind, std::string_view keyword) {
  if (kind == Kind::Names) return std::string("Software\\Nalbo\\Corvane\\XRF\\Use ").append(keyword);
  const std::string_view shared = "##";
  return std::string("Software\\Nalbo\\Corvane\\FileDialog\\Use ").append(keyword.starts_with('#') ? keyword : shared);
}

List Read(os::RegistryKey& key, Kind kind) {
  List list;
  list.count = ReadCount(key, kind, &list.whole);
  for (int number = 1; number <= kMaxKept; ++number) {
    const std::optional<os::RegistryValue> value =
        QueryValue(key, EntryName(kind, number), kMaxEntryLength + 1, &list.whole);
    if (!value || value->bytes.empty()) continue;
    const std::string entry = value->bytes.substr(0, value->bytes.find('\0'));
    if (entry.size() <= kMaxEntryLength) list.entries.push_back(entry);
  }
  return list;
}

bool HoldsEntries(os::RegistryKey& key, Kind kind) {
  for (int number = 1; number <= kMaxKept; ++number) {
    std::uint32_t error = 0;
    if (key.Query(EntryName(kind, number), 0, &error)) continue;  // a value without a byte is no entry
    if (error == os::kErrorMoreData || os::IsReadFailure(error)) return true;
  }
  return false;
}

bool Write(os::RegistryKey& key, Kind kind, const Entries& entries, int count) {
  RegistryChange change(key);
  for (int number = 1; number <= kMaxKept; ++number) change.Delete(EntryName(kind, number));
  change.Set(NamesOf(kind).count, os::RegistryType::Dword,
             little_endian::Encode(static_cast<std::uint32_t>(count), sizeof(std::uint32_t)));
  for (std::size_t i = 0; i < FirstOf(entries, count); ++i) {
    if (entries[i].empty()) continue;
    change.Set(EntryName(kind, static_cast<int>(i) + 1), os::RegistryType::String, entries[i]);
  }
  return change.Finish();
}

std::size_t FindSame(const Entries& entries, std::string_view entry) {
  const std::string wanted = shift_jis::ToUpperBytes(entry);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (!entries[i].empty() && shift_jis::ToUpperBytes(entries[i]) == wanted) return i;
  }
  return kNone;
}

Entries Shown(const Entries& entries, int count) {
  Entries shown;
  for (std::size_t i = 0; i < FirstOf(entries, count); ++i) {
    if (!entries[i].empty()) shown.push_back(entries[i] + ' ');
  }
  return shown;
}

}  // namespace used_list
