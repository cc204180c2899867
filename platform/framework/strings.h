// Text and the small arrays of the outward interface. Portable: knows no window and no <windows.h>, everything is
// inline.
//
// Texts are bytes; by convention Shift_JIS, or EUC-JP where the name of a variable says so. Lengths and positions count
// bytes.
#pragma once

#include <algorithm>
#include <compare>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/framework/exceptions.h"

/// A text that owns its bytes. Converts from and to `const char*`; a null pointer is the empty text.
///
/// `SetAt` may write a terminator into the middle: `GetLength` then still tells the former length, while everything
/// that takes the text as `const char*`, comparison included, sees it end there. Callers rely on both.
class CString {
 public:
  CString() noexcept = default;
  CString(const char* text) : bytes_(text != nullptr ? text : "") {}
  CString(std::string text) noexcept : bytes_(std::move(text)) {}
  CString(std::string_view text) : bytes_(text) {}
  /// `count` times the byte `letter`; none for a count below 1.
  CString(char letter, int count) : bytes_(count > 0 ? static_cast<std::size_t>(count) : 0, letter) {}
  /// The first `length` bytes of `text`.
  CString(const char* text, int length) : bytes_(text != nullptr && length > 0 ? text : "", Clamp(text, length)) {}

  CString& operator=(const char* text) { return *this = CString(text); }

  [[nodiscard]] int GetLength() const noexcept { return static_cast<int>(bytes_.size()); }
  [[nodiscard]] bool IsEmpty() const noexcept { return bytes_.empty(); }
  void Empty() noexcept { bytes_.clear(); }

  /// Closed with a terminator; valid until the text is changed.
  [[nodiscard]] const char* GetString() const noexcept { return bytes_.c_str(); }
  operator const char*() const noexcept { return bytes_.c_str(); }
  /// All bytes, terminators in the middle included; valid until the text is changed.
  [[nodiscard]] std::string_view View() const noexcept { return bytes_; }

  /// The byte at `index`; `index` equal to the length gives the terminator. Outside throws CInvalidArgException.
  [[nodiscard]] char GetAt(int index) const {
    if (index < 0 || index > GetLength()) throw CInvalidArgException();
    return bytes_.c_str()[index];
  }
  [[nodiscard]] char operator[](int index) const { return GetAt(index); }
  /// Replaces one byte. `index` must lie below the length, else CInvalidArgException. The length never changes.
  void SetAt(int index, char letter) {
    if (index < 0 || index >= GetLength()) throw CInvalidArgException();
    bytes_[static_cast<std::size_t>(index)] = letter;
  }

  /// The first, the last, or from `first` on at most `count` bytes. What lies outside the text is left out; a character
  /// may be split, as the counts are bytes.
  [[nodiscard]] CString Left(int count) const { return Mid(0, count); }
  [[nodiscard]] CString Right(int count) const {
    const int length = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - length, length);
  }
  [[nodiscard]] CString Mid(int first) const { return Mid(first, GetLength()); }
  [[nodiscard]] CString Mid(int first, int count) const {
    const auto from = static_cast<std::size_t>(std::clamp(first, 0, GetLength()));
    return CString(View().substr(from, static_cast<std::size_t>(std::max(count, 0))));
  }

  /// Position of the first `letter` or `part` at or after `start`, -1 when there is none. Steps by Shift_JIS
  /// characters, so the second byte of a two-byte character is never taken for a letter.
  [[nodiscard]] int Find(char letter, int start = 0) const noexcept {
    return Find(std::string_view(&letter, 1), start);
  }
  [[nodiscard]] int Find(const char* part, int start = 0) const noexcept {
    return part != nullptr ? Find(std::string_view(part), start) : -1;
  }
  /// Position of the last `letter`, -1 when there is none; steps by Shift_JIS characters.
  [[nodiscard]] int ReverseFind(char letter) const noexcept {
    int found = -1;
    for (int at = Find(letter); at >= 0; at = Find(letter, at + 1)) found = at;
    return found;
  }

  /// Below 0, 0 or above 0 as bytes order them, up to the first terminator. `CompareNoCase` folds the letters A to Z
  /// that are characters of their own.
  [[nodiscard]] int Compare(const char* other) const noexcept {
    return std::strcmp(GetString(), other != nullptr ? other : "");
  }
  [[nodiscard]] int CompareNoCase(const char* other) const {
    return std::strcmp(Folded(GetString()).c_str(), Folded(other != nullptr ? other : "").c_str());
  }

  /// Replaces the text by a formatted one, of any length. Texts are given as `const char*` (`GetString()`), and may be
  /// this text itself. A format that cannot be carried out leaves an empty text.
#if defined(__MINGW_PRINTF_FORMAT)
  __attribute__((format(__MINGW_PRINTF_FORMAT, 2, 3)))
#elif defined(__GNUC__)
  __attribute__((format(printf, 2, 3)))
#endif
  void
  Format(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (length > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    bytes_ = std::move(text);
  }

  /// Room for `minLength` bytes and a terminator, to be written by the caller and closed by `ReleaseBuffer`: with the
  /// length written, or -1 for everything up to the first terminator. A length beyond the room is cut to it.
  [[nodiscard]] char* GetBuffer(int minLength = 0) {
    if (minLength > GetLength()) bytes_.resize(static_cast<std::size_t>(minLength));
    return bytes_.data();
  }
  void ReleaseBuffer(int newLength = -1) {
    const std::size_t written = newLength < 0 ? std::strlen(bytes_.c_str()) : static_cast<std::size_t>(newLength);
    bytes_.resize(std::min(written, bytes_.size()));
  }

  CString& operator+=(const CString& tail) { return bytes_ += tail.bytes_, *this; }
  CString& operator+=(const char* tail) { return *this += CString(tail); }
  CString& operator+=(char letter) { return bytes_ += letter, *this; }

  friend CString operator+(const CString& head, const CString& tail) { return CString(head) += tail; }
  friend CString operator+(const CString& head, const char* tail) { return CString(head) += tail; }
  friend CString operator+(const char* head, const CString& tail) { return CString(head) += tail; }
  friend CString operator+(const CString& head, char tail) { return CString(head) += tail; }
  friend CString operator+(char head, const CString& tail) { return CString(head, 1) += tail; }

  friend bool operator==(const CString& left, const CString& right) noexcept { return left.Compare(right) == 0; }
  friend bool operator==(const CString& left, const char* right) noexcept { return left.Compare(right) == 0; }
  friend std::strong_ordering operator<=>(const CString& left, const CString& right) noexcept {
    return left.Compare(right) <=> 0;
  }
  friend std::strong_ordering operator<=>(const CString& left, const char* right) noexcept {
    return left.Compare(right) <=> 0;
  }

 private:
  [[nodiscard]] static std::size_t Clamp(const char* text, int length) noexcept {
    return text != nullptr && length > 0 ? static_cast<std::size_t>(length) : 0;
  }

  // This layer stands below the library, so it cannot ask the library's own walk through Shift_JIS.
  [[nodiscard]] static std::size_t CharLength(std::string_view text, std::size_t at) noexcept {
    const auto value = static_cast<unsigned char>(text[at]);
    return ((value >= 0x80 && value <= 0x9F) || value >= 0xE0) && at + 1 < text.size() ? 2 : 1;
  }

  [[nodiscard]] int Find(std::string_view part, int start) const noexcept {
    const std::string_view text = bytes_;
    std::size_t at = 0;
    while (at < text.size() && (start > 0 && at < static_cast<std::size_t>(start))) at += CharLength(text, at);
    for (; at < text.size(); at += CharLength(text, at)) {
      if (text.substr(at).starts_with(part)) return static_cast<int>(at);
    }
    return -1;
  }

  [[nodiscard]] static std::string Folded(std::string_view text) {
    std::string folded(text);
    for (std::size_t at = 0; at < folded.size(); at += CharLength(text, at)) {
      if (folded[at] >= 'A' && folded[at] <= 'Z') folded[at] = static_cast<char>(folded[at] - 'A' + 'a');
    }
    return folded;
  }

  std::string bytes_;
};

/// An array that checks every index: one outside throws CInvalidArgException and changes nothing.
template <class Item, class Argument>
class CheckedArray {
 public:
  [[nodiscard]] int GetSize() const noexcept { return static_cast<int>(items_.size()); }
  [[nodiscard]] int GetCount() const noexcept { return GetSize(); }
  [[nodiscard]] bool IsEmpty() const noexcept { return items_.empty(); }
  /// The last valid index; -1 for an empty array.
  [[nodiscard]] int GetUpperBound() const noexcept { return GetSize() - 1; }

  [[nodiscard]] const Item& GetAt(int index) const { return items_[Checked(index, GetSize() - 1)]; }
  [[nodiscard]] const Item& operator[](int index) const { return GetAt(index); }
  [[nodiscard]] Item& operator[](int index) { return items_[Checked(index, GetSize() - 1)]; }
  void SetAt(int index, Argument item) { items_[Checked(index, GetSize() - 1)] = item; }

  /// Appends and returns the index of the new item.
  int Add(Argument item) {
    items_.push_back(item);
    return GetSize() - 1;
  }
  /// Inserts before `index`, from 0 to the size.
  void InsertAt(int index, Argument item) {
    const Item copy = item;
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(Checked(index, GetSize())), copy);
  }
  /// Removes `count` items from `index` on; all of them must lie in the array.
  void RemoveAt(int index, int count = 1) {
    const auto first = static_cast<std::ptrdiff_t>(Checked(index, GetSize()));
    const auto length = static_cast<std::ptrdiff_t>(Checked(count, GetSize() - index));
    items_.erase(items_.begin() + first, items_.begin() + first + length);
  }
  void RemoveAll() noexcept { items_.clear(); }
  /// Cuts or fills up with empty texts or zeros.
  void SetSize(int size) { items_.resize(Checked(size, std::max(size, 0))); }

 private:
  [[nodiscard]] static std::size_t Checked(int value, int last) {
    if (value < 0 || value > last) throw CInvalidArgException();
    return static_cast<std::size_t>(value);
  }

  std::vector<Item> items_;
};

#if defined(_WIN32)
using DWordValue = unsigned long;  // DWORD
#else
using DWordValue = std::uint32_t;
#endif

class CStringArray : public CheckedArray<CString, const CString&> {};
class CDWordArray : public CheckedArray<DWordValue, DWordValue> {};

struct StringListNode {
  CString text;
  StringListNode* next = nullptr;
};

/// A place in a CStringList; null is behind the end. Valid until its list is emptied or destroyed.
using POSITION = StringListNode*;

/// A list of texts that is walked from its head.
class CStringList {
 public:
  CStringList() = default;
  CStringList(const CStringList&) = delete;
  CStringList& operator=(const CStringList&) = delete;

  [[nodiscard]] int GetCount() const noexcept { return static_cast<int>(nodes_.size()); }
  [[nodiscard]] bool IsEmpty() const noexcept { return nodes_.empty(); }

  POSITION AddTail(const CString& text) {
    StringListNode* last = nodes_.empty() ? nullptr : &nodes_.back();
    POSITION added = &nodes_.emplace_back(StringListNode{text});
    if (last != nullptr) last->next = added;
    return added;
  }
  POSITION AddHead(const CString& text) { return &nodes_.emplace_front(StringListNode{text, GetHeadPosition()}); }
  void RemoveAll() noexcept { nodes_.clear(); }

  /// Null for an empty list.
  [[nodiscard]] POSITION GetHeadPosition() const noexcept {
    return nodes_.empty() ? nullptr : const_cast<POSITION>(&nodes_.front());
  }
  /// The text at `at`; moves `at` on to the next one or to null. A null `at` throws CInvalidArgException.
  [[nodiscard]] const CString& GetNext(POSITION& at) const { return Step(at); }
  [[nodiscard]] CString& GetNext(POSITION& at) { return Step(at); }
  /// The text at `at`. A null `at` throws CInvalidArgException.
  [[nodiscard]] const CString& GetAt(POSITION at) const { return Step(at); }

 private:
  static CString& Step(POSITION& at) {
    if (at == nullptr) throw CInvalidArgException();
    CString& text = at->text;
    at = at->next;
    return text;
  }

  std::deque<StringListNode> nodes_;  // adding at either end moves no node
};
