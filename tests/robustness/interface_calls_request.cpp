// The request's functions.
#include <windows.h>

#include <array>
#include <memory>
#include <optional>

#include "dlglib/dlglib.h"
#include "dlglib/resources/resource.h"
#include "tests/robustness/interface_calls.h"
#include "tests/robustness/robot.h"

namespace robustness {
namespace {

using Request = std::unique_ptr<CvFilSelDlg>;

const std::string kKeyword = "#MODEL#";
const std::string kCaption = "Which of all these drawings?";
constexpr char kKana[] = "ポンプ室配管詳細図";
constexpr char kKanaEuc[] = "\xA5\xDD\xA5\xF3\xA5\xD7\xBC\xBC\xC7\xDB\xB4\xC9\xBE\xDC\xBA\xD9\xBF\xDE";

Request Make(const std::string& initialName = "a") {
  return Born([&] { return std::make_unique<CvFilSelDlg>(&kCaption, nullptr, kKeyword, initialName, 0); });
}

/// Accepts the proposed name, which the browser shows.
int Accept(CvFilSelDlg& request) {
  const Robot robot({{IDC_FILE_LIST, [](HWND window) { Press(window, IDOK); }}});
  return request.DoModal();
}

/// A request that has been run, and so knows a name.
Request MakeRun() {
  static const Request model = [] {
    auto request = std::make_unique<CvFilSelDlg>(&kCaption, nullptr, kKeyword, "a", 0);
    static_cast<void>(Accept(*request));
    return request;
  }();
  return Born([] { return std::make_unique<CvFilSelDlg>(*model); });
}

std::string FirstNameOf(CvFilSelDlg& request) {
  std::array<char, 257> name = {};
  request.GetFirstName(name.data());
  return name.data();
}

std::string Tail(const std::string& path) { return path.substr(path.find_last_of("/\\") + 1); }

InterfaceCall Text(const char* name, std::vector<std::string> failure, std::string (*run)(CvFilSelDlg&)) {
  return {name, std::move(failure), [run] { return run(*MakeRun()); }};
}

/// Changes a text in place.
InterfaceCall InPlace(const char* name, const char* text, void (*change)(CvFilSelDlg&, char*)) {
  return {name, {text}, [text, change] {
            const Request request = Make();
            std::array<char, 300> room = {};
            std::string(text).copy(room.data(), room.size() - 1);
            Under([&] { change(*request, room.data()); });
            return std::string(room.data());
          }};
}

/// A constructor; then the request is used, which must do no harm whatever it got.
InterfaceCall Constructor(const char* name, Request (*make)(const CvFilSelDlg& model)) {
  return {name, {""}, [make] {
            const Request model = MakeRun();
            const Request made = Under([&] { return make(*model); });
            static_cast<void>(made->GetName() + made->GetFullName() + made->GetActName() + FirstNameOf(*made).c_str());
            std::array<char, 300> text = {"text"};
            made->ExceptDefaultName(text.data());
            made->RealPathName(text.data(), text.size());
            const CvFilSelDlg copy(*made);
            *made = copy;
            const int answer = Accept(*made);
            return answer == IDOK ? "made" : std::string(answer == IDCANCEL ? "" : "neither");
          }};
}

std::vector<InterfaceCall> ModalCalls() {
  return {
      {"CvFilSelDlg::DoModal()",
       {"2 "},
       [] {
         const Request request = Make();
         const Robot robot({{IDC_FILE_LIST, [](HWND window) { Press(window, IDOK); }}});
         const int answer = Under([&] { return request->DoModal(); });
         return std::to_string(answer) + ' ' + (answer == IDOK ? Tail(FirstNameOf(*request)) : "");
       },
       true},
      {"CvFilSelDlg::DoModal(int)",
       {"2"},
       [] {
         const Request request = Born([] {
           return std::make_unique<CvFilSelDlg>(nullptr, nullptr, kKeyword, "a", CallGround::Folder() + "\\list.txt");
         });
         const Robot robot({{IDC_FILE_LIST, [](HWND window) { Press(window, IDOK); }}});
         return std::to_string(Under([&] { return request->DoModal(1); }));
       },
       true},
  };
}

std::vector<InterfaceCall> NameCalls() {
  return {
      Text("CvFilSelDlg::GetFirstName(char*)", {""},
           [](CvFilSelDlg& request) {
             std::array<char, 257> name = {"before"};
             Under([&] { request.GetFirstName(name.data()); });
             return Tail(name.data());
           }),
      Text("CvFilSelDlg::GetNextName(char*)", {""},
           [](CvFilSelDlg& request) {
             std::array<char, 257> name = {"before"};
             Under([&] { request.GetNextName(name.data()); });
             return std::string(name.data());
           }),
      Text("CvFilSelDlg::GetName()", {""},
           [](CvFilSelDlg& request) {
             const CString name = Under([&] { return request.GetName(); });
             return std::string(name.GetString());
           }),
      Text("CvFilSelDlg::GetFullName()", {""},
           [](CvFilSelDlg& request) {
             const CString name = Under([&] { return request.GetFullName(); });
             return Tail(name.GetString());
           }),
      Text("CvFilSelDlg::GetActName()", {""},
           [](CvFilSelDlg& request) {
             const CString name = Under([&] { return request.GetActName(); });
             return Tail(name.GetString());
           }),
      InPlace("CvFilSelDlg::RealPathName(char*, unsigned long long)", kKanaEuc,
              [](CvFilSelDlg& request, char* text) { request.RealPathName(text, 300); }),
      InPlace("CvFilSelDlg::InternalPathName(char*, unsigned long long)", kKana,
              [](CvFilSelDlg& request, char* text) { request.InternalPathName(text, 300); }),
      InPlace("CvFilSelDlg::ExceptDefaultName(char*)", "/other/folder/of/the/plant/PUMP-01.MDL",
              [](CvFilSelDlg& request, char* text) { request.ExceptDefaultName(text); }),
      InPlace("CvFilSelDlg::ToUpper(char*)", "a text that is longer than most",
              [](CvFilSelDlg& request, char* text) { request.ToUpper(text); }),
  };
}

std::vector<InterfaceCall> CopyCalls() {
  return {
      Constructor(
          "CvFilSelDlg::CvFilSelDlg(std::string const*, CWnd*, std::string const&, std::string const&, int)",
          [](const CvFilSelDlg&) { return std::make_unique<CvFilSelDlg>(&kCaption, nullptr, kKeyword, kKanaEuc, 1); }),
      Constructor("CvFilSelDlg::CvFilSelDlg(std::string const*, CWnd*, std::string const&, std::string const&, "
                  "std::string const&)",
                  [](const CvFilSelDlg&) {
                    return std::make_unique<CvFilSelDlg>(&kCaption, nullptr, kKeyword, "a", std::string());
                  }),
      Constructor("CvFilSelDlg::CvFilSelDlg(CvFilSelDlg const&)",
                  [](const CvFilSelDlg& model) { return std::make_unique<CvFilSelDlg>(model); }),
      {"CvFilSelDlg::operator=(CvFilSelDlg const&)", {""}, [] {
         const Request from = MakeRun();
         const Request to = Born([] { return std::make_unique<CvFilSelDlg>(nullptr, nullptr, "#OTHER#", "x", 0); });
         Under([&] { *to = *from; });
         return std::string(to->GetName().GetString());
       }}};
}

}  // namespace

std::vector<InterfaceCall> RequestCalls() {
  std::vector<InterfaceCall> calls = ModalCalls();
  for (auto& more : {NameCalls(), CopyCalls()}) calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

}  // namespace robustness
