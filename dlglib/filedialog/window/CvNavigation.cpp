#include "dlglib/filedialog/window/CvNavigation.h"

#include "dlglib/resources/resource.h"
#include "platform/framework/exceptions.h"
#include "platform/framework/resource_module.h"

using filedialog::AreaState;
using filedialog::FrameLine;
using filedialog::HotArea;

namespace {

enum Image : std::size_t { kNormalImage, kPressedImage, kHotImage, kDisabledImage };

// By area in the order of HotArea, then by image. The view button is never disabled.
constexpr int kBitmaps[4][4] = {
    {IDB_VIEW, IDB_VIEW_SELECTED, IDB_VIEW_FOCUSED, IDB_VIEW},
    {IDB_CREATE_FOLDER, IDB_CREATE_FOLDER_SELECTED, IDB_CREATE_FOLDER_FOCUSED, IDB_CREATE_FOLDER_DISABLED},
    {IDB_UP, IDB_UP_SELECTED, IDB_UP_FOCUSED, IDB_UP_DISABLED},
    {IDB_BACK, IDB_BACK_SELECTED, IDB_BACK_FOCUSED, IDB_BACK_DISABLED},
};

constexpr std::size_t Index(HotArea area) { return static_cast<std::size_t>(area); }

Image ImageOf(AreaState state) {
  switch (state) {
    case AreaState::Disabled:
      return kDisabledImage;
    case AreaState::Pressed:
      return kPressedImage;
    case AreaState::Hot:
      return kHotImage;
    default:
      return kNormalImage;
  }
}

UniqueBitmap LoadButtonImage(int id) {
  const auto name = reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(id));
  UniqueBitmap image(static_cast<HBITMAP>(::LoadImageW(ThisModule(), name, IMAGE_BITMAP, 0, 0, LR_LOADMAP3DCOLORS)));
  if (!image) throw CResourceException();
  return image;
}

filedialog::Size SizeOf(HBITMAP image) {
  BITMAP info{};
  ::GetObjectW(image, sizeof info, &info);
  return {info.bmWidth, info.bmHeight};
}

bool IsRaised(AreaState state) { return state == AreaState::Hot || state == AreaState::Pressed; }

RECT ToRect(const filedialog::Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

/// A pixel that is off the screen has no colour; there the dialog's own stands for it.
COLORREF BackgroundAt(HDC dc, filedialog::Point at) {
  const COLORREF pixel = ::GetPixel(dc, at.x, at.y);
  return pixel == CLR_INVALID ? ::GetSysColor(COLOR_3DFACE) : pixel;
}

void DrawLine(HDC dc, const FrameLine& line) {
  ::SetDCPenColor(dc, line.colour);
  ::MoveToEx(dc, line.points[0].x, line.points[0].y, nullptr);
  ::LineTo(dc, line.points[1].x, line.points[1].y);
  ::LineTo(dc, line.points[2].x, line.points[2].y);
}

}  // namespace

CvNavigation::CvNavigation() {
  for (std::size_t area = 0; area < kButtons; ++area) {
    for (std::size_t image = 0; image < kImages; ++image) images_[area][image] = LoadButtonImage(kBitmaps[area][image]);
  }
}

filedialog::Size CvNavigation::ImageSize(HotArea area) const {
  return area == HotArea::Label ? filedialog::Size{} : SizeOf(images_[Index(area)][kNormalImage].Get());
}

void CvNavigation::Show(WindowRef dialog) {
  const filedialog::HotAreas::States before = shown_;
  shown_ = areas_.states();
  for (std::size_t i = 0; i < filedialog::kHotAreaCount; ++i) {
    if (before[i] == shown_[i]) continue;
    if (i == Index(HotArea::Label)) {
      ShowLabel(dialog, before[i]);
      continue;
    }
    const RECT rect = ToRect(areas_.RectOf(static_cast<HotArea>(i)));
    dialog.InvalidateRect(&rect);
    dialog.UpdateWindow();
  }
}

/// A pressed label whose button is released passes through normal, which takes the frame's outer line away.
void CvNavigation::ShowLabel(WindowRef dialog, AreaState before) const {
  const WindowRef label(::GetDlgItem(dialog.m_hWnd, IDC_NAME_LABEL));
  const AreaState now = areas_.StateOf(HotArea::Label);
  label.SetWindowText(filedialog::LabelText(now));
  label.UpdateWindow();
  const ClientDc dc(dialog.m_hWnd);
  if (before == AreaState::Pressed) DrawFrame(dc.Get(), AreaState::Normal);
  DrawFrame(dc.Get(), now);
}

void CvNavigation::Paint(HDC dc) const {
  const UniqueMemoryDc source(::CreateCompatibleDC(dc));
  for (std::size_t i = 0; i < kButtons; ++i) DrawButton(dc, source.Get(), static_cast<HotArea>(i));
  const AreaState label = areas_.StateOf(HotArea::Label);
  if (IsRaised(label)) DrawFrame(dc, label);
}

void CvNavigation::DrawButton(HDC dc, HDC source, HotArea area) const {
  const filedialog::Rect& rect = areas_.RectOf(area);
  const HBITMAP image = images_[Index(area)][ImageOf(areas_.StateOf(area))].Get();
  const Selected selected(source, image);
  ::BitBlt(dc, rect.left, rect.top, rect.width(), rect.height(), source, 0, 0, SRCCOPY);
}

void CvNavigation::DrawFrame(HDC dc, AreaState state) const {
  const filedialog::Rect& label = areas_.RectOf(HotArea::Label);
  const COLORREF background = BackgroundAt(dc, filedialog::LabelBackgroundPoint(label));
  const Selected pen(dc, ::GetStockObject(DC_PEN));
  const COLORREF former = ::GetDCPenColor(dc);
  for (const FrameLine& line : filedialog::LabelFrame(label, state, background)) {
    DrawLine(dc, line);
  }
  ::SetDCPenColor(dc, former);
}
