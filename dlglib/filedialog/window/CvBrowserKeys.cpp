#include "dlglib/filedialog/window/CvBrowserKeys.h"

#include "dlglib/base/virtual_keys.h"
#include "dlglib/resources/resource.h"
#include "platform/os/edit_composition.h"

using filedialog::BrowserPart;
using filedialog::ListCommand;
using filedialog::Walk;
using filedialog::WindowCommand;

namespace {

bool IsDown(int key) { return ::GetKeyState(key) < 0; }

}  // namespace

/// Keys of an open composition are its own.
bool CvBrowserKeys::Run(const MSG& message) {
  if (parts_.list.IsComposing() || os::IsComposing(message.hwnd)) return false;
  const int key = static_cast<int>(message.wParam);
  if (message.message == WM_SYSKEYDOWN) return RunWithAlt(key);
  if (message.message != WM_KEYDOWN) return false;
  return RunAnywhere(key) || (parts_.list.Is(message.hwnd) && RunInList(key));
}

bool CvBrowserKeys::RunWithAlt(int key) {
  if (key == virtual_key::kUp && HasDroppedList()) return false;
  const auto area = filedialog::AreaOfAltKey(key);
  const bool toPlaces = key == filedialog::kKeyOfPlaces;
  if (!area && !toPlaces) return false;
  if (!parts_.label.Finish()) return true;
  if (area) {
    parts_.navigation.Run(*area);
  } else {
    FocusPart(BrowserPart::Places);
  }
  return true;
}

bool CvBrowserKeys::RunAnywhere(int key) {
  const auto command = filedialog::WindowCommandOf(key);
  if (!command) return false;
  if (!parts_.label.Finish()) return true;
  switch (*command) {
    case WindowCommand::Refresh:
      parts_.browser.Refresh();
      break;
    case WindowCommand::WalkParts:
      WalkParts(IsDown(VK_SHIFT) ? Walk::Backward : Walk::Forward);
  }
  return true;
}

bool CvBrowserKeys::RunInList(int key) {
  const auto column = IsDown(VK_CONTROL) ? filedialog::ColumnOfCtrlKey(key) : std::nullopt;
  const auto command = filedialog::ListCommandOf(key);
  if (column) parts_.browser.ClickHeader(*column);
  if (command) RunCommand(*command);
  return column || command;
}

void CvBrowserKeys::RunCommand(ListCommand command) {
  switch (command) {
    case ListCommand::Up:
      return parts_.browser.Up();
    case ListCommand::Rename:
      return parts_.browser.Rename();
    case ListCommand::Delete:
      return parts_.browser.Delete();
    case ListCommand::OpenPlaces:
      FocusPart(BrowserPart::Places);
      if (parts_.places.Is(::GetFocus())) parts_.places.DropDown();
  }
}

void CvBrowserKeys::WalkParts(Walk walk) {
  FocusPart(filedialog::NextPart(FocusedPart(), walk, parts_.places.IsWindowEnabled() != FALSE));
}

/// As the Tab key does it: an edit box has its whole text selected.
void CvBrowserKeys::FocusPart(BrowserPart part) {
  const WindowRef names(::GetDlgItem(parts_.dialog.m_hWnd, IDC_FILE_NAME));
  switch (part) {
    case BrowserPart::List:
      return parts_.dialog.GotoDlgCtrl(&parts_.list);
    case BrowserPart::Names:
      return parts_.dialog.GotoDlgCtrl(&names);
    case BrowserPart::Places:
      if (parts_.places.IsWindowEnabled()) parts_.dialog.GotoDlgCtrl(&parts_.places);
  }
}

std::optional<BrowserPart> CvBrowserKeys::FocusedPart() const {
  const HWND focus = ::GetFocus();
  const HWND names = ::GetDlgItem(parts_.dialog.m_hWnd, IDC_FILE_NAME);
  if (parts_.list.Is(focus)) return BrowserPart::List;
  if (parts_.places.Is(focus)) return BrowserPart::Places;
  if (WindowRef(names).Is(focus) || ::IsChild(names, focus)) return BrowserPart::Names;
  return std::nullopt;
}

bool CvBrowserKeys::HasDroppedList() const {
  constexpr int kBoxes[] = {IDC_LOCATION, IDC_FILE_NAME, IDC_FILE_KIND, IDC_RECENT_COUNT};
  for (const int id : kBoxes) {
    if (ComboBoxRef(::GetDlgItem(parts_.dialog.m_hWnd, id)).GetDroppedState()) return true;
  }
  return false;
}
