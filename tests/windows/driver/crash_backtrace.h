#pragma once

namespace driver {

/// Exit code of a program that crashed after InstallCrashBacktrace.
inline constexpr unsigned kCrashExitCode = 99;

/// From now on a crash prints the code, the failing address and the chain of callers to stderr and ends the program
/// with kCrashExitCode; no dialog appears. The addresses are offsets into the named module, as addr2line takes them
/// after the module's preferred base has been added (printed too).
void InstallCrashBacktrace();

/// Prints the chain of callers of an exception (EXCEPTION_POINTERS) in the same form, below `title`.
void PrintBacktraceOf(const void* exception, const char* title);

/// Stops another thread of this process for good and prints its chain of callers in the same form, below `title`.
void PrintBacktrace(void* thread, const char* title);

}  // namespace driver
