#include "tests/windows/driver/accessible.h"

#include <utility>

#include "platform/os/sjis_wide.h"

namespace driver {

namespace {

using Getter = HRESULT (IAccessible::*)(VARIANT, BSTR*);

std::string Read(IAccessible* object, LONG child, Getter getter) {
  BSTR text = nullptr;
  if ((object->*getter)(Accessible::Number(child), &text) != S_OK || text == nullptr) return {};
  const std::string sjis = os::SjisOf(std::wstring_view(text, SysStringLen(text)), os::kUnknown).bytes;
  SysFreeString(text);
  return sjis;
}

const char* RoleText(LONG role) {
  static constexpr struct {
    LONG role;
    const char* text;
  } kRoles[] = {{ROLE_SYSTEM_DIALOG, "ダイアログ"},
                {ROLE_SYSTEM_LIST, "リスト"},
                {ROLE_SYSTEM_LISTITEM, "項目"},
                {ROLE_SYSTEM_PUSHBUTTON, "ボタン"},
                {ROLE_SYSTEM_COMBOBOX, "コンボ"},
                {ROLE_SYSTEM_TABLE, "表"},
                {ROLE_SYSTEM_ROW, "行"},
                {ROLE_SYSTEM_CELL, "セル"},
                {ROLE_SYSTEM_TOOLBAR, "ツールバー"},
                {ROLE_SYSTEM_TOOLTIP, "ヒント"},
                {ROLE_SYSTEM_TEXT, "文字の欄"}};
  for (const auto& known : kRoles) {
    if (known.role == role) return known.text;
  }
  return "窓";
}

std::string StateText(LONG states) {
  static constexpr struct {
    LONG state;
    const char* text;
  } kStates[] = {{STATE_SYSTEM_UNAVAILABLE, " 使用不可"}, {STATE_SYSTEM_SELECTED, " 選択"},
                 {STATE_SYSTEM_FOCUSED, " フォーカス"},   {STATE_SYSTEM_PRESSED, " 押下"},
                 {STATE_SYSTEM_INVISIBLE, " 非表示"},     {STATE_SYSTEM_READONLY, " 読み取り専用"},
                 {STATE_SYSTEM_HASPOPUP, " メニュー付き"}};
  std::string text;
  for (const auto& known : kStates) {
    if ((states & known.state) != 0) text += known.text;
  }
  return text;
}

bool IsOwn(LONG role) { return role != ROLE_SYSTEM_CLIENT && role != ROLE_SYSTEM_WINDOW; }

/// A control of the system: with Wine they have few kinds, and say other things than on Windows.
bool IsOfSystem(const Accessible& thing) {
  const LONG role = thing.Role();
  const bool isText = role == ROLE_SYSTEM_TEXT && thing.ChildId() == CHILDID_SELF;
  return !IsOwn(role) || isText;
}

void Describe(const Accessible& thing, const std::string& indent, std::string* text) {
  const bool isSystem = IsOfSystem(thing);
  *text += indent + (isSystem ? "（部品）" : RoleText(thing.Role())) + "「" + thing.Name() + "」";
  if (!isSystem) {
    if (!thing.Value().empty()) *text += " 値「" + thing.Value() + "」";
    if (!thing.Description().empty()) *text += " 説明「" + thing.Description() + "」";
    if (!thing.Key().empty()) *text += " キー「" + thing.Key() + "」";
    if (!thing.Action().empty()) *text += " 動作「" + thing.Action() + "」";
    *text += StateText(thing.States());
  }
  *text += "\n";
  if (isSystem) return;
  for (const Accessible& child : thing.Children()) Describe(child, indent + "  ", text);
}

}  // namespace

Accessible::Accessible(const Accessible& other) : object_(other.object_), child_(other.child_) {
  if (object_ != nullptr) object_->AddRef();
}

Accessible& Accessible::operator=(Accessible other) noexcept {
  std::swap(object_, other.object_);
  std::swap(child_, other.child_);
  return *this;
}

Accessible::~Accessible() {
  if (object_ != nullptr) object_->Release();
}

Accessible Accessible::Of(Window window) {
  void* object = nullptr;
  const auto id = static_cast<DWORD>(OBJID_CLIENT);
  if (FAILED(AccessibleObjectFromWindow(window.Handle(), id, __uuidof(IAccessible), &object)) || object == nullptr) {
    throw Stuck("a window has no accessible object");
  }
  return Accessible(static_cast<IAccessible*>(object));
}

VARIANT Accessible::Number(LONG number) {
  VARIANT child{};
  child.vt = VT_I4;
  child.lVal = number;
  return child;
}

VARIANT Accessible::Self() const { return Number(child_); }
std::string Accessible::Name() const { return Read(object_, child_, &IAccessible::get_accName); }
std::string Accessible::Value() const { return Read(object_, child_, &IAccessible::get_accValue); }
std::string Accessible::Description() const { return Read(object_, child_, &IAccessible::get_accDescription); }
std::string Accessible::Key() const { return Read(object_, child_, &IAccessible::get_accKeyboardShortcut); }
std::string Accessible::Action() const { return Read(object_, child_, &IAccessible::get_accDefaultAction); }

LONG Accessible::Role() const {
  VARIANT role{};
  return object_->get_accRole(Self(), &role) == S_OK && role.vt == VT_I4 ? role.lVal : 0;
}

LONG Accessible::States() const {
  VARIANT states{};
  return object_->get_accState(Self(), &states) == S_OK && states.vt == VT_I4 ? states.lVal : 0;
}

RECT Accessible::Place() const {
  RECT place{};
  LONG width = 0;
  LONG height = 0;
  object_->accLocation(&place.left, &place.top, &width, &height, Self());
  place.right = place.left + width;
  place.bottom = place.top + height;
  return place;
}

std::vector<Accessible> Accessible::Children() const {
  std::vector<Accessible> children;
  LONG count = 0;
  if (child_ != CHILDID_SELF || object_->get_accChildCount(&count) != S_OK) return children;
  for (LONG at = 1; at <= count; ++at) children.push_back(Child(at));
  return children;
}

Accessible Accessible::Child(LONG number) const {
  IDispatch* dispatch = nullptr;
  if (object_->get_accChild(Number(number), &dispatch) == S_OK && dispatch != nullptr) {
    void* object = nullptr;
    dispatch->QueryInterface(__uuidof(IAccessible), &object);
    dispatch->Release();
    if (object != nullptr) return Accessible(static_cast<IAccessible*>(object));
  }
  object_->AddRef();
  return Accessible(object_, number);
}

Accessible Accessible::Find(const std::string& name) const {
  std::vector<Accessible> open = Children();
  for (std::size_t at = 0; at < open.size(); ++at) {
    const Accessible thing = open[at];
    if (thing.Name() == name) return thing;
    if (IsOfSystem(thing)) continue;
    for (const Accessible& child : thing.Children()) open.push_back(child);
  }
  throw Stuck("nothing is called " + name);
}

ScreenReader::ScreenReader() { SystemParametersInfoW(SPI_SETSCREENREADER, TRUE, nullptr, 0); }

ScreenReader::~ScreenReader() { SystemParametersInfoW(SPI_SETSCREENREADER, FALSE, nullptr, 0); }

std::string TreeText(const Accessible& root) {
  std::string text;
  Describe(root, "", &text);
  return text;
}

}  // namespace driver
