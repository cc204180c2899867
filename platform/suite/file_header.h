// The text header at the start of model and title files; its format is described in crvncui.h.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace suite {

/// The lines of a header that has the right first line.
class FileHeader {
 public:
  /// Reads the header of a file of one kind ("MODEL", "CONST" ...). `path`: internal form (EUC-JP). None when the file
  /// cannot be read or is not of that kind.
  [[nodiscard]] static std::optional<FileHeader> Read(const std::string& path, std::string_view kind);

  /// What stands behind "<key>=" in the last line of that key; empty when there is none.
  [[nodiscard]] std::string Find(std::string_view key) const;

 private:
  explicit FileHeader(std::string lines) : lines_(std::move(lines)) {}

  std::string lines_;  ///< between the first line and "END"
};

}  // namespace suite
