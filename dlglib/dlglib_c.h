// The library for programs that share no C++ with it: C, C#, Python, VBA, or C++ of another compiler.
//
// Plain C99. It offers the request for files, the conversions of texts and paths, the checks of names and numbers, the
// grid, the message zone and the recent lists; the rest of the library is for C++ (dlglib.h). 64-bit Windows; the
// functions are in crvndlglib.dll under exactly these names and may be looked up there by name. crvnsuite.dll must
// stand beside it.
//
// Calls. Every function uses the platform's calling convention (DLGLIB_CALL, __stdcall; there is only one in 64-bit
// programs), numbers are int32_t, uint32_t or double. Nothing is thrown at the caller, and nothing that one side has
// allocated is freed by the other: texts go into the caller's buffers, and a request is a handle that its Create makes
// and its Destroy ends.
//
// Results. A function answers a DlglibResult: DLGLIB_OK (0); above 0 an answer that is no error; below 0 an error,
// after which nothing has been done and nothing was written but what is said below.
//
// Texts given to a function end with a zero byte and are read up to it. The last word of a function's name is the
// encoding of all its texts: Sjis is Shift_JIS (Windows-31J), Utf8 is UTF-8, Euc is EUC-JP (eucJP-ms), in which the
// suite stores texts; functions without such a word take and give ASCII. UTF-8 is checked: DLGLIB_BAD_ENCODING for
// bytes that are no UTF-8, DLGLIB_NO_SUCH_CHARACTER for a character that Shift_JIS lacks (the platform decides, without
// look-alikes: the wave dash is U+FF5E). Bytes of a Shift_JIS text that are no Shift_JIS, half a character at its end
// too, are taken as they are by checks and become "?" in conversions to EUC-JP; a function that makes UTF-8 of them
// answers DLGLIB_BAD_ENCODING. A text may be null only where that is said, else DLGLIB_NULL_ARGUMENT. A text has a
// longest length, in bytes of Shift_JIS or EUC-JP without its zero byte: 255 for keywords, 256 in other settings, 512
// for paths, DLGLIB_TEXT_LIMIT for texts with escapes, DLGLIB_LONG_TEXT_LIMIT for all others, in UTF-8 too. A longer
// one gives DLGLIB_TOO_LONG.
//
// Texts that a function gives are written to `buffer`, which has room for `bufferSize` bytes, with a zero byte at the
// end. `needed` receives the room that the text needs, zero byte included; it may be null. When the room does not do,
// the buffer becomes the empty text (never a part of a text), and the result is DLGLIB_TOO_SMALL. A size of 0 asks for
// `needed` only, with the result DLGLIB_OK; the buffer may be null then. After other errors the buffer becomes the
// empty text as well and `needed` 0; but nothing is written for a size below 0 (DLGLIB_BAD_ARGUMENT), for a null buffer
// with a size, and for a null `needed` without one (DLGLIB_NULL_ARGUMENT). The buffer may be the same as a text that is
// given.
//
// Threads. File kinds, paths, and the checks that look for files or show messages belong to one thread, that of the
// owner window; requests and messages pump messages there. A handle belongs to the thread that has made it. A handle or
// an owner window of another thread gives DLGLIB_WRONG_THREAD; only a request may be destroyed on any. The other
// functions may be called on any thread.
//
// Devices. DlglibLoadSession, DlglibAskInputFile and DlglibAskOutputFile, in all their forms, read or look for files in
// place, on the caller's thread, and come back when the device has answered: a share that has died may take a minute
// for that, in which the thread serves no message. A request's browser lives while it waits; before it opens and after
// it has closed a request waits in the same way.
//
// What is wrong is answered, never thrown: a debugger sees no exception on account of an argument.
#pragma once

// Read as C too.
// NOLINTBEGIN(modernize-deprecated-headers, modernize-use-using)

#include "dlglib/dlglib_c_grid.h"
#include "dlglib/dlglib_c_types.h"
#include "dlglib/version.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The version of the library: 10000 times the first number, 100 times the second, the third: to be compared with
/// DLGLIB_VERSION, the version of the headers that a program was built with.
DLGLIB_C_API int32_t DLGLIB_CALL DlglibVersion(void);
/// The same as a text such as "1.0.0".
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibVersionText(int32_t bufferSize, char* buffer, int32_t* needed);

/// What a result means, in Japanese, for people. A number that is no DlglibResult gets a text too.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibResultTextSjis(DlglibResult result, int32_t bufferSize, char* buffer,
                                                           int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibResultTextUtf8(DlglibResult result, int32_t bufferSize, char* buffer,
                                                           int32_t* needed);

// ---- file kinds

/// Makes a kind of files known to this process, or replaces the one of the same keyword: its keyword, such as "#MODEL#"
/// (1 byte at least, else DLGLIB_BAD_ARGUMENT); its folder, with "\" or "/" between its parts (without a drive
/// it is one of the current drive); its name patterns ("*.MDL"; several are separated by ",", ";" or blanks, the first
/// one is the default).
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibDefineKindSjis(const char* keyword, const char* folder,
                                                           const char* patterns);
/// The same with UTF-8 texts.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibDefineKindUtf8(const char* keyword, const char* folder,
                                                           const char* patterns);
/// The same with all that a kind has. `letterCase`: how its names are written, 1 in capitals, -1 in small letters, 0 as
/// they are, else DLGLIB_BAD_ARGUMENT; `description`: what users call it, 256 bytes at most, null for nothing. This one
/// and the next four are DLGLIB_NOT_AVAILABLE in a library that is built for the suite's own core libraries.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibDefineFullKindSjis(const char* keyword, const char* folder,
                                                               const char* patterns, int32_t letterCase,
                                                               const char* description);
/// The same with UTF-8 texts.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibDefineFullKindUtf8(const char* keyword, const char* folder,
                                                               const char* patterns, int32_t letterCase,
                                                               const char* description);
/// Takes a kind away. DLGLIB_BAD_ARGUMENT when there is none of exactly that keyword.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRemoveKindSjis(const char* keyword);
/// The same with a UTF-8 keyword.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRemoveKindUtf8(const char* keyword);
/// How many kinds there are.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibKindCount(int32_t* count);
/// The keyword of a kind by its index, from 0 on. A kind that comes or goes moves the others.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibKindKeywordSjis(int32_t index, int32_t bufferSize, char* buffer,
                                                            int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibKindKeywordUtf8(int32_t index, int32_t bufferSize, char* buffer,
                                                            int32_t* needed);
/// Adds what a session file holds (kinds with their descriptions and letter case, messages, parameters) to the session
/// of this process. `path`: of the file, 512 bytes at most. DLGLIB_FAILED when it cannot be read; lines that cannot be
/// read are passed over, see DlglibUnreadLineCount. DLGLIB_NOT_AVAILABLE in a library that is built for the suite's own
/// core libraries.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibLoadSessionSjis(const char* path);
/// The same with a UTF-8 path.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibLoadSessionUtf8(const char* path);
/// How many lines could not be read, of all session files that this process has loaded. DLGLIB_NOT_AVAILABLE as above.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibUnreadLineCount(int32_t* count);
/// Such a line by its index, from 0 on: its text, and its number in its file, from 1 on (`line` may be null). What is
/// no text in the file has "?" for every byte that is not ASCII.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibUnreadLineSjis(int32_t index, int32_t* line, int32_t bufferSize,
                                                           char* buffer, int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibUnreadLineUtf8(int32_t index, int32_t* line, int32_t bufferSize,
                                                           char* buffer, int32_t* needed);
/// The file of such a line, as it was given to DlglibLoadSession.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibUnreadLineFileSjis(int32_t index, int32_t bufferSize, char* buffer,
                                                               int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibUnreadLineFileUtf8(int32_t index, int32_t bufferSize, char* buffer,
                                                               int32_t* needed);

// ---- the request for files

/// A request. Handles are never used again: one that has been destroyed is DLGLIB_BAD_HANDLE from then on.
typedef struct DlglibFileRequestTag* DlglibFileRequest;

/// What is asked for.
enum {
  DLGLIB_OPEN_FILE = 0,  ///< an existing file; button 開く
  DLGLIB_SAVE_FILE = 1,  ///< a file to be written; button 保存
  DLGLIB_NAME_FILE = 2   ///< a name in an existing folder; button ＯＫ
};

/// The forms in which a chosen file is given.
enum {
  DLGLIB_FORM_REAL = 0,      ///< full path with "\", as the platform takes it
  DLGLIB_FORM_INTERNAL = 1,  ///< full path with "/", as the suite keeps it
  DLGLIB_FORM_SHORT = 2      ///< as the suite keeps it, without the folder and the extension of the kind
};

/// Makes a request for one existing file of no kind, without an owner, and puts its handle into `*request`.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestCreate(DlglibFileRequest* request);
/// Ends a request. DLGLIB_BUSY while it is running.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestDestroy(DlglibFileRequest request);

/// The keyword of the kind of files, such as "#MODEL#". Null or a keyword of no known kind: all files. This
/// and the other settings count from the next run on; in a run that is under way they give DLGLIB_BUSY.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetKindSjis(DlglibFileRequest request, const char* keyword);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetKindUtf8(DlglibFileRequest request, const char* keyword);
/// The caption of the browser and of its messages, 256 bytes at most. Null: "ファイルの選択".
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetCaptionSjis(DlglibFileRequest request, const char* caption);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetCaptionUtf8(DlglibFileRequest request, const char* caption);
/// The file that is proposed, which says where the browser starts: a full path, or a name in the folder of the kind,
/// with "\" or "/" between its parts, 256 bytes at most as EUC-JP. A folder ends with "\" or "/". Null: the folder of
/// the kind.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetInitialNameSjis(DlglibFileRequest request, const char* name);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetInitialNameUtf8(DlglibFileRequest request, const char* name);
/// A file into which the names chosen from several files are written after OK: short form in EUC-JP, one in a line, a
/// name with a blank in it as two (DlglibFileRequestName gives whole ones). It is made anew. 256 bytes at most as
/// EUC-JP. Null or empty: none is written.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetListFileSjis(DlglibFileRequest request, const char* path);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetListFileUtf8(DlglibFileRequest request, const char* path);
/// What is asked for: DLGLIB_OPEN_FILE, DLGLIB_SAVE_FILE or DLGLIB_NAME_FILE. Several files are always opened.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetMode(DlglibFileRequest request, int32_t mode);
/// Other than 0: the user may choose several files.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetSeveralFiles(DlglibFileRequest request, int32_t several);
/// Other than 0: the user cannot leave the folder.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetFixedFolder(DlglibFileRequest request, int32_t fixed);
/// The window (HWND) that owns the browser and its messages; null for none. It belongs to the thread that runs the
/// request, and must be there when it does, else DLGLIB_BAD_ARGUMENT.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestSetOwner(DlglibFileRequest request, void* owner);

/// Shows the browser and returns when the user has closed it. DLGLIB_OK when files were chosen, which then replace
/// those of the run before. Without files: DLGLIB_CANCELLED after cancel, DLGLIB_NO_BROWSER when the browser cannot be
/// made, DLGLIB_NOT_WRITTEN when the list file cannot be written (the user has been told). Each run starts from the
/// settings.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestRun(DlglibFileRequest request);

/// How many files the last run has given; 0 before the first one.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestCount(DlglibFileRequest request, int32_t* count);
/// A chosen file by its index, from 0 on, in one of the forms (DLGLIB_FORM_...). Paths are whole, blanks in them too.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestNameSjis(DlglibFileRequest request, int32_t index, int32_t form,
                                                                int32_t bufferSize, char* buffer, int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibFileRequestNameUtf8(DlglibFileRequest request, int32_t index, int32_t form,
                                                                int32_t bufferSize, char* buffer, int32_t* needed);

// ---- encodings. All characters of JIS X 0208, half-width katakana, the vendor rows 13 and those of the IBM
// extensions, and the user-defined ones go both ways without loss.

/// Shift_JIS to EUC-JP. A byte that starts no character becomes "?"; a text that is no Shift_JIS but is EUC-JP stays as
/// it is.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibSjisToEuc(const char* sjis, int32_t bufferSize, char* euc, int32_t* needed);
/// EUC-JP to Shift_JIS. A byte that starts no character becomes "?", and so does a character that Shift_JIS lacks.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibEucToSjis(const char* euc, int32_t bufferSize, char* sjis, int32_t* needed);
/// UTF-8 to Shift_JIS; all or nothing.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibUtf8ToSjis(const char* utf8, int32_t bufferSize, char* sjis,
                                                       int32_t* needed);
/// Shift_JIS to UTF-8; all or nothing.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibSjisToUtf8(const char* sjis, int32_t bufferSize, char* utf8,
                                                       int32_t* needed);
/// UTF-8 to EUC-JP, by way of Shift_JIS; all or nothing.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibUtf8ToEuc(const char* utf8, int32_t bufferSize, char* euc, int32_t* needed);
/// EUC-JP to UTF-8, by way of Shift_JIS, as DlglibEucToSjis.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibEucToUtf8(const char* euc, int32_t bufferSize, char* utf8, int32_t* needed);

/// A stored text (EUC-JP) as the screen shows it: a metacharacter (0x8D and a code byte) becomes "<mc>" and its
/// character, 0x0D and 0x0A become "<cr>" each. Half a character at its end is left out.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibStoredToScreenSjis(const char* stored, int32_t bufferSize, char* screen,
                                                               int32_t* needed);
/// The same with the screen's text in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibStoredToScreenUtf8(const char* stored, int32_t bufferSize, char* screen,
                                                               int32_t* needed);
/// A text of the screen as it is stored (EUC-JP): "<mc>" and an ASCII character become a metacharacter, "<cr>" becomes
/// 0x0D. "<mc>" in front of anything else, or of nothing, stays.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibScreenToStoredSjis(const char* screen, int32_t bufferSize, char* stored,
                                                               int32_t* needed);
/// The same with the screen's text in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibScreenToStoredUtf8(const char* screen, int32_t bufferSize, char* stored,
                                                               int32_t* needed);

// ---- paths. A path has 512 bytes at most; its parts are separated by "\" or "/". A bare name stands for the file of
// that name in the folder of the kind `keyword` (null or unknown: for itself).

/// A path or bare name as a full path with "\". The name keeps its spelling.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRealPathSjis(const char* keyword, const char* path, int32_t bufferSize,
                                                         char* buffer, int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRealPathUtf8(const char* keyword, const char* path, int32_t bufferSize,
                                                         char* buffer, int32_t* needed);
/// A path or bare name as a full path with "/", the suite's form. It stays in Shift_JIS here: the suite keeps it in
/// EUC-JP, see DlglibSjisToEuc.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibInternalPathSjis(const char* keyword, const char* path, int32_t bufferSize,
                                                             char* buffer, int32_t* needed);
/// The same in UTF-8; see DlglibUtf8ToEuc.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibInternalPathUtf8(const char* keyword, const char* path, int32_t bufferSize,
                                                             char* buffer, int32_t* needed);
/// A path in the suite's form without the folder and the extension of the kind. Letter case does not count in these.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibShortNameSjis(const char* keyword, const char* path, int32_t bufferSize,
                                                          char* buffer, int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibShortNameUtf8(const char* keyword, const char* path, int32_t bufferSize,
                                                          char* buffer, int32_t* needed);
/// The way back: the full path with "\" of a name in its short form (DLGLIB_FORM_SHORT, DlglibShortName) with the kind
/// that it was made with. The short form does not say whether it lost an extension, so the disk does: a name that is
/// there counts, first with the extension of the kind, then as it stands, and in the other order for one with a "." in
/// it; when neither is there, the first of the two.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibPathOfShortNameSjis(const char* keyword, const char* shortName,
                                                                int32_t bufferSize, char* buffer, int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibPathOfShortNameUtf8(const char* keyword, const char* shortName,
                                                                int32_t bufferSize, char* buffer, int32_t* needed);
/// How the names of a kind are written: `*letterCase` is 1 for capitals, -1 for small letters, 0 for as they are or a
/// kind that is not known. The keyword is ASCII: what stands from the first "#" to the next one in its first 16 bytes.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibKindLetterCase(const char* keyword, int32_t* letterCase);

// ---- checks. DLGLIB_OK: acceptable; DLGLIB_REFUSED: not.

/// A model name, which holds none of the bytes * ? ' " \ / | < >. In Shift_JIS, and so here, a character whose second
/// byte is that of "\" or "|", such as 表, is refused too. An empty name is acceptable.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckModelNameSjis(const char* name);
/// The same of a UTF-8 name: what counts is the name in Shift_JIS.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckModelNameUtf8(const char* name);
/// A file name, which holds none of ' | " < > and, unless `wildcards` is other than 0, none of * ?. An empty name is
/// acceptable, and so is half-width katakana.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckFileNameSjis(const char* name, int32_t wildcards);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckFileNameUtf8(const char* name, int32_t wildcards);
/// Whether a file or folder is there: a path or a bare name of the kind (`keyword` may be null).
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckExistsSjis(const char* keyword, const char* path);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckExistsUtf8(const char* keyword, const char* path);

/// As DlglibCheckFileName with wildcards, but an empty or unacceptable name is refused with a message to the user.
/// `owner`: the window (HWND) that owns the message and lends it its title; null for none.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibAskFileNameSjis(void* owner, const char* name);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibAskFileNameUtf8(void* owner, const char* name);
/// Whether an input file of the kind is there; when not, the user is told. `keyword` may be null.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibAskInputFileSjis(void* owner, const char* keyword, const char* name);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibAskInputFileUtf8(void* owner, const char* keyword, const char* name);
/// The same, with the full path of the file that is there, as DlglibRealPath gives it. After DLGLIB_REFUSED the buffer
/// is the empty text and `needed` 0, so that a program which asks for the room first tells the user once.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibAskInputPathSjis(void* owner, const char* keyword, const char* name,
                                                             int32_t bufferSize, char* buffer, int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibAskInputPathUtf8(void* owner, const char* keyword, const char* name,
                                                             int32_t bufferSize, char* buffer, int32_t* needed);
/// Whether an output file of the kind may be written. The user is asked whether to write over a file that is there, and
/// told when there is no such folder. `keyword` may be null.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibAskOutputFileSjis(void* owner, const char* keyword, const char* name);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibAskOutputFileUtf8(void* owner, const char* keyword, const char* name);

/// Classes of characters, as bits of a mask.
enum {
  DLGLIB_CAPITALS = 1,              ///< A to Z
  DLGLIB_SMALL_LETTERS = 2,         ///< a to z
  DLGLIB_DIGITS = 4,                ///< 0 to 9
  DLGLIB_OTHER_SINGLE_BYTES = 8,    ///< the other ASCII characters, blanks and controls too
  DLGLIB_HALF_WIDTH_KATAKANA = 16,  ///< of one byte in Shift_JIS, 0xA0 to 0xDF
  DLGLIB_DOUBLE_BYTES = 32          ///< everything else
};

/// Whether a mask allows a character by its code in Shift_JIS (0x41 for A, 0x955C for 表).
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckChar(uint32_t mask, uint32_t code);
/// Whether a mask allows every character of a text. An empty text is acceptable.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckTextSjis(uint32_t mask, const char* text);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckTextUtf8(uint32_t mask, const char* text);

// ---- numbers. Their texts are ASCII; any other byte makes a text no number.

/// What may be typed as a number.
enum {
  DLGLIB_UNSIGNED_INTEGER = 0,  ///< digits
  DLGLIB_REAL = 1,              ///< digits, one sign, one "."
  DLGLIB_SIGNED_INTEGER = 2     ///< digits, one sign; any number above means the same
};

/// Whether a text is a number of the mode and minimum <= number <= maximum. A sign in the middle is accepted and ends
/// the number: "12-3" is 12. Blanks, exponents, an empty text and one of more than 512 bytes are refused, and
/// everything when a limit is not a number.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckNumber(const char* text, int32_t mode, double minimum, double maximum);
/// Whether a text is a scale: a number from 1e-7 to 1e6, or a fraction ("1/500") of two numbers from 1 to 1e6. `*scale`
/// receives it, 0 when it is refused; may be null.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibCheckScale(const char* text, double* scale);
/// A scale as people read it: "1/n" below 1 when that differs by less than 0.001, else up to 15 digits without zeros at
/// the end. It needs 32 bytes at most.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibScaleText(double scale, int32_t bufferSize, char* buffer, int32_t* needed);
/// Up to eight and at least one decimal: "0.25", "100.0". It needs 321 bytes at most.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibDecimalText(double value, int32_t bufferSize, char* buffer,
                                                        int32_t* needed);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-deprecated-headers, modernize-use-using)
