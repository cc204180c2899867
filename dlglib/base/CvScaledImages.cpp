#include "dlglib/base/CvScaledImages.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "dlglib/base/outline.h"
#include "dlglib/base/scaled_images.h"
#include "platform/framework/resource_module.h"
#include "platform/os/display.h"

namespace scaled_images {
namespace {

HANDLE Load(UINT type, int number, int side, UINT flags) {
  const auto name = reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(number));
  return ::LoadImageW(ThisModule(), name, type, side, side, flags);
}

constexpr std::uint32_t kOpaque = 0xFF000000;

/// Pixels as images have them (0xRRGGBB); the system's colours have red and blue the other way round.
std::uint32_t SystemColour(int index) {
  const COLORREF colour = ::GetSysColor(index);
  return static_cast<std::uint32_t>(GetRValue(colour) << 16 | GetGValue(colour) << 8 | GetBValue(colour));
}

BITMAPINFO InfoOf(int width, int height) {
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  return info;
}

/// A bitmap's pixels, upper row first; none when they cannot be had.
struct Pixels {
  std::vector<std::uint32_t> all;
  int width = 0;
  int height = 0;

  explicit Pixels(HBITMAP bitmap) {
    BITMAP size = {};
    if (bitmap == nullptr || ::GetObjectW(bitmap, sizeof size, &size) == 0) return;
    width = size.bmWidth;
    height = size.bmHeight;
    all.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    BITMAPINFO info = InfoOf(width, height);
    const UniqueMemoryDc dc(::CreateCompatibleDC(nullptr));
    const auto rows = static_cast<UINT>(height);
    if (::GetDIBits(dc.Get(), bitmap, 0, rows, all.data(), &info, DIB_RGB_COLORS) == 0) all.clear();
  }
  /// Null when there is no memory.
  [[nodiscard]] UniqueBitmap ToBitmap() const {
    const BITMAPINFO info = InfoOf(width, height);
    void* bits = nullptr;
    UniqueBitmap made(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (made) std::copy(all.begin(), all.end(), static_cast<std::uint32_t*>(bits));
    return made;
  }
};

/// One pixel up to the large icons of 96 dpi, which have 32, two at 64, and so on.
int ThicknessFor(int side) {
  constexpr int kLargeSide = 32;
  return std::max(side / kLargeSide, 1);
}

int ThicknessFor(scale::Scale scale) { return std::max(scale.Dpi() / scale::kDesignDpi, 1); }

/// Null when it cannot be made.
UniqueIcon OutlinedIcon(HICON icon, int side) {
  ICONINFO parts = {};
  if (!::GetIconInfo(icon, &parts)) return UniqueIcon();
  const UniqueBitmap colours(parts.hbmColor);
  const UniqueBitmap mask(parts.hbmMask);
  Pixels pixels(colours.Get());
  if (pixels.all.empty()) return UniqueIcon();
  outline::Draw({pixels.all, pixels.width}, SystemColour(COLOR_WINDOWTEXT), ThicknessFor(side));
  const UniqueBitmap outlined = pixels.ToBitmap();
  const UniqueBitmap clear(::CreateBitmap(pixels.width, pixels.height, 1, 1, nullptr));
  ICONINFO made = {TRUE, 0, 0, clear.Get(), outlined.Get()};
  return UniqueIcon(outlined && clear ? ::CreateIconIndirect(&made) : nullptr);
}

/// A button's frame, which lies at its sides, is none of the glyph.
bool IsAtSide(std::size_t at, const Pixels& pixels) {
  constexpr int kFrameRoom = 16;  // of which a frame takes one
  const int frame = 1 + pixels.height / kFrameRoom / 2;
  const int x = static_cast<int>(at) % pixels.width;
  const int y = static_cast<int>(at) / pixels.width;
  return x < frame || y < frame || x >= pixels.width - frame || y >= pixels.height - frame;
}

/// What stands on the dialog's own colour gets an outline. Null when it cannot be made.
UniqueBitmap OutlinedBitmap(HBITMAP bitmap, int thickness) {
  Pixels pixels(bitmap);
  if (pixels.all.empty()) return UniqueBitmap();
  const std::uint32_t ground = SystemColour(COLOR_3DFACE);
  std::vector<std::uint32_t> glyph(pixels.all.size());
  for (std::size_t i = 0; i < glyph.size(); ++i) {
    const bool isGround = (pixels.all[i] & ~kOpaque) == ground || IsAtSide(i, pixels);
    glyph[i] = isGround ? 0 : kOpaque | pixels.all[i];
  }
  outline::Draw({glyph, pixels.width}, SystemColour(COLOR_BTNTEXT), thickness);
  for (std::size_t i = 0; i < glyph.size(); ++i) {
    if (glyph[i] != 0 && !IsAtSide(i, pixels)) pixels.all[i] = glyph[i];
  }
  return pixels.ToBitmap();
}

}  // namespace

UniqueIcon LoadIconOf(int icon, int side) {
  HANDLE loaded = Load(IMAGE_ICON, IconResource(icon, side), side, LR_DEFAULTCOLOR);
  if (loaded == nullptr) loaded = Load(IMAGE_ICON, icon, side, LR_DEFAULTCOLOR);
  UniqueIcon plain(static_cast<HICON>(loaded));
  if (!plain || !os::ThisDisplay().HasHighContrast()) return plain;
  UniqueIcon outlined = OutlinedIcon(plain.Get(), side);
  return outlined ? std::move(outlined) : std::move(plain);
}

UniqueBitmap LoadBitmapOf(int bitmap, scale::Scale scale) {
  HANDLE loaded = Load(IMAGE_BITMAP, BitmapResource(bitmap, scale), 0, LR_LOADMAP3DCOLORS);
  if (loaded == nullptr) loaded = Load(IMAGE_BITMAP, bitmap, 0, LR_LOADMAP3DCOLORS);
  UniqueBitmap plain(static_cast<HBITMAP>(loaded));
  if (!plain || !os::ThisDisplay().HasHighContrast()) return plain;
  UniqueBitmap outlined = OutlinedBitmap(plain.Get(), ThicknessFor(scale));
  return outlined ? std::move(outlined) : std::move(plain);
}

}  // namespace scaled_images
