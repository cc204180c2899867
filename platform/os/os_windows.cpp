// The real services. Every text meets the system in wide form: what the process's own code page is does not matter.
#include <windows.h>

// These need windows.h before them.
#include <direct.h>
#include <io.h>
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <winnetwk.h>
#include <wnnc.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>
#include <utility>

#include "platform/os/letter_case.h"
#include "platform/os/os.h"
#include "platform/os/sjis_wide.h"
#include "platform/os/wait_clock.h"

namespace os {
namespace {

// ----------------------------------------------------------------------------------------------------------------
// owners

/// Keeps the system from asking the user for a missing disk, on this thread, while the object lives: such calls fail
/// instead. Every call that reaches a file, a drive, the shell or the network is made with one of its own. None
/// outlives the call of a service, so the library's message loops run in the mode of the host; only the shell's own
/// confirmation of a deletion runs within its call.
class QuietDrive {
 public:
  /// A worker's thread is quiet by itself; there nothing is set, once for each file of a folder.
  QuietDrive() noexcept
      : former_{::GetThreadErrorMode()},
        set_{(former_ & kQuiet) != kQuiet && ::SetThreadErrorMode(former_ | kQuiet, nullptr) != FALSE} {}
  QuietDrive(const QuietDrive&) = delete;
  QuietDrive& operator=(const QuietDrive&) = delete;
  ~QuietDrive() {
    if (set_) ::SetThreadErrorMode(former_, nullptr);
  }

 private:
  static constexpr DWORD kQuiet = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;

  DWORD former_;
  bool set_;
};

/// Owns a handle of one kind. `Traits` names the handle's type, its null value and how it is closed.
template <class Traits>
class Unique {
 public:
  using Type = typename Traits::Type;

  Unique() = default;
  explicit Unique(Type handle) noexcept : handle_{handle} {}
  Unique(Unique&& other) noexcept : handle_{std::exchange(other.handle_, Traits::Null())} {}
  Unique& operator=(Unique&& other) noexcept {
    Unique taken{std::move(other)};
    std::swap(handle_, taken.handle_);
    return *this;
  }
  Unique(const Unique&) = delete;
  Unique& operator=(const Unique&) = delete;
  ~Unique() {
    if (*this) Traits::Close(handle_);
  }

  [[nodiscard]] explicit operator bool() const noexcept { return handle_ != Traits::Null(); }
  [[nodiscard]] Type Get() const noexcept { return handle_; }
  [[nodiscard]] Type Release() noexcept { return std::exchange(handle_, Traits::Null()); }

 private:
  Type handle_ = Traits::Null();
};

struct FileTraits {
  using Type = HANDLE;
  static Type Null() noexcept { return INVALID_HANDLE_VALUE; }
  static void Close(Type handle) noexcept { ::CloseHandle(handle); }
};

struct FindTraits {
  using Type = HANDLE;
  static Type Null() noexcept { return INVALID_HANDLE_VALUE; }
  static void Close(Type handle) noexcept { ::FindClose(handle); }
};

struct KeyTraits {
  using Type = HKEY;
  static Type Null() noexcept { return nullptr; }
  static void Close(Type handle) noexcept { ::RegCloseKey(handle); }
};

struct NetTraits {
  using Type = HANDLE;
  static Type Null() noexcept { return nullptr; }
  static void Close(Type handle) noexcept;
};

void NetTraits::Close(Type handle) noexcept {
  const QuietDrive quiet;
  ::WNetCloseEnum(handle);
}

struct StreamTraits {
  using Type = std::FILE*;
  static Type Null() noexcept { return nullptr; }
  static void Close(Type stream) noexcept {
    const QuietDrive quiet;  // what is still to be written goes to the disk now
    std::fclose(stream);
  }
};

/// Releases a COM object.
template <class Interface>
struct ComTraits {
  using Type = Interface*;
  static Type Null() noexcept { return nullptr; }
  static void Close(Type object) noexcept { object->Release(); }
};

/// COM is in use on this thread while the object lives. A thread that already uses it in another way keeps that way.
class ComScope {
 public:
  ComScope() noexcept : result_{::CoInitialize(nullptr)} {}
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;
  ~ComScope() {
    if (SUCCEEDED(result_)) ::CoUninitialize();
  }

 private:
  HRESULT result_;
};

/// The clipboard is open while the object lives and answers true.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(WindowHandle owner) noexcept : open_{::OpenClipboard(static_cast<HWND>(owner)) != FALSE} {}
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() {
    if (open_) ::CloseClipboard();
  }
  [[nodiscard]] explicit operator bool() const noexcept { return open_; }

 private:
  bool open_;
};

/// A block of global memory is locked while the object lives.
class LockedMemory {
 public:
  explicit LockedMemory(HGLOBAL memory) noexcept : memory_{memory}, bytes_{::GlobalLock(memory)} {}
  LockedMemory(const LockedMemory&) = delete;
  LockedMemory& operator=(const LockedMemory&) = delete;
  ~LockedMemory() {
    if (bytes_ != nullptr) ::GlobalUnlock(memory_);
  }
  [[nodiscard]] std::string_view Bytes() const noexcept {
    if (bytes_ == nullptr) return {};
    return {static_cast<const char*>(bytes_), ::GlobalSize(memory_)};
  }

 private:
  HGLOBAL memory_;
  void* bytes_;
};

// -----------------------------------------------------------------------------------------------------------------
// texts

[[nodiscard]] DWORD Size(std::size_t size) noexcept {
  return static_cast<DWORD>(std::min<std::size_t>(size, std::numeric_limits<DWORD>::max()));
}

/// A text to be shown; "?" for what Shift_JIS lacks.
[[nodiscard]] std::string ShownText(std::wstring_view wide) { return SjisOf(wide, kUnknown).bytes; }

/// The same without a table, which matters in a folder of 100,000 names; false for a name with other characters than
/// ASCII.
[[nodiscard]] bool NarrowAscii(std::wstring_view wide, std::string* text) {
  if (!std::all_of(wide.begin(), wide.end(), [](wchar_t unit) { return unit < 0x80; })) return false;
  text->resize(wide.size());
  std::transform(wide.begin(), wide.end(), text->begin(), [](wchar_t unit) { return static_cast<char>(unit); });
  return true;
}

/// The name in 8.3 form of the entry that a path ends with; empty when it has none. Such names are ASCII.
[[nodiscard]] std::string ShortNameOf(const std::wstring& path) {
  const QuietDrive quiet;
  WIN32_FIND_DATAW data = {};
  const Unique<FindTraits> find{::FindFirstFileW(path.c_str(), &data)};
  std::string name;
  return find && NarrowAscii(data.cAlternateFileName, &name) ? name : std::string();
}

/// A path of something that exists, in Shift_JIS: where that lacks a character of a name, its short name stands for it.
/// None when it has none.
[[nodiscard]] std::optional<std::string> PathText(const std::wstring& path) {
  std::string text;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find(L'\\', at), path.size());
    const NarrowText own = SjisOf(std::wstring_view(path).substr(at, end - at), kUnknown);
    const std::string name = own.exact || at == end ? own.bytes : ShortNameOf(path.substr(0, end));
    if (name.empty() && at != end) return std::nullopt;
    text += name;
    if (end < path.size()) text += '\\';
    at = end + 1;
  }
  return text;
}

[[nodiscard]] bool IsDriveRoot(std::wstring_view path) noexcept {
  return path.size() == 3 && path[1] == L':' && path[2] == L'\\';
}

/// The path without the "\" at its end. The root of a drive keeps it: without it, the name means the drive's current
/// folder.
void DropSeparator(std::wstring* path) noexcept {
  if (path->ends_with(L'\\') && !IsDriveRoot(*path)) path->pop_back();
}

// -----------------------------------------------------------------------------------------------------------------
// files

class RealFolderPass final : public FolderPass {
 public:
  /// `folder`: with a "\\" at its end.
  RealFolderPass(Unique<FindTraits> find, const WIN32_FIND_DATAW& first, std::wstring folder)
      : find_{std::move(find)}, data_{first}, folder_{std::move(folder)} {}

  bool Next(FoundName* found) override {
    if (!Advance()) return false;
    const std::wstring_view name = data_.cFileName;
    found->attributes = data_.dwFileAttributes;
    found->longName.clear();
    found->exact = NarrowAscii(name, &found->name);
    if (!found->exact) Narrow(name, found);
    return true;
  }

 private:
  /// The first entry came with the opening of the pass.
  bool Advance() noexcept {
    if (std::exchange(first_, false)) return static_cast<bool>(find_);
    const QuietDrive quiet;
    return find_ && ::FindNextFileW(find_.Get(), &data_) != FALSE;
  }

  void Narrow(std::wstring_view name, FoundName* found) const {
    NarrowText own = SjisOf(name, kUnknown);
    found->name = std::move(own.bytes);
    found->exact = own.exact;
    if (!found->exact) GiveShortName(name, found);
  }

  /// Asked for the few entries that need it: short names slow the reading of a folder down.
  void GiveShortName(std::wstring_view name, FoundName* found) const {
    std::string shortName = ShortNameOf(folder_ + std::wstring(name));
    if (shortName.empty()) return;
    found->name = std::move(shortName);
    found->longName = LongName(name);
    found->exact = true;
  }

  /// A character of two units is one for a pattern too.
  [[nodiscard]] static std::string LongName(std::wstring_view name) {
    std::wstring characters(name);
    std::erase_if(characters, [](wchar_t unit) { return IS_LOW_SURROGATE(unit); });
    return ShownText(characters);
  }

  Unique<FindTraits> find_;  ///< null for the root of a drive that holds nothing
  WIN32_FIND_DATAW data_;
  std::wstring folder_;
  bool first_ = true;
};

class RealTextWriter final : public TextWriter {
 public:
  explicit RealTextWriter(Unique<StreamTraits> stream) : stream_{std::move(stream)} {}

  bool Write(std::string_view text) override {
    if (!stream_) return false;
    const QuietDrive quiet;
    return std::fwrite(text.data(), 1, text.size(), stream_.Get()) == text.size();
  }

  bool Close() override {
    const QuietDrive quiet;
    return stream_ && std::fclose(stream_.Release()) == 0;
  }

 private:
  Unique<StreamTraits> stream_;
};

class RealFiles final : public Files {
 public:
  bool Exists(const std::string& path) override {
    const QuietDrive quiet;
    return ::_waccess(WideOf(path).c_str(), 0) == 0;
  }

  std::optional<FileStatus> Status(const std::string& path) override {
    const QuietDrive quiet;
    std::optional<std::wstring> wide = ExactWideOf(path);
    if (!wide) return std::nullopt;
    DropSeparator(&*wide);
    struct _stat64 status = {};
    if (::_wstat64(wide->c_str(), &status) != 0) return std::nullopt;
    return FileStatus{(status.st_mode & _S_IFDIR) != 0, static_cast<std::uint64_t>(status.st_size), status.st_mtime};
  }

  std::optional<std::uint32_t> Attributes(const std::string& path) override {
    const QuietDrive quiet;
    const DWORD attributes = ::GetFileAttributesW(WideOf(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
    return attributes;
  }

  std::string CurrentFolder() override {
    std::wstring folder(::GetCurrentDirectoryW(0, nullptr), L'\0');
    const DWORD length = ::GetCurrentDirectoryW(Size(folder.size()), folder.data());
    if (length >= folder.size()) return {};  // another thread has gone to a folder with a longer name
    folder.resize(length);
    return PathText(folder).value_or(ShownText(folder));
  }

  std::optional<std::tm> LocalTime(std::int64_t modified) override {
    const __time64_t time = modified;
    const std::tm* local = ::_localtime64(&time);
    if (local == nullptr) return std::nullopt;
    return *local;
  }

  std::unique_ptr<FolderPass> OpenFolder(const std::string& folder) override {
    const QuietDrive quiet;
    std::optional<std::wstring> wide = ExactWideOf(folder);
    if (!wide || wide->empty()) return nullptr;
    if (wide->back() != L'\\') *wide += L'\\';
    const std::wstring pattern = *wide + L'*';
    WIN32_FIND_DATAW data = {};
    Unique<FindTraits> find{::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr,
                                               FIND_FIRST_EX_LARGE_FETCH)};
    // A root has no "." and "..": one that holds nothing answers "no file" although it can be read.
    if (!find && ::GetLastError() != ERROR_FILE_NOT_FOUND) return nullptr;
    return std::make_unique<RealFolderPass>(std::move(find), data, *std::move(wide));
  }

  std::optional<std::string> Read(const std::string& path, std::size_t limit) override {
    const QuietDrive quiet;
    constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Unique<FileTraits> file{::CreateFileW(WideOf(path).c_str(), GENERIC_READ, kShare, nullptr, OPEN_EXISTING,
                                                FILE_ATTRIBUTE_NORMAL, nullptr)};
    // A console or a pipe would keep the caller waiting for somebody to write into it.
    if (!file || ::GetFileType(file.Get()) != FILE_TYPE_DISK) return std::nullopt;
    return ReadStart(file.Get(), limit);
  }

  std::unique_ptr<TextWriter> CreateText(const std::string& path) override {
    const QuietDrive quiet;
    Unique<StreamTraits> stream{::_wfopen(WideOf(path).c_str(), L"wt")};
    if (!stream) return nullptr;
    return std::make_unique<RealTextWriter>(std::move(stream));
  }

  bool Remove(const std::string& path) override {
    const QuietDrive quiet;
    return ::DeleteFileW(WideOf(path).c_str()) != FALSE;
  }

  int Rename(const std::string& from, const std::string& to) override {
    const QuietDrive quiet;
    const int error = RenameOnce(from, to);
    return error == 0 && IsSpeltOtherwise(from, to) ? Respell(to, from, &RenameOnce, &WaitAMoment) : error;
  }

  std::uint32_t CreateFolder(const std::string& path) override {
    const QuietDrive quiet;
    return ::CreateDirectoryW(WideOf(path).c_str(), nullptr) != FALSE ? 0 : ::GetLastError();
  }

 private:
  [[nodiscard]] static int RenameOnce(const std::string& from, const std::string& to) {
    return ::_wrename(WideOf(from).c_str(), WideOf(to).c_str()) == 0 ? 0 : errno;
  }

  /// Whether the paths differ in letter case only and `to` still bears another name on the disk: there are systems that
  /// answer success to such a change and make none.
  [[nodiscard]] static bool IsSpeltOtherwise(const std::string& from, const std::string& to) {
    const std::optional<std::wstring> wideFrom = ExactWideOf(from);
    const std::optional<std::wstring> wideTo = ExactWideOf(to);
    if (!wideFrom || !wideTo) return false;
    if (::CompareStringOrdinal(wideFrom->c_str(), -1, wideTo->c_str(), -1, TRUE) != CSTR_EQUAL) return false;
    WIN32_FIND_DATAW data = {};
    const Unique<FindTraits> find{::FindFirstFileW(wideTo->c_str(), &data)};
    return find && !wideTo->ends_with(data.cFileName);
  }

  static void WaitAMoment() {
    constexpr DWORD kMomentMs = 20;
    ::Sleep(kMomentMs);
  }

  [[nodiscard]] static std::optional<std::string> ReadStart(HANDLE file, std::size_t limit) {
    std::string bytes;
    std::array<char, 16384> block;
    while (bytes.size() < limit) {
      DWORD read = 0;
      const DWORD wanted = Size(std::min(block.size(), limit - bytes.size()));
      if (::ReadFile(file, block.data(), wanted, &read, nullptr) == FALSE) return std::nullopt;
      bytes.append(block.data(), read);
      if (read < wanted) break;  // a file on a disk is at its end then
    }
    return bytes;
  }
};

// --------------------------------------------------------------------------------------------------------------
// registry

[[nodiscard]] RegistryType TypeOf(DWORD type) noexcept {
  return type <= REG_DWORD ? static_cast<RegistryType>(type) : RegistryType::Other;
}

class RealRegistryKey final : public RegistryKey {
 public:
  explicit RealRegistryKey(Unique<KeyTraits> key) : key_{std::move(key)} {}

  std::optional<RegistryValue> Query(const std::string& name, std::size_t limit, std::uint32_t* error) override {
    DWORD type = REG_NONE;
    // No character has less than one byte for each unit of its wide form.
    std::vector<BYTE> stored(sizeof(wchar_t) * (limit + 1));  // never empty, so that the call always gets a buffer
    DWORD size = Size(stored.size());
    LSTATUS status = ::RegQueryValueExW(key_.Get(), WideOf(name).c_str(), nullptr, &type, stored.data(), &size);
    std::string bytes;
    if (status == ERROR_SUCCESS) bytes = BytesOf(type, {reinterpret_cast<const char*>(stored.data()), size});
    if (status == ERROR_SUCCESS && bytes.size() > limit) status = ERROR_MORE_DATA;
    if (error != nullptr) *error = static_cast<std::uint32_t>(status);
    if (status != ERROR_SUCCESS) return std::nullopt;
    return RegistryValue{TypeOf(type), std::move(bytes)};
  }

  std::uint32_t Set(const std::string& name, RegistryType type, std::string_view bytes) override {
    const auto stored = static_cast<DWORD>(type);
    const std::wstring text = IsText(stored) ? StoredText(bytes) : std::wstring();
    const std::string_view kept =
        IsText(stored) ? std::string_view(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t))
                       : bytes;
    const std::vector<BYTE> data = WithoutTerminator(kept);
    return static_cast<std::uint32_t>(
        ::RegSetValueExW(key_.Get(), WideOf(name).c_str(), 0, stored, data.data(), Size(kept.size())));
  }

  std::optional<StoredValue> Copy(const std::string& name, std::uint32_t* error) override {
    const std::wstring wideName = WideOf(name);
    StoredValue value;
    DWORD type = REG_NONE;
    LSTATUS status = ERROR_MORE_DATA;
    while (status == ERROR_MORE_DATA) {  // once for the size, and again while somebody else makes it larger
      DWORD size = Size(value.bytes.size());
      status = ::RegQueryValueExW(key_.Get(), wideName.c_str(), nullptr, &type,
                                  reinterpret_cast<BYTE*>(value.bytes.data()), &size);
      value.bytes.resize(size);
    }
    if (error != nullptr) *error = static_cast<std::uint32_t>(status);
    if (status != ERROR_SUCCESS) return std::nullopt;
    value.type = type;
    value.size = value.bytes.size();
    value.bytes.append(sizeof(wchar_t), kNoTerminator);
    return value;
  }

  std::uint32_t PutBack(const std::string& name, const StoredValue& value) override {
    std::array<wchar_t, 256> room = {};
    const int units = ::MultiByteToWideChar(kShiftJis, 0, name.data(), static_cast<int>(name.size()), room.data(),
                                            static_cast<int>(room.size()) - 1);
    const std::wstring longName = units == 0 ? WideOf(name) : std::wstring{};
    return static_cast<std::uint32_t>(::RegSetValueExW(key_.Get(), units == 0 ? longName.c_str() : room.data(), 0,
                                                       value.type, reinterpret_cast<const BYTE*>(value.bytes.data()),
                                                       Size(value.size)));
  }

  std::uint32_t Delete(const std::string& name) override {
    return static_cast<std::uint32_t>(::RegDeleteValueW(key_.Get(), WideOf(name).c_str()));
  }

 private:
  static constexpr char kNoTerminator = 'x';

  [[nodiscard]] static bool IsText(DWORD type) noexcept {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
  }

  /// Half a character at a text's end is stored as a terminator.
  [[nodiscard]] static std::wstring StoredText(std::string_view sjis) {
    const auto isLead = [](char byte) { return ::IsDBCSLeadByteEx(kShiftJis, static_cast<BYTE>(byte)) != FALSE; };
    std::size_t at = 0;
    while (at + 1 < sjis.size()) at += isLead(sjis[at]) ? 2U : 1U;
    const bool endsInHalf = at < sjis.size() && isLead(sjis[at]);
    return endsInHalf ? WideOf(sjis.substr(0, at)) + L'\0' : WideOf(sjis);
  }

  /// What is stored, texts in Shift_JIS. Most of them are names, so what Shift_JIS lacks must not become a pattern.
  [[nodiscard]] static std::string BytesOf(DWORD type, std::string_view stored) {
    if (!IsText(type)) return std::string(stored);
    std::wstring text(stored.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), stored.data(), text.size() * sizeof(wchar_t));
    return SjisOf(text, kNoNameCharacter).bytes;
  }

  /// The bytes of a value with another character behind them: where the system finds a terminator behind the length
  /// that it is told, it makes the stored text one character longer, in 8-bit and in wide form.
  [[nodiscard]] static std::vector<BYTE> WithoutTerminator(std::string_view bytes) {
    std::vector<BYTE> data(bytes.begin(), bytes.end());
    data.insert(data.end(), sizeof(wchar_t), kNoTerminator);
    return data;
  }

  Unique<KeyTraits> key_;
};

[[nodiscard]] std::unique_ptr<RegistryKey> OwnKey(LSTATUS status, HKEY key, std::uint32_t* error) {
  Unique<KeyTraits> owned{status == ERROR_SUCCESS ? key : nullptr};
  if (error != nullptr) *error = static_cast<std::uint32_t>(status);
  if (!owned) return nullptr;
  return std::make_unique<RealRegistryKey>(std::move(owned));
}

class RealRegistry final : public Registry {
 public:
  std::unique_ptr<RegistryKey> Open(const std::string& key, std::uint32_t* error) override {
    HKEY opened = nullptr;
    const LSTATUS status = ::RegOpenKeyExW(HKEY_CURRENT_USER, WideOf(key).c_str(), 0, KEY_ALL_ACCESS, &opened);
    return OwnKey(status, opened, error);
  }

  std::unique_ptr<RegistryKey> Create(const std::string& key, std::uint32_t* error) override {
    HKEY opened = nullptr;
    const LSTATUS status = ::RegCreateKeyExW(HKEY_CURRENT_USER, WideOf(key).c_str(), 0, nullptr,
                                             REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &opened, nullptr);
    return OwnKey(status, opened, error);
  }
};

// ----------------------------------------------------------------------------------------------------------------
// drives

class RealDrives final : public Drives {
 public:
  std::uint32_t Mask() override { return ::GetLogicalDrives(); }

  DriveType Type(const std::string& root) override {
    const QuietDrive quiet;
    return static_cast<DriveType>(::GetDriveTypeW(WideOf(root).c_str()));
  }

  std::optional<std::string> VolumeName(const std::string& root) override {
    const QuietDrive quiet;
    std::array<wchar_t, MAX_PATH + 1> name = {};
    if (::GetVolumeInformationW(WideOf(root).c_str(), name.data(), Size(name.size()), nullptr, nullptr, nullptr,
                                nullptr, 0) == FALSE) {
      return std::nullopt;
    }
    return ShownText(name.data());
  }

  std::optional<DriveSpace> Space(const std::string& root) override {
    const QuietDrive quiet;
    ULARGE_INTEGER available = {};
    ULARGE_INTEGER total = {};
    if (::GetDiskFreeSpaceExW(WideOf(root).c_str(), &available, &total, nullptr) == FALSE) return std::nullopt;
    return DriveSpace{total.QuadPart, available.QuadPart};
  }
};

// -----------------------------------------------------------------------------------------------------------------
// shell

class RealShell final : public Shell {
 public:
  std::optional<std::string> DesktopFolder() override {
    const QuietDrive quiet;
    std::array<wchar_t, MAX_PATH> folder = {};
    if (::SHGetSpecialFolderPathW(nullptr, folder.data(), CSIDL_DESKTOPDIRECTORY, FALSE) == FALSE) return std::nullopt;
    return PathText(folder.data());
  }

  std::optional<std::string> ResolveLink(const std::string& linkPath) override {
    const QuietDrive quiet;
    const std::optional<std::wstring> wide = ExactWideOf(linkPath);
    if (!wide) return std::nullopt;
    const ComScope com;
    const Unique<ComTraits<IShellLinkW>> link{LoadLink(*wide)};
    if (!link) return std::nullopt;
    const std::wstring target = TargetOf(link.Get());
    return target.empty() ? std::nullopt : PathText(target);
  }

  DeleteOutcome DeleteToRecycleBin(WindowHandle owner, const std::string& list,
                                   const std::string& progressTitle) override {
    const QuietDrive quiet;
    if (list.empty() || list.front() == '\0') return {ERROR_FILE_NOT_FOUND, false};
    const std::wstring closed = WideOf(list) + std::wstring(2, L'\0');
    const std::wstring title = WideOf(progressTitle);
    SHFILEOPSTRUCTW operation = {};
    operation.hwnd = static_cast<HWND>(owner);
    operation.wFunc = FO_DELETE;
    operation.pFrom = closed.c_str();
    operation.fFlags = FOF_ALLOWUNDO;
    operation.lpszProgressTitle = title.c_str();
    const int result = ::SHFileOperationW(&operation);
    return {result, operation.fAnyOperationsAborted != FALSE};
  }

 private:
  /// Empty for none. The path in a link file may have been written in the code page of the system that made it, with
  /// "?" for what that lacks; the list of identifiers beside it has the names whole.
  [[nodiscard]] static std::wstring TargetOf(IShellLinkW* link) {
    std::array<wchar_t, MAX_PATH> path = {};
    if (FAILED(link->GetPath(path.data(), TextSize(path.size()), nullptr, 0))) return {};
    const std::wstring target = path.data();
    if (target.find(L'?') == std::wstring::npos) return target;
    PIDLIST_ABSOLUTE list = nullptr;
    if (FAILED(link->GetIDList(&list)) || list == nullptr) return target;
    const bool known = ::SHGetPathFromIDListW(list, path.data()) != FALSE;
    ::CoTaskMemFree(list);
    return known ? path.data() : target;
  }

  /// A link object that has read the file, or null. COM is in use while it lives.
  [[nodiscard]] static Unique<ComTraits<IShellLinkW>> LoadLink(const std::wstring& path) {
    void* object = nullptr;
    if (FAILED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &object))) return {};
    Unique<ComTraits<IShellLinkW>> link{static_cast<IShellLinkW*>(object)};
    void* loader = nullptr;
    if (FAILED(link.Get()->QueryInterface(IID_IPersistFile, &loader))) return {};
    const Unique<ComTraits<IPersistFile>> file{static_cast<IPersistFile*>(loader)};
    if (FAILED(file.Get()->Load(path.c_str(), STGM_READ))) return {};
    return link;
  }
};

// ---------------------------------------------------------------------------------------------------------------
// network

[[nodiscard]] std::optional<std::string> Copied(const wchar_t* text) {
  if (text == nullptr) return std::nullopt;
  return ShownText(text);
}

/// A name that something is opened by; none for one that Shift_JIS cannot hold, as another would be opened or nothing.
[[nodiscard]] std::optional<std::string> NameOf(const wchar_t* text) {
  if (text == nullptr) return std::nullopt;
  NarrowText name = SjisOf(text, kUnknown);
  return name.exact ? std::optional(std::move(name.bytes)) : std::nullopt;
}

/// The system finds a provider by itself where none is named.
[[nodiscard]] NetResource Copied(const NETRESOURCEW& record) {
  return {record.dwScope,
          record.dwType,
          record.dwDisplayType,
          record.dwUsage,
          NameOf(record.lpLocalName),
          NameOf(record.lpRemoteName),
          Copied(record.lpComment),
          NameOf(record.lpProvider)};
}

/// Whether the resource can be opened again by what is given for it: its name, or its provider where it has none.
[[nodiscard]] bool HasName(const NETRESOURCEW& record) {
  const wchar_t* const name = record.lpRemoteName != nullptr ? record.lpRemoteName : record.lpProvider;
  return name == nullptr || NameOf(name).has_value();
}

/// A record in the platform's form, with texts of its own because the platform asks for writable ones.
class NativeResource {
 public:
  explicit NativeResource(const NetResource& source)
      : localName_{Text(source.localName)},
        remoteName_{Text(source.remoteName)},
        comment_{Text(source.comment)},
        provider_{Text(source.provider)} {
    record_.dwScope = source.scope;
    record_.dwType = source.type;
    record_.dwDisplayType = source.displayType;
    record_.dwUsage = source.usage;
    record_.lpLocalName = Pointer(&localName_);
    record_.lpRemoteName = Pointer(&remoteName_);
    record_.lpComment = Pointer(&comment_);
    record_.lpProvider = Pointer(&provider_);
  }
  NativeResource(const NativeResource&) = delete;
  NativeResource& operator=(const NativeResource&) = delete;
  ~NativeResource() = default;

  [[nodiscard]] NETRESOURCEW* Get() noexcept { return &record_; }

 private:
  using WideText = std::optional<std::wstring>;

  [[nodiscard]] static WideText Text(const std::optional<std::string>& text) {
    return text ? WideText(WideOf(*text)) : std::nullopt;
  }
  [[nodiscard]] static wchar_t* Pointer(WideText* text) noexcept {
    return text->has_value() ? (*text)->data() : nullptr;
  }

  WideText localName_;
  WideText remoteName_;
  WideText comment_;
  WideText provider_;
  NETRESOURCEW record_ = {};
};

class RealNetPass final : public NetPass {
 public:
  explicit RealNetPass(Unique<NetTraits> enumeration) : enumeration_{std::move(enumeration)} {}

  bool Next(std::vector<NetResource>* records) override {
    const QuietDrive quiet;
    constexpr std::size_t kBufferSize = 16384;
    constexpr DWORD kAsManyAsFit = 0xFFFFFFFF;
    std::vector<NETRESOURCEW> buffer(kBufferSize / sizeof(NETRESOURCEW) + 1);
    std::memset(buffer.data(), 0, kBufferSize);
    DWORD count = kAsManyAsFit;
    DWORD size = kBufferSize;
    if (!enumeration_ || ::WNetEnumResourceW(enumeration_.Get(), &count, buffer.data(), &size) != NO_ERROR)
      return false;
    if (count == 0) return false;
    const std::size_t given = std::min<std::size_t>(count, kBufferSize / sizeof(NETRESOURCEW));
    for (std::size_t i = 0; i < given; ++i) {
      if (HasName(buffer[i])) records->push_back(Copied(buffer[i]));
    }
    return true;
  }

  bool Close() override {
    const QuietDrive quiet;
    return enumeration_ && ::WNetCloseEnum(enumeration_.Release()) == NO_ERROR;
  }

 private:
  Unique<NetTraits> enumeration_;
};

class RealNetwork final : public Network {
 public:
  bool Present() override { return (::GetSystemMetrics(SM_NETWORK) & 1) != 0; }

  bool RemoteSession() override { return ::GetSystemMetrics(SM_REMOTESESSION) != 0; }

  std::optional<std::string> TerminalProvider() override {
    const QuietDrive quiet;
    std::array<wchar_t, 512> name = {};
    DWORD size = Size(name.size());
    if (::WNetGetProviderNameW(WNNC_NET_TERMSRV, name.data(), &size) != NO_ERROR) return std::nullopt;
    return NameOf(name.data());
  }

  std::unique_ptr<NetPass> Open(std::uint32_t scope, const NetResource* parent, std::uint32_t* error) override {
    const QuietDrive quiet;
    std::optional<NativeResource> native;
    if (parent != nullptr) native.emplace(*parent);
    HANDLE opened = nullptr;
    const DWORD status = ::WNetOpenEnumW(scope, RESOURCETYPE_DISK, 0, native ? native->Get() : nullptr, &opened);
    if (error != nullptr) *error = status;
    Unique<NetTraits> enumeration{status == NO_ERROR ? opened : nullptr};
    if (!enumeration) return nullptr;
    return std::make_unique<RealNetPass>(std::move(enumeration));
  }

  std::optional<std::string> UniversalName(const std::string& root) override {
    const QuietDrive quiet;
    constexpr std::size_t kBytes = 512;  // of the 8-bit form, its structure included
    union {
      UNIVERSAL_NAME_INFOW info;
      std::array<wchar_t, kBytes> units;
    } buffer = {};
    DWORD size = Size(sizeof buffer.units);
    if (::WNetGetUniversalNameW(WideOf(root).c_str(), UNIVERSAL_NAME_INFO_LEVEL, &buffer, &size) != NO_ERROR) {
      return std::nullopt;
    }
    std::optional<std::string> name = NameOf(buffer.info.lpUniversalName);
    if (name && name->size() + sizeof buffer.info >= kBytes) return std::nullopt;
    return name;
  }

  std::uint32_t Connect(const NetResource& resource, const std::string& password,
                        const std::string& userName) override {
    const QuietDrive quiet;
    if (!resource.remoteName) return ERROR_BAD_NET_NAME;
    // An empty local name means the same as none, but not every system takes none.
    NetResource place = resource;
    if (!place.localName) place.localName.emplace();
    NativeResource native{place};
    return ::WNetAddConnection2W(native.Get(), WideOf(password).c_str(), WideOf(userName).c_str(),
                                 CONNECT_UPDATE_PROFILE);
  }
};

// --------------------------------------------------------------------------------------------------- clipboard and
// sundry

class RealClipboard final : public Clipboard {
 public:
  std::uint32_t Sequence() override { return ::GetClipboardSequenceNumber(); }

  bool CanOpen(WindowHandle owner) override { return static_cast<bool>(OpenedClipboard{owner}); }

  std::optional<std::string> Text(WindowHandle owner) override {
    const OpenedClipboard clipboard{owner};
    if (!clipboard) return std::nullopt;
    // The system makes the 8-bit form with the code page of whatever keyboard layout was in use when the text was
    // copied.
    HGLOBAL memory = ::GetClipboardData(CF_UNICODETEXT);  // stays the clipboard's
    if (memory == nullptr) return std::nullopt;
    const LockedMemory locked{memory};
    std::wstring wide(locked.Bytes().size() / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), locked.Bytes().data(), wide.size() * sizeof(wchar_t));
    return ShownText(std::wstring_view{wide}.substr(0, wide.find(L'\0')));
  }
};

class RealSession final : public Session {
 public:
  void Beep(std::uint32_t code) override { ::MessageBeep(code); }

  std::optional<std::string> Variable(const std::string& name) override {
    const std::optional<std::wstring> wideName = ExactWideOf(name);
    if (!wideName) return std::nullopt;
    std::wstring value(256, L'\0');
    for (;;) {
      ::SetLastError(ERROR_SUCCESS);
      const DWORD length = ::GetEnvironmentVariableW(wideName->c_str(), value.data(), Size(value.size()));
      if (length == 0 && ::GetLastError() != ERROR_SUCCESS) return std::nullopt;
      const bool whole = length < value.size();
      value.resize(length);
      if (whole) return ShownText(value);
    }
  }

  /// The text as it is shown behind others: without the line break that the system closes it with.
  std::string ErrorText(std::uint32_t error) override {
    std::array<wchar_t, 1024> text = {};
    const DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                          text.data(), Size(text.size()), nullptr);
    const std::wstring_view whole{text.data(), length};
    return ShownText(whole.substr(0, whole.find_last_not_of(L"\r\n ") + 1));
  }
};

}  // namespace

const ServiceTable& Services() {
  static RealFiles files;
  static RealRegistry registry;
  static RealDrives drives;
  static RealShell shell;
  static RealNetwork network;
  static RealClipboard clipboard;
  static RealSession session;
  static const ServiceTable table = {&files, &registry, &drives, &shell, &network, &clipboard, &session};
  return table;
}

std::int64_t WaitClockMs() { return static_cast<std::int64_t>(::GetTickCount64()); }

}  // namespace os
