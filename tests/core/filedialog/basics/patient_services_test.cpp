// Services on workers: what a caller gives up goes on, and ends, where nobody waits for it.
#include "dlglib/filedialog/basics/patient_services.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "tests/core/filedialog/browser/played_wait.h"

namespace browser_test {
namespace {

/// Notes the thread on which it goes, which is where the system closes it.
class NotingPass final : public os::NetPass {
 public:
  NotingPass(std::thread::id* goesOn, bool* closed) : goesOn_(goesOn), closed_(closed) {}
  NotingPass(const NotingPass&) = delete;
  NotingPass& operator=(const NotingPass&) = delete;
  ~NotingPass() override { *goesOn_ = std::this_thread::get_id(); }

  bool Next(std::vector<os::NetResource>*) override { return false; }
  bool Close() override { return *closed_ = true; }

 private:
  std::thread::id* goesOn_;
  bool* closed_;
};

class NotingNetwork final : public os::Network {
 public:
  std::thread::id goesOn;
  bool closed = false;

  bool Present() override { return true; }
  bool RemoteSession() override { return false; }
  std::optional<std::string> TerminalProvider() override { return std::nullopt; }
  std::unique_ptr<os::NetPass> Open(std::uint32_t, const os::NetResource*, std::uint32_t*) override {
    return std::make_unique<NotingPass>(&goesOn, &closed);
  }
  std::optional<std::string> UniversalName(const std::string&) override { return std::nullopt; }
  std::uint32_t Connect(const os::NetResource&, const std::string&, const std::string&) override { return 0; }
};

os::ServiceTable With(os::Network* network) {
  os::ServiceTable table = os::Services();
  table.network = network;
  return table;
}

class Enumerations : public testing::Test {
 protected:
  [[nodiscard]] std::unique_ptr<os::NetPass> Open() {
    std::uint32_t error = 0;
    return machine_.Table().network->Open(os::kNetScopeGlobal, nullptr, &error);
  }

  NotingNetwork network_;
  WatchedWorkers workers_;
  HangingCalls calls_;
  PlayedWait window_{calls_, workers_};
  filedialog::Patience patience_{&window_, &workers_};
  os::ServiceTable plain_ = With(&network_);
  filedialog::PatientServices machine_{plain_, patience_};
};

// Closing it may take as long as any other call on a device.
TEST_F(Enumerations, OneThatNobodyHasClosedEndsOnAWorker) {
  const filedialog::Patience::Step step(patience_);
  Open().reset();
  workers_.WaitIdle();
  EXPECT_FALSE(network_.closed);
  EXPECT_NE(network_.goesOn, std::thread::id());
  EXPECT_NE(network_.goesOn, std::this_thread::get_id());
}

TEST_F(Enumerations, OneThatNobodyHasClosedEndsHereWithoutWorkers) {
  filedialog::Patience inPlace(nullptr, nullptr);
  const filedialog::PatientServices machine(plain_, inPlace);
  machine.Table().network->Open(os::kNetScopeGlobal, nullptr, nullptr).reset();
  EXPECT_EQ(network_.goesOn, std::this_thread::get_id());
}

TEST_F(Enumerations, OneThatNobodyHasClosedEndsHereForWantOfMemory) {
  PoorWorkers workers(&workers_);
  filedialog::Patience patience(&window_, &workers);
  const filedialog::PatientServices machine(plain_, patience);
  const filedialog::Patience::Step step(patience);
  auto pass = machine.Table().network->Open(os::kNetScopeGlobal, nullptr, nullptr);
  workers_.WaitIdle();
  workers.isPoor = true;
  pass.reset();
  EXPECT_EQ(network_.goesOn, std::this_thread::get_id());
}

TEST_F(Enumerations, OneThatIsClosedNeedsNoWorkerAnyMore) {
  const filedialog::Patience::Step step(patience_);
  auto pass = Open();
  EXPECT_TRUE(pass->Close());
  workers_.WaitIdle();
  const std::size_t begun = workers_.Begun();
  pass.reset();
  EXPECT_TRUE(network_.closed);
  EXPECT_EQ(workers_.Begun(), begun);
}

}  // namespace
}  // namespace browser_test
