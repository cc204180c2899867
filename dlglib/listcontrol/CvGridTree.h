// CvGridTree: what a grid says of itself to those who do not see it: the rows in use and their cells.
#pragma once

#include "dlglib/listcontrol/grid_model.h"
#include "platform/os/accessible.h"

class CvGrid;

class CvGridTree final : public accessible::Tree {
 public:
  /// `grid` must outlive this.
  explicit CvGridTree(CvGrid& grid) : grid_(grid) {}

  [[nodiscard]] int CountOf(accessible::Node node) const override;
  [[nodiscard]] std::optional<accessible::Item> Find(accessible::Node node) const override;
  [[nodiscard]] bool OwnsWindow(os::WindowHandle window) const override;
  [[nodiscard]] std::optional<accessible::Node> Focused() const override;
  [[nodiscard]] std::vector<accessible::Node> Selected() const override;
  [[nodiscard]] std::optional<accessible::Node> At(int x, int y) const override;
  [[nodiscard]] std::uint64_t IdentityOf(accessible::Node node) const override;
  bool Act(accessible::Node node) override;
  bool Choose(accessible::Node node, Choice choice) override;

 private:
  [[nodiscard]] bool IsRow(accessible::Node node) const;
  [[nodiscard]] bool IsCell(accessible::Node node) const;
  [[nodiscard]] bool IsAvailable(accessible::Node cell) const;
  [[nodiscard]] accessible::Node FirstCellOf(accessible::Node row) const;

  CvGrid& grid_;
};
