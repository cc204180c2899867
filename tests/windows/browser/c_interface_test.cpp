// The C interface: what its functions make of texts, rooms and handles of every sort, and its request with the real
// browser.
#include "dlglib/dlglib_c.h"

#include <array>
#include <functional>
#include <limits>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/support/allocation.h"
#include "tests/windows/support/throw_count.h"
#include "tests/windows/toolbox/utility_host.h"

namespace browser_test {
namespace {

using Give = std::function<DlglibResult(std::int32_t, char*, std::int32_t*)>;

const char* const kHyouUtf8 = "\xE8\xA1\xA8";  // 表
const char* const kHyouEuc = "\xC9\xBD";

/// The text that a function gives, with the room that it asks for; "(result)" for any result but DLGLIB_OK.
std::string TextOf(const Give& give) {
  std::int32_t needed = -1;
  const DlglibResult asked = give(0, nullptr, &needed);
  if (asked != DLGLIB_OK) return "(" + std::to_string(asked) + ")";
  std::string text(static_cast<std::size_t>(needed), '#');
  if (needed > 1) {
    EXPECT_EQ(give(needed - 1, text.data(), nullptr), DLGLIB_TOO_SMALL);
    EXPECT_EQ(text.front(), '\0') << "never a part of a text";
    EXPECT_EQ(text.back(), '#') << "nothing behind the room";
  }
  EXPECT_EQ(give(needed, text.data(), &needed), DLGLIB_OK);
  EXPECT_EQ(text.size(), static_cast<std::size_t>(needed));
  EXPECT_EQ(text.back(), '\0');
  text.pop_back();
  return text;
}

/// A function that makes one text of another.
using Conversion = DlglibResult (*)(const char*, std::int32_t, char*, std::int32_t*);
std::string Converted(Conversion convert, const char* text) {
  return TextOf([=](auto size, char* buffer, auto* needed) { return convert(text, size, buffer, needed); });
}
std::string Converted(Conversion convert, const std::string& text) { return Converted(convert, text.c_str()); }

using PathConversion = DlglibResult (*)(const char*, const char*, std::int32_t, char*, std::int32_t*);
std::string Path(PathConversion convert, const char* keyword, const std::string& path) {
  return TextOf(
      [&](auto size, char* buffer, auto* needed) { return convert(keyword, path.c_str(), size, buffer, needed); });
}

TEST(CInterfaceTest, TellsItsVersion) {
  const std::string text = TextOf(DlglibVersionText);
  const std::int32_t version = DlglibVersion();
  EXPECT_EQ(text, std::to_string(version / 10000) + "." + std::to_string(version / 100 % 100) + "." +
                      std::to_string(version % 100));
  EXPECT_EQ(version, DLGLIB_VERSION);
}

TEST(CInterfaceTest, EveryResultHasATextOfItsOwn) {
  std::set<std::string> texts;
  for (DlglibResult result = DLGLIB_NOT_ATTACHED - 1; result <= DLGLIB_NOT_MINE; ++result) {
    const auto sjis = [=](auto... room) { return DlglibResultTextSjis(result, room...); };
    const auto utf8 = [=](auto... room) { return DlglibResultTextUtf8(result, room...); };
    EXPECT_TRUE(texts.insert(TextOf(sjis)).second) << result;
    EXPECT_EQ(Converted(DlglibUtf8ToSjis, TextOf(utf8)), TextOf(sjis)) << result;
  }
  EXPECT_EQ(
      TextOf([](auto... room) { return DlglibResultTextSjis(std::numeric_limits<std::int32_t>::min(), room...); }),
      "不明な結果です。");
}

TEST(CInterfaceTest, RoomsThatAreNoneAreRefusedUntouched) {
  std::array<char, 4> room = {'a', 'b', 'c', 'd'};
  std::int32_t needed = 77;
  EXPECT_EQ(DlglibSjisToEuc("x", -1, room.data(), &needed), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibSjisToEuc("x", 4, nullptr, &needed), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibSjisToEuc("x", 0, nullptr, nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibSjisToEuc("x", 0, room.data(), nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(needed, 77);
  EXPECT_EQ(room[0], 'a');
  EXPECT_EQ(DlglibSjisToEuc("xyz", 3, room.data(), &needed), DLGLIB_TOO_SMALL);
  EXPECT_EQ(needed, 4);
  EXPECT_EQ(room[0], '\0');
  EXPECT_EQ(room[3], 'd');
  EXPECT_EQ(DlglibSjisToEuc(nullptr, 4, room.data(), &needed), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(needed, 0);
  EXPECT_EQ(DlglibSjisToEuc("xyz", 4, room.data(), nullptr), DLGLIB_OK);
  EXPECT_STREQ(room.data(), "xyz");
  EXPECT_EQ(DlglibSjisToEuc(room.data(), 4, room.data(), nullptr), DLGLIB_OK) << "in place";
  EXPECT_STREQ(room.data(), "xyz");
}

TEST(CInterfaceTest, EncodingsGoRound) {
  EXPECT_EQ(Converted(DlglibSjisToEuc, "表"), kHyouEuc);
  EXPECT_EQ(Converted(DlglibEucToSjis, kHyouEuc), "表");
  EXPECT_EQ(Converted(DlglibSjisToUtf8, "表"), kHyouUtf8);
  EXPECT_EQ(Converted(DlglibUtf8ToSjis, kHyouUtf8), "表");
  EXPECT_EQ(Converted(DlglibUtf8ToEuc, kHyouUtf8), kHyouEuc);
  EXPECT_EQ(Converted(DlglibEucToUtf8, kHyouEuc), kHyouUtf8);
  EXPECT_EQ(Converted(DlglibUtf8ToSjis, Converted(DlglibSjisToUtf8, "ｱｲ①Ⅳ髙纊～")), "ｱｲ①Ⅳ髙纊～");
  EXPECT_EQ(Converted(DlglibUtf8ToEuc, ""), "");
}

TEST(CInterfaceTest, WhatIsNoTextIsRefused) {
  for (const char* bad : {"\xE8\xA1", "a\xFF", "\xC0\x80", "\xED\xA0\x80", "\x81", "\xF4\x90\x80\x80"}) {
    EXPECT_EQ(Converted(DlglibUtf8ToSjis, bad), "(-6)") << bad;
  }
  // A space that does not break, an accented letter, a face, the other wave dash.
  for (const char* alien : {"\xC2\xA0", "\xC3\xA9", "\xF0\x9F\x98\x80", "\xE3\x80\x9C"}) {
    EXPECT_EQ(Converted(DlglibUtf8ToSjis, alien), "(-7)") << alien;
  }
  for (const char* bad : {"\x95", "a\x81", "\x80", "\xA0", "\xFD", "\xFF", "\x81 ", "\x85\x40", "\xFC\xFC"}) {
    EXPECT_EQ(Converted(DlglibSjisToUtf8, bad), "(-6)") << static_cast<int>(bad[0]);
  }
  EXPECT_EQ(Converted(DlglibSjisToEuc, "a\x81"), "a?");
  EXPECT_EQ(Converted(DlglibEucToSjis, "a\xC9"), "a?");
  EXPECT_EQ(Converted(DlglibEucToUtf8, "a\xC9"), "a?");
}

TEST(CInterfaceTest, EveryDoubleByteCharacterIsConvertedAsAWholeOrNotAtAll) {
  int characters = 0;
  for (unsigned code = 0x8000; code <= 0xFFFF; ++code) {
    const std::array<char, 3> sjis = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF), '\0'};
    const bool single = static_cast<unsigned char>(sjis[0]) >= 0xA0 && static_cast<unsigned char>(sjis[0]) < 0xE0;
    if (single || sjis[1] == '\0') continue;
    std::array<char, 16> utf8 = {};
    std::array<char, 16> back = {};
    const DlglibResult result = DlglibSjisToUtf8(sjis.data(), 16, utf8.data(), nullptr);
    if (result != DLGLIB_OK) {
      ASSERT_EQ(result, DLGLIB_BAD_ENCODING) << code;
      continue;
    }
    ++characters;
    // Two codes may be one character, so the way back is compared in UTF-8.
    ASSERT_EQ(DlglibUtf8ToSjis(utf8.data(), 16, back.data(), nullptr), DLGLIB_OK) << code;
    ASSERT_EQ(std::string_view(back.data()).size(), 2U) << code;
    ASSERT_EQ(Converted(DlglibSjisToUtf8, back.data()), utf8.data()) << code;
  }
  // JIS X 0208, row 13, both sets of IBM extensions, user-defined.
  EXPECT_EQ(characters, 6879 + 83 + 374 + 388 + 1880);
}

TEST(CInterfaceTest, TextsThatAreTooLongAreRefused) {
  const std::string limit(DLGLIB_LONG_TEXT_LIMIT, 'a');
  EXPECT_EQ(Converted(DlglibUtf8ToEuc, limit), limit);
  EXPECT_EQ(Converted(DlglibSjisToEuc, limit + "a"), "(-5)");
  EXPECT_EQ(Converted(DlglibUtf8ToSjis, limit + "a"), "(-5)");
  const std::string breaks(DLGLIB_TEXT_LIMIT, '\r');
  EXPECT_EQ(Converted(DlglibStoredToScreenSjis, breaks).size(), 4U * DLGLIB_TEXT_LIMIT) << "nothing is cut";
  EXPECT_EQ(Converted(DlglibStoredToScreenSjis, breaks + "\r"), "(-5)");
  const std::string kana(DLGLIB_TEXT_LIMIT, '\xB1');
  EXPECT_EQ(Converted(DlglibScreenToStoredSjis, kana).size(), 2U * DLGLIB_TEXT_LIMIT);
  EXPECT_EQ(Converted(DlglibScreenToStoredUtf8, Converted(DlglibSjisToUtf8, kana)).size(), 2U * DLGLIB_TEXT_LIMIT);
  EXPECT_EQ(Converted(DlglibScreenToStoredUtf8, Converted(DlglibSjisToUtf8, kana + "a")), "(-5)");
  EXPECT_EQ(Path(DlglibRealPathSjis, nullptr, std::string(513, 'a')), "(-5)");
  EXPECT_EQ(Path(DlglibRealPathSjis, nullptr, std::string(257, '\xB1')), "(-5)") << "514 bytes of EUC-JP";
  EXPECT_EQ(Path(DlglibRealPathSjis, std::string(256, 'k').c_str(), "a"), "(-5)");
}

TEST(CInterfaceTest, StoredTextsAndTheScreen) {
  const std::string stored = std::string("\x8D\xDA") + kHyouEuc + "\r\n";
  EXPECT_EQ(Converted(DlglibStoredToScreenSjis, stored), "<mc>;表<cr><cr>");
  EXPECT_EQ(Converted(DlglibStoredToScreenUtf8, stored), std::string("<mc>;") + kHyouUtf8 + "<cr><cr>");
  EXPECT_EQ(Converted(DlglibScreenToStoredSjis, "<mc>;表<cr>"), std::string("\x8D\xDA") + kHyouEuc + "\r");
  EXPECT_EQ(Converted(DlglibScreenToStoredUtf8, std::string(kHyouUtf8) + "<mc>"), std::string(kHyouEuc) + "<mc>");
}

TEST(CInterfaceTest, ChecksAnswerYesOrNo) {
  EXPECT_EQ(DlglibCheckModelNameSjis("A-001"), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckModelNameSjis("表"), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibCheckModelNameUtf8(kHyouUtf8), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibCheckModelNameUtf8("\xFF"), DLGLIB_BAD_ENCODING);
  EXPECT_EQ(DlglibCheckModelNameSjis(nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibCheckFileNameSjis("表", 0), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckFileNameUtf8("a*", 0), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibCheckFileNameUtf8("a*", 1), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckFileNameUtf8(nullptr, 1), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibCheckChar(DLGLIB_DIGITS, '7'), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckChar(DLGLIB_DIGITS, 'A'), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibCheckChar(DLGLIB_DOUBLE_BYTES, 0x955C), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckTextSjis(DLGLIB_CAPITALS | DLGLIB_DIGITS, "A1"), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckTextSjis(DLGLIB_CAPITALS | DLGLIB_DIGITS, "A表"), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibCheckTextSjis(DLGLIB_DOUBLE_BYTES, "表\x81"), DLGLIB_OK) << "half a character";
  EXPECT_EQ(DlglibCheckTextUtf8(DLGLIB_DOUBLE_BYTES, kHyouUtf8), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckTextUtf8(DLGLIB_HALF_WIDTH_KATAKANA, "\xEF\xBD\xB1"), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckTextUtf8(0, ""), DLGLIB_OK);
}

TEST(CInterfaceTest, Numbers) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(DlglibCheckNumber("10", DLGLIB_UNSIGNED_INTEGER, 1, 10), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckNumber("10.5", DLGLIB_REAL, 1, 10), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibCheckNumber("10", DLGLIB_REAL, kNone, 10), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibCheckNumber("-5", DLGLIB_SIGNED_INTEGER, -9, 10), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckNumber("表", DLGLIB_REAL, 1, 10), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibCheckNumber(std::string(513, '1').c_str(), DLGLIB_REAL, 0, 1e300), DLGLIB_REFUSED);
  EXPECT_EQ(DlglibCheckNumber("1", -1, 1, 10), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibCheckNumber(nullptr, DLGLIB_REAL, 1, 10), DLGLIB_NULL_ARGUMENT);
  double scale = -1;
  EXPECT_EQ(DlglibCheckScale("1/500", &scale), DLGLIB_OK);
  EXPECT_EQ(scale, 0.002);
  EXPECT_EQ(DlglibCheckScale("1/0", &scale), DLGLIB_REFUSED);
  EXPECT_EQ(scale, 0);
  EXPECT_EQ(DlglibCheckScale("1/2", nullptr), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckScale(nullptr, &scale), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(TextOf([](auto... room) { return DlglibScaleText(0.002, room...); }), "1/500");
  EXPECT_EQ(TextOf([](auto... room) { return DlglibDecimalText(100, room...); }), "100.0");
  EXPECT_LE(TextOf([](auto... room) { return DlglibDecimalText(-std::numeric_limits<double>::max(), room...); }).size(),
            320U);
}

/// A request that is destroyed at the end.
class Request {
 public:
  Request() { EXPECT_EQ(DlglibFileRequestCreate(&handle_), DLGLIB_OK); }
  ~Request() { DlglibFileRequestDestroy(handle_); }
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;

  [[nodiscard]] DlglibFileRequest Handle() const { return handle_; }
  [[nodiscard]] std::string NameSjis(std::int32_t index, std::int32_t form) const {
    return TextOf([&](auto... room) { return DlglibFileRequestNameSjis(handle_, index, form, room...); });
  }
  [[nodiscard]] std::string NameUtf8(std::int32_t index, std::int32_t form) const {
    return TextOf([&](auto... room) { return DlglibFileRequestNameUtf8(handle_, index, form, room...); });
  }
  [[nodiscard]] std::int32_t Count() const {
    std::int32_t count = -1;
    EXPECT_EQ(DlglibFileRequestCount(handle_, &count), DLGLIB_OK);
    return count;
  }

 private:
  DlglibFileRequest handle_ = nullptr;
};

TEST(CInterfaceTest, AHandleIsGoodUntilItIsDestroyed) {
  EXPECT_EQ(DlglibFileRequestCreate(nullptr), DLGLIB_NULL_ARGUMENT);
  DlglibFileRequest handle = nullptr;
  ASSERT_EQ(DlglibFileRequestCreate(&handle), DLGLIB_OK);
  ASSERT_EQ(DlglibFileRequestDestroy(handle), DLGLIB_OK);
  const Request other;
  EXPECT_NE(other.Handle(), handle);
  int local = 0;
  const auto wild = reinterpret_cast<DlglibFileRequest>(&local);
  for (DlglibFileRequest bad : {handle, wild, DlglibFileRequest()}) {
    std::int32_t count = 7;
    EXPECT_EQ(DlglibFileRequestDestroy(bad), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibFileRequestRun(bad), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibFileRequestCount(bad, &count), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(count, 7);
    EXPECT_EQ(DlglibFileRequestSetKindSjis(bad, "#MODEL#"), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibFileRequestSetMode(bad, 0), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(DlglibFileRequestNameUtf8(bad, 0, 0, 0, nullptr, &count), DLGLIB_BAD_HANDLE);
    EXPECT_EQ(count, 0);
  }
}

TEST(CInterfaceTest, SettingsWithoutAMeaningAreRefused) {
  const Request request;
  const DlglibFileRequest handle = request.Handle();
  EXPECT_EQ(DlglibFileRequestSetMode(handle, 3), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibFileRequestSetMode(handle, -1), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibFileRequestSetOwner(handle, reinterpret_cast<void*>(0x7FFF1234)), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibFileRequestSetOwner(handle, nullptr), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetKindSjis(handle, std::string(255, 'k').c_str()), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetKindSjis(handle, std::string(256, 'k').c_str()), DLGLIB_TOO_LONG);
  EXPECT_EQ(DlglibFileRequestSetKindUtf8(handle, nullptr), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetCaptionUtf8(handle, "\xE8\xA1"), DLGLIB_BAD_ENCODING);
  EXPECT_EQ(DlglibFileRequestSetCaptionUtf8(handle, "\xC3\xA9"), DLGLIB_NO_SUCH_CHARACTER);
  EXPECT_EQ(DlglibFileRequestSetCaptionSjis(handle, std::string(257, 'a').c_str()), DLGLIB_TOO_LONG);
  EXPECT_EQ(DlglibFileRequestSetInitialNameSjis(handle, std::string(129, '\xB1').c_str()), DLGLIB_TOO_LONG);
  EXPECT_EQ(DlglibFileRequestSetListFileUtf8(handle, nullptr), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestCount(handle, nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(request.Count(), 0);
  EXPECT_EQ(request.NameSjis(0, DLGLIB_FORM_REAL), "(-3)") << "there is no file yet";
}

/// What another thread is answered.
template <class Ask>
DlglibResult OnAnotherThread(const Ask& ask) {
  DlglibResult result = DLGLIB_OK;
  std::thread([&] { result = ask(); }).join();
  return result;
}

TEST(CInterfaceTest, ARequestBelongsToTheThreadThatHasMadeIt) {
  DlglibFileRequest handle = nullptr;
  ASSERT_EQ(DlglibFileRequestCreate(&handle), DLGLIB_OK);
  EXPECT_EQ(OnAnotherThread([&] { return DlglibFileRequestRun(handle); }), DLGLIB_WRONG_THREAD);
  EXPECT_EQ(OnAnotherThread([&] { return DlglibFileRequestSetMode(handle, DLGLIB_SAVE_FILE); }), DLGLIB_WRONG_THREAD);
  EXPECT_EQ(OnAnotherThread([&] { return DlglibFileRequestSetKindUtf8(handle, "#A#"); }), DLGLIB_WRONG_THREAD);
  std::int32_t count = 7;
  EXPECT_EQ(OnAnotherThread([&] { return DlglibFileRequestCount(handle, &count); }), DLGLIB_WRONG_THREAD);
  EXPECT_EQ(OnAnotherThread([&] { return DlglibFileRequestNameSjis(handle, 0, 0, 0, nullptr, &count); }),
            DLGLIB_WRONG_THREAD);
  EXPECT_EQ(OnAnotherThread([&] { return DlglibFileRequestDestroy(handle); }), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestDestroy(handle), DLGLIB_BAD_HANDLE);
}

/// Lets no dialog be made on this thread while it lives.
class NoDialogs {
 public:
  NoDialogs() : hook_(::SetWindowsHookExW(WH_CBT, Refuse, nullptr, ::GetCurrentThreadId())) {}
  ~NoDialogs() { ::UnhookWindowsHookEx(hook_); }
  NoDialogs(const NoDialogs&) = delete;
  NoDialogs& operator=(const NoDialogs&) = delete;

 private:
  static LRESULT CALLBACK Refuse(int code, WPARAM wparam, LPARAM lparam) {
    return code == HCBT_CREATEWND ? 1 : ::CallNextHookEx(nullptr, code, wparam, lparam);
  }

  HHOOK hook_;
};

class CRequestTest : public BrowserTest {
 protected:
  /// Runs the request and plays the person; a browser that is left open is cancelled.
  template <class Script>
  DlglibResult Run(const Request& request, const Script& script, const std::string& caption = "ファイルの選択") {
    DlglibResult result = DLGLIB_FAILED;
    driver::RunDialog([&] { result = DlglibFileRequestRun(request.Handle()); },
                      [&](driver::User& user) {
                        Browser browser(user, caption);
                        script(browser);
                        if (browser.IsOpen()) browser.Cancel();
                      });
    return result;
  }
};

TEST_F(CRequestTest, GivesAFileInItsForms) {
  const Request request;
  const std::string caption = Converted(DlglibSjisToUtf8, "図面の選択");
  EXPECT_EQ(DlglibFileRequestSetKindUtf8(request.Handle(), "#MODEL#"), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetCaptionUtf8(request.Handle(), caption.c_str()), DLGLIB_OK);
  const auto choose = [&](Browser& browser) {
    EXPECT_EQ(DlglibFileRequestDestroy(request.Handle()), DLGLIB_BUSY);
    EXPECT_EQ(DlglibFileRequestSetMode(request.Handle(), DLGLIB_SAVE_FILE), DLGLIB_BUSY);
    EXPECT_EQ(DlglibFileRequestRun(request.Handle()), DLGLIB_BUSY);
    browser.OpenRow("表示");
    browser.OpenRow("図.mdl");
  };
  ASSERT_EQ(Run(request, choose, "図面の選択"), DLGLIB_OK);
  EXPECT_EQ(request.Count(), 1);
  EXPECT_EQ(request.NameSjis(0, DLGLIB_FORM_REAL), "C:\\data\\表示\\図.mdl");
  EXPECT_EQ(request.NameSjis(0, DLGLIB_FORM_INTERNAL), "C:/data/表示/図.mdl");
  EXPECT_EQ(request.NameSjis(0, DLGLIB_FORM_SHORT), "表示/図");
  EXPECT_EQ(Converted(DlglibUtf8ToSjis, request.NameUtf8(0, DLGLIB_FORM_INTERNAL)), "C:/data/表示/図.mdl");
  EXPECT_EQ(request.NameSjis(0, 3), "(-3)");
  EXPECT_EQ(request.NameSjis(1, DLGLIB_FORM_REAL), "(-3)");
  EXPECT_EQ(request.NameSjis(-1, DLGLIB_FORM_REAL), "(-3)");

  EXPECT_EQ(Run(
                request, [](Browser&) {}, "図面の選択"),
            DLGLIB_CANCELLED);
  EXPECT_EQ(request.Count(), 0);
}

TEST_F(CRequestTest, GivesSeveralFilesWholeAndWritesTheList) {
  World().files.AddFile("C:\\data\\my  model.MDL", "");
  const Request request;
  EXPECT_EQ(DlglibFileRequestSetKindSjis(request.Handle(), "#MODEL#"), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetSeveralFiles(request.Handle(), 1), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetFixedFolder(request.Handle(), 1), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetListFileSjis(request.Handle(), "C:\\data\\list.txt"), DLGLIB_OK);
  ASSERT_EQ(Run(request,
                [](Browser& browser) {
                  browser.ClickRow("A-001.MDL");
                  browser.ClickRow("my  model.MDL", {VK_CONTROL});
                  browser.Ok();
                }),
            DLGLIB_OK);
  ASSERT_EQ(request.Count(), 2);
  EXPECT_EQ(request.NameSjis(0, DLGLIB_FORM_REAL), "C:\\data\\A-001.MDL");
  EXPECT_EQ(request.NameSjis(1, DLGLIB_FORM_REAL), "C:\\data\\my  model.MDL");
  EXPECT_NE(World().files.Find("C:\\data\\list.txt"), nullptr);
}

TEST_F(CRequestTest, ABrowserThatCannotBeMadeIsNoCancelledOne) {
  const Request request;
  const NoDialogs none;
  EXPECT_EQ(DlglibFileRequestRun(request.Handle()), DLGLIB_NO_BROWSER);
  EXPECT_EQ(request.Count(), 0);
}

TEST_F(CRequestTest, AListFileThatCannotBeWrittenIsNoCancelledRun) {
  const Request request;
  EXPECT_EQ(DlglibFileRequestSetKindSjis(request.Handle(), "#MODEL#"), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetSeveralFiles(request.Handle(), 1), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetListFileSjis(request.Handle(), "C:\\none\\list.txt"), DLGLIB_OK);
  DlglibResult result = DLGLIB_OK;
  driver::RunDialog([&] { result = DlglibFileRequestRun(request.Handle()); },
                    [&](driver::User& user) {
                      Browser browser(user, "ファイルの選択");
                      browser.OpenRow("A-001.MDL");
                      user.Answer(user.WaitMessageBox(), IDOK);
                    });
  EXPECT_EQ(result, DLGLIB_NOT_WRITTEN);
  EXPECT_EQ(request.Count(), 0);
}

TEST_F(CRequestTest, StartsAtTheInitialNameWithEitherSeparator) {
  const Request request;
  EXPECT_EQ(DlglibFileRequestSetKindSjis(request.Handle(), "#MODEL#"), DLGLIB_OK);
  EXPECT_EQ(DlglibFileRequestSetMode(request.Handle(), DLGLIB_NAME_FILE), DLGLIB_OK);
  for (const char* name : {"C:\\data\\Sub\\inner", "C:/data/Sub/inner"}) {
    EXPECT_EQ(DlglibFileRequestSetInitialNameSjis(request.Handle(), name), DLGLIB_OK);
    EXPECT_EQ(Run(request,
                  [](Browser& browser) {
                    EXPECT_EQ(browser.Name(), "inner.MDL");
                    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
                    EXPECT_EQ(browser.Window().Child(IDOK).Text(), "ＯＫ");
                    browser.Ok();
                  }),
              DLGLIB_OK);
    EXPECT_EQ(request.NameSjis(0, DLGLIB_FORM_REAL), "C:\\data\\Sub\\inner.MDL");
  }
}

TEST_F(CRequestTest, PathsAndKindsThatTheProgramHasDefined) {
  EXPECT_EQ(DlglibDefineKindSjis("#表#", "C:\\data\\表示", "*.mdl"), DLGLIB_OK);
  EXPECT_EQ(DlglibDefineKindUtf8("", "C:\\data", "*.mdl"), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibDefineKindUtf8("#A#", nullptr, "*.mdl"), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibDefineKindUtf8("#A#", "\xFF", "*.mdl"), DLGLIB_BAD_ENCODING);
  EXPECT_EQ(Path(DlglibRealPathSjis, "#表#", "図.mdl"), "C:\\data\\表示\\図.mdl");
  EXPECT_EQ(Path(DlglibInternalPathSjis, "#表#", "図.mdl"), "C:/data/表示/図.mdl");
  EXPECT_EQ(Path(DlglibShortNameSjis, "#表#", "C:\\data\\表示\\図.mdl"), "図");
  const std::string keyword = Converted(DlglibSjisToUtf8, "#表#");
  EXPECT_EQ(Path(DlglibRealPathUtf8, keyword.c_str(), Converted(DlglibSjisToUtf8, "図.mdl")),
            Converted(DlglibSjisToUtf8, "C:\\data\\表示\\図.mdl"));
  EXPECT_EQ(Path(DlglibRealPathSjis, "#NONE#", "a/b"), "a\\b");
  EXPECT_EQ(Path(DlglibInternalPathSjis, nullptr, "C:\\表\\b"), "C:/表/b");
  EXPECT_EQ(DlglibCheckExistsSjis("#表#", "図.mdl"), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckExistsUtf8(nullptr, "C:\\data"), DLGLIB_OK);
  EXPECT_EQ(DlglibCheckExistsSjis("#表#", "ない.mdl"), DLGLIB_REFUSED);
  std::int32_t letterCase = 9;
  EXPECT_EQ(DlglibKindLetterCase("#表#", &letterCase), DLGLIB_OK);
  EXPECT_EQ(letterCase, 0);
  EXPECT_EQ(DlglibKindLetterCase("#MODEL#", nullptr), DLGLIB_NULL_ARGUMENT);
  EXPECT_EQ(DlglibLoadSessionSjis("C:\\none.session"), DLGLIB_FAILED);
  World().files.AddFile("C:\\data\\a.session", "[kinds]\n#CAPS# = C:/data | *.CAP | 0 | upper\n");
  EXPECT_EQ(DlglibLoadSessionUtf8("C:\\data\\a.session"), DLGLIB_OK);
  EXPECT_EQ(DlglibKindLetterCase("#CAPS#", &letterCase), DLGLIB_OK);
  EXPECT_EQ(letterCase, 1);
}

std::string KindAt(std::int32_t index) {
  return TextOf([=](auto... room) { return DlglibKindKeywordSjis(index, room...); });
}

TEST_F(CRequestTest, KindsAreDescribedListedAndRemoved) {
  CwSession::Reset();
  std::int32_t count = -1;
  EXPECT_EQ(DlglibKindCount(&count), DLGLIB_OK);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(KindAt(0), "(-3)");
  EXPECT_EQ(DlglibDefineFullKindSjis("#B#", "C:\\data", "*.b", 1, "図面"), DLGLIB_OK);
  EXPECT_EQ(DlglibDefineFullKindUtf8("#A#", "C:\\data", "*.a", -1, nullptr), DLGLIB_OK);
  EXPECT_EQ(DlglibDefineFullKindUtf8("#A#", "C:\\data", "*.a", 2, nullptr), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibDefineFullKindUtf8("#A#", "C:\\data", "*.a", 0, "\xFF"), DLGLIB_BAD_ENCODING);
  EXPECT_EQ(DlglibDefineFullKindUtf8(nullptr, "C:\\data", "*.a", 0, ""), DLGLIB_NULL_ARGUMENT);
  const CwFileType* const kind = CwSession::GetInstance()->GetActiveFileTypeSet()->GetFileType("#B#");
  ASSERT_NE(kind, nullptr);
  EXPECT_EQ(kind->GetDescription(), Converted(DlglibSjisToEuc, "図面"));
  EXPECT_TRUE(kind->IsUpperCase());
  EXPECT_EQ(DlglibKindCount(&count), DLGLIB_OK);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(KindAt(0), "#A#");
  EXPECT_EQ(TextOf([](auto... room) { return DlglibKindKeywordUtf8(1, room...); }), "#B#");
  EXPECT_EQ(KindAt(2), "(-3)");
  EXPECT_EQ(KindAt(-1), "(-3)");
  EXPECT_EQ(DlglibRemoveKindSjis("#A#"), DLGLIB_OK);
  EXPECT_EQ(DlglibRemoveKindUtf8("#A#"), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibRemoveKindUtf8(""), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(KindAt(0), "#B#");
  EXPECT_EQ(DlglibKindCount(nullptr), DLGLIB_NULL_ARGUMENT);
}

TEST_F(CRequestTest, LinesOfASessionFileThatCannotBeReadAreTold) {
  CwSession::Reset();
  World().files.AddFile("C:\\data\\表.session", "[kinds]\n#A# = C:/a | *.A\n\xE8\xA1\xA8\n[none]\na\xFF\n");
  EXPECT_EQ(DlglibLoadSessionSjis("C:\\data\\表.session"), DLGLIB_OK);
  std::int32_t count = -1;
  EXPECT_EQ(DlglibUnreadLineCount(&count), DLGLIB_OK);
  ASSERT_EQ(count, 3);
  std::int32_t line = 0;
  const auto sjis = [&](std::int32_t index) {
    return TextOf([&](auto... room) { return DlglibUnreadLineSjis(index, &line, room...); });
  };
  EXPECT_EQ(sjis(0), "表");
  EXPECT_EQ(line, 3);
  EXPECT_EQ(TextOf([&](auto... room) { return DlglibUnreadLineUtf8(0, nullptr, room...); }), kHyouUtf8);
  EXPECT_EQ(sjis(2), "a?");
  EXPECT_EQ(line, 5);
  EXPECT_EQ(sjis(3), "(-3)");
  EXPECT_EQ(TextOf([](auto... room) { return DlglibUnreadLineFileSjis(1, room...); }), "C:\\data\\表.session");
  EXPECT_EQ(TextOf([](auto... room) { return DlglibUnreadLineFileUtf8(1, room...); }),
            std::string("C:\\data\\") + kHyouUtf8 + ".session");
  EXPECT_EQ(TextOf([](auto... room) { return DlglibUnreadLineFileUtf8(-1, room...); }), "(-3)");
  EXPECT_EQ(DlglibUnreadLineCount(nullptr), DLGLIB_NULL_ARGUMENT);
}

TEST_F(CRequestTest, AShortNameLeadsBackToItsFile) {
  World().files.AddFile("C:\\data\\v1.2.MDL");
  World().files.AddFile("C:\\data\\note.txt");
  World().files.AddFile("C:\\data\\README");
  for (const char* path : {"C:\\data\\A-001.MDL", "C:\\data\\表示\\図.MDL", "C:\\data\\v1.2.MDL", "C:\\data\\note.txt",
                           "C:\\data\\README", "D:\\other\\a.MDL"}) {
    const std::string shortName = Path(DlglibShortNameSjis, "#MODEL#", path);
    EXPECT_EQ(Path(DlglibPathOfShortNameSjis, "#MODEL#", shortName), path) << shortName;
  }
  EXPECT_EQ(Path(DlglibPathOfShortNameSjis, "#MODEL#", "new"), "C:\\data\\new.MDL") << "not there yet";
  EXPECT_EQ(Path(DlglibPathOfShortNameUtf8, "#MODEL#", std::string(kHyouUtf8)),
            std::string("C:\\data\\") + kHyouUtf8 + ".MDL");
  EXPECT_EQ(Path(DlglibPathOfShortNameSjis, nullptr, "a/b"), "a\\b");
  EXPECT_EQ(TextOf([](auto... room) { return DlglibPathOfShortNameUtf8(nullptr, nullptr, room...); }), "(-2)");
}

TEST_F(CRequestTest, AnInputFileThatIsThereIsGivenWithItsPath) {
  const auto ask = [](const char* name) {
    return TextOf([=](auto... room) { return DlglibAskInputPathSjis(nullptr, "#MODEL#", name, room...); });
  };
  EXPECT_EQ(ask("A-001.MDL"), "C:\\data\\A-001.MDL");
  EXPECT_EQ(TextOf([](auto... room) { return DlglibAskInputPathUtf8(nullptr, "#MODEL#", "A-001.MDL", room...); }),
            "C:\\data\\A-001.MDL");
  EXPECT_EQ(ask(nullptr), "(-2)");
  std::string missing;
  driver::RunDialog([&] { missing = ask("none.MDL"); },
                    [](driver::User& user) { user.Answer(user.WaitMessageBox(), IDOK); });
  EXPECT_EQ(missing, "(2)") << "told once";
}

/// In EUC-JP these bytes would be 図面. Here the function's name says what they are.
TEST_F(CRequestTest, ThePathsEncodingIsNotGuessedAt) {
  constexpr char kName[] = "ｿﾞﾌﾌ.mdl";
  const std::string utf8 = Converted(DlglibSjisToUtf8, kName);
  EXPECT_EQ(Path(DlglibRealPathSjis, "#MODEL#", kName), "C:\\data\\ｿﾞﾌﾌ.mdl");
  EXPECT_EQ(Path(DlglibRealPathUtf8, "#MODEL#", utf8), Converted(DlglibSjisToUtf8, "C:\\data\\ｿﾞﾌﾌ.mdl"));
  World().files.AddFile("C:\\data\\図面.mdl");
  EXPECT_EQ(DlglibCheckExistsSjis("#MODEL#", kName), DLGLIB_REFUSED);
  DlglibResult result = DLGLIB_FAILED;
  driver::RunDialog([&] { result = DlglibAskOutputFileSjis(nullptr, "#MODEL#", kName); }, [](driver::User&) {});
  EXPECT_EQ(result, DLGLIB_OK) << "nothing to write over";
  World().files.AddFile("C:\\data\\ｿﾞﾌﾌ.mdl");
  EXPECT_EQ(DlglibCheckExistsUtf8("#MODEL#", utf8.c_str()), DLGLIB_OK);
  EXPECT_EQ(DlglibAskInputFileUtf8(nullptr, "#MODEL#", utf8.c_str()), DLGLIB_OK);
}

TEST_F(CRequestTest, AMissingInputFileIsNamedAsItWasGiven) {
  DlglibResult result = DLGLIB_FAILED;
  driver::RunDialog([&] { result = DlglibAskInputFileSjis(nullptr, "#MODEL#", "ｿﾞﾌﾌ.mdl"); },
                    [&](driver::User& user) {
                      const driver::MessageBoxView box = user.WaitMessageBox();
                      EXPECT_EQ(box.text, "File : C:\\data\\ｿﾞﾌﾌ.mdl\n\n入力ファイルが見つかりません");
                      user.Answer(box, IDOK);
                    });
  EXPECT_EQ(result, DLGLIB_REFUSED);
}

TEST_F(CRequestTest, NoMemoryIsAResult) {
  const Request request;
  const DlglibFileRequest handle = request.Handle();
  // Longer than what a string holds without a block of its own.
  const std::string name = "C:/data/" + std::string(40, 'a');
  const char* text = name.c_str();
  std::array<char, 256> room = {};
  const auto give = [&](auto convert) {
    return
        [&room, convert, text] { return convert(text, static_cast<std::int32_t>(room.size()), room.data(), nullptr); };
  };
  const auto givePath = [&](auto convert) {
    return [&room, convert, text] {
      return convert("#MODEL#", text, static_cast<std::int32_t>(room.size()), room.data(), nullptr);
    };
  };
  const std::vector<std::function<DlglibResult()>> calls = {
      give(DlglibUtf8ToEuc),
      give(DlglibEucToUtf8),
      give(DlglibStoredToScreenUtf8),
      give(DlglibScreenToStoredUtf8),
      givePath(DlglibRealPathUtf8),
      givePath(DlglibInternalPathUtf8),
      givePath(DlglibShortNameUtf8),
      [=] { return DlglibDefineKindUtf8("#A#", text, "*.MDL"); },
      [=] { return DlglibFileRequestSetInitialNameUtf8(handle, text); },
      [=] { return DlglibFileRequestSetCaptionUtf8(handle, text); },
      [=] { return DlglibCheckModelNameUtf8(text); },
      [=] { return DlglibCheckExistsUtf8("#MODEL#", text); },
      [=] { return DlglibCheckTextUtf8(DLGLIB_DIGITS, text); },
      [=] { return DlglibCheckNumber(text, DLGLIB_REAL, 0, 1); },
      [] {
        DlglibFileRequest made = nullptr;
        const DlglibResult result = DlglibFileRequestCreate(&made);
        if (result == DLGLIB_OK) return DlglibFileRequestDestroy(made);
        EXPECT_EQ(made, nullptr);
        return result;
      },
  };
  for (std::size_t i = 0; i < calls.size(); ++i) {
    DlglibResult result = DLGLIB_FAILED;
    const int failures = allocation::FailEachIn([&] {
      result = calls[i]();
      if (result != DLGLIB_OUT_OF_MEMORY && allocation::HasFailed()) ADD_FAILURE() << i << ": " << result;
    });
    EXPECT_GT(failures, 0) << i;
    EXPECT_GE(result, DLGLIB_OK) << i << ": memory is back";
  }
}

/// Asks on its own thread.
class AskingHost : public utility_test::Host {
 public:
  static constexpr UINT kAsk = WM_APP + 1;

  DlglibResult result = DLGLIB_FAILED;

  Handled RouteMessage(const Message& message) override {
    if (message.id != kAsk) return Host::RouteMessage(message);
    result = DlglibAskOutputFileSjis(m_hWnd, "#MODEL#", "A-001.MDL");
    return 0;
  }
};

TEST_F(CRequestTest, TheCountOfWhatIsThrownIsAlive) {
  const ThrowCount count;
  try {
    throw 1;
  } catch (int) {
  }
  EXPECT_GT(ThrowCount::Thrown(), 0);
}

void ExpectRefused(DlglibResult result) { EXPECT_LT(result, DLGLIB_OK); }

const std::string kTooLong(DLGLIB_LONG_TEXT_LIMIT + 1, 'a');

/// A text that is refused, to every function that takes such and gives a text.
void RefuseInConversions(const char* text) {
  std::array<char, 8> room = {};
  std::int32_t needed = 0;
  for (const auto convert : {DlglibUtf8ToSjis, DlglibUtf8ToEuc, DlglibScreenToStoredUtf8}) {
    ExpectRefused(convert(text, 8, room.data(), &needed));
  }
  for (const auto convert :
       {DlglibRealPathUtf8, DlglibInternalPathUtf8, DlglibShortNameUtf8, DlglibPathOfShortNameUtf8}) {
    ExpectRefused(convert("#MODEL#", text, 8, room.data(), &needed));
  }
  ExpectRefused(DlglibAskInputPathUtf8(nullptr, nullptr, text, 8, room.data(), &needed));
}

/// The same to the others.
void RefuseInChecks(const char* text) {
  for (const auto check : {DlglibCheckModelNameUtf8, DlglibLoadSessionUtf8, DlglibRemoveKindUtf8}) {
    ExpectRefused(check(text));
  }
  ExpectRefused(DlglibDefineKindUtf8(text, "C:/a", "*"));
  ExpectRefused(DlglibDefineKindUtf8("#A#", text, "*"));
  ExpectRefused(DlglibDefineKindUtf8("#A#", "C:/a", text));
  ExpectRefused(DlglibDefineFullKindUtf8(text, "C:/a", "*", 0, ""));
  ExpectRefused(DlglibDefineFullKindUtf8("#A#", "C:/a", text, 0, ""));
  ExpectRefused(DlglibCheckFileNameUtf8(text, 0));
  ExpectRefused(DlglibCheckExistsUtf8(nullptr, text));
  ExpectRefused(DlglibCheckTextUtf8(0, text));
  ExpectRefused(DlglibAskFileNameUtf8(nullptr, text));
  ExpectRefused(DlglibAskInputFileUtf8(nullptr, nullptr, text));
  ExpectRefused(DlglibAskOutputFileUtf8(nullptr, nullptr, text));
}

void RefuseInSettings(DlglibFileRequest request, const char* text) {
  for (const auto set : {DlglibFileRequestSetKindUtf8, DlglibFileRequestSetCaptionUtf8,
                         DlglibFileRequestSetInitialNameUtf8, DlglibFileRequestSetListFileUtf8}) {
    ExpectRefused(set(request, text));
  }
}

void RefuseRooms() {
  std::array<char, 8> room = {};
  std::int32_t needed = 0;
  for (const auto convert : {DlglibSjisToEuc, DlglibEucToSjis, DlglibSjisToUtf8, DlglibEucToUtf8,
                             DlglibStoredToScreenSjis, DlglibStoredToScreenUtf8}) {
    ExpectRefused(convert(nullptr, 8, room.data(), &needed));
    ExpectRefused(convert(kTooLong.c_str(), 8, room.data(), &needed));
    ExpectRefused(convert("abcdefghi", 8, room.data(), &needed));
    ExpectRefused(convert("a", -1, room.data(), &needed));
  }
  ExpectRefused(DlglibSjisToUtf8("\x81", 8, room.data(), &needed));
}

/// Numbers, indices, windows and handles.
void RefuseNumbers(DlglibFileRequest request) {
  std::array<char, 8> room = {};
  std::int32_t number = 0;
  double scale = 0;
  void* const noWindow = reinterpret_cast<void*>(0x7FFF1234);
  ExpectRefused(DlglibCheckNumber("1", -1, 0, 1));
  ExpectRefused(DlglibCheckNumber(nullptr, 0, 0, 1));
  ExpectRefused(DlglibCheckScale(nullptr, &scale));
  ExpectRefused(DlglibKindLetterCase(nullptr, &number));
  ExpectRefused(DlglibKindLetterCase("#A#", nullptr));
  ExpectRefused(DlglibDefineFullKindUtf8("#A#", "C:/a", "*", 7, ""));
  ExpectRefused(DlglibKindKeywordUtf8(-1, 8, room.data(), &number));
  ExpectRefused(DlglibUnreadLineUtf8(-1, nullptr, 8, room.data(), &number));
  ExpectRefused(DlglibUnreadLineFileUtf8(-1, 8, room.data(), &number));
  ExpectRefused(DlglibKindCount(nullptr));
  ExpectRefused(DlglibUnreadLineCount(nullptr));
  ExpectRefused(DlglibAskFileNameUtf8(noWindow, "a"));
  ExpectRefused(DlglibFileRequestSetMode(request, 9));
  ExpectRefused(DlglibFileRequestSetOwner(request, noWindow));
  ExpectRefused(DlglibFileRequestNameUtf8(request, 5, 0, 8, room.data(), &number));
  ExpectRefused(DlglibFileRequestNameUtf8(request, 0, 9, 8, room.data(), &number));
  ExpectRefused(DlglibFileRequestCount(request, nullptr));
  ExpectRefused(DlglibFileRequestCreate(nullptr));
  ExpectRefused(DlglibFileRequestRun(nullptr));
  ExpectRefused(DlglibFileRequestDestroy(nullptr));
  ExpectRefused(DlglibFileRequestSetFixedFolder(nullptr, 0));
}

TEST_F(CRequestTest, NothingIsThrownOnAccountOfAnArgument) {
  const Request request;
  const ThrowCount count;
  for (const char* text : {static_cast<const char*>(nullptr), kTooLong.c_str(), "\xFF", "\xC3\xA9"}) {
    RefuseInConversions(text);
    RefuseInChecks(text);
    if (text != nullptr) RefuseInSettings(request.Handle(), text);  // in settings null is none
  }
  RefuseRooms();
  RefuseNumbers(request.Handle());
  EXPECT_EQ(ThrowCount::Thrown(), 0);
}

TEST_F(CRequestTest, MessagesBearTheOwnersTitle) {
  EXPECT_EQ(DlglibAskInputFileSjis(reinterpret_cast<void*>(0x7FFF1234), nullptr, "a"), DLGLIB_BAD_ARGUMENT);
  EXPECT_EQ(DlglibAskInputFileSjis(nullptr, "#MODEL#", "A-001.MDL"), DLGLIB_OK);
  EXPECT_EQ(DlglibAskOutputFileUtf8(nullptr, "#MODEL#", "new.MDL"), DLGLIB_OK);
  EXPECT_EQ(DlglibAskFileNameUtf8(nullptr, "a*"), DLGLIB_OK);
  EXPECT_EQ(DlglibAskFileNameUtf8(nullptr, nullptr), DLGLIB_NULL_ARGUMENT);

  AskingHost host;
  driver::RunDialog([&] { host.DoModal(); },
                    [&](driver::User& user) {
                      const HWND owner = user.WaitDialog(utility_test::kTitle).Handle();
                      EXPECT_EQ(DlglibAskOutputFileSjis(owner, "#MODEL#", "A-001.MDL"), DLGLIB_WRONG_THREAD);
                      ::PostMessageW(owner, AskingHost::kAsk, 0, 0);
                      const driver::MessageBoxView box = user.WaitMessageBox();
                      EXPECT_EQ(box.caption, utility_test::kTitle);
                      user.Answer(box, IDNO);
                      user.Key(VK_ESCAPE);
                    });
  EXPECT_EQ(host.result, DLGLIB_REFUSED);
}

}  // namespace
}  // namespace browser_test
