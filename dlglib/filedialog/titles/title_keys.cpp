#include "dlglib/filedialog/titles/title_keys.h"

#include <algorithm>
#include <optional>

#include "dlglib/base/virtual_keys.h"

namespace filedialog {

namespace {

/// Where a key leads to from one of `count` (-1: from none of them); none for a key that does not walk.
std::optional<int> Walked(int key, int at, int count) {
  constexpr int kPage = 8;
  const auto within = [count](int to) { return std::clamp(to, 0, std::max(count - 1, 0)); };
  switch (key) {
    case virtual_key::kUp:
      return within(at - 1);
    case virtual_key::kDown:
      return within(at + 1);
    case virtual_key::kPageUp:
      return within(at - kPage);
    case virtual_key::kPageDown:
      return within(at + kPage);
    case virtual_key::kHome:
      return within(0);
    case virtual_key::kEnd:
      return within(count - 1);
    default:
      return std::nullopt;
  }
}

TitleCommand PlanInList(int key, const TitleKeyState& state) {
  if (key == virtual_key::kEscape) return {TitleAction::CloseList};
  if (key == virtual_key::kEnter) return {state.entry >= 0 ? TitleAction::Pick : TitleAction::CloseList};
  const std::optional<int> entry = Walked(key, state.entry, state.entries);
  return entry ? TitleCommand{TitleAction::WalkTo, *entry} : TitleCommand();
}

TitleCommand PlanOpen(const TitleKeyState& state) {
  return state.rowsHaveFocus ? TitleCommand{TitleAction::OpenList, std::max(state.row, 0)} : TitleCommand();
}

}  // namespace

TitleCommand PlanTitleKey(int key, const TitleKeyState& state) {
  if (state.listIsOpen) return PlanInList(key, state);
  if (key == virtual_key::kF4) return PlanOpen(state);
  if (!state.rowsHaveFocus) return {};
  if (key == virtual_key::kF2) return {TitleAction::EditText, state.row};
  const std::optional<int> row = Walked(key, state.row, state.rows);
  if (!row) return {};
  return *row == state.row ? TitleCommand{TitleAction::Stay} : TitleCommand{TitleAction::ChooseRow, *row};
}

TitleCommand PlanTitleKeyWithAlt(int key, const TitleKeyState& state) {
  return key == virtual_key::kDown && !state.listIsOpen ? PlanOpen(state) : TitleCommand();
}

}  // namespace filedialog
