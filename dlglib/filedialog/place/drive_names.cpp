#include "dlglib/filedialog/place/drive_names.h"

#include <algorithm>
#include <utility>

#include "dlglib/base/path_text.h"
#include "dlglib/filedialog/basics/call_site.h"

namespace filedialog {

namespace {

/// Whether a folder lies on the drive.
bool Holds(std::string_view root, std::string_view folder) {
  return folder.size() > 1 && IsSamePath(folder.substr(0, 2), WithoutSeparator(root));
}

}  // namespace

struct DriveNames::Asked {
  std::string root;
  std::shared_ptr<std::optional<DriveLook>> look;
  std::unique_ptr<BackgroundCall> call;  ///< none for a drive that has gone

  [[nodiscard]] bool IsKnown() const { return call == nullptr || call->IsDone(); }
};

std::string DriveText(const DriveLook& look, std::string_view root) {
  return std::string(look.label).append(" (").append(WithoutSeparator(root)).append(")");
}

DriveNames::DriveNames(const os::ServiceTable& services, os::Workers* workers, std::function<void()> answered)
    : services_(services), workers_(workers), answered_(std::move(answered)) {}

DriveNames::~DriveNames() = default;

/// Two that do not answer keep all that are asked after them waiting.
void DriveNames::Ask(std::string_view folder) {
  std::vector<Asked> asked = AllOf(services_.drives->Mask());
  std::vector<Asked*> inOrder;
  for (Asked& drive : asked) {
    if (*drive.look) inOrder.push_back(&drive);
  }
  std::ranges::stable_partition(inOrder, [folder](const Asked* drive) { return Holds(drive->root, folder); });
  asked_.clear();  // what is still on its way would only be waited for
  for (Asked* const drive : inOrder) Begin(drive);
  asked_ = std::move(asked);
}

/// In the order of the letters; those that were there before and are not in the mask have no look.
std::vector<DriveNames::Asked> DriveNames::AllOf(std::uint32_t mask) const {
  std::vector<Asked> drives;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const std::string root = std::string(1, letter) + ":\\";
    const bool isThere = (mask >> (letter - 'A') & 1U) != 0;
    if (!isThere && std::ranges::find(asked_, root, &Asked::root) == asked_.end()) continue;
    auto look = isThere ? std::optional(DriveLook{EntryKind::FixedDrive, ""}) : std::nullopt;
    drives.push_back({root, std::make_shared<std::optional<DriveLook>>(std::move(look)), nullptr});
  }
  return drives;
}

void DriveNames::Begin(Asked* drive) {
  const auto ask = [look = drive->look, drives = services_.drives, network = services_.network, root = drive->root] {
    *look = LookOf(*drives, *network, root);
  };
  drive->call = std::make_unique<BackgroundCall>(workers_, SiteOf(drive->root), ask, answered_);
}

std::vector<NamedDrive> DriveNames::Drives() const {
  std::vector<NamedDrive> drives;
  for (const Asked& drive : asked_) {
    const bool isKnown = drive.IsKnown();
    drives.push_back({drive.root, isKnown, isKnown ? *drive.look : DriveLook{EntryKind::FixedDrive, ""}});
  }
  return drives;
}

bool DriveNames::AreKnown() const {
  return std::all_of(asked_.begin(), asked_.end(), [](const Asked& drive) { return drive.IsKnown(); });
}

bool DriveNames::IsKnownFor(std::string_view folder) const {
  const auto holds = [folder](const Asked& drive) { return Holds(drive.root, folder); };
  const auto own = std::find_if(asked_.begin(), asked_.end(), holds);
  return own == asked_.end() ? AreKnown() : own->IsKnown();
}

}  // namespace filedialog
