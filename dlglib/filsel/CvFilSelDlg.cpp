#include "dlglib/filsel/CvFilSelDlg.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "dlglib/filsel/CvRequestWindows.h"
#include "dlglib/filsel/file_request.h"
#include "dlglib/filsel/request_names.h"
#include "dlglib/utility/shift_jis.h"

namespace {

constexpr std::size_t kNameBytes = filsel::kTextLimit + 1;

// The text in a caller's buffer, which may lack its terminator.
std::string TextIn(const char* text, std::size_t size) { return {text, std::find(text, text + size, '\0')}; }

void CopyOut(std::string_view text, char* out, std::size_t size) {
  *std::copy_n(text.data(), std::min(text.size(), size - 1), out) = '\0';
}

}  // namespace

struct CvFilSelDlg::State {
  filsel::FileRequest request;
  CWnd* parent;
};

CvFilSelDlg::CvFilSelDlg(const std::string* caption, CWnd* parent, const std::string& keyword,
                         const std::string& initialName, int openMode)
    : state_(new State{{{caption, keyword, initialName, {}}, filsel::RequestMode::OneFile, openMode}, parent}) {}

CvFilSelDlg::CvFilSelDlg(const std::string* caption, CWnd* parent, const std::string& keyword,
                         const std::string& initialName, const std::string& listFilePath)
    : state_(new State{{{caption, keyword, initialName, listFilePath}, filsel::RequestMode::FileList, 0}, parent}) {}

CvFilSelDlg::CvFilSelDlg(const CvFilSelDlg& other) : state_(new State(*other.state_)) {}

CvFilSelDlg& CvFilSelDlg::operator=(const CvFilSelDlg& other) {
  *state_ = *other.state_;
  return *this;
}

CvFilSelDlg::~CvFilSelDlg() = default;

int CvFilSelDlg::DoModal(int option) {
  try {
    CvRequestWindows windows(state_->parent, state_->request.caption());
    return state_->request.Run(option, windows, filsel::RasterMemory::OfProcess());
  } catch (...) {  // a browser that cannot be made is one that was not confirmed
    return filsel::kCancelled;
  }
}

int CvFilSelDlg::DoModal() { return DoModal(0); }

void CvFilSelDlg::GetFirstName(char* out) {
  const std::string name = state_->request.FirstName();
  shift_jis::CopyBounded(out, kNameBytes, name);
}

void CvFilSelDlg::GetNextName(char* out) {
  const std::string name = state_->request.NextName();
  shift_jis::CopyBounded(out, kNameBytes, name);
}

CString CvFilSelDlg::GetName() { return state_->request.Name(); }

CString CvFilSelDlg::GetFullName() { return state_->request.FullInternalName(); }

CString CvFilSelDlg::GetActName() { return state_->request.FullRealName(); }

void CvFilSelDlg::RealPathName(char* path, std::size_t size) {
  if (path == nullptr || size == 0) return;
  CopyOut(filsel::ToReal(TextIn(path, size), size - 1), path, size);
}

void CvFilSelDlg::InternalPathName(char* path, std::size_t size) {
  if (path == nullptr || size == 0) return;
  CopyOut(filsel::ToInternal(TextIn(path, size), size - 1), path, size);
}

void CvFilSelDlg::ExceptDefaultName(char* name) {
  if (name == nullptr) return;
  const std::size_t length = std::strlen(name);
  CopyOut(filsel::WithoutDefaults(state_->request.keyword(), name), name, length + 1);
}

void CvFilSelDlg::ToUpper(char* text) {
  if (text == nullptr) return;
  const std::string capitals = shift_jis::ToUpperBytes(text);
  CopyOut(capitals, text, capitals.size() + 1);
}

char* CvFilSelDlg::Strrchr(char* text, int ch) {
  if (text == nullptr || ch < 0 || ch >= 0x80) return nullptr;
  const std::size_t at = shift_jis::FindLast(text, static_cast<char>(ch));
  return at == shift_jis::kNone ? nullptr : text + at;
}
