// CvToolTip: the hover balloon of the file browser.
//
// The browser registers its buttons and labels with their rectangles and texts and passes every mouse movement on. When
// the pointer rests on a tool, a rounded balloon with the tool's text appears above it for a while. The balloon never
// takes the focus, and the pointer acts through it on what lies beneath.
#pragma once

#include <string>

#include "dlglib/utility/toolbar/tool_table.h"
#include "platform/framework/detail/accessible.h"
#include "platform/framework/dialog.h"

class CvToolTip : public CDialog {
 public:
  /// Makes the balloon's hidden window above that of `parent`, which must exist already and outlive this object. Texts
  /// are drawn in the parent's font. Without a parent window there is no balloon; every call is still harmless.
  explicit CvToolTip(CWnd* parent);

  /// Gives the tool `id` this rectangle (client coordinates of the parent, all borders included) and this text
  /// (Shift_JIS, at most 131 bytes, a longer one is cut between characters; null is empty). An unknown ID is appended;
  /// the number of tools is not limited.
  void AddTool(int id, const RECT& rect, const char* text);
  /// Changes one of the two; an unknown ID changes nothing. A balloon on the screen stays as it is.
  void SetToolRect(int id, const RECT& rect);
  void SetToolText(int id, const char* text);

  /// Of the balloons that appear from now on; 96 dpi at first. Their texts have the parent's font.
  void SetScale(scale::Scale scale) noexcept { scale_ = scale; }

  /// How long the pointer rests before the balloon appears (500 at first) and how long it then stays (2000 at first),
  /// in milliseconds. A value up to 100 changes nothing.
  void SetShowDelay(UINT milliseconds);
  void SetHideDelay(UINT milliseconds);

  /// The pointer has moved to `at` (client coordinates of the parent).
  void MouseMove(POINT at);
  /// Hides the balloon. It does not appear again for the tool under the pointer until the pointer has left that tool.
  void Hide();

  Handled RouteMessage(const Message& message) override;

 protected:
  BOOL OnInitDialog() override;

 private:
  void OnTimer(const Message& message);
  void OnPaint();
  LRESULT OnEraseBackground();
  LRESULT OnHitTest();

  void Do(const tool_table::Step& step);
  void ShowBalloon(const tool_table::Tool& tool);
  void Place(const tool_table::Rect& tool, tool_table::Size size);
  void Shape(tool_table::Size size);
  [[nodiscard]] HFONT ParentFont() const;
  [[nodiscard]] int FontHeight() const;

  /// The balloon is one thing: a tip, whose name is its text.
  class Tree final : public accessible::Tree {
   public:
    explicit Tree(const CvToolTip& tip) : tip_(tip) {}
    [[nodiscard]] int CountOf(accessible::Node) const override { return 0; }
    [[nodiscard]] std::optional<accessible::Item> Find(accessible::Node node) const override;

   private:
    const CvToolTip& tip_;
  };

  CWnd* parent_;
  scale::Scale scale_;
  tool_table::ToolTable tools_;
  tool_table::Course course_;
  std::string shownText_;
  Tree tree_{*this};
  AccessibleWindow accessible_;
};
