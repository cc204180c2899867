// A tool in the process of the windows that it acts on: there the system carries out what it asks for.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/windows/driver/accessible.h"
#include "tests/windows/driver/on_thread.h"

namespace spoken {

/// Everything is asked on the window's own thread.
class Tool {
 public:
  using Found = std::function<driver::Accessible(const driver::Accessible& whole)>;

  explicit Tool(const driver::User& user) : user_(user) {}

  /// Asks something of what is found in a window; none when nothing is.
  template <class Call>
  auto Ask(driver::Window window, const Found& found, const Call& call) const {
    std::optional<decltype(call(driver::Accessible()))> answer;
    driver::DoOnThreadOf(user_, window, [&] {
      const driver::Com com;
      answer = call(found(driver::Accessible::Of(window)));
    });
    return answer;
  }
  [[nodiscard]] std::optional<HRESULT> Act(driver::Window window, const Found& found) const {
    return Ask(window, found,
               [](const driver::Accessible& thing) { return thing.Get()->accDoDefaultAction(thing.Self()); });
  }
  [[nodiscard]] std::optional<HRESULT> Select(driver::Window window, const Found& found, LONG flags) const {
    return Ask(window, found,
               [flags](const driver::Accessible& thing) { return thing.Get()->accSelect(flags, thing.Self()); });
  }

 private:
  const driver::User& user_;
};

/// The window itself.
inline driver::Accessible Whole(const driver::Accessible& whole) { return whole; }
/// The first thing of that name.
inline Tool::Found Named(const std::string& name) {
  return [name](const driver::Accessible& whole) { return whole.Find(name); };
}
/// A part by its number, from 1 on, and a part of that.
inline Tool::Found Part(LONG number) {
  return [number](const driver::Accessible& whole) { return whole.Child(number); };
}
inline Tool::Found PartOf(LONG number, LONG sub) {
  return [number, sub](const driver::Accessible& whole) { return whole.Child(number).Child(sub); };
}

}  // namespace spoken
