#include "tests/windows/driver/picture.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "platform/os/sjis_wide.h"

namespace driver {
namespace {

using Bytes = std::vector<std::uint8_t>;

void AppendBigEndian(Bytes* out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out->push_back(static_cast<std::uint8_t>(value >> shift));
}

std::uint32_t Crc32(const std::uint8_t* data, std::size_t size) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (std::size_t i = 0; i < size; ++i) {
    crc ^= data[i];
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

std::uint32_t Adler32(const Bytes& data) {
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (const std::uint8_t byte : data) {
    a = (a + byte) % 65521;
    b = (b + a) % 65521;
  }
  return (b << 16) | a;
}

void AppendChunk(Bytes* png, const char* type, const Bytes& data) {
  AppendBigEndian(png, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = png->size();
  png->insert(png->end(), type, type + 4);
  png->insert(png->end(), data.begin(), data.end());
  AppendBigEndian(png, Crc32(png->data() + start, png->size() - start));
}

/// A zlib stream of stored blocks: as large as its input, but needs no compressor.
Bytes Stored(const Bytes& data) {
  constexpr std::size_t kBlock = 65535;
  Bytes out = {0x78, 0x01};
  for (std::size_t at = 0; at < data.size(); at += kBlock) {
    const std::size_t size = std::min(kBlock, data.size() - at);
    out.push_back(at + size == data.size() ? 1 : 0);
    for (const std::size_t length : {size, ~size}) {
      out.push_back(static_cast<std::uint8_t>(length));
      out.push_back(static_cast<std::uint8_t>(length >> 8));
    }
    const auto from = data.begin() + static_cast<std::ptrdiff_t>(at);
    out.insert(out.end(), from, from + static_cast<std::ptrdiff_t>(size));
  }
  AppendBigEndian(&out, Adler32(data));
  return out;
}

Bytes EncodePng(const Picture& picture) {
  Bytes header;
  AppendBigEndian(&header, static_cast<std::uint32_t>(picture.Width()));
  AppendBigEndian(&header, static_cast<std::uint32_t>(picture.Height()));
  const Bytes format = {8, 2, 0, 0, 0};  // 8 bits a channel, RGB, no interlace
  header.insert(header.end(), format.begin(), format.end());
  Bytes rows;
  for (int y = 0; y < picture.Height(); ++y) {
    rows.push_back(0);  // no filter
    for (int x = 0; x < picture.Width(); ++x) {
      const COLORREF colour = picture.At(x, y);
      rows.insert(rows.end(), {GetRValue(colour), GetGValue(colour), GetBValue(colour)});
    }
  }
  Bytes png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  AppendChunk(&png, "IHDR", header);
  AppendChunk(&png, "IDAT", Stored(rows));
  AppendChunk(&png, "IEND", {});
  return png;
}

/// Wine draws into memory, which reaches the screen when some thread of the process waits for messages, at the latest.
/// A thread that was kept from running may have more to do as soon as it has painted, and does not wait.
void BringToScreen() { MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, QS_ALLINPUT); }

/// Screen and memory context with a bitmap, released in the right order.
class ScreenCopy {
 public:
  ScreenCopy(int width, int height) : screen_(GetDC(nullptr)), memory_(CreateCompatibleDC(screen_)) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    bitmap_ = CreateDIBSection(screen_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    previous_ = SelectObject(memory_, bitmap_);
  }
  ~ScreenCopy() {
    SelectObject(memory_, previous_);
    DeleteObject(bitmap_);
    DeleteDC(memory_);
    ReleaseDC(nullptr, screen_);
  }
  ScreenCopy(const ScreenCopy&) = delete;
  ScreenCopy& operator=(const ScreenCopy&) = delete;

  /// Blue, green, red; each row padded to four bytes. Null when there is no memory.
  const std::uint8_t* Copy(const RECT& rect) {
    if (bits_ == nullptr) return nullptr;
    BringToScreen();
    BitBlt(memory_, 0, 0, rect.right - rect.left, rect.bottom - rect.top, screen_, rect.left, rect.top, SRCCOPY);
    GdiFlush();
    return static_cast<const std::uint8_t*>(bits_);
  }

 private:
  HDC screen_;
  HDC memory_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ previous_ = nullptr;
  void* bits_ = nullptr;
};

}  // namespace

Picture::Picture(int width, int height)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

std::size_t Picture::Index(int x, int y) const {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) throw std::out_of_range("pixel outside the picture");
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
}

COLORREF Picture::At(int x, int y) const { return pixels_[Index(x, y)]; }

void Picture::Set(int x, int y, COLORREF colour) { pixels_[Index(x, y)] = colour; }

int Picture::Count(const RECT& rect, COLORREF colour) const {
  int count = 0;
  for (int y = rect.top; y < rect.bottom; ++y) {
    for (int x = rect.left; x < rect.right; ++x) count += At(x, y) == colour ? 1 : 0;
  }
  return count;
}

bool Picture::SavePng(const std::string& path) const {
  const Bytes png = EncodePng(*this);
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(_wfopen(os::WideOf(path).c_str(), L"wb"), std::fclose);
  return file != nullptr && std::fwrite(png.data(), 1, png.size(), file.get()) == png.size();
}

Picture Capture(const RECT& rect) {
  Picture picture(rect.right - rect.left, rect.bottom - rect.top);
  ScreenCopy copy(picture.Width(), picture.Height());
  const std::uint8_t* bits = copy.Copy(rect);
  if (bits == nullptr) throw std::runtime_error("the screen cannot be copied");
  const std::size_t stride = (static_cast<std::size_t>(picture.Width()) * 3 + 3) / 4 * 4;
  for (int y = 0; y < picture.Height(); ++y) {
    const std::uint8_t* pixel = bits + static_cast<std::size_t>(y) * stride;
    for (int x = 0; x < picture.Width(); ++x, pixel += 3) picture.Set(x, y, RGB(pixel[2], pixel[1], pixel[0]));
  }
  return picture;
}

/// It answers in order.
void WaitForDisplay() {
  const HDC screen = GetDC(nullptr);
  GetPixel(screen, 0, 0);
  ReleaseDC(nullptr, screen);
}

Picture CaptureScreen() { return Capture(RECT{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}); }

}  // namespace driver
