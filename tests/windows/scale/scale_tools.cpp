#include "tests/windows/scale/scale_tools.h"

#include <functional>
#include <sstream>

#include "dlglib/base/CvScaledImages.h"
#include "platform/framework/detail/scale_messages.h"
#include "platform/os/os_scripted_display.h"

namespace scale_test {
namespace {

driver::Picture Drawn(int width, int height, const std::function<void(HDC)>& draw) {
  const HDC screen = GetDC(nullptr);
  const HDC dc = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  ReleaseDC(nullptr, screen);
  const HGDIOBJ former = SelectObject(dc, bitmap);
  const RECT all = {0, 0, width, height};
  FillRect(dc, &all, GetSysColorBrush(COLOR_WINDOW));
  draw(dc);
  driver::Picture picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) picture.Set(x, y, GetPixel(dc, x, y));
  }
  SelectObject(dc, former);
  DeleteObject(bitmap);
  DeleteDC(dc);
  return picture;
}

driver::Picture DrawnIcon(int icon, int ofSide, int side) {
  const UniqueIcon image = scaled_images::LoadIconOf(icon, ofSide);
  return Drawn(side, side, [&](HDC dc) { DrawIconEx(dc, 0, 0, image.Get(), side, side, 0, nullptr, DI_NORMAL); });
}

}  // namespace

scale::Scale ScaleOf(const driver::Window& window) { return scale::Scale(os::ThisDisplay().DpiOf(window.Handle())); }

driver::Picture IconPicture(int icon, int side) { return DrawnIcon(icon, side, side); }

driver::Picture EnlargedIconPicture(int icon, int side) { return DrawnIcon(icon, 16, side); }

driver::Picture BitmapPicture(int bitmap, scale::Scale scale) {
  const UniqueBitmap image = scaled_images::LoadBitmapOf(bitmap, scale);
  BITMAP info = {};
  GetObjectW(image.Get(), sizeof info, &info);
  return Drawn(info.bmWidth, info.bmHeight, [&](HDC dc) {
    const HDC source = CreateCompatibleDC(dc);
    const HGDIOBJ former = SelectObject(source, image.Get());
    BitBlt(dc, 0, 0, info.bmWidth, info.bmHeight, source, 0, 0, SRCCOPY);
    SelectObject(source, former);
    DeleteDC(source);
  });
}

void ChangeDpi(const driver::Window& dialog, int dpi, RECT place) {
  dialog.Send(framework::kDpiChanged, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
}

void ChangeDpi(const driver::Window& dialog, int dpi) {
  const scale::Scale before = ScaleOf(dialog);
  os::DisplayOfTest().dpi = dpi;
  RECT place = dialog.ScreenRect();
  place.right = place.left + scale::Rescaled(WidthOf(place), before, scale::Scale(dpi));
  place.bottom = place.top + scale::Rescaled(HeightOf(place), before, scale::Scale(dpi));
  ChangeDpi(dialog, dpi, place);
}

RECT WithinTheSameFrame(const driver::Window& dialog, int dpi) {
  const scale::Scale before = ScaleOf(dialog);
  const scale::Scale now(dpi);
  const RECT client = dialog.ClientScreenRect();
  RECT place = dialog.ScreenRect();
  place.right += scale::Rescaled(WidthOf(client), before, now) - WidthOf(client);
  place.bottom += scale::Rescaled(HeightOf(client), before, now) - HeightOf(client);
  return place;
}

RECT ListRect(const driver::Window& combo) {
  COMBOBOXINFO parts = {};
  parts.cbSize = sizeof parts;
  RECT list = {};
  if (GetComboBoxInfo(combo.Handle(), &parts) != FALSE) GetWindowRect(parts.hwndList, &list);
  return list;
}

void SetMonitorsBeside(int x) { os::DisplayOfTest().monitors = {{{0, 0, x, 1600}, {x, 0, 4000, 1600}}}; }

void SetMonitorsBelow(int y) { os::DisplayOfTest().monitors = {{{0, 0, 2560, y}, {0, y, 2560, 4000}}}; }

int FontHeight(const driver::Window& window) {
  LOGFONTW font = {};
  GetObjectW(reinterpret_cast<HFONT>(window.Send(WM_GETFONT)), sizeof font, &font);
  return font.lfHeight;
}

namespace {

/// Of a combo box. Asked of another control, some systems answer a rectangle of whatever was in memory.
int ListHeightOf(const driver::Window& combo) {
  RECT dropped = {};
  combo.Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
  return HeightOf(dropped);
}

}  // namespace

std::string Layout(const driver::Window& dialog) {
  std::ostringstream text;
  const RECT window = dialog.ScreenRect();
  text << WidthOf(window) << 'x' << HeightOf(window) << ' ' << FontHeight(dialog) << '\n';
  for (const driver::Window& child : dialog.Children()) {
    const RECT place = child.RectInParent();
    text << child.Id() << ": " << place.left << ' ' << place.top << ' ' << WidthOf(place) << 'x' << HeightOf(place);
    if (child.ClassName() == "ComboBox") text << " list " << ListHeightOf(child);
    text << " font " << FontHeight(child) << '\n';
  }
  return text.str();
}

}  // namespace scale_test
