// One call of a function of the C interface: what it takes, what it answers, and where its texts go. Internal to the
// interface.
//
// A refusal is a value on its way back: nothing is thrown for an argument, since debuggers and the handlers of a host
// see each exception, also one that is caught at once. Only want of memory is thrown, and ends in Answer and Give.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <string>

#include "dlglib/base/edge.h"
#include "dlglib/base/encoded_text.h"
#include "dlglib/dlglib_c.h"
#include "platform/framework/detail/utf8.h"
#include "platform/framework/win32.h"

namespace c_interface {

// Longest texts, in bytes without the zero byte.
inline constexpr std::size_t kKeywordLimit = 255;
inline constexpr std::size_t kSettingLimit = 256;
inline constexpr std::size_t kPathLimit = 512;
inline constexpr std::size_t kTextLimit = DLGLIB_TEXT_LIMIT;
inline constexpr std::size_t kLongTextLimit = DLGLIB_LONG_TEXT_LIMIT;

/// The encoding that a function's name says.
enum class Encoding { Sjis, Utf8 };

/// Takes arguments and gives texts. The first argument that is refused decides what the call answers; what is taken
/// after it is empty, and a function that does something looks at Refused before.
class Call {
 public:
  explicit Call(Encoding encoding = Encoding::Sjis) noexcept : encoding_(encoding) {}

  /// Refuses the call unless the condition holds.
  void Require(bool holds, DlglibResult otherwise) noexcept;
  [[nodiscard]] bool Refused() const noexcept { return result_ != DLGLIB_OK; }
  /// Why the call is refused; DLGLIB_OK when it is not.
  [[nodiscard]] DlglibResult Result() const noexcept { return result_; }

  /// A caller's text as it is, of `limit` bytes at most.
  [[nodiscard]] std::string Bytes(const char* text, std::size_t limit);
  /// A caller's text in Shift_JIS or EUC-JP, where it has `limit` bytes at most.
  [[nodiscard]] SjisText Sjis(const char* text, std::size_t limit);
  [[nodiscard]] EucText Euc(const char* text, std::size_t limit);
  /// The keyword of a kind; null is none.
  [[nodiscard]] EucText Keyword(const char* keyword);
  /// A caller's path in the suite's form.
  [[nodiscard]] EucText Internal(const char* path, std::size_t limit);
  /// A caller's path in Shift_JIS, which the library is able to hold in EUC-JP as well.
  [[nodiscard]] SjisText Path(const char* path);
  /// A window of the calling thread, or null for none.
  [[nodiscard]] HWND OwnWindow(void* window) noexcept;

  /// A text as the caller wants it.
  [[nodiscard]] std::string Wanted(const SjisText& sjis);
  [[nodiscard]] std::string Wanted(const EucText& euc);

 private:
  [[nodiscard]] std::string Converted(framework::ConvertedText converted);

  Encoding encoding_;
  DlglibResult result_ = DLGLIB_OK;
};

[[nodiscard]] inline DlglibResult Verdict(bool acceptable) noexcept { return acceptable ? DLGLIB_OK : DLGLIB_REFUSED; }

/// What a function answers: why its call is refused, else what `work` answers.
template <class Work>
[[nodiscard]] DlglibResult Answer(Encoding encoding, const Work& work) noexcept {
  return edge::Guarded(DlglibResult{DLGLIB_FAILED}, [&] {
    try {
      Call call(encoding);
      const DlglibResult result = work(call);
      return call.Refused() ? call.Result() : result;
    } catch (const std::bad_alloc&) {
      return DlglibResult{DLGLIB_OUT_OF_MEMORY};
    }
  });
}

template <class Work>
[[nodiscard]] DlglibResult Answer(const Work& work) noexcept {
  return Answer(Encoding::Sjis, work);
}

/// Where a text goes.
struct Room {
  std::int32_t size;
  char* buffer;
  std::int32_t* needed;
};

[[nodiscard]] DlglibResult CheckRoom(const Room& room) noexcept;
/// Writes the text, or an empty one unless the result is DLGLIB_OK. Answers the result, or that there is no room.
[[nodiscard]] DlglibResult Fill(const Room& room, DlglibResult result, const std::string& text) noexcept;

/// Answers what `make` answers, and writes the text that it makes. It is made first, so the buffer may be a text that
/// was given.
template <class Make>
[[nodiscard]] DlglibResult GiveWith(Encoding encoding, const Room& room, const Make& make) noexcept {
  if (const DlglibResult bad = CheckRoom(room); bad != DLGLIB_OK) return bad;
  std::string text;
  const DlglibResult result = Answer(encoding, [&](Call& call) { return make(call, text); });
  return Fill(room, result, text);
}

/// Writes the text that `make` answers.
template <class Make>
[[nodiscard]] DlglibResult Give(Encoding encoding, const Room& room, const Make& make) noexcept {
  return GiveWith(encoding, room, [&](Call& call, std::string& text) {
    text = make(call);
    return DLGLIB_OK;
  });
}

}  // namespace c_interface
