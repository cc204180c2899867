// CvMetaChar: the picker of metacharacters.
//
// A small modal dialog that lists them. A click on a row, or the arrow keys and Enter, choose one: its escape, "<mc>"
// and a character, goes to the clipboard and the dialog ends. Whoever opened the picker pastes it.
#pragma once

#include <optional>

#include "dlglib/base/CvScaledDialog.h"
#include "platform/framework/detail/accessible.h"

class CvMetaChar : public CvScaledDialog {
 public:
  /// `parent` may be null; borrowed.
  explicit CvMetaChar(CWnd* parent = nullptr);

  /// The button that opens the picker, in pixels of the screen; before DoModal. The picker's upper left corner takes
  /// the button's lower left one. Without it the system places the picker.
  void SetButtonRect(const RECT& button);

  /// IDOK when a row was chosen, IDCANCEL when not; -1 when the dialog cannot be shown. Pumps messages.
  INT_PTR DoModal() override;
  /// Whether the clipboard has taken the escape of the chosen row. False when another program kept it open: then it
  /// holds something else.
  [[nodiscard]] bool HasCopied() const;
  /// The escape of the row that was chosen last; empty before.
  [[nodiscard]] const CString& Escape() const;

  Handled RouteMessage(const Message& message) override;

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void DoDataExchange(CDataExchange* exchange) override;
  void OnScaled(scale::Scale before) override;

 private:
  void FillList();
  void Choose();
  void Copy(int row);

  std::optional<RECT> button_;
  CString escape_;
  bool hasCopied_ = false;
  std::optional<NamedControl> list_;
};
