// Every dialog that the browser opens, walked through with the keyboard alone: the stops of the Tab key in their order
// and back, Enter, Esc.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "dlglib/filedialog/dialogs/CvFileUser.h"
#include "dlglib/filedialog/dialogs/CvMdlConfirm.h"
#include "dlglib/filedialog/dialogs/CvMdlSort.h"
#include "dlglib/filedialog/dialogs/CvMdlTitle.h"
#include "dlglib/filedialog/dialogs/CvNewFolder.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/toolbar/CvMetaChar.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvnmdl.h"
#include "tests/support/encodings.h"
#include "tests/windows/accessible/spoken_page.h"
#include "tests/windows/driver/accessible.h"
#include "tests/windows/driver/user.h"

namespace {

using driver::User;
using driver::Window;

filedialog::SlowSortRule rule;

/// With the titles that the demo begins with.
INT_PTR RunTitles() {
  constexpr int kComment = 201;
  const auto define = [](int number, const std::string& name) {
    GetActiveModel()->GetModelTitleSet()->SetTitle(number, 1, test_texts::Euc(name));
  };
  CwSession::Reset();
  CwSession::GetInstance()->OpenModel();
  define(1, "図面名称");
  define(kComment, "コメント");
  filedialog::TitleSlots slots;
  slots.slots = {};
  slots.slots[0].number = kComment;
  slots.count = 1;
  CvMdlTitle titles(nullptr, rule);
  titles.SetTitles(slots);
  const INT_PTR answer = titles.DoModal();
  CwSession::Reset();
  return answer;
}

INT_PTR RunRename() {
  CvNewFolder rename(nullptr, "C:\\data");
  rename.SetRename("old", false);
  return rename.DoModal();
}

/// A dialog and where its Tab key stops, from where it starts.
struct Walked {
  std::string name;
  std::string title;
  std::vector<int> stops;
  std::vector<int> below;  ///< where the arrow down leads from each of them: in its group
  std::function<INT_PTR()> run;
  INT_PTR enter = IDOK;  ///< what Enter gives on the first stop
};

std::vector<Walked> Dialogs() {
  return {{"Logon",
           "パスワード",
           {IDC_USER_NAME, IDC_USER_PASSWORD, IDOK, IDCANCEL},
           {IDC_USER_NAME, IDC_USER_PASSWORD, IDCANCEL, IDOK},
           [] { return CvFileUser(nullptr, "\\\\server\\share").DoModal(); }},
          {"Sort",
           "モデルタイトルでのソート条件設定",
           {IDC_SORT_ALWAYS, IDC_SORT_WITHIN_LIMIT, IDC_SORT_ASK, IDC_SORT_LIMIT, IDOK, IDCANCEL},
           {IDC_SORT_ALWAYS, IDC_SORT_WITHIN_LIMIT, IDC_SORT_ASK, IDC_SORT_LIMIT, IDCANCEL, IDOK},
           [] { return CvMdlSort(nullptr, rule).DoModal(); }},
          {"Question",
           "確認",
           {IDOK, IDCANCEL, IDC_CONFIRM_SORT},
           {IDCANCEL, IDC_CONFIRM_SORT, IDOK},
           [] { return CvMdlConfirm(nullptr, rule).DoModal(); }},
          {"Titles",
           "表示モデルタイトル項目の設定",
           {IDC_TITLE_LIST, IDC_TITLE_SORT, IDOK, IDCANCEL},
           {IDC_TITLE_LIST, IDOK, IDCANCEL, IDC_TITLE_SORT},
           RunTitles},
          {"NewFolder",
           "新しいフォルダの作成",
           {IDC_FOLDER_NAME, IDOK, IDCANCEL},
           {IDC_FOLDER_NAME, IDCANCEL, IDOK},
           [] { return CvNewFolder(nullptr, "C:\\data").DoModal(); }},
          {"Rename", "名前の変更", {IDC_FOLDER_NAME, IDOK, IDCANCEL}, {IDC_FOLDER_NAME, IDCANCEL, IDOK}, RunRename},
          {"MetaCharacters",
           "メタ文字",
           {IDC_META_LIST},
           {IDC_META_LIST},
           [] { return CvMetaChar(nullptr).DoModal(); },
           IDCANCEL}};
}

/// The parts of the dialog, as docs/accessibility.md shows them.
void ExpectTold(const std::string& block, const Window& dialog) {
  const std::string told = spoken::PartsOf(dialog);
  EXPECT_EQ(told, spoken::Block(block)) << "says:\n" << told << "----\n";
}

class DialogWalk : public testing::TestWithParam<Walked> {
 protected:
  DialogWalk() {
    os::scripted::World().Reset();
    os::scripted::World().files.AddFolder("C:\\data\\old");
    constexpr std::int32_t kLimit = 10;
    rule = {filedialog::SlowSort::AskBeyondLimit, kLimit};
  }

  static INT_PTR Run(const std::function<void(User&, Window)>& script) {
    INT_PTR answer = 0;
    driver::RunDialog([&] { answer = GetParam().run(); },
                      [&](User& user) {
                        const Window dialog = user.WaitDialog(GetParam().title);
                        user.Settle();
                        script(user, dialog);
                      });
    return answer;
  }

  static int FocusOf(const Window& dialog) {
    const std::vector<Window> parts = dialog.Children();
    const auto found = std::ranges::find_if(parts, [](const Window& part) { return part.HasFocus(); });
    return found != parts.end() ? ::GetDlgCtrlID(found->Handle()) : 0;
  }
  static void ExpectFocus(const Window& dialog, int id) {
    EXPECT_TRUE(dialog.Child(id).HasFocus()) << "control " << id;
  }
};

INSTANTIATE_TEST_SUITE_P(All, DialogWalk, testing::ValuesIn(Dialogs()),
                         [](const auto& walked) { return walked.param.name; });

TEST_P(DialogWalk, TheTabKeyStopsInOrderAndBack) {
  const std::vector<int>& stops = GetParam().stops;
  Run([&](User& user, Window dialog) {
    for (const int id : stops) {
      ExpectFocus(dialog, id);
      user.Key(VK_TAB);
    }
    ExpectFocus(dialog, stops.front());
    for (auto id = stops.rbegin(); id != stops.rend(); ++id) {
      user.Key(VK_TAB, {VK_SHIFT});
      ExpectFocus(dialog, *id);
    }
    user.Key(VK_ESCAPE);
  });
}

TEST_P(DialogWalk, ArrowsWalkInTheGroupOfAStopAndDoNothingElse) {
  const Walked& walked = GetParam();
  std::vector<int> below;
  const INT_PTR answer = Run([&](User& user, Window dialog) {
    for (const int id : walked.stops) {
      ExpectFocus(dialog, id);
      user.Key(VK_DOWN);
      below.push_back(FocusOf(dialog));
      for (const WORD key : std::vector<WORD>{VK_UP, VK_RIGHT, VK_LEFT}) user.Key(key);
      EXPECT_EQ(FocusOf(dialog), id) << "there and back";
      user.Key(VK_TAB);
    }
    EXPECT_TRUE(dialog.IsVisible());
    EXPECT_FALSE(user.Sees("#32768"));
    user.Key(VK_ESCAPE);
  });
  EXPECT_EQ(below, walked.below);
  EXPECT_EQ(answer, IDCANCEL);
}

TEST_P(DialogWalk, EscGivesItUpFromEveryStop) {
  for (std::size_t at = 0; at < GetParam().stops.size(); ++at) {
    const INT_PTR answer = Run([&](User& user, Window dialog) {
      for (std::size_t i = 0; i < at; ++i) user.Key(VK_TAB);
      ExpectFocus(dialog, GetParam().stops[at]);
      user.Key(VK_ESCAPE);
      user.WaitGone(dialog);
    });
    EXPECT_EQ(answer, IDCANCEL);
  }
}

TEST_P(DialogWalk, EnterIsItsDefaultButton) {
  const INT_PTR answer = Run([&](User& user, Window dialog) {
    if (dialog.FindChild(IDC_FOLDER_NAME)) user.Type("made");
    user.Key(VK_RETURN);
    if (GetParam().enter == IDCANCEL) {
      EXPECT_TRUE(dialog.IsVisible()) << "nothing is chosen yet";
      user.Key(VK_ESCAPE);
    }
    user.WaitGone(dialog);
  });
  EXPECT_EQ(answer, GetParam().enter);
}

TEST_P(DialogWalk, TellsWhatThePageShows) {
  Run([&](User& user, Window dialog) {
    ExpectTold(GetParam().name, dialog);
    user.Key(VK_ESCAPE);
  });
}

}  // namespace
