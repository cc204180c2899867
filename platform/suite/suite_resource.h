// Numbers of the suite's dialogs and of the controls in them. Read by the resource compiler as well, so these are
// macros. They keep clear of the library's own numbers: a program may hold both.
#pragma once

#define IDD_TEXT_LIBRARY 20001
#define IDD_REGISTERS 20002

// A static text that no program asks for.
#define IDC_NONE (-1)

#define IDC_LIBRARY_NAME 20101  // combo: a library's file name, or a pattern
#define IDC_LIBRARY_TEXTS 20102
#define IDC_LIBRARY_COUNT 20103
#define IDC_REGISTER_LIST 20111
#define IDC_REGISTER_NOTE 20112
