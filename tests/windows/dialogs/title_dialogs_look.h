// What the title dialogs look like: their controls, and texts that are painted and belong to no control.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tests/windows/driver/user.h"

namespace title_dialogs {

inline constexpr COLORREF kBlack = 0x000000;
inline constexpr COLORREF kWhite = 0xFFFFFF;
inline constexpr int kFontHeight = 12;                   ///< pixels
inline constexpr int kZoneHeight = kFontHeight * 3 / 2;  ///< pixels of the message zone

/// A control in the units of its template.
struct ControlRow {
  int id;
  std::string className;
  RECT place;  ///< left, top, width, height
  std::string text;
  bool visible = true;
};

/// The dialog has these controls, and as many children besides that code has made.
void ExpectControls(const driver::Window& dialog, const std::vector<ControlRow>& controls, std::size_t madeByCode = 0);

/// A part of the screen shows a text in the dialog's font at `left`, `top` pixels from its corner, and nothing else.
void ExpectText(const driver::User& user, const driver::Window& dialog, const RECT& screen, POINT at,
                const std::string& text, COLORREF ink, COLORREF paper);

/// The message zone shows that text, or nothing for an empty one.
void ExpectZone(const driver::User& user, const driver::Window& dialog, const std::string& text);

}  // namespace title_dialogs
