#include "dlglib/filedialog/window_layout.h"

#include <algorithm>
#include <array>
#include <limits>

#include "dlglib/resources/resource.h"

namespace filedialog {
namespace {

struct ControlAnchor {
  int id;
  Anchor anchor;
};

constexpr int kOk = 1;  // numbers of the platform
constexpr int kCancel = 2;

constexpr std::array<ControlAnchor, 14> kAnchors{{
    {IDC_LOCATION_LABEL, Anchor::TopLeft},
    {IDC_LOCATION, Anchor::TopWide},
    {IDC_BACK, Anchor::TopRight},
    {IDC_UP, Anchor::TopRight},
    {IDC_CREATE_FOLDER, Anchor::TopRight},
    {IDC_VIEW, Anchor::TopRight},
    {IDC_FILE_LIST, Anchor::All},
    {IDC_NAME_LABEL, Anchor::BottomLeft},
    {IDC_RECENT_COUNT, Anchor::BottomLeft},
    {IDC_FILE_NAME, Anchor::BottomWide},
    {IDC_KIND_LABEL, Anchor::BottomLeft},
    {IDC_FILE_KIND, Anchor::BottomWide},
    {kOk, Anchor::BottomRight},
    {kCancel, Anchor::BottomRight},
}};

/// A coordinate from which `length` more can be counted.
int Countable(int from, int length) { return std::min(from, std::numeric_limits<int>::max() - length); }

}  // namespace

std::optional<Anchor> AnchorOf(int controlId) {
  const auto isControl = [controlId](const ControlAnchor& control) { return control.id == controlId; };
  const auto* const found = std::find_if(kAnchors.begin(), kAnchors.end(), isControl);
  return found == kAnchors.end() ? std::nullopt : std::optional(found->anchor);
}

Rect Anchored(const Rect& start, Anchor anchor, Size growth) {
  const bool movesX = anchor == Anchor::TopRight || anchor == Anchor::BottomRight;
  const bool growsX = anchor == Anchor::TopWide || anchor == Anchor::BottomWide || anchor == Anchor::All;
  const bool movesY = anchor == Anchor::BottomLeft || anchor == Anchor::BottomRight || anchor == Anchor::BottomWide;
  const bool growsY = anchor == Anchor::All;
  Rect rect = start;
  if (movesX) rect.left += growth.width;
  if (movesX || growsX) rect.right += growth.width;
  if (movesY) rect.top += growth.height;
  if (movesY || growsY) rect.bottom += growth.height;
  rect.right = std::max(rect.left, rect.right);
  rect.bottom = std::max(rect.top, rect.bottom);
  return rect;
}

std::vector<Rect> RowEndingAt(int right, int top, const std::vector<Size>& images, int gap) {
  std::vector<Rect> row(images.size());
  for (std::size_t i = images.size(); i-- > 0;) {
    row[i] = {right - images[i].width, top, right, top + images[i].height};
    right = row[i].left - gap;
  }
  return row;
}

Rect PlaceWindow(Size current, Point savedPosition, Size savedSize, Size screen) {
  const int width = std::min(std::max(current.width, savedSize.width), screen.width);
  const int height = std::min(std::max(current.height, savedSize.height), screen.height);
  Point at = savedPosition;
  if (at == Point{}) at = {(screen.width - width) / 2, (screen.height - height) / 2};
  at = {Countable(at.x, width), Countable(at.y, height)};
  return {at.x, at.y, at.x + width, at.y + height};
}

}  // namespace filedialog
