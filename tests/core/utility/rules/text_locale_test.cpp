// Texts are checked, compared and converted alike whatever the host's locale takes for a letter or a character.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "dlglib/base/encoder.h"
#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/utility/rules/char_class.h"
#include "dlglib/utility/rules/file_name_check.h"
#include "dlglib/utility/rules/number_text.h"
#include "dlglib/utility/rules/path_encoding.h"

namespace {

constexpr int kBytes = 256;

/// The host's characters are Chinese ones of two bytes while the object lives, with first bytes that Shift_JIS has for
/// half-width katakana.
class ChineseHost {
 public:
  ChineseHost() : former_(std::setlocale(LC_ALL, nullptr)) { set_ = std::setlocale(LC_ALL, kName) != nullptr; }
  ChineseHost(const ChineseHost&) = delete;
  ChineseHost& operator=(const ChineseHost&) = delete;
  ~ChineseHost() { std::setlocale(LC_ALL, former_.c_str()); }

  [[nodiscard]] bool IsInForce() const { return set_ && std::mblen("\xB1\xA1", 2) == 2; }

#ifdef _WIN32
  static constexpr char kName[] = "Chinese_China.936";
#else
  static constexpr char kName[] = "zh_CN.GBK";  // CTest makes it and says where it is (LOCPATH)
#endif

 private:
  std::string former_;
  bool set_ = false;
};

/// What is said of a text, in one line.
std::string Said(const std::string& text) {
  using file_name_check::Wildcards;
  constexpr double kAny = std::numeric_limits<double>::infinity();
  const auto [likely, other] = path_encoding::Read(text, text.size() * 2);
  std::string said = shift_jis::ToUpperBytes(text) + '\t' + encoder::ToEuc(SjisText{text}).bytes() + '\t' +
                     encoder::ToSjis(EucText{text}).bytes() + '\t' + likely.bytes() + '\t' +
                     std::string(filedialog::ExtensionPart("a." + text)) + '\t';
  for (const bool is :
       {file_name_check::IsFileName(text, Wildcards::Forbidden), file_name_check::IsFileName(text, Wildcards::Allowed),
        file_name_check::IsModelName(text), filedialog::IsSamePath("C:\\e" + text, "c:\\E" + text),
        filedialog::IsSamePath(text, shift_jis::ToUpperBytes(text)),
        number_text::CheckNumber("1" + text, number_text::kReal, -kAny, kAny)}) {
    said += is ? '1' : '0';
  }
  return said;
}

/// Of each character code of one byte or two.
std::vector<std::string> SaidOfAll() {
  std::vector<std::string> said;
  for (int first = 0; first < kBytes; ++first) {
    for (int second = 0; second < kBytes; ++second) {
      const auto code = static_cast<unsigned int>(first * kBytes + second);
      said.push_back(Said({static_cast<char>(first), static_cast<char>(second)}) +
                     std::to_string(char_class::ClassOf(code)));
    }
  }
  return said;
}

TEST(TextsOfAnyHost, AreTheSameUnderAnotherLanguageOfTwoByteCharacters) {
  const std::vector<std::string> expected = SaidOfAll();
  const ChineseHost host;
  ASSERT_TRUE(host.IsInForce()) << "no locale " << ChineseHost::kName;
  const std::vector<std::string> said = SaidOfAll();
  for (std::size_t code = 0; code < said.size(); ++code) ASSERT_EQ(said[code], expected[code]) << std::hex << code;
}

}  // namespace
