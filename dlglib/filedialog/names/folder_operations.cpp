#include "dlglib/filedialog/names/folder_operations.h"

#include <algorithm>

#include "dlglib/base/characters.h"
#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/names/entry_name.h"

namespace filedialog {

namespace {

using Outcome = OperationResult::Outcome;

constexpr std::uint32_t kErrorAlreadyExists = 183;

// errno as the platform's run-time library numbers it.
constexpr int kErrnoNotFound = 2;
constexpr int kErrnoDenied = 13;
constexpr int kErrnoExists = 17;
constexpr int kErrnoInvalid = 22;

constexpr const char* kCreateCaption = "新しいフォルダ";
constexpr const char* kRenameCaption = "名前変更";
constexpr const char* kDeleteTitle = "削除";

std::string PathIn(std::string_view folder, std::string_view name) {
  return std::string(WithoutSeparator(folder)).append("\\").append(name);
}

OperationResult Refuse(os::Session& session, std::string message, const char* caption) {
  session.Beep(os::kBeepExclamation);
  return {Outcome::Refused, std::move(message), caption};
}

/// errno for a new name that the platform is not to be asked about; 0 for any other name. Devices are refused by the
/// platform itself.
int ErrnoOfFlaw(std::string_view name, const std::string& path) {
  const NameFlaw flaw = FlawOfName(name);
  if (flaw == NameFlaw::InvalidCharacter) return kErrnoInvalid;
  return flaw == NameFlaw::Ending || path.size() > kPathLimit ? kErrnoExists : 0;
}

/// errno of giving an entry a new name, 0 on success.
int Rename(os::Files& files, std::string_view folder, std::string_view oldName, std::string_view newName) {
  const std::string to = PathIn(folder, newName);
  const int refused = ErrnoOfFlaw(newName, to);
  return refused != 0 ? refused : files.Rename(PathIn(folder, oldName), to);
}

/// How a renaming ended that `error` refused. A change of letter case may take the platform two steps, and it may not
/// have been able to take the first one back; of letters beyond ASCII only the entry's absence tells.
Outcome OutcomeOfRefusal(os::Files& files, int error, std::string_view folder, std::string_view oldName,
                         std::string_view newName) {
  if (IsSamePath(oldName, newName)) return Outcome::Stranded;
  const bool isGone = error != kErrnoNotFound && !files.Exists(PathIn(folder, oldName));
  return isGone ? Outcome::Stranded : Outcome::Refused;
}

/// Callers rely on the texts as they are: a word is missing in that of a denied access.
std::string RenameMessage(int error) {
  return error == kErrnoDenied ? "名前はに存在します\n\n" : "名前に誤りがあります\n\n";
}

std::string LabelMessage(int error, const std::string& from, const std::string& to) {
  if (error == kErrnoInvalid) return "名前に無効な文字が含まれています";
  if (error == kErrnoNotFound) return "変更前のパスが存在しません\n\n" + from;
  return "指定したファイルまたはディレクトリが既に存在するか、パスが無効です\n\n" + to;
}

}  // namespace

OperationResult CreateFolderIn(const os::ServiceTable& services, std::string_view folder, std::string_view name) {
  if (name.empty()) return Refuse(*services.session, "フォルダ名が入力されていません", kCreateCaption);
  const std::string path = PathIn(folder, name);
  const std::string wrong = "フォルダ名に誤りがあります\n\n" + path;
  if (FlawOfName(name) != NameFlaw::None || path.size() > kPathLimit)
    return Refuse(*services.session, wrong, kCreateCaption);
  const std::uint32_t error = services.files->CreateFolder(path);
  if (error == 0) return {};
  return Refuse(*services.session, error == kErrorAlreadyExists ? "フォルダは既に存在します\n\n" + path : wrong,
                kCreateCaption);
}

OperationResult RenameEntry(const os::ServiceTable& services, std::string_view folder, std::string_view oldName,
                            std::string_view newName) {
  if (newName == oldName) return {Outcome::Unchanged, {}, {}};
  if (newName.empty()) return Refuse(*services.session, "変更後の名前が入力されていません", kRenameCaption);
  const bool tooLong = HasMoreCharacters(newName, kNewNameLimit);
  const int error = tooLong ? kErrnoExists : Rename(*services.files, folder, oldName, newName);
  if (error == 0) return {};
  OperationResult refused = Refuse(*services.session, RenameMessage(error) + PathIn(folder, newName), kRenameCaption);
  refused.outcome = OutcomeOfRefusal(*services.files, error, folder, oldName, newName);
  return refused;
}

OperationResult CommitLabel(const os::ServiceTable& services, std::string_view folder, const FileEntry& row,
                            std::optional<std::string_view> text) {
  const std::string_view oldName = NameInFolder(row);
  if (!text || text->empty() || *text == oldName) return {Outcome::Unchanged, {}, {}};
  const int error = Rename(*services.files, folder, oldName, *text);
  if (error == 0) return {};
  OperationResult refused =
      Refuse(*services.session, LabelMessage(error, PathIn(folder, oldName), PathIn(folder, *text)), "");
  refused.outcome = OutcomeOfRefusal(*services.files, error, folder, oldName, *text);
  return refused;
}

std::string_view NameInFolder(const FileEntry& row) {
  const bool isShortcut = row.kind == EntryKind::FolderShortcut || row.kind == EntryKind::FileShortcut;
  return isShortcut ? row.name : NamePart(row.path);
}

std::string DeleteList(std::string_view folder, std::span<const std::string_view> names) {
  std::string list;
  for (const std::string_view name : names) {
    const std::string path = PathIn(folder, name);
    constexpr std::size_t kTerminators = 2;  // the path's own and the list's
    if (list.size() + path.size() + kTerminators > kDeleteListBytes) break;
    list.append(path).push_back('\0');
  }
  list.push_back('\0');
  return list;
}

bool DeleteEntries(const os::ServiceTable& services, os::WindowHandle owner, std::string_view folder,
                   std::span<const std::string_view> names) {
  if (names.empty()) return false;
  if (services.shell->DeleteToRecycleBin(owner, DeleteList(folder, names), kDeleteTitle).result == 0) return true;
  const auto isGone = [&](std::string_view name) { return !services.files->Exists(PathIn(folder, name)); };
  return std::ranges::any_of(names, isGone);
}

std::optional<std::size_t> FindRowNamed(std::span<const FileEntry> rows, std::string_view name) {
  const std::string_view shown = shift_jis::Truncate(name, kNameLimit);
  const auto found = std::ranges::find(rows, shown, &FileEntry::name);
  if (found == rows.end()) return std::nullopt;
  return static_cast<std::size_t>(found - rows.begin());
}

}  // namespace filedialog
