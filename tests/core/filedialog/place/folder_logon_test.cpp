#include "dlglib/filedialog/place/folder_logon.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "platform/os/os_scripted.h"

namespace {

using os::scripted::World;

constexpr char kFolder[] = "\\\\SERVER\\share";

/// Answers as told, then cancels.
class ScriptedLogon final : public filedialog::NetworkLogon {
 public:
  struct Answer {
    std::string userName;
    std::string password;
  };

  bool Ask(const std::string& path, std::string* userName, std::string* password) override {
    paths.push_back(path);
    if (answers.empty()) return false;
    *userName = answers.front().userName;
    *password = answers.front().password;
    answers.pop_front();
    return true;
  }

  std::deque<Answer> answers;
  std::vector<std::string> paths;
};

class FolderLogon : public testing::Test {
 protected:
  FolderLogon() {
    World().Reset();
    share_.remoteName = kFolder;
    share_.displayType = os::kNetDisplayShare;
  }
  ~FolderLogon() override { World().Reset(); }

  void LogOn(std::string_view folder = kFolder) { filedialog::LogOnBeforeListing(folder, &share_, logon_); }
  [[nodiscard]] static auto& Connections() { return World().network.connections; }

  os::NetResource share_;
  ScriptedLogon logon_;
};

TEST_F(FolderLogon, AsksUntilTheConnectionIsMade) {
  World().network.connectResults = {86, 1326, 0};
  logon_.answers = {{"taro", "a"}, {"taro", "b"}, {"taro", "表"}, {"never", "asked"}};
  LogOn();
  EXPECT_EQ(logon_.paths, std::vector<std::string>(3, kFolder));
  ASSERT_EQ(Connections().size(), 3U);
  EXPECT_EQ(Connections()[2].resource.remoteName, kFolder);
  EXPECT_EQ(Connections()[2].userName, "taro");
  EXPECT_EQ(Connections()[2].password, "表");
}

TEST_F(FolderLogon, CancellingEndsIt) {
  World().network.connectResults = {86, 86, 86};
  logon_.answers = {{"taro", "a"}};
  LogOn();
  EXPECT_EQ(logon_.paths.size(), 2U);
  EXPECT_EQ(Connections().size(), 1U);
}

TEST_F(FolderLogon, EveryFailureOfAConnectionAsksAgain) {
  for (const std::uint32_t error : {5U, 53U, 67U, 85U, 1219U, 1222U}) {
    Connections().clear();
    World().calls.FailNext("network.Connect", error);
    logon_.answers = {{"a", "b"}, {"c", "d"}};
    LogOn();
    EXPECT_EQ(Connections().size(), 2U) << error;
  }
}

TEST_F(FolderLogon, ThePathIsShownWithoutASeparatorAtItsEnd) {
  LogOn("\\\\SERVER\\share\\");
  EXPECT_EQ(logon_.paths, std::vector<std::string>{kFolder});
}

TEST_F(FolderLogon, AFolderThatCanBeReachedNeedsNone) {
  World().files.AddFolder(kFolder);
  LogOn();
  EXPECT_TRUE(logon_.paths.empty());
}

TEST_F(FolderLogon, AFolderThatIsDeniedNeedsOne) {
  World().files.AddFolder(kFolder);
  World().calls.FailNext("files.Exists");
  LogOn();
  EXPECT_EQ(logon_.paths.size(), 1U);
}

TEST_F(FolderLogon, LocalFoldersNeedNone) {
  for (const char* folder : {"", "\\", "C:", "C:\\missing", "\\missing", "data"}) LogOn(folder);
  EXPECT_TRUE(logon_.paths.empty());
}

TEST_F(FolderLogon, WithoutAChosenResourceNothingIsAsked) {
  filedialog::LogOnBeforeListing(std::string_view(kFolder), nullptr, logon_);
  EXPECT_TRUE(logon_.paths.empty());
  EXPECT_TRUE(Connections().empty());
}

}  // namespace
