#include "tests/windows/driver/user.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <thread>
#include <utility>

#include "platform/os/sjis_wide.h"

namespace driver {
namespace {

constexpr DWORD kPollIntervalMs = 5;
/// Asks a menu window for its menu (MN_GETHMENU).
constexpr UINT kGetMenuHandle = 0x01E1;
constexpr int kMessageBoxText = 0xFFFF;
constexpr char kDialogClass[] = "#32770";
constexpr char kMenuClass[] = "#32768";

void Pause() { Sleep(kPollIntervalMs); }

std::wstring ToWide(const std::string& text) { return os::WideOf(text); }

void SendKey(WORD key, WORD scan, DWORD flags) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = scan;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

bool IsExtendedKey(WORD key) {
  constexpr std::array<WORD, 10> kExtended = {VK_LEFT, VK_RIGHT, VK_UP,   VK_DOWN,   VK_HOME,
                                              VK_END,  VK_PRIOR, VK_NEXT, VK_INSERT, VK_DELETE};
  return std::find(kExtended.begin(), kExtended.end(), key) != kExtended.end();
}

void SendVirtualKey(WORD key, bool down) {
  const auto scan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  const DWORD extended = IsExtendedKey(key) ? DWORD{KEYEVENTF_EXTENDEDKEY} : 0;
  SendKey(key, scan, extended | (down ? 0 : DWORD{KEYEVENTF_KEYUP}));
}

/// The clipboard is open.
void PutOnClipboard(const std::wstring& wide) {
  const std::size_t size = (wide.size() + 1) * sizeof(wchar_t);
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory == nullptr) throw Stuck("no memory for the clipboard");
  const auto* bytes = reinterpret_cast<const char*>(wide.c_str());
  std::copy_n(bytes, size, static_cast<char*>(GlobalLock(memory)));
  GlobalUnlock(memory);
  EmptyClipboard();
  SetClipboardData(CF_UNICODETEXT, memory);  // the clipboard owns the memory from here
  CloseClipboard();
}

// ---- settling: a thread that gets a timer message has no other message, input or painting left to do, as timer
// messages come last of all. The timer must be set by the dialog thread itself, so a hook there waits for a request.

std::atomic<bool> settled = false;

UINT SettleRequest() {
  static const UINT message = RegisterWindowMessageW(L"dlglib test driver: settle");
  return message;
}

void CALLBACK OnSettleTimer(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  settled = true;
}

LRESULT CALLBACK OnGetMessage(int code, WPARAM removal, LPARAM message) {
  const auto* msg = reinterpret_cast<const MSG*>(message);
  if (code == HC_ACTION && removal == PM_REMOVE && msg->message == SettleRequest()) {
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnSettleTimer);
  }
  return CallNextHookEx(nullptr, code, removal, message);
}

// With a dialog of another process no hook helps. A thread handles its input in order, so it has worked off all of it
// when it has taken up a key that is pressed last and means nothing.

constexpr WORD kMeaninglessKey = 0xE8;  // "unassigned"

// ---- message boxes

bool IsMessageBox(const Window& window) {
  if (window.ClassName() != kDialogClass || !window.FindChild(kMessageBoxText)) return false;
  const std::vector<Window> children = window.Children();
  return std::all_of(children.begin(), children.end(), [](const Window& child) {
    if (!child.IsVisible() || child.ClassName() == "Static") return true;
    return child.ClassName() == "Button" && child.Id() >= IDOK && child.Id() <= IDCONTINUE;
  });
}

std::vector<int> ButtonsLeftToRight(const Window& box) {
  std::vector<std::pair<LONG, int>> found;
  for (const Window& child : box.Children()) {
    if (child.IsVisible() && child.ClassName() == "Button") found.emplace_back(child.ScreenRect().left, child.Id());
  }
  std::sort(found.begin(), found.end());
  std::vector<int> ids;
  for (const auto& [left, id] : found) ids.push_back(id);
  return ids;
}

UINT IconOf(const Window& box) {
  const std::array<std::pair<LPSTR, UINT>, 4> kIcons = {{{IDI_HAND, MB_ICONHAND},
                                                         {IDI_QUESTION, MB_ICONQUESTION},
                                                         {IDI_EXCLAMATION, MB_ICONEXCLAMATION},
                                                         {IDI_ASTERISK, MB_ICONASTERISK}}};
  for (const Window& child : box.Children()) {
    if (child.ClassName() != "Static") continue;
    const LRESULT shown = child.Send(STM_GETICON);
    for (const auto& [name, id] : kIcons) {
      if (shown != 0 && shown == reinterpret_cast<LRESULT>(LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(name))))
        return id;
    }
  }
  return 0;
}

MenuItem ReadMenuItem(HMENU menu, UINT index) {
  wchar_t text[256] = L"";
  MENUITEMINFOW info = {};
  info.cbSize = sizeof info;
  info.fMask = MIIM_ID | MIIM_STATE | MIIM_FTYPE | MIIM_STRING | MIIM_SUBMENU;
  info.dwTypeData = text;
  info.cch = static_cast<UINT>(std::size(text));
  GetMenuItemInfoW(menu, index, TRUE, &info);
  MenuItem item;
  item.text = os::SjisOf(text, os::kUnknown).bytes;
  item.id = info.wID;
  item.isSeparator = (info.fType & MFT_SEPARATOR) != 0;
  item.isEnabled = (info.fState & (MFS_DISABLED | MFS_GRAYED)) == 0;
  item.isChecked = (info.fState & MFS_CHECKED) != 0;
  item.hasSubMenu = info.hSubMenu != nullptr;
  return item;
}

}  // namespace

// --------------------------------------------------------------------------------------------------------------------
// User

User::User(DWORD processId, DWORD dialogThread, DWORD patienceMs)
    : processId_(processId), dialogThread_(dialogThread), patienceMs_(patienceMs) {
  if (dialogThread_ != 0) hook_ = SetWindowsHookExW(WH_GETMESSAGE, OnGetMessage, nullptr, dialogThread_);
}

User::~User() {
  if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
  if (sharedThread_ != 0) AttachThreadInput(GetCurrentThreadId(), sharedThread_, FALSE);
}

void User::Fail(const std::string& reason) const { throw Stuck(reason + "\n" + DescribeWindows(processId_)); }

void User::WaitUntil(const std::string& what, const std::function<bool()>& condition) const {
  const auto limit = GetTickCount64() + patienceMs_;
  while (!condition()) {
    if (GetTickCount64() > limit) Fail("waited in vain until " + what);
    Pause();
  }
}

Window User::Find(const std::string& className, const std::string& title) const {
  for (const Window& window : VisibleWindows(processId_)) {
    if (window.ClassName() != className) continue;
    if (title.empty() ? window.IsEnabled() : window.Text() == title) return window;
  }
  return {};
}

bool User::Sees(const std::string& className, const std::string& title) const {
  return Find(className, title).Handle() != nullptr;
}

Window User::WaitWindow(const std::string& className, const std::string& title) const {
  Window found;
  WaitUntil("a window of class " + className + " with title \"" + title + "\" appears", [&] {
    found = Find(className, title);
    return found.Handle() != nullptr;
  });
  Settle();
  return found;
}

Window User::WaitDialog(const std::string& title) const { return WaitWindow(kDialogClass, title); }

void User::WaitGone(Window window) const {
  WaitUntil("a window goes away", [&] { return !window.IsVisible(); });
}

/// Who gets the input, and answers a message; none when the window is about to go.
HWND User::AnsweringWindow() const {
  const HWND foreground = GetForegroundWindow();
  DWORD_PTR answer = 0;
  if (SendMessageTimeoutW(foreground, WM_NULL, 0, 0, SMTO_NORMAL, kAnswerMs, &answer) != 0) return foreground;
  if (IsWindow(foreground) != FALSE) Fail("a window does not answer");
  return nullptr;
}

/// From here on GetKeyState tells what the thread of the window in front has taken up; false when that is of no other
/// process. The thread forgets which keys are held when this begins, so it begins before any is pressed, and once.
bool User::SharesKeys() const {
  DWORD process = 0;
  const DWORD thread = GetWindowThreadProcessId(GetForegroundWindow(), &process);
  if (dialogThread_ != 0 || process != processId_ || process == GetCurrentProcessId()) return false;
  if (thread == sharedThread_) return true;
  if (sharedThread_ != 0) AttachThreadInput(GetCurrentThreadId(), sharedThread_, FALSE);
  sharedThread_ = AttachThreadInput(GetCurrentThreadId(), thread, TRUE) != FALSE ? thread : 0;
  return sharedThread_ != 0;
}

/// The window may go with the very input that is waited for, and its thread with it.
void User::SettleOther() const {
  const HWND window = AnsweringWindow();
  if (window == nullptr || !SharesKeys()) return;
  for (const bool down : {true, false}) {
    SendVirtualKey(kMeaninglessKey, down);
    WaitUntil("the program has worked off its input",
              [&] { return (GetKeyState(kMeaninglessKey) < 0) == down || IsWindow(window) == FALSE; });
  }
  static_cast<void>(AnsweringWindow());
}

void User::Settle() const {
  if (dialogThread_ == 0) return SettleOther();
  settled = false;
  // Refused as long as the thread has no message queue.
  WaitUntil("the dialog thread takes messages",
            [&] { return PostThreadMessageW(dialogThread_, SettleRequest(), 0, 0) != FALSE; });
  WaitUntil("the dialog thread comes to rest", [] { return settled.load(); });
}

// ---- mouse

/// Each event brings its place: on a busy machine the display may report an older place of the pointer in between.
void User::SendMouse(POINT point, const std::vector<DWORD>& flags) const {
  constexpr LONG kWholeScreen = 65536;
  const LONG width = GetSystemMetrics(SM_CXSCREEN);
  const LONG height = GetSystemMetrics(SM_CYSCREEN);
  const DWORD now = GetTickCount();
  std::vector<INPUT> events;
  for (const DWORD flag : flags) {
    INPUT& event = events.emplace_back();
    event.type = INPUT_MOUSE;
    event.mi.dx = (point.x * kWholeScreen + width - 1) / width;
    event.mi.dy = (point.y * kWholeScreen + height - 1) / height;
    event.mi.dwFlags = flag | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    event.mi.time = now;  // of all of them: two clicks are a double click also when the machine pauses between them
  }
  SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
}

/// A display that is late with the move would let go of a key that is pressed behind it: it tells which keys are down
/// when the pointer comes to a window, and knows none of those that are sent.
void User::MoveTo(POINT point) const {
  SetCursorPos(point.x, point.y);
  WaitForDisplay();
  Settle();
}

void User::Hover(Window window) const { MoveTo(Center(window.ScreenRect())); }

/// Two clicks on one spot in a short time are a double click, so the second one waits until they are not. The time is
/// taken when a click has been sent: on a busy machine that takes a while.
void User::AvoidDoubleClick(POINT point) {
  const bool sameSpot = std::abs(point.x - lastClick_.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                        std::abs(point.y - lastClick_.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
  while (sameSpot && GetTickCount() - lastClickTime_ <= GetDoubleClickTime()) Pause();
  lastClick_ = point;
}

void User::Press(POINT point) {
  AvoidDoubleClick(point);
  MoveTo(point);
  SendMouse(point, {MOUSEEVENTF_LEFTDOWN});
  lastClickTime_ = GetTickCount();
  Settle();
}

void User::Release(POINT point) const {
  MoveTo(point);
  SendMouse(point, {MOUSEEVENTF_LEFTUP});
  Settle();
}

void User::ClickButton(POINT point, DWORD down, DWORD up) {
  AvoidDoubleClick(point);
  MoveTo(point);
  SendMouse(point, {down, up});
  lastClickTime_ = GetTickCount();
  Settle();
}

void User::Click(POINT point) { ClickButton(point, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP); }

void User::Click(Window window) {
  const POINT point = Center(window.ScreenRect());
  WaitUntil("a control can be clicked on: ID " + std::to_string(window.Id()) + " \"" + window.Text() + "\"", [&] {
    return window.IsVisible() && window.IsEnabled() &&
           IsSameWindow(GetAncestor(WindowFromPoint(point), GA_ROOT), GetAncestor(window.Handle(), GA_ROOT));
  });
  Click(point);
}

void User::DoubleClick(POINT point) {
  AvoidDoubleClick(point);
  MoveTo(point);
  SendMouse(point, {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP});
  lastClickTime_ = GetTickCount();
  Settle();
}

void User::RightClick(POINT point) { ClickButton(point, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP); }

void User::Drag(POINT from, POINT to) {
  constexpr int kSteps = 5;
  Press(from);
  for (int step = 1; step <= kSteps; ++step) {
    MoveTo(POINT{from.x + (to.x - from.x) * step / kSteps, from.y + (to.y - from.y) * step / kSteps});
  }
  Release(to);
}

void User::ChooseComboItem(Window combo, int index) {
  const RECT rect = combo.ScreenRect();
  Click(POINT{rect.right - GetSystemMetrics(SM_CXVSCROLL) / 2 - 2, rect.top + 10});
  const Window list = combo.ComboList();
  WaitUntil("the list of a combo box drops down", [&] { return list.IsVisible(); });
  // A row that is out of sight is brought into it as the arrow keys would do.
  list.Send(LB_SETTOPINDEX, static_cast<WPARAM>(index));
  RECT row = {};
  list.Send(LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&row));
  MapWindowPoints(list.Handle(), nullptr, reinterpret_cast<POINT*>(&row), 2);
  Click(Center(row));
  WaitUntil("the list of a combo box closes", [&] { return !list.IsVisible(); });
}

// ---- keyboard

void User::HoldKey(WORD key) const {
  static_cast<void>(SharesKeys());
  SendVirtualKey(key, true);
}

void User::ReleaseKey(WORD key) const { SendVirtualKey(key, false); }

void User::Key(WORD key, const std::vector<WORD>& held) const {
  for (const WORD other : held) HoldKey(other);
  HoldKey(key);
  ReleaseKey(key);
  for (const WORD other : held) ReleaseKey(other);
  Settle();
}

void User::Type(const std::string& text) const { Type(std::wstring_view(ToWide(text))); }

void User::Type(std::wstring_view units) const {
  for (const wchar_t unit : units) {
    SendKey(0, static_cast<WORD>(unit), KEYEVENTF_UNICODE);
    SendKey(0, static_cast<WORD>(unit), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
  }
  Settle();
}

void User::Paste(const std::string& text) const { Paste(ToWide(text)); }

/// Other programs look at each change of the clipboard, and have it open meanwhile.
void User::Paste(const std::wstring& units) const {
  WaitUntil("the clipboard can be opened", [] { return OpenClipboard(nullptr) != FALSE; });
  PutOnClipboard(units);
  Key('V', {VK_CONTROL});
}

void User::Replace(Window edit, const std::string& text) {
  Click(edit);
  WaitUntil("an edit box has the focus", [&] { return edit.HasFocus(); });
  // Not Ctrl+A, which older edit boxes do not know.
  Key(VK_HOME, {VK_CONTROL});
  Key(VK_END, {VK_CONTROL, VK_SHIFT});
  Key(VK_DELETE);
  Type(text);
}

// ---- message boxes and menus

MessageBoxView User::WaitMessageBox() const {
  Window found;
  WaitUntil("a message box appears", [&] {
    for (const Window& window : VisibleWindows(processId_)) {
      if (window.IsEnabled() && IsMessageBox(window)) found = window;
    }
    return found.Handle() != nullptr;
  });
  Settle();
  MessageBoxView box;
  box.window = found;
  box.caption = found.Text();
  box.text = found.Child(kMessageBoxText).Text();
  box.buttons = ButtonsLeftToRight(found);
  if (processId_ == GetCurrentProcessId()) box.icon = IconOf(found);
  return box;
}

void User::Answer(const MessageBoxView& box, int button) {
  Click(box.window.Child(button));
  WaitGone(box.window);
}

MenuView User::WaitMenu() const {
  MenuView menu;
  menu.window = WaitWindow(kMenuClass);
  menu.handle = reinterpret_cast<HMENU>(menu.window.Send(kGetMenuHandle));
  const int count = GetMenuItemCount(menu.handle);
  for (int index = 0; index < count; ++index) {
    menu.items.push_back(ReadMenuItem(menu.handle, static_cast<UINT>(index)));
  }
  return menu;
}

void User::Choose(const MenuView& menu, const std::string& text) {
  const auto found =
      std::find_if(menu.items.begin(), menu.items.end(), [&](const MenuItem& item) { return item.text == text; });
  if (found == menu.items.end()) Fail("the menu has no entry \"" + text + "\"");
  RECT rect = {};
  GetMenuItemRect(nullptr, menu.handle, static_cast<UINT>(found - menu.items.begin()), &rect);
  Click(Center(rect));
  if (found->isEnabled && !found->hasSubMenu) WaitGone(menu.window);
}

// ---- pixels

/// The display shows a window when it comes to that, and has parts of it painted again then; when another process has
/// painted cannot be asked for at all. So a picture counts when it stands still.
Picture User::Look(const RECT& rect) const {
  Settle();
  Picture picture = Capture(rect);
  WaitUntil("the picture stands still", [&] {
    constexpr DWORD kStillMs = 100;
    if (dialogThread_ == 0) Sleep(kStillMs);
    Settle();
    const Picture next = Capture(rect);
    return std::exchange(picture, next) == next;
  });
  return picture;
}

Picture User::Look(Window window) const { return Look(window.ScreenRect()); }

// ---------------------------------------------------------------------------------------------------------------
// RunDialog

namespace {

/// Presses whatever ends a dialog: Esc, "no", "OK", or closes the window.
void TryToClose(const Window& window, int attempt) {
  constexpr std::array<WPARAM, 3> kAnswers = {IDCANCEL, IDNO, IDOK};
  if (window.ClassName() == kMenuClass) {
    PostMessageW(GetForegroundWindow(), WM_KEYDOWN, VK_ESCAPE, 0);
    return;
  }
  if (!window.IsEnabled()) return;
  PostMessageW(window.Handle(), WM_COMMAND, kAnswers[static_cast<std::size_t>(attempt) % kAnswers.size()], 0);
  PostMessageW(window.Handle(), WM_CLOSE, 0, 0);
}

/// The second thread: runs the script, then sees to it that the dialog ends.
class ScriptThread {
 public:
  ScriptThread(const std::function<void(User&)>& script, DWORD patienceMs)
      : script_(script), patienceMs_(patienceMs), dialogThread_(GetCurrentThreadId()), thread_([this] { Run(); }) {}
  ~ScriptThread() {
    if (thread_.joinable()) End();
  }
  ScriptThread(const ScriptThread&) = delete;
  ScriptThread& operator=(const ScriptThread&) = delete;

  /// Called when the dialog has returned. Messages are still handled until the script has ended too.
  void End() {
    dialogReturned_ = true;
    while (!scriptEnded_) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollIntervalMs, QS_ALLINPUT);
      MSG message = {};
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    thread_.join();
  }
  void Rethrow() const {
    if (error_) std::rethrow_exception(error_);
  }

 private:
  void Run() {
    try {
      User user(GetCurrentProcessId(), dialogThread_, patienceMs_);
      script_(user);
    } catch (...) {
      error_ = std::current_exception();
    }
    if (error_ || !WaitForReturn(patienceMs_)) CloseAll();
    scriptEnded_ = true;
  }

  bool WaitForReturn(DWORD limitMs) const {
    const auto end = GetTickCount64() + limitMs;
    while (!dialogReturned_ && GetTickCount64() < end) Pause();
    return dialogReturned_;
  }

  void CloseAll() {
    constexpr int kAttempts = 12;
    constexpr DWORD kBetweenMs = 500;
    const std::string windows = DescribeWindows(GetCurrentProcessId());
    if (!error_) error_ = std::make_exception_ptr(Stuck("a window is still open at the script's end\n" + windows));
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      for (const Window& window : VisibleWindows(GetCurrentProcessId())) TryToClose(window, attempt);
      if (WaitForReturn(kBetweenMs)) return;
    }
    std::fflush(stdout);
    std::fprintf(stderr, "hang: the dialog does not return\n%s", windows.c_str());
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), kHangExitCode);
  }

  const std::function<void(User&)>& script_;
  DWORD patienceMs_;
  DWORD dialogThread_;
  std::atomic<bool> dialogReturned_ = false;
  std::atomic<bool> scriptEnded_ = false;
  std::exception_ptr error_;
  std::thread thread_;
};

}  // namespace

void RunDialog(const std::function<void()>& dialog, const std::function<void(User&)>& script, DWORD patienceMs) {
  SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
  ScriptThread thread(script, patienceMs);
  dialog();
  thread.End();
  thread.Rethrow();
}

}  // namespace driver
