#include "dlglib/filedialog/names/typed_name.h"

#include <algorithm>
#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/basics/entry_kind.h"
#include "dlglib/filedialog/basics/start_up.h"
#include "dlglib/filedialog/place/network_level.h"
#include "platform/os/os.h"

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

Found LookUp(std::string_view path) {
  if (LacksDrive(path)) return Found::Nothing;
  const std::string examined = FolderPath(path);
  if (examined.size() > kPathLimit) return Found::Nothing;
  const auto attributes = os::Services().files->Attributes(examined);
  if (!attributes) return Found::Nothing;
  return (*attributes & os::kAttributeFolder) != 0 ? Found::Folder : Found::File;
}

void Beep() { os::Services().session->Beep(os::kBeepDefault); }

void BeepAndWarn(const std::string& text, NamePrompt* prompt) {
  Beep();
  prompt->Warn(text);
}

/// Passes everything on and knows whether there was anything.
class WatchedPrompt final : public NamePrompt {
 public:
  explicit WatchedPrompt(NamePrompt* prompt) : prompt_(prompt) {}
  void Warn(const std::string& text) override {
    told_ = true;
    prompt_->Warn(text);
  }
  bool AskOverwrite(const std::string& text) override {
    told_ = true;
    return prompt_->AskOverwrite(text);
  }
  [[nodiscard]] bool told() const { return told_; }

 private:
  NamePrompt* prompt_;
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

bool RefuseTooLong(std::string_view name, const NameRules& rules, NamePrompt* prompt) {
  const bool fileWanted = (rules.flags & kFlagFileMustExist) != 0;
  prompt->Warn(std::string(shift_jis::Truncate(name, kPathLimit)) + (fileWanted ? kFileNotFound : kPathNotFound));
  return false;
}

bool MayOverwrite(const std::string& name, const NameRules& rules, NamePrompt* prompt) {
  return (rules.flags & kFlagAskOverwrite) == 0 || prompt->AskOverwrite(name + kOverwrite);
}

bool FolderExists(const std::string& name, NamePrompt* prompt) {
  const std::string folder = FolderOf(name);
  if (LookUp(folder) == Found::Folder) return true;
  prompt->Warn(folder + kPathNotFound);
  return false;
}

/// Decides about a completed name that did not exist as it was typed.
bool AcceptCompleted(const std::string& name, const NameRules& rules, NamePrompt* prompt) {
  if ((rules.flags & kFlagFileMustExist) != 0) {
    const Found found = LookUp(name);
    if (found == Found::File) return true;
    if (found == Found::Nothing) {
      prompt->Warn(name + kFileNotFound);
      return false;
    }
  }
  return (rules.flags & kFlagPathMustExist) != 0 && FolderExists(name, prompt);
}

bool CheckMissingName(std::string* name, const NameRules& rules, NamePrompt* prompt) {
  std::string copy(WithoutSeparator(*name));
  if (shift_jis::FindLast(copy, '\\') == shift_jis::kNone) return false;
  const bool bare = ExtensionPart(NamePart(copy)).empty();
  if (bare && IsExactExtension(rules.extension)) copy += rules.extension;
  if (copy.size() > rules.longestPath) return RefuseTooLong(copy, rules, prompt);
  const bool accepted = AcceptCompleted(copy, rules, prompt);
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

NameAnswer RefuseFolderChange(NamePrompt* prompt) {
  BeepAndWarn(kFolderFixed, prompt);
  return {};
}

bool NamesPlace(std::string_view text) {
  return shift_jis::FindFirst(text, ':') != shift_jis::kNone || shift_jis::FindFirst(text, '\\') != shift_jis::kNone ||
         shift_jis::FindFirst(text, '/') != shift_jis::kNone;
}

NameAnswer OpenExistingFolder(std::string_view path, const NameRules& rules, NamePrompt* prompt) {
  std::string folder = FolderPath(path);
  if (rules.folderFixed && !IsSamePath(folder, rules.folder)) return RefuseFolderChange(prompt);
  const std::string nameField = folder;
  return OpenFolder(std::move(folder), nameField);
}

NameAnswer OpenFolderOfRefused(std::string_view name) {
  const std::size_t last = LastSeparator(name);
  if (last != shift_jis::kNone) return OpenFolder(FolderPath(name.substr(0, last)), name.substr(last + 1));
  if (IsOnMissingDrive(name)) Beep();
  return {};
}

NameAnswer ResolveName(const std::string& full, const NameRules& rules, NamePrompt* prompt) {
  const Found found = LookUp(full);
  if (found == Found::Folder || (found == Found::Nothing && IsServer(full))) {
    return OpenExistingFolder(full, rules, prompt);
  }
  std::string name(found == Found::File ? WithoutSeparator(full) : full);
  if (CheckName(&name, rules, prompt)) return Accept(std::move(name));
  const bool stays = found == Found::File || name.size() > rules.longestPath;
  return stays ? NameAnswer{} : OpenFolderOfRefused(name);
}

NameAnswer ResolvePattern(const std::string& full, const NameRules& rules, NamePrompt* prompt) {
  if (full.size() > kPathLimit) {
    RefuseTooLong(full, rules, prompt);
    return {};
  }
  const std::size_t last = LastSeparator(full);
  if (last == shift_jis::kNone) {
    Beep();
    return {};
  }
  const std::string_view pattern = std::string_view(full).substr(last + 1);
  NameAnswer answer = OpenFolder(FolderPath(full.substr(0, last)), pattern);
  answer.pattern = pattern;
  if (const std::string_view extension = ExtensionPart(pattern); !extension.empty()) answer.extension = extension;
  return answer;
}

NameAnswer ResolveText(std::string_view text, const NameRules& rules, NamePrompt* prompt) {
  if (rules.folderFixed && NamesPlace(text)) return RefuseFolderChange(prompt);
  const std::string full = CollapseSeparators(FullPathOfTypedName(text, rules.folder));
  return shift_jis::HasWildcard(text) ? ResolvePattern(full, rules, prompt) : ResolveName(full, rules, prompt);
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

}  // namespace

bool IsOnMissingDrive(std::string_view path) {
  if (path.size() < 2 || path[1] != ':') return false;
  const char letter = shift_jis::ToUpperBytes(path.substr(0, 1)).front();
  if (letter < 'A' || letter > 'Z') return true;
  return (os::Services().drives->Mask() >> (letter - 'A') & 1U) == 0;
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

bool CheckName(std::string* name, const NameRules& rules, NamePrompt* prompt) {
  if (name->size() > rules.longestPath) return RefuseTooLong(*name, rules, prompt);
  switch (LookUp(*name)) {
    case Found::Folder:
      return false;
    case Found::File:
      return MayOverwrite(*name, rules, prompt);
    case Found::Nothing:
      break;
  }
  return CheckMissingName(name, rules, prompt);
}

NameAnswer ResolveTypedName(std::string_view text, const NameRules& rules, NamePrompt* prompt) {
  WatchedPrompt watched(prompt);
  NameAnswer answer = ResolveText(WholeText(text), rules, &watched);
  answer.told = watched.told();
  return answer;
}

std::optional<std::string> ResolveTypedList(std::string_view text, const NameRules& rules, NamePrompt* prompt,
                                            std::size_t capacity) {
  text = WholeText(text);
  std::string list;
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] == ' ') {
      ++at;
      continue;
    }
    const TypedName typed = ReadTypedName(text, at);
    if (!typed.closed) {
      BeepAndWarn(kQuoteMissing, prompt);
      return std::nullopt;
    }
    std::string name = FullPathOfTypedName(typed.name, rules.folder);
    WatchedPrompt watched(prompt);
    if (!CheckName(&name, rules, &watched)) {
      if (!watched.told() && IsOnMissingDrive(name)) Beep();
      return std::nullopt;
    }
    AppendFitting(name, capacity, &list);
    at = typed.next;
  }
  return list;
}

}  // namespace filedialog
