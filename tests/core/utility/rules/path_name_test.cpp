#include "dlglib/utility/rules/path_name.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "dlglib/utility/rules/file_lookup.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"

namespace {

using path_name::FileNamePos;
using path_name::kNone;

// The functions, on bytes: the tests say themselves which encoding they give.
std::size_t LastByte(std::string_view sjis, int byte) { return path_name::LastByte(SjisView(sjis), byte); }
std::string_view FolderOf(std::string_view realPath) { return path_name::FolderOf(SjisView(realPath)).bytes(); }
std::string Real(std::string_view keyword, std::string_view path) {
  return path_name::Real(EucView(keyword), path).bytes();
}
std::vector<std::string> RealPaths(std::string_view keyword, std::string_view path) {
  std::vector<std::string> paths;
  for (const SjisText& real : path_name::RealPaths(EucView(keyword), path)) paths.push_back(real.bytes());
  return paths;
}
std::string RealOfSjis(std::string_view keyword, std::string_view path) {
  return path_name::RealOfSjis(EucView(keyword), SjisView(path)).bytes();
}
std::string Internal(std::string_view keyword, std::string_view path) {
  return path_name::Internal(EucView(keyword), SjisView(path)).bytes();
}

class PathNameTest : public testing::Test {
 protected:
  PathNameTest() {
    CwSession::Reset();
    CwFileTypeSet* kinds = CwSession::GetInstance()->GetActiveFileTypeSet();
    kinds->AddFileType(CwFileType("#MODEL#", "D:/shop", "*.MDL", 0, CwLetterCase::Upper));
    kinds->AddFileType(CwFileType("#TEXT#", "D:/" + std::string("\xC9\xBD") + "/", "*.txt", 0));  // "表" in EUC-JP
  }
  ~PathNameTest() override { CwSession::Reset(); }
};

// ---- searching a text

TEST(FileNamePos, IsBehindTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(FileNamePos("abc"), 0U);
  EXPECT_EQ(FileNamePos("x/y\\z"), 4U);
  EXPECT_EQ(FileNamePos("dir/"), 4U);
  EXPECT_EQ(FileNamePos(""), 0U);
  EXPECT_EQ(FileNamePos("/"), 1U);
  EXPECT_EQ(FileNamePos(std::string(100000, '\\')), 100000U);
}

TEST(FileNamePos, BytesAreSearchedOneByOne) { EXPECT_EQ(FileNamePos("表a"), 2U); }

TEST(LastByte, AnEmptyTextHasNone) { EXPECT_EQ(LastByte("", '\\'), kNone); }

TEST(LastByte, StepsOverCharacters) {
  EXPECT_EQ(LastByte("a\\b\\c", '\\'), 3U);
  EXPECT_EQ(LastByte("a\\表", '\\'), 1U);
  EXPECT_EQ(LastByte("表", '\\'), kNone);
  EXPECT_EQ(LastByte("\\\x81", '\\'), 0U);
  EXPECT_EQ(LastByte("a\x81", 'a'), 0U);
}

TEST(LastByte, EveryPairOfBytesAndEveryByteSearched) {
  const auto isLead = [](int byte) { return (byte >= 0x80 && byte <= 0x9F) || byte >= 0xE0; };
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second)};
      for (const int wanted : {first, second}) {
        std::size_t expected = kNone;
        if (wanted < 0x80 && first == wanted) expected = 0;
        if (wanted < 0x80 && second == wanted && !isLead(first)) expected = 1;
        EXPECT_EQ(LastByte(text, wanted), expected) << first << ' ' << second << ' ' << wanted;
      }
    }
  }
}

TEST(LastByte, NoByteIsAboveAByte) {
  EXPECT_EQ(LastByte("a\xB1", 0xB1), kNone);
  EXPECT_EQ(LastByte("a", 'a' + 256), kNone);
  EXPECT_EQ(LastByte("a", -159), kNone);
  EXPECT_EQ(LastByte("a", 0), kNone);
}

TEST(FolderOf, EndsInFrontOfTheLastSeparator) {
  EXPECT_EQ(FolderOf("D:\\w\\a.txt"), "D:\\w");
  EXPECT_EQ(FolderOf("D:\\a.txt"), "D:");
  EXPECT_EQ(FolderOf("a.txt"), "a.txt");
  EXPECT_EQ(FolderOf("D:\\表"), "D:");
}

// ---- converting

TEST_F(PathNameTest, ABareNameLiesInTheFolderOfItsKind) {
  EXPECT_EQ(Real("#MODEL#", "abc.mdl"), "D:\\shop\\abc.mdl");
  EXPECT_EQ(Internal("#MODEL#", "abc.mdl"), "D:/shop/abc.mdl");
}

TEST_F(PathNameTest, TheTypedSpellingSurvives) {
  EXPECT_EQ(Real("#MODEL#", "A/B/c.txt"), "D:\\shop\\A\\B\\c.txt");
  EXPECT_EQ(Real("#MODEL#", "Ａｂ.mdl"), "D:\\shop\\Ａｂ.mdl");
}

TEST_F(PathNameTest, AFullNameStays) {
  EXPECT_EQ(Real("#MODEL#", "C:/x/y.z"), "C:\\x\\y.z");
  EXPECT_EQ(Real("#MODEL#", "C:\\x\\y.z"), "C:\\x\\y.z");
  EXPECT_EQ(Internal("#MODEL#", "C:\\x\\y.z"), "C:/x/y.z");
  EXPECT_EQ(Internal("#MODEL#", "\\\\server\\share\\y.z"), "//server/share/y.z");
}

TEST_F(PathNameTest, WhatCannotBeResolvedIsConvertedAsItStands) {
  EXPECT_EQ(Real("#NONE#", "a/b"), "a\\b");
  EXPECT_EQ(Internal("#NONE#", "a\\b"), "a/b");
  EXPECT_EQ(Real("", "a"), "a");
  EXPECT_EQ(Real("#NONE#", ""), "");
}

TEST_F(PathNameTest, AnEmptyNameIsTheFolderOfItsKind) {
  EXPECT_EQ(Real("#MODEL#", ""), "D:\\shop\\");
  EXPECT_EQ(Internal("#MODEL#", ""), "D:/shop/");
}

TEST_F(PathNameTest, JapaneseNamesPassBothWays) {
  EXPECT_EQ(Real("#TEXT#", "能ソ.txt"), "D:\\表\\能ソ.txt");
  EXPECT_EQ(Internal("#TEXT#", "表\\ソ.txt"), "D:/\xC9\xBD/\xC9\xBD/\xA5\xBD.txt");
  EXPECT_EQ(Internal("#TEXT#", "ｱ"), "D:/\xC9\xBD/\x8E\xB1");
}

TEST_F(PathNameTest, TheInternalFormHasNoPlatformSeparator) {
  for (const char* path : {"C:\\a\\b", "a\\b\\", "\\\\s\\t", "表\\表", "a/b\\c"}) {
    EXPECT_EQ(Internal("#MODEL#", path).find('\\'), std::string::npos) << path;
  }
}

TEST_F(PathNameTest, LongPathsAreBounded) {
  for (const std::size_t length : {511U, 512U, 513U, 100000U}) {
    EXPECT_EQ(Real("#NONE#", std::string(length, 'x')), std::string(std::min<std::size_t>(length, 512), 'x'));
    EXPECT_LE(Real("#MODEL#", std::string(length, 'x')).size(), path_name::kMaxLength);
    EXPECT_LE(Internal("#MODEL#", std::string(length, 'x')).size(), path_name::kMaxLength);
  }
  // A resolution beyond 512 bytes leaves the name unresolved.
  EXPECT_EQ(Real("#MODEL#", std::string(504, 'x')), "D:\\shop\\" + std::string(504, 'x'));
  EXPECT_EQ(Real("#MODEL#", std::string(505, 'x')), std::string(505, 'x'));
}

TEST_F(PathNameTest, NoCharacterIsSplit) {
  std::string name;
  for (int i = 0; i < 256; ++i) name += "表";
  EXPECT_EQ(Real("#NONE#", name), name);
  EXPECT_EQ(Real("#NONE#", "a" + name), ("a" + name).substr(0, 511));
  std::string stored = "a";
  for (int i = 0; i < 255; ++i) stored += "\xC9\xBD";
  EXPECT_EQ(Internal("#NONE#", "a" + name), stored);
  // Half-width katakana takes two bytes on its way. An odd number of them is no EUC-JP.
  std::string katakana;
  for (int i = 0; i < 301; ++i) katakana += "ｱ";
  EXPECT_EQ(Real("#NONE#", katakana), katakana.substr(0, 256));
  EXPECT_EQ(Real("#NONE#", "a" + katakana), "a" + katakana.substr(0, 255));
}

// ---- which encoding a path is in

/// Names as designers give them to folders and files.
const std::vector<std::string> kEverydayNames = {
    "図面",       "部品",       "設計変更",     "型番",         "組立図",       "部品表",       "仕様書",
    "見積書",     "承認図",     "製作図",       "配管図",       "配線図",       "電気",         "機械",
    "建築",       "土木",       "構造",         "設備",         "配置図",       "平面図",       "立面図",
    "断面図",     "詳細図",     "系統図",       "展開図",       "外形図",       "回路図",       "基礎",
    "鉄骨",       "溶接",       "鋼板",         "鋳物",         "樹脂",         "金型",         "治具",
    "試作",       "量産",       "改訂",         "旧版",         "最新",         "原図",         "参考",
    "提出",       "受領",       "検図",         "保管",         "共有",         "個人",         "一時",
    "作業中",     "完了",       "未承認",       "廃止",         "標準部品",     "購入品",       "加工品",
    "社内",       "社外",       "顧客",         "客先",         "取引先",       "工場",         "本社",
    "支店",       "東京",       "大阪",         "名古屋",       "札幌",         "福岡",         "北港水道",
    "第一工場",   "第２工区",   "昭和",         "平成",         "令和元年",     "令和６年度",   "四月",
    "月次報告",   "年度末",     "議事録",       "写真",         "画像",         "資料",         "議案",
    "計算書",     "数量表",     "工程表",       "納品",         "請求書",       "発注",         "在庫",
    "品質",       "検査",       "不具合",       "対策",         "変更履歴",     "履歴",         "管理台帳",
    "番号",       "番号一覧",   "一覧",         "目次",         "表紙",         "表",           "能力表",
    "予定表",     "十字",       "ソ",           "モデル",       "パーツ",       "マクロ",       "テキスト",
    "ラスタ",     "シンボル",   "テンプレート", "バックアップ", "デスクトップ", "ドキュメント", "ダウンロード",
    "サンプル",   "テスト",     "プロジェクト", "ボルト",       "ナット",       "ポンプ",       "バルブ",
    "フランジ",   "ブラケット", "シャフト",     "ベアリング",   "ハウジング",   "カバー",       "ひな形",
    "さくいん",   "おためし",   "あ",           "①案",          "②案",          "Ⅲ期",          "㈱山田",
    "髙橋",       "﨑山",       "渡邊",         "齋藤",         "鈴木様",       "佐藤邸",       "Ａ棟",
    "Ｂ－０１",   "Ａ４横",     "Rev.Ａ",       "図面 控え",    "（仮）案",     "【済】図面",   "★重要",
    "部品～完成", "−５度",      "φ１００",      "図面ﾃﾞｰﾀ",     "ﾎﾟﾝﾌﾟ室",      "A棟ﾊﾞﾙﾌﾞ",     "MODEL",
    "A-001"};

TEST_F(PathNameTest, EverydayNamesComeBackFromTheSuitesForm) {
  for (const std::string& name : kEverydayNames) {
    for (const std::string& path : {name, name + ".mdl", "C:\\" + name + "\\" + name + ".mdl", name + "\\a.mdl"}) {
      const bool isFull = path.starts_with("C:");
      const std::string real = isFull ? path : "D:\\shop\\" + path;
      EXPECT_EQ(Real("#MODEL#", Internal("#MODEL#", path)), real) << name;
      EXPECT_EQ(Real("#MODEL#", path), real) << name;
    }
  }
}

TEST_F(PathNameTest, AFolderAndItsFileAreReadAsOneText) {
  EXPECT_EQ(Real("#NONE#", Internal("#NONE#", "C:\\図面\\籠.mdl")), "C:\\図面\\籠.mdl")
      << "籠 alone would be Shift_JIS";
  EXPECT_EQ(Real("#NONE#", Internal("#NONE#", "C:\\図面\\ﾃﾞｰﾀ.mdl")), "C:\\図面\\ﾃﾞｰﾀ.mdl");
}

TEST_F(PathNameTest, ARealNameOfHalfWidthKatakanaIsReadAsEucWhereItsBytesFormPairs) {
  EXPECT_NE(Real("#NONE#", "ﾃﾞｰﾀ.mdl"), "ﾃﾞｰﾀ.mdl");
  EXPECT_EQ(Real("#NONE#", "ﾃﾞｰﾀ1.mdl"), Real("#NONE#", "ﾃﾞｰﾀ") + "1.mdl");
  EXPECT_EQ(Real("#NONE#", "ｱｲｳ.mdl"), "ｱｲｳ.mdl") << "an odd number is no EUC-JP";
  EXPECT_EQ(Real("#NONE#", "ｩｪ.mdl"), "ｩｪ.mdl") << "EUC-JP has no such character, and a path must not lose its name";
}

TEST_F(PathNameTest, AnInternalNameThatMayBeDoubleByteShiftJisIsReadAsThat) {
  EXPECT_EQ(Real("#NONE#", "\x8E\xB1\x8E\xB2"), "\x8E\xB1\x8E\xB2");
  EXPECT_EQ(Real("#NONE#", Internal("#NONE#", "籠.mdl")), "\xE4\xC6.mdl") << "and so is one of rare Kanji alone";
}

TEST_F(PathNameTest, ThreeByteCharactersPassWhole) {
  EXPECT_EQ(Real("#NONE#", "\x8F\xF4\xFB\xB6\xB6"), "髙橋");
  EXPECT_EQ(Real("#NONE#", "\xB6\xB6\x8F\xF4\xFB/\xBF\xDE"), "橋髙\\図");
  EXPECT_EQ(Real("#NONE#", "\xBF\xDE\x8F\xB0\xA1\x8E\xB1.a"), "図?ｱ.a") << "Shift_JIS lacks it";
}

TEST_F(PathNameTest, APathThatMayBeBothHasTwoRealPaths) {
  using Paths = std::vector<std::string>;
  EXPECT_EQ(RealPaths("#MODEL#", "a.mdl"), Paths{"D:\\shop\\a.mdl"});
  EXPECT_EQ(RealPaths("#MODEL#", "図面.mdl"), Paths{"D:\\shop\\図面.mdl"});
  EXPECT_EQ(RealPaths("#MODEL#", Internal("#NONE#", "図面.mdl")), (Paths{"D:\\shop\\図面.mdl", "D:\\shop\\ｿﾞﾌﾌ.mdl"}));
  EXPECT_EQ(RealPaths("#MODEL#", "ｿﾞﾌﾌ.mdl"), (Paths{"D:\\shop\\図面.mdl", "D:\\shop\\ｿﾞﾌﾌ.mdl"}));
  EXPECT_EQ(RealPaths("#MODEL#", "\x8E\xB1"), (Paths{"D:\\shop\\\x8E\xB1", "D:\\shop\\ｱ"}));
  EXPECT_EQ(RealPaths("#MODEL#", "図\xFF"), Paths{"D:\\shop\\図?"});
}

TEST_F(PathNameTest, AnInternalPathThatIsValidShiftJisIsConvertedOnceMore) {
  const std::string internal = Internal("#NONE#", "図面.mdl");
  EXPECT_EQ(internal, "\xBF\xDE\xCC\xCC.mdl");
  EXPECT_EQ(Internal("#NONE#", internal), "\x8E\xBF\x8E\xDE\x8E\xCC\x8E\xCC.mdl");
  const std::string noSjis = Internal("#NONE#", "髙.mdl");
  EXPECT_EQ(Internal("#NONE#", noSjis), noSjis) << "whose bytes are no Shift_JIS";
}

TEST_F(PathNameTest, APathThatIsKnownToBeShiftJisIsNotGuessedAt) {
  EXPECT_EQ(RealOfSjis("#MODEL#", "ﾃﾞｰﾀ.mdl"), "D:\\shop\\ﾃﾞｰﾀ.mdl");
  EXPECT_EQ(RealOfSjis("#TEXT#", "能ソ.txt"), "D:\\表\\能ソ.txt");
}

// ---- which real path is meant

class FileLookup : public testing::Test {
 protected:
  FileLookup() { os::scripted::World().Reset(); }
  ~FileLookup() override { os::scripted::World().Reset(); }

  static void ExpectOutput(const std::string& path, file_lookup::Place place) {
    const file_lookup::Output output = file_lookup::ChooseOutput(kPaths, *os::Services().files);
    EXPECT_EQ(output.path.bytes(), path);
    EXPECT_EQ(output.place, place);
  }

  static inline const std::vector<SjisText> kPaths = {SjisText("C:\\図\\a"), SjisText("C:\\ｿﾞ\\a")};
};

TEST_F(FileLookup, TheSecondReadingCountsWhenOnlyItIsOnTheDisk) {
  os::Files& files = *os::Services().files;
  EXPECT_EQ(file_lookup::ChooseExisting(kPaths, files), kPaths[0]) << "none";
  os::scripted::World().files.AddFile(kPaths[1].bytes());
  EXPECT_EQ(file_lookup::ChooseExisting(kPaths, files), kPaths[1]);
  os::scripted::World().files.AddFile(kPaths[0].bytes());
  EXPECT_EQ(file_lookup::ChooseExisting(kPaths, files), kPaths[0]) << "both";
}

TEST_F(FileLookup, ASingleReadingIsNotLookedFor) {
  EXPECT_EQ(file_lookup::ChooseExisting({SjisText("C:\\a")}, *os::Services().files).bytes(), "C:\\a");
  EXPECT_EQ(os::scripted::World().calls.Count("files.Exists"), 0U);
}

TEST_F(FileLookup, AnOutputFileIsLookedForAndThenItsFolder) {
  using file_lookup::Place;
  ExpectOutput(kPaths[0].bytes(), Place::NoFolder);
  os::scripted::World().files.AddFolder("C:\\ｿﾞ");
  ExpectOutput(kPaths[1].bytes(), Place::Free);
  os::scripted::World().files.AddFolder("C:\\図");
  ExpectOutput(kPaths[0].bytes(), Place::Free);
  os::scripted::World().files.AddFile(kPaths[1].bytes());
  ExpectOutput(kPaths[1].bytes(), Place::Taken);
  os::scripted::World().files.AddFile(kPaths[0].bytes());
  ExpectOutput(kPaths[0].bytes(), Place::Taken);
}

TEST_F(PathNameTest, AnyBytesAreSurvived) {
  std::mt19937 random(5);
  for (int round = 0; round < 2000; ++round) {
    std::string path(random() % 600, '\0');
    for (char& byte : path) byte = static_cast<char>(1 + random() % 255);
    EXPECT_LE(Real("#MODEL#", path).size(), path_name::kMaxLength);
    EXPECT_EQ(Internal("#MODEL#", path).find('\\'), std::string::npos);
  }
}

}  // namespace
