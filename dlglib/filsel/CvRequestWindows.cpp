#include "dlglib/filsel/CvRequestWindows.h"

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "platform/framework/message_box.h"
#include "platform/framework/resource_module.h"
#include "platform/framework/wnd.h"

int CvRequestWindows::RunBrowser(const filedialog::StartUp& startUp) {
  const ResourceModuleScope libraryResources(ThisModule());
  CvFileDialog browser(parent_, startUp);
  const auto answer = static_cast<int>(browser.DoModal());
  return answer < 0 ? filsel::kCancelled : answer;  // below 0: the window could not be made
}

void CvRequestWindows::ShowRefusal(const std::string& text) {
  const HWND owner = parent_ != nullptr ? parent_->GetSafeHwnd() : nullptr;
  framework::ShowMessageBox(owner, text.c_str(), caption_.c_str(), MB_OK | MB_ICONHAND);
}
