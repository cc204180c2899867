// CvPlacesTree: what the location bar says of itself to those who do not see it: the current place, and its rows with
// their levels.
#pragma once

#include <cstddef>
#include <functional>
#include <utility>

#include "dlglib/filedialog/place/location_tree.h"
#include "platform/framework/controls.h"
#include "platform/os/accessible.h"

class CvPlacesTree final : public accessible::Tree {
 public:
  /// Bar and places must outlive this. `choose` goes to the place of a row.
  CvPlacesTree(const CComboBox& bar, const filedialog::LocationTree& places, std::function<void(std::size_t)> choose)
      : bar_(bar), places_(places), choose_(std::move(choose)) {}

  [[nodiscard]] int CountOf(accessible::Node node) const override;
  [[nodiscard]] std::optional<accessible::Item> Find(accessible::Node node) const override;
  [[nodiscard]] std::vector<accessible::Node> Selected() const override;
  [[nodiscard]] std::uint64_t IdentityOf(accessible::Node node) const override;
  bool Act(accessible::Node node) override;
  bool Choose(accessible::Node node, Choice choice) override;

 private:
  [[nodiscard]] bool IsRow(accessible::Node node) const;
  [[nodiscard]] std::optional<std::size_t> MarkedRow() const;
  [[nodiscard]] std::optional<RECT> RectInList(std::size_t row) const;
  [[nodiscard]] std::optional<accessible::Item> FindRow(std::size_t row) const;

  const CComboBox& bar_;
  const filedialog::LocationTree& places_;
  std::function<void(std::size_t)> choose_;
};
