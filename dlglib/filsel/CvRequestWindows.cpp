#include "dlglib/filsel/CvRequestWindows.h"

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "platform/framework/message_box.h"
#include "platform/framework/resource_module.h"
#include "platform/framework/wnd.h"

int filsel::RunBrowserOver(CWnd* parent, const filedialog::StartUp& startUp) {
  const ResourceModuleScope libraryResources(ThisModule());
  CvFileDialog browser(parent, startUp);
  const auto answer = static_cast<int>(browser.DoModal());
  return answer < 0 ? kNoBrowser : answer;
}

int CvRequestWindows::RunBrowser(const filedialog::StartUp& startUp) {
  return filsel::RunBrowserOver(parent_, startUp);
}

void CvRequestWindows::ShowRefusal(const SjisText& text) {
  const HWND owner = parent_ != nullptr ? parent_->GetSafeHwnd() : nullptr;
  framework::ShowMessageBox(owner, text.bytes().c_str(), caption_.bytes().c_str(), MB_OK | MB_ICONHAND);
}
