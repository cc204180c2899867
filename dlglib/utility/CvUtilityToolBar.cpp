// The toolbar.
#include "dlglib/base/edge.h"
#include "dlglib/utility/CvUtility.h"
#include "dlglib/utility/CvUtilityState.h"

namespace {

[[nodiscard]] int HeightOf(const CWnd& window) {
  RECT place = {};
  window.GetWindowRect(&place);
  return place.bottom - place.top;
}

[[nodiscard]] bool IsOn(const CWnd& child, const CWnd& parent) {
  return child.m_hWnd != nullptr && parent.Is(::GetParent(child.m_hWnd));
}

}  // namespace

void CvUtility::SetToolBar(int buttonMask, const CDWordArray* controlIds) noexcept {
  edge::Guarded([&] {
    if (state_->parent != nullptr && state_->parent->IsWindow()) PutToolBar(buttonMask, controlIds);
  });
}

void CvUtility::PutToolBar(int buttonMask, const CDWordArray* controlIds) {
  CvToolBar& toolBar = state_->toolBar;
  const bool hasRoom = state_->madeRoomForToolBar && IsOn(toolBar, *state_->parent);
  toolBar.DestroyWindow();
  state_->madeRoomForToolBar = false;
  if (!toolBar.CreateOn(state_->parent, buttonMask)) return;
  state_->madeRoomForToolBar = hasRoom;
  if (controlIds == nullptr || hasRoom) return;
  const int height = HeightOf(toolBar);
  ResizeWindow(0, height);
  for (int i = 0; i < controlIds->GetSize(); ++i) {
    MoveControl(WindowRef(::GetDlgItem(state_->parent->m_hWnd, static_cast<int>(controlIds->GetAt(i)))), 0, height);
  }
  state_->madeRoomForToolBar = true;
}

void CvUtility::SetToolBar(int buttonMask) noexcept { SetToolBar(buttonMask, nullptr); }

void CvUtility::SetTlbFileName(const char* name) noexcept {
  edge::Guarded([&] { state_->toolBar.SetTlbFileName(name); });
}
