// The browser on real files below a folder that does not answer (slow_device.cpp, which is preloaded).
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "platform/os/sjis_wide.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/accessible/tool.h"
#include "tests/windows/browser/browser_view.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/support/temporary_folder.h"

namespace {

using browser_test::Browser;
using browser_test::Texts;
using driver::User;
using driver::Window;

constexpr char kLayoutKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #SLOW#";
constexpr ULONGLONG kSoonMs = 100;
constexpr char kSlowFolder[] = "slow-device";

/// Calls below the slow folder hang from here to the end of the scope. Nothing hangs any more then, but for what went
/// down with its program.
class Hanging {
 public:
  explicit Hanging(const std::string& parent) : parent_(parent) {
    ::CloseHandle(::CreateFileW(Wide("hang").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  }
  Hanging(const Hanging&) = delete;
  Hanging& operator=(const Hanging&) = delete;
  ~Hanging() { LetGo(); }

  void LetGo() {
    ::DeleteFileW(Wide("hang").c_str());
    while (Now() > goneDown_) ::Sleep(1);
  }
  /// So many calls have ended with their program.
  void GoneDown(int calls) { goneDown_ = calls; }
  [[nodiscard]] int Now() const {
    WIN32_FIND_DATAW found = {};
    const HANDLE pass = ::FindFirstFileW(Wide("hanging.*").c_str(), &found);
    if (pass == INVALID_HANDLE_VALUE) return 0;
    int count = 1;
    while (::FindNextFileW(pass, &found) != FALSE) ++count;
    ::FindClose(pass);
    return count;
  }

 private:
  [[nodiscard]] std::wstring Wide(const char* name) const { return os::WideOf(parent_ + "\\" + name); }

  std::string parent_;
  int goneDown_ = 0;
};

/// When a browser is shown by the thread that makes the object, and whether its list had rows then.
class ShowWatch {
 public:
  struct Shown {
    ULONGLONG at;
    LRESULT rows;
  };

  ShowWatch() {
    shown_ = {};
    hook_ = ::SetWindowsHookExW(WH_CALLWNDPROC, &ShowWatch::See, nullptr, ::GetCurrentThreadId());
  }
  ShowWatch(const ShowWatch&) = delete;
  ShowWatch& operator=(const ShowWatch&) = delete;
  ~ShowWatch() { ::UnhookWindowsHookEx(hook_); }

  /// Of the browser that was opened last.
  static Shown Last() { return shown_; }

 private:
  static LRESULT CALLBACK See(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    const bool isShown = code == HC_ACTION && sent.message == WM_SHOWWINDOW && sent.wParam != FALSE;
    const HWND list = isShown ? ::GetDlgItem(sent.hwnd, IDC_FILE_LIST) : nullptr;
    if (list != nullptr && shown_.at == 0) {
      shown_ = {::GetTickCount64(), ::SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)};
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
  }

  static inline Shown shown_ = {};
  HHOOK hook_;
};

/// Opens the browser in a folder, and answers as DoModal does.
INT_PTR Browse(const std::string& folder, const std::function<void(Browser&)>& script) {
  std::vector<char> buffer(1000);
  filedialog::StartUp startUp;
  startUp.fileBuffer = buffer.data();
  startUp.capacity = buffer.size();
  startUp.initialFolder = folder;
  startUp.title = "#SLOW#(*.MDL)";
  startUp.caption = browser_test::kCaption;
  INT_PTR answer = -1;
  driver::RunDialog(
      [&] {
        const ShowWatch watch;
        CvFileDialog dialog(nullptr, startUp);
        answer = dialog.DoModal();
      },
      [&](User& user) {
        Browser browser(user);
        script(browser);
        if (browser.IsOpen()) browser.Cancel();
      });
  return answer;
}

bool ShowsLine(const Window& browser) { return browser.Child(IDC_FILE_LIST).Text().starts_with("読み込み中…"); }

void WaitForLine(const Browser& browser) {
  browser.Person().WaitUntil("the list says that it reads", [&] { return ShowsLine(browser.Window()); });
}

class SlowDevice : public testing::Test {
 protected:
  SlowDevice() {
    CwSession::Reset();
    CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#SLOW#", "C:/", "*.MDL", 0));
    ::RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(kLayoutKey).c_str());
    folder_.MakeFolder("here");
    folder_.Write("here\\a.mdl", "");
    folder_.MakeFolder("there");
    folder_.Write("there\\b.mdl", "");
    folder_.MakeFolder(kSlowFolder);
    folder_.MakeFolder(std::string(kSlowFolder) + "\\in");
    folder_.Write(std::string(kSlowFolder) + "\\in\\s.mdl", "");
  }
  ~SlowDevice() override {
    ::RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(kLayoutKey).c_str());
    CwSession::Reset();
  }

  [[nodiscard]] const std::string& Root() const { return folder_.Path(); }
  [[nodiscard]] std::string Here() const { return folder_.Path("here"); }
  [[nodiscard]] std::string There() const { return folder_.Path("there"); }
  [[nodiscard]] std::string Slow() const { return folder_.Path(kSlowFolder) + "\\in"; }

 private:
  const TemporaryFolder folder_{"slow"};
};

TEST_F(SlowDevice, EscGivesAFolderUpWithinATenthOfASecond) {
  constexpr int kTries = 5;  // other programs may have the processor
  ULONGLONG fastest = ~0ULL;
  Browse(Here(), [&](Browser& browser) {
    Hanging hanging(Root());
    for (int i = 0; i < kTries; ++i) {
      browser.TypeName(Slow());
      browser.PressOk();
      WaitForLine(browser);
      EXPECT_GT(hanging.Now(), 0) << "start it through ctest, which preloads the device";
      const ULONGLONG pressed = ::GetTickCount64();
      browser.Person().Key(VK_ESCAPE);
      while (ShowsLine(browser.Window())) ::Sleep(1);
      fastest = std::min(fastest, ::GetTickCount64() - pressed);
    }
    EXPECT_EQ(browser.Rows(), Texts{"a.mdl"});
    EXPECT_EQ(browser.Name(), Slow()) << "what was typed stays";
    hanging.LetGo();
    browser.Ok();
    browser.Person().WaitUntil("the folder is listed", [&] { return browser.Rows() == Texts{"s.mdl"}; });
  });
  std::cout << "[ slow ] given up after " << fastest << " ms\n";
  EXPECT_LE(fastest, kSoonMs);
}

TEST_F(SlowDevice, AnotherFolderIsOpenedMeanwhile) {
  Browse(Here(), [&](Browser& browser) {
    const Hanging hanging(Root());
    browser.TypeName(Slow());
    browser.PressOk();
    WaitForLine(browser);
    browser.Enter(There());
    browser.Person().WaitUntil("the other one is listed", [&] { return browser.Rows() == Texts{"b.mdl"}; });
    EXPECT_GT(hanging.Now(), 0) << "it hangs as before";
  });
}

TEST_F(SlowDevice, CancelEndsTheBrowserAndALaterOneWorks) {
  const Hanging hanging(Root());
  const INT_PTR answer = Browse(Here(), [&](Browser& browser) {
    browser.TypeName(Slow());
    browser.PressOk();
    WaitForLine(browser);
    browser.Person().Click(browser.Window().Child(IDCANCEL));
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_EQ(answer, IDCANCEL);
  EXPECT_EQ(::RegGetValueA(HKEY_CURRENT_USER, kLayoutKey, "SizeX", RRF_RT_REG_DWORD, nullptr, nullptr, nullptr),
            ERROR_SUCCESS)
      << "the layout is saved";
  Browse(There(), [](Browser& browser) { EXPECT_EQ(browser.Rows(), Texts{"b.mdl"}); });
  EXPECT_GT(hanging.Now(), 0);
}

using Act = std::function<void(Browser&)>;

/// How long the window stays after it was asked to go while a call hangs: the shortest of some tries, as other programs
/// may have the processor.
ULONGLONG MsToGo(const std::string& root, const std::string& slow, const Act& wait, const Act& ask) {
  constexpr int kTries = 5;
  ULONGLONG fastest = ~0ULL;
  for (int i = 0; i < kTries && fastest > kSoonMs; ++i) {
    const Hanging hanging(root);
    const INT_PTR answer = Browse(root + "\\here", [&](Browser& browser) {
      browser.TypeName(slow);
      browser.Person().Hover(browser.Window().Child(IDCANCEL));
      // Not by the mouse: that would wait until the dialog takes input again.
      ::PostMessageW(browser.Window().Child(IDOK).Handle(), BM_CLICK, 0, 0);
      browser.Person().WaitUntil("a call hangs", [&hanging] { return hanging.Now() > 0; });
      wait(browser);
      const ULONGLONG asked = ::GetTickCount64();
      ask(browser);
      while (browser.Window().IsVisible()) ::Sleep(1);
      fastest = std::min(fastest, ::GetTickCount64() - asked);
    });
    EXPECT_EQ(answer, IDCANCEL);
  }
  std::cout << "[ slow ] gone after " << fastest << " ms\n";
  return fastest;
}

void CloseFrame(Browser& browser) { ::PostMessageW(browser.Window().Handle(), WM_SYSCOMMAND, SC_CLOSE, 0); }

TEST_F(SlowDevice, TheWindowHasGoneATenthOfASecondAfterCancel) {
  const auto cancel = [](Browser& browser) {
    ::PostMessageW(browser.Window().Child(IDCANCEL).Handle(), BM_CLICK, 0, 0);
  };
  EXPECT_LE(MsToGo(Root(), Slow(), WaitForLine, cancel), kSoonMs);
}

TEST_F(SlowDevice, TheWindowHasGoneATenthOfASecondAfterItsFramesClose) {
  EXPECT_LE(MsToGo(Root(), Slow(), WaitForLine, CloseFrame), kSoonMs);
}

/// Before the list says anything, which it does after three times that.
void AtOnce(Browser& /*browser*/) {}

TEST_F(SlowDevice, APressOnCancelIsNotKeptWaitingUntilTheListSaysWhatIsDone) {
  const auto cancel = [](Browser& /*browser*/) {
    ::mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
  };
  EXPECT_LE(MsToGo(Root(), Slow(), AtOnce, cancel), kSoonMs);
}

TEST_F(SlowDevice, NorIsTheFramesClose) { EXPECT_LE(MsToGo(Root(), Slow(), AtOnce, CloseFrame), kSoonMs); }

TEST_F(SlowDevice, NorIsARequestToClose) {
  const auto close = [](Browser& browser) { ::PostMessageW(browser.Window().Handle(), WM_CLOSE, 0, 0); };
  EXPECT_LE(MsToGo(Root(), Slow(), AtOnce, close), kSoonMs);
}

std::string RemarkOf(const Browser& browser) {
  return spoken::Tool(browser.Person())
      .Ask(browser.List(), spoken::Whole, [](const driver::Accessible& list) { return list.Description(); })
      .value_or("");
}

TEST_F(SlowDevice, AStartInASlowFolderShowsTheWindowAndThenTheFolderAbove) {
  constexpr ULONGLONG kStartMs = 2000;
  const Hanging hanging(Root());
  const ULONGLONG begun = ::GetTickCount64();
  Browse(Slow(), [&](Browser& browser) {
    const Texts above = {"here", kSlowFolder, "there"};
    browser.Person().WaitUntil("the folder above is listed", [&] { return browser.Rows() == above; });
    EXPECT_GE(::GetTickCount64() - begun, kStartMs);
    EXPECT_EQ(ShowWatch::Last().rows, 0) << "it was shown before";
    browser.Person().WaitUntil("the list says why", [&] {
      return RemarkOf(browser) == "フォルダの応答がないため、上のフォルダを表示しています。";
    });
    browser.OpenRow("here");
    EXPECT_EQ(browser.Rows(), Texts{"a.mdl"});
    EXPECT_EQ(RemarkOf(browser), "");
  });
}

TEST_F(SlowDevice, AStartInASlowFolderShowsTheWindowAfterAThirdOfASecond) {
  constexpr ULONGLONG kHiddenMs = 300;
  constexpr ULONGLONG kMadeMs = 300;  // until the folder is asked for
  constexpr int kMostTries = 5;       // other programs may have the processor
  ULONGLONG fastest = ~0ULL;
  const Hanging hanging(Root());
  for (int tries = 0; fastest > kHiddenMs + kMadeMs && tries < kMostTries; ++tries) {
    const ULONGLONG begun = ::GetTickCount64();
    Browse(Slow(), [](const Browser& browser) { browser.Person().Settle(); });
    EXPECT_GE(ShowWatch::Last().at - begun, kHiddenMs) << "it waits for the folder";
    fastest = std::min(fastest, ShowWatch::Last().at - begun);
  }
  EXPECT_LE(fastest, kHiddenMs + kMadeMs);
}

TEST_F(SlowDevice, AFolderThatIsMadeThereIsGivenUp) {
  Browse(Slow(), [&](Browser& browser) {
    browser.Person().Click(driver::Center(browser.Window().Child(IDC_CREATE_FOLDER).ScreenRect()));
    const Window dialog = browser.Person().WaitDialog("新しいフォルダの作成");
    browser.Person().WaitUntil("the name has the focus", [&] { return dialog.Child(IDC_FOLDER_NAME).HasFocus(); });
    browser.Person().Type("n");
    const Hanging hanging(Root());
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitUntil("it hangs", [&] { return hanging.Now() > 0; });
    browser.Person().Click(dialog.Child(IDCANCEL));
    browser.Person().WaitGone(dialog);
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// the end of the program, and of the library in it

/// A program that uses the library as it is shipped (slow_client.cpp), and what its user sees and does.
class Client {
 public:
  Client(const std::string& way, const std::string& root)
      : program_("\"" SLOW_CLIENT "\" " + way + " \"" SHIPPED_LIBRARY "\" \"" + root + "\\here\" \"" + root +
                 "\\hang\"") {}

  /// Goes to the slow folder, and gives up while a call hangs.
  void GiveUpSlowFolder(const std::string& folder, const Hanging& hanging) {
    const Window browser = WaitForListing();
    user_.Replace(browser.Child(IDC_FILE_NAME).FindChildOfClass("Edit"), folder);
    user_.Key(VK_RETURN);
    user_.WaitUntil("the list says that it reads", [&] { return ShowsLine(browser); });
    EXPECT_GT(hanging.Now(), 0);
    Cancel(browser);
  }
  void CancelAnotherOne() { Cancel(WaitForListing()); }
  [[nodiscard]] int WaitForEnd() const { return program_.WaitForEnd(); }

 private:
  /// A browser on the folder that answers.
  [[nodiscard]] Window WaitForListing() {
    const Window browser = user_.WaitDialog(browser_test::kCaption);
    const driver::ListView list(browser.Child(IDC_FILE_LIST));
    user_.WaitUntil("the folder is listed", [&] { return list.Names() == Texts{"a.mdl"}; });
    return browser;
  }
  void Cancel(const Window& browser) {
    user_.Click(browser.Child(IDCANCEL));
    user_.WaitGone(browser);
  }

  driver::Program program_;
  User user_{program_.Id()};
};

TEST_F(SlowDevice, TheProgramEndsWhileACallHangs) {
  Hanging hanging(Root());
  Client client("ends", Root());
  client.GiveUpSlowFolder(Slow(), hanging);
  EXPECT_EQ(client.WaitForEnd(), 0);
  hanging.GoneDown(hanging.Now());
  EXPECT_GT(hanging.Now(), 0) << "it hung until the end";
}

TEST_F(SlowDevice, TheLibraryIsLetGoWhileACallHangsAndGoesWhenThatHasEnded) {
  const Hanging hanging(Root());
  Client client("unloads", Root());
  client.GiveUpSlowFolder(Slow(), hanging);
  client.CancelAnotherOne();
  EXPECT_EQ(client.WaitForEnd(), 0);
}

}  // namespace
