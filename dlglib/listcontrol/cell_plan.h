// What is painted in a cell, as values. Lengths are pixels in client coordinates of the list view, colours 0x00BBGGRR;
// right and bottom edges are excluded.
#pragma once

#include <array>
#include <optional>

#include "dlglib/base/geometry.h"
#include "dlglib/base/scale.h"
#include "dlglib/listcontrol/grid_model.h"
#include "dlglib/listcontrol/grid_places.h"

namespace grid {

inline constexpr Colour kGreyPaper = 0xC0C0C0;
inline constexpr Colour kSelectedPaper = 0xC00000;
inline constexpr Colour kSelectedInk = 0xFFFFFF;
inline constexpr Colour kErrorInk = 0x0000FF;
inline constexpr Colour kButtonFace = 0xFDD3C3;

inline constexpr int kTextColumn = 0;
inline constexpr int kColourColumn = 1;

/// The user's colours of high contrast, which stand for the library's own.
struct SystemColours {
  Colour text = kBlack;
  Colour window = kWhite;
  Colour greyText = kBlack;
  Colour selectedText = kSelectedInk;
  Colour selectedPaper = kSelectedPaper;
  Colour buttonText = kBlack;
  Colour buttonFace = kButtonFace;
};

/// What decides how a cell looks.
struct CellState {
  CellLooks looks;
  bool firstCellAvailable = false;  ///< of its row
  bool rowSelected = false;
  const SystemColours* system = nullptr;  ///< null without high contrast; borrowed
};

struct CellColours {
  Colour ink = kBlack;
  Colour paper = kWhite;

  friend bool operator==(const CellColours&, const CellColours&) = default;
};

/// A cell that is not available in a row whose first cell is not available either is grey; an available cell of a
/// selected row is white on dark blue; any other keeps its own colours. The text of a cell in error is red on all of
/// them.
///
/// With high contrast the colours of selection are the system's, and so are those of a cell whose own colours are black
/// on white, whoever has set them: window colours, with the system's grey for the text of one that is not available.
/// The text of a cell in error is as red as can be read on its ground. All other colours stay the caller's.
[[nodiscard]] CellColours ColoursOf(const CellState& state) noexcept;

using geometry::Point;

/// The button that tells that a cell has a list to drop down: a face, two lines along its lower right edges, and the
/// outline of an arrow. Lines are drawn from point to point; the last point of a line is left out, as the platform
/// does.
struct DropButton {
  Rect face;
  Colour faceColour = kButtonFace;
  Colour lineColour = kBlack;
  std::array<Point, 3> outerEdge;
  std::array<Point, 3> innerEdge;
  std::array<Point, 7> arrow;
  bool isFilled = false;  ///< the arrow; its lines meet where a pixel is one at 96 dpi
  bool isFramed = false;  ///< on all sides, where the face may have the colour of the paper
};

enum class CellContent { Nothing, Text, Swatch };

struct CellPlan {
  Rect cell;  ///< filled with the paper, and the text's place
  CellColours colours;
  CellContent content = CellContent::Nothing;
  Rect swatch;              ///< of a colour column
  Colour swatchColour = 0;  ///< the cell's own text colour in every state, as the swatch is what the cell says
  std::optional<Colour> swatchFrame;  ///< with high contrast, around the swatch
  int swatchFrameWidth = 1;
  std::optional<DropButton> button;
};

/// What a column adds to the plan of its cells.
struct CellFrame {
  Rect row;  ///< the item's bounds
  ColumnEdges column;
  int kind = kTextColumn;  ///< any value but the two above draws the paper only
  int buttonWidth = -1;    ///< of a drop button; below 0 for none
  scale::Scale scale = {};
};

[[nodiscard]] CellPlan PlanCell(const CellState& state, const CellFrame& frame) noexcept;

}  // namespace grid
