// Path names and typed file names.
#include "dlglib/base/edge.h"
#include "dlglib/base/encoder.h"
#include "dlglib/base/keyword_class.h"
#include "dlglib/base/suite_kinds.h"
#include "dlglib/utility/CvFileMessages.h"
#include "dlglib/utility/CvUtility.h"
#include "dlglib/utility/CvUtilityState.h"
#include "dlglib/utility/rules/file_lookup.h"
#include "dlglib/utility/rules/file_name_check.h"
#include "dlglib/utility/rules/path_name.h"
#include "platform/suite/crvncontrol.h"

namespace {

constexpr const char* kFloppyKeyword = "#FLOPPY_WIN#";

[[nodiscard]] bool Exists(const SjisText& realPath) { return os::Services().files->Exists(realPath.bytes()); }

[[nodiscard]] const CwFileType* KindOf(EucView keyword) {
  return suite_kinds::Find(*CwSession::GetInstance()->GetActiveFileTypeSet(), EucText(keyword));
}

void Beep() { os::Services().session->Beep(os::kBeepExclamation); }

}  // namespace

int CvUtility::RealPathName(const char* keyword, char* path) noexcept {
  edge::Guarded([&] {
    const SjisText real = path_name::Real(EucOf(keyword), ViewOf(path));
    shift_jis::CopyBounded(path, path_name::kMaxLength + 1, real.bytes());
  });
  return 0;
}

int CvUtility::RealPathName(char* path) noexcept {
  return edge::Guarded(0, [&] { return RealPathName(state_->keyword.Text(), path); });
}

int CvUtility::InternalPathName(const char* keyword, char* path) noexcept {
  edge::Guarded([&] {
    const EucText internal = path_name::Internal(EucOf(keyword), SjisOf(path));
    stored_text::CopyBounded(path, path_name::kMaxLength + 1, internal);
  });
  return 0;
}

int CvUtility::InternalPathName(char* path) noexcept {
  return edge::Guarded(0, [&] { return InternalPathName(state_->keyword.Text(), path); });
}

char* CvUtility::GetFileNamePos(char* path) noexcept {
  return path != nullptr ? path + path_name::FileNamePos(ViewOf(path)) : nullptr;
}

const char* CvUtility::GetFileNamePos(const char* path) noexcept {
  return path != nullptr ? path + path_name::FileNamePos(ViewOf(path)) : nullptr;
}

char* CvUtility::Strrchr(char* text, int letter) noexcept {
  const std::size_t found = path_name::LastByte(SjisOf(text), letter);
  return found != path_name::kNone ? text + found : nullptr;
}

const char* CvUtility::Strrchr(const char* text, int letter) noexcept {
  const std::size_t found = path_name::LastByte(SjisOf(text), letter);
  return found != path_name::kNone ? text + found : nullptr;
}

int CvUtility::GetFilnameUL(const char* keyword) noexcept {
  return edge::Guarded(
      0, [&] { return suite_kinds::LetterCaseOf(KindOf(EucView(keyword_class::Extract(ViewOf(keyword))))); });
}

void CvUtility::SetFloppy(const char* keyword) noexcept {
  edge::Guarded([&] {
    const CwFileType* floppy = KindOf(EucView("#FLOPPY#"));
    const CwFileType* model = KindOf(EucOf(keyword));
    const EucText root = keyword_class::FloppyRoot(floppy != nullptr ? suite_kinds::FolderOf(*floppy) : EucView());
    const EucText patterns(model != nullptr ? suite_kinds::PatternsOf(*model) : EucView());
    auto& served = state_->keyword;
    const CwFileType added(kFloppyKeyword, root.bytes(), patterns.bytes(), 0);
    CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(added);
    served.AssignStored(EucView(kFloppyKeyword));
  });
}

int CvUtility::CheckFileName(const char* name, int wildcards) noexcept {
  using file_name_check::Wildcards;
  const Wildcards mode = wildcards != 0 ? Wildcards::Allowed : Wildcards::Forbidden;
  return file_name_check::IsFileName(ViewOf(name), mode) ? 1 : 0;
}

int CvUtility::CheckFileName(const char* name) noexcept { return CheckFileName(name, 0); }

int CvUtility::CheckFileName(CString name) noexcept { return CheckFileName(name.GetString(), 0); }

int CvUtility::CheckFile(CString name) noexcept {
  return edge::Guarded(0, [&] {
    if (ViewOf(name).empty()) {
      Beep();
      ShowBox(file_name_check::kNoName, MB_ICONHAND);
      return 0;
    }
    if (CheckFileName(name.GetString(), 1) == 1) return 1;
    ShowBox(file_name_check::kInvalidCharacters, MB_ICONHAND);
    return 0;
  });
}

int CvUtility::CheckInputFile(CString name) noexcept {
  return edge::Guarded(0, [&] {
    const SjisText path(ResolveName(state_->keyword.Text(), name.GetString()));
    if (Exists(path)) return 1;
    CvFileMessages(state_->BoxOwner(*this), state_->caption.Text()).TellInputMissing(path);
    return 0;
  });
}

int CvUtility::CheckOutputFile(CString name) noexcept {
  return edge::Guarded(0, [&] {
    const auto paths = path_name::RealPaths(EucView(state_->keyword.View()), ViewOf(name));
    const file_lookup::Output output = file_lookup::ChooseOutput(paths, *os::Services().files);
    state_->name.AssignScreen(output.path);
    return CvFileMessages(state_->BoxOwner(*this), state_->caption.Text()).MayWrite(output) ? 1 : 0;
  });
}

int CvUtility::Access(const char* realPath) noexcept {
  return edge::Guarded(-1, [&] { return Exists(SjisText(SjisOf(realPath))) ? 0 : -1; });
}

int CvUtility::Access(const char* keyword, const char* name) noexcept {
  return edge::Guarded(-1, [&] { return Exists(SjisText(ResolveName(keyword, name))) ? 0 : -1; });
}

char* CvUtility::GetFileName() noexcept {
  return edge::Guarded(NoText(), [&] { return state_->name.Data(); });
}

// Cleared first, as what it held before is not the name.
char* CvUtility::GetFileName(int form) noexcept {
  if (form != 1) return GetFileName();
  const auto work = edge::Guarded(NoText(), [&] { return state_->work.Data(); });
  *work = '\0';
  edge::Guarded([&] {
    state_->work.AssignStored(encoder::ToEuc(SjisText(SjisView(state_->name.View())), path_name::kMaxLength));
  });
  return work;
}

std::string CvUtility::ResolveName(const char* keyword, const char* name) {
  const auto paths = path_name::RealPaths(EucOf(keyword), ViewOf(name));
  SjisText real = file_lookup::ChooseExisting(paths, *os::Services().files);
  state_->name.AssignScreen(real);
  return std::move(real).bytes();
}

int CvUtility::ShowBox(const std::string& text, unsigned int style) {
  return state_->BoxOwner(*this).MessageBox(text.c_str(), state_->caption.Text(), style);
}
