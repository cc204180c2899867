#include "platform/framework/detail/window_table.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <mutex>
#include <new>
#include <utility>

#include "platform/framework/detail/procedures.h"

namespace framework {

namespace {

// A property dies with its window, so it tells the window of an entry from a later one with the same handle.
constexpr const wchar_t* kEntryProperty = L"corvane.framework.entry";

[[nodiscard]] bool IsInFront(HWND window) noexcept {
  return ::GetWindowLongPtrW(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&WindowProcedure);
}

/// A window that bears the framework's procedure is the one that it was installed in. Asking for the procedure costs
/// far less than asking for the property, which is kept by another process.
[[nodiscard]] bool IsTheWindowOf(const WindowEntry& entry) noexcept {
  if (entry.previous != nullptr && IsInFront(entry.window)) return true;
  return !entry.marked || ::GetPropW(entry.window, kEntryProperty) == &entry;
}

bool Install(WindowEntry& entry) noexcept {
  if (entry.previous != nullptr) return true;
  entry.wasAnsi = ::IsWindowUnicode(entry.window) == FALSE;
  // The wide form: an edit control that is subclassed in 8-bit form takes typed two-byte characters apart.
  entry.previous = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(entry.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProcedure)));
  return entry.previous != nullptr;
}

// When somebody else has come in front meanwhile, the procedure stays where it is and passes everything on.
void Uninstall(WindowEntry& entry) noexcept {
  if (entry.previous == nullptr) return;
  if (!IsInFront(entry.window)) return;
  ::SetWindowLongPtrW(entry.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(entry.previous));
  entry.previous = nullptr;
}

}  // namespace

// Never destroyed: objects with static storage may part from their windows after everything else. Made in a place of
// its own: an object that parts from its window must find the table, be there memory or not.
WindowTable& WindowTable::Instance() noexcept {
  alignas(WindowTable) static std::array<std::byte, sizeof(WindowTable)> place;
  static WindowTable& table = *new (place.data()) WindowTable();
  return table;
}

namespace {

// As the program starts there is memory for what guards the table's making.
[[maybe_unused]] const WindowTable& madeAtStart = WindowTable::Instance();

}  // namespace

std::shared_ptr<WindowEntry> WindowTable::Find(HWND window) noexcept {
  const std::lock_guard lock(lock_);
  const auto found = entries_.find(window);
  return found != entries_.end() ? found->second : nullptr;
}

std::shared_ptr<WindowEntry> WindowTable::EntryFor(HWND window) {
  const std::lock_guard lock(lock_);
  if (const auto found = entries_.find(window); found != entries_.end()) return found->second;
  const auto entry = std::make_shared<WindowEntry>();
  entry->window = window;
  entries_.emplace(window, entry);
  entry->marked = ::SetPropW(window, kEntryProperty, entry.get()) != FALSE;
  return entry;
}

void WindowTable::DropStale(HWND window) noexcept {
  const auto entry = Find(window);
  if (entry == nullptr || IsTheWindowOf(*entry)) return;
  entry->BecomeGone();
  if (CWnd* const object = std::exchange(entry->object, nullptr); object != nullptr) object->m_hWnd = nullptr;
  DropIfUnused(entry);
}

CWnd* WindowTable::Attached(HWND window) {
  DropStale(window);
  const auto entry = Find(window);
  return entry != nullptr ? entry->object : nullptr;
}

CWnd* WindowTable::Light(HWND window) {
  // Destroyed without the lock, as their destructors look for their windows, also when memory runs out in between.
  Lights dead;
  std::unique_ptr<CWnd> light;
  const std::lock_guard lock(lock_);
  if (const auto found = lights_.find(window); found != lights_.end()) return found->second.get();
  if (lights_.size() >= sweepAt_) dead = CollectDeadLights();
  light = std::make_unique<CWnd>();
  light->m_hWnd = window;
  std::unique_ptr<CWnd>& kept = lights_[window];
  kept = std::move(light);
  return kept.get();
}

WindowTable::Lights WindowTable::CollectDeadLights() {
  Lights dead;
  dead.reserve(lights_.size());  // from here on nothing fails: what is taken out must not be destroyed here
  for (auto at = lights_.begin(); at != lights_.end();) {
    const auto light = at++;
    if (::IsWindow(light->first) == FALSE) dead.insert(lights_.extract(light));
  }
  sweepAt_ = std::max(kLightsToSweep, lights_.size() * 2);
  return dead;
}

bool WindowTable::Bind(CWnd& object, HWND window, Binding binding, bool ownsWindow) {
  if (object.m_hWnd != nullptr || ::IsWindow(window) == FALSE || Attached(window) != nullptr) return false;
  const auto entry = EntryFor(window);
  if (binding == Binding::Subclassed && !Install(*entry)) {
    DropIfUnused(entry);
    return false;
  }
  // The dialog procedure of a dialog that an object has left is still there.
  if (entry->binding != Binding::Dialog) entry->binding = binding;
  entry->object = &object;
  object.m_hWnd = window;
  object.ownsWindow_ = ownsWindow;
  return true;
}

bool WindowTable::TryBind(CWnd& object, HWND window, Binding binding, bool ownsWindow) noexcept {
  try {
    return Bind(object, window, binding, ownsWindow);
  } catch (...) {
    return false;
  }
}

HWND WindowTable::Unbind(CWnd& object) {
  const auto entry = Find(object.m_hWnd);
  if (entry == nullptr || entry->object != &object) return nullptr;
  entry->object = nullptr;
  object.ownsWindow_ = false;
  if (entry->IsWatched()) static_cast<void>(Install(*entry));
  DropIfUnused(entry);
  return std::exchange(object.m_hWnd, nullptr);
}

void WindowTable::DropIfUnused(const std::shared_ptr<WindowEntry>& entry) noexcept {
  if (entry->object != nullptr || entry->IsWatched()) return;
  if (entry->binding == Binding::Dialog && !entry->gone) return;
  if (!entry->gone) Uninstall(*entry);
  if (!entry->gone && entry->previous != nullptr) return;
  if (!entry->gone) ::RemovePropW(entry->window, kEntryProperty);
  const std::lock_guard lock(lock_);
  const auto found = entries_.find(entry->window);
  if (found != entries_.end() && found->second == entry) entries_.erase(found);
}

void WindowTable::Finish(const std::shared_ptr<WindowEntry>& entry) {
  entry->BecomeGone();
  CWnd* const object = std::exchange(entry->object, nullptr);
  DropIfUnused(entry);
  if (object == nullptr) return;
  object->m_hWnd = nullptr;
  object->ownsWindow_ = false;
  object->PostNcDestroy();
}

std::shared_ptr<WindowEntry> WindowTable::Watch(HWND host) {
  if (::GetWindowThreadProcessId(host, nullptr) != ::GetCurrentThreadId()) return nullptr;
  const auto entry = EntryFor(host);
  // A window of the framework reflects by itself; should its object leave it, the watchers take over.
  if (!entry->TakesPart() && !Install(*entry)) {
    DropIfUnused(entry);
    return nullptr;
  }
  ++entry->watchers;
  return entry;
}

void WindowTable::Unwatch(const std::shared_ptr<WindowEntry>& entry) noexcept {
  if (entry->gone || entry->watchers == 0) return;
  --entry->watchers;
  DropIfUnused(entry);
}

std::shared_ptr<WindowEntry> WindowTable::InstalledEntry(HWND window) {
  if (::GetWindowThreadProcessId(window, nullptr) != ::GetCurrentThreadId()) return nullptr;
  const auto entry = EntryFor(window);
  if (Install(*entry)) return entry;
  DropIfUnused(entry);
  return nullptr;
}

std::shared_ptr<WindowEntry> WindowTable::WatchPainting(HWND window, PaintWatch& painter) {
  const auto entry = InstalledEntry(window);
  if (entry != nullptr) entry->painter = &painter;
  return entry;
}

void WindowTable::UnwatchPainting(const std::shared_ptr<WindowEntry>& entry, const PaintWatch& painter) noexcept {
  if (entry->gone || entry->painter != &painter) return;
  entry->painter = nullptr;
  DropIfUnused(entry);
}

std::shared_ptr<WindowEntry> WindowTable::WatchMessages(HWND window, MessageWatch& listener) {
  const auto entry = InstalledEntry(window);
  if (entry != nullptr) entry->listener = &listener;
  return entry;
}

void WindowTable::UnwatchMessages(const std::shared_ptr<WindowEntry>& entry, const MessageWatch& listener) noexcept {
  if (entry->gone || entry->listener != &listener) return;
  entry->listener = nullptr;
  DropIfUnused(entry);
}

CWnd* ObjectOf(WindowArg window) {
  if (window.handle == nullptr) return nullptr;
  WindowTable& table = WindowTable::Instance();
  CWnd* const attached = table.Attached(window.handle);
  return attached != nullptr ? attached : table.Light(window.handle);
}

}  // namespace framework
