// What the browser's presenter asks its user, beside what the name check asks.
//
// A question runs windows of its own and lets messages through, so the browser's window may be gone when it comes back
// (Reply). All texts are Shift_JIS.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "dlglib/filedialog/basics/reply.h"
#include "dlglib/filedialog/basics/slow_sort.h"
#include "dlglib/filedialog/names/name_prompt.h"
#include "dlglib/filedialog/place/network_logon.h"
#include "dlglib/filedialog/titles/title_slots.h"
#include "platform/os/os.h"

namespace filedialog {

class BrowserQuestions : public NamePrompt {
 public:
  /// A message with the stop icon, under a caption of its own (may be empty).
  [[nodiscard]] virtual Reply<Done> Refuse(const std::string& text, const std::string& caption) = 0;
  /// See NetworkLogon.
  [[nodiscard]] virtual Reply<std::optional<Credentials>> AskLogon(const std::string& path,
                                                                   const std::string& userName) = 0;
  /// Makes a folder in `folder`; its name, or inner none when none was made.
  [[nodiscard]] virtual Reply<std::optional<std::string>> AskNewFolder(const std::string& folder) = 0;
  /// Renames an entry of `folder`; whether it was renamed or left as it is on purpose.
  [[nodiscard]] virtual Reply<bool> AskRename(const std::string& folder, const std::string& name, bool isFile) = 0;
  /// Runs what shows windows of the system above this one, and answers what it does.
  [[nodiscard]] virtual Reply<bool> RunAbove(const std::function<bool(os::WindowHandle)>& run) = 0;
  /// Inner none: the titles stay. `rule` may have been changed either way.
  [[nodiscard]] virtual Reply<std::optional<TitleSlots>> AskTitles(SlowSortRule& rule, const TitleSlots& slots) = 0;
  /// Whether to sort beyond the limit. `rule` may have been changed either way. The header takes no click meanwhile.
  [[nodiscard]] virtual Reply<bool> AskSlowSort(SlowSortRule& rule) = 0;
};

}  // namespace filedialog
