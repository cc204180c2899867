// Small questions about path texts (Shift_JIS, "\" as separator) that several modules of the browser ask.
#pragma once

#include <string>
#include <string_view>

namespace filedialog {

/// The path without one "\" at its end, also when it is a drive's root.
[[nodiscard]] std::string_view WithoutSeparator(std::string_view path);

/// The path as the operating system is asked for it: without one "\" at its end, but a drive's root with it ("C:" and
/// "C:\" both give "C:\").
[[nodiscard]] std::string FolderPath(std::string_view path);

/// Whether two paths name the same place: the same text but for the case of ASCII letters and a "\" at the end.
[[nodiscard]] bool IsSamePath(std::string_view a, std::string_view b);

/// The part after the last "\"; the whole text when there is none.
[[nodiscard]] std::string_view NamePart(std::string_view path);

/// The text from its last "." on; empty when there is none. Folders are not looked for: pass a name.
[[nodiscard]] std::string_view ExtensionPart(std::string_view name);

/// Whether an extension says exactly what it is: it begins with "." and holds no wildcard.
[[nodiscard]] bool IsExactExtension(std::string_view extension);

}  // namespace filedialog
