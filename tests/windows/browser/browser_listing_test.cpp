// Listings that take their time and that fail: given up with Esc, and ended by an exception.
#include <atomic>
#include <functional>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "tests/windows/browser/browser_world.h"
#include "tests/windows/support/hanging_calls.h"

namespace browser_test {
namespace {

using driver::Center;
using driver::Picture;
using driver::User;
using driver::Window;
using os::RegistryType;

constexpr int kFiles = 300;
constexpr int kInTheMiddle = 100;
constexpr ULONGLONG kLookMs = 50;

/// Presses and releases keys in one piece, so that no message is worked off between them.
void SendKeys(const std::vector<std::pair<WORD, DWORD>>& keys) {
  std::vector<INPUT> inputs;
  for (const auto& [key, flags] : keys) {
    INPUT& input = inputs.emplace_back();
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
  }
  ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void PressEsc() { SendKeys({{VK_ESCAPE, 0}, {VK_ESCAPE, KEYEVENTF_KEYUP}}); }

/// The machine is faster than any person: what comes next takes as long as a look at the keyboard may.
void Dawdle() {
  const ULONGLONG begin = ::GetTickCount64();
  while (::GetTickCount64() - begin < kLookMs) {
  }
}

class BrowserListingTest : public BrowserTest {
 protected:
  ~BrowserListingTest() override { LetGo(); }

  /// A folder of kFiles files "m000" and so on, in the middle of which the finder meets a folder.
  static void AddMany(const std::string& folder, const std::string& extension, const std::string& bytes = {}) {
    for (int i = 0; i < kFiles; ++i) {
      World().files.AddFile(folder + "\\m" + std::to_string(1000 + i).substr(1) + extension, bytes);
    }
    World().files.AddFolder(folder + "\\m050 folder");
  }

  /// `act` runs on the worker when the call is made for the n-th time from now on, and once only.
  static void AtCall(const std::string& name, int n, const std::function<void()>& act) {
    World().calls.Watch([name, act, count = 0, n](const std::string& call) mutable {
      if (call == name && ++count == n) act();
    });
  }
  /// The same, and the call behind it does not end before LetGo: what `act` has done is seen before the work is over,
  /// however busy the machine is.
  static void HangBehind(const std::string& name, int n, const std::function<void()>& act) {
    isFree_ = false;
    World().calls.Watch([name, act, count = 0, n](const std::string& call) mutable {
      if (call != name) return;
      if (++count == n) act();
      while (count > n && !isFree_) ::Sleep(1);
    });
  }
  static void GiveUpAt(const std::string& call) { HangBehind(call, kInTheMiddle, PressEsc); }
  static void LetGo() {
    isFree_ = true;
    World().calls.Watch({});
  }
  static void FailAt(const std::string& call, int n) {
    AtCall(call, n, [] { throw std::bad_alloc(); });
  }

  /// Some rows and not all of them, in order, in a browser that a further Esc closes.
  static void ExpectGivenUp(Browser& browser, std::size_t all) {
    browser.Person().Settle();
    LetGo();
    ASSERT_TRUE(browser.IsOpen());
    const Texts rows = browser.Rows();
    EXPECT_GT(rows.size(), std::size_t{kInTheMiddle} / 2);
    EXPECT_LT(rows.size(), all);
    EXPECT_TRUE(browser.List().HasFocus());
    browser.Person().WaitUntil("nothing is read any more",
                               [] { return World().files.openPasses == 0 && World().network.openPasses == 0; });
  }
  static void ExpectEscCloses(Browser& browser) {
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitGone(browser.Window());
  }

 private:
  inline static std::atomic<bool> isFree_ = true;
};

// ---------------------------------------------------------------------------------------------------------------------
// given up

TEST_F(BrowserListingTest, EscGivesAFolderUpAndShowsWhatWasFoundInOrder) {
  AddMany("C:\\many", ".mdl");
  const Outcome outcome = Run([](Browser& browser) {
    GiveUpAt("files.Next");
    browser.Enter("C:\\many");
    ExpectGivenUp(browser, kFiles + 1);
    EXPECT_EQ(browser.List().Cell(0), "m050 folder");
    EXPECT_EQ(browser.List().Cell(1), "m000.mdl");
    EXPECT_EQ(browser.Trail(), Texts{"many"});
    EXPECT_EQ(browser.SortMark(0), 0);
    browser.ChooseView("一覧表示");
    EXPECT_EQ(browser.List().Count(), kFiles + 1) << "the next listing is not given up";
    ExpectEscCloses(browser);
  });
  EXPECT_EQ(outcome.answer, IDCANCEL);
}

TEST_F(BrowserListingTest, EscGivesUpKindsThatOpenEveryFile) {
  const std::vector<std::pair<std::string, std::string>> kinds = {{"#CONSTANT#", "CORVANE CONST 1\nEND\n"},
                                                                  {"#ATRTABLE#", "CORVANE ATTR 1\nEND\n"}};
  for (const auto& [keyword, bytes] : kinds) {
    SCOPED_TRACE(keyword);
    AddMany("C:\\many", ".con", bytes);
    Kinds().AddFileType(CwFileType(keyword.c_str(), "C:/data", "*.CON", 0));
    startUp_.title = keyword + "(*.CON)";
    Run([](Browser& browser) {
      GiveUpAt("files.Read");
      browser.Enter("C:\\many");
      ExpectGivenUp(browser, kFiles + 1);
      ExpectEscCloses(browser);
    });
  }
}

TEST_F(BrowserListingTest, EscGivesUpTheDesktopsShortcuts) {
  for (int i = 0; i < kFiles; ++i) {
    const std::string link = "C:\\desktop\\s" + std::to_string(1000 + i) + ".lnk";
    World().files.AddFile(link);
    World().shell.links[link] = "C:\\data\\b.mdl";
  }
  Run([](Browser& browser) {
    GiveUpAt("shell.ResolveLink");
    browser.ChoosePlace("デスクトップ");
    ExpectGivenUp(browser, kFiles);
    ExpectEscCloses(browser);
  });
}

TEST_F(BrowserListingTest, EscGivesUpTheComputersOfTheNetwork) {
  World().network.present = true;
  World().network.context.batch = 1;
  for (int i = 0; i < kFiles; ++i) {
    os::scripted::NetNode node;
    node.record.displayType = os::kNetDisplayServer;
    node.record.remoteName = "\\\\PC" + std::to_string(1000 + i);
    World().network.context.children.push_back(node);
  }
  Run([](Browser& browser) {
    GiveUpAt("network.Next");
    browser.ChoosePlace("近くのコンピュータ");
    ExpectGivenUp(browser, kFiles);
    EXPECT_EQ(browser.List().Cell(0), "PC1000");
    ExpectEscCloses(browser);
  });
}

TEST_F(BrowserListingTest, EscThatIsHeldDownOnlyGivesTheListingUp) {
  AddMany("C:\\many", ".mdl");
  Run([](Browser& browser) {
    // No mouse from here on: a pointer that enters a window has the keyboard looked at, where no key is down, so that
    // the next repeat would be a press.
    browser.TypeName("C:\\many");
    browser.Person().Settle();
    HangBehind("files.Next", kInTheMiddle, [] { SendKeys({{VK_ESCAPE, 0}, {VK_ESCAPE, 0}}); });
    browser.Person().Key(VK_RETURN);
    browser.Person().Settle();
    // A display that is late may look at its keyboard only now, and let the key go: what follows would be a press.
    const auto isHeld = [] { return ::GetAsyncKeyState(VK_ESCAPE) < 0; };
    for (int repeats = 0; repeats < 3 && isHeld(); ++repeats) SendKeys({{VK_ESCAPE, 0}});
    ExpectGivenUp(browser, kFiles + 1);
    SendKeys({{VK_ESCAPE, KEYEVENTF_KEYUP}});
    ExpectEscCloses(browser);
  });
}

/// A press of Esc that something else has worked off already, with the key still down.
void HoldEscDown() {
  SendKeys({{VK_ESCAPE, 0}});
  MSG key = {};
  while (::PeekMessageA(&key, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE) != FALSE) {
  }
}

TEST_F(BrowserListingTest, EscThatWasDownBeforeTheListingDoesNotCount) {
  AddMany("C:\\many", ".mdl");
  startUp_.initialFolder = "C:\\many";
  Run([](Browser& browser) {
    browser.Person().Settle();
    // The layout is written before the folder is listed; the key repeats and comes up in the middle of the listing. No
    // mouse is used: a pointer that enters a window has the keyboard looked at, where no key is down.
    World().calls.Watch([sets = 0, found = 0](const std::string& call) mutable {
      if (call == "registry.Set" && ++sets == 1) HoldEscDown();
      if (call == "files.Next" && ++found == kInTheMiddle) SendKeys({{VK_ESCAPE, 0}, {VK_ESCAPE, KEYEVENTF_KEYUP}});
      if (call == "files.Next" && found > kInTheMiddle && found < kInTheMiddle + 4) Dawdle();
    });
    ::PostMessageA(browser.Window().Handle(), WM_COMMAND, ID_VIEW_LIST, 0);
    browser.Person().Settle();
    World().calls.Watch({});
    ASSERT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.List().Count(), kFiles + 1);
    ExpectEscCloses(browser);
  });
}

/// A window of the program that asks for a file, with an edit box that has the focus.
class Host {
 public:
  Host() : window_(Make("STATIC", WS_OVERLAPPEDWINDOW | WS_VISIBLE, nullptr)) {
    edit_ = Make("EDIT", WS_CHILD | WS_VISIBLE, window_);
    ::SetForegroundWindow(window_);
    ::SetFocus(edit_);
  }
  ~Host() { ::DestroyWindow(window_); }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  [[nodiscard]] HWND Window() const { return window_; }

 private:
  static HWND Make(const char* className, DWORD style, HWND parent) {
    return ::CreateWindowExA(0, className, "host", style, 50, 50, 300, 200, parent, nullptr, nullptr, nullptr);
  }

  HWND window_;
  HWND edit_ = nullptr;
};

TEST_F(BrowserListingTest, EscGivesUpTheFirstListingBeforeTheBrowserIsShown) {
  AddMany("C:\\many", ".mdl");
  startUp_.initialFolder = "C:\\many";
  startUp_.capacity = 1000;
  std::vector<char> buffer(startUp_.capacity);
  startUp_.fileBuffer = buffer.data();
  driver::RunDialog(
      [&] {
        const Host host;
        CvFileDialog browser(CWnd::FromHandle(host.Window()), startUp_);
        GiveUpAt("files.Next");
        browser.DoModal();
      },
      [&](User& user) {
        Browser browser(user);
        ExpectGivenUp(browser, kFiles + 1);
        ExpectEscCloses(browser);
      });
}

// ---------------------------------------------------------------------------------------------------------------------
// ended by an exception

TEST_F(BrowserListingTest, AnExceptionLeavesWhatWasFoundBelowItsColumns) {
  Run([](Browser& browser) {
    browser.ClickHeader(1);
    FailAt("files.Next", 9);
    browser.ChooseView("詳細表示");
    World().calls.Watch({});
    ASSERT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.List().ColumnCount(), 3);
    EXPECT_EQ(browser.Rows(), (Texts{"old", "Sub", "a.mdl", "A-001.MDL", "b.mdl"}));
    EXPECT_EQ(browser.SortMark(0), 0);
    EXPECT_TRUE(browser.List().HasFocus());
    EXPECT_EQ(World().files.openPasses, 0);
    browser.ClickRow("b.mdl");
    EXPECT_EQ(browser.Name(), "b.mdl");
    browser.OpenRow("Sub");
    EXPECT_EQ(browser.Rows(), Texts{"inner.mdl"});
  });
}

TEST_F(BrowserListingTest, WidthsOfColumnsAreSavedAfterAnException) {
  int width = 0;
  Run([&](Browser& browser) {
    FailAt("files.OpenFolder", 1);
    browser.ChooseView("詳細表示");
    World().calls.Watch({});
    const RECT title = browser.List().HeaderRect(0);
    const POINT divider = {title.right, (title.top + title.bottom) / 2};
    browser.Person().Drag(divider, {divider.x - 50, divider.y});
    browser.Person().Settle();
    width = browser.List().ColumnAt(0).width;
    EXPECT_LT(width, title.right - title.left);
  });
  const auto saved = World().registry.Value(kLayoutKey, "RWidth0");
  ASSERT_TRUE(saved.has_value());
  EXPECT_EQ(static_cast<unsigned char>(saved->bytes[0]) + 256 * static_cast<unsigned char>(saved->bytes[1]), width);
}

TEST_F(BrowserListingTest, NothingOfTheFormerFolderIsShownInTheNewOne) {
  Run([](Browser& browser) {
    FailAt("files.OpenFolder", 1);
    browser.OpenRow("Sub");
    World().calls.Watch({});
    browser.Person().Settle();
    EXPECT_EQ(browser.Trail(), (Texts{"data", "Sub"}));
    EXPECT_EQ(browser.Rows(), Texts{});
    browser.Up();
    EXPECT_EQ(browser.Rows().size(), 8U);
  });
}

TEST_F(BrowserListingTest, AnAreaIsReleasedWhenItsActionEndsInAnException) {
  Run([](Browser& browser) {
    User& user = browser.Person();
    const RECT area = browser.Window().Child(IDC_CREATE_FOLDER).ScreenRect();
    const Picture normal = user.Look(area);
    user.Click(Center(area));
    const Window dialog = user.WaitDialog("新しいフォルダの作成");
    user.WaitUntil("it has the focus", [&] { return dialog.Child(IDC_FOLDER_NAME).HasFocus(); });
    user.Type("n");
    FailAt("files.OpenFolder", 1);
    user.Key(VK_RETURN);
    user.WaitGone(dialog);
    World().calls.Watch({});
    const RECT list = browser.List().ScreenRect();
    user.MoveTo({list.left + 20, list.bottom + 6});
    user.Settle();
    EXPECT_EQ(user.Look(area), normal);
    EXPECT_NE(World().files.Find("C:\\data\\n"), nullptr);
  });
}

TEST_F(BrowserListingTest, CancelEndsTheBrowserAlsoAfterAnException) {
  const Outcome outcome = Run([](Browser& browser) {
    browser.ClickRow("b.mdl");
    browser.List().Send(LVM_EDITLABELW, static_cast<WPARAM>(browser.List().FindRow("b.mdl")));
    browser.Person().WaitUntil("the name can be edited", [&] { return browser.List().LabelEdit().HasFocus(); });
    browser.Person().Type("zz.mdl");
    FailAt("files.OpenFolder", 1);
    browser.Person().Key(VK_F4, {VK_MENU});
    browser.Person().WaitGone(browser.Window());
    World().calls.Watch({});
  });
  EXPECT_EQ(outcome.answer, IDCANCEL);
  EXPECT_NE(World().files.Find("C:\\data\\zz.mdl"), nullptr);
}

TEST_F(BrowserListingTest, ABrowserThatGoesWithItsOwnerSavesNoLayout) {
  startUp_.capacity = 1000;
  std::vector<char> buffer(startUp_.capacity);
  startUp_.fileBuffer = buffer.data();
  HWND owner = nullptr;
  driver::RunDialog(
      [&] {
        const Host host;
        owner = host.Window();
        CvFileDialog browser(CWnd::FromHandle(owner), startUp_);
        browser.DoModal();
      },
      [&](User& user) {
        Browser browser(user);
        browser.ClickRow("b.mdl");
        browser.List().Send(LVM_EDITLABELW, static_cast<WPARAM>(browser.List().FindRow("b.mdl")));
        user.WaitUntil("the name can be edited", [&] { return browser.List().LabelEdit().HasFocus(); });
        user.Type("a.mdl");
        user.Key(VK_F4, {VK_MENU});
        const driver::MessageBoxView refusal = user.WaitMessageBox();
        const DWORD thread = ::GetWindowThreadProcessId(owner, nullptr);
        ::SendMessageA(owner, WM_CLOSE, 0, 0);
        ::PostThreadMessageA(thread, WM_NULL, 0, 0);  // a message box looks at its window when a message comes
        user.WaitGone(refusal.window);
      });
  EXPECT_FALSE(World().registry.Value(kLayoutKey, "SizeX").has_value());
}

// ---------------------------------------------------------------------------------------------------------------------
// devices that do not answer

void WaitHanging(Browser& browser, const driver::HangingCalls& hanging) {
  browser.Person().WaitUntil("a call hangs", [&hanging] { return hanging.Now() > 0; });
}

/// Whether the list shows its line: grey in its middle, where no row reaches.
bool ShowsGrey(Browser& browser) {
  const Picture list = driver::Capture(browser.List().ScreenRect());
  constexpr int kLine = 16;
  const int middle = (list.Height() + kLine) / 2;
  return list.Count({0, middle - kLine, list.Width(), middle + kLine}, ::GetSysColor(COLOR_GRAYTEXT)) > 0;
}

TEST_F(BrowserListingTest, AFolderThatDoesNotAnswerIsGivenUpAndTheWindowLives) {
  World().files.AddFile("C:\\slow\\s.mdl");
  Run([](Browser& browser) {
    driver::HangingCalls hanging("files.OpenFolder");
    browser.TypeName("C:\\slow");
    browser.PressOk();
    WaitHanging(browser, hanging);
    browser.Person().WaitUntil("the list says so", [&] { return ShowsGrey(browser); });
    browser.Person().Key(VK_ESCAPE);
    browser.Person().WaitUntil("the rows are back", [&] { return !ShowsGrey(browser); });
    EXPECT_TRUE(browser.IsOpen());
    EXPECT_EQ(browser.Rows(), kAllRows);
    hanging.LetGo();
    browser.Enter("C:\\slow");
    EXPECT_EQ(browser.Rows(), Texts{"s.mdl"});
  });
}

TEST_F(BrowserListingTest, CancelEndsABrowserWhoseFolderDoesNotAnswer) {
  World().files.AddFile("C:\\slow\\s.mdl");
  std::optional<driver::HangingCalls> hanging;
  const Outcome outcome = Run([&](Browser& browser) {
    hanging.emplace("files.OpenFolder");
    browser.TypeName("C:\\slow");
    browser.PressOk();
    WaitHanging(browser, *hanging);
    browser.Person().Click(browser.Window().Child(IDCANCEL));
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(outcome.answer, IDCANCEL);
  EXPECT_EQ(hanging->Now(), 1) << "nobody has waited for it";
}

TEST_F(BrowserListingTest, AProgramThatIsToEndDuringAWaitIsToldSoAnew) {
  World().files.AddFile("C:\\slow\\s.mdl");
  constexpr int kCode = 7;
  startUp_.capacity = 1000;
  std::vector<char> buffer(startUp_.capacity);
  startUp_.fileBuffer = buffer.data();
  std::optional<driver::HangingCalls> hanging;
  INT_PTR answer = -1;
  MSG quit = {};
  driver::RunDialog(
      [&] {
        CvFileDialog browser(nullptr, startUp_);
        answer = browser.DoModal();
        ::PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
      },
      [&](User& user) {
        Browser browser(user);
        hanging.emplace("files.OpenFolder");
        browser.TypeName("C:\\slow");
        browser.PressOk();
        WaitHanging(browser, *hanging);
        ::PostThreadMessageW(::GetWindowThreadProcessId(browser.Window().Handle(), nullptr), WM_QUIT, kCode, 0);
        user.WaitGone(browser.Window());
      });
  EXPECT_NE(answer, IDOK);
  EXPECT_EQ(quit.message, UINT{WM_QUIT}) << "the program's own loop gets it";
  EXPECT_EQ(quit.wParam, WPARAM{kCode});
}

TEST_F(BrowserListingTest, ADrivesNameThatComesLateIsPutIntoTheOpenList) {
  driver::HangingCalls hanging("drives.VolumeName");
  Run([&](Browser& browser) {
    const Window bar = browser.LocationBar();
    const auto row = [&bar] { return bar.Items().at(2); };
    EXPECT_EQ(row(), " (C:)");
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.Person().Click(bar);
    browser.Person().WaitUntil("the list is open", [&] { return bar.IsDropped(); });
    const int selected = bar.Selection();
    const Picture before = driver::Capture(bar.ComboList().ScreenRect());
    hanging.LetGo();
    browser.Person().WaitUntil("it has its name", [&] { return row() == "SYSTEM (C:)"; });
    browser.Person().Settle();
    EXPECT_TRUE(bar.IsDropped());
    EXPECT_EQ(bar.Selection(), selected);
    EXPECT_NE(driver::Capture(bar.ComboList().ScreenRect()), before) << "it is drawn";
    browser.Person().Key(VK_ESCAPE);
    browser.Person().Settle();
  });
}

TEST_F(BrowserListingTest, RowsWhoseDatesDoNotComeAreShownWithoutThem) {
  driver::HangingCalls hanging("files.Status");
  Run([&](Browser& browser) {
    WaitHanging(browser, hanging);
    EXPECT_EQ(browser.Rows(), kAllRows);
    browser.ClickRow("a.mdl");
    EXPECT_EQ(browser.Name(), "a.mdl");
    hanging.LetGo();
  });
}

}  // namespace
}  // namespace browser_test
