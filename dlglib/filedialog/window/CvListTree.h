// CvListTree: what the browser's list says of itself to those who do not see it: its rows, and its header behind them.
// While a line stands in the place of the rows there are none to be read or chosen; the list itself says the line.
#pragma once

#include <functional>

#include "platform/os/accessible.h"

class CvFileList;

class CvListTree final : public accessible::Tree {
 public:
  /// `list` must outlive this. `opened` opens what is selected.
  CvListTree(CvFileList& list, std::function<void()> opened) : list_(list), opened_(std::move(opened)) {}

  [[nodiscard]] int CountOf(accessible::Node node) const override;
  [[nodiscard]] std::optional<accessible::Item> Find(accessible::Node node) const override;
  [[nodiscard]] os::WindowHandle WindowOf(accessible::Node node) const override;
  [[nodiscard]] std::optional<accessible::Node> Focused() const override;
  [[nodiscard]] std::vector<accessible::Node> Selected() const override;
  [[nodiscard]] std::optional<accessible::Node> At(int x, int y) const override;
  [[nodiscard]] std::uint64_t IdentityOf(accessible::Node node) const override;
  bool Act(accessible::Node node) override;
  bool Choose(accessible::Node node, Choice choice) override;

 private:
  [[nodiscard]] int RowCount() const;
  [[nodiscard]] accessible::Item Whole() const;
  [[nodiscard]] bool IsRow(accessible::Node node) const;
  [[nodiscard]] bool HasHeader() const;

  CvFileList& list_;
  std::function<void()> opened_;
};
