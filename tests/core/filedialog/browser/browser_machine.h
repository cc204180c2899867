// A scripted machine for tests of the file browser without a window.
//
// It has the drives C (fixed, "SYSTEM") and D (removable), a desktop in C:\desktop, and the folder C:\data of kAllRows;
// the suite knows the kind "#MODEL#" in C:\data.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/core/filedialog/browser/played_browser.h"

namespace browser_test {

inline constexpr char kLayoutKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #MODEL#";
inline constexpr char kCaption[] = "図面を開く";

extern const Texts kAllRows;

/// What a run of the browser left.
struct Outcome {
  int answer = 0;
  std::string result;  ///< the file buffer's text
};

class FileBrowserTest : public testing::Test {
 protected:
  FileBrowserTest();
  ~FileBrowserTest() override;

  /// Runs the browser with `startUp_`, `initialName_` and a file buffer of `capacity_` bytes. `prepare` sets what the
  /// person will answer before the browser starts. A browser that the script leaves open is cancelled.
  Outcome Run(const std::function<void(PlayedBrowser&)>& script,
              const std::function<void(PlayedBrowser&)>& prepare = {});

  [[nodiscard]] static os::scripted::Machine& World() { return os::scripted::World(); }
  [[nodiscard]] static CwFileTypeSet& Kinds() { return *CwSession::GetInstance()->GetActiveFileTypeSet(); }
  [[nodiscard]] static std::vector<std::uint32_t>& Beeps() { return World().session.beeps; }
  /// How many folders were listed since the last call of this.
  static std::size_t TakeListings();
  /// The recent files as they are in the registry, the first one first.
  [[nodiscard]] static Texts SavedRecentFiles();

  filedialog::StartUp startUp_;
  std::string initialName_;
  std::size_t capacity_ = 256'000;
};

}  // namespace browser_test
