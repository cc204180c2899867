// The driver tests' dialog in a program of its own; its exit code is the dialog's result.
#include "tests/windows/driver/test_dialog.h"

int main() {
  driver_test::Record record;
  record.busyMs = 300;
  driver_test::ShowTestDialog(&record);
  return record.result;
}
