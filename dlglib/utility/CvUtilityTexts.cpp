// Stored texts, checks of what was typed, numbers, and texts of controls.
#include <array>

#include "dlglib/base/edge.h"
#include "dlglib/base/stored_text.h"
#include "dlglib/base/trailing_blanks.h"
#include "dlglib/utility/CvUtility.h"
#include "dlglib/utility/CvUtilityState.h"
#include "dlglib/utility/rules/bit_array.h"
#include "dlglib/utility/rules/char_class.h"
#include "dlglib/utility/rules/file_name_check.h"
#include "dlglib/utility/rules/number_text.h"
#include "platform/os/edit_composition.h"

namespace {

/// Room of the texts that are converted in place and of those that go to a control.
constexpr int kTextSize = 513;

[[nodiscard]] std::size_t RoomOf(int size) noexcept { return size > 0 ? static_cast<std::size_t>(size) : 0; }

[[nodiscard]] bool Writable(const char* out, int size) noexcept { return out != nullptr && size > 0; }

/// Copies byte for byte, for texts that may end in the middle of a character.
void CopyCut(char* out, std::size_t capacity, std::string_view text) {
  const std::string_view whole = text.substr(0, text.find('\0'));
  out[whole.copy(out, capacity - 1)] = '\0';
}

/// For want of memory: a text that was to be converted in place stays, any other result is empty.
void LeaveUnconverted(const char* text, char* out) noexcept {
  if (out != nullptr && out != text) *out = '\0';
}

/// What a control shows of a stored text.
[[nodiscard]] std::string ShownText(const char* euc) {
  std::string text = stored_text::ToScreen(EucOf(euc), RoomOf(kTextSize) - 1).bytes();
  text.resize(trailing_blanks::TrimmedLength(text));
  return text;
}

}  // namespace

void CvUtility::EucToSjis(const char* text, char* out, int size) noexcept {
  if (!Writable(out, size)) return;
  const bool converted = edge::Guarded([&] {
    const SjisText sjis = stored_text::ToScreen(EucOf(text), RoomOf(size) - 1);
    shift_jis::CopyBounded(out, RoomOf(size), sjis.bytes());
  });
  if (!converted) LeaveUnconverted(text, out);
}

void CvUtility::SjisToEuc(const char* text, char* out, int size) noexcept {
  if (!Writable(out, size)) return;
  const bool converted = edge::Guarded([&] {
    const EucText euc = stored_text::ToStored(SjisOf(text), RoomOf(size) - 1);
    CopyCut(out, RoomOf(size), euc.bytes());
  });
  if (!converted) LeaveUnconverted(text, out);
}

void CvUtility::ToEUC(CString text, char* out) noexcept {
  const bool converted = edge::Guarded([&] {
    state_->work.AssignScreen(ViewOf(text));
    SjisToEuc(state_->work.Text(), out, kTextSize);
  });
  if (!converted) LeaveUnconverted(text, out);
}

void CvUtility::ToEUC(CString text) noexcept {
  // The copy is what is converted: callers go on with their text, and with the work buffer, as they were.
  edge::Guarded([&] {
    std::array<char, kTextSize> euc = {};
    SjisToEuc(text, euc.data(), kTextSize);
    text = euc.data();
  });
}

void CvUtility::ToEUC(char* text) noexcept { SjisToEuc(text, text, kTextSize); }

void CvUtility::ToSJIS(char* text) noexcept {
  edge::Guarded([&] {
    state_->work.AssignStored(EucOf(text));
    const SjisText sjis = stored_text::ToScreen(EucView(state_->work.View()), RoomOf(kTextSize) - 1);
    shift_jis::CopyBounded(text, RoomOf(kTextSize), sjis.bytes());
  });
}

int CvUtility::CheckModelName(const char* name) noexcept { return file_name_check::IsModelName(ViewOf(name)) ? 1 : 0; }

int CvUtility::CheckModelName(CString name) noexcept { return CheckModelName(name.GetString()); }

int CvUtility::CheckNumber(CString text, int mode, double minimum, double maximum) noexcept {
  return edge::Guarded(0, [&] {
    const std::string_view typed = ViewOf(text);
    state_->work.AssignScreen(typed);
    return number_text::CheckNumber(typed, mode, minimum, maximum) ? 1 : 0;
  });
}

int CvUtility::CheckScale(const char* text, double* scale) noexcept {
  if (scale != nullptr) *scale = 0;
  return edge::Guarded(0, [&] {
    auto& work = state_->work;
    const number_text::Scale parsed = number_text::ParseScale(ViewOf(text));
    work.AssignScreen(parsed.lastChecked);
    if (scale != nullptr) *scale = parsed.value.value_or(0);
    return parsed.value ? 1 : 0;
  });
}

void CvUtility::DisplayScale(double scale, char* text) noexcept {
  constexpr std::size_t kScaleSize = 32;
  const std::string shown = edge::Guarded(std::string(), [&] { return number_text::ScaleText(scale); });
  shift_jis::CopyBounded(text, kScaleSize, shown);
}

char* CvUtility::DtoA(double value) noexcept {
  static std::array<char, number_text::kMaxDecimalLength + 1> text = {};
  const std::string shown = edge::Guarded(std::string(), [&] { return number_text::DecimalText(value); });
  shift_jis::CopyBounded(text.data(), text.size(), shown);
  return text.data();
}

int CvUtility::BitSet(int operation, int bit, short* words) noexcept {
  return bit_array::BitSet(operation, bit, words);
}

int CvUtility::CheckChar(unsigned int mask, unsigned int code) noexcept {
  return (mask & char_class::ClassOf(code)) != 0 ? 1 : 0;
}

void CvUtility::SpaceNull(char* text) noexcept { trailing_blanks::Trim(text); }

void CvUtility::ExceptSpace(CString* text) noexcept {
  if (text == nullptr) return;
  const auto kept = static_cast<int>(trailing_blanks::TrimmedLengthAfterFirst(text->View()));
  for (int at = text->GetLength() - 1; at >= kept; --at) text->SetAt(at, '\0');
}

void CvUtility::ToUpper(char* text) {
  if (text == nullptr) return;
  const std::string upper = shift_jis::ToUpperBytes(text);
  upper.copy(text, upper.size());
}

void CvUtility::KillFocus(CString* member) noexcept {
  if (member == nullptr) return;
  edge::Guarded([&] {
    if (state_->parent == nullptr || os::IsComposingIn(state_->parent->GetSafeHwnd())) return;
    os::KeepCompositionsWholeIn(state_->parent->GetSafeHwnd());
    state_->parent->UpdateData(TRUE);
    const std::string_view text = ViewOf(*member);
    *member = CString(text.substr(0, trailing_blanks::TrimmedLength(text)));
    MessageText("");
    state_->parent->UpdateData(FALSE);
  });
}

void CvUtility::SetEditBoxStyle(int controlId, const char* keyword) noexcept {
  edge::Guarded([&] {
    if (state_->parent == nullptr) return;
    const CWnd* edit = state_->parent->GetDlgItem(controlId);
    const int letterCase = GetFilnameUL(keyword);
    if (edit == nullptr || letterCase == 0) return;
    if (letterCase > 0) {
      edit->ModifyStyle(ES_LOWERCASE, ES_UPPERCASE);
    } else {
      edit->ModifyStyle(ES_UPPERCASE, ES_LOWERCASE);
    }
  });
}

void CvUtility::SetTextData(CWnd* window, const char* text) noexcept {
  if (window == nullptr) return;
  edge::Guarded([&] {
    const std::string shown = ShownText(text);
    window->SetWindowText(shown.c_str());
    state_->windowTexts.Note(window->m_hWnd, shown);
  });
}

void CvUtility::SetTextData(CString* text, const char* eucText) noexcept {
  if (text == nullptr) return;
  edge::Guarded([&] { *text = CString(ShownText(eucText)); });
}

void CvUtility::GetTextData(CWnd* window, char* out, int size) noexcept {
  if (!Writable(out, size)) return;
  const bool given = edge::Guarded(false, [&] {
    const auto noted = state_->windowTexts.Read(WindowRef::HandleOf(window));
    if (noted) GetTextData(CString(shift_jis::Truncate(*noted, kTextSize - 1)), out, size);
    return noted.has_value();
  });
  if (given) return;
  std::array<char, kTextSize> text = {};
  if (window != nullptr) edge::Guarded([&] { window->GetWindowText(text.data(), kTextSize); });
  text[shift_jis::Truncate(text.data(), text.size()).size()] = '\0';
  SjisToEuc(text.data(), out, size);
  SpaceNull(out);
}

void CvUtility::GetTextData(CString text, char* out, int size) noexcept {
  if (!Writable(out, size)) return;
  SjisToEuc(text, out, size);
  SpaceNull(out);
}
