#include "platform/framework/detail/retirement.h"

#include <utility>

#include "platform/framework/detail/window_table.h"

namespace framework {

namespace {

/// A number of its own, as the windows belong to classes of the system.
[[nodiscard]] UINT DestroyMessage() noexcept {
  static const UINT message = ::RegisterWindowMessageW(L"corvane.framework.destroy");
  return message;
}

}  // namespace

void Retire(std::shared_ptr<CWnd> object) {
  if (object == nullptr || object->m_hWnd == nullptr) return;
  // Hidden by its place, as showing commands would pass the focus on.
  constexpr UINT kHide = SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
  object->SetWindowPos(nullptr, 0, 0, 0, 0, kHide);
  const auto entry = WindowTable::Instance().Find(object->m_hWnd);
  if (entry != nullptr && entry->underWay > 0 && entry->object == object.get()) entry->retired = std::move(object);
}

UnderWay::UnderWay(std::shared_ptr<WindowEntry> entry) noexcept : entry_(std::move(entry)) {
  if (entry_ != nullptr) ++entry_->underWay;
}

/// What told the parent may itself be called by a window that is not known here, such as the list of a combo box. So
/// the end is left to the message loop, when all of them have returned.
UnderWay::~UnderWay() {
  if (entry_ == nullptr || --entry_->underWay > 0 || entry_->retired == nullptr) return;
  if (entry_->gone) {
    entry_->retired.reset();
  } else {
    ::PostMessageW(entry_->window, DestroyMessage(), 0, 0);
  }
}

bool DestroysRetired(WindowEntry& entry, UINT message) noexcept {
  if (message != DestroyMessage() || entry.retired == nullptr || entry.underWay > 0) return false;
  const std::shared_ptr<CWnd> last = std::exchange(entry.retired, nullptr);
  return true;
}

}  // namespace framework
