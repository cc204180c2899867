// CvMdlSort: the dialog for the rule under which models are sorted by a title.
//
//   CvMdlSort dialog(this, layout.slowSort);
//   if (dialog.DoModal() == IDOK) Keep(dialog.Rule());
//
// A message zone at its bottom says what is expected of the limit and what is wrong with it; it is made on opening, so
// the window is higher than its template. A limit is the number that the text starts with; one that is too large for
// an int counts as the largest one.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "dlglib/base/CvScaledDialog.h"
#include "dlglib/filedialog/titles/slow_sort_choice.h"
#include "platform/framework/strings.h"

class CvUtility;

class CvMdlSort : public CvScaledDialog {
 public:
  /// `parent` is borrowed and may be null.
  CvMdlSort(CWnd* parent, filedialog::SlowSortRule rule);
  ~CvMdlSort() override;

  /// After IDOK what the user has set: one of the three modes and a limit of at least filedialog::kLeastModelLimit.
  /// Otherwise the rule that was given.
  [[nodiscard]] filedialog::SlowSortRule Rule() const noexcept { return rule_; }

  /// Runs the dialog with the rule as it stands and stores what the user sets; nothing after a cancel. Pumps messages.
  static void Edit(CWnd* parent, filedialog::SlowSortRule* rule);

  Handled RouteMessage(const Message& message) override;

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void DoDataExchange(CDataExchange* exchange) override;

 private:
  void Start();
  void KeepTabStops();
  void OnOption(const Message& message);
  void OnLimitFocus();
  void OnLimitLeft();
  LRESULT OnPaint(const Message& message);

  filedialog::SlowSortRule rule_;
  filedialog::OptionStates states_;
  CString limit_;
  std::unique_ptr<CvUtility> utility_;
  std::string shown_;  ///< what the message zone shows
};
