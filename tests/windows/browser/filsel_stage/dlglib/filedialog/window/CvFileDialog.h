// A browser without a window, in the place of the real one: it does at once what the test has planned. The request is
// compiled against it, so that answers and failures that no person can cause are tested too.
#pragma once

#include <functional>
#include <utility>

#include "dlglib/filedialog/basics/start_up.h"
#include "platform/framework/dialog.h"

/// What happens in a run of the browser, and what it was given.
struct StagedBrowser {
  std::function<void()> whenMade;
  std::function<INT_PTR(const filedialog::StartUp&)> whenRun;
  std::function<void()> whenDestroyed;
  CWnd* parent = nullptr;

  [[nodiscard]] static StagedBrowser& Stage() {
    static StagedBrowser stage;
    return stage;
  }
};

class CvFileDialog : public CDialog {
 public:
  CvFileDialog(CWnd* parent, filedialog::StartUp startUp) : startUp_(std::move(startUp)) {
    StagedBrowser::Stage().parent = parent;
    if (StagedBrowser::Stage().whenMade) StagedBrowser::Stage().whenMade();
  }
  ~CvFileDialog() override {
    if (StagedBrowser::Stage().whenDestroyed) StagedBrowser::Stage().whenDestroyed();
  }

  INT_PTR DoModal() override { return StagedBrowser::Stage().whenRun(startUp_); }

 private:
  filedialog::StartUp startUp_;
};
