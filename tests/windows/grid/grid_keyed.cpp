#include "tests/windows/grid/grid_keyed.h"

#include <algorithm>
#include <array>
#include <span>
#include <stdexcept>

#include "platform/os/os_scripted.h"

namespace grid_test {
namespace {

/// The clipboard while it is open; waits for whoever has it.
class OpenedClipboard {
 public:
  OpenedClipboard() {
    constexpr DWORD kLookMs = 10;
    for (DWORD waited = 0; ::OpenClipboard(nullptr) == FALSE; waited += kLookMs) {
      if (waited >= driver::kPatienceMs) throw driver::Stuck("the clipboard cannot be opened");
      ::Sleep(kLookMs);
    }
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() { ::CloseClipboard(); }
};

template <class Unit>
std::basic_string<Unit> TextOf(UINT format) {
  const OpenedClipboard opened;
  const HANDLE block = ::GetClipboardData(format);
  const auto* const text = block != nullptr ? static_cast<const Unit*>(::GlobalLock(block)) : nullptr;
  const std::basic_string<Unit> copy = text != nullptr ? text : std::basic_string<Unit>();
  if (text != nullptr) ::GlobalUnlock(block);
  return copy;
}

/// The clipboard takes it over.
template <class Unit, std::size_t kExtent>
HGLOBAL BlockOf(std::span<const Unit, kExtent> units) {
  const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, units.size_bytes());
  std::copy(units.begin(), units.end(), static_cast<Unit*>(::GlobalLock(block)));
  ::GlobalUnlock(block);
  return block;
}

}  // namespace

void MakeKeyedTable(Host& host) {
  CvListControl& list = *host.list;
  const int limits[] = {4, 20, 20, 8, 4};
  list.InitList(host.Window(), kList, 5, limits, kKeyedRows, 30, kNumber);
  list.SetMessageWindow(CWnd::FromHandle(host.Child(kZone)));
  list.SetColumn(kNumber, "No", 1.0);
  list.SetColumn(kName, "品名", 3.5);
  list.SetColumn(kMaterial, "材質", 3.0);
  list.SetColumn(kUnit, "単位", 1.5);
  list.SetColumn(kSwatch, "色", 1.0, 1);
  list.SetEdit(kName, 0, 12, "品名を入力");
  list.SetEdit(kMaterial, 1, 10, "材質を入力");
  CStringList materials;
  for (const char* entry : {"1 SS400", "2 SUS304", "3 PTFE", "4 Copper"}) materials.AddTail(entry);
  list.SetCombo(kMaterial, kUnit, &materials, "材質を選択");
  CStringList units;
  for (const char* entry : {"kg", "mm", "個", "本"}) units.AddTail(entry);
  list.SetCombo(kUnit, kUnit, &units, "単位を選択");
  for (int row = 0; row < kKeyedRows; ++row) {
    list.SetItemText(row, kNumber, std::to_string(row + 1).c_str());
    list.SetItemText(row, kName, ("部品" + std::to_string(row)).c_str());
    list.SetItemText(row, kMaterial, "2");
    list.SetItemText(row, kUnit, "個");
    list.SetItemText(row, kSwatch, "");
  }
  list.SetAvailableFlag(4, 1);
}

void FillKeyedTable(Host& host) {
  MakeKeyedTable(host);
  host.list->SetKeys(CvListControl::kKeysAll);
}

int KeyedGridTest::Use(const std::function<void(driver::User&)>& script, const std::function<void(Host&)>& fill) {
  int result = 0;
  driver::RunDialog([&] { result = host_->Run(fill); },
                    [&](driver::User& user) {
                      (void)user.WaitDialog(kTitle);
                      script(user);
                      if (::IsWindow(host_->Handle()) != FALSE) user.Click(driver::Window(host_->Child(IDCANCEL)));
                    });
  return result;
}

void KeyedGridTest::ClickCell(driver::User& user, int row, int col) {
  user.Click(CellPoint(*host_, row, col));
  user.WaitUntil("the cell is edited", [&] { return EditedCell() == Edited(row, col); });
}

Edited KeyedGridTest::EditedCell() {
  Edited cell;
  host_->Do([&] { cell = {host_->list->GetSelectedItem(), host_->list->GetSelectedColumn()}; });
  return cell;
}

void KeyedGridTest::Press(driver::User& user, const std::vector<WORD>& keys) {
  for (const WORD key : keys) user.Key(key);
}

std::vector<int> KeyedGridTest::SelectedRows() {
  std::vector<int> rows;
  host_->Do([&] {
    for (int row = 0; row < host_->list->GetItemCount(); ++row) {
      if (host_->list->GetSelectFlag(row) != 0) rows.push_back(row);
    }
  });
  return rows;
}

std::string KeyedGridTest::Block(int row, int col, int rows, int cols) {
  std::string text(4000, '\0');
  int needed = 0;
  host_->Do(
      [&] { needed = host_->list->GetCellsText(row, col, rows, cols, text.data(), static_cast<int>(text.size())); });
  text.resize(static_cast<std::size_t>(needed - 1));
  return text;
}

int KeyedGridTest::Ask(const std::function<int(CvListControl&)>& question) {
  int answer = 0;
  host_->Do([&] { answer = question(*host_->list); });
  return answer;
}

void KeyedGridTest::FocusListView(driver::User& user) {
  host_->Do([&] { ::SetFocus(host_->Child(kList)); });
  user.WaitUntil("the list view has the focus", [&] { return host_->ListView().HasFocus(); });
}

void KeyedGridTest::SelectRows(driver::User& user, const std::vector<int>& rows, int col) {
  ClickCell(user, rows.front(), col);
  for (std::size_t i = 1; i < rows.size(); ++i) {
    // The display server tells the real keyboard's state when the pointer enters a window, so it goes there first.
    const POINT point = CellPoint(*host_, rows[i], col, 1);
    user.MoveTo(point);
    user.Settle();
    user.HoldKey(VK_CONTROL);
    user.Click(point);
    user.ReleaseKey(VK_CONTROL);
  }
  user.WaitUntil("the rows are selected", [&] { return SelectedRows() == rows; });
}

int KeyedGridTest::TakeBeeps() {
  std::vector<std::uint32_t>& beeps = os::scripted::World().session.beeps;
  const auto count = static_cast<int>(beeps.size());
  beeps.clear();
  return count;
}

void SetClipboard(const std::wstring& text) {
  const OpenedClipboard opened;
  ::EmptyClipboard();
  ::SetClipboardData(CF_UNICODETEXT, BlockOf(std::span(text.c_str(), text.size() + 1)));
}

void SetClipboardBytes(const std::string& text, WORD language) {
  const std::array<LCID, 1> locale = {MAKELCID(MAKELANGID(language, SUBLANG_DEFAULT), SORT_DEFAULT)};
  const OpenedClipboard opened;
  ::EmptyClipboard();
  ::SetClipboardData(CF_LOCALE, BlockOf(std::span(locale)));
  ::SetClipboardData(CF_TEXT, BlockOf(std::span(text.c_str(), text.size() + 1)));
}

void SetClipboardOfOtherFormat() {
  const std::array<char, 4> bytes = {'a', 'b', 'c', '\0'};
  const OpenedClipboard opened;
  ::EmptyClipboard();
  ::SetClipboardData(CF_PRIVATEFIRST, BlockOf(std::span(bytes)));
}

void EmptyTheClipboard() {
  const OpenedClipboard opened;
  ::EmptyClipboard();
}

std::wstring ClipboardText() { return TextOf<wchar_t>(CF_UNICODETEXT); }
std::string ClipboardBytes() { return TextOf<char>(CF_TEXT); }

WORD ClipboardLanguage() {
  const OpenedClipboard opened;
  const HANDLE block = ::GetClipboardData(CF_LOCALE);
  const auto* const locale = block != nullptr ? static_cast<const LCID*>(::GlobalLock(block)) : nullptr;
  const WORD language = locale != nullptr ? PRIMARYLANGID(LANGIDFROMLCID(*locale)) : WORD{0};
  if (locale != nullptr) ::GlobalUnlock(block);
  return language;
}

HeldClipboard::HeldClipboard()
    : window_(::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr)) {
  if (::OpenClipboard(window_) == FALSE) throw driver::Stuck("the clipboard cannot be held");
}

HeldClipboard::~HeldClipboard() {
  ::CloseClipboard();
  ::DestroyWindow(window_);
}

}  // namespace grid_test
