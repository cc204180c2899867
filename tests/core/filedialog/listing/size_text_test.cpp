#include "dlglib/filedialog/listing/size_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

using filedialog::DateText;
using filedialog::DriveSizeText;
using filedialog::FileSizeText;
using filedialog::SizeKb;

constexpr std::uint64_t kMb = std::uint64_t{1} << 20;
constexpr std::uint64_t kGb = std::uint64_t{1} << 30;

TEST(SizeKb, RoundsUp) {
  EXPECT_EQ(SizeKb(0), 0);
  EXPECT_EQ(SizeKb(1), 1);
  EXPECT_EQ(SizeKb(1023), 1);
  EXPECT_EQ(SizeKb(1024), 1);
  EXPECT_EQ(SizeKb(1025), 2);
  EXPECT_EQ(SizeKb(kGb + 1), 1048577);
}

TEST(SizeKb, KeepsTheLower32BitsOfHugeFiles) {
  EXPECT_EQ(SizeKb((std::uint64_t{1} << 41) - 1), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(SizeKb((std::uint64_t{1} << 42) + 5 * 1024), 5);
  EXPECT_EQ(SizeKb(std::numeric_limits<std::uint64_t>::max()), 0);
}

TEST(FileSizeText, IsInKilobytes) {
  EXPECT_EQ(FileSizeText(0), "0 KB");
  EXPECT_EQ(FileSizeText(2), "2 KB");
  EXPECT_EQ(FileSizeText(1234567), "1234567 KB");
  EXPECT_EQ(FileSizeText(-1), "-1 KB");
}

TEST(DriveSizeText, ChoosesTheUnitAtItsPowerOfTwo) {
  EXPECT_EQ(DriveSizeText(0), "0 B");
  EXPECT_EQ(DriveSizeText(1023), "1023 B");
  EXPECT_EQ(DriveSizeText(1024), "1.00 KB");
  EXPECT_EQ(DriveSizeText(kMb - 1), "1023.99 KB");
  EXPECT_EQ(DriveSizeText(kMb), "1.00 MB");
  EXPECT_EQ(DriveSizeText(kGb - 1), "1023.99 MB");
  EXPECT_EQ(DriveSizeText(kGb), "1.00 GB");
}

TEST(DriveSizeText, CutsAndNeverRounds) {
  EXPECT_EQ(DriveSizeText(2146409906), "1.99 GB");  // 1.999 GB
  EXPECT_EQ(DriveSizeText(2 * kGb - 1), "1.99 GB");
  EXPECT_EQ(DriveSizeText(1536), "1.50 KB");
  EXPECT_EQ(DriveSizeText(1034), "1.00 KB");
  EXPECT_EQ(DriveSizeText(1035), "1.01 KB");
  EXPECT_EQ(DriveSizeText(kMb + kMb / 20), "1.04 MB");
}

TEST(DriveSizeText, HoldsTheLargestDrives) {
  EXPECT_EQ(DriveSizeText(std::uint64_t{20} << 40), "20480.00 GB");
  EXPECT_EQ(DriveSizeText(std::uint64_t{1} << 60), "1073741824.00 GB");
  EXPECT_EQ(DriveSizeText(std::numeric_limits<std::uint64_t>::max()), "8589934592.00 GB");
}

/// The hundredths worked out in whole numbers, where no double is involved.
std::uint64_t WholeHundredths(std::uint64_t bytes, std::uint64_t unit) { return bytes * 100 / unit; }

TEST(DriveSizeText, AgreesWithWholeNumberArithmetic) {
  for (std::uint64_t bytes = 1024; bytes < kMb; bytes += 37) {
    const std::uint64_t hundredths = WholeHundredths(bytes, 1024);
    const std::string decimals = std::to_string(hundredths % 100 + 100).substr(1);
    ASSERT_EQ(DriveSizeText(bytes), std::to_string(hundredths / 100) + "." + decimals + " KB") << bytes;
  }
}

TEST(DateText, PadsEveryPart) {
  std::tm time{};
  time.tm_year = 124;
  time.tm_mon = 2;
  time.tm_mday = 5;
  time.tm_hour = 6;
  time.tm_min = 7;
  time.tm_sec = 8;
  EXPECT_EQ(DateText(time), " 2024/03/05 06:07:08");
}

TEST(DateText, TakesOddTimesAsTheyAre) {
  std::tm time{};
  time.tm_year = 8100;
  time.tm_mon = 11;
  time.tm_mday = 31;
  time.tm_hour = 23;
  time.tm_min = 59;
  time.tm_sec = 60;
  EXPECT_EQ(DateText(time), " 10000/12/31 23:59:60");
}

}  // namespace
