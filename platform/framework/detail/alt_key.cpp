#include "platform/framework/detail/alt_key.h"

namespace framework {

void NoteKeyWithAlt(HWND window, UINT message, WPARAM key) noexcept {
  if (message != WM_SYSKEYDOWN || key == VK_MENU) return;
  ::DefWindowProcW(window, WM_SYSKEYDOWN, VK_SHIFT, MAKELPARAM(1, KF_ALTDOWN));
}

}  // namespace framework
