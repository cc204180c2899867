// Where texts of the system, which are UTF-16, meet those of the demo, which are Shift_JIS. What the system's own code
// page is never matters, so nothing here is asked for in its 8-bit form.
#pragma once

#include <string>
#include <vector>

namespace demo {

/// A Shift_JIS text in UTF-16.
[[nodiscard]] std::wstring Wide(const std::string& sjis);
/// A name or path in Shift_JIS. One that Shift_JIS cannot hold is given by its short form where it has one; else "|",
/// which no name holds, stands for what is missing.
[[nodiscard]] std::string SjisName(const std::wstring& name);

/// What stands behind the program's name on its command line; Shift_JIS.
[[nodiscard]] std::vector<std::string> CommandLineArguments();
/// The path from its drive on; Shift_JIS, as the answer.
[[nodiscard]] std::string FullPath(const std::string& path);
/// The folder for temporary files, with "\" at its end; Shift_JIS.
[[nodiscard]] std::string TemporaryFolder();

}  // namespace demo
