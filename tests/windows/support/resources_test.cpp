// The library's resources as clients find them: numbers, texts and places of controls, menus, image sizes.
#include "dlglib/resources/resource.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <cstring>
#include <ostream>
#include <string>
#include <vector>

namespace {

HINSTANCE Module() { return GetModuleHandleA(nullptr); }

std::string Sjis(const std::wstring& wide) {
  std::string text(wide.size() * 2, '\0');
  const int length = WideCharToMultiByte(932, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                                         static_cast<int>(text.size()), nullptr, nullptr);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

// ---- dialog templates

/// A place in dialog units.
struct Place {
  int x, y, width, height;
  friend bool operator==(const Place&, const Place&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Place& place) {
    return out << place.x << ", " << place.y << ", " << place.width << ", " << place.height;
  }
};

struct Control {
  int id = 0;
  std::string className;
  Place place{};
  std::string text;
  DWORD style = 0;
};

struct Template {
  DWORD style = 0;
  Place place{};
  std::string caption;
  int points = 0;
  std::string font;
  std::vector<Control> controls;
};

/// Reads an extended dialog template from its start to its end.
class Reader {
 public:
  explicit Reader(const void* start) : start_(static_cast<const unsigned char*>(start)) {}

  template <class Value>
  Value Take() {
    Value value;
    std::memcpy(&value, start_ + at_, sizeof value);
    at_ += sizeof value;
    return value;
  }
  Place TakePlace() {
    const auto x = Take<short>();
    const auto y = Take<short>();
    const auto width = Take<short>();
    const auto height = Take<short>();
    return {x, y, width, height};
  }
  /// A text, or "#" and a number for an ordinal.
  std::string TakeName() {
    std::wstring text;
    for (auto unit = Take<WORD>(); unit != 0; unit = Take<WORD>()) {
      if (unit == 0xFFFF && text.empty()) return "#" + std::to_string(Take<WORD>());
      text.push_back(static_cast<wchar_t>(unit));
    }
    return Sjis(text);
  }
  void Align() { at_ = (at_ + 3) / 4 * 4; }

 private:
  const unsigned char* start_;
  std::size_t at_ = 0;
};

std::string ClassName(const std::string& name) {
  if (name == "#128") return "Button";
  if (name == "#129") return "Edit";
  if (name == "#130") return "Static";
  if (name == "#133") return "ComboBox";
  return name;
}

Control ReadControl(Reader* reader) {
  reader->Align();
  reader->Take<DWORD>();  // help
  reader->Take<DWORD>();  // extended style
  Control control;
  control.style = reader->Take<DWORD>();
  control.place = reader->TakePlace();
  control.id = reader->Take<int>();
  control.className = ClassName(reader->TakeName());
  control.text = reader->TakeName();
  const auto extra = reader->Take<WORD>();
  for (int i = 0; i < extra; ++i) reader->Take<char>();
  return control;
}

Template ReadDialog(int id) {
  Template result;
  HRSRC resource = FindResourceA(Module(), MAKEINTRESOURCEA(id), MAKEINTRESOURCEA(5));
  if (resource == nullptr) return result;
  Reader reader(LockResource(LoadResource(Module(), resource)));
  EXPECT_EQ(reader.Take<WORD>(), 1) << "version";
  EXPECT_EQ(reader.Take<WORD>(), 0xFFFF) << "extended";
  reader.Take<DWORD>();
  reader.Take<DWORD>();
  result.style = reader.Take<DWORD>();
  const auto count = reader.Take<WORD>();
  result.place = reader.TakePlace();
  reader.TakeName();  // menu
  reader.TakeName();  // class
  result.caption = reader.TakeName();
  result.points = reader.Take<WORD>();
  reader.Take<DWORD>();  // weight, slant, character set
  result.font = reader.TakeName();
  for (int i = 0; i < count; ++i) result.controls.push_back(ReadControl(&reader));
  return result;
}

enum Visibility { kShown, kHidden };

struct Expected {
  int id;
  const char* className;
  Place place;
  const char* text;
  Visibility visibility = kShown;
};

void ExpectDialog(int id, const char* caption, int width, int height, const std::vector<Expected>& controls) {
  const Template found = ReadDialog(id);
  EXPECT_EQ(found.caption, caption);
  EXPECT_EQ(found.place, (Place{0, 0, width, height}));
  EXPECT_EQ(found.points, 9);
  EXPECT_EQ(found.font, "ＭＳ ゴシック");
  ASSERT_EQ(found.controls.size(), controls.size());
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const Control& control = found.controls[i];
    SCOPED_TRACE(controls[i].id);
    EXPECT_EQ(control.id, controls[i].id);
    EXPECT_STRCASEEQ(control.className.c_str(), controls[i].className);
    EXPECT_EQ(control.place, controls[i].place);
    EXPECT_EQ(control.text, controls[i].text);
    EXPECT_EQ((control.style & WS_VISIBLE) != 0, controls[i].visibility == kShown);
  }
}

DWORD StyleOf(int dialog, int id) {
  for (const Control& control : ReadDialog(dialog).controls) {
    if (control.id == id) return control.style;
  }
  ADD_FAILURE() << "no control " << id;
  return 0;
}

constexpr char kList[] = "SysListView32";

TEST(Dialogs, TheMetacharacterPickerIsAListAboveHiddenControls) {
  ExpectDialog(IDD_META_CHAR, "メタ文字", 95, 107,
               {{IDOK, "Button", {0, 93, 50, 14}, "OK", kHidden},
                {IDCANCEL, "Button", {45, 93, 50, 14}, "ｷｬﾝｾﾙ", kHidden},
                {10004, kList, {4, 3, 88, 101}, ""},
                {10001, "Edit", {50, 95, 35, 12}, "", kHidden}});
  EXPECT_EQ(StyleOf(IDD_META_CHAR, 10004) & 0xFFFF,
            static_cast<DWORD>(LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOCOLUMNHEADER));
}

TEST(Dialogs, TheFileBrowserHasItsControlsInTheirPlaces) {
  ExpectDialog(IDD_FILE_DIALOG, "ファイルの選択", 357, 190,
               {{10035, "Static", {6, 8, 57, 8}, "ファイルの場所"},
                {10018, "ComboBox", {72, 6, 191, 319}, ""},
                {10012, "Button", {271, 6, 15, 13}, "←"},
                {10013, "Button", {290, 6, 17, 14}, "↑"},
                {10027, "Button", {310, 6, 15, 13}, "〇"},
                {10014, "Button", {329, 6, 21, 13}, "形式"},
                {10010, kList, {6, 26, 344, 115}, ""},
                {10019, "Static", {6, 152, 41, 8}, "ファイル名"},
                {10045, "ComboBox", {50, 150, 25, 100}, "", kHidden},
                {10008, "ComboBox", {78, 150, 210, 152}, ""},
                {10021, "Static", {6, 171, 57, 8}, "ファイルの種類"},
                {10009, "ComboBox", {78, 169, 210, 85}, ""},
                {IDOK, "Button", {300, 149, 50, 14}, "開く"},
                {IDCANCEL, "Button", {300, 167, 50, 14}, "取消"}});
  EXPECT_NE(ReadDialog(IDD_FILE_DIALOG).style & WS_THICKFRAME, 0U);
}

TEST(Dialogs, FileBrowserControlsHaveTheirKinds) {
  constexpr DWORD kKind = 0x0F;
  EXPECT_EQ(StyleOf(IDD_FILE_DIALOG, 10018) & 0x3FF,
            static_cast<DWORD>(CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS));
  EXPECT_EQ(StyleOf(IDD_FILE_DIALOG, 10008) & kKind, static_cast<DWORD>(CBS_DROPDOWN));
  EXPECT_EQ(StyleOf(IDD_FILE_DIALOG, 10009) & kKind, static_cast<DWORD>(CBS_DROPDOWNLIST));
  EXPECT_EQ(StyleOf(IDD_FILE_DIALOG, 10045) & kKind, static_cast<DWORD>(CBS_DROPDOWNLIST));
  EXPECT_EQ(StyleOf(IDD_FILE_DIALOG, IDOK) & kKind, static_cast<DWORD>(BS_DEFPUSHBUTTON));
  // Not taken from the pointer: a static text without SS_NOTIFY lets the dialog have its clicks.
  EXPECT_EQ(StyleOf(IDD_FILE_DIALOG, 10019) & SS_NOTIFY, 0U);
  const DWORD list = StyleOf(IDD_FILE_DIALOG, 10010);
  EXPECT_EQ(list & LVS_TYPEMASK, static_cast<DWORD>(LVS_REPORT));
  EXPECT_EQ(list & LVS_EDITLABELS, static_cast<DWORD>(LVS_EDITLABELS));
}

TEST(Dialogs, TheNetworkLogonShowsThePathAndHidesThePassword) {
  const Template found = ReadDialog(IDD_FILE_USER);
  EXPECT_EQ(found.caption, "パスワード");
  ASSERT_EQ(found.controls.size(), 8U);
  EXPECT_EQ(found.controls[0].text, "アクセスするにはパスワードおよびユーザー名が必要です：");
  EXPECT_EQ(found.controls[2].text, "ユーザー名");
  EXPECT_EQ(found.controls[4].text, "パスワード");
  EXPECT_EQ(found.controls[6].text, "OK");
  EXPECT_EQ(found.controls[7].text, "キャンセル");
  EXPECT_NE(StyleOf(IDD_FILE_USER, 10025) & ES_READONLY, 0U);
  EXPECT_NE(StyleOf(IDD_FILE_USER, 10024) & ES_PASSWORD, 0U);
  EXPECT_EQ(StyleOf(IDD_FILE_USER, 10023) & (ES_PASSWORD | ES_READONLY), 0U);
}

TEST(Dialogs, TheModelTitleItemsStandInAList) {
  ExpectDialog(IDD_MODEL_TITLE, "表示モデルタイトル項目の設定", 323, 101,
               {{10028, kList, {7, 7, 309, 68}, ""},
                {10027, "Button", {7, 79, 66, 15}, "ソート条件設定"},
                {10018, "ComboBox", {116, 82, 81, 123}, "", kHidden},
                {IDOK, "Button", {205, 80, 50, 14}, "設定"},
                {IDCANCEL, "Button", {266, 80, 50, 14}, "取消"}});
  const DWORD list = StyleOf(IDD_MODEL_TITLE, 10028);
  EXPECT_EQ(list & 0xFFFF, static_cast<DWORD>(LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER));
  EXPECT_NE(list & WS_BORDER, 0U);
}

TEST(Dialogs, EachSortConditionIsAGroupOfItsOwn) {
  ExpectDialog(IDD_MODEL_SORT, "モデルタイトルでのソート条件設定", 264, 133,
               {{10031, "Button", {12, 12, 96, 10}, "無条件にソートする。"},
                {10032, "Button", {12, 30, 184, 10}, "モデルの個数が制限を超えたらソートしない。"},
                {10033, "Button", {12, 48, 232, 10}, "モデルの個数が制限を超えたら確認ダイアログを表示する。"},
                {IDC_NONE, "Static", {43, 80, 73, 8}, "モデルの個数の制限"},
                {10034, "Edit", {130, 78, 56, 12}, ""},
                {IDOK, "Button", {143, 112, 50, 14}, "設定"},
                {IDCANCEL, "Button", {207, 112, 50, 14}, "取消"}});
  for (const int id : {10031, 10032, 10033}) {
    EXPECT_EQ(StyleOf(IDD_MODEL_SORT, id) & 0x0F, static_cast<DWORD>(BS_AUTORADIOBUTTON));
    EXPECT_NE(StyleOf(IDD_MODEL_SORT, id) & WS_GROUP, 0U);
  }
  EXPECT_NE(StyleOf(IDD_MODEL_SORT, 10034) & ES_NUMBER, 0U);
}

TEST(Dialogs, TheSortQuestionIsAnsweredByYesOrNo) {
  ExpectDialog(IDD_MODEL_CONFIRM, "確認", 220, 73,
               {{10029, "Static", {7, 7, 206, 12}, "モデルの個数がxxxxxxを超えました。"},
                {10030, "Static", {7, 23, 206, 14}, "時間がかかりますがソートしますか？"},
                {IDOK, "Button", {107, 52, 50, 14}, "はい"},
                {IDCANCEL, "Button", {163, 52, 50, 14}, "いいえ"},
                {10027, "Button", {7, 52, 71, 14}, "ソート条件設定"}});
}

TEST(Dialogs, TheNewFolderDialogShowsAFolder) {
  const Template found = ReadDialog(IDD_NEW_FOLDER);
  EXPECT_EQ(found.caption, "");
  EXPECT_NE(found.style & WS_CAPTION, 0U);
  ASSERT_EQ(found.controls.size(), 4U);
  EXPECT_EQ(found.controls[0].id, 10038);
  EXPECT_EQ(found.controls[0].text, "#10078");
  EXPECT_EQ(found.controls[0].style & SS_TYPEMASK, static_cast<DWORD>(SS_ICON));
  EXPECT_EQ(found.controls[1].id, 10001);
  EXPECT_EQ(found.controls[2].text, "作成");
  EXPECT_EQ(found.controls[3].text, "取消");
}

TEST(Dialogs, TheHoverBalloonIsABarePopup) {
  const Template found = ReadDialog(IDD_TOOL_TIP);
  EXPECT_TRUE(found.controls.empty());
  EXPECT_EQ(found.style & (WS_POPUP | WS_CAPTION | WS_BORDER | WS_VISIBLE), WS_POPUP);
}

// ---- menus

struct Entry {
  UINT id;
  std::string text;
  friend bool operator==(const Entry&, const Entry&) = default;
};

/// The entries of the popup of a menu resource.
std::vector<Entry> MenuEntries(int id) {
  HMENU bar = LoadMenuA(Module(), MAKEINTRESOURCEA(id));
  HMENU popup = GetSubMenu(bar, 0);
  std::vector<Entry> entries;
  for (int i = 0; i < GetMenuItemCount(popup); ++i) {
    wchar_t text[64] = {};
    const int length = GetMenuStringW(popup, static_cast<UINT>(i), text, 64, MF_BYPOSITION);
    entries.push_back({GetMenuItemID(popup, i), Sjis({text, static_cast<std::size_t>(length)})});
  }
  DestroyMenu(bar);
  return entries;
}

TEST(Menus, TheViewMenusDifferInTheTitleDisplay) {
  std::vector<Entry> expected = {
      {3001, "大きいアイコン"}, {3002, "小さいアイコン"}, {3003, "詳細表示"}, {3004, "一覧表示"}};
  EXPECT_EQ(MenuEntries(IDM_VIEW), expected);
  expected.push_back({3005, "タイトル表示"});
  EXPECT_EQ(MenuEntries(IDM_VIEW_TITLE), expected);
}

TEST(Menus, TheEntryMenuDeletesAndRenames) {
  EXPECT_EQ(MenuEntries(IDM_ENTRY), (std::vector<Entry>{{32780, "削除"}, {32781, "名前の変更"}}));
}

// ---- images

TEST(Icons, EachComesInTwoSizesWithAlpha) {
  for (int id = IDI_CD_ROM; id <= IDI_SORT_DESCENDING; ++id) {
    if (id > IDI_SHARE && id < IDI_SORT_ASCENDING) continue;
    for (const int size : {16, 32}) {
      SCOPED_TRACE(id);
      auto* icon = static_cast<HICON>(LoadImageA(Module(), MAKEINTRESOURCEA(id), IMAGE_ICON, size, size, 0));
      ASSERT_NE(icon, nullptr);
      ICONINFO info = {};
      ASSERT_TRUE(GetIconInfo(icon, &info));
      BITMAP bitmap = {};
      GetObjectA(info.hbmColor, sizeof bitmap, &bitmap);
      EXPECT_EQ(bitmap.bmWidth, size);
      EXPECT_EQ(bitmap.bmBitsPixel, 32);
      DeleteObject(info.hbmColor);
      DeleteObject(info.hbmMask);
      DestroyIcon(icon);
    }
  }
}

SIZE BitmapSize(int id) {
  HANDLE image = LoadImageA(Module(), MAKEINTRESOURCEA(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
  BITMAP bitmap = {};
  GetObjectA(image, sizeof bitmap, &bitmap);
  EXPECT_EQ(bitmap.bmBitsPixel, 8) << id;
  DeleteObject(image);
  return {bitmap.bmWidth, bitmap.bmHeight};
}

TEST(Bitmaps, TheImagesOfAButtonAreOfOneSize) {
  std::vector<int> ids;
  for (int id = IDB_BACK; id <= IDB_CREATE_FOLDER_FOCUSED; ++id) ids.push_back(id);
  for (int id = IDB_VIEW; id <= IDB_CREATE_FOLDER_DISABLED; ++id) ids.push_back(id);
  ASSERT_EQ(ids.size(), 15U);
  for (const int id : ids) {
    const bool isView = id >= IDB_VIEW && id <= IDB_VIEW_FOCUSED;
    EXPECT_EQ(BitmapSize(id).cx, isView ? 32 : 24) << id;
    EXPECT_EQ(BitmapSize(id).cy, 22) << id;
  }
}

TEST(Bitmaps, TheToolbarStripHasThreeImages) {
  EXPECT_EQ(BitmapSize(IDB_TOOLBAR).cx, 48);
  EXPECT_EQ(BitmapSize(IDB_TOOLBAR).cy, 15);
}

TEST(Bitmaps, TheGroundTakesTheDialogsColour) {
  constexpr UINT kMapped = LR_LOADMAP3DCOLORS;
  HDC dc = CreateCompatibleDC(nullptr);
  HGDIOBJ image = LoadImageA(Module(), MAKEINTRESOURCEA(IDB_BACK_SELECTED), IMAGE_BITMAP, 0, 0, kMapped);
  HGDIOBJ former = SelectObject(dc, image);
  EXPECT_EQ(GetPixel(dc, 2, 2), GetSysColor(COLOR_3DFACE));
  EXPECT_EQ(GetPixel(dc, 0, 0), GetSysColor(COLOR_3DSHADOW));
  SelectObject(dc, former);
  DeleteObject(image);
  DeleteDC(dc);
}

}  // namespace
