#include "dlglib/filedialog/basics/area_item.h"

#include <array>

namespace filedialog {

namespace {

struct Words {
  const char* name;
  const char* tip;
  const char* key;
  accessible::States always;
};

// In the order of HotArea.
constexpr std::array<Words, kHotAreaCount> kWords = {{
    {"表示", "表示メニュー", "Alt+V", accessible::kHasPopup},
    {"新しいフォルダ", "新しいフォルダの作成", "Alt+N", 0},
    {"上へ", "１つ上のホルダに移動", "Alt+Up", 0},  // so it has always been written
    {"戻る", "直前に表示していたフォルダに移動", "Alt+Left", 0},
    {"ファイル数", "最近使用したファイル数を変更", "Alt+R", accessible::kHasPopup},
}};

const Words& WordsOf(HotArea area) { return kWords.at(static_cast<std::size_t>(area)); }

accessible::States StatesOf(AreaState state) {
  switch (state) {
    case AreaState::Disabled:
      return accessible::kUnavailable;
    case AreaState::Pressed:
      return accessible::kPressed;
    case AreaState::Hot:
      return accessible::kHot;
    case AreaState::Normal:
      break;
  }
  return 0;
}

}  // namespace

const char* TipOf(HotArea area) { return WordsOf(area).tip; }

accessible::Item AreaItem(HotArea area, AreaState state) {
  const Words& words = WordsOf(area);
  accessible::Item item;
  item.name = words.name;
  item.description = words.tip;
  item.key = words.key;
  item.action = "押す";
  item.role = accessible::Role::PushButton;
  item.states = words.always | StatesOf(state);
  return item;
}

}  // namespace filedialog
