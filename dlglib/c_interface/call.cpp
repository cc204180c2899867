#include "dlglib/c_interface/call.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "dlglib/base/encoder.h"

namespace c_interface {

void Call::Require(bool holds, DlglibResult otherwise) noexcept {
  if (!holds && !Refused()) result_ = otherwise;
}

std::string Call::Bytes(const char* text, std::size_t limit) {
  Require(text != nullptr, DLGLIB_NULL_ARGUMENT);
  if (Refused()) return {};
  const void* end = std::memchr(text, '\0', limit + 1);
  Require(end != nullptr, DLGLIB_TOO_LONG);
  return end != nullptr ? std::string(text, static_cast<const char*>(end)) : std::string();
}

std::string Call::Converted(framework::ConvertedText converted) {
  Require(converted.problem != framework::TextProblem::BadEncoding, DLGLIB_BAD_ENCODING);
  Require(converted.problem != framework::TextProblem::NoSuchCharacter, DLGLIB_NO_SUCH_CHARACTER);
  return std::move(converted.text);
}

SjisText Call::Sjis(const char* text, std::size_t limit) {
  if (encoding_ == Encoding::Sjis) return SjisText(Bytes(text, limit));
  constexpr std::size_t kMostUtf8 = 3;  // bytes for one of Shift_JIS
  const std::string utf8 = Bytes(text, std::min(kMostUtf8 * limit, kLongTextLimit));
  std::string sjis = Converted(framework::SjisFromUtf8(utf8));
  Require(sjis.size() <= limit, DLGLIB_TOO_LONG);
  return SjisText(std::move(sjis));
}

EucText Call::Euc(const char* text, std::size_t limit) {
  EucText euc = encoder::ToEuc(Sjis(text, limit));
  Require(euc.size() <= limit, DLGLIB_TOO_LONG);
  return euc;
}

EucText Call::Keyword(const char* keyword) { return keyword != nullptr ? Euc(keyword, kKeywordLimit) : EucText(); }

EucText Call::Internal(const char* path, std::size_t limit) {
  std::string euc = Euc(path, limit).bytes();
  std::replace(euc.begin(), euc.end(), '\\', '/');
  return EucText(std::move(euc));
}

SjisText Call::Path(const char* path) {
  SjisText sjis = Sjis(path, kPathLimit);
  Require(encoder::ToEuc(sjis).size() <= kPathLimit, DLGLIB_TOO_LONG);
  return sjis;
}

HWND Call::OwnWindow(void* window) noexcept {
  const auto given = static_cast<HWND>(window);
  if (given == nullptr) return nullptr;
  Require(::IsWindow(given) != FALSE, DLGLIB_BAD_ARGUMENT);
  Require(::GetWindowThreadProcessId(given, nullptr) == ::GetCurrentThreadId(), DLGLIB_WRONG_THREAD);
  return Refused() ? nullptr : given;
}

std::string Call::Wanted(const SjisText& sjis) {
  return encoding_ == Encoding::Sjis ? sjis.bytes() : Converted(framework::Utf8FromSjis(sjis.bytes()));
}

std::string Call::Wanted(const EucText& euc) { return Wanted(encoder::ToSjis(euc)); }

DlglibResult CheckRoom(const Room& room) noexcept {
  if (room.size < 0) return DLGLIB_BAD_ARGUMENT;
  const bool asksOnly = room.size == 0;
  return (asksOnly ? room.needed == nullptr : room.buffer == nullptr) ? DLGLIB_NULL_ARGUMENT : DLGLIB_OK;
}

DlglibResult Fill(const Room& room, DlglibResult result, const std::string& text) noexcept {
  if (room.needed != nullptr) *room.needed = result == DLGLIB_OK ? static_cast<std::int32_t>(text.size() + 1) : 0;
  if (room.size == 0) return result;
  const auto size = static_cast<std::size_t>(room.size);
  const bool fits = result == DLGLIB_OK && text.size() < size;
  room.buffer[fits ? text.copy(room.buffer, text.size()) : 0] = '\0';
  return result == DLGLIB_OK && !fits ? DLGLIB_TOO_SMALL : result;
}

}  // namespace c_interface
