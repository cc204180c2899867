#include "platform/os/os_scripted.h"

#include <algorithm>
#include <atomic>
#include <ctime>
#include <mutex>
#include <utility>

#include "platform/os/sjis_bytes.h"
#include "platform/os/wait_clock.h"

namespace os::scripted {
namespace {

constexpr std::uint32_t kErrorPathNotFound = 3;
constexpr std::uint32_t kErrorNoDevice = 67;
constexpr std::uint32_t kErrorInvalidName = 123;
constexpr std::uint32_t kErrorExists = 183;
constexpr int kErrnoNotFound = 2;
constexpr int kErrnoDenied = 13;
constexpr int kErrnoExists = 17;
constexpr int kErrnoInvalid = 22;
constexpr std::int64_t kZoneSeconds = 9 * 60 * 60;
constexpr std::int64_t kLastTime = 32535215999;  // end of the year 3000, where _localtime64 gives up

/// Calls `visit(byte)` for each byte of a single-byte character, and copies the rest.
template <class Visit>
void WalkSingles(std::string* text, Visit visit) {
  for (std::size_t at = 0; at < text->size(); at += SjisLength(*text, at)) {
    if (!IsSjisLead((*text)[at])) visit(&(*text)[at]);
  }
}

std::vector<std::string> Split(const std::string& path) {
  std::string marked = path;
  WalkSingles(&marked, [](char* byte) {
    if (*byte == '\\' || *byte == '/') *byte = '\0';
  });
  std::vector<std::string> parts;
  for (std::size_t at = 0; at < marked.size();) {
    const std::size_t end = std::min(marked.find('\0', at), marked.size());
    const std::string part = marked.substr(at, end - at);
    at = end + 1;
    if (part.empty() || part == ".") continue;
    if (part != "..") {
      parts.push_back(part);
    } else if (parts.size() > 1) {
      parts.pop_back();
    }
  }
  const bool isUnc = marked.size() > 2 && marked[0] == '\0' && marked[1] == '\0';
  if (isUnc && !parts.empty()) parts.front().insert(0, "\\\\");
  return parts;
}

bool EndsInSeparator(const std::string& path) {
  bool ends = false;
  for (std::size_t at = 0; at < path.size(); at += SjisLength(path, at)) ends = path[at] == '\\' || path[at] == '/';
  return ends;
}

Node* Child(const Node& folder, const std::string& name) {
  const auto found = folder.children.find(Fold(name));
  return found == folder.children.end() || !found->second->exact ? nullptr : found->second.get();
}

Node& AddChild(Node& folder, const std::string& name, bool isFolder) {
  const std::string folded = Fold(name);
  auto found = folder.children.find(folded);
  if (found == folder.children.end()) {
    auto node = std::make_unique<Node>();
    node->name = name;
    found = folder.children.emplace(folded, std::move(node)).first;
  }
  found->second->isFolder = isFolder;
  return *found->second;
}

bool IsDevice(const std::string& name) {
  const std::string stem = Fold(name.substr(0, name.find('.')));
  const bool isNumbered = stem.size() == 4 && stem[3] >= '1' && stem[3] <= '9';
  const std::string_view kind = std::string_view(stem).substr(0, isNumbered ? 3 : stem.size());
  if (isNumbered) return kind == "com" || kind == "lpt";
  return kind == "con" || kind == "prn" || kind == "aux" || kind == "nul";
}

bool IsNameValid(std::string name) {
  bool valid = !name.empty() && !IsDevice(name);
  WalkSingles(&name, [&valid](const char* byte) {
    const bool isControl = static_cast<unsigned char>(*byte) < 0x20;
    valid = valid && !isControl && std::string_view("<>:\"|?*").find(*byte) == std::string_view::npos;
  });
  return valid;
}

}  // namespace

std::string Fold(std::string_view name) {
  std::string folded(name);
  WalkSingles(&folded, [](char* byte) {
    if (*byte >= 'A' && *byte <= 'Z') *byte = static_cast<char>(*byte - 'A' + 'a');
  });
  return folded;
}

// ---- calls

namespace {

/// Calls are noted on whatever thread makes them. It is no member, so that a machine can be made anew.
std::mutex& NoteLock() {
  static std::mutex lock;
  return lock;
}

}  // namespace

void Calls::FailNext(const std::string& call, std::uint32_t error, int times) {
  const std::lock_guard<std::mutex> held(NoteLock());
  named_[call] = {error, times};
}

void Calls::FailNumber(std::size_t n, std::uint32_t error) {
  const std::lock_guard<std::mutex> held(NoteLock());
  countdown_ = n;
  countdownError_ = error;
}

std::string Calls::Failed() const {
  const std::lock_guard<std::mutex> held(NoteLock());
  return failed_.value_or("");
}

bool Calls::FaultPending() const {
  const std::lock_guard<std::mutex> held(NoteLock());
  return countdown_ > 0 || !named_.empty();
}

std::size_t Calls::Count(const std::string& call) const {
  const std::lock_guard<std::mutex> held(NoteLock());
  const auto found = counts_.find(call);
  return found == counts_.end() ? 0 : found->second;
}

std::size_t Calls::Total() const {
  const std::lock_guard<std::mutex> held(NoteLock());
  return total_;
}

std::vector<std::string> Calls::Log() const {
  const std::lock_guard<std::mutex> held(NoteLock());
  return log_;
}

void Calls::Watch(std::function<void(const std::string& call)> watch) {
  const std::lock_guard<std::mutex> held(NoteLock());
  watch_ = std::make_shared<const std::function<void(const std::string&)>>(std::move(watch));
}

void Calls::ClearLog() {
  const std::lock_guard<std::mutex> held(NoteLock());
  counts_.clear();
  log_.clear();
  failed_.reset();
  total_ = 0;
}

void Calls::Tell(const std::string& call) const {
  std::unique_lock<std::mutex> held(NoteLock());
  const auto watch = watch_;
  held.unlock();
  if (watch && *watch) (*watch)(call);
}

std::optional<std::uint32_t> Calls::Enter(const std::string& call, std::string_view argument) {
  Tell(call);
  const std::lock_guard<std::mutex> held(NoteLock());
  ++counts_[call];
  ++total_;
  if (call != "files.Next") log_.push_back(argument.empty() ? call : call + ' ' + std::string(argument));
  if (countdown_ > 0 && --countdown_ == 0) {
    failed_ = std::string(call).append(" ").append(argument);
    return countdownError_;
  }
  const auto fault = named_.find(call);
  if (fault == named_.end()) return std::nullopt;
  const std::uint32_t error = fault->second.error;
  if (--fault->second.times <= 0) named_.erase(fault);
  return error;
}

// ---- file system

namespace {

/// Rows are described on workers while the test, or a call on another worker, changes what they read of.
std::recursive_mutex& TreeLock() {
  static std::recursive_mutex lock;
  return lock;
}

using TreeHeld = std::lock_guard<std::recursive_mutex>;

}  // namespace

Node* FileSystem::ParentOf(const std::string& path, std::string* name) {
  const TreeHeld held(TreeLock());
  const std::vector<std::string> parts = Split(path);
  if (parts.empty()) return nullptr;
  Node* folder = &root_;
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
    folder = Child(*folder, parts[i]);
    if (folder == nullptr || !folder->isFolder) return nullptr;
  }
  *name = parts.back();
  return folder;
}

Node* FileSystem::Find(const std::string& path) {
  const TreeHeld held(TreeLock());
  std::string name;
  const Node* folder = ParentOf(path, &name);
  Node* node = folder == nullptr ? nullptr : Child(*folder, name);
  return node != nullptr && !node->isFolder && EndsInSeparator(path) ? nullptr : node;
}

Node& FileSystem::AddFolder(const std::string& path) {
  const TreeHeld held(TreeLock());
  Node* folder = &root_;
  for (const std::string& part : Split(path)) folder = &AddChild(*folder, part, true);
  return *folder;
}

Node& FileSystem::AddFile(const std::string& path, const std::string& bytes, std::int64_t modified,
                          std::uint32_t attributes) {
  const TreeHeld held(TreeLock());
  std::vector<std::string> parts = Split(path);
  Node* folder = &root_;
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) folder = &AddChild(*folder, parts[i], true);
  Node& file = AddChild(*folder, parts.empty() ? std::string() : parts.back(), false);
  file.bytes = bytes;
  file.modified = modified;
  file.attributes = attributes;
  return file;
}

Node& FileSystem::AddInexactName(const std::string& folder, const std::string& bestFit, std::uint32_t attributes) {
  const TreeHeld held(TreeLock());
  Node& node = AddChild(AddFolder(folder), bestFit, (attributes & kAttributeFolder) != 0);
  node.exact = false;
  node.attributes = attributes;
  return node;
}

bool FileSystem::Remove(const std::string& path) {
  const TreeHeld held(TreeLock());
  std::string name;
  Node* folder = ParentOf(path, &name);
  return folder != nullptr && folder->children.erase(Fold(name)) > 0;
}

void FileSystem::Move(const std::string& from, const std::string& to) {
  const TreeHeld held(TreeLock());
  std::string fromName;
  std::string toName;
  Node* source = ParentOf(from, &fromName);
  Node* target = ParentOf(to, &toName);
  if (source == nullptr || target == nullptr) return;
  const std::string folded = Fold(toName);
  auto taken = source->children.extract(Fold(fromName));
  if (taken.empty()) return;
  taken.mapped()->name = std::move(toName);
  taken.key() = folded;
  target->children.erase(folded);
  target->children.insert(std::move(taken));
}

// ---- registry

Key& RegistryStore::AddKey(const std::string& key) {
  Key added;  // whole, or not at all when there is no memory for its name
  added.name = key;
  return keys_.try_emplace(Fold(key), std::move(added)).first->second;
}

Key* RegistryStore::FindKey(const std::string& key) {
  const auto found = keys_.find(Fold(key));
  return found == keys_.end() ? nullptr : &found->second;
}

void RegistryStore::RemoveKey(const std::string& key) { keys_.erase(Fold(key)); }

void RegistryStore::SetValue(const std::string& key, const std::string& name, RegistryType type,
                             std::string_view bytes) {
  AddKey(key).values[Fold(name)] = {name, {type, std::string(bytes)}};
}

std::optional<RegistryValue> RegistryStore::Value(const std::string& key, const std::string& name) {
  const Key* found = FindKey(key);
  if (found == nullptr) return std::nullopt;
  const auto value = found->values.find(Fold(name));
  if (value == found->values.end()) return std::nullopt;
  return value->second.value;
}

void RegistryStore::MakeUnopenable(const std::string& key, std::uint32_t error) { AddKey(key).openError = error; }

// ---- clock

namespace {

std::atomic<int>& ClockSlowness() {
  static std::atomic<int> times = kClockSlowness;
  return times;
}

}  // namespace

void SetClockSlowness(int times) { ClockSlowness() = times; }

// ---- machine

void Machine::AddDrive(char letter, const Drive& drive) {
  const char capital = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  drives[capital] = drive;
  if (drive.space) files.AddFolder(std::string(1, capital) + ":\\");
}

void Machine::Reset() {
  const TreeHeld held(TreeLock());
  *this = Machine();
}

Machine& World() {
  static Machine machine;
  return machine;
}

namespace {

std::optional<std::uint32_t> Enter(const std::string& call, std::string_view argument = {}) {
  return World().calls.Enter(call, argument);
}

// ---- files, services

std::uint32_t AttributesOf(const Node& node) { return node.attributes | (node.isFolder ? kAttributeFolder : 0); }

/// What hung and was let go may end beside another one.
void CountOpen(int* open, int change) {
  const std::lock_guard<std::mutex> held(NoteLock());
  *open += change;
}

class ScriptedPass final : public FolderPass {
 public:
  explicit ScriptedPass(const Node& folder) {
    for (const char* dots : {".", ".."}) names_.push_back({dots, true, kAttributeFolder});
    for (const auto& [folded, node] : folder.children) {
      names_.push_back({node->name, node->exact, AttributesOf(*node), node->longName});
    }
    CountOpen(&World().files.openPasses, 1);
  }
  ~ScriptedPass() override { CountOpen(&World().files.openPasses, -1); }
  ScriptedPass(const ScriptedPass&) = delete;
  ScriptedPass& operator=(const ScriptedPass&) = delete;

  bool Next(FoundName* found) override {
    if (Enter("files.Next") || at_ == names_.size()) return false;
    *found = names_[at_++];
    return true;
  }

 private:
  std::vector<FoundName> names_;
  std::size_t at_ = 0;
};

class ScriptedWriter final : public TextWriter {
 public:
  explicit ScriptedWriter(std::string path) : path_(std::move(path)) { ++World().files.openWriters; }
  ~ScriptedWriter() override { --World().files.openWriters; }
  ScriptedWriter(const ScriptedWriter&) = delete;
  ScriptedWriter& operator=(const ScriptedWriter&) = delete;

  /// As on a full disk, a call that fails has written the first half.
  bool Write(std::string_view text) override {
    const bool fails = Enter("files.Write", path_).has_value();
    const TreeHeld held(TreeLock());
    Node* file = World().files.Find(path_);
    if (file == nullptr) return false;
    for (const char byte : text.substr(0, fails ? text.size() / 2 : text.size())) {
      if (byte == '\n') file->bytes += '\r';
      file->bytes += byte;
    }
    return !fails;
  }

  bool Close() override { return !Enter("files.Close", path_); }

 private:
  std::string path_;
};

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysOfMonth(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 1 && IsLeapYear(year) ? 29 : kDays[month];
}

/// Year, month and day of the month of a number of days since 1970-01-01. (The standard calendar lives in <chrono>,
/// which the Shift_JIS execution charset cannot compile.)
void SetDate(int days, std::tm* parts) {
  parts->tm_wday = (days + 4) % 7;
  int year = 1970;
  for (; days >= 365 + IsLeapYear(year); ++year) days -= 365 + IsLeapYear(year);
  parts->tm_year = year - 1900;
  parts->tm_yday = days;
  for (; days >= DaysOfMonth(year, parts->tm_mon); ++parts->tm_mon) days -= DaysOfMonth(year, parts->tm_mon);
  parts->tm_mday = days + 1;
}

std::tm JapaneseTime(std::int64_t modified) {
  constexpr int kDaySeconds = 24 * 60 * 60;
  const std::int64_t local = modified + kZoneSeconds;
  const int second = static_cast<int>(local % kDaySeconds);
  std::tm parts{};
  SetDate(static_cast<int>(local / kDaySeconds), &parts);
  parts.tm_hour = second / 3600;
  parts.tm_min = second / 60 % 60;
  parts.tm_sec = second % 60;
  return parts;
}

class ScriptedFiles final : public Files {
 public:
  bool Exists(const std::string& path) override { return !Enter("files.Exists", path) && Find(path) != nullptr; }

  std::optional<FileStatus> Status(const std::string& path) override {
    if (Enter("files.Status", path)) return std::nullopt;
    const TreeHeld held(TreeLock());
    const Node* node = Find(path);
    if (node == nullptr) return std::nullopt;
    return FileStatus{node->isFolder, node->bytes.size(), node->modified};
  }

  std::optional<std::uint32_t> Attributes(const std::string& path) override {
    if (Enter("files.Attributes", path)) return std::nullopt;
    const TreeHeld held(TreeLock());
    const Node* node = Find(path);
    if (node == nullptr) return std::nullopt;
    return AttributesOf(*node);
  }

  std::string CurrentFolder() override {
    return Enter("files.CurrentFolder") ? std::string() : World().files.currentFolder;
  }

  std::optional<std::tm> LocalTime(std::int64_t modified) override {
    if (Enter("files.LocalTime") || modified < 0 || modified > kLastTime) return std::nullopt;
    return JapaneseTime(modified);
  }

  std::unique_ptr<FolderPass> OpenFolder(const std::string& folder) override {
    if (Enter("files.OpenFolder", folder)) return nullptr;
    const TreeHeld held(TreeLock());
    const Node* node = Find(folder);
    if (node == nullptr || !node->isFolder) return nullptr;
    return std::make_unique<ScriptedPass>(*node);
  }

  std::optional<std::string> Read(const std::string& path, std::size_t limit) override {
    if (Enter("files.Read", path)) return std::nullopt;
    const TreeHeld held(TreeLock());
    const Node* node = Find(path);
    if (node == nullptr || node->isFolder) return std::nullopt;
    return node->bytes.substr(0, limit);
  }

  std::unique_ptr<TextWriter> CreateText(const std::string& path) override {
    if (Enter("files.CreateText", path)) return nullptr;
    const TreeHeld held(TreeLock());
    std::string name;
    const Node* folder = World().files.ParentOf(path, &name);
    const Node* old = Find(path);
    const bool isBlocked = old != nullptr && (old->isFolder || (old->attributes & kAttributeReadOnly) != 0);
    if (folder == nullptr || isBlocked || !IsNameValid(name)) return nullptr;
    World().files.AddFile(path);
    return std::make_unique<ScriptedWriter>(path);
  }

  bool Remove(const std::string& path) override {
    if (Enter("files.Remove", path)) return false;
    const TreeHeld held(TreeLock());
    const Node* node = Find(path);
    if (node == nullptr || node->isFolder || (node->attributes & kAttributeReadOnly) != 0) return false;
    return World().files.Remove(path);
  }

  int Rename(const std::string& from, const std::string& to) override {
    if (const auto error = Enter("files.Rename", from + " > " + to)) return static_cast<int>(*error);
    const TreeHeld held(TreeLock());
    const Node* source = Find(from);
    if (source == nullptr) return kErrnoNotFound;
    std::string name;
    const Node* folder = World().files.ParentOf(to, &name);
    if (folder == nullptr) return kErrnoNotFound;
    if (!IsNameValid(name)) return kErrnoInvalid;
    const Node* target = Find(to);
    if (target != nullptr && target != source) return kErrnoExists;
    if (Fold(to).starts_with(Fold(from) + '\\')) return kErrnoDenied;
    World().files.Move(from, to);
    return 0;
  }

  std::uint32_t CreateFolder(const std::string& path) override {
    if (const auto error = Enter("files.CreateFolder", path)) return *error;
    const TreeHeld held(TreeLock());
    std::string name;
    if (World().files.ParentOf(path, &name) == nullptr) return kErrorPathNotFound;
    if (Find(path) != nullptr) return kErrorExists;
    if (!IsNameValid(name)) return kErrorInvalidName;
    World().files.AddFolder(path);
    return 0;
  }

 private:
  static Node* Find(const std::string& path) { return World().files.Find(path); }
};

// ---- registry, services

class ScriptedKey final : public RegistryKey {
 public:
  explicit ScriptedKey(std::string key) : key_(std::move(key)) { ++World().registry.openHandles; }
  ~ScriptedKey() override { --World().registry.openHandles; }
  ScriptedKey(const ScriptedKey&) = delete;
  ScriptedKey& operator=(const ScriptedKey&) = delete;

  std::optional<RegistryValue> Query(const std::string& name, std::size_t limit, std::uint32_t* error) override {
    const std::optional<std::uint32_t> fault = Enter("registry.Query", name);
    std::optional<RegistryValue> value = World().registry.Value(key_, name);
    const bool tooLong = value && value->bytes.size() > limit;
    const std::uint32_t result = fault ? *fault : !value ? kErrorNotFound : tooLong ? kErrorMoreData : 0;
    if (error != nullptr) *error = result;
    if (result != 0) return std::nullopt;
    return value;
  }

  std::uint32_t Set(const std::string& name, RegistryType type, std::string_view bytes) override {
    if (const auto error = Enter("registry.Set", name)) return *error;
    if (World().registry.FindKey(key_) == nullptr) return kErrorKeyDeleted;
    World().registry.SetValue(key_, name, type, bytes);
    return 0;
  }

  std::optional<StoredValue> Copy(const std::string& name, std::uint32_t* error) override {
    const std::optional<RegistryValue> value = Query(name, std::string::npos, error);
    if (!value) return std::nullopt;
    return StoredValue{static_cast<std::uint32_t>(value->type), value->bytes, value->bytes.size()};
  }

  std::uint32_t PutBack(const std::string& name, const StoredValue& value) override {
    return Set(name, static_cast<RegistryType>(value.type), value.bytes);
  }

  std::uint32_t Delete(const std::string& name) override {
    if (const auto error = Enter("registry.Delete", name)) return *error;
    Key* key = World().registry.FindKey(key_);
    if (key == nullptr) return kErrorKeyDeleted;
    return key->values.erase(Fold(name)) > 0 ? 0 : kErrorNotFound;
  }

 private:
  std::string key_;
};

class ScriptedRegistry final : public Registry {
 public:
  std::unique_ptr<RegistryKey> Open(const std::string& key, std::uint32_t* error) override {
    return Answer(key, Enter("registry.Open", key), error);
  }

  std::unique_ptr<RegistryKey> Create(const std::string& key, std::uint32_t* error) override {
    const std::optional<std::uint32_t> fault = Enter("registry.Create", key);
    if (!fault) World().registry.AddKey(key);
    return Answer(key, fault, error);
  }

 private:
  static std::unique_ptr<RegistryKey> Answer(const std::string& name, std::optional<std::uint32_t> fault,
                                             std::uint32_t* error) {
    const Key* key = World().registry.FindKey(name);
    const std::uint32_t result = fault ? *fault : key == nullptr ? kErrorNotFound : key->openError;
    if (error != nullptr) *error = result;
    if (result != 0) return nullptr;
    return std::make_unique<ScriptedKey>(name);
  }
};

// ---- drives and shell

class ScriptedDrives final : public Drives {
 public:
  std::uint32_t Mask() override {
    std::uint32_t mask = 0;
    if (Enter("drives.Mask")) return mask;
    for (const auto& [letter, drive] : World().drives) mask |= std::uint32_t{1} << (letter - 'A');
    return mask;
  }

  DriveType Type(const std::string& root) override {
    const Drive* drive = Find(root);
    if (Enter("drives.Type", root)) return DriveType::Unknown;
    return drive == nullptr ? DriveType::NoRoot : drive->type;
  }

  std::optional<std::string> VolumeName(const std::string& root) override {
    const Drive* drive = Find(root);
    if (Enter("drives.VolumeName", root) || drive == nullptr) return std::nullopt;
    return drive->volumeName;
  }

  std::optional<DriveSpace> Space(const std::string& root) override {
    const Drive* drive = Find(root);
    if (Enter("drives.Space", root) || drive == nullptr) return std::nullopt;
    return drive->space;
  }

 private:
  static const Drive* Find(const std::string& root) {
    if (root.size() < 2 || root[1] != ':') return nullptr;
    const char letter = root[0] >= 'a' && root[0] <= 'z' ? static_cast<char>(root[0] - 'a' + 'A') : root[0];
    const auto found = World().drives.find(letter);
    return found == World().drives.end() ? nullptr : &found->second;
  }
};

class ScriptedShell final : public Shell {
 public:
  std::optional<std::string> DesktopFolder() override {
    if (Enter("shell.DesktopFolder")) return std::nullopt;
    return World().shell.desktopFolder;
  }

  std::optional<std::string> ResolveLink(const std::string& linkPath) override {
    if (Enter("shell.ResolveLink", linkPath)) return std::nullopt;
    const auto found = World().shell.links.find(linkPath);
    if (found == World().shell.links.end()) return std::nullopt;
    return found->second;
  }

  DeleteOutcome DeleteToRecycleBin(WindowHandle, const std::string& list, const std::string& progressTitle) override {
    World().shell.deletions.push_back({list, progressTitle});
    if (const auto error = Enter("shell.DeleteToRecycleBin")) return {static_cast<int>(*error), false};
    const DeleteOutcome outcome = World().shell.deleteOutcome;
    if (outcome.result == 0 && !outcome.aborted) RemoveAll(list);
    return outcome;
  }

 private:
  static void RemoveAll(const std::string& list) {
    for (std::size_t at = 0; at < list.size() && list[at] != '\0';) {
      const std::size_t end = std::min(list.find('\0', at), list.size());
      World().files.Remove(list.substr(at, end - at));
      at = end + 1;
    }
  }
};

// ---- network

/// Whether a caller's record means that one; without a provider every provider is asked.
bool IsMeant(const NetResource& record, const NetResource& wanted) {
  return record.remoteName == wanted.remoteName && (!wanted.provider || record.provider == wanted.provider) &&
         record.displayType == wanted.displayType;
}

NetNode* FindIn(NetNode& node, const NetResource& record) {
  for (NetNode& child : node.children) {
    if (IsMeant(child.record, record)) return &child;
    if (NetNode* deeper = FindIn(child, record)) return deeper;
  }
  return nullptr;
}

NetNode* FindResource(const NetResource& record) {
  NetNode* node = FindIn(World().network.global, record);
  return node != nullptr ? node : FindIn(World().network.context, record);
}

class ScriptedNetPass final : public NetPass {
 public:
  explicit ScriptedNetPass(const NetNode& node) : closeFails_(node.closeFails), batch_(node.batch) {
    for (const NetNode& child : node.children) records_.push_back(child.record);
    CountOpen(&World().network.openPasses, 1);
  }
  ~ScriptedNetPass() override { CountOpen(&World().network.openPasses, -1); }
  ScriptedNetPass(const ScriptedNetPass&) = delete;
  ScriptedNetPass& operator=(const ScriptedNetPass&) = delete;

  bool Next(std::vector<NetResource>* records) override {
    if (Enter("network.Next") || at_ == records_.size()) return false;
    const std::size_t left = records_.size() - at_;
    const std::size_t count = batch_ == 0 ? left : std::min(batch_, left);
    for (std::size_t i = 0; i < count; ++i) records->push_back(records_[at_ + i]);
    at_ += count;
    return true;
  }

  bool Close() override { return !Enter("network.Close") && !closeFails_; }

 private:
  std::vector<NetResource> records_;
  std::size_t at_ = 0;
  bool closeFails_;
  std::size_t batch_;
};

class ScriptedNetwork final : public Network {
 public:
  bool Present() override { return !Enter("network.Present") && World().network.present; }

  bool RemoteSession() override { return !Enter("network.RemoteSession") && World().network.remoteSession; }

  std::optional<std::string> TerminalProvider() override {
    if (Enter("network.TerminalProvider")) return std::nullopt;
    return World().network.terminalProvider;
  }

  std::unique_ptr<NetPass> Open(std::uint32_t scope, const NetResource* parent, std::uint32_t* error) override {
    const std::optional<std::uint32_t> fault =
        Enter("network.Open", parent == nullptr ? std::string_view() : parent->remoteName.value_or(""));
    const NetNode* node = parent != nullptr           ? FindResource(*parent)
                          : scope == kNetScopeContext ? &World().network.context
                                                      : &World().network.global;
    const std::uint32_t result = fault ? *fault : node == nullptr ? kErrorNoDevice : node->openError;
    if (error != nullptr) *error = result;
    if (result != 0) return nullptr;
    return std::make_unique<ScriptedNetPass>(*node);
  }

  std::optional<std::string> UniversalName(const std::string& root) override {
    if (Enter("network.UniversalName", root)) return std::nullopt;
    const auto found = World().network.universalNames.find(root);
    if (found == World().network.universalNames.end()) return std::nullopt;
    return found->second;
  }

  std::uint32_t Connect(const NetResource& resource, const std::string& password,
                        const std::string& userName) override {
    NetworkState& network = World().network;
    network.connections.push_back({resource, password, userName});
    if (const auto error = Enter("network.Connect", resource.remoteName.value_or(""))) return *error;
    const std::uint32_t result = network.connectResults.empty() ? 0 : network.connectResults.front();
    if (!network.connectResults.empty()) network.connectResults.pop_front();
    if (result == 0) Connected(resource);
    return result;
  }

 private:
  static void Connected(const NetResource& resource) {
    if (NetNode* node = FindResource(resource)) node->openError = 0;
    if (World().network.onConnected) World().network.onConnected(resource);
  }
};

// ---- sundry

class ScriptedClipboard final : public Clipboard {
 public:
  std::uint32_t Sequence() override {
    if (Enter("clipboard.Sequence")) return 0;
    return World().clipboard.sequence;
  }

  bool CanOpen(WindowHandle) override { return !Enter("clipboard.CanOpen") && !World().clipboard.heldByOther; }

  std::optional<std::string> Text(WindowHandle) override {
    if (Enter("clipboard.Text") || World().clipboard.heldByOther) return std::nullopt;
    return World().clipboard.text;
  }
};

class ScriptedSession final : public Session {
 public:
  void Beep(std::uint32_t code) override {
    World().session.beeps.push_back(code);
    static_cast<void>(Enter("session.Beep"));
  }

  std::optional<std::string> Variable(const std::string& name) override {
    if (Enter("session.Variable", name)) return std::nullopt;
    const auto found = World().session.variables.find(name);
    if (found == World().session.variables.end()) return std::nullopt;
    return found->second;
  }

  std::string ErrorText(std::uint32_t error) override {
    if (Enter("session.ErrorText")) return {};
    const auto found = World().session.errorTexts.find(error);
    return found == World().session.errorTexts.end() ? std::string() : found->second;
  }
};

}  // namespace
}  // namespace os::scripted

namespace os {

const ServiceTable& Services() {
  static scripted::ScriptedFiles files;
  static scripted::ScriptedRegistry registry;
  static scripted::ScriptedDrives drives;
  static scripted::ScriptedShell shell;
  static scripted::ScriptedNetwork network;
  static scripted::ScriptedClipboard clipboard;
  static scripted::ScriptedSession session;
  static const ServiceTable table{&files, &registry, &drives, &shell, &network, &clipboard, &session};
  return table;
}

std::int64_t WaitClockMs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return (std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000) / scripted::ClockSlowness();
}

}  // namespace os
