// Tells when a window paints itself: whoever's window it is, and whether or not an object takes part in it. For drawing
// that is asked for piece by piece and has something to share between the pieces.
#pragma once

#include <functional>
#include <memory>

#include "platform/framework/window_ref.h"

namespace framework {

struct WindowEntry;

}  // namespace framework

class PaintWatch {
 public:
  /// Called with true in front of each WM_PAINT of the window and with false behind it; the second call is left out
  /// when the watch has ended meanwhile. It must not throw.
  using Told = std::function<void(bool begins)>;

  explicit PaintWatch(Told told);
  PaintWatch(const PaintWatch&) = delete;
  PaintWatch& operator=(const PaintWatch&) = delete;
  ~PaintWatch();

  /// Watches `window` instead of the one before. A window has one watch, the last one; a window of another thread has
  /// none. Ends by itself with the window.
  void Watch(WindowArg window);
  void Release() noexcept;

  /// For the window procedure.
  void Tell(bool begins) const noexcept { told_(begins); }

 private:
  Told told_;
  std::shared_ptr<framework::WindowEntry> entry_;
};
