#include "dlglib/filedialog/window/CvBrowserIcons.h"

#include "dlglib/base/CvScaledImages.h"
#include "dlglib/base/scaled_images.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/exceptions.h"

namespace filedialog {
namespace {

int SideAt(int side, scale::Scale scale) { return scaled_images::IconSide(scale.ToScreen(side)); }

void Append(HIMAGELIST images, int icon, int side) {
  const UniqueIcon image = scaled_images::LoadIconOf(icon, side);
  if (!image || ::ImageList_ReplaceIcon(images, -1, image.Get()) < 0) throw CResourceException();
}

UniqueImageList EmptyList(int side, int count) {
  UniqueImageList images(::ImageList_Create(side, side, ILC_COLOR32 | ILC_MASK, count, 1));
  if (!images) throw CResourceException();
  return images;
}

}  // namespace

SmallIcons::SmallIcons(scale::Scale scale) : side_(SideAt(kSmallIconSide, scale)) {}

HICON SmallIcons::Of(EntryKind kind) {
  UniqueIcon& icon = icons_.at(static_cast<std::size_t>(ImageOf(kind)));
  if (!icon) icon = scaled_images::LoadIconOf(IconOfImage(ImageOf(kind)), side_);
  return icon.Get();
}

UniqueImageList MakeImageList(int side, scale::Scale scale) {
  const int pixels = SideAt(side, scale);
  UniqueImageList images = EmptyList(pixels, kImageCount);
  for (int image = 0; image < kImageCount; ++image) Append(images.Get(), IconOfImage(image), pixels);
  return images;
}

UniqueImageList MakeSortMarks(scale::Scale scale) {
  const int pixels = SideAt(kSmallIconSide, scale);
  UniqueImageList images = EmptyList(pixels, 2);
  Append(images.Get(), IDI_SORT_ASCENDING, pixels);
  Append(images.Get(), IDI_SORT_DESCENDING, pixels);
  return images;
}

}  // namespace filedialog
