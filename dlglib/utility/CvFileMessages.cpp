#include "dlglib/utility/CvFileMessages.h"

#include "dlglib/utility/rules/file_name_check.h"
#include "dlglib/utility/rules/path_name.h"

using file_lookup::Place;

void CvFileMessages::TellInputMissing(const SjisText& path) const {
  BeepAndShow(file_name_check::InputMissingText(path), MB_ICONHAND);
}

bool CvFileMessages::MayWrite(const file_lookup::Output& output) const {
  if (output.place == Place::Free) return true;
  if (output.place == Place::Taken) {
    const SjisText question = file_name_check::OverwriteText(output.path);
    return BeepAndShow(question, MB_YESNO | MB_ICONEXCLAMATION) != IDNO;
  }
  BeepAndShow(file_name_check::FolderMissingText(path_name::FolderOf(output.path)), MB_ICONHAND);
  return false;
}

int CvFileMessages::BeepAndShow(const SjisText& text, unsigned int style) const {
  os::Services().session->Beep(os::kBeepExclamation);
  return owner_.MessageBox(text.bytes().c_str(), caption_, style);
}
