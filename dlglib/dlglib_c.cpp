// Version, conversions, paths, checks and numbers, for programs of any language. The other functions of the interface
// stand in c_interface/.
#include "dlglib/dlglib_c.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "dlglib/base/bounded_text.h"
#include "dlglib/base/encoder.h"
#include "dlglib/base/keyword_class.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/base/stored_text.h"
#include "dlglib/base/suite_kinds.h"
#include "dlglib/c_interface/call.h"
#include "dlglib/filsel/request_names.h"
#include "dlglib/utility/CvFileMessages.h"
#include "dlglib/utility/rules/char_class.h"
#include "dlglib/utility/rules/file_lookup.h"
#include "dlglib/utility/rules/file_name_check.h"
#include "dlglib/utility/rules/number_text.h"
#include "dlglib/utility/rules/path_name.h"
#include "platform/framework/message_box.h"
#include "platform/framework/wnd.h"
#include "platform/os/os.h"
#include "platform/suite/crvncontrol.h"

namespace {

using c_interface::Answer;
using c_interface::Call;
using c_interface::Encoding;
using c_interface::Give;
using c_interface::GiveWith;
using c_interface::kKeywordLimit;
using c_interface::kLongTextLimit;
using c_interface::kPathLimit;
using c_interface::kTextLimit;
using c_interface::Verdict;

static_assert(kPathLimit == path_name::kMaxLength);
// Whatever these two lengthen a text by fits their own limits, so that nothing is ever cut: an escape has up to four
// bytes for one, half-width katakana two for one.
static_assert(4 * kTextLimit <= stored_text::kEscapedLimit && 2 * kTextLimit <= stored_text::kStoredLimit);

[[nodiscard]] const char* MeaningOf(DlglibResult result) noexcept {
  switch (result) {
    case DLGLIB_OK:
      return "正常に終了しました。";
    case DLGLIB_CANCELLED:
      return "取り消されました。";
    case DLGLIB_REFUSED:
      return "使用できない値です。";
    case DLGLIB_NOT_MINE:
      return "対象外のメッセージです。";
    case DLGLIB_BAD_HANDLE:
      return "ハンドルが無効です。";
    case DLGLIB_NULL_ARGUMENT:
      return "必要な引数が指定されていません。";
    case DLGLIB_BAD_ARGUMENT:
      return "引数の値が正しくありません。";
    case DLGLIB_TOO_SMALL:
      return "バッファの大きさが足りません。";
    case DLGLIB_TOO_LONG:
      return "文字列が長すぎます。";
    case DLGLIB_BAD_ENCODING:
      return "文字コードが正しくありません。";
    case DLGLIB_NO_SUCH_CHARACTER:
      return "シフトJISで表せない文字があります。";
    case DLGLIB_BUSY:
      return "実行中のため操作できません。";
    case DLGLIB_OUT_OF_MEMORY:
      return "メモリが足りません。";
    case DLGLIB_NOT_AVAILABLE:
      return "この構成では使用できません。";
    case DLGLIB_FAILED:
      return "処理に失敗しました。";
    case DLGLIB_WRONG_THREAD:
      return "別のスレッドからは操作できません。";
    case DLGLIB_NO_BROWSER:
      return "ファイル選択画面を表示できません。";
    case DLGLIB_NOT_WRITTEN:
      return "ファイルまたは設定を書き込めません。";
    case DLGLIB_NOT_ATTACHED:
      return "リストが接続されていません。";
    default:
      return "不明な結果です。";
  }
}

[[nodiscard]] EucText ShortName(Call& call, const char* keyword, const char* path) {
  const EucText kind = call.Keyword(keyword);
  const EucText name = call.Internal(path, kPathLimit);
  if (call.Refused()) return {};
  const EucText full = filsel::FullName(kind, name, filsel::FullNameUse::ShortName);
  return filsel::WithoutDefaults(kind, full.empty() ? name : full, *os::Services().files);
}

/// The extension that the kind adds to a name without one.
[[nodiscard]] std::string ExtensionOf(const EucText& keyword) {
  const CwFileType* const kind = suite_kinds::Find(*CwSession::GetInstance()->GetActiveFileTypeSet(), keyword);
  return kind != nullptr ? suite_kinds::ExtensionOf(*kind).bytes() : std::string();
}

/// The paths that a short form may stand for, the likelier one first.
[[nodiscard]] std::array<SjisText, 2> PathsOfShortName(const EucText& keyword, const EucText& shortName) {
  const std::string& name = shortName.bytes();
  const SjisText plain = path_name::RealOfSjis(keyword, encoder::ToSjis(shortName));
  const EucText extended(name + ExtensionOf(keyword));
  const SjisText whole = path_name::RealOfSjis(keyword, encoder::ToSjis(extended));
  const bool hasDot = name.find('.', name.rfind('/') + 1) != std::string::npos;
  return hasDot ? std::array{plain, whole} : std::array{whole, plain};
}

[[nodiscard]] SjisText PathOfShortName(Call& call, const char* keyword, const char* shortName) {
  const EucText kind = call.Keyword(keyword);
  const EucText name = call.Internal(shortName, kPathLimit);
  if (call.Refused()) return {};
  const std::array<SjisText, 2> paths = PathsOfShortName(kind, name);
  os::Files& files = *os::Services().files;
  const bool second = !files.Exists(paths[0].bytes()) && files.Exists(paths[1].bytes());
  return paths[second ? 1 : 0];
}

[[nodiscard]] DlglibResult CheckFileName(Encoding encoding, const char* name, std::int32_t wildcards) noexcept {
  using file_name_check::Wildcards;
  return Answer(encoding, [&](Call& call) {
    return Verdict(file_name_check::IsFileName(call.Sjis(name, kLongTextLimit).bytes(),
                                               wildcards != 0 ? Wildcards::Allowed : Wildcards::Forbidden));
  });
}

[[nodiscard]] DlglibResult CheckModelName(Encoding encoding, const char* name) noexcept {
  return Answer(encoding, [&](Call& call) {
    return Verdict(file_name_check::IsModelName(call.Sjis(name, kLongTextLimit).bytes()));
  });
}

/// The real path of a caller's path, whose encoding is known.
[[nodiscard]] SjisText RealOf(Call& call, const char* keyword, const char* path) {
  const EucText kind = call.Keyword(keyword);
  const SjisText given = call.Path(path);
  return call.Refused() ? SjisText() : path_name::RealOfSjis(kind, given);
}

[[nodiscard]] EucText InternalOf(Call& call, const char* keyword, const char* path) {
  const EucText kind = call.Keyword(keyword);
  const SjisText given = call.Path(path);
  return call.Refused() ? EucText() : path_name::Internal(kind, given);
}

[[nodiscard]] DlglibResult CheckExists(Encoding encoding, const char* keyword, const char* path) noexcept {
  return Answer(encoding, [&](Call& call) {
    const SjisText real = RealOf(call, keyword, path);
    return call.Refused() ? call.Result() : Verdict(os::Services().files->Exists(real.bytes()));
  });
}

/// Message boxes for a window of the caller's, whose title they bear; for none, without one. The utility's own checks
/// are not asked: they do not tell a refusal from want of memory.
class OwnersBoxes {
 public:
  explicit OwnersBoxes(HWND owner) : owner_(owner) {
    CString title;
    owner_.GetWindowText(title);
    caption_.AssignScreen(title.View());
  }

  int Show(const std::string& text, UINT style) const {
    return owner_.MessageBox(text.c_str(), caption_.Text(), style);
  }
  /// Beeps before the box.
  int Warn(const std::string& text, UINT style) const {
    os::Services().session->Beep(os::kBeepExclamation);
    return Show(text, style);
  }
  [[nodiscard]] CvFileMessages OfFiles() const { return {owner_, caption_.Text()}; }

 private:
  WindowRef owner_;
  BoundedText<127> caption_;
};

[[nodiscard]] DlglibResult AskFileName(Encoding encoding, void* owner, const char* name) noexcept {
  return Answer(encoding, [&](Call& call) {
    const SjisText text = call.Path(name);
    const HWND window = call.OwnWindow(owner);
    if (call.Refused()) return call.Result();
    const OwnersBoxes boxes(window);
    if (text.empty()) {
      boxes.Warn(file_name_check::kNoName, MB_ICONHAND);
      return DlglibResult{DLGLIB_REFUSED};
    }
    const bool acceptable = file_name_check::IsFileName(text.bytes(), file_name_check::Wildcards::Allowed);
    if (!acceptable) boxes.Show(file_name_check::kInvalidCharacters, MB_ICONHAND);
    return Verdict(acceptable);
  });
}

/// Whether the input file is there; the user is told when it is not.
[[nodiscard]] DlglibResult AskInputFile(Call& call, void* owner, const char* keyword, const char* name,
                                        SjisText& path) {
  path = RealOf(call, keyword, name);
  const HWND window = call.OwnWindow(owner);
  if (call.Refused()) return call.Result();
  const OwnersBoxes boxes(window);
  const bool exists = os::Services().files->Exists(path.bytes());
  if (!exists) boxes.OfFiles().TellInputMissing(path);
  return Verdict(exists);
}

[[nodiscard]] DlglibResult AskInputFile(Encoding encoding, void* owner, const char* keyword,
                                        const char* name) noexcept {
  return Answer(encoding, [&](Call& call) {
    SjisText path;
    return AskInputFile(call, owner, keyword, name, path);
  });
}

[[nodiscard]] DlglibResult AskInputPath(Encoding encoding, void* owner, const char* keyword, const char* name,
                                        const c_interface::Room& room) noexcept {
  return GiveWith(encoding, room, [&](Call& call, std::string& text) {
    SjisText path;
    const DlglibResult result = AskInputFile(call, owner, keyword, name, path);
    text = call.Wanted(path);
    return result;
  });
}

[[nodiscard]] DlglibResult AskOutputFile(Encoding encoding, void* owner, const char* keyword,
                                         const char* name) noexcept {
  return Answer(encoding, [&](Call& call) {
    const SjisText path = RealOf(call, keyword, name);
    const HWND window = call.OwnWindow(owner);
    if (call.Refused()) return call.Result();
    const OwnersBoxes boxes(window);
    const file_lookup::Output output = file_lookup::ChooseOutput({path}, *os::Services().files);
    return Verdict(boxes.OfFiles().MayWrite(output));
  });
}

/// Between the stored form and the one on the screen.
[[nodiscard]] std::string ScreenOf(Call& call, const char* stored) {
  const EucText given(call.Bytes(stored, kTextLimit));
  return call.Wanted(stored_text::ToScreen(given, stored_text::kEscapedLimit));
}

[[nodiscard]] std::string StoredOf(Call& call, const char* screen) {
  return stored_text::ToStored(call.Sjis(screen, kTextLimit), stored_text::kStoredLimit).bytes();
}

[[nodiscard]] unsigned int CodeAt(std::string_view sjis, std::size_t at) noexcept {
  const auto first = static_cast<unsigned char>(sjis[at]);
  if (shift_jis::CharLength(sjis, at) == 1) return first;
  return first * 0x100U + static_cast<unsigned char>(sjis[at + 1]);
}

[[nodiscard]] DlglibResult CheckText(Encoding encoding, std::uint32_t mask, const char* text) noexcept {
  return Answer(encoding, [&](Call& call) {
    const std::string sjis = call.Sjis(text, kLongTextLimit).bytes();
    bool allowed = true;
    for (std::size_t at = 0; at < sjis.size() && allowed; at += shift_jis::CharLength(sjis, at)) {
      allowed = (mask & char_class::ClassOf(CodeAt(sjis, at))) != 0;
    }
    return Verdict(allowed);
  });
}

}  // namespace

// ---- version and results

std::int32_t DLGLIB_CALL DlglibVersion(void) { return DLGLIB_VERSION; }

DlglibResult DLGLIB_CALL DlglibVersionText(std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed}, [](Call&) { return std::string(DLGLIB_VERSION_TEXT); });
}

DlglibResult DLGLIB_CALL DlglibResultTextSjis(DlglibResult result, std::int32_t bufferSize, char* buffer,
                                              std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(SjisText(MeaningOf(result))); });
}

DlglibResult DLGLIB_CALL DlglibResultTextUtf8(DlglibResult result, std::int32_t bufferSize, char* buffer,
                                              std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(SjisText(MeaningOf(result))); });
}

// ---- encodings

DlglibResult DLGLIB_CALL DlglibSjisToEuc(const char* sjis, std::int32_t bufferSize, char* buffer,
                                         std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed},
              [=](Call& call) { return encoder::ToEuc(SjisText(call.Bytes(sjis, kLongTextLimit))).bytes(); });
}

DlglibResult DLGLIB_CALL DlglibEucToSjis(const char* euc, std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(EucText(call.Bytes(euc, kLongTextLimit))); });
}

DlglibResult DLGLIB_CALL DlglibUtf8ToSjis(const char* utf8, std::int32_t bufferSize, char* buffer,
                                          std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Sjis(utf8, kLongTextLimit).bytes(); });
}

DlglibResult DLGLIB_CALL DlglibSjisToUtf8(const char* sjis, std::int32_t bufferSize, char* buffer,
                                          std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(SjisText(call.Bytes(sjis, kLongTextLimit))); });
}

DlglibResult DLGLIB_CALL DlglibUtf8ToEuc(const char* utf8, std::int32_t bufferSize, char* buffer,
                                         std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return encoder::ToEuc(call.Sjis(utf8, kLongTextLimit)).bytes(); });
}

DlglibResult DLGLIB_CALL DlglibEucToUtf8(const char* euc, std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(EucText(call.Bytes(euc, kLongTextLimit))); });
}

DlglibResult DLGLIB_CALL DlglibStoredToScreenSjis(const char* stored, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed}, [=](Call& call) { return ScreenOf(call, stored); });
}

DlglibResult DLGLIB_CALL DlglibStoredToScreenUtf8(const char* stored, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed}, [=](Call& call) { return ScreenOf(call, stored); });
}

DlglibResult DLGLIB_CALL DlglibScreenToStoredSjis(const char* screen, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed}, [=](Call& call) { return StoredOf(call, screen); });
}

DlglibResult DLGLIB_CALL DlglibScreenToStoredUtf8(const char* screen, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed}, [=](Call& call) { return StoredOf(call, screen); });
}

// ---- paths

DlglibResult DLGLIB_CALL DlglibRealPathSjis(const char* keyword, const char* path, std::int32_t bufferSize,
                                            char* buffer, std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(RealOf(call, keyword, path)); });
}

DlglibResult DLGLIB_CALL DlglibRealPathUtf8(const char* keyword, const char* path, std::int32_t bufferSize,
                                            char* buffer, std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(RealOf(call, keyword, path)); });
}

DlglibResult DLGLIB_CALL DlglibInternalPathSjis(const char* keyword, const char* path, std::int32_t bufferSize,
                                                char* buffer, std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(InternalOf(call, keyword, path)); });
}

DlglibResult DLGLIB_CALL DlglibInternalPathUtf8(const char* keyword, const char* path, std::int32_t bufferSize,
                                                char* buffer, std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(InternalOf(call, keyword, path)); });
}

DlglibResult DLGLIB_CALL DlglibShortNameSjis(const char* keyword, const char* path, std::int32_t bufferSize,
                                             char* buffer, std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(ShortName(call, keyword, path)); });
}

DlglibResult DLGLIB_CALL DlglibShortNameUtf8(const char* keyword, const char* path, std::int32_t bufferSize,
                                             char* buffer, std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(ShortName(call, keyword, path)); });
}

DlglibResult DLGLIB_CALL DlglibPathOfShortNameSjis(const char* keyword, const char* shortName, std::int32_t bufferSize,
                                                   char* buffer, std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(PathOfShortName(call, keyword, shortName)); });
}

DlglibResult DLGLIB_CALL DlglibPathOfShortNameUtf8(const char* keyword, const char* shortName, std::int32_t bufferSize,
                                                   char* buffer, std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return call.Wanted(PathOfShortName(call, keyword, shortName)); });
}

DlglibResult DLGLIB_CALL DlglibKindLetterCase(const char* keyword, std::int32_t* letterCase) {
  return Answer([&](Call& call) {
    call.Require(letterCase != nullptr, DLGLIB_NULL_ARGUMENT);
    const std::string given = call.Bytes(keyword, kKeywordLimit);
    if (call.Refused()) return call.Result();
    const EucText name(EucView(keyword_class::Extract(given)));
    *letterCase = suite_kinds::LetterCaseOf(suite_kinds::Find(*CwSession::GetInstance()->GetActiveFileTypeSet(), name));
    return call.Result();
  });
}

// ---- checks

DlglibResult DLGLIB_CALL DlglibCheckModelNameSjis(const char* name) { return CheckModelName(Encoding::Sjis, name); }

DlglibResult DLGLIB_CALL DlglibCheckModelNameUtf8(const char* name) { return CheckModelName(Encoding::Utf8, name); }

DlglibResult DLGLIB_CALL DlglibCheckFileNameSjis(const char* name, std::int32_t wildcards) {
  return CheckFileName(Encoding::Sjis, name, wildcards);
}

DlglibResult DLGLIB_CALL DlglibCheckFileNameUtf8(const char* name, std::int32_t wildcards) {
  return CheckFileName(Encoding::Utf8, name, wildcards);
}

DlglibResult DLGLIB_CALL DlglibCheckExistsSjis(const char* keyword, const char* path) {
  return CheckExists(Encoding::Sjis, keyword, path);
}

DlglibResult DLGLIB_CALL DlglibCheckExistsUtf8(const char* keyword, const char* path) {
  return CheckExists(Encoding::Utf8, keyword, path);
}

DlglibResult DLGLIB_CALL DlglibAskFileNameSjis(void* owner, const char* name) {
  return AskFileName(Encoding::Sjis, owner, name);
}

DlglibResult DLGLIB_CALL DlglibAskFileNameUtf8(void* owner, const char* name) {
  return AskFileName(Encoding::Utf8, owner, name);
}

DlglibResult DLGLIB_CALL DlglibAskInputFileSjis(void* owner, const char* keyword, const char* name) {
  return AskInputFile(Encoding::Sjis, owner, keyword, name);
}

DlglibResult DLGLIB_CALL DlglibAskInputFileUtf8(void* owner, const char* keyword, const char* name) {
  return AskInputFile(Encoding::Utf8, owner, keyword, name);
}

DlglibResult DLGLIB_CALL DlglibAskInputPathSjis(void* owner, const char* keyword, const char* name,
                                                std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return AskInputPath(Encoding::Sjis, owner, keyword, name, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibAskInputPathUtf8(void* owner, const char* keyword, const char* name,
                                                std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return AskInputPath(Encoding::Utf8, owner, keyword, name, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibAskOutputFileSjis(void* owner, const char* keyword, const char* name) {
  return AskOutputFile(Encoding::Sjis, owner, keyword, name);
}

DlglibResult DLGLIB_CALL DlglibAskOutputFileUtf8(void* owner, const char* keyword, const char* name) {
  return AskOutputFile(Encoding::Utf8, owner, keyword, name);
}

DlglibResult DLGLIB_CALL DlglibCheckChar(std::uint32_t mask, std::uint32_t code) {
  return Verdict((mask & char_class::ClassOf(code)) != 0);
}

DlglibResult DLGLIB_CALL DlglibCheckTextSjis(std::uint32_t mask, const char* text) {
  return CheckText(Encoding::Sjis, mask, text);
}

DlglibResult DLGLIB_CALL DlglibCheckTextUtf8(std::uint32_t mask, const char* text) {
  return CheckText(Encoding::Utf8, mask, text);
}

// ---- numbers

DlglibResult DLGLIB_CALL DlglibCheckNumber(const char* text, std::int32_t mode, double minimum, double maximum) {
  return Answer([&](Call& call) {
    call.Require(mode >= DLGLIB_UNSIGNED_INTEGER, DLGLIB_BAD_ARGUMENT);
    return Verdict(number_text::CheckNumber(call.Bytes(text, kLongTextLimit), mode, minimum, maximum));
  });
}

DlglibResult DLGLIB_CALL DlglibCheckScale(const char* text, double* scale) {
  if (scale != nullptr) *scale = 0;
  return Answer([&](Call& call) {
    const std::string typed = call.Bytes(text, kLongTextLimit);
    const std::optional<double> value = number_text::ParseScale(typed).value;
    if (scale != nullptr) *scale = value.value_or(0);
    return Verdict(value.has_value());
  });
}

DlglibResult DLGLIB_CALL DlglibScaleText(double scale, std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed}, [=](Call&) { return number_text::ScaleText(scale); });
}

DlglibResult DLGLIB_CALL DlglibDecimalText(double value, std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed}, [=](Call&) { return number_text::DecimalText(value); });
}
