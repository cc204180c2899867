// Every character against the C library's tables for eucJP-ms and Windows-31J. Native only.
#include <gtest/gtest.h>
#include <iconv.h>

#include <optional>
#include <string>

#include "tests/suite/suite_fixture.h"

namespace {

class Reference {
 public:
  Reference(const char* to, const char* from) : descriptor_(::iconv_open(to, from)) {}
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;
  ~Reference() { ::iconv_close(descriptor_); }

  /// The other form of exactly one character; none when it is no character or the other encoding lacks it.
  [[nodiscard]] std::optional<std::string> Convert(std::string text) const {
    char out[8];
    char* from = text.data();
    char* to = out;
    std::size_t left = text.size();
    std::size_t room = sizeof(out);
    ::iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
    if (::iconv(descriptor_, &from, &left, &to, &room) == static_cast<std::size_t>(-1) || left != 0)
      return std::nullopt;
    return std::string(out, sizeof(out) - room);
  }

 private:
  iconv_t descriptor_;
};

class EncoderTables : public testing::Test {
 protected:
  static std::string Bytes(unsigned first, unsigned second) {
    return {static_cast<char>(first), static_cast<char>(second)};
  }
  static bool HasMark(const std::string& text) { return text.find('?') != std::string::npos; }

  /// Row 13 repeats signs of row 2. The reference gives row 2 for both, we keep the cell, so that no text changes by
  /// being stored: 8790 8791 8792 8795 8796 8797 879A 879B 879C, EUC ADF0 ADF1 ADF2 ADF5 ADF6 ADF7 ADFA ADFB ADFC.
  static bool IsRepeatedSign(const std::string& sjis) {
    const std::string trails = "\x90\x91\x92\x95\x96\x97\x9A\x9B\x9C";
    return sjis.size() == 2 && sjis[0] == '\x87' && trails.find(sjis[1]) != std::string::npos;
  }

  /// One character of EUC-JP: the same as the reference, or "?" and nothing else where that has none.
  void CheckEuc(const std::string& euc) const {
    const std::string sjis = CwEucEncoder::Euc2Sjis(euc, kNoLimit);
    const std::optional<std::string> want = toSjis_.Convert(euc);
    if (IsRepeatedSign(sjis)) return;
    if (want) {
      ASSERT_EQ(sjis, *want) << testing::PrintToString(euc);
    } else {
      ASSERT_TRUE(HasMark(sjis)) << testing::PrintToString(euc);
    }
  }

  void CheckSjis(const std::string& sjis) const {
    const std::string euc = CwEucEncoder::Sjis2Euc(sjis, kNoLimit);
    const std::optional<std::string> want = toEuc_.Convert(sjis);
    if (IsRepeatedSign(sjis)) return;
    if (want) {
      ASSERT_EQ(euc, *want) << testing::PrintToString(sjis);
    } else {
      ASSERT_TRUE(HasMark(euc) || euc == sjis) << testing::PrintToString(sjis);
    }
  }

  Reference toSjis_{"CP932", "EUC-JP-MS"};
  Reference toEuc_{"EUC-JP-MS", "CP932"};
};

TEST_F(EncoderTables, EveryByte) {
  for (unsigned byte = 0; byte < 0x100; ++byte) {
    if (byte == '?') continue;
    CheckEuc(std::string(1, static_cast<char>(byte)));
    CheckSjis(std::string(1, static_cast<char>(byte)));
  }
}

TEST_F(EncoderTables, EveryPair) {
  for (unsigned first = 0x80; first < 0x100; ++first) {
    for (unsigned second = 0; second < 0x100; ++second) {
      if (second == '?') continue;
      CheckEuc(Bytes(first, second));
      CheckSjis(Bytes(first, second));
    }
  }
}

TEST_F(EncoderTables, EverySupplement) {
  for (unsigned second = 0xA1; second < 0xFF; ++second) {
    for (unsigned third = 0xA1; third < 0xFF; ++third) CheckEuc("\x8F" + Bytes(second, third));
  }
}

TEST_F(EncoderTables, EverySupplementThatIsNotOneIsMarked) {
  for (unsigned second = 0; second < 0x100; ++second) {
    for (unsigned third = 0; third < 0x100; ++third) {
      const bool isSupplement = second >= 0xA1 && second <= 0xFE && third >= 0xA1 && third <= 0xFE;
      if (isSupplement) continue;
      const std::string sjis = CwEucEncoder::Euc2Sjis("\x8F" + Bytes(second, third), kNoLimit);
      ASSERT_EQ(sjis, "?" + CwEucEncoder::Euc2Sjis(Bytes(second, third), kNoLimit));
    }
  }
}

TEST_F(EncoderTables, EveryCellComesBack) {
  int count = 0;
  for (unsigned first = 0xA1; first < 0xFF; ++first) {
    for (unsigned second = 0xA1; second < 0xFF; ++second) {
      const std::string sjis = CwEucEncoder::Euc2Sjis(Bytes(first, second), kNoLimit);
      if (sjis == "?") continue;
      ASSERT_EQ(CwEucEncoder::Sjis2Euc(sjis, kNoLimit), Bytes(first, second));
      ++count;
    }
  }
  EXPECT_EQ(count, 6879 + 83 + 940);  // JIS X 0208, row 13, user-defined
}

TEST_F(EncoderTables, EveryIbmExtensionComesBackAsTheSameCharacter) {
  const Reference toUtf8("UTF-8", "CP932");
  for (unsigned first : {0xEDu, 0xEEu, 0xFAu, 0xFBu, 0xFCu}) {
    for (unsigned second = 0x40; second < 0xFD; ++second) {
      const std::string sjis = Bytes(first, second);
      if (!toUtf8.Convert(sjis)) continue;
      const std::string back = CwEucEncoder::Euc2Sjis(CwEucEncoder::Sjis2Euc(sjis, kNoLimit), kNoLimit);
      ASSERT_EQ(toUtf8.Convert(back), toUtf8.Convert(sjis));
    }
  }
}

}  // namespace
