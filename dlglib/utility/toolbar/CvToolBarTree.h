// CvToolBarTree: what the toolbar of the drawing texts says of itself to those who do not see it.
#pragma once

#include "platform/os/accessible.h"

class CvToolBar;

class CvToolBarTree final : public accessible::Tree {
 public:
  /// `bar` must outlive this.
  explicit CvToolBarTree(CvToolBar& bar) : bar_(bar) {}

  [[nodiscard]] int CountOf(accessible::Node node) const override;
  [[nodiscard]] std::optional<accessible::Item> Find(accessible::Node node) const override;
  [[nodiscard]] std::optional<accessible::Node> Focused() const override;
  bool Act(accessible::Node node) override;
  bool Choose(accessible::Node node, Choice choice) override;

 private:
  CvToolBar& bar_;
};
