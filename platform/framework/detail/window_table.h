// The one map from windows to objects, and what the procedures need to know about each window. Internal to the
// framework.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

#include "platform/framework/detail/slim_lock.h"
#include "platform/framework/wnd.h"

class MessageWatch;
class PaintWatch;

namespace framework {

/// How an object takes part in its window.
enum class Binding {
  Attached,    ///< not at all: it only stands for it
  Subclassed,  ///< the framework's window procedure runs in front of the window's own
  Dialog,      ///< the framework's dialog procedure runs behind the system's
};

/// One window that the framework has to do with. Shared by the map and whoever is in the middle of one of its messages.
struct WindowEntry {
  HWND window = nullptr;
  CWnd* object = nullptr;      ///< null: passes everything on
  WNDPROC previous = nullptr;  ///< the procedure behind the framework's; null while that one is not installed
  Binding binding = Binding::Attached;
  int watchers = 0;                  ///< HostReflectors
  PaintWatch* painter = nullptr;     ///< told when the window paints itself
  MessageWatch* listener = nullptr;  ///< asked first about its messages
  int underWay = 0;                  ///< messages to it, and of its parent about it, that are being answered
  std::shared_ptr<CWnd> retired;     ///< its object, when that has been given up while messages were under way
  bool wasAnsi = false;              ///< the window was an 8-bit one before it was subclassed
  bool marked = false;     ///< the window bears the property that tells it from a later one with the same handle
  bool skipOnce = false;   ///< the dialog procedure leaves the next message to the system
  bool gone = false;       ///< the window is destroyed
  std::wstring givenText;  ///< what its object has answered a control that has no room for it

  [[nodiscard]] bool TakesPart() const noexcept { return object != nullptr && binding != Binding::Attached; }
  [[nodiscard]] bool ReflectsForHost() const noexcept { return watchers > 0 && !TakesPart(); }
  [[nodiscard]] bool IsWatched() const noexcept { return watchers > 0 || painter != nullptr || listener != nullptr; }
  void BecomeGone() noexcept {
    gone = true;
    watchers = 0;
    painter = nullptr;
    listener = nullptr;
  }
};

/// What finds a window in a map, whichever of its handles is given.
struct WindowHash {
  [[nodiscard]] std::size_t operator()(HWND window) const noexcept {
    return std::hash<std::uint32_t>()(HandleBits(window));
  }
};
struct WindowEqual {
  [[nodiscard]] bool operator()(HWND a, HWND b) const noexcept { return IsSameWindow(a, b); }
};

class WindowTable {
 public:
  [[nodiscard]] static WindowTable& Instance() noexcept;

  [[nodiscard]] std::shared_ptr<WindowEntry> Find(HWND window) noexcept;
  /// The attached object. One whose window died without a word, and whose handle was used again, is forgotten here.
  [[nodiscard]] CWnd* Attached(HWND window);
  [[nodiscard]] CWnd* Light(HWND window);

  /// False, and nothing changed, when the object has a window, `window` is none or has an object, or memory is short.
  [[nodiscard]] bool TryBind(CWnd& object, HWND window, Binding binding, bool ownsWindow) noexcept;
  /// Parts the object from its window and leaves the window as it was. Null when the object has none.
  HWND Unbind(CWnd& object);
  /// The window is destroyed: forgets it and tells its object.
  void Finish(const std::shared_ptr<WindowEntry>& entry);

  [[nodiscard]] std::shared_ptr<WindowEntry> Watch(HWND host);
  void Unwatch(const std::shared_ptr<WindowEntry>& entry) noexcept;

  /// `painter` takes the place of the one before. Null for a window of another thread.
  [[nodiscard]] std::shared_ptr<WindowEntry> WatchPainting(HWND window, PaintWatch& painter);
  void UnwatchPainting(const std::shared_ptr<WindowEntry>& entry, const PaintWatch& painter) noexcept;

  /// The same for who is asked first about the window's messages.
  [[nodiscard]] std::shared_ptr<WindowEntry> WatchMessages(HWND window, MessageWatch& listener);
  void UnwatchMessages(const std::shared_ptr<WindowEntry>& entry, const MessageWatch& listener) noexcept;

 private:
  using Lights = std::unordered_map<HWND, std::unique_ptr<CWnd>, WindowHash, WindowEqual>;
  using Entries = std::unordered_map<HWND, std::shared_ptr<WindowEntry>, WindowHash, WindowEqual>;

  // Light objects of dead windows are deleted when so many have come together: whoever still holds one, against the
  // rules, is not hurt at once, and a program that runs for weeks does not grow.
  static constexpr std::size_t kLightsToSweep = 4096;

  WindowTable() noexcept = default;
  bool Bind(CWnd& object, HWND window, Binding binding, bool ownsWindow);
  std::shared_ptr<WindowEntry> EntryFor(HWND window);
  /// With the framework's procedure in it; null for a window of another thread.
  std::shared_ptr<WindowEntry> InstalledEntry(HWND window);
  void DropIfUnused(const std::shared_ptr<WindowEntry>& entry) noexcept;
  void DropStale(HWND window) noexcept;
  Lights CollectDeadLights();

  SlimLock lock_;
  Entries entries_;
  Lights lights_;
  std::size_t sweepAt_ = kLightsToSweep;
};

}  // namespace framework
