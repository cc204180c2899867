// What the fuzz targets share: how a broken property is reported, and how the bytes of an input become arguments.
//
// A target is one file that defines LLVMFuzzerTestOneInput. Its literals are ASCII or hex escapes: the fuzzers are
// built with a compiler that knows no other execution character set than UTF-8, the replay with one that writes
// Shift_JIS.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

/// Runs one input; answers 0. Everything that a file of the library's promises is checked with FUZZ_CHECK.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// Says which property is broken and ends the run.
[[noreturn]] void Fail(const char* file, int line, const char* property);

/// Takes arguments off the bytes of an input. When they are used up, numbers are at their lowest and texts are empty.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : left_(reinterpret_cast<const char*>(data), size) {}

  [[nodiscard]] bool IsUsedUp() const { return left_.empty(); }

  std::uint8_t Byte() {
    if (left_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(left_.front());
    left_.remove_prefix(1);
    return byte;
  }
  bool Flag() { return (Byte() & 1) != 0; }
  /// From `low` to `high`, which are at most 0xFFFF apart.
  int Number(int low, int high) {
    const int span = high - low + 1;
    const int drawn = span <= 0x100 ? Byte() : Byte() << 8 | Byte();
    return low + drawn % span;
  }
  std::size_t Size(std::size_t high) { return static_cast<std::size_t>(Number(0, static_cast<int>(high))); }
  /// At most `high` bytes; a length, then the bytes.
  std::string Text(std::size_t high) { return Take(Size(high)); }
  std::string Rest() { return Take(left_.size()); }
  template <class Plain>
  Plain Value() {
    const std::string bytes = Take(sizeof(Plain));
    Plain value{};
    std::memcpy(&value, bytes.data(), bytes.size());
    return value;
  }

 private:
  std::string Take(std::size_t size) {
    const std::string taken(left_.substr(0, size));
    left_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view left_;
};

/// A block of exactly `size` bytes, so that one byte read or written outside of it is seen. Its bytes are kUntouched.
class Block {
 public:
  static constexpr char kUntouched = '\x55';

  explicit Block(std::size_t size) : bytes_(std::make_unique<char[]>(size)), size_(size) {
    std::fill_n(bytes_.get(), size, kUntouched);
  }
  /// Holds the text, without a terminator.
  explicit Block(std::string_view text) : Block(text.size()) { std::copy(text.begin(), text.end(), bytes_.get()); }

  [[nodiscard]] char* Data() { return bytes_.get(); }
  [[nodiscard]] std::string_view View() const { return {bytes_.get(), size_}; }
  /// Whether nothing from `at` on was written to.
  [[nodiscard]] bool IsUntouchedFrom(std::size_t at) const {
    return View().substr(at).find_first_not_of(kUntouched) == std::string_view::npos;
  }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_;
};

}  // namespace fuzz

#define FUZZ_CHECK(property) ((property) ? void() : fuzz::Fail(__FILE__, __LINE__, #property))
