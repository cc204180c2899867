// The utility's functions for lists of recent files and names.
#include <windows.h>

#include <memory>
#include <string>

#include "dlglib/dlglib.h"
#include "tests/robustness/interface_calls.h"
#include "tests/windows/toolbox/utility_host.h"

namespace robustness {
namespace {

constexpr char kKeyword[] = "#RECENT#";

std::string Joined(const CStringArray& texts, int count) {
  std::string joined = std::to_string(count);
  for (int i = 0; i < texts.GetSize(); ++i) joined += ',' + std::string(texts.GetAt(i).GetString());
  return joined;
}

/// An array, a count, and the utility.
struct Lists {
  Lists() {
    array.Add("an entry that was there before");
    array.Add("a further entry that was there");
  }

  utility_test::Host host;
  CStringArray array;
  int count = 7;
  std::unique_ptr<CvUtility> utility = Born([] { return std::make_unique<CvUtility>(); });
};

constexpr char kBefore[] = "7,an entry that was there before,a further entry that was there";

/// Changes the array, and shows it.
InterfaceCall Change(const char* name, void (*change)(Lists&)) {
  return {name, {kBefore}, [change] {
            Lists lists;
            Under([&] { change(lists); });
            return Joined(lists.array, lists.count);
          }};
}

/// A list in the registry, before and after it is written.
std::string Stored(bool names) {
  CvUtility utility;
  CStringArray array;
  int count = 0;
  if (names) {
    utility.GetUsedName(kKeyword, &array, &count, nullptr);
  } else {
    utility.GetUsedFile(kKeyword, 0, &array, &count, nullptr);
  }
  return Joined(array, count);
}

void Store(const char* entry, int count) {
  CvUtility utility;
  CStringArray array;
  array.Add(entry);
  utility.SetUsedFile(kKeyword, 0, &array, &count);
  utility.SetUsedName(kKeyword, &array, &count);
}

constexpr char kFormer[] = "a former entry of the list";
const std::string kFormerList = "5," + std::string(kFormer);

InterfaceCall Read(const char* name, void (*read)(Lists&)) {
  return {name, {kBefore}, [read] {
            Store(kFormer, 5);
            Lists lists;
            Under([&] { read(lists); });
            return Joined(lists.array, lists.count);
          }};
}

InterfaceCall Write(const char* name, bool names, void (*write)(Lists&)) {
  return {name, {kFormerList}, [names, write] {
            Store(kFormer, 5);
            Lists lists;
            Under([&] { write(lists); });
            return Stored(names);
          }};
}

}  // namespace

std::vector<InterfaceCall> UtilityListCalls() {
  return {
      Read("CvUtility::GetUsedFile(char const*, int, CStringArray*, int*, CComboBox*)",
           [](Lists& on) { on.utility->GetUsedFile(kKeyword, 0, &on.array, &on.count, &on.host.combo); }),
      Read("CvUtility::GetUsedName(char const*, CStringArray*, int*, CComboBox*)",
           [](Lists& on) { on.utility->GetUsedName(kKeyword, &on.array, &on.count, &on.host.combo); }),
      Write("CvUtility::SetUsedFile(char const*, int, CStringArray const*, int*)", false,
            [](Lists& on) { on.utility->SetUsedFile(kKeyword, 0, &on.array, &on.count); }),
      Write("CvUtility::SetUsedName(char const*, CStringArray const*, int*)", true,
            [](Lists& on) { on.utility->SetUsedName(kKeyword, &on.array, &on.count); }),
      // What was not read must not be written over.
      {"CvUtility::GetUsedFile(char const*, int, CStringArray*, int*, CComboBox*)",
       {kFormerList},
       [] {
         Store(kFormer, 5);
         Lists lists;
         lists.array.RemoveAll();
         Under([&] { lists.utility->GetUsedFile(kKeyword, 0, &lists.array, &lists.count, nullptr); });
         lists.utility->SetUsedFile(kKeyword, 0, &lists.array, &lists.count);
         return Stored(false);
       }},
      Change(
          "CvUtility::SetFilePath(CStringArray*, char const*, CComboBox*, int)",
          [](Lists& on) { on.utility->SetFilePath(&on.array, "A FURTHER ENTRY THAT WAS THERE", &on.host.combo, 10); }),
      Change("CvUtility::SetNameList(CStringArray*, char const*, CComboBox*, int)",
             [](Lists& on) { on.utility->SetNameList(&on.array, "an entry that is new", &on.host.combo, 10); }),
      Change(
          "CvUtility::DelFilePath(CStringArray*, char const*, CComboBox*, int)",
          [](Lists& on) { on.utility->DelFilePath(&on.array, "an entry that was there before", &on.host.combo, 10); }),
  };
}

}  // namespace robustness
