"""The dialog library for Python: the file request, the conversions, the checks and the grid of crvndlglib.dll, by ctypes.

    import dlglib

    library = dlglib.load(r"C:\\corvane\\bin")       # the folder of crvndlglib.dll and crvnsuite.dll
    library.define_kind("#MODEL#", r"C:\\plant", "*.MDL")
    with library.file_request() as request:
        request.set_kind("#MODEL#")
        if request.run():
            print(request.names())

64-bit Python for Windows. Texts are str; stored texts (EUC-JP) are bytes. What the library refuses is answered by False, errors
are raised as DlglibError. dlglib/dlglib_c.h of the SDK says what each function does; the table below says the same to ctypes, and
covers all of its functions but those for Shift_JIS that have a twin for UTF-8.
"""

import ctypes
import os
from ctypes import POINTER, byref, c_char_p, c_double, c_int32, c_uint32, c_void_p

OK = 0
CANCELLED = 1
REFUSED = 2
NOT_MINE = 3
TOO_LONG = -5
WRONG_THREAD = -12
NO_BROWSER = -13
NOT_WRITTEN = -14
NOT_ATTACHED = -15

OPEN_FILE = 0
SAVE_FILE = 1
NAME_FILE = 2

FORM_REAL = 0
FORM_INTERNAL = 1
FORM_SHORT = 2

CAPITALS = 1
SMALL_LETTERS = 2
DIGITS = 4
OTHER_SINGLE_BYTES = 8
HALF_WIDTH_KATAKANA = 16
DOUBLE_BYTES = 32

UNSIGNED_INTEGER = 0
REAL = 1
SIGNED_INTEGER = 2

KEYS_MOVE = 1
KEYS_CLIPBOARD = 2
KEYS_UNDO = 4
KEYS_ROWS = 8
KEYS_ALL = 15

COLUMN_TEXT = 0
COLUMN_COLOUR = 1

RECENT_INPUT_FILES = 0
RECENT_OUTPUT_FILES = 1
RECENT_NAMES = 2

# What the grid calls. There is one calling convention in 64-bit programs.
GRID_CHANGED = ctypes.CFUNCTYPE(None, c_void_p, c_int32, c_int32)
GRID_PASTE_CHECK = ctypes.CFUNCTYPE(c_int32, c_void_p, c_int32, c_int32, c_char_p)

# Where a text goes: size of the buffer, buffer, needed size.
_ROOM = (c_int32, c_char_p, POINTER(c_int32))

# The arguments of every function; each answers an int32_t.
FUNCTIONS = {
    "DlglibVersion": [],
    "DlglibVersionText": [*_ROOM],
    "DlglibResultTextUtf8": [c_int32, *_ROOM],
    "DlglibDefineKindUtf8": [c_char_p, c_char_p, c_char_p],
    "DlglibDefineFullKindUtf8": [c_char_p, c_char_p, c_char_p, c_int32, c_char_p],
    "DlglibRemoveKindUtf8": [c_char_p],
    "DlglibKindCount": [POINTER(c_int32)],
    "DlglibKindKeywordUtf8": [c_int32, *_ROOM],
    "DlglibLoadSessionUtf8": [c_char_p],
    "DlglibUnreadLineCount": [POINTER(c_int32)],
    "DlglibUnreadLineUtf8": [c_int32, POINTER(c_int32), *_ROOM],
    "DlglibUnreadLineFileUtf8": [c_int32, *_ROOM],
    "DlglibFileRequestCreate": [POINTER(c_void_p)],
    "DlglibFileRequestDestroy": [c_void_p],
    "DlglibFileRequestSetKindUtf8": [c_void_p, c_char_p],
    "DlglibFileRequestSetCaptionUtf8": [c_void_p, c_char_p],
    "DlglibFileRequestSetInitialNameUtf8": [c_void_p, c_char_p],
    "DlglibFileRequestSetListFileUtf8": [c_void_p, c_char_p],
    "DlglibFileRequestSetMode": [c_void_p, c_int32],
    "DlglibFileRequestSetSeveralFiles": [c_void_p, c_int32],
    "DlglibFileRequestSetFixedFolder": [c_void_p, c_int32],
    "DlglibFileRequestSetOwner": [c_void_p, c_void_p],
    "DlglibFileRequestRun": [c_void_p],
    "DlglibFileRequestCount": [c_void_p, POINTER(c_int32)],
    "DlglibFileRequestNameUtf8": [c_void_p, c_int32, c_int32, *_ROOM],
    "DlglibSjisToEuc": [c_char_p, *_ROOM],
    "DlglibUtf8ToSjis": [c_char_p, *_ROOM],
    "DlglibSjisToUtf8": [c_char_p, *_ROOM],
    "DlglibUtf8ToEuc": [c_char_p, *_ROOM],
    "DlglibEucToUtf8": [c_char_p, *_ROOM],
    "DlglibStoredToScreenUtf8": [c_char_p, *_ROOM],
    "DlglibScreenToStoredUtf8": [c_char_p, *_ROOM],
    "DlglibRealPathUtf8": [c_char_p, c_char_p, *_ROOM],
    "DlglibInternalPathUtf8": [c_char_p, c_char_p, *_ROOM],
    "DlglibShortNameUtf8": [c_char_p, c_char_p, *_ROOM],
    "DlglibPathOfShortNameUtf8": [c_char_p, c_char_p, *_ROOM],
    "DlglibKindLetterCase": [c_char_p, POINTER(c_int32)],
    "DlglibCheckModelNameUtf8": [c_char_p],
    "DlglibCheckFileNameUtf8": [c_char_p, c_int32],
    "DlglibCheckExistsUtf8": [c_char_p, c_char_p],
    "DlglibAskFileNameUtf8": [c_void_p, c_char_p],
    "DlglibAskInputFileUtf8": [c_void_p, c_char_p, c_char_p],
    "DlglibAskInputPathUtf8": [c_void_p, c_char_p, c_char_p, *_ROOM],
    "DlglibAskOutputFileUtf8": [c_void_p, c_char_p, c_char_p],
    "DlglibCheckChar": [c_uint32, c_uint32],
    "DlglibCheckTextUtf8": [c_uint32, c_char_p],
    "DlglibCheckNumber": [c_char_p, c_int32, c_double, c_double],
    "DlglibCheckScale": [c_char_p, POINTER(c_double)],
    "DlglibScaleText": [c_double, *_ROOM],
    "DlglibDecimalText": [c_double, *_ROOM],
    "DlglibGridCreate": [POINTER(c_void_p)],
    "DlglibGridDestroy": [c_void_p],
    "DlglibGridSetParentGrid": [c_void_p, c_void_p],
    "DlglibGridAttach": [c_void_p, c_void_p, c_int32, c_int32, POINTER(c_int32), c_int32, c_int32, c_int32],
    "DlglibGridDetach": [c_void_p],
    "DlglibGridMessage": [c_void_p, c_uint32, c_void_p],
    "DlglibGridDraw": [c_void_p],
    "DlglibGridSetExtendedStyle": [c_void_p, c_uint32],
    "DlglibGridSetMessageWindow": [c_void_p, c_void_p],
    "DlglibGridSetColumnUtf8": [c_void_p, c_int32, c_char_p, c_double, c_int32, c_int32, c_int32],
    "DlglibGridSetEditUtf8": [c_void_p, c_int32, c_int32, c_uint32, c_char_p],
    "DlglibGridSetListUtf8": [c_void_p, c_int32, c_int32, c_char_p, c_int32, c_char_p],
    "DlglibGridClearEdit": [c_void_p, c_int32],
    "DlglibGridClearList": [c_void_p, c_int32],
    "DlglibGridSetSeparator": [c_void_p, c_int32],
    "DlglibGridSeparator": [c_void_p, POINTER(c_int32)],
    "DlglibGridSetEditMode": [c_void_p, c_int32, c_int32],
    "DlglibGridSetSpaceMode": [c_void_p, c_int32, c_int32],
    "DlglibGridSetImeMode": [c_void_p, c_int32, c_int32],
    "DlglibGridSetTextUtf8": [c_void_p, c_int32, c_int32, c_char_p],
    "DlglibGridTextUtf8": [c_void_p, c_int32, c_int32, *_ROOM],
    "DlglibGridSetColours": [c_void_p, c_int32, c_int32, c_uint32, c_uint32],
    "DlglibGridSetAvailable": [c_void_p, c_int32, c_int32, c_int32],
    "DlglibGridAvailable": [c_void_p, c_int32, c_int32, POINTER(c_int32)],
    "DlglibGridSetError": [c_void_p, c_int32, c_int32, c_int32],
    "DlglibGridError": [c_void_p, c_int32, c_int32, POINTER(c_int32)],
    "DlglibGridRowCount": [c_void_p, POINTER(c_int32)],
    "DlglibGridItemCount": [c_void_p, POINTER(c_int32)],
    "DlglibGridSetItemCount": [c_void_p, c_int32],
    "DlglibGridSelectRow": [c_void_p, c_int32, c_int32],
    "DlglibGridIsSelected": [c_void_p, c_int32, POINTER(c_int32)],
    "DlglibGridClearSelection": [c_void_p],
    "DlglibGridSelectedRow": [c_void_p, POINTER(c_int32)],
    "DlglibGridSelectedColumn": [c_void_p, POINTER(c_int32)],
    "DlglibGridAddRow": [c_void_p, POINTER(c_int32)],
    "DlglibGridInsertRow": [c_void_p, POINTER(c_int32)],
    "DlglibGridDeleteRows": [c_void_p],
    "DlglibGridCheckClassNumber": [c_void_p, c_int32, c_char_p],
    "DlglibGridCheckRevisionNumber": [c_void_p, c_int32, c_char_p],
    "DlglibGridShowMessageUtf8": [c_void_p, c_char_p],
    "DlglibGridShowErrorUtf8": [c_void_p, c_char_p],
    "DlglibGridClickCell": [c_void_p, c_int32, c_int32],
    "DlglibGridClickedCell": [c_void_p, POINTER(c_int32), POINTER(c_int32)],
    "DlglibGridEditCell": [c_void_p, c_int32, c_int32],
    "DlglibGridPlaceEditor": [c_void_p],
    "DlglibGridCommit": [c_void_p],
    "DlglibGridOpenList": [c_void_p],
    "DlglibGridCloseList": [c_void_p],
    "DlglibGridPickUtf8": [c_void_p, c_char_p],
    "DlglibGridSetKeys": [c_void_p, c_int32],
    "DlglibGridKeys": [c_void_p, POINTER(c_int32)],
    "DlglibGridCopyCells": [c_void_p, c_int32, c_int32, c_int32, c_int32, POINTER(c_int32)],
    "DlglibGridPasteCells": [c_void_p, c_int32, c_int32, POINTER(c_int32)],
    "DlglibGridClearCells": [c_void_p, c_int32, c_int32, c_int32, c_int32, POINTER(c_int32)],
    "DlglibGridCellsTextUtf8": [c_void_p, c_int32, c_int32, c_int32, c_int32, *_ROOM],
    "DlglibGridSetCellsTextUtf8": [c_void_p, c_int32, c_int32, c_char_p, POINTER(c_int32)],
    "DlglibGridSetPasteRows": [c_void_p, c_int32],
    "DlglibGridSetPasteCheckUtf8": [c_void_p, GRID_PASTE_CHECK, c_void_p],
    "DlglibGridUndo": [c_void_p],
    "DlglibGridRedo": [c_void_p],
    "DlglibGridCanUndo": [c_void_p],
    "DlglibGridCanRedo": [c_void_p],
    "DlglibGridSetUndoLimit": [c_void_p, c_int32],
    "DlglibGridSetChanged": [c_void_p, GRID_CHANGED, c_void_p],
    "DlglibMessageZoneCreate": [POINTER(c_void_p), c_void_p],
    "DlglibMessageZoneDestroy": [c_void_p],
    "DlglibMessageZoneMakeRoom": [c_void_p],
    "DlglibMessageZoneSetWindow": [c_void_p, c_void_p],
    "DlglibMessageZoneShowUtf8": [c_void_p, c_char_p],
    "DlglibMessageZoneErrorUtf8": [c_void_p, c_char_p],
    "DlglibMessageZoneErrorNumber": [c_void_p, c_int32],
    "DlglibRecentListCreateUtf8": [POINTER(c_void_p), c_int32, c_char_p],
    "DlglibRecentListDestroy": [c_void_p],
    "DlglibRecentListCount": [c_void_p, POINTER(c_int32)],
    "DlglibRecentListEntryUtf8": [c_void_p, c_int32, *_ROOM],
    "DlglibRecentListAddUtf8": [c_void_p, c_char_p],
    "DlglibRecentListRemoveUtf8": [c_void_p, c_char_p],
    "DlglibRecentListShown": [c_void_p, POINTER(c_int32)],
    "DlglibRecentListSetShown": [c_void_p, c_int32],
    "DlglibRecentListFill": [c_void_p, c_void_p],
    "DlglibRecentListWrite": [c_void_p],
}


class DlglibError(Exception):
    """A call that the library could not carry out. `result` is its number."""

    def __init__(self, result, text):
        super().__init__(f"{text} ({result})")
        self.result = result


def load(folder):
    """The library in a folder, which holds crvndlglib.dll and crvnsuite.dll."""
    with os.add_dll_directory(os.path.abspath(folder)):
        return Library(ctypes.WinDLL(os.path.join(os.path.abspath(folder), "crvndlglib.dll")))


def _utf8(text):
    """A text as the library takes it; None stays None."""
    if text is None:
        return None
    if "\0" in text:
        raise ValueError("a text with a zero character")
    return text.encode("utf-8")


class Library:
    """The functions of a loaded DLL."""

    def __init__(self, dll):
        self._functions = {}
        for name, arguments in FUNCTIONS.items():
            function = getattr(dll, name)
            function.argtypes = arguments
            function.restype = c_int32
            self._functions[name] = function

    def call(self, name, *arguments):
        """Calls a function by its name. Answers OK, CANCELLED or REFUSED; raises DlglibError for an error."""
        result = self._functions[name](*arguments)
        if result < 0:
            raise DlglibError(result, self.result_text(result))
        return result

    def bytes_of(self, name, *arguments):
        """The text that a function gives: asks how long it is, then for the text."""
        needed = c_int32()
        self.call(name, *arguments, 0, None, byref(needed))
        buffer = ctypes.create_string_buffer(needed.value)
        self.call(name, *arguments, needed.value, buffer, None)
        return buffer.value

    def text_of(self, name, *arguments):
        return self.bytes_of(name, *arguments).decode("utf-8")

    def number_of(self, name, *arguments):
        """The number that a function gives."""
        number = c_int32()
        self.call(name, *arguments, byref(number))
        return number.value

    def version(self):
        return self.text_of("DlglibVersionText")

    def result_text(self, result):
        return self.text_of("DlglibResultTextUtf8", result)

    # ---- file kinds and requests

    def define_kind(self, keyword, folder, patterns, letter_case=0, description=None):
        """`letter_case`: 1 for names in capitals, -1 in small letters, 0 as they are. `description`: what users call it."""
        if letter_case == 0 and description is None:
            self.call("DlglibDefineKindUtf8", _utf8(keyword), _utf8(folder), _utf8(patterns))
        else:
            self.call("DlglibDefineFullKindUtf8", _utf8(keyword), _utf8(folder), _utf8(patterns), letter_case, _utf8(description))

    def remove_kind(self, keyword):
        self.call("DlglibRemoveKindUtf8", _utf8(keyword))

    def kinds(self):
        """The keywords of all kinds."""
        return [self.text_of("DlglibKindKeywordUtf8", index) for index in range(self.number_of("DlglibKindCount"))]

    def load_session(self, path):
        self.call("DlglibLoadSessionUtf8", _utf8(path))

    def unread_lines(self):
        """What could not be read of session files: the file, the number of the line and its text of each."""
        return [self._unread_line(index) for index in range(self.number_of("DlglibUnreadLineCount"))]

    def _unread_line(self, index):
        line = c_int32()
        text = self.text_of("DlglibUnreadLineUtf8", index, byref(line))
        return self.text_of("DlglibUnreadLineFileUtf8", index), line.value, text

    def file_request(self):
        """A new FileRequest; use it with `with`."""
        return FileRequest(self)

    def grid(self):
        """A new Grid; close it when its window is destroyed."""
        return Grid(self)

    def message_zone(self, dialog):
        """A MessageZone of a dialog, given by its handle."""
        return MessageZone(self, dialog)

    def recent_list(self, which, keyword):
        """The RecentList of a kind: RECENT_INPUT_FILES, RECENT_OUTPUT_FILES or RECENT_NAMES."""
        return RecentList(self, which, keyword)

    # ---- texts: screen texts are str, stored texts bytes of EUC-JP

    def to_euc(self, text):
        return self.bytes_of("DlglibUtf8ToEuc", _utf8(text))

    def from_euc(self, euc):
        return self.text_of("DlglibEucToUtf8", euc)

    def stored_to_screen(self, stored):
        return self.text_of("DlglibStoredToScreenUtf8", stored)

    def screen_to_stored(self, screen):
        return self.bytes_of("DlglibScreenToStoredUtf8", _utf8(screen))

    # ---- paths

    def real_path(self, keyword, path):
        return self.text_of("DlglibRealPathUtf8", _utf8(keyword), _utf8(path))

    def internal_path(self, keyword, path):
        return self.text_of("DlglibInternalPathUtf8", _utf8(keyword), _utf8(path))

    def short_name(self, keyword, path):
        return self.text_of("DlglibShortNameUtf8", _utf8(keyword), _utf8(path))

    def path_of_short_name(self, keyword, short_name):
        return self.text_of("DlglibPathOfShortNameUtf8", _utf8(keyword), _utf8(short_name))

    def ask_input_path(self, owner, keyword, name):
        """The path of an input file; None when it is not there, which the user has been told."""
        arguments = (owner, _utf8(keyword), _utf8(name))
        needed = c_int32()
        if self.call("DlglibAskInputPathUtf8", *arguments, 0, None, byref(needed)) != OK:
            return None
        return self.text_of("DlglibAskInputPathUtf8", *arguments)

    # ---- checks: True or False

    def is_model_name(self, name):
        return self.call("DlglibCheckModelNameUtf8", _utf8(name)) == OK

    def is_file_name(self, name, wildcards=False):
        return self.call("DlglibCheckFileNameUtf8", _utf8(name), int(wildcards)) == OK

    def exists(self, keyword, path):
        return self.call("DlglibCheckExistsUtf8", _utf8(keyword), _utf8(path)) == OK

    def is_text_of(self, mask, text):
        return self.call("DlglibCheckTextUtf8", mask, _utf8(text)) == OK

    def is_number(self, text, mode, minimum, maximum):
        return self.call("DlglibCheckNumber", _utf8(text), mode, minimum, maximum) == OK

    def scale(self, text):
        """The scale that a text stands for, or None."""
        value = c_double()
        return value.value if self.call("DlglibCheckScale", _utf8(text), byref(value)) == OK else None

    def scale_text(self, scale):
        return self.text_of("DlglibScaleText", scale)


class FileRequest:
    """Asks the user for files. The library lets go of it at the end of `with`, or after close()."""

    def __init__(self, library):
        self._library = library
        self._handle = c_void_p()
        library.call("DlglibFileRequestCreate", byref(self._handle))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self._handle:
            self._library.call("DlglibFileRequestDestroy", self._handle)
            self._handle = c_void_p()

    def _set(self, setting, value):
        self._library.call("DlglibFileRequestSet" + setting, self._handle, value)

    def set_kind(self, keyword):
        self._set("KindUtf8", _utf8(keyword))

    def set_caption(self, caption):
        self._set("CaptionUtf8", _utf8(caption))

    def set_initial_name(self, name):
        self._set("InitialNameUtf8", _utf8(name))

    def set_list_file(self, path):
        self._set("ListFileUtf8", _utf8(path))

    def set_mode(self, mode):
        self._set("Mode", mode)

    def set_several_files(self, several):
        self._set("SeveralFiles", int(several))

    def set_fixed_folder(self, fixed):
        self._set("FixedFolder", int(fixed))

    def set_owner(self, window):
        """`window`: its handle, such as winfo_id() of a widget; None for no owner."""
        self._set("Owner", window)

    def run(self):
        """Shows the browser. True after OK, False when the user has given up."""
        return self._library.call("DlglibFileRequestRun", self._handle) == OK

    def names(self, form=FORM_REAL):
        """The chosen files of the last run in one of the forms."""
        count = c_int32()
        self._library.call("DlglibFileRequestCount", self._handle, byref(count))
        return [self._library.text_of("DlglibFileRequestNameUtf8", self._handle, index, form) for index in range(count.value)]


class _Handle:
    """What the library keeps for the program, until close() or the end of `with`."""

    kind = ""

    def __init__(self, library, *arguments, create="Create"):
        self._library = library
        self._handle = c_void_p()
        library.call(self.kind + create, byref(self._handle), *arguments)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self._handle:
            self._library.call(self.kind + "Destroy", self._handle)
            self._handle = c_void_p()

    def call(self, name, *arguments):
        """A function of this kind by the rest of its name: grid.call("AddRow", None)."""
        return self._library.call(self.kind + name, self._handle, *arguments)

    def number(self, name, *arguments):
        """The number that such a function gives: grid.number("ItemCount")."""
        return self._library.number_of(self.kind + name, self._handle, *arguments)

    def text(self, name, *arguments):
        """The text that such a function gives: grid.text("Text", 0, 1)."""
        return self._library.text_of(self.kind + name + "Utf8", self._handle, *arguments)

    def give(self, name, *arguments):
        """A function that takes texts: grid.give("SetText", 0, 1, "a")."""
        return self.call(name + "Utf8", *(_utf8(given) if isinstance(given, str) else given for given in arguments))


class Grid(_Handle):
    """A table over a report list view. The functions without a method here are called by their names."""

    kind = "DlglibGrid"

    def __init__(self, library):
        super().__init__(library)
        self._kept = {}  # callbacks, which the library does not keep alive

    def attach(self, parent, list_id, columns, items, max_items, number_column=-1, text_limits=None):
        limits = (c_int32 * columns)(*text_limits) if text_limits is not None else None
        self.call("Attach", parent, list_id, columns, limits, items, max_items, number_column)

    def set_column(self, col, title, share, title_format=0, draw_flags=0, kind=COLUMN_TEXT):
        self.give("SetColumn", col, title, share, title_format, draw_flags, kind)

    def set_edit(self, col, letter_case=0, max_bytes=0, prompt=None):
        self.give("SetEdit", col, letter_case, max_bytes, prompt)

    def set_list(self, col, last_col, entries, combo_id=0, prompt=None):
        self.give("SetList", col, last_col, "\n".join(entries), combo_id, prompt)

    def set_cell(self, row, col, text):
        self.give("SetText", row, col, text)

    def cell(self, row, col):
        return self.text("Text", row, col)

    def message(self, message, l_param):
        """Offers a message of the window; True when it was for the grid."""
        return self.call("Message", message, l_param) == OK

    def on_changed(self, told):
        """`told` is called with a row and a number of rows; None ends it."""
        self._kept["changed"] = GRID_CHANGED((lambda _, row, rows: told(row, rows)) if told else 0)
        self.call("SetChanged", self._kept["changed"], None)

    def on_paste(self, check):
        """`check` is asked with row, column and text, and answers whether the cell may hold it; None ends it."""
        asked = (lambda _, row, col, text: int(bool(check(row, col, text.decode("utf-8"))))) if check else 0
        self._kept["check"] = GRID_PASTE_CHECK(asked)
        self.call("SetPasteCheckUtf8", self._kept["check"], None)


class MessageZone(_Handle):
    """One line of text at the bottom of a dialog."""

    kind = "DlglibMessageZone"

    def show(self, text):
        self.give("Show", text)

    def error(self, text):
        self.give("Error", text)


class RecentList(_Handle):
    """The files or names of a kind that the user chose last."""

    kind = "DlglibRecentList"

    def __init__(self, library, which, keyword):
        super().__init__(library, which, _utf8(keyword), create="CreateUtf8")

    def entries(self):
        return [self.text("Entry", index) for index in range(self.number("Count"))]

    def add(self, entry):
        self.give("Add", entry)

    def remove(self, entry):
        """False when it is not there."""
        return self.give("Remove", entry) == OK

    def write(self):
        self.call("Write")
