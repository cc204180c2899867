#include <dlglib/dlglib.h>

#include <cstdio>
#include <string>

#include "check.h"
#include "parts.h"
#include "tests/windows/driver/user.h"

namespace client {
namespace {

/// A folder of models below the folder for temporary files, removed at the end.
class ModelFolder {
 public:
  ModelFolder() {
    char temporary[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, temporary);
    folder_ = std::string(temporary) + "dlglib_client_" + std::to_string(GetCurrentProcessId());
    CreateDirectoryA(folder_.c_str(), nullptr);
    CreateDirectoryA((folder_ + "\\ポンプ").c_str(), nullptr);
    for (const char* name : kFiles) Write(folder_ + "\\" + name);
  }
  ~ModelFolder() {
    for (const char* name : kFiles) DeleteFileA((folder_ + "\\" + name).c_str());
    RemoveDirectoryA((folder_ + "\\ポンプ").c_str());
    RemoveDirectoryA(folder_.c_str());
  }
  ModelFolder(const ModelFolder&) = delete;
  ModelFolder& operator=(const ModelFolder&) = delete;

  [[nodiscard]] const std::string& Path() const { return folder_; }
  /// The internal form, with "/" at its end.
  [[nodiscard]] std::string Internal() const {
    std::string path = CwEucEncoder::Sjis2Euc(folder_, MAX_PATH);
    CwFile::ToAbstractPathSeparator(path);
    return path + "/";
  }

 private:
  static constexpr const char* kFiles[] = {"A-001.MDL", "ポンプ\\ソケット表.MDL", "ポンプ\\PUMP-01.MDL"};

  static void Write(const std::string& path) {
    if (std::FILE* file = std::fopen(path.c_str(), "wb")) {
      std::fputs("CORVANE MODEL 1\nEND\n", file);
      std::fclose(file);
    }
  }

  std::string folder_;
};

void PickInSubFolder(driver::User& user) {
  const driver::Window browser = user.WaitDialog("ファイルの選択");
  const driver::ListView list(browser.FindChildOfClass("SysListView32"));
  Check(list.FindRow("A-001.MDL") >= 0, "the kind's folder is listed");
  user.DoubleClick(driver::Center(list.ItemRect(list.FindRow("ポンプ"))));
  user.WaitUntil("the sub-folder is listed", [&] { return list.FindRow("ソケット表.MDL") >= 0; });
  user.Click(driver::Center(list.ItemRect(list.FindRow("ソケット表.MDL"))));
  user.Click(browser.Child(IDOK));
}

}  // namespace

void UseRequest() {
  const ModelFolder folder;
  CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(
      CwFileType("#MODEL#", folder.Internal(), "*.MDL", 0, CwLetterCase::Upper));

  CvFilSelDlg request(nullptr, nullptr, "#MODEL#", "", 0);
  int answer = 0;
  driver::RunDialog([&] { answer = request.DoModal(); }, PickInSubFolder);
  Check(answer == IDOK, "the request ends with OK");
  const std::string internal = CwEucEncoder::Sjis2Euc("ポンプ/ソケット表", MAX_PATH);
  CheckText(std::string(request.GetName()), internal, "GetName");
  CheckText(std::string(request.GetFullName()), folder.Internal() + internal + ".MDL", "GetFullName");
  CheckText(std::string(request.GetActName()), folder.Path() + "\\ポンプ\\ソケット表.MDL", "GetActName");

  driver::RunDialog([&] { answer = request.DoModal(); },
                    [](driver::User& user) { user.Click(user.WaitDialog("ファイルの選択").Child(IDCANCEL)); });
  Check(answer == IDCANCEL, "the request ends with cancel");
}

}  // namespace client
