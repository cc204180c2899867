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
// A click on a cell puts the column's edit box over it; a click on its button, or a further click on the same cell
// beside the box, drops its list down (a click into the box is the box's own). Typed text is in the cell at once, with
// every change, as long as a cell is edited; what Tab, Enter and Esc do is up to the dialog, and none of them takes a
// text back, but Esc closes a list that is open before the dialog sees it. Blanks at the end go when the box is left.
// What is not changed in a box keeps its bytes: codes that share their character with another one, and bytes that are
// no character, are never rewritten by a click.
//
// The dialog may call any operation, end or destroy the list, and destroy itself in every notification of an editor.
// What was typed is in its cell by then, or comes there first. Editors that go are hidden at once and are without
// effect; one that is in the middle of a notification is destroyed when the thread's message loop comes to it.
//
// A dialog that wants more of the keyboard switches it on: moving between cells, the clipboard, undo, rows (SetKeys),
// and what the input method is to be in a column (SetImeMode). At first all of it is off.
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
  /// the first `items` are in use. None of them is available, so they are grey and not to be edited, until SetItemText
  /// or SetAvailableFlag makes cells available. At most 20 columns. `numberColumn`: where the rows in use are numbered
  /// anew whenever rows are added, inserted or deleted, and not before: a program that fills rows writes their numbers
  /// itself; below 0 nowhere, 20 and above in column 0. Cells hold up to 385 bytes. To be called once the list view
  /// exists. A list that is initialised already is ended first, but keeps message window and separator. `parent` must
  /// live as long as the list is used; it becomes the utility's parent window. More than ten million rows, or more than
  /// there is memory for, cannot be had: the list is empty then, without row, column and parent, the former one has
  /// ended, and GetListCount answers 0.
  void InitList(CWnd* parent, int listId, int columns, int items, int maxItems, int numberColumn) noexcept;
  /// The same with a limit for each column, clamped to 4 to 385 bytes. `textLimits` has one value for each column; null
  /// stands for 385 throughout.
  void InitList(CWnd* parent, int listId, int columns, const int* textLimits, int items, int maxItems,
                int numberColumn) noexcept;
  /// The same with the limits that the list had before, at first 385.
  void InitList0(CWnd* parent, int listId, int columns, int items, int maxItems, int numberColumn) noexcept;
  /// Empties the list view, deletes the columns and the editors and gives all storage back, and with it parent window,
  /// message window and separator. Until then cells can be read, also when the dialog has gone. Limits and parent list
  /// stay.
  void TermList() noexcept;
  /// The LVS_EX_ styles of the list view, all of them.
  void SetExtendedStyle(unsigned long style) noexcept;

  // ----------------------------------------------------------------------------------------------------------- columns

  /// Adds the next column: `share` is its part of the list's width in tenths, without the vertical scroll bar.
  /// `format`: LVCFMT_ value of its title. `drawFlags`: DT_ values for the texts of its cells; DT_NOPREFIX and
  /// DT_END_ELLIPSIS always hold. `kind`: 0 shows texts, 1 a swatch in the cell's text colour (SetItemColor; black at
  /// first, also in rows that are not in use), any other value nothing. A text that is picked in a colour column
  /// changes no colour. A column that is set anew forgets its editors; they stay hidden until the list ends.
  void SetColumn(int col, const char* title, double share, int format, int drawFlags, int kind) noexcept;
  void SetColumn(int col, const char* title, double share) noexcept;
  void SetColumn(int col, const char* title, double share, int kind) noexcept;
  /// Gives a column an edit box. `caseMode`: above 0 capitals, below 0 small letters, 0 as typed. The box takes
  /// `maxChars` bytes but never more than the column's limit; 0 stands for that limit. It does not scroll, so a user
  /// can type no more than is as wide as the cell either: give the column the width that its longest text needs. A text
  /// that the program sets, or that is pasted or picked for the whole cell, may be wider; nothing can be typed into it
  /// until so much has been deleted that the rest has room. A character that does not fit is refused with a beep.
  /// `prompt`: the message shown when a cell of the column is clicked, 127 bytes at most.
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
  /// 0x00BBGGRR. Of any row of the capacity. Paints nothing, as the flags below do not either.
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
  /// The rows in use. SetItemCount checks nothing; what lies outside the room counts as its nearest end. It numbers,
  /// clears and paints nothing.
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
  /// Adds an empty row, all of it available, at the end, or before the first selected one. It is the only selected row
  /// then. Returns its index. A message box says when the list is full, and nothing is added, though the index is
  /// returned (GetItemCount tells), and when no row is selected, with -1. Pumps messages then.
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

  /// For NM_CLICK of this list view and no other: takes the list view's selection over, and edits the cell under the
  /// mouse pointer. A cell that is not available is not edited and its row loses its selection.
  void ClickItem() noexcept;
  /// The same for a given cell.
  void ClickItem(int row, int col) noexcept;
  /// The first selected row of the list view and the column under the mouse pointer, -1 for none. Changes nothing.
  void GetClickItem(int* row, int* col) noexcept;
  /// Asks for a cell to be edited; the next SelectItem(), which a repaint calls too, scrolls to it and does so.
  void SelectItem(int row, int col) noexcept;
  /// Puts the edit box over the cell that is edited: where it has moved to, or for the first time.
  void SelectItem() noexcept;
  /// Commits the text of the edit box to the cell over which it stands, while a cell is edited (ClearSelectFlag ends
  /// that). Flags stay. While an input method composes in the box, nothing is committed: the cell keeps its former text
  /// until the composition has ended, which commits by itself.
  void KeyInput() noexcept;
  /// Drops the list of the edited cell down, or closes the one that is open.
  void OpenComboBox() noexcept;
  void CloseComboBox() noexcept;
  /// Shows a picked value in the edit box, and so commits it. As in SetItemText the column's limit counts.
  void SelchangeComboBox(const char* text) noexcept;

  // -------------------------------------------------------------------------------------------------------------- keys

  /// What SetKeys switches on. A key that is not named here, or whose flag is off, belongs to the control that has the
  /// focus and to the dialog. While an input method has a composition open, all keys are its own; Enter, Esc and Tab
  /// that it has left over do nothing and never reach the dialog.
  enum {
    /// Of the cell that is edited: Tab and Shift+Tab to the next and former cell that has an editor and is available,
    /// over the row's end, and out of the grid behind the last and before the first; Enter, Down and Shift+Enter, Up in
    /// the column; Page Up and Page Down; Ctrl+Home and Ctrl+End to the first and last cell; Esc gives the text back
    /// that the cell had when its box came, a second one is the dialog's; F2 puts the caret behind the text; Alt+Down
    /// and F4 drop the list down, in which arrows and letters move, Enter picks, and Esc and F4 close without a pick;
    /// Shift+Enter closes it without a pick and moves up.
    /// The keys of the flags below close it without a pick, too, and then do what they do without a list.
    /// Without a cell, with the focus in the list view: arrows and F2 edit one, typing edits one and takes the place of
    /// its text; Home, End and the page keys, these, arrows and Space with Shift or Ctrl, and where no column has an
    /// editor all of them, are the list view's, and its selection is taken over.
    kKeysMove = 1,
    /// With several rows selected, or without an edit box: Ctrl+C copies the selected rows, Ctrl+X copies and clears
    /// them, Delete clears them. Ctrl+V pastes at the edited cell, without one in column 0 of the first selected row;
    /// a single cell goes into the edit box where there is one and one row is selected, as its text, without quotes
    /// and line end.
    kKeysClipboard = 2,
    /// Ctrl+Z and Ctrl+Y.
    kKeysUndo = 4,
    /// Insert as InsertItem, Ctrl+Minus as DeleteItem.
    kKeysRows = 8,
    /// All of them.
    kKeysAll = 15
  };
  /// Which keys the grid takes: a sum of the flags above, at first 0. Other bits count for nothing.
  void SetKeys(int flags) noexcept;
  int GetKeys() noexcept;
  /// What the input method becomes while a cell of the column is edited: 0 (at first) as it is, 1 off, 2 hiragana, 3
  /// full-width katakana, 4 half-width katakana, 5 full-width letters; any other number counts as 0. When a cell of a
  /// column of mode 0 is edited, and when the focus leaves the grid, it becomes again what it was when the focus came
  /// in, whatever the user has switched meanwhile; within a cell the user has the say. As long as no column has a mode
  /// the input method is left alone. SetColumn forgets the mode of its column.
  void SetImeMode(int col, int mode) noexcept;

  // -------------------------------------------------------------------------------------------- copying, pasting, undo

  // A block of cells is a text as spreadsheets write it: tabs between the cells of a row, CR LF behind each row, the
  // last one too. A cell with a tab, a CR, an LF or a quote stands in quotes, and quotes in it are doubled. Colour
  // columns are empty fields. What of a block lies outside the rows in use and the columns does not count.
  //
  // A text that is pasted may end its rows with LF, CR LF or CR and lack the last one. An empty line is one empty cell.
  // A row with fewer cells leaves the others alone. A line break within a cell becomes a blank.
  //
  // On the clipboard the text is Unicode. A character that Shift_JIS lacks is refused by its name (U+301C), also where
  // it only looks like one that Shift_JIS has: a wave dash (U+301C), a minus sign (U+2212), a yen sign (U+00A5) or a
  // blank that does not break (U+00A0), as other systems write them, are none of its characters. Shift_JIS codes that
  // share their character come back from the clipboard as one of them.
  //
  // A step is all that the user, or one of these functions, does at once. Undoing it passes over cells that the program
  // has set to another text since; a step of which nothing is left is no step.

  /// Copies a block to the clipboard. The number of its cells; 0 when there are none, and, with a message and a beep,
  /// without memory and when another program keeps the clipboard open for half a second.
  int CopyCells(int row, int col, int rows, int cols) noexcept;
  /// Pastes from the clipboard, the first cell of its text to `row` and `col`. The number of cells whose text has
  /// changed; 0 for a clipboard without a text; below 0, with nothing changed and a message with a beep, when the
  /// clipboard is kept open as above or the text is refused. The message names row, column and reason.
  ///
  /// The whole text is refused when one of its cells is not available, or lies outside the columns or the rows in use
  /// (see SetPasteRows), or in a column without an editor, when it holds more bytes than its column and its box take, a
  /// character that Shift_JIS lacks, or half-width katakana where SetEditMode refuses it, when it is not what a pick
  /// from the list would store in a column with a list of the grid's and no box, and when the caller's own check
  /// refuses it (SetPasteCheck). Capitals and small letters become what the box would make of them, and blanks at the
  /// end go as in typing. Flags and colours stay.
  ///
  /// A text as wide as all columns, pasted at column 0, is one of rows: columns without an editor, the row numbers and
  /// colour columns use up their field and stay as they are, so that a copied row can be pasted. A single cell, while
  /// several rows are selected, goes into the column in each of them.
  int PasteCells(int row, int col) noexcept;
  /// Empties the texts of a block. The number of cells whose text has changed. Row numbers, colour columns, columns
  /// without an editor and cells that are not available stay as they are.
  int ClearCells(int row, int col, int rows, int cols) noexcept;
  /// A block as a text in Shift_JIS. `out`: room for `size` bytes; a text for which that is too little, with its
  /// terminator, becomes the empty one; a null buffer and a size below 1 receive nothing. The bytes that are needed
  /// with the terminator, 1 when there is nothing to give and without memory.
  int GetCellsText(int row, int col, int rows, int cols, char* out, int size) noexcept;
  /// Pastes a text in Shift_JIS, up to its first zero byte, as PasteCells does; null is the empty one.
  int SetCellsText(int row, int col, const char* text) noexcept;
  /// What becomes of a pasted text that goes beyond the rows in use: 0 (at first) refuses it, 1 adds rows as far as
  /// there is room, when the text begins no lower than in the first free row. Any other number counts as 0.
  void SetPasteRows(int mode) noexcept;
  /// The caller's own check, null (at first) for none: asked for each cell before anything is changed; 0 refuses the
  /// whole text. `text`: what the cell would hold (Shift_JIS), valid during the call. `context` is passed on. It may do
  /// anything, also change or destroy the list; a text that does not fit the list any more afterwards is refused
  /// without a message.
  void SetPasteCheck(int (*check)(void* context, int row, int col, const char* text), void* context) noexcept;

  /// Undoes the last step, or does it again; 1 when there was one, else 0. A step is all that is typed and picked in a
  /// cell from when it is edited until it, or the grid, is left or something has been picked; a text that is pasted, a
  /// block that is cleared, and each AddItem, InsertItem and DeleteItem, whoever calls them, with the rows' flags and
  /// colours. Nothing that the program sets is undone; when it sets a cell to another text nothing can be done again,
  /// and of the cell that is being edited this text is what Esc gives back. SetItemCount, the InitList functions and
  /// TermList forget all steps, and reset nothing else of what is set in this part. A program that fills a table by
  /// AddItem calls SetUndoLimit(0) before and sets the limit anew.
  int Undo() noexcept;
  int Redo() noexcept;
  /// 1 when there is something to undo, or to do again.
  int CanUndo() noexcept;
  int CanRedo() noexcept;
  /// How many steps are kept, those that were undone included; at first 100. A lower limit drops the oldest ones; 0,
  /// and any number below, keeps none.
  void SetUndoLimit(int steps) noexcept;
  /// Is told of each step once it is shown, of undoing and doing again too: `rows` rows from `row` on have other texts,
  /// or, with a `row` of -1, the number of rows has changed, and `rows` are in use now. What is typed is told of when
  /// its cell is left, or the grid, what is picked at once, and neither when the program has put another text over it.
  /// Enter that is the dialog's OK leaves neither: OnOK reads the cells. A box that shows the program's text in other
  /// letters, or without the blanks at its end, stores it so when it is left: that is no step and is not told of. Null
  /// (at first) for none. `context` is passed on. It may do anything, also destroy the list.
  void SetChanged(void (*changed)(void* context, int row, int rows), void* context) noexcept;

  // ----------------------------------------------------------------------------------------------------------- drawing

  /// For WM_DRAWITEM of this list view and no other; of the structure the row counts. A dialog procedure answers TRUE.
  void OnDrawItem(DRAWITEMSTRUCT* dis) noexcept;
  /// Paints all visible rows, at once and without erasing.
  void DrawItem() noexcept;

 private:
  KeptState<CvGrid> grid_;
};
