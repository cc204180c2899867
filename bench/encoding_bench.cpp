// How fast texts change between EUC-JP and Shift_JIS, as ratios to the C library's iconv and to a bare copy, into
// memory or into a new string, in the same run. iconv's descriptors are opened outside of the timing.
#include <iconv.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "bench/measure.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/euc_encoder.h"

namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();
constexpr std::size_t kLongText = std::size_t{16} << 20;
constexpr std::size_t kShortText = 64;
constexpr std::size_t kShortTexts = 4096;
constexpr int kLongRounds = 31;
constexpr int kShortRounds = 301;
constexpr double kGoal = 1.0 / 5;
constexpr double kLongGoal = 1.0 / 8;  // into memory that is there

/// How characters of the three kinds follow each other.
enum class Mix { Words, Scattered };

class TextMaker {
 public:
  /// An EUC-JP text of about `size` bytes: of 100 characters (or words of 2 to 10 characters) 40 are ASCII, 55 JIS X
  /// 0208 and 5 half-width katakana.
  std::string Make(std::size_t size, Mix mix) {
    std::string text;
    while (text.size() + 2 <= size) {
      const std::size_t kind = Below(100);
      for (std::size_t left = mix == Mix::Words ? 2 + Below(9) : 1; left > 0 && text.size() + 2 <= size; --left) {
        AppendCharacter(kind, &text);
      }
    }
    text.resize(size, ' ');
    return text;
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }

  void AppendPair(std::size_t lead, std::size_t firstTrail, std::size_t trails, std::string* text) {
    *text += static_cast<char>(lead);
    *text += static_cast<char>(firstTrail + Below(trails));
  }

  void AppendCharacter(std::size_t kind, std::string* text) {
    if (kind < 40) {
      *text += static_cast<char>(0x20 + Below(95));
    } else if (kind >= 95) {
      AppendPair(0x8E, 0xA1, 63, text);
    } else if (kind % 10 < 3) {
      AppendPair(0xA4, 0xA1, 83, text);  // Hiragana
    } else if (kind % 10 < 4) {
      AppendPair(0xA5, 0xA1, 83, text);  // Katakana
    } else {
      AppendPair(0xB0 + Below(31), 0xA1, 94, text);  // Kanji of the first level
    }
  }

  std::mt19937 random_{20240305};
};

class Iconv {
 public:
  Iconv(const char* to, const char* from) : descriptor_(::iconv_open(to, from)) {}
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;
  ~Iconv() { ::iconv_close(descriptor_); }

  void Convert(const std::string& text, std::vector<char>* out) const {
    char* from = const_cast<char*>(text.data());  // iconv takes it so and only reads
    char* to = out->data();
    std::size_t left = text.size();
    std::size_t room = out->size();
    if (::iconv(descriptor_, &from, &left, &to, &room) == static_cast<std::size_t>(-1)) std::abort();
  }

 private:
  iconv_t descriptor_;
};

struct Direction {
  const char* name;
  const Iconv* reference;
  suite::Converted (*convert)(std::string_view, char*, std::size_t) noexcept;
  std::string (*convertString)(const std::string&, std::size_t);
};

/// Keeps the optimizer from dropping what nobody reads.
volatile std::size_t sink = 0;

void Measure(const std::string& what, const Direction& direction, const std::vector<std::string>& texts) {
  std::vector<char> out(2 * texts[0].size() + 64, 1);
  const auto each = [&texts](const auto& work) {
    return [&texts, work] {
      for (const std::string& text : texts) work(text);
    };
  };
  const auto reference = each([&](const std::string& text) { direction.reference->Convert(text, &out); });
  const auto bytes =
      each([&](const std::string& text) { sink = direction.convert(text, out.data(), out.size()).written; });
  const auto strings = each([&](const std::string& text) { sink = direction.convertString(text, kNoLimit).size(); });
  const auto copy = each([&](const std::string& text) {
    std::memcpy(out.data(), text.data(), text.size());
    sink = static_cast<unsigned char>(out[text.size() / 2]);
  });
  const auto copyString = each([&](const std::string& text) {
    const std::string copied(text);  // NOLINT(performance-unnecessary-copy-initialization): it is what is measured
    sink = static_cast<unsigned char>(copied[copied.size() / 2]);
  });
  const bool isLong = texts.size() == 1;
  const int rounds = isLong ? kLongRounds : kShortRounds;
  const std::string row = std::string(direction.name) + ", " + what;
  bench::Compare({row, "iconv", {}, {}, isLong ? kLongGoal : kGoal, "memcpy"}, rounds, {bytes, reference, copy});
  bench::Compare({row + ", as strings", "iconv", {}, {}, kGoal, "string copy"}, rounds,
                 {strings, reference, copyString});
}

void MeasureBoth(const std::string& what, const std::vector<std::string>& euc) {
  const Iconv toSjis("CP932", "EUC-JP-MS");
  const Iconv toEuc("EUC-JP-MS", "CP932");
  std::vector<std::string> sjis;
  sjis.reserve(euc.size());
  for (const std::string& text : euc) sjis.push_back(CwEucEncoder::Euc2Sjis(text, kNoLimit));
  Measure(what, {"to Shift_JIS", &toSjis, suite::EucToSjis, CwEucEncoder::Euc2Sjis}, euc);
  Measure(what, {"to EUC-JP", &toEuc, suite::SjisToEuc, CwEucEncoder::Sjis2Euc}, sjis);
}

}  // namespace

int main() {
  TextMaker maker;
  for (const Mix mix : {Mix::Words, Mix::Scattered}) {
    const std::string kind = mix == Mix::Words ? "words" : "scattered";
    MeasureBoth("16 MiB, " + kind, {maker.Make(kLongText, mix)});
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < kShortTexts; ++i) texts.push_back(maker.Make(kShortText, mix));
    MeasureBoth("4096 x 64 bytes, " + kind, texts);
  }
  return 0;
}
