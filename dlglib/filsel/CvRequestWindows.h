// The windows of a file selection request: the library's browser, and the box with a refusal.
#pragma once

#include <string>

#include "dlglib/filsel/file_request.h"

class CWnd;

/// Shows them over one parent. Lives as long as one run.
class CvRequestWindows final : public filsel::RequestWindows {
 public:
  /// `parent`: borrowed, may be null. `caption`: Shift_JIS, of message boxes; must outlive the object.
  CvRequestWindows(CWnd* parent, const std::string& caption) : parent_(parent), caption_(caption) {}

  /// Answers kCancelled when the window cannot be made.
  int RunBrowser(const filedialog::StartUp& startUp) override;
  void ShowRefusal(const std::string& text) override;

 private:
  CWnd* parent_;
  const std::string& caption_;
};
