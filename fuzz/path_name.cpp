// Names of arbitrary bytes in the suite's form and in the platform's, for kinds of every sort.
#include "dlglib/utility/rules/path_name.h"

#include <algorithm>
#include <string>
#include <vector>

#include "dlglib/base/encoder.h"
#include "dlglib/base/keyword_class.h"
#include "dlglib/base/shift_jis.h"
#include "dlglib/filsel/request_names.h"
#include "fuzz/fuzz.h"
#include "platform/os/os.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/euc_jp.h"
#include "platform/suite/path_names.h"

namespace {

constexpr std::size_t kNone = std::string::npos;
const char* const kKeyword = "#KIND#";

bool IsSjis(std::string_view text) { return shift_jis::Truncate(text, text.size()) == text; }
bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char byte) { return byte >= 0; });
}

/// The bytes behind the last separator byte.
std::string FilePart(const std::string& path) {
  std::size_t start = 0;
  for (std::size_t at = 0; at < path.size(); ++at) {
    if (path[at] == '/' || path[at] == '\\') start = at + 1;
  }
  FUZZ_CHECK(path_name::FileNamePos(path) == start);
  return path.substr(start);
}

void CheckBothForms(const std::string& keyword, const std::string& path) {
  const std::string real = path_name::Real(EucView(keyword), path).bytes();
  const std::string internal = path_name::Internal(EucView(keyword), SjisView(path)).bytes();
  FUZZ_CHECK(real.size() <= path_name::kMaxLength && internal.size() <= path_name::kMaxLength);
  FUZZ_CHECK(real.find('/') == kNone && internal.find('\\') == kNone);
  FUZZ_CHECK(IsSjis(real));
  FUZZ_CHECK(euc_jp::Truncate(internal, internal.size()) == internal);

  // What the path may stand for: its likely reading, then the other one. Shift_JIS is one of the two.
  const std::vector<SjisText> paths = path_name::RealPaths(EucView(keyword), path);
  FUZZ_CHECK(paths.front().bytes() == real && paths.size() <= 2);
  const SjisText ofSjis = path_name::RealOfSjis(EucView(keyword), SjisView(path));
  FUZZ_CHECK(paths.front() == ofSjis || paths.back() == ofSjis);
  if (!euc_jp::IsValid(path)) FUZZ_CHECK(paths.size() == 1 && real == ofSjis.bytes());

  // The name that was typed stands at the end of both, where the whole path fits.
  const std::string typed = CwEucEncoder::Sjis2Euc(path, path_name::kMaxLength);
  const std::string name = FilePart(typed);
  if (internal.size() + name.size() < path_name::kMaxLength) FUZZ_CHECK(internal.ends_with(name));
  FUZZ_CHECK(real.starts_with(path_name::FolderOf(SjisView(real)).bytes()));

  // A path of ASCII letters that has been made full stays as it is, in whichever form it is given.
  if (!IsAscii(internal) || internal.empty() || internal.find(':') != 1) return;
  if (internal.size() + 1 > path_name::kMaxLength) return;
  FUZZ_CHECK(path_name::Real(EucView(keyword), internal).bytes() == real);
  FUZZ_CHECK(path_name::Internal(EucView(keyword), SjisView(real)).bytes() == internal);
}

void CheckRequestNames(const EucText& keyword, const std::string& bytes, std::size_t limit) {
  const EucText name(bytes);
  const std::string real = encoder::ToRealPath(name, limit).bytes();
  FUZZ_CHECK(real.size() <= limit && IsSjis(real) && real.find('/') == kNone);
  const std::string internal = encoder::ToInternalPath(SjisText(bytes), limit).bytes();
  FUZZ_CHECK(internal.size() <= limit && euc_jp::IsValid(internal) && internal.find('\\') == kNone);

  const EucText full = filsel::FullName(keyword, name, filsel::FullNameUse::Path);
  FUZZ_CHECK(full.size() <= filsel::kTextLimit);
  const filsel::StartPlace start = filsel::DeriveStart(keyword, name, *os::Services().files);
  FUZZ_CHECK(start.folder.size() <= filsel::kTextLimit && IsSjis(start.folder.bytes()));
  FUZZ_CHECK(start.folder.bytes().find('/') == kNone);
  const EucText shorter = filsel::WithoutDefaults(keyword, name, *os::Services().files);
  FUZZ_CHECK(shorter.size() <= name.size() && bytes.find(shorter.bytes()) != kNone);
  FUZZ_CHECK(keyword_class::ClassOf(keyword.bytes()) == 0);
}

void CheckSeparators(const std::string& path) {
  std::string platform = path;
  CwFile::ToPlatformPathSeparator(platform);
  std::string abstract = path;
  CwFile::ToAbstractPathSeparator(abstract);
  FUZZ_CHECK(platform.size() == path.size() && abstract.size() == path.size());
  for (std::size_t at = 0; at < path.size(); ++at) {
    FUZZ_CHECK(platform[at] == (path[at] == '/' ? '\\' : path[at]));
    FUZZ_CHECK(abstract[at] == path[at] || (path[at] == '\\' && abstract[at] == '/'));
  }
  // In place, in a block of its own size, up to the terminator.
  const std::string shown = path.substr(0, path.find('\0'));
  fuzz::Block block(std::string_view(shown.c_str(), shown.size() + 1));
  CwFile::ToAbstractPathSeparator(block.Data());
  std::string expected = shown;
  CwFile::ToAbstractPathSeparator(expected);
  FUZZ_CHECK(std::string_view(block.Data()) == expected);
  FUZZ_CHECK(path.ends_with(CwFile::GetFilename(path)));
  FUZZ_CHECK(suite::ToRealPath(path).find('/') == kNone);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  CwSession::Reset();
  const auto letterCase = static_cast<CwLetterCase>(input.Number(0, 2));
  const bool isKnown = input.Number(0, 7) != 0;
  const std::size_t limit = input.Size(300);
  const std::string folder = input.Flag() ? input.Text(255) : std::string("C:/plant");
  const std::string patterns = input.Flag() ? input.Text(20) : std::string("*.MDL");
  if (isKnown) {
    CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(
        CwFileType(kKeyword, folder, patterns, 0, letterCase));
  }
  const std::string path = input.Rest();
  if (euc_jp::IsValid(folder)) CheckBothForms(kKeyword, path);
  CheckRequestNames(EucText(kKeyword), path, limit);
  CheckSeparators(path);
  CwSession::Reset();
  return 0;
}
