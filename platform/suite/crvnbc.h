// Core library crvnbc: message tables, path names, the file finder, the EUC encoder, wildcards.
//
// Paths are in the suite's internal form unless a call says otherwise: EUC-JP, absolute, "/" as separator. No call
// throws but std::bad_alloc. CwFileFinder and cnsver may be called on any thread, each finder on one at a time, and so
// may the encoder's calls; all others are made on one thread.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "platform/suite/export.h"

/// One table of numbered texts (EUC-JP).
class SUITE_API CwMessageTable {
 public:
  CwMessageTable();
  ~CwMessageTable();
  CwMessageTable(const CwMessageTable&) = delete;
  CwMessageTable& operator=(const CwMessageTable&) = delete;

  /// Adds or replaces the text (EUC-JP) of a number.
  void SetMessage(int number, const std::string& text);
  /// Forgets all texts.
  void Clear();

 private:
  friend class CwMessage;
  struct State;
  std::unique_ptr<State> state_;
};

/// The suite's numbered messages.
class SUITE_API CwMessage {
 public:
  /// The tables of messages and of errors; never null, alive as long as the program.
  [[nodiscard]] static CwMessageTable* GetMessageTable();
  [[nodiscard]] static CwMessageTable* GetErrorTable();
  /// The text (EUC-JP) of a number of a table, or null when the table is null or holds no such number. It stays valid
  /// until the table changes.
  [[nodiscard]] static const char* FindMessage(const CwMessageTable* table, int number);
};

/// Operations on path names. None of them asks the file system.
class SUITE_API CwFile {
 public:
  /// The full name of `name` for the file kind `keyword` (both EUC-JP).
  ///
  /// A name that starts with "/" or "\" or has ":" as its second byte is full already and keeps its letter case. Any
  /// other name is put behind the kind's folder, and its file part is written in capitals or small letters when the
  /// kind is. An empty name gives the kind's folder with its "/"; a name that is not full of an unknown kind gives an
  /// empty text. `addExtension`: a file part without "." (also of a full name) gets the extension of the kind's first
  /// pattern; an extension that holds a wildcard is given only to a file part that holds one too, such as "*".
  /// `reserved` changes nothing. Separators stay as they are.
  [[nodiscard]] static std::string ToFullPath(const std::string& keyword, const std::string& name, bool reserved,
                                              bool addExtension);
  /// The part of a path behind its last "/" or "\"; the whole text when there is none.
  [[nodiscard]] static std::string GetFilename(const std::string& path);
  /// Turns every "/" into "\" in place. Works on EUC-JP and on Shift_JIS, where "/" is never part of a character. A
  /// null pointer is left alone.
  static void ToPlatformPathSeparator(char* path);
  static void ToPlatformPathSeparator(std::string& path);
  /// Turns every "\" into "/" in place. The text is EUC-JP; one that is not valid EUC-JP is taken for Shift_JIS, where
  /// a "\" that is the second byte of a character stays. A null pointer is left alone.
  static void ToAbstractPathSeparator(char* path);
  static void ToAbstractPathSeparator(std::string& path);
};

/// One pass over a folder. The caller destroys the object with Destroy().
///
///   CwFileFinder* finder = CwFileFinder::CreateInstance();
///   finder->Start("C:/plant/*.MDL", 2);
///   while (finder->HasNext()) Use(finder->GetEntry());
///   finder->Close();
///   finder->Destroy();
class SUITE_API CwFileFinder {
 public:
  /// A finder that is not started; never null.
  [[nodiscard]] static CwFileFinder* CreateInstance();

  /// Starts a pass over the folder in front of the last "/" of `searchPath` (EUC-JP); the text behind it is the
  /// pattern. "*" stands for any number of characters, "?" for one, ASCII letters match in either case, "*.*" is "*",
  /// and an empty pattern matches nothing. Only long names are compared, so "*.MDL" does not find "A.MDLX". Mode 0
  /// finds files; mode 2 (as any other) finds files and all folders, whatever the pattern. ".", "..", hidden and system
  /// entries and names that Shift_JIS cannot hold without loss are never found. False when the folder cannot be read;
  /// the pass is empty then. A pass that is under way is closed first.
  bool Start(const std::string& searchPath, int mode);
  /// Goes to the next entry; false at the end, and then again and again. Call it before the first entry too.
  [[nodiscard]] bool HasNext();
  /// The current entry: the folder of the search path as it was given, then the name (EUC-JP), then "/" for a folder.
  /// Empty in front of the first and behind the last entry. Valid until the next call of this object.
  [[nodiscard]] const std::string& GetEntry() const;
  /// Ends the pass. May be called at any time, also twice.
  void Close();
  /// Closes and frees the object.
  void Destroy();

 private:
  CwFileFinder();
  ~CwFileFinder();
  CwFileFinder(const CwFileFinder&) = delete;
  CwFileFinder& operator=(const CwFileFinder&) = delete;

  struct State;
  std::unique_ptr<State> state_;
};

/// Conversion between EUC-JP (eucJP-ms) and Shift_JIS (Windows-31J).
///
/// Both directions hold ASCII, JIS X 0208, half-width katakana, NEC row 13, the IBM extensions and the user-defined
/// rows and convert them without loss; the NEC-selected IBM extensions of Shift_JIS (0xED40 to 0xEEFC) are the same
/// characters as the IBM extensions (0xFA40 to 0xFC4B) and come back as those. A byte that starts no character becomes
/// "?", and so does a character that the other encoding lacks. Control characters, the zero byte included, pass
/// unchanged. Nothing is read behind the text.
class SUITE_API CwEucEncoder {
 public:
  /// `text` (EUC-JP) in Shift_JIS: as many whole characters as fit into `limit` bytes. The private code of a
  /// metacharacter (0x8D and a byte above 0xA0) is walked as one unit and becomes "??".
  [[nodiscard]] static std::string Euc2Sjis(const std::string& text, std::size_t limit);
  /// `text` (Shift_JIS) in EUC-JP: as many whole characters as fit into `limit` bytes. A text that is not valid
  /// Shift_JIS but is valid EUC-JP is left alone, whole characters up to `limit`.
  [[nodiscard]] static std::string Sjis2Euc(const std::string& text, std::size_t limit);
};

/// 0 when the file at `path` (EUC-JP) is a valid constant file: its header says CONST. Anything else, a null path
/// included, gives 1. `reserved` is not used.
SUITE_API int cnsver(const char* path, void* reserved);

/// Wildcard match of a name against a pattern, both in the same encoding, Shift_JIS or EUC-JP: "*" stands for any
/// number of characters, "?" for one, ASCII letters match in either case, "*.*" is "*".
///
/// The lengths in bytes count without a terminator; a text that has a terminator ends there. The two words limit them
/// further: a word above 0 is the number of bytes to look at. On return each word holds the number of bytes looked at.
/// *result: 0 when the name matches, 1 when not. A null text is empty; a null word does not limit.
SUITE_API void xrfwildcd(const char* pattern, short* patternWord, const char* name, short* nameWord, short* result,
                         int patternLength, int nameLength);
