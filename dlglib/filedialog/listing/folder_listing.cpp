#include "dlglib/filedialog/listing/folder_listing.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>
#include <set>

#include "dlglib/base/encoder.h"
#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/listing/long_names.h"
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

/// The table that rows are added to, and the gate before it.
struct FoundRows {
  EntryTable* table;
  RowGate* gate;
};

/// Changes the rows, unless whoever waits for them has taken them; false then.
template <class Change>
bool WhileOpen(const FoundRows& rows, Change change) {
  std::unique_lock<os::Lock> held;
  if (rows.gate != nullptr) held = std::unique_lock<os::Lock>(rows.gate->lock);
  if (rows.gate != nullptr && rows.gate->isClosed) return false;
  change();
  if (rows.gate != nullptr) rows.gate->count = rows.table->size();
  return true;
}

void AddRow(EntryKind kind, std::string_view path, std::string_view name, bool cutExtension, const FoundRows& rows) {
  WhileOpen(rows, [&] { rows.table->Add(kind, path, name, cutExtension); });
}

bool IsFolderPath(EucView path) { return path.bytes().ends_with('/'); }

/// Adds what a pass finds. Everything in a folder begins with the same text, so that is converted once.
class FoundPaths {
 public:
  FoundPaths(bool cutExtension, const FoundRows& rows) : cutExtension_(cutExtension), rows_(rows) {}

  void Add(EucView found) {
    const bool isFolder = IsFolderPath(found);
    const std::string_view whole = found.bytes().substr(0, found.size() - (isFolder ? 1 : 0));
    const std::size_t name = whole.rfind('/') + 1;
    EnterFolder(EucView(whole.substr(0, name)));
    path_.resize(nameAt_);
    encoder::AppendSjis(EucView(whole.substr(name)), &path_);
    if (path_.size() > kPathLimit) return;
    const EntryKind kind = isFolder ? EntryKind::Folder : EntryKind::File;
    AddRow(kind, path_, std::string_view(path_).substr(nameAt_), cutExtension_ && !isFolder, rows_);
  }

 private:
  void EnterFolder(EucView folder) {
    if (folder == EucView(folder_)) return;
    folder_.Assign(folder);
    path_ = encoder::ToRealPath(folder_).bytes();
    nameAt_ = path_.size();
  }

  bool cutExtension_;
  FoundRows rows_;
  EucText folder_;
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

/// A target that has gone is no folder.
EntryKind KindOfTarget(os::Files& files, const std::string& target) {
  const auto attributes = files.Attributes(target);
  const bool isFolder = attributes && (*attributes & os::kAttributeFolder) != 0;
  return isFolder ? EntryKind::FolderShortcut : EntryKind::FileShortcut;
}

/// Lists shortcuts, in place of their files.
class Shortcuts {
 public:
  Shortcuts(const os::ServiceTable& services, const FileKind& kind, const FoundRows& rows, DesktopRows* found)
      : services_(services), kind_(kind), rows_(rows), found_(found), names_(*services.files) {}

  void Add(const std::string& link) {
    const auto resolved = services_.shell->ResolveLink(link);
    if (!resolved) return;
    const std::string target = FolderPath(*resolved);
    if (target.empty() || target.size() > kPathLimit || IsSamePath(target, link)) return;
    const EntryKind kind = KindOfTarget(*services_.files, target);
    if (kind == EntryKind::FileShortcut) KeepLongName(target);
    AddRow(kind, target, NamePart(link), HasExactExtension(kind_), rows_);
  }

 private:
  void KeepLongName(const std::string& target) {
    std::string name = names_.NameOf(target);
    if (name != NamePart(target)) WhileOpen(rows_, [&] { found_->longNames[target] = std::move(name); });
  }

  const os::ServiceTable& services_;
  const FileKind& kind_;
  FoundRows rows_;
  DesktopRows* found_;
  LongNames names_;
};

bool ListShortcuts(const os::ServiceTable& services, const FolderSearch& search, const FoundRows& rows,
                   DesktopRows* found, const KeepGoing& keepGoing) {
  Pass pass(search.folder, "*.lnk", search.mode);
  FoundPaths folders(false, rows);
  Shortcuts shortcuts(services, search.kind, rows, found);
  return pass.ForEach(keepGoing, [&](EucView entry) {
    if (IsFolderPath(entry)) {
      folders.Add(entry);
    } else {
      shortcuts.Add(encoder::ToRealPath(EucText(entry)).bytes());
    }
  });
}

/// A shortcut to a file is for the kinds that its target is of.
void DropOtherKinds(std::size_t plain, const std::string& pattern, DesktopRows* found) {
  std::vector<FileEntry>& rows = found->table.rows();
  const auto isOther = [&pattern, found](const FileEntry& row) {
    if (row.kind != EntryKind::FileShortcut) return false;
    const auto longName = found->longNames.find(row.path);
    return !MatchesPattern(longName == found->longNames.end() ? NamePart(row.path) : longName->second, pattern);
  };
  rows.erase(std::remove_if(rows.begin() + static_cast<std::ptrdiff_t>(plain), rows.end(), isOther), rows.end());
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

bool ListFolder(os::Files& files, const FolderSearch& search, EntryTable* table, const KeepGoing& keepGoing,
                RowGate* gate) {
  const FoundRows rows{table, gate};
  if (!WhileOpen(rows, [table] { table->Clear(kFirstCapacity); })) return false;
  FoundPaths found(HasExactExtension(search.kind), rows);
  Pass pass(search.folder, search.kind.pattern, search.mode);
  LongNames names(files);
  return pass.ForEach(keepGoing, [&](EucView path) {
    if (IsFolderPath(path) || search.filter.Keeps(path, names)) found.Add(path);
  });
}

bool ListDesktop(const os::ServiceTable& services, const FolderSearch& search, DesktopRows* found,
                 const KeepGoing& keepGoing, RowGate* gate) {
  if (!ListFolder(*services.files, search, &found->table, keepGoing, gate)) return false;
  const auto desktop = services.shell->DesktopFolder();
  if (!desktop) return true;
  const bool listed = IsSamePath(search.folder, *desktop);
  const FoundRows rows{&found->table, gate};
  const bool goesOn = WhileOpen(rows, [&] {
    found->plain = found->table.size();
    found->holdsShortcutFiles = listed;
  });
  const FolderSearch shortcuts{*desktop, search.kind, listed ? FinderMode::Files : search.mode, search.filter};
  return goesOn && ListShortcuts(services, shortcuts, rows, found, keepGoing);
}

void FitShortcuts(const std::string& pattern, DesktopRows* found) {
  const std::size_t plain = std::min(found->plain, found->table.size());
  DropOtherKinds(plain, pattern, found);
  if (found->holdsShortcutFiles) DropShortcutFiles(plain, &found->table);
}

}  // namespace filedialog
