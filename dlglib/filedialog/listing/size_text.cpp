#include "dlglib/filedialog/listing/size_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>

namespace filedialog {

namespace {

struct SizeUnit {
  double atLeast;  ///< bytes from which on the unit is used; a power of two, so dividing by it is exact
  const char* name;
};

constexpr std::array<SizeUnit, 3> kUnits{{{1073741824.0, "GB"}, {1048576.0, "MB"}, {1024.0, "KB"}}};

std::string TwoDecimals(std::int64_t hundredths, const char* unit) {
  const std::string decimals = std::to_string(hundredths % 100 + 100).substr(1);
  return std::to_string(hundredths / 100) + '.' + decimals + ' ' + unit;
}

}  // namespace

std::int32_t SizeKb(std::uint64_t bytes) {
  const std::uint64_t started = bytes % 1024 == 0 ? 0 : 1;
  return static_cast<std::int32_t>(bytes / 1024 + started);
}

std::string FileSizeText(std::int32_t sizeKb) { return std::to_string(sizeKb) + " KB"; }

std::string DriveSizeText(std::uint64_t bytes) {
  constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  const auto n = static_cast<double>(std::min(bytes, kMost));
  for (const SizeUnit& unit : kUnits) {
    if (n >= unit.atLeast) return TwoDecimals(static_cast<std::int64_t>(n / unit.atLeast * 100), unit.name);
  }
  return std::to_string(bytes) + " B";
}

std::string DateText(const std::tm& local) {
  std::array<char, 96> text{};
  const int length =
      std::snprintf(text.data(), text.size(), " %4.4d/%2.2d/%2.2d %2.2d:%2.2d:%2.2d", local.tm_year + 1900,
                    local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace filedialog
