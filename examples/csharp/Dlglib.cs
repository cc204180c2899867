// The C interface of the library for C#. Made from its headers; ./build.sh --exports writes it anew.
//
// Texts are given as strings; stored texts (EUC-JP) and texts that are asked for are bytes with a zero byte at their
// end. A delegate that the library keeps must be kept by the program too.
using System;
using System.Runtime.InteropServices;

public static class Dlglib
{
    private const string Library = "crvndlglib.dll";

    public const int DLGLIB_OK = 0;
    public const int DLGLIB_CANCELLED = 1;
    public const int DLGLIB_REFUSED = 2;
    public const int DLGLIB_NOT_MINE = 3;
    public const int DLGLIB_BAD_HANDLE = -1;
    public const int DLGLIB_NULL_ARGUMENT = -2;
    public const int DLGLIB_BAD_ARGUMENT = -3;
    public const int DLGLIB_TOO_SMALL = -4;
    public const int DLGLIB_TOO_LONG = -5;
    public const int DLGLIB_BAD_ENCODING = -6;
    public const int DLGLIB_NO_SUCH_CHARACTER = -7;
    public const int DLGLIB_BUSY = -8;
    public const int DLGLIB_OUT_OF_MEMORY = -9;
    public const int DLGLIB_NOT_AVAILABLE = -10;
    public const int DLGLIB_FAILED = -11;
    public const int DLGLIB_WRONG_THREAD = -12;
    public const int DLGLIB_NO_BROWSER = -13;
    public const int DLGLIB_NOT_WRITTEN = -14;
    public const int DLGLIB_NOT_ATTACHED = -15;
    public const int DLGLIB_TEXT_LIMIT = 4095;
    public const int DLGLIB_LONG_TEXT_LIMIT = 1048576;
    public const int DLGLIB_OPEN_FILE = 0;
    public const int DLGLIB_SAVE_FILE = 1;
    public const int DLGLIB_NAME_FILE = 2;
    public const int DLGLIB_FORM_REAL = 0;
    public const int DLGLIB_FORM_INTERNAL = 1;
    public const int DLGLIB_FORM_SHORT = 2;
    public const int DLGLIB_CAPITALS = 1;
    public const int DLGLIB_SMALL_LETTERS = 2;
    public const int DLGLIB_DIGITS = 4;
    public const int DLGLIB_OTHER_SINGLE_BYTES = 8;
    public const int DLGLIB_HALF_WIDTH_KATAKANA = 16;
    public const int DLGLIB_DOUBLE_BYTES = 32;
    public const int DLGLIB_UNSIGNED_INTEGER = 0;
    public const int DLGLIB_REAL = 1;
    public const int DLGLIB_SIGNED_INTEGER = 2;
    public const int DLGLIB_KEYS_MOVE = 1;
    public const int DLGLIB_KEYS_CLIPBOARD = 2;
    public const int DLGLIB_KEYS_UNDO = 4;
    public const int DLGLIB_KEYS_ROWS = 8;
    public const int DLGLIB_KEYS_ALL = 15;
    public const int DLGLIB_COLUMN_TEXT = 0;
    public const int DLGLIB_COLUMN_COLOUR = 1;
    public const int DLGLIB_RECENT_INPUT_FILES = 0;
    public const int DLGLIB_RECENT_OUTPUT_FILES = 1;
    public const int DLGLIB_RECENT_NAMES = 2;

    [UnmanagedFunctionPointer(CallingConvention.StdCall)]
    public delegate void DlglibGridChanged(IntPtr context, int row, int rows);
    [UnmanagedFunctionPointer(CallingConvention.StdCall)]
    public delegate int DlglibGridPasteCheck(IntPtr context, int row, int col, IntPtr text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibVersion();

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibVersionText(int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibResultTextUtf8(int result, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibDefineKindUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string folder, [MarshalAs(UnmanagedType.LPUTF8Str)] string patterns);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibDefineFullKindUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string folder, [MarshalAs(UnmanagedType.LPUTF8Str)] string patterns, int letterCase, [MarshalAs(UnmanagedType.LPUTF8Str)] string description);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRemoveKindUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string keyword);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibKindCount(out int count);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibKindKeywordUtf8(int index, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibLoadSessionUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string path);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibUnreadLineCount(out int count);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibUnreadLineUtf8(int index, out int line, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibUnreadLineFileUtf8(int index, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestCreate(out IntPtr request);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestDestroy(IntPtr request);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestSetKindUtf8(IntPtr request, [MarshalAs(UnmanagedType.LPUTF8Str)] string keyword);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestSetCaptionUtf8(IntPtr request, [MarshalAs(UnmanagedType.LPUTF8Str)] string caption);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestSetInitialNameUtf8(IntPtr request, [MarshalAs(UnmanagedType.LPUTF8Str)] string name);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestSetListFileUtf8(IntPtr request, [MarshalAs(UnmanagedType.LPUTF8Str)] string path);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestSetMode(IntPtr request, int mode);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestSetSeveralFiles(IntPtr request, int several);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestSetFixedFolder(IntPtr request, int @fixed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestSetOwner(IntPtr request, IntPtr owner);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestRun(IntPtr request);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestCount(IntPtr request, out int count);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibFileRequestNameUtf8(IntPtr request, int index, int form, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibSjisToEuc(byte[] sjis, int bufferSize, byte[] euc, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibUtf8ToSjis(byte[] utf8, int bufferSize, byte[] sjis, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibSjisToUtf8(byte[] sjis, int bufferSize, byte[] utf8, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibUtf8ToEuc([MarshalAs(UnmanagedType.LPUTF8Str)] string utf8, int bufferSize, byte[] euc, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibEucToUtf8(byte[] euc, int bufferSize, byte[] utf8, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibStoredToScreenUtf8(byte[] stored, int bufferSize, byte[] screen, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibScreenToStoredUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string screen, int bufferSize, byte[] stored, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRealPathUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string path, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibInternalPathUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string path, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibShortNameUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string path, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibPathOfShortNameUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string shortName, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibKindLetterCase([MarshalAs(UnmanagedType.LPStr)] string keyword, out int letterCase);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibCheckModelNameUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string name);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibCheckFileNameUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string name, int wildcards);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibCheckExistsUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string path);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibAskFileNameUtf8(IntPtr owner, [MarshalAs(UnmanagedType.LPUTF8Str)] string name);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibAskInputFileUtf8(IntPtr owner, [MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string name);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibAskInputPathUtf8(IntPtr owner, [MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string name, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibAskOutputFileUtf8(IntPtr owner, [MarshalAs(UnmanagedType.LPUTF8Str)] string keyword, [MarshalAs(UnmanagedType.LPUTF8Str)] string name);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibCheckChar(uint mask, uint code);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibCheckTextUtf8(uint mask, [MarshalAs(UnmanagedType.LPUTF8Str)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibCheckNumber([MarshalAs(UnmanagedType.LPStr)] string text, int mode, double minimum, double maximum);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibCheckScale([MarshalAs(UnmanagedType.LPStr)] string text, out double scale);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibScaleText(double scale, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibDecimalText(double value, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridCreate(out IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridDestroy(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetParentGrid(IntPtr grid, IntPtr parentGrid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridAttach(IntPtr grid, IntPtr parent, int listId, int columns, int[] textLimits, int items, int maxItems, int numberColumn);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridDetach(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridMessage(IntPtr grid, uint message, IntPtr lParam);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridDraw(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetExtendedStyle(IntPtr grid, uint style);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetMessageWindow(IntPtr grid, IntPtr window);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetColumnUtf8(IntPtr grid, int col, [MarshalAs(UnmanagedType.LPUTF8Str)] string title, double share, int format, int drawFlags, int kind);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetEditUtf8(IntPtr grid, int col, int letterCase, uint maxBytes, [MarshalAs(UnmanagedType.LPUTF8Str)] string prompt);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetListUtf8(IntPtr grid, int col, int lastCol, [MarshalAs(UnmanagedType.LPUTF8Str)] string entries, int comboId, [MarshalAs(UnmanagedType.LPUTF8Str)] string prompt);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridClearEdit(IntPtr grid, int col);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridClearList(IntPtr grid, int col);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetSeparator(IntPtr grid, int separator);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSeparator(IntPtr grid, out int separator);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetEditMode(IntPtr grid, int col, int mode);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetSpaceMode(IntPtr grid, int col, int mode);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetImeMode(IntPtr grid, int col, int mode);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetTextUtf8(IntPtr grid, int row, int col, [MarshalAs(UnmanagedType.LPUTF8Str)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridTextUtf8(IntPtr grid, int row, int col, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetColours(IntPtr grid, int row, int col, uint text, uint back);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetAvailable(IntPtr grid, int row, int col, int available);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridAvailable(IntPtr grid, int row, int col, out int available);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetError(IntPtr grid, int row, int col, int error);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridError(IntPtr grid, int row, int col, out int error);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridRowCount(IntPtr grid, out int count);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridItemCount(IntPtr grid, out int count);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetItemCount(IntPtr grid, int count);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSelectRow(IntPtr grid, int row, int selected);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridIsSelected(IntPtr grid, int row, out int selected);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridClearSelection(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSelectedRow(IntPtr grid, out int row);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSelectedColumn(IntPtr grid, out int col);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridAddRow(IntPtr grid, out int row);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridInsertRow(IntPtr grid, out int row);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridDeleteRows(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridCheckClassNumber(IntPtr grid, int row, [MarshalAs(UnmanagedType.LPStr)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridCheckRevisionNumber(IntPtr grid, int row, [MarshalAs(UnmanagedType.LPStr)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridShowMessageUtf8(IntPtr grid, [MarshalAs(UnmanagedType.LPUTF8Str)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridShowErrorUtf8(IntPtr grid, [MarshalAs(UnmanagedType.LPUTF8Str)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridClickCell(IntPtr grid, int row, int col);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridClickedCell(IntPtr grid, out int row, out int col);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridEditCell(IntPtr grid, int row, int col);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridPlaceEditor(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridCommit(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridOpenList(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridCloseList(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridPickUtf8(IntPtr grid, [MarshalAs(UnmanagedType.LPUTF8Str)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetKeys(IntPtr grid, int keys);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridKeys(IntPtr grid, out int keys);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridCopyCells(IntPtr grid, int row, int col, int rows, int cols, out int cells);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridPasteCells(IntPtr grid, int row, int col, out int cells);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridClearCells(IntPtr grid, int row, int col, int rows, int cols, out int cells);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridCellsTextUtf8(IntPtr grid, int row, int col, int rows, int cols, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetCellsTextUtf8(IntPtr grid, int row, int col, [MarshalAs(UnmanagedType.LPUTF8Str)] string text, out int cells);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetPasteRows(IntPtr grid, int mode);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetPasteCheckUtf8(IntPtr grid, DlglibGridPasteCheck check, IntPtr context);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridUndo(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridRedo(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridCanUndo(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridCanRedo(IntPtr grid);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetUndoLimit(IntPtr grid, int steps);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibGridSetChanged(IntPtr grid, DlglibGridChanged changed, IntPtr context);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibMessageZoneCreate(out IntPtr zone, IntPtr dialog);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibMessageZoneDestroy(IntPtr zone);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibMessageZoneMakeRoom(IntPtr zone);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibMessageZoneSetWindow(IntPtr zone, IntPtr window);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibMessageZoneShowUtf8(IntPtr zone, [MarshalAs(UnmanagedType.LPUTF8Str)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibMessageZoneErrorUtf8(IntPtr zone, [MarshalAs(UnmanagedType.LPUTF8Str)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibMessageZoneErrorNumber(IntPtr zone, int number);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListCreateUtf8(out IntPtr list, int which, [MarshalAs(UnmanagedType.LPUTF8Str)] string keyword);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListDestroy(IntPtr list);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListCount(IntPtr list, out int count);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListEntryUtf8(IntPtr list, int index, int bufferSize, byte[] buffer, out int needed);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListAddUtf8(IntPtr list, [MarshalAs(UnmanagedType.LPUTF8Str)] string entry);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListRemoveUtf8(IntPtr list, [MarshalAs(UnmanagedType.LPUTF8Str)] string entry);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListShown(IntPtr list, out int shown);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListSetShown(IntPtr list, int shown);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListFill(IntPtr list, IntPtr combo);

    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
    public static extern int DlglibRecentListWrite(IntPtr list);
}
