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

#include "dlglib/base/bounded_text.h"
#include "dlglib/listcontrol/CvComboBox.h"
#include "dlglib/listcontrol/CvEdit.h"
#include "dlglib/listcontrol/CvEscHook.h"
#include "dlglib/listcontrol/edit_course.h"
#include "dlglib/listcontrol/grid_model.h"
#include "dlglib/listcontrol/grid_places.h"
#include "dlglib/utility/CvUtility.h"
#include "platform/framework/detail/paint_watch.h"
#include "platform/framework/gdi.h"
#include "platform/framework/reflection.h"

class CvGrid {
 public:
  /// `owner` owns this.
  explicit CvGrid(CvUtility& owner) noexcept : owner_(owner) {}
  CvGrid(const CvGrid&) = delete;
  CvGrid& operator=(const CvGrid&) = delete;

  /// What lies in the cells. Who changes a text through it tells TextGiven.
  [[nodiscard]] grid::GridModel& Model() noexcept { return model_; }
  /// Null for none; borrowed.
  void SetParentGrid(CvGrid* parent) noexcept { parentGrid_ = parent; }

  // ---- start and end

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

  // ---- for the editors

  /// Stores in a cell what its box shows, unless no cell is edited. What the text shares with the one that it was made
  /// from, which is the cell's own at first, keeps its bytes.
  void Commit(grid::CellPosition cell, std::wstring_view shown);
  void Commit(grid::CellPosition cell, std::wstring_view shown, std::string_view madeFrom);
  void PickEntry(const CvComboBox& combo);

  // ---- drawing

  /// A row of the list view; below 0 all of them.
  void OnDrawItem(int row);
  void DrawItem();

 private:
  struct Column {
    int kind = 0;
    UINT drawFlags = 0;
    int editMode = 1;
    int spaceMode = 0;
    std::shared_ptr<CvEdit> edit;
    std::shared_ptr<CvComboBox> ownCombo;
    HWND combo = nullptr;              ///< that one's window, or a control of the dialog
    std::vector<std::string> entries;  ///< of that one, as they were given
    int comboDialogId = 0;
    int comboLastColumn = grid::kNoColumn;
    BoundedText<127> editPrompt;
    BoundedText<127> comboPrompt;
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

    /// Null when the list view is gone.
    [[nodiscard]] HDC Dc() const noexcept { return dc_.Get(); }
    /// What texts are written in and on. Most cells have the colours of the one before.
    void SetColours(grid::Colour ink, grid::Colour paper) noexcept;

   private:
    ClientDc dc_;
    UniqueFont font_;
    Selected selected_;
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
  void GiveBack();

  // ---- columns

  void InsertListColumn(int col, const char* title, int format, int width) const;
  void AddCombo(Column& column, int dialogComboId);
  void RetireEditors(Column& column);
  void ReleaseHostWithoutEditors();

  // ---- rows and messages

  void Refresh();
  void Warn(const char* text) const;
  [[nodiscard]] CvGrid& Outermost() noexcept;
  /// Whether messages can be shown: not in a dialog that is gone.
  [[nodiscard]] bool HasZone() const noexcept;

  // ---- editing

  void ForgetEdit();
  void ForgetCombo();
  void HideEditors();
  void TakeListSelection();
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
  /// Nothing when no entry is selected.
  [[nodiscard]] std::optional<std::string> PickedEntry(const CvComboBox& combo) const;

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
  std::vector<Column> columns_;
  std::vector<std::shared_ptr<CWnd>> retired_;  ///< editors of columns that were set anew
  HWND parent_ = nullptr;
  ListCtrlRef list_;
  int listId_ = 0;
  grid::ListPlace place_;
  int comboSeparator_ = ' ';
  bool destroying_ = false;

  // --- editing
  grid::EditCourse course_;
  std::shared_ptr<CvEdit> currentEdit_;  ///< of a column
  HWND openCombo_ = nullptr;
  CvEscHook escHook_;  ///< works while a list is open

  // --- as of the last layout
  grid::Page page_;
  grid::ViewPosition position_;
  std::array<grid::ColumnEdges, grid::kMaxColumns> edges_ = {};
  bool columnsRecorded_ = false;

  std::optional<Painting> painting_;
  PaintWatch paintWatch_{[this](bool begins) { OnPaint(begins); }};

  HostReflector reflector_;
};
