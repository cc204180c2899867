// CvBrowserFrame: where the browser's window and its controls stand.
//
// The template's size is the smallest one. When the dialog grows, the list takes the room; the location bar and the two
// boxes below the list become wider.
#pragma once

#include <array>
#include <vector>

#include "dlglib/base/CvDropDown.h"
#include "dlglib/base/kept_length.h"
#include "dlglib/base/scale.h"
#include "dlglib/filedialog/basics/window_layout.h"
#include "platform/framework/controls.h"
#include "platform/framework/wnd.h"

class CvBrowserFrame {
 public:
  /// `dialog` must outlive this.
  explicit CvBrowserFrame(CWnd& dialog) : dialog_(dialog) {}

  /// Takes the dialog as its template has made it, and gives `places` (the location bar) and the boxes equal heights.
  void Start(const ComboBoxRef& places, scale::Scale scale);
  /// The controls have taken another scale, and the window is about to. The image buttons stand in their row, as large
  /// as their images.
  void Rescale(const ComboBoxRef& places, scale::Scale before, scale::Scale now);
  /// That of the whole window, in the frame that the system gives it.
  [[nodiscard]] filedialog::Size Smallest() const;
  /// Moves the window to a place of the screen, or as near to it as shows its caption.
  void MoveTo(const filedialog::Rect& place, scale::Scale scale) const;
  /// Lets the controls follow the dialog's size.
  void Arrange() const;

 private:
  struct AnchoredControl {
    HWND window;
    filedialog::Rect start;
    filedialog::Anchor anchor;
    scale::KeptRect kept = {};  ///< start
  };

  void MatchHeights(const ComboBoxRef& places, scale::Scale scale) const;
  void RememberControls();
  void RememberButtons();
  void FollowLists();

  CWnd& dialog_;
  std::array<CvDropDown, 4> lists_;  ///< of the boxes
  std::vector<AnchoredControl> controls_;
  filedialog::Size startClient_;
  scale::KeptRect keptClient_;
};
