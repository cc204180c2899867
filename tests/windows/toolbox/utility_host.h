// A dialog with a few controls for the utility to serve, and the scripted machine behind it.
#pragma once

#include <string>
#include <vector>

#include "platform/framework/framework.h"

namespace utility_test {

inline constexpr int kEdit = 10001;
inline constexpr int kLabel = 10002;
inline constexpr int kCombo = 10003;
inline constexpr char kTitle[] = "道具の試験";
inline constexpr COLORREF kBlack = 0;

/// A visible dialog of a client area 300 x 200 pixels wide in the font of the suite's dialogs, 12 pixels high.
class Host : public CDialog {
 public:
  Host();

  /// How often a pixel of the client area from `top` down has the colour.
  [[nodiscard]] int CountPixels(COLORREF color, int top = 0) const;
  /// The colours of the client area, row by row.
  [[nodiscard]] std::vector<COLORREF> Pixels() const;
  [[nodiscard]] RECT Place() const;
  [[nodiscard]] int ClientBottom() const;
  [[nodiscard]] std::vector<std::string> ComboItems() const;

  CString edited;     ///< bound to the edit control
  CComboBox combo;    ///< the combo box
  int exchanges = 0;  ///< runs of DoDataExchange since the dialog is shown

 protected:
  void DoDataExchange(CDataExchange* exchange) override;
};

}  // namespace utility_test
