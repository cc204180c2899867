// What the framework throws. Neither ever crosses a window procedure: there the message is dropped and the dialog lives
// on.
#pragma once

#include <exception>

/// An index or position that lies outside its array or list.
class CInvalidArgException : public std::exception {
 public:
  /// A few words in English; the program keeps them.
  [[nodiscard]] const char* what() const noexcept override { return "invalid argument"; }
};

/// A resource (template, bitmap, icon) that its module does not hold, or that the system could not load.
class CResourceException : public std::exception {
 public:
  /// A few words in English; the program keeps them.
  [[nodiscard]] const char* what() const noexcept override { return "resource not found"; }
};
