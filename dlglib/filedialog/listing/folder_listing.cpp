#include "dlglib/filedialog/listing/folder_listing.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <set>

#include "dlglib/base/encoder.h"
#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/listing/file_filter.h"
#include "platform/suite/crvnbc.h"

namespace filedialog {

namespace {

constexpr std::size_t kFirstCapacity = 20000;  ///< rows that a listing holds without growing

/// One pass of the finder.
class Pass {
 public:
  Pass(std::string_view folder, std::string_view pattern, FinderMode mode) : finder_(CwFileFinder::CreateInstance()) {
    const bool listable = !folder.empty() && folder.size() <= kPathLimit;
    if (listable) finder_->Start(SearchPath(folder, pattern).bytes(), static_cast<int>(mode));
  }

  /// Calls `take` for each entry's path; false when it was given up.
  template <class Take>
  bool ForEach(const KeepGoing& keepGoing, Take take) {
    bool goesOn = true;
    while (goesOn && finder_->HasNext()) {
      take(EucView(finder_->GetEntry()));
      goesOn = GoesOn(keepGoing);
    }
    finder_->Close();
    return goesOn;
  }

 private:
  struct Destroyer {
    void operator()(CwFileFinder* finder) const { finder->Destroy(); }
  };
  std::unique_ptr<CwFileFinder, Destroyer> finder_;
};

bool IsFolderPath(EucView path) { return path.bytes().ends_with('/'); }

/// Adds what a pass finds. Everything in a folder begins with the same text, so that is converted once.
class FoundRows {
 public:
  FoundRows(bool cutExtension, EntryTable* table) : cutExtension_(cutExtension), table_(table) {}

  void Add(EucView found) {
    const bool isFolder = IsFolderPath(found);
    const std::string_view whole = found.bytes().substr(0, found.size() - (isFolder ? 1 : 0));
    const std::size_t name = whole.rfind('/') + 1;
    EnterFolder(EucView(whole.substr(0, name)));
    name_.Assign(EucView(whole.substr(name)));
    path_.resize(nameAt_);
    path_ += encoder::ToSjis(name_).bytes();
    if (path_.size() > kPathLimit) return;
    const EntryKind kind = isFolder ? EntryKind::Folder : EntryKind::File;
    table_->Add(kind, path_, std::string_view(path_).substr(nameAt_), cutExtension_ && !isFolder);
  }

 private:
  void EnterFolder(EucView folder) {
    if (folder == EucView(folder_)) return;
    folder_.Assign(folder);
    path_ = encoder::ToRealPath(folder_).bytes();
    nameAt_ = path_.size();
  }

  bool cutExtension_;
  EntryTable* table_;
  EucText folder_;
  EucText name_;
  std::string path_;  ///< the folder and, behind it, the name found last, in the screen's encoding
  std::size_t nameAt_ = 0;
};

bool MatchesPattern(std::string_view name, const std::string& pattern) {
  const std::string text(name);
  short patternWord = 0;  // 0: the lengths below decide
  short nameWord = 0;
  short result = 1;
  xrfwildcd(pattern.c_str(), &patternWord, text.c_str(), &nameWord, &result, static_cast<int>(pattern.size()),
            static_cast<int>(text.size()));
  return result == 0;
}

/// What a shortcut's row is; none when it is left out. A target that has gone is no folder.
std::optional<EntryKind> KindOfTarget(os::Files& files, const std::string& target, const FileKind& kind) {
  const auto attributes = files.Attributes(target);
  if (attributes && (*attributes & os::kAttributeFolder) != 0) return EntryKind::FolderShortcut;
  if (!MatchesPattern(NamePart(target), kind.pattern)) return std::nullopt;
  return EntryKind::FileShortcut;
}

void AddShortcut(const os::ServiceTable& services, const std::string& link, const FileKind& kind, EntryTable* table) {
  const auto resolved = services.shell->ResolveLink(link);
  if (!resolved) return;
  const std::string target = FolderPath(*resolved);
  if (target.empty() || target.size() > kPathLimit || IsSamePath(target, link)) return;
  const std::optional<EntryKind> entryKind = KindOfTarget(*services.files, target, kind);
  if (entryKind) table->Add(*entryKind, target, NamePart(link), HasExactExtension(kind));
}

bool ListShortcuts(const os::ServiceTable& services, const FolderSearch& search, EntryTable* table,
                   const KeepGoing& keepGoing) {
  Pass pass(search.folder, "*.lnk", search.mode);
  FoundRows folders(false, table);
  return pass.ForEach(keepGoing, [&](EucView found) {
    if (IsFolderPath(found)) {
      folders.Add(found);
    } else {
      AddShortcut(services, encoder::ToRealPath(EucText(found)).bytes(), search.kind, table);
    }
  });
}

/// A pattern that fits shortcuts has listed their files among the first `plain` rows. The row of where a shortcut leads
/// stands for both.
void DropShortcutFiles(std::size_t plain, EntryTable* table) {
  std::vector<FileEntry>& rows = table->rows();
  const auto shortcuts = rows.begin() + static_cast<std::ptrdiff_t>(plain);
  std::set<std::string_view> names;
  for (auto row = shortcuts; row != rows.end(); ++row) names.insert(row->name);
  const auto isShortcut = [&names](const FileEntry& row) {
    return row.kind == EntryKind::File && names.count(row.name) != 0;
  };
  rows.erase(std::remove_if(rows.begin(), shortcuts, isShortcut), shortcuts);
}

}  // namespace

EucText SearchPath(std::string_view folder, std::string_view pattern) {
  return encoder::ToInternalPath(SjisText(std::string(WithoutSeparator(folder)).append("\\").append(pattern)));
}

bool ListFolder(const FolderSearch& search, EntryTable* table, const KeepGoing& keepGoing) {
  table->Clear(kFirstCapacity);
  const FileFilter filter(search.kind);
  FoundRows found(HasExactExtension(search.kind), table);
  Pass pass(search.folder, search.kind.pattern, search.mode);
  return pass.ForEach(keepGoing, [&](EucView path) {
    if (IsFolderPath(path) || filter.Keeps(path)) found.Add(path);
  });
}

bool ListDesktop(const os::ServiceTable& services, const FolderSearch& search, EntryTable* table,
                 const KeepGoing& keepGoing) {
  if (!ListFolder(search, table, keepGoing)) return false;
  const auto desktop = services.shell->DesktopFolder();
  if (!desktop) return true;
  const bool listed = IsSamePath(search.folder, *desktop);
  const std::size_t plain = table->size();
  const FolderSearch shortcuts{*desktop, search.kind, listed ? FinderMode::Files : search.mode};
  const bool done = ListShortcuts(services, shortcuts, table, keepGoing);
  if (listed) DropShortcutFiles(plain, table);
  return done;
}

}  // namespace filedialog
