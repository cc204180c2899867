#include "dlglib/base/CvWindowTexts.h"

#include "platform/framework/detail/wide_text.h"

using framework::ToShiftJis;
using framework::ToWide;
using framework::WideTextOf;

void CvWindowTexts::Note(HWND window, std::string_view text) {
  DropDeadWindows();
  texts_.erase(window);
  if (ToWide(text) == WideTextOf(window)) texts_.emplace(window, text);
}

std::optional<std::string> CvWindowTexts::Untouched(HWND window) const {
  const auto noted = texts_.find(window);
  if (noted == texts_.end() || ToWide(noted->second) != WideTextOf(window)) return std::nullopt;
  return noted->second;
}

std::optional<std::string> CvWindowTexts::Read(HWND window) const {
  const auto noted = texts_.find(window);
  if (noted == texts_.end()) return std::nullopt;
  return shown_text::BytesOf(noted->second, WideTextOf(window), {ToWide, ToShiftJis});
}

CvWindowTexts::Before CvWindowTexts::LookAt(HWND window) const {
  if (::GetWindowThreadProcessId(window, nullptr) != ::GetCurrentThreadId()) return {};
  DWORD start = 0;
  DWORD end = 0;
  ::SendMessageW(window, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  const std::wstring shown = WideTextOf(window);
  return {window, Read(window).value_or(ToShiftJis(shown)), shown, {start, end}};
}

void CvWindowTexts::NoteInsertion(const Before& before, std::string_view inserted) {
  const auto [start, end] = before.selected;
  if (before.window == nullptr || start > end || end > before.shown.size()) return;
  const std::wstring after = WideTextOf(before.window);
  if (after != before.shown.substr(0, start) + ToWide(inserted) + before.shown.substr(end)) return;
  const std::string text = shown_text::Replace(before.text, before.selected, inserted, {ToWide, ToShiftJis});
  Note(before.window, text);
}

void CvWindowTexts::DropDeadWindows() {
  std::erase_if(texts_, [](const auto& noted) { return ::IsWindow(noted.first) == FALSE; });
}
