// What a CvListControl holds behind its one pointer. Only its own sources know it.
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
#include "dlglib/listcontrol/CvListControl.h"
#include "dlglib/listcontrol/grid_model.h"
#include "dlglib/listcontrol/grid_places.h"
#include "platform/framework/detail/paint_watch.h"
#include "platform/framework/gdi.h"
#include "platform/framework/reflection.h"

struct CvListControl::Column {
  int kind = 0;
  UINT drawFlags = 0;
  int editMode = 1;
  int spaceMode = 0;
  std::shared_ptr<CvEdit> edit;
  std::shared_ptr<CvComboBox> ownCombo;
  HWND combo = nullptr;              ///< that one's window, or a control of the dialog
  std::vector<std::string> entries;  ///< of that one, as they were given
  int comboDialogId = 0;
  int comboLastColumn = -1;
  BoundedText<127> editPrompt;
  BoundedText<127> comboPrompt;
};

/// What has changed its place since the last layout.
struct CvListControl::Moved {
  bool rows = false;
  bool sideways = false;
};

/// What cells are painted on: the list view's client area without its editors, with a copy of the dialog's font.
class CvListControl::Surface {
 public:
  explicit Surface(const State& state);

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

struct CvListControl::State {
  [[nodiscard]] bool HasColumn(int col) const noexcept { return model.HasColumn(col); }
  [[nodiscard]] const Column& At(int col) const { return columns[static_cast<std::size_t>(col)]; }
  [[nodiscard]] Column& At(int col) { return columns[static_cast<std::size_t>(col)]; }
  [[nodiscard]] std::span<grid::ColumnEdges> Edges() {
    return std::span(edges).first(static_cast<std::size_t>(model.ColumnCount()));
  }
  [[nodiscard]] const grid::ColumnEdges& EdgesOf(int col) const { return edges[static_cast<std::size_t>(col)]; }
  /// Null without one.
  [[nodiscard]] CWnd* Parent() const { return ::IsWindow(parent) != FALSE ? CWnd::FromHandle(parent) : nullptr; }

  /// Where a cell's editors stand, in parts; asks the list view.
  [[nodiscard]] grid::CellPlace PlaceOf(int row, int col) const;
  [[nodiscard]] grid::ViewPosition AskPosition() const;
  void FindListView();

  /// Stores in a cell what its box shows, unless no cell is edited. What the text shares with the one that it was made
  /// from, which is the cell's own at first, keeps its bytes.
  void Commit(GridCell cell, std::wstring_view shown);
  void Commit(GridCell cell, std::wstring_view shown, std::string_view madeFrom);

  /// Whether a cell may get its editors; `edit` was its box when that was decided.
  [[nodiscard]] bool MayEdit(int row, int col, const std::shared_ptr<CvEdit>& edit) const;
  /// Of the column that is edited.
  [[nodiscard]] BoundedText<127> EditPrompt() const;
  /// Nothing when no entry is selected.
  [[nodiscard]] std::optional<std::string> PickedEntry(const CvComboBox& combo) const;
  bool ClosesOnEsc(CvListControl& owner, HWND focus) const;

  /// Ends the list of `owner`, whose state this is: no row, no column, no editor, no parent window. What the caller has
  /// set beside that stays. It may run code of the dialog; false when that has destroyed the list.
  bool End(CvListControl& owner);
  /// Puts a list into the place of none. Throws std::bad_alloc half-way.
  void Begin(CvListControl& owner, CWnd* dialog, int id, int columnCount, int items, int maxItems, int numberColumn);
  void EmptyListView() const;
  void GiveBack();
  [[nodiscard]] bool InsertRows(CvListControl& owner) const;

  void PaintRow(Surface& surface, int row);
  [[nodiscard]] bool HasDropButton(int row, int col) const;

  grid::GridModel model;
  std::vector<Column> columns;
  std::vector<std::shared_ptr<CWnd>> retired;  ///< editors of columns that were set anew
  HWND parent = nullptr;
  ListCtrlRef list;
  int listId = 0;
  grid::ListPlace place;
  CvListControl* parentList = nullptr;  ///< borrowed
  int comboSeparator = ' ';
  bool destroying = false;

  // --- editing
  GridCell edited;                      ///< the row is -1 when no cell is edited
  GridCell previous;                    ///< the edited cell before the last click
  GridCell pending;                     ///< asked for by SelectItem(row, col); the row is -1 when none is
  std::shared_ptr<CvEdit> currentEdit;  ///< of a column
  HWND openCombo = nullptr;
  CvEscHook escHook;  ///< works while a list is open

  // --- as of the last layout
  grid::Page page;
  grid::ViewPosition position;
  std::array<grid::ColumnEdges, grid::kMaxColumns> edges = {};
  bool columnsRecorded = false;

  /// While the list view paints itself, which asks for one row after the other: what has been found out and made for
  /// the first of them.
  struct Painting {
    explicit Painting(bool under) noexcept : underEditor(under) {}

    bool laidOut = false;
    bool underEditor;  ///< the list view paints where an editor stands
    std::optional<Surface> surface;
  };
  std::optional<Painting> painting;
  /// What was known of the rows and editors holds no more.
  void ForgetPainting() {
    if (painting) BeginPainting(painting->underEditor);
  }
  void BeginPainting(bool underEditor) noexcept { painting.emplace(underEditor); }
  void OnPaint(bool begins) noexcept;
  [[nodiscard]] HWND UppermostEditor() const noexcept;
  [[nodiscard]] bool PaintsUnderEditor() const noexcept;
  void EraseCopyOfEdit(std::span<const grid::ColumnEdges> before) const;
  PaintWatch paintWatch{[this](bool begins) { OnPaint(begins); }};

  HostReflector reflector;
};
