// What the list of registers shows, and which code stands for which register.
#pragma once

#include <string>
#include <vector>

class CwRegister;
class CwRegisterSet;

namespace suite {

/// One register. Texts are Shift_JIS.
struct RegisterRow {
  std::string group;  ///< empty when the name belongs to no group
  std::string name;
  std::string value;  ///< empty for an empty register
  int code = 0;       ///< 0: cannot be chosen
};

/// In order of group and index; names without a group come last.
[[nodiscard]] std::vector<RegisterRow> RegisterRows(const CwRegisterSet& registers);

/// 1000 for each group behind the first and the index in the group. 0 for the very first register and for a name that
/// belongs to no group.
[[nodiscard]] int RegisterCode(const std::string& name);

}  // namespace suite
