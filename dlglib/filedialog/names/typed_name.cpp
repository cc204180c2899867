#include "dlglib/filedialog/names/typed_name.h"

#include <algorithm>
#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/basics/start_up.h"
#include "dlglib/filedialog/place/network_level.h"

namespace filedialog {

namespace {

constexpr char kFolderFixed[] = "ディレクトリを変更することはできません。";
constexpr char kFileNotFound[] = "\nファイルが見つかりません。\n指定したファイル名が正しいかどうか確認してください。";
constexpr char kPathNotFound[] = "\nパスが見つかりません。\n指定したパス名が正しいかどうか確認してください。";
constexpr char kOverwrite[] = "\nファイルは既に存在します。\n上書きしますか。";
constexpr char kQuoteMissing[] = "ファイル名の記述が無効です。（\" が見つかりません）";

enum class Found { Nothing, Folder, File };

/// The text up to its terminator, without half a character at its end.
std::string_view WholeText(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  return shift_jis::Truncate(text, text.size());
}

/// Computer and network are no folders: a name typed there stands behind nothing but a "\". It must not be looked for
/// on whatever drive the process is on.
bool LacksDrive(std::string_view path) { return path.starts_with('\\') && !path.starts_with("\\\\"); }

Found LookUp(os::Files& files, std::string_view path) {
  if (LacksDrive(path)) return Found::Nothing;
  const std::string examined = FolderPath(path);
  if (examined.size() > kPathLimit) return Found::Nothing;
  const auto attributes = files.Attributes(examined);
  if (!attributes) return Found::Nothing;
  return (*attributes & os::kAttributeFolder) != 0 ? Found::Folder : Found::File;
}

void Beep(const NameAsks& asks) { asks.services.session->Beep(os::kBeepDefault); }

/// Shows why a name is refused.
Reply<bool> Refuse(const std::string& text, const NameAsks& asks) {
  return asks.prompt.Warn(text) ? Reply<bool>(false) : std::nullopt;
}

/// Passes everything on and knows whether there was anything.
class WatchedPrompt final : public NamePrompt {
 public:
  explicit WatchedPrompt(NamePrompt& prompt) : prompt_(prompt) {}
  Reply<Done> Warn(const std::string& text) override {
    told_ = true;
    return prompt_.Warn(text);
  }
  Reply<bool> AskOverwrite(const std::string& text) override {
    told_ = true;
    return prompt_.AskOverwrite(text);
  }
  [[nodiscard]] bool told() const { return told_; }

 private:
  NamePrompt& prompt_;
  bool told_ = false;
};

/// Position of the "\" that parts folder and name; the ones that begin a path do not count.
std::size_t LastSeparator(std::string_view path) {
  const std::size_t from = std::min(path.find_first_not_of('\\'), path.size());
  return shift_jis::FindLast(path, '\\', from);
}

/// The folder part of a name for the path check: a drive's root and "\" alone keep their separator.
std::string FolderOf(std::string_view name) {
  const std::size_t last = shift_jis::FindLast(name, '\\');
  return last == 0 ? "\\" : FolderPath(name.substr(0, last));
}

Reply<bool> RefuseTooLong(std::string_view name, const NameRules& rules, const NameAsks& asks) {
  const bool fileWanted = (rules.flags & kFlagFileMustExist) != 0;
  return Refuse(std::string(shift_jis::Truncate(name, kPathLimit)) + (fileWanted ? kFileNotFound : kPathNotFound),
                asks);
}

Reply<bool> MayOverwrite(const std::string& name, const NameRules& rules, const NameAsks& asks) {
  if ((rules.flags & kFlagAskOverwrite) == 0) return true;
  return asks.prompt.AskOverwrite(name + kOverwrite);
}

Reply<bool> FolderExists(const std::string& name, const NameAsks& asks) {
  const std::string folder = FolderOf(name);
  if (LookUp(*asks.services.files, folder) == Found::Folder) return true;
  return Refuse(folder + kPathNotFound, asks);
}

/// Decides about a completed name that did not exist as it was typed.
Reply<bool> AcceptCompleted(const std::string& name, const NameRules& rules, const NameAsks& asks) {
  if ((rules.flags & kFlagFileMustExist) != 0) {
    const Found found = LookUp(*asks.services.files, name);
    if (found == Found::File) return true;
    if (found == Found::Nothing) return Refuse(name + kFileNotFound, asks);
  }
  if ((rules.flags & kFlagPathMustExist) == 0) return false;
  return FolderExists(name, asks);
}

Reply<bool> CheckMissingName(std::string* name, const NameRules& rules, const NameAsks& asks) {
  std::string copy(WithoutSeparator(*name));
  if (shift_jis::FindLast(copy, '\\') == shift_jis::kNone) return false;
  const bool bare = ExtensionPart(NamePart(copy)).empty();
  if (bare && IsExactExtension(rules.extension)) copy += rules.extension;
  if (copy.size() > rules.longestPath) return RefuseTooLong(copy, rules, asks);
  const Reply<bool> accepted = AcceptCompleted(copy, rules, asks);
  *name = std::move(copy);
  return accepted;
}

NameAnswer Accept(std::string path) {
  NameAnswer answer;
  answer.outcome = NameAnswer::Outcome::Accept;
  answer.path = std::move(path);
  return answer;
}

NameAnswer OpenFolder(std::string folder, std::string_view nameField) {
  NameAnswer answer;
  answer.outcome = NameAnswer::Outcome::OpenFolder;
  answer.folder = std::move(folder);
  answer.nameField = nameField;
  return answer;
}

Reply<NameAnswer> RefuseFolderChange(const NameAsks& asks) {
  Beep(asks);
  return asks.prompt.Warn(kFolderFixed) ? Reply<NameAnswer>(NameAnswer()) : std::nullopt;
}

bool NamesPlace(std::string_view text) {
  return shift_jis::FindFirst(text, ':') != shift_jis::kNone || shift_jis::FindFirst(text, '\\') != shift_jis::kNone ||
         shift_jis::FindFirst(text, '/') != shift_jis::kNone;
}

Reply<NameAnswer> OpenExistingFolder(std::string_view path, const NameRules& rules, const NameAsks& asks) {
  std::string folder = FolderPath(path);
  if (rules.folderFixed && !IsSamePath(folder, rules.folder)) return RefuseFolderChange(asks);
  const std::string nameField = folder;
  return OpenFolder(std::move(folder), nameField);
}

NameAnswer OpenFolderOfRefused(std::string_view name, const NameAsks& asks) {
  const std::size_t last = LastSeparator(name);
  if (last != shift_jis::kNone) return OpenFolder(FolderPath(name.substr(0, last)), name.substr(last + 1));
  if (IsOnMissingDrive(*asks.services.drives, name)) Beep(asks);
  return {};
}

Reply<NameAnswer> ResolveName(const std::string& full, const NameRules& rules, const NameAsks& asks) {
  const Found found = LookUp(*asks.services.files, full);
  const bool isPlace = found == Found::Folder || (found == Found::Nothing && IsServer(*asks.services.network, full));
  if (isPlace) return OpenExistingFolder(full, rules, asks);
  std::string name(found == Found::File ? WithoutSeparator(full) : full);
  const Reply<bool> accepted = CheckName(&name, rules, asks);
  if (!accepted) return std::nullopt;
  if (*accepted) return Accept(std::move(name));
  const bool stays = found == Found::File || name.size() > rules.longestPath;
  return stays ? NameAnswer{} : OpenFolderOfRefused(name, asks);
}

Reply<NameAnswer> ResolvePattern(const std::string& full, const NameRules& rules, const NameAsks& asks) {
  if (full.size() > kPathLimit) {
    return RefuseTooLong(full, rules, asks) ? Reply<NameAnswer>(NameAnswer()) : std::nullopt;
  }
  const std::size_t last = LastSeparator(full);
  if (last == shift_jis::kNone) {
    Beep(asks);
    return NameAnswer();
  }
  const std::string_view pattern = std::string_view(full).substr(last + 1);
  NameAnswer answer = OpenFolder(FolderPath(full.substr(0, last)), pattern);
  answer.change.pattern = pattern;
  if (const std::string_view extension = ExtensionPart(pattern); !extension.empty())
    answer.change.extension = extension;
  return answer;
}

Reply<NameAnswer> ResolveText(std::string_view text, const NameRules& rules, const NameAsks& asks) {
  if (rules.folderFixed && NamesPlace(text)) return RefuseFolderChange(asks);
  const std::string full = CollapseSeparators(FullPathOfTypedName(text, rules.folder));
  return shift_jis::HasWildcard(text) ? ResolvePattern(full, rules, asks) : ResolveName(full, rules, asks);
}

struct TypedName {
  std::string_view name;
  std::size_t next = 0;  ///< where reading goes on
  bool closed = true;    ///< false when the closing quote is missing
};

TypedName ReadTypedName(std::string_view text, std::size_t at) {
  const bool quoted = text[at] == '"';
  const std::size_t start = quoted ? at + 1 : at;
  const std::size_t end = shift_jis::FindFirst(text, quoted ? '"' : ' ', start);
  if (end == shift_jis::kNone) return {text.substr(start), text.size(), !quoted};
  return {text.substr(start, end - start), end + 1, true};
}

void AppendFitting(const std::string& name, std::size_t capacity, std::string* list) {
  if (list->size() + name.size() + 1 >= capacity) return;
  if (!list->empty()) *list += ' ';
  *list += name;
}

/// The check of one name of a list. A name on a drive that does not exist beeps where the check says nothing of it.
Reply<bool> CheckListed(std::string* name, const NameRules& rules, const NameAsks& asks) {
  WatchedPrompt watched(asks.prompt);
  const Reply<bool> accepted = CheckName(name, rules, {asks.services, watched});
  const bool quiet = accepted && !*accepted && !watched.told();
  if (quiet && IsOnMissingDrive(*asks.services.drives, *name)) Beep(asks);
  return accepted;
}

}  // namespace

bool IsOnMissingDrive(os::Drives& drives, std::string_view path) {
  if (path.size() < 2 || path[1] != ':') return false;
  const char letter = shift_jis::ToUpperBytes(path.substr(0, 1)).front();
  if (letter < 'A' || letter > 'Z') return true;
  return (drives.Mask() >> (letter - 'A') & 1U) == 0;
}

std::string FullPathOfTypedName(std::string_view text, std::string_view folder) {
  text = WholeText(text);
  if (text.starts_with("\\\\") || (text.size() >= 2 && text[1] == ':')) return std::string(text);
  std::string full(WithoutSeparator(folder));
  if (!text.starts_with('\\')) full += '\\';
  return full.append(text);
}

std::string CollapseSeparators(std::string_view path) {
  std::string collapsed;
  bool inRun = false;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t length = shift_jis::CharLength(path, at);
    const bool separator = at >= 2 && path[at] == '\\';
    if (!separator || !inRun) collapsed.append(path.substr(at, length));
    inRun = separator;
    at += length;
  }
  return collapsed;
}

Reply<bool> CheckName(std::string* name, const NameRules& rules, const NameAsks& asks) {
  if (name->size() > rules.longestPath) return RefuseTooLong(*name, rules, asks);
  switch (LookUp(*asks.services.files, *name)) {
    case Found::Folder:
      return false;
    case Found::File:
      return MayOverwrite(*name, rules, asks);
    case Found::Nothing:
      break;
  }
  return CheckMissingName(name, rules, asks);
}

Reply<NameAnswer> ResolveTypedName(std::string_view text, const NameRules& rules, const NameAsks& asks) {
  WatchedPrompt watched(asks.prompt);
  Reply<NameAnswer> answer = ResolveText(WholeText(text), rules, {asks.services, watched});
  if (answer) answer->told = watched.told();
  return answer;
}

Reply<std::optional<std::string>> ResolveTypedList(std::string_view text, const NameRules& rules, const NameAsks& asks,
                                                   std::size_t capacity) {
  using List = std::optional<std::string>;
  text = WholeText(text);
  std::string list;
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] == ' ') {
      ++at;
      continue;
    }
    const TypedName typed = ReadTypedName(text, at);
    if (!typed.closed) {
      Beep(asks);
      return asks.prompt.Warn(kQuoteMissing) ? Reply<List>(List()) : std::nullopt;
    }
    std::string name = FullPathOfTypedName(typed.name, rules.folder);
    const Reply<bool> accepted = CheckListed(&name, rules, asks);
    if (!accepted) return std::nullopt;
    if (!*accepted) return List();
    AppendFitting(name, capacity, &list);
    at = typed.next;
  }
  return List(std::move(list));
}

}  // namespace filedialog
