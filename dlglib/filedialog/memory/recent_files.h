// The recently used files of a kind: a list of names, the most recent first.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace filedialog {

/// The numbers that the count box offers, from 0 on.
inline constexpr int kRecentCountItems = 21;

/// How an accepted name is remembered.
enum class RecentForm {
  FullPath,
  NameOnly,  ///< only the part after the last "\": the folder is fixed and shall not be named
};

/// The text under which an accepted path (Shift_JIS) is remembered.
[[nodiscard]] std::string RecentName(std::string_view path, RecentForm form);

/// Puts `name` in front of the list in its own spelling and takes out the first other entry that is the same name but
/// for the case of its letters (capitals byte by byte, so second bytes of double-byte characters count as letters too).
/// Only that one is taken out and the list is not cut: what is shown and kept is decided where it is shown and kept. An
/// empty name changes nothing.
void AddRecentFile(std::string_view name, std::vector<std::string>* files);

/// What the file name box offers: the entries among the first `count` that are not empty.
[[nodiscard]] std::vector<std::string> ShownRecentFiles(const std::vector<std::string>& files, int count);

/// An item of the count box: the number in two places, led by a blank below 10.
[[nodiscard]] std::string RecentCountItem(int count);

}  // namespace filedialog
