#include <string_view>

#include "platform/os/os.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/euc_encoder.h"
#include "platform/suite/path_names.h"
#include "platform/suite/wildcard.h"

namespace {

constexpr std::uint32_t kNeverShown = os::kAttributeHidden | os::kAttributeSystem;

bool IsFolder(const os::FoundName& found) { return (found.attributes & os::kAttributeFolder) != 0; }

/// The folder as the operating system wants it: without a "\" at its end unless it is a root.
std::string FolderToOpen(std::string internalFolder) {
  if (internalFolder.empty()) return ".";
  const auto isRoot = [&internalFolder] { return internalFolder.size() == 3 && internalFolder[1] == ':'; };
  while (internalFolder.size() > 1 && internalFolder.back() == '/' && !isRoot()) internalFolder.pop_back();
  return suite::ToRealPath(internalFolder);
}

}  // namespace

struct CwFileFinder::State {
  std::unique_ptr<os::FolderPass> pass;
  std::string pattern;  ///< Shift_JIS
  bool foldersToo = false;
  std::string folder;  ///< EUC-JP, up to and including its last "/"
  std::string entry;
  os::FoundName found;

  [[nodiscard]] bool IsWanted() const {
    if (!found.exact || (found.attributes & kNeverShown) != 0) return false;
    if (IsFolder(found)) return foldersToo && found.name != "." && found.name != "..";
    // A short name may match what the long one does not, and the other way round.
    return suite::MatchesSjis(pattern, found.longName.empty() ? found.name : found.longName);
  }

  /// Makes `found` the current entry; false when its name is not the same in EUC-JP.
  bool TakeEntry() {
    constexpr std::size_t kSpare = 48;  // room for blocks, which the conversion of short names is quick with
    const std::size_t room = 2 * found.name.size() + kSpare;
    entry.resize(folder.size() + room);
    char* name = entry.data() + folder.size();
    const suite::Converted done = suite::SjisToEuc(found.name, name, room);
    entry.resize(folder.size() + done.written);
    if (IsFolder(found)) entry += '/';
    return done.clean;
  }
};

CwFileFinder::CwFileFinder() : state_(std::make_unique<State>()) {}
CwFileFinder::~CwFileFinder() = default;

CwFileFinder* CwFileFinder::CreateInstance() { return new CwFileFinder; }

bool CwFileFinder::Start(const std::string& searchPath, int mode) {
  Close();
  const std::size_t folderSize = searchPath.rfind('/') + 1;
  state_->folder = searchPath.substr(0, folderSize);
  state_->pattern = suite::ToRealPath(searchPath.substr(folderSize));
  state_->foldersToo = mode != 0;
  state_->pass = os::Services().files->OpenFolder(FolderToOpen(state_->folder));
  return state_->pass != nullptr;
}

bool CwFileFinder::HasNext() {
  if (state_->entry.empty()) state_->entry = state_->folder;
  while (state_->pass != nullptr && state_->pass->Next(&state_->found)) {
    if (state_->IsWanted() && state_->TakeEntry()) return true;
    state_->entry.resize(state_->folder.size());
  }
  Close();
  return false;
}

const std::string& CwFileFinder::GetEntry() const { return state_->entry; }

void CwFileFinder::Close() {
  state_->pass.reset();
  state_->entry.clear();
}

void CwFileFinder::Destroy() { delete this; }
