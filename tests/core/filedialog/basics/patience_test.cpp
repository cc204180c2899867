// Waiting for a device, and the services that do.
#include "dlglib/filedialog/basics/patience.h"

#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <string>
#include <vector>

#include "dlglib/filedialog/basics/patient_services.h"
#include "platform/os/os_scripted.h"
#include "tests/core/filedialog/browser/played_wait.h"

namespace {

using namespace filedialog;
using browser_test::EmptyWorld;
using browser_test::HangingCalls;
using browser_test::PlayedWait;
using browser_test::WatchedWorkers;
using os::scripted::World;
using How = WaitEnded::How;

class PatienceTest : public testing::Test {
 protected:
  ~PatienceTest() override { SetFree(); }

  void SetFree() {
    calls_.Release();
    workers_.WaitIdle();
  }
  /// A call that hangs when calls of its name do.
  static Question AboutFile() {
    return {"C:\\x", [] { static_cast<void>(os::Services().files->Exists("C:\\x")); }};
  }
  /// How a question ends; none when it is answered.
  std::optional<How> Ask(Question question) {
    try {
      patience_.Ask(std::move(question));
      return std::nullopt;
    } catch (const WaitEnded& ended) {
      return ended.how;
    }
  }

 private:
  EmptyWorld empty_;

 protected:
  WatchedWorkers workers_;
  HangingCalls calls_;
  PlayedWait window_{calls_, workers_};
  Patience patience_{&window_, &workers_};
};

TEST_F(PatienceTest, WhatAQuestionThrowsOnItsWorkerIsThrownWhereItWasAsked) {
  EXPECT_THROW(patience_.Ask({"C:\\x", [] { throw std::bad_alloc(); }}), std::bad_alloc);
  EXPECT_EQ(Ask(AboutFile()), std::nullopt) << "the next one is asked as ever";
}

TEST_F(PatienceTest, AnAnswerThatComesWhileTheLineIsShownEndsTheWaitAtOnce) {
  calls_.HangAll("files.Exists");
  window_.onShown = [this] { SetFree(); };
  const std::int64_t begun = window_.NowMs();
  EXPECT_EQ(Ask(AboutFile()), std::nullopt);
  EXPECT_EQ(window_.NowMs() - begun, 300);
}

TEST_F(PatienceTest, TheLineIsShownAnewOnlyWhenItsCountHasMoved) {
  calls_.HangAll("files.Exists");
  std::size_t count = 1;
  Question question = AboutFile();
  question.count = [&count] { return count; };
  window_.After(500, [&count] { count = 1234567; });
  window_.After(800, [this] { window_.PressEsc(); });
  EXPECT_EQ(Ask(question), How::GivenUp);
  EXPECT_EQ(window_.AllShown(),
            (std::vector<std::string>{"読み込み中… 1 件　Esc で中止", "読み込み中… 1,234,567 件　Esc で中止"}));
}

TEST_F(PatienceTest, TheCountMovesTenTimesASecondHoweverOftenSomethingHappens) {
  calls_.HangAll("files.Exists");
  Question question = AboutFile();
  std::size_t count = 0;
  question.count = [&count] { return ++count; };
  for (int ms = 300; ms < 800; ++ms) window_.After(ms, [] {});
  window_.After(800, [this] { window_.PressEsc(); });
  EXPECT_EQ(Ask(question), How::GivenUp);
  EXPECT_EQ(window_.AllShown().size(), 5U) << "at 300, 400, 500, 600 and 700";
}

TEST_F(PatienceTest, TheLineGoesWhileSomethingElseIsAskedAndComesAtOnceBehindIt) {
  calls_.HangAll("files.Exists");
  const Patience::Step step(patience_);
  window_.After(400, [this] { SetFree(); });
  EXPECT_EQ(Ask(AboutFile()), std::nullopt);
  EXPECT_NE(window_.Shown(), "");
  patience_.HideProgress();
  EXPECT_EQ(window_.Shown(), "");
  window_.Rest(5000);
  calls_.HangAll("files.Exists");
  const std::int64_t begun = window_.NowMs();
  window_.onShown = [&] {
    EXPECT_EQ(window_.NowMs(), begun);
    SetFree();
  };
  EXPECT_EQ(Ask(AboutFile()), std::nullopt);
}

TEST_F(PatienceTest, AQuestionThatNobodyWaitsForAnyMoreIsToldSoBeforeItsCallIsCancelled) {
  calls_.HangAll("files.Exists");
  int left = 0;
  Question question = AboutFile();
  question.leave = [&left] { ++left; };
  window_.After(400, [this] { window_.PressEsc(); });
  EXPECT_EQ(Ask(question), How::GivenUp);
  EXPECT_EQ(left, 1);
  SetFree();
  question.ask = [] {};
  EXPECT_EQ(Ask(question), std::nullopt);
  EXPECT_EQ(left, 1) << "an answer";
}

TEST_F(PatienceTest, AQuestionWhoseCountMovesIsNotTooLate) {
  calls_.HangAll("files.Exists");
  const Patience::Step step(patience_);
  patience_.LimitTo(1000);
  Question counted = AboutFile();
  counted.count = [this] { return static_cast<std::size_t>(window_.NowMs() / 900); };
  window_.After(3000, [this] { window_.PressEsc(); });
  EXPECT_EQ(Ask(counted), How::GivenUp);
  EXPECT_TRUE(patience_.WasCutShort());
  window_.Rest(60);
  const std::int64_t begun = window_.NowMs();
  EXPECT_EQ(Ask(AboutFile()), How::TookTooLong);
  EXPECT_LE(window_.NowMs() - begun, 120) << "beyond the limit each gets a moment";
}

TEST_F(PatienceTest, AQuestionWhoseCountStandsStillIsTooLate) {
  calls_.HangAll("files.Exists");
  const Patience::Step step(patience_);
  patience_.LimitTo(1000);
  Question counted = AboutFile();
  std::size_t count = 0;
  counted.count = [&count] { return count; };
  const std::int64_t begun = window_.NowMs();
  window_.After(600, [&count] { count = 1; });
  window_.After(1300, [&count] { count = 2; });
  EXPECT_EQ(Ask(counted), How::TookTooLong);
  EXPECT_GE(window_.NowMs() - begun, 2300) << "as long as the limit since it has moved last";
  EXPECT_LE(window_.NowMs() - begun, 2500);
}

TEST_F(PatienceTest, APressGivesUpOneWait) {
  calls_.HangAll("files.Exists");
  const Patience::Step step(patience_);
  patience_.LimitTo(1000);
  window_.PressEsc();
  EXPECT_EQ(Ask(AboutFile()), How::GivenUp);
  EXPECT_EQ(Ask(AboutFile()), How::TookTooLong) << "the next one right behind it goes on";
}

TEST_F(PatienceTest, APressThatEndsLingeringIsUsedUp) {
  calls_.HangAll("files.Exists");
  const Patience::Step step(patience_);
  patience_.LimitTo(1000);
  const Patience::Begun hanging = patience_.Begin(AboutFile());
  window_.onPass = [this] { window_.PressEsc(); };
  patience_.Linger(100, [] { return false; });
  window_.onPass = {};
  EXPECT_EQ(Ask(AboutFile()), How::TookTooLong);
}

TEST_F(PatienceTest, APressThatLeavesPartOfAnAnswerHoldsForTheRestOfTheStep) {
  calls_.HangAll("files.Exists");
  const Patience::Step step(patience_);
  patience_.LimitTo(1000);
  Question counted = AboutFile();
  counted.count = [] { return std::size_t{1}; };
  window_.PressEsc();
  EXPECT_FALSE(patience_.AskForPart(counted));
  EXPECT_EQ(Ask(AboutFile()), How::GivenUp);
}

TEST_F(PatienceTest, APressBeforeAPauseDoesNotCountInTheNextWait) {
  calls_.HangAll("files.Exists");
  const Patience::Step step(patience_);
  window_.PressEsc();
  EXPECT_EQ(Ask(AboutFile()), How::GivenUp) << "one that came right before";
  window_.PressEsc();
  window_.Rest(60);
  const std::int64_t begun = window_.NowMs();
  window_.After(500, [this] { window_.PressEsc(); });
  EXPECT_EQ(Ask(AboutFile()), How::GivenUp);
  EXPECT_GE(window_.NowMs() - begun, 500);
}

TEST_F(PatienceTest, APathOnWhichACallHangsIsNotAskedBesideItInAnotherSpelling) {
  calls_.HangAll("files.Exists");
  window_.onShown = [this] { window_.PressEsc(); };
  for (const char* path : {"C:\\Dead", "c:\\dead\\"}) {
    EXPECT_EQ(Ask({path, AboutFile().ask}), How::GivenUp);
  }
  EXPECT_EQ(calls_.HangingNow(), 1);
}

TEST_F(PatienceTest, NothingIsAskedDuringAWait) {
  calls_.HangAll("files.Exists");
  bool isAsked = false;
  const auto ask = [&isAsked] { isAsked = true; };
  window_.After(400, [&] {
    EXPECT_TRUE(patience_.IsWaiting());
    EXPECT_FALSE(patience_.AskForPart({"C:\\y", ask}));
    EXPECT_THROW(patience_.Ask({"C:\\y", ask}), WaitEnded);
    bool isLookedFor = false;
    patience_.Linger(1000, [&isLookedFor] { return isLookedFor = true; });
    EXPECT_FALSE(isLookedFor);
    window_.PressEsc();
  });
  EXPECT_EQ(Ask(AboutFile()), How::GivenUp);
  EXPECT_FALSE(isAsked);
}

TEST_F(PatienceTest, AWindowThatGoesCountsMoreThanAUserWhoGivesUp) {
  calls_.HangAll("files.Exists");
  window_.After(400, [this] {
    patience_.EndWithWindow();
    patience_.GiveUp();
  });
  EXPECT_EQ(Ask(AboutFile()), How::WindowGone);
  EXPECT_THROW(static_cast<void>(AnswerOr(false, []() -> bool { throw WaitEnded{How::WindowGone}; })), WaitEnded);
  EXPECT_TRUE(AnswerOr(true, []() -> bool { throw WaitEnded{How::TookTooLong}; }));
  EXPECT_TRUE(AnswerOr(true, []() -> bool { throw WaitEnded{How::GivenUp}; }));
  EXPECT_THROW(static_cast<void>(AnswerOr(true, []() -> bool { throw std::bad_alloc(); })), std::bad_alloc);
}

TEST_F(PatienceTest, LingeringEndsWhenItIsEnoughOrTheTimeIsOver) {
  calls_.HangAll("files.Exists");
  const Patience::Begun hanging = patience_.Begin(AboutFile());
  const auto lingered = [this](std::int64_t milliseconds, const std::function<bool()>& isEnough) {
    const std::int64_t begun = window_.NowMs();
    patience_.Linger(milliseconds, isEnough);
    return window_.NowMs() - begun;
  };
  EXPECT_EQ(lingered(100, [] { return true; }), 0);
  EXPECT_EQ(lingered(110, [] { return false; }), 110);
  window_.onPass = [this] { window_.PressEsc(); };
  EXPECT_EQ(lingered(100, [] { return false; }), 20) << "Esc";
  window_.onPass = [this] { patience_.GiveUp(); };
  EXPECT_EQ(lingered(100, [] { return false; }), 20) << "another intent";
  window_.onPass = [this] { window_.isThere = false; };
  EXPECT_THROW(patience_.Linger(100, [] { return false; }), WaitEnded);
}

TEST_F(PatienceTest, AWindowThatIsAboutToGoEndsTheStepThatLingers) {
  calls_.HangAll("files.Exists");
  const Patience::Begun hanging = patience_.Begin(AboutFile());
  window_.onPass = [this] { patience_.EndWithWindow(); };
  std::optional<How> ended;
  try {
    patience_.Linger(100, [] { return false; });
  } catch (const WaitEnded& end) {
    ended = end.how;
  }
  EXPECT_EQ(ended, How::WindowGone);
}

TEST_F(PatienceTest, WithoutWorkersEverythingIsAskedInPlaceAndNothingLingeredFor) {
  Patience plain(nullptr, nullptr);
  const Patience::Step step(plain);
  bool isAsked = false;
  plain.Ask({"C:\\x", [&isAsked] { isAsked = true; }});
  EXPECT_TRUE(isAsked);
  plain.Linger(1000, [] { return false; });
  EXPECT_FALSE(plain.WasCutShort());
  plain.LateWaker()();
}

// ---------------------------------------------------------------------------------------------------------------------
// the services

class PatientServicesTest : public PatienceTest {
 protected:
  PatientServicesTest() {
    World().AddDrive('C', {.volumeName = "SYSTEM"});
    World().files.AddFile("C:\\data\\a.mdl", "text");
    World().shell.desktopFolder = "C:\\desktop";
    World().shell.links["C:\\data\\l.lnk"] = "C:\\data\\a.mdl";
    World().network.universalNames["C:\\"] = "\\\\srv\\c";
    World().network.terminalProvider = "terminal";
    os::scripted::NetNode server;
    server.record.remoteName = "\\\\SRV";
    World().network.global.children = {server};
  }

  PatientServices services_{os::Services(), patience_};
  const os::ServiceTable& asked_ = services_.Table();
};

TEST_F(PatientServicesTest, AnswerWhatTheSystemAnswers) {
  EXPECT_TRUE(asked_.files->Exists("C:\\data\\a.mdl"));
  EXPECT_EQ(asked_.files->Status("C:\\data\\a.mdl")->size, 4U);
  EXPECT_EQ(asked_.files->Attributes("C:\\data"), os::kAttributeFolder);
  EXPECT_EQ(asked_.files->Read("C:\\data\\a.mdl", 2), "te");
  EXPECT_EQ(asked_.files->Rename("C:\\data\\a.mdl", "C:\\data\\b.mdl"), 0);
  EXPECT_EQ(asked_.files->CreateFolder("C:\\data\\sub"), 0U);
  EXPECT_EQ(asked_.drives->Type("C:\\"), os::DriveType::Fixed);
  EXPECT_EQ(asked_.drives->VolumeName("C:\\"), "SYSTEM");
  EXPECT_TRUE(asked_.drives->Space("C:\\"));
  EXPECT_EQ(asked_.shell->DesktopFolder(), "C:\\desktop");
  EXPECT_EQ(asked_.shell->ResolveLink("C:\\data\\l.lnk"), "C:\\data\\a.mdl");
  EXPECT_EQ(asked_.network->TerminalProvider(), "terminal");
  EXPECT_EQ(asked_.network->UniversalName("C:\\"), "\\\\srv\\c");
  EXPECT_EQ(asked_.network->Connect(World().network.global.children.front().record, "x", "taro"), 0U);
  const auto pass = asked_.network->Open(os::kNetScopeGlobal, nullptr, nullptr);
  std::vector<os::NetResource> found;
  EXPECT_TRUE(pass->Next(&found));
  EXPECT_EQ(found.size(), 1U);
  EXPECT_TRUE(pass->Close());
}

TEST_F(PatientServicesTest, TellWhyANetworkPlaceCannotBeOpenedToWhoeverAsks) {
  World().network.global.children.front().openError = os::kErrorAccessDenied;
  const os::NetResource server = World().network.global.children.front().record;
  std::uint32_t error = 0;
  EXPECT_EQ(asked_.network->Open(os::kNetScopeGlobal, &server, &error), nullptr);
  EXPECT_EQ(error, os::kErrorAccessDenied);
  EXPECT_EQ(asked_.network->Open(os::kNetScopeGlobal, &server, nullptr), nullptr);
}

/// A call on a device: its name as the scripted machine's, and the call.
struct DeviceCall {
  const char* name;
  std::function<void(const os::ServiceTable&)> make;
};

const std::vector<DeviceCall>& DeviceCalls() {
  using Table = os::ServiceTable;
  static const std::vector<DeviceCall> all = {
      {"files.Exists", [](const Table& table) { static_cast<void>(table.files->Exists("C:\\x")); }},
      {"files.Status", [](const Table& table) { static_cast<void>(table.files->Status("C:\\x")); }},
      {"files.Attributes", [](const Table& table) { static_cast<void>(table.files->Attributes("C:\\x")); }},
      {"files.Read", [](const Table& table) { static_cast<void>(table.files->Read("C:\\x", 1)); }},
      {"files.Rename", [](const Table& table) { static_cast<void>(table.files->Rename("C:\\x", "C:\\y")); }},
      {"files.CreateFolder", [](const Table& table) { static_cast<void>(table.files->CreateFolder("C:\\x")); }},
      {"drives.Type", [](const Table& table) { static_cast<void>(table.drives->Type("C:\\")); }},
      {"drives.VolumeName", [](const Table& table) { static_cast<void>(table.drives->VolumeName("C:\\")); }},
      {"drives.Space", [](const Table& table) { static_cast<void>(table.drives->Space("C:\\")); }},
      {"shell.DesktopFolder", [](const Table& table) { static_cast<void>(table.shell->DesktopFolder()); }},
      {"shell.ResolveLink", [](const Table& table) { static_cast<void>(table.shell->ResolveLink("C:\\l.lnk")); }},
      {"network.TerminalProvider", [](const Table& table) { static_cast<void>(table.network->TerminalProvider()); }},
      {"network.UniversalName", [](const Table& table) { static_cast<void>(table.network->UniversalName("C:\\")); }},
      {"network.Open",
       [](const Table& table) { static_cast<void>(table.network->Open(os::kNetScopeGlobal, nullptr, nullptr)); }},
      {"network.Connect", [](const Table& table) { static_cast<void>(table.network->Connect({}, "", "")); }},
  };
  return all;
}

TEST_F(PatientServicesTest, LetEveryCallOnADeviceBeGivenUp) {
  for (const DeviceCall& call : DeviceCalls()) {
    SCOPED_TRACE(call.name);
    calls_.HangAll(call.name);
    window_.After(400, [this] { window_.PressEsc(); });
    EXPECT_THROW(call.make(asked_), WaitEnded);
    SetFree();
  }
}

TEST_F(PatientServicesTest, LetAnEnumerationBeGivenUpWhereverItIs) {
  for (const char* name : {"network.Next", "network.Close"}) {
    SCOPED_TRACE(name);
    const auto pass = asked_.network->Open(os::kNetScopeGlobal, nullptr, nullptr);
    calls_.HangAll(name);
    window_.After(400, [this] { window_.PressEsc(); });
    std::vector<os::NetResource> found;
    const auto read = [&] { return pass->Next(&found) && pass->Close(); };
    EXPECT_THROW(static_cast<void>(read()), WaitEnded);
    SetFree();
  }
}

}  // namespace
