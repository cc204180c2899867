// CvNameBox: the file name box of the browser, with the recent files in its list.
//
// A text that was put there and has not been touched since is told with the very bytes that it had, which some
// characters would not keep on their way through the control.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "dlglib/base/CvWindowTexts.h"
#include "platform/framework/controls.h"
#include "platform/framework/wnd.h"

class CvNameBox {
 public:
  /// `dialog` holds the box and must outlive this.
  explicit CvNameBox(const CWnd& dialog) : dialog_(dialog) {}

  /// To be called once the dialog has its controls: from then on the box takes no character that Shift_JIS lacks.
  void Start();
  /// The box takes no more than so many bytes by typing.
  void Limit(std::size_t limit);
  void Show(const std::string& text);
  /// Shows a name that the list offers too: at its place there, or else added at the top. Names that differ in their
  /// spelling are different ones.
  void Offer(const std::string& name);
  /// What the list offers; the text stays.
  void ShowRecentFiles(const std::vector<std::string>& files);
  [[nodiscard]] std::string Text() const;
  /// Whether an input method has a composition open in it, which is no text yet.
  [[nodiscard]] bool IsComposing() const;

 private:
  [[nodiscard]] ComboBoxRef Box() const;
  [[nodiscard]] HWND Edit() const;

  const CWnd& dialog_;
  CvWindowTexts bytes_;  ///< of the text that was last put into the box
};
