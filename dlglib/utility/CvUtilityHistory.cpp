// Recent files and names.
#include "dlglib/utility/CvUtility.h"
#include "dlglib/utility/CvUtilityState.h"
#include "dlglib/utility/used_list.h"

namespace {

using used_list::Entries;
using used_list::Kind;

constexpr int kFileList = 0;
constexpr int kNameList = 1;

[[nodiscard]] Kind FileKind(int output) noexcept { return output != 0 ? Kind::OutputFiles : Kind::InputFiles; }

[[nodiscard]] Entries EntriesOf(const CStringArray* array) {
  Entries entries;
  for (int i = 0; array != nullptr && i < array->GetSize(); ++i) entries.emplace_back(array->GetAt(i).GetString());
  return entries;
}

void FillCombo(const CStringArray* array, int count, CComboBox* combo) {
  if (combo == nullptr) return;
  combo->ResetContent();
  for (const std::string& entry : used_list::Shown(EntriesOf(array), count)) combo->AddString(entry.c_str());
}

/// Reads a list whose key can be opened; any other leaves array and count alone. False when the registry may hold more
/// than was read.
[[nodiscard]] bool ReadList(const std::string& keyName, Kind kind, CStringArray* array, int* count) {
  const std::unique_ptr<os::RegistryKey> key = os::Services().registry->Create(keyName);
  if (key == nullptr) return false;
  const used_list::List list = used_list::Read(*key, kind);
  if (count != nullptr) *count = list.count;
  if (array == nullptr) return list.whole;
  array->RemoveAll();
  for (const std::string& entry : list.entries) array->Add(entry.c_str());
  return list.whole;
}

/// Writes a list and gives back its key, or null when the key cannot be opened.
[[nodiscard]] std::unique_ptr<os::RegistryKey> WriteList(const std::string& keyName, Kind kind,
                                                         const CStringArray* array, const int* count) {
  if (array == nullptr || count == nullptr) return nullptr;
  std::unique_ptr<os::RegistryKey> key = os::Services().registry->Create(keyName);
  if (key != nullptr) used_list::Write(*key, kind, EntriesOf(array), *count);
  return key;
}

void RemoveSame(CStringArray* array, const char* entry) {
  const std::size_t found = used_list::FindSame(EntriesOf(array), ViewOf(entry));
  if (found != used_list::kNone) array->RemoveAt(static_cast<int>(found));
}

}  // namespace

std::string CvUtility::SetRegName(int listKind, const char* keyword) {
  return used_list::KeyName(listKind == kNameList ? Kind::Names : Kind::InputFiles, ViewOf(keyword));
}

void CvUtility::GetUsedFile(const char* keyword, int output, CStringArray* files, int* count, CComboBox* combo) {
  const std::string keyName = SetRegName(kFileList, keyword);
  const Kind kind = FileKind(output);
  state_->NoteReading(keyName, kind, ReadList(keyName, kind, files, count));
  FillCombo(files, count != nullptr ? *count : used_list::kDefaultCount, combo);
}

void CvUtility::SetUsedFile(const char* keyword, int output, const CStringArray* files, int* count) {
  const std::string keyName = SetRegName(kFileList, keyword);
  const Kind kind = FileKind(output);
  if (state_->MayWrite(keyName, kind)) state_->Keep(keyName, WriteList(keyName, kind, files, count));
}

void CvUtility::GetUsedName(const char* keyword, CStringArray* names, int* count, CComboBox* combo) {
  const std::string keyName = SetRegName(kNameList, keyword);
  state_->NoteReading(keyName, Kind::Names, ReadList(keyName, Kind::Names, names, count));
  FillCombo(names, count != nullptr ? *count : used_list::kDefaultCount, combo);
}

void CvUtility::SetUsedName(const char* keyword, const CStringArray* names, int* count) {
  const std::string keyName = SetRegName(kNameList, keyword);
  if (!state_->MayWrite(keyName, Kind::Names)) return;
  state_->Keep(keyName, WriteList(keyName, Kind::Names, names, count));
}

void CvUtility::SetFilePath(CStringArray* entries, const char* newEntry, CComboBox* combo, int shown) {
  if (entries == nullptr) return;
  if (newEntry != nullptr) {
    const CString entry(newEntry);  // the array may own the text that is given
    RemoveSame(entries, entry);
    entries->InsertAt(0, entry);
  }
  FillCombo(entries, shown, combo);
}

void CvUtility::SetNameList(CStringArray* entries, const char* newEntry, CComboBox* combo, int shown) {
  SetFilePath(entries, newEntry, combo, shown);
}

void CvUtility::DelFilePath(CStringArray* entries, const char* entry, CComboBox* combo, int shown) {
  if (entries == nullptr) return;
  RemoveSame(entries, entry);
  FillCombo(entries, shown, combo);
}
