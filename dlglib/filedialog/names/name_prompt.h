// The messages of the name check.
#pragma once

#include <string>

#include "dlglib/filedialog/basics/reply.h"
#include "platform/os/os.h"

namespace filedialog {

/// Shows the messages of the name check: boxes that bear the browser's caption and the exclamation icon. Texts are
/// Shift_JIS with "\n" between lines.
class NamePrompt {
 public:
  virtual ~NamePrompt() = default;
  /// Shows a message with an OK button.
  [[nodiscard]] virtual Reply<Done> Warn(const std::string& text) = 0;
  /// Shows a question with yes and no buttons; true for yes.
  [[nodiscard]] virtual Reply<bool> AskOverwrite(const std::string& text) = 0;
};

/// Whom a check of names asks: the machine and the user.
struct NameAsks {
  const os::ServiceTable& services;
  NamePrompt& prompt;
};

}  // namespace filedialog
