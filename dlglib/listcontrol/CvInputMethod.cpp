#include "dlglib/listcontrol/CvInputMethod.h"

#include <imm.h>

#include <optional>

namespace {

/// The input context of a window, for a moment.
class InputContext {
 public:
  explicit InputContext(HWND window) noexcept : window_(window), context_(::ImmGetContext(window)) {}
  InputContext(const InputContext&) = delete;
  InputContext& operator=(const InputContext&) = delete;
  ~InputContext() {
    if (context_ != nullptr) ::ImmReleaseContext(window_, context_);
  }

  /// Nothing where there is no input method.
  [[nodiscard]] std::optional<grid::ImeStatus> Status() const noexcept {
    DWORD conversion = 0;
    DWORD sentence = 0;
    if (context_ == nullptr || ::ImmGetConversionStatus(context_, &conversion, &sentence) == FALSE) return std::nullopt;
    return grid::ImeStatus{::ImmGetOpenStatus(context_) != FALSE, static_cast<unsigned int>(conversion)};
  }
  void Set(const grid::ImeStatus& status) const noexcept {
    DWORD conversion = 0;
    DWORD sentence = 0;
    if (context_ == nullptr || ::ImmGetConversionStatus(context_, &conversion, &sentence) == FALSE) return;
    ::ImmSetConversionStatus(context_, status.conversion, sentence);
    ::ImmSetOpenStatus(context_, status.isOpen ? TRUE : FALSE);
  }

 private:
  HWND window_;
  HIMC context_;
};

}  // namespace

void CvInputMethod::SetMode(int column, int mode, HWND focus, grid::CellPosition edited) noexcept {
  const bool hadModes = plan_.HasModes();
  plan_.SetMode(column, mode);
  if (hadModes && !plan_.HasModes()) return PutBack();
  if (focus != nullptr) Enter(focus, edited);
}

void CvInputMethod::Enter(HWND focus, grid::CellPosition edited) noexcept {
  if (!plan_.HasModes()) return;
  const InputContext context(focus);
  const std::optional<grid::ImeStatus> now = context.Status();
  if (!now) return;
  window_ = focus;
  const std::optional<grid::ImeStatus> wanted = plan_.EnterCell(edited, *now);
  if (wanted) context.Set(*wanted);
}

void CvInputMethod::Leave() noexcept {
  if (plan_.HasModes()) PutBack();
}

void CvInputMethod::PutBack() noexcept {
  const std::optional<grid::ImeStatus> former = plan_.Leave();
  if (former && ::IsWindow(window_) != FALSE) InputContext(window_).Set(*former);
}
