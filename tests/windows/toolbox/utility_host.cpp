#include "tests/windows/toolbox/utility_host.h"

#include <array>

#include "tests/windows/driver/picture.h"

namespace utility_test {
namespace {

/// Style, extended style, number of controls, place and size in dialog units, no menu, no class, no title, font.
struct Template {
  DWORD style = WS_POPUP | WS_CAPTION | WS_VISIBLE | DS_SETFONT;
  DWORD exStyle = 0;
  WORD count = 0;
  short x = 10, y = 10, width = 200, height = 125;
  WORD menu = 0, windowClass = 0, title = 0;
  WORD pointSize = 9;
  std::array<wchar_t, 10> face = {L"ＭＳ ゴシック"};
};
constexpr Template kTemplate;

void Pump() {
  MSG message = {};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageW(&message);
}

}  // namespace

Host::Host() {
  CreateIndirect(reinterpret_cast<const DLGTEMPLATE*>(&kTemplate));
  SetWindowText(kTitle);
  const auto addControl = [this](const char* windowClass, DWORD style, int id, RECT place) {
    return ::CreateWindowExA(0, windowClass, "", WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right,
                             place.bottom, m_hWnd, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  };
  addControl("EDIT", WS_BORDER | ES_AUTOHSCROLL, kEdit, {10, 10, 100, 20});
  addControl("STATIC", 0, kLabel, {10, 40, 200, 20});
  combo.Attach(addControl("COMBOBOX", CBS_DROPDOWN, kCombo, {10, 70, 100, 100}));
  UpdateWindow();
  driver::WaitForDisplay();  // which has a window that it shows painted once more
  Pump();
  exchanges = 0;
}

int Host::CountPixels(COLORREF color, int top) const {
  RECT client = {};
  GetClientRect(&client);
  const ClientDc dc(m_hWnd);
  int count = 0;
  for (int y = top; y < client.bottom; ++y) {
    for (int x = 0; x < client.right; ++x) count += ::GetPixel(dc.Get(), x, y) == color ? 1 : 0;
  }
  return count;
}

std::vector<COLORREF> Host::Pixels() const {
  RECT client = {};
  GetClientRect(&client);
  const ClientDc dc(m_hWnd);
  std::vector<COLORREF> pixels;
  for (int y = 0; y < client.bottom; ++y) {
    for (int x = 0; x < client.right; ++x) pixels.push_back(::GetPixel(dc.Get(), x, y));
  }
  return pixels;
}

RECT Host::Place() const {
  RECT place = {};
  GetWindowRect(&place);
  return place;
}

int Host::ClientBottom() const {
  RECT client = {};
  GetClientRect(&client);
  return client.bottom;
}

std::vector<std::string> Host::ComboItems() const {
  std::vector<std::string> items;
  for (int i = 0; i < combo.GetCount(); ++i) {
    CString text;
    combo.GetLBText(i, text);
    items.emplace_back(text.GetString());
  }
  return items;
}

void Host::DoDataExchange(CDataExchange* exchange) {
  ++exchanges;
  DDX_Text(exchange, kEdit, edited);
}

}  // namespace utility_test
