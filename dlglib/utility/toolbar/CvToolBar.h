// CvToolBar: the small toolbar of dialogs whose edit controls take drawing texts.
//
// Its buttons are no stops of the Tab key. A dialog that wants them used without a mouse gives the toolbar (control
// 10003) the focus by a key of its own: then the arrow keys, Home and End walk among the buttons that may be used,
// Enter and Space press one for the control that had the focus before, and Esc goes back there.
//
// Its three buttons insert, at the caret of the edit control with the focus, a text of the suite's text library, the
// escape of a metacharacter, or the value of a register. What is inserted goes through the clipboard, so that the
// control treats it as the user's own paste: limits, undo and notifications work, and what the user had on the
// clipboard is lost. When the clipboard cannot be had within half a second, or the control is gone when the choice has
// been made, there is a beep and nothing is inserted.
#pragma once

#include <optional>
#include <string>

#include "dlglib/base/CvWindowTexts.h"
#include "dlglib/base/bounded_text.h"
#include "dlglib/base/scale.h"
#include "dlglib/utility/toolbar/CvCopyEdit.h"
#include "dlglib/utility/toolbar/CvToolBarTree.h"
#include "dlglib/utility/toolbar/tool_buttons.h"
#include "platform/framework/controls.h"
#include "platform/framework/detail/accessible.h"
#include "platform/framework/gdi.h"
#include "platform/framework/message_map.h"
#include "platform/framework/reflection.h"

class CvToolBar : public CToolBarCtrl {
 public:
  /// `texts` learns what has been inserted where; borrowed.
  explicit CvToolBar(CvWindowTexts* texts);

  /// Creates the toolbar at the top of `parent`, any window, framework or not. Bit i of `buttonMask` enables button i;
  /// the others are greyed. FALSE when it cannot be created or exists already. The window dies with its parent or with
  /// this object, whichever comes first.
  BOOL CreateOn(CWnd* parent, int buttonMask);

  /// The file name, or name pattern, with which the text library is opened: EUC-JP, 255 bytes at most. "*" at first and
  /// after null.
  void SetTlbFileName(const char* name);

  Handled RouteMessage(const Message& message) override;

  // ---- for those who do not see it
  [[nodiscard]] const tool_buttons::Buttons& Buttons() const { return buttons_; }
  [[nodiscard]] bool IsUsable(std::size_t button) const { return IsUsable(buttons_[button]); }
  /// The button that keys have come to; none while the toolbar has not the focus.
  [[nodiscard]] std::optional<std::size_t> WalkedTo() const { return walkedTo_; }
  /// Does what a click on a button does; false when it does nothing.
  bool PressButton(std::size_t button);
  /// Gives the toolbar the focus, as if keys had come to a button; false when the button cannot be used.
  bool FocusButton(std::size_t button);

 private:
  class FormerFocus;

  Handled OnLeftButtonDown(const Message& message);
  Handled OnLeftDoubleClick(const Message& message);
  Handled OnFocus(const Message& message);
  Handled OnFocusLost();
  Handled OnDialogCode(const Message& message);
  Handled OnKey(const Message& message);
  void Run(tool_buttons::KeyAction action);
  Handled OnCustomDraw(NMHDR* header);
  Handled OnChanged();
  Handled OnParentScaled();
  Handled OnColoursChanged();
  Handled OnNotifyFormat(const Message& message);
  Handled OnNeedText8(NMHDR* header);
  Handled OnNeedText16(NMHDR* header);

  void AddImages();
  [[nodiscard]] bool NeedsImages() const;
  [[nodiscard]] bool ShowScaledImages();
  void AddButtons(int buttonMask);
  void FindButtons();
  void SetTips() const;
  void AddParentTips(CWnd* parent);
  [[nodiscard]] bool IsUsable(const tool_buttons::Button& button) const;
  [[nodiscard]] HWND FocusToServe() const;
  void WalkTo(std::optional<std::size_t> button);
  void Walk(std::optional<std::size_t> from, tool_buttons::Step step);
  void PressWalkedTo();
  void Press(const tool_buttons::Button& button, const FormerFocus& former);
  void Act(const tool_buttons::Button& button, const FormerFocus& former);
  void PickMetaChar(const tool_buttons::Button& button, const FormerFocus& former);
  [[nodiscard]] std::string AskLibraryText() const;
  [[nodiscard]] std::string AskRegister() const;
  void Insert(const std::string& text, const FormerFocus& former);

  CvWindowTexts* texts_;
  tool_buttons::Buttons buttons_;
  std::optional<std::size_t> walkedTo_;  ///< the button that keys have come to
  HWND focusBefore_ = nullptr;           ///< what had the focus before the toolbar
  BoundedText<255> tlbFileName_;
  CToolTipCtrl parentTips_;
  scale::Scale scale_;
  UniqueImageList images_;  ///< none while the control's own serve
  HostReflector reflector_;
  CvToolBarTree tree_{*this};
  AccessibleWindow accessible_;
};
