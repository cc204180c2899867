// Windows as a screen reader meets them: through oleacc, in the own process and in others.
#pragma once

#include <oleacc.h>

#include <string>
#include <vector>

#include "tests/windows/driver/window.h"

namespace driver {

/// COM on this thread, as long as this lives.
class Com {
 public:
  Com() { CoInitialize(nullptr); }
  Com(const Com&) = delete;
  Com& operator=(const Com&) = delete;
  ~Com() { CoUninitialize(); }
};

/// An object or one of its children, as tools name them. Owns its reference.
class Accessible {
 public:
  Accessible() = default;
  /// Takes the reference over.
  explicit Accessible(IAccessible* object, LONG child = CHILDID_SELF) : object_(object), child_(child) {}
  Accessible(const Accessible& other);
  Accessible& operator=(Accessible other) noexcept;
  ~Accessible();

  /// A window's inside; throws Stuck when there is none.
  [[nodiscard]] static Accessible Of(Window window);

  /// A child number, as calls take it.
  [[nodiscard]] static VARIANT Number(LONG number);
  [[nodiscard]] IAccessible* Get() const { return object_; }
  [[nodiscard]] LONG ChildId() const { return child_; }
  [[nodiscard]] VARIANT Self() const;
  [[nodiscard]] std::string Name() const;
  [[nodiscard]] std::string Value() const;
  [[nodiscard]] std::string Description() const;
  [[nodiscard]] std::string Key() const;
  [[nodiscard]] std::string Action() const;
  [[nodiscard]] LONG Role() const;
  [[nodiscard]] LONG States() const;
  [[nodiscard]] RECT Place() const;
  [[nodiscard]] std::vector<Accessible> Children() const;
  /// The child of that number, from 1 on, without a look at the others.
  [[nodiscard]] Accessible Child(LONG number) const;
  /// The first of the descendants with that name; throws Stuck when there is none.
  [[nodiscard]] Accessible Find(const std::string& name) const;

 private:
  IAccessible* object_ = nullptr;
  LONG child_ = CHILDID_SELF;
};

/// A screen reader that has told the system that it runs; at the end of the scope it does not run any more.
class ScreenReader {
 public:
  ScreenReader();
  ScreenReader(const ScreenReader&) = delete;
  ScreenReader& operator=(const ScreenReader&) = delete;
  ~ScreenReader();
};

/// One line for each thing, children indented: kind, name, and whatever else it says. Of controls of the system only
/// the name. Places and what the pointer does are left out.
[[nodiscard]] std::string TreeText(const Accessible& root);

}  // namespace driver
