// Keys by the numbers that the platform gives them. Letters and digits have their capitals in ASCII.
#pragma once

namespace virtual_key {

inline constexpr int kBackspace = 0x08;
inline constexpr int kTab = 0x09;
inline constexpr int kEnter = 0x0D;
inline constexpr int kEscape = 0x1B;
inline constexpr int kSpace = 0x20;
inline constexpr int kPageUp = 0x21;
inline constexpr int kPageDown = 0x22;
inline constexpr int kEnd = 0x23;
inline constexpr int kHome = 0x24;
inline constexpr int kLeft = 0x25;
inline constexpr int kUp = 0x26;
inline constexpr int kRight = 0x27;
inline constexpr int kDown = 0x28;
inline constexpr int kInsert = 0x2D;
inline constexpr int kDelete = 0x2E;
inline constexpr int kKeypadMinus = 0x6D;
inline constexpr int kF2 = 0x71;
inline constexpr int kF4 = 0x73;
inline constexpr int kF5 = 0x74;
inline constexpr int kF6 = 0x75;
inline constexpr int kMinus = 0xBD;
inline constexpr int kProcess = 0xE5;  ///< the input method takes it

}  // namespace virtual_key
