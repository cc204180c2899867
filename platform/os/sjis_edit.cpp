#include "platform/os/sjis_edit.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/os/edit_text.h"
#include "platform/os/kept_with_window.h"
#include "platform/os/os.h"
#include "platform/os/sjis_wide.h"

namespace os {
namespace {

constexpr wchar_t kFirstPrintable = 0x20;
struct Guard {
  static constexpr const wchar_t* kProperty = L"corvane.sjis_edit";

  LRESULT Receive(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);

  std::size_t limit = kNoByteLimit;
  std::optional<std::wstring> beforeComposition;
};

void Refuse() { Services().session->Beep(kBeepDefault); }

bool IsSjis(std::wstring_view text) { return SjisOf(text, kUnknown).exact; }

std::size_t BytesOf(std::wstring_view text) { return SjisOf(text, kUnknown).bytes.size(); }

/// Bytes that may take the place of what is selected.
std::size_t RoomIn(HWND edit, std::size_t limit) {
  DWORD start = 0;
  DWORD end = 0;
  ::SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  std::wstring rest = TextOfEdit(edit);
  if (start <= end && end <= rest.size()) rest.erase(start, end - start);
  const std::size_t taken = BytesOf(rest);
  return taken < limit ? limit - taken : 0;
}

/// The characters that fit into `room` bytes.
std::wstring Fitting(std::wstring text, std::size_t room) {
  while (!text.empty() && BytesOf(text) > room) text.pop_back();
  return text;
}

bool MayType(HWND edit, const Guard& guard, wchar_t unit) {
  const std::wstring_view typed(&unit, 1);
  if (!IsSjis(typed)) return false;
  return guard.limit == kNoByteLimit || BytesOf(typed) <= RoomIn(edit, guard.limit);
}

std::optional<std::wstring> ClipboardText(HWND reader) {
  if (::OpenClipboard(reader) == FALSE) return std::nullopt;
  std::optional<std::wstring> text;
  const HGLOBAL memory = ::GetClipboardData(CF_UNICODETEXT);  // stays the clipboard's
  if (const void* const units = memory != nullptr ? ::GlobalLock(memory) : nullptr; units != nullptr) {
    text.emplace(::GlobalSize(memory) / sizeof(wchar_t), L'\0');
    std::memcpy(text->data(), units, text->size() * sizeof(wchar_t));
    text->resize(std::min(text->find(L'\0'), text->size()));
    ::GlobalUnlock(memory);
  }
  ::CloseClipboard();
  return text;
}

/// What the box itself would take of a text: of several lines the first.
std::wstring Taken(HWND edit, std::wstring text) {
  const bool severalLines = (::GetWindowLongPtrW(edit, GWL_STYLE) & ES_MULTILINE) != 0;
  if (!severalLines) text.resize(std::min(text.find_first_of(L"\r\n"), text.size()));
  return text;
}

/// True when nothing is left for the box to do.
bool Paste(HWND edit, const Guard& guard) {
  if ((::GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY) != 0) return false;
  const std::optional<std::wstring> offered = ClipboardText(edit);
  if (!offered) return false;
  const std::wstring text = Taken(edit, *offered);
  if (!IsSjis(text)) {
    Refuse();
    return true;
  }
  if (guard.limit == kNoByteLimit) return false;
  const std::wstring fitting = Fitting(text, RoomIn(edit, guard.limit));
  if (fitting.size() == text.size()) return false;
  ::SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(fitting.c_str()));
  Refuse();
  return true;
}

/// A composition puts its text into the box without typing it.
void TakeBackComposition(HWND edit, Guard* guard) {
  if (!guard->beforeComposition) return;
  const std::wstring text = TextOfEdit(edit);
  if (IsSjis(text) && BytesOf(text) <= guard->limit) {
    guard->beforeComposition = text;
    return;
  }
  ::SetWindowTextW(edit, guard->beforeComposition->c_str());
  const WPARAM end = guard->beforeComposition->size();
  ::SendMessageW(edit, EM_SETSEL, end, static_cast<LPARAM>(end));
  Refuse();
}

/// Whether the message is refused, or has been carried out.
bool IsDone(HWND edit, UINT message, WPARAM wParam, Guard* guard) {
  const auto unit = static_cast<wchar_t>(wParam);
  switch (message) {
    case WM_CHAR:
    case WM_IME_CHAR:
      if (unit < kFirstPrintable || MayType(edit, *guard, unit)) return false;
      if (!IS_LOW_SURROGATE(unit)) Refuse();  // once for a character of two units
      return true;
    case WM_PASTE:
      return Paste(edit, *guard);
    case WM_IME_STARTCOMPOSITION: {
      const std::wstring text = TextOfEdit(edit);
      guard->beforeComposition.reset();
      if (IsSjis(text)) guard->beforeComposition = text;
      return false;
    }
    default:
      return false;
  }
}

LRESULT Guard::Receive(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
  if (IsDone(edit, message, wParam, this)) return 0;
  const LRESULT result = ::DefSubclassProc(edit, message, wParam, lParam);
  const bool committed = message == WM_IME_COMPOSITION && (lParam & GCS_RESULTSTR) != 0;
  if (committed || message == WM_IME_ENDCOMPOSITION) TakeBackComposition(edit, this);
  return result;
}

}  // namespace

void KeepToShiftJis(HWND edit, std::size_t limitBytes) {
  if (::GetWindowThreadProcessId(edit, nullptr) != ::GetCurrentThreadId()) return;
  if (Guard* const known = KeptWith<Guard>(edit); known != nullptr) {
    known->limit = limitBytes;
    return;
  }
  auto guard = std::make_unique<Guard>();
  guard->limit = limitBytes;
  KeepWith(edit, std::move(guard));
}

}  // namespace os
