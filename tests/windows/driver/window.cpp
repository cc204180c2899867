#include "tests/windows/driver/window.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

#include "platform/os/sjis_wide.h"

namespace driver {
namespace {

/// Room for one text of a list view, in units.
constexpr std::size_t kTextCapacity = 4096;

[[noreturn]] void ThrowStuck(const std::string& reason, HWND window) {
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  throw Stuck(reason + "\n" + DescribeWindows(processId));
}

std::string Describe(UINT message) {
  char text[32];
  std::snprintf(text, sizeof text, "message 0x%04x", message);
  return text;
}

std::string ToSjis(std::wstring_view wide) { return os::SjisOf(wide, os::kUnknown).bytes; }

/// Asks for a text of at most `length` units through a message that fills a buffer which the system carries across
/// processes.
std::string AskText(HWND window, UINT message, WPARAM index, bool indexIsSize, std::size_t length) {
  auto buffer = std::make_unique<std::vector<wchar_t>>(length + 2, L'\0');
  const WPARAM wParam = indexIsSize ? buffer->size() : index;
  DWORD_PTR copied = 0;
  const LRESULT answered = SendMessageTimeoutW(window, message, wParam, reinterpret_cast<LPARAM>(buffer->data()),
                                               SMTO_NORMAL, kAnswerMs, &copied);
  if (answered == 0) {
    // The window may still write into the buffer later, so the buffer is given up to it.
    static_cast<void>(buffer.release());
    ThrowStuck("no answer to " + Describe(message), window);
  }
  return ToSjis(buffer->data());
}

/// Whether a message that came back without an answer was refused: the system does so for an entry that is no more.
bool WasRefused(HWND window) { return GetLastError() != ERROR_TIMEOUT && IsWindow(window) != FALSE; }

/// The length of an entry's text; below 0 when there is no such entry any more.
LRESULT AskLength(HWND window, UINT message, WPARAM index) {
  SetLastError(ERROR_SUCCESS);
  DWORD_PTR length = 0;
  if (SendMessageTimeoutW(window, message, index, 0, SMTO_NORMAL, kAnswerMs, &length) == 0) {
    if (WasRefused(window)) return -1;
    ThrowStuck("no answer to " + Describe(message), window);
  }
  return static_cast<LRESULT>(length);
}

/// The text of an entry; none when there is no such entry any more. It is asked for in UTF-16: the 8-bit form is not
/// converted on its way from another process.
std::optional<std::string> AskItem(HWND window, UINT message, WPARAM index, std::size_t length) {
  auto buffer = std::make_unique<std::vector<wchar_t>>(length + 1, L'\0');
  SetLastError(ERROR_SUCCESS);
  DWORD_PTR copied = 0;
  const LRESULT answered = SendMessageTimeoutW(window, message, index, reinterpret_cast<LPARAM>(buffer->data()),
                                               SMTO_NORMAL, kAnswerMs, &copied);
  if (answered == 0) {
    if (WasRefused(window)) return std::nullopt;
    static_cast<void>(buffer.release());
    ThrowStuck("no answer to " + Describe(message), window);
  }
  return ToSjis(buffer->data());
}

/// Horizontal and vertical base units of a dialog.
SIZE BaseUnits(HWND dialog) {
  RECT rect = {0, 0, 4, 8};
  MapDialogRect(dialog, &rect);
  return SIZE{rect.right, rect.bottom};
}

RECT ToUnits(const RECT& rect, SIZE base) {
  const int width = MulDiv(rect.right - rect.left, 4, base.cx);
  const int height = MulDiv(rect.bottom - rect.top, 8, base.cy);
  const int left = MulDiv(rect.left, 4, base.cx);
  const int top = MulDiv(rect.top, 8, base.cy);
  return RECT{left, top, left + width, top + height};
}

void AppendLine(std::string* text, HWND window, int depth) {
  const Window w(window);
  RECT rect = w.ScreenRect();
  char head[200];
  std::snprintf(head, sizeof head, "%*s%p [%s] id %d (%ld,%ld)-(%ld,%ld)%s%s \"", 2 * depth, "",
                static_cast<void*>(window), w.ClassName().c_str(), depth == 0 ? 0 : w.Id(), rect.left, rect.top,
                rect.right, rect.bottom, w.IsVisible() ? "" : " hidden", w.IsEnabled() ? "" : " disabled");
  // Read without a message, so that a hung window can be described.
  wchar_t wide[128] = L"";
  InternalGetWindowText(window, wide, static_cast<int>(std::size(wide)));
  *text += head;
  *text += ToSjis(wide);
  *text += "\"\n";
}

/// Keys and mouse buttons that are down, by their numbers.
std::string HeldKeys() {
  constexpr int kKeys = 256;
  std::string text;
  for (int key = 1; key < kKeys; ++key) {
    if (GetAsyncKeyState(key) < 0) text += ' ' + std::to_string(key);
  }
  return text.empty() ? " nothing" : text;
}

/// Who gets the input, and what is held: one line.
std::string DescribeInput() {
  const HWND foreground = GetForegroundWindow();
  GUITHREADINFO thread = {};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(foreground, nullptr), &thread);
  POINT mouse = {};
  GetCursorPos(&mouse);
  char text[160];
  std::snprintf(text, sizeof text,
                "input: foreground %p, focus %p, capture %p, mouse at (%ld,%ld), held:", static_cast<void*>(foreground),
                static_cast<void*>(thread.hwndFocus), static_cast<void*>(thread.hwndCapture), mouse.x, mouse.y);
  return text + HeldKeys() + "\n";
}

void AppendTree(std::string* text, HWND window, int depth) {
  AppendLine(text, window, depth);
  for (const Window& child : Window(window).Children()) AppendTree(text, child.Handle(), depth + 1);
}

BOOL CALLBACK AddWindow(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<Window>*>(list)->emplace_back(window);
  return TRUE;
}

}  // namespace

// ------------------------------------------------------------------------------------------------------------
// TargetMemory

TargetMemory::TargetMemory(HWND window, std::size_t size) : process_(nullptr), address_(nullptr) {
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId);
  if (process_ == nullptr) throw Stuck("the window's process cannot be opened");
  void* address = VirtualAllocEx(process_, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  if (address == nullptr) {
    CloseHandle(process_);
    throw Stuck("no memory in the window's process");
  }
  address_ = static_cast<unsigned char*>(address);
}

TargetMemory::~TargetMemory() {
  VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
  CloseHandle(process_);
}

LPARAM TargetMemory::At(std::size_t offset) const { return reinterpret_cast<LPARAM>(address_ + offset); }

void TargetMemory::Write(const void* from, std::size_t size, std::size_t offset) {
  if (!WriteProcessMemory(process_, address_ + offset, from, size, nullptr)) {
    throw Stuck("memory of the window's process cannot be written");
  }
}

void TargetMemory::Read(void* to, std::size_t size, std::size_t offset) const {
  if (!ReadProcessMemory(process_, address_ + offset, to, size, nullptr)) {
    throw Stuck("memory of the window's process cannot be read");
  }
}

// ------------------------------------------------------------------------------------------------------------------
// Window

LRESULT Window::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (message == WM_SETTEXT) return SetText(reinterpret_cast<const char*>(lParam));
  return SendWide(message, wParam, lParam);
}

LRESULT Window::SetText(const std::string& text) const {
  return SendWide(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(os::WideOf(text).c_str()));
}

LRESULT Window::SendWide(UINT message, WPARAM wParam, LPARAM lParam) const {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(handle_, message, wParam, lParam, SMTO_NORMAL, kAnswerMs, &result) == 0) {
    ThrowStuck("no answer to " + Describe(message), handle_);
  }
  return static_cast<LRESULT>(result);
}

bool IsSameWindow(HWND a, HWND b) { return HandleToULong(a) == HandleToULong(b); }

bool Window::HasFocus() const {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  const DWORD thread = GetWindowThreadProcessId(handle_, nullptr);
  return GetGUIThreadInfo(thread, &info) && IsSameWindow(info.hwndFocus, handle_);
}

std::string Window::ClassName() const {
  wchar_t name[128] = L"";
  GetClassNameW(handle_, name, static_cast<int>(std::size(name)));
  return ToSjis(name);
}

std::string Window::Text() const {
  const LRESULT length = Send(WM_GETTEXTLENGTH);
  return AskText(handle_, WM_GETTEXT, 0, true, static_cast<std::size_t>(length));
}

DWORD Window::Style() const { return static_cast<DWORD>(GetWindowLongPtrW(handle_, GWL_STYLE)); }

DWORD Window::ExStyle() const { return static_cast<DWORD>(GetWindowLongPtrW(handle_, GWL_EXSTYLE)); }

DWORD Window::ProcessId() const {
  DWORD processId = 0;
  GetWindowThreadProcessId(handle_, &processId);
  return processId;
}

Window Window::Child(int id) const {
  const Window child = FindChild(id);
  if (!child) ThrowStuck("no control with ID " + std::to_string(id), handle_);
  return child;
}

std::vector<Window> Window::Children() const {
  std::vector<Window> children;
  for (HWND child = GetWindow(handle_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    children.emplace_back(child);
  }
  return children;
}

Window Window::FindChildOfClass(const std::string& className) const {
  return Window(FindWindowExW(handle_, nullptr, os::WideOf(className).c_str(), nullptr));
}

RECT Window::ScreenRect() const {
  RECT rect = {};
  GetWindowRect(handle_, &rect);
  return rect;
}

RECT Window::ClientScreenRect() const {
  RECT rect = {};
  GetClientRect(handle_, &rect);
  MapWindowPoints(handle_, nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

RECT Window::RectInParent() const {
  RECT rect = ScreenRect();
  MapWindowPoints(nullptr, GetAncestor(handle_, GA_PARENT), reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

RECT Window::UnitsInParent() const { return ToUnits(RectInParent(), BaseUnits(GetAncestor(handle_, GA_PARENT))); }

SIZE Window::ClientUnits() const {
  RECT rect = {};
  GetClientRect(handle_, &rect);
  const RECT units = ToUnits(rect, BaseUnits(handle_));
  return SIZE{units.right, units.bottom};
}

bool Window::IsListBox() const {
  const std::string name = ClassName();
  return _stricmp(name.c_str(), "ListBox") == 0 || _stricmp(name.c_str(), "ComboLBox") == 0;
}

std::vector<std::string> Window::Items() const {
  const bool list = IsListBox();
  const auto count = static_cast<WPARAM>(Send(list ? LB_GETCOUNT : CB_GETCOUNT));
  std::vector<std::string> items;
  for (WPARAM index = 0; index < count; ++index) {
    const LRESULT length = AskLength(handle_, list ? LB_GETTEXTLEN : CB_GETLBTEXTLEN, index);
    if (length < 0) break;  // the list is being filled anew
    const std::size_t size = std::max<std::size_t>(static_cast<std::size_t>(length), sizeof(DWORD_PTR));
    const auto text = AskItem(handle_, list ? LB_GETTEXT : CB_GETLBTEXT, index, size);
    if (!text) break;
    items.push_back(*text);
  }
  return items;
}

int Window::Selection() const { return static_cast<int>(Send(IsListBox() ? LB_GETCURSEL : CB_GETCURSEL)); }

Window Window::ComboList() const {
  COMBOBOXINFO info = {};
  info.cbSize = sizeof info;
  TargetMemory memory(handle_, sizeof info);
  memory.Write(&info, sizeof info);
  // Up to Wine 9 the address reaches the other process as it stands. Later ones and Windows carry the structure across,
  // and refuse an address that is not the caller's.
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(handle_, CB_GETCOMBOBOXINFO, 0, memory.At(), SMTO_NORMAL, kAnswerMs, &answer);
  memory.Read(&info, sizeof info);
  if (info.hwndList == nullptr && !GetComboBoxInfo(handle_, &info)) {
    ThrowStuck("no answer to " + Describe(CB_GETCOMBOBOXINFO), handle_);
  }
  return Window(info.hwndList);
}

std::pair<int, int> Window::TextSelection() const {
  const LRESULT range = Send(EM_GETSEL);
  return {LOWORD(range), HIWORD(range)};
}

// ----------------------------------------------------------------------------------------------------------------
// ListView

std::string ListView::ReadText(const TargetMemory& memory, std::size_t offset) {
  std::vector<wchar_t> text(kTextCapacity);
  memory.Read(text.data(), text.size() * sizeof(wchar_t), offset);
  text.back() = L'\0';
  return ToSjis(text.data());
}

std::string ListView::Cell(int row, int column) const {
  TargetMemory memory(Handle(), sizeof(LVITEMW) + kTextCapacity * sizeof(wchar_t));
  LVITEMW item = {};
  item.iSubItem = column;
  item.pszText = reinterpret_cast<wchar_t*>(memory.At(sizeof item));
  item.cchTextMax = static_cast<int>(kTextCapacity);
  memory.Write(&item, sizeof item);
  Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), memory.At());
  return ReadText(memory, sizeof item);
}

std::vector<std::string> ListView::Names() const {
  std::vector<std::string> names;
  const int count = Count();
  for (int row = 0; row < count; ++row) names.push_back(Cell(row));
  return names;
}

int ListView::FindRow(const std::string& name) const {
  const int count = Count();
  for (int row = 0; row < count; ++row) {
    if (Cell(row) == name) return row;
  }
  return -1;
}

int ListView::Image(int row) const {
  TargetMemory memory(Handle(), sizeof(LVITEMW));
  LVITEMW item = {};
  item.mask = LVIF_IMAGE;
  item.iItem = row;
  memory.Write(&item, sizeof item);
  Send(LVM_GETITEMW, 0, memory.At());
  memory.Read(&item, sizeof item);
  return item.iImage;
}

UINT ListView::State(int row) const {
  constexpr LPARAM kEveryBit = 0xFFFF;
  return static_cast<UINT>(Send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), kEveryBit));
}

std::vector<int> ListView::SelectedRows() const {
  std::vector<int> rows;
  for (auto row = static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED)); row >= 0;
       row = static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED))) {
    rows.push_back(row);
  }
  return rows;
}

int ListView::FocusedRow() const {
  return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

Window ListView::Header() const { return Window(reinterpret_cast<HWND>(Send(LVM_GETHEADER))); }

int ListView::ColumnCount() const { return static_cast<int>(Header().Send(HDM_GETITEMCOUNT)); }

ListView::Column ListView::ColumnAt(int column) const {
  TargetMemory memory(Handle(), sizeof(LVCOLUMNW) + kTextCapacity * sizeof(wchar_t));
  LVCOLUMNW data = {};
  data.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
  data.pszText = reinterpret_cast<wchar_t*>(memory.At(sizeof data));
  data.cchTextMax = static_cast<int>(kTextCapacity);
  memory.Write(&data, sizeof data);
  if (Send(LVM_GETCOLUMNW, static_cast<WPARAM>(column), memory.At()) == 0) {
    ThrowStuck("no column " + std::to_string(column), Handle());
  }
  memory.Read(&data, sizeof data);
  return Column{ReadText(memory, sizeof data), data.cx, data.fmt};
}

RECT ListView::ToScreen(RECT rect) const {
  MapWindowPoints(Handle(), nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

RECT ListView::HeaderRect(int column) const {
  const Window header = Header();
  TargetMemory memory(Handle(), sizeof(RECT));
  header.Send(HDM_GETITEMRECT, static_cast<WPARAM>(column), memory.At());
  RECT rect = {};
  memory.Read(&rect, sizeof rect);
  MapWindowPoints(header.Handle(), nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

RECT ListView::ItemRect(int row, int part) const {
  TargetMemory memory(Handle(), sizeof(RECT));
  RECT rect = {part, 0, 0, 0};
  memory.Write(&rect, sizeof rect);
  if (Send(LVM_GETITEMRECT, static_cast<WPARAM>(row), memory.At()) == 0) {
    ThrowStuck("no row " + std::to_string(row), Handle());
  }
  memory.Read(&rect, sizeof rect);
  return ToScreen(rect);
}

RECT ListView::CellRect(int row, int column) const {
  if (column == 0) return ItemRect(row, LVIR_LABEL);
  TargetMemory memory(Handle(), sizeof(RECT));
  RECT rect = {LVIR_BOUNDS, column, 0, 0};
  memory.Write(&rect, sizeof rect);
  Send(LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), memory.At());
  memory.Read(&rect, sizeof rect);
  return ToScreen(rect);
}

Window ListView::LabelEdit() const { return Window(reinterpret_cast<HWND>(Send(LVM_GETEDITCONTROL))); }

// --------------------------------------------------------------------------------------------------------------------
// free

std::vector<Window> VisibleWindows(DWORD processId) {
  std::vector<Window> all;
  EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&all));
  std::erase_if(all, [processId](const Window& w) { return !w.IsVisible() || w.ProcessId() != processId; });
  return all;
}

std::string DescribeWindows(DWORD processId) {
  std::string text = DescribeInput() + "windows of the process:\n";
  for (const Window& window : VisibleWindows(processId)) AppendTree(&text, window.Handle(), 0);
  return text;
}

POINT Center(const RECT& rect) { return POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}; }

}  // namespace driver
