// CvRowReader: has the rows of the list described while they are drawn (filedialog::RowReader), and has them drawn anew
// when a device has answered late.
#pragma once

#include "dlglib/filedialog/listing/row_reader.h"
#include "dlglib/filedialog/waiting/CvLateNews.h"
#include "platform/framework/wnd.h"

class CvRowReader final {
 public:
  /// As filedialog::RowReader; all must outlive this.
  CvRowReader(CWnd& list, const os::ServiceTable& services, os::Workers* workers)
      : list_(list), rows_(services, workers, lateNews_.Teller()) {}

  /// The message that a late answer comes with.
  static constexpr UINT kAnswered = WM_APP + 2;

  /// The list is there.
  void Begin() { lateNews_.Begin(list_.m_hWnd); }
  [[nodiscard]] filedialog::RowReader& Rows() { return rows_; }
  [[nodiscard]] const filedialog::RowReader& Rows() const { return rows_; }
  void OnAnswered() {
    if (rows_.TakeAnswers()) ::InvalidateRect(list_.m_hWnd, nullptr, FALSE);
  }

 private:
  CWnd& list_;
  CvLateNews lateNews_{kAnswered};
  filedialog::RowReader rows_;
};
