#include "platform/framework/reflection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/framework/fixtures.h"

namespace {

constexpr UINT kControlId = 10001;

// One kind of message that a parent gets about a control: how it is sent for the control.
struct Sent {
  const char* name;
  UINT id;
  std::function<LRESULT(HWND parent, HWND control)> send;
};

void PrintTo(const Sent& sent, std::ostream* out) { *out << sent.name; }

template <class Data>
LRESULT SendData(HWND parent, UINT id, WPARAM wParam, Data data) {
  return ::SendMessageW(parent, id, wParam, reinterpret_cast<LPARAM>(&data));
}

Sent ByLParam(const char* name, UINT id, WPARAM wParam = 0) {
  return {name, id, [=](HWND parent, HWND control) {
            return ::SendMessageW(parent, id, wParam, reinterpret_cast<LPARAM>(control));
          }};
}

std::vector<Sent> AllMessages() {
  return {
      ByLParam("Command", WM_COMMAND, MAKEWPARAM(kControlId, EN_CHANGE)),
      {"Notify", WM_NOTIFY,
       [](HWND parent, HWND control) {
         return SendData(parent, WM_NOTIFY, kControlId, NMHDR{control, kControlId, NM_CLICK});
       }},
      {"DrawItem", WM_DRAWITEM,
       [](HWND parent, HWND control) {
         DRAWITEMSTRUCT item{};
         item.CtlType = ODT_BUTTON;
         item.hwndItem = control;
         return SendData(parent, WM_DRAWITEM, kControlId, item);
       }},
      {"MeasureItem", WM_MEASUREITEM,
       [](HWND parent, HWND) {
         MEASUREITEMSTRUCT item{};
         item.CtlType = ODT_LISTBOX;
         item.CtlID = kControlId;
         return SendData(parent, WM_MEASUREITEM, kControlId, item);
       }},
      {"DeleteItem", WM_DELETEITEM,
       [](HWND parent, HWND control) {
         DELETEITEMSTRUCT item{};
         item.hwndItem = control;
         return SendData(parent, WM_DELETEITEM, kControlId, item);
       }},
      {"CompareItem", WM_COMPAREITEM,
       [](HWND parent, HWND control) {
         COMPAREITEMSTRUCT item{};
         item.hwndItem = control;
         return SendData(parent, WM_COMPAREITEM, kControlId, item);
       }},
      ByLParam("CtlColorBtn", WM_CTLCOLORBTN),
      ByLParam("CtlColorDlg", WM_CTLCOLORDLG),
      ByLParam("CtlColorEdit", WM_CTLCOLOREDIT),
      ByLParam("CtlColorListBox", WM_CTLCOLORLISTBOX),
      ByLParam("CtlColorMsgBox", WM_CTLCOLORMSGBOX),
      ByLParam("CtlColorScrollBar", WM_CTLCOLORSCROLLBAR),
      ByLParam("CtlColorStatic", WM_CTLCOLORSTATIC),
      ByLParam("HScroll", WM_HSCROLL, SB_LINEDOWN),
      ByLParam("VScroll", WM_VSCROLL, SB_LINEDOWN),
      ByLParam("VKeyToItem", WM_VKEYTOITEM, 'A'),
      ByLParam("CharToItem", WM_CHARTOITEM, 'A'),
      ByLParam("ParentNotify", WM_PARENTNOTIFY, MAKEWPARAM(WM_CREATE, kControlId)),
  };
}

// A parent of one of the three kinds, and what it got to see itself.
class Parent {
 public:
  virtual ~Parent() = default;
  [[nodiscard]] virtual HWND Window() const = 0;
  std::vector<UINT> seen;
};

class WindowParent : public Parent {
 public:
  WindowParent() {
    window_.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0);
    window_.onMessage = [this](const Message& message) -> Handled { return seen.push_back(message.id), std::nullopt; };
  }
  [[nodiscard]] HWND Window() const override { return window_.m_hWnd; }

 private:
  Probe<CWnd> window_;
};

class DialogParent : public Parent {
 public:
  DialogParent() {
    dialog_.CreateIndirect(template_.Get());
    dialog_.onMessage = [this](const Message& message) -> Handled { return seen.push_back(message.id), std::nullopt; };
  }
  [[nodiscard]] HWND Window() const override { return dialog_.m_hWnd; }

 private:
  TemplateBuilder template_;
  Probe<CDialog> dialog_;
};

class HostParent : public Parent {
 public:
  HostParent() {
    reflector_.Watch(host_.Window());
    host_.onMessage = [this](UINT id, WPARAM, LPARAM) { return seen.push_back(id), std::pair(false, LRESULT{}); };
  }
  [[nodiscard]] HWND Window() const override { return host_.Window(); }

 private:
  PlainHost host_;
  HostReflector reflector_;
};

class Reflected : public testing::TestWithParam<Sent> {
 protected:
  // Sends the message for a control that answers `answer`; returns the result and what control and parent saw.
  void Run(Parent& parent, Handled answer) {
    Probe<CStatic> control;
    ASSERT_TRUE(
        control.CWnd::Create("STATIC", "", WS_CHILD, {0, 0, 9, 9}, CWnd::FromHandle(parent.Window()), kControlId));
    asked = 0;
    control.onMessage = [&](const Message& message) -> Handled {
      if (!message.reflected) return std::nullopt;
      EXPECT_EQ(message.id, GetParam().id);
      EXPECT_EQ(message.window, parent.Window());
      ++asked;
      return answer;
    };
    parent.seen.clear();
    result = GetParam().send(parent.Window(), control.m_hWnd);
    control.onMessage = nullptr;
    parentSaw = static_cast<int>(std::count(parent.seen.begin(), parent.seen.end(), GetParam().id));
  }

  LRESULT result = 0;
  int asked = 0;
  int parentSaw = 0;
};

TEST_P(Reflected, ReachesTheControlFirstInAWindow) {
  WindowParent parent;
  Run(parent, 1);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(parentSaw, 0);
  EXPECT_EQ(result, 1);
}

TEST_P(Reflected, ReachesTheParentWhenTheControlDeclines) {
  WindowParent parent;
  Run(parent, std::nullopt);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(parentSaw, 1);
}

TEST_P(Reflected, TakesZeroForAnAnswer) {
  WindowParent parent;
  Run(parent, 0);
  EXPECT_EQ(parentSaw, 0);
  EXPECT_EQ(result, 0);
}

TEST_P(Reflected, ReachesTheControlOnceInADialogAndBringsItsResultBack) {
  DialogParent parent;
  Run(parent, 1);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(parentSaw, 0);
  EXPECT_EQ(result, 1);
  Run(parent, std::nullopt);
  EXPECT_EQ(parentSaw, 1);
}

TEST_P(Reflected, ReachesControlAndHostInAPlainHost) {
  HostParent parent;
  Run(parent, 1);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(parentSaw, 1);
  EXPECT_EQ(result, 1);
  Run(parent, std::nullopt);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(parentSaw, 1);
}

INSTANTIATE_TEST_SUITE_P(Messages, Reflected, testing::ValuesIn(AllMessages()),
                         [](const auto& sent) { return std::string(sent.param.name); });

TEST(ReflectionTable, HoldsTheTestedMessagesAndNoOthers) {
  std::vector<UINT> tested;
  for (const Sent& sent : AllMessages()) tested.push_back(sent.id);
  for (UINT id = 0; id <= 0xFFFF; ++id) {
    const bool expected = std::find(tested.begin(), tested.end(), id) != tested.end();
    EXPECT_EQ(framework::ReflectionOf(id) != framework::ControlPlace::None, expected) << id;
  }
}

TEST(ReflectionTarget, IsNoMenuAndNoStranger) {
  Probe<CWnd> parent;
  Probe<CStatic> control;
  ASSERT_TRUE(parent.Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
  ASSERT_TRUE(control.CWnd::Create("STATIC", "", WS_CHILD, {0, 0, 9, 9}, &parent, kControlId));
  const auto target = [&](UINT id, WPARAM wParam, const void* data) {
    return framework::ReflectionTarget({parent.m_hWnd, id, wParam, reinterpret_cast<LPARAM>(data)});
  };
  DRAWITEMSTRUCT drawn{};
  drawn.CtlType = ODT_MENU;
  drawn.hwndItem = control.m_hWnd;
  EXPECT_EQ(target(WM_DRAWITEM, 0, &drawn), nullptr);
  MEASUREITEMSTRUCT measured{};
  measured.CtlType = ODT_MENU;
  measured.CtlID = kControlId;
  EXPECT_EQ(target(WM_MEASUREITEM, 0, &measured), nullptr);
  EXPECT_EQ(target(WM_COMMAND, kControlId, nullptr), nullptr);
  EXPECT_EQ(target(WM_VSCROLL, SB_LINEDOWN, nullptr), nullptr);
  EXPECT_EQ(target(WM_PARENTNOTIFY, WM_LBUTTONDOWN, control.m_hWnd), nullptr);
  EXPECT_EQ(target(WM_PARENTNOTIFY, WM_DESTROY, control.m_hWnd), control.m_hWnd);
  EXPECT_EQ(target(WM_CTLCOLORDLG, 0, parent.m_hWnd), nullptr);
  EXPECT_EQ(target(WM_SIZE, 0, control.m_hWnd), nullptr);
  // What a control passes on from a window of its own.
  Probe<CStatic> inner;
  ASSERT_TRUE(inner.CWnd::Create("STATIC", "", WS_CHILD, {0, 0, 9, 9}, &control, 5));
  NMHDR header{inner.m_hWnd, 5, NM_CLICK};
  EXPECT_EQ(target(WM_NOTIFY, 5, &header), nullptr);
}

// An owner-drawn list asks for the height of its items while it is being created.
template <class ParentKind>
void MeasuresDuringItsCreation() {
  ParentKind parent;
  Probe<CListBox> list;
  list.onMessage = [](const Message& message) -> Handled {
    if (!message.reflected || message.id != WM_MEASUREITEM) return std::nullopt;
    message.Data<MEASUREITEMSTRUCT>()->itemHeight = 33;
    return TRUE;
  };
  ASSERT_TRUE(list.Create(WS_CHILD | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, {0, 0, 50, 99},
                          CWnd::FromHandle(parent.Window()), 10002));
  EXPECT_EQ(list.GetItemHeight(0), 33);
}

TEST(MeasureItem, ReachesAControlThatIsBeingCreated) {
  MeasuresDuringItsCreation<WindowParent>();
  MeasuresDuringItsCreation<DialogParent>();
  MeasuresDuringItsCreation<HostParent>();
}

TEST(MeasureItem, ReachesTheControlThatIsBeingCreatedAmongOthersOfItsId) {
  WindowParent parent;
  CEdit earlier;
  ASSERT_TRUE(earlier.Create(WS_CHILD, {0, 0, 1, 1}, CWnd::FromHandle(parent.Window()), 10002));
  Probe<CListBox> list;
  bool asked = false;
  list.onMessage = [&](const Message& message) -> Handled {
    asked = asked || (message.reflected && message.id == WM_MEASUREITEM);
    return std::nullopt;
  };
  ASSERT_TRUE(list.Create(WS_CHILD | LBS_OWNERDRAWFIXED, {0, 0, 50, 99}, CWnd::FromHandle(parent.Window()), 10002));
  EXPECT_TRUE(asked);
}

TEST(DialogResult, IsTheReturnValueForTheDirectMessagesOnly) {
  TemplateBuilder builder;
  CDialog dialog;
  ASSERT_TRUE(dialog.CreateIndirect(builder.Get()));
  const auto stored = [&] { return ::GetWindowLongPtrW(dialog.m_hWnd, DWLP_MSGRESULT); };
  for (const int message :
       {WM_CTLCOLORBTN, WM_CTLCOLORDLG, WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX, WM_CTLCOLORMSGBOX, WM_CTLCOLORSCROLLBAR,
        WM_CTLCOLORSTATIC, WM_COMPAREITEM, WM_VKEYTOITEM, WM_CHARTOITEM, WM_QUERYDRAGICON, WM_INITDIALOG}) {
    const auto id = static_cast<UINT>(message);
    ::SetWindowLongPtrW(dialog.m_hWnd, DWLP_MSGRESULT, 7);
    EXPECT_EQ(framework::DialogResult(dialog.m_hWnd, id, 5), 5) << id;
    EXPECT_EQ(framework::DialogResult(dialog.m_hWnd, id, 0), 0) << id;
    EXPECT_EQ(stored(), 7) << id;
  }
  for (const int message : {WM_COMMAND, WM_NOTIFY, WM_DRAWITEM, WM_MEASUREITEM, WM_SIZE, WM_NOTIFYFORMAT, WM_APP}) {
    const auto id = static_cast<UINT>(message);
    EXPECT_EQ(framework::DialogResult(dialog.m_hWnd, id, 5), TRUE) << id;
    EXPECT_EQ(stored(), 5) << id;
    EXPECT_EQ(framework::DialogResult(dialog.m_hWnd, id, 0), TRUE) << id;
    EXPECT_EQ(stored(), 0) << id;
  }
  const HWND gone = dialog.m_hWnd;
  dialog.DestroyWindow();
  EXPECT_EQ(framework::DialogResult(gone, WM_COMMAND, 5), TRUE);
}

TEST(Reflection, SurvivesAControlThatDestroysItsParent) {
  auto parent = std::make_unique<Probe<CWnd>>();
  ASSERT_TRUE(parent->Create("STATIC", "", WS_POPUP, kSomewhere, nullptr, 0));
  Probe<CStatic> control;
  ASSERT_TRUE(control.CWnd::Create("STATIC", "", WS_CHILD, {0, 0, 9, 9}, parent.get(), kControlId));
  control.onMessage = [&](const Message& message) -> Handled {
    if (message.reflected && message.id == WM_COMMAND) parent.reset();
    return std::nullopt;
  };
  const HWND window = parent->m_hWnd;
  ::SendMessageW(window, WM_COMMAND, kControlId, reinterpret_cast<LPARAM>(control.m_hWnd));
  EXPECT_EQ(parent, nullptr);
  EXPECT_FALSE(::IsWindow(window));
  EXPECT_EQ(control.m_hWnd, nullptr);
}

TEST(Reflection, StopsWhatAControlThrowsAtTheParentsProcedure) {
  WindowParent parent;
  Probe<CStatic> control;
  ASSERT_TRUE(
      control.CWnd::Create("STATIC", "", WS_CHILD, {0, 0, 9, 9}, CWnd::FromHandle(parent.Window()), kControlId));
  control.onMessage = [&](const Message& message) -> Handled {
    if (message.reflected) throw std::runtime_error("control");
    return std::nullopt;
  };
  EXPECT_EQ(::SendMessageW(parent.Window(), WM_COMMAND, kControlId, reinterpret_cast<LPARAM>(control.m_hWnd)), 0);
  EXPECT_TRUE(::IsWindow(parent.Window()));
}

// --- plain hosts

class Editor : public CEdit {
 public:
  Handled RouteMessage(const Message& message) override {
    static constexpr MessageRow<Editor> kRows[] = {OnReflectedCommand(EN_CHANGE, &Editor::OnChange)};
    return Route<CEdit>(*this, kRows, message);
  }
  int changes = 0;

 private:
  void OnChange() { ++changes; }
};

TEST(PlainHosts, AreSubclassedOnceAndLetGoWithTheLastWatcher) {
  PlainHost host;
  const LONG_PTR before = host.Procedure();
  HostReflector first;
  HostReflector second;
  first.Watch(host.Window());
  const LONG_PTR watched = host.Procedure();
  EXPECT_NE(watched, before);
  second.Watch(host.Window());
  second.Watch(host.Window());
  EXPECT_EQ(host.Procedure(), watched);
  EXPECT_EQ(first.Host(), host.Window());
  first.Release();
  first.Release();
  EXPECT_EQ(first.Host(), nullptr);
  EXPECT_EQ(host.Procedure(), watched);
  second.Release();
  EXPECT_EQ(host.Procedure(), before);
}

TEST(PlainHosts, ReflectTypedTextToItsEditor) {
  PlainHost host;
  int hostSaw = 0;
  host.onMessage = [&](UINT id, WPARAM wParam, LPARAM) {
    if (id == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) ++hostSaw;
    return std::pair(false, LRESULT{});
  };
  HostReflector reflector;
  reflector.Watch(host.Window());
  Editor editor;
  ASSERT_TRUE(editor.Create(WS_CHILD, {0, 0, 50, 20}, CWnd::FromHandle(host.Window()), 10000));
  ::SendMessageW(editor.m_hWnd, WM_CHAR, L'表', 1);
  EXPECT_EQ(editor.changes, 1);
  EXPECT_EQ(hostSaw, 1);
  reflector.Release();
  ::SendMessageW(editor.m_hWnd, WM_CHAR, L'a', 1);
  EXPECT_EQ(editor.changes, 1);
}

TEST(PlainHosts, ReflectWhicheverHandleTheSystemNamesThemBy) {
  PlainHost host;
  int hostSaw = 0;
  host.onMessage = [&](UINT id, WPARAM, LPARAM) {
    if (id == WM_COMMAND) ++hostSaw;
    return std::pair(false, LRESULT{});
  };
  HostReflector reflector;
  reflector.Watch(host.Window());
  Editor editor;
  ASSERT_TRUE(editor.Create(WS_CHILD, {0, 0, 50, 20}, CWnd::FromHandle(host.Window()), 10000));
  for (const HWND named : {host.Window(), OtherHandle(host.Window())}) {
    for (const HWND control : {editor.m_hWnd, OtherHandle(editor.m_hWnd)}) {
      ::SendMessageW(named, WM_COMMAND, MAKEWPARAM(10000, EN_CHANGE), reinterpret_cast<LPARAM>(control));
    }
  }
  EXPECT_EQ(editor.changes, 4);
  EXPECT_EQ(hostSaw, 4);
}

TEST(PlainHosts, MayDieBeforeTheirWatchers) {
  PlainHost host;
  HostReflector reflector;
  reflector.Watch(host.Window());
  host.Destroy();
  EXPECT_EQ(reflector.Host(), nullptr);
  reflector.Release();
  PlainHost next;
  reflector.Watch(next.Window());
  EXPECT_EQ(reflector.Host(), next.Window());
}

TEST(PlainHosts, AreLetGoByADyingWatcher) {
  PlainHost host;
  const LONG_PTR before = host.Procedure();
  {
    HostReflector reflector;
    reflector.Watch(host.Window());
  }
  EXPECT_EQ(host.Procedure(), before);
  EXPECT_TRUE(::IsWindow(host.Window()));
}

TEST(PlainHosts, StayEightBitHosts) {
  PlainHost host(false);
  const LONG_PTR before = host.Procedure();
  HostReflector reflector;
  reflector.Watch(host.Window());
  EXPECT_EQ(::SendMessageW(host.Window(), WM_NOTIFYFORMAT, 0, NF_QUERY), NFR_ANSI);
  reflector.Release();
  EXPECT_FALSE(::IsWindowUnicode(host.Window()));
  EXPECT_EQ(host.Procedure(), before);
}

TEST(PlainHosts, OfNobodyAreNotWatched) {
  HostReflector reflector;
  reflector.Watch(nullptr);
  EXPECT_EQ(reflector.Host(), nullptr);
  reflector.Watch(::GetDesktopWindow());
  EXPECT_EQ(reflector.Host(), nullptr);
}

TEST(PlainHosts, SeeTheMessageEvenWhenTheControlFails) {
  HostParent parent;
  Probe<CStatic> control;
  ASSERT_TRUE(
      control.CWnd::Create("STATIC", "", WS_CHILD, {0, 0, 9, 9}, CWnd::FromHandle(parent.Window()), kControlId));
  control.onMessage = [&](const Message& message) -> Handled {
    if (message.reflected) throw std::runtime_error("control");
    return std::nullopt;
  };
  parent.seen.clear();
  ::SendMessageW(parent.Window(), WM_COMMAND, kControlId, reinterpret_cast<LPARAM>(control.m_hWnd));
  EXPECT_EQ(std::count(parent.seen.begin(), parent.seen.end(), static_cast<UINT>(WM_COMMAND)), 1);
}

template <class Watched>
void ReflectsOnce(Watched& parent) {
  HostReflector reflector;
  reflector.Watch(parent.Window());
  Editor editor;
  ASSERT_TRUE(editor.Create(WS_CHILD, {0, 0, 50, 20}, CWnd::FromHandle(parent.Window()), 10000));
  ::SendMessageW(editor.m_hWnd, WM_CHAR, L'a', 1);
  EXPECT_EQ(editor.changes, 1);
}

TEST(PlainHosts, ThatAreWindowsOfTheFrameworkReflectOnce) {
  DialogParent dialog;
  const LONG_PTR before = ::GetWindowLongPtrW(dialog.Window(), GWLP_WNDPROC);
  ReflectsOnce(dialog);
  EXPECT_EQ(::GetWindowLongPtrW(dialog.Window(), GWLP_WNDPROC), before);
  WindowParent window;
  ReflectsOnce(window);
}

TEST(PlainHosts, ThatBecomeWindowsOfTheFrameworkReflectOnceThroughout) {
  PlainHost host;
  const LONG_PTR before = host.Procedure();
  HostReflector reflector;
  reflector.Watch(host.Window());
  Editor editor;
  ASSERT_TRUE(editor.Create(WS_CHILD, {0, 0, 50, 20}, CWnd::FromHandle(host.Window()), 10000));
  const auto type = [&] { ::SendMessageW(editor.m_hWnd, WM_CHAR, L'a', 1); };
  {
    CWnd object;
    ASSERT_TRUE(object.TakeWindow(host.Window()));
    type();
    EXPECT_EQ(editor.changes, 1);
  }
  type();
  EXPECT_EQ(editor.changes, 2);
  {
    CWnd object;
    ASSERT_TRUE(object.Attach(host.Window()));
    type();
    EXPECT_EQ(editor.changes, 3);
  }
  reflector.Release();
  EXPECT_EQ(host.Procedure(), before);
}

TEST(PlainHosts, TakeOverWhenADialogLosesItsObject) {
  TemplateBuilder builder;
  auto dialog = std::make_unique<CDialog>();
  ASSERT_TRUE(dialog->CreateIndirect(builder.Get()));
  const HWND window = dialog->m_hWnd;
  HostReflector reflector;
  reflector.Watch(window);
  Editor editor;
  ASSERT_TRUE(editor.Create(WS_CHILD, {0, 0, 50, 20}, dialog.get(), 10000));
  dialog->Detach();
  ::SendMessageW(editor.m_hWnd, WM_CHAR, L'a', 1);
  EXPECT_EQ(editor.changes, 1);
  ASSERT_TRUE(dialog->Attach(window));
  ::SendMessageW(editor.m_hWnd, WM_CHAR, L'a', 1);
  EXPECT_EQ(editor.changes, 2);
  ::DestroyWindow(window);
  EXPECT_EQ(dialog->m_hWnd, nullptr);
  EXPECT_EQ(reflector.Host(), nullptr);
}

}  // namespace
