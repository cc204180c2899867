// Core library crvncontrol: the session with its parameters, file kinds, registers and active model.
//
// There is one session in a process. It is set up by setters, or from a session file (LoadFile), and used on one
// thread. Texts are EUC-JP unless a call says otherwise. Pointers that accessors return are owned by the session.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/suite/export.h"

class CwModel;

/// How the names of a file kind are written.
enum class CwLetterCase { AsIs, Upper, Lower };

/// A kind of files: keyword such as "#MODEL#", folder (internal form, with or without a "/" at its end), name patterns
/// ("*.MDL"; several are separated by ",", ";" or blanks, the first one is the default).
class SUITE_API CwFileType {
 public:
  /// `flag` is kept for the caller. The other arguments are as above.
  CwFileType(const std::string& keyword, const std::string& folder, const std::string& patterns, int flag,
             CwLetterCase letterCase = CwLetterCase::AsIs);
  /// Copies have nothing in common.
  CwFileType(const CwFileType& other);
  CwFileType& operator=(const CwFileType& other);
  ~CwFileType();

  /// What the kind was made of. The texts live as long as the kind is not assigned to.
  [[nodiscard]] const std::string& GetKeyword() const;
  [[nodiscard]] const std::string& GetFolder() const;
  [[nodiscard]] const std::string& GetPatterns() const;
  [[nodiscard]] int GetFlag() const;
  /// Whether names of the kind are written in capitals or in small letters.
  [[nodiscard]] bool IsUpperCase() const;
  [[nodiscard]] bool IsLowerCase() const;
  /// What users call the kind (EUC-JP); empty at first.
  [[nodiscard]] const std::string& GetDescription() const;
  void SetDescription(const std::string& description);
  /// The extension of the first pattern from its last "." on, such as ".MDL"; empty when it has none.
  [[nodiscard]] std::string GetExtension() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The file kinds in force.
class SUITE_API CwFileTypeSet {
 public:
  CwFileTypeSet();
  ~CwFileTypeSet();
  CwFileTypeSet(const CwFileTypeSet&) = delete;
  CwFileTypeSet& operator=(const CwFileTypeSet&) = delete;

  /// The kind of exactly that keyword, or null. A kind that is replaced keeps its place, so the pointer stays good
  /// until the kind is removed.
  [[nodiscard]] CwFileType* GetFileType(const std::string& keyword);
  [[nodiscard]] const CwFileType* GetFileType(const std::string& keyword) const;
  /// Keeps a copy; a kind of the same keyword is replaced. False for a null pointer or an empty keyword.
  bool AddFileType(const CwFileType& type);
  bool AddFileType(const CwFileType* type);
  /// The keywords of all kinds, in the order of their bytes.
  [[nodiscard]] std::vector<std::string> GetKeywords() const;
  /// Forgets the kind of exactly that keyword. False when there is none.
  bool RemoveFileType(const std::string& keyword);
  /// Forgets all kinds.
  void RemoveAll();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The parameters with which the suite was started.
class SUITE_API CwStartupParam {
 public:
  CwStartupParam();
  ~CwStartupParam();
  CwStartupParam(const CwStartupParam&) = delete;
  CwStartupParam& operator=(const CwStartupParam&) = delete;

  /// Whether the parameter is there. Names are compared byte for byte.
  [[nodiscard]] bool IsDefined(const std::string& name) const;
  /// Add a parameter, take it away; all of them.
  void Define(const std::string& name);
  void Undefine(const std::string& name);
  void UndefineAll();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The session's settings.
class SUITE_API CwSessionParam {
 public:
  CwSessionParam();
  ~CwSessionParam();
  CwSessionParam(const CwSessionParam&) = delete;
  CwSessionParam& operator=(const CwSessionParam&) = delete;

  /// Not 0 when titles are shown beside model files; 0 at first.
  [[nodiscard]] int GetFileTitleDisplay() const;
  void SetFileTitleDisplay(int display);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// A named variable: empty, a number or a text.
class SUITE_API CwRegister {
 public:
  CwRegister();
  ~CwRegister();
  CwRegister(const CwRegister&) = delete;
  CwRegister& operator=(const CwRegister&) = delete;

  /// What the register holds: nothing; a number. Neither means a text.
  [[nodiscard]] bool IsEmpty() const;
  [[nodiscard]] bool IsScalar() const;
  /// The number; 0 for a text or an empty register.
  [[nodiscard]] double GetScalar() const;
  /// The text (EUC-JP); empty for a number or an empty register.
  [[nodiscard]] const std::string& GetText() const;
  /// Replace what the register holds by a number, by a text (EUC-JP), by nothing.
  void SetScalar(double value);
  void SetText(const std::string& text);
  void SetEmpty();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The session's registers. Their names are a group letter and an index: group 1 holds "A0" to "A999", group 26 "Z0" to
/// "Z999".
class SUITE_API CwRegisterSet {
 public:
  CwRegisterSet();
  ~CwRegisterSet();
  CwRegisterSet(const CwRegisterSet&) = delete;
  CwRegisterSet& operator=(const CwRegisterSet&) = delete;

  /// The name for a group from 1 to 26 and an index from 0 to 999; empty for any other.
  [[nodiscard]] static std::string GetRegisterName(int group, int index);
  /// The register of that name, or null when there is none.
  [[nodiscard]] CwRegister* GetRegister(const std::string& name);
  [[nodiscard]] const CwRegister* GetRegister(const std::string& name) const;
  /// The register of that name, made empty when there was none.
  CwRegister* AddRegister(const std::string& name);
  /// All names in order of group and index; names that GetRegisterName does not give come last.
  [[nodiscard]] std::vector<std::string> GetNames() const;
  /// Forgets all registers.
  void RemoveAll();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The texts of the suite's text libraries (EUC-JP), each under the name of its library file.
class SUITE_API CwTextLibrary {
 public:
  CwTextLibrary();
  ~CwTextLibrary();
  CwTextLibrary(const CwTextLibrary&) = delete;
  CwTextLibrary& operator=(const CwTextLibrary&) = delete;

  /// Adds a text behind those of its library.
  void AddText(const std::string& library, const std::string& text);
  /// The texts of all libraries whose names match a pattern ("*" is all of them) in the order in which they were added.
  [[nodiscard]] std::vector<std::string> GetTexts(const std::string& libraryPattern) const;
  /// The names of the libraries, each once, in the order in which their first texts were added.
  [[nodiscard]] std::vector<std::string> GetLibraries() const;
  /// Forgets all texts.
  void RemoveAll();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// A line of a session file that could not be read.
struct CwUnreadableLine {
  std::string file;  ///< as given to LoadFile
  int line = 0;      ///< from 1 on
  std::string text;  ///< the line's bytes as they stand in the file
};

/// The session.
///
/// A session file is UTF-8 text (a byte order mark is skipped) of at most 1 MiB in INI form. Blanks around names and
/// fields do not count; empty lines and lines that start with ";" are comments. A field ends at "|"; the last field of
/// a line is taken up to the line's end.
///
/// - [kinds]: keyword = folder | patterns | flag | case | description, where case is asis, upper or lower:
///   #MODEL# = C:/plant/model | *.MDL | 0 | upper | モデルファイル
/// - [titles]: number = kind code | name. Titles 1 to 207 of the active model, which exists once one is read.
/// - [messages], [errors]: number = text.
/// - [registers]: name = scalar | 0.5, or name = text | 配管, or name = (an empty register).
/// - [texts]: library file = text. Any number of lines for one library.
/// - [parameters]: FileTitleDisplay = 1, the session's setting; any other name defines a start-up parameter.
///
/// Trailing fields of a kind may be left out. Characters that EUC-JP lacks become "?". A line that cannot be read (no
/// such section, a missing "=", a bad number, a byte that is not UTF-8) is kept for GetUnreadableLines; all others are
/// used.
class SUITE_API CwSession {
 public:
  /// The session; never null.
  [[nodiscard]] static CwSession* GetInstance();

  /// The parts of the session; never null. Reset empties them and keeps them in place.
  [[nodiscard]] CwStartupParam* GetStartupParam();
  [[nodiscard]] CwSessionParam* GetSessionParam();
  [[nodiscard]] CwFileTypeSet* GetActiveFileTypeSet();
  [[nodiscard]] CwRegisterSet* GetRegisterSet();
  [[nodiscard]] CwTextLibrary* GetTextLibrary();

  /// Adds what a session file holds to the session; what it names again is replaced. `path` is the real path
  /// (Shift_JIS). False when the file cannot be read; the session is unchanged then.
  static bool LoadFile(const std::string& path);
  /// Lines of all files loaded since the last Reset that could not be read.
  [[nodiscard]] const std::vector<CwUnreadableLine>& GetUnreadableLines() const;
  /// The session as at the program's start: no kinds, titles, messages, registers, texts, parameters, and no active
  /// model.
  static void Reset();

  /// The session's own model, which becomes the active one.
  CwModel* OpenModel();
  /// Ends the session's own model; it is not the active one any more.
  void CloseModel();

 private:
  CwSession();
  ~CwSession();
  CwSession(const CwSession&) = delete;
  CwSession& operator=(const CwSession&) = delete;

  struct State;
  std::unique_ptr<State> state_;
  friend SUITE_API CwModel* GetActiveModel();
  friend SUITE_API void SetActiveModel(CwModel* model);
};

/// The model being worked on, or null when there is none.
[[nodiscard]] SUITE_API CwModel* GetActiveModel();
/// Makes a model the active one; null for none. The model stays its owner's and must live until another one is set.
SUITE_API void SetActiveModel(CwModel* model);
