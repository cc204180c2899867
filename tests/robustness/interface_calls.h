// Every function of the three exported classes and of the C interface, called once each, with what it answers when all
// goes well and when memory is refused.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tests/robustness/dll_memory.h"

namespace robustness {

/// What is refused in the next call.
struct Plan {
  Refused which = Refused::One;
  std::size_t number = 0;  ///< of the request; 0 for none
  bool stillborn = false;  ///< the object got no memory when it was constructed
  std::size_t counted = 0;
};
[[nodiscard]] Plan& ThePlan();

/// Runs the function under test, and nothing else, with what is to be refused.
template <class Work>
auto Under(const Work& work) {
  struct End {
    ~End() { ThePlan().counted = StopRefusing(); }
  };
  RefuseMemory(ThePlan().which, ThePlan().number);
  const End end;
  return work();
}

/// Constructs an object that gets no memory, if that is the plan.
template <class Make>
auto Born(const Make& make) {
  if (ThePlan().stillborn) RefuseMemory(Refused::AllFrom, 1);
  auto made = make();
  StopRefusing();
  return made;
}

struct InterfaceCall {
  std::string name;                  ///< as its exported symbol reads
  std::vector<std::string> failure;  ///< what `run` answers without memory; any of these
  std::function<std::string()>
      run;                  ///< makes all that the function needs, calls it within Under, tells what came of it
  bool runsDialog = false;  ///< too slow to refuse each request
};

[[nodiscard]] std::vector<InterfaceCall> RequestCalls();
[[nodiscard]] std::vector<InterfaceCall> UtilityCalls();
[[nodiscard]] std::vector<InterfaceCall> UtilityListCalls();
[[nodiscard]] std::vector<InterfaceCall> GridCalls();
[[nodiscard]] std::vector<InterfaceCall> CCalls();
[[nodiscard]] std::vector<InterfaceCall> CGridCalls();

/// The folder of the calls: real files, a registry of their own, the suite's kinds.
class CallGround {
 public:
  CallGround();
  CallGround(const CallGround&) = delete;
  CallGround& operator=(const CallGround&) = delete;
  ~CallGround();

  /// Real form, without a separator at its end.
  [[nodiscard]] static const std::string& Folder();
  /// Files and lists as they were at first.
  static void Restore();
};

}  // namespace robustness
