// The file browser on a scripted machine, for a person who uses it.
//
// The machine has the drives C (fixed, "SYSTEM") and D (removable), a desktop in C:\desktop, and the folder C:\data of
// kAllRows; the suite knows the kind "#MODEL#" in C:\data.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "dlglib/filedialog/basics/start_up.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/browser/browser_view.h"

namespace browser_test {

inline constexpr char kLayoutKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #MODEL#";

/// What a run of the browser left.
struct Outcome {
  INT_PTR answer = 0;
  std::string result;  ///< the file buffer's text
};

class BrowserTest : public testing::Test {
 protected:
  BrowserTest();
  ~BrowserTest() override;

  /// Runs the browser with `startUp_`, `initialName_` and a file buffer of `capacity_` bytes. A browser that the script
  /// leaves open is cancelled.
  Outcome Run(const std::function<void(Browser&)>& script);

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
