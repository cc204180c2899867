// The machine of the fault scenarios, and what has to be true of its registry and its files whatever has failed.
//
// Drives C and D; folders with models that carry titles; a desktop with shortcuts; a network with a provider, a
// computer and a share that wants a logon. The registry holds a layout that is unlike the defaults in every value and
// three recent files.
#pragma once

#include <string>
#include <vector>

#include "dlglib/filedialog/basics/slow_sort.h"

namespace robustness {

inline constexpr char kFolder[] = "C:\\data";
inline constexpr char kChosen[] = "C:\\data\\b.mdl";
inline constexpr char kListFile[] = "C:\\out\\list.txt";
inline constexpr char kOldList[] = "OLD/A\r\nOLD/B\r\n";
inline constexpr char kLayoutKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #MODEL#";
inline constexpr auto kOldSlowSort = filedialog::SlowSort::NeverBeyondLimit;
inline constexpr int kOldLimit = 77;

/// The recent files from before, the first one first.
[[nodiscard]] const std::vector<std::string>& OldRecentFiles();

/// Sets the machine up.
void PrepareWorld();
/// The network alone: it wants a logon again.
void PrepareNetwork();

/// Expects the layout to be whole: what a run never changes is as it was, and the rest is of one saving.
void CheckLayout();
/// Expects the recent files from before, or the chosen one and then those.
void CheckRecentFiles();
/// Expects the former list file or `written`, and nothing beside it that belongs there no more.
void CheckListFile(const std::string& written);

}  // namespace robustness
