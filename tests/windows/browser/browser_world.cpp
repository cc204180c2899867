#include "tests/windows/browser/browser_world.h"

#include "dlglib/filedialog/window/CvFileDialog.h"

namespace browser_test {

using driver::User;

Outcome BrowserTest::Run(const std::function<void(Browser&)>& script) {
  return RunWith([&](const filedialog::StartUp& startUp) {
    INT_PTR answer = 0;
    driver::RunDialog(
        [&] {
          CvFileDialog browser(nullptr, startUp);
          answer = browser.DoModal();
        },
        [&](User& user) {
          Browser browser(user, startUp.caption.empty() ? "ファイルの選択" : startUp.caption);
          script(browser);
          if (browser.IsOpen()) browser.Cancel();
        });
    return static_cast<int>(answer);
  });
}

}  // namespace browser_test
