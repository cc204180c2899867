// The driver itself, on a plain dialog that uses nothing of the library: what a person does reaches the dialog, what
// the dialog shows is read back, and what hangs or crashes is noticed.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/windows/driver/crash_backtrace.h"
#include "tests/windows/driver/test_dialog.h"
#include "tests/windows/driver/user.h"

namespace driver_test {
namespace {

class DriverTest : public testing::Test {
 protected:
  void Run(const std::function<void(driver::User&)>& script, DWORD patienceMs = driver::kPatienceMs) {
    driver::RunDialog([&] { ShowTestDialog(&record_); }, script, patienceMs);
  }

  Record record_;
};

TEST_F(DriverTest, RunsTheProgramInTheScreensEncoding) { EXPECT_EQ(GetACP(), 932U); }

TEST_F(DriverTest, ReadsControls) {
  Run([](driver::User& user) {
    const driver::Window dialog = user.WaitDialog(kTitle);
    EXPECT_EQ(dialog.Text(), kTitle);
    EXPECT_EQ(dialog.Child(kLabel).Text(), "名前");
    EXPECT_EQ(dialog.Child(kLabel).ClassName(), "Static");
    EXPECT_FALSE(dialog.Child(kDisabledButton).IsEnabled());
    EXPECT_TRUE(dialog.Child(kDisabledButton).IsVisible());
    EXPECT_FALSE(dialog.FindChild(4711));
    EXPECT_THROW(static_cast<void>(dialog.Child(4711)), driver::Stuck);
    EXPECT_EQ(dialog.Children().size(), 11U);
    EXPECT_EQ(dialog.Child(kCombo).Selection(), 1);
    const std::vector<std::string> items = dialog.Child(kCombo).Items();
    ASSERT_EQ(items.size(), 12U);
    EXPECT_EQ(items[11], "項目11");
    user.Click(dialog.Child(IDCANCEL));
  });
  EXPECT_EQ(record_.result, IDCANCEL);
}

TEST_F(DriverTest, GivesRectanglesInUnitsOfTheTemplate) {
  Run([](driver::User& user) {
    const driver::Window dialog = user.WaitDialog(kTitle);
    const RECT units = dialog.Child(kEdit).UnitsInParent();
    EXPECT_EQ(units.left, 40);
    EXPECT_EQ(units.top, 7);
    EXPECT_EQ(units.right - units.left, 100);
    EXPECT_EQ(units.bottom - units.top, 13);
    EXPECT_EQ(dialog.ClientUnits().cx, 240);
    EXPECT_EQ(dialog.ClientUnits().cy, 160);
    const RECT pixels = dialog.Child(kEdit).RectInParent();
    EXPECT_EQ(pixels.left, 60);
    EXPECT_EQ(pixels.right, 210);
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(record_.result, IDCANCEL);
}

TEST_F(DriverTest, ReadsListView) {
  Run([](driver::User& user) {
    const driver::Window dialog = user.WaitDialog(kTitle);
    const driver::ListView list(dialog.Child(kList));
    EXPECT_EQ(list.Names(), (std::vector<std::string>{"表.mdl", "ソ能.mdl", "ｱｲｳ.mdl"}));
    EXPECT_EQ(list.Cell(1, 1), "2");
    EXPECT_EQ(list.FindRow("ｱｲｳ.mdl"), 2);
    EXPECT_EQ(list.FindRow("ない"), -1);
    ASSERT_EQ(list.ColumnCount(), 2);
    EXPECT_EQ(list.ColumnAt(1).title, "サイズ");
    EXPECT_EQ(list.ColumnAt(1).width, 80);
    EXPECT_EQ(list.ColumnAt(1).format & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_TRUE(list.SelectedRows().empty());
    user.Key(VK_ESCAPE);
  });
}

TEST_F(DriverTest, ClicksOnRowsAndColumns) {
  Run([](driver::User& user) {
    const driver::Window dialog = user.WaitDialog(kTitle);
    const driver::ListView list(dialog.Child(kList));
    user.Click(driver::Center(list.ItemRect(1)));
    EXPECT_EQ(list.SelectedRows(), std::vector<int>{1});
    EXPECT_EQ(list.FocusedRow(), 1);
    user.Click(driver::Center(list.CellRect(2, 0)));
    user.DoubleClick(driver::Center(list.ItemRect(0)));
    user.RightClick(driver::Center(list.ItemRect(2)));
    user.Click(driver::Center(list.HeaderRect(1)));
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(record_.clickedRows, (std::vector<int>{1, 2, 0}));
  EXPECT_EQ(record_.doubleClickedRows, std::vector<int>{0});
  EXPECT_EQ(record_.rightClickedRows, std::vector<int>{2});
  EXPECT_EQ(record_.clickedColumns, std::vector<int>{1});
}

TEST_F(DriverTest, KeepsTwoClicksOnOneSpotApart) {
  Run([](driver::User& user) {
    const driver::ListView list(user.WaitDialog(kTitle).Child(kList));
    user.Click(driver::Center(list.ItemRect(1)));
    user.Click(driver::Center(list.ItemRect(1)));
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(record_.clickedRows, (std::vector<int>{1, 1}));
  EXPECT_TRUE(record_.doubleClickedRows.empty());
}

TEST_F(DriverTest, DragsColumnDivider) {
  Run([](driver::User& user) {
    const driver::ListView list(user.WaitDialog(kTitle).Child(kList));
    const RECT title = list.HeaderRect(0);
    const LONG middle = driver::Center(title).y;
    user.Drag(POINT{title.right - 1, middle}, POINT{title.right + 29, middle});
    EXPECT_EQ(list.ColumnAt(0).width, 150);
    user.Key(VK_ESCAPE);
  });
}

TEST_F(DriverTest, TypesJapaneseText) {
  Run([](driver::User& user) {
    const driver::Window edit = user.WaitDialog(kTitle).Child(kEdit);
    user.Replace(edit, "former");
    user.Replace(edit, "A-1 表ソ能ｱｲｳ①髙");
    EXPECT_EQ(edit.Text(), "A-1 表ソ能ｱｲｳ①髙");
    user.Key(VK_HOME);
    user.Key(VK_DELETE);
    user.Key(VK_END, {VK_SHIFT});
    EXPECT_EQ(edit.TextSelection().first, 0);
    EXPECT_EQ(edit.TextSelection().second, 11);
    user.Key(VK_RETURN);
  });
  EXPECT_EQ(record_.result, IDOK);
  EXPECT_EQ(record_.editText, "-1 表ソ能ｱｲｳ①髙");
}

TEST_F(DriverTest, PastesText) {
  Run([](driver::User& user) {
    const driver::Window edit = user.WaitDialog(kTitle).Child(kEdit);
    user.Click(edit);
    user.Paste("貼り付け表");
    EXPECT_EQ(edit.Text(), "貼り付け表");
    user.Key(VK_ESCAPE);
  });
}

TEST_F(DriverTest, ChecksBoxAndChoosesFromCombo) {
  Run([](driver::User& user) {
    const driver::Window dialog = user.WaitDialog(kTitle);
    user.Click(dialog.Child(kCheck));
    EXPECT_EQ(dialog.Child(kCheck).CheckState(), BST_CHECKED);
    user.ChooseComboItem(dialog.Child(kCombo), 2);
    EXPECT_EQ(dialog.Child(kCombo).Selection(), 2);
    user.ChooseComboItem(dialog.Child(kCombo), 11);
    EXPECT_EQ(dialog.Child(kCombo).Selection(), 11);
    EXPECT_EQ(dialog.Child(kCombo).Text(), "項目11");
    user.Key(VK_ESCAPE);
  });
}

TEST_F(DriverTest, ChoosesFromMenu) {
  Run([](driver::User& user) {
    const driver::Window dialog = user.WaitDialog(kTitle);
    user.Click(dialog.Child(kMenuButton));
    const driver::MenuView menu = user.WaitMenu();
    ASSERT_EQ(menu.items.size(), 4U);
    EXPECT_EQ(menu.items[0].text, "開く(&O)");
    EXPECT_EQ(menu.items[0].id, 1U);
    EXPECT_FALSE(menu.items[1].isEnabled);
    EXPECT_TRUE(menu.items[2].isSeparator);
    EXPECT_TRUE(menu.items[3].isChecked);
    user.Choose(menu, "詳細");
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(record_.menuChoice, 3U);
}

TEST_F(DriverTest, AnswersMessageBox) {
  Run([](driver::User& user) {
    const driver::Window dialog = user.WaitDialog(kTitle);
    user.Click(dialog.Child(kAskButton));
    const driver::MessageBoxView box = user.WaitMessageBox();
    EXPECT_EQ(box.caption, "確認");
    EXPECT_EQ(box.text, "削除しますか？");
    EXPECT_EQ(box.buttons, (std::vector<int>{IDYES, IDNO}));
    EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONQUESTION));
    EXPECT_EQ(box.window.Owner(), dialog);
    EXPECT_FALSE(dialog.IsEnabled());
    user.Answer(box, IDNO);
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(record_.boxAnswer, IDNO);
}

TEST_F(DriverTest, SeesPixels) {
  Run([](driver::User& user) {
    const driver::Window box = user.WaitDialog(kTitle).Child(kBlackBox);
    const driver::Picture picture = user.Look(box);
    const COLORREF frame = GetSysColor(COLOR_3DDKSHADOW);
    EXPECT_EQ(picture.Count(RECT{0, 0, picture.Width(), picture.Height()}, frame), picture.Width() * picture.Height());
    const RECT around = box.ScreenRect();
    const driver::Picture wider = user.Look(RECT{around.left - 2, around.top, around.right, around.bottom});
    EXPECT_EQ(wider.At(1, 0), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(wider.At(2, 0), frame);
    user.Key(VK_ESCAPE);
  });
}

/// A window whose thread paints it again and waits for no message afterwards.
class BusyWindow {
 public:
  BusyWindow() : thread_(CreateThread(nullptr, 0, &BusyWindow::Run, this, 0, nullptr)) {}
  BusyWindow(const BusyWindow&) = delete;
  BusyWindow& operator=(const BusyWindow&) = delete;
  ~BusyWindow() {
    SetEvent(goesOn_);
    Await(thread_);
    for (const HANDLE handle : {thread_, painted_, goesOn_}) CloseHandle(handle);
  }
  [[nodiscard]] RECT Inside() const { return inside_; }
  void Blacken() {
    SetEvent(goesOn_);
    Await(painted_);
  }

 private:
  static DWORD WINAPI Run(void* self) {
    static_cast<BusyWindow*>(self)->Run();
    return 0;
  }
  static void Await(HANDLE handle) { WaitForSingleObject(handle, INFINITE); }
  void Run() {
    const HWND window = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE | SS_WHITERECT,
                                        inside_.left, inside_.top, 60, 60, nullptr, nullptr, nullptr, nullptr);
    while (MsgWaitForMultipleObjects(1, &goesOn_, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
      MSG message = {};
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
    }
    const HDC dc = GetDC(window);
    const RECT whole = {0, 0, 60, 60};
    FillRect(dc, &whole, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    ReleaseDC(window, dc);
    SetEvent(painted_);
    Await(goesOn_);
    DestroyWindow(window);
  }

  RECT inside_ = {40, 40, 100, 100};
  HANDLE painted_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  HANDLE goesOn_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  HANDLE thread_;
};

TEST(Pixels, OfAThreadThatDoesNotWaitForMessagesAreSeen) {
  BusyWindow window;
  const auto shows = [&window](COLORREF colour) { return driver::Capture(window.Inside()).At(30, 30) == colour; };
  driver::User().WaitUntil("the window is white", [&] { return shows(RGB(255, 255, 255)); });
  window.Blacken();
  EXPECT_TRUE(shows(RGB(0, 0, 0)));
}

constexpr DWORD kShortMs = 300;

TEST_F(DriverTest, ReportsWhatNeverComes) {
  try {
    Run([](driver::User& user) {
      static_cast<void>(user.WaitDialog(kTitle));
      static_cast<void>(driver::User(GetCurrentProcessId(), 0, kShortMs).WaitDialog("来ない"));
    });
    FAIL() << "nothing was thrown";
  } catch (const driver::Stuck& stuck) {
    EXPECT_NE(std::strstr(stuck.what(), "来ない"), nullptr);
    EXPECT_NE(std::strstr(stuck.what(), kTitle), nullptr) << "the windows are listed";
  }
}

TEST_F(DriverTest, ReportsDialogLeftOpen) {
  EXPECT_THROW(Run([](driver::User&) { static_cast<void>(driver::User().WaitDialog(kTitle)); }, kShortMs),
               driver::Stuck);
  EXPECT_EQ(record_.result, IDCANCEL) << "closed for the next test";
}

TEST_F(DriverTest, EndsMessageBoxLeftOpen) {
  EXPECT_THROW(Run(
                   [](driver::User&) {
                     driver::User patient;
                     patient.Click(patient.WaitDialog(kTitle).Child(kAskButton));
                     static_cast<void>(patient.WaitMessageBox());
                   },
                   kShortMs),
               driver::Stuck);
  EXPECT_NE(record_.boxAnswer, 0);
  EXPECT_EQ(record_.result, IDCANCEL);
}

TEST_F(DriverTest, RefusesToClickOnDisabledControl) {
  EXPECT_THROW(Run([](driver::User& user) {
                 const driver::Window button = user.WaitDialog(kTitle).Child(kDisabledButton);
                 driver::User(GetCurrentProcessId(), 0, kShortMs).Click(button);
               }),
               driver::Stuck);
}

TEST(CrashBacktrace, EndsTheProgramWithTheCallers) {
  EXPECT_EXIT(
      {
        driver::InstallCrashBacktrace();
        Crash();
      },
      testing::ExitedWithCode(driver::kCrashExitCode), "crash: exception 0xc0000005");
}

TEST(CrashBacktrace, SeesCrashInDialogProcedure) {
  EXPECT_EXIT(
      {
        driver::InstallCrashBacktrace();
        Record record;
        record.crashesAtStart = true;
        ShowTestDialog(&record);
      },
      testing::ExitedWithCode(driver::kCrashExitCode), "crash: exception 0xc0000005");
}

/// A program with the same dialog, started for one test.
class OtherProcess : public testing::Test {
 protected:
  void SetUp() override {
    char command[] = DRIVER_TEST_HOST;
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    ASSERT_TRUE(CreateProcessA(nullptr, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process_));
  }
  void TearDown() override {
    if (process_.hProcess == nullptr) return;
    TerminateProcess(process_.hProcess, 1);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  DWORD ExitCode() const {
    WaitForSingleObject(process_.hProcess, driver::kPatienceMs);
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
  }

  PROCESS_INFORMATION process_ = {};
};

TEST_F(OtherProcess, IsReadAndDriven) {
  driver::User user(process_.dwProcessId);
  const driver::Window dialog = user.WaitDialog(kTitle);
  const driver::ListView list(dialog.Child(kList));
  user.WaitUntil("the list is filled", [&] { return list.Count() == 3; });
  EXPECT_EQ(list.Names(), (std::vector<std::string>{"表.mdl", "ソ能.mdl", "ｱｲｳ.mdl"}));
  EXPECT_EQ(list.ColumnAt(1).title, "サイズ");
  EXPECT_EQ(dialog.Child(kCombo).Items().size(), 12U);
  user.Click(driver::Center(list.ItemRect(1)));
  user.WaitUntil("a row is selected", [&] { return list.SelectedRows() == std::vector<int>{1}; });
  user.Replace(dialog.Child(kEdit), "表示");
  user.WaitUntil("the text has arrived", [&] { return dialog.Child(kEdit).Text() == "表示"; });
  user.Click(dialog.Child(kAskButton));
  const driver::MessageBoxView box = user.WaitMessageBox();
  EXPECT_EQ(box.text, "削除しますか？");
  user.Answer(box, IDYES);
  user.Click(dialog.Child(IDOK));
  user.WaitGone(dialog);
  EXPECT_EQ(ExitCode(), DWORD{IDOK});
}

TEST_F(OtherProcess, HasHandledWhatAPersonDidWhenThePersonGoesOn) {
  driver::User user(process_.dwProcessId);
  const driver::Window dialog = user.WaitDialog(kTitle);
  user.WaitUntil("the dialog has the input", [&] { return dialog.IsForeground(); });
  user.Click(dialog.Child(kCheck));
  EXPECT_EQ(dialog.Child(kEdit).Text(), "表示");
  user.Click(dialog.Child(kEdit));
  user.Key(VK_END);
  user.Type("する");
  EXPECT_EQ(dialog.Child(kEdit).Text(), "表示する");
  user.Key(VK_ESCAPE);
  EXPECT_EQ(ExitCode(), DWORD{IDCANCEL});
}

TEST(Picture, IsSavedAsPng) {
  driver::Picture picture(3, 2);
  picture.Set(2, 1, RGB(1, 2, 3));
  EXPECT_EQ(picture.At(2, 1), RGB(1, 2, 3));
  EXPECT_THROW(static_cast<void>(picture.At(3, 0)), std::out_of_range);
  EXPECT_TRUE(picture.SavePng("driver_test.png"));
  EXPECT_FALSE(picture.SavePng("no such folder\\driver_test.png"));
}

}  // namespace
}  // namespace driver_test
