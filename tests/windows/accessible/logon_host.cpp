// The logon in a program of its own; its exit code is the dialog's result.
#include "dlglib/filedialog/dialogs/CvFileUser.h"

int main() { return static_cast<int>(CvFileUser(nullptr, "\\\\server\\share").DoModal()); }
