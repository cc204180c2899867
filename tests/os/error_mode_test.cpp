// While a service reaches a disk, the shell or a share, the system asks the thread for nothing; afterwards the thread
// is as before.
#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/os/os.h"
#include "platform/os/sjis_wide.h"
#include "tests/os/box_answer.h"
#include "tests/os/call_watch.h"
#include "tests/os/contract_world.h"

namespace {

using os_test::CallWatch;
using os_test::DriveCalls;

constexpr DWORD kQuiet = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;

struct Operation {
  const char* name;
  const char* call;  ///< a function of the system that it is known to call
  std::function<void()> run;
};

/// Whatever its calls answer is another test's business.
template <class Result>
void Drop(Result&&) {}

class ErrorModeTest : public testing::Test {
 protected:
  ErrorModeTest() {
    Drop(Write(folder_ + "\\file"));
    Drop(Write(folder_ + "\\plain.lnk"));
  }
  ~ErrorModeTest() override {
    for (const char* name : {"\\file", "\\plain.lnk", "\\written", "\\dropped", "\\renamed", "\\RENAMED"}) {
      ::DeleteFileW(os::WideOf(folder_ + name).c_str());
    }
    ::RemoveDirectoryW(os::WideOf(folder_ + "\\new").c_str());
    ::SetThreadErrorMode(former_, nullptr);
  }

  [[nodiscard]] bool Write(const std::string& path) {
    const std::unique_ptr<os::TextWriter> writer = files_.CreateText(path);
    return writer != nullptr && writer->Write("text\n") && writer->Close();
  }
  void List(const std::string& folder) {
    const std::unique_ptr<os::FolderPass> pass = files_.OpenFolder(folder);
    os::FoundName found;
    while (pass != nullptr && pass->Next(&found)) continue;
  }
  [[nodiscard]] std::vector<Operation> FileOperations() {
    const std::string file = folder_ + "\\file";
    return {{"Exists", "_waccess", [=, this] { Drop(files_.Exists(file)); }},
            {"Exists, of nothing", "_waccess", [this] { Drop(files_.Exists("Q:\\x")); }},
            {"Status", "_wstat64", [=, this] { Drop(files_.Status(file)); }},
            {"Attributes", "GetFileAttributesW", [=, this] { Drop(files_.Attributes(file)); }},
            {"OpenFolder", "FindFirstFileExW", [this] { Drop(files_.OpenFolder("Q:\\")); }},
            {"Next", "FindNextFileW", [this] { List(folder_); }},
            {"Read", "ReadFile", [=, this] { Drop(files_.Read(file, 10)); }},
            {"CreateText, Write and Close", "_wfopen", [this] { Drop(Write(folder_ + "\\written")); }},
            {"CreateText, of nothing", "_wfopen", [this] { Drop(Write("Q:\\written")); }},
            {"a writer that is dropped", "fclose",
             [this] {
               const std::unique_ptr<os::TextWriter> writer = files_.CreateText(folder_ + "\\dropped");
               Drop(writer->Write("text"));
             }},
            {"Remove", "DeleteFileW", [this] { Drop(files_.Remove(folder_ + "\\missing")); }},
            {"Rename", "_wrename", [=, this] { Drop(files_.Rename(file, folder_ + "\\renamed")); }},
            {"Rename, of letter case", "FindFirstFileW",
             [this] { Drop(files_.Rename(folder_ + "\\renamed", folder_ + "\\RENAMED")); }},
            {"CreateFolder", "CreateDirectoryW", [this] { Drop(files_.CreateFolder(folder_ + "\\new")); }}};
  }
  [[nodiscard]] std::vector<Operation> OtherOperations() {
    os::Drives& drives = *os::Services().drives;
    os::Shell& shell = *os::Services().shell;
    os::Network& network = *os::Services().network;
    os::NetResource place;
    place.remoteName = "\\\\no-such-server\\no-such-share";
    return {
        {"Type", "GetDriveTypeW", [&] { Drop(drives.Type("L:\\")); }},
        {"VolumeName", "GetVolumeInformationW", [&] { Drop(drives.VolumeName("L:\\")); }},
        {"Space", "GetDiskFreeSpaceExW", [&] { Drop(drives.Space("L:\\")); }},
        {"DesktopFolder", "SHGetSpecialFolderPathW", [&] { Drop(shell.DesktopFolder()); }},
        {"ResolveLink", "CoCreateInstance", [&] { Drop(shell.ResolveLink(folder_ + "\\plain.lnk")); }},
        {"DeleteToRecycleBin", "SHFileOperationW",
         [&] {
           const os_test::BoxAnswer no(IDNO);
           Drop(shell.DeleteToRecycleBin(nullptr, folder_ + "\\plain.lnk" + std::string(2, '\0'), "削除"));
         }},
        {"Open, of the network", "WNetOpenEnumW", [&] { Drop(network.Open(os::kNetScopeGlobal, nullptr, nullptr)); }},
        {"UniversalName", "WNetGetUniversalNameW", [&] { Drop(network.UniversalName("L:\\")); }},
        {"Connect", "WNetAddConnection2W", [&, place] { Drop(network.Connect(place, "", "user")); }}};
  }

  /// Runs it in a mode of the thread and looks which modes its calls have seen.
  static void ExpectQuiet(const Operation& operation, DWORD mode) {
    SCOPED_TRACE(operation.name);
    ::SetThreadErrorMode(mode, nullptr);
    std::string loud;
    os_test::WatchedCalls all;
    unsigned count = 0;
    {
      const CallWatch watch(DriveCalls());
      operation.run();
      loud = watch.CalledWithout(kQuiet | mode);
      all = watch.All();
      count = watch.Calls(operation.call).count;
    }
    EXPECT_EQ(::GetThreadErrorMode(), mode);
    EXPECT_GT(count, 0U) << operation.call << " was not seen";
    EXPECT_EQ(loud, "");
    EXPECT_EQ(all.ever, kQuiet | mode);
  }

  DWORD former_ = ::GetThreadErrorMode();
  ContractWorld world_;
  std::string folder_ = world_.Folder();
  os::Files& files_ = *os::Services().files;
};

TEST_F(ErrorModeTest, NoCallLetsTheSystemAskForADisk) {
  for (const DWORD mode : {DWORD{0}, DWORD{SEM_NOGPFAULTERRORBOX}, DWORD{SEM_FAILCRITICALERRORS}, kQuiet}) {
    for (const Operation& operation : FileOperations()) ExpectQuiet(operation, mode);
    for (const Operation& operation : OtherOperations()) ExpectQuiet(operation, mode);
    ::DeleteFileW(os::WideOf(folder_ + "\\RENAMED").c_str());
    ASSERT_TRUE(Write(folder_ + "\\file"));
  }
}

TEST_F(ErrorModeTest, TheModeOfTheProcessStays) {
  const UINT process = ::GetErrorMode();
  const CallWatch watch({"SetErrorMode"});
  for (const Operation& operation : FileOperations()) operation.run();
  for (const Operation& operation : OtherOperations()) operation.run();
  EXPECT_EQ(watch.All().count, 0U);
  EXPECT_EQ(::GetErrorMode(), process);
}

TEST_F(ErrorModeTest, ThereIsNothingQuietBetweenTwoCalls) {
  ::SetThreadErrorMode(0, nullptr);
  const std::unique_ptr<os::FolderPass> pass = files_.OpenFolder(folder_);
  const std::unique_ptr<os::TextWriter> writer = files_.CreateText(folder_ + "\\written");
  EXPECT_EQ(::GetThreadErrorMode(), 0U);
  os::FoundName found;
  EXPECT_TRUE(pass->Next(&found));
  EXPECT_TRUE(writer->Write("text"));
  EXPECT_EQ(::GetThreadErrorMode(), 0U);
}

}  // namespace
