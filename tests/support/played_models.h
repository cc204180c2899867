// A folder with three models that have titles and one that has none, and an open model that names the titles.
#pragma once

#include <map>
#include <string>

#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvnmdl.h"
#include "tests/support/encodings.h"

namespace played_models {

inline constexpr char kFolder[] = "C:\\models";

/// `titles`: by their numbers, Shift_JIS.
inline void Add(const std::string& name, const std::map<int, std::string>& titles) {
  std::string bytes = "CORVANE MODEL 1\n";
  for (const auto& [number, title] : titles) {
    bytes += std::to_string(number) + "=" + test_texts::Euc(title) + "\n";
  }
  os::scripted::World().files.AddFile(kFolder + ("\\" + name), bytes + "END\nbody");
}

inline void Begin() {
  CwSession::GetInstance()->OpenModel();
  for (const auto& [number, name] :
       std::map<int, std::string>{{1, "図面名称"}, {2, "図番"}, {3, "作成者"}, {4, "作成日"}, {201, "コメント"}}) {
    GetActiveModel()->GetModelTitleSet()->SetTitle(number, 1, test_texts::Euc(name));
  }
  os::scripted::World().files.AddFolder("C:\\models\\folder");
  Add("a.mdl", {{201, "三"}, {1, "平面図"}, {2, "X-1"}});
  Add("b.mdl", {{201, "一"}, {1, "表示ソ"}});
  Add("c.mdl", {{201, "二"}, {1, "平面図"}, {2, "X-0"}});
  os::scripted::World().files.AddFile("C:\\models\\d.mdl", "no model");
}

}  // namespace played_models
