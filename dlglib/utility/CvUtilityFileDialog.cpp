// The file browser, run with what the utility knows of its dialog and file kind.
#include <array>
#include <string_view>

#include "dlglib/base/edge.h"
#include "dlglib/base/encoder.h"
#include "dlglib/filsel/CvRequestWindows.h"
#include "dlglib/filsel/request_names.h"
#include "dlglib/utility/CvUtilityState.h"

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

/// The kind and the pattern that the browser starts with; without a pattern of the utility's own it is the kind's.
SjisText TitleOf(const EucText& keyword, std::string_view pattern) {
  if (pattern.empty()) return filsel::FilterTitle(keyword);
  return SjisText(encoder::ToSjis(keyword).bytes().append("(").append(pattern).append(")"));
}

}  // namespace

int CvUtility::FileDialog(int mode) noexcept {
  return edge::Guarded(IDCANCEL, [&] { return AskForFile(mode); });
}

int CvUtility::AskForFile(int mode) {
  const EucText keyword(EucView(state_->keyword.View()));
  std::array<char, kBufferBytes> result{};

  filedialog::StartUp startUp;
  startUp.fileBuffer = result.data();
  startUp.capacity = result.size();
  startUp.longestPath = decltype(state_->name)::kCapacity - 1;
  startUp.initialFolder = filsel::DeriveStart(keyword, {}, *os::Services().files).folder.bytes();
  startUp.title = TitleOf(keyword, state_->wildcard.View()).bytes();
  startUp.description = state_->comment.View();
  startUp.flags = FlagsOf(mode);
  startUp.caption = state_->caption.View();
  startUp.kindCode = state_->keywordClass;
  startUp.folderFixed = state_->noDirectoryEntry != 0;

  if (filsel::RunBrowserOver(state_->parent, startUp) != filsel::kAccepted) return IDCANCEL;
  state_->name.AssignScreen(result.data());
  return IDOK;
}
