#include "platform/framework/strings.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace std::string_view_literals;

TEST(Text, ComesFromAndGoesToPlainTexts) {
  EXPECT_STREQ(CString(), "");
  EXPECT_STREQ(CString(static_cast<const char*>(nullptr)), "");
  EXPECT_STREQ(CString("表示"), "表示");
  EXPECT_STREQ(CString(std::string("abc")), "abc");
  EXPECT_EQ(CString("a\0b"sv).GetLength(), 3);
  EXPECT_STREQ(CString('x', 3), "xxx");
  EXPECT_STREQ(CString('x', -1), "");
  EXPECT_STREQ(CString("abcdef", 2), "ab");
  EXPECT_STREQ(CString(nullptr, 2), "");
  const CString text = "abc";
  const char* plain = text;
  EXPECT_STREQ(plain, "abc");
  EXPECT_STREQ(text.GetString(), "abc");
}

TEST(Text, TellsItsLengthInBytes) {
  CString text = "表a";
  EXPECT_EQ(text.GetLength(), 3);
  EXPECT_FALSE(text.IsEmpty());
  text.Empty();
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_EQ(text.GetLength(), 0);
}

TEST(Text, ReachesSingleBytesWithinItself) {
  CString text = "abc";
  EXPECT_EQ(text.GetAt(2), 'c');
  EXPECT_EQ(text[0], 'a');
  EXPECT_EQ(text.GetAt(3), '\0');
  EXPECT_THROW(static_cast<void>(text.GetAt(4)), CInvalidArgException);
  EXPECT_THROW(static_cast<void>(text.GetAt(-1)), CInvalidArgException);
  text.SetAt(1, 'x');
  EXPECT_STREQ(text, "axc");
  EXPECT_THROW(text.SetAt(3, 'x'), CInvalidArgException);
  EXPECT_THROW(text.SetAt(-1, 'x'), CInvalidArgException);
}

TEST(Text, KeepsItsLengthBehindATerminatorInTheMiddle) {
  CString text = "abcdef";
  text.SetAt(2, '\0');
  EXPECT_EQ(text.GetLength(), 6);
  EXPECT_STREQ(text, "ab");
  EXPECT_TRUE(text == "ab");
  EXPECT_EQ(text.View(), "ab\0def"sv);
  const CString copy = text;
  EXPECT_EQ(copy.GetLength(), 6);
}

TEST(Text, GivesPartsAndLeavesOutWhatLiesOutside) {
  const CString text = "abcdef";
  EXPECT_STREQ(text.Left(2), "ab");
  EXPECT_STREQ(text.Left(99), "abcdef");
  EXPECT_STREQ(text.Left(-1), "");
  EXPECT_STREQ(text.Right(2), "ef");
  EXPECT_STREQ(text.Right(99), "abcdef");
  EXPECT_STREQ(text.Right(-1), "");
  EXPECT_STREQ(text.Mid(2), "cdef");
  EXPECT_STREQ(text.Mid(2, 3), "cde");
  EXPECT_STREQ(text.Mid(2, 99), "cdef");
  EXPECT_STREQ(text.Mid(99, 1), "");
  EXPECT_STREQ(text.Mid(-1, 2), "ab");
  EXPECT_STREQ(text.Mid(1, -1), "");
}

TEST(Text, IsSearchedByCharacters) {
  const CString text = "表\\ソa\\b";  // the second bytes of 表 and ソ are backslashes
  EXPECT_EQ(text.Find('\\'), 2);
  EXPECT_EQ(text.Find('\\', 3), 6);
  EXPECT_EQ(text.ReverseFind('\\'), 6);
  EXPECT_EQ(text.Find("ソ"), 3);
  EXPECT_EQ(text.Find("a\\"), 5);
  EXPECT_EQ(text.Find('z'), -1);
  EXPECT_EQ(text.Find("z"), -1);
  EXPECT_EQ(text.ReverseFind('z'), -1);
  EXPECT_EQ(text.Find('b', 99), -1);
  EXPECT_EQ(text.Find('a', -5), 5);
  EXPECT_EQ(text.Find(nullptr), -1);
  EXPECT_EQ(CString("ソ").ReverseFind('\\'), -1);
  EXPECT_EQ(CString("ab\x83").Find('\x83'), 2);  // half a character at the end
}

TEST(Text, ComparesBytes) {
  const CString text = "abc";
  EXPECT_TRUE(text == "abc");
  EXPECT_TRUE("abc" == text);
  EXPECT_TRUE(text == CString("abc"));
  EXPECT_TRUE(text != "abd");
  EXPECT_TRUE(text != CString("abcd"));
  EXPECT_TRUE(text < "abd");
  EXPECT_TRUE("abb" < text);
  EXPECT_TRUE(CString("abb") < text);
  EXPECT_TRUE(CString("z") < CString("表"));
  EXPECT_GT(text.Compare("abb"), 0);
  EXPECT_GT(text.Compare(nullptr), 0);
  EXPECT_EQ(text.CompareNoCase("ABC"), 0);
  EXPECT_NE(CString("\x83\x41").CompareNoCase("\x83\x61"), 0);
}

TEST(Text, IsPutTogether) {
  CString text = "a";
  text += "b";
  text += 'c';
  text += CString("d");
  EXPECT_STREQ(text, "abcd");
  text += text;
  EXPECT_STREQ(text, "abcdabcd");
  EXPECT_STREQ(CString("a") + CString("b"), "ab");
  EXPECT_STREQ(CString("a") + "b", "ab");
  EXPECT_STREQ("a" + CString("b"), "ab");
  EXPECT_STREQ(CString("a") + 'b', "ab");
  EXPECT_STREQ('a' + CString("b"), "ab");
  text = "x";
  text = text.GetString();
  EXPECT_STREQ(text, "x");
}

TEST(Text, IsFormattedAtAnyLength) {
  CString text;
  text.Format("%5d : %s", 201, "名称");
  EXPECT_STREQ(text, "  201 : 名称");
  text.Format("%s!", text.GetString());
  EXPECT_STREQ(text, "  201 : 名称!");
  const std::string large(100000, 'x');
  text.Format("<%s>", large.c_str());
  EXPECT_EQ(text.GetLength(), 100002);
  text.Format("%2.2d", 7);
  EXPECT_STREQ(text, "07");
}

TEST(Text, LendsItsBuffer) {
  CString text = "abc";
  char* buffer = text.GetBuffer(10);
  buffer[3] = 'd';
  buffer[4] = '\0';
  text.ReleaseBuffer();
  EXPECT_STREQ(text, "abcd");
  EXPECT_EQ(text.GetLength(), 4);
  static_cast<void>(text.GetBuffer(10));
  text.ReleaseBuffer(2);
  EXPECT_STREQ(text, "ab");
  static_cast<void>(text.GetBuffer(4));
  text.ReleaseBuffer(99);
  EXPECT_EQ(text.GetLength(), 4);
}

TEST(TextArray, KeepsWhatIsPutIntoIt) {
  CStringArray array;
  EXPECT_EQ(array.GetSize(), 0);
  EXPECT_EQ(array.GetUpperBound(), -1);
  EXPECT_EQ(array.Add("b"), 0);
  EXPECT_EQ(array.Add("d"), 1);
  array.InsertAt(0, "a");
  array.InsertAt(2, "c");
  array.InsertAt(4, "e");
  ASSERT_EQ(array.GetSize(), 5);
  EXPECT_STREQ(array.GetAt(0), "a");
  EXPECT_STREQ(array[4], "e");
  array.SetAt(4, "E");
  array[3] = "D";
  EXPECT_STREQ(array[4], "E");
  EXPECT_STREQ(array.GetAt(3), "D");
  array.InsertAt(0, array[4]);
  EXPECT_STREQ(array[0], "E");
  array.RemoveAt(0);
  array.RemoveAt(1, 2);
  ASSERT_EQ(array.GetSize(), 3);
  EXPECT_STREQ(array[1], "D");
  array.SetSize(4);
  EXPECT_STREQ(array[3], "");
  array.SetSize(1);
  EXPECT_EQ(array.GetSize(), 1);
  array.RemoveAll();
  EXPECT_TRUE(array.IsEmpty());
}

template <class Array>
class AnyArray : public testing::Test {};
using Arrays = testing::Types<CStringArray, CDWordArray>;
TYPED_TEST_SUITE(AnyArray, Arrays);

TYPED_TEST(AnyArray, RefusesIndicesOutside) {
  TypeParam array;
  const TypeParam& constant = array;
  array.SetSize(2);
  for (const int index : {-1, 2, 1000000, -1000000}) {
    EXPECT_THROW(static_cast<void>(array.GetAt(index)), CInvalidArgException);
    EXPECT_THROW(static_cast<void>(array[index]), CInvalidArgException);
    EXPECT_THROW(static_cast<void>(constant[index]), CInvalidArgException);
    EXPECT_THROW(array.SetAt(index, {}), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(index), CInvalidArgException);
  }
  EXPECT_THROW(array.InsertAt(3, {}), CInvalidArgException);
  EXPECT_THROW(array.InsertAt(-1, {}), CInvalidArgException);
  EXPECT_THROW(array.RemoveAt(1, 2), CInvalidArgException);
  EXPECT_THROW(array.RemoveAt(0, -1), CInvalidArgException);
  EXPECT_THROW(array.SetSize(-1), CInvalidArgException);
  EXPECT_EQ(array.GetSize(), 2);
}

TEST(NumberArray, KeepsNumbers) {
  CDWordArray array;
  array.Add(0xFFFFFFFFU);
  array.Add(7);
  EXPECT_EQ(array[0], 0xFFFFFFFFU);
  array[1] = 8;
  EXPECT_EQ(array.GetAt(1), 8U);
  array.SetSize(3);
  EXPECT_EQ(array[2], 0U);
}

TEST(TextList, IsWalkedFromItsHead) {
  CStringList list;
  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(list.GetHeadPosition(), nullptr);
  list.AddTail("b");
  list.AddTail("c");
  list.AddHead("a");
  EXPECT_EQ(list.GetCount(), 3);
  std::string walked;
  for (POSITION at = list.GetHeadPosition(); at != nullptr;) walked += list.GetNext(at);
  EXPECT_EQ(walked, "abc");
  POSITION head = list.GetHeadPosition();
  EXPECT_STREQ(list.GetAt(head), "a");
  list.GetNext(head) = "A";
  EXPECT_STREQ(list.GetAt(list.GetHeadPosition()), "A");
  list.RemoveAll();
  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(list.GetHeadPosition(), nullptr);
  list.AddHead("z");
  POSITION end = list.GetHeadPosition();
  static_cast<void>(list.GetNext(end));
  EXPECT_EQ(end, nullptr);
  EXPECT_THROW(static_cast<void>(list.GetNext(end)), CInvalidArgException);
  EXPECT_THROW(static_cast<void>(list.GetAt(nullptr)), CInvalidArgException);
}

}  // namespace
