// The file browser, run with what the utility knows of its dialog and file kind.
#include <array>
#include <string>

#include "dlglib/base/edge.h"
#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/filsel/request_names.h"
#include "dlglib/utility/CvUtilityState.h"
#include "platform/framework/resource_module.h"

namespace {

constexpr std::size_t kBufferBytes = 257;

std::uint32_t FlagsOf(int mode) {
  switch (mode) {
    case 0:
      return filedialog::kFlagHideReadOnly | filedialog::kFlagFileMustExist;
    case 1:
      return filedialog::kFlagHideReadOnly | filedialog::kFlagPathMustExist;
    default:
      return filedialog::kFlagHideReadOnly | filedialog::kFlagPathMustExist | filedialog::kFlagPlainOk;
  }
}

int RunBrowser(CWnd* parent, filedialog::StartUp startUp) {
  const ResourceModuleScope libraryResources(ThisModule());
  CvFileDialog browser(parent, std::move(startUp));
  return browser.DoModal() == IDOK ? IDOK : IDCANCEL;
}

}  // namespace

int CvUtility::FileDialog(int mode) noexcept {
  return edge::Guarded(IDCANCEL, [&] { return AskForFile(mode); });
}

int CvUtility::AskForFile(int mode) {
  const std::string keyword(state_->keyword.View());
  const std::string_view pattern = state_->wildcard.View();
  std::array<char, kBufferBytes> result{};

  filedialog::StartUp startUp;
  startUp.fileBuffer = result.data();
  startUp.capacity = result.size();
  startUp.longestPath = decltype(state_->name)::kCapacity - 1;
  startUp.initialFolder = filsel::DeriveStart(keyword, "").folder;
  startUp.title = pattern.empty() ? filsel::FilterTitle(keyword) : keyword + "(" + std::string(pattern) + ")";
  startUp.description = state_->comment.View();
  startUp.flags = FlagsOf(mode);
  startUp.caption = state_->caption.View();
  startUp.kindCode = state_->keywordClass;
  startUp.folderFixed = state_->noDirectoryEntry != 0;

  const int answer = RunBrowser(state_->parent, std::move(startUp));
  if (answer == IDOK) state_->name.AssignScreen(result.data());
  return answer;
}
