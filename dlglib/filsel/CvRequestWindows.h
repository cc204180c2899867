// The windows of a file selection request: the library's browser, and the box with a refusal.
#pragma once

#include "dlglib/filsel/file_request.h"

class CWnd;

namespace filsel {

/// Runs the library's browser modally over `parent` (borrowed, may be null) with the library's own resources in force.
/// Pumps messages. Answers kNoBrowser when the window cannot be made.
[[nodiscard]] int RunBrowserOver(CWnd* parent, const filedialog::StartUp& startUp);

}  // namespace filsel

/// Shows them over one parent. Lives as long as one run.
class CvRequestWindows final : public filsel::RequestWindows {
 public:
  /// `parent`: borrowed, may be null. `caption`: of message boxes; must outlive the object.
  CvRequestWindows(CWnd* parent, const SjisText& caption) : parent_(parent), caption_(caption) {}

  int RunBrowser(const filedialog::StartUp& startUp) override;
  void ShowRefusal(const SjisText& text) override;

 private:
  CWnd* parent_;
  const SjisText& caption_;
};
