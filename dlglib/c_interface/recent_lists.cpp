// The recent lists for programs of any language.
#include <algorithm>
#include <memory>
#include <string>

#include "dlglib/c_interface/call.h"
#include "dlglib/c_interface/handles.h"
#include "dlglib/utility/rules/used_list.h"
#include "platform/framework/controls.h"
#include "platform/os/os.h"

namespace {

using c_interface::Answer;
using c_interface::Call;
using c_interface::Encoding;
using c_interface::Give;
using c_interface::kKeywordLimit;
using c_interface::Room;

static_assert(c_interface::kSettingLimit == used_list::kMaxEntryLength);

struct Recent {
  std::string keyName;
  used_list::Kind kind;
  used_list::List list;
  const DWORD thread = ::GetCurrentThreadId();
};

using RecentLists = c_interface::Handles<DlglibRecentList, Recent>;

[[nodiscard]] std::shared_ptr<Recent> Find(Call& call, DlglibRecentList handle) {
  std::shared_ptr<Recent> recent = RecentLists::All().Find(handle);
  call.Require(recent != nullptr, DLGLIB_BAD_HANDLE);
  if (recent == nullptr) return nullptr;
  call.Require(recent->thread == ::GetCurrentThreadId(), DLGLIB_WRONG_THREAD);
  return call.Refused() ? nullptr : recent;
}

template <class Use>
[[nodiscard]] DlglibResult With(Encoding encoding, DlglibRecentList handle, const Use& use) noexcept {
  return Answer(encoding, [&](Call& call) -> DlglibResult {
    const std::shared_ptr<Recent> recent = Find(call, handle);
    return recent != nullptr ? use(call, *recent) : call.Result();
  });
}

[[nodiscard]] used_list::Kind KindOf(std::int32_t which) noexcept {
  if (which == DLGLIB_RECENT_NAMES) return used_list::Kind::Names;
  return which == DLGLIB_RECENT_OUTPUT_FILES ? used_list::Kind::OutputFiles : used_list::Kind::InputFiles;
}

[[nodiscard]] DlglibResult Create(Encoding encoding, DlglibRecentList* handle, std::int32_t which,
                                  const char* keyword) noexcept {
  return Answer(encoding, [&](Call& call) -> DlglibResult {
    call.Require(handle != nullptr, DLGLIB_NULL_ARGUMENT);
    const std::string name = call.Sjis(keyword, kKeywordLimit).bytes();
    call.Require(which >= DLGLIB_RECENT_INPUT_FILES && which <= DLGLIB_RECENT_NAMES, DLGLIB_BAD_ARGUMENT);
    if (call.Refused()) return call.Result();
    auto recent = std::make_shared<Recent>();
    recent->kind = KindOf(which);
    recent->keyName = used_list::KeyName(recent->kind, name);
    const std::unique_ptr<os::RegistryKey> key = os::Services().registry->Create(recent->keyName);
    if (key == nullptr) return DLGLIB_FAILED;
    recent->list = used_list::Read(*key, recent->kind);
    *handle = RecentLists::All().Add(std::move(recent));
    return DLGLIB_OK;
  });
}

[[nodiscard]] DlglibResult GiveEntry(Encoding encoding, DlglibRecentList handle, std::int32_t index,
                                     const Room& room) noexcept {
  return Give(encoding, room, [&](Call& call) {
    const std::shared_ptr<Recent> recent = Find(call, handle);
    if (recent == nullptr) return std::string();
    const used_list::Entries& entries = recent->list.entries;
    const bool within = index >= 0 && static_cast<std::size_t>(index) < entries.size();
    call.Require(within, DLGLIB_BAD_ARGUMENT);
    return within ? call.Wanted(SjisText(entries[static_cast<std::size_t>(index)])) : std::string();
  });
}

/// An entry that may be kept.
[[nodiscard]] std::string EntryOf(Call& call, const char* entry) {
  std::string text = call.Sjis(entry, used_list::kMaxEntryLength).bytes();
  call.Require(!text.empty(), DLGLIB_BAD_ARGUMENT);
  return text;
}

[[nodiscard]] bool RemoveSame(used_list::Entries& entries, const std::string& entry) {
  const std::size_t same = used_list::FindSame(entries, entry);
  if (same == used_list::kNone) return false;
  entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(same));
  return true;
}

[[nodiscard]] DlglibResult Add(Encoding encoding, DlglibRecentList handle, const char* entry) noexcept {
  return With(encoding, handle, [&](Call& call, Recent& recent) {
    const std::string text = EntryOf(call, entry);
    if (call.Refused()) return call.Result();
    used_list::Entries entries = recent.list.entries;
    static_cast<void>(RemoveSame(entries, text));
    entries.insert(entries.begin(), text);
    entries.resize(std::min(entries.size(), static_cast<std::size_t>(used_list::kMaxKept)));
    recent.list.entries = std::move(entries);
    return call.Result();
  });
}

[[nodiscard]] DlglibResult Remove(Encoding encoding, DlglibRecentList handle, const char* entry) noexcept {
  return With(encoding, handle, [&](Call& call, Recent& recent) -> DlglibResult {
    const std::string text = EntryOf(call, entry);
    return call.Refused() ? call.Result() : c_interface::Verdict(RemoveSame(recent.list.entries, text));
  });
}

// A value that could not be read would be lost.
[[nodiscard]] DlglibResult Write(const Recent& recent) {
  if (!recent.list.whole) return DLGLIB_NOT_WRITTEN;
  const std::unique_ptr<os::RegistryKey> key = os::Services().registry->Create(recent.keyName);
  const bool written = key != nullptr && used_list::Write(*key, recent.kind, recent.list.entries, recent.list.count);
  return written ? DLGLIB_OK : DLGLIB_NOT_WRITTEN;
}

}  // namespace

DlglibResult DLGLIB_CALL DlglibRecentListCreateSjis(DlglibRecentList* list, std::int32_t which, const char* keyword) {
  return Create(Encoding::Sjis, list, which, keyword);
}

DlglibResult DLGLIB_CALL DlglibRecentListCreateUtf8(DlglibRecentList* list, std::int32_t which, const char* keyword) {
  return Create(Encoding::Utf8, list, which, keyword);
}

DlglibResult DLGLIB_CALL DlglibRecentListDestroy(DlglibRecentList list) {
  return Answer([&](Call& call) {
    if (Find(call, list) != nullptr) RecentLists::All().Remove(list);
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibRecentListCount(DlglibRecentList list, std::int32_t* count) {
  return With(Encoding::Sjis, list, [=](Call& call, const Recent& recent) {
    call.Require(count != nullptr, DLGLIB_NULL_ARGUMENT);
    if (!call.Refused()) *count = static_cast<std::int32_t>(recent.list.entries.size());
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibRecentListEntrySjis(DlglibRecentList list, std::int32_t index, std::int32_t bufferSize,
                                                   char* buffer, std::int32_t* needed) {
  return GiveEntry(Encoding::Sjis, list, index, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibRecentListEntryUtf8(DlglibRecentList list, std::int32_t index, std::int32_t bufferSize,
                                                   char* buffer, std::int32_t* needed) {
  return GiveEntry(Encoding::Utf8, list, index, {bufferSize, buffer, needed});
}

DlglibResult DLGLIB_CALL DlglibRecentListAddSjis(DlglibRecentList list, const char* entry) {
  return Add(Encoding::Sjis, list, entry);
}

DlglibResult DLGLIB_CALL DlglibRecentListAddUtf8(DlglibRecentList list, const char* entry) {
  return Add(Encoding::Utf8, list, entry);
}

DlglibResult DLGLIB_CALL DlglibRecentListRemoveSjis(DlglibRecentList list, const char* entry) {
  return Remove(Encoding::Sjis, list, entry);
}

DlglibResult DLGLIB_CALL DlglibRecentListRemoveUtf8(DlglibRecentList list, const char* entry) {
  return Remove(Encoding::Utf8, list, entry);
}

DlglibResult DLGLIB_CALL DlglibRecentListShown(DlglibRecentList list, std::int32_t* shown) {
  return With(Encoding::Sjis, list, [=](Call& call, const Recent& recent) {
    call.Require(shown != nullptr, DLGLIB_NULL_ARGUMENT);
    if (!call.Refused()) *shown = recent.list.count;
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibRecentListSetShown(DlglibRecentList list, std::int32_t shown) {
  return With(Encoding::Sjis, list, [=](Call& call, Recent& recent) {
    call.Require(shown >= 1 && shown <= used_list::kMaxKept, DLGLIB_BAD_ARGUMENT);
    if (!call.Refused()) recent.list.count = shown;
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibRecentListFill(DlglibRecentList list, void* combo) {
  return With(Encoding::Sjis, list, [=](Call& call, const Recent& recent) {
    call.Require(combo != nullptr, DLGLIB_NULL_ARGUMENT);
    const ComboBoxRef box(call.OwnWindow(combo));
    if (call.Refused()) return call.Result();
    const used_list::Entries shown = used_list::Shown(recent.list.entries, recent.list.count);
    box.ResetContent();
    for (const std::string& entry : shown) box.AddString(entry.c_str());
    return call.Result();
  });
}

DlglibResult DLGLIB_CALL DlglibRecentListWrite(DlglibRecentList list) {
  return With(Encoding::Sjis, list, [](Call&, const Recent& recent) { return Write(recent); });
}
