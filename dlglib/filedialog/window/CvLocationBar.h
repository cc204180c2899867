// CvLocationBar: the owner-drawn list of places at the top of the browser.
//
// It shows the places of a location tree, indented by level. Closed, its face shows the current place whatever its
// selection is, so nothing is selected in it but while it has the focus or its list is open.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dlglib/base/scale.h"
#include "dlglib/filedialog/place/location_tree.h"
#include "dlglib/filedialog/window/CvBrowserImages.h"
#include "dlglib/filedialog/window/CvPlacesTree.h"
#include "platform/framework/controls.h"
#include "platform/framework/detail/accessible.h"
#include "platform/framework/message_map.h"

class CvLocationBar : public CComboBox {
 public:
  /// Shows `places`, which must outlive this object. Throws CResourceException when an image is missing.
  explicit CvLocationBar(const filedialog::LocationTree& places)
      : places_(places),
        images_(filedialog::BrowserImages::For(scale_)),
        tree_(*this, places, [this](std::size_t row) { GoTo(row); }) {}

  /// Makes this the object of the dialog's combo box. `chosen` is called with the row that the user has chosen, or
  /// without one when the list was closed with no choice. Throws CResourceException when the dialog has no such control
  /// or there is no memory to become its object.
  void TakeControl(CWnd* dialog, std::function<void(std::optional<std::size_t>)> chosen);

  /// Icons and distances become those of a scale. 96 dpi at first.
  void SetScale(scale::Scale scale);
  /// The user has chosen other colours.
  void FollowColours() { images_ = filedialog::BrowserImages::ForOr(scale_, images_); }

  /// Fills the list anew from the places.
  void ShowPlaces();
  /// Texts and images of the rows have changed; the rows are the same.
  void ShowNames();

  /// Opens the list, which must have the focus.
  void DropDown() { ShowDropDown(); }

  Handled RouteMessage(const Message& message) override;

 private:
  /// The place that whoever does not see the bar has been told of last.
  struct Told {
    std::string path;
    std::string text;
    friend bool operator==(const Told&, const Told&) = default;
  };

  void OnFocus();
  void OnFocusLost();
  void OnDropDown();
  void OnCancelled();
  void OnSelection();
  void OnCloseUp();
  void OnClosed();
  LRESULT OnDrawItem(const Message& message);

  void TellPlace();
  void Choose();
  void GoTo(std::size_t row);
  void Rename(std::size_t row, const std::string& name);
  void DrawPlace(const DRAWITEMSTRUCT& request, const filedialog::Place& place, bool face);

  const filedialog::LocationTree& places_;
  std::vector<std::string> names_;  ///< of the rows in the list
  scale::Scale scale_;
  std::shared_ptr<filedialog::BrowserImages> images_;
  std::function<void(std::optional<std::size_t>)> chosen_;
  CvPlacesTree tree_;
  AccessibleWindow accessible_;
  Told told_;
  bool pending_ = false;  ///< the selection was moved in the open list
};
