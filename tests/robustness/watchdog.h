// Ends a test program that hangs, with the chain of callers of the thread that does.
#pragma once

namespace robustness {

/// To be called by the thread that runs the dialogs, at least every kLongestSilence; the first call starts the watch.
/// After a longer silence the program prints where the thread is and ends with kHangExitCode.
void NoteProgress();

inline constexpr unsigned kHangExitCode = 98;
inline constexpr unsigned kLongestSilence = 60'000;  ///< milliseconds

}  // namespace robustness
