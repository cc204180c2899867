// CvEscWatch: whether the user wants long work to be given up, asked while no message runs.
//
//   CvEscWatch esc;                            // a member of the dialog
//   esc.Start(m_hWnd);
//   while (more && !esc.Pressed()) Work();
//   ...
//   if (esc.Drops(*message)) return TRUE;      // in PreTranslateMessage
//
// Esc is the only key that is looked for and used up; everything else that was typed meanwhile stays for afterwards, in
// its order. A press that gave work up never closes the dialog, however long the key is held down.
#pragma once

#include "platform/framework/wnd.h"

class CvEscWatch {
 public:
  /// Begins to look, for the dialog `dialog` (borrowed). Esc pressed before does not count, however long it is held;
  /// what is still to come of a press that was used up is dropped as before.
  void Start(HWND dialog);

  /// True once Esc has been pressed since Start; the press is used up. Asks the system some dozens of times a second
  /// at most, however often it is called, and no message runs.
  [[nodiscard]] bool Pressed();

  /// Whether a message that was fetched while work runs is Esc: it is used up then, also where it does not count.
  [[nodiscard]] bool Takes(const MSG& message);

  /// Whether a fetched message belongs to a press that is used up: whoever has fetched it does nothing with it then.
  [[nodiscard]] bool Drops(const MSG& message);

 private:
  enum class Left { Nothing, Repeats, Press };  ///< what is still to come of the press that is used up

  void RemoveFromQueue();
  void UseUp(const MSG& esc);
  [[nodiscard]] bool IsDownSinceLastLook();

  HWND dialog_ = nullptr;
  ULONGLONG nextLook_ = 0;  ///< milliseconds
  bool isPressed_ = false;  ///< since Start
  Left left_ = Left::Nothing;
  bool heldBefore_ = false;  ///< since before Start
};
