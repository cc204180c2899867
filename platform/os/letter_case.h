// A change of letter case alone, for systems that answer success to it and make none.
#pragma once

#include <cerrno>
#include <string>

namespace os {

/// Gives `path` its own letter case by way of a name that nobody bears ("~0" and so on behind it), since it bears
/// another one, `former`. 0, else the errno of the step that failed; then the entry bears `former` again. What holds a
/// step up may be over in a moment (a program that looks at every new name), so both ways out of the middle are tried
/// again and again, with a `pause` between; only when nothing helps does the entry stay under the name in the middle.
///
/// `renameOnce`: errno of one step (from, to), which replaces no entry.
template <class RenameOnce, class Pause>
[[nodiscard]] int Respell(const std::string& path, const std::string& former, RenameOnce renameOnce, Pause pause) {
  constexpr int kNames = 100;
  constexpr int kTries = 10;
  int error = EEXIST;
  std::string middle;
  for (int i = 0; i < kNames && error == EEXIST; ++i) {
    middle = path + '~' + std::to_string(i);
    error = renameOnce(path, middle);
  }
  if (error != 0) return error;
  for (int i = 0; i < kTries; ++i) {
    if (i > 0) pause();
    error = renameOnce(middle, path);
    if (error == 0 || renameOnce(middle, former) == 0) break;
  }
  return error;
}

}  // namespace os
