// The metacharacters that a user can pick: their escapes with descriptions, as the picker lists them. Shift_JIS.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace meta_char_table {

inline constexpr std::size_t kRowCount = 11;
/// Bytes of "<mc>" and its character.
inline constexpr std::size_t kEscapeLength = 5;

/// Each is the escape, " : " and a description.
inline constexpr std::array<std::string_view, kRowCount> kRows = {
    "<mc>0 : °記号",  "<mc>1 : φ記号",    "<mc>2 : ±記号",    "<mc>3 : □記号",    "<mc>F : 分数", "<mc>S : ２段文字",
    "<mc>M : マーク", "<mc>W : 区切右寄", "<mc>X : 区切中央", "<mc>, : 区切左寄", "<mc>; : 終端",
};

/// The escape of a row; none for a row outside the table.
[[nodiscard]] std::optional<std::string_view> EscapeOf(int row) noexcept;

}  // namespace meta_char_table
