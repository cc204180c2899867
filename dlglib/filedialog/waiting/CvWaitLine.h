// CvWaitLine: the line by which a small dialog says what it waits for: grey, in free room of the dialog.
#pragma once

#include <string>

#include "platform/framework/controls.h"

class CvWaitLine {
 public:
  /// `place`: where it stands, in dialog units. `dialog` must outlive this.
  CvWaitLine(CWnd& dialog, const RECT& place) : dialog_(dialog), place_(place) {}

  /// Shift_JIS. Shown until it is hidden.
  void Show(const std::string& text);
  void Hide() noexcept;

 private:
  void Make();

  CWnd& dialog_;
  RECT place_;
  CStatic line_;
};
