// The window of the input checks, used as a person does: the demo is started, clicked and typed into, and what it keeps
// is looked up in the registry.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "demo/input_checks_resource.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"

namespace {

using driver::MessageBoxView;
using driver::User;
using driver::Window;

using Texts = std::vector<std::string>;

constexpr char kTitle[] = "入力の確認";
constexpr char kFilesKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\Use #TEXT#";
constexpr char kNamesKey[] = "Software\\Nalbo\\Corvane\\XRF\\Use #MODEL#";

// Of the dialogs' font, ＭＳ ゴシック of 9 points.
constexpr int kFontHeight = 12;
constexpr int kZoneHeight = 18;

void DeleteHistories() {
  ::RegDeleteKeyA(HKEY_CURRENT_USER, kFilesKey);
  ::RegDeleteKeyA(HKEY_CURRENT_USER, kNamesKey);
}

/// A text that the registry keeps; empty when there is none.
[[nodiscard]] std::string Stored(const char* key, const char* name) {
  std::array<char, 512> text = {};
  DWORD size = text.size() - 1;
  const LSTATUS status = ::RegGetValueA(HKEY_CURRENT_USER, key, name, RRF_RT_REG_SZ, nullptr, text.data(), &size);
  return status == ERROR_SUCCESS ? text.data() : "";
}

[[nodiscard]] DWORD StoredCount(const char* key, const char* name) {
  DWORD count = 0;
  DWORD size = sizeof count;
  ::RegGetValueA(HKEY_CURRENT_USER, key, name, RRF_RT_REG_DWORD, nullptr, &count, &size);
  return count;
}

/// The pixels of a line of text in the dialogs' font, black on `background`.
[[nodiscard]] driver::Picture Written(const std::string& text, int width, int height, COLORREF background) {
  const HDC dc = ::CreateCompatibleDC(nullptr);
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HBITMAP bitmap = ::CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HFONT font =
      ::CreateFontA(-kFontHeight, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, SHIFTJIS_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, "ＭＳ ゴシック");
  const HGDIOBJ formerBitmap = ::SelectObject(dc, bitmap);
  const HGDIOBJ formerFont = ::SelectObject(dc, font);
  const RECT all = {0, 0, width, height};
  ::SetBkColor(dc, background);
  ::ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &all, text.data(), static_cast<UINT>(text.size()), nullptr);
  driver::Picture picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) picture.Set(x, y, ::GetPixel(dc, x, y));
  }
  ::SelectObject(dc, formerFont);
  ::SelectObject(dc, formerBitmap);
  ::DeleteObject(font);
  ::DeleteObject(bitmap);
  ::DeleteDC(dc);
  return picture;
}

class InputChecksTest : public testing::Test {
 protected:
  InputChecksTest() {
    DeleteHistories();
    Start();
  }
  ~InputChecksTest() override {
    program_.reset();
    DeleteHistories();
  }

  void Start() {
    program_ = std::make_unique<driver::Program>("\"" DEMO_PROGRAM "\" --home \"" DEMO_HOME "\" checks");
    user_ = std::make_unique<User>(program_->Id());
    dialog_ = user_->WaitDialog(kTitle);
    user_->WaitUntil("the dialog has the input", [&] { return dialog_.IsForeground() && Edit(IDC_FILE).HasFocus(); });
    ExpectMessage("ファイルを選択してください。");
  }

  void Close() {
    user_->Click(dialog_.Child(IDCANCEL));
    EXPECT_EQ(program_->WaitForEnd(), 0);
  }

  /// Goes to a field other than the given one. The zone then shows a prompt, and no longer what was said of a text
  /// before.
  void Leave(int field) {
    const bool isNumber = field == IDC_NUMBER;
    user_->Click(dialog_.Child(isNumber ? IDC_SCALE : IDC_NUMBER));
    ExpectMessage(isNumber ? "尺度を入力してください。例：1/50" : "数値を入力してください。");
  }

  /// Types a text in place of the field's and checks it with Enter.
  void Enter(int field, const std::string& text) {
    Leave(field);
    const Window window = dialog_.Child(field);
    const bool isCombo = window.ClassName() == "ComboBox";
    const Window edit = isCombo ? window.FindChildOfClass("Edit") : window;
    user_->Replace(edit, text);
    user_->WaitUntil("the text is typed", [&] { return edit.Text() == text; });
    user_->Key(VK_RETURN);
  }

  /// Waits until the message zone shows the text and nothing else.
  void ExpectMessage(const std::string& text) {
    user_->WaitUntil("the message zone shows " + text, [&] { return ZoneShows(text); });
  }
  [[nodiscard]] bool ZoneShows(const std::string& text) const {
    RECT zone = dialog_.ClientScreenRect();
    zone.left += kFontHeight;
    zone.top = zone.bottom - kZoneHeight;
    const driver::Picture seen = driver::Capture(zone);
    return seen == Written(text, seen.Width(), seen.Height(), seen.At(seen.Width() - 1, seen.Height() - 1));
  }

  /// Waits for a message box, answers it, and returns what it said.
  MessageBoxView Answer(int button) {
    const MessageBoxView box = user_->WaitMessageBox();
    EXPECT_EQ(box.caption, kTitle);
    user_->Answer(box, button);
    user_->WaitUntil("the dialog has the input again", [&] { return dialog_.IsEnabled() && dialog_.IsForeground(); });
    return box;
  }

  [[nodiscard]] Window Edit(int combo) const { return dialog_.Child(combo).FindChildOfClass("Edit"); }
  [[nodiscard]] Texts Offered(int combo) const { return dialog_.Child(combo).Items(); }
  void WaitOffered(int combo, const Texts& entries) {
    user_->WaitUntil("the list is offered", [&] { return Offered(combo) == entries; });
  }

  std::unique_ptr<driver::Program> program_;
  std::unique_ptr<User> user_;
  Window dialog_;
};

TEST_F(InputChecksTest, EachFieldShowsItsPrompt) {
  user_->Click(dialog_.Child(IDC_SCALE));
  ExpectMessage("尺度を入力してください。例：1/50");
  user_->Key(VK_TAB);
  ExpectMessage("");
  user_->Click(dialog_.Child(IDC_NUMBER));
  ExpectMessage("数値を入力してください。");
  user_->Click(Edit(IDC_NAME));
  ExpectMessage("モデル名を入力してください。");
  user_->Click(Edit(IDC_FILE));
  ExpectMessage("ファイルを選択してください。");
  Close();
}

TEST_F(InputChecksTest, AFieldThatIsLeftLosesTheBlanksAtItsEnd) {
  const Window scale = dialog_.Child(IDC_SCALE);
  user_->Replace(scale, " 1 / 2   ");
  user_->Key(VK_TAB);
  user_->WaitUntil("the text is trimmed", [&] { return scale.Text() == " 1 / 2"; });
  Close();
}

TEST_F(InputChecksTest, Scales) {
  for (const char* refused : {"1/0", "0", "1000001", "1 / 2", "", "1\\2"}) {
    Enter(IDC_SCALE, refused);
    ExpectMessage("尺度の形式が正しくありません。");
  }
  const std::array<std::pair<const char*, const char*>, 4> accepted = {{{"1/500", "尺度は 1/500 です（0.002）。"},
                                                                        {"2/4", "尺度は 1/2 です（0.5）。"},
                                                                        {"2.50", "尺度は 2.5 です（2.5）。"},
                                                                        {"0.3", "尺度は 0.3 です（0.3）。"}}};
  for (const auto& [typed, message] : accepted) {
    Enter(IDC_SCALE, typed);
    ExpectMessage(message);
  }
  for (const char* wide : {"１／５０", "尺度"}) {
    Enter(IDC_SCALE, wide);
    ExpectMessage("数値と尺度は半角文字で入力してください。");
  }
  Close();
}

TEST_F(InputChecksTest, ARefusedTextIsSelectedForANewTry) {
  const Window scale = dialog_.Child(IDC_SCALE);
  user_->Replace(scale, "1/0");
  user_->Click(dialog_.Child(IDC_CHECK_SCALE));
  ExpectMessage("尺度の形式が正しくありません。");
  user_->WaitUntil("the refused text is selected", [&] { return scale.TextSelection() == std::pair(0, 3); });
  user_->Type("1/50");
  user_->WaitUntil("the text is replaced", [&] { return scale.Text() == "1/50"; });
  user_->Click(dialog_.Child(IDC_CHECK_SCALE));
  ExpectMessage("尺度は 1/50 です（0.02）。");
  Close();
}

TEST_F(InputChecksTest, NumbersOfEachKind) {
  struct Case {
    int kind;
    const char* typed;
    const char* message;
  };
  constexpr const char* kNoNumber = "数値ではありません。";
  constexpr const char* kFullWidth = "数値と尺度は半角文字で入力してください。";
  constexpr const char* kOutOfRange = "値が範囲を超えています。";
  for (const Case& each :
       {Case{IDC_UNSIGNED, "-5", kNoNumber}, Case{IDC_UNSIGNED, "007", "数値は 7.0 です。"},
        Case{IDC_UNSIGNED, "1001", kOutOfRange}, Case{IDC_REAL, "-5.250", "数値は -5.25 です。"},
        Case{IDC_REAL, "1000.5", kOutOfRange}, Case{IDC_REAL, "1000", "数値は 1000.0 です。"},
        Case{IDC_REAL, "1e3", kNoNumber}, Case{IDC_REAL, "", kNoNumber}, Case{IDC_REAL, "12-3", "数値は 12.0 です。"},
        Case{IDC_SIGNED, "1.5", kNoNumber}, Case{IDC_SIGNED, "+-1", kNoNumber},
        Case{IDC_SIGNED, "-1000", "数値は -1000.0 です。"}, Case{IDC_SIGNED, "１２", kFullWidth}}) {
    user_->Click(dialog_.Child(each.kind));
    Enter(IDC_NUMBER, each.typed);
    ExpectMessage(each.message);
  }
  Close();
}

TEST_F(InputChecksTest, ModelNames) {
  Enter(IDC_NAME, "");
  ExpectMessage("モデル名を入力してください。");
  for (const char* refused : {"A|B", "A*", "A/B", "表"}) {  // the last ends in the byte of a backslash
    Enter(IDC_NAME, refused);
    ExpectMessage("モデル名に使えない文字があります。");
  }
  Enter(IDC_NAME, "漢字 Ab-1ｱ");
  ExpectMessage("このモデル名は使えます。");
  WaitOffered(IDC_NAME, {"漢字 Ab-1ｱ "});
  Close();
}

TEST_F(InputChecksTest, ModelNamesMayHoldTheChosenLettersOnly) {
  const std::array<std::pair<int, const char*>, 6> letters = {{{IDC_CAPITALS, "A"},
                                                               {IDC_SMALL_LETTERS, "a"},
                                                               {IDC_DIGITS, "7"},
                                                               {IDC_SYMBOLS, "-"},
                                                               {IDC_KATAKANA, "ｱ"},
                                                               {IDC_DOUBLE_BYTE, "漢"}}};
  for (const auto& [box, text] : letters) {
    user_->Click(dialog_.Child(box));
    Enter(IDC_NAME, text);
    ExpectMessage("選ばれていない種類の文字があります。");
    user_->Click(dialog_.Child(box));
    Enter(IDC_NAME, text);
    ExpectMessage("このモデル名は使えます。");
  }
  Close();
}

TEST_F(InputChecksTest, FileNamesAreRefusedInABox) {
  Enter(IDC_FILE, "");
  EXPECT_EQ(Answer(IDOK).text, "ファイル名が入力されていません。");
  Enter(IDC_FILE, "a|b");
  EXPECT_EQ(Answer(IDOK).text,
            "ファイル名に無効な文字が使用されています。\n* ? ' | \" < > 及び半角カタカナは使用できません。");
  Enter(IDC_FILE, "missing.txt");
  const std::string text = Answer(IDOK).text;
  EXPECT_TRUE(text.starts_with("File : Z:\\")) << text;
  EXPECT_TRUE(text.ends_with("\\demo\\data\\TEXT\\missing.txt\n\n入力ファイルが見つかりません")) << text;
  Enter(IDC_FILE, "NOTES.TXT");
  ExpectMessage("入力できます：NOTES.TXT");
  Close();
}

TEST_F(InputChecksTest, OutputFilesAreWrittenOverWhenTheUserAgrees) {
  user_->Click(dialog_.Child(IDC_OUTPUT));
  Enter(IDC_FILE, "NOTES.TXT");
  const MessageBoxView box = Answer(IDNO);
  EXPECT_TRUE(box.text.ends_with("\\TEXT\\NOTES.TXT\n\n出力ファイルが既に存在します\n上書きしますか？")) << box.text;
  EXPECT_EQ(box.buttons, (std::vector<int>{IDYES, IDNO}));
  EXPECT_EQ(Offered(IDC_FILE), Texts{});
  Enter(IDC_FILE, "NOTES.TXT");
  Answer(IDYES);
  ExpectMessage("出力できます：NOTES.TXT");
  Enter(IDC_FILE, "新規.TXT");
  ExpectMessage("出力できます：新規.TXT");
  Enter(IDC_FILE, "無い\\新規.TXT");
  const std::string folder = Answer(IDOK).text;
  EXPECT_TRUE(folder.starts_with("Folder : Z:\\")) << folder;
  EXPECT_TRUE(folder.ends_with("\\TEXT\\無い\n\nフォルダが見つかりません")) << folder;
  Close();
}

TEST_F(InputChecksTest, RecentFilesOutliveTheWindow) {
  Enter(IDC_FILE, "注記一般.TXT");
  WaitOffered(IDC_FILE, {"注記一般.TXT "});
  Enter(IDC_FILE, "NOTES.TXT");
  WaitOffered(IDC_FILE, {"NOTES.TXT ", "注記一般.TXT "});
  user_->Click(dialog_.Child(IDC_OUTPUT));
  WaitOffered(IDC_FILE, {});
  Enter(IDC_FILE, "新規.TXT");
  WaitOffered(IDC_FILE, {"新規.TXT "});
  Close();
  EXPECT_EQ(StoredCount(kFilesKey, "iFileCount"), 10U);
  EXPECT_EQ(Stored(kFilesKey, "iFile01"), "NOTES.TXT");
  EXPECT_EQ(Stored(kFilesKey, "iFile02"), "注記一般.TXT");
  EXPECT_EQ(Stored(kFilesKey, "iFile03"), "");
  EXPECT_EQ(Stored(kFilesKey, "oFile01"), "新規.TXT");

  Start();
  WaitOffered(IDC_FILE, {"NOTES.TXT ", "注記一般.TXT "});
  user_->ChooseComboItem(dialog_.Child(IDC_FILE), 1);
  user_->Click(dialog_.Child(IDC_CHECK_FILE));
  ExpectMessage("入力できます：注記一般.TXT");
  WaitOffered(IDC_FILE, {"注記一般.TXT ", "NOTES.TXT "});
  EXPECT_EQ(Edit(IDC_FILE).Text(), "注記一般.TXT");
  Close();
  EXPECT_EQ(Stored(kFilesKey, "iFile01"), "注記一般.TXT");
  EXPECT_EQ(Stored(kFilesKey, "iFile02"), "NOTES.TXT");
}

TEST_F(InputChecksTest, RecentNamesOutliveTheWindow) {
  for (const char* name : {"P-01", "配管図", "P-02"}) {
    Enter(IDC_NAME, name);
    ExpectMessage("このモデル名は使えます。");
  }
  Enter(IDC_NAME, "p-01");
  WaitOffered(IDC_NAME, {"p-01 ", "P-02 ", "配管図 "});
  Close();
  EXPECT_EQ(StoredCount(kNamesKey, "NameCount"), 10U);
  EXPECT_EQ(Stored(kNamesKey, "Name01"), "p-01");
  EXPECT_EQ(Stored(kNamesKey, "Name02"), "P-02");
  EXPECT_EQ(Stored(kNamesKey, "Name03"), "配管図");

  Start();
  WaitOffered(IDC_NAME, {"p-01 ", "P-02 ", "配管図 "});
  user_->ChooseComboItem(dialog_.Child(IDC_NAME), 1);
  user_->Click(dialog_.Child(IDC_DELETE_NAME));
  ExpectMessage("履歴から削除しました。");
  EXPECT_EQ(Offered(IDC_NAME), (Texts{"p-01 ", "配管図 "}));
  user_->Click(dialog_.Child(IDC_DELETE_NAME));
  ExpectMessage("この項目は履歴にありません。");
  Close();
  EXPECT_EQ(Stored(kNamesKey, "Name01"), "p-01");
  EXPECT_EQ(Stored(kNamesKey, "Name02"), "配管図");
  EXPECT_EQ(Stored(kNamesKey, "Name03"), "");
}

TEST_F(InputChecksTest, EscClosesTheWindow) {
  user_->Click(dialog_.Child(IDC_SCALE));
  user_->Key(VK_ESCAPE);
  EXPECT_EQ(program_->WaitForEnd(), 0);
}

}  // namespace
