#include "dlglib/filedialog/browser/name_choice.h"

#include <algorithm>
#include <utility>

namespace filedialog {

void NameChoice::UserSelected(std::string text) {
  by_ = By::User;
  text_ = std::move(text);
  touched_ = false;
}

void NameChoice::BrowserSelected() { by_ = By::Program; }

void NameChoice::Touched() { touched_ = true; }

bool NameChoice::IsSelection(std::string_view text, std::span<const FileEntry* const> selected) const {
  if (selected.empty()) return false;
  const bool byUser = by_ == By::User && std::ranges::all_of(selected, &FileEntry::selected);
  if (byUser) return !touched_ && text == text_;
  return text.empty() || (selected.size() == 1 && text == selected.front()->name);
}

}  // namespace filedialog
