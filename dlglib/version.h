// The version that these headers belong to. The library that is loaded says its own by DlglibVersion (dlglib_c.h), also
// to programs in C++: a program that needs something which a later version has brought compares the two.
//
//   if (DlglibVersion() < DLGLIB_VERSION) ...   // an older DLL than this program was built with
//
// Within one first number an older program runs with a newer DLL: docs/versions.md says what may change when. Plain
// C99.
#pragma once

#define DLGLIB_VERSION_MAJOR 1  ///< grows when programs must be compiled anew
#define DLGLIB_VERSION_MINOR 0  ///< grows with what is added
#define DLGLIB_VERSION_PATCH 0  ///< grows with what is mended
/// 10000 times the first number, 100 times the second, the third: 10000 is version 1.0.0. Each number is below 100.
#define DLGLIB_VERSION (10000 * DLGLIB_VERSION_MAJOR + 100 * DLGLIB_VERSION_MINOR + DLGLIB_VERSION_PATCH)
/// The same as a text.
#define DLGLIB_VERSION_TEXT "1.0.0"
