#include <dlglib/dlglib.h>

#include <string>

#include "check.h"
#include "model_folder.h"
#include "parts.h"
#include "tests/windows/driver/user.h"

namespace client {
namespace {

void PickInSubFolder(driver::User& user) {
  const driver::Window browser = user.WaitDialog("ファイルの選択");
  const driver::ListView list(browser.FindChildOfClass("SysListView32"));
  user.WaitUntil("the kind's folder is listed", [&] { return list.FindRow("A-001.MDL") >= 0; });
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

  CvFilSelDlg request(dlglib::kLibraryCaption, nullptr, "#MODEL#", "", dlglib::kOpenFile);
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
