// What OK does with arbitrary texts of the name box, in a small file system.
#include "dlglib/filedialog/names/typed_name.h"

#include <array>
#include <vector>

#include "dlglib/base/path_text.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/basics/start_up.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "fuzz/fuzz.h"
#include "platform/os/os_scripted.h"

namespace {

using namespace filedialog;

constexpr std::size_t kNone = std::string::npos;

class CountingPrompt final : public NamePrompt {
 public:
  explicit CountingPrompt(bool overwrites) : overwrites_(overwrites) {}

  Reply<Done> Warn(const std::string& text) override {
    FUZZ_CHECK(!text.empty());
    ++warnings;
    return Done{};
  }
  Reply<bool> AskOverwrite(const std::string& text) override {
    FUZZ_CHECK(!text.empty());
    ++questions;
    return overwrites_;
  }

  int warnings = 0;
  int questions = 0;

 private:
  bool overwrites_;
};

void SetUpWorld() {
  os::scripted::Machine& world = os::scripted::World();
  world.Reset();
  world.AddDrive('C');
  for (const char* file : {"C:\\data\\a.mdl", "C:\\data\\sub\\b.mdl", "C:\\data\\\x95\x5C\\\x83\x5C.mdl", "C:\\r.mdl",
                           "C:\\data\\c d.mdl", "\\\\srv\\share\\n.mdl"}) {
    world.files.AddFile(file);
  }
}

NameRules DrawRules(fuzz::Input* input) {
  constexpr std::array<std::uint32_t, 4> kFlags = {kFlagFileMustExist, kFlagPathMustExist, kFlagAskOverwrite,
                                                   kFlagMultiSelect};
  constexpr std::array<const char*, 6> kFolders = {"C:\\data",           "C:\\", "C:\\data\\sub\\", "\\\\srv\\share",
                                                   "C:\\data\\\x95\x5C", ""};
  constexpr std::array<const char*, 4> kExtensions = {".MDL", "", ".*", "."};
  NameRules rules;
  const unsigned bits = input->Byte();
  for (std::size_t i = 0; i < kFlags.size(); ++i) {
    if ((bits >> i & 1) != 0) rules.flags |= kFlags[i];
  }
  rules.folderFixed = (bits & 0x10) != 0;
  if ((bits & 0x20) != 0) rules.longestPath = std::string_view("C:\\data\\sub\\b.mdl").size();
  rules.folder = kFolders[input->Size(kFolders.size() - 1)];
  rules.extension = kExtensions[input->Size(kExtensions.size() - 1)];
  return rules;
}

bool IsText(std::string_view text) {
  return text.find('\0') == kNone && shift_jis::Truncate(text, text.size()) == text;
}

bool IsFile(const std::string& path) {
  const os::scripted::Node* node = os::scripted::World().files.Find(path);
  return node != nullptr && !node->isFolder;
}

void CheckAccepted(const NameAnswer& answer, const NameRules& rules, const CountingPrompt& prompt) {
  FUZZ_CHECK(!answer.path.empty() && answer.path.size() <= rules.longestPath);
  FUZZ_CHECK(prompt.warnings == 0 && prompt.questions <= 1);
  if ((rules.flags & kFlagFileMustExist) != 0) FUZZ_CHECK(IsFile(answer.path));
  if ((rules.flags & (kFlagFileMustExist | kFlagPathMustExist)) == 0) FUZZ_CHECK(IsFile(answer.path));
  if (rules.folderFixed) FUZZ_CHECK(answer.path.starts_with(WithoutSeparator(rules.folder)));
}

void CheckOpened(std::string_view text, const NameAnswer& answer, const NameRules& rules) {
  const bool isRoot = answer.folder.size() == 3 && answer.folder[1] == ':';
  const bool hasWildcard = shift_jis::HasWildcard(text);
  // A pattern without a folder stands for both.
  const bool standsForBoth = hasWildcard && answer.folder == answer.nameField;
  FUZZ_CHECK(isRoot || standsForBoth || WithoutSeparator(answer.folder) == answer.folder);
  FUZZ_CHECK(answer.change.pattern.has_value() ? hasWildcard : !hasWildcard || standsForBoth);
  if (answer.change.pattern) FUZZ_CHECK(*answer.change.pattern == answer.nameField);
  if (answer.change.extension) {
    FUZZ_CHECK(answer.change.pattern && answer.change.extension->starts_with('.') &&
               answer.change.pattern->ends_with(*answer.change.extension));
  }
  if (rules.folderFixed && !standsForBoth) FUZZ_CHECK(IsSamePath(answer.folder, rules.folder));
}

void CheckResolution(const std::string& text, const NameRules& rules, bool overwrites) {
  CountingPrompt prompt(overwrites);
  const NameAnswer answer = ResolveTypedName(text, rules, {os::Services(), prompt}).value();
  const std::string shown(shift_jis::Truncate(text.c_str(), text.size()));
  FUZZ_CHECK(prompt.warnings <= 1);
  FUZZ_CHECK(IsText(answer.path) && IsText(answer.folder) && IsText(answer.nameField));
  switch (answer.outcome) {
    case NameAnswer::Outcome::Accept:
      CheckAccepted(answer, rules, prompt);
      FUZZ_CHECK(prompt.questions == 0 || overwrites);
      break;
    case NameAnswer::Outcome::OpenFolder:
      CheckOpened(shown, answer, rules);
      break;
    case NameAnswer::Outcome::Refuse:
      FUZZ_CHECK(answer.path.empty() && answer.folder.empty());
      break;
  }
}

/// The names of a list, read a character at a time; none when a quote is not closed.
struct ListedNames {
  std::vector<std::string> names;
  bool closed = true;
};

ListedNames NamesOf(const std::string& text) {
  ListedNames listed;
  std::string name;
  bool inQuotes = false;
  bool inName = false;
  for (std::size_t at = 0; at < text.size(); at += shift_jis::CharLength(text, at)) {
    const std::string character = text.substr(at, shift_jis::CharLength(text, at));
    const bool ends = inName && character == (inQuotes ? "\"" : " ");
    if (ends) {
      listed.names.push_back(name);
      inName = inQuotes = false;
      name.clear();
    } else if (inName) {
      name += character;
    } else if (character == "\"") {
      inName = inQuotes = true;
    } else if (character != " ") {
      inName = true;
      name = character;
    }
  }
  if (inName && !inQuotes) listed.names.push_back(name);
  listed.closed = !inQuotes;
  return listed;
}

void CheckList(const std::string& text, const NameRules& rules, bool overwrites, std::size_t capacity) {
  CountingPrompt prompt(overwrites);
  const std::optional<std::string> list = ResolveTypedList(text, rules, {os::Services(), prompt}, capacity).value();
  const std::string shown(shift_jis::Truncate(text.c_str(), text.size()));
  const ListedNames listed = NamesOf(shown);
  FUZZ_CHECK(prompt.warnings <= 1);
  FUZZ_CHECK(static_cast<std::size_t>(prompt.questions) <= listed.names.size());
  if (!listed.closed) FUZZ_CHECK(!list);
  if (!list) return;
  FUZZ_CHECK(prompt.warnings == 0);
  FUZZ_CHECK(list->empty() || list->size() < capacity);
  FUZZ_CHECK(IsText(*list));
  FUZZ_CHECK(!listed.names.empty() || list->empty());
  // What one name gives alone stands in the list.
  std::string expected;
  for (const std::string& name : listed.names) {
    std::string full = FullPathOfTypedName(name, rules.folder);
    CountingPrompt again(overwrites);
    FUZZ_CHECK(CheckName(&full, rules, {os::Services(), again}).value() && full.size() <= rules.longestPath);
    if (expected.size() + full.size() + 1 < capacity) expected += (expected.empty() ? "" : " ") + full;
  }
  FUZZ_CHECK(*list == expected);
}

void CheckSeparators(const std::string& text) {
  const std::string collapsed = CollapseSeparators(text);
  FUZZ_CHECK(CollapseSeparators(collapsed) == collapsed && collapsed.size() <= text.size());
  std::size_t run = 0;
  for (std::size_t at = 0; at < collapsed.size(); at += shift_jis::CharLength(collapsed, at)) {
    run = at >= 2 && collapsed[at] == '\\' ? run + 1 : 0;
    FUZZ_CHECK(run <= 1);
  }
  const auto without = [](std::string path) {
    std::string kept;
    for (std::size_t at = 0; at < path.size(); at += shift_jis::CharLength(path, at)) {
      if (path[at] != '\\') kept += path.substr(at, shift_jis::CharLength(path, at));
    }
    return kept;
  };
  FUZZ_CHECK(without(collapsed) == without(text));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const NameRules rules = DrawRules(&input);
  const bool overwrites = input.Flag();
  const std::size_t capacity = input.Flag() ? input.Size(60) : kTypedListCapacity;
  const std::string text = input.Rest();

  SetUpWorld();
  CheckResolution(text, rules, overwrites);
  CheckList(text, rules, overwrites, capacity);
  CheckSeparators(text);
  os::scripted::World().Reset();
  return 0;
}
