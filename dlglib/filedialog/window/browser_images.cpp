#include "dlglib/filedialog/window/browser_images.h"

#include <array>
#include <cstddef>

#include "dlglib/resources/resource.h"

namespace filedialog {
namespace {

// By image number; 10 stands for nothing.
constexpr std::array<int, kImageCount> kIcons{
    IDI_DESKTOP,  IDI_COMPUTER,         IDI_NETWORK,       IDI_ENTIRE_NETWORK, IDI_PROVIDER,
    IDI_DOMAIN,   IDI_NEARBY_COMPUTERS, IDI_SERVER,        IDI_SHARE,          IDI_NETWORK_DRIVE,
    IDI_FILE,     IDI_FIXED_DRIVE,      IDI_NETWORK_DRIVE, IDI_CD_ROM,         IDI_REMOVABLE,
    IDI_RAM_DISK, IDI_FOLDER_SHORTCUT,  IDI_FOLDER,        IDI_FILE_SHORTCUT,  IDI_FILE};

}  // namespace

int IconOfImage(int image) {
  return image >= 0 && image < kImageCount ? kIcons[static_cast<std::size_t>(image)] : IDI_FILE;
}

}  // namespace filedialog
