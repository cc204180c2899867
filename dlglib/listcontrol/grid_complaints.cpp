#include "dlglib/listcontrol/grid_complaints.h"

#include <cstdint>

namespace grid {

namespace {

constexpr char kSelectFirst[] = "アイテムを選択してください。";
constexpr char kNoRoom[] = "追加・挿入できません。";

}  // namespace

const char* InsertComplaint(const GridModel& model, int at) noexcept {
  if (at < 0) return kSelectFirst;
  return model.ItemCount() >= model.Capacity() ? kNoRoom : nullptr;
}

const char* DeleteComplaint(const GridModel& model) noexcept {
  return model.FirstSelected() < 0 ? kSelectFirst : nullptr;
}

std::string NumberComplaint(const char* complaint, int row, std::string_view text) {
  return std::string(complaint).append(" ").append(std::to_string(std::int64_t{row} + 1)).append(" : ").append(text);
}

}  // namespace grid
