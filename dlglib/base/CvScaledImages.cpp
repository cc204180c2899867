#include "dlglib/base/CvScaledImages.h"

#include "dlglib/base/scaled_images.h"
#include "platform/framework/resource_module.h"

namespace scaled_images {
namespace {

HANDLE Load(UINT type, int number, int side, UINT flags) {
  const auto name = reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(number));
  return ::LoadImageW(ThisModule(), name, type, side, side, flags);
}

}  // namespace

UniqueIcon LoadIconOf(int icon, int side) {
  HANDLE loaded = Load(IMAGE_ICON, IconResource(icon, side), side, LR_DEFAULTCOLOR);
  if (loaded == nullptr) loaded = Load(IMAGE_ICON, icon, side, LR_DEFAULTCOLOR);
  return UniqueIcon(static_cast<HICON>(loaded));
}

UniqueBitmap LoadBitmapOf(int bitmap, scale::Scale scale) {
  HANDLE loaded = Load(IMAGE_BITMAP, BitmapResource(bitmap, scale), 0, LR_LOADMAP3DCOLORS);
  if (loaded == nullptr) loaded = Load(IMAGE_BITMAP, bitmap, 0, LR_LOADMAP3DCOLORS);
  return UniqueBitmap(static_cast<HBITMAP>(loaded));
}

}  // namespace scaled_images
