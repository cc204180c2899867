#include "dlglib/utility/CvUtility.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/base/edge.h"
#include "dlglib/base/keyword_class.h"
#include "dlglib/utility/CvUtilityState.h"
#include "dlglib/utility/rules/message_text.h"
#include "dlglib/utility/rules/message_zone.h"
#include "platform/framework/detail/text_drawing.h"
#include "platform/framework/gdi.h"
#include "platform/os/display.h"
#include "platform/os/edit_composition.h"
#include "platform/suite/crvncontrol.h"

namespace {

constexpr COLORREF kBlack = 0;

/// The window's font, or the system's when it has none of its own. Borrowed.
[[nodiscard]] HFONT FontOf(const CWnd& window) {
  const HFONT font = window.GetFont();
  return font != nullptr ? font : static_cast<HFONT>(::GetStockObject(SYSTEM_FONT));
}

/// Pixels.
[[nodiscard]] int HeightOf(HFONT font) {
  LOGFONTW logFont = {};
  ::GetObjectW(font, sizeof(logFont), &logFont);
  return std::abs(static_cast<int>(logFont.lfHeight));
}

[[nodiscard]] int ClientBottom(const CWnd& window) {
  RECT client = {};
  window.GetClientRect(&client);
  return client.bottom;
}

void WriteText(HDC dc, message_zone::Point at, COLORREF color, std::string_view text) {
  ::SetTextColor(dc, color);
  framework::TextOutSjis(dc, at.x, at.y, text);
}

/// The colour in force beside a point; that of dialogs where nothing can be read, as behind other windows.
[[nodiscard]] COLORREF BackgroundBefore(HDC dc, message_zone::Point at) {
  const COLORREF color = ::GetPixel(dc, at.x - 1, at.y - 1);
  return color != CLR_INVALID ? color : ::GetSysColor(COLOR_BTNFACE);
}

}  // namespace

CvUtility::CvUtility() noexcept : state_(edge::Made<State>([] { return std::make_unique<State>(); })) {}

CvUtility::~CvUtility() = default;

// The title is read into room of its own, so that only a utility that is not there can fail.
void CvUtility::SetParentWindow(CWnd* parent) noexcept {
  edge::Guarded([&] {
    state_->parent = parent;
    if (parent == nullptr) return;
    os::KeepCompositionsWholeIn(parent->GetSafeHwnd());
    std::array<char, 2 * decltype(state_->caption)::kCapacity> title = {};
    parent->GetWindowText(title.data(), static_cast<int>(title.size()));
    state_->caption.AssignScreen(title.data());
  });
}

void CvUtility::SetMessageWindow(CWnd* window) noexcept {
  edge::Guarded([&] { state_->messageWindow = window; });
}

void CvUtility::SetCaption(const char* caption) noexcept {
  edge::Guarded([&] {
    state_->caption.AssignScreen(ViewOf(caption));
    if (state_->parent != nullptr) state_->parent->SetWindowText(state_->caption.Text());
  });
}

char* CvUtility::GetCaption() noexcept {
  return edge::Guarded(NoText(), [&] { return state_->caption.Data(); });
}

void CvUtility::SetComment(const char* comment) noexcept {
  edge::Guarded([&] { state_->comment.AssignScreen(ViewOf(comment)); });
}

void CvUtility::SetKeyword(const char* keyword) noexcept {
  edge::Guarded([&] {
    using keyword_class::TitleDisplay;
    const bool displayed = CwSession::GetInstance()->GetSessionParam()->GetFileTitleDisplay() != 0;
    state_->keyword.AssignStored(EucOf(keyword));
    state_->keywordClass = keyword_class::ClassOf(ViewOf(keyword), displayed ? TitleDisplay::On : TitleDisplay::Off);
  });
}

void CvUtility::SetWildcard(const char* pattern) noexcept {
  edge::Guarded([&] {
    const std::string_view given = ViewOf(pattern);
    state_->wildcard.AssignScreen(given.empty() ? "*" : given);
  });
}

void CvUtility::SetWildcard(CString pattern) noexcept { SetWildcard(pattern.GetString()); }

// Nothing asks for it.
void CvUtility::SetFileIO(int) noexcept {}

void CvUtility::SetNoDirectoryEntry(int mode) noexcept {
  edge::Guarded([&] { state_->noDirectoryEntry = mode; });
}

// Messages are black.
void CvUtility::SetTextColor(COLORREF) noexcept {}

void CvUtility::SetFocus(int controlId) noexcept {
  edge::Guarded([&] {
    if (state_->parent == nullptr) return;
    const CWnd* control = state_->parent->GetDlgItem(controlId);
    if (control != nullptr) control->SetFocus();
  });
}

void CvUtility::MessageText(const char* text) noexcept {
  edge::Guarded([&] {
    if (state_->parent == nullptr) return;
    if (state_->messageWindow != nullptr) {
      TellMessage(*state_->messageWindow, text, state_->repeated);
    } else if (state_->parent->IsWindow()) {
      DrawMessage(ViewOf(text));
    }
  });
}

void CvUtility::DrawMessage(std::string_view text) {
  const ClientDc dc(state_->parent->GetSafeHwnd());
  const HFONT font = FontOf(*state_->parent);
  const Selected selected(dc.Get(), font);
  const message_zone::Point at = message_zone::TextOrigin(HeightOf(font), ClientBottom(*state_->parent));
  // The former message vanishes in the colour of what lies beside it.
  const COLORREF background = BackgroundBefore(dc.Get(), at);
  ::SetBkColor(dc.Get(), background);
  WriteText(dc.Get(), at, background, state_->lastMessage.View());
  state_->lastMessage.AssignScreen(text);
  const COLORREF ink = os::ThisDisplay().HasHighContrast() ? ::GetSysColor(COLOR_BTNTEXT) : kBlack;
  WriteText(dc.Get(), at, ink, state_->lastMessage.View());
  state_->spokenMessage.Tell(state_->parent, {at.x, at.y}, state_->lastMessage.Text(), state_->repeated);
}

void CvUtility::ErrorText(const char* text) noexcept {
  edge::Guarded([&] { os::Services().session->Beep(os::kBeepSimple); });
  edge::Guarded([&] {
    state_->repeated = Repeated::IsNews;
    const AtScopeEnd over([this] { state_->repeated = Repeated::IsNoNews; });
    MessageText(text);
  });
}

void CvUtility::GetMessageText(int number, char* out) noexcept {
  const SjisText text = edge::Guarded(SjisText(), [&] { return message_text::Find(number); });
  shift_jis::CopyBounded(out, message_text::kMaxLength + 1, text.bytes());
}

void CvUtility::ErrorNo(int number) noexcept {
  edge::Guarded([&] {
    BoundedText<151> text;
    text.AssignScreen(message_text::Find(number));
    ErrorText(text.Text());
  });
}

void CvUtility::SetMessageZone() noexcept {
  edge::Guarded([&] {
    if (state_->parent == nullptr) return;
    ResizeWindow(0, message_zone::Growth(HeightOf(FontOf(*state_->parent))));
  });
}

void CvUtility::ResizeWindow(int widthChange, int heightChange) noexcept {
  edge::Guarded([&] {
    if (state_->parent == nullptr) return;
    RECT window = {};
    state_->parent->GetWindowRect(&window);
    const int width = window.right - window.left + widthChange;
    const int height = window.bottom - window.top + heightChange;
    // A place in the middle of the screen is given with the size and not used: the dialog stays where it is.
    const int x = ::GetSystemMetrics(SM_CXSCREEN) / 2 - width / 2;
    const int y = ::GetSystemMetrics(SM_CYSCREEN) / 2 - height / 2;
    state_->parent->SetWindowPos(nullptr, x, y, width, height, SWP_NOMOVE | SWP_NOZORDER);
  });
}

void CvUtility::MoveWindow(CWnd* control, int dx, int dy) noexcept {
  edge::Guarded([&] {
    if (state_->parent != nullptr && control != nullptr) MoveControl(*control, dx, dy);
  });
}

void CvUtility::MoveControl(const WindowRef& control, int dx, int dy) {
  RECT place = {};
  control.GetWindowRect(&place);
  state_->parent->ScreenToClient(&place);
  control.SetWindowPos(nullptr, place.left + dx, place.top + dy, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

char* CvUtility::NoText() noexcept {
  static std::array<char, decltype(State::work)::kCapacity> room = {};
  room.front() = '\0';  // a caller may have written into it
  return room.data();
}
