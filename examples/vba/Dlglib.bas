Attribute VB_Name = "Dlglib"
' The C interface of the library for 64-bit VBA. Made from its headers; build.sh --exports writes it anew.
'
' VBA hands its texts over in the machine's own encoding: the functions for Shift_JIS take them on a Japanese machine.
' Null is vbNullString, or 0 for a LongPtr; a buffer is a text that is long enough. Callbacks are given by AddressOf.
Option Explicit

Public Const DLGLIB_OK As Long = 0
Public Const DLGLIB_CANCELLED As Long = 1
Public Const DLGLIB_REFUSED As Long = 2
Public Const DLGLIB_NOT_MINE As Long = 3
Public Const DLGLIB_BAD_HANDLE As Long = -1
Public Const DLGLIB_NULL_ARGUMENT As Long = -2
Public Const DLGLIB_BAD_ARGUMENT As Long = -3
Public Const DLGLIB_TOO_SMALL As Long = -4
Public Const DLGLIB_TOO_LONG As Long = -5
Public Const DLGLIB_BAD_ENCODING As Long = -6
Public Const DLGLIB_NO_SUCH_CHARACTER As Long = -7
Public Const DLGLIB_BUSY As Long = -8
Public Const DLGLIB_OUT_OF_MEMORY As Long = -9
Public Const DLGLIB_NOT_AVAILABLE As Long = -10
Public Const DLGLIB_FAILED As Long = -11
Public Const DLGLIB_WRONG_THREAD As Long = -12
Public Const DLGLIB_NO_BROWSER As Long = -13
Public Const DLGLIB_NOT_WRITTEN As Long = -14
Public Const DLGLIB_NOT_ATTACHED As Long = -15
Public Const DLGLIB_TEXT_LIMIT As Long = 4095
Public Const DLGLIB_LONG_TEXT_LIMIT As Long = 1048576
Public Const DLGLIB_OPEN_FILE As Long = 0
Public Const DLGLIB_SAVE_FILE As Long = 1
Public Const DLGLIB_NAME_FILE As Long = 2
Public Const DLGLIB_FORM_REAL As Long = 0
Public Const DLGLIB_FORM_INTERNAL As Long = 1
Public Const DLGLIB_FORM_SHORT As Long = 2
Public Const DLGLIB_CAPITALS As Long = 1
Public Const DLGLIB_SMALL_LETTERS As Long = 2
Public Const DLGLIB_DIGITS As Long = 4
Public Const DLGLIB_OTHER_SINGLE_BYTES As Long = 8
Public Const DLGLIB_HALF_WIDTH_KATAKANA As Long = 16
Public Const DLGLIB_DOUBLE_BYTES As Long = 32
Public Const DLGLIB_UNSIGNED_INTEGER As Long = 0
Public Const DLGLIB_REAL As Long = 1
Public Const DLGLIB_SIGNED_INTEGER As Long = 2
Public Const DLGLIB_KEYS_MOVE As Long = 1
Public Const DLGLIB_KEYS_CLIPBOARD As Long = 2
Public Const DLGLIB_KEYS_UNDO As Long = 4
Public Const DLGLIB_KEYS_ROWS As Long = 8
Public Const DLGLIB_KEYS_ALL As Long = 15
Public Const DLGLIB_COLUMN_TEXT As Long = 0
Public Const DLGLIB_COLUMN_COLOUR As Long = 1
Public Const DLGLIB_RECENT_INPUT_FILES As Long = 0
Public Const DLGLIB_RECENT_OUTPUT_FILES As Long = 1
Public Const DLGLIB_RECENT_NAMES As Long = 2

Public Declare PtrSafe Function DlglibVersion Lib "crvndlglib.dll" () As Long
Public Declare PtrSafe Function DlglibVersionText Lib "crvndlglib.dll" (ByVal bufferSize As Long, _
    ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibResultTextSjis Lib "crvndlglib.dll" (ByVal result As Long, _
    ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibDefineKindSjis Lib "crvndlglib.dll" (ByVal keyword As String, _
    ByVal folder As String, ByVal patterns As String) As Long
Public Declare PtrSafe Function DlglibDefineFullKindSjis Lib "crvndlglib.dll" (ByVal keyword As String, _
    ByVal folder As String, ByVal patterns As String, ByVal letterCase As Long, ByVal description As String) As Long
Public Declare PtrSafe Function DlglibRemoveKindSjis Lib "crvndlglib.dll" (ByVal keyword As String) As Long
Public Declare PtrSafe Function DlglibKindCount Lib "crvndlglib.dll" (ByRef count As Long) As Long
Public Declare PtrSafe Function DlglibKindKeywordSjis Lib "crvndlglib.dll" (ByVal index As Long, _
    ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibLoadSessionSjis Lib "crvndlglib.dll" (ByVal path As String) As Long
Public Declare PtrSafe Function DlglibUnreadLineCount Lib "crvndlglib.dll" (ByRef count As Long) As Long
Public Declare PtrSafe Function DlglibUnreadLineSjis Lib "crvndlglib.dll" (ByVal index As Long, _
    ByRef line As Long, ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibUnreadLineFileSjis Lib "crvndlglib.dll" (ByVal index As Long, _
    ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibFileRequestCreate Lib "crvndlglib.dll" (ByRef request As LongPtr) As Long
Public Declare PtrSafe Function DlglibFileRequestDestroy Lib "crvndlglib.dll" (ByVal request As LongPtr) As Long
Public Declare PtrSafe Function DlglibFileRequestSetKindSjis Lib "crvndlglib.dll" (ByVal request As LongPtr, _
    ByVal keyword As String) As Long
Public Declare PtrSafe Function DlglibFileRequestSetCaptionSjis Lib "crvndlglib.dll" (_
    ByVal request As LongPtr, ByVal caption As String) As Long
Public Declare PtrSafe Function DlglibFileRequestSetInitialNameSjis Lib "crvndlglib.dll" (_
    ByVal request As LongPtr, ByVal name As String) As Long
Public Declare PtrSafe Function DlglibFileRequestSetListFileSjis Lib "crvndlglib.dll" (_
    ByVal request As LongPtr, ByVal path As String) As Long
Public Declare PtrSafe Function DlglibFileRequestSetMode Lib "crvndlglib.dll" (ByVal request As LongPtr, _
    ByVal mode As Long) As Long
Public Declare PtrSafe Function DlglibFileRequestSetSeveralFiles Lib "crvndlglib.dll" (_
    ByVal request As LongPtr, ByVal several As Long) As Long
Public Declare PtrSafe Function DlglibFileRequestSetFixedFolder Lib "crvndlglib.dll" (_
    ByVal request As LongPtr, ByVal fixed As Long) As Long
Public Declare PtrSafe Function DlglibFileRequestSetOwner Lib "crvndlglib.dll" (ByVal request As LongPtr, _
    ByVal owner As LongPtr) As Long
Public Declare PtrSafe Function DlglibFileRequestRun Lib "crvndlglib.dll" (ByVal request As LongPtr) As Long
Public Declare PtrSafe Function DlglibFileRequestCount Lib "crvndlglib.dll" (ByVal request As LongPtr, _
    ByRef count As Long) As Long
Public Declare PtrSafe Function DlglibFileRequestNameSjis Lib "crvndlglib.dll" (ByVal request As LongPtr, _
    ByVal index As Long, ByVal form As Long, ByVal bufferSize As Long, ByVal buffer As String, _
    ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibSjisToEuc Lib "crvndlglib.dll" (ByVal sjis As String, _
    ByVal bufferSize As Long, ByVal euc As LongPtr, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibEucToSjis Lib "crvndlglib.dll" (ByVal euc As LongPtr, _
    ByVal bufferSize As Long, ByVal sjis As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibUtf8ToSjis Lib "crvndlglib.dll" (ByVal utf8 As LongPtr, _
    ByVal bufferSize As Long, ByVal sjis As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibSjisToUtf8 Lib "crvndlglib.dll" (ByVal sjis As String, _
    ByVal bufferSize As Long, ByVal utf8 As LongPtr, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibUtf8ToEuc Lib "crvndlglib.dll" (ByVal utf8 As LongPtr, _
    ByVal bufferSize As Long, ByVal euc As LongPtr, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibStoredToScreenSjis Lib "crvndlglib.dll" (ByVal stored As LongPtr, _
    ByVal bufferSize As Long, ByVal screen As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibScreenToStoredSjis Lib "crvndlglib.dll" (ByVal screen As String, _
    ByVal bufferSize As Long, ByVal stored As LongPtr, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibRealPathSjis Lib "crvndlglib.dll" (ByVal keyword As String, _
    ByVal path As String, ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibInternalPathSjis Lib "crvndlglib.dll" (ByVal keyword As String, _
    ByVal path As String, ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibShortNameSjis Lib "crvndlglib.dll" (ByVal keyword As String, _
    ByVal path As String, ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibPathOfShortNameSjis Lib "crvndlglib.dll" (ByVal keyword As String, _
    ByVal shortName As String, ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibKindLetterCase Lib "crvndlglib.dll" (ByVal keyword As String, _
    ByRef letterCase As Long) As Long
Public Declare PtrSafe Function DlglibCheckModelNameSjis Lib "crvndlglib.dll" (ByVal name As String) As Long
Public Declare PtrSafe Function DlglibCheckFileNameSjis Lib "crvndlglib.dll" (ByVal name As String, _
    ByVal wildcards As Long) As Long
Public Declare PtrSafe Function DlglibCheckExistsSjis Lib "crvndlglib.dll" (ByVal keyword As String, _
    ByVal path As String) As Long
Public Declare PtrSafe Function DlglibAskFileNameSjis Lib "crvndlglib.dll" (ByVal owner As LongPtr, _
    ByVal name As String) As Long
Public Declare PtrSafe Function DlglibAskInputFileSjis Lib "crvndlglib.dll" (ByVal owner As LongPtr, _
    ByVal keyword As String, ByVal name As String) As Long
Public Declare PtrSafe Function DlglibAskInputPathSjis Lib "crvndlglib.dll" (ByVal owner As LongPtr, _
    ByVal keyword As String, ByVal name As String, ByVal bufferSize As Long, ByVal buffer As String, _
    ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibAskOutputFileSjis Lib "crvndlglib.dll" (ByVal owner As LongPtr, _
    ByVal keyword As String, ByVal name As String) As Long
Public Declare PtrSafe Function DlglibCheckChar Lib "crvndlglib.dll" (ByVal mask As Long, ByVal code As Long) As Long
Public Declare PtrSafe Function DlglibCheckTextSjis Lib "crvndlglib.dll" (ByVal mask As Long, _
    ByVal text As String) As Long
Public Declare PtrSafe Function DlglibCheckNumber Lib "crvndlglib.dll" (ByVal text As String, _
    ByVal mode As Long, ByVal minimum As Double, ByVal maximum As Double) As Long
Public Declare PtrSafe Function DlglibCheckScale Lib "crvndlglib.dll" (ByVal text As String, _
    ByRef scale As Double) As Long
Public Declare PtrSafe Function DlglibScaleText Lib "crvndlglib.dll" (ByVal scale As Double, _
    ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibDecimalText Lib "crvndlglib.dll" (ByVal value As Double, _
    ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibGridCreate Lib "crvndlglib.dll" (ByRef grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridDestroy Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridSetParentGrid Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal parentGrid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridAttach Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal parent As LongPtr, ByVal listId As Long, ByVal columns As Long, ByRef textLimits As Any, _
    ByVal items As Long, ByVal maxItems As Long, ByVal numberColumn As Long) As Long
Public Declare PtrSafe Function DlglibGridDetach Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridMessage Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal message As Long, ByVal lParam As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridDraw Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridSetExtendedStyle Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal style As Long) As Long
Public Declare PtrSafe Function DlglibGridSetMessageWindow Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal window As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridSetColumnSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal col As Long, ByVal title As String, ByVal share As Double, ByVal format As Long, _
    ByVal drawFlags As Long, ByVal kind As Long) As Long
Public Declare PtrSafe Function DlglibGridSetEditSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal col As Long, ByVal letterCase As Long, ByVal maxBytes As Long, ByVal prompt As String) As Long
Public Declare PtrSafe Function DlglibGridSetListSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal col As Long, ByVal lastCol As Long, ByVal entries As String, ByVal comboId As Long, _
    ByVal prompt As String) As Long
Public Declare PtrSafe Function DlglibGridClearEdit Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal col As Long) As Long
Public Declare PtrSafe Function DlglibGridClearList Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal col As Long) As Long
Public Declare PtrSafe Function DlglibGridSetSeparator Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal separator As Long) As Long
Public Declare PtrSafe Function DlglibGridSeparator Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByRef separator As Long) As Long
Public Declare PtrSafe Function DlglibGridSetEditMode Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal col As Long, ByVal mode As Long) As Long
Public Declare PtrSafe Function DlglibGridSetSpaceMode Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal col As Long, ByVal mode As Long) As Long
Public Declare PtrSafe Function DlglibGridSetImeMode Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal col As Long, ByVal mode As Long) As Long
Public Declare PtrSafe Function DlglibGridSetTextSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByVal text As String) As Long
Public Declare PtrSafe Function DlglibGridTextSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByVal bufferSize As Long, ByVal buffer As String, _
    ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibGridSetColours Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByVal text As Long, ByVal back As Long) As Long
Public Declare PtrSafe Function DlglibGridSetAvailable Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByVal available As Long) As Long
Public Declare PtrSafe Function DlglibGridAvailable Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByRef available As Long) As Long
Public Declare PtrSafe Function DlglibGridSetError Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByVal error As Long) As Long
Public Declare PtrSafe Function DlglibGridError Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByRef error As Long) As Long
Public Declare PtrSafe Function DlglibGridRowCount Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByRef count As Long) As Long
Public Declare PtrSafe Function DlglibGridItemCount Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByRef count As Long) As Long
Public Declare PtrSafe Function DlglibGridSetItemCount Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal count As Long) As Long
Public Declare PtrSafe Function DlglibGridSelectRow Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal selected As Long) As Long
Public Declare PtrSafe Function DlglibGridIsSelected Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByRef selected As Long) As Long
Public Declare PtrSafe Function DlglibGridClearSelection Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridSelectedRow Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByRef row As Long) As Long
Public Declare PtrSafe Function DlglibGridSelectedColumn Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByRef col As Long) As Long
Public Declare PtrSafe Function DlglibGridAddRow Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByRef row As Long) As Long
Public Declare PtrSafe Function DlglibGridInsertRow Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByRef row As Long) As Long
Public Declare PtrSafe Function DlglibGridDeleteRows Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridCheckClassNumber Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal text As String) As Long
Public Declare PtrSafe Function DlglibGridCheckRevisionNumber Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal text As String) As Long
Public Declare PtrSafe Function DlglibGridShowMessageSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal text As String) As Long
Public Declare PtrSafe Function DlglibGridShowErrorSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal text As String) As Long
Public Declare PtrSafe Function DlglibGridClickCell Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long) As Long
Public Declare PtrSafe Function DlglibGridClickedCell Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByRef row As Long, ByRef col As Long) As Long
Public Declare PtrSafe Function DlglibGridEditCell Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long) As Long
Public Declare PtrSafe Function DlglibGridPlaceEditor Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridCommit Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridOpenList Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridCloseList Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridPickSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal text As String) As Long
Public Declare PtrSafe Function DlglibGridSetKeys Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal keys As Long) As Long
Public Declare PtrSafe Function DlglibGridKeys Lib "crvndlglib.dll" (ByVal grid As LongPtr, ByRef keys As Long) As Long
Public Declare PtrSafe Function DlglibGridCopyCells Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByVal rows As Long, ByVal cols As Long, ByRef cells As Long) As Long
Public Declare PtrSafe Function DlglibGridPasteCells Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByRef cells As Long) As Long
Public Declare PtrSafe Function DlglibGridClearCells Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByVal rows As Long, ByVal cols As Long, ByRef cells As Long) As Long
Public Declare PtrSafe Function DlglibGridCellsTextSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByVal rows As Long, ByVal cols As Long, ByVal bufferSize As Long, _
    ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibGridSetCellsTextSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal row As Long, ByVal col As Long, ByVal text As String, ByRef cells As Long) As Long
Public Declare PtrSafe Function DlglibGridSetPasteRows Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal mode As Long) As Long
Public Declare PtrSafe Function DlglibGridSetPasteCheckSjis Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal check As LongPtr, ByVal context As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridUndo Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridRedo Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridCanUndo Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridCanRedo Lib "crvndlglib.dll" (ByVal grid As LongPtr) As Long
Public Declare PtrSafe Function DlglibGridSetUndoLimit Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal steps As Long) As Long
Public Declare PtrSafe Function DlglibGridSetChanged Lib "crvndlglib.dll" (ByVal grid As LongPtr, _
    ByVal changed As LongPtr, ByVal context As LongPtr) As Long
Public Declare PtrSafe Function DlglibMessageZoneCreate Lib "crvndlglib.dll" (ByRef zone As LongPtr, _
    ByVal dialog As LongPtr) As Long
Public Declare PtrSafe Function DlglibMessageZoneDestroy Lib "crvndlglib.dll" (ByVal zone As LongPtr) As Long
Public Declare PtrSafe Function DlglibMessageZoneMakeRoom Lib "crvndlglib.dll" (ByVal zone As LongPtr) As Long
Public Declare PtrSafe Function DlglibMessageZoneSetWindow Lib "crvndlglib.dll" (ByVal zone As LongPtr, _
    ByVal window As LongPtr) As Long
Public Declare PtrSafe Function DlglibMessageZoneShowSjis Lib "crvndlglib.dll" (ByVal zone As LongPtr, _
    ByVal text As String) As Long
Public Declare PtrSafe Function DlglibMessageZoneErrorSjis Lib "crvndlglib.dll" (ByVal zone As LongPtr, _
    ByVal text As String) As Long
Public Declare PtrSafe Function DlglibMessageZoneErrorNumber Lib "crvndlglib.dll" (ByVal zone As LongPtr, _
    ByVal number As Long) As Long
Public Declare PtrSafe Function DlglibRecentListCreateSjis Lib "crvndlglib.dll" (ByRef list As LongPtr, _
    ByVal which As Long, ByVal keyword As String) As Long
Public Declare PtrSafe Function DlglibRecentListDestroy Lib "crvndlglib.dll" (ByVal list As LongPtr) As Long
Public Declare PtrSafe Function DlglibRecentListCount Lib "crvndlglib.dll" (ByVal list As LongPtr, _
    ByRef count As Long) As Long
Public Declare PtrSafe Function DlglibRecentListEntrySjis Lib "crvndlglib.dll" (ByVal list As LongPtr, _
    ByVal index As Long, ByVal bufferSize As Long, ByVal buffer As String, ByRef needed As Long) As Long
Public Declare PtrSafe Function DlglibRecentListAddSjis Lib "crvndlglib.dll" (ByVal list As LongPtr, _
    ByVal entry As String) As Long
Public Declare PtrSafe Function DlglibRecentListRemoveSjis Lib "crvndlglib.dll" (ByVal list As LongPtr, _
    ByVal entry As String) As Long
Public Declare PtrSafe Function DlglibRecentListShown Lib "crvndlglib.dll" (ByVal list As LongPtr, _
    ByRef shown As Long) As Long
Public Declare PtrSafe Function DlglibRecentListSetShown Lib "crvndlglib.dll" (ByVal list As LongPtr, _
    ByVal shown As Long) As Long
Public Declare PtrSafe Function DlglibRecentListFill Lib "crvndlglib.dll" (ByVal list As LongPtr, _
    ByVal combo As LongPtr) As Long
Public Declare PtrSafe Function DlglibRecentListWrite Lib "crvndlglib.dll" (ByVal list As LongPtr) As Long
