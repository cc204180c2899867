// Core library crvndlg: two small dialogs that ask for a text of the text libraries and for a register. Windows only.
//
// Both run modally on the calling thread and pump messages; the owner's top-level window is disabled meanwhile. The
// owner is a window handle, that of a control too; null, or that of a window that is gone, is none. No exception leaves
// them.
#pragma once

#include <string>

#include "platform/suite/export.h"

/// Lists the texts of the session's text libraries and asks for one of them.
///
/// `library`: the file name of a library, or a pattern for several ("*" is all of them), EUC-JP; the user may ask for
/// another one in the dialog. `out`: receives the text (EUC-JP), closed with a terminator; one of more than `size` - 1
/// bytes is cut between two characters. `reserved` is not used.
///
/// 1 when the user has chosen a text. 0, and `out` as it was, when not, when there is no room for a text (`out` null or
/// `size` below 1: nothing is shown), or when the dialog cannot be shown.
SUITE_API int TlbDialog(void* owner, int reserved, const std::string& library, char* out, int size);

/// Lists the session's registers with their groups, names and values and asks for one of them.
///
/// `title`: the dialog's title, Shift_JIS; null is empty. `reserved` is not used.
///
/// The register's code, 1000 for each group behind the first and the index in the group: 12 for "A12", 1000 for "B0". 0
/// when the user has chosen none or the dialog cannot be shown. A register whose code would be 0 ("A0") or that belongs
/// to no group is shown, but cannot be chosen.
SUITE_API int RegDspDialog(const char* title, void* owner, int reserved);
