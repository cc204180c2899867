// CvMdlTitle: the dialog in which the user picks the model titles that the browser shows as columns.
//
//   CvMdlTitle dialog(this, layout.slowSort);
//   dialog.SetTitles(filedialog::SlotsOf(layout.titles));
//   if (dialog.DoModal() == IDOK) layout.titles = filedialog::TitleColumnsOf(dialog.Titles());
//
// Four rows are shown, whatever the count of titles: the number of a title, picked from a list of the titles that the
// active model defines, and an annotation, typed in place. A row without a title has no annotation to edit until a
// title has been picked for it. Without an active model nothing but "none" can be picked.
//
// Without a mouse: the arrow keys choose a row, F4 or Alt+Down opens the list of titles, F2 edits the annotation. While
// the list is open, the arrow keys, Home, End, Page Up and Page Down walk through it, Enter picks the title that they
// have come to, and Esc, or Enter before any of them, closes it and not the dialog.
#pragma once

#include <string>
#include <vector>

#include "dlglib/base/CvScaledDialog.h"
#include "dlglib/filedialog/titles/slow_sort_choice.h"
#include "dlglib/filedialog/titles/title_keys.h"
#include "dlglib/filedialog/titles/title_slots.h"
#include "dlglib/listcontrol/CvListControl.h"

class CvMdlTitle : public CvScaledDialog {
 public:
  /// `browser` owns the dialog's window. `rule`, for slow sorts, can be changed from inside. Both are borrowed.
  CvMdlTitle(CWnd* browser, filedialog::SlowSortRule& rule);

  /// What the dialog starts with; titles 201 and 1 when it is told nothing. Takes effect with the next DoModal.
  void SetTitles(const filedialog::TitleSlots& slots) { slots_ = slots; }

  /// After IDOK what the user has chosen: an annotation that he left alone is the title's own name, none is longer than
  /// filedialog::kAnnotationLimit bytes, at least one slot has a number, and those behind the shown ones have none.
  /// Otherwise what SetTitles gave.
  [[nodiscard]] const filedialog::TitleSlots& Titles() const noexcept { return slots_; }

  Handled RouteMessage(const Message& message) override;
  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void DoDataExchange(CDataExchange* exchange) override;

 private:
  void InitGrid();
  void FillRows();
  void FillChoices();
  Handled OnDrawItem(const Message& message);
  void OnListClick();
  void OnPick();
  void OnListClosed();
  void OnSortConditions();
  [[nodiscard]] bool IsListOpen() const;
  [[nodiscard]] filedialog::TitleCommand PlanKey(const MSG& message);
  [[nodiscard]] filedialog::TitleKeyState StateOfKeys(HWND focus);
  void Run(const filedialog::TitleCommand& command);
  void ChooseRow(int row);
  void WalkTo(int entry);
  void FinishWalk();

  [[nodiscard]] std::string CellText(int row, int col);
  [[nodiscard]] std::vector<std::string> NumberCells();
  [[nodiscard]] filedialog::TitleSlots ReadRows();
  void Complain(const char* text);

  filedialog::SlowSortRule& rule_;
  filedialog::TitleSlots slots_;
  CvListControl list_;
  CDWordArray choices_;  ///< the title number of each entry of the list of titles
  int comboIndex_ = -1;
  int walkedTo_ = -1;  ///< the entry of the open list that keys have come to; -1 for none
};
