// A device that does not answer, for a program under Wine: preloaded into it (LD_PRELOAD), this holds the system's
// calls that name a path below a folder "slow-device", where Wine makes them in the program's own process. Only the
// thread that calls waits.
//
// Calls hang as long as a file "hang" lies beside that folder. Each one that hangs keeps a file "hanging.<thread>"
// there meanwhile, so that the program sees it. Wine's server, which a program may start, is left alone.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <ctime>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kFolder = "/slow-device/";
constexpr long kLookEveryNs = 1'000'000;
constexpr mode_t kMarkMode = 0600;

bool IsServer() {
  std::array<char, PATH_MAX> program = {};
  const ssize_t length = ::readlink("/proc/self/exe", program.data(), program.size());
  const std::string_view path(program.data(), length < 0 ? 0 : static_cast<std::size_t>(length));
  return path.find("wineserver") != std::string_view::npos;
}

/// What lies beside the slow folder. The kernel is called, as the library's functions are those below.
class Beside {
 public:
  explicit Beside(std::string_view parent) : parent_(parent) {}

  [[nodiscard]] bool IsSwitchedOn() const {
    return ::syscall(SYS_faccessat, AT_FDCWD, (parent_ + "/hang").c_str(), F_OK) == 0;
  }
  void Wait() const {
    const std::string mark = parent_ + "/hanging." + std::to_string(::syscall(SYS_gettid));
    const long file = ::syscall(SYS_openat, AT_FDCWD, mark.c_str(), O_CREAT | O_WRONLY, kMarkMode);
    if (file >= 0) ::syscall(SYS_close, file);
    while (IsSwitchedOn()) {
      const timespec look{0, kLookEveryNs};
      ::nanosleep(&look, nullptr);
    }
    ::syscall(SYS_unlinkat, AT_FDCWD, mark.c_str(), 0);
  }

 private:
  std::string parent_;
};

/// Before each call.
void Hang(const char* path) {
  static const bool isServer = IsServer();
  if (isServer || path == nullptr) return;
  const std::string_view whole(path);
  const std::size_t at = whole.find(kFolder);
  if (at == std::string_view::npos) return;
  const int error = errno;
  const Beside beside(whole.substr(0, at));
  if (beside.IsSwitchedOn()) beside.Wait();
  errno = error;
}

/// The library's own function of that name.
template <class Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

struct __dirstream;

extern "C" {

/// The mode is there only for a file that is made; taken up in any case, it is not looked at.
int open(const char* path, int flags, ...) {
  static auto* const next = Next<int(const char*, int, mode_t)>("open");
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = va_arg(rest, mode_t);
  va_end(rest);
  Hang(path);
  return next(path, flags, mode);
}

int stat(const char* path, struct stat* status) {
  static auto* const next = Next<int(const char*, struct stat*)>("stat");
  Hang(path);
  return next(path, status);
}

int lstat(const char* path, struct stat* status) {
  static auto* const next = Next<int(const char*, struct stat*)>("lstat");
  Hang(path);
  return next(path, status);
}

int access(const char* path, int mode) {
  static auto* const next = Next<int(const char*, int)>("access");
  Hang(path);
  return next(path, mode);
}

struct __dirstream* opendir(const char* path) {
  static auto* const next = Next<struct __dirstream*(const char*)>("opendir");
  Hang(path);
  return next(path);
}

int chdir(const char* path) {
  static auto* const next = Next<int(const char*)>("chdir");
  Hang(path);
  return next(path);
}

int mkdir(const char* path, mode_t mode) {
  static auto* const next = Next<int(const char*, mode_t)>("mkdir");
  Hang(path);
  return next(path, mode);
}

}  // extern "C"
