// CvBrowserTree: what the browser's dialog says of itself to those who do not see it: its controls, which speak for
// themselves, and in the places of the hidden buttons and of the file name's label the areas that users see there.
#pragma once

#include <vector>

#include "dlglib/filedialog/window/CvNavigation.h"
#include "platform/os/accessible.h"

class CvBrowserTree final : public accessible::Tree {
 public:
  /// Both must outlive this.
  CvBrowserTree(CWnd& dialog, CvNavigation& navigation) : dialog_(dialog), navigation_(navigation) {}

  /// The position of an area among the parts; the whole when it is not there.
  [[nodiscard]] accessible::Node NodeOf(filedialog::HotArea area) const;

  [[nodiscard]] int CountOf(accessible::Node node) const override;
  [[nodiscard]] std::optional<accessible::Item> Find(accessible::Node node) const override;
  [[nodiscard]] os::WindowHandle WindowOf(accessible::Node node) const override;
  [[nodiscard]] std::optional<accessible::Node> Focused() const override;
  [[nodiscard]] std::uint64_t IdentityOf(accessible::Node node) const override;
  bool Act(accessible::Node node) override;

 private:
  /// A control, or the area that stands for it.
  struct Part {
    HWND window = nullptr;
    std::optional<filedialog::HotArea> area;
  };
  [[nodiscard]] std::vector<Part> Parts() const;
  [[nodiscard]] std::optional<Part> PartOf(accessible::Node node) const;

  CWnd& dialog_;
  CvNavigation& navigation_;
};
