#include "dlglib/utility/rules/file_name_check.h"

#include <string>

#include "dlglib/base/shift_jis.h"

namespace file_name_check {
namespace {

[[nodiscard]] SjisText Join(std::string_view head, SjisView path, std::string_view tail) {
  return SjisText(std::string(head).append(path.bytes()).append(tail));
}

}  // namespace

bool IsFileName(std::string_view name, Wildcards wildcards) noexcept {
  const std::string_view forbidden = wildcards == Wildcards::Allowed ? "'|\"<>" : "'|\"<>*?";
  for (std::size_t at = 0; at < name.size(); at += shift_jis::CharLength(name, at)) {
    if (forbidden.find(name[at]) != std::string_view::npos) return false;
  }
  return true;
}

bool IsModelName(std::string_view name) noexcept { return name.find_first_of("*?'\"\\/|<>") == std::string_view::npos; }

SjisText InputMissingText(SjisView realPath) { return Join("File : ", realPath, "\n\n入力ファイルが見つかりません"); }

SjisText OverwriteText(SjisView realPath) {
  return Join("File : ", realPath, "\n\n出力ファイルが既に存在します\n上書きしますか？");
}

SjisText FolderMissingText(SjisView folder) { return Join("Folder : ", folder, "\n\nフォルダが見つかりません"); }

}  // namespace file_name_check
