// CvComboBox: the list that drops down from a cell of a grid.
#pragma once

#include <memory>

#include "platform/framework/controls.h"

class CvGrid;

/// Shared with whoever works with it, as the dialog may take it away at each of its notifications.
class CvComboBox : public CComboBox, public std::enable_shared_from_this<CvComboBox> {
 public:
  /// `grid` owns the combo box.
  explicit CvComboBox(CvGrid* grid) noexcept;

  /// Belongs to no list any more.
  void Part() noexcept { grid_ = nullptr; }

  Handled RouteMessage(const Message& message) override;

 private:
  Handled OnInput(const Message& message);
  Handled OnComposition(const Message& message);
  Handled OnDialogCode(const Message& message);
  void OnFocusChange();
  void OnSelectionChange();
  void OnCloseUp();

  CvGrid* grid_;  ///< null once it has parted from this one
};
