// What the framework's tests are played with: templates in memory, dialogs that run a script once they are up, and
// windows that remember what they were told.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/framework/framework.h"

/// Builds a dialog template in memory. Sizes are dialog units; texts are ASCII.
class TemplateBuilder {
 public:
  explicit TemplateBuilder(DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU, std::string_view title = "dialog");

  TemplateBuilder& Add(std::string_view className, WORD id, DWORD style, std::string_view text = {});
  /// Valid as long as the builder is.
  [[nodiscard]] const DLGTEMPLATE* Get();

 private:
  void PutLong(DWORD value);
  void PutText(std::string_view text);
  void Align();

  std::vector<WORD> words_;
  WORD count_ = 0;
};

/// A modal dialog that runs `script` by a posted message once it has been initialised, and ends by itself afterwards.
class ScriptedDialog : public CDialog {
 public:
  using Script = std::function<void(ScriptedDialog&)>;

  explicit ScriptedDialog(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr)
      : CDialog(dialogTemplate, parent) {}

  Handled RouteMessage(const Message& message) override;
  BOOL OnInitDialog() override;

  Script onInit;
  Script script;
  std::function<Handled(const Message&)> onMessage;
  INT_PTR endsWith = 77;

 private:
  static constexpr UINT kRunScript = WM_APP + 1;
};

/// Any window, taking part in its messages: `onMessage` is asked for each of them, reflected ones included.
template <class Base>
class Probe : public Base {
 public:
  Handled RouteMessage(const Message& message) override {
    if (onMessage) {
      if (const Handled handled = onMessage(message)) return handled;
    }
    return Base::RouteMessage(message);
  }

  std::function<Handled(const Message&)> onMessage;
};

inline constexpr RECT kSomewhere{10, 10, 210, 110};

/// A window that the framework knows nothing of, with a procedure of its own.
class PlainHost {
 public:
  explicit PlainHost(bool wide = true);
  PlainHost(const PlainHost&) = delete;
  PlainHost& operator=(const PlainHost&) = delete;
  ~PlainHost();

  [[nodiscard]] HWND Window() const noexcept { return window_; }
  /// The procedure that the window was made with; what is in force differs from it while the host is watched.
  [[nodiscard]] LONG_PTR Procedure() const;
  void Destroy();

  std::function<std::pair<bool, LRESULT>(UINT, WPARAM, LPARAM)> onMessage;

 private:
  static LRESULT CALLBACK Receive(HWND window, UINT id, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr;
};

/// Another handle of the same window, as a call of the system may give it: one with other upper bits.
[[nodiscard]] HWND OtherHandle(HWND window);

/// Dispatches what is in the queue until `done` holds. False when it does not within ten seconds.
bool PumpUntil(const std::function<bool()>& done);
