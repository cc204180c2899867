// Dialogs, modal and modeless, from templates. A dialog gets its controls' notifications in 8-bit form (the A codes).
// Those of list views, headers, toolbars and tooltips have Shift_JIS texts, whatever the system's own code page is:
// they are offered in wide form first (the W codes), and in 8-bit form when no row takes that. Those of other controls
// are the system's own.
#pragma once

#include "platform/framework/message_map.h"
#include "platform/framework/resource_module.h"

/// A dialog. Its window exists during DoModal, or from Create to DestroyWindow.
class DLGLIB_API CDialog : public CWnd {
 public:
  /// Without a template; for Create and CreateIndirect, or InitModalIndirect before DoModal.
  CDialog() noexcept;
  /// A template of `module`, by default the module of the code that makes the dialog. `parent` may be null; borrowed.
  explicit CDialog(UINT templateId, CWnd* parent = nullptr, const void* module = ThisModule()) noexcept;
  /// A template in memory. The caller keeps it alive as long as the dialog may be run; `module` holds its menu and
  /// icons.
  explicit CDialog(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr,
                   const void* module = ThisModule()) noexcept;
  ~CDialog() override;

  /// Gives a template in memory afterwards. FALSE when the dialog runs.
  BOOL InitModalIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr, const void* module = ThisModule());

  /// Runs the dialog until it is ended, with its owner (the parent's top-level window) disabled. Pumps messages.
  /// Returns the value given to EndDialog; -1 when the dialog cannot be created or runs already; IDCANCEL when its
  /// window was destroyed or the program is asked to quit, which is then asked again.
  virtual INT_PTR DoModal();
  /// Ends a modal dialog with `result`, also from OnInitDialog: then it is never shown. A modeless dialog is hidden.
  void EndDialog(INT_PTR result);

  /// Creates the window without running it; it stays until DestroyWindow or the end of this object. FALSE when it
  /// cannot be created. A dialog without WS_VISIBLE is not shown.
  BOOL Create(UINT templateId, CWnd* parent = nullptr, const void* module = ThisModule());
  BOOL CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr, const void* module = ThisModule());

  Handled RouteMessage(const Message& message) override;
  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  /// All controls exist, nothing is shown yet. The default moves the members to the controls and returns TRUE. FALSE:
  /// this function has set the focus.
  virtual BOOL OnInitDialog();
  /// IDOK. The default moves the controls to the members and, when that succeeds, ends the dialog with IDOK.
  virtual void OnOK();
  /// IDCANCEL, also by Esc and the close box. The default ends the dialog with IDCANCEL.
  virtual void OnCancel();

  /// Moves the window over the middle of its owner, or of the screen without one, and wholly onto the screen's work
  /// area. For OnInitDialog: a template puts its dialog into a corner.
  void CenterWindow() const;

  /// What the dialog's own loop does with a message that it has fetched, for a loop of the dialog's within one of its
  /// handlers. Nothing when the dialog is to end.
  void HandleOne(MSG& message);

 private:
  LRESULT HandleInitDialog();
  Handled HandleNotifyFormat(const Message& message);
  Handled HandleWindowPosChanging(const Message& message);
  bool CreateFrom(const DLGTEMPLATE* dialogTemplate, const void* module, HWND owner);
  void RunLoop();
  void HandleIdle(bool firstTime);

  enum class Phase { Idle, Running, Ended };

  UINT templateId_ = 0;
  Phase phase_ = Phase::Idle;
  const DLGTEMPLATE* template_ = nullptr;
  const void* module_ = nullptr;
  CWnd* parent_ = nullptr;
  INT_PTR result_ = IDCANCEL;
};
