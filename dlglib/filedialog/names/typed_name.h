// Names typed into the file name box: made full, checked, and turned into what OK does.
//
// All texts are Shift_JIS; "\", ":" and the like are searched by character, so second bytes of double-byte characters
// never count. A text ends at its first zero byte. A path that the operating system is asked for is at most kPathLimit
// bytes long: a longer one never exists and is never accepted, and its refusal shows as much of it as the limit allows.
// Who asks for one name may set a lower limit for it, beyond which a name is refused in the same way, be it there or
// not.
//
// One refusal shows one message. When a name has been refused here, the caller must not check it again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/names/name_prompt.h"

namespace filedialog {

/// What the browser knows when a name is typed.
struct NameRules {
  std::uint32_t flags = 0;               ///< StartUp::flags
  std::string folder;                    ///< current folder, with or without a trailing "\"
  std::string extension;                 ///< the kind's, with its "."; one with wildcards completes no name
  bool folderFixed = false;              ///< the folder cannot be changed
  std::size_t longestPath = kPathLimit;  ///< bytes of a name that may be accepted, at most kPathLimit
};

/// The full path of a typed text. A text that begins with "\\" or has ":" as its second byte is full already. Any other
/// is put behind the folder with one "\" between; a text that begins with a single "\" is no path from the drive's root
/// but joins the folder too, which callers rely on.
[[nodiscard]] std::string FullPathOfTypedName(std::string_view text, std::string_view folder);

/// Whether the path begins with a drive that the machine does not have (any more).
[[nodiscard]] bool IsOnMissingDrive(os::Drives& drives, std::string_view path);

/// Makes one "\" of every run of them from the third byte on; the "\\" that begins a network path stays.
[[nodiscard]] std::string CollapseSeparators(std::string_view path);

/// Answers whether `name` (a full path) may be accepted, and shows why not. Without the flag for existing files or
/// existing paths a name that does not exist is refused quietly; so is a folder. A name without an extension is
/// completed with the kind's, also when it is refused. A name that is not full is never accepted unless it exists;
/// one that begins with a single "\" names no place and does not exist.
/// A name beyond the limit stays as it is.
[[nodiscard]] Reply<bool> CheckName(std::string* name, const NameRules& rules, const NameAsks& asks);

/// A name pattern that the user typed, and the extension that it brings; none keeps what there is.
struct PatternChange {
  std::optional<std::string> pattern;
  std::optional<std::string> extension;
};

/// What OK does with the text of the name box.
struct NameAnswer {
  enum class Outcome {
    Accept,      ///< `path` is chosen
    OpenFolder,  ///< `folder` is listed, `nameField` is shown; the dialog stays
    Refuse,      ///< nothing changes; the dialog stays
  };
  Outcome outcome = Outcome::Refuse;
  bool told = false;      ///< a message was shown
  std::string path;       ///< Accept: the full real path, at most NameRules::longestPath bytes
  std::string folder;     ///< OpenFolder: without a trailing "\" but for a drive's root
  std::string nameField;  ///< OpenFolder: text of the name field
  PatternChange change;   ///< OpenFolder: when the text was a pattern
};

/// Resolves the text of the name box for a single selection, or a pattern. Sounds the beep and shows every message that
/// belongs to a refusal. A text on a drive that does not exist, and a pattern without a folder ("C:*.mdl", "*.mdl"
/// among drives), changes nothing and gives one signal: the message of the name check where it has one, else a beep,
/// which is the caller's where it finds no place for the folder of the answer. While the folder is fixed, a text with a
/// separator or ":" and a text that names another folder are refused with the same message. A name that the check
/// refuses opens its folder, be it there or not: of a share that cannot be reached its computer, where opening the
/// share asks for a logon. A computer alone is opened when the network knows it.
[[nodiscard]] Reply<NameAnswer> ResolveTypedName(std::string_view text, const NameRules& rules, const NameAsks& asks);

/// Bytes that a list of typed names may take up, terminator included.
inline constexpr std::size_t kTypedListCapacity = 65536;

/// Turns the text of the name box into the full paths of a multiple selection, joined by single blanks. Names are
/// parted by blanks; a name in double quotes may hold blanks. Inner none when a quote is not closed (a beep and a
/// message) or a name is refused. A name that would make the list and one more byte reach `capacity` is left out. A
/// text without names gives an empty list. A name on a drive that does not exist beeps where the check says nothing of
/// it. A fixed folder is not looked at: full names choose files of other folders, which changes no folder.
[[nodiscard]] Reply<std::optional<std::string>> ResolveTypedList(std::string_view text, const NameRules& rules,
                                                                 const NameAsks& asks,
                                                                 std::size_t capacity = kTypedListCapacity);

}  // namespace filedialog
