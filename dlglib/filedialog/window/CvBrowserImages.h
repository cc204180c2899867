// The images of the browser, made once: most of the time in which a first dialog opens goes into making them, so that
// every later one in the process finds them ready.
#pragma once

#include <array>
#include <memory>

#include "dlglib/base/scale.h"
#include "dlglib/filedialog/basics/hot_areas.h"
#include "dlglib/filedialog/window/CvBrowserIcons.h"
#include "platform/framework/controls.h"
#include "platform/framework/gdi.h"

namespace filedialog {

/// What a button of the browser shows in its states.
enum class ButtonImage : std::size_t { Normal, Pressed, Hot, Disabled };

/// All images for one scale, in the colours that the user has chosen.
class BrowserImages {
 public:
  /// Makes them. Throws CResourceException when one is missing.
  explicit BrowserImages(scale::Scale scale);

  /// Those of a scale in the present colours. Dialogs of one thread share them; no two threads do, as a list that is
  /// being drawn from belongs to the thread that draws. The two that were asked for last stay when nobody uses them
  /// any more, until the library is unloaded. Throws CResourceException when one is missing.
  [[nodiscard]] static std::shared_ptr<BrowserImages> For(scale::Scale scale);

  /// The same; `former` where they cannot be had.
  [[nodiscard]] static std::shared_ptr<BrowserImages> ForOr(scale::Scale scale,
                                                            const std::shared_ptr<BrowserImages>& former) noexcept;

  /// Image lists in which a kind's icon lies at its ImageOf; they belong to this object.
  [[nodiscard]] HIMAGELIST Small() const noexcept { return small_.Get(); }
  [[nodiscard]] HIMAGELIST Large() const noexcept { return large_.Get(); }
  /// Image 0 for ascending, 1 for descending order.
  [[nodiscard]] HIMAGELIST SortMarks() const noexcept { return sortMarks_.Get(); }
  /// Loaded when they are first needed.
  [[nodiscard]] SmallIcons& Icons() noexcept { return icons_; }
  /// `area`: one of those with an image, all but the label.
  [[nodiscard]] HBITMAP Button(HotArea area, ButtonImage image) const;

 private:
  static constexpr std::size_t kButtons = 4;
  static constexpr std::size_t kStates = 4;

  UniqueImageList small_;
  UniqueImageList large_;
  UniqueImageList sortMarks_;
  SmallIcons icons_;
  std::array<std::array<UniqueBitmap, kStates>, kButtons> buttons_;
};

}  // namespace filedialog
