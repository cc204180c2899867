// CvListControl: a grid over a report list view of a dialog, drawn by itself and edited in place.
//
//   list.InitList(this, IDC_TABLE, 3, 10, 200, 0);     // 3 columns, 10 of 200 rows in use, numbers in column 0
//   list.SetColumn(1, "品名", 6.0);                    // six tenths of the width
//   list.SetEdit(1, 0, 40, "品名を入力してください。");
//   list.SetItemText(0, 1, "ポンプ");
//
// The dialog forwards two things of the list view: WM_DRAWITEM to OnDrawItem and NM_CLICK to ClickItem. The editors'
// notifications need nothing of it, whether it is a dialog of the framework or any window given by CWnd::FromHandle.
//
// A click on a cell puts the column's edit box over it, a further click on the same cell drops its list down. Typed
// text is in the cell at once, with every change, as long as a cell is edited; what Tab, Enter and Esc do is up to the
// dialog, and none of them takes a text back, but Esc closes a list that is open before the dialog sees it. Blanks at
// the end go when the box is left. What is not changed in a box keeps its bytes: codes that share their character with
// another one, and bytes that are no character, are never rewritten by a click.
//
// The dialog may call any operation, end or destroy the list, and destroy itself in every notification of an editor.
// What was typed is in its cell by then, or comes there first. Editors that go are hidden at once and are without
// effect; one that is in the middle of a notification is destroyed when the thread's message loop comes to it.
//
// Texts are Shift_JIS and lengths bytes of it; a cell holds at most its column's limit, and a user brings no more than
// that or the box's own limit into a box, be it typed or pasted; a picked value fills the cell. Rows and columns are
// counted from 0. What is given for a row or column outside is ignored; questions about it are answered as they say. A
// null text is the empty one; a null pointer for a result is left alone. All operations are synchronous, belong to the
// thread of the dialog, and keep no pointer but the parent list. Before InitList, after TermList and without a list
// view nothing is shown and no row exists. Those that place an editor or show a message may run code of the dialog.
//
// No exception leaves an operation or a constructor. Without memory an operation does nothing, or no more than it has
// done so far: a cell keeps its text, a column its editors, a table that is to be made is an empty one (InitList), and
// a check answers 0. A row that is to be added is there as soon as its number is answered, and -1 otherwise. A list
// that could not be made for want of memory is as one before InitList, whatever is called.
#pragma once

#include <memory>

#include "dlglib/utility/CvUtility.h"

class CvGrid;

/// A grid over a report list view of a dialog, drawn by itself and edited in place.
class DLGLIB_API CvListControl : public CvUtility {
 public:
  CvListControl() noexcept;
  /// `parentList`: see SetParentList.
  explicit CvListControl(CvListControl* parentList) noexcept;
  CvListControl(const CvListControl&) = delete;
  CvListControl& operator=(const CvListControl&) = delete;
  /// TermList, but without a word to the list view, which may be gone.
  ~CvListControl() override;

  /// The list whose message zone shows the messages of this one; null for none. Borrowed.
  void SetParentList(CvListControl* parentList) noexcept;

  // ----------------------------------------------------------------------------------------------------- start and end

  /// Takes the list view `listId` of `parent` over: makes it owner-drawn and gives it `maxItems` empty rows, of which
  /// the first `items` are in use. At most 20 columns. `numberColumn`: where the rows are numbered; below 0 nowhere, 20
  /// and above in column 0. Cells hold up to 385 bytes. To be called once the list view exists. A list that is
  /// initialised already is ended first, but keeps message window and separator. `parent` must live as long as the list
  /// is used; it becomes the utility's parent window. More than ten million rows, or more than there is memory for,
  /// cannot be had: the list is empty then, without row, column and parent, the former one has ended, and GetListCount
  /// answers 0.
  void InitList(CWnd* parent, int listId, int columns, int items, int maxItems, int numberColumn) noexcept;
  /// The same with a limit for each column, clamped to 4 to 385 bytes. `textLimits` has one value for each column; null
  /// stands for 385 throughout.
  void InitList(CWnd* parent, int listId, int columns, const int* textLimits, int items, int maxItems,
                int numberColumn) noexcept;
  /// The same with the limits that the list had before, at first 385.
  void InitList0(CWnd* parent, int listId, int columns, int items, int maxItems, int numberColumn) noexcept;
  /// Empties the list view, deletes the columns and the editors and gives all storage back, and with it parent window,
  /// message window and separator. Limits and parent list stay.
  void TermList() noexcept;
  /// The LVS_EX_ styles of the list view, all of them.
  void SetExtendedStyle(unsigned long style) noexcept;

  // ----------------------------------------------------------------------------------------------------------- columns

  /// Adds the next column: `share` is its part of the list's width in tenths, without the vertical scroll bar.
  /// `format`: LVCFMT_ value of its title. `drawFlags`: DT_ values for the texts of its cells; DT_NOPREFIX and
  /// DT_END_ELLIPSIS always hold. `kind`: 0 shows texts, 1 a swatch in the cell's text colour, any other value nothing.
  /// A column that is set anew forgets its editors; they stay hidden until the list ends.
  void SetColumn(int col, const char* title, double share, int format, int drawFlags, int kind) noexcept;
  void SetColumn(int col, const char* title, double share) noexcept;
  void SetColumn(int col, const char* title, double share, int kind) noexcept;
  /// Gives a column an edit box. `caseMode`: above 0 capitals, below 0 small letters, 0 as typed. The box takes
  /// `maxChars` bytes but never more than the column's limit; 0 stands for that limit. `prompt`: the message shown when
  /// a cell of the column is clicked, 127 bytes at most. A character that does not fit is refused with a beep.
  void SetEdit(int col, int caseMode, unsigned int maxChars, const char* prompt) noexcept;
  /// Gives a column a list to drop down, as wide as the columns up to `lastCol`. `dialogComboId` other than 0: a combo
  /// box of the dialog is used, which stays the dialog's and tells its notifications to it; the dialog then does what a
  /// pick does here: SetItemText, SelchangeComboBox, CloseComboBox. A column that has a list gets new entries only.
  /// `prompt`: the message shown while the list is open, 127 bytes at most. The separator becomes a blank again.
  void SetCombo(int col, int lastCol, CStringList* entries, int dialogComboId, const char* prompt) noexcept;
  void SetCombo(int col, int lastCol, CStringList* entries, const char* prompt) noexcept;
  /// Takes the column's edit box away, or its list; a combo box of the dialog stays.
  void ClearEdit(int col) noexcept;
  void ClearCombo(int col) noexcept;
  /// The byte that ends the value of an entry: picking "12 Steel" stores "12". Separators at an entry's start are
  /// skipped.
  void SetComboSeparator(int ch) noexcept;
  int GetComboSeparator() noexcept;
  /// 0 refuses typed half-width katakana, 1 (at first) takes it. In force from the next time the box is placed.
  void SetEditMode(int col, int mode) noexcept;
  /// 0 (at first) removes the blanks at the end of what was typed, any other value keeps them.
  void SetSpaceMode(int col, int mode) noexcept;

  // ------------------------------------------------------------------------------------------------------------- cells

  /// Cuts the text at the column's limit, between two characters, and makes the cell available and free of error.
  /// Paints nothing: call DrawItem. A box over the cell shows the text at once.
  void SetItemText(int row, int col, const char* text) noexcept;
  /// `out`: room for 386 bytes. Empty for a cell outside.
  void GetItemText(int row, int col, char* out) noexcept;
  /// Copies a text into `dst` and closes it with a terminator: at most `n` bytes, no double-byte character split, half
  /// a character at the end of `src` left out. With an `n` below 1 one single-byte character is still copied. `dst`:
  /// room for `n` bytes and a terminator, at least for two bytes.
  void TextCopy(char* dst, const char* src, int n) noexcept;
  /// 0x00BBGGRR. Of any row of the capacity.
  void SetItemColor(int row, int col, unsigned long textColour, unsigned long backColour) noexcept;
  /// A flag other than 0 means that the cell is *not* available: it takes no edit box and is grey when the first cell
  /// of its row is not available either. The first form sets the whole row. Rows in use only.
  void SetAvailableFlag(int row, int flag) noexcept;
  void SetAvailableFlag(int row, int col, int flag) noexcept;
  /// The flag of the row's first cell, or of a cell; 1 outside the rows in use.
  int GetAvailableFlag(int row) noexcept;
  int GetAvailableFlag(int row, int col) noexcept;
  /// A flag other than 0 means an error: the text is red. Rows in use only.
  void SetErrorFlag(int row, int col, int flag) noexcept;
  /// 1 when the cell has *no* error, 0 when it has one and outside. Callers rely on the sense.
  int GetErrorFlag(int row, int col) noexcept;

  // ---------------------------------------------------------------------------------------------- rows and selection

  /// The rows there is room for.
  int GetListCount() noexcept;
  /// The rows in use. SetItemCount checks nothing; what lies outside the room counts as its nearest end.
  int GetItemCount() noexcept;
  void SetItemCount(int count) noexcept;
  /// The flag is passed on to the list view's own selection.
  void SetSelectFlag(int row, int flag) noexcept;
  /// 0 outside; the row behind the last one in use is answered too.
  int GetSelectFlag(int row) noexcept;
  /// Selects no row.
  void ClearSelectFlag() noexcept;
  /// The first row that is selected, -1 for none.
  int GetSelectedItem() noexcept;
  /// The column of the cell that is being edited.
  int GetSelectedColumn() noexcept;
  /// Adds an empty row at the end, or before the first selected one. It is the only selected row then. Returns its
  /// index; also when the list is full, and -1 when nothing is selected, which a message box says. Pumps messages then.
  int AddItem() noexcept;
  int InsertItem() noexcept;
  /// Deletes the selected rows. A message box says when there is none.
  void DeleteItem() noexcept;
  /// 1 when the text is a number from 1 to 256, digits only; otherwise 0, and the message zone tells row and text.
  int CheckClassNumber(int row, CString text) noexcept;
  int CheckRevisionNumber(int row, CString text) noexcept;

  /// One line in the message zone of the outermost parent list, as the utility shows it; the second one beeps.
  void MessageText(const char* text) noexcept;
  void ErrorText(const char* text) noexcept;

  // ----------------------------------------------------------------------------------------------------------- editing

  /// For NM_CLICK of the list view: takes the list view's selection over, and edits the cell under the mouse pointer. A
  /// cell that is not available is not edited and its row loses its selection.
  void ClickItem() noexcept;
  /// The same for a given cell.
  void ClickItem(int row, int col) noexcept;
  /// The first selected row of the list view and the column under the mouse pointer, -1 for none. Changes nothing.
  void GetClickItem(int* row, int* col) noexcept;
  /// Asks for a cell to be edited; the next SelectItem() scrolls to it and does so.
  void SelectItem(int row, int col) noexcept;
  /// Puts the edit box over the cell that is edited: where it has moved to, or for the first time.
  void SelectItem() noexcept;
  /// Commits the text of the edit box to the cell over which it stands, while a cell is edited (ClearSelectFlag ends
  /// that). Flags stay.
  void KeyInput() noexcept;
  /// Drops the list of the edited cell down, or closes the one that is open.
  void OpenComboBox() noexcept;
  void CloseComboBox() noexcept;
  /// Shows a picked value in the edit box, and so commits it. As in SetItemText the column's limit counts.
  void SelchangeComboBox(const char* text) noexcept;

  // ----------------------------------------------------------------------------------------------------------- drawing

  /// For WM_DRAWITEM of the list view; of the structure the row counts.
  void OnDrawItem(DRAWITEMSTRUCT* dis) noexcept;
  /// Paints all visible rows, at once and without erasing.
  void DrawItem() noexcept;

 private:
  KeptState<CvGrid> grid_;
};
