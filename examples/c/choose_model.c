/*
 * Asks the user for a model of a folder and prints its names, in UTF-8.
 *
 *   choose_model <folder>
 *
 * The exit code is 0 when a model was chosen, 1 when not, 2 after an error.
 */
#include <dlglib/dlglib_c.h>
#include <stdio.h>
#include <stdlib.h>
#include <windows.h>

/* needs what stands above */
#include <shellapi.h>

static const char kKind[] = "#MODEL#";

/* Says what went wrong. */
static void Complain(const char* what, DlglibResult result) {
  char text[256];
  DlglibResultTextUtf8(result, (int32_t)sizeof text, text, NULL);
  fprintf(stderr, "%s: %s\n", what, text);
}

/* Prints the chosen file in one of its forms: asks how long the name is, then for the name. */
static DlglibResult PrintName(DlglibFileRequest request, int32_t form) {
  int32_t needed = 0;
  DlglibResult result = DlglibFileRequestNameUtf8(request, 0, form, 0, NULL, &needed);
  if (result != DLGLIB_OK) return result;
  char* name = malloc((size_t)needed);
  if (name == NULL) return DLGLIB_OUT_OF_MEMORY;
  result = DlglibFileRequestNameUtf8(request, 0, form, needed, name, NULL);
  if (result == DLGLIB_OK) puts(name);
  free(name);
  return result;
}

static DlglibResult AskForModel(DlglibFileRequest request) {
  DlglibResult result = DlglibFileRequestSetKindUtf8(request, kKind);
  /* "Choose a model" */
  if (result == DLGLIB_OK) {
    result = DlglibFileRequestSetCaptionUtf8(
        request, "\xE3\x83\xA2\xE3\x83\x87\xE3\x83\xAB\xE3\x81\xAE\xE9\x81\xB8\xE6\x8A\x9E");
  }
  if (result == DLGLIB_OK) result = DlglibFileRequestRun(request);
  if (result == DLGLIB_OK) result = PrintName(request, DLGLIB_FORM_REAL);
  if (result == DLGLIB_OK) result = PrintName(request, DLGLIB_FORM_INTERNAL);
  if (result == DLGLIB_OK) result = PrintName(request, DLGLIB_FORM_SHORT);
  return result;
}

/* The one argument in UTF-8, to be freed; NULL when there is another number of them. main() gets arguments in the code
 * page of the system, which rarely is UTF-8 and may lack characters that a folder's name has, so it is not asked. */
static char* FolderArgument(void) {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  char* folder = NULL;
  if (arguments != NULL && count == 2) {
    int size = WideCharToMultiByte(CP_UTF8, 0, arguments[1], -1, NULL, 0, NULL, NULL);
    folder = malloc((size_t)size);
    if (folder != NULL) WideCharToMultiByte(CP_UTF8, 0, arguments[1], -1, folder, size, NULL, NULL);
  }
  LocalFree(arguments);
  return folder;
}

static DlglibResult Choose(void) {
  DlglibFileRequest request = NULL;
  DlglibResult result = DlglibFileRequestCreate(&request);
  if (result == DLGLIB_OK) result = AskForModel(request);
  DlglibFileRequestDestroy(request);
  if (result < 0) Complain("choose_model", result);
  return result;
}

int main(void) {
  char* folder = FolderArgument();
  if (folder == NULL) {
    fprintf(stderr, "choose_model <folder>\n");
    return 2;
  }
  DlglibResult result = DlglibDefineKindUtf8(kKind, folder, "*.MDL");
  if (result == DLGLIB_OK) {
    result = Choose();
  } else {
    Complain(folder, result);
  }
  free(folder);
  if (result < 0) return 2;
  return result == DLGLIB_OK ? 0 : 1;
}
