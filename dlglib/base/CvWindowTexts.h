// CvWindowTexts: remembers the bytes of texts that were put into windows, for when they are read again: what has stayed
// of a text keeps its bytes, which a window does not (shown_text.h). Texts are Shift_JIS.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "dlglib/base/shown_text.h"
#include "platform/framework/win32.h"
#include "platform/framework/window_handle.h"

class CvWindowTexts {
 public:
  /// `window` shows `text` now. Nothing is noted when it shows something else, as where letters are folded.
  void Note(HWND window, std::string_view text);

  /// The text of a window that was noted, when it still is that very text.
  [[nodiscard]] std::optional<std::string> Untouched(HWND window) const;
  /// The text of a window that was noted, whatever has become of it.
  [[nodiscard]] std::optional<std::string> Read(HWND window) const;

  /// An edit control in front of an insertion.
  struct Before {
    HWND window = nullptr;
    std::string text;
    std::wstring shown;
    shown_text::Part selected;
  };
  /// Of a window of this thread; another one may hang.
  [[nodiscard]] Before LookAt(HWND window) const;
  /// `inserted` has taken the place of the selection. Nothing is noted of an insertion that came out otherwise.
  void NoteInsertion(const Before& before, std::string_view inserted);

 private:
  void DropDeadWindows();

  struct Less {
    bool operator()(HWND a, HWND b) const noexcept { return framework::HandleBits(a) < framework::HandleBits(b); }
  };
  std::map<HWND, std::string, Less> texts_;
};
