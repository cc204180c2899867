#include "dlglib/filedialog/browser/name_choice.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using filedialog::EntryKind;
using filedialog::FileEntry;
using filedialog::NameChoice;

/// A row of the list; selected by the user unless a program did it.
FileEntry Row(const char* name, bool byUser = true) {
  FileEntry row;
  row.kind = EntryKind::Folder;
  row.name = name;
  row.selected = byUser;
  return row;
}

bool Speaks(const NameChoice& subject, const std::string& text, const std::vector<FileEntry>& rows) {
  std::vector<const FileEntry*> selected;
  for (const FileEntry& row : rows) selected.push_back(&row);
  return subject.IsSelection(text, selected);
}

TEST(NameChoice, WithoutASelectionTheTextCounts) {
  NameChoice subject;
  EXPECT_FALSE(Speaks(subject, "", {}));
  EXPECT_FALSE(Speaks(subject, "a.mdl", {}));
  subject.BrowserSelected();
  EXPECT_FALSE(Speaks(subject, "", {}));
}

TEST(NameChoice, TheUsersSelectionCountsWhateverTheBoxHeldAfterIt) {
  NameChoice subject;
  subject.UserSelected("b.mdl");
  EXPECT_TRUE(Speaks(subject, "b.mdl", {Row("b.mdl")}));
  EXPECT_TRUE(Speaks(subject, "b.mdl", {Row("Sub")})) << "a folder leaves the name in the box";
  EXPECT_TRUE(Speaks(subject, "b.mdl", {Row("Sub"), Row("b.mdl")}));
  subject.UserSelected("");
  EXPECT_TRUE(Speaks(subject, "", {Row("Sub")}));
}

TEST(NameChoice, TheUsersSelectionCountsNoLongerOnceTheBoxHasChanged) {
  NameChoice subject;
  subject.UserSelected("b.mdl");
  EXPECT_FALSE(Speaks(subject, "c.mdl", {Row("b.mdl")})) << "not typed, but another one";
  subject.Touched();
  EXPECT_FALSE(Speaks(subject, "b.mdl", {Row("b.mdl")}));
  subject.UserSelected("b.mdl");
  EXPECT_TRUE(Speaks(subject, "b.mdl", {Row("b.mdl")})) << "the last one who acted decides";
}

TEST(NameChoice, TheBrowsersSelectionCountsWhileTheBoxIsEmptyOrShowsItsName) {
  NameChoice subject;
  subject.UserSelected("b.mdl");
  subject.BrowserSelected();
  EXPECT_FALSE(Speaks(subject, "b.mdl", {Row("n")})) << "the box still shows what the user had selected";
  EXPECT_FALSE(Speaks(subject, "N", {Row("n")})) << "exactly its name";
  EXPECT_TRUE(Speaks(subject, "n", {Row("n")}));
  EXPECT_TRUE(Speaks(subject, "", {Row("n")}));
  subject.Touched();
  EXPECT_TRUE(Speaks(subject, "n", {Row("n")})) << "wherever the text came from";
  EXPECT_TRUE(Speaks(subject, "", {Row("n")}));
  EXPECT_FALSE(Speaks(subject, "b.mdl", {Row("n")}));
  subject.UserSelected("b.mdl");
  EXPECT_TRUE(Speaks(subject, "b.mdl", {Row("n")})) << "the user has clicked on it since";
}

TEST(NameChoice, ASelectionOfAnotherProgramIsNotTheUsers) {
  NameChoice subject;
  subject.UserSelected("b.mdl");
  EXPECT_FALSE(Speaks(subject, "b.mdl", {Row("c.mdl", false)}));
  EXPECT_FALSE(Speaks(subject, "b.mdl", {Row("b.mdl"), Row("c.mdl", false)}));
  EXPECT_TRUE(Speaks(subject, "c.mdl", {Row("c.mdl", false)}));
  subject.UserSelected("");
  EXPECT_TRUE(Speaks(subject, "", {Row("c.mdl", false)}));
}

}  // namespace
