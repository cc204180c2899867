// Owners of handles. Each handle has one owner, which is moved but not copied, and gives the raw handle only by `Get`.
// Handles that the system or another window owns (stock objects, shared icons, a window's font) stay plain handles.
#pragma once

#include <utility>

#include "platform/framework/export.h"
#include "platform/framework/win32.h"

namespace framework {

/// The kinds of handles that are counted; Count is their number.
enum class HandleKind { Font, Brush, Pen, Bitmap, Icon, Cursor, Region, MemoryDc, WindowDc, ImageList, Menu, Count };

/// Counts the handles that live owners hold, so that a test can see that none is left.
DLGLIB_API void CountHandle(HandleKind kind, int change) noexcept;
[[nodiscard]] DLGLIB_API int LiveHandles(HandleKind kind) noexcept;
/// Of all kinds together.
[[nodiscard]] DLGLIB_API int LiveHandles() noexcept;

}  // namespace framework

/// What an owner has to know about its kind of handle.
template <class Handle, framework::HandleKind kKindOf, auto kCloseWith>
struct HandleTraits {
  using Type = Handle;                                     ///< the raw handle
  static constexpr framework::HandleKind kKind = kKindOf;  ///< under which it is counted
  /// Gives the handle back to the system.
  static void Close(Type handle) noexcept { kCloseWith(handle); }
};

/// The owner of one handle, or of none. Closing keeps the last error.
template <class Traits>
class Unique {
 public:
  using Type = typename Traits::Type;  ///< the raw handle

  Unique() noexcept = default;
  /// Owns `handle` from now on; null is none.
  explicit Unique(Type handle) noexcept : handle_(handle) { Count(1); }
  Unique(const Unique&) = delete;
  Unique& operator=(const Unique&) = delete;
  /// The other owner has none then.
  Unique(Unique&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Unique& operator=(Unique&& other) noexcept {
    if (this != &other) {
      Reset();
      handle_ = std::exchange(other.handle_, nullptr);
    }
    return *this;
  }
  ~Unique() { Reset(); }

  /// The handle, which stays this owner's; null for none.
  [[nodiscard]] Type Get() const noexcept { return handle_; }
  /// Whether there is one.
  [[nodiscard]] explicit operator bool() const noexcept { return handle_ != nullptr; }

  /// Gives the handle up: the caller closes it.
  [[nodiscard]] Type Release() noexcept {
    Count(-1);
    return std::exchange(handle_, nullptr);
  }
  /// Closes the handle and owns `handle` instead. The handle that is owned already stays as it is.
  void Reset(Type handle = nullptr) noexcept {
    if (handle == handle_) return;
    const DWORD error = ::GetLastError();
    if (const Type former = Release(); former != nullptr) Traits::Close(former);
    ::SetLastError(error);
    handle_ = handle;
    Count(1);
  }

 private:
  void Count(int change) const noexcept {
    if (handle_ != nullptr) framework::CountHandle(Traits::kKind, change);
  }

  Type handle_ = nullptr;
};

/// Owners of each kind of handle.
using UniqueFont = Unique<HandleTraits<HFONT, framework::HandleKind::Font, &::DeleteObject>>;
using UniqueBrush = Unique<HandleTraits<HBRUSH, framework::HandleKind::Brush, &::DeleteObject>>;
using UniquePen = Unique<HandleTraits<HPEN, framework::HandleKind::Pen, &::DeleteObject>>;
using UniqueBitmap = Unique<HandleTraits<HBITMAP, framework::HandleKind::Bitmap, &::DeleteObject>>;
using UniqueRegion = Unique<HandleTraits<HRGN, framework::HandleKind::Region, &::DeleteObject>>;
using UniqueIcon = Unique<HandleTraits<HICON, framework::HandleKind::Icon, &::DestroyIcon>>;
using UniqueCursor = Unique<HandleTraits<HCURSOR, framework::HandleKind::Cursor, &::DestroyCursor>>;
using UniqueMemoryDc = Unique<HandleTraits<HDC, framework::HandleKind::MemoryDc, &::DeleteDC>>;
using UniqueMenu = Unique<HandleTraits<HMENU, framework::HandleKind::Menu, &::DestroyMenu>>;
using UniqueImageList = Unique<HandleTraits<HIMAGELIST, framework::HandleKind::ImageList, &::ImageList_Destroy>>;

/// A device context of a window, released at the end of the scope.
class BorrowedDc {
 public:
  BorrowedDc(const BorrowedDc&) = delete;
  BorrowedDc& operator=(const BorrowedDc&) = delete;

  /// Null when the window is gone.
  [[nodiscard]] HDC Get() const noexcept { return dc_; }

 protected:
  /// Takes what the system has lent; null for nothing.
  BorrowedDc(HWND window, HDC dc) noexcept : window_(window), dc_(dc) {
    if (dc_ != nullptr) framework::CountHandle(framework::HandleKind::WindowDc, 1);
  }
  ~BorrowedDc() {
    if (dc_ == nullptr) return;
    ::ReleaseDC(window_, dc_);
    framework::CountHandle(framework::HandleKind::WindowDc, -1);
  }

 private:
  HWND window_;
  HDC dc_;
};

/// Of the client area; of the whole screen for null.
class ClientDc : public BorrowedDc {
 public:
  /// Asks the system for it.
  explicit ClientDc(HWND window) noexcept : BorrowedDc(window, ::GetDC(window)) {}
};

/// Of the whole window with its frame.
class WindowDc : public BorrowedDc {
 public:
  /// Asks the system for it.
  explicit WindowDc(HWND window) noexcept : BorrowedDc(window, ::GetWindowDC(window)) {}
};

/// For a WM_PAINT handler: the part to paint is valid again at the end of the scope.
class PaintDc {
 public:
  /// Begins to paint `window`.
  explicit PaintDc(HWND window) noexcept : window_(window) { ::BeginPaint(window_, &paint_); }
  PaintDc(const PaintDc&) = delete;
  PaintDc& operator=(const PaintDc&) = delete;
  ~PaintDc() { ::EndPaint(window_, &paint_); }

  /// The device context to paint with; null when there is none to paint.
  [[nodiscard]] HDC Get() const noexcept { return paint_.hdc; }
  /// The part to paint, in client coordinates.
  [[nodiscard]] const RECT& Area() const noexcept { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
};

/// Selects an object into a device context and the former one again at the end of the scope. Declare the object before
/// its selection, so that it lives longer. A null object selects nothing.
class Selected {
 public:
  /// Selects `object` into `dc`; both are borrowed.
  Selected(HDC dc, HGDIOBJ object) noexcept
      : dc_(dc), former_(object != nullptr ? ::SelectObject(dc, object) : nullptr) {}
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;
  ~Selected() {
    if (former_ != nullptr) ::SelectObject(dc_, former_);
  }

 private:
  HDC dc_;
  HGDIOBJ former_;
};

/// Shows the wait cursor until the end of the scope.
class WaitCursor {
 public:
  WaitCursor() noexcept : former_(Show()) {}
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { ::SetCursor(former_); }

  /// Shows it again, after messages have been pumped.
  void Restore() const noexcept { Show(); }

 private:
  static HCURSOR Show() noexcept {
    constexpr WORD kWait = 32514;  // IDC_WAIT, whose type follows UNICODE
    return ::SetCursor(::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(kWait))));
  }

  HCURSOR former_;
};
