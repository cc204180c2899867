// CvScaledDialog: a dialog of the library, which is as large as the scale of its screen asks for, and follows a change.
//
// A dialog is made for the scale of its window, and keeps it until the system tells it another one (WM_DPICHANGED):
// then its font, its controls and the window itself take the new one, and a derived class what it has beside these. The
// number of the message counts, not what the system may say when it is asked.
//
// Where a program knows of monitors but the system does not (Windows 8.1, and 10 with "PerMonitor"), templates are laid
// out for the scale of the system whatever the monitor. Such a dialog takes its monitor's before OnInitDialog.
//
// Its controls are placed anew from where they stood at first, so changes of scale add up to no shift.
#pragma once

#include <map>

#include "dlglib/base/kept_length.h"
#include "dlglib/base/scale.h"
#include "platform/framework/dialog.h"
#include "platform/framework/gdi.h"

class CvScaledDialog : public CDialog {
 public:
  using CDialog::CDialog;

  /// From OnInitDialog on that of the window; before, 96 dpi.
  [[nodiscard]] scale::Scale WindowScale() const noexcept { return scale_; }

  Handled RouteMessage(const Message& message) override;

 protected:
  /// The controls have another size and font, the window has not yet. What is remembered of them is to follow.
  virtual void OnControlsScaled(scale::Scale before) { static_cast<void>(before); }
  /// All of the dialog has the new scale.
  virtual void OnScaled(scale::Scale before) { static_cast<void>(before); }
  /// The user has chosen other colours. Everything is painted again afterwards.
  virtual void OnColoursChanged() {}

 private:
  struct KeptChild {
    scale::KeptRect place;
    scale::KeptLength listHeight;
  };

  Handled OnCreated();
  Handled OnGetFont();
  LRESULT OnDpiChanged(const Message& message);
  Handled OnSystemChanged(const Message& message);
  [[nodiscard]] scale::Scale LaidOutScale() const;
  void LayOutAnew(scale::Scale before);
  void ScaleControls(scale::Scale before);
  void ScaleFont(scale::Scale before);

  scale::Scale scale_;
  UniqueFont font_;  ///< once the scale has changed; the template's is the system's
  scale::KeptLength fontHeight_;
  scale::KeptLength fontWidth_;
  std::map<HWND, KeptChild> children_;
};
