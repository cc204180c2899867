#include "dlglib/filedialog/place/network_logon.h"

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/os/os_scripted.h"

namespace {

using namespace filedialog;
using os::scripted::World;

constexpr char kFolder[] = "\\\\SERVER\\share";

/// Answers as told, then cancels.
class ScriptedLogon final : public NetworkLogon {
 public:
  Reply<std::optional<Credentials>> Ask(const std::string& path, const std::string& userName) override {
    paths.push_back(path);
    userNames.push_back(userName);
    if (takesTheWindowAway) return std::nullopt;
    if (answers.empty()) return std::optional<Credentials>();
    const Credentials given = answers.front();
    answers.pop_front();
    return std::optional(given);
  }

  std::deque<Credentials> answers;
  std::vector<std::string> paths;
  std::vector<std::string> userNames;  ///< shown
  bool takesTheWindowAway = false;
};

class FolderLogon : public testing::Test {
 protected:
  FolderLogon() {
    World().Reset();
    share_.remoteName = kFolder;
    share_.displayType = os::kNetDisplayShare;
  }
  ~FolderLogon() override { World().Reset(); }

  Reply<Done> LogOn(std::string_view folder = kFolder) {
    return LogOnBeforeListing(*os::Services().files, *os::Services().network, folder, &share_, logon_);
  }
  [[nodiscard]] static auto& Connections() { return World().network.connections; }

  os::NetResource share_;
  ScriptedLogon logon_;
};

TEST_F(FolderLogon, AsksUntilTheConnectionIsMade) {
  World().network.connectResults = {86, 1326, 0};
  logon_.answers = {{"taro", "a"}, {"taro", "b"}, {"taro", "表"}, {"never", "asked"}};
  EXPECT_TRUE(LogOn());
  EXPECT_EQ(logon_.userNames, (std::vector<std::string>{"", "taro", "taro"}));
  EXPECT_EQ(logon_.paths, std::vector<std::string>(3, kFolder));
  ASSERT_EQ(Connections().size(), 3U);
  EXPECT_EQ(Connections()[2].resource.remoteName, kFolder);
  EXPECT_EQ(Connections()[2].userName, "taro");
  EXPECT_EQ(Connections()[2].password, "表");
}

TEST_F(FolderLogon, CancellingEndsIt) {
  World().network.connectResults = {86, 86, 86};
  logon_.answers = {{"taro", "a"}};
  EXPECT_TRUE(LogOn());
  EXPECT_EQ(logon_.paths.size(), 2U);
  EXPECT_EQ(Connections().size(), 1U);
}

TEST_F(FolderLogon, AWindowThatHasGoneMeanwhileEndsItWithoutAnAnswer) {
  logon_.takesTheWindowAway = true;
  EXPECT_FALSE(LogOn());
  EXPECT_EQ(logon_.paths.size(), 1U);
  EXPECT_TRUE(Connections().empty());
}

TEST_F(FolderLogon, EveryFailureOfAConnectionAsksAgain) {
  for (const std::uint32_t error : {5U, 53U, 67U, 85U, 1219U, 1222U}) {
    Connections().clear();
    World().calls.FailNext("network.Connect", error);
    logon_.answers = {{"a", "b"}, {"c", "d"}};
    EXPECT_TRUE(LogOn());
    EXPECT_EQ(Connections().size(), 2U) << error;
  }
}

TEST_F(FolderLogon, ThePathIsShownWithoutASeparatorAtItsEnd) {
  EXPECT_TRUE(LogOn("\\\\SERVER\\share\\"));
  EXPECT_EQ(logon_.paths, std::vector<std::string>{kFolder});
}

TEST_F(FolderLogon, AFolderThatCanBeReachedNeedsNone) {
  World().files.AddFolder(kFolder);
  EXPECT_TRUE(LogOn());
  EXPECT_TRUE(logon_.paths.empty());
}

TEST_F(FolderLogon, AFolderThatIsDeniedNeedsOne) {
  World().files.AddFolder(kFolder);
  World().calls.FailNext("files.Exists");
  EXPECT_TRUE(LogOn());
  EXPECT_EQ(logon_.paths.size(), 1U);
}

TEST_F(FolderLogon, LocalFoldersNeedNone) {
  for (const char* folder : {"", "\\", "C:", "C:\\missing", "\\missing", "data"}) EXPECT_TRUE(LogOn(folder));
  EXPECT_TRUE(logon_.paths.empty());
}

TEST_F(FolderLogon, WithoutAChosenResourceNothingIsAsked) {
  EXPECT_TRUE(LogOnBeforeListing(*os::Services().files, *os::Services().network, kFolder, nullptr, logon_));
  EXPECT_TRUE(logon_.paths.empty());
  EXPECT_TRUE(Connections().empty());
}

}  // namespace
