// What a program says of things that it draws itself, to those who do not look at the screen: names, kinds, states,
// places and actions as plain values. platform/framework/detail/accessible.h hands them to the system.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/os/os.h"

namespace accessible {

/// Kinds of things, as the platform numbers them.
enum class Role : int {
  ToolTip = 0x0D,
  Client = 0x0A,
  Dialog = 0x12,
  ToolBar = 0x16,
  Table = 0x18,
  Row = 0x1C,
  Cell = 0x1D,
  List = 0x21,
  ListItem = 0x22,
  Text = 0x2A,
  PushButton = 0x2B,
  ComboBox = 0x2E,
};

/// States, as the platform numbers them; several at once.
using States = std::uint32_t;
inline constexpr States kUnavailable = 0x1;
inline constexpr States kSelected = 0x2;
inline constexpr States kFocused = 0x4;
inline constexpr States kPressed = 0x8;
inline constexpr States kReadOnly = 0x40;
inline constexpr States kHot = 0x80;
inline constexpr States kInvisible = 0x8000;
inline constexpr States kOffScreen = 0x10000;
inline constexpr States kFocusable = 0x100000;
inline constexpr States kSelectable = 0x200000;
inline constexpr States kMultiSelectable = 0x1000000;
inline constexpr States kHasPopup = 0x40000000;

/// Pixels of the screen.
struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  [[nodiscard]] bool Holds(int x, int y) const noexcept {
    return x >= left && x < left + width && y >= top && y < top + height;
  }
  friend bool operator==(const Place&, const Place&) = default;
};

/// One thing. Texts are Shift_JIS; an empty one is none.
struct Item {
  std::string name;
  std::string value;
  std::string description;
  std::string key;
  std::string action;  ///< what it does when it is acted on, as a verb
  Role role = Role::Client;
  States states = 0;
  Place place;
};

/// A thing of a window by its position: {0, 0} is the window's inside itself, {k, 0} its k-th part (from 1), {k, j} the
/// j-th part of that one.
struct Node {
  int part = 0;
  int sub = 0;

  friend bool operator==(const Node&, const Node&) = default;
};
inline constexpr Node kWhole{};

/// What a window consists of. Asked on the window's own thread while the window exists, and never while the window
/// fills itself.
class Tree {
 public:
  virtual ~Tree() = default;

  /// How many parts a thing has; 0 for what has none, and for what there is not.
  [[nodiscard]] virtual int CountOf(Node node) const = 0;
  /// None for what there is not.
  [[nodiscard]] virtual std::optional<Item> Find(Node node) const = 0;
  /// The window that a part is, which speaks for itself; null for a part that is none.
  [[nodiscard]] virtual os::WindowHandle WindowOf(Node) const { return nullptr; }
  /// Whether a window belongs to this one although it is none of its children: the keyboard in it is here.
  [[nodiscard]] virtual bool OwnsWindow(os::WindowHandle) const { return false; }
  /// What has the keyboard's focus while the window has it.
  [[nodiscard]] virtual std::optional<Node> Focused() const { return std::nullopt; }
  [[nodiscard]] virtual std::vector<Node> Selected() const { return {}; }
  /// The innermost thing at a point of the screen; none when it is known by the places of the parts alone.
  [[nodiscard]] virtual std::optional<Node> At(int /*x*/, int /*y*/) const { return std::nullopt; }
  /// Another number once something else stands in the node's place. An action that was asked for before is dropped.
  [[nodiscard]] virtual std::uint64_t IdentityOf(Node) const { return 0; }
  /// Does what a click on it does; false when it does nothing.
  virtual bool Act(Node) { return false; }
  /// Makes it the one that is focused, and selected when `selects`; false when it cannot be.
  enum class Choice { Focus, Select };
  virtual bool Choose(Node, Choice) { return false; }

  Tree() = default;
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
};

}  // namespace accessible
