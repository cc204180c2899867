// UTF-8 texts of session files in the suite's stored form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace suite {

/// The text in EUC-JP; "?" for each character that it lacks. The wave dash, the double line, the minus sign and the
/// like are taken in both of the forms in which systems write them. None when the bytes are not UTF-8.
[[nodiscard]] std::optional<std::string> Utf8ToEuc(std::string_view utf8);

}  // namespace suite
