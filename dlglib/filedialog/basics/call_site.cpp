#include "dlglib/filedialog/basics/call_site.h"

#include <string>
#include <utility>

#include "dlglib/base/folded_path.h"
#include "dlglib/base/shift_jis.h"

namespace filedialog {
namespace {

constexpr std::string_view kBeforeComputer = "\\\\";

std::string DeviceOf(std::string_view path) {
  if (path.size() > 1 && path[1] == ':') return std::string(path.substr(0, 2));
  if (!path.starts_with(kBeforeComputer)) return {};
  std::size_t end = kBeforeComputer.size();
  while (end < path.size() && path[end] != '\\') end += shift_jis::CharLength(path, end);
  return std::string(path.substr(0, end));
}

}  // namespace

os::Site SiteOf(std::string_view path) {
  std::string folded = FoldedPath(path);
  std::string device = DeviceOf(folded);
  return {std::move(folded), std::move(device)};
}

}  // namespace filedialog
