// The buttons of the dialog's toolbar: their commands, which of them may be used, where they are, what their tips say.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "dlglib/utility/toolbar/tool_table.h"
#include "platform/os/accessible.h"

namespace tool_buttons {

enum class Kind { TextLibrary, MetaChar, Register };

inline constexpr std::size_t kCount = 3;
/// The others follow. Tips exist up to kLastCommand; the last two commands have no button.
inline constexpr int kFirstCommand = 2001;
inline constexpr int kLastCommand = 2005;

struct Button {
  Kind kind = Kind::TextLibrary;
  int command = 0;
  int image = 0;
  bool enabled = false;
  tool_table::Rect rect;  ///< in the toolbar, pixels; all of its edges belong to it
};

using Buttons = std::array<Button, kCount>;

/// Bit i of the mask enables button i; further bits count for nothing. The rectangles are empty.
[[nodiscard]] Buttons FromMask(int mask) noexcept;

/// The first button that holds a point.
[[nodiscard]] std::optional<std::size_t> Find(const Buttons& buttons, tool_table::Point at) noexcept;

enum class Step { Forward, Backward };

/// The next button of those that may be used, from one on, or from the end that the step starts at. At the last one it
/// stays there; none when there is none to use.
[[nodiscard]] std::optional<std::size_t> NextUsable(const std::array<bool, kCount>& usable,
                                                    std::optional<std::size_t> from, Step step) noexcept;

/// What a key does while the toolbar has the focus.
enum class KeyAction {
  Pass,      ///< it is the dialog's
  Forward,   ///< to the next button, as NextUsable has it
  Backward,  ///< to the former one
  First,
  Last,
  Press,  ///< the button that the keys have come to
  Leave,  ///< the focus goes back to where it came from
};

/// `key`: as in virtual_keys.h.
[[nodiscard]] KeyAction ActionOf(int key) noexcept;
/// Whether the toolbar wants a key that is the dialog's wherever nobody asks for it.
[[nodiscard]] bool AsksFor(int key) noexcept;

/// Longest text of a tip that is handed out, in bytes.
inline constexpr std::size_t kTipLimit = 79;

/// What the tip of a command says, Shift_JIS; empty for any other command.
[[nodiscard]] std::string_view TipOf(int command) noexcept;

/// What is said of a button to those who do not see it; its place is the caller's to fill in.
[[nodiscard]] accessible::Item ItemOf(const Button& button, bool usable);

}  // namespace tool_buttons
