#include "dlglib/listcontrol/CvComboBox.h"

#include "dlglib/listcontrol/CvListControl.h"
#include "platform/framework/message_map.h"

CvComboBox::CvComboBox(CvListControl* list) noexcept : list_(list) {}

Handled CvComboBox::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvComboBox> kRows[] = {
      OnReflectedCommand(CBN_SELCHANGE, &CvComboBox::OnSelectionChange),
      OnReflectedCommand(CBN_CLOSEUP, &CvComboBox::OnCloseUp),
  };
  return Route<CComboBox>(*this, kRows, message);
}

void CvComboBox::OnSelectionChange() { list_->PickEntry(*this); }

void CvComboBox::OnCloseUp() { list_->CloseComboBox(); }
