// CWnd: an object that takes part in a window's life and messages.
//
// Thread: a window's objects are used on the thread that made the window. No exception ever leaves a window procedure:
// what a handler throws is caught, the message is dropped and the window lives on.
#pragma once

#include "platform/framework/message.h"
#include "platform/framework/window_ref.h"

struct CDataExchange;
class LifeWatch;

namespace framework {
class WindowTable;
}

/// An object for a window. Neither copied nor moved. It owns the window when it created it (destroying the object
/// destroys the window), otherwise only the binding (destroying the object lets the window go and leaves it as it was).
class DLGLIB_API CWnd : public WindowRef {
 public:
  CWnd() noexcept;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;
  virtual ~CWnd();

  /// The object attached to `window`, else the window's light object: a CWnd that holds the handle and nothing else.
  /// Each window has one light object; it belongs to the framework and is valid as long as its window. Null for null. A
  /// handle that the system uses again for a new window never finds an object of the old one.
  static CWnd* FromHandle(WindowArg window);
  /// The attached object; null when there is none.
  static CWnd* FromHandlePermanent(WindowArg window);

  /// Makes this the object of an existing window, without taking part in its messages. FALSE, and nothing changed, when
  /// this object has a window already, the window is none, or it has another object.
  BOOL Attach(WindowArg window);
  /// Gives the window up, and its messages too if this object took part in them. Returns the handle.
  HWND Detach();

  /// Creates a window of the class `className` and takes part in its messages from the very first. `text` may be null,
  /// `parent` too; `id` is the control's ID (children only). FALSE when it cannot be created or this object has a
  /// window.
  BOOL Create(const char* className, const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id);
  BOOL CreateEx(DWORD exStyle, const char* className, const char* text, DWORD style, const RECT& rect, CWnd* parent,
                UINT id);
  /// Destroys the window, whoever made it. FALSE without a window.
  BOOL DestroyWindow();

  /// Makes this the object of an existing window of the same process and takes part in its messages. FALSE as for
  /// Attach.
  BOOL TakeWindow(WindowArg window);
  /// The classic names of the same. The first is always inline, as a Win32 macro bears its name too.
  [[gnu::always_inline]] inline BOOL(SubclassWindow)(WindowArg window) { return TakeWindow(window); }
  BOOL SubclassDlgItem(UINT id, CWnd* parent);
  /// Lets the window go as it was before. Returns the handle; null when this object did not take part in its messages.
  HWND UnsubclassWindow();

  /// Moves values between controls and members by DoDataExchange. TRUE: from controls to members. FALSE is returned
  /// when a text could not be converted; its control then has the focus.
  BOOL UpdateData(BOOL save = TRUE);

  /// Offers a message that the message loop has fetched to the objects from the message's window up to its top-level
  /// window. TRUE: it is dealt with, the loop drops it. Exceptions are caught and count as dealt with.
  static BOOL OfferMessage(MSG* message) noexcept;

  /// The window's own processing of a message, without this object's handlers: for a handler that has to run after it.
  LRESULT CallDefault(const Message& message);

  /// Finds the handler of a message. A class with rows overrides it with `return Route<Base>(*this, kRows, message);`.
  virtual Handled RouteMessage(const Message& message);
  /// Moves values between controls and members: a sequence of DDX_ calls.
  virtual void DoDataExchange(CDataExchange* exchange);
  /// Sees a message before it is dispatched; TRUE drops it.
  virtual BOOL PreTranslateMessage(MSG* message);
  /// The window is gone, `m_hWnd` is null; the object may delete itself here.
  virtual void PostNcDestroy();

 private:
  friend class LifeWatch;
  friend class framework::WindowTable;

  LifeWatch* watches_ = nullptr;
  bool ownsWindow_ = false;
};

/// Tells whether an object is still there after a call that may have destroyed it. Lives on the stack.
class DLGLIB_API LifeWatch {
 public:
  /// Watches `object`, which need not outlive this.
  explicit LifeWatch(CWnd& object) noexcept;
  LifeWatch(const LifeWatch&) = delete;
  LifeWatch& operator=(const LifeWatch&) = delete;
  ~LifeWatch();

  /// Whether the object has not been destroyed.
  [[nodiscard]] bool Alive() const noexcept;

 private:
  friend class CWnd;

  CWnd* object_;
  LifeWatch* next_;
};
