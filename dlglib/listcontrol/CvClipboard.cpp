#include "dlglib/listcontrol/CvClipboard.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/framework/detail/wide_text.h"
#include "platform/os/sjis_wide.h"

namespace {

constexpr int kTries = 25;
constexpr DWORD kPauseMs = 20;

/// The clipboard is open while the object lives and answers true.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) noexcept {
    for (int tries = 1; !Open(owner) && tries < kTries; ++tries) ::Sleep(kPauseMs);
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() {
    if (isOpen_) ::CloseClipboard();
  }
  [[nodiscard]] explicit operator bool() const noexcept { return isOpen_; }

 private:
  bool Open(HWND owner) noexcept {
    isOpen_ = ::OpenClipboard(owner) != FALSE;
    return isOpen_;
  }

  bool isOpen_ = false;
};

/// A block for the clipboard, which owns it once it has taken it.
class GlobalBlock {
 public:
  /// Null when there is no memory.
  GlobalBlock(const void* bytes, std::size_t size) noexcept : block_(::GlobalAlloc(GMEM_MOVEABLE, size)) {
    void* const room = block_ != nullptr ? ::GlobalLock(block_) : nullptr;
    if (room == nullptr) return;
    std::copy_n(static_cast<const char*>(bytes), size, static_cast<char*>(room));
    ::GlobalUnlock(block_);
  }
  GlobalBlock(const GlobalBlock&) = delete;
  GlobalBlock& operator=(const GlobalBlock&) = delete;
  ~GlobalBlock() {
    if (block_ != nullptr) ::GlobalFree(block_);
  }
  [[nodiscard]] explicit operator bool() const noexcept { return block_ != nullptr; }
  [[nodiscard]] bool GiveAs(UINT format) noexcept {
    if (::SetClipboardData(format, block_) == nullptr) return false;
    block_ = nullptr;
    return true;
  }

 private:
  HGLOBAL block_;
};

/// Nothing when a character has no code of its own.
[[nodiscard]] std::optional<std::string> Convert(std::u16string_view piece) {
  os::NarrowText converted = os::SjisOf({reinterpret_cast<const wchar_t*>(piece.data()), piece.size()}, os::kUnknown);
  if (!converted.exact) return std::nullopt;
  return std::move(converted.bytes);
}

/// The clipboard's own text, which other programs have made as they liked, perhaps without an end.
[[nodiscard]] std::u16string TextOf(HANDLE block) {
  const void* const units = block != nullptr ? ::GlobalLock(block) : nullptr;
  if (units == nullptr) return {};
  const std::u16string_view all(static_cast<const char16_t*>(units), ::GlobalSize(block) / sizeof(char16_t));
  const auto unlock = [block] { ::GlobalUnlock(block); };
  try {
    std::u16string text(all.substr(0, all.find(u'\0')));
    unlock();
    return text;
  } catch (const std::bad_alloc&) {
    unlock();
    throw;
  }
}

}  // namespace

CvClipboard::Result CvClipboard::Put(HWND owner, std::string_view text) {
  const std::wstring wide = framework::ToWide(text);
  const LCID japanese = MAKELCID(MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT), SORT_DEFAULT);
  GlobalBlock units(wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
  GlobalBlock locale(&japanese, sizeof japanese);
  if (!units || !locale) return Result::NoMemory;
  const OpenedClipboard opened(owner);
  if (!opened || ::EmptyClipboard() == FALSE) return Result::Held;
  // The mark comes first: a text without it would be made into bytes of the system's own code page.
  return locale.GiveAs(CF_LOCALE) && units.GiveAs(CF_UNICODETEXT) ? Result::Done : Result::NoMemory;
}

std::optional<grid::ClipboardText> CvClipboard::Read(HWND owner) {
  std::u16string text;
  {
    const OpenedClipboard opened(owner);
    if (!opened) return std::nullopt;
    text = TextOf(::GetClipboardData(CF_UNICODETEXT));
  }
  return grid::ReadClipboardText(text, Convert);
}
