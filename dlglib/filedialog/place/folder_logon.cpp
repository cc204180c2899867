#include "dlglib/filedialog/place/folder_logon.h"

#include <string>

#include "dlglib/base/path_text.h"

namespace filedialog {

void LogOnBeforeListing(std::string_view folder, const os::NetResource* selected, NetworkLogon& logon) {
  const std::string path(WithoutSeparator(folder));
  if (selected == nullptr || !path.starts_with("\\\\") || os::Services().files->Exists(path)) return;
  LogOn(*selected, path, logon);
}

}  // namespace filedialog
