// CvListNotice: what the browser's list says beside its rows. While something is waited for, a line in its middle takes
// the place of the rows, which take no input; a remark stands at its lower edge until the next key or click. Those who
// do not see the list are told of both (CvListTree).
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "dlglib/filedialog/listing/list_notice.h"
#include "platform/framework/controls.h"
#include "platform/framework/message.h"

class CvListNotice {
 public:
  using Changed = std::function<void(const filedialog::NoticeNews&)>;

  /// `list` must outlive this. `changed` is called when something else is said, and throws nothing.
  CvListNotice(CListCtrl& list, Changed changed) : list_(list), changed_(std::move(changed)) {}

  /// What is said now.
  [[nodiscard]] filedialog::ListNotice Said() const noexcept { return {text_, remark_}; }
  [[nodiscard]] bool CoversRows() const noexcept { return !text_.empty(); }

  /// Shift_JIS. The list's window text says the same until it is hidden, but for a count that moves.
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
  /// Something else is said than `before`.
  void Change(const filedialog::ListNotice& before) const;
  void Redraw() const noexcept;

  CListCtrl& list_;
  Changed changed_;
  std::string text_;
  std::string remark_;
};
