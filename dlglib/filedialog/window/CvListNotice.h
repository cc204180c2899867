// CvListNotice: what the browser's list says beside its rows. While something is waited for, a line in its middle takes
// the place of the rows, which take no input; a remark stands at its lower edge until the next key or click.
#pragma once

#include <string>

#include "platform/framework/controls.h"
#include "platform/framework/message.h"

class CvListNotice {
 public:
  /// `list` must outlive this.
  explicit CvListNotice(CListCtrl& list) : list_(list) {}

  /// Shift_JIS. Until it is hidden it is the list's window text as well, for those who do not see it.
  void Show(const std::string& text);
  void Hide() noexcept;
  void ShowRemark(const std::string& text);
  /// The remark goes with a key or a press, wherever in the dialog.
  void HideRemarkAt(const MSG& message);

  /// The list's messages before it gets them; nullopt for those that are its own.
  [[nodiscard]] Handled RouteMessage(const Message& message);

 private:
  void OnPaint();
  void PaintRemark(const Message& message);
  [[nodiscard]] RECT Room() const;
  void Redraw() const noexcept;

  CListCtrl& list_;
  std::string text_;
  std::string remark_;
};
