#include "dlglib/listcontrol/CvComboBox.h"

#include "dlglib/listcontrol/CvGrid.h"
#include "platform/framework/message_map.h"

CvComboBox::CvComboBox(CvGrid* grid) noexcept : grid_(grid) {}

Handled CvComboBox::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvComboBox> kRows[] = {
      OnReflectedCommand(CBN_SELCHANGE, &CvComboBox::OnSelectionChange),
      OnReflectedCommand(CBN_CLOSEUP, &CvComboBox::OnCloseUp),
  };
  const auto shared = weak_from_this().lock();
  return Route<CComboBox>(*this, kRows, message);
}

void CvComboBox::OnSelectionChange() {
  if (grid_ != nullptr) grid_->PickEntry(*this);
}

void CvComboBox::OnCloseUp() {
  if (grid_ != nullptr) grid_->CloseComboBox();
}
