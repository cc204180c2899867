// The titles of real files: of one that another program keeps to itself, of one that is larger than any memory.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "platform/os/sjis_wide.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/driver/user.h"
#include "tests/windows/support/temporary_folder.h"

namespace {

using driver::ListView;
using driver::User;
using driver::Window;
using Texts = std::vector<std::string>;

constexpr char kCaption[] = "図面を開く";
constexpr char kLayoutKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Reg #MODEL#";
constexpr char kHeader[] = "CORVANE MODEL 1\n201=";

struct Closer {
  void operator()(HANDLE file) const { ::CloseHandle(file); }
};
using OpenFile = std::unique_ptr<void, Closer>;

class TitleFiles : public testing::Test {
 protected:
  TitleFiles() {
    CwSession::Reset();
    ::RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(kLayoutKey).c_str());
    SetLayout("Form", 4);
    SetLayout("Confirm", 0);
  }
  ~TitleFiles() override {
    ::RegDeleteKeyW(HKEY_CURRENT_USER, os::WideOf(kLayoutKey).c_str());
    CwSession::Reset();
  }

  static void SetLayout(const char* name, DWORD number) {
    ::RegSetKeyValueA(HKEY_CURRENT_USER, kLayoutKey, name, REG_DWORD, &number, sizeof number);
  }

  /// The handle keeps everybody else out of the file.
  OpenFile Make(const std::string& name, const std::string& bytes) const { return OpenFile(folder_.Open(name, bytes)); }

  /// Adds nothing to the file but length.
  static void Stretch(const OpenFile& file, LONGLONG size) {
    LARGE_INTEGER end = {};
    end.QuadPart = size;
    ASSERT_TRUE(::SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN));
    ASSERT_TRUE(::SetEndOfFile(file.get()));
  }

  template <class Act>
  void Run(const Act& act) const {
    std::vector<char> buffer(1000, '\0');
    filedialog::StartUp startUp;
    startUp.fileBuffer = buffer.data();
    startUp.capacity = buffer.size();
    startUp.initialFolder = folder_.Path();
    startUp.title = "#MODEL#(*.MDL)";
    startUp.caption = kCaption;
    startUp.kindCode = 1;
    driver::RunDialog(
        [&] {
          CvFileDialog browser(nullptr, startUp);
          browser.DoModal();
        },
        [&](User& user) {
          const Window window = user.WaitDialog(kCaption);
          user.Settle();
          act(user, ListView(window.Child(IDC_FILE_LIST)));
          user.Key(VK_ESCAPE);
        });
  }

  const TemporaryFolder folder_{"title_files"};
};

TEST_F(TitleFiles, LockedHugeAndEmptyFilesAreHarmless) {
  constexpr LONGLONG kTwoGigabytes = LONGLONG{1} << 31;
  Make("a.mdl", std::string(kHeader) + "middle\nEND\n");
  Make("empty.mdl", "");
  Stretch(Make("huge.mdl", std::string(kHeader) + "first\nEND\n"), kTwoGigabytes + 1);
  Stretch(Make("huge_nothing.mdl", ""), kTwoGigabytes + 1);
  const OpenFile locked = Make("locked.mdl", std::string(kHeader) + "title\nEND\n");
  Run([](User& user, const ListView& list) {
    const auto titleOf = [&](const std::string& name) { return list.Cell(list.FindRow(name), 1); };
    user.WaitUntil("all are listed", [&] { return list.Count() == 5; });
    user.WaitUntil("a title is read", [&] { return titleOf("a.mdl") == "middle"; });
    user.WaitUntil("so is one of a huge file", [&] { return titleOf("huge.mdl") == "first"; });
    for (const char* const name : {"empty.mdl", "huge_nothing.mdl", "locked.mdl"}) EXPECT_EQ(titleOf(name), "") << name;
    user.Click(driver::Center(list.HeaderRect(1)));
    const Texts sorted = {"empty.mdl", "huge_nothing.mdl", "locked.mdl", "huge.mdl", "a.mdl"};
    user.WaitUntil("they are sorted by their titles", [&] { return list.Names() == sorted; });
  });
}

}  // namespace
