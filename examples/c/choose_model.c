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

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "choose_model <folder>\n");
    return 2;
  }
  /* The program's arguments are in the system's own encoding, Shift_JIS on a Japanese machine. */
  DlglibResult result = DlglibDefineKindSjis(kKind, argv[1], "*.MDL");
  if (result != DLGLIB_OK) {
    Complain(argv[1], result);
    return 2;
  }
  DlglibFileRequest request = NULL;
  result = DlglibFileRequestCreate(&request);
  if (result == DLGLIB_OK) result = AskForModel(request);
  DlglibFileRequestDestroy(request);
  if (result < 0) Complain("choose_model", result);
  if (result < 0) return 2;
  return result == DLGLIB_OK ? 0 : 1;
}
