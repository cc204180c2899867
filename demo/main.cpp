// A small application of the suite.
//
//   corvane-demo [--home <folder>] [<window> [<argument>]]
//
// request (the default)  asks for one existing file of a kind, by default a model, and prints the three forms of its
//                        name.
// checks                 lets names, scales and numbers be typed and checked, beside lists of recent ones.
// toolbar                lets drawing texts be put together with the toolbar, stored in a file and read back.
// grid                   shows a table of parts that can be edited in place.
//
// The exit code is 0 after OK, 1 after cancel, 2 when the demo cannot run. `--home` names the folder with
// corvane.session and data; by default the current one.
#include <dlglib/dlglib.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include "demo/console.h"
#include "demo/demo_window.h"
#include "demo/input_checks.h"
#include "demo/parts_table.h"
#include "demo/session.h"
#include "demo/system_text.h"
#include "demo/text_editor.h"

namespace {

using demo::Arguments;

constexpr std::size_t kTextLimit = 512;

/// Asks for a file and prints what the request gives; internal names are EUC-JP.
int Request(const Arguments& arguments) {
  const std::string keyword = arguments.empty() ? "#MODEL#" : arguments.front();
  const std::string caption = CwEucEncoder::Sjis2Euc("ファイルを開く", kTextLimit);
  CvFilSelDlg request(&caption, nullptr, keyword, "", 0);
  if (request.DoModal() != IDOK) {
    demo::PrintLine("取り消しました");
    return demo::kCancelled;
  }
  const auto internal = [](const CString& euc) {
    return CwEucEncoder::Euc2Sjis(static_cast<const char*>(euc), kTextLimit);
  };
  demo::PrintLine("GetName      " + internal(request.GetName()));
  demo::PrintLine("GetFullName  " + internal(request.GetFullName()));
  demo::PrintLine("GetActName   " + std::string(static_cast<const char*>(request.GetActName())));
  return demo::kAccepted;
}

struct Window {
  const char* name;
  const char* usage;  ///< of its arguments
  std::size_t maxArguments;
  demo::RunWindow run;
};

constexpr Window kWindows[] = {
    {"request", "[<種別>]", 1, &Request},
    {"checks", "", 0, &demo::RunInputChecks},
    {"toolbar", "[<ファイル>]", 1, &demo::RunTextEditor},
    {"grid", "", 0, &demo::RunPartsTable},
};

struct Options {
  std::string home;
  const Window* window = &kWindows[0];
  Arguments arguments;  ///< of the window
};

const Window* FindWindowNamed(const std::string& name) {
  const Window* found = std::find_if(std::begin(kWindows), std::end(kWindows),
                                     [&name](const Window& window) { return window.name == name; });
  return found != std::end(kWindows) ? found : nullptr;
}

std::optional<Options> Parse(const Arguments& given) {
  Options options;
  auto at = given.begin();
  const bool namesHome = given.size() > 1 && given[0] == "--home";
  options.home = demo::FullPath(namesHome ? given[1] : ".");
  if (namesHome) at += 2;
  if (at != given.end()) options.window = FindWindowNamed(*at++);
  options.arguments.assign(at, given.end());
  if (options.window == nullptr || options.arguments.size() > options.window->maxArguments) return std::nullopt;
  return options;
}

void PrintUsage() {
  demo::PrintError("使い方: corvane-demo [--home <フォルダ>] [<画面> [<引数>]]");
  for (const Window& window : kWindows) demo::PrintError(std::string("  ") + window.name + " " + window.usage);
}

}  // namespace

int main() {
  const std::optional<Options> options = Parse(demo::CommandLineArguments());
  if (!options) {
    PrintUsage();
    return demo::kCannotRun;
  }
  if (!demo::LoadSession(options->home)) return demo::kCannotRun;
  return options->window->run(options->arguments);
}
