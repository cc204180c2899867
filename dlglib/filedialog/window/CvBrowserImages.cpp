#include "dlglib/filedialog/window/CvBrowserImages.h"

#include <algorithm>
#include <mutex>
#include <utility>

#include "dlglib/base/CvScaledImages.h"
#include "dlglib/base/edge.h"
#include "dlglib/resources/resource.h"
#include "platform/framework/exceptions.h"
#include "platform/os/display.h"
#include "platform/os/lock.h"

namespace filedialog {
namespace {

// By area in the order of HotArea, then by ButtonImage. The view button is never disabled.
constexpr int kBitmaps[4][4] = {
    {IDB_VIEW, IDB_VIEW_SELECTED, IDB_VIEW_FOCUSED, IDB_VIEW},
    {IDB_CREATE_FOLDER, IDB_CREATE_FOLDER_SELECTED, IDB_CREATE_FOLDER_FOCUSED, IDB_CREATE_FOLDER_DISABLED},
    {IDB_UP, IDB_UP_SELECTED, IDB_UP_FOCUSED, IDB_UP_DISABLED},
    {IDB_BACK, IDB_BACK_SELECTED, IDB_BACK_FOCUSED, IDB_BACK_DISABLED},
};

UniqueBitmap LoadButtonImage(int id, scale::Scale scale) {
  UniqueBitmap image = scaled_images::LoadBitmapOf(id, scale);
  if (!image) throw CResourceException();
  return image;
}

/// Whatever an image looks different for, and the thread that may draw from it.
struct Look {
  DWORD thread;
  int dpi;
  bool hasHighContrast;
  std::array<DWORD, 6> colours;

  bool operator==(const Look&) const = default;
};

Look LookAt(scale::Scale scale) {
  return {::GetCurrentThreadId(),
          scale.Dpi(),
          os::ThisDisplay().HasHighContrast(),
          {::GetSysColor(COLOR_WINDOW), ::GetSysColor(COLOR_WINDOWTEXT), ::GetSysColor(COLOR_3DFACE),
           ::GetSysColor(COLOR_3DSHADOW), ::GetSysColor(COLOR_3DLIGHT), ::GetSysColor(COLOR_BTNTEXT)}};
}

/// A dialog starts with the images for 96 dpi and may go on with those of its screen, hence two of them.
class KeptImages {
 public:
  std::shared_ptr<BrowserImages> Find(const Look& look) {
    const std::lock_guard<os::Lock> held(lock_);
    auto* const found = std::find_if(kept_.begin(), kept_.end(), [&](const Kept& kept) { return kept.look == look; });
    if (found == kept_.end() || found->images == nullptr) return nullptr;
    std::rotate(kept_.begin(), found, found + 1);
    return kept_.front().images;
  }
  void Keep(const Look& look, std::shared_ptr<BrowserImages> images) {
    const std::lock_guard<os::Lock> held(lock_);
    std::rotate(kept_.begin(), kept_.end() - 1, kept_.end());
    std::swap(kept_.front().images, images);
    kept_.front().look = look;
  }

 private:
  struct Kept {
    Look look = {};
    std::shared_ptr<BrowserImages> images;
  };

  os::Lock lock_;
  std::array<Kept, 2> kept_;  ///< the one that was asked for last comes first
};

KeptImages& AllKept() {
  static KeptImages kept;
  return kept;
}

}  // namespace

BrowserImages::BrowserImages(scale::Scale scale)
    : small_(MakeImageList(kSmallIconSide, scale)),
      large_(MakeImageList(kLargeIconSide, scale)),
      sortMarks_(MakeSortMarks(scale)),
      icons_(scale) {
  for (std::size_t area = 0; area < kButtons; ++area) {
    for (std::size_t image = 0; image < kStates; ++image) {
      buttons_[area][image] = LoadButtonImage(kBitmaps[area][image], scale);
    }
  }
}

std::shared_ptr<BrowserImages> BrowserImages::For(scale::Scale scale) {
  const Look look = LookAt(scale);
  if (auto kept = AllKept().Find(look)) return kept;
  auto made = std::make_shared<BrowserImages>(scale);
  AllKept().Keep(look, made);
  return made;
}

std::shared_ptr<BrowserImages> BrowserImages::ForOr(scale::Scale scale,
                                                    const std::shared_ptr<BrowserImages>& former) noexcept {
  return edge::Guarded(former, [&] { return For(scale); });
}

HBITMAP BrowserImages::Button(HotArea area, ButtonImage image) const {
  return buttons_.at(static_cast<std::size_t>(area))[static_cast<std::size_t>(image)].Get();
}

}  // namespace filedialog
