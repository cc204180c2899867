#include "dlglib/filsel/CvFilSelDlg.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "dlglib/base/edge.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filsel/CvRequestWindows.h"
#include "dlglib/filsel/file_request.h"
#include "dlglib/filsel/request_names.h"

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
                         const std::string& initialName, int openMode) noexcept
    : state_(edge::Made<State>([&] {
        const filsel::RequestTexts texts = {caption, keyword, initialName, {}};
        return std::unique_ptr<State>(new State{{texts, filsel::RequestMode::OneFile, openMode}, parent});
      })) {}

CvFilSelDlg::CvFilSelDlg(const std::string* caption, CWnd* parent, const std::string& keyword,
                         const std::string& initialName, const std::string& listFilePath) noexcept
    : state_(edge::Made<State>([&] {
        const filsel::RequestTexts texts = {caption, keyword, initialName, listFilePath};
        return std::unique_ptr<State>(new State{{texts, filsel::RequestMode::FileList, 0}, parent});
      })) {}

CvFilSelDlg::CvFilSelDlg(const CvFilSelDlg& other) noexcept
    : state_(edge::Made<State>([&] { return std::make_unique<State>(*other.state_); })) {}

// Copied whole before anything is given up.
CvFilSelDlg& CvFilSelDlg::operator=(const CvFilSelDlg& other) noexcept {
  auto copy = edge::Made<State>([&] { return std::make_unique<State>(*other.state_); });
  if (copy != nullptr || !other.state_) state_ = KeptState<State>(std::move(copy));
  return *this;
}

CvFilSelDlg::~CvFilSelDlg() = default;

int CvFilSelDlg::DoModal(int option) noexcept {
  return edge::Guarded(filsel::kCancelled, [&] {
    CvRequestWindows windows(state_->parent, state_->request.caption());
    return state_->request.Run(option, windows, filsel::RasterMemory::OfProcess());
  });
}

int CvFilSelDlg::DoModal() noexcept { return DoModal(0); }

void CvFilSelDlg::GetFirstName(char* out) noexcept {
  const auto name = edge::Guarded(std::string_view(), [&] { return state_->request.FirstName(); });
  shift_jis::CopyBounded(out, kNameBytes, name);
}

void CvFilSelDlg::GetNextName(char* out) noexcept {
  const auto name = edge::Guarded(std::string_view(), [&] { return state_->request.NextName(); });
  shift_jis::CopyBounded(out, kNameBytes, name);
}

CString CvFilSelDlg::GetName() noexcept {
  return edge::Guarded(CString(), [&] { return CString(state_->request.Name()); });
}

CString CvFilSelDlg::GetFullName() noexcept {
  return edge::Guarded(CString(), [&] { return CString(state_->request.FullInternalName()); });
}

CString CvFilSelDlg::GetActName() noexcept {
  return edge::Guarded(CString(), [&] { return CString(state_->request.FullRealName()); });
}

void CvFilSelDlg::RealPathName(char* path, std::size_t size) noexcept {
  if (path == nullptr || size == 0) return;
  edge::Guarded([&] { CopyOut(filsel::ToReal(TextIn(path, size), size - 1), path, size); });
}

void CvFilSelDlg::InternalPathName(char* path, std::size_t size) noexcept {
  if (path == nullptr || size == 0) return;
  edge::Guarded([&] { CopyOut(filsel::ToInternal(TextIn(path, size), size - 1), path, size); });
}

void CvFilSelDlg::ExceptDefaultName(char* name) noexcept {
  if (name == nullptr) return;
  edge::Guarded(
      [&] { CopyOut(filsel::WithoutDefaults(state_->request.keyword(), name), name, std::strlen(name) + 1); });
}

void CvFilSelDlg::ToUpper(char* text) noexcept {
  if (text == nullptr) return;
  edge::Guarded([&] {
    const std::string capitals = shift_jis::ToUpperBytes(text);
    CopyOut(capitals, text, capitals.size() + 1);
  });
}

char* CvFilSelDlg::Strrchr(char* text, int ch) {
  if (text == nullptr || ch < 0 || ch >= 0x80) return nullptr;
  const std::size_t at = shift_jis::FindLast(text, static_cast<char>(ch));
  return at == shift_jis::kNone ? nullptr : text + at;
}
