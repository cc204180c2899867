// CvMdlSort: the dialog for the conditions under which models are sorted by a title.
//
//   CvMdlSort dialog(this, {layout.confirm, layout.modelLimit});
//   if (dialog.DoModal() == IDOK) Keep(dialog.Condition());
//
// A message zone at its bottom says what is expected of the limit and what is wrong with it; it is made on opening, so
// the window is higher than its template. A limit is the number that the text starts with; one that is too large for
// an int counts as the largest one.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "dlglib/filedialog/titles/sort_condition.h"
#include "platform/framework/dialog.h"
#include "platform/framework/strings.h"

class CvUtility;

class CvMdlSort : public CDialog {
 public:
  /// `parent` is borrowed and may be null.
  CvMdlSort(CWnd* parent, filedialog::SortCondition condition);
  ~CvMdlSort() override;

  /// After IDOK what the user has set: the mode 0, 1 or 2 and a limit of at least filedialog::kLeastModelLimit.
  /// Otherwise the condition that was given.
  [[nodiscard]] filedialog::SortCondition Condition() const noexcept { return condition_; }

  /// Runs the dialog with the settings as they stand and stores what the user sets; nothing after a cancel. Pumps
  /// messages.
  static void Edit(CWnd* parent, const filedialog::SortSettings& settings);

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

  filedialog::SortCondition condition_;
  filedialog::OptionStates states_;
  CString limit_;
  std::unique_ptr<CvUtility> utility_;
  std::string shown_;  ///< what the message zone shows
};
