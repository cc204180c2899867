#include "dlglib/listcontrol/CvComboBox.h"

#include "dlglib/listcontrol/CvListControl.h"
#include "platform/framework/message_map.h"

CvComboBox::CvComboBox(CvListControl* list) noexcept : list_(list) {}

Handled CvComboBox::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvComboBox> kRows[] = {
      OnReflectedCommand(CBN_SELCHANGE, &CvComboBox::OnSelectionChange),
      OnReflectedCommand(CBN_CLOSEUP, &CvComboBox::OnCloseUp),
  };
  const auto shared = weak_from_this().lock();
  return Route<CComboBox>(*this, kRows, message);
}

void CvComboBox::OnSelectionChange() {
  if (list_ != nullptr) list_->PickEntry(*this);
}

void CvComboBox::OnCloseUp() {
  if (list_ != nullptr) list_->CloseComboBox();
}
