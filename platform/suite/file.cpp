#include <algorithm>
#include <string_view>

#include "platform/os/sjis_bytes.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/euc_jp.h"
#include "platform/suite/path_names.h"

namespace suite {
namespace {

constexpr bool IsSeparator(char byte) { return byte == '/' || byte == '\\'; }

/// Bytes from one place in a path to the next one at which a separator may stand.
using Step = std::size_t (*)(std::string_view, std::size_t) noexcept;

/// In EUC-JP every byte is looked at: none of a longer character is a separator.
Step StepOf(std::string_view path) noexcept {
  if (euc_jp::IsValid(path)) return [](std::string_view, std::size_t) noexcept -> std::size_t { return 1; };
  return os::SjisLength;
}

bool IsFull(std::string_view name) noexcept {
  return !name.empty() && (IsSeparator(name[0]) || (name.size() > 1 && name[1] == ':'));
}

bool HasWildcard(std::string_view text) noexcept { return text.find_first_of("*?") != std::string_view::npos; }

/// The name with the kind's extension, where it lacks one and the kind's is fit for it.
std::string WithExtension(const std::string& name, const std::string& extension) {
  const std::string_view filePart = std::string_view(name).substr(FilePartOf(name));
  if (filePart.empty() || filePart.find('.') != std::string_view::npos) return name;
  return HasWildcard(extension) && !HasWildcard(filePart) ? name : name + extension;
}

/// The name with its file part written as the kind's names are; only ASCII letters have a case here.
std::string WithLetterCase(std::string name, const CwFileType& kind) {
  const auto fold = [&name](char first, char last, int shift) {
    for (std::size_t at = FilePartOf(name); at < name.size(); ++at) {
      if (name[at] >= first && name[at] <= last) name[at] = static_cast<char>(name[at] + shift);
    }
  };
  if (kind.IsUpperCase()) fold('a', 'z', 'A' - 'a');
  if (kind.IsLowerCase()) fold('A', 'Z', 'a' - 'A');
  return name;
}

std::string FolderOf(const CwFileType& kind) {
  const std::string& folder = kind.GetFolder();
  return folder.empty() || IsSeparator(folder.back()) ? folder : folder + '/';
}

void ReplaceBackslashes(char* path, std::size_t size) {
  const std::string_view text(path, size);
  const Step step = StepOf(text);
  for (std::size_t at = 0; at < size;) {
    const std::size_t length = step(text, at);
    if (length == 1 && path[at] == '\\') path[at] = '/';
    at += length;
  }
}

}  // namespace

std::size_t FilePartOf(std::string_view path) noexcept {
  const Step step = StepOf(path);
  std::size_t start = 0;
  for (std::size_t at = 0; at < path.size(); at += step(path, at)) {
    if (IsSeparator(path[at])) start = at + 1;
  }
  return start;
}

std::string ToRealPath(const std::string& internal) {
  std::string real = CwEucEncoder::Euc2Sjis(internal, internal.size());
  CwFile::ToPlatformPathSeparator(real);
  return real;
}

}  // namespace suite

std::string CwFile::ToFullPath(const std::string& keyword, const std::string& name, bool, bool addExtension) {
  const CwFileType* kind = CwSession::GetInstance()->GetActiveFileTypeSet()->GetFileType(keyword);
  const bool isFull = suite::IsFull(name);
  if (kind == nullptr) return isFull ? name : std::string();
  const std::string complete = addExtension ? suite::WithExtension(name, kind->GetExtension()) : name;
  return isFull ? complete : suite::FolderOf(*kind) + suite::WithLetterCase(complete, *kind);
}

std::string CwFile::GetFilename(const std::string& path) { return path.substr(suite::FilePartOf(path)); }

void CwFile::ToPlatformPathSeparator(char* path) {
  for (; path != nullptr && *path != '\0'; ++path) {
    if (*path == '/') *path = '\\';
  }
}

void CwFile::ToPlatformPathSeparator(std::string& path) { std::replace(path.begin(), path.end(), '/', '\\'); }

void CwFile::ToAbstractPathSeparator(char* path) {
  if (path != nullptr) suite::ReplaceBackslashes(path, std::string_view(path).size());
}

void CwFile::ToAbstractPathSeparator(std::string& path) { suite::ReplaceBackslashes(path.data(), path.size()); }
