#include "platform/framework/message_map.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/framework/fixtures.h"

namespace {

// Remembers which handlers were asked, in their order.
class Base : public CWnd {
 public:
  Handled RouteMessage(const Message& message) override {
    static constexpr MessageRow<Base> kRows[] = {
        OnMessage(WM_APP + 1, &Base::OnBase),
        OnMessage(WM_APP + 2, &Base::OnBase),
    };
    return Route<CWnd>(*this, kRows, message);
  }

  std::string asked;

 protected:
  LRESULT OnBase() {
    asked += "base ";
    return 99;
  }
};

class Derived : public Base {
 public:
  Handled RouteMessage(const Message& message) override {
    static constexpr MessageRow<Derived> kRows[] = {
        OnMessage(WM_APP + 1, &Derived::OnDecline),          OnMessage(WM_APP + 2, &Derived::OnVoid),
        OnMessage(WM_APP + 3, &Derived::OnDecline),          OnMessage(WM_APP + 3, &Derived::OnResult),
        OnMessage(WM_APP + 4, &Derived::OnMessageResult),    OnMessage(WM_APP + 5, &Derived::OnMessageVoid),
        OnMessage(WM_APP + 6, &Derived::OnMessageHandled),   OnCommand(10, BN_CLICKED, &Derived::OnClick),
        OnCommand(11, CBN_SELCHANGE, &Derived::OnVoid),      OnCommandRange(3001, 3005, 0, &Derived::OnMenu),
        OnCommand(kAnyId, EN_CHANGE, &Derived::OnMenu),      OnNotify(20, NM_CLICK, &Derived::OnNotifyHandled),
        OnNotify(20, NM_DBLCLK, &Derived::OnNotifyResult),   OnNotify(20, LVN_ITEMCHANGED, &Derived::OnNotifyVoid),
        OnNotifyRange(30, 39, kAnyCode, &Derived::OnTyped),  OnReflectedCommand(EN_KILLFOCUS, &Derived::OnVoid),
        OnReflectedNotify(NM_CLICK, &Derived::OnNotifyVoid), OnReflectedMessage(WM_CTLCOLOREDIT, &Derived::OnResult),
    };
    return Route<Base>(*this, kRows, message);
  }

 private:
  void OnVoid() noexcept { asked += "void "; }
  Handled OnDecline() {
    asked += "decline ";
    return std::nullopt;
  }
  LRESULT OnResult() {
    asked += "result ";
    return 42;
  }
  LRESULT OnMessageResult(const Message& message) { return static_cast<LRESULT>(message.wParam) + 1; }
  void OnMessageVoid(const Message& message) { asked += std::to_string(message.wParam) + " "; }
  Handled OnMessageHandled(const Message& message) { return message.wParam != 0 ? Handled(0) : std::nullopt; }
  void OnClick() { asked += "click "; }
  LRESULT OnMenu(const Message& message) { return static_cast<LRESULT>(message.ControlId()); }
  Handled OnNotifyHandled(NMHDR* header) { return header->idFrom == 20 ? Handled(7) : std::nullopt; }
  LRESULT OnNotifyResult(NMHDR*) { return 8; }
  void OnNotifyVoid(NMHDR*) { asked += "notify "; }
  LRESULT OnTyped(const Message& message) { return message.Notification<NMLISTVIEW>()->iItem; }
};

class Rows : public testing::Test {
 protected:
  Handled Send(UINT id, WPARAM wParam = 0, LPARAM lParam = 0) {
    return object.RouteMessage({nullptr, id, wParam, lParam});
  }
  Handled Notify(UINT_PTR id, UINT code, bool reflected = false) {
    NMLISTVIEW data{};
    data.hdr = {nullptr, id, code};
    data.iItem = 5;
    return object.RouteMessage({nullptr, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&data), reflected});
  }

  Derived object;
};

TEST_F(Rows, AskTheNextRowAndThenTheBaseWhenAHandlerDeclines) {
  EXPECT_EQ(Send(WM_APP + 1), Handled(99));
  EXPECT_EQ(object.asked, "decline base ");
  object.asked.clear();
  EXPECT_EQ(Send(WM_APP + 3), Handled(42));
  EXPECT_EQ(object.asked, "decline result ");
}

TEST_F(Rows, TakeAHandlerWithoutResultForHandledZero) {
  EXPECT_EQ(Send(WM_APP + 2), Handled(0));
  EXPECT_EQ(object.asked, "void ");
}

TEST_F(Rows, GiveTheMessageToHandlersThatAskForIt) {
  EXPECT_EQ(Send(WM_APP + 4, 6), Handled(7));
  EXPECT_EQ(Send(WM_APP + 5, 6), Handled(0));
  EXPECT_EQ(object.asked, "6 ");
  EXPECT_EQ(Send(WM_APP + 6, 1), Handled(0));
  EXPECT_EQ(Send(WM_APP + 6, 0), std::nullopt);
  EXPECT_EQ(Send(WM_APP + 7), std::nullopt);
}

TEST_F(Rows, TellCommandsByIdAndCode) {
  constexpr LPARAM kControl = 0x1234;
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(10, BN_CLICKED), kControl), Handled(0));
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(10, BN_DOUBLECLICKED), kControl), std::nullopt);
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(12, BN_CLICKED), kControl), std::nullopt);
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(11, CBN_SELCHANGE), kControl), Handled(0));
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(60000, EN_CHANGE), kControl), Handled(60000));
  EXPECT_EQ(object.asked, "click void ");
}

TEST_F(Rows, TakeMenusAndAcceleratorsForCodeZero) {
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(3001, 0)), Handled(3001));
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(3005, 1)), Handled(3005));
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(3000, 0)), std::nullopt);
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(3006, 0)), std::nullopt);
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(10, 1)), Handled(0));
}

TEST_F(Rows, TellNotificationsByIdAndCode) {
  EXPECT_EQ(Notify(20, NM_CLICK), Handled(7));
  EXPECT_EQ(Notify(20, NM_DBLCLK), Handled(8));
  EXPECT_EQ(Notify(20, LVN_ITEMCHANGED), Handled(0));
  EXPECT_EQ(Notify(21, NM_CLICK), std::nullopt);
  EXPECT_EQ(Notify(30, NM_RCLICK), Handled(5));
  EXPECT_EQ(Notify(39, NM_RCLICK), Handled(5));
  EXPECT_EQ(Notify(40, NM_RCLICK), std::nullopt);
}

TEST_F(Rows, KeepReflectedMessagesApart) {
  EXPECT_EQ(Notify(20, NM_CLICK, true), Handled(0));
  EXPECT_EQ(object.asked, "notify ");
  EXPECT_EQ(Notify(20, NM_DBLCLK, true), std::nullopt);
  EXPECT_EQ(Send(WM_CTLCOLOREDIT), std::nullopt);
  EXPECT_EQ(object.RouteMessage({nullptr, WM_CTLCOLOREDIT, 0, 1, true}), Handled(42));
  EXPECT_EQ(object.RouteMessage({nullptr, WM_COMMAND, MAKEWPARAM(1, EN_KILLFOCUS), 1, true}), Handled(0));
  EXPECT_EQ(object.RouteMessage({nullptr, WM_COMMAND, MAKEWPARAM(1, EN_KILLFOCUS), 1, false}), std::nullopt);
}

TEST(Accessors, ReadTheParametersOfAMessage) {
  const Message mouse{nullptr, WM_MOUSEMOVE, 0, MAKELPARAM(-3, 70)};
  EXPECT_EQ(mouse.Position().x, -3);
  EXPECT_EQ(mouse.Position().y, 70);
  MINMAXINFO limits{};
  EXPECT_EQ((Message{nullptr, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits)}.Data<MINMAXINFO>()), &limits);
}

}  // namespace
