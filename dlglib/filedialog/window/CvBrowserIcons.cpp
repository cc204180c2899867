#include "dlglib/filedialog/window/CvBrowserIcons.h"

#include "dlglib/resources/resource.h"
#include "platform/framework/exceptions.h"
#include "platform/framework/resource_module.h"

namespace filedialog {
namespace {

constexpr int kSmallSide = 16;

HICON LoadShared(int icon, int side) {
  const auto name = reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(icon));
  return static_cast<HICON>(::LoadImageW(ThisModule(), name, IMAGE_ICON, side, side, LR_SHARED));
}

void Append(HIMAGELIST images, int icon, int side) {
  const HICON image = LoadShared(icon, side);
  if (image == nullptr || ::ImageList_ReplaceIcon(images, -1, image) < 0) throw CResourceException();
}

UniqueImageList EmptyList(int side, int count) {
  UniqueImageList images(::ImageList_Create(side, side, ILC_COLOR32 | ILC_MASK, count, 1));
  if (!images) throw CResourceException();
  return images;
}

}  // namespace

HICON SmallIcon(EntryKind kind) { return LoadShared(IconOfImage(ImageOf(kind)), kSmallSide); }

UniqueImageList MakeImageList(int side) {
  UniqueImageList images = EmptyList(side, kImageCount);
  for (int image = 0; image < kImageCount; ++image) Append(images.Get(), IconOfImage(image), side);
  return images;
}

UniqueImageList MakeSortMarks() {
  UniqueImageList images = EmptyList(kSmallSide, 2);
  Append(images.Get(), IDI_SORT_ASCENDING, kSmallSide);
  Append(images.Get(), IDI_SORT_DESCENDING, kSmallSide);
  return images;
}

}  // namespace filedialog
