// Every function of the C interface, with each of its arguments made wrong in turn: null, too long, in a bad encoding,
// out of range, a handle that has ended or is of another kind, a window of nobody or of another thread, and the whole
// call on another thread. Each is answered, none is thrown.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <array>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "dlglib/dlglib_c.h"
#include "dlglib/dlglib_c_names.h"
#include "tests/windows/support/throw_count.h"

namespace refusals {
namespace {

enum class Encoding { Sjis, Utf8 };

constexpr int kList = 1001;
constexpr int kRows = 10;
constexpr int kUsedRows = 5;
constexpr int kColumns = 3;
constexpr std::int32_t kRoomSize = 600;
const std::string kTooLong(DLGLIB_LONG_TEXT_LIMIT + 1, 'a');

std::array<char, kRoomSize> room = {};
std::int32_t needed = 0;
std::int32_t number = 0;
double scale = 0;

/// An argument: one that is sound, and what is answered for others.
template <class T>
struct Argument {
  struct Bad {
    T value;
    DlglibResult answer;
  };

  Argument(T soundValue, std::vector<Bad> badOnes = {}) : sound(soundValue), bad(std::move(badOnes)) {}

  T sound;
  std::vector<Bad> bad;
};

using Text = Argument<const char*>;
using Number = Argument<std::int32_t>;

/// Bytes that any encoding takes.
Text Bytes() { return {"a", {{nullptr, DLGLIB_NULL_ARGUMENT}, {kTooLong.c_str(), DLGLIB_TOO_LONG}}}; }
Text BytesOrNull() { return {"a", {{kTooLong.c_str(), DLGLIB_TOO_LONG}}}; }
Text With(Text text, Encoding encoding) {
  if (encoding == Encoding::Sjis) return text;
  text.bad.push_back({"\xFF", DLGLIB_BAD_ENCODING});
  text.bad.push_back({"\xE8\xA1", DLGLIB_BAD_ENCODING});
  text.bad.push_back({"\xC3\xA9", DLGLIB_NO_SUCH_CHARACTER});
  return text;
}
Text In(Encoding encoding) { return With(Bytes(), encoding); }
Text InOrNull(Encoding encoding) { return With(BytesOrNull(), encoding); }

Number Index(std::int32_t count) {
  return {0, {{-1, DLGLIB_BAD_ARGUMENT}, {count, DLGLIB_BAD_ARGUMENT}, {INT32_MAX, DLGLIB_BAD_ARGUMENT}}};
}
/// There is none yet.
Number NoIndex() { return {0, {{-1, DLGLIB_BAD_ARGUMENT}, {0, DLGLIB_BAD_ARGUMENT}}}; }
Number Row() { return Index(kRows); }
Number UsedRow() { return Index(kUsedRows); }
Number Column() { return Index(kColumns); }
Number OneOf(std::int32_t first, std::int32_t last) {
  return {first, {{first - 1, DLGLIB_BAD_ARGUMENT}, {last + 1, DLGLIB_BAD_ARGUMENT}}};
}
Number CountOfBlock() { return {1, {{-1, DLGLIB_BAD_ARGUMENT}, {INT32_MAX, DLGLIB_BAD_ARGUMENT}}}; }

template <class T>
Argument<T*> Out(T& result) {
  return {&result, {{nullptr, DLGLIB_NULL_ARGUMENT}}};
}
template <class T>
Argument<T*> OutOrNull(T& result) {
  return {&result};
}

template <class T>
Argument<T> Handle(T alive, T ended, void* ofAnotherKind) {
  return {alive,
          {{nullptr, DLGLIB_BAD_HANDLE},
           {ended, DLGLIB_BAD_HANDLE},
           {reinterpret_cast<T>(ofAnotherKind), DLGLIB_BAD_HANDLE},
           {reinterpret_cast<T>(&number), DLGLIB_BAD_HANDLE}}};
}

Argument<void*> WindowOrNull(HWND window) {
  return {window,
          {{reinterpret_cast<void*>(0x7FFF1234), DLGLIB_BAD_ARGUMENT}, {::GetDesktopWindow(), DLGLIB_WRONG_THREAD}}};
}
Argument<void*> Window(HWND window) {
  Argument<void*> argument = WindowOrNull(window);
  argument.bad.push_back({nullptr, DLGLIB_NULL_ARGUMENT});
  return argument;
}

template <class T>
constexpr bool kIsHandle = std::is_same_v<T, DlglibFileRequest> || std::is_same_v<T, DlglibGrid> ||
                           std::is_same_v<T, DlglibMessageZone> || std::is_same_v<T, DlglibRecentList>;

/// What a function gives a text by, at its end.
constexpr std::size_t kRoomArguments = 3;
template <class... T>
constexpr bool GivesText() {
  using All = std::tuple<T...>;
  constexpr std::size_t kCount = sizeof...(T);
  if constexpr (kCount < kRoomArguments) {
    return false;
  } else {
    return std::is_same_v<std::tuple_element_t<kCount - 3, All>, std::int32_t> &&
           std::is_same_v<std::tuple_element_t<kCount - 2, All>, char*> &&
           std::is_same_v<std::tuple_element_t<kCount - 1, All>, std::int32_t*>;
  }
}

/// The windows and handles of the calls, and which functions were called.
class RefusalTest : public testing::Test {
 protected:
  RefusalTest() {
    window_ =
        ::CreateWindowExW(0, L"#32770", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
    ::CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, 300, 200, window_,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(kList)), nullptr, nullptr);
    MakeHandles(grid_, zone_, list_, request_);
    MakeHandles(endedGrid_, endedZone_, endedList_, endedRequest_);
    EndHandles(endedGrid_, endedZone_, endedList_, endedRequest_);
    EXPECT_EQ(DlglibGridAttach(grid_, window_, kList, kColumns, nullptr, kUsedRows, kRows, 0), DLGLIB_OK);
    for (int col = 0; col < kColumns; ++col) {
      EXPECT_EQ(DlglibGridSetColumnSjis(grid_, col, "a", 3, 0, 0, 0), DLGLIB_OK);
    }
  }
  ~RefusalTest() override {
    EndHandles(grid_, zone_, list_, request_);
    ::DestroyWindow(window_);
  }

  [[nodiscard]] Argument<DlglibGrid> Grid() const { return Handle(grid_, endedGrid_, zone_); }
  [[nodiscard]] Argument<DlglibMessageZone> Zone() const { return Handle(zone_, endedZone_, list_); }
  [[nodiscard]] Argument<DlglibRecentList> List() const { return Handle(list_, endedList_, request_); }
  [[nodiscard]] Argument<DlglibFileRequest> Request() const { return Handle(request_, endedRequest_, grid_); }
  [[nodiscard]] Argument<DlglibGrid> GridOrNull() const {
    return {nullptr, {{endedGrid_, DLGLIB_BAD_HANDLE}, {grid_, DLGLIB_BAD_ARGUMENT}}};
  }

  /// Calls a function with each argument made wrong in turn.
  template <class... T>
  void Call(const char* name, DlglibResult(DLGLIB_CALL* function)(T...),
            const std::type_identity_t<Argument<T>>&... arguments) {
    called_.insert(name);
    const std::tuple<Argument<T>...> all(arguments...);
    CallWithEach(name, function, all, std::index_sequence_for<T...>());
    CallOnAnotherThread(name, function, arguments.sound...);
    if constexpr (GivesText<T...>()) CallWithoutRoom(name, function, std::tuple<T...>(arguments.sound...));
  }

  [[nodiscard]] HWND Dialog() const { return window_; }
  [[nodiscard]] const std::set<std::string>& Called() const { return called_; }

 private:
  static void MakeHandles(DlglibGrid& grid, DlglibMessageZone& zone, DlglibRecentList& list,
                          DlglibFileRequest& request) {
    HWND window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(DlglibGridCreate(&grid), DLGLIB_OK);
    EXPECT_EQ(DlglibMessageZoneCreate(&zone, window), DLGLIB_OK);
    EXPECT_EQ(DlglibRecentListCreateSjis(&list, DLGLIB_RECENT_NAMES, "#REFUSALS#"), DLGLIB_OK);
    EXPECT_EQ(DlglibFileRequestCreate(&request), DLGLIB_OK);
  }
  static void EndHandles(DlglibGrid grid, DlglibMessageZone zone, DlglibRecentList list, DlglibFileRequest request) {
    EXPECT_EQ(DlglibGridDestroy(grid), DLGLIB_OK);
    EXPECT_EQ(DlglibMessageZoneDestroy(zone), DLGLIB_OK);
    EXPECT_EQ(DlglibRecentListDestroy(list), DLGLIB_OK);
    EXPECT_EQ(DlglibFileRequestDestroy(request), DLGLIB_OK);
  }

  template <class Function, class... T, std::size_t... At>
  static void CallWithEach(const char* name, Function function, const std::tuple<Argument<T>...>& all,
                           std::index_sequence<At...>) {
    (CallWithBad<At>(name, function, all, std::tuple<T...>(std::get<At>(all).sound...)), ...);
  }

  template <std::size_t Wrong, class Function, class... T>
  static void CallWithBad(const char* name, Function function, const std::tuple<Argument<T>...>& all,
                          const std::tuple<T...>& sound) {
    constexpr bool kGives = GivesText<T...>() && Wrong + kRoomArguments < sizeof...(T);
    for (const auto& bad : std::get<Wrong>(all).bad) {
      std::tuple<T...> values = sound;
      std::get<Wrong>(values) = bad.value;
      room[0] = '#';
      needed = 7;
      EXPECT_EQ(std::apply(function, values), bad.answer) << name << ", argument " << Wrong;
      if (!kGives) continue;
      EXPECT_STREQ(room.data(), "") << name << ", argument " << Wrong;
      EXPECT_EQ(needed, 0) << name << ", argument " << Wrong;
    }
  }

  template <class Function, class First, class... T>
  static void CallOnAnotherThread(const std::string& name, Function function, First first, T... others) {
    // The one function for which any thread is right.
    if (!kIsHandle<First> || name == "DlglibFileRequestDestroy") return;
    DlglibResult answer = DLGLIB_OK;
    int thrown = 0;
    std::thread([&] {
      const ThrowCount count;
      answer = function(first, others...);
      thrown = ThrowCount::Thrown();
    }).join();
    EXPECT_EQ(answer, DLGLIB_WRONG_THREAD) << name;
    EXPECT_EQ(thrown, 0) << name;
  }

  template <class Function, class... T>
  static void CallWithoutRoom(const char* name, Function function, std::tuple<T...> values) {
    constexpr std::size_t kSize = sizeof...(T) - kRoomArguments;
    std::get<kSize>(values) = 0;
    std::get<kSize + 2>(values) = nullptr;
    EXPECT_EQ(std::apply(function, values), DLGLIB_NULL_ARGUMENT) << name << " asked for nothing";
  }

  HWND window_ = nullptr;
  DlglibGrid grid_ = nullptr;
  DlglibGrid endedGrid_ = nullptr;
  DlglibMessageZone zone_ = nullptr;
  DlglibMessageZone endedZone_ = nullptr;
  DlglibRecentList list_ = nullptr;
  DlglibRecentList endedList_ = nullptr;
  DlglibFileRequest request_ = nullptr;
  DlglibFileRequest endedRequest_ = nullptr;
  std::set<std::string> called_;

 protected:
  void CallTexts();
  void CallKinds();
  void CallChecks();
  void CallQuestions();
  void CallRequest();
  void CallGrid();
  void CallGridColumns();
  void CallGridCells();
  void CallGridRows();
  void CallGridEditing();
  void CallGridBlocks();
  void CallZone();
  void CallList();
};

// A row for each function: its arguments in order. BOTH: for the one in Shift_JIS and the one in UTF-8, `e` being
// which.
#define ONE(name, ...) Call(#name, name, __VA_ARGS__)
#define BOTH(name, ...)                                                   \
  for (const Encoding e : {Encoding::Sjis, Encoding::Utf8}) {             \
    if (e == Encoding::Sjis) Call(#name "Sjis", name##Sjis, __VA_ARGS__); \
    if (e == Encoding::Utf8) Call(#name "Utf8", name##Utf8, __VA_ARGS__); \
  }
#define ROOM                                                                                                       \
  Number(kRoomSize, {{-1, DLGLIB_BAD_ARGUMENT}}), Argument<char*>(room.data(), {{nullptr, DLGLIB_NULL_ARGUMENT}}), \
      &needed

void RefusalTest::CallTexts() {
  ONE(DlglibVersionText, ROOM);
  BOTH(DlglibResultText, DLGLIB_OK, ROOM);
  ONE(DlglibSjisToEuc, Bytes(), ROOM);
  ONE(DlglibEucToSjis, Bytes(), ROOM);
  ONE(DlglibEucToUtf8, Bytes(), ROOM);
  Text sjis = Bytes();
  sjis.bad.push_back({"\x81", DLGLIB_BAD_ENCODING});
  ONE(DlglibSjisToUtf8, sjis, ROOM);
  ONE(DlglibUtf8ToSjis, In(Encoding::Utf8), ROOM);
  ONE(DlglibUtf8ToEuc, In(Encoding::Utf8), ROOM);
  BOTH(DlglibStoredToScreen, Bytes(), ROOM);
  BOTH(DlglibScreenToStored, In(e), ROOM);
  ONE(DlglibScaleText, 0.5, ROOM);
  ONE(DlglibDecimalText, 0.5, ROOM);
}

void RefusalTest::CallKinds() {
  BOTH(DlglibDefineKind, In(e), In(e), In(e));
  BOTH(DlglibDefineFullKind, In(e), In(e), In(e), OneOf(-1, 1), InOrNull(e));
  BOTH(DlglibRemoveKind, In(e));
  ONE(DlglibKindCount, Out(number));
  BOTH(DlglibKindKeyword, NoIndex(), ROOM);
  ONE(DlglibKindLetterCase, In(Encoding::Sjis), Out(number));
  BOTH(DlglibLoadSession, In(e));
  ONE(DlglibUnreadLineCount, Out(number));
  BOTH(DlglibUnreadLine, NoIndex(), OutOrNull(number), ROOM);
  BOTH(DlglibUnreadLineFile, NoIndex(), ROOM);
}

void RefusalTest::CallChecks() {
  BOTH(DlglibRealPath, InOrNull(e), In(e), ROOM);
  BOTH(DlglibInternalPath, InOrNull(e), In(e), ROOM);
  BOTH(DlglibShortName, InOrNull(e), In(e), ROOM);
  BOTH(DlglibPathOfShortName, InOrNull(e), In(e), ROOM);
  BOTH(DlglibCheckModelName, In(e));
  BOTH(DlglibCheckFileName, In(e), 0);
  BOTH(DlglibCheckExists, InOrNull(e), In(e));
  ONE(DlglibCheckChar, DLGLIB_DIGITS, '7');
  BOTH(DlglibCheckText, DLGLIB_DIGITS, In(e));
  ONE(DlglibCheckNumber, Bytes(), Number(DLGLIB_REAL, {{-1, DLGLIB_BAD_ARGUMENT}}), 0.0, 1.0);
  ONE(DlglibCheckScale, Bytes(), OutOrNull(scale));
}

void RefusalTest::CallQuestions() {
  BOTH(DlglibAskFileName, WindowOrNull(Dialog()), In(e));
  BOTH(DlglibAskInputFile, WindowOrNull(Dialog()), InOrNull(e), In(e));
  BOTH(DlglibAskInputPath, WindowOrNull(Dialog()), InOrNull(e), In(e), ROOM);
  BOTH(DlglibAskOutputFile, WindowOrNull(Dialog()), InOrNull(e), In(e));
}

void RefusalTest::CallRequest() {
  DlglibFileRequest made = nullptr;
  ONE(DlglibFileRequestCreate, Out(made));
  ONE(DlglibFileRequestDestroy, Request());
  BOTH(DlglibFileRequestSetKind, Request(), InOrNull(e));
  BOTH(DlglibFileRequestSetCaption, Request(), InOrNull(e));
  BOTH(DlglibFileRequestSetInitialName, Request(), InOrNull(e));
  BOTH(DlglibFileRequestSetListFile, Request(), InOrNull(e));
  ONE(DlglibFileRequestSetMode, Request(), OneOf(DLGLIB_OPEN_FILE, DLGLIB_NAME_FILE));
  ONE(DlglibFileRequestSetSeveralFiles, Request(), 1);
  ONE(DlglibFileRequestSetFixedFolder, Request(), 1);
  ONE(DlglibFileRequestSetOwner, Request(),
      Argument<void*>(nullptr, {{reinterpret_cast<void*>(0x7FFF1234), DLGLIB_BAD_ARGUMENT}}));
  ONE(DlglibFileRequestRun, Request());
  ONE(DlglibFileRequestCount, Request(), Out(number));
  BOTH(DlglibFileRequestName, Request(), NoIndex(), OneOf(DLGLIB_FORM_REAL, DLGLIB_FORM_SHORT), ROOM);
}

void RefusalTest::CallGrid() {
  DlglibGrid made = nullptr;
  ONE(DlglibGridCreate, Out(made));
  ONE(DlglibGridDestroy, Grid());
  ONE(DlglibGridSetParentGrid, Grid(), GridOrNull());
  const Number noView(kList, {{kList + 1, DLGLIB_BAD_ARGUMENT}});
  const Number moreThanRows(1, {{-1, DLGLIB_BAD_ARGUMENT}, {kRows + 1, DLGLIB_BAD_ARGUMENT}});
  const Number rows(kRows, {{0, DLGLIB_BAD_ARGUMENT}, {10'000'001, DLGLIB_BAD_ARGUMENT}});
  ONE(DlglibGridAttach, Grid(), Window(Dialog()), noView, OneOf(1, 20), nullptr, moreThanRows, rows, 0);
  ONE(DlglibGridDetach, Grid());
  ONE(DlglibGridMessage, Grid(), WM_NOTIFY, Argument<void*>(nullptr, {{nullptr, DLGLIB_NULL_ARGUMENT}}));
  ONE(DlglibGridDraw, Grid());
  ONE(DlglibGridSetExtendedStyle, Grid(), 0);
  ONE(DlglibGridSetMessageWindow, Grid(), WindowOrNull(nullptr));
  BOTH(DlglibGridShowMessage, Grid(), InOrNull(e));
  BOTH(DlglibGridShowError, Grid(), InOrNull(e));
}

void RefusalTest::CallGridColumns() {
  BOTH(DlglibGridSetColumn, Grid(), Column(), In(e), 1.0, 0, 0, DLGLIB_COLUMN_TEXT);
  BOTH(DlglibGridSetEdit, Grid(), Column(), 0, 0, InOrNull(e));
  BOTH(DlglibGridSetList, Grid(), Column(), Column(), InOrNull(e), 0, InOrNull(e));
  ONE(DlglibGridClearEdit, Grid(), Column());
  ONE(DlglibGridClearList, Grid(), Column());
  ONE(DlglibGridSetSeparator, Grid(), OneOf(1, 0xFF));
  ONE(DlglibGridSeparator, Grid(), Out(number));
  ONE(DlglibGridSetEditMode, Grid(), Column(), 1);
  ONE(DlglibGridSetSpaceMode, Grid(), Column(), 0);
  ONE(DlglibGridSetImeMode, Grid(), Column(), 0);
}

void RefusalTest::CallGridCells() {
  BOTH(DlglibGridSetText, Grid(), Row(), Column(), In(e));
  BOTH(DlglibGridText, Grid(), Row(), Column(), ROOM);
  ONE(DlglibGridSetColours, Grid(), Row(), Column(), 0, 0);
  const Number columnOrAll(0, {{-2, DLGLIB_BAD_ARGUMENT}, {kColumns, DLGLIB_BAD_ARGUMENT}});
  ONE(DlglibGridSetAvailable, Grid(), UsedRow(), columnOrAll, 1);
  ONE(DlglibGridAvailable, Grid(), UsedRow(), Column(), Out(number));
  ONE(DlglibGridSetError, Grid(), UsedRow(), Column(), 0);
  ONE(DlglibGridError, Grid(), UsedRow(), Column(), Out(number));
}

void RefusalTest::CallGridRows() {
  ONE(DlglibGridRowCount, Grid(), Out(number));
  ONE(DlglibGridItemCount, Grid(), Out(number));
  ONE(DlglibGridSetItemCount, Grid(), OneOf(0, kRows));
  ONE(DlglibGridSelectRow, Grid(), UsedRow(), 1);
  ONE(DlglibGridIsSelected, Grid(), UsedRow(), Out(number));
  ONE(DlglibGridClearSelection, Grid());
  ONE(DlglibGridSelectedRow, Grid(), Out(number));
  ONE(DlglibGridSelectedColumn, Grid(), Out(number));
  ONE(DlglibGridAddRow, Grid(), OutOrNull(number));
  ONE(DlglibGridInsertRow, Grid(), OutOrNull(number));
  ONE(DlglibGridDeleteRows, Grid());
  ONE(DlglibGridCheckClassNumber, Grid(), UsedRow(), Bytes());
  ONE(DlglibGridCheckRevisionNumber, Grid(), UsedRow(), Bytes());
}

void RefusalTest::CallGridEditing() {
  ONE(DlglibGridClickCell, Grid(), Row(), Column());
  ONE(DlglibGridClickedCell, Grid(), Out(number), Out(number));
  ONE(DlglibGridEditCell, Grid(), Row(), Column());
  ONE(DlglibGridPlaceEditor, Grid());
  ONE(DlglibGridCommit, Grid());
  ONE(DlglibGridOpenList, Grid());
  ONE(DlglibGridCloseList, Grid());
  BOTH(DlglibGridPick, Grid(), In(e));
}

void RefusalTest::CallGridBlocks() {
  const Number noKeys(0, {{DLGLIB_KEYS_ALL + 1, DLGLIB_BAD_ARGUMENT}, {-1, DLGLIB_BAD_ARGUMENT}});
  ONE(DlglibGridSetKeys, Grid(), noKeys);
  ONE(DlglibGridKeys, Grid(), Out(number));
  ONE(DlglibGridCopyCells, Grid(), Row(), Column(), CountOfBlock(), CountOfBlock(), OutOrNull(number));
  ONE(DlglibGridPasteCells, Grid(), Row(), Column(), OutOrNull(number));
  ONE(DlglibGridClearCells, Grid(), Row(), Column(), CountOfBlock(), CountOfBlock(), OutOrNull(number));
  BOTH(DlglibGridCellsText, Grid(), Row(), Column(), CountOfBlock(), CountOfBlock(), ROOM);
  BOTH(DlglibGridSetCellsText, Grid(), Row(), Column(), In(e), OutOrNull(number));
  ONE(DlglibGridSetPasteRows, Grid(), OneOf(0, 1));
  BOTH(DlglibGridSetPasteCheck, Grid(), nullptr, nullptr);
  ONE(DlglibGridUndo, Grid());
  ONE(DlglibGridRedo, Grid());
  ONE(DlglibGridCanUndo, Grid());
  ONE(DlglibGridCanRedo, Grid());
  ONE(DlglibGridSetUndoLimit, Grid(), 10);
  ONE(DlglibGridSetChanged, Grid(), nullptr, nullptr);
}

void RefusalTest::CallZone() {
  DlglibMessageZone made = nullptr;
  ONE(DlglibMessageZoneCreate, Out(made), Window(Dialog()));
  ONE(DlglibMessageZoneDestroy, Zone());
  ONE(DlglibMessageZoneMakeRoom, Zone());
  ONE(DlglibMessageZoneSetWindow, Zone(), WindowOrNull(nullptr));
  BOTH(DlglibMessageZoneShow, Zone(), InOrNull(e));
  BOTH(DlglibMessageZoneError, Zone(), InOrNull(e));
  ONE(DlglibMessageZoneErrorNumber, Zone(), 0);
}

void RefusalTest::CallList() {
  DlglibRecentList made = nullptr;
  BOTH(DlglibRecentListCreate, Out(made), OneOf(DLGLIB_RECENT_INPUT_FILES, DLGLIB_RECENT_NAMES), In(e));
  ONE(DlglibRecentListDestroy, List());
  ONE(DlglibRecentListCount, List(), Out(number));
  BOTH(DlglibRecentListEntry, List(), NoIndex(), ROOM);
  Text entry = Bytes();
  entry.bad.push_back({"", DLGLIB_BAD_ARGUMENT});
  BOTH(DlglibRecentListAdd, List(), With(entry, e));
  BOTH(DlglibRecentListRemove, List(), In(e));
  ONE(DlglibRecentListShown, List(), Out(number));
  ONE(DlglibRecentListSetShown, List(), OneOf(1, 20));
  ONE(DlglibRecentListFill, List(), Window(Dialog()));
  ONE(DlglibRecentListWrite, List());
}

TEST_F(RefusalTest, EveryWrongArgumentOfEveryFunctionIsAnsweredAndNothingIsThrown) {
  const ThrowCount count;
  CallTexts();
  CallKinds();
  CallChecks();
  CallQuestions();
  CallRequest();
  CallGrid();
  CallGridColumns();
  CallGridCells();
  CallGridRows();
  CallGridEditing();
  CallGridBlocks();
  CallZone();
  CallList();
  EXPECT_EQ(ThrowCount::Thrown(), 0);
#define IS_CALLED(name) EXPECT_TRUE(Called().contains(#name) || std::string(#name) == "DlglibVersion") << #name;
  DLGLIB_FUNCTIONS(IS_CALLED)
}

}  // namespace
}  // namespace refusals
