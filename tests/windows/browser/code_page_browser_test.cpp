// The browser on real files, seen as the system sees it: in UTF-16. The same with every code page of the system; what
// the driver reads in Shift_JIS elsewhere is no proof of that.
#include <windows.h>

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "platform/os/sjis_wide.h"
#include "platform/suite/crvncontrol.h"
#include "tests/windows/browser/browser_view.h"
#include "tests/windows/support/real_folder.h"

namespace {

using browser_test::Browser;
using driver::MessageBoxView;
using driver::User;
using driver::Window;

constexpr const wchar_t* kLayoutKey = L"Software\\Nalbo\\Corvane\\FileDialog\\Reg #PAGES#";

std::wstring WideText(const Window& window) {
  std::array<wchar_t, 300> text = {};
  window.Send(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return text.data();
}

std::wstring WideCell(const driver::ListView& list, int row) {
  std::array<wchar_t, 300> text = {};
  LVITEMW item = {};
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  list.Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  return text.data();
}

std::wstring WideTitle(const driver::ListView& list, int column) {
  std::array<wchar_t, 300> text = {};
  HDITEMW item = {};
  item.mask = HDI_TEXT;
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  list.Header().Send(HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
  return text.data();
}

class CodePageTest : public real_folder::RealFolder {
 protected:
  CodePageTest() {
    CwSession::Reset();
    CwFileType kind("#PAGES#", "C:/", "*.MDL", 0);
    kind.SetDescription(std::string("\xBF\xDE\xCC\xCC"));  // 図面 in EUC-JP
    CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(kind);
    RegDeleteKeyW(HKEY_CURRENT_USER, kLayoutKey);
  }
  ~CodePageTest() override {
    RegDeleteKeyW(HKEY_CURRENT_USER, kLayoutKey);
    CwSession::Reset();
  }

  [[nodiscard]] std::wstring WidePath(std::wstring_view name) const {
    return os::WideOf(folder_) + L'\\' + std::wstring(name);
  }
  void TouchWide(std::wstring_view name) const {
    const HANDLE file = CreateFileW(WidePath(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
  }
  [[nodiscard]] bool ExistsWide(std::wstring_view name) const {
    return GetFileAttributesW(WidePath(name).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  /// Runs the browser; what it gives back lies in `result_` afterwards.
  void Run(const std::function<void(Browser&)>& script, std::uint32_t style = filedialog::kListSingle,
           std::size_t capacity = 1000) {
    std::vector<char> buffer(capacity);
    filedialog::StartUp startUp;
    startUp.fileBuffer = buffer.data();
    startUp.capacity = buffer.size();
    startUp.initialFolder = folder_;
    startUp.title = "#PAGES#(*.MDL)";
    startUp.caption = browser_test::kCaption;
    startUp.flags = filedialog::kFlagFileMustExist;
    startUp.listStyle = style;
    driver::RunDialog(
        [&] {
          CvFileDialog browser(nullptr, startUp);
          browser.DoModal();
        },
        [&](User& user) {
          Browser browser(user);
          script(browser);
          if (browser.IsOpen()) browser.Cancel();
        });
    result_ = buffer.data();
  }

  std::string result_;
};

TEST_F(CodePageTest, CaptionListHeaderAndKindLineAreShownAsTheyAreMeant) {
  TouchWide(L"\u8868\u30BD.mdl");  // 表ソ: second bytes are "\"
  Run([](const Browser& browser) {
    EXPECT_EQ(WideText(browser.Window()), L"\u56F3\u9762\u3092\u958B\u304F");
    EXPECT_EQ(WideText(browser.Window().Child(IDC_NAME_LABEL)), L"\u30D5\u30A1\u30A4\u30EB\u540D");
    EXPECT_EQ(WideText(browser.Window().Child(IDC_FILE_KIND)), L"#PAGES#(*.MDL) \u56F3\u9762");
    EXPECT_EQ(WideCell(browser.List(), 0), L"\u8868\u30BD.mdl");
    EXPECT_EQ(WideTitle(browser.List(), 0), L"\u540D\u524D");
  });
}

TEST_F(CodePageTest, ATypedNameFindsItsFileAndComesBackInShiftJis) {
  TouchWide(L"\u8868\u30BD\uFF71.mdl");
  Run([](Browser& browser) { browser.Enter("表ソｱ.mdl"); });
  EXPECT_EQ(result_, folder_ + "\\表ソｱ.mdl");
}

TEST_F(CodePageTest, NamesOnTheDiskAreThoseThatWereTyped) {
  TouchWide(L"a.mdl");
  Run([&](Browser& browser) {
    browser.Person().Click(driver::Center(browser.Window().Child(IDC_CREATE_FOLDER).ScreenRect()));
    const Window dialog = browser.Person().WaitDialog("新しいフォルダの作成");
    browser.Person().WaitUntil("the name has the focus", [&] { return dialog.Child(IDC_FOLDER_NAME).HasFocus(); });
    browser.Person().Type("能①");
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitGone(dialog);
    EXPECT_TRUE(ExistsWide(L"\u80FD\u2460"));

    browser.ClickRow("a.mdl");
    browser.List().Send(LVM_EDITLABELW, static_cast<WPARAM>(browser.List().FindRow("a.mdl")));
    browser.Person().WaitUntil("the name can be edited", [&] { return browser.List().LabelEdit().HasFocus(); });
    browser.Person().Type("髙﨑.mdl");
    browser.Person().Key(VK_RETURN);
    browser.Person().WaitUntil("the list shows the name", [&] { return browser.List().FindRow("髙﨑.mdl") >= 0; });
    EXPECT_TRUE(ExistsWide(L"\u9AD9\uFA11.mdl"));
  });
}

TEST_F(CodePageTest, AMessageIsShownAsItIsMeant) {
  Run([](Browser& browser) {
    browser.Enter("表.mdl");
    const MessageBoxView box = browser.Person().WaitMessageBox();
    EXPECT_EQ(WideText(box.window), L"\u56F3\u9762\u3092\u958B\u304F");
    const std::wstring text = WideText(box.window.Child(0xFFFF));
    EXPECT_NE(text.find(L"\\\u8868.mdl\n\u30D5\u30A1\u30A4\u30EB\u304C\u898B\u3064\u304B\u308A\u307E\u305B\u3093"),
              std::wstring::npos);
    browser.Person().Answer(box, IDOK);
  });
}

TEST_F(CodePageTest, ANameThatShiftJisCannotHoldIsMatchedByItsLongNameAndOpenedByItsShortOne) {
  for (const wchar_t* name : {L"\uD55C\uAE00.MDL", L"caf\u00E9.MDL", L"\U0001F600.MDL", L"\uD55C\uAE00.MDLX"}) {
    TouchWide(name);
  }
  Run([](Browser& browser) {
    const browser_test::Texts rows = browser.Rows();
    ASSERT_EQ(rows.size(), 3U);
    for (const std::string& row : rows) {
      EXPECT_TRUE(row.ends_with(".MDL")) << row;
      EXPECT_EQ(row.find('?'), std::string::npos) << row;
    }
    browser.OpenRow(rows[0]);
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_NE(GetFileAttributesW(os::WideOf(result_).c_str()), INVALID_FILE_ATTRIBUTES) << result_;
}

TEST_F(CodePageTest, AFolderThatShiftJisCannotHoldIsOpened) {
  ASSERT_TRUE(CreateDirectoryW(WidePath(L"\uD55C").c_str(), nullptr));
  TouchWide(L"\uD55C\\a.mdl");
  Run([](Browser& browser) {
    ASSERT_EQ(browser.List().Count(), 1);
    browser.OpenRow(browser.Rows()[0]);
    browser.Person().WaitUntil("the folder is listed", [&] { return browser.List().FindRow("a.mdl") >= 0; });
    browser.OpenRow("a.mdl");
    browser.Person().WaitGone(browser.Window());
  });
  EXPECT_NE(GetFileAttributesW(os::WideOf(result_).c_str()), INVALID_FILE_ATTRIBUTES) << result_;
}

TEST_F(CodePageTest, ACharacterThatShiftJisLacksNeverGetsIntoTheNameBox) {
  Run([](const Browser& browser) {
    browser.Person().Click(browser.NameEdit());
    browser.Person().Type(std::wstring_view(L"caf\u00E9\uD55C\u8868"));
    EXPECT_EQ(WideText(browser.NameBox()), L"caf\u8868");
    browser.Person().Paste(std::wstring(L"\u00E9"));
    EXPECT_EQ(WideText(browser.NameBox()), L"caf\u8868");
  });
}

TEST_F(CodePageTest, ACharacterThatShiftJisLacksNeverGetsIntoAnEditedName) {
  TouchWide(L"a.mdl");
  Run([](Browser& browser) {
    browser.ClickRow("a.mdl");
    browser.List().Send(LVM_EDITLABELW, 0);
    browser.Person().WaitUntil("the name can be edited", [&] { return browser.List().LabelEdit().HasFocus(); });
    browser.Person().Type(std::wstring_view(L"\u00E9\u8868"));
    EXPECT_EQ(WideText(browser.List().LabelEdit()), L"\u8868");
    browser.Person().Key(VK_ESCAPE);
  });
}

TEST_F(CodePageTest, ANameThatAProgramSetsIsAnInvalidOneAndNoPattern) {
  TouchWide(L"cafe.mdl");
  TouchWide(L"b.mdl");
  Run([](Browser& browser) {
    SetWindowTextW(browser.NameEdit().Handle(), L"caf\u00E9.mdl");
    browser.Person().Settle();
    browser.Ok();
    const MessageBoxView box = browser.Person().WaitMessageBox();
    EXPECT_NE(box.text.find("ファイルが見つかりません"), std::string::npos) << box.text;
    browser.Person().Answer(box, IDOK);
    EXPECT_EQ(browser.List().Count(), 2);
  });
  EXPECT_EQ(result_, "");
}

TEST_F(CodePageTest, TheLimitOfTheNameBoxIsOneOfBytes) {
  constexpr std::size_t kCapacity = 12;
  Run(
      [](const Browser& browser) {
        browser.Person().Click(browser.NameEdit());
        browser.Person().Type("表表表表表表x");
        EXPECT_EQ(browser.Name(), "表表表表表x") << "10 bytes and 1 of 11";
        browser.Person().Key('A', {VK_CONTROL});
        browser.Person().Key(VK_HOME);
        browser.Person().Key(VK_END, {VK_SHIFT});
        browser.Person().Paste("ソソソソソソ");
        EXPECT_EQ(browser.Name(), "ソソソソソ");
      },
      filedialog::kListSingle, kCapacity);
}

}  // namespace
