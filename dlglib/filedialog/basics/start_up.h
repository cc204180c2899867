// What a caller hands to the file browser before it runs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "dlglib/filedialog/basics/entry_kind.h"

namespace filedialog {

/// Bits of StartUp::flags, numbered as in the platform's open-file record.
inline constexpr std::uint32_t kFlagAskOverwrite = 0x2;
inline constexpr std::uint32_t kFlagHideReadOnly = 0x4;
inline constexpr std::uint32_t kFlagPlainOk = 0x20;
inline constexpr std::uint32_t kFlagMultiSelect = 0x200;
inline constexpr std::uint32_t kFlagPathMustExist = 0x800;
inline constexpr std::uint32_t kFlagFileMustExist = 0x1000;

/// List styles, as the list view numbers them.
inline constexpr std::uint32_t kListMultiple = 0;
inline constexpr std::uint32_t kListSingle = 4;

/// The start-up record. All texts are Shift_JIS.
struct StartUp {
  char* fileBuffer = nullptr;  ///< the caller's; in: the initial file name, out: the chosen real path or paths
  std::size_t capacity = 0;    ///< longest result that may be written, terminator included
  std::size_t longestPath = kPathLimit;  ///< bytes of a single result; a longer one is refused in the browser
  std::string initialFolder;             ///< real path of the folder shown first
  std::string title;                     ///< kind keyword, "(", pattern, ")"
  std::string description;  ///< the kind's description when the caller has one of its own; else the suite's is used
  std::uint32_t flags = kFlagHideReadOnly;
  std::string caption;  ///< window text, at most 256 bytes; empty keeps the template's caption
  int kindCode = 0;     ///< title class of the kind, 0 to 8
  std::uint32_t listStyle = kListSingle;
  bool folderFixed = false;  ///< the folder cannot be changed
};

}  // namespace filedialog
