// The utility's functions but those for lists.
#include <windows.h>

#include <array>
#include <memory>
#include <utility>

#include "dlglib/dlglib.h"
#include "dlglib/resources/resource.h"
#include "tests/robustness/interface_calls.h"
#include "tests/robustness/robot.h"
#include "tests/windows/toolbox/utility_host.h"

namespace robustness {
namespace {

using utility_test::Host;
using utility_test::kEdit;
using utility_test::kLabel;

constexpr char kKeyword[] = "#MODEL#";
constexpr char kKana[] = "ポンプ室配管詳細図";
constexpr char kKanaEuc[] = "\xA5\xDD\xA5\xF3\xA5\xD7\xBC\xBC\xC7\xDB\xB4\xC9\xBE\xDC\xBA\xD9\xBF\xDE";

/// A dialog with the utility that serves it.
struct Stage {
  Stage() {
    utility->SetParentWindow(&host);
    utility->SetKeyword(kKeyword);
  }

  Host host;
  std::unique_ptr<CvUtility> utility = Born([] { return std::make_unique<CvUtility>(); });
};

using Run = std::string (*)(Stage&);

InterfaceCall On(const char* name, std::vector<std::string> failure, Run run) {
  return {name, std::move(failure), [run] {
            Stage stage;
            return run(stage);
          }};
}

/// The same with a dialog or message box, which is answered.
InterfaceCall OnDialog(const char* name, std::vector<std::string> failure, Run run) {
  InterfaceCall call = On(name, std::move(failure), run);
  call.runsDialog = true;
  return call;
}

/// What has no answer and need not be seen.
InterfaceCall Done(const char* name, void (*act)(CvUtility&, Host&)) {
  return {name, {"done"}, [act] {
            Stage stage;
            Under([&] { act(*stage.utility, stage.host); });
            return std::string("done");
          }};
}

/// A result that is a number.
InterfaceCall Number(const char* name, int failure, int (*ask)(CvUtility&)) {
  return {name, {std::to_string(failure)}, [ask] {
            Stage stage;
            return std::to_string(Under([&] { return ask(*stage.utility); }));
          }};
}

/// The same of a text object. It is the caller's, and so is the memory for it.
InterfaceCall NumberOf(const char* name, const char* text, int (*ask)(CvUtility&, CString)) {
  return {name, {"0"}, [text, ask] {
            Stage stage;
            CString given(text);
            return std::to_string(Under([&] { return ask(*stage.utility, std::move(given)); }));
          }};
}

/// A text that is asked for.
InterfaceCall Text(const char* name, void (*ask)(CvUtility&, char*)) {
  return {name, {""}, [ask] {
            Stage stage;
            std::array<char, 600> out = {"before"};
            Under([&] { ask(*stage.utility, out.data()); });
            return std::string(out.data());
          }};
}

/// A text that is changed in place.
InterfaceCall InPlace(const char* name, const char* text, void (*change)(CvUtility&, char*)) {
  return {name, {text}, [text, change] {
            Stage stage;
            std::array<char, 600> room = {};
            std::string(text).copy(room.data(), room.size() - 1);
            Under([&] { change(*stage.utility, room.data()); });
            return std::string(room.data());
          }};
}

std::string ShownBy(Host& host, int id) {
  CString text;
  host.GetDlgItemText(id, text);
  return text.GetString();
}

std::vector<InterfaceCall> SettingCalls() {
  return {
      {"CvUtility::CvUtility()",
       {""},
       [] {
         const auto made = Under([] { return std::make_unique<CvUtility>(); });
         Host host;
         made->SetParentWindow(&host);
         return std::string(made->GetCaption());
       }},
      {"CvUtility::SetParentWindow(CWnd*)",
       {""},
       [] {
         Host host;
         const auto utility = Born([] { return std::make_unique<CvUtility>(); });
         Under([&] { utility->SetParentWindow(&host); });
         return std::string(utility->GetCaption());
       }},
      On("CvUtility::SetMessageWindow(CWnd*)", {""},
         [](Stage& stage) {
           CWnd* const label = stage.host.GetDlgItem(kLabel);
           Under([&] { stage.utility->SetMessageWindow(label); });
           stage.utility->MessageText(kKana);
           return ShownBy(stage.host, kLabel);
         }),
      On("CvUtility::SetCaption(char const*)", {""},
         [](Stage& stage) {
           Under([&] { stage.utility->SetCaption(kKana); });
           return std::string(stage.utility->GetCaption());
         }),
      On("CvUtility::GetCaption()", {""},
         [](Stage& stage) { return std::string(Under([&] { return stage.utility->GetCaption(); })); }),
      Done("CvUtility::SetComment(char const*)", [](CvUtility& utility, Host&) { utility.SetComment(kKana); }),
      On("CvUtility::SetKeyword(char const*)", {"a"},
         [](Stage& stage) {
           stage.utility->SetKeyword("");
           Under([&] { stage.utility->SetKeyword(kKeyword); });
           std::array<char, 513> path = {"a"};
           stage.utility->RealPathName(path.data());
           return std::string(path.data());
         }),
      Done("CvUtility::SetWildcard(char const*)", [](CvUtility& utility, Host&) { utility.SetWildcard("*.MDL"); }),
      Done("CvUtility::SetWildcard(CString)", [](CvUtility& utility, Host&) { utility.SetWildcard(CString("*.MDL")); }),
      Done("CvUtility::SetFileIO(int)", [](CvUtility& utility, Host&) { utility.SetFileIO(1); }),
      Done("CvUtility::SetNoDirectoryEntry(int)", [](CvUtility& utility, Host&) { utility.SetNoDirectoryEntry(1); }),
      Done("CvUtility::SetTextColor(unsigned long)", [](CvUtility& utility, Host&) { utility.SetTextColor(1); }),
      Done("CvUtility::SetFocus(int)", [](CvUtility& utility, Host&) { utility.SetFocus(kEdit); }),
  };
}

std::vector<InterfaceCall> WindowCalls() {
  return {
      Done("CvUtility::MessageText(char const*)", [](CvUtility& utility, Host&) { utility.MessageText(kKana); }),
      Done("CvUtility::ErrorText(char const*)", [](CvUtility& utility, Host&) { utility.ErrorText(kKana); }),
      Text("CvUtility::GetMessageText(int, char*)",
           [](CvUtility& utility, char* out) { utility.GetMessageText(1, out); }),
      On("CvUtility::ErrorNo(int)", {""},
         [](Stage& stage) {
           stage.utility->SetMessageWindow(stage.host.GetDlgItem(kLabel));
           Under([&] { stage.utility->ErrorNo(1); });
           return ShownBy(stage.host, kLabel);
         }),
      Done("CvUtility::SetMessageZone()", [](CvUtility& utility, Host&) { utility.SetMessageZone(); }),
      Done("CvUtility::ResizeWindow(int, int)", [](CvUtility& utility, Host&) { utility.ResizeWindow(1, 1); }),
      Done("CvUtility::MoveWindow(CWnd*, int, int)",
           [](CvUtility& utility, Host& host) { utility.MoveWindow(&host.combo, 1, 1); }),
      On("CvUtility::SetToolBar(int)", {"0"},
         [](Stage& stage) {
           Under([&] { stage.utility->SetToolBar(7); });
           return std::string(::FindWindowExA(stage.host.m_hWnd, nullptr, TOOLBARCLASSNAMEA, nullptr) != nullptr ? "1"
                                                                                                                 : "0");
         }),
      On("CvUtility::SetToolBar(int, CDWordArray const*)", {"0"},
         [](Stage& stage) {
           CDWordArray controls;
           controls.Add(kEdit);
           RECT before = {};
           stage.host.GetWindowRect(&before);
           Under([&] { stage.utility->SetToolBar(7, &controls); });
           RECT after = {};
           stage.host.GetWindowRect(&after);
           return std::to_string(after.bottom != before.bottom ? 1 : 0);
         }),
      Done("CvUtility::SetTlbFileName(char const*)", [](CvUtility& utility, Host&) { utility.SetTlbFileName("*"); }),
      OnDialog("CvUtility::FileDialog(int)", {"2 "},
               [](Stage& stage) {
                 const Robot robot({{IDC_FILE_LIST, [](HWND window) {
                                       SetText(window, IDC_FILE_NAME, "b");
                                       Notify(window, IDC_FILE_NAME, CBN_EDITCHANGE);
                                       Press(window, IDOK);
                                     }}});
                 const int answer = Under([&] { return stage.utility->FileDialog(0); });
                 return std::to_string(answer) + ' ' + stage.utility->GetFileName();
               }),
  };
}

std::vector<InterfaceCall> PathCalls() {
  return {
      InPlace("CvUtility::RealPathName(char const*, char*)", "name of a drawing",
              [](CvUtility& utility, char* path) { utility.RealPathName(kKeyword, path); }),
      InPlace("CvUtility::RealPathName(char*)", "name of a drawing",
              [](CvUtility& utility, char* path) { utility.RealPathName(path); }),
      InPlace("CvUtility::InternalPathName(char const*, char*)", "name of a drawing",
              [](CvUtility& utility, char* path) { utility.InternalPathName(kKeyword, path); }),
      InPlace("CvUtility::InternalPathName(char*)", "name of a drawing",
              [](CvUtility& utility, char* path) { utility.InternalPathName(path); }),
      Done("CvUtility::GetFileNamePos(char*)",
           [](CvUtility& utility, Host&) {
             std::array<char, 4> path = {"/a"};
             utility.GetFileNamePos(path.data());
           }),
      Done("CvUtility::GetFileNamePos(char const*)",
           [](CvUtility& utility, Host&) { utility.GetFileNamePos(static_cast<const char*>("/a")); }),
      Done("CvUtility::Strrchr(char*, int)",
           [](CvUtility& utility, Host&) {
             std::array<char, 4> path = {"/a"};
             utility.Strrchr(path.data(), '/');
           }),
      Done("CvUtility::Strrchr(char const*, int)",
           [](CvUtility& utility, Host&) { utility.Strrchr(static_cast<const char*>("/a"), '/'); }),
      Number("CvUtility::GetFilnameUL(char const*)", 0,
             [](CvUtility& utility) { return utility.GetFilnameUL("#CAPITAL LETTERS"); }),
      {"CvUtility::SetFloppy(char const*)",
       {"x"},
       [] {
         Stage stage;
         stage.utility->SetKeyword("");
         Under([&] { stage.utility->SetFloppy(kKeyword); });
         std::array<char, 513> path = {"x"};
         stage.utility->RealPathName(path.data());
         return std::string(path.data());
       }},
      Number("CvUtility::CheckFileName(char const*, int)", 0,
             [](CvUtility& utility) { return utility.CheckFileName(kKana, 1); }),
      Number("CvUtility::CheckFileName(char const*)", 0,
             [](CvUtility& utility) { return utility.CheckFileName(kKana); }),
      NumberOf("CvUtility::CheckFileName(CString)", kKana,
               [](CvUtility& utility, CString name) { return utility.CheckFileName(std::move(name)); }),
  };
}

std::vector<InterfaceCall> FileCalls() {
  return {
      NumberOf("CvUtility::CheckFile(CString)", kKana,
               [](CvUtility& utility, CString name) { return utility.CheckFile(std::move(name)); }),
      NumberOf("CvUtility::CheckFile(CString)", "",
               [](CvUtility& utility, CString name) {
                 const Robot robot({});
                 return utility.CheckFile(std::move(name));
               }),
      NumberOf("CvUtility::CheckInputFile(CString)", "a.mdl",
               [](CvUtility& utility, CString name) {
                 const Robot robot({});
                 return utility.CheckInputFile(std::move(name));
               }),
      NumberOf("CvUtility::CheckInputFile(CString)", "there is no such file",
               [](CvUtility& utility, CString name) {
                 const Robot robot({});
                 return utility.CheckInputFile(std::move(name));
               }),
      NumberOf("CvUtility::CheckOutputFile(CString)", "a.mdl",
               [](CvUtility& utility, CString name) {
                 const Robot robot({});
                 return utility.CheckOutputFile(std::move(name));
               }),
      NumberOf("CvUtility::CheckOutputFile(CString)", "there is no such file",
               [](CvUtility& utility, CString name) {
                 const Robot robot({});
                 return utility.CheckOutputFile(std::move(name));
               }),
      Number("CvUtility::Access(char const*)", -1,
             [](CvUtility& utility) { return utility.Access((CallGround::Folder() + "\\a.mdl").c_str()); }),
      Number("CvUtility::Access(char const*, char const*)", -1,
             [](CvUtility& utility) { return utility.Access(kKeyword, "a.mdl"); }),
      On("CvUtility::GetFileName()", {""},
         [](Stage& stage) {
           stage.utility->Access(kKeyword, "a");
           return std::string(Under([&] { return stage.utility->GetFileName(); }));
         }),
      On("CvUtility::GetFileName(int)", {""},
         [](Stage& stage) {
           stage.utility->Access(kKeyword, "a");
           return std::string(Under([&] { return stage.utility->GetFileName(1); }));
         }),
  };
}

std::vector<InterfaceCall> TextCalls() {
  return {
      Text("CvUtility::EucToSjis(char const*, char*, int)",
           [](CvUtility& utility, char* out) { utility.EucToSjis(kKanaEuc, out, 513); }),
      InPlace("CvUtility::EucToSjis(char const*, char*, int)", kKanaEuc,
              [](CvUtility& utility, char* text) { utility.EucToSjis(text, text, 513); }),
      Text("CvUtility::SjisToEuc(char const*, char*, int)",
           [](CvUtility& utility, char* out) { utility.SjisToEuc(kKana, out, 513); }),
      InPlace("CvUtility::SjisToEuc(char const*, char*, int)", kKana,
              [](CvUtility& utility, char* text) { utility.SjisToEuc(text, text, 513); }),
      {"CvUtility::ToEUC(CString, char*)",
       {""},
       [] {
         Stage stage;
         CString given(kKana);
         std::array<char, 513> out = {"before"};
         Under([&] { stage.utility->ToEUC(std::move(given), out.data()); });
         return std::string(out.data());
       }},
      Done("CvUtility::ToEUC(CString)", [](CvUtility& utility, Host&) { utility.ToEUC(CString(kKana)); }),
      InPlace("CvUtility::ToEUC(char*)", kKana, [](CvUtility& utility, char* text) { utility.ToEUC(text); }),
      InPlace("CvUtility::ToSJIS(char*)", kKanaEuc, [](CvUtility& utility, char* text) { utility.ToSJIS(text); }),
  };
}

std::vector<InterfaceCall> NumberCalls() {
  return {
      Number("CvUtility::CheckModelName(char const*)", 0,
             [](CvUtility& utility) { return utility.CheckModelName("PUMP-01"); }),
      NumberOf("CvUtility::CheckModelName(CString)", "PUMP-01",
               [](CvUtility& utility, CString name) { return utility.CheckModelName(std::move(name)); }),
      NumberOf("CvUtility::CheckNumber(CString, int, double, double)", "0000000000000000000012.5000000000000000",
               [](CvUtility& utility, CString text) { return utility.CheckNumber(std::move(text), 1, 0, 100); }),
      On("CvUtility::CheckScale(char const*, double*)", {"0 0.000000"},
         [](Stage& stage) {
           double scale = 5;
           const int good = Under([&] { return stage.utility->CheckScale("1/0000000000000000500", &scale); });
           return std::to_string(good) + ' ' + std::to_string(scale);
         }),
      Text("CvUtility::DisplayScale(double, char*)",
           [](CvUtility& utility, char* out) { utility.DisplayScale(123456.789012345, out); }),
      On("CvUtility::DtoA(double)", {""},
         [](Stage& stage) { return std::string(Under([&] { return stage.utility->DtoA(123456789012.125); })); }),
      Number("CvUtility::BitSet(int, int, short*)", -1,
             [](CvUtility& utility) {
               short words = 0;
               return utility.BitSet(2, 1, &words);
             }),
      Number("CvUtility::CheckChar(unsigned int, unsigned int)", 0,
             [](CvUtility& utility) { return utility.CheckChar(1, 'A'); }),
      InPlace("CvUtility::SpaceNull(char*)", "a  ", [](CvUtility& utility, char* text) { utility.SpaceNull(text); }),
      Done("CvUtility::ExceptSpace(CString*)",
           [](CvUtility& utility, Host&) {
             CString text("a  ");
             utility.ExceptSpace(&text);
           }),
  };
}

std::vector<InterfaceCall> ControlCalls() {
  return {On("CvUtility::KillFocus(CString*)", {"", "a text that is long   "},
             [](Stage& stage) {
               stage.host.SetDlgItemText(kEdit, "a text that is long   ");
               Under([&] { stage.utility->KillFocus(&stage.host.edited); });
               return std::string(stage.host.edited.GetString());
             }),
          On("CvUtility::SetEditBoxStyle(int, char const*)", {"0"},
             [](Stage& stage) {
               Under([&] { stage.utility->SetEditBoxStyle(kEdit, "#CAPITAL LETTERS"); });
               return std::to_string(stage.host.GetDlgItem(kEdit)->GetStyle() & ES_UPPERCASE);
             }),
          On("CvUtility::SetTextData(CWnd*, char const*)", {""},
             [](Stage& stage) {
               CWnd* const edit = stage.host.GetDlgItem(kEdit);
               Under([&] { stage.utility->SetTextData(edit, kKanaEuc); });
               return ShownBy(stage.host, kEdit);
             }),
          On("CvUtility::SetTextData(CString*, char const*)", {"before"},
             [](Stage& stage) {
               CString text("before");
               Under([&] { stage.utility->SetTextData(&text, kKanaEuc); });
               return std::string(text.GetString());
             }),
          On("CvUtility::GetTextData(CWnd*, char*, int)", {""},
             [](Stage& stage) {
               CWnd* const edit = stage.host.GetDlgItem(kEdit);
               edit->SetWindowText(kKana);
               std::array<char, 513> out = {"before"};
               Under([&] { stage.utility->GetTextData(edit, out.data(), 513); });
               return std::string(out.data());
             }),
          {"CvUtility::GetTextData(CString, char*, int)", {""}, [] {
             Stage stage;
             CString given(kKana);
             std::array<char, 513> out = {"before"};
             Under([&] { stage.utility->GetTextData(std::move(given), out.data(), 513); });
             return std::string(out.data());
           }}};
}

}  // namespace

std::vector<InterfaceCall> UtilityCalls() {
  std::vector<InterfaceCall> calls = SettingCalls();
  for (auto& more : {WindowCalls(), PathCalls(), FileCalls(), TextCalls(), NumberCalls(), ControlCalls()})
    calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

}  // namespace robustness
