#include "platform/suite/register_rows.h"

#include <array>
#include <charconv>

#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"

namespace suite {
namespace {

constexpr int kGroupStep = 1000;
constexpr std::size_t kShownBytes = 1023;

std::string Shown(const std::string& euc) { return CwEucEncoder::Euc2Sjis(euc, kShownBytes); }

/// Ten digits, as where a register's value is used.
std::string NumberText(double value) {
  std::array<char, 32> text = {};
  const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::general, 10).ptr;
  return std::string(text.begin(), end);
}

std::string ValueText(const CwRegister& content) {
  if (content.IsEmpty()) return {};
  return content.IsScalar() ? NumberText(content.GetScalar()) : Shown(content.GetText());
}

/// Group from 0 on, and index, that give the name; none when the set gives no such name.
struct Place {
  int group = -1;
  int index = 0;
};

Place PlaceOf(const std::string& name) {
  if (name.size() < 2) return {};
  Place place{name[0] - 'A', 0};
  std::from_chars(name.data() + 1, name.data() + name.size(), place.index);
  return CwRegisterSet::GetRegisterName(place.group + 1, place.index) == name ? place : Place();
}

}  // namespace

int RegisterCode(const std::string& name) {
  const Place place = PlaceOf(name);
  return place.group < 0 ? 0 : place.group * kGroupStep + place.index;
}

std::vector<RegisterRow> RegisterRows(const CwRegisterSet& registers) {
  std::vector<RegisterRow> rows;
  for (const std::string& name : registers.GetNames()) {
    const CwRegister* content = registers.GetRegister(name);
    if (content == nullptr) continue;
    const std::string group = PlaceOf(name).group < 0 ? std::string() : name.substr(0, 1);
    rows.push_back({group, Shown(name), ValueText(*content), RegisterCode(name)});
  }
  return rows;
}

}  // namespace suite
