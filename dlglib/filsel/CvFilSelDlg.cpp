#include "dlglib/filsel/CvFilSelDlg.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "dlglib/base/edge.h"
#include "dlglib/base/encoder.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filsel/CvRequestWindows.h"
#include "dlglib/filsel/file_request.h"
#include "dlglib/filsel/request_names.h"
#include "platform/suite/crvncontrol.h"

namespace {

constexpr std::size_t kNameBytes = filsel::kTextLimit + 1;

// The text in a caller's buffer, which may lack its terminator.
std::string TextIn(const char* text, std::size_t size) { return {text, std::find(text, text + size, '\0')}; }

void CopyOut(std::string_view text, char* out, std::size_t size) {
  *std::copy_n(text.data(), std::min(text.size(), size - 1), out) = '\0';
}

std::optional<EucView> CaptionIn(const std::string* caption) {
  return caption != nullptr ? std::optional(EucView(*caption)) : std::nullopt;
}

}  // namespace

struct CvFilSelDlg::State {
  State(const filsel::RequestTexts& texts, filsel::RequestMode mode, int openMode, CWnd* owner)
      : request(texts, mode, openMode, os::Services(), *CwSession::GetInstance()), parent(owner) {}

  filsel::FileRequest request;
  CWnd* parent;
};

CvFilSelDlg::CvFilSelDlg(const std::string* caption, CWnd* parent, const std::string& keyword,
                         const std::string& initialName, int openMode) noexcept
    : state_(edge::Made<State>([&] {
        const filsel::RequestTexts texts = {CaptionIn(caption), EucView(keyword), EucView(initialName), {}};
        return std::make_unique<State>(texts, filsel::RequestMode::OneFile, openMode, parent);
      })) {}

CvFilSelDlg::CvFilSelDlg(const std::string* caption, CWnd* parent, const std::string& keyword,
                         const std::string& initialName, const std::string& listFilePath) noexcept
    : state_(edge::Made<State>([&] {
        const filsel::RequestTexts texts = {CaptionIn(caption), EucView(keyword), EucView(initialName),
                                            EucView(listFilePath)};
        return std::make_unique<State>(texts, filsel::RequestMode::FileList, 0, parent);
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
    const int answer = state_->request.Run(option, windows, filsel::RasterMemory::OfProcess());
    return answer < 0 ? filsel::kCancelled : answer;
  });
}

int CvFilSelDlg::DoModal() noexcept { return DoModal(0); }

void CvFilSelDlg::GetFirstName(char* out) noexcept {
  const auto name = edge::Guarded(SjisView(), [&] { return state_->request.FirstName(); });
  shift_jis::CopyBounded(out, kNameBytes, name.bytes());
}

void CvFilSelDlg::GetNextName(char* out) noexcept {
  const auto name = edge::Guarded(SjisView(), [&] { return state_->request.NextName(); });
  shift_jis::CopyBounded(out, kNameBytes, name.bytes());
}

CString CvFilSelDlg::GetName() noexcept {
  return edge::Guarded(CString(), [&] { return CString(state_->request.Name().bytes()); });
}

CString CvFilSelDlg::GetFullName() noexcept {
  return edge::Guarded(CString(), [&] { return CString(state_->request.FullInternalName().bytes()); });
}

CString CvFilSelDlg::GetActName() noexcept {
  return edge::Guarded(CString(), [&] { return CString(state_->request.FullRealName().bytes()); });
}

void CvFilSelDlg::RealPathName(char* path, std::size_t size) noexcept {
  if (path == nullptr || size == 0) return;
  edge::Guarded([&] {
    const SjisText real = encoder::ToRealPath(EucText(TextIn(path, size)), size - 1);
    CopyOut(real.bytes(), path, size);
  });
}

void CvFilSelDlg::InternalPathName(char* path, std::size_t size) noexcept {
  if (path == nullptr || size == 0) return;
  edge::Guarded([&] {
    const EucText internal = encoder::ToInternalPath(SjisText(TextIn(path, size)), size - 1);
    CopyOut(internal.bytes(), path, size);
  });
}

void CvFilSelDlg::ExceptDefaultName(char* name) noexcept {
  if (name == nullptr) return;
  edge::Guarded([&] {
    const EucText shorter = filsel::WithoutDefaults(state_->request.keyword(), EucText(name), *os::Services().files);
    CopyOut(shorter.bytes(), name, std::strlen(name) + 1);
  });
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
