#pragma once

#define IDD_INPUT_CHECKS 200

// Fields, and what belongs to field n of them.
#define IDC_FILE 1001
#define IDC_NAME 1002
#define IDC_SCALE 1003
#define IDC_NUMBER 1004
#define IDC_CHECK_FILE 1011
#define IDC_CHECK_NAME 1012
#define IDC_CHECK_SCALE 1013
#define IDC_CHECK_NUMBER 1014
#define IDC_DELETE_FILE 1021
#define IDC_DELETE_NAME 1022

// Radio buttons and check boxes, in the order of the values that they stand for.
#define IDC_INPUT 1031
#define IDC_OUTPUT 1032
#define IDC_CAPITALS 1041
#define IDC_SMALL_LETTERS 1042
#define IDC_DIGITS 1043
#define IDC_SYMBOLS 1044
#define IDC_KATAKANA 1045
#define IDC_DOUBLE_BYTE 1046
#define IDC_UNSIGNED 1051
#define IDC_REAL 1052
#define IDC_SIGNED 1053
