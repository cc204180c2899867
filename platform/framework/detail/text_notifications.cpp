#include "platform/framework/detail/text_notifications.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/framework/detail/wide_text.h"

namespace framework {
namespace {

bool IsText(const void* text) noexcept {
  return text != nullptr && !IS_INTRESOURCE(text) && text != LPSTR_TEXTCALLBACKA;
}

// What a structure says about its text apart from the pointer.

bool Always(const NMHDR*) noexcept { return true; }

bool AsksForItemText(const NMHDR* header) noexcept {
  return (reinterpret_cast<const NMLVDISPINFOW*>(header)->item.mask & LVIF_TEXT) != 0;
}

bool SearchesForText(const NMHDR* header) noexcept {
  constexpr UINT kSubstring = 0x4;  // LVFI_SUBSTRING, which not every header has
  constexpr UINT kTexts = LVFI_STRING | LVFI_PARTIAL | kSubstring;
  return (reinterpret_cast<const NMLVFINDITEMW*>(header)->lvfi.flags & kTexts) != 0;
}

bool AsksForHeaderText(const NMHDR* header) noexcept {
  return (reinterpret_cast<const NMHDDISPINFOW*>(header)->mask & HDI_TEXT) != 0;
}

bool AsksForButtonText(const NMHDR* header) noexcept {
  return (reinterpret_cast<const NMTBDISPINFOW*>(header)->dwMask & TBNF_TEXT) != 0;
}

/// What a notification does with its text.
enum class Way {
  Told,
  Asked,     ///< the handler writes it into a buffer, or puts another pointer into the structure
  Extended,  ///< the same, and the buffer holds a text already
};

/// A notification whose forms differ in the text that their structure points to.
struct Row {
  UINT wideCode;
  UINT narrowCode;
  Way way;
  std::size_t size;  ///< of the structure
  std::size_t text;  ///< where its pointer to the text is
  std::size_t room;  ///< where the number of characters is for which there is room; not for a text that is told
  bool (*hasText)(const NMHDR*) noexcept;
};

constexpr std::size_t kItemText = offsetof(NMLVDISPINFOW, item) + offsetof(LVITEMW, pszText);
constexpr std::size_t kItemRoom = offsetof(NMLVDISPINFOW, item) + offsetof(LVITEMW, cchTextMax);
constexpr std::size_t kFindText = offsetof(NMLVFINDITEMW, lvfi) + offsetof(LVFINDINFOW, psz);

constexpr Row kRows[] = {
    {LVN_GETDISPINFOW, LVN_GETDISPINFOA, Way::Asked, sizeof(NMLVDISPINFOW), kItemText, kItemRoom, AsksForItemText},
    {LVN_SETDISPINFOW, LVN_SETDISPINFOA, Way::Told, sizeof(NMLVDISPINFOW), kItemText, 0, AsksForItemText},
    {LVN_BEGINLABELEDITW, LVN_BEGINLABELEDITA, Way::Told, sizeof(NMLVDISPINFOW), kItemText, 0, Always},
    {LVN_ENDLABELEDITW, LVN_ENDLABELEDITA, Way::Told, sizeof(NMLVDISPINFOW), kItemText, 0, Always},
    {LVN_ODFINDITEMW, LVN_ODFINDITEMA, Way::Told, sizeof(NMLVFINDITEMW), kFindText, 0, SearchesForText},
    {LVN_INCREMENTALSEARCHW, LVN_INCREMENTALSEARCHA, Way::Told, sizeof(NMLVFINDITEMW), kFindText, 0, SearchesForText},
    {LVN_GETINFOTIPW, LVN_GETINFOTIPA, Way::Extended, sizeof(NMLVGETINFOTIPW), offsetof(NMLVGETINFOTIPW, pszText),
     offsetof(NMLVGETINFOTIPW, cchTextMax), Always},
    {HDN_GETDISPINFOW, HDN_GETDISPINFOA, Way::Asked, sizeof(NMHDDISPINFOW), offsetof(NMHDDISPINFOW, pszText),
     offsetof(NMHDDISPINFOW, cchTextMax), AsksForHeaderText},
    {TBN_GETINFOTIPW, TBN_GETINFOTIPA, Way::Extended, sizeof(NMTBGETINFOTIPW), offsetof(NMTBGETINFOTIPW, pszText),
     offsetof(NMTBGETINFOTIPW, cchTextMax), Always},
    {TBN_GETBUTTONINFOW, TBN_GETBUTTONINFOA, Way::Asked, sizeof(NMTOOLBARW), offsetof(NMTOOLBARW, pszText),
     offsetof(NMTOOLBARW, cchText), Always},
    {TBN_GETDISPINFOW, TBN_GETDISPINFOA, Way::Asked, sizeof(NMTBDISPINFOW), offsetof(NMTBDISPINFOW, pszText),
     offsetof(NMTBDISPINFOW, cchText), AsksForButtonText},
};

/// One field of a structure that is known by its place only.
template <class Field>
Field FieldAt(const void* structure, std::size_t place) noexcept {
  Field field;
  std::memcpy(&field, static_cast<const std::byte*>(structure) + place, sizeof field);
  return field;
}

template <class Field>
void SetFieldAt(void* structure, std::size_t place, Field field) noexcept {
  std::memcpy(static_cast<std::byte*>(structure) + place, &field, sizeof field);
}

class ByTable final : public NarrowNotification {
 public:
  ByTable(const Row& row, NMHDR* wide) : row_(row), wide_(wide), bytes_(row.size) {
    std::memcpy(bytes_.data(), wide, row.size);
    Get()->code = row.narrowCode;
    auto* const text = FieldAt<wchar_t*>(wide, row.text);
    if (!row.hasText(wide) || !IsText(text)) return;
    text_ = text;
    const std::string sjis = row.way == Way::Asked ? std::string() : ToShiftJis(text);
    room_.resize(row.way == Way::Told ? sjis.size() + 1
                                      : static_cast<std::size_t>(std::max(FieldAt<int>(wide, row.room), 0)));
    CopySjis(sjis, room_.data(), room_.size());
    SetFieldAt(bytes_.data(), row.text, room_.data());
  }

  NMHDR* Get() noexcept override { return reinterpret_cast<NMHDR*>(bytes_.data()); }

  void GiveBack(std::wstring* kept) override {
    auto* text = FieldAt<wchar_t*>(wide_, row_.text);
    if (text_ != nullptr && row_.way != Way::Told) text = Given(kept);
    const UINT code = wide_->code;
    std::memcpy(wide_, bytes_.data(), row_.size);
    wide_->code = code;
    SetFieldAt(wide_, row_.text, text);
  }

 private:
  /// The handler's text, in the control's own room where it fits.
  wchar_t* Given(std::wstring* kept) const {
    auto* const sjis = FieldAt<char*>(bytes_.data(), row_.text);
    if (!IsText(sjis)) return reinterpret_cast<wchar_t*>(sjis);
    const std::wstring given = ToWide(sjis);
    if (given.size() < room_.size()) {
      std::copy_n(given.c_str(), given.size() + 1, text_);
      return text_;
    }
    *kept = given;
    return kept->data();
  }

  const Row& row_;
  NMHDR* wide_;
  std::vector<std::byte> bytes_;
  wchar_t* text_ = nullptr;  ///< the control's; null for none
  std::vector<char> room_;
};

/// What a header tells of one of its items. The text is told, never asked for.
class OfHeaderItem final : public NarrowNotification {
 public:
  explicit OfHeaderItem(NMHDR* wide) : wide_(reinterpret_cast<NMHEADERW*>(wide)) {
    std::memcpy(&narrow_, wide_, sizeof narrow_);
    narrow_.hdr.code = wide->code - HDN_ITEMCHANGINGW + HDN_ITEMCHANGINGA;
    if (wide_->pitem == nullptr) return;
    std::memcpy(&item_, wide_->pitem, sizeof item_);
    if ((item_.mask & HDI_TEXT) != 0 && IsText(item_.pszText)) {
      text_ = ToShiftJis(wide_->pitem->pszText);
      item_.pszText = text_.data();
    }
    narrow_.pitem = &item_;
  }

  NMHDR* Get() noexcept override { return &narrow_.hdr; }

  void GiveBack(std::wstring*) override {
    if (wide_->pitem == nullptr) return;
    wchar_t* const text = wide_->pitem->pszText;
    std::memcpy(wide_->pitem, &item_, sizeof item_);
    wide_->pitem->pszText = text;
  }

 private:
  NMHEADERW* wide_;
  NMHEADERA narrow_{};
  HDITEMA item_{};
  std::string text_;
};

/// A tooltip control asks for the text of a tool.
class OfToolTip final : public NarrowNotification {
 public:
  explicit OfToolTip(NMHDR* wide) : wide_(reinterpret_cast<NMTTDISPINFOW*>(wide)) {
    narrow_.hdr = *wide;
    narrow_.hdr.code = TTN_GETDISPINFOA;
    narrow_.lpszText = narrow_.szText;
    narrow_.hinst = wide_->hinst;
    narrow_.uFlags = wide_->uFlags;
    narrow_.lParam = wide_->lParam;
  }

  NMHDR* Get() noexcept override { return &narrow_.hdr; }

  void GiveBack(std::wstring* kept) override {
    wide_->hinst = narrow_.hinst;
    wide_->uFlags = narrow_.uFlags;
    if (!IsText(narrow_.lpszText)) {
      wide_->lpszText = reinterpret_cast<wchar_t*>(narrow_.lpszText);
      return;
    }
    // What a handler writes into the structure may lack its terminator.
    const bool inside = narrow_.lpszText == narrow_.szText;
    const std::string_view room(narrow_.szText, sizeof narrow_.szText);
    *kept = ToWide(inside ? room.substr(0, room.find('\0')) : std::string_view(narrow_.lpszText));
    wide_->lpszText = kept->data();
    const std::size_t copied = std::min(kept->size(), std::size(wide_->szText) - 1);
    std::copy_n(kept->data(), copied, wide_->szText);
    wide_->szText[copied] = L'\0';
  }

 private:
  NMTTDISPINFOW* wide_;
  NMTTDISPINFOA narrow_{};
};

constexpr bool IsOfHeaderItem(UINT code) noexcept {
  return code <= HDN_ITEMCHANGINGW && code >= HDN_TRACKW && code != HDN_GETDISPINFOW;
}

}  // namespace

bool HasTurnedNotifications(HWND control) {
  static constexpr std::array<const wchar_t*, 4> kClasses = {WC_LISTVIEWW, WC_HEADERW, TOOLBARCLASSNAMEW,
                                                             TOOLTIPS_CLASSW};
  std::array<wchar_t, 64> name = {};
  ::GetClassNameW(control, name.data(), static_cast<int>(name.size()));
  return std::any_of(kClasses.begin(), kClasses.end(), [&name](const wchar_t* known) {
    return ::CompareStringOrdinal(name.data(), -1, known, -1, TRUE) == CSTR_EQUAL;
  });
}

std::unique_ptr<NarrowNotification> Narrowed(const Message& message) {
  if (message.id != WM_NOTIFY) return nullptr;
  NMHDR* const wide = message.Notification();
  if (wide->code == TTN_GETDISPINFOW) return std::make_unique<OfToolTip>(wide);
  if (IsOfHeaderItem(wide->code)) return std::make_unique<OfHeaderItem>(wide);
  const auto* const row = std::find_if(std::begin(kRows), std::end(kRows),
                                       [wide](const Row& known) { return known.wideCode == wide->code; });
  return row != std::end(kRows) ? std::make_unique<ByTable>(*row, wide) : nullptr;
}

}  // namespace framework
