// CvUtility: the toolbox that a dialog keeps beside itself.
//
// Texts are Shift_JIS (the screen's form) unless an operation says EUC-JP (the stored form). A null text counts as the
// empty one and a null window, array, list or result pointer makes an operation do without it; neither is an error.
// Texts that are longer than the room for them are cut between two characters. Pointers to the utility's own buffers
// stay good as long as the utility lives; their contents change as the operations say. All operations are synchronous,
// belong to the thread of the dialog, and none keeps a pointer but SetParentWindow and SetMessageWindow.
//
// CheckInputFile, CheckOutputFile and Access look for a file or a folder in place, on the caller's thread, and come
// back when the device has answered: a share that has died may take a minute for that, in which the dialog does not
// paint. So does FileDialog before and after its browser; the browser itself lives while it waits.
//
// No exception leaves an operation or the constructor. Without memory for it an operation does nothing, or no more than
// it has done so far, and answers as it does otherwise when it cannot: a check 0, Access -1, FileDialog 2; a text that
// is asked for is the empty one, a text that is changed in place and an array stay as they were, nothing is written to
// the registry. A utility that could not be made for want of memory answers all its operations in this way; the texts
// that it hands out are empty ones, which all such utilities share.
#pragma once

#include <string>
#include <string_view>

#include "dlglib/kept_state.h"
#include "platform/framework/controls.h"
#include "platform/framework/export.h"
#include "platform/framework/strings.h"

/// The toolbox of one dialog.
class DLGLIB_API CvUtility : public CStatic {
 public:
  /// No parent, no message window, all texts empty, keyword class and flags 0.
  CvUtility() noexcept;
  CvUtility(const CvUtility&) = delete;
  CvUtility& operator=(const CvUtility&) = delete;
  ~CvUtility() override;

  // ---- dialog and message zone

  /// The dialog that is served: it owns message boxes and shows the message zone. Borrowed; it must live as long as the
  /// utility is used. Unless null, its title becomes the caption. Null ends the service: whatever needs a dialog then
  /// does nothing. From now on an input method's composition in an edit control that the dialog has, alone or in a
  /// combo box, is no text before it ends: one that is given up, or open when the control is left, puts back what was
  /// there, and Enter, Esc and Tab of an open one stay with it. Controls that are made later follow at KillFocus;
  /// 8-bit ones are left alone where the system's code page is not 932.
  void SetParentWindow(CWnd* parent) noexcept;
  /// A window whose text shows the messages instead of the message zone; null for none. Borrowed, as above.
  void SetMessageWindow(CWnd* window) noexcept;
  /// The title of the dialog and of message boxes, 127 bytes at most. With a parent it becomes the parent's title at
  /// once.
  void SetCaption(const char* caption) noexcept;
  /// The caption; 128 bytes of room, never null.
  char* GetCaption() noexcept;
  /// What the file browser shows as the kind's description, 127 bytes at most.
  void SetComment(const char* comment) noexcept;
  /// The file kind that is served, such as "#MODEL#": EUC-JP as the suite knows it, 255 bytes at most. Model kinds show
  /// titles in the file browser when the session says so at the time of this call.
  void SetKeyword(const char* keyword) noexcept;
  /// The file browser's name pattern, 255 bytes at most; an empty one becomes "*".
  void SetWildcard(const char* pattern) noexcept;
  void SetWildcard(CString pattern) noexcept;
  /// Changes nothing; programs that say it may go on doing so.
  void SetFileIO(int mode) noexcept;
  /// dlglib::kAnyFolder (at first), or any other, as kFixedFolder: what the file browser lets the user leave
  /// (dlglib/modes.h).
  void SetNoDirectoryEntry(int mode) noexcept;
  /// Changes nothing: the message zone is written in black.
  void SetTextColor(COLORREF color) noexcept;

  using CStatic::SetFocus;
  /// Gives the focus to the parent's control of that ID.
  void SetFocus(int controlId) noexcept;

  /// Shows one line of at most 512 bytes: as the text of the message window if there is one, else drawn straight onto
  /// the bottom of the parent's client area, over the former message. Null clears it. The zone is not painted again by
  /// itself: after the dialog has been painted, call this again. While a screen reader runs, one that says so
  /// (SPI_GETSCREENREADER) or one that listens (UiaClientsAreListening), a drawn message is the text of a static
  /// control as well, the last one of the parent, without a size and with the ID -1; the control stays as long as
  /// parent and utility do. A new text is announced, in the message window too. Nothing happens without a parent.
  void MessageText(const char* text) noexcept;
  /// Beeps and shows the text as MessageText does. Beeps without a parent too. Announced although it stands there
  /// already: the user has done again what is wrong.
  void ErrorText(const char* text) noexcept;
  /// The text of a numbered message: above 0 of the suite's messages, below 0 (made positive) of its errors. Empty for
  /// 0 and for an unknown number. `out`: room for 257 bytes.
  void GetMessageText(int number, char* out) noexcept;
  /// Beeps and shows at most 151 bytes of a numbered message.
  void ErrorNo(int number) noexcept;
  /// Makes the parent higher by one and a half times the height of its font.
  void SetMessageZone() noexcept;
  /// Makes the parent wider and higher by that many pixels, below 0 smaller. It keeps its place.
  void ResizeWindow(int widthChange, int heightChange) noexcept;

  using CStatic::MoveWindow;
  /// Moves a control of the parent by that many pixels.
  void MoveWindow(CWnd* control, int dx, int dy) noexcept;

  // ---- path names

  /// Turns a path or a bare name, Shift_JIS or EUC-JP, in place into the platform's form: Shift_JIS, absolute, "\". It
  /// is resolved in the folder of the kind, the file-name part keeps the typed spelling; an empty one gives the folder.
  /// What cannot be resolved within 512 bytes (an unknown kind, a folder that is too long) is converted as it stands.
  /// `path`: room for 513 bytes; more than 512 bytes of text are cut. Always 0. Without a keyword the utility's own
  /// counts.
  ///
  /// A path that is well-formed EUC-JP is EUC-JP, unless all its characters other than ASCII are double-byte Shift_JIS;
  /// any other is Shift_JIS. So a Shift_JIS path with half-width katakana whose bytes also make characters of EUC-JP is
  /// read as EUC-JP, and an EUC-JP path of half-width katakana or rare Kanji alone as Shift_JIS.
  int RealPathName(const char* keyword, char* path) noexcept;
  int RealPathName(char* path) noexcept;
  /// The same of a real path into the suite's form: EUC-JP, absolute, "/". Valid Shift_JIS is Shift_JIS here.
  int InternalPathName(const char* keyword, char* path) noexcept;
  int InternalPathName(char* path) noexcept;
  /// The first byte behind the last "/" or "\" byte of `path`, its first byte when there is none. Bytes are searched
  /// one by one: use it on EUC-JP texts, as a Shift_JIS character may end in the byte of "\". Null for null.
  char* GetFileNamePos(char* path) noexcept;
  const char* GetFileNamePos(const char* path) noexcept;
  /// The last character of a Shift_JIS text that is one byte below 0x80 and equal to `letter`; null when there is none.
  char* Strrchr(char* text, int letter) noexcept;
  const char* Strrchr(const char* text, int letter) noexcept;
  /// How names of a kind are written: 1 in capitals, -1 in small letters, 0 as they are or unknown. The keyword is what
  /// stands from the first "#" to the next one in the first 16 bytes of the text.
  int GetFilnameUL(const char* keyword) noexcept;
  /// Registers the kind "#FLOPPY_WIN#", the root of the drive in the folder of "#FLOPPY#" ("A:/" without one) with the
  /// patterns of `keyword`, and makes it the utility's keyword.
  void SetFloppy(const char* keyword) noexcept;
  /// 1 when a name holds none of ' | " < > nor, unless `wildcards` is other than 0, * and ?; else 0. An empty name is
  /// acceptable, and so is half-width katakana.
  int CheckFileName(const char* name, int wildcards) noexcept;
  int CheckFileName(const char* name) noexcept;
  int CheckFileName(CString name) noexcept;
  /// The same with wildcards allowed, but a name that is empty or not acceptable is refused with a message box. Pumps
  /// messages.
  int CheckFile(CString name) noexcept;
  /// 1 when the file exists; otherwise 0 after a message box. The name buffer receives the real path. A name that may
  /// be Shift_JIS and EUC-JP is read as RealPathName reads it, and in the other way when only that one is on the disk.
  /// Pumps messages.
  int CheckInputFile(CString name) noexcept;
  /// 1 when the file may be written: it does not exist and its folder does, or the user does not answer "No" when asked
  /// whether to write over it. Otherwise 0. The name buffer receives the real path. A name that may be Shift_JIS and
  /// EUC-JP is read as above; when neither file is there, the other way counts when only its folder is. Pumps messages.
  int CheckOutputFile(CString name) noexcept;
  /// 0 when a file or folder of that real path exists, else -1.
  int Access(const char* realPath) noexcept;
  /// The same for a name of a kind, read as CheckInputFile reads it. The name buffer receives the real path.
  int Access(const char* keyword, const char* name) noexcept;
  /// The name buffer: the real path of the last name that CheckInputFile, CheckOutputFile or Access resolved. At most
  /// 255 bytes of it are kept, although all of it was looked for. Never null.
  char* GetFileName() noexcept;
  /// Form 1: the name buffer in EUC-JP, in the work buffer, which CheckNumber, CheckScale, ToEUC with `out` and ToSJIS
  /// overwrite. Any other form: the name buffer itself.
  char* GetFileName(int form) noexcept;

  // ---- file browser

  /// Asks for a file of the kind in the library's file browser. `mode`: dlglib::kOpenFile, kSaveFile or kNameFile
  /// (dlglib/modes.h); any other number is as kNameFile. Pattern, description of the kind and title come from
  /// SetWildcard (by default the kind's own pattern), SetComment and SetCaption; SetNoDirectoryEntry may fix the
  /// folder, which is the kind's at first. Returns 1 after OK, with the chosen real path in the name buffer
  /// (GetFileName), else 2, with the name buffer as it was: after cancel, and when the browser cannot be shown. A path
  /// of more than 255 bytes, the room of the name buffer, is refused in the browser, as one that cannot be found. Pumps
  /// messages.
  int FileDialog(int mode) noexcept;

  // ---- stored texts and the screen

  /// EUC-JP to Shift_JIS. A metacharacter (0x8D and a code byte) becomes "<mc>" and its character; 0x0D and 0x0A become
  /// "<cr>" each, so a pair of them becomes two. Half a character at the end of the text is left out, a byte that is no
  /// EUC-JP becomes "?". `size`: bytes of room in `out`, terminator included; below 1 nothing is written. Whole
  /// characters are written, 16383 bytes of text with its escapes at most. `out` may be `text`.
  void EucToSjis(const char* text, char* out, int size) noexcept;
  /// Shift_JIS to EUC-JP. "<mc>" and an ASCII character become a metacharacter, "<cr>" becomes 0x0D; "<mc>" in front of
  /// anything else, or of nothing, stays. A byte that is no Shift_JIS becomes "?", but a text that is EUC-JP already is
  /// not converted again. At most 8191 bytes of the text, as EUC-JP, count. The result is cut at `size` - 1 bytes, be
  /// it in the middle of a character. `size` and `out` as above.
  void SjisToEuc(const char* text, char* out, int size) noexcept;
  /// SjisToEuc of the first 512 bytes of `text`. `out`: room for 513 bytes. Uses the work buffer.
  void ToEUC(CString text, char* out) noexcept;
  /// Converts its own copy: the caller sees no effect.
  void ToEUC(CString text) noexcept;
  /// SjisToEuc in place. `text`: room for 513 bytes.
  void ToEUC(char* text) noexcept;
  /// EucToSjis in place of at most 512 bytes. `text`: room for 513 bytes. Uses the work buffer.
  void ToSJIS(char* text) noexcept;

  // ---- toolbar

  /// Puts a toolbar at the top of the parent whose buttons insert, at the caret of the edit control with the focus: 0 a
  /// text of the suite's text library, 1 the escape of a metacharacter, 2 the value of a register. Bit i of
  /// `buttonMask` enables button i, the others are greyed; further bits count for nothing. The buttons' dialogs pump
  /// messages, and what is inserted takes the place of what is on the clipboard. Texts are inserted as EucToSjis gives
  /// them, with metacharacters as "<mc>" and a character and line breaks as "<cr>": 1023 bytes at most, in whole
  /// characters and whole escapes.
  ///
  /// `controlIds`: controls of the parent that the toolbar would cover. Unless null, the parent becomes higher by the
  /// toolbar's height, and they are moved down by as much; a number that no control has is passed over. Not kept.
  ///
  /// Nothing happens without a parent window. A further call replaces the toolbar; room that has been made for it is
  /// not made again. The toolbar goes with the utility or with the parent's window, whichever comes first.
  void SetToolBar(int buttonMask, const CDWordArray* controlIds) noexcept;
  /// Without making room.
  void SetToolBar(int buttonMask) noexcept;
  /// The file name, or name pattern, with which button 0 opens the text library: EUC-JP, as the library's own names
  /// are, 255 bytes at most. "*", all of them, at first and after null. May be called at any time.
  void SetTlbFileName(const char* name) noexcept;

  // ---- checks and numbers

  /// 1 when a model name holds none of the bytes * ? ' " \ / | < >, else 0. A character that ends in the byte of "\" or
  /// "|" makes it unacceptable too. An empty name is acceptable.
  int CheckModelName(const char* name) noexcept;
  int CheckModelName(CString name) noexcept;
  // Numbers have a point before their decimals, in what is read and in what is written, whatever the locale of the
  // program.

  /// 1 when the text is a number and minimum <= number <= maximum, else 0. Mode 0: digits only; 1: one sign and one "."
  /// as well; any other: one sign as well. A sign in the middle is accepted and ends the number: "12-3" is 12. Blanks
  /// and exponents are not accepted. Empty texts and those of more than 512 bytes are no numbers, and no number lies
  /// between limits one of which is not a number. The work buffer receives the text, 512 bytes at most.
  int CheckNumber(CString text, int mode, double minimum, double maximum) noexcept;
  /// 1 and the scale for a number from 1e-7 to 1e6 or a fraction ("1/500") of two numbers from 1 to 1e6, each of them
  /// in the form of CheckNumber's mode 1; else 0 and a scale of 0. The work buffer receives the part that was checked
  /// last.
  int CheckScale(const char* text, double* scale) noexcept;
  /// "1/n" for a scale below 1 that differs from it by less than 0.001, else a number of up to 15 digits without zeros
  /// at its end; from 1e15 on and for tiny ones it has an exponent, which loses zeros at its end too. What is no number
  /// becomes "NAN", "INF" or "-INF". `text`: room for 32 bytes.
  void DisplayScale(double scale, char* text) noexcept;
  /// Up to eight and at least one decimal ("0.25", "100.0"); "nan", "inf" or "-inf" for what is no number. The text
  /// lies in one buffer that all utilities share: each call overwrites it. Never null.
  char* DtoA(double value) noexcept;
  /// Bits of 16-bit words, bit 1 being the most significant of word 0, bit 17 that of word 1. Operation 0 clears and 1
  /// sets the bit, result -1; any other operation gives the bit's value, 0 or 1. A bit below 1 and null words give -1.
  /// `words` must reach up to the bit.
  int BitSet(int operation, int bit, short* words) noexcept;
  /// 1 when the mask allows a character of that code: 1 capitals, 2 small letters, 4 digits, 8 other single-byte
  /// characters below 0x80, 16 half-width katakana (0xA0 to 0xDF), 32 everything else. Else 0.
  int CheckChar(unsigned int mask, unsigned int code) noexcept;
  /// Removes the blanks at the end, in place.
  void SpaceNull(char* text) noexcept;
  /// The same, but the first character always stays, and the length of the string object does: terminators are written
  /// over the blanks.
  void ExceptSpace(CString* text) noexcept;
  /// For an edit control that is left: moves the parent's controls to its members, removes the blanks at the end of
  /// `member`, clears the message zone and moves the members back. Nothing without a parent or a member, and while a
  /// composition of an input method is open in a control of the parent.
  void KillFocus(CString* member) noexcept;
  /// Makes the parent's edit control write capitals or small letters when the names of the kind are written so
  /// (GetFilnameUL). It stays as it is for other and unknown kinds, and without a parent.
  void SetEditBoxStyle(int controlId, const char* keyword) noexcept;
  /// An EUC-JP text to a window or a text: EucToSjis, at most 512 bytes, without blanks at its end.
  void SetTextData(CWnd* window, const char* text) noexcept;
  void SetTextData(CString* text, const char* eucText) noexcept;
  /// The first 512 bytes of a window's text, or a whole text, in EUC-JP: SjisToEuc, without blanks at its end. What
  /// SetTextData or the toolbar has put into the window, and nobody has changed, comes back with its bytes. `size`:
  /// bytes of room in `out`, terminator included; below 1 nothing is written. A null window has an empty text.
  void GetTextData(CWnd* window, char* out, int size) noexcept;
  void GetTextData(CString text, char* out, int size) noexcept;

  // ---- recent files and names

  // The lists lie below HKEY_CURRENT_USER\Software\Nalbo\Corvane. Files: the key "FileDialog\Use #KIND#", or
  // "FileDialog\Use ##" for a keyword that does not start with "#"; in the values iFileCount and iFile01 to iFile20,
  // oFileCount and oFile01 to oFile20. Names: the key "XRF\Use #KIND#", in NameCount and Name01 to Name20.

  /// Reads the user's recent input files (output files for an `output` other than 0) of a kind, the most recent first,
  /// and how many of them to show: 1 to 20, or 10 when the registry holds no such number. Entries that are missing,
  /// have no byte or more than 256 are passed over. A key that is missing is made; when it cannot be opened, array and
  /// count keep what they had. The combo box is filled anew in any case with the first `*count` entries (10 without a
  /// count) that are not empty, one blank behind each.
  void GetUsedFile(const char* keyword, int output, CStringArray* files, int* count, CComboBox* combo) noexcept;
  /// Writes the count as given and those of the first `*count` files that are not empty in place of those kept before.
  /// An entry is kept under the number of its place; only the numbers up to 20 are read and replaced later. All of it
  /// is written, or none. Nothing is written without an array or a count, when the key cannot be opened, or where this
  /// utility's last reading of the list failed on something that is there: on a value, or on the key, while the key
  /// holds entries by now. A list that was never read is written. The key stays open until the list of the same key is
  /// written again or the utility ends.
  void SetUsedFile(const char* keyword, int output, const CStringArray* files, int* count) noexcept;
  /// The same for recent names, which have keys of their own.
  void GetUsedName(const char* keyword, CStringArray* names, int* count, CComboBox* combo) noexcept;
  void SetUsedName(const char* keyword, const CStringArray* names, int* count) noexcept;
  /// Puts an entry at the top in place of the first one that equals it but for the case of ASCII letters, and fills the
  /// combo box, which may be null, anew with those of the first `shown` entries that are not empty (none below 1), one
  /// blank behind each. The array may grow beyond what is shown or kept. A null entry only fills the combo box.
  void SetFilePath(CStringArray* entries, const char* newEntry, CComboBox* combo, int shown) noexcept;
  void SetNameList(CStringArray* entries, const char* newEntry, CComboBox* combo, int shown) noexcept;
  /// Removes the first entry that equals `entry` in the same way, and fills the combo box anew.
  void DelFilePath(CStringArray* entries, const char* entry, CComboBox* combo, int shown) noexcept;

 private:
  struct State;

  /// The room that a utility without state hands out: no text.
  [[nodiscard]] static char* NoText() noexcept;
  void DrawMessage(std::string_view text);
  int AskForFile(int mode);
  void MoveControl(const WindowRef& control, int dx, int dy);
  void PutToolBar(int buttonMask, const CDWordArray* controlIds);
  void ToUpper(char* text);
  std::string SetRegName(int listKind, const char* keyword);
  void ReadUsed(int listKind, int output, const char* keyword, CStringArray* array, int* count) noexcept;
  void WriteUsed(int listKind, int output, const char* keyword, const CStringArray* array, const int* count) noexcept;
  /// Puts the real path of a name, in the reading that is on the disk, into the name buffer and returns all of it.
  std::string ResolveName(const char* keyword, const char* name);
  /// Shows a message box with the caption as its title and returns the answer.
  int ShowBox(const std::string& text, unsigned int style);

  KeptState<State> state_;
};
