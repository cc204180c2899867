// CvComboBox: the list that drops down from a cell of a grid.
#pragma once

#include "platform/framework/controls.h"

class CvListControl;

class CvComboBox : public CComboBox {
 public:
  /// `list` owns the combo box.
  explicit CvComboBox(CvListControl* list) noexcept;

  Handled RouteMessage(const Message& message) override;

 private:
  void OnSelectionChange();
  void OnCloseUp();

  CvListControl* list_;
};
