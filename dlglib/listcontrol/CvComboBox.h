// CvComboBox: the list that drops down from a cell of a grid.
#pragma once

#include <memory>

#include "platform/framework/controls.h"

class CvListControl;

/// Shared with whoever works with it, as the dialog may take it away at each of its notifications.
class CvComboBox : public CComboBox, public std::enable_shared_from_this<CvComboBox> {
 public:
  /// `list` owns the combo box.
  explicit CvComboBox(CvListControl* list) noexcept;

  /// Belongs to no list any more.
  void Part() noexcept { list_ = nullptr; }

  Handled RouteMessage(const Message& message) override;

 private:
  void OnSelectionChange();
  void OnCloseUp();

  CvListControl* list_;  ///< null once it has parted from this one
};
