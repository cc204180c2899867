// Layouts from arbitrary values of the registry, saved again and read back, also while calls fail.
#include "dlglib/filedialog/memory/layout_record.h"

#include <vector>

#include "dlglib/base/shift_jis.h"
#include "dlglib/utility/rules/used_list.h"
#include "fuzz/fuzz.h"
#include "platform/os/os_scripted.h"

namespace {

using namespace filedialog;

// Short, as the services that tests play fold them with every call.
const char* const kPrimary = "P";
const char* const kFallback = "F";
const char* const kSaved = "S";

const std::vector<std::string>& ValueNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all = {"Form",    "PosX",  "PosY",      "SizeX",      "SizeY",     "Confirm",
                                    "Count",   "form",  "FileCount", "iFileCount", "NameCount", "TWidth0",
                                    "TWidth1", "Other", "RWidth0",   "RWidth1",    "RWidth2"};
    for (const char digit : {'0', '1', '2', '3', '4'}) {
      for (const char* word : {"Title", "Text", "Width"}) all.push_back(std::string(word) + digit);
    }
    for (int number = 1; number <= 21; ++number) {
      const std::string digits = (number < 10 ? "0" : "") + std::to_string(number);
      for (const char* word : {"File", "iFile", "Name"}) all.push_back(word + digits);
    }
    return all;
  }();
  return names;
}

void DrawValues(fuzz::Input* input) {
  const std::vector<std::string>& names = ValueNames();
  while (!input->IsUsedUp()) {
    const std::string& name = names[input->Size(names.size() - 1)];
    const unsigned kind = input->Byte();
    const char* key = (kind & 0x80) != 0 ? kFallback : kPrimary;
    const auto type = static_cast<os::RegistryType>(kind & 7);
    // Most numbers are small, and most texts fit.
    const std::string bytes = type == os::RegistryType::Dword && (kind & 8) != 0
                                  ? std::string{static_cast<char>(input->Byte()), '\0', '\0', '\0'}
                                  : input->Text((kind & 0x10) != 0 ? 300 : 12);
    os::scripted::World().registry.SetValue(key, name, type, bytes);
  }
}

bool IsText(std::string_view text, std::size_t limit) {
  return text.size() <= limit && text.find('\0') == std::string::npos && shift_jis::Truncate(text, text.size()) == text;
}

void CheckTitles(const TitleColumns& titles) {
  FUZZ_CHECK(titles.count >= 1 && titles.count <= static_cast<int>(kTitleSlots));
  const auto count = static_cast<std::size_t>(titles.count);
  for (std::size_t i = 0; i < kTitleSlots; ++i) {
    FUZZ_CHECK(i < count ? titles.items[i] >= 1 && titles.items[i] <= kLastTitleItem : titles.items[i] == 0);
    FUZZ_CHECK(IsText(titles.texts[i], kColumnTextLimit));
  }
  const bool isAutomatic = titles.widths[0] == 0;
  for (std::size_t i = 0; i < kTitleColumns; ++i) {
    FUZZ_CHECK(i <= count && !isAutomatic ? titles.widths[i] > 0 : titles.widths[i] == 0);
  }
}

void CheckRecord(const LayoutRecord& record) {
  FUZZ_CHECK(record.view <= filedialog::ViewMode::Titles);
  CheckTitles(record.titles);
  for (const std::int32_t width : record.plainTitleWidths) FUZZ_CHECK(width >= 0);
  for (const std::int32_t width : record.detailWidths) FUZZ_CHECK(width >= 0);
  FUZZ_CHECK(record.recentCount >= 1 && record.recentCount <= kMaxRecentCount);
  FUZZ_CHECK(record.recentFiles.size() <= static_cast<std::size_t>(kMaxRecentCount));
  for (const std::string& name : record.recentFiles) FUZZ_CHECK(!name.empty() && IsText(name, kPathLimit));
}

void CheckSame(const TitleColumns& a, const TitleColumns& b) {
  FUZZ_CHECK(a.count == b.count && a.items == b.items && a.texts == b.texts && a.widths == b.widths);
}

/// What is saved whole is read back as it was.
void CheckSaved(LayoutRecord record) {
  os::Registry& registry = *os::Services().registry;
  os::Session& session = *os::Services().session;
  LayoutTarget target{kSaved, kSaved, TitleView::Models};
  FUZZ_CHECK(!SaveLayout(registry, session, target, LayoutPart::Window, record));
  FUZZ_CHECK(!SaveLayout(registry, session, target, LayoutPart::RecentFiles, record));
  target.titles = TitleView::Plain;
  FUZZ_CHECK(!SaveLayout(registry, session, target, LayoutPart::Window, record));
  LayoutRecord read;
  FUZZ_CHECK(LoadLayout(registry, {kSaved, kFallback}, &read) == LayoutSource::Primary);
  FUZZ_CHECK(read.view == record.view && read.left == record.left && read.top == record.top);
  FUZZ_CHECK(read.width == record.width && read.height == record.height);
  FUZZ_CHECK(read.slowSort.mode == record.slowSort.mode && read.slowSort.limit == record.slowSort.limit);
  CheckSame(read.titles, record.titles);
  FUZZ_CHECK(read.plainTitleWidths == record.plainTitleWidths && read.detailWidths == record.detailWidths);
  const auto kept = std::min(record.recentFiles.size(), static_cast<std::size_t>(record.recentCount));
  record.recentFiles.resize(kept);
  FUZZ_CHECK(read.recentCount == record.recentCount && read.recentFiles == record.recentFiles);
}

/// A call that fails leaves what is read within its ranges, and no key open.
void CheckWithFault(const LayoutRecord& record, std::size_t call) {
  os::Registry& registry = *os::Services().registry;
  os::scripted::World().calls.FailNumber(call);
  const LayoutTarget target{kSaved, kPrimary, TitleView::Models};
  SaveLayout(registry, *os::Services().session, target, LayoutPart::Window, record);
  SaveLayout(registry, *os::Services().session, target, LayoutPart::RecentFiles, record);
  LayoutRecord read;
  LoadModelLayout(registry, {kSaved, kFallback}, {kPrimary, kFallback}, &read);
  CheckRecord(read);
}

void CheckUsedLists() {
  for (const auto kind : {used_list::Kind::InputFiles, used_list::Kind::OutputFiles, used_list::Kind::Names}) {
    const auto key = os::Services().registry->Create(kPrimary);
    const used_list::List list = used_list::Read(*key, kind);
    FUZZ_CHECK(list.count >= 1 && list.count <= used_list::kMaxKept);
    FUZZ_CHECK(list.entries.size() <= static_cast<std::size_t>(used_list::kMaxKept));
    for (const std::string& entry : list.entries) {
      FUZZ_CHECK(entry.size() <= used_list::kMaxEntryLength + 1 && entry.find('\0') == std::string::npos);
      FUZZ_CHECK(entry.empty() || used_list::FindSame(list.entries, entry) < list.entries.size());
    }
    FUZZ_CHECK(used_list::Shown(list.entries, list.count).size() <= static_cast<std::size_t>(list.count));
    used_list::Write(*key, kind, list.entries, list.count);
    FUZZ_CHECK(used_list::Read(*key, kind).count == list.count);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  os::scripted::World().Reset();
  const auto failing = static_cast<std::size_t>(input.Byte());
  DrawValues(&input);

  os::Registry& registry = *os::Services().registry;
  LayoutRecord record;
  LoadLayout(registry, {kPrimary, kFallback}, &record);
  CheckRecord(record);
  CheckSaved(record);
  LoadModelLayout(registry, {kPrimary, kFallback}, {kFallback, kPrimary}, &record);
  CheckRecord(record);
  CheckUsedLists();
  if (failing != 0) CheckWithFault(record, failing);
  FUZZ_CHECK(os::scripted::World().registry.openHandles == 0);
  os::scripted::World().Reset();
  return 0;
}
