#include "dlglib/filsel/file_request.h"

#include <optional>
#include <utility>
#include <vector>

#include "dlglib/base/shift_jis.h"
#include "dlglib/filsel/list_file.h"
#include "dlglib/filsel/request_names.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/euc_jp.h"

namespace filsel {

namespace {

std::string Bounded(std::string_view euc) {
  return std::string(euc_jp::Truncate(euc.substr(0, euc.find('\0')), kTextLimit));
}

std::string CaptionOf(const std::string* caption) {
  if (caption == nullptr) return "ファイルの選択";
  const std::string text = CwEucEncoder::Euc2Sjis(*caption, kTextLimit);
  return text.substr(0, text.find('\0'));
}

std::uint32_t FlagsOf(int openMode) {
  using namespace filedialog;
  if (openMode == 0) return kFlagHideReadOnly | kFlagFileMustExist;
  if (openMode == 2) return kFlagHideReadOnly | kFlagPathMustExist | kFlagPlainOk;
  return kFlagHideReadOnly | kFlagPathMustExist;
}

ChosenFile FormsOf(const std::string& keyword, std::string_view path) {
  // Names that the suite does not resolve, as they are too long, stay as they are.
  const std::string internal = ToInternal(std::string(path), 2 * ResultBuffer::kCapacity);
  const auto full = [&](FullNameUse use) {
    const std::string name = FullName(keyword, internal, use);
    return name.empty() ? internal : name;
  };
  ChosenFile file;
  file.internal = full(FullNameUse::Path);
  file.real = ToReal(file.internal, ResultBuffer::kCapacity);
  file.shortName = WithoutDefaults(keyword, full(FullNameUse::ShortName));
  return file;
}

std::string_view CutName(std::string_view name) noexcept { return shift_jis::Truncate(name, kTextLimit); }

}  // namespace

FileRequest::FileRequest(const RequestTexts& texts, RequestMode mode, int openMode)
    : caption_(CaptionOf(texts.caption)),
      keyword_(Bounded(texts.keyword)),
      initialName_(Bounded(texts.initialName)),
      listFilePath_(Bounded(texts.listFilePath)),
      mode_(mode),
      openMode_(openMode) {}

int FileRequest::Run(int option, RequestWindows& windows, RasterMemory& memory) {
  const std::optional<std::string> formerRasterFolder = memory.Recall(keyword_);
  const filedialog::StartUp startUp = MakeStartUp(option);
  const std::shared_ptr<ResultBuffer> lent =
      result_;  // the browser's as long as it runs, whoever runs this request anew
  const int answer = windows.RunBrowser(startUp);
  if (answer != kAccepted) return answer;
  if (mode_ == RequestMode::FileList) return WriteList(windows);
  if (formerRasterFolder) memory.Remember(*formerRasterFolder, Result());
  return kAccepted;
}

filedialog::StartUp FileRequest::MakeStartUp(int option) {
  StartPlace place = DeriveStart(keyword_, initialName_);
  initialName_ = std::move(place.name);
  // A new buffer, so that copies of this request keep what was chosen before.
  result_ = std::make_shared<ResultBuffer>(ToReal(initialName_, ResultBuffer::kCapacity - 1));
  walk_.End();

  filedialog::StartUp startUp;
  startUp.fileBuffer = result_->Data();
  startUp.capacity = ResultBuffer::kCapacity;
  startUp.title = FilterTitle(keyword_);
  startUp.initialFolder = std::move(place.folder);
  startUp.flags = FlagsOf(openMode_);
  startUp.caption = caption_;
  startUp.kindCode = KindCode(keyword_);
  startUp.listStyle = mode_ == RequestMode::FileList ? filedialog::kListMultiple : filedialog::kListSingle;
  startUp.folderFixed = option != 0;
  return startUp;
}

int FileRequest::WriteList(RequestWindows& windows) {
  if (listFilePath_.empty()) return kAccepted;
  const std::string path = ToReal(listFilePath_, kTextLimit);
  std::vector<std::string> names;
  for (std::string_view name = FirstName(); !name.empty(); name = NextName()) {
    names.push_back(WithoutDefaults(keyword_, ToInternal(std::string(name), kTextLimit)));
  }
  if (WriteListFile(path, names)) return kAccepted;
  windows.ShowRefusal(CannotOpenText(path));
  return kCancelled;
}

std::string_view FileRequest::FirstName() noexcept {
  return CutName(walk_.First(Result(), mode_ == RequestMode::FileList ? ResultForm::List : ResultForm::OneName));
}

std::string_view FileRequest::NextName() noexcept { return CutName(walk_.Next(Result())); }

std::string FileRequest::Name() {
  const std::string name = ToInternal(std::string(FirstName()), kTextLimit);
  const std::string full = FullName(keyword_, name, FullNameUse::ShortName);
  return WithoutDefaults(keyword_, full.empty() ? name : full);
}

std::string FileRequest::FullInternalName() {
  if (!result_) return {};
  std::string name = ToInternal(std::string(FirstName()), kTextLimit);
  std::string full = FullName(keyword_, name, FullNameUse::Path);
  return full.empty() ? name : full;
}

std::string FileRequest::FullRealName() { return ToReal(FullInternalName(), kTextLimit); }

std::vector<ChosenFile> FileRequest::Chosen() const {
  std::vector<ChosenFile> files;
  if (mode_ == RequestMode::FileList) {
    for (const std::string_view path : WholePaths(Result())) files.push_back(FormsOf(keyword_, path));
  } else if (!Result().empty()) {
    files.push_back(FormsOf(keyword_, Result()));
  }
  return files;
}

std::string_view FileRequest::Result() const noexcept { return result_ ? result_->Text() : std::string_view(); }

}  // namespace filsel
