// Types for those who look the functions of the C interface up by their names. Made from the headers; ./build.sh
// --exports writes it anew.
//
//   DlglibVersionFunction version = (DlglibVersionFunction)GetProcAddress(library, "DlglibVersion");
//
// DLGLIB_FUNCTIONS(USE) expands to USE(DlglibVersion) and so on for all functions.
#pragma once

#include "dlglib/dlglib_c.h"

// NOLINTBEGIN(modernize-redundant-void-arg, modernize-use-using)
// clang-format off

/// DlglibVersion.
typedef int32_t(DLGLIB_CALL* DlglibVersionFunction)(void);
/// DlglibVersionText.
typedef DlglibResult(DLGLIB_CALL* DlglibVersionTextFunction)(int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibResultTextSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibResultTextSjisFunction)(DlglibResult result, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibResultTextUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibResultTextUtf8Function)(DlglibResult result, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibDefineKindSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibDefineKindSjisFunction)(const char* keyword, const char* folder, const char* patterns);
/// DlglibDefineKindUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibDefineKindUtf8Function)(const char* keyword, const char* folder, const char* patterns);
/// DlglibDefineFullKindSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibDefineFullKindSjisFunction)(const char* keyword, const char* folder, const char* patterns, int32_t letterCase, const char* description);
/// DlglibDefineFullKindUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibDefineFullKindUtf8Function)(const char* keyword, const char* folder, const char* patterns, int32_t letterCase, const char* description);
/// DlglibRemoveKindSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibRemoveKindSjisFunction)(const char* keyword);
/// DlglibRemoveKindUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibRemoveKindUtf8Function)(const char* keyword);
/// DlglibKindCount.
typedef DlglibResult(DLGLIB_CALL* DlglibKindCountFunction)(int32_t* count);
/// DlglibKindKeywordSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibKindKeywordSjisFunction)(int32_t index, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibKindKeywordUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibKindKeywordUtf8Function)(int32_t index, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibLoadSessionSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibLoadSessionSjisFunction)(const char* path);
/// DlglibLoadSessionUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibLoadSessionUtf8Function)(const char* path);
/// DlglibUnreadLineCount.
typedef DlglibResult(DLGLIB_CALL* DlglibUnreadLineCountFunction)(int32_t* count);
/// DlglibUnreadLineSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibUnreadLineSjisFunction)(int32_t index, int32_t* line, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibUnreadLineUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibUnreadLineUtf8Function)(int32_t index, int32_t* line, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibUnreadLineFileSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibUnreadLineFileSjisFunction)(int32_t index, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibUnreadLineFileUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibUnreadLineFileUtf8Function)(int32_t index, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibFileRequestCreate.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestCreateFunction)(DlglibFileRequest* request);
/// DlglibFileRequestDestroy.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestDestroyFunction)(DlglibFileRequest request);
/// DlglibFileRequestSetKindSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetKindSjisFunction)(DlglibFileRequest request, const char* keyword);
/// DlglibFileRequestSetKindUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetKindUtf8Function)(DlglibFileRequest request, const char* keyword);
/// DlglibFileRequestSetCaptionSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetCaptionSjisFunction)(DlglibFileRequest request, const char* caption);
/// DlglibFileRequestSetCaptionUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetCaptionUtf8Function)(DlglibFileRequest request, const char* caption);
/// DlglibFileRequestSetInitialNameSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetInitialNameSjisFunction)(DlglibFileRequest request, const char* name);
/// DlglibFileRequestSetInitialNameUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetInitialNameUtf8Function)(DlglibFileRequest request, const char* name);
/// DlglibFileRequestSetListFileSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetListFileSjisFunction)(DlglibFileRequest request, const char* path);
/// DlglibFileRequestSetListFileUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetListFileUtf8Function)(DlglibFileRequest request, const char* path);
/// DlglibFileRequestSetMode.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetModeFunction)(DlglibFileRequest request, int32_t mode);
/// DlglibFileRequestSetSeveralFiles.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetSeveralFilesFunction)(DlglibFileRequest request, int32_t several);
/// DlglibFileRequestSetFixedFolder.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetFixedFolderFunction)(DlglibFileRequest request, int32_t fixed);
/// DlglibFileRequestSetOwner.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestSetOwnerFunction)(DlglibFileRequest request, void* owner);
/// DlglibFileRequestRun.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestRunFunction)(DlglibFileRequest request);
/// DlglibFileRequestCount.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestCountFunction)(DlglibFileRequest request, int32_t* count);
/// DlglibFileRequestNameSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestNameSjisFunction)(DlglibFileRequest request, int32_t index, int32_t form, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibFileRequestNameUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibFileRequestNameUtf8Function)(DlglibFileRequest request, int32_t index, int32_t form, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibSjisToEuc.
typedef DlglibResult(DLGLIB_CALL* DlglibSjisToEucFunction)(const char* sjis, int32_t bufferSize, char* euc, int32_t* needed);
/// DlglibEucToSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibEucToSjisFunction)(const char* euc, int32_t bufferSize, char* sjis, int32_t* needed);
/// DlglibUtf8ToSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibUtf8ToSjisFunction)(const char* utf8, int32_t bufferSize, char* sjis, int32_t* needed);
/// DlglibSjisToUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibSjisToUtf8Function)(const char* sjis, int32_t bufferSize, char* utf8, int32_t* needed);
/// DlglibUtf8ToEuc.
typedef DlglibResult(DLGLIB_CALL* DlglibUtf8ToEucFunction)(const char* utf8, int32_t bufferSize, char* euc, int32_t* needed);
/// DlglibEucToUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibEucToUtf8Function)(const char* euc, int32_t bufferSize, char* utf8, int32_t* needed);
/// DlglibStoredToScreenSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibStoredToScreenSjisFunction)(const char* stored, int32_t bufferSize, char* screen, int32_t* needed);
/// DlglibStoredToScreenUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibStoredToScreenUtf8Function)(const char* stored, int32_t bufferSize, char* screen, int32_t* needed);
/// DlglibScreenToStoredSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibScreenToStoredSjisFunction)(const char* screen, int32_t bufferSize, char* stored, int32_t* needed);
/// DlglibScreenToStoredUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibScreenToStoredUtf8Function)(const char* screen, int32_t bufferSize, char* stored, int32_t* needed);
/// DlglibRealPathSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibRealPathSjisFunction)(const char* keyword, const char* path, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibRealPathUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibRealPathUtf8Function)(const char* keyword, const char* path, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibInternalPathSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibInternalPathSjisFunction)(const char* keyword, const char* path, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibInternalPathUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibInternalPathUtf8Function)(const char* keyword, const char* path, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibShortNameSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibShortNameSjisFunction)(const char* keyword, const char* path, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibShortNameUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibShortNameUtf8Function)(const char* keyword, const char* path, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibPathOfShortNameSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibPathOfShortNameSjisFunction)(const char* keyword, const char* shortName, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibPathOfShortNameUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibPathOfShortNameUtf8Function)(const char* keyword, const char* shortName, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibKindLetterCase.
typedef DlglibResult(DLGLIB_CALL* DlglibKindLetterCaseFunction)(const char* keyword, int32_t* letterCase);
/// DlglibCheckModelNameSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckModelNameSjisFunction)(const char* name);
/// DlglibCheckModelNameUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckModelNameUtf8Function)(const char* name);
/// DlglibCheckFileNameSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckFileNameSjisFunction)(const char* name, int32_t wildcards);
/// DlglibCheckFileNameUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckFileNameUtf8Function)(const char* name, int32_t wildcards);
/// DlglibCheckExistsSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckExistsSjisFunction)(const char* keyword, const char* path);
/// DlglibCheckExistsUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckExistsUtf8Function)(const char* keyword, const char* path);
/// DlglibAskFileNameSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibAskFileNameSjisFunction)(void* owner, const char* name);
/// DlglibAskFileNameUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibAskFileNameUtf8Function)(void* owner, const char* name);
/// DlglibAskInputFileSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibAskInputFileSjisFunction)(void* owner, const char* keyword, const char* name);
/// DlglibAskInputFileUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibAskInputFileUtf8Function)(void* owner, const char* keyword, const char* name);
/// DlglibAskInputPathSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibAskInputPathSjisFunction)(void* owner, const char* keyword, const char* name, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibAskInputPathUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibAskInputPathUtf8Function)(void* owner, const char* keyword, const char* name, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibAskOutputFileSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibAskOutputFileSjisFunction)(void* owner, const char* keyword, const char* name);
/// DlglibAskOutputFileUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibAskOutputFileUtf8Function)(void* owner, const char* keyword, const char* name);
/// DlglibCheckChar.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckCharFunction)(uint32_t mask, uint32_t code);
/// DlglibCheckTextSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckTextSjisFunction)(uint32_t mask, const char* text);
/// DlglibCheckTextUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckTextUtf8Function)(uint32_t mask, const char* text);
/// DlglibCheckNumber.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckNumberFunction)(const char* text, int32_t mode, double minimum, double maximum);
/// DlglibCheckScale.
typedef DlglibResult(DLGLIB_CALL* DlglibCheckScaleFunction)(const char* text, double* scale);
/// DlglibScaleText.
typedef DlglibResult(DLGLIB_CALL* DlglibScaleTextFunction)(double scale, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibDecimalText.
typedef DlglibResult(DLGLIB_CALL* DlglibDecimalTextFunction)(double value, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibGridCreate.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCreateFunction)(DlglibGrid* grid);
/// DlglibGridDestroy.
typedef DlglibResult(DLGLIB_CALL* DlglibGridDestroyFunction)(DlglibGrid grid);
/// DlglibGridSetParentGrid.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetParentGridFunction)(DlglibGrid grid, DlglibGrid parentGrid);
/// DlglibGridAttach.
typedef DlglibResult(DLGLIB_CALL* DlglibGridAttachFunction)(DlglibGrid grid, void* parent, int32_t listId, int32_t columns, const int32_t* textLimits, int32_t items, int32_t maxItems, int32_t numberColumn);
/// DlglibGridDetach.
typedef DlglibResult(DLGLIB_CALL* DlglibGridDetachFunction)(DlglibGrid grid);
/// DlglibGridMessage.
typedef DlglibResult(DLGLIB_CALL* DlglibGridMessageFunction)(DlglibGrid grid, uint32_t message, void* lParam);
/// DlglibGridDraw.
typedef DlglibResult(DLGLIB_CALL* DlglibGridDrawFunction)(DlglibGrid grid);
/// DlglibGridSetExtendedStyle.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetExtendedStyleFunction)(DlglibGrid grid, uint32_t style);
/// DlglibGridSetMessageWindow.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetMessageWindowFunction)(DlglibGrid grid, void* window);
/// DlglibGridSetColumnSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetColumnSjisFunction)(DlglibGrid grid, int32_t col, const char* title, double share, int32_t format, int32_t drawFlags, int32_t kind);
/// DlglibGridSetColumnUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetColumnUtf8Function)(DlglibGrid grid, int32_t col, const char* title, double share, int32_t format, int32_t drawFlags, int32_t kind);
/// DlglibGridSetEditSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetEditSjisFunction)(DlglibGrid grid, int32_t col, int32_t letterCase, uint32_t maxBytes, const char* prompt);
/// DlglibGridSetEditUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetEditUtf8Function)(DlglibGrid grid, int32_t col, int32_t letterCase, uint32_t maxBytes, const char* prompt);
/// DlglibGridSetListSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetListSjisFunction)(DlglibGrid grid, int32_t col, int32_t lastCol, const char* entries, int32_t comboId, const char* prompt);
/// DlglibGridSetListUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetListUtf8Function)(DlglibGrid grid, int32_t col, int32_t lastCol, const char* entries, int32_t comboId, const char* prompt);
/// DlglibGridClearEdit.
typedef DlglibResult(DLGLIB_CALL* DlglibGridClearEditFunction)(DlglibGrid grid, int32_t col);
/// DlglibGridClearList.
typedef DlglibResult(DLGLIB_CALL* DlglibGridClearListFunction)(DlglibGrid grid, int32_t col);
/// DlglibGridSetSeparator.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetSeparatorFunction)(DlglibGrid grid, int32_t separator);
/// DlglibGridSeparator.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSeparatorFunction)(DlglibGrid grid, int32_t* separator);
/// DlglibGridSetEditMode.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetEditModeFunction)(DlglibGrid grid, int32_t col, int32_t mode);
/// DlglibGridSetSpaceMode.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetSpaceModeFunction)(DlglibGrid grid, int32_t col, int32_t mode);
/// DlglibGridSetImeMode.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetImeModeFunction)(DlglibGrid grid, int32_t col, int32_t mode);
/// DlglibGridSetTextSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetTextSjisFunction)(DlglibGrid grid, int32_t row, int32_t col, const char* text);
/// DlglibGridSetTextUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetTextUtf8Function)(DlglibGrid grid, int32_t row, int32_t col, const char* text);
/// DlglibGridTextSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridTextSjisFunction)(DlglibGrid grid, int32_t row, int32_t col, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibGridTextUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridTextUtf8Function)(DlglibGrid grid, int32_t row, int32_t col, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibGridSetColours.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetColoursFunction)(DlglibGrid grid, int32_t row, int32_t col, uint32_t text, uint32_t back);
/// DlglibGridSetAvailable.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetAvailableFunction)(DlglibGrid grid, int32_t row, int32_t col, int32_t available);
/// DlglibGridAvailable.
typedef DlglibResult(DLGLIB_CALL* DlglibGridAvailableFunction)(DlglibGrid grid, int32_t row, int32_t col, int32_t* available);
/// DlglibGridSetError.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetErrorFunction)(DlglibGrid grid, int32_t row, int32_t col, int32_t error);
/// DlglibGridError.
typedef DlglibResult(DLGLIB_CALL* DlglibGridErrorFunction)(DlglibGrid grid, int32_t row, int32_t col, int32_t* error);
/// DlglibGridRowCount.
typedef DlglibResult(DLGLIB_CALL* DlglibGridRowCountFunction)(DlglibGrid grid, int32_t* count);
/// DlglibGridItemCount.
typedef DlglibResult(DLGLIB_CALL* DlglibGridItemCountFunction)(DlglibGrid grid, int32_t* count);
/// DlglibGridSetItemCount.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetItemCountFunction)(DlglibGrid grid, int32_t count);
/// DlglibGridSelectRow.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSelectRowFunction)(DlglibGrid grid, int32_t row, int32_t selected);
/// DlglibGridIsSelected.
typedef DlglibResult(DLGLIB_CALL* DlglibGridIsSelectedFunction)(DlglibGrid grid, int32_t row, int32_t* selected);
/// DlglibGridClearSelection.
typedef DlglibResult(DLGLIB_CALL* DlglibGridClearSelectionFunction)(DlglibGrid grid);
/// DlglibGridSelectedRow.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSelectedRowFunction)(DlglibGrid grid, int32_t* row);
/// DlglibGridSelectedColumn.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSelectedColumnFunction)(DlglibGrid grid, int32_t* col);
/// DlglibGridAddRow.
typedef DlglibResult(DLGLIB_CALL* DlglibGridAddRowFunction)(DlglibGrid grid, int32_t* row);
/// DlglibGridInsertRow.
typedef DlglibResult(DLGLIB_CALL* DlglibGridInsertRowFunction)(DlglibGrid grid, int32_t* row);
/// DlglibGridDeleteRows.
typedef DlglibResult(DLGLIB_CALL* DlglibGridDeleteRowsFunction)(DlglibGrid grid);
/// DlglibGridCheckClassNumber.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCheckClassNumberFunction)(DlglibGrid grid, int32_t row, const char* text);
/// DlglibGridCheckRevisionNumber.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCheckRevisionNumberFunction)(DlglibGrid grid, int32_t row, const char* text);
/// DlglibGridShowMessageSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridShowMessageSjisFunction)(DlglibGrid grid, const char* text);
/// DlglibGridShowMessageUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridShowMessageUtf8Function)(DlglibGrid grid, const char* text);
/// DlglibGridShowErrorSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridShowErrorSjisFunction)(DlglibGrid grid, const char* text);
/// DlglibGridShowErrorUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridShowErrorUtf8Function)(DlglibGrid grid, const char* text);
/// DlglibGridClickCell.
typedef DlglibResult(DLGLIB_CALL* DlglibGridClickCellFunction)(DlglibGrid grid, int32_t row, int32_t col);
/// DlglibGridClickedCell.
typedef DlglibResult(DLGLIB_CALL* DlglibGridClickedCellFunction)(DlglibGrid grid, int32_t* row, int32_t* col);
/// DlglibGridEditCell.
typedef DlglibResult(DLGLIB_CALL* DlglibGridEditCellFunction)(DlglibGrid grid, int32_t row, int32_t col);
/// DlglibGridPlaceEditor.
typedef DlglibResult(DLGLIB_CALL* DlglibGridPlaceEditorFunction)(DlglibGrid grid);
/// DlglibGridCommit.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCommitFunction)(DlglibGrid grid);
/// DlglibGridOpenList.
typedef DlglibResult(DLGLIB_CALL* DlglibGridOpenListFunction)(DlglibGrid grid);
/// DlglibGridCloseList.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCloseListFunction)(DlglibGrid grid);
/// DlglibGridPickSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridPickSjisFunction)(DlglibGrid grid, const char* text);
/// DlglibGridPickUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridPickUtf8Function)(DlglibGrid grid, const char* text);
/// DlglibGridSetKeys.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetKeysFunction)(DlglibGrid grid, int32_t keys);
/// DlglibGridKeys.
typedef DlglibResult(DLGLIB_CALL* DlglibGridKeysFunction)(DlglibGrid grid, int32_t* keys);
/// DlglibGridCopyCells.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCopyCellsFunction)(DlglibGrid grid, int32_t row, int32_t col, int32_t rows, int32_t cols, int32_t* cells);
/// DlglibGridPasteCells.
typedef DlglibResult(DLGLIB_CALL* DlglibGridPasteCellsFunction)(DlglibGrid grid, int32_t row, int32_t col, int32_t* cells);
/// DlglibGridClearCells.
typedef DlglibResult(DLGLIB_CALL* DlglibGridClearCellsFunction)(DlglibGrid grid, int32_t row, int32_t col, int32_t rows, int32_t cols, int32_t* cells);
/// DlglibGridCellsTextSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCellsTextSjisFunction)(DlglibGrid grid, int32_t row, int32_t col, int32_t rows, int32_t cols, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibGridCellsTextUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCellsTextUtf8Function)(DlglibGrid grid, int32_t row, int32_t col, int32_t rows, int32_t cols, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibGridSetCellsTextSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetCellsTextSjisFunction)(DlglibGrid grid, int32_t row, int32_t col, const char* text, int32_t* cells);
/// DlglibGridSetCellsTextUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetCellsTextUtf8Function)(DlglibGrid grid, int32_t row, int32_t col, const char* text, int32_t* cells);
/// DlglibGridSetPasteRows.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetPasteRowsFunction)(DlglibGrid grid, int32_t mode);
/// DlglibGridSetPasteCheckSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetPasteCheckSjisFunction)(DlglibGrid grid, DlglibGridPasteCheck check, void* context);
/// DlglibGridSetPasteCheckUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetPasteCheckUtf8Function)(DlglibGrid grid, DlglibGridPasteCheck check, void* context);
/// DlglibGridUndo.
typedef DlglibResult(DLGLIB_CALL* DlglibGridUndoFunction)(DlglibGrid grid);
/// DlglibGridRedo.
typedef DlglibResult(DLGLIB_CALL* DlglibGridRedoFunction)(DlglibGrid grid);
/// DlglibGridCanUndo.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCanUndoFunction)(DlglibGrid grid);
/// DlglibGridCanRedo.
typedef DlglibResult(DLGLIB_CALL* DlglibGridCanRedoFunction)(DlglibGrid grid);
/// DlglibGridSetUndoLimit.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetUndoLimitFunction)(DlglibGrid grid, int32_t steps);
/// DlglibGridSetChanged.
typedef DlglibResult(DLGLIB_CALL* DlglibGridSetChangedFunction)(DlglibGrid grid, DlglibGridChanged changed, void* context);
/// DlglibMessageZoneCreate.
typedef DlglibResult(DLGLIB_CALL* DlglibMessageZoneCreateFunction)(DlglibMessageZone* zone, void* dialog);
/// DlglibMessageZoneDestroy.
typedef DlglibResult(DLGLIB_CALL* DlglibMessageZoneDestroyFunction)(DlglibMessageZone zone);
/// DlglibMessageZoneMakeRoom.
typedef DlglibResult(DLGLIB_CALL* DlglibMessageZoneMakeRoomFunction)(DlglibMessageZone zone);
/// DlglibMessageZoneSetWindow.
typedef DlglibResult(DLGLIB_CALL* DlglibMessageZoneSetWindowFunction)(DlglibMessageZone zone, void* window);
/// DlglibMessageZoneShowSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibMessageZoneShowSjisFunction)(DlglibMessageZone zone, const char* text);
/// DlglibMessageZoneShowUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibMessageZoneShowUtf8Function)(DlglibMessageZone zone, const char* text);
/// DlglibMessageZoneErrorSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibMessageZoneErrorSjisFunction)(DlglibMessageZone zone, const char* text);
/// DlglibMessageZoneErrorUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibMessageZoneErrorUtf8Function)(DlglibMessageZone zone, const char* text);
/// DlglibMessageZoneErrorNumber.
typedef DlglibResult(DLGLIB_CALL* DlglibMessageZoneErrorNumberFunction)(DlglibMessageZone zone, int32_t number);
/// DlglibRecentListCreateSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListCreateSjisFunction)(DlglibRecentList* list, int32_t which, const char* keyword);
/// DlglibRecentListCreateUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListCreateUtf8Function)(DlglibRecentList* list, int32_t which, const char* keyword);
/// DlglibRecentListDestroy.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListDestroyFunction)(DlglibRecentList list);
/// DlglibRecentListCount.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListCountFunction)(DlglibRecentList list, int32_t* count);
/// DlglibRecentListEntrySjis.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListEntrySjisFunction)(DlglibRecentList list, int32_t index, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibRecentListEntryUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListEntryUtf8Function)(DlglibRecentList list, int32_t index, int32_t bufferSize, char* buffer, int32_t* needed);
/// DlglibRecentListAddSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListAddSjisFunction)(DlglibRecentList list, const char* entry);
/// DlglibRecentListAddUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListAddUtf8Function)(DlglibRecentList list, const char* entry);
/// DlglibRecentListRemoveSjis.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListRemoveSjisFunction)(DlglibRecentList list, const char* entry);
/// DlglibRecentListRemoveUtf8.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListRemoveUtf8Function)(DlglibRecentList list, const char* entry);
/// DlglibRecentListShown.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListShownFunction)(DlglibRecentList list, int32_t* shown);
/// DlglibRecentListSetShown.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListSetShownFunction)(DlglibRecentList list, int32_t shown);
/// DlglibRecentListFill.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListFillFunction)(DlglibRecentList list, void* combo);
/// DlglibRecentListWrite.
typedef DlglibResult(DLGLIB_CALL* DlglibRecentListWriteFunction)(DlglibRecentList list);

/// All functions.
#define DLGLIB_FUNCTIONS(USE) \
  USE(DlglibVersion) \
  USE(DlglibVersionText) \
  USE(DlglibResultTextSjis) \
  USE(DlglibResultTextUtf8) \
  USE(DlglibDefineKindSjis) \
  USE(DlglibDefineKindUtf8) \
  USE(DlglibDefineFullKindSjis) \
  USE(DlglibDefineFullKindUtf8) \
  USE(DlglibRemoveKindSjis) \
  USE(DlglibRemoveKindUtf8) \
  USE(DlglibKindCount) \
  USE(DlglibKindKeywordSjis) \
  USE(DlglibKindKeywordUtf8) \
  USE(DlglibLoadSessionSjis) \
  USE(DlglibLoadSessionUtf8) \
  USE(DlglibUnreadLineCount) \
  USE(DlglibUnreadLineSjis) \
  USE(DlglibUnreadLineUtf8) \
  USE(DlglibUnreadLineFileSjis) \
  USE(DlglibUnreadLineFileUtf8) \
  USE(DlglibFileRequestCreate) \
  USE(DlglibFileRequestDestroy) \
  USE(DlglibFileRequestSetKindSjis) \
  USE(DlglibFileRequestSetKindUtf8) \
  USE(DlglibFileRequestSetCaptionSjis) \
  USE(DlglibFileRequestSetCaptionUtf8) \
  USE(DlglibFileRequestSetInitialNameSjis) \
  USE(DlglibFileRequestSetInitialNameUtf8) \
  USE(DlglibFileRequestSetListFileSjis) \
  USE(DlglibFileRequestSetListFileUtf8) \
  USE(DlglibFileRequestSetMode) \
  USE(DlglibFileRequestSetSeveralFiles) \
  USE(DlglibFileRequestSetFixedFolder) \
  USE(DlglibFileRequestSetOwner) \
  USE(DlglibFileRequestRun) \
  USE(DlglibFileRequestCount) \
  USE(DlglibFileRequestNameSjis) \
  USE(DlglibFileRequestNameUtf8) \
  USE(DlglibSjisToEuc) \
  USE(DlglibEucToSjis) \
  USE(DlglibUtf8ToSjis) \
  USE(DlglibSjisToUtf8) \
  USE(DlglibUtf8ToEuc) \
  USE(DlglibEucToUtf8) \
  USE(DlglibStoredToScreenSjis) \
  USE(DlglibStoredToScreenUtf8) \
  USE(DlglibScreenToStoredSjis) \
  USE(DlglibScreenToStoredUtf8) \
  USE(DlglibRealPathSjis) \
  USE(DlglibRealPathUtf8) \
  USE(DlglibInternalPathSjis) \
  USE(DlglibInternalPathUtf8) \
  USE(DlglibShortNameSjis) \
  USE(DlglibShortNameUtf8) \
  USE(DlglibPathOfShortNameSjis) \
  USE(DlglibPathOfShortNameUtf8) \
  USE(DlglibKindLetterCase) \
  USE(DlglibCheckModelNameSjis) \
  USE(DlglibCheckModelNameUtf8) \
  USE(DlglibCheckFileNameSjis) \
  USE(DlglibCheckFileNameUtf8) \
  USE(DlglibCheckExistsSjis) \
  USE(DlglibCheckExistsUtf8) \
  USE(DlglibAskFileNameSjis) \
  USE(DlglibAskFileNameUtf8) \
  USE(DlglibAskInputFileSjis) \
  USE(DlglibAskInputFileUtf8) \
  USE(DlglibAskInputPathSjis) \
  USE(DlglibAskInputPathUtf8) \
  USE(DlglibAskOutputFileSjis) \
  USE(DlglibAskOutputFileUtf8) \
  USE(DlglibCheckChar) \
  USE(DlglibCheckTextSjis) \
  USE(DlglibCheckTextUtf8) \
  USE(DlglibCheckNumber) \
  USE(DlglibCheckScale) \
  USE(DlglibScaleText) \
  USE(DlglibDecimalText) \
  USE(DlglibGridCreate) \
  USE(DlglibGridDestroy) \
  USE(DlglibGridSetParentGrid) \
  USE(DlglibGridAttach) \
  USE(DlglibGridDetach) \
  USE(DlglibGridMessage) \
  USE(DlglibGridDraw) \
  USE(DlglibGridSetExtendedStyle) \
  USE(DlglibGridSetMessageWindow) \
  USE(DlglibGridSetColumnSjis) \
  USE(DlglibGridSetColumnUtf8) \
  USE(DlglibGridSetEditSjis) \
  USE(DlglibGridSetEditUtf8) \
  USE(DlglibGridSetListSjis) \
  USE(DlglibGridSetListUtf8) \
  USE(DlglibGridClearEdit) \
  USE(DlglibGridClearList) \
  USE(DlglibGridSetSeparator) \
  USE(DlglibGridSeparator) \
  USE(DlglibGridSetEditMode) \
  USE(DlglibGridSetSpaceMode) \
  USE(DlglibGridSetImeMode) \
  USE(DlglibGridSetTextSjis) \
  USE(DlglibGridSetTextUtf8) \
  USE(DlglibGridTextSjis) \
  USE(DlglibGridTextUtf8) \
  USE(DlglibGridSetColours) \
  USE(DlglibGridSetAvailable) \
  USE(DlglibGridAvailable) \
  USE(DlglibGridSetError) \
  USE(DlglibGridError) \
  USE(DlglibGridRowCount) \
  USE(DlglibGridItemCount) \
  USE(DlglibGridSetItemCount) \
  USE(DlglibGridSelectRow) \
  USE(DlglibGridIsSelected) \
  USE(DlglibGridClearSelection) \
  USE(DlglibGridSelectedRow) \
  USE(DlglibGridSelectedColumn) \
  USE(DlglibGridAddRow) \
  USE(DlglibGridInsertRow) \
  USE(DlglibGridDeleteRows) \
  USE(DlglibGridCheckClassNumber) \
  USE(DlglibGridCheckRevisionNumber) \
  USE(DlglibGridShowMessageSjis) \
  USE(DlglibGridShowMessageUtf8) \
  USE(DlglibGridShowErrorSjis) \
  USE(DlglibGridShowErrorUtf8) \
  USE(DlglibGridClickCell) \
  USE(DlglibGridClickedCell) \
  USE(DlglibGridEditCell) \
  USE(DlglibGridPlaceEditor) \
  USE(DlglibGridCommit) \
  USE(DlglibGridOpenList) \
  USE(DlglibGridCloseList) \
  USE(DlglibGridPickSjis) \
  USE(DlglibGridPickUtf8) \
  USE(DlglibGridSetKeys) \
  USE(DlglibGridKeys) \
  USE(DlglibGridCopyCells) \
  USE(DlglibGridPasteCells) \
  USE(DlglibGridClearCells) \
  USE(DlglibGridCellsTextSjis) \
  USE(DlglibGridCellsTextUtf8) \
  USE(DlglibGridSetCellsTextSjis) \
  USE(DlglibGridSetCellsTextUtf8) \
  USE(DlglibGridSetPasteRows) \
  USE(DlglibGridSetPasteCheckSjis) \
  USE(DlglibGridSetPasteCheckUtf8) \
  USE(DlglibGridUndo) \
  USE(DlglibGridRedo) \
  USE(DlglibGridCanUndo) \
  USE(DlglibGridCanRedo) \
  USE(DlglibGridSetUndoLimit) \
  USE(DlglibGridSetChanged) \
  USE(DlglibMessageZoneCreate) \
  USE(DlglibMessageZoneDestroy) \
  USE(DlglibMessageZoneMakeRoom) \
  USE(DlglibMessageZoneSetWindow) \
  USE(DlglibMessageZoneShowSjis) \
  USE(DlglibMessageZoneShowUtf8) \
  USE(DlglibMessageZoneErrorSjis) \
  USE(DlglibMessageZoneErrorUtf8) \
  USE(DlglibMessageZoneErrorNumber) \
  USE(DlglibRecentListCreateSjis) \
  USE(DlglibRecentListCreateUtf8) \
  USE(DlglibRecentListDestroy) \
  USE(DlglibRecentListCount) \
  USE(DlglibRecentListEntrySjis) \
  USE(DlglibRecentListEntryUtf8) \
  USE(DlglibRecentListAddSjis) \
  USE(DlglibRecentListAddUtf8) \
  USE(DlglibRecentListRemoveSjis) \
  USE(DlglibRecentListRemoveUtf8) \
  USE(DlglibRecentListShown) \
  USE(DlglibRecentListSetShown) \
  USE(DlglibRecentListFill) \
  USE(DlglibRecentListWrite)

// clang-format on
// NOLINTEND(modernize-redundant-void-arg, modernize-use-using)
