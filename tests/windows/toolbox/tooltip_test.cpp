// The hover balloon over a dialog, driven by the real mouse.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "dlglib/resources/resource.h"
#include "dlglib/utility/toolbar/CvToolTip.h"
#include "platform/framework/gdi.h"
#include "platform/framework/message_map.h"
#include "tests/windows/driver/user.h"

namespace {

using driver::Picture;
using driver::User;
using driver::Window;

constexpr COLORREF kPaper = 0xFFFFF0;
constexpr COLORREF kInk = 0;

// Two tools that touch in a free part of the dialog, and a point beside them. The dialog's font is 12 pixels high.
constexpr RECT kFirst = {120, 64, 160, 80};
constexpr RECT kSecond = {160, 64, 200, 80};
constexpr POINT kBeside = {260, 70};
constexpr char kFirstText[] = "表示メニュー";
constexpr char kSecondText[] = "上へ & 戻る";

constexpr UINT kHide = WM_APP;
constexpr UINT kSetDelays = WM_APP + 1;
constexpr UINT kUseFont = WM_APP + 2;  // wParam: the font that the dialog says it has

/// A dialog that shows a balloon over its tools and passes the mouse on to it.
class Host : public CDialog {
 public:
  Host() : CDialog(IDD_MODEL_CONFIRM) {}

  [[nodiscard]] Window Balloon() const { return Window(tip_->m_hWnd); }

  Handled RouteMessage(const Message& message) override {
    static constexpr MessageRow<Host> kRows[] = {
        OnMessage(WM_MOUSEMOVE, &Host::OnMouseMove), OnMessage(kHide, &Host::OnHide),
        OnMessage(kSetDelays, &Host::OnSetDelays),   OnMessage(kUseFont, &Host::OnUseFont),
        OnMessage(WM_GETFONT, &Host::OnGetFont),
    };
    return Route<CDialog>(*this, kRows, message);
  }

 protected:
  BOOL OnInitDialog() override {
    tip_ = std::make_unique<CvToolTip>(this);
    tip_->AddTool(1, kFirst, kFirstText);
    tip_->AddTool(2, kSecond, kSecondText);
    return TRUE;
  }

 private:
  void OnMouseMove(const Message& message) { tip_->MouseMove(message.Position()); }
  void OnHide() { tip_->Hide(); }
  void OnSetDelays() {
    tip_->SetShowDelay(101);
    tip_->SetHideDelay(10'000);  // a busy machine looks late
  }

  void OnUseFont(const Message& message) { font_ = static_cast<LRESULT>(message.wParam); }
  Handled OnGetFont() {
    if (font_ == 0) return std::nullopt;
    return font_;
  }

  std::unique_ptr<CvToolTip> tip_;
  LRESULT font_ = 0;
};

/// What a test does with the dialog on the screen.
struct Scene {
  User& user;
  Window dialog;
  Window balloon;

  [[nodiscard]] POINT OnScreen(POINT client) const {
    const RECT area = dialog.ClientScreenRect();
    return {area.left + client.x, area.top + client.y};
  }
  void Point(POINT client) const { user.MoveTo(OnScreen(client)); }
  void PointAt(const RECT& tool) const { Point(driver::Center(tool)); }
  void WaitShown() const {
    user.WaitUntil("the balloon appears", [this] { return balloon.IsVisible(); });
  }
};

void RunScene(const std::function<void(Scene&)>& script) {
  Host host;
  driver::RunDialog([&] { host.DoModal(); },
                    [&](User& user) {
                      const Window dialog = user.WaitDialog("確認");
                      Scene scene{user, dialog, host.Balloon()};
                      script(scene);
                      user.Click(dialog.Child(IDCANCEL));
                    });
}

TEST(ToolTip, IsHiddenAtFirst) {
  RunScene([](Scene& scene) {
    EXPECT_TRUE(scene.balloon.Exists());
    EXPECT_FALSE(scene.balloon.IsVisible());
    EXPECT_EQ(scene.balloon.Owner(), scene.dialog);
  });
}

TEST(ToolTip, AppearsAboveTheToolAfterItsDelay) {
  RunScene([](Scene& scene) {
    const DWORD start = GetTickCount();
    scene.PointAt(kFirst);
    scene.WaitShown();
    EXPECT_GE(GetTickCount() - start, 450U);  // 500 and the timer's grain

    const POINT anchor = scene.OnScreen({140, 56});
    const RECT place = scene.balloon.ScreenRect();
    EXPECT_EQ(place.left, anchor.x);
    EXPECT_EQ(place.bottom, anchor.y);
    EXPECT_EQ(place.right - place.left, 12 * 12 / 2 + 12);
    EXPECT_EQ(place.bottom - place.top, 12 + 8);
  });
}

TEST(ToolTip, IsARoundedSheetWithItsTextInTheMiddle) {
  RunScene([](Scene& scene) {
    scene.PointAt(kFirst);
    scene.WaitShown();
    const Picture look = scene.user.Look(scene.balloon);
    ASSERT_EQ(look.Width(), 84);
    EXPECT_TRUE(scene.user.Look(scene.dialog).SavePng("tooltip-balloon.png"));
    for (const POINT inside : {POINT{42, 1}, POINT{42, 18}, POINT{2, 10}, POINT{81, 10}}) {
      EXPECT_EQ(look.At(inside.x, inside.y), kPaper) << inside.x << ", " << inside.y;
    }
    for (const POINT corner : {POINT{0, 0}, POINT{83, 0}, POINT{0, 19}, POINT{83, 19}, POINT{2, 2}, POINT{81, 17}}) {
      EXPECT_NE(look.At(corner.x, corner.y), kPaper) << corner.x << ", " << corner.y;
    }
    const int ink = look.Count({6, 4, 78, 17}, kInk);
    EXPECT_GT(ink, 50);
    EXPECT_EQ(look.Count({6, 0, 78, 20}, kInk), ink);
  });
}

TEST(ToolTip, EndsInHalfCircles) {
  RunScene([](Scene& scene) {
    scene.PointAt(kFirst);
    scene.WaitShown();
    const UniqueRegion shape(::CreateRectRgn(0, 0, 0, 0));
    ASSERT_NE(::GetWindowRgn(scene.balloon.Handle(), shape.Get()), ERROR);
    const UniqueRegion expected(::CreateRoundRectRgn(0, 0, 84, 20, 20, 20));
    for (int y = -1; y <= 20; ++y) {
      for (int x = -1; x <= 84; ++x) {
        ASSERT_EQ(::PtInRegion(shape.Get(), x, y), ::PtInRegion(expected.Get(), x, y)) << x << ", " << y;
      }
    }
  });
}

TEST(ToolTip, GrowsWithTheFontOfItsParent) {
  const UniqueFont font(::CreateFontA(-20, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, SHIFTJIS_CHARSET,
                                      OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH,
                                      "ＭＳ ゴシック"));
  RunScene([&font](Scene& scene) {
    scene.dialog.Send(kUseFont, reinterpret_cast<WPARAM>(font.Get()));
    scene.PointAt(kFirst);
    scene.WaitShown();
    const POINT anchor = scene.OnScreen({140, 56});
    const RECT place = scene.balloon.ScreenRect();
    EXPECT_EQ(place.left, anchor.x);
    EXPECT_EQ(place.bottom, anchor.y);
    EXPECT_EQ(place.right - place.left, 20 * 12 / 2 + 12);
    EXPECT_EQ(place.bottom - place.top, 20 + 8);
  });
}

TEST(ToolTip, LeavingItsToolInTimePreventsIt) {
  RunScene([](Scene& scene) {
    scene.PointAt(kFirst);
    scene.Point(kBeside);
    scene.dialog.Send(kSetDelays);
    scene.PointAt(kSecond);
    scene.WaitShown();  // a timer that still ran for the first one would have shown that
    EXPECT_EQ(scene.balloon.ScreenRect().left, scene.OnScreen({180, 0}).x);
  });
}

TEST(ToolTip, ShowsAnAmpersandAsItStands) {
  RunScene([](Scene& scene) {
    scene.PointAt(kSecond);
    scene.WaitShown();
    const Picture look = scene.user.Look(scene.balloon);
    EXPECT_EQ(look.Width(), 11 * 12 / 2 + 12);
    EXPECT_GT(look.Count({6 + 5 * 6, 4, 6 + 6 * 6, 17}, kInk), 5);  // the sixth half-width place
  });
}

TEST(ToolTip, TakesNeitherFocusNorClicks) {
  RunScene([](Scene& scene) {
    scene.user.WaitUntil("the dialog is in front", [&] { return scene.dialog.IsForeground(); });
    const Window focus = scene.dialog.Child(IDOK);
    ASSERT_TRUE(focus.HasFocus());
    scene.PointAt(kFirst);
    scene.WaitShown();
    EXPECT_TRUE(scene.dialog.IsForeground());
    EXPECT_TRUE(focus.HasFocus());
    const POINT middle = driver::Center(scene.balloon.ScreenRect());
    scene.user.Click(middle);
    scene.user.WaitGone(scene.balloon);  // the pointer acts on the dialog below, away from the tool
    EXPECT_TRUE(scene.dialog.IsForeground());
  });
}

TEST(ToolTip, GoesAwayByItselfAndStaysAway) {
  RunScene([](Scene& scene) {
    const DWORD start = GetTickCount();
    scene.PointAt(kFirst);
    scene.WaitShown();
    scene.user.WaitGone(scene.balloon);
    EXPECT_GE(GetTickCount() - start, 2350U);  // 500 until it is shown and 2000 from then on, with the timer's grain
    scene.dialog.Send(kSetDelays);
    scene.Point({125, 70});  // still on the tool
    scene.PointAt(kSecond);
    scene.WaitShown();  // the next one comes, so the first one would have come too
    EXPECT_EQ(scene.balloon.ScreenRect().left, scene.OnScreen({180, 0}).x);
  });
}

TEST(ToolTip, FollowsThePointerFromToolToTool) {
  RunScene([](Scene& scene) {
    scene.PointAt(kFirst);
    scene.WaitShown();
    scene.PointAt(kSecond);
    scene.user.WaitGone(scene.balloon);
    scene.WaitShown();
    EXPECT_EQ(scene.balloon.ScreenRect().left, scene.OnScreen({180, 0}).x);
    scene.Point(kBeside);
    scene.user.WaitGone(scene.balloon);
  });
}

TEST(ToolTip, BordersBelongToTheFirstToolThatHoldsThem) {
  RunScene([](Scene& scene) {
    scene.dialog.Send(kSetDelays);
    scene.Point({160, 80});
    scene.WaitShown();
    EXPECT_EQ(scene.balloon.ScreenRect().left, scene.OnScreen({140, 0}).x);
  });
}

TEST(ToolTip, HiddenFromOutsideItComesBackAfterLeaving) {
  RunScene([](Scene& scene) {
    scene.dialog.Send(kSetDelays);
    scene.PointAt(kFirst);
    scene.WaitShown();
    scene.dialog.Send(kHide);
    EXPECT_FALSE(scene.balloon.IsVisible());
    scene.Point({125, 70});
    scene.user.Settle();
    EXPECT_FALSE(scene.balloon.IsVisible());
    scene.Point(kBeside);
    scene.PointAt(kFirst);
    scene.WaitShown();
  });
}

TEST(ToolTip, WithoutAParentWindowNothingHappens) {
  CvToolTip tip(nullptr);
  tip.AddTool(1, kFirst, nullptr);
  tip.SetToolRect(1, kSecond);
  tip.SetToolText(1, nullptr);
  tip.MouseMove({170, 70});
  tip.Hide();
  EXPECT_EQ(tip.m_hWnd, nullptr);
}

TEST(ToolTip, LeavesNoHandleBehind) {
  const int before = framework::LiveHandles();
  for (int i = 0; i < 3; ++i) {
    RunScene([](Scene& scene) {
      scene.dialog.Send(kSetDelays);
      scene.PointAt(kFirst);
      scene.WaitShown();
    });
  }
  EXPECT_EQ(framework::LiveHandles(), before);
}

}  // namespace
