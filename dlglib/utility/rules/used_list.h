// The files and names that the user chose last, as they lie in the registry and as they are offered. Texts are
// Shift_JIS; entry 0 is the most recent one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/os/os.h"

namespace used_list {

enum class Kind { InputFiles, OutputFiles, Names };

using Entries = std::vector<std::string>;

inline constexpr int kMaxKept = 20;       ///< entries that a key has room for
inline constexpr int kDefaultCount = 10;  ///< entries to show when the key does not say
inline constexpr std::size_t kMaxEntryLength = 256;
inline constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// The key below HKEY_CURRENT_USER. Input and output files of a keyword share one key; every files keyword that does
/// not start with "#" means one and the same key.
[[nodiscard]] std::string KeyName(Kind kind, std::string_view keyword);

struct List {
  Entries entries;
  int count = kDefaultCount;  ///< how many to show, 1 to 20
  bool whole = true;          ///< false: a value of it is in the registry and could not be read
};

/// How the reading of a list ended.
enum class Reading {
  Whole,
  NotRead,     ///< the key could not be opened, or the reading broke off
  ValueFailed  ///< a value is in the registry and could not be read
};

/// Reads the values of one list. Missing and overlong entries, and those without a byte, are left out and their places
/// closed up. The type of a value is not looked at, only its bytes: a count has four, an entry ends at its first
/// terminator.
[[nodiscard]] List Read(os::RegistryKey& key, Kind kind);

/// Whether the key holds an entry of the list, be it one that Read leaves out or that cannot be had.
[[nodiscard]] bool HoldsEntries(os::RegistryKey& key, Kind kind);

/// Replaces the values of one list: the count as given, and the first `count` entries, an empty one leaving its number
/// unused. Entries are written without a terminator. Those behind kMaxKept are written too when `count` says so; they
/// are neither read nor replaced later. False when a value cannot be written: the list is then the one from before.
bool Write(os::RegistryKey& key, Kind kind, const Entries& entries, int count);

/// The first entry that equals `entry` when the letters a to z, byte by byte, are taken as capitals; kNone when there
/// is none.
[[nodiscard]] std::size_t FindSame(const Entries& entries, std::string_view entry);

/// What a combo box shows of the first `count` entries: those that are not empty, each with one blank behind it.
[[nodiscard]] Entries Shown(const Entries& entries, int count);

}  // namespace used_list
