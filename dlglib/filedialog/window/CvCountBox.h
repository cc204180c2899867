// CvCountBox: the box for the count of recent files, which is there only while its list is open.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/framework/controls.h"
#include "platform/framework/message.h"

class CvCountBox {
 public:
  struct Actions {
    std::function<void(int)> chosen;  ///< an item's position
    std::function<void()> closed;     ///< with a choice or without
  };

  /// `dialog` must outlive this.
  CvCountBox(CWnd& dialog, Actions actions) : dialog_(dialog), actions_(std::move(actions)) {}

  void Fill(const std::vector<std::string>& items, int selected) const;
  void Open() const;

  /// The box's notifications; nullopt for any other message of the dialog.
  [[nodiscard]] Handled RouteMessage(const Message& message);

 private:
  void OnChosen();
  void OnClosed();
  [[nodiscard]] ComboBoxRef Box() const;

  CWnd& dialog_;
  Actions actions_;
};
