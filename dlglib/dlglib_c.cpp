#include "dlglib/dlglib_c.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dlglib/base/bounded_text.h"
#include "dlglib/base/edge.h"
#include "dlglib/base/encoder.h"
#include "dlglib/base/keyword_class.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/base/stored_text.h"
#include "dlglib/base/suite_kinds.h"
#include "dlglib/filsel/CvRequestWindows.h"
#include "dlglib/filsel/file_request.h"
#include "dlglib/filsel/raster_memory.h"
#include "dlglib/filsel/request_names.h"
#include "dlglib/utility/CvFileMessages.h"
#include "dlglib/utility/rules/char_class.h"
#include "dlglib/utility/rules/file_lookup.h"
#include "dlglib/utility/rules/file_name_check.h"
#include "dlglib/utility/rules/number_text.h"
#include "dlglib/utility/rules/path_name.h"
#include "platform/framework/detail/slim_lock.h"
#include "platform/framework/detail/utf8.h"
#include "platform/framework/message_box.h"
#include "platform/framework/wnd.h"
#include "platform/os/os.h"
#include "platform/suite/crvncontrol.h"

namespace {

constexpr std::size_t kKeywordLimit = 255;
constexpr std::size_t kSettingLimit = filsel::kTextLimit;
constexpr std::size_t kPathLimit = path_name::kMaxLength;
constexpr std::size_t kTextLimit = DLGLIB_TEXT_LIMIT;
constexpr std::size_t kLongTextLimit = DLGLIB_LONG_TEXT_LIMIT;

// Whatever these two lengthen a text by fits their own limits, so that nothing is ever cut: an escape has up to four
// bytes for one, half-width katakana two for one.
static_assert(4 * kTextLimit <= stored_text::kEscapedLimit && 2 * kTextLimit <= stored_text::kStoredLimit);

/// Thrown on this side only; becomes the function's result.
struct Problem {
  DlglibResult result;
};

void Require(bool holds, DlglibResult otherwise) {
  if (!holds) throw Problem{otherwise};
}

/// What a function answers, whatever it throws.
template <class Work>
[[nodiscard]] DlglibResult Guard(const Work& work) noexcept {
  return edge::Guarded(DlglibResult{DLGLIB_FAILED}, [&] {
    try {
      return DlglibResult{work()};
    } catch (const Problem& problem) {
      return problem.result;
    } catch (const std::bad_alloc&) {
      return DlglibResult{DLGLIB_OUT_OF_MEMORY};
    }
  });
}

[[nodiscard]] DlglibResult Verdict(bool acceptable) noexcept { return acceptable ? DLGLIB_OK : DLGLIB_REFUSED; }

// ---- texts that are given

enum class Encoding { Sjis, Utf8 };

[[nodiscard]] std::string Bytes(const char* text, std::size_t limit) {
  Require(text != nullptr, DLGLIB_NULL_ARGUMENT);
  const void* end = std::memchr(text, '\0', limit + 1);
  Require(end != nullptr, DLGLIB_TOO_LONG);
  return {text, static_cast<const char*>(end)};
}

[[nodiscard]] std::string Unproblematic(framework::ConvertedText converted) {
  Require(converted.problem != framework::TextProblem::BadEncoding, DLGLIB_BAD_ENCODING);
  Require(converted.problem != framework::TextProblem::NoSuchCharacter, DLGLIB_NO_SUCH_CHARACTER);
  return std::move(converted.text);
}

/// A caller's text in Shift_JIS, where it has `limit` bytes at most.
[[nodiscard]] SjisText GivenSjis(Encoding encoding, const char* text, std::size_t limit) {
  if (encoding == Encoding::Sjis) return SjisText(Bytes(text, limit));
  constexpr std::size_t kMostUtf8 = 3;  // bytes for one of Shift_JIS
  std::string sjis = Unproblematic(framework::SjisFromUtf8(Bytes(text, std::min(kMostUtf8 * limit, kLongTextLimit))));
  Require(sjis.size() <= limit, DLGLIB_TOO_LONG);
  return SjisText(std::move(sjis));
}

/// A caller's text in EUC-JP, where it has `limit` bytes at most.
[[nodiscard]] EucText GivenEuc(Encoding encoding, const char* text, std::size_t limit) {
  EucText euc = encoder::ToEuc(GivenSjis(encoding, text, limit));
  Require(euc.size() <= limit, DLGLIB_TOO_LONG);
  return euc;
}

/// The keyword of a kind; null is none.
[[nodiscard]] EucText KeywordOf(Encoding encoding, const char* keyword) {
  return keyword != nullptr ? GivenEuc(encoding, keyword, kKeywordLimit) : EucText();
}

/// A caller's path in the suite's form.
[[nodiscard]] EucText InternalOf(Encoding encoding, const char* path, std::size_t limit) {
  std::string euc = GivenEuc(encoding, path, limit).bytes();
  std::replace(euc.begin(), euc.end(), '\\', '/');
  return EucText(std::move(euc));
}

/// A caller's path in Shift_JIS, which the library is able to hold in EUC-JP as well.
[[nodiscard]] SjisText PathOf(Encoding encoding, const char* path) {
  SjisText sjis = GivenSjis(encoding, path, kPathLimit);
  Require(encoder::ToEuc(sjis).size() <= kPathLimit, DLGLIB_TOO_LONG);
  return sjis;
}

// ---- texts that are asked for

struct Room {
  std::int32_t size;
  char* buffer;
  std::int32_t* needed;
};

[[nodiscard]] DlglibResult CheckRoom(const Room& room) noexcept {
  if (room.size < 0) return DLGLIB_BAD_ARGUMENT;
  const bool asksOnly = room.size == 0;
  return (asksOnly ? room.needed == nullptr : room.buffer == nullptr) ? DLGLIB_NULL_ARGUMENT : DLGLIB_OK;
}

[[nodiscard]] DlglibResult Fill(const Room& room, DlglibResult result, const std::string& text) noexcept {
  if (room.needed != nullptr) *room.needed = result == DLGLIB_OK ? static_cast<std::int32_t>(text.size() + 1) : 0;
  if (room.size == 0) return result;
  const auto size = static_cast<std::size_t>(room.size);
  const bool fits = result == DLGLIB_OK && text.size() < size;
  room.buffer[fits ? text.copy(room.buffer, text.size()) : 0] = '\0';
  return result == DLGLIB_OK && !fits ? DLGLIB_TOO_SMALL : result;
}

/// Writes the text that `make` gives. It is made first, so the buffer may be a text that was given.
template <class Make>
[[nodiscard]] DlglibResult Give(const Room& room, const Make& make) noexcept {
  if (const DlglibResult bad = CheckRoom(room); bad != DLGLIB_OK) return bad;
  std::string text;
  const DlglibResult result = Guard([&] {
    text = make();
    return DLGLIB_OK;
  });
  return Fill(room, result, text);
}

/// A text as the caller wants it.
[[nodiscard]] std::string Wanted(Encoding encoding, const SjisText& sjis) {
  return encoding == Encoding::Sjis ? sjis.bytes() : Unproblematic(framework::Utf8FromSjis(sjis.bytes()));
}

[[nodiscard]] std::string Wanted(Encoding encoding, const EucText& euc) {
  return Wanted(encoding, encoder::ToSjis(euc));
}

// ---- requests

struct Settings {
  EucText keyword;
  std::optional<EucText> caption;  // none: the library's own
  EucText initialName;
  EucText listFile;
  int mode = DLGLIB_OPEN_FILE;
  bool several = false;
  bool fixedFolder = false;
  HWND owner = nullptr;
};

struct Request {
  Settings settings;
  std::vector<filsel::ChosenFile> files;
  std::atomic<bool> running = false;
};

/// The requests that are alive. A handle is a number that is never given away twice, so that a stale one is noticed.
class Requests {
 public:
  [[nodiscard]] static Requests& All() {
    static Requests requests;
    return requests;
  }

  [[nodiscard]] DlglibFileRequest Add() {
    const std::lock_guard lock(lock_);
    auto request = std::make_shared<Request>();
    requests_.emplace(++last_, std::move(request));
    return reinterpret_cast<DlglibFileRequest>(last_);
  }

  [[nodiscard]] std::shared_ptr<Request> Find(DlglibFileRequest handle) {
    const std::lock_guard lock(lock_);
    return FindLocked(handle)->second;
  }

  void Remove(DlglibFileRequest handle) {
    const std::lock_guard lock(lock_);
    const auto found = FindLocked(handle);
    Require(!found->second->running, DLGLIB_BUSY);
    requests_.erase(found);
  }

  void SetRunning(Request& request, bool running) {
    const std::lock_guard lock(lock_);
    Require(!running || !request.running, DLGLIB_BUSY);
    request.running = running;
  }

 private:
  using Map = std::map<std::uintptr_t, std::shared_ptr<Request>>;

  [[nodiscard]] Map::iterator FindLocked(DlglibFileRequest handle) {
    const auto found = requests_.find(reinterpret_cast<std::uintptr_t>(handle));
    Require(found != requests_.end(), DLGLIB_BAD_HANDLE);
    return found;
  }

  framework::SlimLock lock_;
  Map requests_;
  std::uintptr_t last_ = 0;
};

/// Marks a request as running as long as it lives.
class Running {
 public:
  explicit Running(Request& request) : request_(request) { Requests::All().SetRunning(request_, true); }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() { Requests::All().SetRunning(request_, false); }

 private:
  Request& request_;
};

/// Changes one setting of a request that is not running.
template <class Change>
[[nodiscard]] DlglibResult Set(DlglibFileRequest handle, const Change& change) noexcept {
  return Guard([&] {
    const std::shared_ptr<Request> request = Requests::All().Find(handle);
    Require(!request->running, DLGLIB_BUSY);
    change(request->settings);
    return DLGLIB_OK;
  });
}

[[nodiscard]] HWND OwnerOf(void* owner) {
  const auto window = static_cast<HWND>(owner);
  Require(window == nullptr || ::IsWindow(window) != FALSE, DLGLIB_BAD_ARGUMENT);
  return window;
}

[[nodiscard]] DlglibResult RunRequest(Request& request) {
  const Settings& settings = request.settings;
  const auto caption = settings.caption ? std::optional(EucView(*settings.caption)) : std::nullopt;
  const auto mode = settings.several ? filsel::RequestMode::FileList : filsel::RequestMode::OneFile;
  CWnd* owner = CWnd::FromHandle(OwnerOf(settings.owner));
  filsel::FileRequest run({caption, settings.keyword, settings.initialName, settings.listFile}, mode, settings.mode,
                          os::Services(), *CwSession::GetInstance());
  CvRequestWindows windows(owner, run.caption());
  const int answer = run.Run(settings.fixedFolder ? 1 : 0, windows, filsel::RasterMemory::OfProcess());
  request.files = answer == filsel::kAccepted ? run.Chosen() : std::vector<filsel::ChosenFile>();
  return answer == filsel::kAccepted ? DLGLIB_OK : DLGLIB_CANCELLED;
}

[[nodiscard]] DlglibResult SetKind(Encoding encoding, DlglibFileRequest request, const char* keyword) noexcept {
  return Set(request, [&](Settings& settings) { settings.keyword = KeywordOf(encoding, keyword); });
}

[[nodiscard]] DlglibResult SetCaption(Encoding encoding, DlglibFileRequest request, const char* caption) noexcept {
  return Set(request, [&](Settings& settings) {
    if (caption == nullptr) return settings.caption.reset();
    settings.caption = encoder::ToEuc(GivenSjis(encoding, caption, kSettingLimit));
  });
}

[[nodiscard]] DlglibResult SetInitialName(Encoding encoding, DlglibFileRequest request, const char* name) noexcept {
  return Set(request, [&](Settings& settings) {
    settings.initialName = name != nullptr ? InternalOf(encoding, name, kSettingLimit) : EucText();
  });
}

[[nodiscard]] DlglibResult SetListFile(Encoding encoding, DlglibFileRequest request, const char* path) noexcept {
  return Set(request, [&](Settings& settings) {
    settings.listFile = path != nullptr ? InternalOf(encoding, path, kSettingLimit) : EucText();
  });
}

[[nodiscard]] std::string NameOf(Encoding encoding, const Request& request, int index, int form) {
  Require(index >= 0 && static_cast<std::size_t>(index) < request.files.size(), DLGLIB_BAD_ARGUMENT);
  const filsel::ChosenFile& file = request.files[static_cast<std::size_t>(index)];
  if (form == DLGLIB_FORM_REAL) return Wanted(encoding, file.real);
  if (form == DLGLIB_FORM_INTERNAL) return Wanted(encoding, file.internal);
  Require(form == DLGLIB_FORM_SHORT, DLGLIB_BAD_ARGUMENT);
  return Wanted(encoding, file.shortName);
}

// ---- the functions, whatever their encoding

[[nodiscard]] const char* MeaningOf(DlglibResult result) noexcept {
  switch (result) {
    case DLGLIB_OK:
      return "正常に終了しました。";
    case DLGLIB_CANCELLED:
      return "取り消されました。";
    case DLGLIB_REFUSED:
      return "使用できない値です。";
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
    default:
      return "不明な結果です。";
  }
}

[[nodiscard]] DlglibResult DefineKind(Encoding encoding, const char* keyword, const char* folder,
                                      const char* patterns) noexcept {
  return Guard([&] {
    const EucText name = GivenEuc(encoding, keyword, kKeywordLimit);
    Require(!name.empty(), DLGLIB_BAD_ARGUMENT);
    const CwFileType kind(name.bytes(), InternalOf(encoding, folder, kSettingLimit).bytes(),
                          GivenEuc(encoding, patterns, kSettingLimit).bytes(), 0);
    return CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(kind) ? DLGLIB_OK : DLGLIB_FAILED;
  });
}

[[nodiscard]] DlglibResult LoadSession(Encoding encoding, const char* path) noexcept {
  return Guard([&] {
    const SjisText file = GivenSjis(encoding, path, kPathLimit);
#if DLGLIB_EMBEDDED_SUITE
    return CwSession::LoadFile(file.bytes()) ? DLGLIB_OK : DLGLIB_FAILED;
#else
    return DLGLIB_NOT_AVAILABLE;
#endif
  });
}

[[nodiscard]] EucText ShortName(const EucText& keyword, const EucText& name) {
  const EucText full = filsel::FullName(keyword, name, filsel::FullNameUse::ShortName);
  return filsel::WithoutDefaults(keyword, full.empty() ? name : full, *os::Services().files);
}

[[nodiscard]] DlglibResult CheckFileName(Encoding encoding, const char* name, std::int32_t wildcards) noexcept {
  using file_name_check::Wildcards;
  return Guard([&] {
    return Verdict(file_name_check::IsFileName(GivenSjis(encoding, name, kLongTextLimit).bytes(),
                                               wildcards != 0 ? Wildcards::Allowed : Wildcards::Forbidden));
  });
}

/// The real path of a caller's path, whose encoding is known.
[[nodiscard]] SjisText RealOf(Encoding encoding, const char* keyword, const char* path) {
  const EucText kind = KeywordOf(encoding, keyword);
  return path_name::RealOfSjis(kind, PathOf(encoding, path));
}

[[nodiscard]] DlglibResult CheckExists(Encoding encoding, const char* keyword, const char* path) noexcept {
  return Guard([&] { return Verdict(os::Services().files->Exists(RealOf(encoding, keyword, path).bytes())); });
}

/// Message boxes for a window of the caller's, whose title they bear; for none, without one. The utility's own checks
/// are not asked: they do not tell a refusal from want of memory.
class OwnersBoxes {
 public:
  explicit OwnersBoxes(void* owner) : owner_(OwnerOf(owner)) {
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
  return Guard([&] {
    const SjisText text = PathOf(encoding, name);
    const OwnersBoxes boxes(owner);
    if (text.empty()) {
      boxes.Warn(file_name_check::kNoName, MB_ICONHAND);
      return DlglibResult{DLGLIB_REFUSED};
    }
    const bool acceptable = file_name_check::IsFileName(text.bytes(), file_name_check::Wildcards::Allowed);
    if (!acceptable) boxes.Show(file_name_check::kInvalidCharacters, MB_ICONHAND);
    return Verdict(acceptable);
  });
}

[[nodiscard]] DlglibResult AskInputFile(Encoding encoding, void* owner, const char* keyword,
                                        const char* name) noexcept {
  return Guard([&] {
    const SjisText path = RealOf(encoding, keyword, name);
    const OwnersBoxes boxes(owner);
    const bool exists = os::Services().files->Exists(path.bytes());
    if (!exists) boxes.OfFiles().TellInputMissing(path);
    return Verdict(exists);
  });
}

[[nodiscard]] DlglibResult AskOutputFile(Encoding encoding, void* owner, const char* keyword,
                                         const char* name) noexcept {
  return Guard([&] {
    const SjisText path = RealOf(encoding, keyword, name);
    const OwnersBoxes boxes(owner);
    const file_lookup::Output output = file_lookup::ChooseOutput({path}, *os::Services().files);
    return Verdict(boxes.OfFiles().MayWrite(output));
  });
}

/// Between the stored form and the one on the screen.
[[nodiscard]] std::string ScreenOf(Encoding encoding, const char* stored) {
  const EucText given(Bytes(stored, kTextLimit));
  return Wanted(encoding, stored_text::ToScreen(given, stored_text::kEscapedLimit));
}

[[nodiscard]] std::string StoredOf(Encoding encoding, const char* screen) {
  return stored_text::ToStored(GivenSjis(encoding, screen, kTextLimit), stored_text::kStoredLimit).bytes();
}

[[nodiscard]] unsigned int CodeAt(std::string_view sjis, std::size_t at) noexcept {
  const auto first = static_cast<unsigned char>(sjis[at]);
  if (shift_jis::CharLength(sjis, at) == 1) return first;
  return first * 0x100U + static_cast<unsigned char>(sjis[at + 1]);
}

[[nodiscard]] DlglibResult CheckText(Encoding encoding, std::uint32_t mask, const char* text) noexcept {
  return Guard([&] {
    const std::string sjis = GivenSjis(encoding, text, kLongTextLimit).bytes();
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
  return Give({bufferSize, buffer, needed}, [] { return std::string(DLGLIB_VERSION_TEXT); });
}

DlglibResult DLGLIB_CALL DlglibResultTextSjis(DlglibResult result, std::int32_t bufferSize, char* buffer,
                                              std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] { return Wanted(Encoding::Sjis, SjisText(MeaningOf(result))); });
}

DlglibResult DLGLIB_CALL DlglibResultTextUtf8(DlglibResult result, std::int32_t bufferSize, char* buffer,
                                              std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] { return Wanted(Encoding::Utf8, SjisText(MeaningOf(result))); });
}

// ---- file kinds

DlglibResult DLGLIB_CALL DlglibDefineKindSjis(const char* keyword, const char* folder, const char* patterns) {
  return DefineKind(Encoding::Sjis, keyword, folder, patterns);
}

DlglibResult DLGLIB_CALL DlglibDefineKindUtf8(const char* keyword, const char* folder, const char* patterns) {
  return DefineKind(Encoding::Utf8, keyword, folder, patterns);
}

DlglibResult DLGLIB_CALL DlglibLoadSessionSjis(const char* path) { return LoadSession(Encoding::Sjis, path); }

DlglibResult DLGLIB_CALL DlglibLoadSessionUtf8(const char* path) { return LoadSession(Encoding::Utf8, path); }

// ---- the request for files

DlglibResult DLGLIB_CALL DlglibFileRequestCreate(DlglibFileRequest* request) {
  return Guard([&] {
    Require(request != nullptr, DLGLIB_NULL_ARGUMENT);
    *request = Requests::All().Add();
    return DLGLIB_OK;
  });
}

DlglibResult DLGLIB_CALL DlglibFileRequestDestroy(DlglibFileRequest request) {
  return Guard([&] {
    Requests::All().Remove(request);
    return DLGLIB_OK;
  });
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetKindSjis(DlglibFileRequest request, const char* keyword) {
  return SetKind(Encoding::Sjis, request, keyword);
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetKindUtf8(DlglibFileRequest request, const char* keyword) {
  return SetKind(Encoding::Utf8, request, keyword);
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetCaptionSjis(DlglibFileRequest request, const char* caption) {
  return SetCaption(Encoding::Sjis, request, caption);
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetCaptionUtf8(DlglibFileRequest request, const char* caption) {
  return SetCaption(Encoding::Utf8, request, caption);
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetInitialNameSjis(DlglibFileRequest request, const char* name) {
  return SetInitialName(Encoding::Sjis, request, name);
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetInitialNameUtf8(DlglibFileRequest request, const char* name) {
  return SetInitialName(Encoding::Utf8, request, name);
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetListFileSjis(DlglibFileRequest request, const char* path) {
  return SetListFile(Encoding::Sjis, request, path);
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetListFileUtf8(DlglibFileRequest request, const char* path) {
  return SetListFile(Encoding::Utf8, request, path);
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetMode(DlglibFileRequest request, std::int32_t mode) {
  return Set(request, [&](Settings& settings) {
    Require(mode >= DLGLIB_OPEN_FILE && mode <= DLGLIB_NAME_FILE, DLGLIB_BAD_ARGUMENT);
    settings.mode = mode;
  });
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetSeveralFiles(DlglibFileRequest request, std::int32_t several) {
  return Set(request, [&](Settings& settings) { settings.several = several != 0; });
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetFixedFolder(DlglibFileRequest request, std::int32_t fixed) {
  return Set(request, [&](Settings& settings) { settings.fixedFolder = fixed != 0; });
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetOwner(DlglibFileRequest request, void* owner) {
  return Set(request, [&](Settings& settings) { settings.owner = OwnerOf(owner); });
}

DlglibResult DLGLIB_CALL DlglibFileRequestRun(DlglibFileRequest request) {
  return Guard([&] {
    const std::shared_ptr<Request> found = Requests::All().Find(request);
    const Running running(*found);
    return RunRequest(*found);
  });
}

DlglibResult DLGLIB_CALL DlglibFileRequestCount(DlglibFileRequest request, std::int32_t* count) {
  return Guard([&] {
    const std::shared_ptr<Request> found = Requests::All().Find(request);
    Require(count != nullptr, DLGLIB_NULL_ARGUMENT);
    *count = static_cast<std::int32_t>(found->files.size());
    return DLGLIB_OK;
  });
}

DlglibResult DLGLIB_CALL DlglibFileRequestNameSjis(DlglibFileRequest request, std::int32_t index, std::int32_t form,
                                                   std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed},
              [=] { return NameOf(Encoding::Sjis, *Requests::All().Find(request), index, form); });
}

DlglibResult DLGLIB_CALL DlglibFileRequestNameUtf8(DlglibFileRequest request, std::int32_t index, std::int32_t form,
                                                   std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed},
              [=] { return NameOf(Encoding::Utf8, *Requests::All().Find(request), index, form); });
}

// ---- encodings

DlglibResult DLGLIB_CALL DlglibSjisToEuc(const char* sjis, std::int32_t bufferSize, char* buffer,
                                         std::int32_t* needed) {
  return Give({bufferSize, buffer, needed},
              [=] { return encoder::ToEuc(SjisText(Bytes(sjis, kLongTextLimit))).bytes(); });
}

DlglibResult DLGLIB_CALL DlglibEucToSjis(const char* euc, std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed},
              [=] { return Wanted(Encoding::Sjis, EucText(Bytes(euc, kLongTextLimit))); });
}

DlglibResult DLGLIB_CALL DlglibUtf8ToSjis(const char* utf8, std::int32_t bufferSize, char* buffer,
                                          std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] { return GivenSjis(Encoding::Utf8, utf8, kLongTextLimit).bytes(); });
}

DlglibResult DLGLIB_CALL DlglibSjisToUtf8(const char* sjis, std::int32_t bufferSize, char* buffer,
                                          std::int32_t* needed) {
  return Give({bufferSize, buffer, needed},
              [=] { return Wanted(Encoding::Utf8, SjisText(Bytes(sjis, kLongTextLimit))); });
}

DlglibResult DLGLIB_CALL DlglibUtf8ToEuc(const char* utf8, std::int32_t bufferSize, char* buffer,
                                         std::int32_t* needed) {
  return Give({bufferSize, buffer, needed},
              [=] { return encoder::ToEuc(GivenSjis(Encoding::Utf8, utf8, kLongTextLimit)).bytes(); });
}

DlglibResult DLGLIB_CALL DlglibEucToUtf8(const char* euc, std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed},
              [=] { return Wanted(Encoding::Utf8, EucText(Bytes(euc, kLongTextLimit))); });
}

DlglibResult DLGLIB_CALL DlglibStoredToScreenSjis(const char* stored, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] { return ScreenOf(Encoding::Sjis, stored); });
}

DlglibResult DLGLIB_CALL DlglibStoredToScreenUtf8(const char* stored, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] { return ScreenOf(Encoding::Utf8, stored); });
}

DlglibResult DLGLIB_CALL DlglibScreenToStoredSjis(const char* screen, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] { return StoredOf(Encoding::Sjis, screen); });
}

DlglibResult DLGLIB_CALL DlglibScreenToStoredUtf8(const char* screen, std::int32_t bufferSize, char* buffer,
                                                  std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] { return StoredOf(Encoding::Utf8, screen); });
}

// ---- paths

DlglibResult DLGLIB_CALL DlglibRealPathSjis(const char* keyword, const char* path, std::int32_t bufferSize,
                                            char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed},
              [=] { return Wanted(Encoding::Sjis, RealOf(Encoding::Sjis, keyword, path)); });
}

DlglibResult DLGLIB_CALL DlglibRealPathUtf8(const char* keyword, const char* path, std::int32_t bufferSize,
                                            char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed},
              [=] { return Wanted(Encoding::Utf8, RealOf(Encoding::Utf8, keyword, path)); });
}

DlglibResult DLGLIB_CALL DlglibInternalPathSjis(const char* keyword, const char* path, std::int32_t bufferSize,
                                                char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] {
    return Wanted(Encoding::Sjis,
                  path_name::Internal(KeywordOf(Encoding::Sjis, keyword), PathOf(Encoding::Sjis, path)));
  });
}

DlglibResult DLGLIB_CALL DlglibInternalPathUtf8(const char* keyword, const char* path, std::int32_t bufferSize,
                                                char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] {
    return Wanted(Encoding::Utf8,
                  path_name::Internal(KeywordOf(Encoding::Utf8, keyword), PathOf(Encoding::Utf8, path)));
  });
}

DlglibResult DLGLIB_CALL DlglibShortNameSjis(const char* keyword, const char* path, std::int32_t bufferSize,
                                             char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] {
    return Wanted(Encoding::Sjis,
                  ShortName(KeywordOf(Encoding::Sjis, keyword), InternalOf(Encoding::Sjis, path, kPathLimit)));
  });
}

DlglibResult DLGLIB_CALL DlglibShortNameUtf8(const char* keyword, const char* path, std::int32_t bufferSize,
                                             char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] {
    return Wanted(Encoding::Utf8,
                  ShortName(KeywordOf(Encoding::Utf8, keyword), InternalOf(Encoding::Utf8, path, kPathLimit)));
  });
}

DlglibResult DLGLIB_CALL DlglibKindLetterCase(const char* keyword, std::int32_t* letterCase) {
  return Guard([&] {
    Require(letterCase != nullptr, DLGLIB_NULL_ARGUMENT);
    const std::string given = Bytes(keyword, kKeywordLimit);
    const EucText name(EucView(keyword_class::Extract(given)));
    *letterCase = suite_kinds::LetterCaseOf(suite_kinds::Find(*CwSession::GetInstance()->GetActiveFileTypeSet(), name));
    return DLGLIB_OK;
  });
}

// ---- checks

DlglibResult DLGLIB_CALL DlglibCheckModelNameSjis(const char* name) {
  return Guard(
      [&] { return Verdict(file_name_check::IsModelName(GivenSjis(Encoding::Sjis, name, kLongTextLimit).bytes())); });
}

DlglibResult DLGLIB_CALL DlglibCheckModelNameUtf8(const char* name) {
  return Guard(
      [&] { return Verdict(file_name_check::IsModelName(GivenSjis(Encoding::Utf8, name, kLongTextLimit).bytes())); });
}

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
  return Guard([&] {
    Require(mode >= DLGLIB_UNSIGNED_INTEGER, DLGLIB_BAD_ARGUMENT);
    return Verdict(number_text::CheckNumber(Bytes(text, kLongTextLimit), mode, minimum, maximum));
  });
}

DlglibResult DLGLIB_CALL DlglibCheckScale(const char* text, double* scale) {
  if (scale != nullptr) *scale = 0;
  return Guard([&] {
    const std::string typed = Bytes(text, kLongTextLimit);
    const std::optional<double> value = number_text::ParseScale(typed).value;
    if (scale != nullptr) *scale = value.value_or(0);
    return Verdict(value.has_value());
  });
}

DlglibResult DLGLIB_CALL DlglibScaleText(double scale, std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] { return number_text::ScaleText(scale); });
}

DlglibResult DLGLIB_CALL DlglibDecimalText(double value, std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give({bufferSize, buffer, needed}, [=] { return number_text::DecimalText(value); });
}
