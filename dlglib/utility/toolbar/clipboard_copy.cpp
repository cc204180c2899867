#include "dlglib/utility/toolbar/clipboard_copy.h"

namespace clipboard_copy {
namespace {

/// A copy that changed nothing has failed, even if the clipboard held the same text before.
bool CopyOnce(os::Clipboard& clipboard, const std::string& text, os::WindowHandle owner, const Actions& actions) {
  if (!clipboard.CanOpen(owner)) return false;
  const std::uint32_t before = clipboard.Sequence();
  actions.copy();
  return clipboard.Sequence() != before && clipboard.Text(owner) == text;
}

}  // namespace

bool TryCopy(os::Clipboard& clipboard, const std::string& text, os::WindowHandle owner, const Actions& actions) {
  for (int tried = 0; tried < kTries; ++tried) {
    if (CopyOnce(clipboard, text, owner, actions)) return true;
    actions.pause(kPauseMs);
  }
  return false;
}

bool Holds(os::Clipboard& clipboard, const std::string& text, os::WindowHandle owner,
           const std::function<void(unsigned)>& pause) {
  for (int tried = 0; tried < kTries; ++tried) {
    if (const auto held = clipboard.Text(owner)) return *held == text;
    pause(kPauseMs);
  }
  return false;
}

}  // namespace clipboard_copy
