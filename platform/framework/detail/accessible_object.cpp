#include "platform/framework/detail/accessible_object.h"

#include <algorithm>
#include <atomic>
#include <optional>
#include <utility>

#include "platform/framework/detail/wide_text.h"
#include "platform/framework/window_handle.h"
#include "platform/os/accessible_number.h"

namespace framework {

using accessible::Item;
using accessible::kWhole;
using accessible::Node;

namespace {

// The import library has something else under the name IID_IAccessible, so the type is asked for its identifier.

/// Nothing may be thrown through the system.
template <class Call>
HRESULT Guarded(const Call& call) noexcept {
  try {
    return call();
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT GiveText(const std::string& text, BSTR* out) {
  if (text.empty()) return S_FALSE;
  const std::wstring wide = ToWide(text);
  *out = ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  return *out != nullptr ? S_OK : E_OUTOFMEMORY;
}

void GiveNumber(LONG number, VARIANT* out) noexcept {
  out->vt = VT_I4;
  out->lVal = number;
}

void GiveObject(IDispatch* object, VARIANT* out) noexcept {
  out->vt = VT_DISPATCH;
  out->pdispVal = object;
}

/// A window's inside, as any tool gets it; null for none.
IDispatch* ObjectOfWindow(HWND window) noexcept {
  void* object = nullptr;
  ::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IDispatch, &object);
  return static_cast<IDispatch*>(object);
}

/// What IDispatch asks for and no accessible object has.
class NoDispatch : public IAccessible, public IOleWindow {
 public:
  NoDispatch() noexcept = default;
  NoDispatch(const NoDispatch&) = delete;
  NoDispatch& operator=(const NoDispatch&) = delete;
  virtual ~NoDispatch() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(IAccessible))
      *out = static_cast<IAccessible*>(this);
    if (id == IID_IOleWindow) *out = static_cast<IOleWindow*>(this);
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_INVALIDARG;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

 private:
  std::atomic<ULONG> references_ = 1;
};

}  // namespace

UINT ActMessage() noexcept {
  static const UINT message = ::RegisterWindowMessageW(L"corvane.accessible.act");
  return message;
}

Apartment::Apartment() noexcept : entered_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

Apartment::~Apartment() {
  if (entered_) ::CoUninitialize();
}

bool IsBehindQuestion(HWND window) noexcept { return ::IsWindowEnabled(::GetAncestor(window, GA_ROOT)) == FALSE; }

// ---------------------------------------------------------------------------------------------------------------------
// several selected things at once

namespace {

/// Child numbers, one after the other.
class NumberList final : public IEnumVARIANT {
 public:
  explicit NumberList(std::vector<LONG> numbers) : numbers_(std::move(numbers)) {}
  NumberList(const NumberList&) = delete;
  NumberList& operator=(const NumberList&) = delete;
  virtual ~NumberList() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = id == IID_IUnknown || id == IID_IEnumVARIANT ? this : nullptr;
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* out, ULONG* fetched) override {
    if (out == nullptr) return E_INVALIDARG;
    ULONG given = 0;
    for (; given < count && at_ < numbers_.size(); ++given, ++at_) GiveNumber(numbers_[at_], &out[given]);
    if (fetched != nullptr) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const bool enough = count <= numbers_.size() - at_;
    at_ = enough ? at_ + count : numbers_.size();
    return enough ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    at_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** out) override {
    if (out == nullptr) return E_INVALIDARG;
    *out = nullptr;
    return Guarded([&] {
      auto* const copy = new NumberList(numbers_);
      copy->at_ = at_;
      *out = copy;
      return S_OK;
    });
  }

 private:
  std::atomic<ULONG> references_ = 1;
  std::vector<LONG> numbers_;
  std::size_t at_ = 0;
};

}  // namespace

// ---------------------------------------------------------------------------------------------------------------------
// objects of our own

namespace {

/// The part of a thing at a position, from 1 on; none outside.
std::optional<Node> PartAt(const accessible::Tree& tree, Node parent, int at) {
  if (at < 1 || at > tree.CountOf(parent)) return std::nullopt;
  return parent == kWhole ? Node{at, 0} : Node{parent.part, at};
}

/// Where a step leads from a thing; none where it leads out of the window.
std::optional<Node> BesideOrIn(const accessible::Tree& tree, Node node, LONG direction) {
  if (direction == NAVDIR_FIRSTCHILD) return node.sub == 0 ? PartAt(tree, node, 1) : std::nullopt;
  if (direction == NAVDIR_LASTCHILD) return node.sub == 0 ? PartAt(tree, node, tree.CountOf(node)) : std::nullopt;
  const bool isStep = direction == NAVDIR_NEXT || direction == NAVDIR_PREVIOUS;
  if (!isStep || node == kWhole) return std::nullopt;
  const Node parent = node.sub == 0 ? kWhole : Node{node.part, 0};
  const int at = node.sub == 0 ? node.part : node.sub;
  return PartAt(tree, parent, direction == NAVDIR_NEXT ? at + 1 : at - 1);
}

}  // namespace

/// A thing of a window, with its parts as child numbers.
class AccessibleObject final : public NoDispatch {
 public:
  AccessibleObject(std::shared_ptr<AccessibleLink> link, Node node) noexcept : link_(std::move(link)), node_(node) {}
  ~AccessibleObject() override { link_->Forget(this); }

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** out) override;
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* out) override;
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** out) override;
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* out) override;
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* out) override { return Text(child, &Item::value, out); }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* out) override {
    return Text(child, &Item::description, out);
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* out) override;
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* out) override;
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* out) override { return None(child, out); }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
    if (topic != nullptr) *topic = 0;
    return None(child, file);
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* out) override {
    return Text(child, &Item::key, out);
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* out) override;
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* out) override;
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* out) override {
    return Text(child, &Item::action, out);
  }
  HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override;
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
  HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* out) override;
  HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* out) override;
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return Refuse(); }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return Refuse(); }
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* out) override;

 private:
  [[nodiscard]] HRESULT Refuse() const noexcept {
    return link_->Tree() == nullptr ? CO_E_OBJNOTCONNECTED : DISP_E_MEMBERNOTFOUND;
  }
  /// The thing that a child number means; none for a wrong one.
  [[nodiscard]] std::optional<Node> Meant(const VARIANT& child) const;
  /// Calls with the tree and the thing that is meant, or answers what is wrong.
  template <class Call>
  HRESULT With(const VARIANT& child, const Call& call) const;
  HRESULT Text(const VARIANT& child, std::string Item::*text, BSTR* out) const;
  HRESULT None(const VARIANT& child, BSTR* out) const;
  /// Gives a thing as somebody who holds this object knows it.
  void Give(Node node, VARIANT* out) const;
  [[nodiscard]] std::optional<Node> HitByPlaces(LONG x, LONG y) const;

  std::shared_ptr<AccessibleLink> link_;
  Node node_;
};

std::optional<Node> AccessibleObject::Meant(const VARIANT& child) const {
  if (child.vt != VT_I4) return std::nullopt;
  if (child.lVal == CHILDID_SELF) return node_;
  if (child.lVal < 0 || node_.sub != 0) return std::nullopt;
  const bool isWhole = node_ == kWhole;
  const auto node = isWhole ? accessible::NodeOfNumber(child.lVal) : Node{node_.part, static_cast<int>(child.lVal)};
  if (!node) return std::nullopt;
  const Node parent = node->sub == 0 ? kWhole : Node{node->part, 0};
  const int at = node->sub == 0 ? node->part : node->sub;
  const bool isThere = at > 0 && at <= link_->Tree()->CountOf(parent);
  return isThere ? node : std::nullopt;
}

template <class Call>
HRESULT AccessibleObject::With(const VARIANT& child, const Call& call) const {
  return Guarded([&]() -> HRESULT {
    accessible::Tree* const tree = link_->Tree();
    if (tree == nullptr) return CO_E_OBJNOTCONNECTED;
    const auto node = Meant(child);
    return node ? call(*tree, *node) : E_INVALIDARG;
  });
}

HRESULT AccessibleObject::Text(const VARIANT& child, std::string Item::*text, BSTR* out) const {
  if (out == nullptr) return E_INVALIDARG;
  *out = nullptr;
  return With(child, [&](const accessible::Tree& tree, Node node) {
    const auto item = tree.Find(node);
    return item ? GiveText((*item).*text, out) : E_INVALIDARG;
  });
}

/// A window that was given a name is called by it, whatever its tree says.
HRESULT AccessibleObject::get_accName(VARIANT child, BSTR* out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = nullptr;
  return With(child, [&](const accessible::Tree&, Node node) {
    const auto given = node == kWhole ? GivenNameOf(link_->Window()) : nullptr;
    return given != nullptr ? GiveText(given->name(), out) : Text(child, &Item::name, out);
  });
}

HRESULT AccessibleObject::None(const VARIANT& child, BSTR* out) const {
  if (out == nullptr) return E_INVALIDARG;
  *out = nullptr;
  return With(child, [](const accessible::Tree&, Node) { return S_FALSE; });
}

void AccessibleObject::Give(Node node, VARIANT* out) const {
  if (node == node_) return GiveNumber(CHILDID_SELF, out);
  const accessible::Tree& tree = *link_->Tree();
  if (const auto window = static_cast<HWND>(tree.WindowOf(node)); window != nullptr) {
    IDispatch* const object = ObjectOfWindow(window);
    return object != nullptr ? GiveObject(object, out) : GiveNumber(node.part, out);
  }
  if (node_ == kWhole && node.sub == 0 && tree.CountOf(node) == 0) return GiveNumber(node.part, out);
  if (node_ == Node{node.part, 0}) return GiveNumber(node.sub, out);
  GiveObject(link_->Make(node), out);
}

HRESULT AccessibleObject::get_accParent(IDispatch** out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = nullptr;
  return Guarded([&]() -> HRESULT {
    if (link_->Tree() == nullptr) return CO_E_OBJNOTCONNECTED;
    if (node_ != kWhole) {
      *out = link_->Make(node_.sub == 0 ? kWhole : Node{node_.part, 0});
      return S_OK;
    }
    const HWND above = ::GetAncestor(link_->Window(), GA_PARENT);
    if (above != nullptr) *out = ObjectOfWindow(above);
    return *out != nullptr ? S_OK : S_FALSE;
  });
}

HRESULT AccessibleObject::get_accChildCount(LONG* out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = 0;
  return Guarded([&]() -> HRESULT {
    if (link_->Tree() == nullptr) return CO_E_OBJNOTCONNECTED;
    *out = link_->Tree()->CountOf(node_);
    return S_OK;
  });
}

HRESULT AccessibleObject::get_accChild(VARIANT child, IDispatch** out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = nullptr;
  return With(child, [&](const accessible::Tree&, Node node) -> HRESULT {
    VARIANT given{};
    if (child.lVal == CHILDID_SELF) return E_INVALIDARG;
    if (node_ == kWhole && node.sub != 0) {
      *out = link_->Make(node);
      return S_OK;
    }
    Give(node, &given);
    if (given.vt != VT_DISPATCH) return S_FALSE;
    *out = given.pdispVal;
    return S_OK;
  });
}

HRESULT AccessibleObject::get_accRole(VARIANT child, VARIANT* out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = {};
  return With(child, [&](const accessible::Tree& tree, Node node) {
    const auto item = tree.Find(node);
    if (item) GiveNumber(static_cast<LONG>(item->role), out);
    return item ? S_OK : E_INVALIDARG;
  });
}

HRESULT AccessibleObject::get_accState(VARIANT child, VARIANT* out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = {};
  return With(child, [&](const accessible::Tree& tree, Node node) {
    const auto item = tree.Find(node);
    if (item) GiveNumber(static_cast<LONG>(item->states), out);
    return item ? S_OK : E_INVALIDARG;
  });
}

HRESULT AccessibleObject::get_accFocus(VARIANT* out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = {};
  return Guarded([&]() -> HRESULT {
    const accessible::Tree* const tree = link_->Tree();
    if (tree == nullptr) return CO_E_OBJNOTCONNECTED;
    const HWND focus = ::GetFocus();
    const HWND own = link_->Window();
    const bool isHere = IsSameWindow(focus, own) || ::IsChild(own, focus) != FALSE;
    if (!isHere && (focus == nullptr || !tree->OwnsWindow(focus))) return S_FALSE;
    const auto node = tree->Focused();
    if (node) Give(*node, out);
    if (!node) GiveNumber(CHILDID_SELF, out);
    return S_OK;
  });
}

HRESULT AccessibleObject::get_accSelection(VARIANT* out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = {};
  return Guarded([&]() -> HRESULT {
    const accessible::Tree* const tree = link_->Tree();
    if (tree == nullptr) return CO_E_OBJNOTCONNECTED;
    const std::vector<Node> nodes = tree->Selected();
    if (nodes.empty()) return S_FALSE;
    if (nodes.size() == 1) {
      Give(nodes.front(), out);
      return S_OK;
    }
    std::vector<LONG> numbers;
    for (const Node& node : nodes) {
      if (const auto number = accessible::NumberOf(node)) numbers.push_back(*number);
    }
    out->punkVal = new NumberList(std::move(numbers));
    out->vt = VT_UNKNOWN;
    return S_OK;
  });
}

HRESULT AccessibleObject::accSelect(LONG flags, VARIANT child) {
  return With(child, [&](accessible::Tree& tree, Node node) {
    constexpr LONG kKnown = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION;
    if (flags == 0 || (flags & ~kKnown) != 0) return E_INVALIDARG;
    if (IsBehindQuestion(link_->Window())) return E_ACCESSDENIED;
    const bool selects = (flags & SELFLAG_TAKESELECTION) != 0;
    using Choice = accessible::Tree::Choice;
    return tree.Choose(node, selects ? Choice::Select : Choice::Focus) ? S_OK : S_FALSE;
  });
}

HRESULT AccessibleObject::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
  if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) return E_INVALIDARG;
  *left = *top = *width = *height = 0;
  return With(child, [&](const accessible::Tree& tree, Node node) {
    const auto item = tree.Find(node);
    if (!item) return E_INVALIDARG;
    *left = item->place.left;
    *top = item->place.top;
    *width = item->place.width;
    *height = item->place.height;
    return S_OK;
  });
}

/// Along the parts; which one lies above another their places tell. What stands beside the window its dialog knows.
HRESULT AccessibleObject::accNavigate(LONG direction, VARIANT start, VARIANT* out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = {};
  return With(start, [&](const accessible::Tree& tree, Node node) {
    if (!tree.Find(node)) return E_INVALIDARG;
    const auto target = BesideOrIn(tree, node, direction);
    if (!target) return S_FALSE;
    Give(*target, out);
    return S_OK;
  });
}

std::optional<Node> AccessibleObject::HitByPlaces(LONG x, LONG y) const {
  const accessible::Tree& tree = *link_->Tree();
  const auto holds = [&](Node node) {
    const auto item = tree.Find(node);
    return item && (item->states & accessible::kInvisible) == 0 && item->place.Holds(x, y);
  };
  if (!holds(node_)) return std::nullopt;
  for (int at = 1; at <= tree.CountOf(node_); ++at) {
    const Node part = node_ == kWhole ? Node{at, 0} : Node{node_.part, at};
    if (holds(part)) return part;
  }
  return node_;
}

HRESULT AccessibleObject::accHitTest(LONG x, LONG y, VARIANT* out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = {};
  return Guarded([&]() -> HRESULT {
    const accessible::Tree* const tree = link_->Tree();
    if (tree == nullptr) return CO_E_OBJNOTCONNECTED;
    auto node = node_ == kWhole ? tree->At(x, y) : std::nullopt;
    if (!node) node = HitByPlaces(x, y);
    if (!node) return S_FALSE;
    Give(*node, out);
    return S_OK;
  });
}

HRESULT AccessibleObject::accDoDefaultAction(VARIANT child) {
  return With(child, [&](const accessible::Tree& tree, Node node) {
    const auto item = tree.Find(node);
    if (!item) return E_INVALIDARG;
    if (item->action.empty()) return DISP_E_MEMBERNOTFOUND;
    if (IsBehindQuestion(link_->Window())) return E_ACCESSDENIED;
    if ((item->states & accessible::kUnavailable) != 0) return S_FALSE;
    return link_->AskToAct(node);
  });
}

HRESULT AccessibleObject::GetWindow(HWND* out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = link_->Tree() != nullptr ? link_->Window() : nullptr;
  return *out != nullptr ? S_OK : CO_E_OBJNOTCONNECTED;
}

void AccessibleLink::Cut() noexcept {
  const auto keep = shared_from_this();
  tree_ = nullptr;
  while (!objects_.empty()) {
    AccessibleObject* const object = objects_.back();
    objects_.pop_back();
    object->AddRef();
    ::CoDisconnectObject(static_cast<IAccessible*>(object), 0);
    object->Release();
  }
}

IAccessible* AccessibleLink::Make(Node node) {
  objects_.reserve(objects_.size() + 1);
  auto* const object = new AccessibleObject(shared_from_this(), node);
  objects_.push_back(object);
  return object;
}

void AccessibleLink::Forget(AccessibleObject* object) noexcept { std::erase(objects_, object); }

HRESULT AccessibleLink::AskToAct(Node node) {
  const WPARAM number = ++lastNumber_;
  asked_.push_back({number, node, tree_->IdentityOf(node)});
  if (::PostMessageW(window_, ActMessage(), number, 0) != FALSE) return S_OK;
  asked_.pop_back();
  return E_FAIL;
}

/// A question may have come up since the call, the list may have been filled anew, the button have become unavailable.
void AccessibleLink::Act(WPARAM number) {
  const auto found = std::ranges::find(asked_, number, &Asked::number);
  if (found == asked_.end()) return;
  const Asked asked = *found;
  asked_.erase(found);
  if (tree_ == nullptr || IsBehindQuestion(window_) || tree_->IdentityOf(asked.node) != asked.identity) return;
  const auto item = tree_->Find(asked.node);
  if (item && !item->action.empty() && (item->states & accessible::kUnavailable) == 0) tree_->Act(asked.node);
}

// ---------------------------------------------------------------------------------------------------------------------
// the system's objects

IAccessible* SystemObjectOf(HWND window) noexcept {
  void* object = nullptr;
  const HRESULT result = ::CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible), &object);
  return SUCCEEDED(result) ? static_cast<IAccessible*>(object) : nullptr;
}

LRESULT AnswerWith(WPARAM wParam, IAccessible* object) noexcept {
  const LRESULT answer = ::LresultFromObject(__uuidof(IAccessible), wParam, object);
  object->Release();
  return answer;
}

namespace {

/// The system's object for a control, under another name.
class NamedObject final : public NoDispatch {
 public:
  NamedObject(IAccessible* inner, HWND window, std::shared_ptr<const ControlName> name)
      : inner_(inner), window_(window), name_(std::move(name)) {}
  ~NamedObject() override { inner_->Release(); }

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** out) override {
    return Read(out, [&] { return inner_->get_accParent(out); });
  }
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* out) override {
    return Read(out, [&] { return inner_->get_accChildCount(out); });
  }
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** out) override {
    return Read(out, [&] { return inner_->get_accChild(child, out); });
  }
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* out) override {
    return Read(out, [&] {
      if (child.vt != VT_I4 || child.lVal != CHILDID_SELF) return inner_->get_accName(child, out);
      *out = nullptr;
      return Guarded([&] { return GiveText(name_->name(), out); });
    });
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* out) override {
    return Read(out, [&] { return inner_->get_accValue(child, out); });
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* out) override {
    return Read(out, [&] { return inner_->get_accDescription(child, out); });
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* out) override {
    return Read(out, [&] { return inner_->get_accRole(child, out); });
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* out) override {
    return Read(out, [&] { return inner_->get_accState(child, out); });
  }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* out) override {
    return Read(out, [&] { return inner_->get_accHelp(child, out); });
  }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
    if (topic == nullptr) return E_INVALIDARG;
    return Read(file, [&] { return inner_->get_accHelpTopic(file, child, topic); });
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* out) override {
    return Read(out, [&] { return inner_->get_accKeyboardShortcut(child, out); });
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* out) override {
    return Read(out, [&] { return inner_->get_accFocus(out); });
  }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* out) override {
    return Read(out, [&] { return inner_->get_accSelection(out); });
  }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* out) override {
    return Read(out, [&] { return inner_->get_accDefaultAction(child, out); });
  }
  HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
    return Do([&] { return inner_->accSelect(flags, child); });
  }
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
    const bool hasRoom = left != nullptr && top != nullptr && width != nullptr && height != nullptr;
    return Read(hasRoom ? left : nullptr, [&] { return inner_->accLocation(left, top, width, height, child); });
  }
  HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* out) override {
    return Read(out, [&] { return inner_->accNavigate(direction, start, out); });
  }
  HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* out) override {
    return Read(out, [&] { return inner_->accHitTest(x, y, out); });
  }
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
    return Do([&] { return inner_->accDoDefaultAction(child); });
  }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override {
    return IsThere() ? DISP_E_MEMBERNOTFOUND : CO_E_OBJNOTCONNECTED;
  }
  /// A box takes a text as from the keyboard.
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR text) override {
    return Do([&] { return inner_->put_accValue(child, text); });
  }
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* out) override {
    if (out == nullptr) return E_INVALIDARG;
    *out = IsThere() ? window_ : nullptr;
    return *out != nullptr ? S_OK : CO_E_OBJNOTCONNECTED;
  }

 private:
  [[nodiscard]] bool IsThere() const noexcept { return name_->holds; }
  /// The system's objects write to a null result.
  template <class Call>
  [[nodiscard]] HRESULT Read(const void* result, Call call) {
    if (!IsThere()) return CO_E_OBJNOTCONNECTED;
    return result == nullptr ? E_INVALIDARG : call();
  }
  template <class Call>
  [[nodiscard]] HRESULT Do(Call call) {
    if (!IsThere()) return CO_E_OBJNOTCONNECTED;
    return IsBehindQuestion(window_) ? E_ACCESSDENIED : call();
  }

  IAccessible* inner_;
  HWND window_;
  std::shared_ptr<const ControlName> name_;
};

}  // namespace

IAccessible* MakeNamed(IAccessible* inner, HWND window, std::shared_ptr<const ControlName> name) {
  return new NamedObject(inner, window, std::move(name));
}

}  // namespace framework
