// A scripted machine for tests of the file browser, with its window and without.
//
// It has the drives C (fixed, "SYSTEM") and D (removable), a desktop in C:\desktop, and the folder C:\data of kAllRows;
// the suite knows the kind "#MODEL#" in C:\data.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "dlglib/filedialog/basics/start_up.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"

namespace browser_test {

using Texts = std::vector<std::string>;

inline constexpr char kLayoutKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #MODEL#";
inline constexpr char kCaption[] = "図面を開く";

extern const Texts kAllRows;

/// What a run of the browser left.
struct Outcome {
  int answer = 0;
  std::string result;  ///< the file buffer's text
};

class BrowserMachine : public testing::Test {
 protected:
  BrowserMachine();
  ~BrowserMachine() override;

  /// Lets `browse` show the browser with `startUp_`, `initialName_` and a file buffer of `capacity_` bytes, and answer
  /// as DoModal does.
  Outcome RunWith(const std::function<int(const filedialog::StartUp&)>& browse);

  [[nodiscard]] static os::scripted::Machine& World() { return os::scripted::World(); }
  [[nodiscard]] static CwFileTypeSet& Kinds() { return *CwSession::GetInstance()->GetActiveFileTypeSet(); }
  [[nodiscard]] static std::vector<std::uint32_t>& Beeps() { return World().session.beeps; }
  /// How many folders were listed since the last call of this.
  static std::size_t TakeListings();
  /// A value of the layout that the registry holds, and what it was set to; -1 when there is none.
  static void SaveNumber(const std::string& name, std::uint32_t number, const std::string& key = kLayoutKey);
  [[nodiscard]] static std::int64_t SavedNumber(const std::string& name, const std::string& key = kLayoutKey);
  /// The recent files as they are in the registry, the first one first.
  [[nodiscard]] static Texts SavedRecentFiles();

  filedialog::StartUp startUp_;
  std::string initialName_;
  std::size_t capacity_ = 256'000;
};

}  // namespace browser_test
