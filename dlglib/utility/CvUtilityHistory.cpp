// Recent files and names.
#include <utility>

#include "dlglib/base/edge.h"
#include "dlglib/utility/CvUtility.h"
#include "dlglib/utility/CvUtilityState.h"
#include "dlglib/utility/rules/used_list.h"

namespace {

using used_list::Entries;
using used_list::Kind;
using used_list::Reading;

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
  const Entries shown = used_list::Shown(EntriesOf(array), count);
  combo->ResetContent();
  for (const std::string& entry : shown) combo->AddString(entry.c_str());
}

[[nodiscard]] Reading ReadFrom(const std::string& keyName, Kind kind, CStringArray* array, int* count) {
  const std::unique_ptr<os::RegistryKey> key = os::Services().registry->Create(keyName);
  if (key == nullptr) return Reading::NotRead;
  const used_list::List list = used_list::Read(*key, kind);
  const Reading reading = list.whole ? Reading::Whole : Reading::ValueFailed;
  CStringArray entries;
  for (const std::string& entry : list.entries) entries.Add(entry.c_str());
  if (count != nullptr) *count = list.count;
  if (array != nullptr) *array = std::move(entries);
  return reading;
}

void RemoveSame(CStringArray* array, const char* entry) {
  const std::size_t found = used_list::FindSame(EntriesOf(array), ViewOf(entry));
  if (found != used_list::kNone) array->RemoveAt(static_cast<int>(found));
}

/// Puts an entry on top of an array in place of the one that equals it. The array may own the text that is given.
void PutOnTop(CStringArray* array, const char* newEntry) {
  const std::size_t same = used_list::FindSame(EntriesOf(array), ViewOf(newEntry));
  CStringArray made = *array;
  if (same != used_list::kNone) made.RemoveAt(static_cast<int>(same));
  made.InsertAt(0, newEntry);
  *array = std::move(made);
}

}  // namespace

void CvUtility::State::ReadList(const std::string& keyName, Kind kind, CStringArray* array, int* count) {
  Reading& reading = readings[{keyName, kind}];
  reading = Reading::NotRead;  // when memory runs out half-way
  reading = ReadFrom(keyName, kind, array, count);
}

void CvUtility::State::WriteList(const std::string& keyName, Kind kind, const CStringArray* array, const int* count) {
  const auto last = readings.find({keyName, kind});
  const Reading unknown = readingUnknown ? Reading::NotRead : Reading::Whole;
  const Reading reading = last == readings.end() ? unknown : last->second;
  if (array == nullptr || count == nullptr || reading == Reading::ValueFailed) return;
  std::unique_ptr<os::RegistryKey> key = os::Services().registry->Create(keyName);
  if (key == nullptr || (reading == Reading::NotRead && used_list::HoldsEntries(*key, kind))) return;
  // From now on the entries there are the caller's own.
  if (used_list::Write(*key, kind, EntriesOf(array), *count) && last != readings.end()) last->second = Reading::Whole;
  writtenKeys[keyName] = std::move(key);
}

std::string CvUtility::SetRegName(int listKind, const char* keyword) {
  return used_list::KeyName(listKind == kNameList ? Kind::Names : Kind::InputFiles, ViewOf(keyword));
}

void CvUtility::ReadUsed(int listKind, int output, const char* keyword, CStringArray* array, int* count) noexcept {
  edge::Guarded([&] {
    const Kind kind = listKind == kNameList ? Kind::Names : FileKind(output);
    const bool former = std::exchange(state_->readingUnknown, true);
    state_->ReadList(SetRegName(listKind, keyword), kind, array, count);
    state_->readingUnknown = former;
  });
}

void CvUtility::WriteUsed(int listKind, int output, const char* keyword, const CStringArray* array,
                          const int* count) noexcept {
  edge::Guarded([&] {
    const Kind kind = listKind == kNameList ? Kind::Names : FileKind(output);
    state_->WriteList(SetRegName(listKind, keyword), kind, array, count);
  });
}

void CvUtility::GetUsedFile(const char* keyword, int output, CStringArray* files, int* count,
                            CComboBox* combo) noexcept {
  ReadUsed(kFileList, output, keyword, files, count);
  edge::Guarded([&] { FillCombo(files, count != nullptr ? *count : used_list::kDefaultCount, combo); });
}

void CvUtility::SetUsedFile(const char* keyword, int output, const CStringArray* files, int* count) noexcept {
  WriteUsed(kFileList, output, keyword, files, count);
}

void CvUtility::GetUsedName(const char* keyword, CStringArray* names, int* count, CComboBox* combo) noexcept {
  ReadUsed(kNameList, 0, keyword, names, count);
  edge::Guarded([&] { FillCombo(names, count != nullptr ? *count : used_list::kDefaultCount, combo); });
}

void CvUtility::SetUsedName(const char* keyword, const CStringArray* names, int* count) noexcept {
  WriteUsed(kNameList, 0, keyword, names, count);
}

void CvUtility::SetFilePath(CStringArray* entries, const char* newEntry, CComboBox* combo, int shown) noexcept {
  if (entries == nullptr) return;
  edge::Guarded([&] {
    if (newEntry != nullptr) PutOnTop(entries, newEntry);
  });
  edge::Guarded([&] { FillCombo(entries, shown, combo); });
}

void CvUtility::SetNameList(CStringArray* entries, const char* newEntry, CComboBox* combo, int shown) noexcept {
  SetFilePath(entries, newEntry, combo, shown);
}

void CvUtility::DelFilePath(CStringArray* entries, const char* entry, CComboBox* combo, int shown) noexcept {
  if (entries == nullptr) return;
  edge::Guarded([&] { RemoveSame(entries, entry); });
  edge::Guarded([&] { FillCombo(entries, shown, combo); });
}
