// What a grid refuses beside texts that are typed or pasted, and what it says of it.
#pragma once

#include <string>
#include <string_view>

#include "dlglib/listcontrol/grid_model.h"

namespace grid {

/// Of numbers that are none.
inline constexpr char kBadClassNumber[] = "無効なクラス番号です";
inline constexpr char kBadRevision[] = "無効なレビジョンです";

/// Class numbers and revisions go from one to the other.
inline constexpr double kLeastNumber = 1.0;
inline constexpr double kGreatestNumber = 256.0;

/// Why no row can be added in front of row `at`; null when one can.
[[nodiscard]] const char* InsertComplaint(const GridModel& model, int at) noexcept;
/// Why no row can be deleted; null when one can.
[[nodiscard]] const char* DeleteComplaint(const GridModel& model) noexcept;

/// `complaint`: one of those above. Users count rows from 1.
[[nodiscard]] std::string NumberComplaint(const char* complaint, int row, std::string_view text);

}  // namespace grid
