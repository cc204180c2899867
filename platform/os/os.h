// What the library and the embedded suite ask of the operating system.
//
// Each service is a small interface. The shipped DLLs link the real implementations (os_windows.cpp); tests link
// scripted ones (os_scripted.h) instead. Which table is in force is decided when a program is linked, so that the
// shipped DLLs have no hook: exactly one definition of Services() is linked into each program.
//
// All texts are bytes in Shift_JIS (Windows-31J), paths use "\" as separator. Every call is made on the thread that
// makes it: those of Files, Drives, Network and Shell on the library's workers (workers.h), where the browser asks
// them, but for Mask, Present, RemoteSession, CurrentFolder, LocalTime, which reach no device, and DeleteToRecycleBin,
// which shows windows of the system; everything else asks them in place. Registry, Clipboard and Session are called on
// the thread of the windows only. Nothing throws except std::bad_alloc. Where a disk is missing a call fails; the
// system never asks the user for it, and the thread's error mode is afterwards what it was.
#pragma once

#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace os {

// ---------------------------------------------------------------------------------------------------------------------
// files

/// Attribute bits as the platform numbers them.
inline constexpr std::uint32_t kAttributeReadOnly = 0x1;
inline constexpr std::uint32_t kAttributeHidden = 0x2;
inline constexpr std::uint32_t kAttributeSystem = 0x4;
inline constexpr std::uint32_t kAttributeFolder = 0x10;
// The file's contents lie elsewhere and are fetched when it is opened or read.
inline constexpr std::uint32_t kAttributeOffline = 0x1000;
inline constexpr std::uint32_t kAttributeRecallOnOpen = 0x40000;
inline constexpr std::uint32_t kAttributeRecallOnRead = 0x400000;

/// Size in bytes and time of last change in seconds since 1970-01-01 UTC.
struct FileStatus {
  bool isFolder = false;
  std::uint64_t size = 0;
  std::int64_t modified = 0;
};

/// One name found in a folder. A name that the screen encoding cannot hold is given by its short name, and `longName`
/// is then the long one with "?" for what is lacking: what patterns and kinds are tested on, and what no call can open.
/// `exact` is false when it has no short name either; `name` is then what can be shown of it.
struct FoundName {
  std::string name;
  bool exact = true;
  std::uint32_t attributes = 0;
  std::string longName = {};  ///< empty when `name` is the entry's own
};

/// One pass over a folder; closes itself.
class FolderPass {
 public:
  virtual ~FolderPass() = default;
  /// Fills `found` with the next name ("." and ".." included) and answers true, or answers false at the end or on
  /// failure.
  [[nodiscard]] virtual bool Next(FoundName* found) = 0;
};

/// A text file being written. Bytes pass unchanged but for "\n", which is written as the platform's line end.
class TextWriter {
 public:
  virtual ~TextWriter() = default;
  [[nodiscard]] virtual bool Write(std::string_view text) = 0;
  /// Closes the file; false when the last bytes could not be written. No further call follows.
  [[nodiscard]] virtual bool Close() = 0;
};

class Files {
 public:
  virtual ~Files() = default;
  /// Whether a file or folder of that name can be reached (_access with mode 0).
  [[nodiscard]] virtual bool Exists(const std::string& path) = 0;
  /// Size and time (_stat64); none when the path cannot be examined.
  [[nodiscard]] virtual std::optional<FileStatus> Status(const std::string& path) = 0;
  /// Attribute bits (GetFileAttributes); none when there is no such file.
  [[nodiscard]] virtual std::optional<std::uint32_t> Attributes(const std::string& path) = 0;
  /// The process's current folder, of which a path without a drive is told (GetCurrentDirectoryW), with a "\" at its
  /// end only when it is a drive's root; empty when it cannot be had. Where the screen encoding lacks a character it is
  /// told by short names; without one the character is replaced: such a folder cannot be opened, but its drive is
  /// right.
  [[nodiscard]] virtual std::string CurrentFolder() = 0;
  /// A time of FileStatus in local time (_localtime64); none when the platform cannot express it.
  [[nodiscard]] virtual std::optional<std::tm> LocalTime(std::int64_t modified) = 0;
  /// Starts a pass over everything in a folder (without a trailing "\" unless it is a root); null when that fails.
  [[nodiscard]] virtual std::unique_ptr<FolderPass> OpenFolder(const std::string& folder) = 0;
  /// The first `limit` bytes of a file, fewer when it is shorter; none when it cannot be opened or read.
  [[nodiscard]] virtual std::optional<std::string> Read(const std::string& path, std::size_t limit) = 0;
  /// Creates a file anew for writing text; null when that fails.
  [[nodiscard]] virtual std::unique_ptr<TextWriter> CreateText(const std::string& path) = 0;
  /// Deletes one file; false when that fails.
  virtual bool Remove(const std::string& path) = 0;
  /// Renames a file or folder; 0, else the platform's errno (2 not found, 13 access denied, 17 exists, 22 invalid). An
  /// existing entry is never replaced. A change of letter case alone takes effect too; where the system needs two steps
  /// for it, one that fails is taken back, but an entry that nothing can be done with meanwhile may be left under the
  /// name between them (the new one and "~0").
  [[nodiscard]] virtual int Rename(const std::string& from, const std::string& to) = 0;
  /// Creates a folder; 0, else the platform's error (183 exists, 3 path not found, 123 invalid name, 5 denied).
  [[nodiscard]] virtual std::uint32_t CreateFolder(const std::string& path) = 0;
};

// ---------------------------------------------------------------------------------------------------------------------
// registry

enum class RegistryType : std::uint32_t {
  None = 0,
  String = 1,
  ExpandString = 2,
  Binary = 3,
  Dword = 4,
  Other = 0xFFFF
};

inline constexpr std::uint32_t kErrorNotFound = 2;
inline constexpr std::uint32_t kErrorMoreData = 234;
inline constexpr std::uint32_t kErrorKeyDeleted = 1018;

/// Whether an error of Registry::Open or RegistryKey::Query means that something is there, or may be, and cannot be
/// had.
[[nodiscard]] constexpr bool IsReadFailure(std::uint32_t error) noexcept {
  return error != kErrorNotFound && error != kErrorMoreData && error != kErrorKeyDeleted;
}

struct RegistryValue {
  RegistryType type = RegistryType::None;
  std::string bytes;  ///< as stored; a string may lack its terminator
};

/// A value of any type and size as it lies in the registry, where texts are UTF-16, to be put back unchanged.
struct StoredValue {
  std::uint32_t type = 0;  ///< as the platform numbers it
  std::string bytes;       ///< what is stored, and behind it what the service needs to put it back
  std::size_t size = 0;    ///< of what is stored
};

/// An open key below HKEY_CURRENT_USER; closed with the object.
class RegistryKey {
 public:
  virtual ~RegistryKey() = default;
  /// A value's type and bytes; none when it is missing, cannot be read, or is longer than `limit` bytes, and then
  /// *error (if given) holds the platform's error (2 missing, 234 longer).
  [[nodiscard]] virtual std::optional<RegistryValue> Query(const std::string& name, std::size_t limit,
                                                           std::uint32_t* error = nullptr) = 0;
  /// Writes a value whole; 0, else the platform's error. A text is stored in the length that is given: without a
  /// terminator unless the bytes hold one.
  virtual std::uint32_t Set(const std::string& name, RegistryType type, std::string_view bytes) = 0;
  /// A copy of what is stored; none when the value is missing or cannot be read, *error as with Query.
  [[nodiscard]] virtual std::optional<StoredValue> Copy(const std::string& name, std::uint32_t* error) = 0;
  /// Writes a copy back; 0, else the platform's error. A name of up to 255 bytes takes no memory, so that a change that
  /// failed for want of it can be taken back.
  virtual std::uint32_t PutBack(const std::string& name, const StoredValue& value) = 0;
  /// Deletes a value; 0, else the platform's error (2 when there is none).
  virtual std::uint32_t Delete(const std::string& name) = 0;
};

class Registry {
 public:
  virtual ~Registry() = default;
  /// Opens an existing key with full access; null when that fails, and then *error (if given) holds the platform's
  /// error.
  [[nodiscard]] virtual std::unique_ptr<RegistryKey> Open(const std::string& key, std::uint32_t* error = nullptr) = 0;
  /// Opens a key with full access, creating it when missing; null when that fails, *error as above.
  [[nodiscard]] virtual std::unique_ptr<RegistryKey> Create(const std::string& key, std::uint32_t* error = nullptr) = 0;
};

// ---------------------------------------------------------------------------------------------------------------------
// drives

/// Drive types as the platform numbers them.
enum class DriveType : std::uint32_t {
  Unknown = 0,
  NoRoot = 1,
  Removable = 2,
  Fixed = 3,
  Remote = 4,
  CdRom = 5,
  RamDisk = 6
};

struct DriveSpace {
  std::uint64_t total = 0;  ///< bytes
  std::uint64_t free = 0;   ///< bytes free to the caller
};

class Drives {
 public:
  virtual ~Drives() = default;
  /// Bit 0 is drive A (GetLogicalDrives).
  [[nodiscard]] virtual std::uint32_t Mask() = 0;
  /// `root` is letter, colon, backslash.
  [[nodiscard]] virtual DriveType Type(const std::string& root) = 0;
  /// The volume's name, which may be empty; none when it cannot be had (GetVolumeInformation).
  [[nodiscard]] virtual std::optional<std::string> VolumeName(const std::string& root) = 0;
  /// Total and free space; none when the drive is not ready (GetDiskFreeSpaceEx).
  [[nodiscard]] virtual std::optional<DriveSpace> Space(const std::string& root) = 0;
};

// ---------------------------------------------------------------------------------------------------------------------
// shell

/// A window handle without its header; null for none.
using WindowHandle = void*;

struct DeleteOutcome {
  int result = 0;        ///< 0 on success, else the platform's code (SHFileOperation)
  bool aborted = false;  ///< the user stopped it
};

class Shell {
 public:
  virtual ~Shell() = default;
  /// The desktop directory without a trailing "\"; none when the platform has none.
  [[nodiscard]] virtual std::optional<std::string> DesktopFolder() = 0;
  /// The target path of a shell link file; none when it cannot be loaded or names nothing.
  [[nodiscard]] virtual std::optional<std::string> ResolveLink(const std::string& linkPath) = 0;
  /// Deletes with undo and the platform's own confirmation. `list`: paths, each with its terminator, closed by a second
  /// one.
  [[nodiscard]] virtual DeleteOutcome DeleteToRecycleBin(WindowHandle owner, const std::string& list,
                                                         const std::string& progressTitle) = 0;
};

// ---------------------------------------------------------------------------------------------------------------------
// network

/// A network resource record (NETRESOURCE) that owns its texts; a missing text stays missing.
struct NetResource {
  std::uint32_t scope = 0;
  std::uint32_t type = 0;
  std::uint32_t displayType = 0;
  std::uint32_t usage = 0;
  std::optional<std::string> localName;
  std::optional<std::string> remoteName;
  std::optional<std::string> comment;
  std::optional<std::string> provider;
};

inline constexpr std::uint32_t kNetScopeGlobal = 2;
inline constexpr std::uint32_t kNetScopeContext = 5;
inline constexpr std::uint32_t kNetDisplayDomain = 1;
inline constexpr std::uint32_t kNetDisplayServer = 2;
inline constexpr std::uint32_t kNetDisplayShare = 3;
inline constexpr std::uint32_t kNetDisplayNetwork = 6;
inline constexpr std::uint32_t kNetDisplayRoot = 7;
inline constexpr std::uint32_t kErrorAccessDenied = 5;

/// One open enumeration of network resources.
class NetPass {
 public:
  virtual ~NetPass() = default;
  /// Appends as many records as one call of the platform gives; false when it fails or gives none.
  [[nodiscard]] virtual bool Next(std::vector<NetResource>* records) = 0;
  /// Closes the enumeration; false when that fails. No further call follows.
  [[nodiscard]] virtual bool Close() = 0;
};

class Network {
 public:
  virtual ~Network() = default;
  /// Whether the system reports a network (GetSystemMetrics(SM_NETWORK), lowest bit).
  [[nodiscard]] virtual bool Present() = 0;
  /// Whether this process runs in a remote session (GetSystemMetrics(SM_REMOTESESSION)).
  [[nodiscard]] virtual bool RemoteSession() = 0;
  /// The name of the provider of the terminal-services network type; none when there is none.
  [[nodiscard]] virtual std::optional<std::string> TerminalProvider() = 0;
  /// Opens an enumeration of disk resources; null when that fails, and then *error holds the platform's error.
  [[nodiscard]] virtual std::unique_ptr<NetPass> Open(std::uint32_t scope, const NetResource* parent,
                                                      std::uint32_t* error) = 0;
  /// The universal name of a drive's root (512-byte buffer); none when it cannot be had.
  [[nodiscard]] virtual std::optional<std::string> UniversalName(const std::string& root) = 0;
  /// Connects and remembers the connection in the user's profile; 0, else the platform's error.
  [[nodiscard]] virtual std::uint32_t Connect(const NetResource& resource, const std::string& password,
                                              const std::string& userName) = 0;
};

// ---------------------------------------------------------------------------------------------------------------------
// clipboard and sundry

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  /// A number that grows with each change of the clipboard.
  [[nodiscard]] virtual std::uint32_t Sequence() = 0;
  /// Whether the clipboard can be opened now (another program may hold it).
  [[nodiscard]] virtual bool CanOpen(WindowHandle owner) = 0;
  /// The clipboard's text; none when it holds no text or is held open by another program.
  [[nodiscard]] virtual std::optional<std::string> Text(WindowHandle owner) = 0;
};

/// Beep codes as the platform numbers them.
inline constexpr std::uint32_t kBeepSimple = 0xFFFFFFFF;
inline constexpr std::uint32_t kBeepDefault = 0x0;
inline constexpr std::uint32_t kBeepExclamation = 0x30;

class Session {
 public:
  virtual ~Session() = default;
  virtual void Beep(std::uint32_t code) = 0;
  /// An environment variable's text; none when it is not set.
  [[nodiscard]] virtual std::optional<std::string> Variable(const std::string& name) = 0;
  /// The system's text for an error of the platform; empty when it has none.
  [[nodiscard]] virtual std::string ErrorText(std::uint32_t error) = 0;
};

/// The table in force. The objects live as long as the program.
struct ServiceTable {
  Files* files;
  Registry* registry;
  Drives* drives;
  Shell* shell;
  Network* network;
  Clipboard* clipboard;
  Session* session;
};

[[nodiscard]] const ServiceTable& Services();

}  // namespace os
