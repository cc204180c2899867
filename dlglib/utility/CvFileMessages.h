// CvFileMessages: the message boxes about a file that is to be read or written.
#pragma once

#include "dlglib/base/encoded_text.h"
#include "dlglib/utility/rules/file_lookup.h"
#include "platform/framework/window_ref.h"

class CvFileMessages {
 public:
  /// `owner` owns the boxes; one without a window is none. `caption` is their title, borrowed.
  CvFileMessages(WindowRef owner, const char* caption) : owner_(owner), caption_(caption) {}

  /// Tells that a file that was to be read is not there. Pumps messages.
  void TellInputMissing(const SjisText& path) const;
  /// Whether a file may be written: the user is asked about one that is there, and told when there is no such folder.
  /// Pumps messages.
  [[nodiscard]] bool MayWrite(const file_lookup::Output& output) const;

 private:
  int BeepAndShow(const SjisText& text, unsigned int style) const;

  WindowRef owner_;
  const char* caption_;
};
