#include "tests/windows/dialogs/title_dialogs_look.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

#include "platform/framework/gdi.h"
#include "platform/os/sjis_wide.h"

namespace title_dialogs {

using driver::Picture;
using driver::Window;

namespace {

const Window* FindControl(const std::vector<Window>& children, const ControlRow& control) {
  const auto found = std::find_if(children.begin(), children.end(), [&](const Window& child) {
    return static_cast<std::int16_t>(child.Id()) == static_cast<std::int16_t>(control.id);
  });
  return found == children.end() ? nullptr : &*found;
}

void ExpectControl(const Window& window, const ControlRow& control) {
  EXPECT_EQ(window.ClassName(), control.className) << control.id;
  EXPECT_EQ(window.Text(), control.text) << control.id;
  EXPECT_EQ((window.Style() & WS_VISIBLE) != 0, control.visible) << control.id;
  const RECT place = window.UnitsInParent();
  EXPECT_EQ(place.left, control.place.left) << control.id;
  EXPECT_EQ(place.top, control.place.top) << control.id;
  EXPECT_EQ(place.right - place.left, control.place.right) << control.id;
  // A combo box that is closed is as high as its text; its template says how far it drops down.
  if (control.className == "ComboBox") return;
  EXPECT_EQ(place.bottom - place.top, control.place.bottom) << control.id;
}

/// A canvas in memory that is painted as the screen should be.
class Canvas {
 public:
  Canvas(int width, int height, COLORREF paper) : width_(width), height_(height), dc_(::CreateCompatibleDC(nullptr)) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    bitmap_ = ::CreateDIBSection(dc_, &info, DIB_RGB_COLORS, nullptr, nullptr, 0);
    former_ = ::SelectObject(dc_, bitmap_);
    const RECT all = {0, 0, width, height};
    const HBRUSH brush = ::CreateSolidBrush(paper);
    ::FillRect(dc_, &all, brush);
    ::DeleteObject(brush);
    ::SetBkMode(dc_, TRANSPARENT);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas() {
    ::SelectObject(dc_, former_);
    ::DeleteObject(bitmap_);
    ::DeleteDC(dc_);
  }

  void Write(HFONT font, POINT at, const std::string& text, COLORREF ink) {
    const HGDIOBJ former = ::SelectObject(dc_, font);
    ::SetTextColor(dc_, ink);
    const std::wstring wide = os::WideOf(text);
    ::TextOutW(dc_, at.x, at.y, wide.c_str(), static_cast<int>(wide.size()));
    ::SelectObject(dc_, former);
  }

  [[nodiscard]] Picture View() const {
    Picture picture(width_, height_);
    for (int y = 0; y < height_; ++y) {
      for (int x = 0; x < width_; ++x) picture.Set(x, y, ::GetPixel(dc_, x, y));
    }
    return picture;
  }

 private:
  int width_;
  int height_;
  HDC dc_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ former_ = nullptr;
};

}  // namespace

void ExpectControls(const Window& dialog, const std::vector<ControlRow>& controls, std::size_t madeByCode) {
  const std::vector<Window> children = dialog.Children();
  EXPECT_EQ(children.size(), controls.size() + madeByCode);
  for (const ControlRow& control : controls) {
    const Window* const window = FindControl(children, control);
    EXPECT_NE(window, nullptr) << control.id;
    if (window != nullptr) ExpectControl(*window, control);
  }
}

void ExpectText(const driver::User& user, const Window& dialog, const RECT& screen, POINT at, const std::string& text,
                COLORREF ink, COLORREF paper) {
  user.Settle();
  Canvas canvas(screen.right - screen.left, screen.bottom - screen.top, paper);
  canvas.Write(reinterpret_cast<HFONT>(dialog.Send(WM_GETFONT)), at, text, ink);
  EXPECT_EQ(user.Look(screen), canvas.View()) << text;
}

void ExpectZone(const driver::User& user, const Window& dialog, const std::string& text) {
  RECT zone = dialog.ClientScreenRect();
  zone.top = zone.bottom - kZoneHeight;
  ExpectText(user, dialog, zone, {kFontHeight, 0}, text, kBlack, ::GetSysColor(COLOR_BTNFACE));
}

}  // namespace title_dialogs
