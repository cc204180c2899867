#include "dlglib/listcontrol/CvComboBox.h"

#include "dlglib/listcontrol/CvGrid.h"
#include "platform/framework/message_map.h"

CvComboBox::CvComboBox(CvGrid* grid) noexcept : grid_(grid) {}

Handled CvComboBox::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvComboBox> kRows[] = {
      OnMessage(WM_GETDLGCODE, &CvComboBox::OnDialogCode),
      OnMessage(WM_KEYDOWN, &CvComboBox::OnInput),
      OnMessage(WM_SYSKEYDOWN, &CvComboBox::OnInput),
      OnMessage(WM_KEYUP, &CvComboBox::OnInput),
      OnMessage(WM_SYSKEYUP, &CvComboBox::OnInput),
      OnMessage(WM_CHAR, &CvComboBox::OnInput),
      OnMessage(WM_IME_STARTCOMPOSITION, &CvComboBox::OnComposition),
      OnMessage(WM_IME_ENDCOMPOSITION, &CvComboBox::OnComposition),
      OnReflectedCommand(CBN_KILLFOCUS, &CvComboBox::OnFocusChange),
      OnReflectedCommand(CBN_SELCHANGE, &CvComboBox::OnSelectionChange),
      OnReflectedCommand(CBN_CLOSEUP, &CvComboBox::OnCloseUp),
  };
  const auto shared = weak_from_this().lock();
  return Route<CComboBox>(*this, kRows, message);
}

/// Keys of the grid are none of its list, nor of the dialog.
Handled CvComboBox::OnInput(const Message& message) {
  return grid_ != nullptr ? grid_->OnInput(message) : std::nullopt;
}

Handled CvComboBox::OnComposition(const Message& message) {
  if (grid_ != nullptr) grid_->NoteComposition(message.id);
  return std::nullopt;
}

Handled CvComboBox::OnDialogCode(const Message& message) {
  if (grid_ == nullptr || !grid_->WantsKey(message)) return std::nullopt;
  return CallDefault(message) | DLGC_WANTMESSAGE;
}

void CvComboBox::OnFocusChange() {
  if (grid_ != nullptr) grid_->OnFocusChange();
}

void CvComboBox::OnSelectionChange() {
  if (grid_ != nullptr) grid_->PickEntry(*this);
}

void CvComboBox::OnCloseUp() {
  if (grid_ != nullptr) grid_->CloseComboBox();
}
