// A plain dialog for the driver's own tests; it uses nothing of the library.
#pragma once

#include <string>
#include <vector>

namespace driver_test {

inline constexpr int kLabel = 1001;
inline constexpr int kEdit = 1002;
inline constexpr int kCheck = 1003;
inline constexpr int kCombo = 1004;
inline constexpr int kList = 1005;
inline constexpr int kMenuButton = 1006;
inline constexpr int kAskButton = 1007;
inline constexpr int kDisabledButton = 1008;
inline constexpr int kBlackBox = 1009;
inline constexpr char kTitle[] = "運転の試験";

/// What the dialog noticed.
struct Record {
  int result = 0;
  std::string editText;
  unsigned menuChoice = 0;
  int boxAnswer = 0;
  std::vector<int> clickedRows;
  std::vector<int> doubleClickedRows;
  std::vector<int> rightClickedRows;
  std::vector<int> clickedColumns;
  /// Set before the dialog runs to make it crash.
  bool crashesAtStart = false;
  /// How long the dialog is busy with a click on its check box, in milliseconds.
  unsigned long busyMs = 0;
};

/// Runs the dialog on this thread. `record` is filled until it returns, `result` last.
void ShowTestDialog(Record* record);

/// Writes through a null pointer.
void Crash();

}  // namespace driver_test
