// The request through which an application asks its user for one file, or for several files, of one file kind.
#pragma once

#include <cstddef>
#include <string>

#include "dlglib/kept_state.h"
#include "platform/framework/export.h"
#include "platform/framework/strings.h"

class CWnd;

/// Asks for files of a kind with the library's file browser.
///
///   CvFilSelDlg request(dlglib::kLibraryCaption, CWnd::FromHandle(owner), "#MODEL#", "C:/plant/A-001",
///                       dlglib::kOpenFile);
///   if (request.DoModal() == IDOK) Open(request.GetActName());
///
/// Texts come in two forms: an internal name is EUC-JP with "/" between its parts, a real name Shift_JIS with "\".
/// Every text is kept with at most 256 bytes; a longer one is cut at a character. A request may be run again; it then
/// starts in the kind's folder with the file-name part of the former initial name. A folder without a drive, the kind's
/// or that of the initial name, is one of the current drive, and one without a root lies in the current folder. Copies
/// share the chosen names until one of the two is run again, walk through them on their own, and may outlive each
/// other. All calls are made on the thread of the parent window.
///
/// No call throws, constructors and copies neither. Without memory for it a call does nothing: DoModal answers 2, a
/// name is empty, and a text that is to be changed in place stays as it was. A request that could not be made, or
/// copied, for want of memory answers all its calls in this way.
class DLGLIB_API CvFilSelDlg {
 public:
  /// A request for one file.
  /// `caption`: EUC-JP, caption of the browser and of message boxes; null gives "ファイルの選択". Not kept.
  /// `parent`: borrowed, owns the browser and the message boxes; may be null.
  /// `keyword`: the file kind, such as "#MODEL#". `initialName`: internal name, or a bare name in the folder of the
  /// kind. `openMode`: dlglib::kOpenFile, kSaveFile or kNameFile (dlglib/modes.h); any other number saves.
  CvFilSelDlg(const std::string* caption, CWnd* parent, const std::string& keyword, const std::string& initialName,
              int openMode) noexcept;
  /// A request for several existing files. After OK their names (internal, as GetName gives them) are written to
  /// `listFilePath` (internal name), one in a line. An empty path writes nothing. A name with a blank in it comes as
  /// two, as in GetNextName.
  CvFilSelDlg(const std::string* caption, CWnd* parent, const std::string& keyword, const std::string& initialName,
              const std::string& listFilePath) noexcept;
  /// A copy shares the chosen names, as said above. An assignment for which there is no memory changes nothing.
  CvFilSelDlg(const CvFilSelDlg& other) noexcept;
  CvFilSelDlg& operator=(const CvFilSelDlg& other) noexcept;
  ~CvFilSelDlg();

  /// Runs the browser modally; pumps messages. `option`: dlglib::kAnyFolder, or any other, as kFixedFolder, which holds
  /// the user in the folder. Returns 1 after OK, 2 after cancel, when the browser cannot be made, and when the list
  /// file cannot be written (the user has been told). While the browser waits for a device its window lives. Before
  /// it opens and after it has closed devices are asked in place, on the caller's thread, above all for the list file:
  /// one that does not answer keeps this call and the parent's windows waiting.
  int DoModal(int option) noexcept;
  int DoModal() noexcept;

  /// The first and each further chosen real name. `out` has room for 257 bytes; null is ignored. Further names are
  /// there in a request for several files only; behind the last one the text is empty. Names are joined by blanks, so a
  /// name with a blank in it comes as two (DlglibFileRequestNameSjis of dlglib_c.h gives whole paths). Before the first
  /// DoModal the text is empty; after cancel the first name is the initial name.
  void GetFirstName(char* out) noexcept;
  void GetNextName(char* out) noexcept;

  /// The first chosen name: internal, without the folder and the extension of the kind; internal and full; real and
  /// full. Each starts the walk of GetNextName anew, and in a request for several files ends at a blank as it does.
  /// Empty before the first DoModal.
  CString GetName() noexcept;
  CString GetFullName() noexcept;
  CString GetActName() noexcept;

  /// Turn the text in `path`, a buffer of `size` bytes, from internal to real form and back. What does not fit is cut
  /// at a character. A null `path` or a size of 0 is ignored.
  void RealPathName(char* path, std::size_t size) noexcept;
  void InternalPathName(char* path, std::size_t size) noexcept;

  /// Takes the folder and the extension of the kind off an internal name, in place: "/DATA/MDL/ABC.MDL" becomes "ABC".
  /// Letter case does not count; what is left keeps its own. A folder without a drive, the kind's or the name's, is one
  /// of the current drive: on drive C "C:/DATA/MDL/ABC.MDL" becomes "ABC" as well. Null is ignored.
  void ExceptDefaultName(char* name) noexcept;

  /// Makes "a" to "z" capitals, byte by byte: second bytes of double-byte characters too. Null is ignored.
  void ToUpper(char* text) noexcept;

 private:
  char* Strrchr(char* text, int ch);

  struct State;
  KeptState<State> state_;
};
