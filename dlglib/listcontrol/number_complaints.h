// What is said of a class number and of a revision that are none.
#pragma once

namespace grid {

inline constexpr char kBadClassNumber[] = "無効なクラス番号です";
inline constexpr char kBadRevision[] = "無効なレビジョンです";

}  // namespace grid
