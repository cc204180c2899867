#include "tests/windows/driver/crash_backtrace.h"

#include <windows.h>

#include <cstdio>

namespace driver {
namespace {

constexpr int kMaxFrames = 40;

/// The base address that the linker gave the module, read from its headers in memory.
DWORD64 PreferredBase(HMODULE module) {
  const auto* start = reinterpret_cast<const unsigned char*>(module);
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(start);
  return reinterpret_cast<const IMAGE_NT_HEADERS64*>(start + dos->e_lfanew)->OptionalHeader.ImageBase;
}

void PrintFrame(DWORD64 address) {
  HMODULE module = nullptr;
  char name[MAX_PATH] = "?";
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCSTR>(address), &module);
  if (module == nullptr) {
    std::fprintf(stderr, "  0x%llx\n", address);
    return;
  }
  GetModuleFileNameA(module, name, sizeof name);
  const DWORD64 offset = address - reinterpret_cast<DWORD64>(module);
  std::fprintf(stderr, "  %s+0x%llx (addr2line 0x%llx)\n", name, offset, PreferredBase(module) + offset);
}

/// Goes to the caller; a leaf function has no table entry and its return address lies on top of the stack.
void StepOut(CONTEXT* context) {
  DWORD64 base = 0;
  PRUNTIME_FUNCTION function = RtlLookupFunctionEntry(context->Rip, &base, nullptr);
  if (function == nullptr) {
    context->Rip = *reinterpret_cast<const DWORD64*>(context->Rsp);
    context->Rsp += sizeof(DWORD64);
    return;
  }
  void* handlerData = nullptr;
  DWORD64 frame = 0;
  RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context->Rip, function, context, &handlerData, &frame, nullptr);
}

void PrintCallers(CONTEXT context) {
  for (int frame = 0; frame < kMaxFrames && context.Rip != 0; ++frame) {
    PrintFrame(context.Rip);
    StepOut(&context);
  }
  std::fflush(stderr);
}

bool IsCrash(DWORD code) {
  switch (code) {
    case EXCEPTION_ACCESS_VIOLATION:
    case EXCEPTION_ILLEGAL_INSTRUCTION:
    case EXCEPTION_PRIV_INSTRUCTION:
    case EXCEPTION_STACK_OVERFLOW:
    case EXCEPTION_INT_DIVIDE_BY_ZERO:
    case STATUS_HEAP_CORRUPTION:
    case STATUS_STACK_BUFFER_OVERRUN:
      return true;
    default:
      return false;
  }
}

LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
  const DWORD code = exception->ExceptionRecord->ExceptionCode;
  if (!IsCrash(code)) return EXCEPTION_CONTINUE_SEARCH;
  std::fflush(stdout);
  std::fprintf(stderr, "crash: exception 0x%08lx at %p\n", code, exception->ExceptionRecord->ExceptionAddress);
  PrintCallers(*exception->ContextRecord);
  TerminateProcess(GetCurrentProcess(), kCrashExitCode);
  return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

void InstallCrashBacktrace() {
  SetErrorMode(SEM_NOGPFAULTERRORBOX | SEM_FAILCRITICALERRORS);
  SetUnhandledExceptionFilter(OnException);
}

void PrintBacktraceOf(const void* exception, const char* title) {
  std::fprintf(stderr, "%s\n", title);
  PrintCallers(*static_cast<const EXCEPTION_POINTERS*>(exception)->ContextRecord);
}

void PrintBacktrace(void* thread, const char* title) {
  SuspendThread(thread);
  CONTEXT context{};
  context.ContextFlags = CONTEXT_FULL;
  GetThreadContext(thread, &context);
  std::fprintf(stderr, "%s\n", title);
  PrintCallers(context);
}

}  // namespace driver
