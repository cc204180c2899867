#include "platform/framework/detail/accessible.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/framework/detail/accessible_object.h"
#include "platform/os/accessible_number.h"

using framework::AccessibleLink;

namespace {

/// The request for the inside of a window; 32 bits of it count.
bool AsksForClient(const Message& message) noexcept {
  return message.id == WM_GETOBJECT && static_cast<LONG>(static_cast<DWORD>(message.lParam)) == OBJID_CLIENT;
}

}  // namespace

AccessibleWindow::AccessibleWindow() noexcept = default;

AccessibleWindow::~AccessibleWindow() { End(); }

void AccessibleWindow::Begin(HWND window, accessible::Tree& tree) {
  End();
  window_ = window;
  tree_ = &tree;
}

void AccessibleWindow::End() noexcept {
  window_ = nullptr;
  tree_ = nullptr;
  if (const auto link = std::exchange(link_, nullptr)) link->Cut();
}

Handled AccessibleWindow::Answer(const Message& message) {
  if (window_ == nullptr) return std::nullopt;
  if (message.id == WM_DESTROY) End();
  if (message.id == framework::ActMessage()) {
    if (const auto link = link_) link->Act(message.wParam);
    return 0;
  }
  if (!AsksForClient(message) || tree_ == nullptr) return std::nullopt;
  if (link_ == nullptr) link_ = std::make_shared<AccessibleLink>(window_, *tree_);
  if (!link_->IsUsable()) return std::nullopt;
  return framework::AnswerWith(message.wParam, link_->Make(accessible::kWhole));
}

bool AccessibleWindow::IsHeard() const noexcept {
  constexpr std::array<DWORD, 4> kHeard = {EVENT_OBJECT_FOCUS, EVENT_OBJECT_VALUECHANGE, EVENT_OBJECT_STATECHANGE,
                                           EVENT_OBJECT_REORDER};
  const auto isHeard = [](DWORD event) { return ::IsWinEventHookInstalled(event) != FALSE; };
  return window_ != nullptr && ::IsWindowVisible(window_) != FALSE && std::ranges::any_of(kHeard, isHeard);
}

void AccessibleWindow::Tell(DWORD event, accessible::Node node) const noexcept {
  const auto number = accessible::NumberOf(node);
  if (window_ != nullptr && number) ::NotifyWinEvent(event, window_, OBJID_CLIENT, *number);
}

WatchedAccessibleWindow::WatchedAccessibleWindow() noexcept
    : watch_([this](const Message& message) { return OnMessage(message); }) {}

void WatchedAccessibleWindow::Begin(HWND window, accessible::Tree& tree) {
  window_.Begin(window, tree);
  watch_.Watch(window);
}

void WatchedAccessibleWindow::End() noexcept {
  watch_.Release();
  window_.End();
}

Handled WatchedAccessibleWindow::OnMessage(const Message& message) { return window_.Answer(message); }

NamedControl::NamedControl(HWND control, const std::string& name) : NamedControl(control, [name] { return name; }) {}

NamedControl::NamedControl(HWND control, std::function<std::string()> name)
    : name_(std::make_shared<framework::ControlName>()),
      watch_([this](const Message& message) { return OnMessage(message); }) {
  name_->name = std::move(name);
  watch_.Watch(control);
}

NamedControl::~NamedControl() { name_->holds = false; }

/// Made for each request, as the system does it.
Handled NamedControl::OnMessage(const Message& message) {
  if (message.id == WM_DESTROY) name_->holds = false;
  if (!AsksForClient(message)) return std::nullopt;
  if (apartment_ == nullptr) apartment_ = std::make_unique<framework::Apartment>();
  IAccessible* const inner = apartment_->Entered() ? framework::SystemObjectOf(message.window) : nullptr;
  if (inner == nullptr) return std::nullopt;
  return framework::AnswerWith(message.wParam, framework::MakeNamed(inner, message.window, name_));
}
