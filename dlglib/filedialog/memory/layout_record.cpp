#include "dlglib/filedialog/memory/layout_record.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "dlglib/base/little_endian.h"
#include "dlglib/base/registry_change.h"
#include "dlglib/base/shift_jis.h"

namespace filedialog {

namespace {

constexpr std::string_view kKeyStem = "Software\\Nalbo\\Corvane\\FileDialog\\Reg";
constexpr std::string_view kModelKeyword = "#MODEL#";
constexpr std::string_view kModelExtension = ".MDL";

constexpr std::size_t kDwordBytes = 4;
constexpr std::size_t kTitleBytes = 2;
constexpr std::size_t kTextBytes = 128;
constexpr std::size_t kRecentBytes = kPathLimit + 1;

// Views by their number in the registry.
constexpr std::array kViews = {ViewMode::LargeIcons, ViewMode::SmallIcons, ViewMode::Details, ViewMode::List,
                               ViewMode::Titles};

// Value names are a word and a number, counted from 0 or 1 as the tables below say.
std::string Numbered(std::string_view word, std::size_t number) { return std::string(word) + std::to_string(number); }

std::string RecentValueName(std::size_t number) {
  return number < 10 ? Numbered("File0", number) : Numbered("File", number);
}

// ---------------------------------------------------------------------------------------------------------------------
// reading

/// Reads values, and notes whether there was one that could not be had.
class Reader {
 public:
  explicit Reader(os::RegistryKey& key) : key_(key) {}

  std::optional<os::RegistryValue> Query(const std::string& name, std::size_t limit) {
    std::uint32_t error = 0;
    auto value = key_.Query(name, limit, &error);
    if (!value && os::IsReadFailure(error)) whole_ = false;
    return value;
  }
  [[nodiscard]] bool Whole() const { return whole_; }

 private:
  os::RegistryKey& key_;
  bool whole_ = true;
};

std::optional<std::uint32_t> ReadNumber(Reader& key, const std::string& name, os::RegistryType type, std::size_t size) {
  const auto value = key.Query(name, size);
  if (!value || value->type != type || value->bytes.size() != size) return std::nullopt;
  return little_endian::Decode(value->bytes);
}

std::optional<std::int32_t> ReadDword(Reader& key, const std::string& name) {
  const auto number = ReadNumber(key, name, os::RegistryType::Dword, kDwordBytes);
  if (!number) return std::nullopt;
  return static_cast<std::int32_t>(*number);
}

void ReadAny(Reader& key, const std::string& name, std::int32_t* field) {
  *field = ReadDword(key, name).value_or(*field);
}

void ReadRange(Reader& key, const std::string& name, std::int32_t lowest, std::int32_t highest, int* field) {
  const auto number = ReadDword(key, name);
  if (number && *number >= lowest && *number <= highest) *field = *number;
}

void ReadView(Reader& key, ViewMode* view) {
  const auto number = ReadDword(key, "Form");
  if (number && *number >= 0 && static_cast<std::size_t>(*number) < kViews.size()) {
    *view = kViews[static_cast<std::size_t>(*number)];
  }
}

void ReadSlowSort(Reader& key, SlowSortRule* rule) {
  if (const auto mode = ReadDword(key, "Confirm")) rule->mode = static_cast<SlowSort>(*mode);
  ReadAny(key, "Count", &rule->limit);
}

// The text up to its terminator, if it has one; empty when it cannot be read.
std::string ReadText(Reader& key, const std::string& name, std::size_t limit) {
  const auto value = key.Query(name, limit);
  if (!value || value->type != os::RegistryType::String) return {};
  return value->bytes.substr(0, value->bytes.find('\0'));
}

template <std::size_t N>
void ReadWidths(Reader& key, std::string_view word, std::array<std::int32_t, N>* widths) {
  for (std::size_t i = 0; i < N; ++i) {
    const std::int32_t width = ReadDword(key, Numbered(word, i)).value_or(0);
    (*widths)[i] = std::max(width, 0);
  }
}

void ReadTitleItems(Reader& key, TitleColumns* titles) {
  std::array<std::int16_t, kTitleSlots> items = {};
  std::size_t count = 0;
  for (std::size_t i = 1; i <= kTitleSlots; ++i) {
    const auto item = ReadNumber(key, Numbered("Title", i), os::RegistryType::Binary, kTitleBytes);
    if (item && *item >= 1 && *item <= kLastTitleItem) items[count++] = static_cast<std::int16_t>(*item);
  }
  if (count == 0) return;
  titles->items = items;
  titles->count = static_cast<int>(count);
}

void ReadTitleWidths(Reader& key, TitleColumns* titles) {
  std::array<std::int32_t, kTitleColumns> read = {};
  ReadWidths(key, "Width", &read);
  const std::span<const std::int32_t> used(read.data(), static_cast<std::size_t>(titles->count) + 1);
  if (std::find(used.begin(), used.end(), 0) != used.end()) return;
  std::copy(used.begin(), used.end(), titles->widths.begin());
}

void ReadTitleTexts(Reader& key, TitleColumns* titles) {
  for (std::size_t i = 0; i < kTitleSlots; ++i) {
    titles->texts[i] = shift_jis::Truncate(ReadText(key, Numbered("Text", i + 1), kTextBytes), kColumnTextLimit);
  }
}

// A name that does not fit whole would be another file's, so a long one is passed over.
void ReadRecentFiles(Reader& key, LayoutRecord* record) {
  ReadRange(key, "FileCount", 1, kMaxRecentCount, &record->recentCount);
  for (std::size_t i = 1; i <= kMaxRecentCount; ++i) {
    const std::string text = ReadText(key, RecentValueName(i), kRecentBytes);
    const std::string_view name = shift_jis::Truncate(text, text.size());
    if (!name.empty() && name.size() <= kPathLimit) record->recentFiles.emplace_back(name);
  }
}

void ReadTitles(Reader& key, LayoutRecord* record) {
  ReadTitleItems(key, &record->titles);
  ReadTitleWidths(key, &record->titles);
  ReadTitleTexts(key, &record->titles);
}

void ReadAllButTitles(Reader& key, LayoutRecord* record) {
  ReadView(key, &record->view);
  ReadAny(key, "PosX", &record->left);
  ReadAny(key, "PosY", &record->top);
  ReadAny(key, "SizeX", &record->width);
  ReadAny(key, "SizeY", &record->height);
  ReadSlowSort(key, &record->slowSort);
  ReadWidths(key, "TWidth", &record->plainTitleWidths);
  ReadWidths(key, "RWidth", &record->detailWidths);
  ReadRecentFiles(key, record);
}

void ReadAll(Reader& key, LayoutRecord* record) {
  ReadAllButTitles(key, record);
  ReadTitles(key, record);
}

using ReadValues = void (*)(Reader& key, LayoutRecord* record);

/// Reads those values into a record of defaults, from the first of the two keys that opens.
LayoutSource Load(os::Registry& registry, const LayoutKeys& keys, ReadValues readValues, LayoutRecord* record) {
  *record = {};
  for (const auto& [name, source] :
       {std::pair(&keys.primary, LayoutSource::Primary), std::pair(&keys.fallback, LayoutSource::Fallback)}) {
    std::uint32_t error = 0;
    if (const std::unique_ptr<os::RegistryKey> opened = registry.Open(*name, &error)) {
      Reader key(*opened);
      readValues(key, record);
      record->whole = record->whole && key.Whole();
      return source;
    }
    record->whole = record->whole && !os::IsReadFailure(error);
  }
  return LayoutSource::None;
}

// ---------------------------------------------------------------------------------------------------------------------
// writing

void WriteDword(RegistryChange& key, const std::string& name, std::int32_t number) {
  key.Set(name, os::RegistryType::Dword, little_endian::Encode(static_cast<std::uint32_t>(number), kDwordBytes));
}

std::int32_t NumberOf(ViewMode view) {
  return static_cast<std::int32_t>(std::ranges::find(kViews, view) - kViews.begin());
}

void WriteWidths(RegistryChange& key, std::string_view word, std::span<const std::int32_t> widths) {
  for (std::size_t i = 0; i < widths.size(); ++i) WriteDword(key, Numbered(word, i), widths[i]);
}

void WriteWindow(RegistryChange& key, const LayoutRecord& record) {
  WriteDword(key, "PosX", record.left);
  WriteDword(key, "PosY", record.top);
  WriteDword(key, "SizeX", record.width);
  WriteDword(key, "SizeY", record.height);
  WriteDword(key, "Form", NumberOf(record.view));
  WriteDword(key, "Confirm", static_cast<std::int32_t>(record.slowSort.mode));
  WriteDword(key, "Count", record.slowSort.limit);
}

void WriteTitleItems(RegistryChange& key, const TitleColumns& titles) {
  for (std::size_t i = 0; i < kTitleSlots; ++i) {
    const std::int16_t item =
        i < static_cast<std::size_t>(std::max(titles.count, 0)) ? titles.items[i] : std::int16_t{0};
    key.Set(Numbered("Title", i + 1), os::RegistryType::Binary,
            little_endian::Encode(static_cast<std::uint16_t>(item), kTitleBytes));
  }
}

void WriteTitles(RegistryChange& key, const TitleColumns& titles) {
  WriteWidths(key, "Width", titles.widths);
  WriteTitleItems(key, titles);
  for (std::size_t i = 0; i < kTitleSlots; ++i) {
    key.Set(Numbered("Text", i + 1), os::RegistryType::String, shift_jis::Truncate(titles.texts[i], kColumnTextLimit));
  }
}

void WriteRecentFiles(RegistryChange& key, const LayoutRecord& record) {
  WriteDword(key, "FileCount", record.recentCount);
  for (std::size_t i = 1; i <= kMaxRecentCount; ++i) key.Delete(RecentValueName(i));
  const auto wanted = static_cast<std::size_t>(std::clamp(record.recentCount, 0, kMaxRecentCount));
  const std::size_t count = std::min(record.recentFiles.size(), wanted);
  for (std::size_t i = 0; i < count; ++i) {
    if (record.recentFiles[i].empty()) continue;
    key.Set(RecentValueName(i + 1), os::RegistryType::String, record.recentFiles[i]);
  }
}

using OpenedKey = std::unique_ptr<os::RegistryKey>;
using ErrorText = std::optional<std::string>;

ErrorText Create(os::Registry& registry, os::Session& session, const std::string& name, OpenedKey* key) {
  std::uint32_t error = 0;
  *key = registry.Create(name, &error);
  if (*key) return std::nullopt;
  return session.ErrorText(error);
}

ErrorText SaveWindow(os::Registry& registry, os::Session& session, const LayoutTarget& target, os::RegistryKey& own,
                     const LayoutRecord& record) {
  ErrorText error;
  RegistryChange change(own);
  WriteWindow(change, record);
  if (target.titles == TitleView::Plain) {
    WriteWidths(change, "TWidth", record.plainTitleWidths);
  } else if (target.titleKey == target.key) {
    WriteTitles(change, record.titles);
  } else if (OpenedKey shared; !(error = Create(registry, session, target.titleKey, &shared))) {
    RegistryChange sharedChange(*shared);
    WriteTitles(sharedChange, record.titles);
    sharedChange.Finish();
  }
  WriteWidths(change, "RWidth", record.detailWidths);
  change.Finish();
  return error;
}

// Copies the first `count` shown widths; a column that is not there is 0.
void TakeWidths(std::span<const std::int32_t> shown, std::size_t count, std::span<std::int32_t> widths) {
  for (std::size_t i = 0; i < std::min(count, widths.size()); ++i) widths[i] = i < shown.size() ? shown[i] : 0;
}

void TakeTitleWidths(const ShownColumns& shown, LayoutRecord* record) {
  if (shown.titles == TitleView::Plain) {
    TakeWidths(shown.widths, kPlainTitleColumns, record->plainTitleWidths);
    return;
  }
  record->titles.widths = {};
  TakeWidths(shown.widths, static_cast<std::size_t>(std::max(record->titles.count, 0)) + 1, record->titles.widths);
}

}  // namespace

LayoutKeys KindLayoutKeys(std::string_view keyword, std::string_view extension) {
  LayoutKeys keys{std::string(kKeyStem), std::string(kKeyStem)};
  keys.primary.append(" ").append(keyword);
  keys.fallback.append(extension);
  return keys;
}

LayoutKeys TitleLayoutKeys(const std::optional<std::string>& modelExtension) {
  return KindLayoutKeys(kModelKeyword, modelExtension ? std::string_view(*modelExtension) : kModelExtension);
}

LayoutSource LoadLayout(os::Registry& registry, const LayoutKeys& keys, LayoutRecord* record) {
  return Load(registry, keys, ReadAll, record);
}

LayoutSource LoadModelLayout(os::Registry& registry, const LayoutKeys& keys, const LayoutKeys& titleKeys,
                             LayoutRecord* record) {
  const bool isSamePrimary = keys.primary == titleKeys.primary;
  const LayoutSource source = Load(registry, keys, isSamePrimary ? ReadAll : ReadAllButTitles, record);
  const bool isSameKey = isSamePrimary && (source == LayoutSource::Primary || keys.fallback == titleKeys.fallback);
  if (isSameKey) return source;
  LayoutRecord shared;
  Load(registry, titleKeys, ReadTitles, &shared);
  record->titles = std::move(shared.titles);
  record->whole = record->whole && shared.whole;
  return source;
}

std::optional<std::string> SaveLayout(os::Registry& registry, os::Session& session, const LayoutTarget& target,
                                      LayoutPart part, const LayoutRecord& record) {
  if (!record.whole) return std::nullopt;
  OpenedKey own;
  if (auto error = Create(registry, session, target.key, &own)) return error;
  if (part == LayoutPart::Window) return SaveWindow(registry, session, target, *own, record);
  RegistryChange change(*own);
  WriteRecentFiles(change, record);
  change.Finish();
  return std::nullopt;
}

void RecordColumnWidths(const ShownColumns& shown, LayoutRecord* record) {
  if (shown.view == ViewMode::Details && shown.listing == ListingMode::Details && !shown.listingRunning) {
    TakeWidths(shown.widths, kDetailColumns, record->detailWidths);
  }
  if (shown.view == ViewMode::Titles && shown.listing == ListingMode::Titles) TakeTitleWidths(shown, record);
}

}  // namespace filedialog
