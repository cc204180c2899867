// Selection, the file name box, and what OK makes of them.
#include <utility>

#include "dlglib/filedialog/CvFileDialog.h"
#include "dlglib/filedialog/path_text.h"
#include "dlglib/filedialog/place_opening.h"
#include "dlglib/filedialog/recent_files.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/shift_jis.h"
#include "platform/os/os.h"

using filedialog::FileEntry;
using filedialog::NameAnswer;
using filedialog::SelectedPaths;

// ---------------------------------------------------------------------------------------------------------------------
// selection

void CvFileDialog::OnListClick() { TakeSelection(); }

/// Beside the rows nothing is selected, and the name box counts.
void CvFileDialog::OnListDoubleClick(NMHDR* notification) {
  const bool beside = reinterpret_cast<NMITEMACTIVATE*>(notification)->iItem < 0;
  if (press_ == Press::EndedEdit && (beside || list_.SelectedRows().empty())) return;
  TakeSelection();
  OnOK();
}

void CvFileDialog::TakeSelection() {
  for (FileEntry& entry : table_.rows()) entry.selected = false;
  for (const int row : list_.SelectedRows()) table_.rows()[static_cast<std::size_t>(row)].selected = true;
  ShowSelectedNames();
  EnableWays();
}

void CvFileDialog::ShowSelectedNames() {
  const filedialog::SelectedNames names = filedialog::JoinSelectedNames(table_.rows(), startUp_.capacity);
  const ComboBoxRef box(::GetDlgItem(m_hWnd, IDC_FILE_NAME));
  if (startUp_.capacity > 1) box.LimitText(static_cast<int>(startUp_.capacity - 1));
  if (names.count == 1) OfferName(names.text);
  if (names.count > 1) box.SetWindowText(names.text.c_str());
  okSubject_.UserSelected(NameText());
}

/// Selects the name in the box's list, and puts it at the top when it is not there in the very same spelling.
void CvFileDialog::OfferName(const std::string& name) {
  const ComboBoxRef box(::GetDlgItem(m_hWnd, IDC_FILE_NAME));
  const int count = box.GetCount();
  for (int item = 0; item < count; ++item) {
    CString text;
    box.GetLBText(item, text);
    if (name != text.GetString()) continue;
    box.SetCurSel(item);
    return;
  }
  box.SetCurSel(box.InsertString(0, name.c_str()));
}

void CvFileDialog::OnNameTyped() { okSubject_.TextTouched(); }

void CvFileDialog::ShowName(const std::string& name) {
  SetDlgItemText(IDC_FILE_NAME, name.c_str());
  nameBytes_.Note(::GetDlgItem(m_hWnd, IDC_FILE_NAME), name);
}

/// What has not been touched since it was put there has the bytes that it had then.
std::string CvFileDialog::NameText() const {
  if (const auto untouched = nameBytes_.Untouched(::GetDlgItem(m_hWnd, IDC_FILE_NAME))) return *untouched;
  CString text;
  GetDlgItemText(IDC_FILE_NAME, text);
  return text.GetString();
}

// ---------------------------------------------------------------------------------------------------------------------
// OK

void CvFileDialog::OnOK() {
  if (filedialog::IsRefusal(FinishLabelEdit())) return;
  SaveWindowLayout();
  const std::string text = NameText();
  if (okSubject_.IsSelection(text, SelectedEntries())) return AcceptSelection(list_.SelectedRows());
  if (shift_jis::HasWildcard(text) || !IsMultiple()) return ResolveText(text);
  ResolveList(text);
}

void CvFileDialog::AcceptSelection(const std::vector<int>& rows) {
  if (rows.size() == 1) {
    const FileEntry entry = table_.rows()[static_cast<std::size_t>(rows.front())];
    return filedialog::IsFile(entry.kind) ? AcceptFile(std::string(entry.path)) : OpenRow(entry);
  }
  TakeSelection();
  const auto check = [this](std::string* path) { return filedialog::CheckName(path, Rules(), this); };
  const SelectedPaths paths = filedialog::JoinSelectedPaths(table_.rows(), startUp_.capacity, check);
  switch (paths.outcome) {
    case SelectedPaths::Outcome::Accept:
      return Deliver(paths.text);
    case SelectedPaths::Outcome::TooLong:
      return EndDialog(IDCANCEL);
    case SelectedPaths::Outcome::NoFile:
      os::Services().session->Beep(os::kBeepDefault);
      return Warn("ファイルが選択されていません。");
    case SelectedPaths::Outcome::Refuse:
      return;
  }
}

void CvFileDialog::OpenRow(const FileEntry& entry) {
  if (startUp_.folderFixed) return;
  if (auto location = filedialog::LocationOfEntry(places_, entry, networkPlaces_)) {
    EnterPlace(std::move(*location));
  } else {
    SetViewMode(layout_.viewMode);  // gone since it was listed
  }
}

void CvFileDialog::AcceptFile(std::string path) {
  if (!filedialog::CheckName(&path, SingleRules(), this)) return;
  Accept(path);
}

filedialog::NameRules CvFileDialog::Rules() const {
  return {.flags = startUp_.flags,
          .folder = places_.Folder(),
          .extension = kind_.extension,
          .folderFixed = startUp_.folderFixed};
}

/// For a name that is the whole result. Several names are bounded by the caller's buffer, all of them together.
filedialog::NameRules CvFileDialog::SingleRules() const {
  filedialog::NameRules rules = Rules();
  rules.longestPath = startUp_.longestPath;
  return rules;
}

void CvFileDialog::ResolveText(const std::string& text) {
  const NameAnswer answer = filedialog::ResolveTypedName(text, SingleRules(), this);
  if (answer.outcome == NameAnswer::Outcome::Accept) Accept(answer.path);
  if (answer.outcome == NameAnswer::Outcome::OpenFolder) OpenTypedFolder(answer);
}

void CvFileDialog::OpenTypedFolder(const NameAnswer& answer) {
  auto location = filedialog::IsOnMissingDrive(answer.folder) ? std::nullopt : places_.Find(answer.folder);
  if (!location && !answer.told) os::Services().session->Beep(os::kBeepDefault);
  if (!location) return;
  if (answer.pattern) kind_.pattern = *answer.pattern;
  if (answer.extension) kind_.extension = *answer.extension;
  ShowName(answer.nameField);
  EnterPlace(std::move(*location));
}

void CvFileDialog::ResolveList(const std::string& text) {
  const auto list = filedialog::ResolveTypedList(text, Rules(), this);
  if (list) Deliver(*list);  // also one without names, which callers take for an empty choice
}

/// Ends with one name, which becomes the most recent file.
void CvFileDialog::Accept(const std::string& path) {
  if (path.size() < startUp_.capacity) {
    const auto form = startUp_.folderFixed ? filedialog::RecentForm::NameOnly : filedialog::RecentForm::FullPath;
    filedialog::AddRecentFile(filedialog::RecentName(path, form), &layout_.recentFiles);
    SaveRecentFiles();
  }
  Deliver(path);
}

/// Ends with a result; one that does not fit the caller's buffer ends as cancelled.
void CvFileDialog::Deliver(const std::string& result) {
  if (result.size() >= startUp_.capacity) return EndDialog(IDCANCEL);
  shift_jis::CopyBounded(startUp_.fileBuffer, startUp_.capacity, result);
  EndDialog(IDOK);
}
