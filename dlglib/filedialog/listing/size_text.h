// The texts of sizes and dates in the file list.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>

namespace filedialog {

/// Kilobytes of a file of `bytes` bytes, rounded up: 1 byte is 1, no byte is 0. Worked out in 64 bits and kept in the
/// lower 32, so a file of 2 TB and more shows what is left of its size.
[[nodiscard]] std::int32_t SizeKb(std::uint64_t bytes);

/// Size column of a file: "%d KB".
[[nodiscard]] std::string FileSizeText(std::int32_t sizeKb);

/// Total or free size of a drive: two decimals in GB, MB or KB, cut and never rounded, so that a drive does not seem
/// larger than it is (one byte less than 1 GB is "1023.99 MB"); below 1024 bytes "%d B". Sizes of 2^63 bytes and more
/// count as 2^63 - 1.
[[nodiscard]] std::string DriveSizeText(std::uint64_t bytes);

/// Date column: " %4.4d/%2.2d/%2.2d %2.2d:%2.2d:%2.2d" with a leading blank. Dates in that form sort as texts.
[[nodiscard]] std::string DateText(const std::tm& local);

}  // namespace filedialog
