// The file browser without a window on the scripted machine.
#pragma once

#include <functional>

#include "tests/core/filedialog/browser/browser_machine.h"
#include "tests/core/filedialog/browser/played_browser.h"

namespace browser_test {

inline constexpr char kFileNotFound[] =
    "\nファイルが見つかりません。\n指定したファイル名が正しいかどうか確認してください。";
inline constexpr char kPathNotFound[] = "\nパスが見つかりません。\n指定したパス名が正しいかどうか確認してください。";

/// Exactly one message was shown since the last look.
inline void ExpectWarning(PlayedBrowser& browser, const std::string& text) {
  EXPECT_EQ(browser.TakeShown(), (std::vector<PlayedBrowser::Shown>{{"warn", text, kCaption}}));
}

class FileBrowserTest : public BrowserMachine {
 protected:
  /// Runs the browser with `startUp_`, `initialName_` and a file buffer of `capacity_` bytes. `prepare` sets what the
  /// person will answer before the browser starts. A browser that the script leaves open is cancelled.
  Outcome Run(const std::function<void(PlayedBrowser&)>& script,
              const std::function<void(PlayedBrowser&)>& prepare = {}) {
    return RunWith([&](const filedialog::StartUp& startUp) {
      PlayedBrowser browser(startUp);
      if (prepare) prepare(browser);
      browser.Open();
      if (browser.IsOpen()) script(browser);
      if (browser.IsOpen()) browser.Cancel();
      return browser.Answer();
    });
  }
};

}  // namespace browser_test
