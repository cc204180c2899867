// The request for files, for programs of any language.
#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/base/encoder.h"
#include "dlglib/c_interface/call.h"
#include "dlglib/c_interface/handles.h"
#include "dlglib/filsel/CvRequestWindows.h"
#include "dlglib/filsel/file_request.h"
#include "dlglib/filsel/raster_memory.h"
#include "dlglib/filsel/request_names.h"
#include "platform/framework/wnd.h"
#include "platform/os/os.h"
#include "platform/suite/crvncontrol.h"

namespace {

using c_interface::Answer;
using c_interface::Call;
using c_interface::Encoding;
using c_interface::Give;
using c_interface::kSettingLimit;

static_assert(kSettingLimit == filsel::kTextLimit);

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
  const DWORD thread = ::GetCurrentThreadId();
  std::atomic<bool> running = false;
};

using Requests = c_interface::Handles<DlglibFileRequest, Request>;
using Found = std::shared_ptr<Request>;

/// The request of a handle, on its own thread; null when the call is refused.
[[nodiscard]] Found FindOwn(Call& call, DlglibFileRequest handle) {
  Found request = Requests::All().Find(handle);
  call.Require(request != nullptr, DLGLIB_BAD_HANDLE);
  if (request == nullptr) return nullptr;
  call.Require(request->thread == ::GetCurrentThreadId(), DLGLIB_WRONG_THREAD);
  return call.Refused() ? nullptr : request;
}

/// The same of one that is not running, which another thread is told first.
[[nodiscard]] Found FindIdle(Call& call, DlglibFileRequest handle) {
  const Found request = Requests::All().Find(handle);
  call.Require(request == nullptr || !request->running, DLGLIB_BUSY);
  return call.Refused() ? nullptr : FindOwn(call, handle);
}

/// Changes one setting of a request that is not running. `change` makes the new value before it looks whether it was
/// refused, so that a setting stays whole.
template <class Change>
[[nodiscard]] DlglibResult Set(Encoding encoding, DlglibFileRequest handle, const Change& change) noexcept {
  return Answer(encoding, [&](Call& call) {
    const Found request = FindIdle(call, handle);
    if (request == nullptr) return call.Result();
    Settings changed = request->settings;
    change(call, changed);
    if (!call.Refused()) request->settings = std::move(changed);
    return call.Result();
  });
}

template <class Change>
[[nodiscard]] DlglibResult Set(DlglibFileRequest handle, const Change& change) noexcept {
  return Set(Encoding::Sjis, handle, change);
}

[[nodiscard]] DlglibResult ResultOf(int answer) noexcept {
  switch (answer) {
    case filsel::kAccepted:
      return DLGLIB_OK;
    case filsel::kNoBrowser:
      return DLGLIB_NO_BROWSER;
    case filsel::kListNotWritten:
      return DLGLIB_NOT_WRITTEN;
    default:
      return DLGLIB_CANCELLED;
  }
}

[[nodiscard]] DlglibResult RunOver(CWnd* owner, Request& request) {
  const Settings& settings = request.settings;
  const auto caption = settings.caption ? std::optional(EucView(*settings.caption)) : std::nullopt;
  const auto mode = settings.several ? filsel::RequestMode::FileList : filsel::RequestMode::OneFile;
  filsel::FileRequest run({caption, settings.keyword, settings.initialName, settings.listFile}, mode, settings.mode,
                          os::Services(), *CwSession::GetInstance());
  CvRequestWindows windows(owner, run.caption());
  const int answer = run.Run(settings.fixedFolder ? 1 : 0, windows, filsel::RasterMemory::OfProcess());
  request.files = answer == filsel::kAccepted ? run.Chosen() : std::vector<filsel::ChosenFile>();
  return ResultOf(answer);
}

[[nodiscard]] DlglibResult SetKind(Encoding encoding, DlglibFileRequest request, const char* keyword) noexcept {
  return Set(encoding, request, [&](Call& call, Settings& settings) { settings.keyword = call.Keyword(keyword); });
}

[[nodiscard]] DlglibResult SetCaption(Encoding encoding, DlglibFileRequest request, const char* caption) noexcept {
  return Set(encoding, request, [&](Call& call, Settings& settings) {
    if (caption == nullptr) return settings.caption.reset();
    settings.caption = encoder::ToEuc(call.Sjis(caption, kSettingLimit));
  });
}

[[nodiscard]] DlglibResult SetInitialName(Encoding encoding, DlglibFileRequest request, const char* name) noexcept {
  return Set(encoding, request, [&](Call& call, Settings& settings) {
    settings.initialName = name != nullptr ? call.Internal(name, kSettingLimit) : EucText();
  });
}

[[nodiscard]] DlglibResult SetListFile(Encoding encoding, DlglibFileRequest request, const char* path) noexcept {
  return Set(encoding, request, [&](Call& call, Settings& settings) {
    settings.listFile = path != nullptr ? call.Internal(path, kSettingLimit) : EucText();
  });
}

[[nodiscard]] std::string FormOf(Call& call, const filsel::ChosenFile& file, int form) {
  if (form == DLGLIB_FORM_REAL) return call.Wanted(file.real);
  if (form == DLGLIB_FORM_INTERNAL) return call.Wanted(file.internal);
  call.Require(form == DLGLIB_FORM_SHORT, DLGLIB_BAD_ARGUMENT);
  return call.Wanted(file.shortName);
}

[[nodiscard]] std::string NameOf(Call& call, DlglibFileRequest handle, int index, int form) {
  const Found request = FindOwn(call, handle);
  if (request == nullptr) return {};
  call.Require(index >= 0 && static_cast<std::size_t>(index) < request->files.size(), DLGLIB_BAD_ARGUMENT);
  return call.Refused() ? std::string() : FormOf(call, request->files[static_cast<std::size_t>(index)], form);
}

}  // namespace

DlglibResult DLGLIB_CALL DlglibFileRequestCreate(DlglibFileRequest* request) {
  return Answer([&](Call& call) {
    call.Require(request != nullptr, DLGLIB_NULL_ARGUMENT);
    if (!call.Refused()) *request = Requests::All().Add(std::make_shared<Request>());
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibFileRequestDestroy(DlglibFileRequest request) {
  return Answer([&](Call& call) {
    const Found found = Requests::All().Find(request);
    call.Require(found != nullptr, DLGLIB_BAD_HANDLE);
    call.Require(found == nullptr || !found->running, DLGLIB_BUSY);
    if (!call.Refused()) Requests::All().Remove(request);
    return call.Result();
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
  return Set(request, [&](Call& call, Settings& settings) {
    call.Require(mode >= DLGLIB_OPEN_FILE && mode <= DLGLIB_NAME_FILE, DLGLIB_BAD_ARGUMENT);
    settings.mode = mode;
  });
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetSeveralFiles(DlglibFileRequest request, std::int32_t several) {
  return Set(request, [&](Call&, Settings& settings) { settings.several = several != 0; });
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetFixedFolder(DlglibFileRequest request, std::int32_t fixed) {
  return Set(request, [&](Call&, Settings& settings) { settings.fixedFolder = fixed != 0; });
}

DlglibResult DLGLIB_CALL DlglibFileRequestSetOwner(DlglibFileRequest request, void* owner) {
  return Set(request, [&](Call& call, Settings& settings) { settings.owner = call.OwnWindow(owner); });
}

DlglibResult DLGLIB_CALL DlglibFileRequestRun(DlglibFileRequest request) {
  return Answer([&](Call& call) {
    const Found found = FindIdle(call, request);
    if (found == nullptr) return call.Result();
    CWnd* const owner = CWnd::FromHandle(call.OwnWindow(found->settings.owner));
    if (call.Refused()) return call.Result();
    found->running = true;
    const AtScopeEnd over([&] { found->running = false; });
    return RunOver(owner, *found);
  });
}

DlglibResult DLGLIB_CALL DlglibFileRequestCount(DlglibFileRequest request, std::int32_t* count) {
  return Answer([&](Call& call) {
    const Found found = FindOwn(call, request);
    call.Require(count != nullptr, DLGLIB_NULL_ARGUMENT);
    if (!call.Refused()) *count = static_cast<std::int32_t>(found->files.size());
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibFileRequestNameSjis(DlglibFileRequest request, std::int32_t index, std::int32_t form,
                                                   std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give(Encoding::Sjis, {bufferSize, buffer, needed},
              [=](Call& call) { return NameOf(call, request, index, form); });
}

DlglibResult DLGLIB_CALL DlglibFileRequestNameUtf8(DlglibFileRequest request, std::int32_t index, std::int32_t form,
                                                   std::int32_t bufferSize, char* buffer, std::int32_t* needed) {
  return Give(Encoding::Utf8, {bufferSize, buffer, needed},
              [=](Call& call) { return NameOf(call, request, index, form); });
}
