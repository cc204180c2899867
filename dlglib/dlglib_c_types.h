// What all functions of the C interface share: how they are called, what they answer, how long texts may be. Included
// by dlglib_c.h, which says what holds for all functions.
#pragma once

// Read as C too.
// NOLINTBEGIN(modernize-deprecated-headers, modernize-use-using)

#include <stdint.h>

/// The calling convention of every function.
#if defined(_WIN32)
#define DLGLIB_CALL __stdcall
#else
#define DLGLIB_CALL
#endif
/// Marks what leaves the DLL; nothing for programs that use it.
#if defined(_WIN32) && defined(DLGLIB_BUILD)
#define DLGLIB_C_API __declspec(dllexport)
#else
#define DLGLIB_C_API
#endif

/// What a function answers: one of the values below.
typedef int32_t DlglibResult;

/// The values of a DlglibResult. They never change.
enum {
  DLGLIB_OK = 0,                  ///< done; a check: acceptable
  DLGLIB_CANCELLED = 1,           ///< the user has given up
  DLGLIB_REFUSED = 2,             ///< a check: not acceptable
  DLGLIB_NOT_MINE = 3,            ///< a message that is not for the grid
  DLGLIB_BAD_HANDLE = -1,         ///< null, never made, or destroyed already
  DLGLIB_NULL_ARGUMENT = -2,      ///< a pointer that must not be null
  DLGLIB_BAD_ARGUMENT = -3,       ///< a number without a meaning, an index beyond the end, an owner that is no window
  DLGLIB_TOO_SMALL = -4,          ///< the buffer has no room for the text
  DLGLIB_TOO_LONG = -5,           ///< a text that is longer than such a text may be
  DLGLIB_BAD_ENCODING = -6,       ///< a text that is not in the encoding of the function
  DLGLIB_NO_SUCH_CHARACTER = -7,  ///< a character that Shift_JIS lacks
  DLGLIB_BUSY = -8,               ///< the request is running
  DLGLIB_OUT_OF_MEMORY = -9,      ///< no memory
  DLGLIB_NOT_AVAILABLE = -10,     ///< this build of the library cannot do it
  DLGLIB_FAILED = -11,            ///< anything else; a file that cannot be read
  DLGLIB_WRONG_THREAD = -12,      ///< what is used, or its owner window, belongs to another thread
  DLGLIB_NO_BROWSER = -13,        ///< the browser's window cannot be made
  DLGLIB_NOT_WRITTEN = -14,       ///< a list file, or a list in the registry, cannot be written
  DLGLIB_NOT_ATTACHED = -15       ///< the grid has no list view, or it has gone
};

/// Longest texts, in bytes without the zero byte.
enum {
  DLGLIB_TEXT_LIMIT = 4095,         ///< with escapes: stored and screen texts
  DLGLIB_LONG_TEXT_LIMIT = 1048576  ///< texts that are only converted
};

// NOLINTEND(modernize-deprecated-headers, modernize-use-using)
