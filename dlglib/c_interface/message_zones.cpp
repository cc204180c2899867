// The message zone for programs of any language.
#include <memory>

#include "dlglib/c_interface/call.h"
#include "dlglib/c_interface/handles.h"
#include "dlglib/utility/CvUtility.h"

namespace {

using c_interface::Answer;
using c_interface::Call;
using c_interface::Encoding;
using c_interface::kPathLimit;

struct Zone {
  explicit Zone(HWND window) : dialog(window), object(CWnd::FromHandle(window)) { utility.SetParentWindow(object); }

  [[nodiscard]] bool HasDialog() const { return ::IsWindow(dialog) != FALSE && CWnd::FromHandle(dialog) == object; }

  const DWORD thread = ::GetCurrentThreadId();
  HWND dialog;
  CWnd* object;  ///< good as long as the dialog is there
  CvUtility utility;
};

using Zones = c_interface::Handles<DlglibMessageZone, Zone>;

[[nodiscard]] std::shared_ptr<Zone> Find(Call& call, DlglibMessageZone handle) {
  std::shared_ptr<Zone> zone = Zones::All().Find(handle);
  call.Require(zone != nullptr, DLGLIB_BAD_HANDLE);
  if (zone == nullptr) return nullptr;
  call.Require(zone->thread == ::GetCurrentThreadId(), DLGLIB_WRONG_THREAD);
  return call.Refused() ? nullptr : zone;
}

/// Does something with a zone whose dialog is there.
template <class Use>
[[nodiscard]] DlglibResult With(Encoding encoding, DlglibMessageZone handle, const Use& use) noexcept {
  return Answer(encoding, [&](Call& call) {
    const std::shared_ptr<Zone> zone = Find(call, handle);
    call.Require(zone == nullptr || zone->HasDialog(), DLGLIB_NOT_ATTACHED);
    if (zone != nullptr && !call.Refused()) use(call, zone->utility);
    return call.Result();
  });
}

[[nodiscard]] DlglibResult Show(Encoding encoding, DlglibMessageZone handle, const char* text,
                                void (CvUtility::*show)(const char*) noexcept) noexcept {
  return With(encoding, handle, [&](Call& call, CvUtility& utility) {
    const SjisText line = text != nullptr ? call.Sjis(text, kPathLimit) : SjisText();
    if (!call.Refused()) (utility.*show)(text != nullptr ? line.bytes().c_str() : nullptr);
  });
}

}  // namespace

DlglibResult DLGLIB_CALL DlglibMessageZoneCreate(DlglibMessageZone* zone, void* dialog) {
  return Answer([&](Call& call) {
    call.Require(zone != nullptr && dialog != nullptr, DLGLIB_NULL_ARGUMENT);
    const HWND window = call.OwnWindow(dialog);
    if (!call.Refused()) *zone = Zones::All().Add(std::make_shared<Zone>(window));
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibMessageZoneDestroy(DlglibMessageZone zone) {
  return Answer([&](Call& call) {
    if (Find(call, zone) != nullptr) Zones::All().Remove(zone);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibMessageZoneMakeRoom(DlglibMessageZone zone) {
  return With(Encoding::Sjis, zone, [](Call&, CvUtility& utility) { utility.SetMessageZone(); });
}

DlglibResult DLGLIB_CALL DlglibMessageZoneSetWindow(DlglibMessageZone zone, void* window) {
  return With(Encoding::Sjis, zone, [&](Call& call, CvUtility& utility) {
    const HWND shown = call.OwnWindow(window);
    if (!call.Refused()) utility.SetMessageWindow(CWnd::FromHandle(shown));
  });
}

DlglibResult DLGLIB_CALL DlglibMessageZoneShowSjis(DlglibMessageZone zone, const char* text) {
  return Show(Encoding::Sjis, zone, text, &CvUtility::MessageText);
}

DlglibResult DLGLIB_CALL DlglibMessageZoneShowUtf8(DlglibMessageZone zone, const char* text) {
  return Show(Encoding::Utf8, zone, text, &CvUtility::MessageText);
}

DlglibResult DLGLIB_CALL DlglibMessageZoneErrorSjis(DlglibMessageZone zone, const char* text) {
  return Show(Encoding::Sjis, zone, text, &CvUtility::ErrorText);
}

DlglibResult DLGLIB_CALL DlglibMessageZoneErrorUtf8(DlglibMessageZone zone, const char* text) {
  return Show(Encoding::Utf8, zone, text, &CvUtility::ErrorText);
}

DlglibResult DLGLIB_CALL DlglibMessageZoneErrorNumber(DlglibMessageZone zone, std::int32_t number) {
  return With(Encoding::Sjis, zone, [=](Call&, CvUtility& utility) { utility.ErrorNo(number); });
}
