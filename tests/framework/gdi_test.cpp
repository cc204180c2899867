#include "platform/framework/gdi.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

using framework::HandleKind;
using framework::LiveHandles;

UniqueBrush Brush() { return UniqueBrush(::CreateSolidBrush(RGB(1, 2, 3))); }

bool IsAlive(HGDIOBJ object) { return ::GetObjectType(object) != 0; }

static_assert(!std::is_copy_constructible_v<UniqueBrush> && !std::is_copy_assignable_v<UniqueBrush>);
static_assert(std::is_nothrow_move_constructible_v<UniqueBrush> && std::is_nothrow_move_assignable_v<UniqueBrush>);
static_assert(!std::is_convertible_v<UniqueBrush, HBRUSH> && !std::is_convertible_v<HBRUSH, UniqueBrush>);

class Owners : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(LiveHandles(), 0); }
};

TEST_F(Owners, CloseWhatTheyOwn) {
  HBRUSH raw = nullptr;
  {
    const UniqueBrush brush = Brush();
    raw = brush.Get();
    EXPECT_TRUE(brush);
    EXPECT_EQ(LiveHandles(HandleKind::Brush), 1);
    EXPECT_EQ(LiveHandles(), 1);
    EXPECT_TRUE(IsAlive(raw));
  }
  EXPECT_FALSE(IsAlive(raw));
}

TEST_F(Owners, OwnNothingForANullHandle) {
  const UniqueBrush none;
  const UniqueBrush failed(nullptr);
  EXPECT_FALSE(none);
  EXPECT_FALSE(failed);
  EXPECT_EQ(LiveHandles(), 0);
}

TEST_F(Owners, HandOverByMoving) {
  UniqueBrush first = Brush();
  const HBRUSH raw = first.Get();
  UniqueBrush second(std::move(first));
  EXPECT_EQ(second.Get(), raw);
  EXPECT_EQ(first.Get(), nullptr);  // NOLINT: a moved-from owner is empty
  EXPECT_EQ(LiveHandles(HandleKind::Brush), 1);
}

TEST_F(Owners, CloseTheFormerHandleWhenAnotherIsMovedIn) {
  UniqueBrush first = Brush();
  UniqueBrush second(::CreateSolidBrush(RGB(4, 5, 6)));
  const HBRUSH former = second.Get();
  const HBRUSH raw = first.Get();
  second = std::move(first);
  EXPECT_EQ(second.Get(), raw);
  EXPECT_FALSE(IsAlive(former));
  EXPECT_TRUE(IsAlive(raw));
  EXPECT_EQ(LiveHandles(HandleKind::Brush), 1);
}

TEST_F(Owners, SurviveBeingMovedIntoThemselves) {
  UniqueBrush brush = Brush();
  const HBRUSH raw = brush.Get();
  UniqueBrush& same = brush;
  brush = std::move(same);
  EXPECT_EQ(brush.Get(), raw);
  EXPECT_TRUE(IsAlive(raw));
}

TEST_F(Owners, ReleaseAndReset) {
  UniqueBrush brush = Brush();
  const HBRUSH raw = brush.Release();
  EXPECT_FALSE(brush);
  EXPECT_EQ(LiveHandles(HandleKind::Brush), 0);
  EXPECT_TRUE(IsAlive(raw));
  brush.Reset(raw);
  brush.Reset(raw);
  EXPECT_TRUE(IsAlive(raw));
  EXPECT_EQ(LiveHandles(HandleKind::Brush), 1);
  ::SetLastError(1234);
  brush.Reset();
  EXPECT_EQ(::GetLastError(), 1234U);
  EXPECT_FALSE(IsAlive(raw));
}

TEST_F(Owners, KnowTheirKinds) {
  const UniqueFont font(::CreateFontA(-12, 0, 0, 0, 400, 0, 0, 0, SHIFTJIS_CHARSET, 0, 0, 0, 0, ""));
  const UniquePen pen(::CreatePen(PS_SOLID, 1, 0));
  const UniqueBitmap bitmap(::CreateBitmap(8, 8, 1, 1, nullptr));
  const UniqueRegion region(::CreateRectRgn(0, 0, 1, 1));
  const UniqueMemoryDc dc(::CreateCompatibleDC(nullptr));
  const UniqueMenu menu(::CreatePopupMenu());
  const UniqueImageList images(::ImageList_Create(16, 16, ILC_COLOR, 1, 1));
  const BYTE bits[32 * 4]{};
  const UniqueIcon icon(::CreateIcon(nullptr, 32, 32, 1, 1, bits, bits));
  const UniqueCursor cursor(::CreateCursor(nullptr, 0, 0, 32, 32, bits, bits));
  for (const auto kind :
       {HandleKind::Font, HandleKind::Pen, HandleKind::Bitmap, HandleKind::Region, HandleKind::MemoryDc,
        HandleKind::Menu, HandleKind::ImageList, HandleKind::Icon, HandleKind::Cursor}) {
    EXPECT_EQ(LiveHandles(kind), 1) << static_cast<int>(kind);
  }
  EXPECT_EQ(LiveHandles(), 9);
}

TEST_F(Owners, GiveDeviceContextsBack) {
  {
    const ClientDc screen(nullptr);
    const WindowDc desktop(::GetDesktopWindow());
    EXPECT_NE(screen.Get(), nullptr);
    EXPECT_NE(desktop.Get(), nullptr);
    EXPECT_EQ(LiveHandles(HandleKind::WindowDc), 2);
  }
  const ClientDc none(reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0xDEAD)));
  EXPECT_EQ(none.Get(), nullptr);
  EXPECT_EQ(LiveHandles(HandleKind::WindowDc), 0);
}

TEST_F(Owners, SelectionIsUndone) {
  const UniqueMemoryDc dc(::CreateCompatibleDC(nullptr));
  const UniquePen pen(::CreatePen(PS_SOLID, 1, RGB(9, 9, 9)));
  const HGDIOBJ before = ::GetCurrentObject(dc.Get(), OBJ_PEN);
  {
    const Selected keep(dc.Get(), pen.Get());
    EXPECT_EQ(::GetCurrentObject(dc.Get(), OBJ_PEN), pen.Get());
    const Selected nothing(dc.Get(), nullptr);
    EXPECT_EQ(::GetCurrentObject(dc.Get(), OBJ_PEN), pen.Get());
  }
  EXPECT_EQ(::GetCurrentObject(dc.Get(), OBJ_PEN), before);
}

TEST_F(Owners, WaitCursorIsTakenBack) {
  const HCURSOR arrow = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(32512)));
  ::SetCursor(arrow);
  {
    const WaitCursor wait;
    EXPECT_NE(::GetCursor(), arrow);
    ::SetCursor(arrow);
    wait.Restore();
    EXPECT_NE(::GetCursor(), arrow);
  }
  EXPECT_EQ(::GetCursor(), arrow);
}

}  // namespace
