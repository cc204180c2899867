// The C interface, continued: the grid, the message zone and the recent lists. Included by dlglib_c.h, which says what
// holds for all functions.
#pragma once

#include "dlglib/dlglib_c_types.h"

// Read as C too.
// NOLINTBEGIN(modernize-deprecated-headers, modernize-use-using)

#ifdef __cplusplus
extern "C" {
#endif

// ---- the grid: a table over a report list view of a dialog, drawn by itself and edited in place.
//
//   DlglibGridCreate(&grid);                                        /* WM_INITDIALOG */
//   DlglibGridAttach(grid, dialog, IDC_TABLE, 3, NULL, 10, 200, 0); /* 3 columns, 10 of 200 rows, numbers in column 0
//   */ DlglibGridSetColumnUtf8(grid, 1, title, 6.0, 0, 0, 0);          /* six tenths of the width */
//   DlglibGridSetEditUtf8(grid, 1, 0, 40, prompt);
//   ...
//   if (DlglibGridMessage(grid, message, (void*)lParam) == DLGLIB_OK) return TRUE;   /* in the dialog procedure */
//   ...
//   DlglibGridDestroy(grid);                                        /* WM_DESTROY */
//
// The host may be any window with a report list view in it. Rows and columns are counted from 0; one outside gives
// DLGLIB_BAD_ARGUMENT. A cell holds at most its column's limit in bytes of Shift_JIS; a longer text is cut between two
// characters. Before DlglibGridAttach, after DlglibGridDetach and when the list view or its parent has gone the
// functions that need it answer DLGLIB_NOT_ATTACHED. Those that place an editor or show a message may run code of the
// host, which may call anything, DlglibGridDestroy too. In callbacks and in notifications of editors as well.

/// A grid. Handles are never used again.
typedef struct DlglibGridTag* DlglibGrid;

/// Is told of each step of the user once it is shown, of undoing and doing again too: `rows` rows from `row` on have
/// other texts, or, with a `row` of -1, the number of rows has changed, and `rows` are in use now. What is typed is
/// told of when its cell, or the grid, is left; what is picked at once. `context` is what the program has given.
typedef void(DLGLIB_CALL* DlglibGridChanged)(void* context, int32_t row, int32_t rows);
/// Is asked for each cell before a text is pasted; 0 refuses all of it. `text` is what the cell would hold, valid
/// during the call.
typedef int32_t(DLGLIB_CALL* DlglibGridPasteCheck)(void* context, int32_t row, int32_t col, const char* text);

/// The keys that a grid takes, as bits (DlglibGridSetKeys).
enum {
  DLGLIB_KEYS_MOVE = 1,       ///< Tab, Enter, arrows, pages, F2, Esc between and in cells
  DLGLIB_KEYS_CLIPBOARD = 2,  ///< Ctrl+C, Ctrl+X, Ctrl+V, Delete
  DLGLIB_KEYS_UNDO = 4,       ///< Ctrl+Z, Ctrl+Y
  DLGLIB_KEYS_ROWS = 8,       ///< Insert, Ctrl+Minus
  DLGLIB_KEYS_ALL = 15        ///< all of them
};

/// What a column shows.
enum {
  DLGLIB_COLUMN_TEXT = 0,   ///< texts
  DLGLIB_COLUMN_COLOUR = 1  ///< a swatch in the cell's text colour, which a picked text does not change
};

/// Makes a grid that has no list view yet, and puts its handle into `*grid`.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCreate(DlglibGrid* grid);
/// Ends a grid, its editors and its callbacks. The list view stays as it is; see DlglibGridDetach.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridDestroy(DlglibGrid grid);
/// The grid whose message zone shows the messages of this one; null for none.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetParentGrid(DlglibGrid grid, DlglibGrid parentGrid);
/// Takes the list view `listId` of the window `parent` over: makes it owner-drawn and gives it `maxItems` empty rows,
/// at most ten million, of which the first `items` are in use. None of them is available at first: see
/// DlglibGridSetText and DlglibGridSetAvailable. 1 to 20 columns. `textLimits`: one limit for each column, clamped to 4
/// to 385 bytes; null: 385 throughout. `numberColumn`: where the rows are numbered anew whenever rows are added or
/// deleted, and not before; below 0 nowhere. A list view that the grid had before is let go first. DLGLIB_BAD_ARGUMENT
/// when there is no such control.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridAttach(DlglibGrid grid, void* parent, int32_t listId, int32_t columns,
                                                       const int32_t* textLimits, int32_t items, int32_t maxItems,
                                                       int32_t numberColumn);
/// Empties the list view and lets it go. What the grid was told of columns, cells and messages is forgotten.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridDetach(DlglibGrid grid);
/// Every message of the parent may be offered here. WM_DRAWITEM of the list view draws a row, NM_CLICK of it
/// (WM_NOTIFY) edits the cell under the mouse pointer. `lParam`: that of the message, null gives DLGLIB_NULL_ARGUMENT
/// for these two. DLGLIB_OK: it was for the grid, the dialog procedure returns TRUE. DLGLIB_NOT_MINE: it was not.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridMessage(DlglibGrid grid, uint32_t message, void* lParam);
/// Paints all visible rows, at once and without erasing: after cells were set while the window is shown.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridDraw(DlglibGrid grid);
/// The LVS_EX_ styles of the list view, all of them.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetExtendedStyle(DlglibGrid grid, uint32_t style);
/// A window of the thread whose text shows the grid's messages; null: they are drawn at the bottom of the parent's
/// client area.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetMessageWindow(DlglibGrid grid, void* window);

// Columns.

/// Adds the next column, or sets one anew, which forgets its editors. `share`: its part of the list's width in tenths.
/// `format`: LVCFMT_ value of its title; `drawFlags`: DT_ values for its texts; `kind`: DLGLIB_COLUMN_..., any other
/// shows nothing. The title has 256 bytes at most.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetColumnSjis(DlglibGrid grid, int32_t col, const char* title,
                                                              double share, int32_t format, int32_t drawFlags,
                                                              int32_t kind);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetColumnUtf8(DlglibGrid grid, int32_t col, const char* title,
                                                              double share, int32_t format, int32_t drawFlags,
                                                              int32_t kind);
/// Gives a column an edit box. `letterCase`: above 0 capitals, below 0 small letters, 0 as typed. `maxBytes`: of what
/// may be typed, 0 for the column's limit; the box does not scroll, so it takes no more than is as wide as the cell
/// either. `prompt`: the message shown when a cell is clicked, 127 bytes at most, null for none.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetEditSjis(DlglibGrid grid, int32_t col, int32_t letterCase,
                                                            uint32_t maxBytes, const char* prompt);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetEditUtf8(DlglibGrid grid, int32_t col, int32_t letterCase,
                                                            uint32_t maxBytes, const char* prompt);
/// Gives a column a list to drop down, by its button or by a further click on the cell beside the edit box, as wide as
/// the columns up to `lastCol`. `entries`: one in a line, lines divided by "\n"; null for none. `comboId` other than 0:
/// a combo box of the dialog is used, whose notifications go to it. `prompt` as above. A column that has a list gets
/// new entries only.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetListSjis(DlglibGrid grid, int32_t col, int32_t lastCol,
                                                            const char* entries, int32_t comboId, const char* prompt);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetListUtf8(DlglibGrid grid, int32_t col, int32_t lastCol,
                                                            const char* entries, int32_t comboId, const char* prompt);
/// Takes the column's edit box away.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridClearEdit(DlglibGrid grid, int32_t col);
/// Takes the column's list away; a combo box of the dialog stays.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridClearList(DlglibGrid grid, int32_t col);
/// The byte that ends the value of an entry, at first a blank: picking "12 Steel" stores "12". DlglibGridSetList makes
/// it a blank again.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetSeparator(DlglibGrid grid, int32_t separator);
/// That byte.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSeparator(DlglibGrid grid, int32_t* separator);
/// 0 refuses typed half-width katakana, 1 (at first) takes it.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetEditMode(DlglibGrid grid, int32_t col, int32_t mode);
/// 0 (at first) removes the blanks at the end of what was typed, any other value keeps them.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetSpaceMode(DlglibGrid grid, int32_t col, int32_t mode);
/// What the input method becomes while a cell of the column is edited: 0 (at first) as it is, 1 off, 2 hiragana, 3
/// full-width katakana, 4 half-width katakana, 5 full-width letters.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetImeMode(DlglibGrid grid, int32_t col, int32_t mode);

// Cells. Setting paints nothing: DlglibGridDraw.

/// Sets a text, and makes the cell available and free of error. A text of more than 4095 bytes is DLGLIB_TOO_LONG.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetTextSjis(DlglibGrid grid, int32_t row, int32_t col,
                                                            const char* text);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetTextUtf8(DlglibGrid grid, int32_t row, int32_t col,
                                                            const char* text);
/// The text of a cell.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridTextSjis(DlglibGrid grid, int32_t row, int32_t col, int32_t bufferSize,
                                                         char* buffer, int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridTextUtf8(DlglibGrid grid, int32_t row, int32_t col, int32_t bufferSize,
                                                         char* buffer, int32_t* needed);
/// Colours as 0x00BBGGRR.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetColours(DlglibGrid grid, int32_t row, int32_t col, uint32_t text,
                                                           uint32_t back);
/// Whether a cell is available: 0 means that it takes no edit box, and is grey when the first cell of its row is not
/// available either. `col` -1: all cells of the row. Rows in use only, as in the next three.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetAvailable(DlglibGrid grid, int32_t row, int32_t col,
                                                             int32_t available);
/// `*available` is 1 or 0.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridAvailable(DlglibGrid grid, int32_t row, int32_t col,
                                                          int32_t* available);
/// Other than 0: the cell is wrong, its text is red.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetError(DlglibGrid grid, int32_t row, int32_t col, int32_t error);
/// `*error` is 1 for a cell that is wrong, else 0.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridError(DlglibGrid grid, int32_t row, int32_t col, int32_t* error);

// Rows and selection.

/// The rows that there is room for.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridRowCount(DlglibGrid grid, int32_t* count);
/// The rows in use.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridItemCount(DlglibGrid grid, int32_t* count);
/// Sets the rows in use, from 0 to the rows that there is room for. Forgets what can be undone.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetItemCount(DlglibGrid grid, int32_t count);
/// Other than 0 selects a row.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSelectRow(DlglibGrid grid, int32_t row, int32_t selected);
/// `*selected` is 1 or 0.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridIsSelected(DlglibGrid grid, int32_t row, int32_t* selected);
/// Selects no row, and ends the editing of a cell.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridClearSelection(DlglibGrid grid);
/// The first selected row, -1 for none.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSelectedRow(DlglibGrid grid, int32_t* row);
/// The column of the cell that is edited, -1 for none.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSelectedColumn(DlglibGrid grid, int32_t* col);
/// Adds an empty row at the end; `*row` (may be null) receives its index. DLGLIB_REFUSED, and the user is told, when
/// the list is full.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridAddRow(DlglibGrid grid, int32_t* row);
/// The same before the first selected row; DLGLIB_REFUSED also when none is selected.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridInsertRow(DlglibGrid grid, int32_t* row);
/// Deletes the selected rows. DLGLIB_REFUSED, and the user is told, when none is selected.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridDeleteRows(DlglibGrid grid);
/// Whether a text is a number from 1 to 256, digits only; when not, the message zone tells row and text as a class
/// number.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCheckClassNumber(DlglibGrid grid, int32_t row, const char* text);
/// The same as a revision number.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCheckRevisionNumber(DlglibGrid grid, int32_t row, const char* text);
/// One line in the message zone, 512 bytes at most; null clears it.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridShowMessageSjis(DlglibGrid grid, const char* text);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridShowMessageUtf8(DlglibGrid grid, const char* text);
/// Beeps and does the same.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridShowErrorSjis(DlglibGrid grid, const char* text);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridShowErrorUtf8(DlglibGrid grid, const char* text);

// Editing.

/// Edits a cell, as a click on it does. A cell that is not available is not edited.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridClickCell(DlglibGrid grid, int32_t row, int32_t col);
/// The first selected row of the list view and the column under the mouse pointer, -1 for none. Changes nothing.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridClickedCell(DlglibGrid grid, int32_t* row, int32_t* col);
/// Scrolls to a cell and edits it.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridEditCell(DlglibGrid grid, int32_t row, int32_t col);
/// Puts the edit box over the cell that is edited: where it has moved to.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridPlaceEditor(DlglibGrid grid);
/// Commits the text of the edit box to its cell. While an input method composes in the box, nothing is committed: the
/// cell keeps its former text until the composition has ended, which commits by itself.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCommit(DlglibGrid grid);
/// Drops the list of the edited cell down.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridOpenList(DlglibGrid grid);
/// Closes it.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCloseList(DlglibGrid grid);
/// Shows a picked value in the edit box, and so commits it.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridPickSjis(DlglibGrid grid, const char* text);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridPickUtf8(DlglibGrid grid, const char* text);

// Keys, blocks of cells, undo. A block is a text as spreadsheets write it: tabs between cells, a line for each row. Its
// first cell must be there; what of it lies outside the table is left out.

/// Which keys the grid takes: DLGLIB_KEYS_... added up, at first 0.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetKeys(DlglibGrid grid, int32_t keys);
/// Those keys.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridKeys(DlglibGrid grid, int32_t* keys);
/// Copies a block to the clipboard. `*cells` (may be null): how many cells were copied.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCopyCells(DlglibGrid grid, int32_t row, int32_t col, int32_t rows,
                                                          int32_t cols, int32_t* cells);
/// Pastes from the clipboard, the first cell of its text to `row` and `col`. `*cells` (may be null): how many have
/// changed. DLGLIB_REFUSED, with nothing changed and after a message, when a part of the text is refused.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridPasteCells(DlglibGrid grid, int32_t row, int32_t col, int32_t* cells);
/// Empties the texts of a block. `*cells` (may be null): how many have changed.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridClearCells(DlglibGrid grid, int32_t row, int32_t col, int32_t rows,
                                                           int32_t cols, int32_t* cells);
/// A block as a text.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCellsTextSjis(DlglibGrid grid, int32_t row, int32_t col, int32_t rows,
                                                              int32_t cols, int32_t bufferSize, char* buffer,
                                                              int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCellsTextUtf8(DlglibGrid grid, int32_t row, int32_t col, int32_t rows,
                                                              int32_t cols, int32_t bufferSize, char* buffer,
                                                              int32_t* needed);
/// Pastes a text as DlglibGridPasteCells does.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetCellsTextSjis(DlglibGrid grid, int32_t row, int32_t col,
                                                                 const char* text, int32_t* cells);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetCellsTextUtf8(DlglibGrid grid, int32_t row, int32_t col,
                                                                 const char* text, int32_t* cells);
/// What becomes of a pasted text that goes beyond the rows in use: 0 (at first) refuses it, 1 adds rows.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetPasteRows(DlglibGrid grid, int32_t mode);
/// The program's own check of what is pasted; null for none.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetPasteCheckSjis(DlglibGrid grid, DlglibGridPasteCheck check,
                                                                  void* context);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetPasteCheckUtf8(DlglibGrid grid, DlglibGridPasteCheck check,
                                                                  void* context);
/// Undoes the last step. DLGLIB_REFUSED when there is none.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridUndo(DlglibGrid grid);
/// Does it again.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridRedo(DlglibGrid grid);
/// DLGLIB_OK when there is a step to undo, else DLGLIB_REFUSED.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCanUndo(DlglibGrid grid);
/// The same of doing again.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridCanRedo(DlglibGrid grid);
/// How many steps are kept, at first 100.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetUndoLimit(DlglibGrid grid, int32_t steps);
/// Whom to tell of each step; null for nobody.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibGridSetChanged(DlglibGrid grid, DlglibGridChanged changed, void* context);

// ---- the message zone: one line of text at the bottom of a dialog.

/// A message zone. Handles are never used again.
typedef struct DlglibMessageZoneTag* DlglibMessageZone;

/// Makes a zone for a dialog of the calling thread, and puts its handle into `*zone`.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibMessageZoneCreate(DlglibMessageZone* zone, void* dialog);
/// Ends it. The dialog stays as it is.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibMessageZoneDestroy(DlglibMessageZone zone);
/// Makes the dialog higher by one and a half times the height of its font. DLGLIB_NOT_ATTACHED, here and below, when
/// the dialog has gone.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibMessageZoneMakeRoom(DlglibMessageZone zone);
/// A window of the dialog whose text shows the messages instead; null for none.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibMessageZoneSetWindow(DlglibMessageZone zone, void* window);
/// Shows one line, 512 bytes at most; null clears it. A zone without a window is not painted again by itself: after the
/// dialog has been painted, call this again.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibMessageZoneShowSjis(DlglibMessageZone zone, const char* text);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibMessageZoneShowUtf8(DlglibMessageZone zone, const char* text);
/// Beeps and does the same.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibMessageZoneErrorSjis(DlglibMessageZone zone, const char* text);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibMessageZoneErrorUtf8(DlglibMessageZone zone, const char* text);
/// Beeps and shows a numbered message of the suite's: above 0 of its messages, below 0 of its errors.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibMessageZoneErrorNumber(DlglibMessageZone zone, int32_t number);

// ---- recent lists: the files or names of a kind that the user chose last, which the registry keeps for each user.

/// A recent list. Handles are never used again.
typedef struct DlglibRecentListTag* DlglibRecentList;

/// Which list of a kind.
enum { DLGLIB_RECENT_INPUT_FILES = 0, DLGLIB_RECENT_OUTPUT_FILES = 1, DLGLIB_RECENT_NAMES = 2 };

/// Reads a list of the kind `keyword`, 255 bytes at most, and puts its handle into `*list`. DLGLIB_FAILED when the
/// registry cannot be opened.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListCreateSjis(DlglibRecentList* list, int32_t which,
                                                                 const char* keyword);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListCreateUtf8(DlglibRecentList* list, int32_t which,
                                                                 const char* keyword);
/// Lets it go; what was not written is lost.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListDestroy(DlglibRecentList list);
/// How many entries there are; at most 20 are kept.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListCount(DlglibRecentList list, int32_t* count);
/// An entry by its index, the most recent one first.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListEntrySjis(DlglibRecentList list, int32_t index,
                                                                int32_t bufferSize, char* buffer, int32_t* needed);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListEntryUtf8(DlglibRecentList list, int32_t index,
                                                                int32_t bufferSize, char* buffer, int32_t* needed);
/// Puts an entry at the top, in place of one that equals it but for the case of ASCII letters; 1 to 256 bytes.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListAddSjis(DlglibRecentList list, const char* entry);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListAddUtf8(DlglibRecentList list, const char* entry);
/// Takes such an entry away. DLGLIB_REFUSED when there is none.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListRemoveSjis(DlglibRecentList list, const char* entry);
/// The same in UTF-8.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListRemoveUtf8(DlglibRecentList list, const char* entry);
/// How many entries the user wants to be shown and kept, 1 to 20.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListShown(DlglibRecentList list, int32_t* shown);
/// Sets it.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListSetShown(DlglibRecentList list, int32_t shown);
/// Fills a combo box of the calling thread anew with the entries to be shown.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListFill(DlglibRecentList list, void* combo);
/// Writes the list: all of it, or none. DLGLIB_NOT_WRITTEN when the registry refuses it, and when a value of the list
/// could not be read, which would be lost.
DLGLIB_C_API DlglibResult DLGLIB_CALL DlglibRecentListWrite(DlglibRecentList list);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-deprecated-headers, modernize-use-using)
