// A small application of the suite.
//
//   corvane-demo [--home <folder>] [request [<keyword>]]
//
// request (the default) asks for one existing file of a kind, by default a model, and prints the three forms of its
// name. The exit code is 0 after OK, 1 after cancel, 2 when the demo cannot run. `--home` names the folder with
// corvane.session and data; by default the current one.
#include <dlglib/dlglib.h>

#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "demo/console.h"
#include "demo/session.h"

namespace {

constexpr int kAccepted = 0;
constexpr int kCancelled = 1;
constexpr int kCannotRun = 2;
constexpr std::size_t kTextLimit = 512;

struct Options {
  std::string home;
  std::string keyword = "#MODEL#";
};

std::string FullPath(const std::string& path) {
  char full[MAX_PATH] = "";
  const DWORD length = GetFullPathNameA(path.c_str(), MAX_PATH, full, nullptr);
  return length > 0 && length < MAX_PATH ? full : path;
}

std::optional<Options> Parse(const std::vector<std::string>& arguments) {
  Options options;
  options.home = FullPath(".");
  std::size_t at = 0;
  if (at + 1 < arguments.size() && arguments[at] == "--home") {
    options.home = FullPath(arguments[at + 1]);
    at += 2;
  }
  if (at < arguments.size() && arguments[at++] != "request") return std::nullopt;
  if (at < arguments.size()) options.keyword = arguments[at++];
  if (at < arguments.size()) return std::nullopt;
  return options;
}

/// Asks for a file and prints what the request gives; internal names are EUC-JP.
int Request(const std::string& keyword) {
  const std::string caption = CwEucEncoder::Sjis2Euc("ファイルを開く", kTextLimit);
  CvFilSelDlg request(&caption, nullptr, keyword, "", 0);
  if (request.DoModal() != IDOK) {
    demo::PrintLine("取り消しました");
    return kCancelled;
  }
  const auto internal = [](const CString& euc) {
    return CwEucEncoder::Euc2Sjis(static_cast<const char*>(euc), kTextLimit);
  };
  demo::PrintLine("GetName      " + internal(request.GetName()));
  demo::PrintLine("GetFullName  " + internal(request.GetFullName()));
  demo::PrintLine("GetActName   " + std::string(static_cast<const char*>(request.GetActName())));
  return kAccepted;
}

}  // namespace

int main(int argc, char** argv) {
  const std::optional<Options> options = Parse(std::vector<std::string>(argv + 1, argv + argc));
  if (!options) {
    demo::PrintError("使い方: corvane-demo [--home <フォルダ>] [request [<種別>]]");
    return kCannotRun;
  }
  if (!demo::LoadSession(options->home)) return kCannotRun;
  return Request(options->keyword);
}
