#pragma once

#define IDD_TEXT_EDITOR 220

// Fields, and the labels in front of them.
#define IDC_TITLE_TEXT 1001
#define IDC_FIRST_NOTE 1002
#define IDC_SECOND_NOTE 1003
#define IDC_STORED_BYTES 1004  // read-only
#define IDC_TITLE_LABEL 1011
#define IDC_FIRST_NOTE_LABEL 1012
#define IDC_SECOND_NOTE_LABEL 1013
#define IDC_STORED_LABEL 1014

#define IDC_STORE_TEXTS 1021
#define IDC_READ_TEXTS 1022
