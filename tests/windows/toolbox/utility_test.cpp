// The toolbox at its public surface: what it shows in a dialog, what it asks the user, what it converts and keeps.
#include "dlglib/utility/CvUtility.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "platform/os/os_scripted.h"
#include "platform/os/os_scripted_display.h"
#include "platform/os/sjis_wide.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/driver/accessible.h"
#include "tests/windows/driver/events.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/input/composition.h"
#include "tests/windows/toolbox/utility_host.h"

namespace {

using driver::MessageBoxView;
using driver::User;
using utility_test::Host;
using utility_test::kBlack;
using utility_test::kCombo;
using utility_test::kEdit;
using utility_test::kLabel;
using utility_test::kTitle;

using Texts = std::vector<std::string>;

const char* const kStoredHyou = "\xC9\xBD";  // "表" in EUC-JP

/// A character so many times, behind `head`.
[[nodiscard]] std::string Row(const std::string& head, const char* character, int count) {
  std::string row = head;
  for (int i = 0; i < count; ++i) row += character;
  return row;
}

static_assert(sizeof(CvUtility) == sizeof(CStatic) + sizeof(void*));

class UtilityTest : public testing::Test {
 protected:
  UtilityTest() {
    os::scripted::World().Reset();
    os::scripted::World().AddDrive('D');
    os::scripted::World().files.AddFolder("D:\\shop");
    CwSession::Reset();
    Kinds().AddFileType(CwFileType("#MODEL#", "D:/shop", "*.MDL", 0, CwLetterCase::Upper));
    Kinds().AddFileType(CwFileType("#TEXT#", "D:/shop", "*.txt", 0, CwLetterCase::Lower));
    Kinds().AddFileType(CwFileType("#RASTER#", "D:/shop", "*.bmp", 0));
    CwMessage::GetMessageTable()->SetMessage(5, std::string("message ") + kStoredHyou);
    CwMessage::GetErrorTable()->SetMessage(5, std::string("error ") + kStoredHyou);
    utility_.SetKeyword("#MODEL#");
  }
  ~UtilityTest() override {
    CwSession::Reset();
    CwMessage::GetMessageTable()->Clear();
    CwMessage::GetErrorTable()->Clear();
  }

  [[nodiscard]] static CwFileTypeSet& Kinds() { return *CwSession::GetInstance()->GetActiveFileTypeSet(); }
  [[nodiscard]] static std::vector<std::uint32_t>& Beeps() { return os::scripted::World().session.beeps; }

  CvUtility utility_;
};

class UtilityInDialogTest : public UtilityTest {
 protected:
  UtilityInDialogTest() { utility_.SetParentWindow(&host_); }

  /// Runs a check that shows one message box, answers it, and returns what was seen.
  template <class Check>
  MessageBoxView Ask(const Check& check, int button) {
    MessageBoxView seen;
    driver::RunDialog(check, [&](User& user) {
      seen = user.WaitMessageBox();
      owner_ = seen.window.Owner().Handle();
      for (const int id : seen.buttons) {
        if ((seen.window.Child(id).Style() & BS_TYPEMASK) == BS_DEFPUSHBUTTON) default_ = id;
      }
      beepsBefore_ = Beeps().size();
      user.Answer(seen, button);
    });
    return seen;
  }

  Host host_;
  HWND owner_ = nullptr;         ///< of the last message box
  int default_ = 0;              ///< the button that Enter presses in it
  std::size_t beepsBefore_ = 0;  ///< beeps until that was on the screen
};

// ---- without a dialog

TEST_F(UtilityTest, StartsEmpty) {
  CvUtility fresh;
  EXPECT_STREQ(fresh.GetCaption(), "");
  EXPECT_STREQ(fresh.GetFileName(), "");
  EXPECT_STREQ(fresh.GetFileName(1), "");
}

TEST_F(UtilityTest, WithoutAParentNothingIsTouched) {
  Host host;
  const std::vector<COLORREF> pixels = host.Pixels();
  const RECT place = host.Place();
  utility_.MessageText("text");
  utility_.SetFocus(kEdit);
  utility_.SetMessageZone();
  utility_.ResizeWindow(10, 10);
  utility_.MoveWindow(host.GetDlgItem(kEdit), 5, 5);
  utility_.SetEditBoxStyle(kEdit, "#MODEL#");
  CString member("a  ");
  utility_.KillFocus(&member);
  EXPECT_EQ(member, "a  ");
  EXPECT_EQ(host.exchanges, 0);
  EXPECT_EQ(host.Pixels(), pixels);
  EXPECT_EQ(host.Place().bottom, place.bottom);
}

TEST_F(UtilityTest, AMessageWindowAloneShowsNothing) {
  Host host;
  utility_.SetMessageWindow(host.GetDlgItem(kLabel));
  utility_.MessageText("text");
  EXPECT_STREQ(driver::Window(host.GetDlgItem(kLabel)->m_hWnd).Text().c_str(), "");
}

TEST_F(UtilityTest, AnErrorBeepsWithoutAParentToo) {
  utility_.ErrorText("text");
  utility_.ErrorNo(-5);
  EXPECT_EQ(Beeps(), (std::vector<std::uint32_t>{0xFFFFFFFF, 0xFFFFFFFF}));
}

TEST_F(UtilityTest, AParentWithoutAWindowIsHarmless) {
  CWnd none;
  utility_.SetParentWindow(&none);
  utility_.MessageText("text");
  utility_.SetMessageZone();
  utility_.ResizeWindow(1, 1);
  utility_.SetFocus(kEdit);
  utility_.SetEditBoxStyle(kEdit, "#MODEL#");
  utility_.MoveWindow(&none, 1, 1);
  utility_.SetCaption("caption");
  EXPECT_STREQ(utility_.GetCaption(), "caption");
}

TEST_F(UtilityTest, NothingIsHarmless) {
  std::array<char, 513> text = {};
  int count = 3;
  utility_.SetParentWindow(nullptr);
  utility_.SetCaption(nullptr);
  utility_.SetComment(nullptr);
  utility_.SetKeyword(nullptr);
  utility_.SetWildcard(nullptr);
  utility_.MessageText(nullptr);
  utility_.GetMessageText(5, nullptr);
  EXPECT_EQ(utility_.RealPathName(nullptr, nullptr), 0);
  EXPECT_EQ(utility_.InternalPathName(nullptr, nullptr), 0);
  EXPECT_EQ(utility_.RealPathName(nullptr, text.data()), 0);
  EXPECT_EQ(utility_.GetFileNamePos(static_cast<char*>(nullptr)), nullptr);
  EXPECT_EQ(utility_.Strrchr(static_cast<char*>(nullptr), '\\'), nullptr);
  EXPECT_EQ(utility_.GetFilnameUL(nullptr), 0);
  EXPECT_EQ(utility_.CheckFileName(static_cast<const char*>(nullptr)), 1);
  EXPECT_EQ(utility_.CheckModelName(static_cast<const char*>(nullptr)), 1);
  EXPECT_EQ(utility_.Access(nullptr), -1);
  EXPECT_EQ(utility_.CheckScale(nullptr, nullptr), 0);
  utility_.DisplayScale(1, nullptr);
  EXPECT_EQ(utility_.BitSet(1, 1, nullptr), -1);
  utility_.EucToSjis(nullptr, text.data(), 5);
  utility_.SjisToEuc("a", nullptr, 5);
  utility_.ToEUC(static_cast<char*>(nullptr));
  utility_.ToSJIS(nullptr);
  utility_.SpaceNull(nullptr);
  utility_.ExceptSpace(nullptr);
  utility_.KillFocus(nullptr);
  utility_.SetTextData(static_cast<CWnd*>(nullptr), "a");
  utility_.SetTextData(static_cast<CString*>(nullptr), "a");
  utility_.GetTextData(static_cast<CWnd*>(nullptr), text.data(), 5);
  utility_.GetTextData("a", nullptr, 5);
  utility_.GetUsedFile(nullptr, 0, nullptr, nullptr, nullptr);
  utility_.SetUsedFile(nullptr, 0, nullptr, &count);
  utility_.GetUsedName(nullptr, nullptr, &count, nullptr);
  utility_.SetUsedName(nullptr, nullptr, nullptr);
  utility_.SetFilePath(nullptr, nullptr, nullptr, 0);
  utility_.DelFilePath(nullptr, nullptr, nullptr, 0);
  utility_.SetFloppy(nullptr);
}

// ---- message zone

TEST_F(UtilityInDialogTest, AMessageStandsInBlackAtTheBottom) {
  Host drawn;
  utility_.MessageText("Ab漢字");
  const ClientDc dc(drawn.m_hWnd);
  const Selected font(dc.Get(), drawn.GetFont());
  ::SetBkColor(dc.Get(), ::GetSysColor(COLOR_BTNFACE));
  const std::string text = "Ab漢字";
  const std::wstring wide = os::WideOf(text);
  ::TextOutW(dc.Get(), 12, drawn.ClientBottom() - 18, wide.c_str(), static_cast<int>(wide.size()));
  EXPECT_EQ(host_.Pixels(), drawn.Pixels());
  EXPECT_GT(host_.CountPixels(kBlack, host_.ClientBottom() - 18), 0);
}

TEST_F(UtilityInDialogTest, OnlyTheLastOfTwoMessagesIsVisible) {
  Host other;
  CvUtility single;
  single.SetParentWindow(&other);
  single.MessageText("short");
  utility_.MessageText("a much longer text 漢字");
  utility_.MessageText("short");
  EXPECT_EQ(host_.Pixels(), other.Pixels());
}

TEST_F(UtilityInDialogTest, AnEmptyTextAndNoTextClearTheZone) {
  const std::vector<COLORREF> before = host_.Pixels();
  for (const char* clearing : {static_cast<const char*>(""), static_cast<const char*>(nullptr)}) {
    utility_.MessageText("text");
    EXPECT_NE(host_.Pixels(), before);
    utility_.MessageText(clearing);
    EXPECT_EQ(host_.Pixels(), before);
  }
}

/// The parts of a dialog with that text.
std::vector<driver::Window> PartsThatSay(const Host& host, const std::string& text) {
  std::vector<driver::Window> parts;
  for (const driver::Window& part : driver::Window(host.m_hWnd).Children()) {
    if (part.Text() == text) parts.push_back(part);
  }
  return parts;
}

TEST_F(UtilityInDialogTest, WithoutAScreenReaderADrawnMessageAddsNoPart) {
  const std::size_t before = driver::Window(host_.m_hWnd).Children().size();
  utility_.MessageText("text");
  EXPECT_EQ(driver::Window(host_.m_hWnd).Children().size(), before);
}

TEST_F(UtilityInDialogTest, ADrawnMessageIsSaidByAPartOfNoSize) {
  const driver::ScreenReader reader;
  utility_.MessageText("表&1");
  utility_.MessageText("漢字&2");
  const auto parts = PartsThatSay(host_, "漢字&2");
  ASSERT_EQ(parts.size(), 1U);
  EXPECT_TRUE(PartsThatSay(host_, "表&1").empty());
  EXPECT_TRUE(parts.front().IsVisible());
  const RECT place = parts.front().ScreenRect();
  EXPECT_EQ(place.left, place.right);
  EXPECT_EQ(place.top, place.bottom);
  EXPECT_NE(parts.front().Style() & SS_NOPREFIX, 0U) << "no letter of a message is a key";
}

// The reader that comes with the system does not say that it runs.
TEST_F(UtilityInDialogTest, AReaderThatOnlyListensHearsADrawnMessageToo) {
  const os::DisplayScope display;
  os::DisplayOfTest().listener = true;
  utility_.MessageText("text");
  EXPECT_EQ(PartsThatSay(host_, "text").size(), 1U);
}

/// How often a part is told of to have another text; zero is waited for as well as any other number.
class NewsOf {
 public:
  explicit NewsOf(driver::Window part) : events_(part) {}
  [[nodiscard]] int Take() {
    events_.Take();
    const int heard = events_.Heard(EVENT_OBJECT_NAMECHANGE, CHILDID_SELF);
    events_.Forget();
    return heard;
  }

 private:
  driver::Events events_;
};

// After painting a dialog shows its message again; a complaint comes again when the user has done the same again.
TEST_F(UtilityInDialogTest, AComplaintThatIsMadeAgainIsToldAgain) {
  const driver::ScreenReader reader;
  utility_.ErrorText("bad");
  NewsOf drawn(PartsThatSay(host_, "bad").at(0));
  utility_.ErrorText("bad");
  EXPECT_EQ(drawn.Take(), 1);
  utility_.MessageText("bad");
  EXPECT_EQ(drawn.Take(), 0) << "shown again";
  utility_.ErrorText("");
  utility_.ErrorText("");
  EXPECT_EQ(drawn.Take(), 0) << "nothing is said";
}

TEST_F(UtilityInDialogTest, AComplaintInAWindowIsToldAgainToo) {
  utility_.SetMessageWindow(host_.GetDlgItem(kLabel));
  utility_.ErrorText("bad");
  NewsOf told(PartsThatSay(host_, "bad").at(0));
  utility_.ErrorText("bad");
  EXPECT_EQ(told.Take(), 1);
  utility_.MessageText("bad");
  EXPECT_EQ(told.Take(), 0);
}

TEST_F(UtilityInDialogTest, AMessageInAWindowIsSaidByThatAlone) {
  const driver::ScreenReader reader;
  utility_.SetMessageWindow(host_.GetDlgItem(kLabel));
  utility_.MessageText("text");
  EXPECT_EQ(PartsThatSay(host_, "text").size(), 1U);
}

TEST_F(UtilityInDialogTest, WhatSaysADrawnMessageGoesWithItsUtilityAndItsDialog) {
  const driver::ScreenReader reader;
  Host other;
  {
    CvUtility moving;
    moving.SetParentWindow(&host_);
    moving.MessageText("text");
    moving.SetParentWindow(&other);
    moving.MessageText("text");
    EXPECT_TRUE(PartsThatSay(host_, "text").empty());
    EXPECT_EQ(PartsThatSay(other, "text").size(), 1U);
  }
  EXPECT_TRUE(PartsThatSay(other, "text").empty());
  auto closed = std::make_unique<Host>();
  utility_.SetParentWindow(closed.get());
  utility_.MessageText("text");
  closed = nullptr;
  utility_.SetParentWindow(&other);
  utility_.MessageText("text");
  EXPECT_EQ(PartsThatSay(other, "text").size(), 1U);
}

TEST_F(UtilityInDialogTest, OverlongMessagesVanishWholeAgain) {
  const std::vector<COLORREF> before = host_.Pixels();
  for (const std::size_t length : {511U, 512U, 513U, 100000U}) {
    utility_.MessageText(std::string(length, 'x').c_str());
    utility_.MessageText("");
    EXPECT_EQ(host_.Pixels(), before) << length;
  }
}

TEST_F(UtilityInDialogTest, TheZoneTakesTheColourBesideIt) {
  constexpr COLORREF kRed = 0x0000FF;
  {
    const ClientDc dc(host_.m_hWnd);
    const UniqueBrush brush(::CreateSolidBrush(kRed));
    const RECT all = {0, host_.ClientBottom() - 40, 300, host_.ClientBottom()};
    ::FillRect(dc.Get(), &all, brush.Get());
  }
  const int red = host_.CountPixels(kRed);
  utility_.MessageText("XXXXXX");
  const int black = host_.CountPixels(kBlack, host_.ClientBottom() - 18);
  EXPECT_EQ(host_.CountPixels(kRed), red - black);
  utility_.MessageText("");
  EXPECT_EQ(host_.CountPixels(kRed), red);
}

TEST_F(UtilityInDialogTest, AMessageWindowShowsTheTextInstead) {
  const driver::Window label(host_.GetDlgItem(kLabel)->m_hWnd);
  utility_.SetMessageWindow(host_.GetDlgItem(kLabel));
  utility_.MessageText("漢字");
  EXPECT_EQ(label.Text(), "漢字");
  EXPECT_EQ(host_.CountPixels(kBlack, host_.ClientBottom() - 18), 0);
  utility_.MessageText(nullptr);
  EXPECT_EQ(label.Text(), "");
  utility_.ErrorNo(-5);
  EXPECT_EQ(label.Text(), "error 表");
  utility_.SetMessageWindow(nullptr);
  utility_.MessageText("zone");
  EXPECT_EQ(label.Text(), "error 表");
  EXPECT_GT(host_.CountPixels(kBlack, host_.ClientBottom() - 18), 0);
}

TEST_F(UtilityInDialogTest, AMessageWindowLeavesTheZoneToItsMessage) {
  const std::vector<COLORREF> before = host_.Pixels();
  utility_.MessageText("a longer text in the zone");
  const std::vector<COLORREF> shown = host_.Pixels();
  host_.GetDlgItem(kLabel)->ShowWindow(SW_HIDE);
  utility_.SetMessageWindow(host_.GetDlgItem(kLabel));
  utility_.MessageText("x");
  utility_.MessageText(nullptr);
  EXPECT_EQ(host_.Pixels(), shown);
  utility_.SetMessageWindow(nullptr);
  utility_.MessageText("");
  EXPECT_EQ(host_.Pixels(), before);
}

TEST_F(UtilityInDialogTest, ARepaintedDialogShowsTheMessageWhenItIsGivenAgain) {
  const std::vector<COLORREF> before = host_.Pixels();
  utility_.MessageText("text");
  const std::vector<COLORREF> shown = host_.Pixels();
  host_.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  EXPECT_EQ(host_.Pixels(), before);
  utility_.MessageText("text");
  EXPECT_EQ(host_.Pixels(), shown);
}

TEST_F(UtilityInDialogTest, AnUnknownErrorBeepsAndClearsTheZone) {
  const std::vector<COLORREF> before = host_.Pixels();
  utility_.MessageText("text");
  utility_.ErrorNo(12345);
  EXPECT_EQ(host_.Pixels(), before);
  EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{0xFFFFFFFF});
}

TEST_F(UtilityInDialogTest, AnErrorBeepsBeforeItIsShown) {
  const driver::Window label(host_.GetDlgItem(kLabel)->m_hWnd);
  utility_.SetMessageWindow(host_.GetDlgItem(kLabel));
  utility_.MessageText("prompt");
  Texts shownAtBeep;
  os::scripted::World().calls.Watch([&](const std::string& call) {
    if (call == "session.Beep") shownAtBeep.push_back(label.Text());
  });
  utility_.ErrorText("first");
  utility_.ErrorNo(-5);
  os::scripted::World().calls.Watch({});
  EXPECT_EQ(shownAtBeep, (Texts{"prompt", "first"}));
}

TEST_F(UtilityInDialogTest, NoDeviceContextIsKept) {
  const int before = framework::LiveHandles();
  for (int i = 0; i < 100; ++i) utility_.MessageText("text");
  EXPECT_EQ(framework::LiveHandles(), before);
}

TEST_F(UtilityTest, NumberedMessagesComeFromTheirTables) {
  std::array<char, 257> text = {};
  utility_.GetMessageText(5, text.data());
  EXPECT_STREQ(text.data(), "message 表");
  utility_.GetMessageText(-5, text.data());
  EXPECT_STREQ(text.data(), "error 表");
  for (const int number : {0, 6, -6, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    text.front() = 'x';
    utility_.GetMessageText(number, text.data());
    EXPECT_STREQ(text.data(), "") << number;
  }
}

TEST_F(UtilityInDialogTest, LongNumberedMessagesAreCut) {
  CwMessage::GetMessageTable()->SetMessage(7, std::string(1000, 'x'));
  std::array<char, 257> text = {};
  utility_.GetMessageText(7, text.data());
  EXPECT_EQ(std::string(text.data()), std::string(256, 'x'));
  utility_.SetMessageWindow(host_.GetDlgItem(kLabel));
  utility_.ErrorNo(7);
  EXPECT_EQ(driver::Window(host_.GetDlgItem(kLabel)->m_hWnd).Text(), std::string(151, 'x'));
  EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{0xFFFFFFFF});
}

TEST_F(UtilityInDialogTest, NumberedMessagesAreCutBetweenCharacters) {
  std::array<char, 257> text = {};
  utility_.SetMessageWindow(host_.GetDlgItem(kLabel));
  for (const auto& [head, found, shown] : {std::tuple{"", 128, 75}, {"x", 127, 75}}) {
    CwMessage::GetErrorTable()->SetMessage(7, Row(head, kStoredHyou, 300));
    utility_.GetMessageText(-7, text.data());
    EXPECT_EQ(std::string(text.data()), Row(head, "表", found));
    utility_.ErrorNo(-7);
    EXPECT_EQ(driver::Window(host_.GetDlgItem(kLabel)->m_hWnd).Text(), Row(head, "表", shown));
  }
}

// ---- caption, size and places

TEST_F(UtilityInDialogTest, TheCaptionIsTheParentsTitle) {
  EXPECT_STREQ(utility_.GetCaption(), kTitle);
  utility_.SetCaption("新しい題");
  EXPECT_EQ(driver::Window(host_.m_hWnd).Text(), "新しい題");
  EXPECT_STREQ(utility_.GetCaption(), "新しい題");
}

TEST_F(UtilityInDialogTest, ACaptionHas127Bytes) {
  std::string title = "a";
  for (int i = 0; i < 100; ++i) title += "表";
  utility_.SetCaption(title.c_str());
  EXPECT_EQ(std::string(utility_.GetCaption()), title.substr(0, 127));
  utility_.SetCaption(title.substr(1).c_str());
  EXPECT_EQ(std::string(utility_.GetCaption()), title.substr(1, 126));
  host_.SetWindowText(title.c_str());
  utility_.SetParentWindow(&host_);
  EXPECT_EQ(std::string(utility_.GetCaption()), title.substr(0, 127));
}

TEST_F(UtilityInDialogTest, ACaptionOutlivesTheParent) {
  utility_.SetParentWindow(nullptr);
  EXPECT_STREQ(utility_.GetCaption(), kTitle);
  utility_.SetCaption("other");
  EXPECT_EQ(driver::Window(host_.m_hWnd).Text(), kTitle);
}

TEST_F(UtilityInDialogTest, ResizingKeepsThePlace) {
  const RECT before = host_.Place();
  utility_.ResizeWindow(0, 30);
  RECT after = host_.Place();
  EXPECT_EQ(after.left, before.left);
  EXPECT_EQ(after.top, before.top);
  EXPECT_EQ(after.right, before.right);
  EXPECT_EQ(after.bottom, before.bottom + 30);
  utility_.ResizeWindow(-7, -30);
  after = host_.Place();
  EXPECT_EQ(after.right, before.right - 7);
  EXPECT_EQ(after.bottom, before.bottom);
}

TEST_F(UtilityInDialogTest, TheMessageZoneAddsOneAndAHalfFontHeights) {
  const RECT before = host_.Place();
  utility_.SetMessageZone();
  EXPECT_EQ(host_.Place().bottom, before.bottom + 18);
  EXPECT_EQ(host_.Place().right, before.right);
}

TEST_F(UtilityInDialogTest, AControlIsMovedByAnOffset) {
  const driver::Window edit(host_.GetDlgItem(kEdit)->m_hWnd);
  const RECT before = edit.RectInParent();
  utility_.MoveWindow(host_.GetDlgItem(kEdit), 15, -4);
  const RECT after = edit.RectInParent();
  EXPECT_EQ(after.left, before.left + 15);
  EXPECT_EQ(after.top, before.top - 4);
  EXPECT_EQ(after.right, before.right + 15);
  EXPECT_EQ(after.bottom, before.bottom - 4);
  utility_.MoveWindow(nullptr, 1, 1);
}

TEST_F(UtilityInDialogTest, MovedControlsKeepTheirPlaceInTheTabOrder) {
  const std::vector<driver::Window> order = driver::Window(host_.m_hWnd).Children();
  ASSERT_GT(order.size(), 1U);
  for (const driver::Window& control : order) utility_.MoveWindow(CWnd::FromHandle(control.Handle()), 1, 1);
  EXPECT_EQ(driver::Window(host_.m_hWnd).Children(), order);
}

TEST_F(UtilityInDialogTest, TheFocusGoesToAControl) {
  host_.SetForegroundWindow();
  utility_.SetFocus(kEdit);
  EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), kEdit);
  utility_.SetFocus(12345);
  EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), kEdit);
}

// ---- file checks

TEST_F(UtilityInDialogTest, AnEmptyFileNameIsRefused) {
  int answer = 1;
  const MessageBoxView box = Ask([&] { answer = utility_.CheckFile(""); }, IDOK);
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(box.text, "ファイル名が入力されていません。");
  EXPECT_EQ(box.caption, kTitle);
  EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONHAND));
  EXPECT_EQ(owner_, host_.m_hWnd);
  EXPECT_EQ(beepsBefore_, 1U);
  EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{MB_ICONEXCLAMATION});
}

TEST_F(UtilityInDialogTest, AFileNameWithForbiddenCharactersIsRefused) {
  int answer = 1;
  const MessageBoxView box = Ask([&] { answer = utility_.CheckFile("a|b"); }, IDOK);
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(box.text, "ファイル名に無効な文字が使用されています。\n* ? ' | \" < > 及び半角カタカナは使用できません。");
  EXPECT_EQ(box.caption, kTitle);
  EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONHAND));
  EXPECT_TRUE(Beeps().empty());
}

TEST_F(UtilityInDialogTest, ATypedFileNameMayHoldWildcardsAndKatakana) {
  EXPECT_EQ(utility_.CheckFile("*.MDL"), 1);
  EXPECT_EQ(utility_.CheckFile("ｱ?"), 1);
  EXPECT_TRUE(Beeps().empty());
}

TEST_F(UtilityInDialogTest, AnInputFileMustExist) {
  os::scripted::World().files.AddFile("D:\\shop\\a.mdl");
  EXPECT_EQ(utility_.CheckInputFile("a.mdl"), 1);
  EXPECT_STREQ(utility_.GetFileName(), "D:\\shop\\a.mdl");
  EXPECT_TRUE(Beeps().empty());
  int answer = 1;
  const MessageBoxView box = Ask([&] { answer = utility_.CheckInputFile("b.mdl"); }, IDOK);
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(box.text, "File : D:\\shop\\b.mdl\n\n入力ファイルが見つかりません");
  EXPECT_EQ(box.caption, kTitle);
  EXPECT_EQ(owner_, host_.m_hWnd);
  EXPECT_EQ(beepsBefore_, 1U);
  EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONHAND));
  EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{MB_ICONEXCLAMATION});
}

TEST_F(UtilityInDialogTest, AnOutputFileIsWrittenOverUnlessTheUserSaysNo) {
  os::scripted::World().files.AddFile("D:\\shop\\a.mdl");
  for (const auto& [button, expected] : {std::pair{IDNO, 0}, {IDYES, 1}}) {
    int answer = -1;
    const MessageBoxView box = Ask([&] { answer = utility_.CheckOutputFile("a.mdl"); }, button);
    EXPECT_EQ(answer, expected);
    EXPECT_EQ(box.text, "File : D:\\shop\\a.mdl\n\n出力ファイルが既に存在します\n上書きしますか？");
    EXPECT_EQ(box.caption, kTitle);
    EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONEXCLAMATION));
    EXPECT_EQ(box.buttons, (std::vector<int>{IDYES, IDNO}));
    EXPECT_EQ(default_, IDYES);
    EXPECT_EQ(owner_, host_.m_hWnd);
    EXPECT_EQ(beepsBefore_, Beeps().size());
  }
  EXPECT_EQ(Beeps(), (std::vector<std::uint32_t>{MB_ICONEXCLAMATION, MB_ICONEXCLAMATION}));
}

TEST_F(UtilityInDialogTest, ANewOutputFileNeedsItsFolder) {
  EXPECT_EQ(utility_.CheckOutputFile("new.mdl"), 1);
  EXPECT_TRUE(Beeps().empty());
  int answer = 1;
  const MessageBoxView box = Ask([&] { answer = utility_.CheckOutputFile("D:\\表\\new.mdl"); }, IDOK);
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(box.text, "Folder : D:\\表\n\nフォルダが見つかりません");
  EXPECT_EQ(box.caption, kTitle);
  EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONHAND));
  EXPECT_STREQ(utility_.GetFileName(), "D:\\表\\new.mdl");
  EXPECT_EQ(beepsBefore_, 1U);
  EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{MB_ICONEXCLAMATION});
}

TEST_F(UtilityTest, AnOutputFileMayLieInTheRootOfADrive) {
  EXPECT_EQ(utility_.CheckOutputFile("D:\\new.mdl"), 1);
  EXPECT_STREQ(utility_.GetFileName(), "D:\\new.mdl");
  EXPECT_TRUE(Beeps().empty());
}

TEST_F(UtilityInDialogTest, TheCaptionOfTheMomentIsTheTitleOfABox) {
  utility_.SetCaption("別の題");
  EXPECT_EQ(Ask([&] { utility_.CheckFile("<"); }, IDOK).caption, "別の題");
  EXPECT_EQ(beepsBefore_, 0U);
}

TEST_F(UtilityInDialogTest, AFolderIsNoNewFileEither) {
  EXPECT_EQ(utility_.CheckInputFile("D:\\shop"), 1);
  int answer = 1;
  Ask([&] { answer = utility_.CheckOutputFile("D:\\shop"); }, IDNO);
  EXPECT_EQ(answer, 0);
}

TEST_F(UtilityTest, WithoutAParentABoxStandsAlone) {
  utility_.SetCaption("caption");
  int answer = 1;
  MessageBoxView box;
  HWND owner = nullptr;
  driver::RunDialog([&] { answer = utility_.CheckFile(""); },
                    [&](User& user) {
                      box = user.WaitMessageBox();
                      owner = box.window.Owner().Handle();
                      user.Answer(box, IDOK);
                    });
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(box.caption, "caption");
  EXPECT_EQ(owner, nullptr);
}

TEST_F(UtilityTest, WithoutAParentABoxBelongsToTheUtilitysOwnWindow) {
  Host host;
  ASSERT_TRUE(utility_.CStatic::Create("", WS_CHILD, RECT{0, 0, 9, 9}, &host, 77));
  HWND owner = nullptr;
  driver::RunDialog([&] { utility_.CheckFile(""); },
                    [&](User& user) {
                      const MessageBoxView box = user.WaitMessageBox();
                      owner = box.window.Owner().Handle();
                      user.Answer(box, IDOK);
                    });
  EXPECT_EQ(owner, host.m_hWnd);
}

TEST_F(UtilityInDialogTest, AnOutputNameWithoutASeparatorIsItsOwnFolder) {
  utility_.SetKeyword("#NONE#");
  int answer = 1;
  const MessageBoxView box = Ask([&] { answer = utility_.CheckOutputFile("new.mdl"); }, IDOK);
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(box.text, "Folder : new.mdl\n\nフォルダが見つかりません");
  EXPECT_EQ(Beeps(), std::vector<std::uint32_t>{MB_ICONEXCLAMATION});
}

TEST_F(UtilityTest, AccessAnswersForRealPathsAndNamesOfAKind) {
  os::scripted::World().files.AddFile("D:\\shop\\a.txt");
  EXPECT_EQ(utility_.Access("D:\\shop\\a.txt"), 0);
  EXPECT_EQ(utility_.Access("D:\\shop"), 0);
  EXPECT_EQ(utility_.Access("D:\\shop\\b.txt"), -1);
  EXPECT_EQ(utility_.Access("#TEXT#", "a.txt"), 0);
  EXPECT_STREQ(utility_.GetFileName(), "D:\\shop\\a.txt");
  EXPECT_EQ(utility_.Access("#TEXT#", "表.txt"), -1);
  EXPECT_STREQ(utility_.GetFileName(), "D:\\shop\\表.txt");
  EXPECT_EQ(std::string(utility_.GetFileName(1)), std::string("D:\\shop\\") + kStoredHyou + ".txt");
  EXPECT_EQ(utility_.GetFileName(0), utility_.GetFileName());
  EXPECT_EQ(utility_.GetFileName(2), utility_.GetFileName());
}

TEST_F(UtilityTest, TheNameBufferKeeps255Bytes) {
  const std::string name(300, 'x');
  os::scripted::World().files.AddFile("D:\\shop\\" + name);
  EXPECT_EQ(utility_.Access("#MODEL#", name.c_str()), 0);
  EXPECT_EQ(std::string(utility_.GetFileName()), ("D:\\shop\\" + name).substr(0, 255));
  EXPECT_EQ(utility_.Access("#MODEL#", std::string(100000, 'x').c_str()), -1);
}

// ---- names that may be Shift_JIS and EUC-JP: 図面 in EUC-JP is ｿﾞﾌﾌ in Shift_JIS

constexpr char kStoredDrawing[] = "\xBF\xDE\xCC\xCC.mdl";
constexpr char kDrawingPath[] = "D:\\shop\\図面.mdl";
constexpr char kKatakanaPath[] = "D:\\shop\\ｿﾞﾌﾌ.mdl";

TEST_F(UtilityTest, TheSuitesOwnFormOfAnEverydayNameComesBack) {
  std::array<char, 513> path = {"図面\\型番.mdl"};
  utility_.InternalPathName(path.data());
  utility_.RealPathName(path.data());
  EXPECT_STREQ(path.data(), "D:\\shop\\図面\\型番.mdl");
  utility_.RealPathName(path.data());
  EXPECT_STREQ(path.data(), "D:\\shop\\図面\\型番.mdl");
}

TEST_F(UtilityTest, AccessLooksForBothReadingsOfAName) {
  EXPECT_EQ(utility_.Access("#MODEL#", kStoredDrawing), -1);
  EXPECT_STREQ(utility_.GetFileName(), kDrawingPath);
  os::scripted::World().files.AddFile(kKatakanaPath);
  EXPECT_EQ(utility_.Access("#MODEL#", kStoredDrawing), 0);
  EXPECT_STREQ(utility_.GetFileName(), kKatakanaPath);
  os::scripted::World().files.AddFile(kDrawingPath);
  EXPECT_EQ(utility_.Access("#MODEL#", kStoredDrawing), 0);
  EXPECT_STREQ(utility_.GetFileName(), kDrawingPath);
}

TEST_F(UtilityInDialogTest, AnInputFileIsLookedForInBothReadingsOfItsName) {
  int answer = 1;
  const MessageBoxView box = Ask([&] { answer = utility_.CheckInputFile(kStoredDrawing); }, IDOK);
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(box.text, std::string("File : ") + kDrawingPath + "\n\n入力ファイルが見つかりません");
  os::scripted::World().files.AddFile(kKatakanaPath);
  driver::RunDialog([&] { answer = utility_.CheckInputFile(kStoredDrawing); }, [](User&) {});
  EXPECT_EQ(answer, 1);
  EXPECT_STREQ(utility_.GetFileName(), kKatakanaPath);
}

TEST_F(UtilityInDialogTest, AnOutputFileIsLookedForInBothReadingsOfItsName) {
  EXPECT_EQ(utility_.CheckOutputFile(kStoredDrawing), 1);
  EXPECT_STREQ(utility_.GetFileName(), kDrawingPath);
  os::scripted::World().files.AddFile(kKatakanaPath);
  int answer = 1;
  const MessageBoxView box = Ask([&] { answer = utility_.CheckOutputFile(kStoredDrawing); }, IDNO);
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(box.text, std::string("File : ") + kKatakanaPath + "\n\n出力ファイルが既に存在します\n上書きしますか？");
  EXPECT_STREQ(utility_.GetFileName(), kKatakanaPath);
}

TEST_F(UtilityTest, ANewOutputFileLiesInTheFolderThatIsThere) {
  os::scripted::World().files.AddFolder("D:\\ﾃﾞｰﾀ");
  int answer = 0;
  driver::RunDialog([&] { answer = utility_.CheckOutputFile("D:\\ﾃﾞｰﾀ\\new.mdl"); }, [](User&) {});
  EXPECT_EQ(answer, 1);
  EXPECT_STREQ(utility_.GetFileName(), "D:\\ﾃﾞｰﾀ\\new.mdl");
  EXPECT_TRUE(Beeps().empty());
}

// ---- path names

TEST_F(UtilityTest, PathsAreConvertedInPlace) {
  std::array<char, 513> path = {"a/表.mdl"};
  EXPECT_EQ(utility_.RealPathName(path.data()), 0);
  EXPECT_STREQ(path.data(), "D:\\shop\\a\\表.mdl");
  EXPECT_EQ(utility_.InternalPathName(path.data()), 0);
  EXPECT_EQ(std::string(path.data()), std::string("D:/shop/a/") + kStoredHyou + ".mdl");
  path = {"b"};
  EXPECT_EQ(utility_.RealPathName("#NONE#", path.data()), 0);
  EXPECT_STREQ(path.data(), "b");
  EXPECT_EQ(utility_.InternalPathName("#TEXT#", path.data()), 0);
  EXPECT_STREQ(path.data(), "D:/shop/b");
}

TEST_F(UtilityTest, PositionsPointIntoTheCallersText) {
  char path[] = "x/y\\z";
  EXPECT_EQ(utility_.GetFileNamePos(path), path + 4);
  const CString text("abc");
  EXPECT_STREQ(utility_.GetFileNamePos(text), "abc");
  EXPECT_STREQ(utility_.GetFileNamePos("dir/"), "");
  EXPECT_EQ(utility_.Strrchr(path, '\\'), path + 3);
  EXPECT_EQ(utility_.Strrchr("表", '\\'), nullptr);
  EXPECT_EQ(utility_.Strrchr("", 'a'), nullptr);
}

TEST_F(UtilityTest, TheLetterCaseOfAKind) {
  EXPECT_EQ(utility_.GetFilnameUL("xx#MODEL#yy"), 1);
  EXPECT_EQ(utility_.GetFilnameUL("#TEXT#"), -1);
  EXPECT_EQ(utility_.GetFilnameUL("#RASTER#"), 0);
  EXPECT_EQ(utility_.GetFilnameUL("#NONE#"), 0);
  EXPECT_EQ(utility_.GetFilnameUL(""), 0);
}

TEST_F(UtilityTest, FloppyNamesLieInTheDrivesRoot) {
  utility_.SetFloppy("#MODEL#");
  const CwFileType* kind = Kinds().GetFileType("#FLOPPY_WIN#");
  ASSERT_NE(kind, nullptr);
  EXPECT_EQ(kind->GetFolder(), "A:/");
  EXPECT_EQ(kind->GetPatterns(), "*.MDL");
  EXPECT_EQ(kind->GetFlag(), 0);
  EXPECT_FALSE(kind->IsUpperCase() || kind->IsLowerCase());
  Kinds().AddFileType(CwFileType("#FLOPPY#", "B:/floppy", "*", 0));
  utility_.SetFloppy("#NONE#");
  kind = Kinds().GetFileType("#FLOPPY_WIN#");
  EXPECT_EQ(kind->GetFolder(), "B:/");
  EXPECT_EQ(kind->GetPatterns(), "");
  std::array<char, 513> path = {"a.mdl"};
  utility_.RealPathName(path.data());
  EXPECT_STREQ(path.data(), "B:\\a.mdl");
}

TEST_F(UtilityTest, NamesAreCheckedInEveryShape) {
  char name[] = "a*b";
  EXPECT_EQ(utility_.CheckFileName("a*b", 0), 0);
  EXPECT_EQ(utility_.CheckFileName("a*b", 1), 1);
  EXPECT_EQ(utility_.CheckFileName("a*b"), 0);
  EXPECT_EQ(utility_.CheckFileName(name), 0);
  EXPECT_EQ(utility_.CheckFileName(CString("a*b")), 0);
  EXPECT_EQ(utility_.CheckFileName(CString("ｱ")), 1);
  EXPECT_EQ(utility_.CheckFileName(""), 1);
  EXPECT_EQ(utility_.CheckModelName("表"), 0);
  EXPECT_EQ(utility_.CheckModelName(name), 0);
  EXPECT_EQ(utility_.CheckModelName(CString("漢字")), 1);
}

// ---- conversions

TEST_F(UtilityTest, StoredTextsAreConvertedIntoARoom) {
  std::array<char, 16> out = {};
  utility_.EucToSjis("\x8D\xB1\r", out.data(), 16);
  EXPECT_STREQ(out.data(), "<mc>1<cr>");
  utility_.SjisToEuc("0123456789", out.data(), 4);
  EXPECT_STREQ(out.data(), "012");
  utility_.SjisToEuc("<mc>;", out.data(), 16);
  EXPECT_STREQ(out.data(), "\x8D\xDA");
  for (const int size : {0, -1, std::numeric_limits<int>::min()}) {
    out = {"kept"};
    utility_.SjisToEuc("abc", out.data(), size);
    utility_.EucToSjis("abc", out.data(), size);
    EXPECT_STREQ(out.data(), "kept");
  }
  utility_.EucToSjis("abc", out.data(), 1);
  EXPECT_STREQ(out.data(), "");
}

TEST_F(UtilityTest, TextsAreConvertedInPlace) {
  std::array<char, 513> text = {"表<cr>"};
  utility_.ToEUC(text.data());
  EXPECT_EQ(std::string(text.data()), std::string(kStoredHyou) + "\r");
  utility_.ToSJIS(text.data());
  EXPECT_STREQ(text.data(), "表<cr>");
}

TEST_F(UtilityTest, ATextObjectIsConvertedIntoARoomButNeverInPlace) {
  const CString text("表");
  std::array<char, 513> out = {};
  utility_.ToEUC(text, out.data());
  EXPECT_STREQ(out.data(), kStoredHyou);
  utility_.ToEUC(text);
  EXPECT_EQ(text, "表");
}

TEST_F(UtilityTest, InPlaceConversionsStayWithin512Bytes) {
  std::vector<char> text(100001, 'x');
  text.back() = '\0';
  utility_.ToEUC(text.data());
  EXPECT_EQ(std::string(text.data()), std::string(512, 'x'));
  text.assign(100001, '\r');
  text.back() = '\0';
  utility_.ToSJIS(text.data());
  EXPECT_EQ(std::string(text.data()).size(), 512U);
  std::array<char, 513> out = {};
  utility_.ToEUC(CString('x', 100000), out.data());
  EXPECT_EQ(std::string(out.data()), std::string(512, 'x'));
}

/// Rooms end in the middle of a two-byte character here: it is left out whole on its way to the screen.
TEST_F(UtilityTest, RoomsHoldWholeCharacters) {
  std::array<char, 700> text = {};
  utility_.ToEUC(CString(Row("x", "表", 300)), text.data());
  EXPECT_EQ(std::string(text.data()), Row("x", kStoredHyou, 255));
  Row("x", kStoredHyou, 300).copy(text.data(), text.size());
  utility_.ToSJIS(text.data());
  EXPECT_EQ(std::string(text.data()), Row("x", "表", 255));
  utility_.EucToSjis(Row("x", kStoredHyou, 9).c_str(), text.data(), 3);
  EXPECT_STREQ(text.data(), "x");
  const char* work = utility_.GetFileName(1);
  utility_.CheckNumber(CString(Row("1", "表", 300)), 0, 0, 1);
  EXPECT_EQ(std::string(work), Row("1", "表", 255));
  CString shown;
  utility_.SetTextData(&shown, Row("x", kStoredHyou, 300).c_str());
  EXPECT_EQ(std::string(shown.View()), Row("x", "表", 255));
}

TEST_F(UtilityTest, TheWorkBufferTakesTheTextsOfTwoConversionsOnly) {
  const char* work = utility_.GetFileName(1);
  std::array<char, 513> text = {};
  utility_.ToEUC(CString("表<cr>"), text.data());
  EXPECT_STREQ(work, "表<cr>");
  utility_.ToSJIS(text.data());
  EXPECT_EQ(std::string(work), std::string(kStoredHyou) + "\r");
  utility_.CheckNumber("12", 0, 1, 100);
  utility_.ToEUC(CString("other"));
  utility_.ToEUC(text.data());
  utility_.EucToSjis(kStoredHyou, text.data(), 513);
  utility_.SjisToEuc("表", text.data(), 513);
  CString shown;
  utility_.SetTextData(&shown, kStoredHyou);
  utility_.GetTextData(shown, text.data(), 513);
  utility_.RealPathName(text.data());
  utility_.CheckFileName("a*b");
  utility_.CheckModelName("a*b");
  utility_.Access("#TEXT#", "other.txt");
  utility_.DisplayScale(0.5, text.data());
  utility_.DtoA(0.5);
  utility_.GetMessageText(5, text.data());
  EXPECT_STREQ(work, "12");
}

/// What is stored ends at the byte.
TEST_F(UtilityTest, StoredTextsAreCutAtTheByte) {
  std::array<char, 700> text = {};
  utility_.SjisToEuc("x表", text.data(), 3);
  EXPECT_STREQ(text.data(), "x\xC9");
  Row("x", "表", 300).copy(text.data(), text.size());
  utility_.ToEUC(text.data());
  EXPECT_EQ(std::string(text.data()), Row("x", kStoredHyou, 255) + "\xC9");
  utility_.GetTextData("ｱｱ", text.data(), 4);
  EXPECT_STREQ(text.data(), "\x8E\xB1\x8E");
}

TEST_F(UtilityTest, BlanksThatACutLeavesAtTheEndGoToo) {
  std::array<char, 8> out = {};
  utility_.GetTextData("a b", out.data(), 3);
  EXPECT_STREQ(out.data(), "a");
  CString shown;
  utility_.SetTextData(&shown, (std::string(511, 'x') + " y").c_str());
  EXPECT_EQ(std::string(shown.View()), std::string(511, 'x'));
}

// ---- checks and numbers

TEST_F(UtilityTest, NumbersLeaveTheirTextInTheWorkBuffer) {
  const char* work = utility_.GetFileName(1);
  EXPECT_EQ(utility_.CheckNumber("5", 0, 1, 10), 1);
  EXPECT_STREQ(work, "5");
  EXPECT_EQ(utility_.CheckNumber(CString("x"), 0, 1, 10), 0);
  EXPECT_STREQ(work, "x");
  double scale = 7;
  EXPECT_EQ(utility_.CheckScale("1/500", &scale), 1);
  EXPECT_EQ(scale, 0.002);
  EXPECT_STREQ(work, "500");
  EXPECT_EQ(utility_.CheckScale("0", &scale), 0);
  EXPECT_EQ(scale, 0);
}

TEST_F(UtilityTest, NumbersAreWritten) {
  std::array<char, 32> text = {};
  utility_.DisplayScale(0.002, text.data());
  EXPECT_STREQ(text.data(), "1/500");
  utility_.DisplayScale(1.5, text.data());
  EXPECT_STREQ(text.data(), "1.5");
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const auto& [scale, shown] : {std::pair{kInfinity, "INF"},
                                     {-kInfinity, "-INF"},
                                     {std::numeric_limits<double>::quiet_NaN(), "NAN"},
                                     {0.0, "0"},
                                     {0.3, "0.3"},
                                     {0.9995, "1/1"},
                                     {123456789.0, "123456789"},
                                     {1e15, "1.00000000000000E+15"},
                                     {1e20, "1.00000000000000E+2"}}) {  // the zero of the exponent goes too
    utility_.DisplayScale(scale, text.data());
    EXPECT_STREQ(text.data(), shown);
  }
  EXPECT_STREQ(utility_.DtoA(-kInfinity), "-inf");
  EXPECT_STREQ(utility_.DtoA(1e20), "100000000000000000000.0");
  EXPECT_STREQ(utility_.DtoA(0.12345678912), "0.12345679");
  char* first = utility_.DtoA(0.25);
  EXPECT_STREQ(first, "0.25");
  CvUtility other;
  EXPECT_EQ(other.DtoA(0), first);
  EXPECT_STREQ(first, "0.0");
}

TEST_F(UtilityTest, BitsAndCharacters) {
  std::array<short, 2> words = {};
  EXPECT_EQ(utility_.BitSet(1, 16, words.data()), -1);
  EXPECT_EQ(words[0], 1);
  EXPECT_EQ(utility_.BitSet(2, 16, words.data()), 1);
  EXPECT_EQ(utility_.BitSet(1, 17, words.data()), -1);
  EXPECT_EQ(words[1], std::numeric_limits<short>::min());
  EXPECT_EQ(utility_.CheckChar(4, '7'), 1);
  EXPECT_EQ(utility_.CheckChar(4, 'A'), 0);
  EXPECT_EQ(utility_.CheckChar(16, 0xB1), 1);
  EXPECT_EQ(utility_.CheckChar(~16U, 0xB1), 0);
}

TEST_F(UtilityTest, EveryMaskAllowsItsClassesOnly) {
  for (unsigned int code = 0; code < 0x200; ++code) {
    unsigned int bit = 32;
    if (code < 0x80) bit = 8;
    if (code >= 'A' && code <= 'Z') bit = 1;
    if (code >= 'a' && code <= 'z') bit = 2;
    if (code >= '0' && code <= '9') bit = 4;
    if (code >= 0xA0 && code <= 0xDF) bit = 16;
    for (unsigned int mask = 0; mask < 64; ++mask) {
      ASSERT_EQ(utility_.CheckChar(mask, code), (mask & bit) != 0 ? 1 : 0) << mask << ' ' << code;
    }
  }
  EXPECT_EQ(utility_.CheckChar(32, 0x889F), 1);
  EXPECT_EQ(utility_.CheckChar(32, 0xFFFFFFFF), 1);
}

TEST_F(UtilityTest, TextsOfAnyLengthAreChecked) {
  for (const std::size_t length : {0U, 1U, 511U, 512U, 513U, 100000U}) {
    const std::string digits(length, '1');
    const std::string bad = digits + "|";
    const int expected = length >= 1 && length <= 512 ? 1 : 0;
    double scale = 7;
    EXPECT_EQ(utility_.CheckNumber(digits.c_str(), 0, 0, std::numeric_limits<double>::infinity()), expected) << length;
    EXPECT_EQ(utility_.CheckScale((std::string(length, '0') + "/2").c_str(), &scale), 0) << length;
    EXPECT_EQ(scale, 0) << length;
    EXPECT_EQ(utility_.CheckModelName(digits.c_str()), 1) << length;
    EXPECT_EQ(utility_.CheckModelName(bad.c_str()), 0) << length;
    EXPECT_EQ(utility_.CheckModelName(CString(bad)), 0) << length;
    EXPECT_EQ(utility_.CheckFileName(CString(digits)), 1) << length;
    EXPECT_EQ(utility_.CheckFileName(bad.c_str(), 1), 0) << length;
    EXPECT_EQ(utility_.GetFilnameUL(digits.c_str()), 0) << length;
    EXPECT_EQ(utility_.Access(bad.c_str()), -1) << length;
    EXPECT_EQ(utility_.Access(digits.c_str(), bad.c_str()), -1) << length;
    EXPECT_LE(std::string(utility_.GetFileName(1)).size(), 512U) << length;
  }
}

TEST_F(UtilityTest, TextsOfAnyLengthAreConvertedWithinTheirRooms) {
  for (const std::size_t length : {0U, 1U, 511U, 512U, 513U, 100000U}) {
    const std::string text(length, 'x');
    const std::string cut = text.substr(0, 512);
    std::vector<char> room(std::max<std::size_t>(length + 1, 513));
    const auto fill = [&] { std::copy_n(text.c_str(), length + 1, room.begin()); };
    fill();
    utility_.ToEUC(room.data());
    EXPECT_EQ(room.data(), cut);
    fill();
    utility_.ToSJIS(room.data());
    EXPECT_EQ(room.data(), cut);
    fill();
    utility_.RealPathName("#NONE#", room.data());
    EXPECT_EQ(room.data(), cut);
    fill();
    utility_.InternalPathName("#NONE#", room.data());
    EXPECT_EQ(room.data(), cut);
    CString object;
    utility_.SetTextData(&object, text.c_str());
    EXPECT_EQ(object, cut.c_str());
    std::array<char, 513> out = {};
    utility_.GetTextData(CString(text), out.data(), 513);
    EXPECT_EQ(out.data(), cut);
    utility_.ToEUC(CString(text), out.data());
    EXPECT_EQ(out.data(), cut);
  }
}

TEST_F(UtilityTest, OddNumbersAreWrittenWithinTheirRooms) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double value : {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity,
                             std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::min(),
                             std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(), 0.0, -0.0}) {
    std::array<char, 33> text = {};
    text.fill('#');
    utility_.DisplayScale(value, text.data());
    EXPECT_NE(text[0], '\0') << value;
    EXPECT_LE(std::string(text.data()).size(), 31U) << value;
    EXPECT_EQ(text[32], '#') << value;
    EXPECT_STRNE(utility_.DtoA(value), "") << value;
  }
}

TEST_F(UtilityTest, BlanksBehindTerminatorsStay) {
  CString object("ab  ");
  utility_.ExceptSpace(&object);
  utility_.ExceptSpace(&object);
  EXPECT_EQ(object.View(), std::string_view("ab\0\0", 4));
  object = CString(std::string_view("a \0", 3));
  utility_.ExceptSpace(&object);
  EXPECT_EQ(object.View(), std::string_view("a \0", 3));
}

TEST_F(UtilityTest, BlanksAtTheEndAreRemoved) {
  std::array<char, 8> text = {"   "};
  utility_.SpaceNull(text.data());
  EXPECT_STREQ(text.data(), "");
  CString object("   ");
  utility_.ExceptSpace(&object);
  EXPECT_STREQ(object.GetString(), " ");
  EXPECT_EQ(object.GetLength(), 3);
  object = "a b  ";
  utility_.ExceptSpace(&object);
  EXPECT_STREQ(object.GetString(), "a b");
  EXPECT_EQ(object.GetLength(), 5);
  object = "";
  utility_.ExceptSpace(&object);
  EXPECT_EQ(object.GetLength(), 0);
}

// ---- controls

TEST_F(UtilityInDialogTest, LeavingAnEditTrimsItsTextAndClearsTheZone) {
  utility_.MessageText("prompt");
  host_.SetDlgItemText(kEdit, "表 a   ");
  utility_.KillFocus(&host_.edited);
  EXPECT_EQ(host_.edited, "表 a");
  EXPECT_EQ(host_.edited.GetLength(), 4);
  EXPECT_EQ(driver::Window(host_.GetDlgItem(kEdit)->m_hWnd).Text(), "表 a");
  EXPECT_EQ(host_.exchanges, 2);
  EXPECT_EQ(host_.CountPixels(kBlack, host_.ClientBottom() - 18), 0);
}

TEST_F(UtilityInDialogTest, LeavingAnEditOfBlanksEmptiesItAndTheMessageWindow) {
  utility_.SetMessageWindow(host_.GetDlgItem(kLabel));
  utility_.MessageText("prompt");
  host_.SetDlgItemText(kEdit, "   ");
  CString other("x ");
  utility_.KillFocus(&other);
  EXPECT_EQ(other, "x");
  EXPECT_EQ(host_.edited, "   ");
  utility_.KillFocus(&host_.edited);
  EXPECT_EQ(host_.edited, "");
  EXPECT_EQ(driver::Window(host_.GetDlgItem(kEdit)->m_hWnd).Text(), "");
  EXPECT_EQ(driver::Window(host_.GetDlgItem(kLabel)->m_hWnd).Text(), "");
}

/// The dialog's fields are 8-bit ones.
class ComposingInDialogTest : public UtilityInDialogTest {};

TEST_F(ComposingInDialogTest, AFieldThatIsLeftInTheMiddleOfAWordKeepsItsText) {
  driver::Window field(host_.GetDlgItem(kEdit)->m_hWnd);
  host_.SetDlgItemText(kEdit, "表 ");
  host_.GetDlgItem(kEdit)->SetFocus();
  japanese_input::BeginComposition(field, "にほ");
  host_.combo.SetFocus();
  utility_.KillFocus(&host_.edited);
  EXPECT_EQ(host_.edited, "表");
  EXPECT_EQ(field.Text(), "表");
}

TEST_F(ComposingInDialogTest, NoFieldIsReadWhileAWordIsComposedInOne) {
  driver::Window field(host_.GetDlgItem(kEdit)->m_hWnd);
  host_.edited = "表 ";
  host_.GetDlgItem(kEdit)->SetFocus();
  japanese_input::BeginComposition(field, "にほ");
  utility_.KillFocus(&host_.edited);
  EXPECT_EQ(host_.edited, "表 ");
  EXPECT_EQ(host_.exchanges, 0);
  EXPECT_EQ(field.Text(), "にほ") << "it goes on";
  japanese_input::EndComposition(field);
  utility_.KillFocus(&host_.edited);
  EXPECT_EQ(host_.edited, "にほ");
}

TEST_F(ComposingInDialogTest, TheFieldOfAComboBoxThatIsLeftInTheMiddleOfAWordKeepsItsText) {
  driver::Window box(host_.combo.m_hWnd);
  driver::Window field = box.FindChildOfClass("Edit");
  host_.combo.SetWindowText("表");
  host_.combo.SetFocus();
  japanese_input::BeginComposition(field, "にほ");
  host_.GetDlgItem(kEdit)->SetFocus();
  EXPECT_EQ(box.Text(), "表");
}

TEST_F(ComposingInDialogTest, AFieldMadeLaterIsKeptWholeOnceAFieldHasBeenLeft) {
  const HWND made = ::CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 10, 100, 100, 20, host_.m_hWnd, nullptr,
                                      nullptr, nullptr);
  driver::Window field(made);
  utility_.KillFocus(&host_.edited);
  ::SetFocus(made);
  japanese_input::BeginComposition(field, "にほ");
  host_.GetDlgItem(kEdit)->SetFocus();
  EXPECT_EQ(field.Text(), "");
}

TEST_F(UtilityInDialogTest, AnEditGetsTheLetterCaseOfItsKind) {
  const driver::Window edit(host_.GetDlgItem(kEdit)->m_hWnd);
  constexpr DWORD kBoth = ES_UPPERCASE | ES_LOWERCASE;
  utility_.SetEditBoxStyle(kEdit, "#NONE#");
  EXPECT_EQ(edit.Style() & kBoth, 0U);
  utility_.SetEditBoxStyle(kEdit, "#MODEL#");
  EXPECT_EQ(edit.Style() & kBoth, static_cast<DWORD>(ES_UPPERCASE));
  utility_.SetEditBoxStyle(kEdit, "#TEXT#");
  EXPECT_EQ(edit.Style() & kBoth, static_cast<DWORD>(ES_LOWERCASE));
  utility_.SetEditBoxStyle(kEdit, "#MODEL#");
  EXPECT_EQ(edit.Style() & kBoth, static_cast<DWORD>(ES_UPPERCASE));
  utility_.SetEditBoxStyle(kEdit, "#TEXT#");
  utility_.SetEditBoxStyle(kEdit, "#RASTER#");
  EXPECT_EQ(edit.Style() & kBoth, static_cast<DWORD>(ES_LOWERCASE));
  utility_.SetEditBoxStyle(12345, "#MODEL#");
}

TEST_F(UtilityInDialogTest, StoredTextsGoToControlsAndTexts) {
  const std::string euc = std::string(kStoredHyou) + "\x8D\xB0" + "  ";
  utility_.SetTextData(host_.GetDlgItem(kEdit), euc.c_str());
  EXPECT_EQ(driver::Window(host_.GetDlgItem(kEdit)->m_hWnd).Text(), "表<mc>0");
  CString text;
  utility_.SetTextData(&text, euc.c_str());
  EXPECT_EQ(text, "表<mc>0");
  EXPECT_EQ(text.GetLength(), 7);
  utility_.SetTextData(&text, std::string(100000, 'x').c_str());
  EXPECT_EQ(text.GetLength(), 512);
}

TEST_F(UtilityInDialogTest, TextsOfControlsAreStored) {
  std::array<char, 600> out = {};
  host_.SetDlgItemText(kEdit, "表<mc>0  ");
  utility_.GetTextData(host_.GetDlgItem(kEdit), out.data(), 600);
  EXPECT_EQ(std::string(out.data()), std::string(kStoredHyou) + "\x8D\xB0");
  utility_.GetTextData(host_.GetDlgItem(kEdit), out.data(), 3);
  EXPECT_STREQ(out.data(), kStoredHyou);
  utility_.GetTextData(CString("a<cr> "), out.data(), 600);
  EXPECT_STREQ(out.data(), "a\r");
  utility_.GetTextData("literal", out.data(), 4);
  EXPECT_STREQ(out.data(), "lit");
  host_.SetDlgItemText(kEdit, std::string(590, 'x').c_str());
  utility_.GetTextData(host_.GetDlgItem(kEdit), out.data(), 600);
  EXPECT_EQ(std::string(out.data()), std::string(512, 'x'));
}

// AD F0 is shown as the character of A2 E2, and comes back from a window as that one.
TEST_F(UtilityInDialogTest, ATextThatAControlGivesBackUntouchedKeepsItsBytes) {
  std::array<char, 600> out = {};
  CWnd* const edit = host_.GetDlgItem(kEdit);
  for (const std::string euc : {"\xAD\xF0", "a\xAD\xF0\x8D\xB0", "\xA2\xE2\xAD\xF0"}) {
    utility_.SetTextData(edit, euc.c_str());
    utility_.GetTextData(edit, out.data(), 600);
    EXPECT_EQ(std::string(out.data()), euc);
    edit->SendMessage(EM_SETSEL, 0, 0);
    edit->SendMessage(WM_CHAR, 'x');
    utility_.GetTextData(edit, out.data(), 600);
    EXPECT_EQ(std::string(out.data()), "x" + euc);
  }
  edit->SetWindowText("other");
  utility_.GetTextData(edit, out.data(), 600);
  EXPECT_STREQ(out.data(), "other");
}

// 87 90 is shown as the character of 81 E0, and comes back from a window as that one.
TEST_F(UtilityInDialogTest, AMemberWhoseControlIsOnlyLeftKeepsItsBytes) {
  host_.edited = "\x87\x90";
  host_.UpdateData(FALSE);
  utility_.KillFocus(&host_.edited);
  EXPECT_EQ(std::string(host_.edited.GetString()), "\x87\x90");
  host_.SetDlgItemText(kEdit, "\x87\x90x");
  utility_.KillFocus(&host_.edited);
  EXPECT_EQ(std::string(host_.edited.GetString()), "\x81\xE0x");
}

TEST_F(UtilityInDialogTest, WindowsGiveAndTakeWholeCharacters) {
  std::array<char, 1300> out = {};
  host_.SetDlgItemText(kEdit, Row("x", "表", 300).c_str());
  utility_.GetTextData(host_.GetDlgItem(kEdit), out.data(), 1300);
  EXPECT_EQ(std::string(out.data()), Row("x", kStoredHyou, 255));
  host_.SetDlgItemText(kEdit, Row("", "ｱ", 600).c_str());
  utility_.GetTextData(host_.GetDlgItem(kEdit), out.data(), 1300);
  EXPECT_EQ(std::string(out.data()), Row("", "\x8E\xB1", 512));
  utility_.SetTextData(host_.GetDlgItem(kEdit), Row("x", kStoredHyou, 300).c_str());
  EXPECT_EQ(driver::Window(host_.GetDlgItem(kEdit)->m_hWnd).Text(), Row("x", "表", 255));
}

// ---- history

[[nodiscard]] Texts TextsOf(const CStringArray& array) {
  Texts texts;
  for (int i = 0; i < array.GetSize(); ++i) texts.emplace_back(array.GetAt(i).GetString());
  return texts;
}

[[nodiscard]] CStringArray ArrayOf(const Texts& texts) {
  CStringArray array;
  for (const std::string& text : texts) array.Add(text.c_str());
  return array;
}

TEST_F(UtilityInDialogTest, AMissingKeyIsMadeAndReadsEmpty) {
  CStringArray files = ArrayOf({"old"});
  int count = 3;
  host_.combo.AddString("old");
  utility_.GetUsedFile("#MODEL#", 0, &files, &count, &host_.combo);
  EXPECT_EQ(files.GetSize(), 0);
  EXPECT_EQ(count, 10);
  EXPECT_EQ(host_.ComboItems(), Texts{});
  EXPECT_NE(os::scripted::World().registry.FindKey("Software\\Nalbo\\Corvane\\FileDialog\\Use #MODEL#"), nullptr);
}

TEST_F(UtilityInDialogTest, WhatIsWrittenIsReadAndShown) {
  int count = 2;
  CStringArray files = ArrayOf({"a", "", "表"});
  utility_.SetUsedFile("#MODEL#", 1, &files, &count);
  count = 3;
  files = ArrayOf({"in"});
  utility_.SetUsedFile("#MODEL#", 0, &files, &count);
  files = ArrayOf({"name"});
  utility_.SetUsedName("#MODEL#", &files, &count);
  utility_.GetUsedFile("#MODEL#", 5, &files, &count, &host_.combo);
  EXPECT_EQ(TextsOf(files), Texts{"a"});
  EXPECT_EQ(count, 2);
  EXPECT_EQ(host_.ComboItems(), Texts{"a "});
  utility_.GetUsedFile("#MODEL#", 0, &files, &count, &host_.combo);
  EXPECT_EQ(TextsOf(files), Texts{"in"});
  EXPECT_EQ(count, 3);
  utility_.GetUsedName("#MODEL#", &files, &count, &host_.combo);
  EXPECT_EQ(TextsOf(files), Texts{"name"});
  EXPECT_EQ(host_.ComboItems(), Texts{"name "});
}

TEST_F(UtilityInDialogTest, AKeyThatCannotBeOpenedLeavesTheCallersList) {
  os::scripted::World().registry.MakeUnopenable("Software\\Nalbo\\Corvane\\XRF\\Use #MODEL#");
  CStringArray names = ArrayOf({"a", "b", "c"});
  int count = 2;
  host_.combo.AddString("old");
  utility_.GetUsedName("#MODEL#", &names, &count, &host_.combo);
  EXPECT_EQ(TextsOf(names), (Texts{"a", "b", "c"}));
  EXPECT_EQ(count, 2);
  EXPECT_EQ(host_.ComboItems(), (Texts{"a ", "b "}));
  utility_.SetUsedName("#MODEL#", &names, &count);
}

TEST_F(UtilityInDialogTest, FilesOfAKeyThatCannotBeOpenedStayAsTheyAre) {
  const std::string key = "Software\\Nalbo\\Corvane\\FileDialog\\Use #MODEL#";
  os::scripted::World().registry.MakeUnopenable(key);
  for (const int output : {0, 1}) {
    CStringArray files = ArrayOf({"a", "", "c"});
    int count = 25;
    utility_.SetUsedFile("#MODEL#", output, &files, &count);
    utility_.GetUsedFile("#MODEL#", output, &files, &count, &host_.combo);
    EXPECT_EQ(TextsOf(files), (Texts{"a", "", "c"}));
    EXPECT_EQ(count, 25);
    EXPECT_EQ(host_.ComboItems(), (Texts{"a ", "c "}));
  }
}

/// What the key of the names holds under a value's name; none for no value.
[[nodiscard]] std::optional<std::string> StoredName(const char* value) {
  const auto stored = os::scripted::World().registry.Value("Software\\Nalbo\\Corvane\\XRF\\Use #MODEL#", value);
  if (!stored) return std::nullopt;
  return stored->bytes;
}

class UtilityHistoryTest : public UtilityTest {
 protected:
  void Read() { utility_.GetUsedName("#MODEL#", &names_, &count_, nullptr); }
  void Write(const Texts& names) {
    names_ = ArrayOf(names);
    utility_.SetUsedName("#MODEL#", &names_, &count_);
  }
  /// As another program of the suite does it.
  static void Store(const Texts& names) {
    CvUtility other;
    int count = 7;
    const CStringArray array = ArrayOf(names);
    other.SetUsedName("#MODEL#", &array, &count);
  }

  os::scripted::RegistryStore& registry_ = os::scripted::World().registry;
  const std::string key_ = "Software\\Nalbo\\Corvane\\XRF\\Use #MODEL#";
  CStringArray names_;
  int count_ = 5;
};

TEST_F(UtilityHistoryTest, AListThatWasNeverReadIsWritten) {
  Store({"a", "b", "c"});
  Write({"new"});
  EXPECT_EQ(StoredName("Name01"), "new");
  EXPECT_EQ(StoredName("Name02"), std::nullopt);
}

TEST_F(UtilityHistoryTest, AListWhoseKeyCouldNotBeOpenedIsWrittenWhereItHoldsNothing) {
  registry_.MakeUnopenable(key_);
  Read();
  Write({"lost"});
  EXPECT_EQ(StoredName("Name01"), std::nullopt);
  registry_.MakeUnopenable(key_, 0);
  for (const char* name : {"first", "second"}) {  // what it holds then is the utility's own
    Write({name});
    EXPECT_EQ(StoredName("Name01"), name);
  }
}

TEST_F(UtilityHistoryTest, AListWhoseKeyCouldNotBeOpenedIsNotReplaced) {
  Store({"a", "b"});
  registry_.MakeUnopenable(key_);
  Read();
  registry_.MakeUnopenable(key_, 0);
  Write({"new"});
  EXPECT_EQ(StoredName("Name01"), "a");
  EXPECT_EQ(StoredName("Name02"), "b");
  Read();
  EXPECT_EQ(TextsOf(names_), (Texts{"a", "b"}));
  Write({"new", "a", "b"});
  EXPECT_EQ(StoredName("Name03"), "b");
}

TEST_F(UtilityHistoryTest, AListOfWhichAValueCouldNotBeReadIsNotReplaced) {
  Store({"a", "b"});
  for (const int failing : {1, 2}) {  // the count; the count and the first entry
    os::scripted::World().calls.FailNext("registry.Query", os::kErrorAccessDenied, failing);
    Read();
    Write({"new"});
    EXPECT_EQ(StoredName("Name01"), "a");
  }
  Read();
  Write({"new"});
  EXPECT_EQ(StoredName("Name01"), "new");
  EXPECT_EQ(StoredName("Name02"), std::nullopt);
}

TEST_F(UtilityHistoryTest, AnEntryThatIsTooLongToBeReadKeepsNothingFromBeingWritten) {
  registry_.SetValue(key_, "Name01", os::RegistryType::String, std::string(300, 'x'));
  Read();
  Write({"new"});
  EXPECT_EQ(StoredName("Name01"), "new");
}

TEST_F(UtilityHistoryTest, AReadingThatFailedIsThatOfOneListAndOneUtility) {
  Store({"a"});
  registry_.MakeUnopenable(key_);
  Read();
  registry_.MakeUnopenable(key_, 0);
  CvUtility other;
  const CStringArray names = ArrayOf({"other"});
  other.SetUsedName("#MODEL#", &names, &count_);
  EXPECT_EQ(StoredName("Name01"), "other");
  const CStringArray files = ArrayOf({"file"});
  utility_.SetUsedFile("#MODEL#", 0, &files, &count_);
  EXPECT_EQ(registry_.Value("Software\\Nalbo\\Corvane\\FileDialog\\Use #MODEL#", "iFile01")->bytes, "file");
}

TEST_F(UtilityTest, TwoUtilitiesWriteTheSameHistoryInTurn) {
  CvUtility other;
  int count = 5;
  for (int round = 0; round < 20; ++round) {
    CvUtility& writer = round % 2 == 0 ? utility_ : other;
    CvUtility& reader = round % 2 == 0 ? other : utility_;
    const CStringArray written = ArrayOf(Texts(static_cast<std::size_t>(round % 4), std::to_string(round)));
    CStringArray read;
    writer.SetUsedName("#MODEL#", &written, &count);
    reader.GetUsedName("#MODEL#", &read, &count, nullptr);
    EXPECT_EQ(TextsOf(read), TextsOf(written)) << round;
    EXPECT_EQ(count, 5);
  }
}

TEST_F(UtilityInDialogTest, CountsOutsideTheRangeAreWrittenButReadAsTen) {
  for (const int written : {0, 21, 25, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    CStringArray files = ArrayOf(Texts(30, "x"));
    int count = written;
    utility_.SetUsedFile("#MODEL#", 0, &files, &count);
    utility_.GetUsedFile("#MODEL#", 0, &files, &count, &host_.combo);
    EXPECT_EQ(count, 10) << written;
    EXPECT_EQ(files.GetSize(), written > 0 ? 20 : 0) << written;
    EXPECT_EQ(host_.ComboItems(), Texts(written > 0 ? 10U : 0U, "x ")) << written;
  }
  CStringArray files = ArrayOf(Texts(30, "x"));
  int count = 20;
  utility_.SetUsedFile("#MODEL#", 0, &files, &count);
  utility_.GetUsedFile("#MODEL#", 0, &files, &count, &host_.combo);
  EXPECT_EQ(count, 20);
  EXPECT_EQ(host_.ComboItems().size(), 20U);
}

TEST_F(UtilityTest, OverlongEntriesAndKeywordsAreHarmless) {
  CStringArray names;
  int count = 10;
  for (const std::size_t length : {255U, 256U, 257U, 511U, 513U, 100000U}) {
    utility_.SetNameList(&names, std::string(length, 'n').c_str(), nullptr, 10);
  }
  utility_.SetUsedName("#MODEL#", &names, &count);
  utility_.GetUsedName("#MODEL#", &names, &count, nullptr);
  EXPECT_EQ(TextsOf(names), (Texts{std::string(256, 'n'), std::string(255, 'n')}));
  const std::string keyword(100000, 'k');
  utility_.SetUsedName(keyword.c_str(), &names, &count);
  utility_.GetUsedName(keyword.c_str(), &names, &count, nullptr);
  utility_.GetUsedFile(keyword.c_str(), 0, &names, &count, nullptr);
  EXPECT_EQ(names.GetSize(), 0);
}

TEST_F(UtilityInDialogTest, MovingToTheTopLeavesOneOfEqualEntriesThere) {
  CStringArray files = ArrayOf({"a", "B", "b", ""});
  utility_.SetFilePath(&files, "b", &host_.combo, 10);
  EXPECT_EQ(TextsOf(files), (Texts{"b", "a", "b", ""}));
  utility_.SetFilePath(&files, "", &host_.combo, 10);
  EXPECT_EQ(TextsOf(files), (Texts{"", "b", "a", "b", ""}));
  EXPECT_EQ(host_.ComboItems(), (Texts{"b ", "a ", "b "}));
  utility_.DelFilePath(&files, "", &host_.combo, 2);
  EXPECT_EQ(files.GetSize(), 5);
  EXPECT_EQ(host_.ComboItems(), Texts{"b "});
}

TEST_F(UtilityTest, OpenKeysDoNotGrowWithTheNumberOfWrites) {
  const int before = os::scripted::World().registry.openHandles;
  CStringArray files = ArrayOf({"a"});
  int count = 1;
  {
    CvUtility writer;
    for (int i = 0; i < 50; ++i) {
      writer.SetUsedFile("#MODEL#", i % 2, &files, &count);
      writer.SetUsedName("#MODEL#", &files, &count);
    }
    EXPECT_EQ(os::scripted::World().registry.openHandles, before + 2);
    for (int i = 0; i < 50; ++i) writer.GetUsedFile("#MODEL#", 0, &files, &count, nullptr);
    EXPECT_EQ(os::scripted::World().registry.openHandles, before + 2);
  }
  EXPECT_EQ(os::scripted::World().registry.openHandles, before);
}

TEST_F(UtilityInDialogTest, AnEntryMovesToTheTop) {
  CStringArray files = ArrayOf({"one", "two", "THREE", "three", ""});
  utility_.SetFilePath(&files, "Three", &host_.combo, 3);
  EXPECT_EQ(TextsOf(files), (Texts{"Three", "one", "two", "three", ""}));
  EXPECT_EQ(host_.ComboItems(), (Texts{"Three ", "one ", "two "}));
  utility_.SetNameList(&files, "new", nullptr, 3);
  EXPECT_EQ(files.GetSize(), 6);
  EXPECT_EQ(files.GetAt(0), "new");
  utility_.SetFilePath(&files, files.GetAt(3), &host_.combo, 100);
  EXPECT_EQ(TextsOf(files), (Texts{"two", "new", "Three", "one", "three", ""}));
}

TEST_F(UtilityInDialogTest, AnEntryIsRemoved) {
  CStringArray files = ArrayOf({"one", "Two", "two"});
  utility_.DelFilePath(&files, "TWO", &host_.combo, 10);
  EXPECT_EQ(TextsOf(files), (Texts{"one", "two"}));
  EXPECT_EQ(host_.ComboItems(), (Texts{"one ", "two "}));
  host_.combo.ResetContent();
  utility_.DelFilePath(&files, "missing", &host_.combo, 10);
  EXPECT_EQ(TextsOf(files), (Texts{"one", "two"}));
  EXPECT_EQ(host_.ComboItems(), (Texts{"one ", "two "}));
}

TEST_F(UtilityTest, AListGrowsBeyondWhatIsKept) {
  CStringArray files;
  for (int i = 0; i < 30; ++i) utility_.SetFilePath(&files, std::to_string(i).c_str(), nullptr, 10);
  EXPECT_EQ(files.GetSize(), 30);
  EXPECT_EQ(files.GetAt(0), "29");
}

// ---- setters

TEST_F(UtilityTest, EverySetterTakesALiteralABufferAndAText) {
  char buffer[] = "*.MDL";
  const CString text(buffer);
  utility_.SetWildcard("");
  utility_.SetWildcard(buffer);
  utility_.SetWildcard(text);
  utility_.SetKeyword(buffer);
  utility_.SetKeyword(text);
  utility_.SetComment(text);
  utility_.SetCaption(text);
  utility_.SetFileIO(1);
  utility_.SetNoDirectoryEntry(1);
  utility_.SetTextColor(0x00FF00);
  EXPECT_STREQ(utility_.GetCaption(), "*.MDL");
}

}  // namespace
