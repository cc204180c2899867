#include "dlglib/filedialog/browser/label_press.h"

#include <utility>

#include "dlglib/base/at_scope_end.h"

namespace filedialog {

using LabelEnd = FileBrowser::LabelEnd;

LabelPress::LabelPress(FileBrowser& browser, std::function<void()> cancel)
    : browser_(browser), cancel_(std::move(cancel)) {}

/// A name that is given fills the list anew and takes the focus, which would let go of a pressed button, and put
/// another row below the second half of a double click.
bool LabelPress::UsesUp(const Press& press) {
  if (press.endsEdit) {
    last_ = Did::GaveName;  // also when an exception ends it: the rows may have moved
    if (!GivesName(press)) last_ = Did::EndedEdit;
  } else if (!press.isSecondOfTwo) {
    last_ = Did::Nothing;
  }
  return last_ == Did::GaveName;
}

/// Whether the press that ends the edit has thereby done its work.
bool LabelPress::GivesName(const Press& press) {
  bool isRefused = true;  // also what an exception makes of it
  const AtScopeEnd cancelled([&] {
    // A message has taken the release of the button, or the press is lost: it would not close the browser.
    if (isRefused && press.isCancel) cancel_();
  });
  const Reply<LabelEnd> end = browser_.FinishLabel();
  isRefused = end == LabelEnd::Refused;
  const bool movedRows = end == LabelEnd::Renamed && press.isInList;
  return !end || isRefused || movedRows;
}

}  // namespace filedialog
