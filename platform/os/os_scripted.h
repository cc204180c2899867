// Services that tests play: an in-memory machine whose every call can be made to fail.
//
// A program that links os_scripted (and not os_windows) finds it behind os::Services(). The machine is set up and
// inspected through World(); Reset() between tests makes it empty again. Texts are Shift_JIS as in os.h; names of
// files, registry keys and values are compared without regard to the case of ASCII letters. The time zone is always
// Japan's (UTC + 9 hours). Portable: no call reaches the real machine. Calls are made and noted on any thread. Names in
// the file system may come and go meanwhile; everything else of the machine is set up while no worker makes a call that
// reads it.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/os/os.h"

namespace os::scripted {

/// 2024-03-05 06:07:08 UTC, 15:07:08 in Japan.
inline constexpr std::int64_t kDefaultTime = 1709618828;

/// Counts, records and faults of calls. A call is named by service and operation: "files.OpenFolder", "registry.Set" …
/// as the interfaces name them, and for the objects they return "files.Next", "files.Write", "files.Close",
/// "registry.Query" (of a copy too), "registry.Set" (when a copy is put back too), "registry.Delete", "network.Next"
/// and "network.Close".
class Calls {
 public:
  /// The next `times` calls of that name fail. Calls that answer an error number answer `error`. A "files.Write" that
  /// fails has written the first half of its text.
  void FailNext(const std::string& call, std::uint32_t error = kErrorAccessDenied, int times = 1);
  /// The n-th call from now on fails, whichever it is; 1 is the next, 0 none.
  void FailNumber(std::size_t n, std::uint32_t error = kErrorAccessDenied);
  /// "name argument" of the call that failed last by FailNumber; empty when none has since the log was cleared.
  [[nodiscard]] std::string Failed() const;
  /// Whether a fault that was asked for has not happened yet.
  [[nodiscard]] bool FaultPending() const;
  /// How often the call was made, failed ones included.
  [[nodiscard]] std::size_t Count(const std::string& call) const;
  /// All calls so far.
  [[nodiscard]] std::size_t Total() const;
  /// "name argument" of each call in order; "files.Next" is counted only.
  [[nodiscard]] std::vector<std::string> Log() const;
  /// `watch` is told the name of each call from now on, on the thread that makes it; none with an empty one.
  void Watch(std::function<void(const std::string& call)> watch);
  /// Forgets counts and records; faults and the watch stay.
  void ClearLog();

  /// For the services: notes a call and answers the error it has to fail with, if any.
  [[nodiscard]] std::optional<std::uint32_t> Enter(const std::string& call, std::string_view argument = {});

 private:
  void Tell(const std::string& call) const;

  struct Fault {
    std::uint32_t error = 0;
    int times = 0;
  };
  std::map<std::string, Fault> named_;
  std::size_t countdown_ = 0;
  std::uint32_t countdownError_ = 0;
  std::optional<std::string> failed_;
  std::map<std::string, std::size_t> counts_;
  std::size_t total_ = 0;
  std::vector<std::string> log_;
  std::shared_ptr<const std::function<void(const std::string&)>> watch_;
};

/// A file or folder. Passes list a folder in the order of the folded names, "." and ".." first.
struct Node {
  std::string name;
  bool isFolder = false;
  bool exact = true;          ///< an inexact name is listed, and no call can open it
  std::string longName = {};  ///< when `name` is the short one of a name that the screen encoding cannot hold
  std::uint32_t attributes = 0;
  std::int64_t modified = kDefaultTime;
  std::string bytes;
  std::map<std::string, std::unique_ptr<Node>> children;  ///< by folded name
};

/// The file system. Paths are absolute ("C:\a\b" or "\\server\share\b"); "/" separates too, "." and ".." are worked
/// out.
class FileSystem {
 public:
  /// Adds a folder and whatever is missing above it.
  Node& AddFolder(const std::string& path);
  /// Adds or replaces a file, and adds whatever is missing above it.
  Node& AddFile(const std::string& path, const std::string& bytes = {}, std::int64_t modified = kDefaultTime,
                std::uint32_t attributes = 0);
  /// Adds a name to a folder that only a pass sees.
  Node& AddInexactName(const std::string& folder, const std::string& bestFit, std::uint32_t attributes = 0);
  /// The node of an exact path, or null. It stays valid until it is removed or renamed.
  [[nodiscard]] Node* Find(const std::string& path);
  /// Removes a file, or a folder with all it holds; false when there is none.
  bool Remove(const std::string& path);
  /// Moves a node under a new path whose folder exists.
  void Move(const std::string& from, const std::string& to);
  /// The folder that holds or would hold `path`, or null; *name receives the last part.
  [[nodiscard]] Node* ParentOf(const std::string& path, std::string* name);

  std::string currentFolder;  ///< what a path without a drive is told of; such a path is found nowhere all the same

  int openPasses = 0;   ///< folders that are being read now
  int openWriters = 0;  ///< files that are being written now

 private:
  Node root_{.name = {}, .isFolder = true, .bytes = {}, .children = {}};
};

struct Key {
  struct Value {
    std::string name;
    RegistryValue value;
  };
  std::string name;
  std::uint32_t openError = 0;          ///< not 0: every attempt to open or create the key fails with it
  std::map<std::string, Value> values;  ///< by folded name
};

class RegistryStore {
 public:
  /// The key, made when missing.
  Key& AddKey(const std::string& key);
  /// The key or null.
  [[nodiscard]] Key* FindKey(const std::string& key);
  void RemoveKey(const std::string& key);
  void SetValue(const std::string& key, const std::string& name, RegistryType type, std::string_view bytes);
  [[nodiscard]] std::optional<RegistryValue> Value(const std::string& key, const std::string& name);
  void MakeUnopenable(const std::string& key, std::uint32_t error = kErrorAccessDenied);
  /// All keys, by folded name.
  [[nodiscard]] const std::map<std::string, Key>& Keys() const { return keys_; }

  int openHandles = 0;  ///< keys that are open now

 private:
  std::map<std::string, Key> keys_;  ///< by folded name
};

/// A drive without `space` is not ready: it is listed, and its root cannot be reached unless a folder was added there.
struct Drive {
  DriveType type = DriveType::Fixed;
  std::optional<std::string> volumeName = std::string();
  std::optional<DriveSpace> space = DriveSpace{.total = std::uint64_t{1} << 30, .free = std::uint64_t{1} << 29};
};

/// A network resource and what it holds. Its record decides by remote name, provider and display type which one a
/// caller means; a caller's record without a provider means any provider's.
struct NetNode {
  NetResource record;
  std::vector<NetNode> children;
  std::uint32_t openError = 0;  ///< not 0: opening it fails with this error; a successful connection to it clears it
  bool closeFails = false;
  std::size_t batch = 0;  ///< records given by one call; 0 gives all at once
};

struct NetworkState {
  bool present = true;
  bool remoteSession = false;
  std::optional<std::string> terminalProvider;
  NetNode global;                                       ///< what the global scope opens without a parent: the providers
  NetNode context;                                      ///< what the context scope opens without a parent
  std::map<std::string, std::string> universalNames;    ///< by root, such as "G:\"
  std::deque<std::uint32_t> connectResults;             ///< answers of the next connections; 0 when it runs out
  std::function<void(const NetResource&)> onConnected;  ///< called after a connection that succeeded
  struct Connection {
    NetResource resource;
    std::string password;
    std::string userName;
  };
  std::vector<Connection> connections;  ///< every attempt
  int openPasses = 0;                   ///< enumerations that are open now
};

struct ShellState {
  std::optional<std::string> desktopFolder;
  std::map<std::string, std::string> links;  ///< target by path of the link file, in exact letters
  struct Deletion {
    std::string list;
    std::string title;
  };
  std::vector<Deletion> deletions;
  DeleteOutcome deleteOutcome;  ///< answer of every deletion; the named files go when it is a success
};

struct ClipboardState {
  std::uint32_t sequence = 1;
  bool heldByOther = false;
  std::optional<std::string> text;
};

struct SessionState {
  std::vector<std::uint32_t> beeps;
  std::map<std::string, std::string> variables;
  std::map<std::uint32_t, std::string> errorTexts;
};

/// The machine.
struct Machine {
  Calls calls;
  FileSystem files;
  RegistryStore registry;
  std::map<char, Drive> drives;  ///< by capital letter
  ShellState shell;
  NetworkState network;
  ClipboardState clipboard;
  SessionState session;

  /// Adds a drive, and its root folder when it is ready.
  void AddDrive(char letter, const Drive& drive = {});
  /// An empty machine without drives. Objects that calls returned before must be gone.
  void Reset();
};

[[nodiscard]] Machine& World();

/// How many times slower than real time the clock of waits goes (wait_clock.h). One that is not is for a test in which
/// nothing but time ends a wait. It stays until it is set back.
inline constexpr int kClockSlowness = 10;
void SetClockSlowness(int times);

/// Letters "A" to "Z" of single-byte characters made small; the form in which names are compared.
[[nodiscard]] std::string Fold(std::string_view name);

}  // namespace os::scripted
