#include "tests/windows/accessible/spoken_page.h"

#include <windows.h>

#include <fstream>
#include <iterator>

#include "platform/os/sjis_wide.h"
#include "tests/windows/driver/accessible.h"

namespace spoken {

namespace {

std::string Page() {
  std::ifstream in(SPOKEN_PAGE, std::ios::binary);
  const std::string utf8{std::istreambuf_iterator<char>(in), {}};
  std::wstring wide(utf8.size(), L'\0');
  const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(),
                                        static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(units));
  return os::SjisOf(wide, os::kUnknown).bytes;
}

}  // namespace

std::string Block(const std::string& name) {
  const std::string page = Page();
  const std::string head = "<!-- " + name + " -->\n```\n";
  const std::size_t at = page.find(head);
  if (at == std::string::npos) return {};
  const std::size_t begin = at + head.size();
  return page.substr(begin, page.find("```", begin) - begin);
}

std::string PartsOf(const driver::Window& dialog, const std::string& without) {
  const driver::Com com;
  std::string told;
  for (const driver::Window& child : dialog.Children()) {
    const bool isIcon = child.ClassName() == "Static" && (child.Style() & SS_TYPEMASK) == SS_ICON;
    const bool isTold = child.IsVisible() && !isIcon && child.ClassName() != without;
    if (isTold) told += driver::TreeText(driver::Accessible::Of(child));
  }
  return told;
}

}  // namespace spoken
