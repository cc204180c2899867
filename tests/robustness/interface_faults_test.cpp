// Memory is refused to the DLLs as they are shipped, while each function of their interface runs: the first request,
// the second, and so on; then the first and all behind it, the second and all behind it, and so on. Nothing may leave
// the function but its answer: the right one, or the one that it gives without memory.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include "dlglib/dlglib.h"
#include "platform/suite/crvncontrol.h"
#include "tests/robustness/interface_calls.h"
#include "tests/robustness/runs_long.h"
#include "tests/robustness/watchdog.h"
#include "tests/windows/support/temporary_folder.h"

namespace robustness {

namespace {

constexpr std::size_t kDialogSample = 3;  ///< requests refused of each dialog, in either way, in a short run
constexpr char kKey[] = "Software\\CorvaneInterfaceFaults";
constexpr char kSession[] =
    "[kinds]\n#CAPITAL LETTERS = C:/ | *.* | 0 | upper | x\n"
    "[messages]\n1 = a message of the suite, which is rather long\nno line of a session file, and rather long\n";
HKEY ownRegistry = nullptr;

constexpr char kFolder[] = "interface";
std::unique_ptr<const TemporaryFolder> ownFolder;

}  // namespace

Plan& ThePlan() {
  static Plan plan;
  return plan;
}

const std::string& CallGround::Folder() {
  static const std::string folder = TemporaryFolder::PathOf(kFolder);
  return folder;
}

CallGround::CallGround() {
  ownFolder = std::make_unique<const TemporaryFolder>(kFolder);
  for (const char* name : {"a.mdl", "b.mdl"}) ownFolder->Write(name, "CORVANE MODEL 1\nEND\n");
  ownFolder->Write("session.ini", kSession);
  ::RegCreateKeyA(HKEY_CURRENT_USER, kKey, &ownRegistry);
  ::RegOverridePredefKey(HKEY_CURRENT_USER, ownRegistry);
  Restore();
}

CallGround::~CallGround() {
  ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
  ::RegCloseKey(ownRegistry);
  ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey);
  ownFolder.reset();
}

void CallGround::Restore() {
  CwSession::Reset();
  CwSession::LoadFile(Folder() + "\\session.ini");
  CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#MODEL#", Folder(), "*.MDL", 0));
}

namespace {

/// The answer of one call, with what the plan refuses.
std::string Answer(const InterfaceCall& call, Refused which, std::size_t number) {
  NoteProgress();
  CallGround::Restore();
  ThePlan().which = which;
  ThePlan().number = number;
  try {
    return call.run();
  } catch (const std::exception& thrown) {
    return std::string("thrown: ") + thrown.what();
  }
}

bool IsFailure(const InterfaceCall& call, const std::string& answer) {
  return std::find(call.failure.begin(), call.failure.end(), answer) != call.failure.end();
}

class InterfaceFaults : public testing::TestWithParam<InterfaceCall> {
 protected:
  static void SetUpTestSuite() { ground_ = std::make_unique<CallGround>(); }
  static void TearDownTestSuite() { ground_.reset(); }
  ~InterfaceFaults() override { ThePlan() = {}; }

  void ExpectAnswer(const std::string& answer, const std::string& right) {
    EXPECT_TRUE(answer == right || IsFailure(GetParam(), answer)) << '"' << answer << "\", not \"" << right << '"';
  }

 private:
  static inline std::unique_ptr<CallGround> ground_;
};

/// The first run is the one whose first request is refused: what a process makes at the first use is refused too.
TEST_P(InterfaceFaults, NothingButAnAnswerLeavesTheFunction) {
  const InterfaceCall& call = GetParam();
  const std::string early = Answer(call, Refused::One, 1);
  const std::string right = Answer(call, Refused::One, 0);
  const std::size_t requests = ThePlan().counted;
  ExpectAnswer(early, right);
  const std::size_t step = call.runsDialog && !RunsLong() ? 1 + requests / kDialogSample : 1;
  for (const Refused which : {Refused::One, Refused::AllFrom}) {
    for (std::size_t n = 1; n <= requests; n += step) {
      SCOPED_TRACE((which == Refused::One ? "request " : "all from request ") + std::to_string(n));
      ExpectAnswer(Answer(call, which, n), right);
      if (HasFailure()) return;
    }
  }
  ThePlan().stillborn = true;
  SCOPED_TRACE("an object that got no memory when it was constructed");
  ExpectAnswer(Answer(call, Refused::One, 0), right);
  ThePlan().stillborn = false;
  EXPECT_EQ(Answer(call, Refused::One, 0), right) << "the run after all";
  std::cout << requests << " requests for memory\n";
}

std::string NameOf(const testing::TestParamInfo<InterfaceCall>& info) {
  std::string name = info.param.name.substr(0, info.param.name.find('('));
  std::replace_if(
      name.begin(), name.end(), [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) == 0; }, '_');
  return name + '_' + std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(Request, InterfaceFaults, testing::ValuesIn(RequestCalls()), NameOf);
INSTANTIATE_TEST_SUITE_P(Utility, InterfaceFaults, testing::ValuesIn(UtilityCalls()), NameOf);
INSTANTIATE_TEST_SUITE_P(UtilityLists, InterfaceFaults, testing::ValuesIn(UtilityListCalls()), NameOf);
INSTANTIATE_TEST_SUITE_P(Grid, InterfaceFaults, testing::ValuesIn(GridCalls()), NameOf);
INSTANTIATE_TEST_SUITE_P(C, InterfaceFaults, testing::ValuesIn(CCalls()), NameOf);
INSTANTIATE_TEST_SUITE_P(CGrid, InterfaceFaults, testing::ValuesIn(CGridCalls()), NameOf);

}  // namespace
}  // namespace robustness
