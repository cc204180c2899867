// What OK acts on: the rows that are selected in the list, or the text of the name box.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "dlglib/filedialog/listing/file_entry.h"

namespace filedialog {

/// Remembers who selected last and what the name box held then. One rule for each of the two:
///
/// - A selection that the user made counts as long as the box still holds what it held afterwards and nobody has
///   touched it since.
/// - A selection that a program made (the browser selects a new folder and a renamed entry, other programs may select
///   whatever they like) counts only while the box is empty or shows the name of that very entry. Otherwise the text
///   counts, wherever it came from: it is what the user sees and has decided on.
class NameChoice {
 public:
  /// The user has selected rows, or none; `text` is what the box holds now.
  void UserSelected(std::string text);
  /// The browser has selected a row by itself.
  void BrowserSelected();
  /// The user has typed into the box or taken one of the recent files.
  void Touched();

  /// Whether OK acts on the `selected` rows, not on the `text` of the box. Rows that the user selected bear
  /// FileEntry::selected; without rows the text counts.
  [[nodiscard]] bool IsSelection(std::string_view text, std::span<const FileEntry* const> selected) const;

 private:
  enum class By { User, Program };

  By by_ = By::User;
  std::string text_;  ///< what the box held after the user's last selection
  bool touched_ = false;
};

}  // namespace filedialog
