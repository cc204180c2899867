// What a typed name may hold, and what the user is told about it. Names are Shift_JIS.
#pragma once

#include <string_view>

#include "dlglib/base/encoded_text.h"

namespace file_name_check {

enum class Wildcards { Forbidden, Allowed };

/// Whether a file name holds none of ' | " < > and, where they are forbidden, * and ?. Two-byte characters and
/// half-width katakana are accepted, although kInvalidCharacters says otherwise of the latter. An empty name is
/// acceptable.
[[nodiscard]] bool IsFileName(std::string_view name, Wildcards wildcards) noexcept;

/// Whether a model name holds none of the bytes * ? ' " \ / | < >. The bytes are searched one by one: a two-byte
/// character that ends in the byte of "\" or "|" makes the name unacceptable too, and callers rely on that. An empty
/// name is acceptable.
[[nodiscard]] bool IsModelName(std::string_view name) noexcept;

inline constexpr const char* kNoName = "ファイル名が入力されていません。";

/// Names "*" and "?" although a typed name may hold them.
inline constexpr const char* kInvalidCharacters =
    "ファイル名に無効な文字が使用されています。\n* ? ' | \" < > 及び半角カタカナは使用できません。";

[[nodiscard]] SjisText InputMissingText(SjisView realPath);
[[nodiscard]] SjisText OverwriteText(SjisView realPath);
[[nodiscard]] SjisText FolderMissingText(SjisView folder);

}  // namespace file_name_check
