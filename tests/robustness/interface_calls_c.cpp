// The functions of the C interface.
#include <windows.h>

#include <array>
#include <cstdint>
#include <string>

#include "dlglib/dlglib_c.h"
#include "dlglib/resources/resource.h"
#include "tests/robustness/interface_calls.h"
#include "tests/robustness/robot.h"

namespace robustness {
namespace {

constexpr char kKeyword[] = "#MODEL#";
constexpr char kKana[] = "ポンプ室配管詳細図";
constexpr char kKanaEuc[] = "\xA5\xDD\xA5\xF3\xA5\xD7\xBC\xBC\xC7\xDB\xB4\xC9\xBE\xDC\xBA\xD9\xBF\xDE";
constexpr char kUtf8[] = "\xE3\x83\x9D\xE3\x83\xB3\xE3\x83\x97\xE5\xAE\xA4\xE9\x85\x8D\xE7\xAE\xA1";
constexpr char kOutOfMemory[] = "-9 ";

using Room = std::array<char, 600>;

/// A result alone.
InterfaceCall Result(const char* name, DlglibResult (*ask)()) {
  return {name, {kOutOfMemory}, [ask] { return std::to_string(Under(ask)) + ' '; }};
}

/// The same with a message box, which is answered.
InterfaceCall Answered(const char* name, DlglibResult (*ask)()) {
  return {name, {kOutOfMemory}, [ask] {
            const Robot robot({});
            return std::to_string(Under(ask)) + ' ';
          }};
}

/// A result and a text. What does not fit or is not there leaves the empty text.
InterfaceCall Text(const char* name, DlglibResult (*ask)(char*, std::int32_t*)) {
  return {name, {kOutOfMemory}, [ask] {
            Room room = {"before"};
            std::int32_t needed = 77;
            const DlglibResult result = Under([&] { return ask(room.data(), &needed); });
            const bool empty = needed == 0 && room.front() == '\0';
            return std::to_string(result) + ' ' + (empty ? "" : std::to_string(needed) + room.data());
          }};
}

/// A request with all its settings, that may have been run.
class Made {
 public:
  Made() { static_cast<void>(DlglibFileRequestCreate(&handle_)); }
  ~Made() { static_cast<void>(DlglibFileRequestDestroy(handle_)); }
  Made(const Made&) = delete;
  Made& operator=(const Made&) = delete;
  [[nodiscard]] DlglibFileRequest Get() const { return handle_; }

 private:
  DlglibFileRequest handle_ = nullptr;
};

DlglibFileRequest Run() {
  static const Made made;
  static const bool ran = [] {
    static_cast<void>(DlglibFileRequestSetKindSjis(made.Get(), kKeyword));
    static_cast<void>(DlglibFileRequestSetInitialNameSjis(made.Get(), "a"));
    const Robot robot({{IDC_FILE_LIST, [](HWND window) { Press(window, IDOK); }}});
    return DlglibFileRequestRun(made.Get()) == DLGLIB_OK;
  }();
  static_cast<void>(ran);
  return made.Get();
}

InterfaceCall Setting(const char* name, DlglibResult (*set)(DlglibFileRequest)) {
  return {name, {kOutOfMemory}, [set] {
            const Made made;
            return std::to_string(Under([&] { return set(made.Get()); })) + ' ';
          }};
}

std::vector<InterfaceCall> RequestFunctions() {
  return {
      {"DlglibFileRequestCreate",
       {kOutOfMemory},
       [] {
         DlglibFileRequest handle = nullptr;
         const DlglibResult result = Under([&] { return DlglibFileRequestCreate(&handle); });
         const bool destroyed = DlglibFileRequestDestroy(handle) == DLGLIB_OK;
         return std::to_string(result) + ' ' + (destroyed ? "made" : "");
       }},
      {"DlglibFileRequestDestroy",
       {kOutOfMemory},
       [] {
         DlglibFileRequest handle = nullptr;
         static_cast<void>(DlglibFileRequestCreate(&handle));
         const DlglibResult result = Under([&] { return DlglibFileRequestDestroy(handle); });
         if (result != DLGLIB_OK) static_cast<void>(DlglibFileRequestDestroy(handle));
         return std::to_string(result) + ' ';
       }},
  };
}

std::vector<InterfaceCall> SettingFunctions() {
  return {
      Setting("DlglibFileRequestSetKindSjis",
              [](DlglibFileRequest request) { return DlglibFileRequestSetKindSjis(request, "#A KIND OF FILES#"); }),
      Setting("DlglibFileRequestSetKindUtf8",
              [](DlglibFileRequest request) { return DlglibFileRequestSetKindUtf8(request, kUtf8); }),
      Setting("DlglibFileRequestSetCaptionSjis",
              [](DlglibFileRequest request) { return DlglibFileRequestSetCaptionSjis(request, kKana); }),
      Setting("DlglibFileRequestSetCaptionUtf8",
              [](DlglibFileRequest request) { return DlglibFileRequestSetCaptionUtf8(request, kUtf8); }),
      Setting("DlglibFileRequestSetInitialNameSjis",
              [](DlglibFileRequest request) { return DlglibFileRequestSetInitialNameSjis(request, kKana); }),
      Setting("DlglibFileRequestSetInitialNameUtf8",
              [](DlglibFileRequest request) { return DlglibFileRequestSetInitialNameUtf8(request, kUtf8); }),
      Setting("DlglibFileRequestSetListFileSjis",
              [](DlglibFileRequest request) { return DlglibFileRequestSetListFileSjis(request, kKana); }),
      Setting("DlglibFileRequestSetListFileUtf8",
              [](DlglibFileRequest request) { return DlglibFileRequestSetListFileUtf8(request, kUtf8); }),
      Setting("DlglibFileRequestSetMode",
              [](DlglibFileRequest request) { return DlglibFileRequestSetMode(request, DLGLIB_SAVE_FILE); }),
      Setting("DlglibFileRequestSetSeveralFiles",
              [](DlglibFileRequest request) { return DlglibFileRequestSetSeveralFiles(request, 1); }),
      Setting("DlglibFileRequestSetFixedFolder",
              [](DlglibFileRequest request) { return DlglibFileRequestSetFixedFolder(request, 1); }),
      Setting("DlglibFileRequestSetOwner",
              [](DlglibFileRequest request) { return DlglibFileRequestSetOwner(request, nullptr); }),
  };
}

std::vector<InterfaceCall> ResultFunctions() {
  return {{"DlglibFileRequestRun",
           {"-13 0", "1 0", "-9 0"},
           [] {
             const Made made;
             static_cast<void>(DlglibFileRequestSetKindSjis(made.Get(), kKeyword));
             static_cast<void>(DlglibFileRequestSetInitialNameSjis(made.Get(), "a"));
             const Robot robot({{IDC_FILE_LIST, [](HWND window) { Press(window, IDOK); }}});
             const DlglibResult result = Under([&] { return DlglibFileRequestRun(made.Get()); });
             std::int32_t count = -1;
             static_cast<void>(DlglibFileRequestCount(made.Get(), &count));
             return std::to_string(result) + ' ' + std::to_string(count);
           },
           true},
          {"DlglibFileRequestCount",
           {kOutOfMemory},
           [] {
             const DlglibFileRequest request = Run();
             std::int32_t count = -1;
             const DlglibResult result = Under([&] { return DlglibFileRequestCount(request, &count); });
             return std::to_string(result) + ' ' + (count < 0 ? "" : std::to_string(count));
           }},
          {"DlglibFileRequestNameSjis",
           {kOutOfMemory},
           [] {
             const DlglibFileRequest request = Run();
             Room room = {};
             const DlglibResult result =
                 Under([&] { return DlglibFileRequestNameSjis(request, 0, 1, 600, room.data(), nullptr); });
             return std::to_string(result) + ' ' + room.data();
           }},
          {"DlglibFileRequestNameUtf8", {kOutOfMemory}, [] {
             const DlglibFileRequest request = Run();
             Room room = {};
             const DlglibResult result =
                 Under([&] { return DlglibFileRequestNameUtf8(request, 0, 1, 600, room.data(), nullptr); });
             return std::to_string(result) + ' ' + room.data();
           }}};
}

std::vector<InterfaceCall> TextFunctions() {
  return {
      Text("DlglibVersionText", [](char* out, auto* needed) { return DlglibVersionText(600, out, needed); }),
      Result("DlglibVersion", [] { return DlglibVersion(); }),
      Text("DlglibResultTextSjis", [](char* out, auto* needed) { return DlglibResultTextSjis(0, 600, out, needed); }),
      Text("DlglibResultTextUtf8", [](char* out, auto* needed) { return DlglibResultTextUtf8(0, 600, out, needed); }),
      Text("DlglibSjisToEuc", [](char* out, auto* needed) { return DlglibSjisToEuc(kKana, 600, out, needed); }),
      Text("DlglibEucToSjis", [](char* out, auto* needed) { return DlglibEucToSjis(kKanaEuc, 600, out, needed); }),
      Text("DlglibUtf8ToSjis", [](char* out, auto* needed) { return DlglibUtf8ToSjis(kUtf8, 600, out, needed); }),
      Text("DlglibSjisToUtf8", [](char* out, auto* needed) { return DlglibSjisToUtf8(kKana, 600, out, needed); }),
      Text("DlglibUtf8ToEuc", [](char* out, auto* needed) { return DlglibUtf8ToEuc(kUtf8, 600, out, needed); }),
      Text("DlglibEucToUtf8", [](char* out, auto* needed) { return DlglibEucToUtf8(kKanaEuc, 600, out, needed); }),
      Text("DlglibStoredToScreenSjis",
           [](char* out, auto* needed) { return DlglibStoredToScreenSjis(kKanaEuc, 600, out, needed); }),
      Text("DlglibStoredToScreenUtf8",
           [](char* out, auto* needed) { return DlglibStoredToScreenUtf8(kKanaEuc, 600, out, needed); }),
      Text("DlglibScreenToStoredSjis",
           [](char* out, auto* needed) { return DlglibScreenToStoredSjis(kKana, 600, out, needed); }),
      Text("DlglibScreenToStoredUtf8",
           [](char* out, auto* needed) { return DlglibScreenToStoredUtf8(kUtf8, 600, out, needed); }),
      Text("DlglibRealPathSjis",
           [](char* out, auto* needed) { return DlglibRealPathSjis(kKeyword, kKana, 600, out, needed); }),
      Text("DlglibRealPathUtf8",
           [](char* out, auto* needed) { return DlglibRealPathUtf8(kKeyword, kUtf8, 600, out, needed); }),
      Text("DlglibInternalPathSjis",
           [](char* out, auto* needed) { return DlglibInternalPathSjis(kKeyword, kKana, 600, out, needed); }),
      Text("DlglibInternalPathUtf8",
           [](char* out, auto* needed) { return DlglibInternalPathUtf8(kKeyword, kUtf8, 600, out, needed); }),
      Text("DlglibShortNameSjis",
           [](char* out, auto* needed) { return DlglibShortNameSjis(kKeyword, kKana, 600, out, needed); }),
      Text("DlglibShortNameUtf8",
           [](char* out, auto* needed) { return DlglibShortNameUtf8(kKeyword, kUtf8, 600, out, needed); }),
      Text("DlglibPathOfShortNameSjis",
           [](char* out, auto* needed) { return DlglibPathOfShortNameSjis(kKeyword, kKana, 600, out, needed); }),
      Text("DlglibPathOfShortNameUtf8",
           [](char* out, auto* needed) { return DlglibPathOfShortNameUtf8(kKeyword, kUtf8, 600, out, needed); }),
      Text(
          "DlglibAskInputPathSjis",
          [](char* out, auto* needed) { return DlglibAskInputPathSjis(nullptr, kKeyword, "a.mdl", 600, out, needed); }),
      Text(
          "DlglibAskInputPathUtf8",
          [](char* out, auto* needed) { return DlglibAskInputPathUtf8(nullptr, kKeyword, "a.mdl", 600, out, needed); }),
      Text("DlglibKindKeywordSjis", [](char* out, auto* needed) { return DlglibKindKeywordSjis(0, 600, out, needed); }),
      Text("DlglibKindKeywordUtf8", [](char* out, auto* needed) { return DlglibKindKeywordUtf8(0, 600, out, needed); }),
      Text("DlglibUnreadLineSjis",
           [](char* out, auto* needed) { return DlglibUnreadLineSjis(0, nullptr, 600, out, needed); }),
      Text("DlglibUnreadLineUtf8",
           [](char* out, auto* needed) { return DlglibUnreadLineUtf8(0, nullptr, 600, out, needed); }),
      Text("DlglibUnreadLineFileSjis",
           [](char* out, auto* needed) { return DlglibUnreadLineFileSjis(0, 600, out, needed); }),
      Text("DlglibUnreadLineFileUtf8",
           [](char* out, auto* needed) { return DlglibUnreadLineFileUtf8(0, 600, out, needed); }),
      Text("DlglibScaleText",
           [](char* out, auto* needed) { return DlglibScaleText(123456.789012345, 600, out, needed); }),
      Text("DlglibDecimalText",
           [](char* out, auto* needed) { return DlglibDecimalText(123456789012.125, 600, out, needed); }),
  };
}

std::vector<InterfaceCall> KindFunctions() {
  return {
      Result("DlglibDefineKindSjis",
             [] { return DlglibDefineKindSjis("#ONE MORE KIND OF FILES#", "C:/some/folder", "*.ONE"); }),
      Result("DlglibDefineKindUtf8",
             [] { return DlglibDefineKindUtf8("#ONE MORE KIND OF FILES#", "C:/some/folder", "*.ONE"); }),
      Result("DlglibDefineFullKindSjis",
             [] { return DlglibDefineFullKindSjis("#ONE MORE KIND OF FILES#", "C:/some/folder", "*.ONE", 1, kKana); }),
      Result("DlglibDefineFullKindUtf8",
             [] { return DlglibDefineFullKindUtf8("#ONE MORE KIND OF FILES#", "C:/some/folder", "*.ONE", 1, kUtf8); }),
      Result("DlglibRemoveKindSjis", [] { return DlglibRemoveKindSjis("#CAPITAL LETTERS"); }),
      Result("DlglibRemoveKindUtf8", [] { return DlglibRemoveKindUtf8("#CAPITAL LETTERS"); }),
      {"DlglibKindCount",
       {kOutOfMemory},
       [] {
         std::int32_t count = -1;
         const DlglibResult result = Under([&] { return DlglibKindCount(&count); });
         return std::to_string(result) + ' ' + (count < 0 ? "" : std::to_string(count));
       }},
      {"DlglibUnreadLineCount",
       {kOutOfMemory},
       [] {
         std::int32_t count = -1;
         const DlglibResult result = Under([&] { return DlglibUnreadLineCount(&count); });
         return std::to_string(result) + ' ' + (count < 0 ? "" : std::to_string(count));
       }},
      {"DlglibLoadSessionSjis",
       {kOutOfMemory, "-11 "},
       [] {
         const std::string path = CallGround::Folder() + "\\session.ini";
         return std::to_string(Under([&] { return DlglibLoadSessionSjis(path.c_str()); })) + ' ';
       }},
      {"DlglibLoadSessionUtf8",
       {kOutOfMemory, "-11 "},
       [] {
         const std::string path = CallGround::Folder() + "\\session.ini";
         return std::to_string(Under([&] { return DlglibLoadSessionUtf8(path.c_str()); })) + ' ';
       }},
      {"DlglibKindLetterCase", {kOutOfMemory}, [] {
         std::int32_t letterCase = 7;
         const DlglibResult result = Under([&] { return DlglibKindLetterCase("#CAPITAL LETTERS", &letterCase); });
         return std::to_string(result) + ' ' + (letterCase == 7 ? "" : std::to_string(letterCase));
       }}};
}

std::vector<InterfaceCall> CheckFunctions() {
  return {Result("DlglibCheckModelNameSjis", [] { return DlglibCheckModelNameSjis("the name of a model"); }),
          Result("DlglibCheckModelNameUtf8", [] { return DlglibCheckModelNameUtf8(kUtf8); }),
          Result("DlglibCheckFileNameSjis", [] { return DlglibCheckFileNameSjis(kKana, 0); }),
          Result("DlglibCheckFileNameUtf8", [] { return DlglibCheckFileNameUtf8(kUtf8, 0); }),
          Result("DlglibCheckExistsSjis", [] { return DlglibCheckExistsSjis(kKeyword, "a.mdl"); }),
          Result("DlglibCheckExistsUtf8", [] { return DlglibCheckExistsUtf8(kKeyword, "a.mdl"); }),
          Answered("DlglibAskFileNameSjis", [] { return DlglibAskFileNameSjis(nullptr, "a|b"); }),
          Answered("DlglibAskFileNameUtf8", [] { return DlglibAskFileNameUtf8(nullptr, kUtf8); }),
          Answered("DlglibAskInputFileSjis", [] { return DlglibAskInputFileSjis(nullptr, kKeyword, "a.mdl"); }),
          Answered("DlglibAskInputFileUtf8", [] { return DlglibAskInputFileUtf8(nullptr, kKeyword, "a.mdl"); }),
          Answered("DlglibAskOutputFileSjis", [] { return DlglibAskOutputFileSjis(nullptr, kKeyword, "a.mdl"); }),
          Answered("DlglibAskOutputFileUtf8", [] { return DlglibAskOutputFileUtf8(nullptr, kKeyword, "new.mdl"); }),
          Result("DlglibCheckChar", [] { return DlglibCheckChar(1, 'A'); }),
          Result("DlglibCheckTextSjis", [] { return DlglibCheckTextSjis(32, kKana); }),
          Result("DlglibCheckTextUtf8", [] { return DlglibCheckTextUtf8(32, kUtf8); }),
          Result("DlglibCheckNumber", [] { return DlglibCheckNumber("000000000000000000000012.5", 1, 0, 100); }),
          {"DlglibCheckScale", {"-9 0.000000"}, [] {
             double scale = 5;
             const DlglibResult result = Under([&] { return DlglibCheckScale("1/0000000000000000500", &scale); });
             return std::to_string(result) + ' ' + std::to_string(scale);
           }}};
}

}  // namespace

std::vector<InterfaceCall> CCalls() {
  std::vector<InterfaceCall> calls = RequestFunctions();
  for (auto& more : {SettingFunctions(), ResultFunctions(), TextFunctions(), KindFunctions(), CheckFunctions()})
    calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

}  // namespace robustness
