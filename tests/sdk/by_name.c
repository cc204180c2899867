/*
 * What a program in another language does: loads the DLL by its name and looks each function up by its name. The
 * functions and their arguments are those of the table in examples/python/dlglib.py, and the request is the one of
 * choose_model.py there; a test compares the two tables.
 *
 *   by_name <folder of models> [<path of the DLL>]
 *
 * Prints the chosen models. The exit code is 0 when every check holds, 2 when the DLL cannot be loaded.
 */
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <windows.h>

#include <shellapi.h>

#define FUNCTIONS(FUNCTION)                                                                         \
  FUNCTION(DlglibVersion, (void))                                                                   \
  FUNCTION(DlglibVersionText, (int32_t, char*, int32_t*))                                           \
  FUNCTION(DlglibResultTextUtf8, (int32_t, int32_t, char*, int32_t*))                               \
  FUNCTION(DlglibDefineKindUtf8, (const char*, const char*, const char*))                           \
  FUNCTION(DlglibDefineFullKindUtf8, (const char*, const char*, const char*, int32_t, const char*)) \
  FUNCTION(DlglibRemoveKindUtf8, (const char*))                                                     \
  FUNCTION(DlglibKindCount, (int32_t*))                                                             \
  FUNCTION(DlglibKindKeywordUtf8, (int32_t, int32_t, char*, int32_t*))                              \
  FUNCTION(DlglibLoadSessionUtf8, (const char*))                                                    \
  FUNCTION(DlglibUnreadLineCount, (int32_t*))                                                       \
  FUNCTION(DlglibUnreadLineUtf8, (int32_t, int32_t*, int32_t, char*, int32_t*))                     \
  FUNCTION(DlglibUnreadLineFileUtf8, (int32_t, int32_t, char*, int32_t*))                           \
  FUNCTION(DlglibFileRequestCreate, (void**))                                                       \
  FUNCTION(DlglibFileRequestDestroy, (void*))                                                       \
  FUNCTION(DlglibFileRequestSetKindUtf8, (void*, const char*))                                      \
  FUNCTION(DlglibFileRequestSetCaptionUtf8, (void*, const char*))                                   \
  FUNCTION(DlglibFileRequestSetInitialNameUtf8, (void*, const char*))                               \
  FUNCTION(DlglibFileRequestSetListFileUtf8, (void*, const char*))                                  \
  FUNCTION(DlglibFileRequestSetMode, (void*, int32_t))                                              \
  FUNCTION(DlglibFileRequestSetSeveralFiles, (void*, int32_t))                                      \
  FUNCTION(DlglibFileRequestSetFixedFolder, (void*, int32_t))                                       \
  FUNCTION(DlglibFileRequestSetOwner, (void*, void*))                                               \
  FUNCTION(DlglibFileRequestRun, (void*))                                                           \
  FUNCTION(DlglibFileRequestCount, (void*, int32_t*))                                               \
  FUNCTION(DlglibFileRequestNameUtf8, (void*, int32_t, int32_t, int32_t, char*, int32_t*))          \
  FUNCTION(DlglibSjisToEuc, (const char*, int32_t, char*, int32_t*))                                \
  FUNCTION(DlglibUtf8ToSjis, (const char*, int32_t, char*, int32_t*))                               \
  FUNCTION(DlglibSjisToUtf8, (const char*, int32_t, char*, int32_t*))                               \
  FUNCTION(DlglibUtf8ToEuc, (const char*, int32_t, char*, int32_t*))                                \
  FUNCTION(DlglibEucToUtf8, (const char*, int32_t, char*, int32_t*))                                \
  FUNCTION(DlglibStoredToScreenUtf8, (const char*, int32_t, char*, int32_t*))                       \
  FUNCTION(DlglibScreenToStoredUtf8, (const char*, int32_t, char*, int32_t*))                       \
  FUNCTION(DlglibRealPathUtf8, (const char*, const char*, int32_t, char*, int32_t*))                \
  FUNCTION(DlglibInternalPathUtf8, (const char*, const char*, int32_t, char*, int32_t*))            \
  FUNCTION(DlglibShortNameUtf8, (const char*, const char*, int32_t, char*, int32_t*))               \
  FUNCTION(DlglibPathOfShortNameUtf8, (const char*, const char*, int32_t, char*, int32_t*))         \
  FUNCTION(DlglibKindLetterCase, (const char*, int32_t*))                                           \
  FUNCTION(DlglibCheckModelNameUtf8, (const char*))                                                 \
  FUNCTION(DlglibCheckFileNameUtf8, (const char*, int32_t))                                         \
  FUNCTION(DlglibCheckExistsUtf8, (const char*, const char*))                                       \
  FUNCTION(DlglibAskFileNameUtf8, (void*, const char*))                                             \
  FUNCTION(DlglibAskInputFileUtf8, (void*, const char*, const char*))                               \
  FUNCTION(DlglibAskInputPathUtf8, (void*, const char*, const char*, int32_t, char*, int32_t*))     \
  FUNCTION(DlglibAskOutputFileUtf8, (void*, const char*, const char*))                              \
  FUNCTION(DlglibCheckChar, (uint32_t, uint32_t))                                                   \
  FUNCTION(DlglibCheckTextUtf8, (uint32_t, const char*))                                            \
  FUNCTION(DlglibCheckNumber, (const char*, int32_t, double, double))                               \
  FUNCTION(DlglibCheckScale, (const char*, double*))                                                \
  FUNCTION(DlglibScaleText, (double, int32_t, char*, int32_t*))                                     \
  FUNCTION(DlglibDecimalText, (double, int32_t, char*, int32_t*))

#define DECLARE(name, arguments) static int32_t(__stdcall* name) arguments;
FUNCTIONS(DECLARE)

static int failures = 0;

static void Check(int holds, const char* what) {
  if (holds) return;
  ++failures;
  fprintf(stderr, "failed: %s\n", what);
}
#define CHECK(condition) Check(condition, #condition)
#define CHECK_TEXT(call, text) (memset(room, '#', sizeof room), CHECK((call) == 0), CHECK(strcmp(room, text) == 0))

static char room[600];
static const int32_t size = (int32_t)sizeof room;

#define HYOU "\xE8\xA1\xA8" /* a character whose second byte is that of the separator in Shift_JIS */

static void LookUp(HMODULE library) {
#define LOOK_UP(name, arguments)                                                        \
  name = (int32_t(__stdcall*) arguments)(void (*)(void))GetProcAddress(library, #name); \
  Check(name != NULL, #name);
  FUNCTIONS(LOOK_UP)
}

static void CheckTexts(void) {
  int32_t needed = 0;
  CHECK(DlglibVersion() > 0);
  CHECK(DlglibVersionText(0, NULL, &needed) == 0 && needed >= 6);
  CHECK(DlglibResultTextUtf8(-1, size, room, &needed) == 0 && needed == (int32_t)strlen(room) + 1);
  CHECK_TEXT(DlglibSjisToEuc("\x95\x5C", size, room, NULL), "\xC9\xBD");
  CHECK_TEXT(DlglibSjisToUtf8("\x95\x5C", size, room, NULL), HYOU);
  CHECK_TEXT(DlglibUtf8ToSjis(HYOU, size, room, NULL), "\x95\x5C");
  CHECK_TEXT(DlglibUtf8ToEuc(HYOU, size, room, NULL), "\xC9\xBD");
  CHECK_TEXT(DlglibEucToUtf8("\xC9\xBD", size, room, NULL), HYOU);
  CHECK_TEXT(DlglibStoredToScreenUtf8("\x8D\xB1\r\xC9\xBD", size, room, NULL), "<mc>1<cr>" HYOU);
  CHECK_TEXT(DlglibScreenToStoredUtf8("<mc>1<cr>" HYOU, size, room, NULL), "\x8D\xB1\r\xC9\xBD");
  CHECK(DlglibUtf8ToEuc("\xFF", size, room, NULL) == -6);
  CHECK(DlglibUtf8ToEuc(HYOU, 2, room, NULL) == -4);
}

static void CheckNumbers(void) {
  double scale = 0;
  CHECK(DlglibCheckChar(4, '7') == 0 && DlglibCheckChar(4, 'A') == 2);
  CHECK(DlglibCheckTextUtf8(32, HYOU) == 0);
  CHECK(DlglibCheckNumber("2.5", 1, 1.0, 2.5) == 0 && DlglibCheckNumber("2.5", 1, 1.0, 2.4) == 2);
  CHECK(DlglibCheckScale("1/50", &scale) == 0 && scale == 0.02);
  CHECK_TEXT(DlglibScaleText(0.02, size, room, NULL), "1/50");
  CHECK_TEXT(DlglibDecimalText(0.25, size, room, NULL), "0.25");
}

static void CheckNames(void) {
  int32_t letterCase = 7;
  CHECK(DlglibCheckModelNameUtf8("A") == 0 && DlglibCheckModelNameUtf8("A/") == 2);
  CHECK(DlglibCheckFileNameUtf8("*", 1) == 0 && DlglibCheckFileNameUtf8("*", 0) == 2);
  CHECK(DlglibCheckExistsUtf8("#MODEL#", "A-001.MDL") == 0 && DlglibCheckExistsUtf8("#MODEL#", "none") == 2);
  CHECK(DlglibAskFileNameUtf8(NULL, "a.mdl") == 0);
  CHECK(DlglibAskInputFileUtf8(NULL, "#MODEL#", "A-001.MDL") == 0);
  CHECK(DlglibAskOutputFileUtf8(NULL, "#MODEL#", "new.MDL") == 0);
  CHECK(DlglibKindLetterCase("#MODEL#", &letterCase) == 0 && letterCase == 0);
  CHECK(DlglibRealPathUtf8("#MODEL#", "A-001.MDL", size, room, NULL) == 0 && strstr(room, "\\A-001.MDL") != NULL);
  CHECK(DlglibInternalPathUtf8("#MODEL#", "A-001.MDL", size, room, NULL) == 0 && strstr(room, "/A-001.MDL") != NULL);
  CHECK(DlglibShortNameUtf8("#MODEL#", room, size, room, NULL) == 0 && strcmp(room, "A-001") == 0);
  CHECK(DlglibPathOfShortNameUtf8("#MODEL#", "A-001", size, room, NULL) == 0 && strstr(room, "\\A-001.MDL") != NULL);
  CHECK(DlglibAskInputPathUtf8(NULL, "#MODEL#", "A-001.MDL", size, room, NULL) == 0 && strstr(room, "\\A-001") != NULL);
  CHECK(DlglibLoadSessionUtf8("none.session") == -11);
}

static void CheckKinds(void) {
  int32_t count = -1;
  CHECK(DlglibDefineFullKindUtf8("#A#", "C:/a", "*.A", 1, HYOU) == 0);
  CHECK(DlglibKindCount(&count) == 0 && count == 2);
  CHECK_TEXT(DlglibKindKeywordUtf8(0, size, room, NULL), "#A#");
  CHECK(DlglibRemoveKindUtf8("#A#") == 0 && DlglibRemoveKindUtf8("#A#") == -3);
  CHECK(DlglibUnreadLineCount(&count) == 0 && count == 0);
  CHECK(DlglibUnreadLineUtf8(0, NULL, size, room, NULL) == -3);
  CHECK(DlglibUnreadLineFileUtf8(0, size, room, NULL) == -3);
}

static void ChooseModels(void) {
  void* request = NULL;
  int32_t count = 0;
  CHECK(DlglibFileRequestCreate(&request) == 0);
  CHECK(DlglibFileRequestSetKindUtf8(request, "#MODEL#") == 0);
  CHECK(DlglibFileRequestSetCaptionUtf8(
            request, "\xE3\x83\xA2\xE3\x83\x87\xE3\x83\xAB\xE3\x81\xAE\xE9\x81\xB8\xE6\x8A\x9E") == 0);
  CHECK(DlglibFileRequestSetInitialNameUtf8(request, NULL) == 0);
  CHECK(DlglibFileRequestSetListFileUtf8(request, NULL) == 0);
  CHECK(DlglibFileRequestSetMode(request, 0) == 0);
  CHECK(DlglibFileRequestSetSeveralFiles(request, 1) == 0);
  CHECK(DlglibFileRequestSetFixedFolder(request, 0) == 0);
  CHECK(DlglibFileRequestSetOwner(request, NULL) == 0);
  CHECK(DlglibFileRequestRun(request) == 0);
  CHECK(DlglibFileRequestCount(request, &count) == 0);
  for (int32_t index = 0; index < count; ++index) {
    CHECK(DlglibFileRequestNameUtf8(request, index, 0, size, room, NULL) == 0);
    puts(room);
  }
  CHECK(DlglibFileRequestDestroy(request) == 0);
  CHECK(DlglibFileRequestDestroy(request) == -1);
}

int main(void) {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  HMODULE library = LoadLibraryW(count > 2 ? arguments[2] : L"crvndlglib.dll");
  Check(library != NULL, "the DLL is loaded");
  if (library == NULL || count < 2) return 2;
  LookUp(library);
  if (failures != 0) return 1;
  CheckTexts();
  CheckNumbers();
  char folder[3 * MAX_PATH] = "";
  CHECK(WideCharToMultiByte(CP_UTF8, 0, arguments[1], -1, folder, (int)sizeof folder, NULL, NULL) > 0);
  CHECK(DlglibDefineKindUtf8("#MODEL#", folder, "*.MDL") == 0);
  CheckNames();
  CheckKinds();
  ChooseModels();
  return failures == 0 ? 0 : 1;
}
