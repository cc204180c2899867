#include "dlglib/filedialog/ok_subject.h"

#include <algorithm>
#include <utility>

namespace filedialog {

void OkSubject::UserSelected(std::string text) {
  by_ = By::User;
  text_ = std::move(text);
  touched_ = false;
}

void OkSubject::BrowserSelected() { by_ = By::Program; }

void OkSubject::TextTouched() { touched_ = true; }

bool OkSubject::IsSelection(std::string_view text, std::span<const FileEntry* const> selected) const {
  if (selected.empty()) return false;
  const bool byUser = by_ == By::User && std::ranges::all_of(selected, &FileEntry::selected);
  if (byUser) return !touched_ && text == text_;
  return text.empty() || (selected.size() == 1 && text == selected.front()->name);
}

}  // namespace filedialog
