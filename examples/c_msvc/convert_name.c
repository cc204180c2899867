/*
 * A program of another compiler: C for the ABI of Microsoft's compilers, built with clang and lld and without any
 * run-time library. It prints the version of the library, and a name in UTF-8 that it keeps in Shift_JIS.
 *
 *   build.sh <folder of the headers> <crvndlglib.lib> <program to be made>
 *
 * The exit code is 0 when the library has answered as it should.
 */
#include <dlglib/dlglib_c.h>

/* What is needed of the system, declared here, as there are no headers of it. */
__declspec(dllimport) void* __stdcall GetStdHandle(uint32_t which);
__declspec(dllimport) int32_t
    __stdcall WriteFile(void* file, const void* bytes, uint32_t count, uint32_t* written, void* overlapped);
__declspec(dllimport) void __stdcall ExitProcess(uint32_t code);

#define OUTPUT ((uint32_t)-11)

static const char kName[] = "\x90\x7D\x96\xCA\x95\x5C"; /* in Shift_JIS; its last byte is that of the separator */

/* Prints a text that ends with a zero byte, whose room is `needed`. */
static void Print(const char* text, int32_t needed) {
  uint32_t written = 0;
  WriteFile(GetStdHandle(OUTPUT), text, (uint32_t)needed - 1, &written, 0);
  WriteFile(GetStdHandle(OUTPUT), "\n", 1, &written, 0);
}

void Start(void) {
  char text[64];
  int32_t needed;
  DlglibResult result = DlglibVersionText(sizeof text, text, &needed);
  if (result == DLGLIB_OK) Print(text, needed);
  if (result == DLGLIB_OK) result = DlglibSjisToUtf8(kName, sizeof text, text, &needed);
  if (result == DLGLIB_OK) Print(text, needed);
  if (result == DLGLIB_OK) result = DlglibCheckFileNameUtf8(text, 0);
  ExitProcess(result == DLGLIB_OK ? 0 : 1);
}
