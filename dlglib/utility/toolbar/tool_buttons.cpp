#include "dlglib/utility/toolbar/tool_buttons.h"

#include "dlglib/base/virtual_keys.h"

namespace tool_buttons {
namespace {

constexpr std::array<std::string_view, kLastCommand - kFirstCommand + 1> kTips = {
    "テキストライブラリ", "メタ文字", "レジスタ", "詳細", "ヘルプ",
};

}  // namespace

Buttons FromMask(int mask) noexcept {
  Buttons buttons;
  for (std::size_t i = 0; i < kCount; ++i) {
    const int index = static_cast<int>(i);
    buttons[i] = {static_cast<Kind>(index), kFirstCommand + index, index, (mask >> index & 1) != 0, {}};
  }
  return buttons;
}

std::optional<std::size_t> Find(const Buttons& buttons, tool_table::Point at) noexcept {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (buttons[i].rect.Touches(at)) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> NextUsable(const std::array<bool, kCount>& usable, std::optional<std::size_t> from,
                                      Step step) noexcept {
  constexpr auto kEnd = static_cast<int>(kCount);
  const int by = step == Step::Forward ? 1 : -1;
  const int start = step == Step::Forward ? -1 : kEnd;
  for (int at = (from ? static_cast<int>(*from) : start) + by; at >= 0 && at < kEnd; at += by) {
    if (usable[static_cast<std::size_t>(at)]) return static_cast<std::size_t>(at);
  }
  return from;
}

KeyAction ActionOf(int key) noexcept {
  switch (key) {
    case virtual_key::kRight:
    case virtual_key::kDown:
      return KeyAction::Forward;
    case virtual_key::kLeft:
    case virtual_key::kUp:
      return KeyAction::Backward;
    case virtual_key::kHome:
      return KeyAction::First;
    case virtual_key::kEnd:
      return KeyAction::Last;
    case virtual_key::kEnter:
    case virtual_key::kSpace:
      return KeyAction::Press;
    case virtual_key::kEscape:
      return KeyAction::Leave;
    default:
      return KeyAction::Pass;
  }
}

bool AsksFor(int key) noexcept { return key == virtual_key::kEnter || key == virtual_key::kEscape; }

std::string_view TipOf(int command) noexcept {
  if (command < kFirstCommand || command > kLastCommand) return {};
  return kTips[static_cast<std::size_t>(command - kFirstCommand)];
}

accessible::Item ItemOf(const Button& button, bool usable) {
  accessible::Item item;
  item.name = TipOf(button.command);
  item.action = "押す";
  item.role = accessible::Role::PushButton;
  item.states = accessible::kFocusable | (usable ? 0 : accessible::kUnavailable);
  return item;
}

}  // namespace tool_buttons
