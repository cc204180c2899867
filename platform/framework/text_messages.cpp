#include "platform/framework/text_messages.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/framework/detail/wide_text.h"
#include "platform/framework/window_ref.h"

namespace framework {
namespace {

/// What a message of the system does with its text.
enum class TextUse {
  None,
  Gives,        ///< lParam is a text
  GivesEntry,   ///< lParam is a text, or a number where the list holds none
  Takes,        ///< lParam is a buffer of wParam bytes
  TakesEntry,   ///< lParam is a buffer with room for the entry that wParam names
  TakesLine,    ///< lParam is a buffer whose size stands in its first two bytes
  Length,       ///< asks for a length
  EntryLength,  ///< asks for the length of the entry that wParam names
  Character,    ///< wParam is a character
};

struct TextMessage {
  UINT message;
  TextUse use;
};

constexpr TextMessage kTextMessages[] = {
    {WM_SETTEXT, TextUse::Gives},
    {EM_REPLACESEL, TextUse::Gives},
    {CB_ADDSTRING, TextUse::GivesEntry},
    {CB_INSERTSTRING, TextUse::GivesEntry},
    {CB_FINDSTRING, TextUse::GivesEntry},
    {CB_FINDSTRINGEXACT, TextUse::GivesEntry},
    {CB_SELECTSTRING, TextUse::GivesEntry},
    {CB_DIR, TextUse::Gives},
    {LB_ADDSTRING, TextUse::GivesEntry},
    {LB_INSERTSTRING, TextUse::GivesEntry},
    {LB_FINDSTRING, TextUse::GivesEntry},
    {LB_FINDSTRINGEXACT, TextUse::GivesEntry},
    {LB_SELECTSTRING, TextUse::GivesEntry},
    {LB_DIR, TextUse::Gives},
    {LB_ADDFILE, TextUse::Gives},
    {WM_GETTEXT, TextUse::Takes},
    {CB_GETLBTEXT, TextUse::TakesEntry},
    {LB_GETTEXT, TextUse::TakesEntry},
    {EM_GETLINE, TextUse::TakesLine},
    {WM_GETTEXTLENGTH, TextUse::Length},
    {CB_GETLBTEXTLEN, TextUse::EntryLength},
    {LB_GETTEXTLEN, TextUse::EntryLength},
    {WM_CHAR, TextUse::Character},
    {WM_DEADCHAR, TextUse::Character},
    {WM_SYSCHAR, TextUse::Character},
    {WM_SYSDEADCHAR, TextUse::Character},
    {WM_IME_CHAR, TextUse::Character},
    {EM_SETPASSWORDCHAR, TextUse::Character},
};

TextUse UseOf(UINT message) noexcept {
  if (message >= WM_USER) return TextUse::None;
  const auto* const found = std::find_if(std::begin(kTextMessages), std::end(kTextMessages),
                                         [message](const TextMessage& known) { return known.message == message; });
  return found != std::end(kTextMessages) ? found->use : TextUse::None;
}

constexpr bool IsOfCombo(UINT message) noexcept { return message >= CB_GETEDITSEL && message < CB_MSGMAX; }

/// A list that its owner draws may hold numbers instead of texts.
bool HoldsTexts(HWND list, UINT message) noexcept {
  const auto style = static_cast<DWORD>(::GetWindowLongPtrW(list, GWL_STYLE));
  if (IsOfCombo(message)) {
    return (style & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) == 0 || (style & CBS_HASSTRINGS) != 0;
  }
  return (style & (LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE)) == 0 || (style & LBS_HASSTRINGS) != 0;
}

const char* TextAt(LPARAM lParam) noexcept { return reinterpret_cast<const char*>(lParam); }

LRESULT SendWide(HWND window, UINT message, WPARAM wParam, const std::wstring& text) {
  return ::SendMessageW(window, message, wParam, reinterpret_cast<LPARAM>(text.c_str()));
}

LRESULT Give(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (IS_INTRESOURCE(lParam)) return ::SendMessageW(window, message, wParam, lParam);
  return SendWide(window, message, wParam, ToWide(TextAt(lParam)));
}

LRESULT Take(HWND window, WPARAM size, LPARAM lParam) {
  if (size == 0 || lParam == 0) return 0;
  std::wstring text(static_cast<std::size_t>(::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  const LRESULT units = ::SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(std::min(static_cast<std::size_t>(std::max<LRESULT>(units, 0)), text.size()));
  return static_cast<LRESULT>(CopySjis(ToShiftJis(text), reinterpret_cast<char*>(lParam), size));
}

/// The text of an entry; `answer` is what the list says, below 0 when there is no such entry.
std::string EntryText(HWND list, UINT message, WPARAM index, LRESULT* answer) {
  const bool ofCombo = IsOfCombo(message);
  const LRESULT length = ::SendMessageW(list, ofCombo ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, index, 0);
  *answer = length;
  if (length < 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  *answer = ::SendMessageW(list, ofCombo ? CB_GETLBTEXT : LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
  text.resize(std::min(static_cast<std::size_t>(std::max<LRESULT>(*answer, 0)), text.size()));
  return ToShiftJis(text);
}

LRESULT TakeEntry(HWND list, UINT message, WPARAM index, LPARAM lParam) {
  if (!HoldsTexts(list, message)) return ::SendMessageW(list, message, index, lParam);
  LRESULT answer = 0;
  const std::string text = EntryText(list, message, index, &answer);
  if (answer < 0) return answer;
  std::memcpy(reinterpret_cast<char*>(lParam), text.c_str(), text.size() + 1);
  return static_cast<LRESULT>(text.size());
}

LRESULT EntryLength(HWND list, UINT message, WPARAM index, LPARAM lParam) {
  if (!HoldsTexts(list, message)) return ::SendMessageW(list, message, index, lParam);
  LRESULT answer = 0;
  const std::string text = EntryText(list, message, index, &answer);
  return answer < 0 ? answer : static_cast<LRESULT>(text.size());
}

/// Without a terminator.
LRESULT TakeLine(HWND edit, WPARAM line, LPARAM lParam) {
  auto* const buffer = reinterpret_cast<char*>(lParam);
  WORD size = 0;
  std::memcpy(&size, buffer, sizeof size);
  std::vector<wchar_t> wide(std::max<std::size_t>(size, 1), L'\0');
  std::memcpy(wide.data(), &size, sizeof size);
  const LRESULT units = ::SendMessageW(edit, EM_GETLINE, line, reinterpret_cast<LPARAM>(wide.data()));
  const std::string text = ToShiftJis({wide.data(), static_cast<std::size_t>(std::max<LRESULT>(units, 0))});
  std::vector<char> fitting(static_cast<std::size_t>(size) + 1, '\0');
  const std::size_t bytes = CopySjis(text, fitting.data(), fitting.size());
  std::memcpy(buffer, fitting.data(), bytes);
  return static_cast<LRESULT>(bytes);
}

/// One byte, or both of a character with the first one above the other.
WPARAM WideCharacter(WPARAM sjis) {
  constexpr WPARAM kByte = 0xFF;
  constexpr unsigned kByteBits = 8;
  std::string bytes;
  if (sjis > kByte) bytes += static_cast<char>(sjis >> kByteBits & kByte);
  bytes += static_cast<char>(sjis & kByte);
  const std::wstring wide = ToWide(bytes);
  return wide.empty() ? sjis : static_cast<WPARAM>(wide.front());
}

WPARAM WideWParam(UINT message, WPARAM wParam) {
  return UseOf(message) == TextUse::Character ? WideCharacter(wParam) : wParam;
}

// The structures of both forms differ in what their text consists of, and in nothing else.

template <class Wide, class Narrow>
Wide WideForm(const Narrow& narrow) noexcept {
  static_assert(sizeof(Wide) == sizeof(Narrow));
  Wide wide;
  std::memcpy(&wide, &narrow, sizeof wide);
  return wide;
}

template <class Wide, class Narrow>
void CopyBack(const Wide& wide, Narrow* narrow) noexcept {
  char* const text = narrow->pszText;
  std::memcpy(narrow, &wide, sizeof wide);
  narrow->pszText = text;
}

bool IsText(const void* text) noexcept { return text != nullptr && text != LPSTR_TEXTCALLBACKA; }

template <class Wide, class Narrow>
LRESULT SendGiving(HWND window, UINT message, WPARAM wParam, const Narrow& narrow, bool hasText) {
  Wide wide = WideForm<Wide>(narrow);
  std::wstring text;
  if (hasText && IsText(narrow.pszText)) {
    text = ToWide(narrow.pszText);
    wide.pszText = text.data();
  }
  return ::SendMessageW(window, message, wParam, reinterpret_cast<LPARAM>(&wide));
}

template <class Wide, class Narrow>
LRESULT SendTaking(HWND window, UINT message, WPARAM wParam, Narrow* narrow, bool hasText) {
  const bool hasRoom = hasText && IsText(narrow->pszText) && narrow->cchTextMax > 0;
  Wide wide = WideForm<Wide>(*narrow);
  std::wstring room(hasRoom ? static_cast<std::size_t>(narrow->cchTextMax) : 0, L'\0');
  if (hasRoom) wide.pszText = room.data();
  const LRESULT result = ::SendMessageW(window, message, wParam, reinterpret_cast<LPARAM>(&wide));
  const int size = narrow->cchTextMax;
  CopyBack(wide, narrow);
  narrow->cchTextMax = size;
  if (!hasRoom || !IsText(wide.pszText)) return result;
  // A text that had to be cut may come without a terminator, and with a length that runs past the buffer.
  const std::wstring_view shown =
      wide.pszText == room.data() ? std::wstring_view(room) : std::wstring_view(wide.pszText);
  const std::string text = ToShiftJis(shown.substr(0, shown.find(L'\0')));
  const std::size_t bytes = CopySjis(text, narrow->pszText, static_cast<std::size_t>(size));
  return message == LVM_GETITEMTEXTW ? static_cast<LRESULT>(bytes) : result;
}

}  // namespace

LRESULT SendText(WindowArg window, UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND handle = window.handle;
  switch (UseOf(message)) {
    case TextUse::Gives:
      return Give(handle, message, wParam, lParam);
    case TextUse::GivesEntry:
      return HoldsTexts(handle, message) ? Give(handle, message, wParam, lParam)
                                         : ::SendMessageW(handle, message, wParam, lParam);
    case TextUse::Takes:
      return Take(handle, wParam, lParam);
    case TextUse::TakesEntry:
      return TakeEntry(handle, message, wParam, lParam);
    case TextUse::TakesLine:
      return TakeLine(handle, wParam, lParam);
    case TextUse::Length:
      return TextLengthOf(window);
    case TextUse::EntryLength:
      return EntryLength(handle, message, wParam, lParam);
    case TextUse::Character:
    case TextUse::None:
      break;
  }
  return ::SendMessageW(handle, message, WideWParam(message, wParam), lParam);
}

BOOL PostText(WindowArg window, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::PostMessageW(window.handle, message, WideWParam(message, wParam), lParam);
}

void SetTextOf(WindowArg window, const char* text) {
  ::SetWindowTextW(window.handle, text != nullptr ? ToWide(text).c_str() : nullptr);
}

int CopyTextOf(WindowArg window, char* buffer, int size) {
  if (buffer == nullptr || size < 1) return 0;
  return static_cast<int>(CopySjis(ToShiftJis(WideTextOf(window.handle)), buffer, static_cast<std::size_t>(size)));
}

void GetTextOf(WindowArg window, CString& text) { text = ToShiftJis(WideTextOf(window.handle)); }

int TextLengthOf(WindowArg window) { return static_cast<int>(ToShiftJis(WideTextOf(window.handle)).size()); }

LRESULT SendListItem(WindowArg list, UINT wideMessage, WPARAM wParam, LVITEMA* item) {
  const bool hasText = (item->mask & LVIF_TEXT) != 0;
  switch (wideMessage) {
    case LVM_GETITEMTEXTW:
      return SendTaking<LVITEMW>(list.handle, wideMessage, wParam, item, true);
    case LVM_GETITEMW:
      return SendTaking<LVITEMW>(list.handle, wideMessage, wParam, item, hasText);
    case LVM_SETITEMTEXTW:
      return SendGiving<LVITEMW>(list.handle, wideMessage, wParam, *item, true);
    default:
      return SendGiving<LVITEMW>(list.handle, wideMessage, wParam, *item, hasText);
  }
}

LRESULT SendListColumn(WindowArg list, UINT wideMessage, WPARAM wParam, LVCOLUMNA* column) {
  const bool hasText = (column->mask & LVCF_TEXT) != 0;
  return wideMessage == LVM_GETCOLUMNW ? SendTaking<LVCOLUMNW>(list.handle, wideMessage, wParam, column, hasText)
                                       : SendGiving<LVCOLUMNW>(list.handle, wideMessage, wParam, *column, hasText);
}

LRESULT SendHeaderItem(WindowArg header, UINT wideMessage, WPARAM wParam, HDITEMA* item) {
  const bool hasText = (item->mask & HDI_TEXT) != 0;
  return wideMessage == HDM_GETITEMW ? SendTaking<HDITEMW>(header.handle, wideMessage, wParam, item, hasText)
                                     : SendGiving<HDITEMW>(header.handle, wideMessage, wParam, *item, hasText);
}

/// A tool's text may be the number of a resource.
LRESULT SendTool(WindowArg tips, UINT wideMessage, const TOOLINFOA* tool) {
  TOOLINFOW wide{};
  std::memcpy(&wide, tool, std::min<std::size_t>(tool->cbSize, sizeof wide));
  std::wstring text;
  if (IsText(tool->lpszText) && !IS_INTRESOURCE(tool->lpszText)) {
    text = ToWide(tool->lpszText);
    wide.lpszText = text.data();
  }
  return ::SendMessageW(tips.handle, wideMessage, 0, reinterpret_cast<LPARAM>(&wide));
}

/// A button's text may be a number as well.
LRESULT SendButtons(WindowArg toolBar, UINT wideMessage, WPARAM count, const TBBUTTON* buttons) {
  std::vector<TBBUTTON> wide(buttons, buttons + count);
  std::vector<std::wstring> texts(count);
  for (std::size_t i = 0; i < count; ++i) {
    constexpr INT_PTR kNone = -1;
    if (wide[i].iString == kNone || IS_INTRESOURCE(wide[i].iString)) continue;
    texts[i] = ToWide(reinterpret_cast<const char*>(wide[i].iString));
    wide[i].iString = reinterpret_cast<INT_PTR>(texts[i].c_str());
  }
  return ::SendMessageW(toolBar.handle, wideMessage, count, reinterpret_cast<LPARAM>(wide.data()));
}

LRESULT SendPlainText(WindowArg window, UINT wideMessage, WPARAM wParam, const char* text) {
  return SendWide(window.handle, wideMessage, wParam, ToWide(text != nullptr ? text : ""));
}

}  // namespace framework
