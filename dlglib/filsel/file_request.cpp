#include "dlglib/filsel/file_request.h"

#include <string>
#include <string_view>
#include <utility>

#include "dlglib/base/encoder.h"
#include "dlglib/base/keyword_class.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filsel/list_file.h"
#include "dlglib/filsel/request_names.h"
#include "platform/suite/euc_jp.h"

namespace filsel {

namespace {

EucText Bounded(EucView euc) {
  const std::string_view bytes = euc.bytes();
  return EucText(std::string(euc_jp::Truncate(bytes.substr(0, bytes.find('\0')), kTextLimit)));
}

SjisText CaptionOf(const std::optional<EucView>& caption) {
  if (!caption) return SjisText("ファイルの選択");
  const std::string text = encoder::ToSjis(EucText(*caption), kTextLimit).bytes();
  return SjisText(text.substr(0, text.find('\0')));
}

std::uint32_t FlagsOf(int openMode) {
  using namespace filedialog;
  if (openMode == 0) return kFlagHideReadOnly | kFlagFileMustExist;
  if (openMode == 2) return kFlagHideReadOnly | kFlagPathMustExist | kFlagPlainOk;
  return kFlagHideReadOnly | kFlagPathMustExist;
}

SjisView CutName(SjisView name) noexcept { return SjisView(shift_jis::Truncate(name.bytes(), kTextLimit)); }

}  // namespace

FileRequest::FileRequest(const RequestTexts& texts, RequestMode mode, int openMode, const os::ServiceTable& services,
                         CwSession& session)
    : services_(&services),
      session_(&session),
      caption_(CaptionOf(texts.caption)),
      keyword_(Bounded(texts.keyword)),
      initialName_(Bounded(texts.initialName)),
      listFilePath_(Bounded(texts.listFilePath)),
      mode_(mode),
      openMode_(openMode) {}

int FileRequest::Run(int option, RequestWindows& windows, RasterMemory& memory) {
  const std::optional<EucText> formerRasterFolder = memory.Recall(keyword_, *session_, *services_->registry);
  const filedialog::StartUp startUp = MakeStartUp(option);
  // The browser's as long as it runs, whoever runs this request anew.
  const std::shared_ptr<ResultBuffer> lent = result_;
  const int answer = windows.RunBrowser(startUp);
  if (answer != kAccepted) return answer;
  if (mode_ == RequestMode::FileList) return WriteList(windows);
  if (formerRasterFolder) memory.Remember(*formerRasterFolder, Result(), *session_, *services_->registry);
  return kAccepted;
}

filedialog::StartUp FileRequest::MakeStartUp(int option) {
  StartPlace place = DeriveStart(keyword_, initialName_, *services_->files);
  initialName_ = std::move(place.name);
  // A new buffer, so that copies of this request keep what was chosen before.
  result_ = std::make_shared<ResultBuffer>(encoder::ToRealPath(initialName_, ResultBuffer::kCapacity - 1));
  walk_.End();

  filedialog::StartUp startUp;
  startUp.fileBuffer = result_->Data();
  startUp.capacity = ResultBuffer::kCapacity;
  startUp.title = FilterTitle(keyword_).bytes();
  startUp.initialFolder = std::move(place.folder).bytes();
  startUp.flags = FlagsOf(openMode_);
  startUp.caption = caption_.bytes();
  startUp.kindCode = keyword_class::ClassOf(keyword_.bytes());
  startUp.listStyle = mode_ == RequestMode::FileList ? filedialog::kListMultiple : filedialog::kListSingle;
  startUp.folderFixed = option != 0;
  return startUp;
}

int FileRequest::WriteList(RequestWindows& windows) {
  if (listFilePath_.empty()) return kAccepted;
  const SjisText path = encoder::ToRealPath(listFilePath_, kTextLimit);
  std::vector<EucText> names;
  for (SjisView name = FirstName(); !name.empty(); name = NextName()) {
    names.push_back(WithoutDefaults(keyword_, encoder::ToInternalPath(SjisText(name), kTextLimit), *services_->files));
  }
  if (WriteListFile(*services_->files, path, names)) return kAccepted;
  windows.ShowRefusal(CannotOpenText(path));
  return kListNotWritten;
}

SjisView FileRequest::FirstName() noexcept {
  return CutName(walk_.First(Result(), mode_ == RequestMode::FileList ? ResultForm::List : ResultForm::OneName));
}

SjisView FileRequest::NextName() noexcept { return CutName(walk_.Next(Result())); }

EucText FileRequest::Name() {
  const EucText name = encoder::ToInternalPath(SjisText(FirstName()), kTextLimit);
  const EucText full = FullName(keyword_, name, FullNameUse::ShortName);
  return WithoutDefaults(keyword_, full.empty() ? name : full, *services_->files);
}

EucText FileRequest::FullInternalName() {
  if (!result_) return {};
  EucText name = encoder::ToInternalPath(SjisText(FirstName()), kTextLimit);
  EucText full = FullName(keyword_, name, FullNameUse::Path);
  return full.empty() ? name : full;
}

SjisText FileRequest::FullRealName() { return encoder::ToRealPath(FullInternalName(), kTextLimit); }

std::vector<ChosenFile> FileRequest::Chosen() const {
  std::vector<ChosenFile> files;
  if (mode_ == RequestMode::FileList) {
    for (const SjisView path : WholePaths(Result())) files.push_back(FormsOf(path));
  } else if (!Result().empty()) {
    files.push_back(FormsOf(Result()));
  }
  return files;
}

// Names that the suite does not resolve, as they are too long, stay as they are.
ChosenFile FileRequest::FormsOf(SjisView path) const {
  const EucText internal = encoder::ToInternalPath(SjisText(path), 2 * ResultBuffer::kCapacity);
  const auto full = [&](FullNameUse use) {
    const EucText name = FullName(keyword_, internal, use);
    return name.empty() ? internal : name;
  };
  ChosenFile file;
  file.internal = full(FullNameUse::Path);
  file.real = encoder::ToRealPath(file.internal, ResultBuffer::kCapacity);
  file.shortName = WithoutDefaults(keyword_, full(FullNameUse::ShortName), *services_->files);
  return file;
}

SjisView FileRequest::Result() const noexcept { return result_ ? result_->Text() : SjisView(); }

}  // namespace filsel
