// A program that loads the library while it runs, lets its user browse, and goes its way while a call of his still
// hangs.
//
//   slow_client ends|unloads <path of the DLL> <folder of models> <file that keeps the device from answering>
//
// `ends`: it ends at once. `unloads`: it lets the library go, lets the device answer, waits until the library has gone,
// and loads it once more for its user. The exit code is 0 when all went as it should.
#include <windows.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "dlglib/dlglib_c_names.h"

namespace {

constexpr char kKind[] = "#SLOW#";
constexpr char kCaption[] = "図面を開く";
constexpr wchar_t kLibraryName[] = L"crvndlglib.dll";
constexpr wchar_t kSuiteName[] = L"crvnsuite.dll";
constexpr ULONGLONG kLongestMs = 30'000;

int failures = 0;

void Check(bool holds, const char* what) {
  if (holds) return;
  ++failures;
  std::fprintf(stderr, "slow_client: not so: %s\n", what);
}

bool IsLoaded(const wchar_t* name) { return ::GetModuleHandleW(name) != nullptr; }

/// The library as long as it is used.
class Library {
 public:
  explicit Library(const char* path) : module_(::LoadLibraryA(path)) { Check(module_ != nullptr, "the DLL is loaded"); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  ~Library() {
    if (module_ != nullptr) ::FreeLibrary(module_);
  }

  /// The dialog, which its user cancels.
  void Browse(const char* folder) const {
    if (module_ == nullptr) return;
    const auto define = Find<DlglibDefineKindSjisFunction>("DlglibDefineKindSjis");
    const auto create = Find<DlglibFileRequestCreateFunction>("DlglibFileRequestCreate");
    const auto setKind = Find<DlglibFileRequestSetKindSjisFunction>("DlglibFileRequestSetKindSjis");
    const auto setCaption = Find<DlglibFileRequestSetCaptionSjisFunction>("DlglibFileRequestSetCaptionSjis");
    const auto run = Find<DlglibFileRequestRunFunction>("DlglibFileRequestRun");
    const auto destroy = Find<DlglibFileRequestDestroyFunction>("DlglibFileRequestDestroy");
    DlglibFileRequest request = nullptr;
    Check(define(kKind, folder, "*.MDL") == DLGLIB_OK, "the kind is known");
    Check(create(&request) == DLGLIB_OK, "there is a request");
    Check(setKind(request, kKind) == DLGLIB_OK && setCaption(request, kCaption) == DLGLIB_OK, "it asks for the kind");
    Check(run(request) == DLGLIB_CANCELLED, "the user cancels");
    Check(destroy(request) == DLGLIB_OK, "the request goes");
  }

 private:
  template <class Function>
  [[nodiscard]] Function Find(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module_, name)));
  }

  HMODULE module_;
};

/// Until the library is no part of this process any more. The suite, which it loads when it needs it, stays.
bool HasGone() {
  const ULONGLONG begun = ::GetTickCount64();
  while (IsLoaded(kLibraryName)) {
    if (::GetTickCount64() - begun > kLongestMs) return false;
    ::Sleep(1);
  }
  return true;
}

void LoadAndUnload(const char* path, const char* folder, const char* hang) {
  {
    const Library library(path);
    library.Browse(folder);
  }
  Check(IsLoaded(kLibraryName) && IsLoaded(kSuiteName), "both DLLs stay for the call that hangs in them");
  Check(::DeleteFileA(hang) != FALSE, "the device answers from now on");
  Check(HasGone(), "the library goes when it has ended");
  const Library again(path);
  again.Browse(folder);
}

}  // namespace

int main(int count, char** arguments) {
  constexpr int kArguments = 5;
  if (count != kArguments) return 2;
  const std::string_view way = arguments[1];
  if (way == "unloads") {
    LoadAndUnload(arguments[2], arguments[3], arguments[4]);
    return failures == 0 ? 0 : 1;
  }
  const Library library(arguments[2]);
  library.Browse(arguments[3]);
  std::exit(failures == 0 ? 0 : 1);  // with the library in place
}
