// A window's accessible things, as a tool in the same process gets them.
#include "platform/framework/detail/accessible.h"

#include <gtest/gtest.h>
#include <oleacc.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/framework/accessible_name.h"
#include "platform/framework/detail/wide_text.h"
#include "tests/framework/fixtures.h"

namespace {

using accessible::Item;
using accessible::Node;
using accessible::Role;

/// Two buttons, and between them a row of two cells.
class Things final : public accessible::Tree {
 public:
  [[nodiscard]] int CountOf(Node node) const override {
    if (node == accessible::kWhole) return 3;
    return node == Node{2, 0} ? 2 : 0;
  }
  [[nodiscard]] std::optional<Item> Find(Node node) const override {
    Item item;
    item.role = node.sub != 0 ? Role::Cell : Role::PushButton;
    item.place = {100 + 10 * node.part, 200 + 10 * node.sub, 10, 10};
    if (node == accessible::kWhole) {
      item = {"全体", "", "", "", "", Role::ToolBar, 0, {100, 200, 50, 50}};
      return item;
    }
    if (node == Node{2, 0}) {
      item.role = Role::Row;
      item.place = {120, 200, 10, 30};
    }
    if (node.part > 3) return std::nullopt;
    item.name = "部品" + std::to_string(node.part) + (node.sub != 0 ? "." + std::to_string(node.sub) : "");
    if (node.part == 1) {
      item.action = "押す";
      item.key = "Alt+V";
      item.description = "説明";
    }
    if (node.part == 3) item.states = accessible::kUnavailable;
    if (node.part == 1) item.states = firstStates;
    return item;
  }
  [[nodiscard]] bool OwnsWindow(os::WindowHandle window) const override { return window != nullptr && window == box; }
  [[nodiscard]] std::uint64_t IdentityOf(Node node) const override { return node == Node{1, 0} ? first : 0; }
  [[nodiscard]] std::optional<Node> Focused() const override { return Node{2, 1}; }
  [[nodiscard]] std::vector<Node> Selected() const override { return selected; }
  bool Act(Node node) override {
    acted.push_back(node);
    return true;
  }
  bool Choose(Node node, Choice) override {
    chosen.push_back(node);
    return true;
  }

  std::vector<Node> acted;
  std::vector<Node> chosen;
  std::vector<Node> selected;
  os::WindowHandle box = nullptr;
  std::uint64_t first = 0;  ///< what stands in the first place
  accessible::States firstStates = 0;
};

VARIANT Child(LONG number) {
  VARIANT child{};
  child.vt = VT_I4;
  child.lVal = number;
  return child;
}

std::string TextOf(BSTR text) {
  const std::string sjis = text != nullptr ? framework::ToShiftJis(std::wstring_view(text, SysStringLen(text))) : "";
  SysFreeString(text);
  return sjis;
}

class AccessibleTest : public testing::Test {
 protected:
  AccessibleTest() {
    CoInitialize(nullptr);
    window_.Begin(host_.Window(), things_);
  }
  ~AccessibleTest() override {
    if (object_ != nullptr) object_->Release();
    host_.Destroy();
    CoUninitialize();
  }

  /// What a tool gets of the window.
  IAccessible* Object() {
    if (object_ != nullptr) return object_;
    void* object = nullptr;
    EXPECT_EQ(
        AccessibleObjectFromWindow(host_.Window(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object),
        S_OK);
    object_ = static_cast<IAccessible*>(object);
    return object_;
  }
  static std::string Name(IAccessible* object, LONG child) {
    BSTR text = nullptr;
    EXPECT_EQ(object->get_accName(Child(child), &text), S_OK);
    return TextOf(text);
  }
  static IAccessible* ChildObject(IAccessible* object, LONG child) {
    IDispatch* dispatch = nullptr;
    EXPECT_EQ(object->get_accChild(Child(child), &dispatch), S_OK);
    if (dispatch == nullptr) return nullptr;
    void* given = nullptr;
    dispatch->QueryInterface(__uuidof(IAccessible), &given);
    dispatch->Release();
    return static_cast<IAccessible*>(given);
  }
  static void ExpectGone(IAccessible* object);
  static void HandleAll() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
  }

  Things things_;
  PlainHost host_;
  WatchedAccessibleWindow window_;
  IAccessible* object_ = nullptr;
};

TEST_F(AccessibleTest, ATreeIsReadByNumbersAndObjects) {
  LONG count = 0;
  EXPECT_EQ(Object()->get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(Name(Object(), CHILDID_SELF), "全体");
  EXPECT_EQ(Name(Object(), 1), "部品1");
  IAccessible* const row = ChildObject(Object(), 2);
  EXPECT_EQ(Name(row, CHILDID_SELF), "部品2");
  EXPECT_EQ(Name(row, 2), "部品2.2");
  EXPECT_EQ(row->get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 2);
  row->Release();
  IDispatch* none = nullptr;
  EXPECT_EQ(Object()->get_accChild(Child(1), &none), S_FALSE);
  EXPECT_EQ(none, nullptr);
}

TEST_F(AccessibleTest, EverythingThatIsSaidOfAThingIsRead) {
  BSTR text = nullptr;
  EXPECT_EQ(Object()->get_accDescription(Child(1), &text), S_OK);
  EXPECT_EQ(TextOf(text), "説明");
  EXPECT_EQ(Object()->get_accKeyboardShortcut(Child(1), &text), S_OK);
  EXPECT_EQ(TextOf(text), "Alt+V");
  EXPECT_EQ(Object()->get_accDefaultAction(Child(1), &text), S_OK);
  EXPECT_EQ(TextOf(text), "押す");
  EXPECT_EQ(Object()->get_accValue(Child(1), &text), S_FALSE);
  EXPECT_EQ(text, nullptr);
  VARIANT value{};
  EXPECT_EQ(Object()->get_accRole(Child(1), &value), S_OK);
  EXPECT_EQ(value.lVal, ROLE_SYSTEM_PUSHBUTTON);
  EXPECT_EQ(Object()->get_accState(Child(3), &value), S_OK);
  EXPECT_EQ(value.lVal, STATE_SYSTEM_UNAVAILABLE);
  LONG left = 0;
  LONG top = 0;
  LONG width = 0;
  LONG height = 0;
  EXPECT_EQ(Object()->accLocation(&left, &top, &width, &height, Child(3)), S_OK);
  EXPECT_EQ((std::vector<LONG>{left, top, width, height}), (std::vector<LONG>{130, 200, 10, 10}));
}

TEST_F(AccessibleTest, AThingIsFoundByItsPlace) {
  VARIANT found{};
  EXPECT_EQ(Object()->accHitTest(112, 205, &found), S_OK);
  EXPECT_EQ(found.lVal, 1);
  EXPECT_EQ(Object()->accHitTest(149, 249, &found), S_OK);
  EXPECT_EQ(found.lVal, CHILDID_SELF);
  EXPECT_EQ(Object()->accHitTest(10, 10, &found), S_FALSE);
  EXPECT_EQ(found.vt, VT_EMPTY);
}

TEST_F(AccessibleTest, PartsAreWalkedThrough) {
  VARIANT found{};
  EXPECT_EQ(Object()->accNavigate(NAVDIR_FIRSTCHILD, Child(CHILDID_SELF), &found), S_OK);
  EXPECT_EQ(found.lVal, 1);
  EXPECT_EQ(Object()->accNavigate(NAVDIR_PREVIOUS, Child(3), &found), S_OK);
  EXPECT_EQ(found.vt, VT_DISPATCH) << "the row is an object";
  found.pdispVal->Release();
  EXPECT_EQ(Object()->accNavigate(NAVDIR_NEXT, Child(3), &found), S_FALSE);
}

/// What a step leads to, whether it is told as an object or as a number of the one that was asked; "" for nothing.
std::string NameAfter(IAccessible* object, LONG direction, LONG child) {
  VARIANT found{};
  if (object->accNavigate(direction, Child(child), &found) != S_OK) return "";
  void* given = nullptr;
  if (found.vt == VT_DISPATCH) {
    found.pdispVal->QueryInterface(__uuidof(IAccessible), &given);
    found.pdispVal->Release();
  }
  auto* const there = given != nullptr ? static_cast<IAccessible*>(given) : object;
  BSTR text = nullptr;
  there->get_accName(Child(found.vt == VT_I4 ? found.lVal : CHILDID_SELF), &text);
  if (given != nullptr) there->Release();
  return TextOf(text);
}

constexpr LONG kFirstCell = 0x40000000 + 2 * 1024 + 1;
constexpr LONG kSecondCell = kFirstCell + 1;

// An event of the focus leads tools to the object of a row or of a cell, and they go on from there.
TEST_F(AccessibleTest, RowsAndCellsAreWalkedThroughByTheirObjects) {
  IAccessible* const row = ChildObject(Object(), 2);
  EXPECT_EQ(NameAfter(row, NAVDIR_NEXT, CHILDID_SELF), "部品3");
  EXPECT_EQ(NameAfter(row, NAVDIR_PREVIOUS, CHILDID_SELF), "部品1");
  EXPECT_EQ(NameAfter(row, NAVDIR_FIRSTCHILD, CHILDID_SELF), "部品2.1");
  EXPECT_EQ(NameAfter(row, NAVDIR_LASTCHILD, CHILDID_SELF), "部品2.2");
  EXPECT_EQ(NameAfter(row, NAVDIR_NEXT, 1), "部品2.2");
  EXPECT_EQ(NameAfter(row, NAVDIR_NEXT, 2), "");
  row->Release();
  IAccessible* const cell = ChildObject(Object(), kFirstCell);
  EXPECT_EQ(NameAfter(cell, NAVDIR_NEXT, CHILDID_SELF), "部品2.2");
  EXPECT_EQ(NameAfter(cell, NAVDIR_PREVIOUS, CHILDID_SELF), "");
  EXPECT_EQ(NameAfter(cell, NAVDIR_FIRSTCHILD, CHILDID_SELF), "");
  cell->Release();
}

TEST_F(AccessibleTest, CellsAreWalkedThroughByTheirNumbersToo) {
  EXPECT_EQ(NameAfter(Object(), NAVDIR_NEXT, kFirstCell), "部品2.2");
  EXPECT_EQ(NameAfter(Object(), NAVDIR_PREVIOUS, kSecondCell), "部品2.1");
  EXPECT_EQ(NameAfter(Object(), NAVDIR_PREVIOUS, kFirstCell), "");
  EXPECT_EQ(NameAfter(Object(), NAVDIR_NEXT, kSecondCell), "");
  EXPECT_EQ(NameAfter(Object(), NAVDIR_NEXT, CHILDID_SELF), "") << "what is beside the window, its dialog knows";
}

TEST_F(AccessibleTest, SeveralSelectedThingsAreCounted) {
  VARIANT selected{};
  EXPECT_EQ(Object()->get_accSelection(&selected), S_FALSE);
  things_.selected = {{1, 0}};
  EXPECT_EQ(Object()->get_accSelection(&selected), S_OK);
  EXPECT_EQ(selected.lVal, 1);
  things_.selected = {{1, 0}, {3, 0}};
  ASSERT_EQ(Object()->get_accSelection(&selected), S_OK);
  ASSERT_EQ(selected.vt, VT_UNKNOWN);
  void* list = nullptr;
  ASSERT_EQ(selected.punkVal->QueryInterface(IID_IEnumVARIANT, &list), S_OK);
  VARIANT numbers[3] = {};
  ULONG fetched = 0;
  EXPECT_EQ(static_cast<IEnumVARIANT*>(list)->Next(3, numbers, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 2U);
  EXPECT_EQ(numbers[1].lVal, 3);
  static_cast<IEnumVARIANT*>(list)->Release();
  selected.punkVal->Release();
}

// An action may run a dialog or end the window, which a tool must not wait for.
TEST_F(AccessibleTest, AnActionIsDoneAfterTheCall) {
  EXPECT_EQ(Object()->accDoDefaultAction(Child(1)), S_OK);
  EXPECT_TRUE(things_.acted.empty());
  EXPECT_TRUE(PumpUntil([&] { return !things_.acted.empty(); }));
  EXPECT_EQ(things_.acted, (std::vector<Node>{{1, 0}}));
  EXPECT_EQ(Object()->accDoDefaultAction(Child(2)), DISP_E_MEMBERNOTFOUND) << "it has none";
  EXPECT_EQ(Object()->accSelect(SELFLAG_TAKESELECTION | SELFLAG_TAKEFOCUS, Child(1)), S_OK);
  EXPECT_EQ(things_.chosen, (std::vector<Node>{{1, 0}}));
}

TEST_F(AccessibleTest, AnActionOfWhatHasGoneMeanwhileIsDropped) {
  EXPECT_EQ(Object()->accDoDefaultAction(Child(1)), S_OK);
  ++things_.first;
  EXPECT_EQ(Object()->accDoDefaultAction(Child(1)), S_OK);
  EXPECT_TRUE(PumpUntil([&] { return !things_.acted.empty(); }));
  HandleAll();
  EXPECT_EQ(things_.acted, (std::vector<Node>{{1, 0}})) << "the second one is for what stands there now";
}

TEST_F(AccessibleTest, AnActionOfWhatCannotBeUsedAnyMoreIsDropped) {
  EXPECT_EQ(Object()->accDoDefaultAction(Child(1)), S_OK);
  things_.firstStates = accessible::kUnavailable;
  HandleAll();
  EXPECT_TRUE(things_.acted.empty());
  things_.firstStates = 0;
  HandleAll();
  EXPECT_TRUE(things_.acted.empty()) << "nor is it done later";
}

TEST_F(AccessibleTest, TheFocusIsHereInAWindowThatBelongsToIt) {
  const HWND box =
      ::CreateWindowExA(0, "EDIT", "", WS_POPUP | WS_VISIBLE, 0, 0, 99, 20, nullptr, nullptr, nullptr, nullptr);
  ::SetFocus(box);
  VARIANT focus{};
  EXPECT_EQ(Object()->get_accFocus(&focus), S_FALSE) << "somebody else's";
  things_.box = box;
  EXPECT_EQ(Object()->get_accFocus(&focus), S_OK);
  ASSERT_EQ(focus.vt, VT_DISPATCH);
  focus.pdispVal->Release();
  ::DestroyWindow(box);
}

TEST_F(AccessibleTest, NothingIsDoneBehindAQuestion) {
  EXPECT_EQ(Object()->accDoDefaultAction(Child(1)), S_OK);
  EnableWindow(host_.Window(), FALSE);
  EXPECT_EQ(Object()->accDoDefaultAction(Child(1)), E_ACCESSDENIED);
  EXPECT_EQ(Object()->accSelect(SELFLAG_TAKEFOCUS, Child(1)), E_ACCESSDENIED);
  EXPECT_EQ(Object()->accSelect(SELFLAG_TAKEFOCUS, Child(4)), E_INVALIDARG);
  EXPECT_EQ(Name(Object(), 1), "部品1") << "all is read";
  HandleAll();
  EXPECT_TRUE(things_.acted.empty()) << "the question has come before the action";
  EXPECT_TRUE(things_.chosen.empty());
}

// ---------------------------------------------------------------------------------------------------------------------
// bad input

TEST_F(AccessibleTest, NumbersThatMeanNothingAreRefused) {
  BSTR text = nullptr;
  VARIANT out{};
  IDispatch* object = nullptr;
  LONG place[4] = {};
  for (const LONG child : {-1L, 4L, 0x7FFFFFFFL, 0x40000000L, 0x40000000L + 2 * 1024 + 3, 0x40000000L + 2 * 1024}) {
    EXPECT_EQ(Object()->get_accName(Child(child), &text), E_INVALIDARG) << child;
    EXPECT_EQ(Object()->get_accState(Child(child), &out), E_INVALIDARG) << child;
    EXPECT_EQ(Object()->get_accChild(Child(child), &object), E_INVALIDARG) << child;
    EXPECT_EQ(Object()->accLocation(&place[0], &place[1], &place[2], &place[3], Child(child)), E_INVALIDARG) << child;
    EXPECT_EQ(Object()->accDoDefaultAction(Child(child)), E_INVALIDARG) << child;
    EXPECT_EQ(Object()->accSelect(SELFLAG_TAKEFOCUS, Child(child)), E_INVALIDARG) << child;
  }
  VARIANT noNumber{};
  noNumber.vt = VT_R8;
  EXPECT_EQ(Object()->get_accName(noNumber, &text), E_INVALIDARG);
  EXPECT_EQ(Object()->accSelect(0x1000, Child(1)), E_INVALIDARG);
}

TEST_F(AccessibleTest, NamesAndValuesAreNotTakenFromTools) {
  const BSTR text = ::SysAllocString(L"x");
  EXPECT_EQ(Object()->put_accName(Child(1), text), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Object()->put_accValue(Child(1), text), DISP_E_MEMBERNOTFOUND);
  host_.Destroy();
  EXPECT_EQ(Object()->put_accName(Child(1), text), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(Object()->put_accValue(Child(1), text), CO_E_OBJNOTCONNECTED);
  ::SysFreeString(text);
}

TEST_F(AccessibleTest, NullResultsAreRefused) {
  EXPECT_EQ(Object()->get_accName(Child(1), nullptr), E_INVALIDARG);
  EXPECT_EQ(Object()->get_accRole(Child(1), nullptr), E_INVALIDARG);
  EXPECT_EQ(Object()->get_accChildCount(nullptr), E_INVALIDARG);
  EXPECT_EQ(Object()->get_accChild(Child(1), nullptr), E_INVALIDARG);
  EXPECT_EQ(Object()->get_accFocus(nullptr), E_INVALIDARG);
  EXPECT_EQ(Object()->get_accSelection(nullptr), E_INVALIDARG);
  EXPECT_EQ(Object()->accHitTest(0, 0, nullptr), E_INVALIDARG);
  EXPECT_EQ(Object()->accNavigate(NAVDIR_NEXT, Child(1), nullptr), E_INVALIDARG);
  EXPECT_EQ(Object()->accLocation(nullptr, nullptr, nullptr, nullptr, Child(1)), E_INVALIDARG);
}

// ---------------------------------------------------------------------------------------------------------------------
// life

void AccessibleTest::ExpectGone(IAccessible* object) {
  BSTR text = nullptr;
  VARIANT out{};
  IDispatch* other = nullptr;
  LONG number = 0;
  EXPECT_EQ(object->get_accName(Child(CHILDID_SELF), &text), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->get_accState(Child(CHILDID_SELF), &out), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->get_accParent(&other), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->get_accChildCount(&number), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->get_accChild(Child(1), &other), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->get_accFocus(&out), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->get_accSelection(&out), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, Child(1)), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->accLocation(&number, &number, &number, &number, Child(1)), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->accNavigate(NAVDIR_FIRSTCHILD, Child(0), &out), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->accHitTest(1, 1, &out), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->accDoDefaultAction(Child(1)), CO_E_OBJNOTCONNECTED);
}

TEST_F(AccessibleTest, ObjectsOutliveTheirWindowAndSayThatItIsGone) {
  IAccessible* const row = ChildObject(Object(), 2);
  host_.Destroy();
  ExpectGone(Object());
  ExpectGone(row);
  row->Release();
}

TEST_F(AccessibleTest, AWindowThatSpeaksNoMoreGivesItsObjectsUp) {
  static_cast<void>(Object());
  window_.End();
  ExpectGone(Object());
}

TEST_F(AccessibleTest, OtherRequestsAreTheSystems) {
  EXPECT_EQ(::SendMessageW(host_.Window(), WM_GETOBJECT, 0, OBJID_CARET), 0);
  EXPECT_NE(::SendMessageW(host_.Window(), WM_GETOBJECT, 0, static_cast<LPARAM>(static_cast<DWORD>(OBJID_CLIENT))), 0)
      << "32 bits of the request count";
}

TEST_F(AccessibleTest, AControlOfTheSystemBearsTheNameThatItWasGiven) {
  const HWND combo = ::CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 99, 99, host_.Window(),
                                       nullptr, nullptr, nullptr);
  NamedControl named(combo, "ファイルの種類");
  void* given = nullptr;
  ASSERT_EQ(AccessibleObjectFromWindow(combo, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &given), S_OK);
  auto* const object = static_cast<IAccessible*>(given);
  EXPECT_EQ(Name(object, CHILDID_SELF), "ファイルの種類");
  VARIANT role{};
  EXPECT_EQ(object->get_accRole(Child(CHILDID_SELF), &role), S_OK);
  ::DestroyWindow(combo);
  BSTR text = nullptr;
  EXPECT_EQ(object->get_accName(Child(CHILDID_SELF), &text), CO_E_OBJNOTCONNECTED);
  object->Release();
}

/// A combo box without a text, and what tools are told of it.
class GivenName : public AccessibleTest {
 protected:
  ~GivenName() override { ::DestroyWindow(combo_); }

  [[nodiscard]] std::string Told() const {
    IAccessible* const object = Asked();
    BSTR text = nullptr;
    const bool hasName = object->get_accName(Child(CHILDID_SELF), &text) == S_OK;
    ::SysFreeString(text);
    const std::string name = hasName ? Name(object, CHILDID_SELF) : std::string();
    object->Release();
    return name;
  }
  [[nodiscard]] IAccessible* Asked() const {
    void* given = nullptr;
    EXPECT_EQ(AccessibleObjectFromWindow(combo_, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &given),
              S_OK);
    return static_cast<IAccessible*>(given);
  }

  HWND combo_ = ::CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 99, 99, host_.Window(), nullptr,
                                  nullptr, nullptr);
};

TEST_F(GivenName, IsToldUntilTheControlGetsAnotherOne) {
  EXPECT_EQ(Told(), "") << "the system knows none";
  framework::SetAccessibleName(combo_, "ファイルの種類");
  EXPECT_EQ(Told(), "ファイルの種類");
  framework::SetAccessibleName(combo_, "表示");
  EXPECT_EQ(Told(), "表示");
  framework::SetAccessibleName(combo_, "");
  EXPECT_EQ(Told(), "");
  framework::SetAccessibleName(combo_, "能");
  framework::SetAccessibleName(combo_, nullptr);
  EXPECT_EQ(Told(), "");
}

TEST_F(GivenName, GoesWithTheControl) {
  framework::SetAccessibleName(combo_, "ファイルの種類");
  IAccessible* const object = Asked();
  ::DestroyWindow(combo_);
  BSTR text = nullptr;
  EXPECT_EQ(object->get_accName(Child(CHILDID_SELF), &text), CO_E_OBJNOTCONNECTED);
  object->Release();
  framework::SetAccessibleName(combo_, "nobody is called so");
  framework::SetAccessibleName(HWND{nullptr}, "nobody is called so");
}

TEST_F(GivenName, DoesNothingBehindAQuestion) {
  framework::SetAccessibleName(combo_, "ファイルの種類");
  IAccessible* const object = Asked();
  ::EnableWindow(host_.Window(), FALSE);
  EXPECT_EQ(object->accDoDefaultAction(Child(CHILDID_SELF)), E_ACCESSDENIED);
  EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, Child(CHILDID_SELF)), E_ACCESSDENIED);
  EXPECT_EQ(Told(), "ファイルの種類") << "it is still read";
  ::EnableWindow(host_.Window(), TRUE);
  EXPECT_NE(object->accSelect(SELFLAG_TAKEFOCUS, Child(CHILDID_SELF)), E_ACCESSDENIED);
  object->Release();
}

TEST_F(GivenName, IsNotTakenFromTools) {
  framework::SetAccessibleName(combo_, "ファイルの種類");
  IAccessible* const object = Asked();
  const BSTR text = ::SysAllocString(L"x");
  EXPECT_EQ(object->put_accName(Child(CHILDID_SELF), text), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Told(), "ファイルの種類");
  ::DestroyWindow(combo_);
  EXPECT_EQ(object->put_accName(Child(CHILDID_SELF), text), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->put_accValue(Child(CHILDID_SELF), text), CO_E_OBJNOTCONNECTED);
  ::SysFreeString(text);
  object->Release();
}

TEST_F(GivenName, LeavesTheValueToTheSystem) {
  void* given = nullptr;
  const VARIANT self = Child(CHILDID_SELF);
  ASSERT_EQ(::CreateStdAccessibleObject(combo_, OBJID_CLIENT, __uuidof(IAccessible), &given), S_OK);
  auto* const systems = static_cast<IAccessible*>(given);
  framework::SetAccessibleName(combo_, "ファイルの種類");
  IAccessible* const object = Asked();
  const BSTR text = ::SysAllocString(L"x");
  EXPECT_EQ(object->put_accValue(self, text), systems->put_accValue(self, text));
  ::EnableWindow(host_.Window(), FALSE);
  EXPECT_EQ(object->put_accValue(self, text), E_ACCESSDENIED) << "as a person cannot either behind a question";
  ::EnableWindow(host_.Window(), TRUE);
  ::SysFreeString(text);
  object->Release();
  systems->Release();
}

TEST_F(GivenName, RefusesNullResults) {
  framework::SetAccessibleName(combo_, "ファイルの種類");
  IAccessible* const object = Asked();
  const VARIANT self = Child(CHILDID_SELF);
  EXPECT_EQ(object->get_accName(self, nullptr), E_INVALIDARG);
  EXPECT_EQ(object->get_accRole(self, nullptr), E_INVALIDARG);
  EXPECT_EQ(object->get_accState(self, nullptr), E_INVALIDARG);
  EXPECT_EQ(object->get_accValue(self, nullptr), E_INVALIDARG);
  EXPECT_EQ(object->get_accParent(nullptr), E_INVALIDARG);
  EXPECT_EQ(object->get_accChildCount(nullptr), E_INVALIDARG);
  EXPECT_EQ(object->get_accFocus(nullptr), E_INVALIDARG);
  EXPECT_EQ(object->accHitTest(0, 0, nullptr), E_INVALIDARG);
  EXPECT_EQ(object->accLocation(nullptr, nullptr, nullptr, nullptr, self), E_INVALIDARG);
  object->Release();
}

TEST_F(AccessibleTest, AWindowWithThingsOfItsOwnIsCalledAsItIsGivenAndKeepsThem) {
  framework::SetAccessibleName(host_.Window(), "部品表");
  EXPECT_EQ(Name(Object(), CHILDID_SELF), "部品表");
  EXPECT_EQ(Name(Object(), 1), "部品1");
  LONG count = 0;
  EXPECT_EQ(Object()->get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 3);
  IAccessible* const row = ChildObject(Object(), 2);
  EXPECT_EQ(Name(row, CHILDID_SELF), "部品2");
  row->Release();
  framework::SetAccessibleName(host_.Window(), nullptr);
  EXPECT_EQ(Name(Object(), CHILDID_SELF), "全体");
}

TEST_F(AccessibleTest, ANameThatWasThereBeforeTheThingsIsTheirs) {
  window_.End();
  framework::SetAccessibleName(host_.Window(), "部品表");
  window_.Begin(host_.Window(), things_);
  EXPECT_EQ(Name(Object(), CHILDID_SELF), "部品表");
  EXPECT_EQ(Name(Object(), 3), "部品3");
}

}  // namespace
