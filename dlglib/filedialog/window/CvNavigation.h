// CvNavigation: the areas of the browser that answer the pointer by themselves, the four image buttons and the label of
// the file name box, with their balloons. They are no controls: the dialog hands its messages on.
//
// A pressed area stays pressed while its action runs: as long as its dialog, its menu or the count box is open.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "dlglib/base/scale.h"
#include "dlglib/filedialog/basics/hot_areas.h"
#include "dlglib/filedialog/browser/browser_view.h"
#include "dlglib/filedialog/window/CvBrowserImages.h"
#include "dlglib/utility/toolbar/CvToolTip.h"
#include "platform/framework/message.h"

class CvNavigation {
 public:
  /// What the areas ask of the dialog.
  struct Actions {
    std::function<bool()> mayPress;                    ///< before a press does its work; false: it does none
    std::function<void(filedialog::HotArea)> start;    ///< begins the action of an area
    std::function<void(filedialog::HotArea)> changed;  ///< an area has another state
  };

  /// Loads the images. Throws CResourceException when one is missing. `dialog` must outlive this. `folderFixed`: the
  /// ways to other places cannot be pressed.
  CvNavigation(CWnd& dialog, bool folderFixed, Actions actions);

  /// Puts the areas where the dialog's template has its buttons, which make way.
  void Start();
  /// Images and distances become those of a scale. 96 dpi at first.
  void SetScale(scale::Scale scale);
  /// Makes the controls that the areas stand for as large as their images, in a row that ends where it ended.
  void PlaceButtons() const;
  /// The user has chosen other colours.
  void FollowColours() { images_ = filedialog::BrowserImages::ForOr(scale_, images_); }
  /// Takes the areas to where their controls stand now.
  void Place();
  /// Opens and closes the ways.
  void ShowWays(const filedialog::Ways& ways);

  /// The pointer's and the paint messages of the dialog; nullopt for any other.
  [[nodiscard]] Handled RouteMessage(const Message& message);

  /// Does what a press of an area does; false when the press does nothing.
  bool Press(filedialog::HotArea area);
  [[nodiscard]] const filedialog::HotAreas& Areas() const { return areas_; }
  /// The area that stands in the place of a control; none for any other control.
  [[nodiscard]] static std::optional<filedialog::HotArea> AreaOf(int controlId);

  /// Runs the action of an area.
  void Run(filedialog::HotArea area);
  /// Runs a menu below the area of the views; `run` is given its corner on the screen.
  void RunViewMenu(const std::function<void(POINT)>& run);
  /// An action that went on after it had begun is over.
  void Finish();

 private:
  static constexpr std::size_t kButtons = 4;

  void OnPaint();
  void OnMouseMove(const Message& message);
  void OnMouseLeave();
  void OnButtonDown(const Message& message);
  void OnButtonUp(const Message& message);
  void OnRightButtonDown();
  void OnCaptureLost();

  [[nodiscard]] CvToolTip* Tips();
  void MoveOver(POINT at);
  [[nodiscard]] filedialog::Size ImageSize(filedialog::HotArea area) const;
  void WatchPointer() const;
  void LetGo();
  void EndAction() noexcept;
  void Release();
  void Show();
  void ShowLabel(filedialog::AreaState before) const;
  void DrawButton(HDC dc, HDC source, filedialog::HotArea area) const;
  void DrawFrame(HDC dc, filedialog::AreaState state) const;

  CWnd& dialog_;
  bool folderFixed_;
  Actions actions_;
  std::unique_ptr<CvToolTip> tips_;  ///< null until the pointer comes to an area
  filedialog::HotAreas areas_;
  filedialog::HotAreas::States shown_{};
  scale::Scale scale_;
  std::shared_ptr<filedialog::BrowserImages> images_;
  bool menuOpen_ = false;
  bool buttonDown_ = false;
  bool actionRuns_ = false;  ///< an area's action is under way, so the area stays pressed
};
