#include "tests/robustness/dialog_runs.h"

#include <commctrl.h>

#include <array>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

#include "dlglib/dlglib.h"
#include "dlglib/filedialog/dialogs/CvFileUser.h"
#include "dlglib/filedialog/dialogs/CvMdlConfirm.h"
#include "dlglib/filedialog/dialogs/CvMdlSort.h"
#include "dlglib/filedialog/dialogs/CvMdlTitle.h"
#include "dlglib/filedialog/dialogs/CvNewFolder.h"
#include "dlglib/resources/resource.h"
#include "dlglib/utility/toolbar/CvMetaChar.h"
#include "tests/windows/grid/grid_table.h"

namespace robustness {
namespace {

using Steps = std::vector<Robot::Step>;
using grid_test::Host;

// A control that only this dialog has.
constexpr int kBrowser = IDC_FILE_LIST;
constexpr int kNewFolder = IDC_FOLDER_ICON;
constexpr int kLogon = IDC_USER_PATH;
constexpr int kTitles = IDC_TITLE_LIST;
constexpr int kConditions = IDC_SORT_LIMIT;
constexpr int kQuestion = IDC_CONFIRM_QUESTION;
constexpr int kMetaChars = IDC_META_LIST;
constexpr int kHost = grid_test::kList;

HWND List(HWND browser) { return ::GetDlgItem(browser, IDC_FILE_LIST); }

Robot::Step Command(int dialog, int id) {
  return {dialog, [id](HWND window) { Press(window, id); }};
}

/// A name typed into the browser's name box, and OK.
Robot::Step Enter(const std::string& name) {
  return {kBrowser, [name](HWND window) {
            SetText(window, IDC_FILE_NAME, name);
            Notify(window, IDC_FILE_NAME, CBN_EDITCHANGE);
            Press(window, IDOK);
          }};
}

Robot::Step ChoosePlace(const std::string& text) {
  return {kBrowser, [text](HWND window) {
            const HWND bar = ::GetDlgItem(window, IDC_LOCATION);
            const auto count = ::SendMessageA(bar, CB_GETCOUNT, 0, 0);
            for (LRESULT row = 0; row < count; ++row) {
              std::array<char, 512> item = {};
              ::SendMessageA(bar, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(item.data()));
              if (text != item.data()) continue;
              ::SendMessageA(bar, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
              Notify(window, IDC_LOCATION, CBN_SELCHANGE);
              return;
            }
          }};
}

Robot::Step Click(const std::string& name) {
  return {kBrowser, [name](HWND window) { ClickRow(List(window), FindRow(List(window), name)); }};
}

/// False when one of them is not listed, as in a folder that could be read only in part.
bool SelectRows(HWND list, const std::vector<std::string>& names) {
  LVITEMA item{};
  item.stateMask = LVIS_SELECTED;
  item.state = LVIS_SELECTED;
  for (const std::string& name : names) {
    const int row = FindRow(list, name);
    if (row < 0) return false;
    ::SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  }
  return true;
}

Robot::Step SortByColumn(int column) {
  return {kBrowser, [column](HWND window) {
            NMLISTVIEW clicked{};
            clicked.hdr = {List(window), IDC_FILE_LIST, LVN_COLUMNCLICK};
            clicked.iItem = -1;
            clicked.iSubItem = column;
            ::SendMessageA(window, WM_NOTIFY, IDC_FILE_LIST, reinterpret_cast<LPARAM>(&clicked));
          }};
}

Robot::Step ListKey(WPARAM key) {
  return {kBrowser, [key](HWND window) {
            ::SetFocus(List(window));
            ::PostMessageA(List(window), WM_KEYDOWN, key, 0);
          }};
}

/// A name edited in the list itself.
Robot::Step EditLabel(const std::string& name, const std::string& text) {
  return {kBrowser, [name, text](HWND window) {
            ::SetFocus(List(window));
            const int row = FindRow(List(window), name);
            const auto edit =
                reinterpret_cast<HWND>(::SendMessageA(List(window), LVM_EDITLABELA, static_cast<WPARAM>(row), 0));
            if (edit == nullptr) return;
            ::SetWindowTextA(edit, text.c_str());
            ::SendMessageA(edit, WM_KEYDOWN, VK_RETURN, 0);
          }};
}

Robot::Step Nothing(int dialog) {
  return {dialog, [](HWND) {}};
}

void Add(Steps* steps, Steps more) {
  for (Robot::Step& step : more) steps->push_back(std::move(step));
}

Steps NameFolder(const std::string& name) {
  return {{kNewFolder, [name](HWND window) {
             SetText(window, IDC_FOLDER_NAME, name);
             Press(window, IDOK);
           }}};
}

/// Views, their columns, the titles and the conditions of sorting by them.
Steps LookAtViews() {
  return {Command(kBrowser, ID_VIEW_DETAILS),
          SortByColumn(1),
          SortByColumn(1),
          Command(kBrowser, ID_VIEW_LARGE_ICONS),
          Command(kBrowser, ID_VIEW_LIST),
          Command(kBrowser, IDC_VIEW),
          Command(kBrowser, ID_VIEW_TITLES),
          Command(kTitles, IDC_TITLE_SORT),
          Command(kConditions, IDOK),
          Command(kTitles, IDOK),
          SortByColumn(1),
          Command(kBrowser, ID_VIEW_DETAILS)};
}

Steps WalkAbout(const Place& place) {
  Steps steps = {Enter("Sub"),
                 ListKey(VK_BACK),
                 Command(kBrowser, IDC_BACK),
                 Command(kBrowser, IDC_UP),
                 ChoosePlace("デスクトップ"),
                 ChoosePlace("マイコンピュータ")};
  if (place.walksNetwork) {
    Add(&steps, {Enter("\\\\SRV"),
                 {kLogon,
                  [](HWND window) {
                    SetText(window, IDC_USER_NAME, "taro");
                    SetText(window, IDC_USER_PASSWORD, "pass");
                    Press(window, IDOK);
                  }},
                 Nothing(kBrowser)});
  }
  std::string folder = place.folder;
  for (char& letter : folder) letter = letter == '/' ? '\\' : letter;
  steps.push_back(Enter(folder));
  return steps;
}

Steps WorkOnEntries(const Place& place) {
  Steps steps = {Command(kBrowser, IDC_CREATE_FOLDER)};
  Add(&steps, NameFolder("made"));
  Add(&steps, {Nothing(kBrowser), Click("made"), Command(kBrowser, ID_ENTRY_RENAME)});
  Add(&steps, NameFolder("remade"));
  Add(&steps, {Nothing(kBrowser), EditLabel("remade", "named"), Nothing(kBrowser), Nothing(kBrowser)});
  if (place.deletes) Add(&steps, {Click("named"), Nothing(kBrowser), Command(kBrowser, ID_ENTRY_DELETE)});
  return steps;
}

Steps ChooseCount() {
  return {{kBrowser, [](HWND window) {
             const HWND box = ::GetDlgItem(window, IDC_RECENT_COUNT);
             ::SendMessageA(box, CB_SETCURSEL, 10, 0);
             Notify(window, IDC_RECENT_COUNT, CBN_SELCHANGE);
             Notify(window, IDC_RECENT_COUNT, CBN_CLOSEUP);
           }}};
}

CvFilSelDlg MakeRequest(const Place& place) { return {nullptr, nullptr, place.keyword, place.folder + "/x.mdl", 0}; }

/// 0 when a step was left out.
int Answer(CDialog& dialog, Steps steps) {
  const Robot robot(std::move(steps));
  const auto answer = static_cast<int>(dialog.DoModal());
  return robot.DidAll() ? answer : 0;
}

}  // namespace

bool RunRequest(const Place& place) {
  CvFilSelDlg request = MakeRequest(place);
  Steps steps;
  Add(&steps, LookAtViews());
  Add(&steps, WalkAbout(place));
  Add(&steps, WorkOnEntries(place));
  Add(&steps, ChooseCount());
  Add(&steps, {Click("a.mdl"), Nothing(kBrowser), Enter("b")});
  const Robot robot(std::move(steps));
  return request.DoModal() == IDOK && request.GetName() == "b" && robot.DidAll();
}

bool RunListRequest(const Place& place) {
  CvFilSelDlg request(nullptr, nullptr, place.keyword, place.folder + "/x.mdl", place.listFile);
  Steps steps = {{kBrowser,
                  [](HWND window) {
                    if (!SelectRows(List(window), {"a.mdl", "b.mdl"})) return Press(window, IDCANCEL);
                    NMITEMACTIVATE clicked{};
                    clicked.hdr = {List(window), IDC_FILE_LIST, NM_CLICK};
                    ::SendMessageA(window, WM_NOTIFY, IDC_FILE_LIST, reinterpret_cast<LPARAM>(&clicked));
                  }},
                 Command(kBrowser, IDOK)};
  const Robot robot(std::move(steps));
  return request.DoModal() == IDOK && robot.DidAll();
}

bool RunUtilityBrowser(const Place& place) {
  CvUtility utility;
  utility.SetKeyword(place.keyword.c_str());
  CStringArray files;
  int count = 0;
  utility.GetUsedFile(place.keyword.c_str(), 0, &files, &count, nullptr);
  const Robot robot({Nothing(kBrowser), Enter("b")});
  if (utility.FileDialog(0) != IDOK) return false;
  utility.SetFilePath(&files, utility.GetFileName(), nullptr, count);
  utility.SetUsedFile(place.keyword.c_str(), 0, &files, &count);
  CStringArray names;
  utility.GetUsedName(place.keyword.c_str(), &names, &count, nullptr);
  utility.SetNameList(&names, "NAME", nullptr, count);
  utility.SetUsedName(place.keyword.c_str(), &names, &count);
  return true;
}

bool RunNewFolder(const std::string& folder, const std::string& name) {
  CvNewFolder dialog(nullptr, folder);
  return Answer(dialog, NameFolder(name)) == IDOK;
}

bool RunRename(const std::string& folder, const std::string& from, const std::string& to) {
  CvNewFolder dialog(nullptr, folder);
  dialog.SetRename(from, false);
  return Answer(dialog, NameFolder(to)) == IDOK;
}

bool RunLogon() {
  CvFileUser dialog(nullptr, "\\\\SRV\\docs");
  return Answer(dialog, {{kLogon,
                          [](HWND window) {
                            SetText(window, IDC_USER_NAME, "taro");
                            Press(window, IDOK);
                          }}}) == IDOK &&
         dialog.UserName() == "taro";
}

bool RunSortConditions() {
  CvMdlSort dialog(nullptr, {});
  return Answer(dialog, {{kConditions,
                          [](HWND window) {
                            ::SetFocus(::GetDlgItem(window, IDC_SORT_LIMIT));
                            SetText(window, IDC_SORT_LIMIT, "20");
                            Press(window, IDOK);
                          }}}) == IDOK &&
         dialog.Rule().limit == 20;
}

bool RunSortQuestion() {
  filedialog::SlowSortRule rule{filedialog::SlowSort::AskBeyondLimit, 100};
  CvMdlConfirm dialog(nullptr, rule);
  return Answer(dialog, {Command(kQuestion, IDC_CONFIRM_SORT), Command(kConditions, IDOK), Command(kQuestion, IDOK)}) ==
         IDOK;
}

bool RunTitles() {
  filedialog::SlowSortRule rule{filedialog::SlowSort::AskBeyondLimit, 100};
  CvMdlTitle dialog(nullptr, rule);
  const auto clickRow = [](HWND window) { ClickRow(::GetDlgItem(window, IDC_TITLE_LIST), 0); };
  return Answer(dialog, {{kTitles, clickRow},
                         {kTitles, clickRow},
                         Nothing(kTitles),
                         Command(kTitles, IDC_TITLE_SORT),
                         Command(kConditions, IDCANCEL),
                         Command(kTitles, IDOK)}) == IDOK;
}

bool RunMetaChars() {
  CvMetaChar dialog;
  return Answer(dialog, {Nothing(kMetaChars), Command(kMetaChars, IDCANCEL)}) == IDCANCEL;
}

bool RunGrid(bool plainHost) {
  const auto host = Host::Make(plainHost ? grid_test::HostKind::Plain : grid_test::HostKind::Framework);
  std::string text;
  const auto type = [&](HWND) {
    const HWND edit = host->EditBox().Handle();
    ::SendMessageA(edit, EM_SETSEL, 0, -1);
    ::SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>("配管"));
  };
  const auto with = [&](void (*act)(CvListControl&)) {
    return Robot::Step{kHost, [&host, act](HWND) { act(*host->list); }};
  };
  const Robot robot({with([](CvListControl& list) { list.ClickItem(2, grid_test::kName); }),
                     {kHost, type},
                     with([](CvListControl& list) { list.ClickItem(3, grid_test::kMaterial); }),
                     with([](CvListControl& list) { list.OpenComboBox(); }),
                     with([](CvListControl& list) { list.SelchangeComboBox("SUS304"); }),
                     with([](CvListControl& list) { list.CloseComboBox(); }),
                     with([](CvListControl& list) {
                       list.SetSelectFlag(5, 1);
                       list.InsertItem();
                     }),
                     with([](CvListControl& list) {
                       list.SetKeys(CvListControl::kKeysAll);
                       list.SetImeMode(grid_test::kName, 1);
                       list.SetCellsText(6, grid_test::kName, "a\nb");
                       list.CopyCells(6, grid_test::kName, 2, 1);
                       list.PasteCells(8, grid_test::kName);
                       list.Undo();
                       list.Redo();
                     }),
                     with([](CvListControl& list) {
                       list.DeleteItem();
                       list.ErrorText("材質が違います");
                       list.SetItemCount(list.GetItemCount());
                       list.DrawItem();
                     }),
                     {kHost, [&](HWND window) {
                        std::array<char, 386> cell = {};
                        host->list->GetItemText(2, grid_test::kName, cell.data());
                        text = cell.data();
                        Press(window, IDOK);
                      }}});
  const int answer = host->Run([](Host& opened) {
    try {
      grid_test::FillTable(opened);
    } catch (const std::bad_alloc&) {
      Press(opened.Handle(), IDCANCEL);
    }
  });
  return answer == IDOK && text == "配管";
}

bool RunToolBarHost(bool plainHost) {
  const auto host = Host::Make(plainHost ? grid_test::HostKind::Plain : grid_test::HostKind::Framework);
  CvUtility utility;
  const Robot robot({{kHost, [&](HWND) { utility.MessageText("品名を入力"); }},
                     {kHost, [&](HWND) { utility.ErrorText("品名が違います"); }},
                     Command(kHost, IDOK)});
  return host->Run([&utility](Host& opened) {
    constexpr int kAllButtons = 7;
    try {
      utility.SetParentWindow(opened.Window());
      utility.SetMessageWindow(CWnd::FromHandle(opened.Child(grid_test::kZone)));
      utility.SetToolBar(kAllButtons);
      utility.SetMessageZone();
    } catch (const std::bad_alloc&) {
      Press(opened.Handle(), IDCANCEL);
    }
  }) == IDOK;
}

}  // namespace robustness
