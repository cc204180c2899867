// CvGrid: what stands behind a CvListControl. It mirrors the model in the list view, moves the editors and paints; what
// is to be done it asks the core.
//
// The dialog may take the editors, the list or itself away whenever it is told something. So editors are shared by
// whoever works with them, and behind every call that may run code of the dialog a LifeWatch on the control is asked
// before anything of this object is touched again.
//
// What the control's functions call throws std::bad_alloc; the control stops it. What is said to go on without memory
// does so here.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/base/CvDropDown.h"
#include "dlglib/base/bounded_text.h"
#include "dlglib/base/kept_length.h"
#include "dlglib/listcontrol/CvComboBox.h"
#include "dlglib/listcontrol/CvEdit.h"
#include "dlglib/listcontrol/CvEscHook.h"
#include "dlglib/listcontrol/CvGridTree.h"
#include "dlglib/listcontrol/CvInputMethod.h"
#include "dlglib/listcontrol/cell_plan.h"
#include "dlglib/listcontrol/edit_course.h"
#include "dlglib/listcontrol/grid_editing.h"
#include "dlglib/listcontrol/grid_keys.h"
#include "dlglib/listcontrol/grid_model.h"
#include "dlglib/listcontrol/grid_news.h"
#include "dlglib/listcontrol/grid_places.h"
#include "dlglib/utility/CvUtility.h"
#include "platform/framework/detail/accessible.h"
#include "platform/framework/detail/message_watch.h"
#include "platform/framework/detail/paint_watch.h"
#include "platform/framework/gdi.h"
#include "platform/framework/reflection.h"

class CvGrid {
 public:
  /// `owner` owns this.
  explicit CvGrid(CvUtility& owner) : owner_(owner) { editing_.NoteIn(&news_); }
  CvGrid(const CvGrid&) = delete;
  CvGrid& operator=(const CvGrid&) = delete;

  /// What lies in the cells. Texts and the item count are set by the functions below.
  [[nodiscard]] const grid::GridModel& Model() const noexcept { return model_; }
  /// What users do to the cells.
  [[nodiscard]] grid::GridEditing& Editing() noexcept { return editing_; }
  /// Null for none; borrowed.
  void SetParentGrid(CvGrid* parent) noexcept { parentGrid_ = parent; }

  // ---- start and end

  /// As the model's functions of these names.
  void ResetTextLimits() noexcept { model_.ResetTextLimits(); }
  void SetTextLimit(int col, int limit) noexcept { model_.SetTextLimit(col, limit); }
  /// Ends what there was, and takes a list view over. Half a list is ended again when there is no memory for all of it.
  void Init(CWnd* parent, int listId, int columns, int items, int maxItems, int numberColumn);
  void Term();
  /// The same, without a word to the list view.
  void BeDestroyed();
  void SetExtendedStyle(unsigned long style) const { list_.SetExtendedStyle(style); }

  // ---- columns

  struct ColumnLook {
    int format = 0;     ///< of the title
    int drawFlags = 0;  ///< of the texts
    int kind = 0;       ///< as in cell_plan.h
  };
  void SetColumn(int col, const char* title, double share, const ColumnLook& look);
  void SetEdit(int col, int caseMode, unsigned int maxChars, const char* prompt);
  /// `dialogComboId` 0: a list of the grid's own.
  void SetCombo(int col, int lastCol, std::vector<std::string> entries, int dialogComboId, const char* prompt);
  void ClearEdit(int col);
  void ClearCombo(int col);
  void SetComboSeparator(int ch) noexcept { comboSeparator_ = ch; }
  [[nodiscard]] int ComboSeparator() const noexcept { return comboSeparator_; }
  void SetEditMode(int col, int mode);
  void SetSpaceMode(int col, int mode);

  // ---- cells, rows and selection

  void SetItemText(int row, int col, const char* text);
  void SetColours(int row, int col, grid::Colour text, grid::Colour back) noexcept;
  void SetAvailable(int row, unsigned int flag) noexcept;
  void SetAvailable(int row, int col, unsigned int flag) noexcept;
  void SetError(int row, int col, unsigned int flag) noexcept;
  void SetItemCount(int count);
  void SetSelectFlag(int row, int flag);
  void ClearSelectFlag() noexcept;
  [[nodiscard]] int SelectedColumn() const noexcept { return course_.Edited().column; }
  /// The row's index; also when it could not be added.
  int AddInsertItem(int at);
  void DeleteItem();
  [[nodiscard]] int CheckNumberCell(int row, const CString& text, const char* complaint);

  /// In the message zone of the outermost list. They go on without memory.
  void MessageText(const char* text) noexcept;
  void ErrorText(const char* text) noexcept;

  // ---- editing

  void ClickItem();
  void ClickItem(int row, int col);
  struct ClickedCell {
    int row = grid::kNoRow;
    int column = grid::kNoColumn;
  };
  [[nodiscard]] ClickedCell FindClickedCell();
  void AskForCell(int row, int col) noexcept;
  void SelectItem();
  void KeyInput();
  void OpenComboBox();
  void CloseComboBox();
  void SelchangeComboBox(const char* text);

  // ---- copying, pasting, undo; each answers as CvListControl's function of that name

  int CopyCells(int row, int col, int rows, int cols);
  int PasteCells(int row, int col);
  int ClearCells(int row, int col, int rows, int cols);
  [[nodiscard]] int GetCellsText(int row, int col, int rows, int cols, char* out, int size);
  int SetCellsText(int row, int col, const char* text);
  int Undo();
  int Redo();
  /// Null for none. `context` is passed on.
  using Changed = void (*)(void* context, int row, int rows);
  void SetChanged(Changed changed, void* context) noexcept;

  // ---- keys and input methods

  void SetKeys(int flags) noexcept { keys_ = flags & grid::kKeysAll; }
  [[nodiscard]] int Keys() const noexcept { return keys_; }
  void SetImeMode(int col, int mode) noexcept;

  // ---- for the editors

  /// A key, a character, or what an input method sends, to one of the grid's windows, before that window sees it.
  /// Answers the message's result when the grid has dealt with it, and nothing when it is for that window. It may run
  /// code of the dialog.
  [[nodiscard]] Handled OnInput(const Message& message);
  /// WM_GETDLGCODE: whether the message that it asks about is a key of the grid, and not of its dialog.
  [[nodiscard]] bool WantsKey(const Message& message);
  /// Whether a composition begins or ends that a list is moved in by, told by its message.
  void NoteComposition(UINT id) noexcept;
  /// One of the grid's windows has got or lost the focus. It may run code of the dialog.
  void OnFocusChange();

  /// What a box shows, and what that was made from.
  struct BoxText {
    std::wstring_view shown;
    std::string_view madeFrom;
    grid::TextOrigin origin;
  };
  /// Stores in a cell what its box shows, unless no cell is edited. What the text shares with the one that it was made
  /// from, which is the cell's own at first, keeps its bytes. A text that nobody has typed is no step.
  void Commit(grid::CellPosition cell, std::wstring_view shown, grid::TextOrigin origin);
  void Commit(grid::CellPosition cell, const BoxText& text);
  void PickEntry(const CvComboBox& combo);

  // ---- for those who do not see it

  [[nodiscard]] accessible::Item SpokenCell(grid::CellPosition cell) const;
  [[nodiscard]] accessible::Item SpokenRow(int row) const;
  /// Where the keyboard is.
  [[nodiscard]] grid::Standing StandingNow();
  [[nodiscard]] bool IsOfGrid(HWND window) const;
  /// Another number once other rows may stand in the places of rows.
  [[nodiscard]] std::uint64_t Arrangement() const noexcept { return news_.Arrangement(); }
  [[nodiscard]] HWND ListWindow() const noexcept { return list_.m_hWnd; }
  struct SpokenPlace {
    RECT onScreen = {};
    bool inSight = false;
  };
  /// `col` below 0: the row.
  [[nodiscard]] SpokenPlace PlaceToSpeakOf(int row, int col) const;
  [[nodiscard]] grid::CellPosition CellToSpeakOfAt(POINT onScreen) const;

  // ---- drawing

  /// A row of the list view; below 0 all of them.
  void OnDrawItem(int row);
  void DrawItem();

 private:
  struct Column {
    BoundedText<256> title;
    int kind = 0;
    UINT drawFlags = 0;
    grid::BoxModes modes = grid::kModesAtFirst;
    int boxLimit = 0;  ///< bytes
    grid::LetterCase letterCase = grid::LetterCase::AsTyped;
    std::shared_ptr<CvEdit> edit;
    std::shared_ptr<CvComboBox> ownCombo;
    HWND combo = nullptr;              ///< that one's window, or a control of the dialog
    std::vector<std::string> entries;  ///< of that one, as they were given
    int comboDialogId = 0;
    int comboLastColumn = grid::kNoColumn;
    BoundedText<127> editPrompt;
    BoundedText<127> comboPrompt;
    std::shared_ptr<NamedControl> editName;
    std::shared_ptr<NamedControl> comboName;
  };

  /// What has changed its place since the last layout.
  struct Moved {
    bool rows = false;
    bool sideways = false;
  };

  /// What cells are painted on: the list view's client area without its editors, with a copy of the dialog's font.
  class Surface {
   public:
    explicit Surface(const CvGrid& grid);

    /// Null without high contrast.
    [[nodiscard]] const grid::SystemColours* SystemColours() const noexcept { return system_ ? &*system_ : nullptr; }

    /// Null when the list view is gone.
    [[nodiscard]] HDC Dc() const noexcept { return dc_.Get(); }
    /// What texts are written in and on. Most cells have the colours of the one before.
    void SetColours(grid::Colour ink, grid::Colour paper) noexcept;

   private:
    ClientDc dc_;
    UniqueFont font_;
    Selected selected_;
    std::optional<grid::SystemColours> system_;
    grid::Colour ink_ = grid::kBlack;
    grid::Colour paper_ = grid::kWhite;
  };

  /// While the list view paints itself, which asks for one row after the other: what has been found out and made for
  /// the first of them.
  struct Painting {
    explicit Painting(bool under) noexcept : underEditor(under) {}

    bool laidOut = false;
    bool underEditor;  ///< the list view paints where an editor stands
    std::optional<Surface> surface;
  };

  [[nodiscard]] bool HasColumn(int col) const noexcept { return model_.HasColumn(col); }
  [[nodiscard]] const Column& At(int col) const { return columns_[static_cast<std::size_t>(col)]; }
  [[nodiscard]] Column& At(int col) { return columns_[static_cast<std::size_t>(col)]; }
  [[nodiscard]] std::span<grid::ColumnEdges> Edges() {
    return std::span(edges_).first(static_cast<std::size_t>(model_.ColumnCount()));
  }
  [[nodiscard]] const grid::ColumnEdges& EdgesOf(int col) const { return edges_[static_cast<std::size_t>(col)]; }
  /// Null without one.
  [[nodiscard]] CWnd* Parent() const { return ::IsWindow(parent_) != FALSE ? CWnd::FromHandle(parent_) : nullptr; }

  // ---- start and end

  /// No row, no column, no editor, no parent window; what the caller has set beside that stays. It may run code of the
  /// dialog; false when that has destroyed the list.
  bool End();
  /// Puts a list into the place of none. Throws std::bad_alloc half-way.
  void Begin(CWnd* dialog, int id, int columnCount, int items, int maxItems, int numberColumn);
  void TakeListView(CWnd* dialog, int id);
  void FillListView();
  [[nodiscard]] bool InsertRows() const;
  [[nodiscard]] bool InsertCell(int row, int col) const;
  void EmptyListView() const;
  void GiveAllBack();

  // ---- columns

  void InsertListColumn(int col, int format, int width) const;
  void AddCombo(Column& column, int dialogComboId);
  void RetireEditors(Column& column);
  void GiveListBack(Column& column) noexcept;
  void NameList(int col);
  void ReleaseHostWithoutEditors();

  // ---- for those who do not see it

  [[nodiscard]] std::string BoxName(int col) const;
  [[nodiscard]] std::string ListName(int col) const;
  /// Those that are selected.
  [[nodiscard]] std::vector<int> RowsToSpeakOf() const noexcept;
  void TellOfDeletion(std::span<const int> rows) noexcept;
  void TellCell(DWORD event, grid::CellPosition cell) const noexcept;
  /// What is noted from now on is told when the list view gets to the message that this posts. Whether anybody hears.
  bool BeginNews() noexcept;
  void PostNews() noexcept;
  /// What comes to the list view: a tool's question, or what may change what it is told of.
  [[nodiscard]] Handled OnMessageToSpeakOf(const Message& message);
  void OnNews() noexcept;
  void TellNews(const std::vector<grid::News>& news) const noexcept;
  /// The one that the keys have come to in the open list.
  void TellEntry() const noexcept;
  /// What is to be told of cells, before rows come or go.
  void TellCellsBeforeRows() noexcept;
  void TellEditedCell(grid::CellPosition cell) noexcept;

  // ---- rows and messages

  void ShowRows();
  void Warn(const char* text) const;
  [[nodiscard]] CvGrid& Outermost() noexcept;
  /// Whether messages can be shown: not in a dialog that is gone.
  [[nodiscard]] bool HasZone() const noexcept;

  // ---- editing

  void ForgetEdit();
  void ForgetCombo();
  void HideEditors();
  void AdoptListSelection();
  void FinishClick();
  void SelectCell(bool moved);
  void ScrollTo(int row);
  void EditCell(grid::CellPosition cell, bool moved, bool wasEdited);
  /// Whether a cell may get its editors; `edit` was its box when that was decided.
  [[nodiscard]] bool MayEdit(grid::CellPosition cell, const std::shared_ptr<CvEdit>& edit) const;
  void PlaceEdit(CvEdit& edit, grid::CellPosition cell);
  void ShowCombo(grid::CellPosition cell);
  bool ClosesOnEsc(HWND focus);
  void FocusList() const;
  void FocusListForHiddenEditor();
  void ShowEditPrompt();
  /// A box over the cell shows the cell's text anew.
  void ShowInBox(grid::CellPosition cell) noexcept;
  /// Nothing when no entry is selected.
  [[nodiscard]] std::optional<std::string> PickedEntry(const CvComboBox& combo) const;
  /// With the bytes that it was given with, unless somebody has put another text in its place.
  [[nodiscard]] static std::string EntryText(const Column& column, HWND combo, int index);

  /// A cell is edited from now on, until LeaveVisit: what is done to it meanwhile is one step.
  void EnterVisit(grid::CellPosition cell);
  void LeaveVisit();

  // ---- copying, pasting, undo

  /// Tells the dialog what the user has changed. It may do anything then. What it throws is lost: the change is there.
  void Tell(const grid::GridChange& change) const noexcept;
  /// The same of what has been typed and picked in the visited cell.
  void TellVisit();
  /// Shows what a step has changed, as far as there is memory for it, and tells of it.
  void Show(const std::optional<grid::GridChange>& change);
  /// Puts a block on the clipboard. The number of its cells, 0 after a message; it goes on without memory.
  template <class FindBlock>
  int Copy(const FindBlock& findBlock);
  bool CopySelectedRows();
  int ClearBlock(const grid::CellBlock& block);
  int PasteText(const grid::ClipboardText& text, grid::CellPosition at);
  [[nodiscard]] std::optional<grid::ClipboardText> ReadClipboard();
  [[nodiscard]] grid::EditableCells Cells();
  [[nodiscard]] std::vector<grid::PasteColumn> PasteColumns() const;
  [[nodiscard]] HWND ClipboardOwner() const noexcept { return list_.IsWindow() ? list_.m_hWnd : parent_; }

  // ---- keys

  [[nodiscard]] Handled OnListViewMessage(const Message& message);
  [[nodiscard]] Handled ForwardComposition(const Message& message);
  [[nodiscard]] Handled BeginComposition(const Message& message);
  [[nodiscard]] bool IsComposing() const noexcept;
  [[nodiscard]] Handled OnKeyDown(const Message& message);
  void OnKeyUp(const Message& message);
  [[nodiscard]] Handled OnCharacter(const Message& message);
  LRESULT SendToBox(const Message& message) const;
  /// The box of a cell that is not edited any more, or cannot be by now, keeps its keys for itself.
  [[nodiscard]] bool HasStrayBox(HWND window);
  [[nodiscard]] grid::KeyState StateOfKeys();
  [[nodiscard]] grid::KeyCommand PlanKey(unsigned int code);
  [[nodiscard]] bool IsListOpen() const;
  /// Carries a command out. Nothing when the message is for the window after all.
  [[nodiscard]] Handled Run(const grid::KeyCommand& command, const Message& message);
  [[nodiscard]] Handled RunInCell(const grid::KeyCommand& command, const Message& message);
  [[nodiscard]] Handled RunOnBlock(const grid::KeyCommand& command);
  void EditByKey(grid::CellPosition cell);
  void SelectInListView(int row) const;
  void BringIntoView(grid::CellPosition cell);
  void TypeInto(grid::CellPosition cell, const Message& message);
  void LeaveGrid(grid::KeyAction direction);
  void GiveBack();
  void MoveInList(const Message& message);
  void PickFromList();
  void PassToListView(const Message& message);
  void StayInUsedRows() const;
  [[nodiscard]] Handled PasteOrLeaveToBox(grid::CellPosition cell);
  /// Null when the focus is elsewhere.
  [[nodiscard]] HWND OwnFocus() const;
  /// The cell that what is typed goes to; its row is kNoRow when there is none.
  [[nodiscard]] grid::CellPosition TypedCell() const noexcept;
  void SettleInputMethod() noexcept;

  // ---- drawing

  void RefreshPage();
  [[nodiscard]] bool HaveRowsMoved() const;
  [[nodiscard]] bool HaveColumnsMoved() const;
  void RecordColumns(const grid::ViewPosition& position);
  void RecordColumnsOnce();
  [[nodiscard]] Moved LayOut();
  void PaintRows(int first, int end);
  void PaintRow(Surface& surface, int row) const;
  [[nodiscard]] bool HasDropButton(grid::CellPosition cell) const;
  /// Where a cell's editors stand, in parts; asks the list view.
  [[nodiscard]] grid::CellPlace PlaceOf(grid::CellPosition cell) const;
  [[nodiscard]] grid::ViewPosition AskPosition() const;
  void FindListView();
  void RememberPlace();
  /// Takes the scale that its window has now. Answers whether it is another one.
  bool FollowScale();
  void FollowScaleWithEditors();
  /// The list view's ground, unless the dialog has given it one of its own, is the user's colour of windows.
  void FollowGround() noexcept;
  /// What was known of the rows and editors holds no more.
  void ForgetPainting() {
    if (painting_) BeginPainting(painting_->underEditor);
  }
  void BeginPainting(bool underEditor) noexcept { painting_.emplace(underEditor); }
  void OnPaint(bool begins) noexcept;
  [[nodiscard]] HWND UppermostEditor() const noexcept;
  [[nodiscard]] bool PaintsUnderEditor() const noexcept;
  void EraseCopyOfEdit(std::span<const grid::ColumnEdges> before) const;

  CvUtility& owner_;
  CvGrid* parentGrid_ = nullptr;
  grid::GridModel model_;
  grid::GridNews news_{&model_, [this] { return BeginNews(); }};
  grid::GridEditing editing_{&model_};
  std::vector<Column> columns_;
  std::array<grid::ColumnEditors, grid::kMaxColumns> editors_ = {};  ///< as Cells found them last
  std::vector<std::shared_ptr<CWnd>> retired_;                       ///< editors of columns that were set anew
  HWND parent_ = nullptr;
  ListCtrlRef list_;
  int listId_ = 0;
  grid::ListPlace place_;
  scale::Scale scale_;
  std::array<scale::KeptLength, grid::kMaxColumns> keptWidths_;  ///< of the columns
  COLORREF windowColour_ = 0;                                    ///< the user's when the list view was asked last
  int comboSeparator_ = ' ';
  bool destroying_ = false;

  // --- editing
  grid::EditCourse course_;
  std::shared_ptr<CvEdit> currentEdit_;  ///< of a column
  grid::CellPosition visited_;           ///< see EnterVisit
  /// Whose box is being shown. That takes the focus from another window, which may repaint the grid before it goes on;
  /// a list that was dropped down there would be covered by the window that gets the focus, where there is no window
  /// manager.
  grid::CellPosition placing_;
  Changed changed_ = nullptr;
  void* changedContext_ = nullptr;
  HWND openCombo_ = nullptr;
  CvEscHook escHook_;    ///< works while a list is open
  CvDropDown openList_;  ///< likewise

  // --- keys
  int keys_ = 0;                        ///< grid::kKeysMove and its like
  int lastColumn_ = grid::kNoColumn;    ///< edited last
  grid::Key taken_ = grid::Key::Other;  ///< the key that went down last, when it was taken
  bool walksRows_ = false;              ///< the list view's own keys were the last that moved anything
  bool passes_ = false;                 ///< what comes is for the list view, although it is a key of the grid
  bool composes_ = false;               ///< an input method does, for the list view or the open list
  CvInputMethod inputMethod_;

  // --- as of the last layout
  grid::Page page_;
  grid::ViewPosition position_;
  std::array<grid::ColumnEdges, grid::kMaxColumns> edges_ = {};
  bool columnsRecorded_ = false;

  std::optional<Painting> painting_;
  PaintWatch paintWatch_{[this](bool begins) { OnPaint(begins); }};
  MessageWatch listWatch_{[this](const Message& message) { return OnListViewMessage(message); }};

  HostReflector reflector_;

  bool newsWait_ = false;  ///< for a button of the mouse to be let go
  CvGridTree tree_{*this};
  AccessibleWindow accessible_;
};
