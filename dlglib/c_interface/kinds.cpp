// Kinds of files and session files, for programs of any language.
#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "dlglib/c_interface/call.h"
#include "platform/suite/crvncontrol.h"

namespace {

using c_interface::Answer;
using c_interface::Call;
using c_interface::Encoding;
using c_interface::Give;
using c_interface::kKeywordLimit;
using c_interface::kPathLimit;
using c_interface::kSettingLimit;
using c_interface::Room;

[[nodiscard]] CwFileTypeSet& Kinds() { return *CwSession::GetInstance()->GetActiveFileTypeSet(); }

/// The keyword of a kind that is to be made or taken away.
[[nodiscard]] EucText NameOfKind(Call& call, const char* keyword) {
  EucText name = call.Euc(keyword, kKeywordLimit);
  call.Require(!name.empty(), DLGLIB_BAD_ARGUMENT);
  return name;
}

[[nodiscard]] DlglibResult DefineKind(Encoding encoding, const char* keyword, const char* folder,
                                      const char* patterns) noexcept {
  return Answer(encoding, [&](Call& call) -> DlglibResult {
    const EucText name = NameOfKind(call, keyword);
    const EucText place = call.Internal(folder, kSettingLimit);
    const EucText wanted = call.Euc(patterns, kSettingLimit);
    if (call.Refused()) return call.Result();
    return Kinds().AddFileType(CwFileType(name.bytes(), place.bytes(), wanted.bytes(), 0)) ? DLGLIB_OK : DLGLIB_FAILED;
  });
}

// What the suite's own core libraries lack.
#if DLGLIB_EMBEDDED_SUITE

[[nodiscard]] DlglibResult Load(const SjisText& file) {
  return CwSession::LoadFile(file.bytes()) ? DLGLIB_OK : DLGLIB_FAILED;
}

[[nodiscard]] CwLetterCase LetterCaseOf(std::int32_t letterCase) noexcept {
  if (letterCase == 0) return CwLetterCase::AsIs;
  return letterCase > 0 ? CwLetterCase::Upper : CwLetterCase::Lower;
}

[[nodiscard]] DlglibResult Define(const std::string& keyword, const std::string& folder, const std::string& patterns,
                                  std::int32_t letterCase, const std::string& description) {
  CwFileType kind(keyword, folder, patterns, 0, LetterCaseOf(letterCase));
  kind.SetDescription(description);
  return Kinds().AddFileType(kind) ? DLGLIB_OK : DLGLIB_FAILED;
}

[[nodiscard]] std::optional<std::vector<std::string>> Keywords() { return Kinds().GetKeywords(); }

[[nodiscard]] DlglibResult Remove(const EucText& keyword) {
  return Kinds().RemoveFileType(keyword.bytes()) ? DLGLIB_OK : DLGLIB_BAD_ARGUMENT;
}

[[nodiscard]] const std::vector<CwUnreadableLine>* UnreadLines() {
  return &CwSession::GetInstance()->GetUnreadableLines();
}

#else

[[nodiscard]] DlglibResult Load(const SjisText&) { return DLGLIB_NOT_AVAILABLE; }

[[nodiscard]] DlglibResult Define(const std::string&, const std::string&, const std::string&, std::int32_t,
                                  const std::string&) {
  return DLGLIB_NOT_AVAILABLE;
}

[[nodiscard]] std::optional<std::vector<std::string>> Keywords() { return std::nullopt; }

[[nodiscard]] DlglibResult Remove(const EucText&) { return DLGLIB_NOT_AVAILABLE; }

[[nodiscard]] const std::vector<CwUnreadableLine>* UnreadLines() { return nullptr; }

#endif

[[nodiscard]] DlglibResult LoadSession(Encoding encoding, const char* path) noexcept {
  return Answer(encoding, [&](Call& call) {
    const SjisText file = call.Sjis(path, kPathLimit);
    return call.Refused() ? call.Result() : Load(file);
  });
}

[[nodiscard]] DlglibResult DefineFullKind(Encoding encoding, const char* keyword, const char* folder,
                                          const char* patterns, std::int32_t letterCase,
                                          const char* description) noexcept {
  return Answer(encoding, [&](Call& call) {
    const EucText name = NameOfKind(call, keyword);
    const EucText place = call.Internal(folder, kSettingLimit);
    const EucText wanted = call.Euc(patterns, kSettingLimit);
    call.Require(letterCase >= -1 && letterCase <= 1, DLGLIB_BAD_ARGUMENT);
    const EucText called = description != nullptr ? call.Euc(description, kSettingLimit) : EucText();
    if (call.Refused()) return call.Result();
    return Define(name.bytes(), place.bytes(), wanted.bytes(), letterCase, called.bytes());
  });
}

[[nodiscard]] DlglibResult RemoveKind(Encoding encoding, const char* keyword) noexcept {
  return Answer(encoding, [&](Call& call) {
    const EucText name = NameOfKind(call, keyword);
    return call.Refused() ? call.Result() : Remove(name);
  });
}

/// An element of a list by its index; null when the call is refused.
template <class Element>
[[nodiscard]] const Element* At(Call& call, const std::vector<Element>* list, std::int32_t index) {
  call.Require(list != nullptr, DLGLIB_NOT_AVAILABLE);
  const bool within = list != nullptr && index >= 0 && static_cast<std::size_t>(index) < list->size();
  call.Require(within, DLGLIB_BAD_ARGUMENT);
  return within ? &(*list)[static_cast<std::size_t>(index)] : nullptr;
}

template <class Element>
[[nodiscard]] DlglibResult CountInto(Call& call, const std::vector<Element>* list, std::int32_t* count) {
  call.Require(count != nullptr, DLGLIB_NULL_ARGUMENT);
  call.Require(list != nullptr, DLGLIB_NOT_AVAILABLE);
  if (count != nullptr && list != nullptr) *count = static_cast<std::int32_t>(list->size());
  return call.Result();
}

[[nodiscard]] std::string KeywordAt(Call& call, std::int32_t index) {
  const auto keywords = Keywords();
  const std::string* const keyword = At(call, keywords ? &*keywords : nullptr, index);
  return keyword != nullptr ? call.Wanted(EucText(*keyword)) : std::string();
}

/// The bytes of a line of UTF-8 that could not be read, for people: what is no such text keeps its ASCII only.
[[nodiscard]] SjisText Readable(std::string bytes) {
  framework::ConvertedText converted = framework::SjisFromUtf8(bytes);
  if (converted.problem == framework::TextProblem::None) return SjisText(std::move(converted.text));
  std::replace_if(
      bytes.begin(), bytes.end(), [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; }, '?');
  return SjisText(std::move(bytes));
}

[[nodiscard]] DlglibResult UnreadLine(Encoding encoding, std::int32_t index, std::int32_t* line,
                                      const Room& room) noexcept {
  return Give(encoding, room, [&](Call& call) {
    const CwUnreadableLine* const unread = At(call, UnreadLines(), index);
    if (unread == nullptr) return std::string();
    if (line != nullptr) *line = unread->line;
    return call.Wanted(Readable(unread->text));
  });
}

[[nodiscard]] DlglibResult UnreadFile(Encoding encoding, std::int32_t index, const Room& room) noexcept {
  return Give(encoding, room, [&](Call& call) {
    const CwUnreadableLine* const unread = At(call, UnreadLines(), index);
    return unread != nullptr ? call.Wanted(SjisText(unread->file)) : std::string();
  });
}

}  // namespace

DlglibResult DLGLIB_CALL DlglibDefineKindSjis(const char* keyword, const char* folder, const char* patterns) {
  return DefineKind(Encoding::Sjis, keyword, folder, patterns);
}

DlglibResult DLGLIB_CALL DlglibDefineKindUtf8(const char* keyword, const char* folder, const char* patterns) {
  return DefineKind(Encoding::Utf8, keyword, folder, patterns);
}

DlglibResult DLGLIB_CALL DlglibDefineFullKindSjis(const char* keyword, const char* folder, const char* patterns,
                                                  std::int32_t letterCase, const char* description) {
  return DefineFullKind(Encoding::Sjis, keyword, folder, patterns, letterCase, description);
}

DlglibResult DLGLIB_CALL DlglibDefineFullKindUtf8(const char* keyword, const char* folder, const char* patterns,
                                                  std::int32_t letterCase, const char* description) {
  return DefineFullKind(Encoding::Utf8, keyword, folder, patterns, letterCase, description);
}

DlglibResult DLGLIB_CALL DlglibRemoveKindSjis(const char* keyword) { return RemoveKind(Encoding::Sjis, keyword); }

DlglibResult DLGLIB_CALL DlglibRemoveKindUtf8(const char* keyword) { return RemoveKind(Encoding::Utf8, keyword); }

DlglibResult DLGLIB_CALL DlglibKindCount(std::int32_t* count) {
  return Answer([&](Call& call) {
    const auto keywords = Keywords();
    return CountInto(call, keywords ? &*keywords : nullptr, count);
  });
}

DlglibResult DLGLIB_CALL DlglibKindKeywordSjis(std::int32_t index, std::int32_t bufferSize, char* buffer,
                                               std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed}, [=](Call& call) { return KeywordAt(call, index); });
}

DlglibResult DLGLIB_CALL DlglibKindKeywordUtf8(std::int32_t index, std::int32_t bufferSize, char* buffer,
                                               std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed}, [=](Call& call) { return KeywordAt(call, index); });
}

DlglibResult DLGLIB_CALL DlglibLoadSessionSjis(const char* path) { return LoadSession(Encoding::Sjis, path); }

DlglibResult DLGLIB_CALL DlglibLoadSessionUtf8(const char* path) { return LoadSession(Encoding::Utf8, path); }

DlglibResult DLGLIB_CALL DlglibUnreadLineCount(std::int32_t* count) {
  return Answer([&](Call& call) { return CountInto(call, UnreadLines(), count); });
}

DlglibResult DLGLIB_CALL DlglibUnreadLineSjis(std::int32_t index, std::int32_t* line, std::int32_t bufferSize,
                                              char* buffer, std::int32_t* needed) {
  return UnreadLine(Encoding::Sjis, index, line, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibUnreadLineUtf8(std::int32_t index, std::int32_t* line, std::int32_t bufferSize,
                                              char* buffer, std::int32_t* needed) {
  return UnreadLine(Encoding::Utf8, index, line, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibUnreadLineFileSjis(std::int32_t index, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return UnreadFile(Encoding::Sjis, index, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibUnreadLineFileUtf8(std::int32_t index, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return UnreadFile(Encoding::Utf8, index, {bufferSize, buffer, needed});
}
